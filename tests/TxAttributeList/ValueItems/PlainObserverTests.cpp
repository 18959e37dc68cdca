// A plain item observer (tool tips, renaming, icon-column clicks) attaches to every value item
// kind as it is, without naming the base class, next to the kind's own observer.

#include "ValueItemsFixture.hpp"

namespace ValueItemsTest {
namespace {

// Hears only what every item sends; answers tool tips with "tip:Name".
class PlainObserver : public TxAL::AttributeListItemObserver {
public:
    Kor::UniString AttributeListItemToolTipRequested (const TxAL::AttributeListItem& item) override
    {
        log += "ToolTip(" + item.GetName ().ToUtf8 () + ") ";
        return Kor::UniString ("tip:" + item.GetName ().ToUtf8 ());
    }
    void NameChanged (const TxAL::AttributeListItem& item) override { log += "NameChanged(" + item.GetName ().ToUtf8 () + ") "; }

    std::string log;
};

class PlainObserverTest : public ListTest {
protected:
    PlainObserverTest ()
    {
        list->SetEditableColumnNum (TxAL::AttributeList::NameColumn);
        list->AddListItem (polarAngle);
        list->AddListItem (info);
        list->FullRefreshList (true);
        ForEachKind ([this] (auto& item) {
            item.Attach (plain);
            item.Attach (calls);   // the kind's own observer still resolves to its typed overload
        });
    }

    // Calls fn with each kind under its own static type, so that overload resolution is tested.
    template <typename Fn>
    void ForEachKind (Fn&& fn)
    {
        fn (*selection), fn (*text), fn (*tagged), fn (*dictionary), fn (*real), fn (*length), fn (*area), fn (*volume), fn (*angle);
        fn (polarAngle), fn (*integer), fn (*check), fn (*button), fn (*iconButton), fn (info), fn (*separator);
    }

    std::string ToolTips ()
    {
        std::string out;
        for (short row = 1; row <= Box ().GetItemCount (); ++row) out += Box ().RequestToolTip (row).ToUtf8 () + " ";
        return out;
    }

    PlainObserver plain;
    // Two kinds without a factory of the list, caller-owned.
    TxAL::AttributeListPolarAngleItem polarAngle {"PolarAngle", {}, 0, 1, 0, true, true, false};
    TxAL::AttributeListInfoItem       info {"Info", {}, true, false};

    TxAL::AttributeListSelectionItem*  selection = list->CreateSelectionItem ("Selection", {}, true, false);
    TxAL::AttributeListTextItem*       text = list->CreateTextItem ("Text", {}, "t", false, true, false, true, false);
    TxAL::AttributeListTaggedTextItem* tagged = list->CreateTaggedTextItem ("Tagged", {}, "t", false, true, false, true, false, "tag");
    TxAL::AttributeListDictionaryItem* dictionary = list->CreateDictionaryItem ("Dictionary", {}, "d", true, false);
    TxAL::AttributeListRealItem*       real = list->CreateRealItem ("Real", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListLengthItem*     length = list->CreateLengthItem ("Length", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListAreaItem*       area = list->CreateAreaItem ("Area", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListVolumeItem*     volume = list->CreateVolumeItem ("Volume", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListAngleItem*      angle = list->CreateAngleItem ("Angle", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListIntItem*        integer = list->CreateIntItem ("Int", {}, 0, 1, 0, true, true, false);
    TxAL::AttributeListCheckItem*      check = list->CreateCheckItem ("Check", {}, false, "", true, false);
    TxAL::AttributeListButtonItem*     button = list->CreateButtonItem ("Button", {}, "b", true, false);
    TxAL::AttributeListIconButtonItem* iconButton = list->CreateIconButtonItem ("IconButton", {}, "i", "", {}, true, false);
    TxAL::AttributeListSeparatorItem*  separator = list->CreateSeparatorItem ();
};

TEST_F (PlainObserverTest, EveryKindAsksItsPlainObserverForTheToolTip)
{
    EXPECT_EQ (ToolTips (),
               "tip:Selection tip:Text tip:Tagged tip:Dictionary tip:Real tip:Length tip:Area tip:Volume tip:Angle tip:Int tip:Check "
               "tip:Button tip:IconButton tip: tip:PolarAngle tip:Info ");
    EXPECT_EQ (plain.log,
               "ToolTip(Selection) ToolTip(Text) ToolTip(Tagged) ToolTip(Dictionary) ToolTip(Real) ToolTip(Length) ToolTip(Area) "
               "ToolTip(Volume) ToolTip(Angle) ToolTip(Int) ToolTip(Check) ToolTip(Button) ToolTip(IconButton) ToolTip() "
               "ToolTip(PolarAngle) ToolTip(Info) ");
    EXPECT_EQ (calls.Take (), "ToolTip(Selection) ToolTip(Text) ToolTip(Tagged) ToolTip(Dictionary) ToolTip(Real) ToolTip(Length) "
                              "ToolTip(Area) ToolTip(Volume) ToolTip(Angle) ToolTip(Int) ToolTip(Check) ToolTip(Button) "
                              "ToolTip(IconButton) ToolTip() ToolTip(PolarAngle) ToolTip(Info)");

    plain.log.clear ();
    ForEachKind ([this] (auto& item) { item.Detach (plain); });
    ToolTips ();
    EXPECT_EQ (plain.log, "") << "detached without naming the base class";
}

TEST_F (PlainObserverTest, EveryKindRenamedInItsNameEditTellsItsPlainObserver)
{
    // Which kinds place the name edit is theirs to decide; each one renamed must have told.
    Wg::TextEdit& nameEdit = Controls ().GetTextEdit ();
    std::string renamed;
    for (short row = 1; row <= Box ().GetItemCount (); ++row) {
        harness->ClickColumn (row, Label ());
        if (!list->IsTextEditOnTabItemVisible ()) continue;
        const std::string before = nameEdit.GetText ().ToUtf8 ();
        nameEdit.UserSetText (before + "'");
        const TxAL::AttributeListItem* item = list->GetSelectedItem ();
        if (item != nullptr && item->GetName ().ToUtf8 () == before + "'") renamed += "NameChanged(" + before + "') ";
    }
    EXPECT_NE (renamed.find ("NameChanged(Selection') NameChanged(Real') NameChanged(Length')"), std::string::npos) << renamed;
    EXPECT_EQ (plain.log, renamed);
}

}   // namespace
}   // namespace ValueItemsTest
