#include "PropertyScreenshots.hpp"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <cstdio>

#include "MainWindow.hpp"
#include "QtModalRunner.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxalQt/Backend.hpp"

namespace Demo {

namespace {

// Time for the popup to show and lay out before it is grabbed.
constexpr int PopupSettleMilliseconds = 150;

// The list-box row of the property row with this name, 0 when there is none.
short FindRow (TxAL::AttributeList& list, const char* name)
{
    const Wg::ListBox& listBox = list.GetListBox ();
    for (short row = 1; row <= listBox.GetItemCount (); ++row) {
        const auto* item = static_cast<const TxAL::AttributeListItem*> (listBox.GetItemValue (row));
        if (item != nullptr && item->GetName () == Kor::UniString (name)) return row;
    }
    return 0;
}

// How a popup lines up with the control that opened it.
enum class Alignment { Left, Right };

// Grabs the window, opens a popup with open(), draws the popup into the picture under its
// anchor, closes the popup and writes the picture. The popup is drawn where the anchor puts it,
// not where it stands: an offscreen screen is small and pushes popups back into it.
template <typename Open>
void GrabWithPopup (MainWindow& window, const QString& file, const Wg::Item& anchor, Alignment alignment, Open&& open)
{
    TxalQt::QtModalRunner runner;
    Wg::ModalRunner*      previous = Wg::SetModalRunner (&runner);
    bool                  saved = false;
    // The window is grabbed before the popup opens: it does not change while the popup is up.
    QImage picture = TxalQt::Backend::Grab (window);
    QTimer::singleShot (PopupSettleMilliseconds, &window, [&] {
        QWidget* popup = QApplication::activePopupWidget ();
        QWidget* anchorWidget = TxalQt::FindItemWidget (&anchor);
        if (popup != nullptr && anchorWidget != nullptr) {
            const int x = alignment == Alignment::Left ? 0 : anchorWidget->width () - popup->width ();
            const QPoint at = anchorWidget->mapTo (&window, QPoint (x, anchorWidget->height ()));
            QPainter painter (&picture);
            painter.drawPixmap (at, popup->grab ());
            painter.end ();
            saved = picture.save (file, "PNG");
        }
        if (popup != nullptr) popup->close ();
    });
    open ();
    QApplication::processEvents ();
    Wg::SetModalRunner (previous);
    if (!saved) std::fprintf (stderr, "txal-demo: could not write %s\n", file.toLocal8Bit ().constData ());
}

}   // namespace

void SavePropertyScreenshots (MainWindow& window, const QString& dir, const QString& suffix)
{
    PropertyPalette&     properties = window.GetProperties ();
    TxAL::AttributeList& list = properties.GetList ();
    Wg::ListBox&         listBox = list.GetListBox ();
    const auto select = [&] (const char* name) {
        const short row = FindRow (list, name);
        const short column = list.GetAttributeTypeColumnIndex ();
        listBox.Click (row, Wg::Point ((listBox.GetTabFieldBeginPosition (column) + listBox.GetTabFieldEndPosition (column)) / 2, 5));
        QApplication::processEvents ();
    };

    window.ShowElement ("W-01");
    select ("FireRating");
    Pk::PopupControl& popup = list.GetOnTabItems ().GetIconColumnPopup ();
    GrabWithPopup (window, dir + "/properties-popup" + suffix + ".png", popup, Alignment::Left, [&] { popup.UserPress (); });

    window.ShowElement ("W-02");
    select ("Status");
    Wg::ButtonItem& button = list.GetOnTabItems ().GetIconButton ();
    GrabWithPopup (window, dir + "/properties-checklist" + suffix + ".png", button, Alignment::Right, [&] { button.UserPress (); });
}

}   // namespace Demo
