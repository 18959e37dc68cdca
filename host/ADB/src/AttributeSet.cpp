#include "ADB/AttributeSet.hpp"

namespace ADB {

AttributeIndex AttributeSet::AddAttribute (std::shared_ptr<Attribute> attribute)
{
    if (attribute == nullptr) return InvalidAttributeIndex;
    TypeTable& table = types[attribute->GetTypeId ()];
    const AttributeIndex index (++table.lastIndex);
    attribute->SetIndex (index);
    table.attributes.emplace (index, std::move (attribute));
    if (!table.active.IsValid ()) table.active = index;
    return index;
}

bool AttributeSet::SetActiveAttribute (AttributeTypeId type, AttributeIndex index)
{
    auto found = types.find (type);
    if (found == types.end () || found->second.attributes.count (index) == 0) return false;
    found->second.active = index;
    return true;
}

const Attribute* AttributeSet::FindAttribute (AttributeTypeId type, AttributeIndex index) const
{
    auto found = types.find (type);
    if (found == types.end ()) return nullptr;
    auto attribute = found->second.attributes.find (index);
    return attribute == found->second.attributes.end () ? nullptr : attribute->second.get ();
}

ODB::ConstRef<Attribute> AttributeSet::GetConstAttribute (AttributeTypeId type, AttributeIndex index) const
{
    auto found = types.find (type);
    if (found == types.end ()) return {};
    auto attribute = found->second.attributes.find (index);
    if (attribute == found->second.attributes.end ()) return {};
    return ODB::ConstRef<Attribute> (attribute->second);
}

ODB::ConstRef<Attribute> AttributeSet::GetConstActiveAttribute (AttributeTypeId type) const
{
    auto found = types.find (type);
    if (found == types.end ()) return {};
    return GetConstAttribute (type, found->second.active);
}

std::vector<AttributeIndex> AttributeSet::GetAttributeIndices (AttributeTypeId type) const
{
    std::vector<AttributeIndex> indices;
    auto found = types.find (type);
    if (found == types.end ()) return indices;
    indices.reserve (found->second.attributes.size ());
    for (const auto& entry : found->second.attributes) indices.push_back (entry.first);
    return indices;
}

std::size_t AttributeSet::GetAttributeCount (AttributeTypeId type) const
{
    auto found = types.find (type);
    return found == types.end () ? 0 : found->second.attributes.size ();
}

AttributeIndex AttributeSet::FindAttributeIndex (AttributeTypeId type, const Kor::UniString& attributeName) const
{
    auto found = types.find (type);
    if (found == types.end ()) return InvalidAttributeIndex;
    for (const auto& [index, attribute] : found->second.attributes)
        if (attribute->GetName () == attributeName) return index;
    return InvalidAttributeIndex;
}

}   // namespace ADB
