#include "CLS/ClassificationHierarchyConflictManager.hpp"

namespace CLS {

Kor::UniString ClassificationHierarchyConflictManager::GetItemDecoratedDisplayName (const ODB::ConstRef<IClassificationItem>& item)
{
    if (item.IsNull ()) return {};
    const Kor::UniString& code = item->GetCode ();
    const Kor::UniString& name = item->GetName ();
    if (code.IsEmpty ()) return name;
    if (name.IsEmpty ()) return code;
    return code + " " + name;
}

}   // namespace CLS
