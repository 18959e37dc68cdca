#pragma once
// Wg::Splitter: a bar between two parts of a panel that the user drags. The splitter never
// moves itself: it reports where the user dragged its leading edge, and its observers lay the
// panel out (and move the splitter with it), so that they can keep their minimums.

#include "Wg/Item.hpp"

namespace Wg {

class Splitter;

// The user dragged a splitter: position is the new top (horizontal bar) or left (vertical
// bar) edge that the user asks for, in panel coordinates.
class SplitterDragEvent : public ItemEvent {
public:
    SplitterDragEvent (Splitter* source, int position);
    Splitter* GetSource () const;
    int       GetPosition () const { return position; }

private:
    int position;
};

// Hears the drags of a splitter.
class SplitterObserver : public virtual ItemObserver {
public:
    virtual void SplitterDragged (const SplitterDragEvent& event);
};

// A draggable bar; horizontal (it separates an upper from a lower part and is dragged up and
// down) when it is at least as wide as it is tall, vertical otherwise.
class Splitter : public Item {
public:
    Splitter (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (SplitterObserver& observer) { Item::Attach (observer); }
    void Detach (SplitterObserver& observer) { Item::Detach (observer); }

    bool IsHorizontal () const { return GetWidth () >= GetHeight (); }
    // The edge that a drag moves: the top of a horizontal bar, the left of a vertical one.
    int  GetPosition () const { return IsHorizontal () ? GetRect ().top : GetRect ().left; }

    // Entry point: the user dragged the bar so that its leading edge would stand at position
    // (ignored while the splitter is hidden or disabled). Every drag step reports, also one that
    // asks for the place the bar already has.
    void UserDrag (int position);
};

}   // namespace Wg
