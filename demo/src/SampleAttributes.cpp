#include "SampleAttributes.hpp"

#include "TxAttr/SampleAttributeSet.hpp"

namespace Demo {

namespace {

const ADB::AttributeSet& SampleSet ()
{
    static const std::shared_ptr<ADB::AttributeSet> set = TxAttr::MakeSampleAttributeSet ();
    return *set;
}

}   // namespace

const ADB::IAttributeSetProvider& GetSampleAttributes ()
{
    static const ADB::AttributeSetProvider provider {ODB::ConstRef<ADB::AttributeSet> (
        std::shared_ptr<const ADB::AttributeSet> (std::shared_ptr<const ADB::AttributeSet> {}, &SampleSet ()))};
    return provider;
}

ADB::AttributeIndex FindSampleAttribute (ADB::AttributeTypeId type, const std::string& name)
{
    return SampleSet ().FindAttributeIndex (type, Kor::UniString (name));
}

std::string GetSampleAttributeName (ADB::AttributeTypeId type, ADB::AttributeIndex index)
{
    const ADB::Attribute* attribute = SampleSet ().FindAttribute (type, index);
    return attribute != nullptr ? attribute->GetName ().ToUtf8 () : std::string ();
}

}   // namespace Demo
