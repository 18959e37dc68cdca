// Figures of the attribute list core: full refresh, refresh of one row, arrow-key navigation.
// Counters: ns_per_row (time of one operation per list-box row it covers), ns_per_refresh (one
// refresh of one item), bytes_per_row (heap held by items, rows and cells per item of the tree)
// and rows (list-box rows built). Rows are 16-bit: a list box holds at most 32,767 of them, so the 100,000-item list shows 32,767 rows.

#include <memory>

#include "BenchSupport.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/ListBox.hpp"
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
    const int rowsBuilt = bench->list.GetListBox ().GetItemCount ();
    timer.SetCounter (state, "ns_per_row", rowsBuilt);
    state.counters["bytes_per_row"] = static_cast<double> (heapAfter - heapBefore) / rows;
    state.counters["rows"] = rowsBuilt;
}
BENCHMARK (BM_FullRefreshList)->Arg (1000)->Arg (10000)->Arg (100000)->Unit (benchmark::kMillisecond);

void BM_RefreshItem (benchmark::State& state)
{
    const int rows = static_cast<int> (state.range (0));
    BenchList bench (rows);
    const short rowsBuilt = bench.list.GetListBox ().GetItemCount ();
    const auto* middle = static_cast<const TxAL::AttributeListItem*> (bench.list.GetListBox ().GetItemValue (static_cast<short> (rowsBuilt / 2)));
    if (middle == nullptr) {
        state.SkipWithError ("no item in the middle row");
        return;
    }
    Bench::UnitTimer timer;
    for (auto _ : state) timer.Time ([&] { bench.list.RefreshItem (*middle, true); });
    // One refresh touches the item's own row only, so its time, not a time per row, is the figure.
    timer.SetCounter (state, "ns_per_refresh", 1);
    state.counters["rows"] = rowsBuilt;
}
// 32,767 is the most rows a list box holds: the figure there should match the one at 1,000.
BENCHMARK (BM_RefreshItem)->Arg (1000)->Arg (10000)->Arg (Wg::ListBox::MaxRowCount);

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
