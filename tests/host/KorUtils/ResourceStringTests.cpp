#include <gtest/gtest.h>

#include "Kor/DynamicValue.hpp"
#include "KorUtils/ResourceString.hpp"
#include "Res/Diagnostics.hpp"

TEST (KorUtilsResourceTest, BooleanChoicesMatchTheValueDisplayTexts)
{
    EXPECT_EQ (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, KorUtils::TrueChoiceIndex), Kor::BoolValue (true).ToDisplayText ());
    EXPECT_EQ (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, KorUtils::FalseChoiceIndex), Kor::BoolValue (false).ToDisplayText ());
    EXPECT_EQ (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, KorUtils::TrueChoiceIndex), "Yes");
    EXPECT_GT (KorUtils::GetResModule (), 0);
}

TEST (KorUtilsResourceTest, MissingStringIsEmptyAndReported)
{
    Res::ScopedMissCapture misses;
    EXPECT_EQ (KorUtils::GetResourceString (KorUtils::BoolChoicesResId, 3), "");
    ASSERT_EQ (misses.GetReports ().size (), 1u);
    EXPECT_EQ (misses.GetReports ()[0].sourceFile, "KorUtils");
    EXPECT_EQ (misses.GetReports ()[0].resId, KorUtils::BoolChoicesResId);
}
