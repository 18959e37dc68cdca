// The demo's classification list as its user meets it: the rows of an element, the kinds of
// class the popup offers it, and choices that stay with the element.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "AttributeListTestSupport.hpp"
#include "ElementClassifications.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

// Looks at the selector popup, then plays the queued script on it.
class LookingRunner : public Wg::ModalRunner {
public:
    void Run (Wg::ModalSession& session) override
    {
        if (auto* dialog = dynamic_cast<Rb::AutoClosingSingleItemSelectionDialog*> (&session)) look (*dialog);
        Wg::GetHeadlessModalRunner ().Run (session);
    }
    std::function<void (Rb::AutoClosingSingleItemSelectionDialog&)> look = [] (Rb::AutoClosingSingleItemSelectionDialog&) {};
};

class ElementClassificationsTest : public ::testing::Test {
protected:
    ElementClassificationsTest () { Wg::SetModalRunner (&runner); }
    ~ElementClassificationsTest () override
    {
        Wg::SetModalRunner (nullptr);
        Wg::GetHeadlessModalRunner ().ClearScript ();
    }

    std::string Rows () { return TxALTest::DumpRows (classifications.GetList ().GetAttributeList ()); }
    void PressButton (std::size_t row)
    {
        auto& item = *classifications.GetList ().GetItems ()[row];
        item.Select ();
        Wg::ButtonItem* button = const_cast<TxAL::AttributeListIconButtonItem&> (item.GetRow ()).GetIconButton ();
        ASSERT_NE (button, nullptr);
        button->UserPress ();
    }
    void ClickIcon (short row)
    {
        Wg::ListBox& box = classifications.GetList ().GetAttributeList ().GetListBox ();
        const short column = classifications.GetList ().GetAttributeList ().GetAttributeIconColumnIndex ();
        box.Click (row, Wg::Point ((box.GetTabFieldBeginPosition (column) + box.GetTabFieldEndPosition (column)) / 2, 5));
    }

    Demo::BuildingModel           model = Demo::BuildingModel::LoadBuiltIn ();
    Wg::Panel                     panel {Wg::Rect (0, 0, 460, 200), 2};
    Demo::ElementClassifications  classifications {panel, model};
    LookingRunner                 runner;
};

TEST_F (ElementClassificationsTest, EachElementShowsBothSystemsWithWhatItStartsWith)
{
    classifications.ShowElement ("W-01");
    EXPECT_EQ (Rows (), "1:Classifications 2:CCI Construction 1.0|Wall construction 3:Element types|Walls");
    classifications.ShowElement ("Z-01");
    EXPECT_EQ (Rows (), "1:Classifications 2:CCI Construction 1.0|Unclassified 3:Element types|Zones");
    EXPECT_EQ (classifications.GetStore ().Describe ("Z-01"), "Element types: ZN");
    classifications.ShowElement ("nothing");
    EXPECT_EQ (Rows (), "1:Classifications");
}

TEST_F (ElementClassificationsTest, ADoorIsOfferedNoWallClassAndThePopupSaysItemsAreHidden)
{
    classifications.ShowElement ("D-01");
    std::string information;
    int wallResults = -1;
    runner.look = [&] (Rb::AutoClosingSingleItemSelectionDialog& dialog) {
        dialog.Begin ();
        information = dialog.GetInformationText ().ToUtf8 ();
        dialog.SetSearchText ("wall");
        wallResults = static_cast<int> (dialog.GetRows ().size ());
        dialog.SetSearchText ("");
    };
    Wg::GetHeadlessModalRunner ().Queue (Wg::ModalStep::MakeSearch ("door"));
    Wg::GetHeadlessModalRunner ().Queue (Rb::MakeChooseByTextStep ("L-QQC Door"));
    PressButton (0);
    EXPECT_EQ (wallResults, 0);
    EXPECT_EQ (information, "Some items are hidden because they do not apply to the selected elements.");
    EXPECT_EQ (classifications.GetStore ().Describe ("D-01"), "CCI Construction: L-QQC; Element types: OP-DR");
    EXPECT_EQ (classifications.GetStore ().GetStoredChangeCount (), 1);
}

TEST_F (ElementClassificationsTest, ChoicesAndAssociationsStayWithTheElement)
{
    classifications.ShowElement ("W-02");
    ClickIcon (3);
    EXPECT_EQ (classifications.GetStore ().Describe ("W-02"), "CCI Construction: L-AD") << "taken out of the element types";
    classifications.ShowElement ("W-01");
    classifications.ShowElement ("W-02");
    EXPECT_EQ (Rows (), "1:Classifications 2:CCI Construction 1.0|Wall construction 3:Element types|Unclassified");
    ClickIcon (3);
    EXPECT_EQ (classifications.GetStore ().Describe ("W-02"), "CCI Construction: L-AD; Element types: WL") << "back in, with the type it had";
}

}   // namespace
