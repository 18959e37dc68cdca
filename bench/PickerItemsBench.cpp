// Figures of the attribute picker rows: recording one screenful of mixed picker rows with their
// previews, and opening the pen picker with all 255 pens, browsing and choosing.

#include <memory>

#include "BenchSupport.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributePickerItems.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/PenItem.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int   ScreenRows = 40;
constexpr short NoPen = TxAL::AttributeListFillItem::NoPen;
// Rows are 20 pixels high: a list tall enough for a screenful of them.
constexpr short ListHeight = 860;
constexpr int   TrackedEntries = 10;

struct Sample {
    std::shared_ptr<ADB::AttributeSet> set = TxAttr::MakeSampleAttributeSet ();
    ADB::AttributeSetProvider          provider {ODB::ConstRef<ADB::AttributeSet> (set)};

    ADB::AttributeIndex Find (ADB::AttributeTypeId type, const char* name) const { return set->FindAttributeIndex (type, name); }
};

// One screenful of picker rows of every kind, each showing a different attribute.
void BuildPickerScreen (TxAL::AttributeList& list, Sample& sample, std::vector<std::unique_ptr<TxAL::AttributeListItem>>& owned)
{
    using namespace TxAL;
    list.DisableUpdate ();
    for (int i = 0; i < ScreenRows; ++i) {
        const ADB::AttributeIndex index (static_cast<std::uint32_t> (1 + i % 6));
        switch (i % 7) {
            case 0: list.CreateFillItem ("Cut fill", {}, {}, &sample.provider, AttributeListFillItem::EveryFill, ADB::AttributeIndex (static_cast<std::uint32_t> (3 + i % 18)), 2, 0, 1, NoPen, true, false); break;
            case 1: {
                auto* composite = new AttributeListCompositeItem ("Composite", {}, &sample.provider, AttributeListCompositeItem::AllKinds, index, true, false);
                owned.emplace_back (composite);
                list.AddListItem (composite);
                break;
            }
            case 2: list.CreatePenItem ("Contour pen", {}, &sample.provider, AttributeListPenItem::Pen, static_cast<short> (1 + i), true, false); break;
            case 3: list.CreateLineTypeItem ("Line type", {}, &sample.provider, AttributeListLineTypeItem::AllLineTypes, index, true, false); break;
            case 4: list.CreateProfileItem ("Profile", {}, &sample.provider, AttributeListProfileItem::AllProfiles, index, nullptr, true, false); break;
            case 5: list.CreateMaterialItem ("Surface", {}, &sample.provider, index, true, false); break;
            default: list.CreateBuildingMaterialItem ("Building material", {}, &sample.provider, index, true, false); break;
        }
    }
    list.EnableUpdate ();
    list.FullRefreshList (true);
}

void BM_PaintPickerScreenful (benchmark::State& state)
{
    Wg::Panel panel (Wg::Rect (0, 0, 600, 900));
    Sample sample;
    std::vector<std::unique_ptr<TxAL::AttributeListItem>> owned;
    TxAL::AttributeList list (panel, 0, 0, 600, ListHeight);
    BuildPickerScreen (list, sample, owned);
    Wg::ListBox& listBox = list.GetListBox ();
    Bench::UnitTimer timer;
    std::size_t primitives = 0;
    for (auto _ : state) {
        Gfx::DrawingContext context;
        timer.Time ([&] {
            for (short row = 1; row <= ScreenRows; ++row) listBox.PaintRow (row, context);
        });
        primitives = context.GetCount ();
        benchmark::DoNotOptimize (primitives);
    }
    timer.SetCounter (state, "ms_per_frame", 1, 1e-6);
    state.counters["primitives"] = static_cast<double> (primitives);
    list.ClearList (false);
}
BENCHMARK (BM_PaintPickerScreenful);

// Counts the pen choices, so that the notification is part of what is timed.
class PenObserver : public TxAL::AttributeListPenItemObserver {
public:
    int changes = 0;

protected:
    void PenChanged (const TxAL::AttributeListPenItem&) override { ++changes; }
};

void BM_OpenPenPicker (benchmark::State& state)
{
    Wg::Panel panel (Wg::Rect (0, 0, 600, 900));
    Sample sample;
    TxAL::AttributeList list (panel, 0, 0, 600, ListHeight);
    auto* pen = list.CreatePenItem ("Contour pen", {}, &sample.provider, TxAL::AttributeListPenItem::Pen, 1, true, false);
    PenObserver observer;
    pen->Attach (observer);
    pen->Select (false);
    Pk::Pk257& picker = list.GetOnTabItems ().GetPk257 ();
    Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
    Bench::UnitTimer timer;
    int choice = 0;
    for (auto _ : state) {
        for (int entry = 1; entry <= TrackedEntries; ++entry) runner.QueueTrack (entry * 20);
        runner.QueueChoose (1 + (choice++ % 255));
        timer.Time ([&] { picker.ShowAndTrackPopup (); });
    }
    timer.SetCounter (state, "us_per_open", 1, 1e-3);
    if (observer.changes == 0) state.SkipWithError ("the choice did not reach the observer");
    runner.ClearScript ();
}
BENCHMARK (BM_OpenPenPicker);

}   // namespace
