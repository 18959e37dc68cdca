#include "Wg/Panel.hpp"

#include <algorithm>

namespace Wg {

void PanelObserver::PanelOpened (const PanelOpenEvent&) {}
void PanelObserver::PanelIdle (const PanelIdleEvent&) {}
void PanelObserver::PanelResized (const PanelResizeEvent&) {}
void PanelObserver::PanelResizeExited (const PanelResizeExitEvent&) {}
void PanelObserver::PanelCloseRequested (const PanelCloseRequestEvent&, bool*) {}
void PanelObserver::PanelScaleChanged (const PanelScaleChangeEvent&) {}

Panel::Panel (const Rect& rect, short id, const Kor::UniString& title) : id (id), title (title), rect (rect) {}

Panel::~Panel ()
{
    if (peer != nullptr) peer->PanelDestroyed (*this);
    // Items should die before their panel. One that outlives it must not reach back into a
    // dead panel from its destructor.
    focused = nullptr;
    for (auto& [itemId, item] : items) item->panel = nullptr;
}

void Panel::SetTitle (const Kor::UniString& newTitle)
{
    if (newTitle == title) return;
    title = newTitle;
    NotifyPeer ();
}

void Panel::MoveTo (Point screenOrigin)
{
    if (screenOrigin == rect.GetTopLeft ()) return;
    rect = rect.Offset (screenOrigin.x - rect.left, screenOrigin.y - rect.top);
    NotifyPeer ();
}

Item* Panel::GetItem (short itemId) const
{
    auto it = items.find (itemId);
    return it == items.end () ? nullptr : it->second;
}

std::vector<Item*> Panel::GetItems () const
{
    std::vector<Item*> result;
    result.reserve (items.size ());
    for (const auto& [itemId, item] : items) result.push_back (item);
    return result;
}

short Panel::GetNextFreeItemId () const
{
    short candidate = 1;
    for (const auto& [itemId, item] : items) {
        if (itemId < candidate) continue;
        if (itemId > candidate) break;
        ++candidate;
    }
    return candidate;
}

void Panel::AddItem (Item& item, short requestedId, short& assignedId)
{
    // A requested id that is taken (or not positive) is replaced by a free one, so that two
    // items never share an id.
    assignedId = (requestedId > 0 && items.find (requestedId) == items.end ()) ? requestedId : GetNextFreeItemId ();
    items[assignedId] = &item;
    if (peer != nullptr) peer->ItemAdded (*this, item);
}

void Panel::RemoveItem (Item& item)
{
    if (focused == &item) focused = nullptr;
    auto it = items.find (item.GetId ());
    if (it != items.end () && it->second == &item) items.erase (it);
}

void Panel::SetFocusedItem (Item* item)
{
    if (item == focused) return;
    if (item != nullptr && (item->panel != this || !item->IsVisible () || !item->IsEnabled ())) return;
    Item* previous = focused;
    focused = item;
    // The previous item hears first, so that an edit commits what was typed before anything
    // else happens. Each item's peer hears before its observers: an observer may destroy the
    // item, which must not be touched afterwards.
    if (previous != nullptr) {
        previous->NotifyPeer (Aspect::Focus);
        previous->FocusChanged (false);
    }
    // The previous item's reaction may have moved the focus again; only tell the item that
    // still has it.
    if (item != nullptr && focused == item) {
        item->NotifyPeer (Aspect::Focus);
        item->FocusChanged (true);
    }
}

void Panel::InstallKeyboardHandler (KeyboardHandler& handler)
{
    if (std::find (keyboardHandlers.begin (), keyboardHandlers.end (), &handler) == keyboardHandlers.end ())
        keyboardHandlers.push_back (&handler);
}

void Panel::RemoveKeyboardHandler (KeyboardHandler& handler)
{
    keyboardHandlers.erase (std::remove (keyboardHandlers.begin (), keyboardHandlers.end (), &handler), keyboardHandlers.end ());
}

void Panel::BeginMoveResizeItems ()
{
    ++moveResizeDepth;
}

void Panel::EndMoveResizeItems ()
{
    if (moveResizeDepth == 0) return;
    if (--moveResizeDepth == 0) NotifyPeer ();
}

void Panel::NotifyPeer ()
{
    if (peer != nullptr) peer->PanelChanged (*this);
}

void Panel::Open ()
{
    open = true;
    NotifyPeer ();
    const PanelOpenEvent event (this);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelOpened (event); });
}

void Panel::Idle ()
{
    const PanelIdleEvent event (this);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelIdle (event); });
}

void Panel::Resize (int dWidth, int dHeight)
{
    rect = Rect (rect.left, rect.top, rect.right + dWidth, rect.bottom + dHeight);
    NotifyPeer ();
    const PanelResizeEvent event (this, dWidth, dHeight);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelResized (event); });
}

void Panel::ResizeExit ()
{
    const PanelResizeExitEvent event (this);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelResizeExited (event); });
}

bool Panel::RequestClose (bool closeAccepted)
{
    bool accepted = false;
    const PanelCloseRequestEvent event (this, closeAccepted);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelCloseRequested (event, &accepted); });
    return accepted;
}

void Panel::SetScale (double newScale)
{
    if (!(newScale > 0.0) || newScale == scale) return;
    const double oldScale = scale;
    scale = newScale;
    NotifyPeer ();
    const PanelScaleChangeEvent event (this, oldScale, newScale);
    NotifyObservers<PanelObserver> ([&] (PanelObserver& o) { o.PanelScaleChanged (event); });
}

bool Panel::KeyPress (const Key::Code& key)
{
    const int previousModifiers = Application::GetModifierState ();
    Application::SetModifierState (key.GetModifiers ());
    bool used = false;
    // Handlers may be removed while they run; walk a copy, newest first.
    const std::vector<KeyboardHandler*> handlers = keyboardHandlers;
    for (auto it = handlers.rbegin (); it != handlers.rend () && !used; ++it) {
        if (std::find (keyboardHandlers.begin (), keyboardHandlers.end (), *it) == keyboardHandlers.end ()) continue;
        Item* source = nullptr;
        used = (*it)->KeyPressed (key, &source) == KeyHandled;
    }
    const bool tab = key.GetCode () == Key::Tab && !key.HasModifier (Key::Command);
    // Taken before the focused item hears the key: committing may rebuild the rows under it.
    const TabOrigin origin = tab ? FindTabOrigin () : TabOrigin {};
    if (!used && focused != nullptr) used = focused->HandleKey (key);
    if (!used && tab) used = MoveFocusByTab (origin, key.HasModifier (Key::Shift));
    Application::SetModifierState (previousModifiers);
    return used;
}

bool Panel::ModifierPress (const Key::Modifier& modifier)
{
    const int previousModifiers = Application::GetModifierState ();
    Application::SetModifierState (previousModifiers | (1 << modifier.GetKey ()));
    bool used = false;
    const std::vector<KeyboardHandler*> handlers = keyboardHandlers;
    for (auto it = handlers.rbegin (); it != handlers.rend () && !used; ++it) {
        if (std::find (keyboardHandlers.begin (), keyboardHandlers.end (), *it) == keyboardHandlers.end ()) continue;
        Item* source = nullptr;
        used = (*it)->KeyPressed (modifier, &source) == KeyHandled;
    }
    Application::SetModifierState (previousModifiers);
    return used;
}

namespace {
int modifierState = 0;
}

bool Application::GetKeyState (int key, int mode)
{
    if (mode != 1 || key <= 0 || key > 30) return false;
    return (modifierState & (1 << key)) != 0;
}

void Application::SetModifierState (int modifierFlags)
{
    modifierState = modifierFlags;
}

int Application::GetModifierState ()
{
    return modifierState;
}

}   // namespace Wg
