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

// --- Popups ---

#include <string>

#include "Rb/MultiLineEdit.hpp"
#include "Rb/MultipleChoice.hpp"
#include "Rb/RbResources.hpp"

namespace {

// Counts notifications and dumps the ticks: "x.x" for ticked, unticked, ticked.
class ChoiceLog : public Rb::MultipleChoiceDataObserver, public Rb::MultiLineEditPopUpDialogObserver {
public:
    void SelectionChanged (const Rb::MultipleChoiceData& data) override
    {
        log += "[";
        for (bool on : data.GetSelection ()) log += on ? "x" : ".";
        log += "]";
    }
    // "<text>", with "(ended)" when the dialog's session had ended by then.
    void TextChanged (const Rb::MultiLineEditPopUpDialog& dialog) override
    {
        log += "<" + dialog.GetText ().ToUtf8 () + ">" + (dialog.HasEnded () ? "(ended)" : "");
    }
    std::string log;
};

class RbPopupTest : public ::testing::Test {
protected:
    RbPopupTest () { Runner ().ClearScript (); }
    ~RbPopupTest () override { Runner ().ClearScript (); }
    static Wg::ScriptedModalRunner& Runner () { return Wg::GetHeadlessModalRunner (); }

    Wg::Panel panel {Wg::Rect (0, 0, 400, 300)};
    ChoiceLog log;
};

TEST_F (RbPopupTest, ChecklistTicksNotifyEachChangeAndCancelRestores)
{
    Rb::MultipleChoiceData data;
    data.AddItem ("New", false);
    data.AddItem ("Existing", true);
    data.Attach (log);
    Wg::ListBox anchor (panel, Wg::Rect (0, 0, 10, 10));
    Rb::MultipleChoicePopUpDialog dialog (data, &anchor);
    EXPECT_EQ (dialog.GetEntries ().size (), 2u);
    EXPECT_TRUE (dialog.GetEntries ()[1].checked);
    Rb::MultipleChoiceDataChanges changes (data);
    for (const Wg::ModalStep& step : {Wg::ModalStep::MakeTick (1, true), Wg::ModalStep::MakeTick (1, true), Wg::ModalStep::MakeTick (9, true),
                                      Wg::ModalStep::MakeTick (2, false), Wg::ModalStep::MakeCancel ()})
        Runner ().Queue (step);
    dialog.Invoke ();
    EXPECT_EQ (log.log, "[xx][x.][.x]") << "a tick that changes nothing is silent; cancel restores in one change";
    EXPECT_FALSE (changes.HasSelectionChanged ());
    EXPECT_FALSE (dialog.WasAccepted ());
    EXPECT_EQ (dialog.GetAnchor (), &anchor);
}

TEST_F (RbPopupTest, ChecklistAcceptKeepsTheTicks)
{
    Rb::MultipleChoiceData data;
    data.AddItem ("New", false);
    Rb::MultipleChoicePopUpDialog dialog (data, nullptr);
    Rb::MultipleChoiceDataChanges changes (data);
    Runner ().Queue (Wg::ModalStep::MakeTick (1, true));
    Runner ().Queue (Wg::ModalStep::MakeAccept ());
    dialog.Invoke ();
    EXPECT_TRUE (changes.HasSelectionChanged ());
    EXPECT_TRUE (data.IsItemSelected (0));
    EXPECT_TRUE (dialog.WasAccepted ());
}

TEST_F (RbPopupTest, MultiLineEditReportsTextChangesAndForgetsTheAnchorThatDies)
{
    auto anchor = std::make_unique<Wg::ListBox> (panel, Wg::Rect (0, 0, 10, 10));
    Rb::MultiLineEditPopUpDialog dialog ("a", anchor.get (), 200, 150);
    dialog.Attach (log);
    Rb::MultiLineEditPopUpDialogChanges changes (dialog);
    Runner ().Queue (Wg::ModalStep::MakeType ("a\nb"));
    Runner ().Queue (Wg::ModalStep::MakeType ("a\nb"));
    Runner ().Queue (Wg::ModalStep::MakeAccept ());
    dialog.Invoke ();
    EXPECT_EQ (log.log, "<a\nb>");
    EXPECT_TRUE (changes.HasTextChanged ());
    EXPECT_EQ (dialog.GetWidth () * 1000 + dialog.GetHeight (), 200150);
    anchor.reset ();
    EXPECT_EQ (dialog.GetAnchor (), nullptr);
}

TEST_F (RbPopupTest, MultiLineEditCancelRestoresTheTextAfterTheSessionHasEnded)
{
    Rb::MultiLineEditPopUpDialog dialog ("a", nullptr, 200, 150);
    dialog.Attach (log);
    Rb::MultiLineEditPopUpDialogChanges changes (dialog);
    Runner ().Queue (Wg::ModalStep::MakeType ("b"));
    Runner ().Queue (Wg::ModalStep::MakeCancel ());
    Runner ().Queue (Wg::ModalStep::MakeType ("c"));
    dialog.Invoke ();
    // A step after the end is ignored; the restore is heard as one change of an ended session.
    EXPECT_EQ (log.log, "<b><a>(ended)");
    EXPECT_FALSE (changes.HasTextChanged ());
    EXPECT_FALSE (dialog.WasAccepted ());
    EXPECT_TRUE (dialog.Perform (Wg::ModalStep::MakeAccept ()));
    EXPECT_FALSE (dialog.WasAccepted ());
}

TEST (RbResourceTest, TheInformationIconExists)
{
    const Wg::Icon icon = Rb::GetResourceIcon (Rb::InformationIconId);
    EXPECT_TRUE (icon.IsValid ());
    EXPECT_EQ (Wg::GetIconSize (icon), Gfx::Size (16, 16));
    EXPECT_TRUE (Rb::GetResourceIcon (18).IsEmpty ());
    EXPECT_EQ (Rb::GetResourceString (Rb::PopupNamesResId, Rb::ChecklistNameIndex), "Choose values");
}

}   // namespace
