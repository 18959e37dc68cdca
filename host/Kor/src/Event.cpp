#include "Kor/Event.hpp"

#include <algorithm>

namespace Kor {

EventObserver::~EventObserver ()
{
    DetachFromAllSources ();
}

void EventObserver::DetachFromAllSources ()
{
    // Detach erases our entry from sources, so walk from the back.
    while (!sources.empty ()) {
        EventSource* source = sources.back ();
        source->Detach (*this);
    }
}

void EventObserver::SourceDestroyed (EventSource&) {}

EventSource::~EventSource ()
{
    for (Delivery* d = deliveries; d != nullptr; d = d->outer) d->sourceDestroyed = true;
    // Tell the newest first, as every other notification does. Each observer is detached
    // before it hears of the destruction, so it may do anything except touch this source.
    while (!observers.empty ()) {
        EventObserver* observer = observers.back ();
        observers.pop_back ();
        if (observer == nullptr) continue;
        auto& list = observer->sources;
        list.erase (std::find (list.begin (), list.end (), this));
        observer->SourceDestroyed (*this);
    }
}

std::size_t EventSource::GetObserverCount () const
{
    return static_cast<std::size_t> (std::count_if (observers.begin (), observers.end (), [] (EventObserver* o) { return o != nullptr; }));
}

bool EventSource::IsAttached (const EventObserver& observer) const
{
    return std::find (observers.begin (), observers.end (), &observer) != observers.end ();
}

void EventSource::Attach (EventObserver& observer)
{
    if (IsAttached (observer)) return;
    observers.push_back (&observer);
    observer.sources.push_back (this);
}

void EventSource::Detach (EventObserver& observer)
{
    auto it = std::find (observers.begin (), observers.end (), &observer);
    if (it == observers.end ()) return;
    if (deliveries != nullptr) {
        *it = nullptr;
        hasHoles = true;
    } else {
        observers.erase (it);
    }
    auto& list = observer.sources;
    list.erase (std::find (list.begin (), list.end (), this));
}

void EventSource::DetachAll ()
{
    for (std::size_t i = observers.size (); i-- > 0;) {
        if (observers[i] != nullptr) Detach (*observers[i]);
    }
}

void EventSource::Compact ()
{
    observers.erase (std::remove (observers.begin (), observers.end (), nullptr), observers.end ());
    hasHoles = false;
}

}   // namespace Kor
