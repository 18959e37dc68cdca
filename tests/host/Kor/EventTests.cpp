#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "Kor/Event.hpp"
#include "Kor/LifeWatch.hpp"

namespace {

class PingObserver : public Kor::EventObserver {
public:
    virtual void Ping () {}
};

class OtherObserver : public Kor::EventObserver {
public:
    virtual void Other () {}
};

class Source : public Kor::EventSource {
public:
    using Kor::EventSource::Attach;
    using Kor::EventSource::Detach;
    void Ping () { NotifyObservers<PingObserver> ([] (PingObserver& o) { o.Ping (); }); }
};

// Records its name into a shared log and runs an optional action when pinged.
class Recorder : public PingObserver {
public:
    Recorder (std::string name, std::string& log) : name (std::move (name)), log (log) {}
    void Ping () override
    {
        log += name;
        if (action) action ();
    }
    void SourceDestroyed (Kor::EventSource&) override { log += "~" + name; }

    std::string           name;
    std::string&          log;
    std::function<void ()> action;
};

class EventSourceTest : public ::testing::Test {
protected:
    std::string log;
};

TEST_F (EventSourceTest, NewestAttachedHearsFirst)
{
    Source source;
    Recorder a ("a", log), b ("b", log), c ("c", log);
    source.Attach (a);
    source.Attach (b);
    source.Attach (c);
    source.Ping ();
    EXPECT_EQ (log, "cba");
}

TEST_F (EventSourceTest, AttachingTwiceKeepsOnePlace)
{
    Source source;
    Recorder a ("a", log), b ("b", log);
    source.Attach (a);
    source.Attach (b);
    source.Attach (a);
    source.Ping ();
    EXPECT_EQ (log, "ba");
    EXPECT_EQ (source.GetObserverCount (), 2u);
}

TEST_F (EventSourceTest, ObserversOfAnotherTypeAreSkipped)
{
    Source source;
    Recorder a ("a", log);
    struct Counting : OtherObserver {
        int calls = 0;
        void Other () override { ++calls; }
    } other;
    source.Attach (a);
    source.Attach (other);
    source.Ping ();
    EXPECT_EQ (log, "a");
    EXPECT_EQ (other.calls, 0);
}

TEST_F (EventSourceTest, ObserverAttachedDuringDeliveryWaitsForTheNextOne)
{
    Source source;
    Recorder a ("a", log), b ("b", log), late ("L", log);
    source.Attach (a);
    source.Attach (b);
    b.action = [&] { source.Attach (late); };
    source.Ping ();
    EXPECT_EQ (log, "ba");
    log.clear ();
    b.action = nullptr;
    source.Ping ();
    EXPECT_EQ (log, "Lba");
}

TEST_F (EventSourceTest, ObserverDetachedDuringDeliveryIsSkipped)
{
    Source source;
    Recorder a ("a", log), b ("b", log), c ("c", log);
    source.Attach (a);
    source.Attach (b);
    source.Attach (c);
    c.action = [&] { source.Detach (b); };
    source.Ping ();
    EXPECT_EQ (log, "ca");
    EXPECT_FALSE (source.IsAttached (b));
    EXPECT_EQ (source.GetObserverCount (), 2u);
}

TEST_F (EventSourceTest, DetachAndReattachDuringDeliveryIsNotCalledAgain)
{
    Source source;
    Recorder a ("a", log), b ("b", log);
    source.Attach (a);
    source.Attach (b);
    b.action = [&] {
        source.Detach (a);
        source.Attach (a);
    };
    source.Ping ();
    EXPECT_EQ (log, "b");
    log.clear ();
    b.action = nullptr;
    source.Ping ();
    EXPECT_EQ (log, "ab");
}

TEST_F (EventSourceTest, ObserverDetachingItselfDuringDelivery)
{
    Source source;
    Recorder a ("a", log), b ("b", log);
    source.Attach (a);
    source.Attach (b);
    b.action = [&] { source.Detach (b); };
    source.Ping ();
    source.Ping ();
    EXPECT_EQ (log, "baa");
}

TEST_F (EventSourceTest, NestedDeliveryKeepsBothWalksConsistent)
{
    Source source;
    Recorder a ("a", log), b ("b", log), c ("c", log);
    source.Attach (a);
    source.Attach (b);
    source.Attach (c);
    int depth = 0;
    b.action = [&] {
        if (depth++ == 0) {
            source.Detach (a);   // inner walk and the outer walk must both skip a
            source.Ping ();
        }
    };
    source.Ping ();
    EXPECT_EQ (log, "cbcb");
}

TEST_F (EventSourceTest, ObserverDestroyedDuringDeliveryIsSkipped)
{
    Source source;
    auto doomed = std::make_unique<Recorder> ("d", log);
    Recorder a ("a", log), b ("b", log);
    source.Attach (a);
    source.Attach (*doomed);
    source.Attach (b);
    b.action = [&] { doomed.reset (); };
    source.Ping ();
    EXPECT_EQ (log, "ba");
    EXPECT_EQ (source.GetObserverCount (), 2u);
}

TEST_F (EventSourceTest, DestroyedObserverDetachesFromAllSources)
{
    Source s1, s2;
    {
        Recorder a ("a", log);
        s1.Attach (a);
        s2.Attach (a);
        EXPECT_EQ (a.GetSourceCount (), 2u);
    }
    EXPECT_EQ (s1.GetObserverCount (), 0u);
    EXPECT_EQ (s2.GetObserverCount (), 0u);
    s1.Ping ();
    EXPECT_EQ (log, "");
}

TEST_F (EventSourceTest, DestroyedSourceTellsObserversNewestFirst)
{
    Recorder a ("a", log), b ("b", log);
    {
        Source source;
        source.Attach (a);
        source.Attach (b);
    }
    EXPECT_EQ (log, "~b~a");
    EXPECT_EQ (a.GetSourceCount (), 0u);
    EXPECT_EQ (b.GetSourceCount (), 0u);
}

TEST_F (EventSourceTest, SourceDestroyedDuringDeliveryEndsTheWalk)
{
    auto source = std::make_unique<Source> ();
    Recorder a ("a", log), b ("b", log), c ("c", log);
    source->Attach (a);
    source->Attach (b);
    source->Attach (c);
    b.action = [&] { source.reset (); };
    source->Ping ();
    // Every observer hears of the destruction, the one that caused it included; a is never pinged.
    EXPECT_EQ (log, "cb~c~b~a");
}

TEST_F (EventSourceTest, ObserverDestroyedInSourceDestroyedNotification)
{
    auto source = std::make_unique<Source> ();
    auto a = std::make_unique<Recorder> ("a", log);
    Recorder b ("b", log);
    source->Attach (*a);
    source->Attach (b);
    struct Killer : PingObserver {
        std::function<void ()> onDestroyed;
        void SourceDestroyed (Kor::EventSource&) override { onDestroyed (); }
    } killer;
    killer.onDestroyed = [&] { a.reset (); };
    source->Attach (killer);
    source.reset ();
    EXPECT_EQ (log, "~b");
    EXPECT_EQ (a, nullptr);
}

TEST_F (EventSourceTest, CopiedSourceAndObserverStartUnattached)
{
    Source source;
    Recorder a ("a", log);
    source.Attach (a);
    Source copy (source);
    copy.Ping ();
    EXPECT_EQ (log, "");
    Recorder aCopy (a);
    EXPECT_EQ (aCopy.GetSourceCount (), 0u);
}

// An observer that throws must leave the source as it was: the delivery record is unlinked,
// a detach during the unwinding walk leaves no hole behind, and destroying the source later
// touches no dead stack frame (the sanitizers would report one).
TEST_F (EventSourceTest, ThrowingObserverLeavesTheSourceConsistent)
{
    auto source = std::make_unique<Source> ();
    Recorder a ("a", log), b ("b", log);
    source->Attach (a);
    source->Attach (b);
    b.action = [&] {
        source->Detach (a);
        throw std::runtime_error ("observer failed");
    };
    EXPECT_THROW (source->Ping (), std::runtime_error);
    EXPECT_FALSE (source->IsNotifying ());
    EXPECT_EQ (source->GetObserverCount (), 1u);
    b.action = nullptr;
    source->Attach (a);
    source->Detach (b);
    // No hole left by the aborted walk: the count is exact and a later detach erases.
    EXPECT_EQ (source->GetObserverCount (), 1u);
    source->Ping ();
    EXPECT_EQ (log, "ba");
    source.reset ();
    EXPECT_EQ (log, "ba~a");
}

TEST_F (EventSourceTest, ThrowingObserverInsideNestedDeliveryUnwindsBothWalks)
{
    Source source;
    Recorder outer ("o", log), inner ("i", log);
    source.Attach (outer);
    source.Attach (inner);
    int depth = 0;
    inner.action = [&] {
        if (depth++ == 0) source.Ping ();
        else throw std::runtime_error ("deep");
    };
    EXPECT_THROW (source.Ping (), std::runtime_error);
    EXPECT_FALSE (source.IsNotifying ());
    inner.action = nullptr;
    source.Detach (outer);
    EXPECT_EQ (source.GetObserverCount (), 1u);
    log.clear ();
    source.Ping ();
    EXPECT_EQ (log, "i");
}

TEST (LifeWatchTest, TellsWhenAnyWatchedSourceIsGone)
{
    auto first = std::make_unique<Source> ();
    auto second = std::make_unique<Source> ();
    Kor::LifeWatch watch {first.get (), nullptr, second.get ()};
    EXPECT_TRUE (watch.IsAlive ());
    // The watch hears no notification of any interface.
    first->Ping ();
    EXPECT_EQ (first->GetObserverCount (), 1u);
    second.reset ();
    EXPECT_TRUE (watch.IsGone ());
    first.reset ();
    EXPECT_TRUE (watch.IsGone ());
}

TEST (LifeWatchTest, DetachesWhenItEndsFirst)
{
    Source source;
    {
        Kor::LifeWatch watch (source);
        EXPECT_EQ (source.GetObserverCount (), 1u);
    }
    EXPECT_EQ (source.GetObserverCount (), 0u);
}

}   // namespace
