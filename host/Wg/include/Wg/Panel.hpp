#pragma once
// Wg::Panel: a dialog, palette or tab page that holds items by id, the focused item, the
// low-level keyboard handlers and its scale. Observers hear of its life-cycle events.

#include <map>
#include <vector>

#include "Gfx/Geometry.hpp"
#include "Kor/Event.hpp"
#include "Wg/Item.hpp"
#include "Wg/Key.hpp"

namespace Wg {

class ListBox;
class Panel;

class PanelEvent {
public:
    explicit PanelEvent (Panel* source) : source (source) {}
    Panel* GetSource () const { return source; }

private:
    Panel* source;
};

class PanelResizeEvent : public PanelEvent {
public:
    PanelResizeEvent (Panel* source, int horizontalChange, int verticalChange)
        : PanelEvent (source), horizontalChange (horizontalChange), verticalChange (verticalChange) {}
    int GetHorizontalChange () const { return horizontalChange; }
    int GetVerticalChange () const { return verticalChange; }

private:
    int horizontalChange;
    int verticalChange;
};

class PanelScaleChangeEvent : public PanelEvent {
public:
    PanelScaleChangeEvent (Panel* source, double oldScale, double newScale) : PanelEvent (source), oldScale (oldScale), newScale (newScale) {}
    double GetOldScale () const { return oldScale; }
    double GetNewScale () const { return newScale; }

private:
    double oldScale;
    double newScale;
};

// A request to close the panel. Accepted: the panel closes by acceptance (OK, Close) rather
// than by cancellation, so that what it shows is to be kept.
class PanelCloseRequestEvent : public PanelEvent {
public:
    PanelCloseRequestEvent (Panel* source, bool accepted) : PanelEvent (source), accepted (accepted) {}
    bool IsAccepted () const { return accepted; }

private:
    bool accepted;
};

using PanelOpenEvent = PanelEvent;
using PanelIdleEvent = PanelEvent;
using PanelResizeExitEvent = PanelEvent;

class PanelObserver : public virtual Kor::EventObserver {
public:
    virtual void PanelOpened (const PanelOpenEvent& event);
    virtual void PanelIdle (const PanelIdleEvent& event);
    virtual void PanelResized (const PanelResizeEvent& event);
    virtual void PanelResizeExited (const PanelResizeExitEvent& event);
    virtual void PanelCloseRequested (const PanelCloseRequestEvent& event, bool* accepted);
    virtual void PanelScaleChanged (const PanelScaleChangeEvent& event);
};

// Mirrors a panel (title, size, scale, open state) onto a window.
class PanelPeer {
public:
    virtual ~PanelPeer () = default;
    virtual void PanelChanged (Panel& panel) = 0;
    virtual void ItemAdded (Panel& panel, Item& item) = 0;
    virtual void PanelDestroyed (Panel& panel) = 0;
};

class Panel : public Kor::EventSource {
public:
    explicit Panel (const Rect& rect = Rect (0, 0, 400, 300), short id = 1, const Kor::UniString& title = {});
    Panel (const Panel&) = delete;
    Panel& operator= (const Panel&) = delete;
    ~Panel () override;

    void Attach (PanelObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (PanelObserver& observer) { Kor::EventSource::Detach (observer); }

    short GetId () const { return id; }
    const Kor::UniString& GetTitle () const { return title; }
    void SetTitle (const Kor::UniString& newTitle);

    // The client rectangle; its top-left is the panel's origin on the screen.
    Rect GetRect () const { return rect; }
    int  GetWidth () const { return rect.GetWidth (); }
    int  GetHeight () const { return rect.GetHeight (); }
    Point GetScreenOrigin () const { return rect.GetTopLeft (); }
    // Moves the panel on the screen (a tab page follows its tab control); the items keep their
    // panel coordinates and the observers hear nothing.
    void MoveTo (Point screenOrigin);

    // Items by id; null when there is none.
    Item* GetItem (short itemId) const;
    std::vector<Item*> GetItems () const;
    short GetNextFreeItemId () const;

    Item* GetFocusedItem () const { return focused; }
    // Moves the focus (null: no item has it). The item that loses it hears first.
    void SetFocusedItem (Item* item);

    // 1.0 is 100 %; 2.0 is 200 % (192 dpi).
    double GetScale () const { return scale; }

    // Low-level keyboard handlers, asked newest first before the focused item.
    void InstallKeyboardHandler (KeyboardHandler& handler);
    void RemoveKeyboardHandler (KeyboardHandler& handler);

    // Groups moves and resizes so that a backend repaints once.
    void BeginMoveResizeItems ();
    void EndMoveResizeItems ();
    bool IsInMoveResize () const { return moveResizeDepth > 0; }

    bool IsOpen () const { return open; }

    void       SetPeer (PanelPeer* newPeer) { peer = newPeer; }
    PanelPeer* GetPeer () const { return peer; }

    // --- User input and host entry points ---
    void Open ();
    void Idle ();
    // The user resized the panel by (dWidth, dHeight); resize exit ends the drag.
    void Resize (int dWidth, int dHeight);
    void ResizeExit ();
    // Asks the observers whether the panel may close; returns whether one of them agreed.
    // closeAccepted tells them whether it closes by acceptance (the default: a palette's close
    // box keeps what was done) or by cancellation.
    bool RequestClose (bool closeAccepted = true);
    void SetScale (double newScale);
    // A key press: handlers first, then the focused item, then, for a Tab that nobody used,
    // MoveFocusByTab (Shift: backward). Sets the application's modifier state for the duration.
    // Returns whether anybody used the key.
    bool KeyPress (const Key::Code& key);
    // Tab traversal. Inside a list box (the list box or one of its on-tab items has the focus)
    // it is the list box's, ListBox::UserTab, and never leaves it. Elsewhere it visits the
    // focusable, visible and enabled items that stand on no list box row, in id order, wrapping
    // around. Returns whether there was anywhere to go.
    bool MoveFocusByTab (bool backward);
    bool ModifierPress (const Key::Modifier& modifier);

private:
    friend class Item;
    void  AddItem (Item& item, short requestedId, short& assignedId);
    void  RemoveItem (Item& item);
    void  NotifyPeer ();

    // Where a Tab starts: the list box that holds the focus and the column of the focused
    // on-tab item (0: the list box itself); no list box when the focus is elsewhere.
    struct TabOrigin {
        ListBox* listBox = nullptr;
        short    listBoxId = 0;
        short    column = 0;
    };
    TabOrigin FindTabOrigin () const;
    bool      MoveFocusByTab (const TabOrigin& origin, bool backward);

    short                          id;
    Kor::UniString                 title;
    Rect                           rect;
    std::map<short, Item*>         items;
    Item*                          focused = nullptr;
    double                         scale = 1.0;
    std::vector<KeyboardHandler*>  keyboardHandlers;
    int                            moveResizeDepth = 0;
    bool                           open = false;
    PanelPeer*                     peer = nullptr;
};

}   // namespace Wg
