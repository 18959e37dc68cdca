#pragma once
// Readable dumps for the Qt backend tests: keys by name ("Shift+Tab", "Ctrl+c") and
// "name=value" facts, so that a failing comparison says which quantity is off.

#include <iterator>
#include <sstream>
#include <string>

#include "Wg/Key.hpp"

namespace QtTest {

inline std::string ModifierPrefix (int modifiers)
{
    std::string out;
    if ((modifiers & Wg::Key::CommandFlag) != 0) out += "Ctrl+";
    if ((modifiers & Wg::Key::PopupFlag) != 0) out += "Alt+";
    if ((modifiers & Wg::Key::ShiftFlag) != 0) out += "Shift+";
    return out;
}

inline std::string ModifierKeyName (int key)
{
    switch (key) {
        case Wg::Key::Shift:         return "Shift";
        case Wg::Key::PopupModifier: return "Alt";
        case Wg::Key::Command:       return "Ctrl";
        default:                     return "modifier " + std::to_string (key);
    }
}

inline std::string KeyName (const Wg::Key::Code& key)
{
    const std::string prefix = ModifierPrefix (key.GetModifiers ());
    if (key.GetCode () == Wg::Key::NoSpecial) {
        if (key.GetCharacter () == u' ') return prefix + "Space";
        if (key.GetCharacter () < 0x80) return prefix + std::string (1, static_cast<char> (key.GetCharacter ()));
        return prefix + "U+" + std::to_string (int (key.GetCharacter ()));
    }
    static const char* const names[] = {"Return", "Enter", "Escape", "Tab", "Backspace", "Left", "Right", "Up",
                                        "Down", "Delete", "Home", "End", "PageUp", "PageDown", "Insert"};
    const int index = -key.GetCode () - 1;
    if (index >= 0 && index < int (std::size (names))) return prefix + names[index];
    return prefix + "code " + std::to_string (key.GetCode ());
}

// Collects "name=value" pairs separated by blanks; booleans read true or false.
class Facts {
public:
    template <typename T>
    Facts& operator() (const std::string& name, const T& value)
    {
        std::ostringstream stream;
        stream << std::boolalpha << value;
        text += (text.empty () ? "" : " ") + name + "=" + stream.str ();
        return *this;
    }
    const std::string& Text () const { return text; }

private:
    std::string text;
};

}   // namespace QtTest
