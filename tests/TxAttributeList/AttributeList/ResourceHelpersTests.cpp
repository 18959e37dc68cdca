#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AttributeList/LibraryResources.hpp"
#include "Res/Diagnostics.hpp"
#include "Res/ResourceCache.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace {

struct StringId {
    int resId;
    int index;
};

// Every string the library asks its module for, by list and index.
const std::vector<StringId> LibraryStrings = {
    { 2000, 2 }, { 2000, 3 }, { 2000, 5 }, { 2000, 6 }, { 2000, 12 }, { 2000, 17 },     // attribute type names
    { 2001, 1 }, { 2001, 3 },                                                           // missing attribute, custom entry
    { 2002, 1 }, { 2002, 2 }, { 2002, 3 }, { 2002, 4 }, { 2002, 5 }, { 2002, 6 }, { 2002, 7 },  // custom value popup
    { 2003, 1 }, { 2003, 2 }, { 2003, 3 },                                              // property placeholders
    { 5007, 3 }, { 5007, 4 }, { 5007, 5 },                                              // classification selector
    { 5008, 1 }, { 5008, 2 },                                                           // classification row
    { 20197, 1 }, { 20197, 2 }, { 20197, 3 },                                           // classifications page
};

struct IconId {
    int       resId;
    Gfx::Size size;
};

constexpr Gfx::Size StandardIconSize (16, 16);

// Every icon of the library's module and its size at 100 %.
const std::vector<IconId> LibraryIcons = {
    { 2001, StandardIconSize }, { 2002, StandardIconSize }, { 2003, StandardIconSize }, { 2004, StandardIconSize },
    { 2005, StandardIconSize }, { 2006, StandardIconSize }, { 2007, StandardIconSize }, { 2008, StandardIconSize },
    { 2009, StandardIconSize }, { 2010, StandardIconSize }, { 28115, StandardIconSize },
    { 31845, StandardIconSize }, { 31846, StandardIconSize }, { 31847, StandardIconSize }, { 31848, StandardIconSize },
    { 31849, Gfx::Size (98, 14) },      // slider track
    { 31850, Gfx::Size (14, 14) },      // slider thumb
    { 31887, StandardIconSize }, { 31888, StandardIconSize }, { 31893, StandardIconSize },
};

std::string Dump (const std::vector<Res::MissReport>& reports)
{
    std::string out;
    for (const Res::MissReport& report : reports)
        out += (out.empty () ? "" : " ") + report.sourceFile + ":" + std::to_string (report.line) + "@" +
               std::to_string (report.module) + "/" + std::to_string (report.resId) + "/" + std::to_string (report.index);
    return out;
}

}   // namespace

TEST (LibraryResourcesTest, EveryStringTheLibraryUsesExists)
{
    Res::ScopedMissCapture misses;
    for (const StringId& id : LibraryStrings)
        EXPECT_FALSE (TxAL::GetResourceString (id.resId, id.index).Trimmed ().IsEmpty ()) << id.resId << "/" << id.index;
    EXPECT_EQ (Dump (misses.GetReports ()), "");
}

TEST (LibraryResourcesTest, PopupTemplatesTakeTheirPlaceholdersOnce)
{
    const Kor::UniString defaultEntry = TxAL::GetResourceString (2002, 1);
    const Kor::UniString customEntry = TxAL::GetResourceString (2002, 2);
    Kor::UniString probe = defaultEntry;
    EXPECT_EQ (probe.ReplaceAll ("%DefaultValueType%", "x"), 1u);
    probe = customEntry;
    EXPECT_EQ (probe.ReplaceAll ("%CustomValueType%", "x"), 1u);
    // The substituted texts and the other entries carry no placeholder of their own.
    for (int index = 3; index <= 7; ++index)
        EXPECT_FALSE (TxAL::GetResourceString (2002, index).Contains ("%")) << index;
}

TEST (LibraryResourcesTest, MinimumPageHeightsAreNumbers)
{
    constexpr short NoValue = -1;
    EXPECT_EQ (TxAL::GetResourceShortValue (20197, 2, NoValue), 54);
    EXPECT_EQ (TxAL::GetResourceShortValue (20197, 3, NoValue), 54);
}

TEST (LibraryResourcesTest, EveryIconExistsWithItsSize)
{
    const std::int64_t module = TxAL::GetLibResModule ();
    for (const IconId& id : LibraryIcons) {
        const Wg::Icon icon = TxAL::GetResourceIcon (id.resId);
        EXPECT_EQ (icon, Wg::Icon (module, id.resId)) << id.resId;
        EXPECT_EQ (Res::GetIconSize (module, id.resId), id.size) << id.resId;
    }
    EXPECT_TRUE (TxAL::GetResourceIcon (31851).IsEmpty ());
    EXPECT_EQ (TxAL::GetResourceIcon (31851).GetResourceId (), Wg::Icon::EmptyResourceId);
}

TEST (LibraryResourcesTest, NothingIsFoundBeforeTheLibraryIsLoaded)
{
    // The module was registered when the library was loaded, before any test ran.
    ASSERT_GT (TxAL::GetLibResModule (), 0);

    TxAL::DetachLibraryResources ();
    EXPECT_EQ (TxAL::GetLibResModule (), 0);
    Res::ScopedMissCapture misses;
    EXPECT_EQ (TxAL::GetResourceString (2001, 3), "");
    EXPECT_EQ (TxAL::GetResourceShortValue (20197, 2, 7), 7);
    EXPECT_TRUE (TxAL::GetResourceIcon (31845).IsEmpty ());
    EXPECT_EQ (TxAL::GetHelpAnchorSting (20197, 3), "");
    EXPECT_EQ (Dump (misses.GetReports ()), "TxAttributeListResIds:16@0/2001/3 TxAttributeListResIds:22@0/20197/2");

    TxAL::AttachLibraryResources ();
    EXPECT_GT (TxAL::GetLibResModule (), 0);
    EXPECT_EQ (TxAL::GetResourceString (2001, 3), "Custom");
    EXPECT_FALSE (TxAL::GetResourceIcon (31845).IsEmpty ());
}

TEST (LibraryResourcesTest, AttachAndDetachAreIdempotent)
{
    const std::int64_t module = TxAL::GetLibResModule ();
    TxAL::AttachLibraryResources ();
    EXPECT_EQ (TxAL::GetLibResModule (), module);
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 1);
    TxAL::DetachLibraryResources ();
    TxAL::DetachLibraryResources ();
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 0);
    TxAL::AttachLibraryResources ();
    EXPECT_GT (TxAL::GetLibResModule (), 0);
}

// Runs the library against a module image of the test's own, then restores the built-in one.
class SubstitutedModuleTest : public ::testing::Test {
protected:
    void SetUp () override
    {
        TxAL::DetachLibraryResources ();
        Res::ResRegisterModuleImage (TxAL::LibraryResModuleName, {
            { "strings.txt", "[1]\n1 = 12\n2 = -32768\n3 = 32768\n4 = twelve\n5 = \" 7 \"\n6 = 1.5\n7 = \"\"\n8 = -0\n" },
            { "helpanchors.txt", "[20197]\n3 = classifications-list\n" },
        });
        TxAL::AttachLibraryResources ();
    }

    void TearDown () override
    {
        TxAL::DetachLibraryResources ();
        Res::ResUnregisterModuleImage (TxAL::LibraryResModuleName);
        TxAL::AttachLibraryResources ();
    }
};

TEST_F (SubstitutedModuleTest, ShortValueFallsBackToTheDefaultUnlessTheTextIsAShort)
{
    constexpr short Default = 99;
    std::string values;
    for (int index = 1; index <= 9; ++index)
        values += (index > 1 ? " " : "") + std::to_string (TxAL::GetResourceShortValue (1, index, Default));
    // 3 is out of range, 4 and 6 are not whole numbers, 7 is empty, 9 is missing.
    EXPECT_EQ (values, "12 -32768 99 99 7 99 99 0 99");
    EXPECT_EQ (TxAL::GetResourceShortValue (1, 4, 0), 0);
    EXPECT_EQ (TxAL::GetResourceString (1, 4), "twelve");
}

TEST_F (SubstitutedModuleTest, HelpAnchorsComeFromTheModule)
{
    EXPECT_EQ (TxAL::GetHelpAnchorSting (20197, 3), "classifications-list");
    EXPECT_EQ (TxAL::GetHelpAnchorSting (20197, 5), "");
    EXPECT_TRUE (TxAL::GetResourceIcon (31845).IsEmpty ());
}
