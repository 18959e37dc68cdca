#include "Wg/TypingEdit.hpp"

#include "ControlSupport.hpp"
#include "Kor/LifeWatch.hpp"

namespace Wg {

TypingEdit::TypingEdit (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void TypingEdit::UserType (const Kor::UniString& characters)
{
    Kor::LifeWatch watch (*this);
    std::size_t index = 0;
    while (index < characters.GetLength ()) {
        const std::size_t characterLength = Detail::CharacterLengthAt (characters, index);
        const Kor::UniString character = characters.GetSubstring (index, characterLength);
        index += characterLength;
        // An observer of the previous character may have disabled or hidden the edit.
        if (!IsEnabled () || !IsVisible ()) return;
        if (!Detail::IsTypeable (character)) continue;
        if (!TypeCharacter (character)) continue;
        if (watch.IsGone ()) return;
    }
}

bool TypingEdit::HandleKey (const Key::Code& key)
{
    if (!IsEnabled () || !IsVisible ()) return false;
    switch (key.GetCode ()) {
        case Key::Return:
        case Key::Enter:
            Commit ();
            return true;
        case Key::Tab:
            // Committed, but not used: the panel or host moves the focus on.
            Commit ();
            return false;
        case Key::Escape:
            Revert ();
            return true;
        case Key::NoSpecial:
            // Characters held with the command modifier are shortcuts of the host, not text.
            if (key.HasModifier (Key::Command) || key.GetCharacter () < u' ') return false;
            UserType (Kor::UniString (1, key.GetCharacter ()));
            return true;
        default:
            return HandleEditingKey (key);
    }
}

void TypingEdit::FocusChanged (bool gained)
{
    if (gained) {
        Item::FocusChanged (true);
        return;
    }
    // What was typed is committed before anybody hears that the focus left.
    Kor::LifeWatch watch (*this);
    Commit ();
    if (watch.IsGone ()) return;
    Item::FocusChanged (false);
}

}   // namespace Wg
