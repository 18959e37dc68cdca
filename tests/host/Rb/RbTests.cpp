#include <gtest/gtest.h>

#include "Rb/ListBoxHelpers.hpp"
#include "Wg/Panel.hpp"

namespace {

class ListBoxHelpersTest : public ::testing::Test {
protected:
    Wg::Panel panel {Wg::Rect (0, 0, 400, 300)};
};

TEST_F (ListBoxHelpersTest, RequiredHeightShowsEveryRow)
{
    Wg::ListBox plain (panel, Wg::Rect (0, 0, 200, 50));
    EXPECT_EQ (Rb::GetListBoxRequiredHeight (plain), 2);
    for (int i = 0; i < 3; ++i) plain.AppendItem ();
    plain.SetItemHeight (21);
    EXPECT_EQ (Rb::GetListBoxRequiredHeight (plain), 3 * 21 + 2);

    // At that height nothing scrolls: every row is in view.
    Wg::ListBox withHeader (panel, Wg::Rect (0, 0, 200, 50), 0, Wg::ListBox::VScroll, true);
    for (int i = 0; i < 4; ++i) withHeader.AppendItem ();
    const short height = Rb::GetListBoxRequiredHeight (withHeader);
    EXPECT_EQ (height, 18 + 4 * 20 + 2);
    withHeader.SetHeight (height);
    EXPECT_EQ (withHeader.GetVisibleRowCount (), 4);
    EXPECT_TRUE (withHeader.IsRowInView (4));
}

TEST_F (ListBoxHelpersTest, RequiredHeightStaysWithinSixteenBits)
{
    Wg::ListBox listBox (panel, Wg::Rect (0, 0, 200, 50));
    for (int i = 0; i < 2000; ++i) listBox.AppendItem ();
    EXPECT_EQ (Rb::GetListBoxRequiredHeight (listBox), 32767);
}

TEST_F (ListBoxHelpersTest, SectionHeaderColourIsOneLightTone)
{
    Wg::ListBox listBox (panel, Wg::Rect (0, 0, 200, 50));
    int item = 0;
    const Gfx::Color first = Rb::GetListBoxDefaultSectionHeaderBackgroundColor (listBox, 1, &item);
    EXPECT_EQ (first.ToHex (), "#E4E9F0");
    EXPECT_EQ (Rb::GetListBoxDefaultSectionHeaderBackgroundColor (listBox, 7, nullptr), first);
}

}   // namespace
