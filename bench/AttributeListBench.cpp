// Figures of the attribute list core: full refresh, refresh of one row, arrow-key navigation.
// Counters: ns_per_row (time per row of one operation) and bytes_per_row (heap held per row by
// items, rows and cells).

#include <memory>

#include "BenchSupport.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int RowsPerGroup = 20;

// A list of `rows` rows in groups of RowsPerGroup: a heading and length items.
struct BenchList {
    explicit BenchList (int rows) : panel (Wg::Rect (0, 0, 600, 800)), list (panel, 0, 0, 600, 800)
    {
        list.DisableUpdate ();
        int made = 0;
        while (made < rows) {
            TxAL::AttributeListGroupItem* group = list.CreateGroup ("Openings", Wg::Icon (), true, true);
            ++made;
            for (int i = 1; i < RowsPerGroup && made < rows; ++i, ++made)
                group->CreateLengthItem (false, "Wall thickness", Wg::Icon (), 0.0, 100.0, 0.25 * i, true, true, false);
        }
        list.EnableUpdate ();
        list.FullRefreshList (true);
    }

    Wg::Panel           panel;
    TxAL::AttributeList list;
};

void BM_FullRefreshList (benchmark::State& state)
{
    const int rows = static_cast<int> (state.range (0));
    const std::size_t heapBefore = Bench::HeapInUse ();
    auto bench = std::make_unique<BenchList> (rows);
    const std::size_t heapAfter = Bench::HeapInUse ();
    Bench::UnitTimer timer;
    for (auto _ : state) timer.Time ([&] { bench->list.FullRefreshList (true); });
    timer.SetCounter (state, "ns_per_row", rows);
    state.counters["bytes_per_row"] = static_cast<double> (heapAfter - heapBefore) / rows;
}
BENCHMARK (BM_FullRefreshList)->Arg (1000)->Arg (10000)->Arg (100000)->Unit (benchmark::kMillisecond);

void BM_RefreshItem (benchmark::State& state)
{
    const int rows = static_cast<int> (state.range (0));
    BenchList bench (rows);
    const auto* middle = static_cast<const TxAL::AttributeListItem*> (bench.list.GetListBox ().GetItemValue (static_cast<short> (rows / 2)));
    Bench::UnitTimer timer;
    for (auto _ : state) timer.Time ([&] { bench.list.RefreshItem (*middle, true); });
    timer.SetCounter (state, "ns_per_row", rows);
}
BENCHMARK (BM_RefreshItem)->Arg (1000)->Arg (10000)->Arg (100000);

void BM_ArrowKeyNavigation (benchmark::State& state)
{
    constexpr int rows = 1000;
    BenchList bench (rows);
    bench.list.GetListBox ().SetFocus ();
    const Wg::Key::Code down (Wg::Key::Down);
    const Wg::Key::Code up (Wg::Key::Up);
    bool goingDown = true;
    Bench::UnitTimer timer;
    for (auto _ : state) {
        // From one end to the other: rows - 1 key presses.
        bench.list.GetListBox ().SelectItem (goingDown ? 1 : rows);
        timer.Time ([&] {
            for (int i = 1; i < rows; ++i) bench.panel.KeyPress (goingDown ? down : up);
        });
        goingDown = !goingDown;
    }
    timer.SetCounter (state, "ns_per_row", rows - 1);
}
BENCHMARK (BM_ArrowKeyNavigation);

}   // namespace
