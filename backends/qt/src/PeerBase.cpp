#include "PeerBase.hpp"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QStyle>
#include <QToolTip>

#include "InputScope.hpp"
#include "KeyMapping.hpp"
#include "Strings.hpp"
#include "TxalQt/PanelView.hpp"

// Event flow between Qt and the model:
//   Qt key press in a peer     -> HandleEvent -> Panel::KeyPress (handlers, then the focused item)
//                                 -> KeyNotUsed; Tab and Shift+Tab are the panel's alone (its
//                                    traversal), never Qt's focus chain
//   Qt focus in (click)        -> Item::SetFocus -> the previous item commits
//   Qt focus out of the panel  -> Panel::SetFocusedItem (nullptr) -> the item commits
//   model change               -> Changed -> rect, visibility, enabled, focus; Mirror (the kind)
//   model item destroyed       -> ItemDestroyed -> widget hidden, released after the input scope

namespace TxalQt {

namespace {

// Mirrors a model change: Qt's reactions to it (focus moves, signals) are echoes, not input.
class MirrorScope {
public:
    explicit MirrorScope (PanelView& view) : view (view) { view.BeginMirroring (); }
    MirrorScope (const MirrorScope&) = delete;
    MirrorScope& operator= (const MirrorScope&) = delete;
    ~MirrorScope () { view.EndMirroring (); }

private:
    PanelView& view;
};

const char* const OnTabProperty = "txalOnTab";
constexpr int     OnTabLineEditShift = 2;

QRect ToQRect (const Wg::Rect& rect)
{
    return QRect (rect.left, rect.top, rect.GetWidth (), rect.GetHeight ());
}

}   // namespace

PeerBase::PeerBase (PanelView& view, Wg::Item& item, QWidget& widget) : view (view), item (&item), widget (widget)
{
    widget.setProperty (OnTabProperty, false);
}

PeerBase::~PeerBase ()
{
    if (item != nullptr && item->GetPeer () == this) item->SetPeer (nullptr);
}

void PeerBase::SyncAll ()
{
    if (item == nullptr) return;
    const MirrorScope scope (view);
    widget.setGeometry (ToQRect (item->GetRect ()));
    widget.setEnabled (item->IsEnabled ());
    UpdateOnTab ();
    MirrorAll ();
    widget.setVisible (item->IsVisible ());
    if (item->IsFocused ()) view.FollowModelFocus ();
}

// --- Wg::ItemPeer ---

void PeerBase::Changed (Wg::Item& changed, Wg::Aspect aspect, int detail)
{
    if (item == nullptr || &changed != item) return;
    const MirrorScope scope (view);
    switch (aspect) {
        case Wg::Aspect::Rect:
            widget.setGeometry (ToQRect (item->GetRect ()));
            UpdateOnTab ();
            break;
        case Wg::Aspect::Visibility:
            // Qt would pass the focus of a hidden widget on to a sibling; the model has moved it already.
            if (!item->IsVisible () && widget.hasFocus ()) view.setFocus (Qt::OtherFocusReason);
            widget.setVisible (item->IsVisible ());
            UpdateOnTab ();
            break;
        case Wg::Aspect::Enabled:
            widget.setEnabled (item->IsEnabled ());
            break;
        case Wg::Aspect::Focus:
            view.FollowModelFocus ();
            break;
        default:
            break;
    }
    Mirror (aspect, detail);
}

void PeerBase::ItemDestroyed (Wg::Item& gone)
{
    if (&gone != item) return;
    // The item is half destroyed: nothing of it may be touched from here on.
    item = nullptr;
    const MirrorScope scope (view);
    if (widget.hasFocus ()) view.setFocus (Qt::OtherFocusReason);
    widget.hide ();
    view.PeerItemGone (*this);
    InputScope::Release (widget);
}

// --- Qt's side ---

bool PeerBase::HandleEvent (QEvent& event)
{
    switch (event.type ()) {
        case QEvent::ShortcutOverride: {
            // Keys the model knows go to the model rather than to the window's shortcuts; those
            // held with the command modifier stay shortcuts.
            auto& key = static_cast<QKeyEvent&> (event);
            const std::optional<Wg::Key::Code> code = KeyMapping::ToKeyCode (key);
            if (code.has_value () && !code->HasModifier (Wg::Key::Command)) {
                key.accept ();
                return true;
            }
            return false;
        }
        case QEvent::KeyPress: {
            auto& key = static_cast<QKeyEvent&> (event);
            if (ForwardKey (key) || IsTraversalKey (key)) {
                key.accept ();
                return true;
            }
            return KeyNotUsed (key);
        }
        case QEvent::FocusIn:
            QtFocusIn (static_cast<QFocusEvent&> (event).reason ());
            return false;
        case QEvent::FocusOut:
            QtFocusOut (static_cast<QFocusEvent&> (event).reason ());
            return false;
        case QEvent::ToolTip:
            return ShowToolTip (event);
        default:
            return false;
    }
}

bool PeerBase::ForwardKey (QKeyEvent& event)
{
    Wg::Panel* panel = view.GetPanel ();
    if (panel == nullptr || !view.AcceptsInput ()) return false;
    if (const std::optional<Wg::Key::Modifier> modifier = KeyMapping::ToModifier (event)) {
        if (event.isAutoRepeat ()) return true;
        const InputScope scope;
        return panel->ModifierPress (*modifier);
    }
    const std::optional<Wg::Key::Code> code = KeyMapping::ToKeyCode (event);
    if (!code.has_value ()) return false;
    const InputScope scope;
    return panel->KeyPress (*code);
}

bool PeerBase::IsTraversalKey (const QKeyEvent& event)
{
    return (event.key () == Qt::Key_Tab || event.key () == Qt::Key_Backtab) && !event.modifiers ().testFlag (Qt::ControlModifier);
}

bool PeerBase::KeyNotUsed (QKeyEvent&)
{
    return false;
}

void PeerBase::QtFocusIn (Qt::FocusReason reason)
{
    if (item == nullptr || !view.AcceptsInput () || item->IsFocused ()) return;
    // A window that becomes active again, or a closed popup, gives the focus back to the widget
    // Qt remembers; the model's focus may have moved meanwhile, and it wins.
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || !item->IsFocusable ()) {
        QMetaObject::invokeMethod (&view, [target = &view] { target->FollowModelFocus (); }, Qt::QueuedConnection);
        return;
    }
    const InputScope scope;
    item->SetFocus ();
    // The model may refuse (a disabled item) or move the focus on: Qt follows it.
    if (item == nullptr || !item->IsFocused ())
        QMetaObject::invokeMethod (&view, [target = &view] { target->FollowModelFocus (); }, Qt::QueuedConnection);
}

void PeerBase::QtFocusOut (Qt::FocusReason reason)
{
    if (item == nullptr || !view.AcceptsInput () || !item->IsFocused ()) return;
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    // Within the panel the widget that gets the focus moves the model's focus; out of it, the
    // model's focus leaves too, so that what was typed is committed.
    const QWidget* now = QApplication::focusWidget ();
    if (now != nullptr && (now == &view || view.isAncestorOf (now))) return;
    view.LeavePanel ();
}

bool PeerBase::ShowToolTip (QEvent& event)
{
    auto& help = static_cast<QHelpEvent&> (event);
    const short subItem = item != nullptr && view.AcceptsInput () ? GetToolTipSubItem (help.pos ()) : short (-1);
    Kor::UniString text;
    if (subItem >= 0) {
        const InputScope scope;
        text = item->RequestToolTip (subItem);
    }
    if (text.IsEmpty ()) {
        QToolTip::hideText ();
        event.ignore ();
    } else {
        QToolTip::showText (help.globalPos (), ToQString (text), &widget);
    }
    return true;
}

void PeerBase::UpdateOnTab ()
{
    const bool now = item != nullptr && view.IsOverListRow (*item);
    if (now == onTab) return;
    onTab = now;
    // The style sheet draws controls over rows flat; it reads the property when polished.
    widget.setProperty (OnTabProperty, now);
    widget.style ()->unpolish (&widget);
    widget.style ()->polish (&widget);
    // Over a row the edit's text starts where the cell's text stood: the row pads its text by
    // 2 pixels from the field's edge, the edit stands 1 pixel in with a 1-pixel border, and
    // QLineEdit adds a fixed 2-pixel margin of its own, which this takes back.
    if (auto* lineEdit = qobject_cast<QLineEdit*> (&widget)) lineEdit->setTextMargins (now ? -OnTabLineEditShift : 0, 0, 0, 0);
    widget.update ();
}

}   // namespace TxalQt
