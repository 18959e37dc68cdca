#include <gtest/gtest.h>

#include <cmath>

#include "Kor/DynamicValue.hpp"

using namespace Kor;

TEST (DynamicValueTest, StatusAndValidity)
{
    NumValue n (2.5);
    EXPECT_EQ (n.GetStatus (), DynamicValue::Normal);
    EXPECT_TRUE (n.IsValid ());
    EXPECT_FALSE (NumValue (std::nan ("")).IsValid ());
    EXPECT_TRUE (NumValue (std::nan (""), DynamicValue::UserUndefined).IsValid ());
    n.SetStatus (static_cast<DynamicValue::Status> (17));
    EXPECT_FALSE (n.IsValid ());
    EXPECT_EQ (static_cast<int> (DynamicValue::UserUndefined), 3);
}

TEST (DynamicValueTest, CloneAndEquality)
{
    StringValue s ("Concrete");
    Owner<DynamicValue> copy = s.Clone ();
    EXPECT_TRUE (copy->Equals (s));
    EXPECT_NE (dynamic_cast<StringValue*> (copy.Get ()), nullptr);
    EXPECT_FALSE (StringValue ("a").Equals (StringValue ("b")));
    EXPECT_FALSE (IntValue (1).Equals (NumValue (1.0)));
    // Payloads of non-normal values do not matter.
    EXPECT_TRUE (IntValue (1, DynamicValue::UserUndefined).Equals (IntValue (2, DynamicValue::UserUndefined)));
    EXPECT_FALSE (IntValue (1).Equals (IntValue (1, DynamicValue::UserUndefined)));

    GuidListValue guids ({Guid::Generate (), Guid::Generate ()});
    EXPECT_TRUE (guids.Clone ()->Equals (guids));
}

TEST (DynamicValueTest, DisplayTextFollowsRules)
{
    EXPECT_EQ (NumValue (2.5).ToDisplayText (DynamicValueConversionRules (3, 0)), "2.500");
    EXPECT_EQ (NumValue (2.5).ToDisplayText (DynamicValueConversionRules (3, DynamicValueConversionRules::HideTrailingZeros)), "2.5");
    EXPECT_EQ (NumValue (-0.0001).ToDisplayText (DynamicValueConversionRules (2, 0)), "0.00");
    EXPECT_EQ (NumValue (std::nan ("")).ToDisplayText (), "###");
    EXPECT_EQ (BoolValue (true).ToDisplayText (), "Yes");
    EXPECT_EQ (IntValue (-4).ToDisplayText (), "-4");
    EXPECT_EQ (StringValue ("x", DynamicValue::UserUndefined).ToDisplayText (), "Undefined");
    EXPECT_EQ (StringListValue ({"a", "b"}).ToDisplayText (), "a; b");
}

TEST (DynamicValueTest, StringListsReadOneEntryPerLine)
{
    StringListValue list ({}, DynamicValue::Undefined);
    list.SetFromText (" wall \r\n\r\nslab\rroof\n");
    EXPECT_EQ (list.ToDisplayText (), "wall; slab; roof");
    EXPECT_EQ (list.GetStatus (), DynamicValue::Normal);
    EXPECT_EQ (list.ToText (), "wall\nslab\nroof");
    list.SetFromText ("");
    EXPECT_TRUE (list.GetValue ().IsEmpty ());
}
