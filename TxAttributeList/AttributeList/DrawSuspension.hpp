#pragma once
// Internal: the nesting guard that suspends the list box's drawing during rebuilds and event
// handling, so that a rebuild never flickers.

#include "TxAttributeList/AttributeList.hpp"

namespace TxAL {

// Suspends the list box's drawing while it lives; the outermost one redraws when it ends.
class AttributeList::DrawSuspension {
public:
    explicit DrawSuspension (AttributeList& list) : list (list)
    {
        if (list.drawSuspensionDepth++ == 0) list.listBox->DisableDraw ();
    }
    ~DrawSuspension ()
    {
        if (--list.drawSuspensionDepth == 0) list.listBox->EnableDraw ();
    }
    DrawSuspension (const DrawSuspension&) = delete;
    DrawSuspension& operator= (const DrawSuspension&) = delete;

private:
    AttributeList& list;
};

}   // namespace TxAL
