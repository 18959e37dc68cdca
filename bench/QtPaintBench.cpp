// Painting by the Qt backend: one screenful of a list box filled to its 32,767-row cap, scrolled
// to the middle, rendered into an image. Counters: ms_per_frame and rows (the rows the list
// box holds; rows are 16-bit, so 100,000 requested rows give 32,767). BM_PaintScreenfulQTreeWidget
// paints a plain QTreeWidget of the same rows for reference.

#include <QApplication>
#include <QImage>
#include <QTreeWidget>
#include <memory>
#include <string>

#include "BenchSupport.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int PanelWidth = 400;
constexpr int PanelHeight = 600;
constexpr int RowsPerGroup = 20;
constexpr int NameIconId = 2001;
constexpr double NanosecondsPerMillisecond = 1e-6;

// One application for every benchmark of the program, on the offscreen platform. It lives until
// the process ends, on purpose: Qt must not be torn down by static destructors.
void EnsureApplication ()
{
    if (QApplication::instance () != nullptr) return;
    qputenv ("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "txal_bench";
    static char* argv[] = {name, nullptr};
    new QApplication (argc, argv);
}

QString RowName (int row)
{
    return row % RowsPerGroup == 1 ? QStringLiteral ("Openings %1").arg (row / RowsPerGroup + 1) : QStringLiteral ("Wall thickness %1").arg (row);
}

void BM_PaintScreenful (benchmark::State& state)
{
    EnsureApplication ();
    Wg::Panel panel (Wg::Rect (0, 0, PanelWidth, PanelHeight));
    Wg::ListBox list (panel, Wg::Rect (0, 0, PanelWidth, PanelHeight), 0, Wg::ListBox::VScroll, true);
    list.SetTabFieldCount (3);
    list.SetTabFieldBeginEndPosition (1, 0, 180);
    list.SetTabFieldBeginEndPosition (2, 180, 330);
    list.SetTabFieldBeginEndPosition (3, 330, list.GetItemWidth ());
    list.SetTabFieldTruncation (2, Wg::ListBox::EndTruncation);
    list.EnableSeparatorLines (true);
    const Wg::Icon icon = TxAL::GetResourceIcon (NameIconId);
    list.DisableDraw ();
    const int requested = static_cast<int> (state.range (0));
    for (int made = 1; made <= requested; ++made) {
        const short row = list.AppendItem ();
        if (row == Wg::ListBox::NoRow) break;
        const std::u16string name = RowName (made).toStdU16String ();
        if (made % RowsPerGroup == 1) {
            list.SetTabItemIcon (row, 1, Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowDown));
            list.SetTabItemText (row, 1, Kor::UniString (name));
            list.SetItemFontStyle (row, Gfx::BoldFont);
            continue;
        }
        list.SetTabItemIcon (row, 1, icon);
        list.SetTabItemText (row, 1, Kor::UniString (name));
        list.SetTabItemText (row, 2, Kor::UniString::Printf ("%.3f m", 0.025 * made));
        list.SetTabItemIcon (row, 3, Wg::Icon (Wg::Icon::StockModule, made % 2 == 0 ? Wg::Icon::StockCheckOn : Wg::Icon::StockCheckOff));
    }
    list.EnableDraw ();
    const short middle = static_cast<short> (list.GetItemCount () / 2);
    list.SelectItem (middle);
    list.SetScrollPosition (middle);

    std::unique_ptr<TxalQt::PanelView> view (TxalQt::Backend::AttachPanel (panel, nullptr));
    view->SyncPeers ();
    QWidget* listWidget = view->FindPeerWidget (list);
    QImage frame (listWidget->size (), QImage::Format_ARGB32_Premultiplied);
    Bench::UnitTimer timer;
    for (auto _ : state) {
        timer.Time ([&] { listWidget->render (&frame); });
        benchmark::DoNotOptimize (frame.constBits ());
    }
    timer.SetCounter (state, "ms_per_frame", 1, NanosecondsPerMillisecond);
    state.counters["rows"] = list.GetItemCount ();
    view.reset ();
}
BENCHMARK (BM_PaintScreenful)->Arg (100000)->Unit (benchmark::kMillisecond);

void BM_PaintScreenfulQTreeWidget (benchmark::State& state)
{
    EnsureApplication ();
    QTreeWidget tree;
    tree.resize (PanelWidth, PanelHeight);
    tree.setColumnCount (3);
    tree.setHeaderLabels ({QStringLiteral ("Name"), QStringLiteral ("Value"), QString ()});
    tree.setRootIsDecorated (false);
    tree.setUniformRowHeights (true);
    tree.setColumnWidth (0, 180);
    tree.setColumnWidth (1, 150);
    const int rows = std::min<int> (static_cast<int> (state.range (0)), Wg::ListBox::MaxRowCount);
    QList<QTreeWidgetItem*> items;
    items.reserve (rows);
    for (int made = 1; made <= rows; ++made) {
        auto* item = new QTreeWidgetItem ({RowName (made), QStringLiteral ("%1 m").arg (0.025 * made, 0, 'f', 3), QString ()});
        item->setCheckState (2, made % 2 == 0 ? Qt::Checked : Qt::Unchecked);
        items.append (item);
    }
    tree.addTopLevelItems (items);
    tree.scrollToItem (items[rows / 2], QAbstractItemView::PositionAtTop);
    tree.setCurrentItem (items[rows / 2]);
    QImage frame (tree.size (), QImage::Format_ARGB32_Premultiplied);
    Bench::UnitTimer timer;
    for (auto _ : state) {
        timer.Time ([&] { tree.render (&frame); });
        benchmark::DoNotOptimize (frame.constBits ());
    }
    timer.SetCounter (state, "ms_per_frame", 1, NanosecondsPerMillisecond);
    state.counters["rows"] = rows;
}
BENCHMARK (BM_PaintScreenfulQTreeWidget)->Arg (100000)->Unit (benchmark::kMillisecond);

}   // namespace
