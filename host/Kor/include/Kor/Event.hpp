#pragma once
// Kor::EventSource and Kor::EventObserver: the notification machinery of the whole library.
//
// Rules (every notification follows them):
//  - delivery goes to the most recently attached observer first;
//  - an observer attached during a delivery is not called in that delivery;
//  - an observer detached during a delivery is not called afterwards in it;
//  - observers of another interface are skipped by a run-time type check;
//  - an observer that is destroyed detaches itself from every source;
//  - a source that is destroyed tells each observer (SourceDestroyed) and detaches it; a
//    delivery in progress on a destroyed source ends at once.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kor {

class EventSource;
class LifeWatch;

class EventObserver {
public:
    EventObserver () = default;
    // Copies observe nothing: attachment belongs to the object, not to its value.
    EventObserver (const EventObserver&) {}
    EventObserver& operator= (const EventObserver&) { return *this; }
    virtual ~EventObserver ();

    // Slot 1: the source is being destroyed; the observer is already detached from it.
    virtual void SourceDestroyed (EventSource& source);

    std::size_t GetSourceCount () const { return sources.size (); }

protected:
    // Detaches from every source now (a destructor that must stop hearing events before its
    // members go).
    void DetachFromAllSources ();

private:
    friend class EventSource;
    std::vector<EventSource*> sources;
};

class EventSource {
public:
    EventSource () = default;
    // A copy has no observers of its own.
    EventSource (const EventSource&) {}
    EventSource& operator= (const EventSource&) { return *this; }
    virtual ~EventSource ();

    std::size_t GetObserverCount () const;
    bool        IsAttached (const EventObserver& observer) const;
    // Whether a notification of this source is under way (also one that an observer left by
    // throwing: that one is over).
    bool        IsNotifying () const { return deliveries != nullptr; }

protected:
    // Attaching an observer that is attached already changes nothing.
    void Attach (EventObserver& observer);
    void Detach (EventObserver& observer);
    void DetachAll ();

    // Calls fn(ObserverType&) for each attached observer of that type, newest first.
    template <typename ObserverType, typename Fn>
    void NotifyObservers (Fn&& fn);

    // Calls fn(ObserverType&) newest first until it returns true; returns whether one did.
    template <typename ObserverType, typename Fn>
    bool NotifyObserversUntil (Fn&& fn);

private:
    friend class EventObserver;
    friend class LifeWatch;

    struct Delivery {
        Delivery*  outer = nullptr;
        bool       sourceDestroyed = false;
    };

    void Compact ();

    std::vector<EventObserver*> observers;   // in order of attachment; null marks a detached slot
    Delivery*                   deliveries = nullptr;
    bool                        hasHoles = false;
};

template <typename ObserverType, typename Fn>
void EventSource::NotifyObservers (Fn&& fn)
{
    NotifyObserversUntil<ObserverType> ([&fn] (ObserverType& observer) {
        fn (observer);
        return false;
    });
}

template <typename ObserverType, typename Fn>
bool EventSource::NotifyObserversUntil (Fn&& fn)
{
    Delivery delivery;
    delivery.outer = deliveries;
    deliveries = &delivery;
    // Unlinks the delivery however the walk ends, an observer's exception included; a source
    // destroyed during the walk has already forgotten it and must not be touched.
    struct Unlink {
        EventSource& source;
        Delivery&    delivery;
        ~Unlink ()
        {
            if (delivery.sourceDestroyed) return;
            source.deliveries = delivery.outer;
            if (source.deliveries == nullptr && source.hasHoles) source.Compact ();
        }
    } unlink { *this, delivery };

    // Observers attached during the walk land beyond the initial count and are not visited;
    // detached ones leave a null hole until the outermost delivery ends.
    for (std::size_t i = observers.size (); i-- > 0;) {
        EventObserver* observer = observers[i];
        if (observer == nullptr) continue;
        auto* typed = dynamic_cast<ObserverType*> (observer);
        if (typed == nullptr) continue;
        if (fn (*typed)) return true;
        if (delivery.sourceDestroyed) return false;
    }
    return false;
}

}   // namespace Kor
