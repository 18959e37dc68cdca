#include "UserDialogPopups.hpp"

#include <QEventLoop>
#include <QFrame>
#include <QKeyEvent>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QWidget>

#include "InputScope.hpp"
#include "QtModalRunner.hpp"
#include "Rb/MultiLineEdit.hpp"
#include "Rb/MultipleChoice.hpp"
#include "Rb/RbResources.hpp"
#include "Strings.hpp"
#include "Theme.hpp"

namespace TxalQt {

namespace {

// A checklist shows at most this many rows before it scrolls.
constexpr int ChecklistVisibleRows = 12;
constexpr int ChecklistMinWidth = 160;
constexpr int PopupFrame = 2;

// Under the anchor, right edges aligned: the buttons that open these popups sit at the right
// end of a row, so the popup extends to the left under the row.
QPoint PositionUnder (const Wg::ModalSession& session, int popupWidth)
{
    QWidget* anchor = FindItemWidget (session.GetAnchor ());
    if (anchor == nullptr) return QCursor::pos ();
    return anchor->mapToGlobal (QPoint (anchor->width () - popupWidth, anchor->height ()));
}

// A frameless popup window that runs a nested loop until it hides; Escape marks it cancelled.
class PopupWindow : public QFrame {
public:
    PopupWindow () : QFrame (nullptr, Qt::Popup)
    {
        setAttribute (Qt::WA_DeleteOnClose, false);
        // A plain line around it, as menus have, sets it apart from the rows under it.
        setFrameStyle (QFrame::Box | QFrame::Plain);
        setLineWidth (1);
        QPalette colours = palette ();
        colours.setColor (QPalette::WindowText, Theme::SecondaryInkColor);
        setPalette (colours);
        auto* layout = new QVBoxLayout (this);
        layout->setContentsMargins (PopupFrame, PopupFrame, PopupFrame, PopupFrame);
    }

    // Shows the popup at position and returns when it has closed; true when it was accepted.
    bool Exec (const QPoint& position)
    {
        move (position);
        show ();
        if (isVisible ()) loop.exec ();
        return !cancelled;
    }

protected:
    void keyPressEvent (QKeyEvent* event) override
    {
        if (event->key () == Qt::Key_Escape) {
            cancelled = true;
            hide ();
            return;
        }
        if (event->key () == Qt::Key_Return || event->key () == Qt::Key_Enter) {
            hide ();
            return;
        }
        QFrame::keyPressEvent (event);
    }
    void hideEvent (QHideEvent* event) override
    {
        QFrame::hideEvent (event);
        loop.quit ();
    }

private:
    QEventLoop loop;
    bool       cancelled = false;
};

// Returns when the popup closed: Accept, or Cancel for Escape (and whatever the session refused).
void Finish (Wg::ModalSession& session, bool accepted)
{
    const InputScope scope;
    if (!session.HasEnded () && accepted) session.Perform (Wg::ModalStep::MakeAccept ());
    if (!session.HasEnded ()) session.Perform (Wg::ModalStep::MakeCancel ());
}

void RunChecklist (Rb::MultipleChoicePopUpDialog& session)
{
    PopupWindow popup;
    popup.setAccessibleName (ToQString (Rb::GetResourceString (Rb::PopupNamesResId, Rb::ChecklistNameIndex)));
    auto* list = new QListWidget (&popup);
    list->setFont (Theme::GetFont (Gfx::PlainFont));
    list->setFrameShape (QFrame::NoFrame);
    const std::vector<Wg::ModalEntry> entries = session.GetEntries ();
    for (const Wg::ModalEntry& entry : entries) {
        auto* row = new QListWidgetItem (ToQString (entry.text), list);
        row->setFlags (Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        row->setCheckState (entry.checked ? Qt::Checked : Qt::Unchecked);
    }
    popup.layout ()->addWidget (list);
    const int rowHeight = list->sizeHintForRow (0) > 0 ? list->sizeHintForRow (0) : list->fontMetrics ().height () + 4;
    const int rows = std::min (static_cast<int> (entries.size ()), ChecklistVisibleRows);
    QWidget* anchor = FindItemWidget (session.GetAnchor ());
    const int width = std::max ({ChecklistMinWidth, list->sizeHintForColumn (0) + 2 * PopupFrame + 8, anchor != nullptr ? anchor->width () : 0});
    list->setVerticalScrollBarPolicy (static_cast<int> (entries.size ()) > ChecklistVisibleRows ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    popup.resize (width, rows * rowHeight + 2 * PopupFrame + 2);
    QObject::connect (list, &QListWidget::itemChanged, &popup, [&session, list] (QListWidgetItem* row) {
        if (session.HasEnded ()) return;
        const InputScope scope;
        session.Perform (Wg::ModalStep::MakeTick (list->row (row) + 1, row->checkState () == Qt::Checked));
    });
    // A click anywhere on a row ticks it, not only on its box.
    QObject::connect (list, &QListWidget::itemClicked, &popup, [] (QListWidgetItem* row) {
        row->setCheckState (row->checkState () == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    Finish (session, popup.Exec (PositionUnder (session, popup.width ())));
}

void RunTextBox (Rb::MultiLineEditPopUpDialog& session)
{
    PopupWindow popup;
    popup.setAccessibleName (ToQString (Rb::GetResourceString (Rb::PopupNamesResId, Rb::ListEditNameIndex)));
    auto* edit = new QPlainTextEdit (&popup);
    edit->setFont (Theme::GetFont (Gfx::PlainFont));
    edit->setPlainText (ToQString (session.GetText ()));
    edit->moveCursor (QTextCursor::End);
    popup.layout ()->addWidget (edit);
    popup.resize (session.GetWidth (), session.GetHeight ());
    QObject::connect (edit, &QPlainTextEdit::textChanged, &popup, [&session, edit] {
        if (session.HasEnded ()) return;
        const InputScope scope;
        session.Perform (Wg::ModalStep::MakeType (ToUniString (edit->toPlainText ())));
    });
    edit->setFocus (Qt::PopupFocusReason);
    Finish (session, popup.Exec (PositionUnder (session, popup.width ())));
}

}   // namespace

bool RunUserDialogPopup (Wg::ModalSession& session)
{
    if (auto* checklist = dynamic_cast<Rb::MultipleChoicePopUpDialog*> (&session)) {
        RunChecklist (*checklist);
        return true;
    }
    if (auto* textBox = dynamic_cast<Rb::MultiLineEditPopUpDialog*> (&session)) {
        RunTextBox (*textBox);
        return true;
    }
    return false;
}

}   // namespace TxalQt
