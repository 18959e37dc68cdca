#include <gtest/gtest.h>

#include <memory>

#include "Property/PropertyDefinition.hpp"

namespace {

using Property::EnumerationValue;
using Property::EnumerationValueDescriptor;
using Property::PropertyCollectionType;
using Property::PropertyValueType;
using Property::TypeValueDescriptor;

std::string Show (const Kor::Owner<Kor::DynamicValue>& value)
{
    if (value == nullptr) return "null";
    return std::string (value->GetClassName ()).find ("Bool") != std::string::npos ? "bool:" + value->ToDisplayText ().ToUtf8 ()
                                                                                      : value->ToDisplayText (Kor::DynamicValueConversionRules (1, 0)).ToUtf8 ();
}

Kor::Guid Key (std::uint8_t n)
{
    std::array<std::uint8_t, 16> bytes {};
    bytes[15] = n;
    return Kor::Guid (bytes);
}

class ValueDescriptorTest : public ::testing::Test {
protected:
    std::string Convert (PropertyValueType type, const char* text, PropertyCollectionType collection = PropertyCollectionType::Single)
    {
        return Show (TypeValueDescriptor (type, collection).ConvertFromString (Kor::StringValue (text)));
    }

    EnumerationValueDescriptor status {Kor::Array<EnumerationValue> {{Key (1), "NEW", "New", {}}, {Key (2), "EXISTING", "Existing", {}}}, true};
};

TEST_F (ValueDescriptorTest, TextsBecomeValuesOfTheirTypeOrNothing)
{
    EXPECT_EQ (Convert (PropertyValueType::Boolean, " YES ") + " " + Convert (PropertyValueType::Boolean, "0") + " " +
                   Convert (PropertyValueType::Boolean, "maybe"),
               "bool:Yes bool:No null");
    EXPECT_EQ (Convert (PropertyValueType::Integer, "42") + " " + Convert (PropertyValueType::Integer, "4.2") + " " +
                   Convert (PropertyValueType::Integer, ""),
               "42 null null");
    EXPECT_EQ (Convert (PropertyValueType::Real, "2.25") + " " + Convert (PropertyValueType::Real, "2,5"), "2.2 null");
    EXPECT_EQ (Convert (PropertyValueType::String, " as typed "), " as typed ");
    EXPECT_EQ (Convert (PropertyValueType::Integer, "1\r\n2\n\n 3 ", PropertyCollectionType::List), "1; 2; 3");
}

TEST_F (ValueDescriptorTest, FreshValuesFollowTypeAndCollection)
{
    EXPECT_EQ (Show (TypeValueDescriptor (PropertyValueType::Boolean, PropertyCollectionType::Single).CreateValue ()), "bool:No");
    EXPECT_EQ (Show (TypeValueDescriptor (PropertyValueType::Real, PropertyCollectionType::Single).CreateValue ()), "0.0");
    const auto list = TypeValueDescriptor (PropertyValueType::Real, PropertyCollectionType::List).CreateValue ();
    EXPECT_NE (Kor::DynamicCast<Kor::StringListValue> (list.Get ()), nullptr);
    EXPECT_NE (Kor::DynamicCast<Kor::GuidListValue> (status.CreateValue ().Get ()), nullptr);
}

TEST_F (ValueDescriptorTest, EnumerationsMatchDisplayTextsThenStoredValues)
{
    EXPECT_EQ (Show (status.ConvertFromString (Kor::StringValue ("Existing"))), Key (2).ToUniString ().ToUtf8 ());
    EXPECT_EQ (Show (status.ConvertFromString (Kor::StringValue ("NEW"))), Key (1).ToUniString ().ToUtf8 ());
    EXPECT_EQ (Show (status.ConvertFromString (Kor::StringValue ("new"))), "null");
    const EnumerationValueDescriptor single (status.GetEnumerationValues (), false);
    EXPECT_EQ (Show (single.ConvertFromString (Kor::StringValue ("EXISTING"))), "Existing");
}

TEST_F (ValueDescriptorTest, GuidListsReadAsTheirValuesDisplayTexts)
{
    const Kor::DynamicValueConversionRules rules;
    EXPECT_EQ (status.GetDisplayValue (Kor::GuidListValue ({Key (2), Key (9), Key (1)}), rules).ToUtf8 (), "Existing; New");
    EXPECT_EQ (status.GetDisplayValue (Kor::GuidListValue ({Key (1)}, Kor::DynamicValue::UserUndefined), rules).ToUtf8 (), "Undefined");
}

TEST (PropertyDefinitionTest, DefaultsComeFromTheDescriptorAndGroupsMatchByPrimaryId)
{
    Property::PropertyDefinition::Data data;
    data.valueType = PropertyValueType::Integer;
    const Property::PropertyDefinition definition (data);
    EXPECT_EQ (definition.GetDefaultValue ().ToDisplayText ().ToUtf8 (), "0");
    EXPECT_NE (dynamic_cast<const TypeValueDescriptor*> (definition.GetValueDescriptor ().Get ()), nullptr);

    const Property::PropertyDefinitionGroupUserId a ("Pset_WallCommon", "IFC4"), b ("Pset_WallCommon", "IFC2x3");
    EXPECT_TRUE (a.IsEqualByPrimaryId (b));
    EXPECT_FALSE (a == b);
    EXPECT_FALSE (a.IsEqualByPrimaryId (Property::PropertyDefinitionGroupUserId ("")));
}

}   // namespace
