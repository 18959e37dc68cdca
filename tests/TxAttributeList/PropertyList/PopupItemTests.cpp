// The checklist of multi-valued enumerations and the multi-line edit of string lists: the row
// follows the user's ticks and lines while the popup is open, the host hears once on close.

#include "PropertyListFixture.hpp"
#include "Rb/Resources.hpp"

namespace PropertyListTest {
namespace {

// Plays its steps one by one and writes the rows after each, so that a test sees what the
// user saw while the popup was open.
class WatchingRunner : public Wg::ModalRunner {
public:
    WatchingRunner (std::vector<Wg::ModalStep> steps, std::function<std::string ()> rows) : steps (std::move (steps)), rows (std::move (rows)) {}

    void Run (Wg::ModalSession& session) override
    {
        anchor = session.GetAnchor ();
        entries = session.GetEntries ().size ();
        session.Begin ();
        for (const Wg::ModalStep& step : steps) {
            if (session.Perform (step)) break;
            seen.push_back (rows ());
        }
    }

    std::vector<Wg::ModalStep>    steps;
    std::function<std::string ()> rows;
    std::vector<std::string>      seen;
    Wg::Item*                     anchor = nullptr;
    std::size_t                   entries = 0;
};

class PopupItemTest : public PropertyListFixture {
protected:
    ~PopupItemTest () override { Wg::SetModalRunner (nullptr); }

    // Presses the row's own button with a runner that plays the steps.
    WatchingRunner& PressButton (short row, std::vector<Wg::ModalStep> steps)
    {
        runner = std::make_unique<WatchingRunner> (std::move (steps), [this] { return Rows (); });
        Wg::SetModalRunner (runner.get ());
        SelectRow (row);
        Controls ().GetIconButton ().UserPress ();
        Wg::SetModalRunner (nullptr);
        return *runner;
    }

    FakeHandler& AddStatus (Kor::Array<Kor::Guid> keys)
    {
        return Add ({"Status", PropertyValueType::Enumeration, MeasureType::Undefined, PropertyCollectionType::Single, {},
                     MakeStatusEnumeration (true)},
                    nullptr, Kor::NewOwner<Kor::GuidListValue> (keys));
    }

    std::unique_ptr<WatchingRunner> runner;
};

TEST_F (PopupItemTest, TheChecklistFollowsTheTicksAndReportsOnceOnClose)
{
    AddStatus ({MakeGuid (3, 2)});
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Status|Existing");
    EXPECT_EQ (container.GetPropertyItems ()[0]->GetValueAttributeListItem ().GetName ().ToUtf8 (), "Status");
    const WatchingRunner& seen = PressButton (2, {Wg::ModalStep::MakeTick (3, true), Wg::ModalStep::MakeTick (1, true),
                                                  Wg::ModalStep::MakeTick (2, false), Wg::ModalStep::MakeAccept ()});
    EXPECT_EQ (seen.entries, 3u);
    EXPECT_EQ (seen.anchor, &Controls ().GetIconButton ());
    ASSERT_EQ (seen.seen.size (), 3u);
    EXPECT_EQ (seen.seen[0] + " / " + seen.seen[1] + " / " + seen.seen[2],
               "1:▾Common 2:  Status|Existing; Demolish / 1:▾Common 2:  Status|New; Existing; Demolish / 1:▾Common 2:  Status|New; Demolish");
    EXPECT_EQ (Take (), "Set(Status=" + MakeGuid (3, 1).ToUniString ().ToUtf8 () + "; " + MakeGuid (3, 3).ToUniString ().ToUtf8 () +
                            ") Changed(Status)");
}

TEST_F (PopupItemTest, UntickingEverythingStoresAnEmptyListAndCancelStoresNothing)
{
    FakeHandler& handler = AddStatus ({MakeGuid (3, 1)});
    Show ();
    PressButton (2, {Wg::ModalStep::MakeTick (2, true), Wg::ModalStep::MakeCancel ()});
    EXPECT_EQ (Take (), "") << "cancel restores the ticks: nothing changed";
    EXPECT_EQ (Rows (), "1:▾Common 2:  Status|New");
    PressButton (2, {Wg::ModalStep::MakeTick (1, false), Wg::ModalStep::MakeAccept ()});
    EXPECT_EQ (Take (), "Set(Status=) Changed(Status)");
    const auto* stored = Kor::DynamicCast<Kor::GuidListValue> (handler.custom.Get ());
    ASSERT_NE (stored, nullptr) << "an empty guid list, not a null value";
    EXPECT_TRUE (stored->GetValue ().IsEmpty ());
    // Re-ticking what was there is no change.
    container.UpdatePropertyValues ();
    PressButton (2, {Wg::ModalStep::MakeTick (2, true), Wg::ModalStep::MakeTick (2, false), Wg::ModalStep::MakeAccept ()});
    EXPECT_EQ (Take (), "");
}

TEST_F (PopupItemTest, ChecklistDataComesFromTheDescriptorAndTheValue)
{
    const auto multi = MakeStatusEnumeration (true);
    const auto single = MakeStatusEnumeration (false);
    Rb::MultipleChoiceData data;
    data.AddItem ("stale", true);
    const Kor::GuidListValue keys (Kor::Array<Kor::Guid> {MakeGuid (3, 3), MakeGuid (9, 9)});
    TxAL::FillMultipleChoiceDataFromProperty (multi.Get (), &keys, data);
    std::string dump;
    for (std::size_t i = 0; i < data.GetItemCount (); ++i) dump += data.GetItemText (i).ToUtf8 () + (data.IsItemSelected (i) ? "+ " : " ");
    EXPECT_EQ (dump, "New Existing Demolish+ ");

    Kor::GuidListValue undefined (Kor::Array<Kor::Guid> {MakeGuid (3, 1)}, DynamicValue::UserUndefined);
    TxAL::FillMultipleChoiceDataFromProperty (multi.Get (), &undefined, data);
    EXPECT_FALSE (data.IsItemSelected (0)) << "an undefined value ticks nothing";

    data.SetItemSelected (1, true);
    EXPECT_EQ (Text (TxAL::CreateVariantFromMultipleChoiceData (multi.Get (), data).Get ()), MakeGuid (3, 2).ToUniString ().ToUtf8 ());
    EXPECT_EQ (TxAL::CreateVariantFromMultipleChoiceData (single.Get (), data), nullptr);
    EXPECT_EQ (TxAL::CreateVariantFromMultipleChoiceData (nullptr, data), nullptr);
    Rb::MultipleChoiceData empty;
    EXPECT_EQ (TxAL::CreateVariantFromMultipleChoiceData (multi.Get (), empty), nullptr);
    TxAL::FillMultipleChoiceDataFromProperty (single.Get (), &keys, empty);
    EXPECT_EQ (empty.GetItemCount (), 0u) << "a single-valued enumeration fills nothing";
}

TEST_F (PopupItemTest, TheStringListEditTakesOneEntryPerLine)
{
    FakeHandler& handler = Add ({"Tags", PropertyValueType::String, MeasureType::Undefined, PropertyCollectionType::List}, nullptr,
                                Kor::NewOwner<Kor::StringListValue> (Kor::Array<Kor::UniString> {"fire", "acoustic"}));
    Show ();
    EXPECT_EQ (Rows (), "1:▾Common 2:  Tags|fire; acoustic");
    EXPECT_EQ (dynamic_cast<TxAL::AttributeListIconButtonItem&> (container.GetPropertyItems ()[0]->GetValueAttributeListItem ()).GetButtonIcon (),
               Rb::GetResourceIcon (17));
    const WatchingRunner& seen =
        PressButton (2, {Wg::ModalStep::MakeType ("fire\n  outdoor \n\nwet"), Wg::ModalStep::MakeType ("fire\nwet"), Wg::ModalStep::MakeAccept ()});
    ASSERT_EQ (seen.seen.size (), 2u);
    EXPECT_EQ (seen.seen[0], "1:▾Common 2:  Tags|fire; outdoor; wet");
    EXPECT_EQ (Take (), "Set(Tags=[fire,wet]) Changed(Tags)");
    EXPECT_EQ (handler.custom->GetStatus (), DynamicValue::Normal);

    PressButton (2, {Wg::ModalStep::MakeType ("changed"), Wg::ModalStep::MakeCancel ()});
    EXPECT_EQ (Take (), "");
    EXPECT_EQ (Rows (), "1:▾Common 2:  Tags|fire; wet") << "cancel brings the text back";
}

}   // namespace
}   // namespace PropertyListTest
