#include "Wg/Splitter.hpp"

namespace Wg {

SplitterDragEvent::SplitterDragEvent (Splitter* source, int position) : ItemEvent (source), position (position) {}

Splitter* SplitterDragEvent::GetSource () const
{
    return static_cast<Splitter*> (ItemEvent::GetSource ());
}

void SplitterObserver::SplitterDragged (const SplitterDragEvent&) {}

Splitter::Splitter (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void Splitter::UserDrag (int position)
{
    if (!IsVisible () || !IsEnabled ()) return;
    const SplitterDragEvent event (this, position);
    NotifyObservers<SplitterObserver> ([&] (SplitterObserver& observer) { observer.SplitterDragged (event); });
}

}   // namespace Wg
