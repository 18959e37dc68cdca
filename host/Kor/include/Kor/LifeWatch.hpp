#pragma once
// Kor::LifeWatch: the one way to ask "did this object survive the callback?".
//
// Observers may destroy the object that notifies them, its list, or anything else they can
// reach. Code that still has work after it ran user code (a notification, a commit, a focus
// move) watches every object it will touch afterwards and stops when one of them is gone:
//
//     Kor::LifeWatch alive {item, list};
//     item->NotifyObservers (...);
//     if (alive.IsGone ()) return;
//
// The watch implements no observer interface, so no notification ever reaches it.

#include <initializer_list>

#include "Kor/Event.hpp"

namespace Kor {

class LifeWatch : private EventObserver {
public:
    // Watches each source given; null sources are skipped.
    LifeWatch (std::initializer_list<const EventSource*> sources)
    {
        for (const EventSource* source : sources) Watch (source);
    }
    explicit LifeWatch (const EventSource& source) { Watch (&source); }
    LifeWatch (const LifeWatch&) = delete;
    LifeWatch& operator= (const LifeWatch&) = delete;
    ~LifeWatch () override = default;

    // Also watches this source from now on (null is skipped).
    void Watch (const EventSource* source)
    {
        if (source != nullptr) const_cast<EventSource*> (source)->Attach (*this);
    }

    bool IsGone () const { return gone; }
    bool IsAlive () const { return !gone; }

private:
    // --- EventObserver ---
    void SourceDestroyed (EventSource&) override { gone = true; }

    bool gone = false;
};

}   // namespace Kor
