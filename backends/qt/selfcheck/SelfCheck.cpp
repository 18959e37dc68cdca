// txal-qt-selfcheck: a small panel with every kind of peer, for looking at the backend.
//
//     txal-qt-selfcheck                                 a window (real popups)
//     txal-qt-selfcheck --screenshot FILE [--scale 2]  renders the panel to a PNG offscreen
//                       [--picker FILE]              and the pen picker's open grid

#include <QApplication>
#include <QString>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "PickerPopup.hpp"
#include "Pk/Pk257.hpp"
#include "Pk/PopupControl.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace {

constexpr int PanelWidth = 460;
constexpr int PanelHeight = 612;
constexpr int Margin = 10;
constexpr int RowCount = 30;
constexpr short NameColumn = 1;
constexpr short ValueColumn = 2;
constexpr short PreviewColumn = 3;
constexpr short GreyedRow = 9;
constexpr short SelectedRow = 3;
constexpr int EditHeight = 22;

// The library's icons that the rows show, in turn.
constexpr int RowIcons[] = {2001, 2002, 2003, 2004, 2005, 2006, 2009, 2010, 28115, 31893};

const char* const RowNames[] = {"Wall thickness", "Height", "Top offset", "Bottom offset", "Reference line",
                                "Composite", "Surface", "Fill pattern", "Pen", "Line type"};
const char* const RowValues[] = {"0.300 m", "2.700 m", "0.000 m", "-0.150 m", "Centre", "Brick 365", "Plaster",
                                 "Hatch 45°", "Pen 12", "Dashed"};

constexpr int PenCount = 40;
constexpr std::int32_t ChosenPen = 12;

// The pens of the pen picker: a spread of hues in a few shades.
void DescribePens (Pk257CallBackRec* record)
{
    if (record->message == Pk257CallBackRec::CountMessage) {
        record->entryCount = PenCount;
    } else if (record->message == Pk257CallBackRec::EntryMessage) {
        const int index = record->entry - 1;
        const QColor colour = QColor::fromHsv ((index % 10) * 36, 200 - (index / 10) * 40, 230 - (index / 10) * 45);
        record->value = record->entry;
        record->text = Kor::UniString::Printf ("Pen %d", record->entry);
        record->color = Gfx::Color (static_cast<std::uint8_t> (colour.red ()), static_cast<std::uint8_t> (colour.green ()),
                                    static_cast<std::uint8_t> (colour.blue ()));
        record->hasColor = true;
    }
}

// Draws the preview column of every row: a swatch with a hatch, a frame and a dashed line.
class PreviewDrawer : public Wg::ListBoxObserver {
public:
    void ListBoxTabFieldUpdate (const Wg::ListBoxTabItemUpdateEvent& event) override
    {
        // Group headings have no preview.
        if ((event.GetSource ()->GetItemFontStyle (event.GetListItem ()) & Gfx::BoldFont) != 0) return;
        Gfx::DrawingContext& context = *event.GetDrawContext ();
        const Gfx::Rect cell = event.GetRect ();
        const Gfx::Rect swatch (cell.left + 4, cell.top + 4, cell.left + 34, cell.bottom - 4);
        const int kind = event.GetListItem () % 3;
        const Gfx::Color ink = event.GetListItem () == GreyedRow ? Gfx::Color (170, 176, 184) : Gfx::Color (59, 71, 84);
        Gfx::HatchPattern pattern;
        if (kind == 0) {
            pattern.lines.push_back (Gfx::HatchLine {45.0, 4.0, 0.0});
        } else if (kind == 1) {
            pattern.isBitmap = true;
            pattern.bits = {0x88, 0x44, 0x22, 0x11, 0x88, 0x44, 0x22, 0x11};
        } else {
            pattern.lines.push_back (Gfx::HatchLine {0.0, 3.0, 0.0});
            pattern.lines.push_back (Gfx::HatchLine {90.0, 3.0, 0.0});
        }
        context.DrawHatch (swatch, pattern, ink, Gfx::Color (230, 234, 238));
        context.FrameRect (swatch, ink);
        const int y = (cell.top + cell.bottom) / 2;
        context.DrawLine (Gfx::Point (swatch.right + 6, y), Gfx::Point (cell.right - 4, y), ink, 1, {4.0, 2.0});
    }
};

struct SelfCheckPanel {
    Wg::Panel          panel {Wg::Rect (0, 0, PanelWidth, PanelHeight), 1, Kor::UniString ("Backend self-check")};
    Wg::LeftText       title {panel, Wg::Rect::FromSize (Margin, 8, 300, 18)};
    Wg::ListBox        list {panel, Wg::Rect::FromSize (Margin, 30, PanelWidth - 2 * Margin, 340), 0, Wg::ListBox::VScroll, true};
    Wg::RealEdit       onTabEdit {panel, Wg::Rect::FromSize (0, 0, 160, 18), Wg::RealSubtype::Length};
    Wg::LeftText       nameLabel {panel, Wg::Rect::FromSize (Margin, 386, 110, EditHeight)};
    Wg::TextEdit       nameEdit {panel, Wg::Rect::FromSize (130, 386, 200, EditHeight)};
    Wg::LeftText       thicknessLabel {panel, Wg::Rect::FromSize (Margin, 414, 110, EditHeight)};
    Wg::RealEdit       thicknessEdit {panel, Wg::Rect::FromSize (130, 414, 120, EditHeight), Wg::RealSubtype::Length};
    Wg::IntEdit        disabledEdit {panel, Wg::Rect::FromSize (260, 414, 70, EditHeight)};
    Wg::LeftText       opacityLabel {panel, Wg::Rect::FromSize (Margin, 442, 110, EditHeight)};
    Wg::BarControl     opacity {panel, Wg::Rect::FromSize (130, 442, 200, EditHeight)};
    Wg::LeftText       lineLabel {panel, Wg::Rect::FromSize (Margin, 470, 110, EditHeight)};
    Pk::PopupControl   lineType {panel, Wg::Rect::FromSize (130, 470, 140, EditHeight)};
    Wg::IconItem       lineIcon {panel, Wg::Rect::FromSize (280, 473, 16, 16)};
    Wg::LeftText       penLabel {panel, Wg::Rect::FromSize (Margin, 528, 110, EditHeight)};
    Pk::Pk257          pen {panel, Wg::Rect::FromSize (130, 528, 110, EditHeight)};
    Wg::CheckItem      show3D {panel, Wg::Rect::FromSize (130, 500, 200, EditHeight)};
    Wg::PushCheck      lock {panel, Wg::Rect::FromSize (340, 386, 110, EditHeight)};
    Wg::ButtonItem     apply {panel, Wg::Rect::FromSize (PanelWidth - Margin - 90, PanelHeight - Margin - 26, 90, 26)};
    Wg::ButtonItem     reset {panel, Wg::Rect::FromSize (PanelWidth - Margin - 190, PanelHeight - Margin - 26, 90, 26)};
    PreviewDrawer      previews;

    SelfCheckPanel ()
    {
        title.SetText ("Wall settings");
        BuildList ();
        nameLabel.SetText ("Name");
        nameEdit.SetText ("Exterior wall");
        thicknessLabel.SetText ("Thickness");
        thicknessEdit.SetValue (0.3);
        disabledEdit.SetValue (42);
        disabledEdit.Disable ();
        opacityLabel.SetText ("Opacity");
        opacity.SetValue (65);
        lineLabel.SetText ("Line type");
        lineType.AppendItem ("Solid", TxAL::GetResourceIcon (2002));
        lineType.AppendItem ("Dashed");
        lineType.AppendSeparator ();
        lineType.AppendItem ("Dotted");
        lineType.SetValue (2);
        lineIcon.SetIcon (TxAL::GetResourceIcon (28115));
        penLabel.SetText ("Pen");
        pen.SetCallBack (DescribePens);
        pen.SetControlType (Pk::PickerControl::GridControl);
        pen.SetHeaderType (Pk::PickerControl::TextHeader);
        pen.SetValue (ChosenPen);
        show3D.SetText ("Show in 3D");
        show3D.Check ();
        lock.SetText ("Locked");
        lock.SetArrowType (Wg::PushCheck::DownArrow);
        lock.Check ();
        apply.SetText ("Apply");
        reset.SetText ("Reset");
        reset.SetIcon (TxAL::GetResourceIcon (2009));
    }

    ~SelfCheckPanel ()
    {
        list.Detach (previews);
    }

    void BuildList ()
    {
        list.Attach (previews);
        list.SetTabFieldCount (3);
        const short width = list.GetItemWidth ();
        list.SetTabFieldBeginEndPosition (NameColumn, 0, 170);
        list.SetTabFieldBeginEndPosition (ValueColumn, 170, static_cast<short> (width - 90));
        list.SetTabFieldBeginEndPosition (PreviewColumn, static_cast<short> (width - 90), width);
        list.SetTabFieldTruncation (NameColumn, Wg::ListBox::EndTruncation);
        list.SetTabFieldTruncation (ValueColumn, Wg::ListBox::EndTruncation);
        list.SetTabFieldOwnerDrawFlag (PreviewColumn, true);
        list.SetHeaderItemText (NameColumn, "Parameter");
        list.SetHeaderItemText (ValueColumn, "Value");
        list.SetHeaderItemText (PreviewColumn, "Preview");
        list.SetHeaderItemResizable (NameColumn, true);
        list.SetHeaderItemResizable (ValueColumn, true);
        list.EnableSeparatorLines (true);
        for (int index = 0; index < RowCount; ++index) {
            const short row = list.AppendItem ();
            const int kind = index % 10;
            if (index % 10 == 0) {
                // A group heading: bold, with the host's expanded mark.
                list.SetTabItemIcon (row, NameColumn, Wg::GetArrowImage (Wg::TriangleArrow, index == 0 ? Wg::ArrowDown : Wg::ArrowRight));
                list.SetTabItemText (row, NameColumn, index == 0 ? "Geometry" : (index == 10 ? "Model attributes" : "Floor plan and section"));
                list.SetItemFontStyle (row, Gfx::BoldFont);
                list.SetItemBackgroundColor (row, Gfx::Color (238, 241, 244));
                continue;
            }
            list.SetTabItemIcon (row, NameColumn, TxAL::GetResourceIcon (RowIcons[kind]));
            list.SetTabItemText (row, NameColumn, RowNames[kind]);
            if (kind == 4) {
                list.SetTabItemIcon (row, ValueColumn, Wg::Icon (Wg::Icon::StockModule, index % 20 == 4 ? Wg::Icon::StockCheckOn : Wg::Icon::StockCheckOff));
                list.SetTabItemText (row, ValueColumn, "Use reference line");
            } else {
                list.SetTabItemText (row, ValueColumn, RowValues[kind]);
            }
            if (kind == 7) list.SetTabItemText (row, ValueColumn, "A very long value that does not fit into its column at all");
            list.SetItemOwnerDrawnFlag (row, false);
        }
        list.DisableItem (GreyedRow);
        list.SelectItem (SelectedRow);
        onTabEdit.SetValue (0.0);
        list.SetOnTabItem (ValueColumn, onTabEdit);
    }
};

const char* FindArgument (int argc, char** argv, const char* name)
{
    for (int index = 1; index + 1 < argc; ++index)
        if (std::strcmp (argv[index], name) == 0) return argv[index + 1];
    return nullptr;
}

}   // namespace

int main (int argc, char** argv)
{
    const char* screenshot = FindArgument (argc, argv, "--screenshot");
    const char* scale = FindArgument (argc, argv, "--scale");
    const char* picker = FindArgument (argc, argv, "--picker");
    // Qt reads these before the application exists.
    if (screenshot != nullptr || std::getenv ("DISPLAY") == nullptr) setenv ("QT_QPA_PLATFORM", "offscreen", 1);
    if (scale != nullptr) setenv ("QT_SCALE_FACTOR", scale, 1);

    QApplication application (argc, argv);
    TxalQt::Backend::ApplyTheme (application);
    if (screenshot == nullptr) TxalQt::Backend::InstallModalRunner ();

    auto check = std::make_unique<SelfCheckPanel> ();
    std::unique_ptr<TxalQt::PanelView> view (TxalQt::Backend::AttachPanel (check->panel, nullptr));
    check->panel.Open ();
    view->show ();
    int result = 0;
    if (screenshot != nullptr) {
        if (!TxalQt::Backend::SaveScreenshot (*view, QString::fromLocal8Bit (screenshot))) {
            std::fprintf (stderr, "txal-qt-selfcheck: cannot write %s\n", screenshot);
            result = 1;
        }
        if (picker != nullptr) {
            TxalQt::PickerPopup grid (check->pen.GetEntries (), check->pen.FindEntry (ChosenPen), true, nullptr);
            grid.move (0, 0);
            grid.show ();
            if (!TxalQt::Backend::SaveScreenshot (grid, QString::fromLocal8Bit (picker))) result = 1;
        }
    } else {
        result = QApplication::exec ();
    }
    // The view goes first: it detaches from the panel and every item.
    view.reset ();
    check.reset ();
    TxalQt::Backend::RemoveModalRunner ();
    return result;
}
