#include "InputScope.hpp"

#include <QPointer>
#include <vector>

namespace TxalQt {

namespace {

int depth = 0;
std::vector<QPointer<QObject>> released;

}   // namespace

InputScope::InputScope ()
{
    ++depth;
}

InputScope::~InputScope ()
{
    if (--depth > 0) return;
    // deleteLater may run code that opens a scope again: take the list first.
    std::vector<QPointer<QObject>> due;
    due.swap (released);
    for (const QPointer<QObject>& object : due)
        if (object != nullptr) object->deleteLater ();
}

bool InputScope::IsActive ()
{
    return depth > 0;
}

void InputScope::Release (QObject& object)
{
    if (depth == 0)
        object.deleteLater ();
    else
        released.emplace_back (&object);
}

}   // namespace TxalQt
