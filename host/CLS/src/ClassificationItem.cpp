#include "CLS/ClassificationItem.hpp"

namespace CLS {

IClassificationItem::~IClassificationItem () = default;

ClassificationItem::ClassificationItem (Key, const ClassificationSystem& system, const Kor::UniString& code, const Kor::UniString& name,
                                        const Kor::UniString& description)
    : system (&system), code (code), name (name), description (description)
{
}

Kor::UniString ClassificationItem::GetDisplayName () const
{
    return name.IsEmpty () ? code : name;
}

ODB::ConstRef<IClassificationItem> ClassificationItem::GetParent () const
{
    return GetParentTyped ();
}

Kor::Array<ODB::ConstRef<IClassificationItem>> ClassificationItem::GetChildren () const
{
    Kor::Array<ODB::ConstRef<IClassificationItem>> result;
    result.reserve (children.size ());
    for (const auto& child : children) result.Push (ODB::ConstRef<ClassificationItem>::FromShared (child));
    return result;
}

ODB::ConstRef<ClassificationItem> ClassificationItem::GetParentTyped () const
{
    return ODB::ConstRef<ClassificationItem>::FromShared (parent.lock ());
}

Kor::Array<ODB::ConstRef<ClassificationItem>> ClassificationItem::GetChildrenTyped () const
{
    Kor::Array<ODB::ConstRef<ClassificationItem>> result;
    result.reserve (children.size ());
    for (const auto& child : children) result.Push (ODB::ConstRef<ClassificationItem>::FromShared (child));
    return result;
}

int ClassificationItem::GetDepth () const
{
    int depth = 0;
    for (auto p = parent.lock (); p != nullptr; p = p->parent.lock ()) ++depth;
    return depth;
}

}   // namespace CLS
