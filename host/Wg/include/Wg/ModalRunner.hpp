#pragma once
// Modal interaction. A popup, picker or dialog that is shown and tracked is a ModalSession; the
// installed ModalRunner drives it as the user would and returns when it has ended. The headless
// runner plays a script queued by the caller; with no script left it cancels, so a forgotten
// script never hangs. A backend installs a runner that opens a real menu or dialog.

#include <deque>
#include <vector>

#include "Kor/UniString.hpp"
#include "Wg/Icon.hpp"
#include "Wg/Item.hpp"

namespace Wg {

// One user action in a modal session.
struct ModalStep {
    enum Op {
        Track,    // the pointer is over entry (0: over none)
        Choose,   // choose entry; ends the session
        Cancel,   // close without a choice; ends the session
        Tick,     // set an entry's check mark (flag = on or off)
        Type,     // type text into the session's edit field
        Search,   // type text into the session's search field
        Expand,   // open or close a tree node (flag)
        Accept,   // confirm the dialog; ends the session
    };

    Op             op = Cancel;
    int            entry = 0;
    bool           flag = true;
    Kor::UniString text;

    static ModalStep MakeTrack (int entry) { return {Track, entry, true, {}}; }
    static ModalStep MakeChoose (int entry) { return {Choose, entry, true, {}}; }
    static ModalStep MakeCancel () { return {Cancel, 0, true, {}}; }
    static ModalStep MakeTick (int entry, bool on) { return {Tick, entry, on, {}}; }
    static ModalStep MakeType (const Kor::UniString& text) { return {Type, 0, true, text}; }
    static ModalStep MakeSearch (const Kor::UniString& text) { return {Search, 0, true, text}; }
    static ModalStep MakeExpand (int entry, bool open) { return {Expand, entry, open, {}}; }
    static ModalStep MakeAccept () { return {Accept, 0, true, {}}; }
};

// A menu-like entry a session offers (1-based in the session's interface).
struct ModalEntry {
    Kor::UniString text;
    Icon           icon;
    bool           enabled = true;
    bool           separator = false;
    bool           checked = false;
    int            level = 0;       // tree depth for hierarchical sessions
};

class ModalSession {
public:
    enum class Kind {
        Menu,         // a popup menu of entries
        Picker,       // a grid of pens, fills, patterns or attributes
        Dialog,       // a dialog with its own fields (multiple choice, text, item selection)
    };

    virtual ~ModalSession () = default;

    virtual Kind  GetKind () const = 0;
    // The control the session was opened from (for placement); may be null.
    virtual Item* GetAnchor () const = 0;
    // Entries to show (1-based); sessions without entries answer none.
    virtual std::vector<ModalEntry> GetEntries () const { return {}; }
    // The entry chosen when the session opened, 0 for none.
    virtual int GetInitialEntry () const { return 0; }

    // Called once before the first step.
    virtual void Begin () = 0;
    // Carries out a step; returns true when the session has ended. Steps a session does not
    // understand are ignored (returning false).
    virtual bool Perform (const ModalStep& step) = 0;
    bool HasEnded () const { return ended; }

protected:
    void MarkEnded () { ended = true; }

private:
    bool ended = false;
};

class ModalRunner {
public:
    virtual ~ModalRunner () = default;
    // Returns when the session has ended.
    virtual void Run (ModalSession& session) = 0;
};

// Plays queued steps. Each Run takes steps from the queue until the session ends; when the
// queue runs dry first, it cancels.
class ScriptedModalRunner : public ModalRunner {
public:
    void Run (ModalSession& session) override;

    void Queue (const ModalStep& step) { script.push_back (step); }
    void QueueTrack (int entry) { Queue (ModalStep::MakeTrack (entry)); }
    void QueueChoose (int entry) { Queue (ModalStep::MakeChoose (entry)); }
    void QueueCancel () { Queue (ModalStep::MakeCancel ()); }
    void ClearScript () { script.clear (); }
    std::size_t GetPendingStepCount () const { return script.size (); }
    // How many sessions this runner has run.
    int GetRunCount () const { return runCount; }

private:
    std::deque<ModalStep> script;
    int                   runCount = 0;
};

// The installed runner (the process-wide headless ScriptedModalRunner until one is installed).
ModalRunner&         GetModalRunner ();
// Installs a runner (null restores the headless one); returns the previous.
ModalRunner*         SetModalRunner (ModalRunner* runner);
ScriptedModalRunner& GetHeadlessModalRunner ();

// Runs a session through the installed runner; makes sure it has ended afterwards (a runner
// that returns early gets a final Cancel).
void RunModal (ModalSession& session);

}   // namespace Wg
