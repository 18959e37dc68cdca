#include "Wg/Item.hpp"

#include "Kor/LifeWatch.hpp"

#include "Wg/Panel.hpp"

namespace Wg {

void ItemObserver::ItemToolTipRequested (const ItemHelpEvent&, Kor::UniString*) {}
void ItemObserver::ItemFocusGained (const ItemEvent&) {}
void ItemObserver::ItemFocusLost (const ItemEvent&) {}

Item::Item (const Panel& owner, const Rect& rect, short requestedId)
    : panel (&const_cast<Panel&> (owner)), id (0), rect (rect)
{
    panel->AddItem (*this, requestedId, id);
}

Item::~Item ()
{
    if (peer != nullptr) peer->ItemDestroyed (*this);
    if (panel != nullptr) panel->RemoveItem (*this);
}

void Item::SetRect (const Rect& newRect)
{
    if (newRect == rect) return;
    rect = newRect;
    NotifyPeer (Aspect::Rect);
    RectChanged ();
}

void Item::Move (int dx, int dy)
{
    SetRect (rect.Offset (dx, dy));
}

void Item::Resize (int dWidth, int dHeight)
{
    SetRect (Rect (rect.left, rect.top, rect.right + dWidth, rect.bottom + dHeight));
}

void Item::MoveAndResize (int dx, int dy, int dWidth, int dHeight)
{
    SetRect (Rect (rect.left + dx, rect.top + dy, rect.right + dx + dWidth, rect.bottom + dy + dHeight));
}

void Item::SetWidth (int width)
{
    SetRect (Rect (rect.left, rect.top, rect.left + width, rect.bottom));
}

void Item::SetHeight (int height)
{
    SetRect (Rect (rect.left, rect.top, rect.right, rect.top + height));
}

void Item::SetPosition (Point topLeft)
{
    SetRect (Rect::FromSize (topLeft.x, topLeft.y, rect.GetWidth (), rect.GetHeight ()));
}

Rect Item::GetNativeRectInScreenSpace () const
{
    const Point origin = panel->GetScreenOrigin ();
    return rect.Offset (origin.x, origin.y);
}

void Item::SetVisibility (bool show)
{
    if (show == visible) return;
    visible = show;
    // A hidden item cannot keep the focus. Losing it commits typing, whose observers may
    // destroy the item.
    if (!visible && IsFocused ()) {
        Kor::LifeWatch alive (*this);
        panel->SetFocusedItem (nullptr);
        if (alive.IsGone ()) return;
    }
    NotifyPeer (Aspect::Visibility);
    VisibilityChanged ();
}

void Item::SetStatus (bool enable)
{
    if (enable == enabled) return;
    enabled = enable;
    NotifyPeer (Aspect::Enabled);
}

void Item::SetFocus ()
{
    panel->SetFocusedItem (this);
}

bool Item::IsFocused () const
{
    return panel->GetFocusedItem () == this;
}

Kor::UniString Item::RequestToolTip (short subItem)
{
    const ItemHelpEvent event (this, subItem);
    Kor::UniString answer;
    NotifyObserversUntil<ItemObserver> ([&] (ItemObserver& observer) {
        Kor::UniString text;
        observer.ItemToolTipRequested (event, &text);
        if (text.IsEmpty ()) return false;
        answer = text;
        return true;
    });
    return answer;
}

bool Item::HandleKey (const Key::Code&)
{
    return false;
}

void Item::FocusChanged (bool gained)
{
    const ItemEvent event (this);
    NotifyObservers<ItemObserver> ([&] (ItemObserver& observer) {
        if (gained)
            observer.ItemFocusGained (event);
        else
            observer.ItemFocusLost (event);
    });
}

}   // namespace Wg
