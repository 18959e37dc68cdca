// Selection, text, tagged text and dictionary items, driven as a user drives them.

#include "ValueItemsFixture.hpp"

namespace ValueItemsTest {
namespace {

class SelectionItemTest : public ListTest {
protected:
    // The popup as the user would see it after opening: entries, the chosen one marked '>'.
    std::string PopupEntries () const
    {
        const Pk::PopupControl& popup = Controls ().GetPopupControl ();
        std::string out;
        for (short i = 1; i <= popup.GetItemCount (); ++i)
            out += std::string (i > 1 ? "," : "") + (popup.GetValue () == i ? ">" : "") + popup.GetItemText (i).ToUtf8 ();
        return out;
    }

    // The item's state, then the notifications since the last dump.
    std::string Dump (const TxAL::AttributeListTextItem& item)
    {
        std::string out = item.GetText ().ToUtf8 ();
        if (!item.GetCustomText ().IsEmpty ()) out += " custom=" + item.GetCustomText ().ToUtf8 ();
        return out + " [" + PopupEntries () + "] sel=" + std::to_string (item.GetSelected ()) + " / " + calls.Take ();
    }
};

TEST_F (SelectionItemTest, PopupOpensInRightHalfOfPreviewAndInCheckColumnOnly)
{
    auto* item = list->CreateSelectionItem ("Structure", {}, true, false);
    list->CreateSelectionItem ("Finish", {}, true, false);
    for (const char* text : {"Brick", "Concrete", "Steel"}) item->AddItem (Entry (text));
    calls.Watch (*item);
    const int middle = (Begin (Preview ()) + End (Preview ())) / 2;
    std::string opened;
    for (int x : {Begin (Value ()) + 5, middle - 1, middle, End (Preview ()), Begin (Check ()), End (Check ()), End (Check ()) + 1}) {
        const int before = Popups ();
        Click (1, x);
        opened += std::to_string (Popups () - before);
    }
    EXPECT_EQ (opened, "0011110");
    const int before = Popups ();
    Click (2, End (Check ()));
    EXPECT_EQ (Popups (), before) << "an item without entries opens nothing";

    Click (1, Begin (Label ()) + 5);
    Runner ().QueueTrack (3);
    Runner ().QueueChoose (2);
    Click (1, End (Check ()));
    // The popup modifier with the down arrow opens it from the keyboard; a cancel changes nothing.
    Runner ().QueueTrack (1);
    Runner ().QueueCancel ();
    EXPECT_TRUE (Press (Wg::Key::Down, Wg::Key::PopupFlag));
    EXPECT_EQ (Runner ().GetPendingStepCount (), 0u);
    EXPECT_EQ (calls.Take () + " " + Cell (1, Value ()) + " " + PopupEntries (), "SelectionChanged(Structure) Concrete Brick,>Concrete,Steel");
    // A square button that fits inside the row.
    const Wg::Rect button = Controls ().GetPopupControl ().GetRect ();
    EXPECT_EQ (std::to_string (button.GetWidth ()) + "x" + std::to_string (button.GetHeight ()),
               std::to_string (RowHeight () - 3) + "x" + std::to_string (RowHeight () - 3));
}

TEST_F (SelectionItemTest, PreviewDrawsTheEntryIconInsetAndGreyed)
{
    auto* item = list->CreateSelectionItem ("Structure", {}, true, false);
    item->AddItem (Entry ("Brick", TxAL::GetResourceIcon (2001)));
    item->AddItem (Entry ("Steel", TxAL::GetResourceIcon (2002)));
    EXPECT_EQ (Paint (1, Preview ()), "") << "nothing chosen, nothing drawn";
    item->SelectItem (2);
    const Gfx::Rect cell = Box ().GetCellRect (1, Preview ());
    const std::string icon = "icon " + std::to_string (TxAL::GetLibResModule ()) + ":2002 (" + std::to_string (cell.left + 1) + "," +
                             std::to_string (cell.top + 1) + "," + std::to_string (cell.right - 1) + "," + std::to_string (cell.bottom - 1) + ")";
    EXPECT_EQ (Paint (1, Preview ()), icon + "\n");
    item->SetStatus (false);
    EXPECT_EQ (Paint (1, Preview ()), icon + " greyed\n");
}

TEST_F (SelectionItemTest, SelectItemIgnoresInvalidIndicesAndRepeats)
{
    auto* item = list->CreateSelectionItem ("Structure", {}, true, false);
    item->AddItem (Entry ("Brick"));
    item->AddSeparator ();
    item->AddItem (Entry ("Steel"));
    calls.Watch (*item);
    item->SelectItem (3);
    const std::uint64_t redraws = Redraws ();
    for (short index : {0, 4, 2, 3, -1}) item->SelectItem (index);
    EXPECT_EQ (item->GetSelected (), 3);
    EXPECT_EQ (Redraws (), redraws) << "no refresh without a change";
    item->SelectItem (1);
    EXPECT_EQ (item->GetSelectedString ().ToUtf8 () + " " + Cell (1, Value ()), "Brick Brick");
    EXPECT_EQ (Redraws (), redraws + 1);
    EXPECT_EQ (calls.Get (), "") << "the program's selection notifies nobody";
    item->DeleteAllItems ();
    EXPECT_EQ (std::to_string (item->GetSelected ()) + " " + std::to_string (item->GetSelectableItemCount ()), "-1 0");
}

TEST_F (SelectionItemTest, PopupGoesWithTheEntries)
{
    auto* item = list->CreateSelectionItem ("Structure", {}, true, false);
    auto* empty = list->CreateSelectionItem ("Finish", {}, true, false);
    for (const char* text : {"Brick", "Concrete", "Steel"}) item->AddItem (Entry (text));
    item->SelectItem (2);
    calls.Watch (*item);
    calls.Watch (*empty);
    Click (1, Begin (Label ()) + 5);
    ASSERT_EQ (Box ().GetOnTabItem (Check ()), &Controls ().GetPopupControl ());
    item->DeleteAllItems ();
    EXPECT_EQ (Box ().GetOnTabItem (Check ()), nullptr);
    // The shared popup still holds the entries of another row: a row without entries opens
    // nothing from the keyboard either.
    item->AddItem (Entry ("Brick"));
    Click (2, Begin (Label ()) + 5);
    const int before = Popups ();
    Runner ().QueueChoose (1);
    Press (Wg::Key::Down, Wg::Key::PopupFlag);
    Runner ().ClearScript ();
    EXPECT_EQ (std::to_string (Popups () - before) + calls.Get () + std::to_string (empty->GetSelected ()), "0-1");
}

TEST_F (SelectionItemTest, DoubleClickIsHandledInRightHalfOfPreviewOnly)
{
    // A group toggles on a double click of its row unless its master item handled it.
    auto* group = list->CreateGroup ("Structure", {}, true, true);
    auto* master = group->CreateSelectionItem (true, "Kind", {}, true, false);
    master->AddItem (Entry ("Brick"));
    group->CreateTextItem (false, "Name", {}, "Wall", false, true, false, true, false);
    Click (1, Begin (Label ()) + 5);
    const int middle = (Begin (Preview ()) + End (Preview ())) / 2;
    std::string rows;
    for (int x : {middle, End (Preview ()), middle - 1, Begin (Check ()) + 1}) {
        DoubleClick (1, x);
        rows += std::to_string (Box ().GetItemCount ());
        group->Expand ();
    }
    EXPECT_EQ (rows, "2211");
}

TEST_F (SelectionItemTest, AutoCustomEntryFollowsWhatTheUserTypes)
{
    auto* item = list->CreateTextItem ("Material", {}, "", true, true, true, true, false);
    item->AddStringItem ("Brick");
    item->AddStringItem ("Concrete");
    calls.Watch (*item);
    Click (1, Begin (Value ()) + 5);
    Wg::TextEdit& edit = Controls ().GetTextEdit ();
    ASSERT_TRUE (edit.IsFocused ());
    const std::string custom = TxAL::GetResourceString (2001, 3).ToUtf8 ();
    ASSERT_FALSE (custom.empty ());

    edit.UserSetText ("Concrete");
    EXPECT_EQ (Dump (*item), "Concrete [Brick,>Concrete] sel=2 / TextChanged(Material)");
    edit.UserSetText ("Steel");
    EXPECT_EQ (Dump (*item), "Steel custom=Steel [Brick,Concrete,>" + custom + "] sel=3 / TextChanged(Material)");
    edit.UserType ("s");
    EXPECT_EQ (Dump (*item), "Steels custom=Steels [Brick,Concrete,>" + custom + "] sel=3 / TextChanged(Material)");
    // A suggestion added meanwhile goes in front of the custom entry, which stays chosen.
    item->AddStringItem ("Glass");
    EXPECT_EQ (Dump (*item), "Steels custom=Steels [Brick,Concrete,Glass,>" + custom + "] sel=4 / ");
    // Picking a suggestion from the popup takes its text; picking the custom entry the custom text.
    Runner ().QueueChoose (1);
    Click (1, End (Check ()));
    EXPECT_EQ (Dump (*item), "Brick custom=Steels [>Brick,Concrete,Glass," + custom + "] sel=1 / TextChanged(Material)");
    Runner ().QueueChoose (4);
    Click (1, End (Check ()));
    EXPECT_EQ (Dump (*item), "Steels custom=Steels [Brick,Concrete,Glass,>" + custom + "] sel=4 / TextChanged(Material)");
    // Adding the typed text as a suggestion makes it a regular value: the custom entry goes.
    item->AddStringItem ("Steels");
    EXPECT_EQ (Dump (*item), "Steels [Brick,Concrete,Glass,>Steels] sel=4 / ");
    edit.UserSetText ("Oak");
    edit.UserSetText ("");
    EXPECT_EQ (Dump (*item), " [Brick,Concrete,Glass,Steels] sel=-1 / TextChanged(Material) TextChanged(Material)");
}

TEST_F (SelectionItemTest, PerEntrySettersSkipSeparatorsAndOutOfRangeIndices)
{
    auto* item = list->CreateSelectionItem ("Structure", {}, true, false);
    item->AddItem (Entry ("Brick"));
    item->AddSeparator ();
    item->AddItem (Entry ("Steel"));
    Click (1, Begin (Label ()) + 5);
    struct Data : Kor::Object {};
    const Kor::Ref<Kor::Object, Kor::Counter> data = Kor::NewRef<Data> ();
    for (short index : {0, 2, 4}) {
        item->DisableItem (index);
        item->SetItemData (index, data);
    }
    item->DisableItem (3);
    item->SetItemData (3, data);
    const Pk::PopupControl& popup = Controls ().GetPopupControl ();
    std::string state;
    for (short i = 0; i <= 4; ++i) state += item->GetItemData (i) ? "d" : "-";
    // The shown popup follows a disabled entry at once.
    for (short i = 1; i <= popup.GetItemCount (); ++i)
        state += popup.IsSeparator (i) ? "|" : popup.IsItemEnabled (i) ? "+" : "x";
    EXPECT_EQ (state, "---d-+|x");
}

TEST_F (SelectionItemTest, EmptyTextMatchingASeparatorKeepsTheCustomEntry)
{
    auto* item = list->CreateTextItem ("Material", {}, "", true, true, true, true, false);
    item->AddStringItem ("Brick");
    item->AddSeparator ();
    item->AddStringItem ("Concrete");
    calls.Watch (*item);
    Click (1, Begin (Value ()) + 5);
    Wg::TextEdit& edit = Controls ().GetTextEdit ();
    const std::string custom = TxAL::GetResourceString (2001, 3).ToUtf8 ();
    edit.UserSetText ("Oak");
    calls.Take ();
    // The separator's empty text is the first match: nothing is selected and the custom entry stays.
    edit.UserSetText ("");
    EXPECT_EQ (Dump (*item), " custom=Oak [Brick,,Concrete,>" + custom + "] sel=4 / TextChanged(Material)");
}

TEST_F (SelectionItemTest, WithoutAutoCustomHandlingTheProgramKeepsTheCustomEntry)
{
    auto* item = list->CreateTextItem ("Material", {}, "Brick", false, true, true, true, false);
    item->AddStringItem ("Brick");
    item->AddStringItem ("Concrete");
    calls.Watch (*item);
    Click (1, Begin (Label ()) + 5);
    EXPECT_EQ (Dump (*item), "Brick [Brick,Concrete] sel=-1 / ");
    item->SetText ("Concrete", true);
    item->SetText ("Steel", true);
    EXPECT_EQ (Dump (*item), "Steel [Brick,>Concrete] sel=2 / ");
    const std::string custom = TxAL::GetResourceString (2001, 3).ToUtf8 ();
    item->SetCustomText ("Steel");
    item->AddStringItem ("Glass");
    EXPECT_EQ (Dump (*item), "Steel custom=Steel [Brick,>Concrete,Glass," + custom + "] sel=2 / ");
    // The popup choice is the selection item's: the text stays.
    Runner ().QueueChoose (3);
    Click (1, End (Check ()));
    EXPECT_EQ (Dump (*item), "Steel custom=Steel [Brick,Concrete,>Glass," + custom + "] sel=3 / SelectionChanged(Material)");
    item->SetCustomText ("");
    EXPECT_EQ (Dump (*item), "Steel [Brick,Concrete,>Glass] sel=3 / ");

    item->DisableValueList ();
    item->AddStringItem ("Oak");
    EXPECT_EQ (item->GetSelectableItemCount (), 3u);
    // Without a value list no custom entry is added, so clearing the custom text takes none away.
    item->SetCustomText ("Pine");
    item->SetCustomText ("");
    EXPECT_EQ (Dump (*item), "Steel [Brick,Concrete,>Glass] sel=3 / ");
}

TEST_F (SelectionItemTest, TaggedTextKeepsItsTagVisibleBesideTheEdit)
{
    auto* plain = list->CreateTextItem ("Name", {}, "Wall", false, true, false, true, false);
    auto* tagged = list->CreateTaggedTextItem ("Layer", {}, "Slab", false, true, false, true, false, "ID-7");
    list->CreateTextItem ("Owner", {}, "Site", false, false, false, true, false);
    EXPECT_EQ (AT (1, Value ()) + "|" + AT (1, Preview ()) + "|" + AT (2, Value ()) + "|" + AT (2, Preview ()) + "|" + AT (2, Label ()),
               "Wall||Slab|ID-7|");
    // The owner-drawn row: the text up to the tag, the tag in the preview cell.
    Gfx::DrawingContext row;
    Box ().PaintRow (2, row);
    std::string texts;
    for (const Gfx::TextOp& op : row.Get<Gfx::TextOp> ()) texts += op.text.ToUtf8 () + "@" + std::to_string (op.rect.left) + " ";
    EXPECT_EQ (texts, "Layer@62 Slab@" + std::to_string (Begin (Value ()) + 2) + " ID-7@" + std::to_string (Begin (Preview ()) + 2) + " ");

    Wg::TextEdit& edit = Controls ().GetTextEdit ();
    Click (1, Begin (Value ()) + 5);
    EXPECT_EQ (edit.GetRect ().GetWidth (), End (Preview ()) - Begin (Value ()));
    Click (2, Begin (Value ()) + 5);
    EXPECT_EQ (edit.GetRect ().GetWidth (), Begin (Preview ()) - Begin (Value ()));
    EXPECT_EQ (edit.GetText ().ToUtf8 (), "Slab");
    Click (3, Begin (Value ()) + 5);
    EXPECT_FALSE (list->IsTextEditOnTabItemVisible ()) << "a non-editable text is never typed in place";

    const std::uint64_t redraws = Redraws ();
    tagged->SetTagText ("ID-8");
    EXPECT_EQ (Redraws (), redraws) << "the tag shows at the next redraw";
    // Made read-only while the user is at it: the edit goes and the row shows the text.
    auto drawsText = [this] {
        Gfx::DrawingContext row;
        Box ().PaintRow (1, row);
        return row.ToString ().find ("text \"Wall\"") != std::string::npos;
    };
    Click (1, Begin (Value ()) + 5);
    ASSERT_TRUE (list->IsTextEditOnTabItemVisible ());
    EXPECT_FALSE (drawsText ()) << "the edit shows the text";
    plain->SetEditable (false);
    EXPECT_FALSE (list->IsTextEditOnTabItemVisible ());
    EXPECT_TRUE (drawsText ());
}

TEST_F (SelectionItemTest, DictionaryTextIsAlwaysTypedInPlace)
{
    auto* item = list->CreateDictionaryItem ("Keyword", {}, "roof", true, false);
    calls.Watch (*item);
    Click (1, Begin (Value ()) + 5);
    Wg::TextEdit& edit = Controls ().GetTextEdit ();
    ASSERT_TRUE (edit.IsFocused ());
    edit.UserType ("top");
    EXPECT_EQ (item->GetText ().ToUtf8 () + " " + AT (1, Value ()), "rooftop rooftop");
    const std::uint64_t redraws = Redraws ();
    item->SetText ("rooftop");
    EXPECT_EQ (Redraws (), redraws);
    item->SetText ("eaves");
    EXPECT_EQ (edit.GetText ().ToUtf8 (), "eaves");
    EXPECT_EQ (calls.Take (), "TextChanged(Keyword) TextChanged(Keyword) TextChanged(Keyword)");
}

}   // namespace
}   // namespace ValueItemsTest
