#pragma once
// Observes every kind of small control and writes what it hears into a shared log, with the
// control's state at that moment: "Text:ab", "Real:2.5", "PosInt:3", "Track:40", "Click",
// "Check:on", "Enter:2", "-focus". An optional action runs after each entry (to re-load,
// detach or destroy in the middle of a notification).

#include <functional>
#include <sstream>
#include <string>
#include <utility>

#include "Wg/Controls.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/TextEdit.hpp"
#include "Wg/UserControl.hpp"

namespace TestSupport {

class ControlRecorder : public Wg::TextEditObserver,
                        public Wg::RealEditObserver,
                        public Wg::IntEditObserver,
                        public Wg::PosIntEditObserver,
                        public Wg::BarControlObserver,
                        public Wg::ButtonItemObserver,
                        public Wg::CheckItemObserver,
                        public Wg::UserControlObserver {
public:
    explicit ControlRecorder (std::string& log) : log (log) {}

    std::function<void ()> action;

    // What was logged since the last call; the log starts afresh.
    std::string Take () { return std::exchange (log, {}); }

    void TextEditChanged (const Wg::TextEditChangeEvent& event) override { Add ("Text:" + event.GetSource ()->GetText ().ToUtf8 ()); }
    void RealEditChanged (const Wg::RealEditChangeEvent& event) override { Add ("Real:" + Number (event.GetSource ()->GetValue ())); }
    void IntEditChanged (const Wg::IntEditChangeEvent& event) override { Add ("Int:" + Number (event.GetSource ()->GetValue ())); }
    void PosIntEditChanged (const Wg::PosIntEditChangeEvent& event) override { Add ("PosInt:" + Number (event.GetSource ()->GetValue ())); }
    void BarControlChanged (const Wg::BarControlChangeEvent& event) override { Add ("Bar:" + Number (event.GetSource ()->GetValue ())); }
    void BarControlTracked (const Wg::BarControlTrackEvent& event) override { Add ("Track:" + Number (event.GetSource ()->GetValue ())); }
    void ButtonClicked (const Wg::ButtonClickEvent&) override { Add ("Click"); }
    void CheckItemChanged (const Wg::CheckItemChangeEvent& event) override { Add (event.GetSource ()->IsChecked () ? "Check:on" : "Check:off"); }
    void UserControlChanged (const Wg::UserControlChangeEvent& event) override { Add ("Changed:" + Number (event.GetSource ()->GetValue ())); }
    void UserControlTrackEntered (const Wg::UserControlTrackEvent& event) override { Add ("Enter:" + Number (event.GetSource ()->GetValue ())); }
    void UserControlTracked (const Wg::UserControlTrackEvent& event) override { Add ("Track:" + Number (event.GetSource ()->GetValue ())); }
    void UserControlTrackExited (const Wg::UserControlTrackEvent& event) override { Add ("Exit:" + Number (event.GetSource ()->GetValue ())); }
    void ItemFocusGained (const Wg::ItemEvent&) override { Add ("+focus"); }
    void ItemFocusLost (const Wg::ItemEvent&) override { Add ("-focus"); }

private:
    template <typename T>
    static std::string Number (T value)
    {
        std::ostringstream stream;
        stream << value;
        return stream.str ();
    }

    void Add (const std::string& entry)
    {
        if (!log.empty ()) log += ' ';
        log += entry;
        if (action) action ();
    }

    std::string& log;
};

}   // namespace TestSupport
