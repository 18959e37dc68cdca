#include "TxalQt/PanelView.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QResizeEvent>
#include <QWheelEvent>
#include <algorithm>

#include "ControlPeers.hpp"
#include "EditPeer.hpp"
#include "InputScope.hpp"
#include "KeyMapping.hpp"
#include "ListBoxView.hpp"
#include "PeerBase.hpp"
#include "Pk/PickerControl.hpp"
#include "Pk/PopupControl.hpp"
#include "Strings.hpp"
#include "TabPeers.hpp"
#include "Theme.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/TextEdit.hpp"

// Call tree of the view:
//   AttachPanel -> PanelView -> CreatePeer for the items that exist
//   Panel::ItemAdded (from the item's constructor) -> pending -> SyncPeers (event loop) -> CreatePeer
//   CreatePeer -> a peer widget by the item's kind -> Item::SetPeer -> PeerBase::SyncAll
//   Qt resize of the view -> Panel::Resize (and ResizeExit once the drag rests)
//   Qt key press on the view itself (no item has the focus) -> Panel::KeyPress
//   screen or ratio change -> Panel::SetScale
//   shown and quiet -> Panel::Idle (every IdleIntervalMs)
//   close of the view's own window -> Panel::RequestClose
//   Qt focus out of the view, or the view hidden by the program -> LeavePanel
//                                     -> Panel::SetFocusedItem (nullptr): the focused item commits

namespace TxalQt {

namespace {

// The user's drag of a window edge counts as ended after this pause.
constexpr int ResizeExitDelayMs = 250;

}   // namespace

void PanelView::PendingPeer::ItemDestroyed (Wg::Item& item)
{
    std::erase (view.pending, &item);
}

PanelView::PanelView (Wg::Panel& shown, QWidget* parent) : QWidget (parent), panel (&shown)
{
    Theme::AcquireTextMeasurer ();
    setAttribute (Qt::WA_StyledBackground);
    setAutoFillBackground (true);
    QPalette colours = palette ();
    colours.setColor (QPalette::Window, Theme::WindowColor);
    setPalette (colours);
    setStyleSheet (Theme::GetPeerStyleSheet ());
    // The view takes the keyboard only when the model's focus is on no item.
    setFocusPolicy (Qt::NoFocus);
    resizeExitTimer.setSingleShot (true);
    resizeExitTimer.setInterval (ResizeExitDelayMs);
    QObject::connect (&resizeExitTimer, &QTimer::timeout, this, [this] {
        if (panel == nullptr) return;
        const InputScope scope;
        panel->ResizeExit ();
    });

    idleTimer.setInterval (IdleIntervalMs);
    QObject::connect (&idleTimer, &QTimer::timeout, this, [this] {
        // Not inside the model, nor under a menu or modal dialog: then the user is busy.
        if (!AcceptsInput () || InputScope::IsActive () || QApplication::activePopupWidget () != nullptr ||
            QApplication::activeModalWidget () != nullptr)
            return;
        const InputScope scope;
        panel->Idle ();
    });

    shown.SetPeer (this);
    ApplyPanelState ();
    for (Wg::Item* item : shown.GetItems ())
        if (item->GetPeer () == nullptr) CreatePeer (*item);
}

PanelView::~PanelView ()
{
    closing = true;
    if (panel != nullptr && panel->GetPeer () == this) panel->SetPeer (nullptr);
    for (Wg::Item* item : pending)
        if (item->GetPeer () == &pendingPeer) item->SetPeer (nullptr);
    pending.clear ();
    // Each peer detaches from its item as it goes.
    const std::vector<PeerBase*> doomed = std::move (peers);
    peers.clear ();
    for (PeerBase* peer : doomed) delete &peer->GetWidget ();
    Theme::ReleaseTextMeasurer ();
}

void PanelView::SyncPeers ()
{
    syncScheduled = false;
    while (!pending.empty () && panel != nullptr) {
        Wg::Item* item = pending.front ();
        pending.erase (pending.begin ());
        if (item->GetPeer () != &pendingPeer) continue;
        item->SetPeer (nullptr);
        CreatePeer (*item);
    }
}

QWidget* PanelView::FindPeerWidget (const Wg::Item& item) const
{
    PeerBase* peer = FindPeer (item);
    return peer != nullptr ? &peer->GetWidget () : nullptr;
}

PeerBase* PanelView::FindPeer (const Wg::Item& item) const
{
    auto* peer = dynamic_cast<PeerBase*> (item.GetPeer ());
    return peer != nullptr && &peer->GetView () == this ? peer : nullptr;
}

void PanelView::CreatePeer (Wg::Item& item)
{
    // The most specific kinds first: a push-check is a check item, a list box an item.
    PeerBase* peer = nullptr;
    if (auto* listBox = dynamic_cast<Wg::ListBox*> (&item))
        peer = new ListBoxView (*this, *listBox);
    else if (dynamic_cast<Wg::TypingEdit*> (&item) != nullptr)
        peer = new EditPeer (*this, item);
    else if (auto* bar = dynamic_cast<Wg::BarControl*> (&item))
        peer = new SliderPeer (*this, *bar);
    else if (auto* button = dynamic_cast<Wg::ButtonItem*> (&item))
        peer = new ButtonPeer (*this, *button);
    else if (auto* pushCheck = dynamic_cast<Wg::PushCheck*> (&item))
        peer = new PushCheckPeer (*this, *pushCheck);
    else if (auto* check = dynamic_cast<Wg::CheckItem*> (&item))
        peer = new CheckPeer (*this, *check);
    else if (auto* popup = dynamic_cast<Pk::PopupControl*> (&item))
        peer = new PopupPeer (*this, *popup);
    else if (auto* picker = dynamic_cast<Pk::PickerControl*> (&item))
        peer = new PickerPeer (*this, *picker);
    else if (auto* icon = dynamic_cast<Wg::IconItem*> (&item))
        peer = new IconPeer (*this, *icon);
    else if (auto* text = dynamic_cast<Wg::LeftText*> (&item))
        peer = new TextPeer (*this, *text);
    else if (auto* tabs = dynamic_cast<Wg::TabControl*> (&item))
        peer = new TabControlPeer (*this, *tabs);
    else if (auto* splitter = dynamic_cast<Wg::Splitter*> (&item))
        peer = new SplitterPeer (*this, *splitter);
    if (peer == nullptr) return;

    peers.push_back (peer);
    item.SetPeer (peer);
    // List boxes lie under the controls that stand over their rows.
    if (dynamic_cast<Wg::ListBox*> (&item) != nullptr)
        peer->GetWidget ().lower ();
    else
        peer->GetWidget ().raise ();
    peer->SyncAll ();
}

void PanelView::ScheduleSync ()
{
    if (syncScheduled) return;
    syncScheduled = true;
    QMetaObject::invokeMethod (this, [this] { SyncPeers (); }, Qt::QueuedConnection);
}

// --- Wg::PanelPeer ---

void PanelView::PanelChanged (Wg::Panel& changed)
{
    if (&changed != panel) return;
    ApplyPanelState ();
}

void PanelView::ItemAdded (Wg::Panel& owner, Wg::Item& item)
{
    if (&owner != panel || item.GetPeer () != nullptr) return;
    // The item is still being constructed: its kind is known once its constructor has run.
    item.SetPeer (&pendingPeer);
    pending.push_back (&item);
    ScheduleSync ();
}

void PanelView::PanelDestroyed (Wg::Panel& destroyed)
{
    if (&destroyed != panel) return;
    panel = nullptr;
    resizeExitTimer.stop ();
    idleTimer.stop ();
}

// --- For the peers ---

void PanelView::PeerItemGone (PeerBase& peer)
{
    std::erase (peers, &peer);
}

bool PanelView::IsOverListRow (const Wg::Item& item) const
{
    for (PeerBase* peer : peers) {
        auto* listBox = dynamic_cast<Wg::ListBox*> (peer->GetItem ());
        if (listBox != nullptr && listBox->IsOnTabItem (item)) return true;
    }
    return false;
}

void PanelView::FollowModelFocus ()
{
    if (panel == nullptr || closing || leaving) return;
    Wg::Item* focused = panel->GetFocusedItem ();
    QWidget* target = focused != nullptr ? FindPeerWidget (*focused) : nullptr;
    if (target != nullptr && target->isVisibleTo (this) && target->isEnabled ()) {
        if (!target->hasFocus ()) target->setFocus (Qt::OtherFocusReason);
        return;
    }
    // No item has the focus (or its peer is not made yet): the view keeps the keyboard, so
    // that keys still reach the panel's handlers.
    QWidget* current = QApplication::focusWidget ();
    if (current != nullptr && current != this && isAncestorOf (current)) setFocus (Qt::OtherFocusReason);
}

void PanelView::LeavePanel ()
{
    if (panel == nullptr || closing || leaving || panel->GetFocusedItem () == nullptr) return;
    const InputScope scope;
    leaving = true;
    const QPointer<PanelView> alive (this);
    // One more round at most: the second loss has nothing left to commit.
    for (int round = 0; round < 2 && alive != nullptr && panel != nullptr && panel->GetFocusedItem () != nullptr; ++round) panel->SetFocusedItem (nullptr);
    if (alive != nullptr) leaving = false;
}

// --- Qt ---

bool PanelView::event (QEvent* event)
{
    switch (event->type ()) {
        case QEvent::Show:
            if (panel != nullptr) idleTimer.start ();
            SyncPeers ();
            UpdateScale ();
            break;
        case QEvent::Hide:
            idleTimer.stop ();
            // Closed or hidden by the program (not minimised): the user is done with the panel,
            // and what was typed into it is committed now rather than when the panel goes.
            if (!event->spontaneous ()) LeavePanel ();
            break;
        case QEvent::ScreenChangeInternal:
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
        case QEvent::DevicePixelRatioChange:
#endif
            SyncPeers ();
            UpdateScale ();
            break;
        case QEvent::ShortcutOverride: {
            // While no item has the focus, the view takes the keys the model knows, as the peers do.
            auto* key = static_cast<QKeyEvent*> (event);
            const std::optional<Wg::Key::Code> code = KeyMapping::ToKeyCode (*key);
            if (QApplication::focusWidget () == this && code.has_value () && !code->HasModifier (Wg::Key::Command)) {
                key->accept ();
                return true;
            }
            break;
        }
        case QEvent::KeyPress:
            // Before QWidget's handling, which would take Tab for itself.
            keyPressEvent (static_cast<QKeyEvent*> (event));
            return true;
        default:
            break;
    }
    return QWidget::event (event);
}

void PanelView::keyPressEvent (QKeyEvent* event)
{
    // Keys of the peers were offered to the panel by the peer; only the view's own go there.
    if (QApplication::focusWidget () != this || panel == nullptr || closing) {
        event->ignore ();
        return;
    }
    if (const std::optional<Wg::Key::Modifier> modifier = KeyMapping::ToModifier (*event)) {
        const InputScope scope;
        if (!event->isAutoRepeat ()) panel->ModifierPress (*modifier);
        return;
    }
    const std::optional<Wg::Key::Code> code = KeyMapping::ToKeyCode (*event);
    bool used = false;
    if (code.has_value ()) {
        const InputScope scope;
        used = panel->KeyPress (*code);
    }
    // Tab is the panel's traversal even when it found nowhere to go: Qt's focus chain would
    // take the keyboard out of the panel.
    if (!used && !PeerBase::IsTraversalKey (*event)) event->ignore ();
}

void PanelView::resizeEvent (QResizeEvent* event)
{
    QWidget::resizeEvent (event);
    if (panel == nullptr || applyingPanelSize || closing) return;
    const int dWidth = width () - panel->GetWidth ();
    const int dHeight = height () - panel->GetHeight ();
    if (dWidth == 0 && dHeight == 0) return;
    const InputScope scope;
    panel->Resize (dWidth, dHeight);
    resizeExitTimer.start ();
}

void PanelView::closeEvent (QCloseEvent* event)
{
    if (panel == nullptr || closing) {
        event->accept ();
        return;
    }
    bool accepted = false;
    {
        const InputScope scope;
        accepted = panel->RequestClose ();
    }
    if (accepted)
        event->accept ();
    else
        event->ignore ();
}

void PanelView::wheelEvent (QWheelEvent* event)
{
    // A wheel turned over a control that stands on a row scrolls the list under it.
    for (PeerBase* peer : peers) {
        auto* listView = dynamic_cast<ListBoxView*> (peer);
        if (listView != nullptr && listView->isVisible () && listView->geometry ().contains (event->position ().toPoint ())) {
            listView->ScrollByWheel (*event);
            return;
        }
    }
    event->ignore ();
}

void PanelView::UpdateScale ()
{
    if (panel == nullptr) return;
    const double ratio = devicePixelRatioF ();
    if (ratio == panel->GetScale ()) return;
    const InputScope scope;
    panel->SetScale (ratio);
}

void PanelView::ApplyPanelState ()
{
    if (panel == nullptr) return;
    if (isWindow ()) setWindowTitle (ToQString (panel->GetTitle ()));
    const QSize size (panel->GetWidth (), panel->GetHeight ());
    if (size != this->size () && size.isValid ()) {
        applyingPanelSize = true;
        resize (size);
        applyingPanelSize = false;
    }
}

}   // namespace TxalQt
