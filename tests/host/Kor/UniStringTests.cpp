#include <gtest/gtest.h>

#include "Kor/UniString.hpp"

using Kor::UniString;

TEST (UniStringTest, Utf8RoundTripKeepsNonAsciiAndSurrogates)
{
    const UniString s ("Wände 2.5 m² 😀");
    EXPECT_EQ (s.ToUtf8 (), "Wände 2.5 m² 😀");
    EXPECT_EQ (s.GetLength (), 15u);   // the emoji is two code units
    EXPECT_EQ (UniString ("\xff\xfe" "a").ToUtf8 (), "\xEF\xBF\xBD\xEF\xBF\xBD" "a");
    EXPECT_EQ (UniString ("\xE2\x82").ToUtf8 (), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_TRUE (UniString (static_cast<const char*> (nullptr)).IsEmpty ());
}

TEST (UniStringTest, CompareModes)
{
    EXPECT_LT (UniString ("abc").Compare ("abd"), 0);
    EXPECT_GT (UniString ("abc").Compare ("ab"), 0);
    EXPECT_NE (UniString ("Wall").Compare ("wall"), 0);
    EXPECT_EQ (UniString ("Wall").Compare ("wALL", UniString::CaseInsensitive), 0);
    EXPECT_EQ (UniString ("Äußere").Compare ("äUßERE", UniString::CaseInsensitive), 0);
    EXPECT_LT (UniString ("apple").Compare ("Banana", UniString::CaseInsensitive), 0);
    EXPECT_GT (UniString ("apple").Compare ("Banana", UniString::CaseSensitive), 0);
    EXPECT_TRUE (UniString ("Slab").IsEqual ("SLAB", UniString::CaseInsensitive));
    EXPECT_EQ (UniString ("x").Compare (""), 1);
}

TEST (UniStringTest, TrimFindAndReplaceFirst)
{
    UniString s ("  \t Door 1 \n");
    EXPECT_EQ (s.Trimmed (), "Door 1");
    EXPECT_EQ (UniString ("   ").Trimmed (), "");

    UniString t ("%DefaultValueType% from %DefaultValueType%");
    EXPECT_TRUE (t.ReplaceFirst ("%DefaultValueType%", "Model"));
    EXPECT_EQ (t, "Model from %DefaultValueType%");
    EXPECT_FALSE (t.ReplaceFirst ("%Missing%", "x"));
    EXPECT_FALSE (t.ReplaceFirst ("", "x"));
    EXPECT_EQ (t.FindFirst ("from"), 6u);
    EXPECT_EQ (t.FindFirst ("FROM", 0, UniString::CaseInsensitive), 6u);
    EXPECT_EQ (t.FindFirst ("nothing"), UniString::MaxIndex);
    EXPECT_EQ (UniString ("abc").GetSubstring (5), "");
    EXPECT_EQ (UniString ("a-b-c").ReplaceAll ("-", "--"), 0u + 2u);
}

TEST (UniStringTest, PrintfNumbersAndStrings)
{
    const UniString mm ("mm");
    EXPECT_EQ (UniString::Printf ("%5.2f %T", 0.18, mm), " 0.18 mm");
    EXPECT_EQ (UniString::Printf ("%5.2f %T", 12.5, &mm), "12.50 mm");
    EXPECT_EQ (UniString::Printf ("%d", -42), "-42");
    EXPECT_EQ (UniString::Printf ("%d%%", 7), "7%");
    EXPECT_EQ (UniString::Printf ("%s=%ld", "x", 3L), "x=3");
    EXPECT_EQ (UniString::Printf ("%-4T|", UniString ("ab")), "ab  |");
    EXPECT_EQ (UniString::Printf ("%d and %d", 1), "1 and ");   // a missing argument is empty
    EXPECT_EQ (UniString::Printf ("100%"), "100%");
    EXPECT_EQ (UniString::Printf ("%99999999d", 1).GetLength (), 512u);   // capped width
}

TEST (UniStringTest, NumberParsing)
{
    EXPECT_EQ (UniString (" 42 ").ToInteger (), 42);
    EXPECT_EQ (UniString ("-7").ToInteger (), -7);
    EXPECT_FALSE (UniString ("4x").ToInteger ().has_value ());
    EXPECT_FALSE (UniString ("").ToInteger ().has_value ());
    EXPECT_FALSE (UniString ("99999999999999999999999").ToInteger ().has_value ());
    EXPECT_DOUBLE_EQ (*UniString ("2.5").ToDouble (), 2.5);
    EXPECT_FALSE (UniString ("2,5").ToDouble ().has_value ());
}

TEST (UniStringTest, CaseConversion)
{
    EXPECT_EQ (UniString ("Straße Ω Ж").ToUpperCase (), "STRAßE Ω Ж");
    EXPECT_EQ (UniString ("ŁÓDŹ").ToLowerCase (), "łódź");
}
