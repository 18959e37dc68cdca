#pragma once
// Internal: the nesting guard that suspends the list box's drawing during rebuilds and event
// handling, so that a rebuild never flickers.

#include "Kor/LifeWatch.hpp"
#include "TxAttributeList/AttributeList.hpp"

namespace TxAL {

// Suspends the list box's drawing while it lives; the outermost one redraws when it ends.
// The suspended code may run an observer that destroys the list; the guard then does nothing.
class AttributeList::DrawSuspension {
public:
    explicit DrawSuspension (AttributeList& list) : list (list), listLife (list)
    {
        if (list.drawSuspensionDepth++ == 0) list.listBox->DisableDraw ();
    }
    ~DrawSuspension ()
    {
        if (listLife.IsGone ()) return;
        if (--list.drawSuspensionDepth == 0) list.listBox->EnableDraw ();
    }
    DrawSuspension (const DrawSuspension&) = delete;
    DrawSuspension& operator= (const DrawSuspension&) = delete;

private:
    AttributeList& list;
    Kor::LifeWatch listLife;
};

}   // namespace TxAL
