#include "QtModalRunner.hpp"

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <algorithm>

#include "IconCache.hpp"
#include "InputScope.hpp"
#include "AttributePickerPopupView.hpp"
#include "PickerPopup.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "TxalQt/ItemSelectionPopup.hpp"
#include "Pk/PickerSession.hpp"
#include "Strings.hpp"
#include "Theme.hpp"
#include "TxalQt/PanelView.hpp"
#include "UserDialogPopups.hpp"

namespace TxalQt {

namespace {

constexpr int MenuIconSize = 16;
constexpr int SwatchWidth = 16;
constexpr int SwatchHeight = 10;
// Entries of hierarchical sessions are indented by their level.
const QString LevelIndent = QStringLiteral ("    ");

QColor ToQColor (const Gfx::Color& color)
{
    return QColor (color.GetRed (), color.GetGreen (), color.GetBlue (), color.GetAlpha ());
}

QIcon MakeSwatchIcon (const QColor& colour, qreal ratio)
{
    QPixmap pixmap (QSize (MenuIconSize, MenuIconSize) * ratio);
    pixmap.setDevicePixelRatio (ratio);
    pixmap.fill (Qt::transparent);
    QPainter painter (&pixmap);
    const QRect swatch (0, (MenuIconSize - SwatchHeight) / 2, SwatchWidth, SwatchHeight);
    painter.fillRect (swatch, colour);
    painter.setPen (Theme::SecondaryInkColor);
    painter.drawRect (swatch.adjusted (0, 0, -1, -1));
    return QIcon (pixmap);
}

QIcon MakeIcon (const Wg::Icon& icon, qreal ratio)
{
    QSize size = IconCache::GetNaturalSize (icon.GetModule (), icon.GetResourceId ());
    if (size.isEmpty ()) return QIcon ();
    size = size.boundedTo (QSize (MenuIconSize, MenuIconSize));
    QIcon result;
    result.addPixmap (IconCache::Get ().GetPixmap (icon, size, ratio), QIcon::Normal);
    result.addPixmap (IconCache::Get ().GetPixmap (icon, size, ratio, true), QIcon::Disabled);
    return result;
}

// Where a popup of the anchor opens: under its widget, or at the pointer.
QPoint PopupPosition (QWidget* anchor)
{
    return anchor != nullptr ? anchor->mapToGlobal (QPoint (0, anchor->height ())) : QCursor::pos ();
}

// Tells the session where the pointer is over a menu: Track (i) over an entry, Track (0) over
// separators, disabled entries and outside.
class MenuTracker : public QObject {
public:
    MenuTracker (Wg::ModalSession& session, QMenu& menu, std::vector<QAction*> actions)
        : session (session), menu (menu), actions (std::move (actions))
    {
        QObject::connect (&menu, &QMenu::hovered, this, [this] (QAction* action) { Track (EntryOf (action)); });
        QObject::connect (&menu, &QMenu::triggered, this, [this] (QAction* action) { chosen = EntryOf (action); });
        menu.installEventFilter (this);
    }

    int GetChosen () const { return chosen; }

    bool eventFilter (QObject*, QEvent* event) override
    {
        if (event->type () == QEvent::Leave) {
            Track (0);
        } else if (event->type () == QEvent::MouseMove) {
            QAction* action = menu.actionAt (static_cast<QMouseEvent*> (event)->position ().toPoint ());
            if (EntryOf (action) == 0) Track (0);
        }
        return false;
    }

private:
    // The entry of a selectable action, 0 for anything else.
    int EntryOf (QAction* action) const
    {
        if (action == nullptr || action->isSeparator () || !action->isEnabled ()) return 0;
        const auto it = std::find (actions.begin (), actions.end (), action);
        return it == actions.end () ? 0 : static_cast<int> (it - actions.begin ()) + 1;
    }

    void Track (int entry)
    {
        if (entry == tracked || session.HasEnded ()) return;
        tracked = entry;
        const InputScope scope;
        session.Perform (Wg::ModalStep::MakeTrack (entry));
        // The control may have gone meanwhile, which ends the session.
        if (session.HasEnded ()) menu.close ();
    }

    Wg::ModalSession&     session;
    QMenu&                menu;
    std::vector<QAction*> actions;
    int                   tracked = 0;
    int                   chosen = 0;
};

// Chooses, or cancels when nothing was chosen (or the choice was refused).
void Finish (Wg::ModalSession& session, int chosen)
{
    if (!session.HasEnded () && chosen > 0) session.Perform (Wg::ModalStep::MakeChoose (chosen));
    if (!session.HasEnded ()) session.Perform (Wg::ModalStep::MakeCancel ());
}

}   // namespace

QWidget* FindItemWidget (const Wg::Item* item)
{
    if (item == nullptr) return nullptr;
    auto* view = dynamic_cast<PanelView*> (item->GetPanel ().GetPeer ());
    return view != nullptr ? view->FindPeerWidget (*item) : nullptr;
}

void QtModalRunner::Run (Wg::ModalSession& session)
{
    const InputScope scope;
    session.Begin ();
    if (session.HasEnded ()) return;
    switch (session.GetKind ()) {
        case Wg::ModalSession::Kind::Menu:
            RunMenu (session);
            break;
        case Wg::ModalSession::Kind::Picker: {
            if (dynamic_cast<const TxAC::AttributePickerSession*> (&session) != nullptr) {
                RunAttributePicker (session);
                break;
            }
            const auto* picker = dynamic_cast<const Pk::PickerSession*> (&session);
            const Pk::PickerControl* control = picker != nullptr ? picker->GetPickerControl () : nullptr;
            const auto& entries = picker != nullptr ? picker->GetPickerEntries () : std::vector<Pk::PickerControl::Entry> ();
            const bool drawable = std::all_of (entries.begin (), entries.end (), [] (const Pk::PickerControl::Entry& entry) {
                return entry.separator || entry.hasColor || !entry.icon.IsEmpty ();
            });
            if (control != nullptr && control->GetControlType () == Pk::PickerControl::GridControl && drawable && !entries.empty ())
                RunPickerGrid (session);
            else
                RunMenu (session);
            break;
        }
        case Wg::ModalSession::Kind::Dialog:
            if (auto* selection = dynamic_cast<Rb::AutoClosingSingleItemSelectionDialog*> (&session)) {
                QWidget* anchor = FindItemWidget (session.GetAnchor ());
                ItemSelectionPopup popup (*selection, anchor);
                popup.Exec (PopupPosition (anchor));
            } else {
                RunUserDialogPopup (session);
            }
            break;
    }
    Finish (session, 0);
}

void QtModalRunner::RunMenu (Wg::ModalSession& session)
{
    QWidget* anchor = FindItemWidget (session.GetAnchor ());
    QMenu menu (anchor);
    menu.setFont (Theme::GetFont (Gfx::PlainFont));
    const qreal ratio = anchor != nullptr ? anchor->devicePixelRatioF () : menu.devicePixelRatioF ();
    const auto* picker = dynamic_cast<const Pk::PickerSession*> (&session);
    const std::vector<Wg::ModalEntry> entries = session.GetEntries ();
    std::vector<QAction*> actions;
    actions.reserve (entries.size ());
    for (std::size_t index = 0; index < entries.size (); ++index) {
        const Wg::ModalEntry& entry = entries[index];
        if (entry.separator) {
            actions.push_back (menu.addSeparator ());
            continue;
        }
        QAction* action = menu.addAction (LevelIndent.repeated (std::max (entry.level, 0)) + ToQString (entry.text));
        action->setEnabled (entry.enabled);
        if (entry.checked) {
            action->setCheckable (true);
            action->setChecked (true);
        }
        const Pk::PickerControl::Entry* pickerEntry =
            picker != nullptr && index < picker->GetPickerEntries ().size () ? &picker->GetPickerEntries ()[index] : nullptr;
        if (pickerEntry != nullptr && pickerEntry->hasColor)
            action->setIcon (MakeSwatchIcon (ToQColor (pickerEntry->color), ratio));
        else if (!entry.icon.IsEmpty ())
            action->setIcon (MakeIcon (entry.icon, ratio));
        actions.push_back (action);
    }
    if (anchor != nullptr) menu.setMinimumWidth (anchor->width ());
    MenuTracker tracker (session, menu, actions);
    if (!entries.empty ()) menu.exec (PopupPosition (anchor));
    Finish (session, tracker.GetChosen ());
}

namespace {

// Shows a tracking popup of type Popup (built from args and a track callback) at the session's
// anchor: each entry tracked is a step of the session, and a session that ends meanwhile closes
// the popup. Returns the chosen entry, 0 for none.
template <typename Popup, typename... Args>
int ExecTrackingPopup (Wg::ModalSession& session, Args&&... args)
{
    QPointer<TrackingPopup> popup;
    Popup view (std::forward<Args> (args)..., [&session, &popup] (int entry) {
        if (session.HasEnded ()) return;
        const InputScope scope;
        session.Perform (Wg::ModalStep::MakeTrack (entry));
        if (session.HasEnded () && popup != nullptr) popup->Dismiss ();
    });
    popup = &view;
    return view.Exec (PopupPosition (FindItemWidget (session.GetAnchor ())));
}

}   // namespace

void QtModalRunner::RunPickerGrid (Wg::ModalSession& session)
{
    const auto& picker = static_cast<const Pk::PickerSession&> (session);
    const Pk::PickerControl* control = picker.GetPickerControl ();
    const bool header = control != nullptr && control->GetHeaderType () == Pk::PickerControl::TextHeader;
    Finish (session, ExecTrackingPopup<PickerPopup> (session, picker.GetPickerEntries (), session.GetInitialEntry (), header));
}

void QtModalRunner::RunAttributePicker (Wg::ModalSession& session)
{
    const auto& picker = static_cast<const TxAC::AttributePickerSession&> (session);
    Finish (session, ExecTrackingPopup<AttributePickerPopupView> (session, picker));
}

}   // namespace TxalQt
