// Figures of the value items: building a mixed list through the factories in one batch, and
// one keystroke in a text item in the middle of a large list.

#include <memory>

#include "BenchSupport.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int ItemsPerGroup = 20;

// Builds `count` rows of mixed value items in groups, in one DisableUpdate/EnableUpdate batch.
void BuildMixedList (TxAL::AttributeList& list, int count)
{
    list.DisableUpdate ();
    TxAL::AttributeListGroupItem* group = nullptr;
    for (int i = 0; i < count; ++i) {
        if (i % ItemsPerGroup == 0) {
            group = list.CreateGroup ("Geometry and positioning", Wg::Icon (), true, true);
            continue;
        }
        switch (i % 8) {
            case 0: group->CreateLengthItem (false, "Height", Wg::Icon (), 0.0, 100.0, 2.7, true, true, false); break;
            case 1: group->CreateTextItem (false, "Name", Wg::Icon (), "Exterior wall", false, true, false, true, false); break;
            case 2: group->CreateCheckItem (false, "Load-bearing", Wg::Icon (), true, "Structural", true, false); break;
            case 3: group->CreateIntItem (false, "Storeys", Wg::Icon (), 0, 100, 3, true, true, false); break;
            case 4: group->CreateAreaItem (false, "Area", Wg::Icon (), 0.0, 1e6, 12.5, true, true, false); break;
            case 5: group->CreateSelectionItem (false, "Structure", Wg::Icon (), true, false); break;
            case 6: group->CreateAngleItem (false, "Slant", Wg::Icon (), 0.0, 90.0, 90.0, true, true, false); break;
            default: group->CreateIconButtonItem (false, "Profile", Wg::Icon (), "Basic", "", Wg::Icon (), true, false); break;
        }
    }
    list.EnableUpdate ();
    list.FullRefreshList (true);
}

void BM_BuildMixedList (benchmark::State& state)
{
    const int count = static_cast<int> (state.range (0));
    Wg::Panel panel (Wg::Rect (0, 0, 600, 800));
    Bench::UnitTimer timer;
    for (auto _ : state) {
        auto list = std::make_unique<TxAL::AttributeList> (panel, 0, 0, 600, 800);
        timer.Time ([&] { BuildMixedList (*list, count); });
        state.PauseTiming ();
        list.reset ();
        state.ResumeTiming ();
    }
    timer.SetCounter (state, "ns_per_item", count);
}
BENCHMARK (BM_BuildMixedList)->Arg (10000)->Unit (benchmark::kMillisecond);

// Counts the observer calls, so that the keystroke's notification is part of what is timed.
class TextObserver : public TxAL::AttributeListTextItemObserver {
public:
    int changes = 0;

protected:
    void TextChanged (const TxAL::AttributeListTextItem&) override { ++changes; }
};

void BM_KeystrokeInTextItem (benchmark::State& state)
{
    const int count = static_cast<int> (state.range (0));
    Wg::Panel panel (Wg::Rect (0, 0, 600, 800));
    TxAL::AttributeList list (panel, 0, 0, 600, 800);
    list.DisableUpdate ();
    TxAL::AttributeListTextItem* target = nullptr;
    for (int i = 1; i <= count; ++i) {
        auto* item = list.CreateTextItem ("Name", Wg::Icon (), "Wall", false, true, false, true, false);
        if (i == count / 2) target = item;
    }
    list.EnableUpdate ();
    list.FullRefreshList (true);
    TextObserver observer;
    target->Attach (observer);
    // The edit stands on the row only while the row is in view.
    target->SetFirstVisible ();
    target->Select (true);
    Wg::TextEdit& edit = list.GetOnTabItems ().GetTextEdit ();
    Bench::UnitTimer timer;
    for (auto _ : state) {
        timer.Time ([&] { edit.UserType ("a"); });
        state.PauseTiming ();
        if (edit.GetText ().GetLength () > 40) edit.UserSetText ("Wall");
        state.ResumeTiming ();
    }
    timer.SetCounter (state, "us_per_keystroke", 1, 1e-3);
    if (observer.changes == 0) state.SkipWithError ("the keystroke did not reach the observer");
}
// Up to the most rows a list box holds: a keystroke must cost the same in any list.
BENCHMARK (BM_KeystrokeInTextItem)->Arg (1000)->Arg (10000)->Arg (Wg::ListBox::MaxRowCount);

}   // namespace
