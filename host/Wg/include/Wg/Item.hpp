#pragma once
// Wg::Item: the base of every control of a panel. It holds its whole state (id, rectangle in
// panel coordinates, visibility, enabled state); focus belongs to the panel. A backend mirrors
// the state through an ItemPeer and reports user input through the entry points.

#include "Gfx/Geometry.hpp"
#include "Kor/Event.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Key.hpp"

namespace Wg {

using Point = Gfx::Point;
using Rect = Gfx::Rect;
using Size = Gfx::Size;

class Item;
class Panel;

// What changed on an item, for its peer.
enum class Aspect {
    Rect,         // position or size
    Visibility,
    Enabled,
    Focus,
    Text,         // text, caption or title
    Value,        // value of an edit, bar, check box or popup
    Bounds,       // minimum, maximum, maximum length, subtype
    Selection,    // character selection of an edit
    Content,      // entries, icons, colours, flags: anything else shown
    Layout,       // list box: tab fields, header, item height
    Rows,         // list box: rows appeared, disappeared or changed wholesale
    Row,          // list box: one row changed (detail = row)
    Scroll,       // list box: first visible row
    Draw,         // list box: drawing suspended or resumed; redraw requested
};

// Mirrors an item's state onto a screen. The item owns no peer: the backend does, and
// detaches it (SetPeer(nullptr)) before destroying it. ItemDestroyed is the last call.
class ItemPeer {
public:
    virtual ~ItemPeer () = default;
    // detail: the row for Aspect::Row, 0 otherwise.
    virtual void Changed (Item& item, Aspect aspect, int detail) = 0;
    virtual void ItemDestroyed (Item& item) = 0;
};

// Base of the events of every control: the control that sent it.
class ItemEvent {
public:
    explicit ItemEvent (Item* source) : source (source) {}
    Item* GetSource () const { return source; }

private:
    Item* source;
};

// A request for help (a tool tip). For a list box the sub-item is the row (1-based).
class ItemHelpEvent : public ItemEvent {
public:
    ItemHelpEvent (Item* source, short subItem) : ItemEvent (source), subItem (subItem) {}
    short GetSubItem () const { return subItem; }

private:
    short subItem;
};

class ItemObserver : public virtual Kor::EventObserver {
public:
    // Answer a tool tip into text (which may be null when the caller wants none).
    virtual void ItemToolTipRequested (const ItemHelpEvent& event, Kor::UniString* text);
    virtual void ItemFocusGained (const ItemEvent& event);
    virtual void ItemFocusLost (const ItemEvent& event);
};

class Item : public Kor::EventSource {
public:
    // Adds the item to the panel with the given id (0 picks the next free id).
    Item (const Panel& panel, const Rect& rect, short id = 0);
    Item (const Item&) = delete;
    Item& operator= (const Item&) = delete;
    ~Item () override;

    Panel& GetPanel () const { return *panel; }
    short  GetId () const { return id; }

    void Attach (ItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (ItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // Geometry in panel coordinates.
    Rect GetRect () const { return rect; }
    void SetRect (const Rect& newRect);
    void Move (int dx, int dy);
    void Resize (int dWidth, int dHeight);
    void MoveAndResize (int dx, int dy, int dWidth, int dHeight);
    int  GetWidth () const { return rect.GetWidth (); }
    int  GetHeight () const { return rect.GetHeight (); }
    void SetWidth (int width);
    void SetHeight (int height);
    void SetPosition (Point topLeft);
    // The rectangle in screen coordinates (the panel's screen origin added).
    Rect GetNativeRectInScreenSpace () const;

    bool IsVisible () const { return visible; }
    void Show () { SetVisibility (true); }
    void Hide () { SetVisibility (false); }
    void SetVisibility (bool show);

    bool IsEnabled () const { return enabled; }
    void Enable () { SetStatus (true); }
    void Disable () { SetStatus (false); }
    void SetStatus (bool enable);

    // Focus: only one item of a panel has it.
    void SetFocus ();
    bool IsFocused () const;
    // Whether the item takes the focus from a click or SetFocus (edits, list boxes).
    virtual bool IsFocusable () const { return false; }

    // Asks the observers for a tool tip; the first non-empty answer wins.
    Kor::UniString RequestToolTip (short subItem = 0);

    void      SetPeer (ItemPeer* newPeer) { peer = newPeer; }
    ItemPeer* GetPeer () const { return peer; }

    // Entry point: a key reached this item because it has the focus and no keyboard handler
    // took it. Returns whether the item used it.
    virtual bool HandleKey (const Key::Code& key);

protected:
    // Called by the panel when the focus arrives or leaves.
    virtual void FocusChanged (bool gained);
    // Called after the rectangle or the visibility changed, so that a control can keep what
    // depends on them in step (a list box moves the controls laid over its rows).
    virtual void RectChanged () {}
    virtual void VisibilityChanged () {}
    void NotifyPeer (Aspect aspect, int detail = 0) const
    {
        if (peer != nullptr) peer->Changed (const_cast<Item&> (*this), aspect, detail);
    }

private:
    friend class Panel;

    Panel*    panel;
    short     id;
    Rect      rect;
    bool      visible = true;
    bool      enabled = true;
    ItemPeer* peer = nullptr;
};

}   // namespace Wg
