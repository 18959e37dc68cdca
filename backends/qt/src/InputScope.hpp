#pragma once
// TxalQt::InputScope marks the time the backend spends inside the model: in its entry points,
// its painting callbacks and modal sessions. A peer widget whose item died meanwhile is released
// when the outermost scope ends, never while a callback of that widget (a button's clicked
// signal, a menu's nested event loop) may still be on the stack.

#include <QObject>

namespace TxalQt {

class InputScope {
public:
    InputScope ();
    InputScope (const InputScope&) = delete;
    InputScope& operator= (const InputScope&) = delete;
    ~InputScope ();

    static bool IsActive ();
    // Deletes object through deleteLater: at once outside every scope, else when the outermost
    // scope ends.
    static void Release (QObject& object);
};

}   // namespace TxalQt
