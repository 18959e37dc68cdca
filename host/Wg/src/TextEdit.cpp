#include "Wg/TextEdit.hpp"

#include <algorithm>

#include "ControlSupport.hpp"
#include "Wg/Panel.hpp"

// Flow of user input:
//   Panel::KeyPress -> HandleKey
//     character            -> UserType -> ReplaceSelection -> ContentsChangedByUser -> SendChange (auto update)
//     Backspace, Delete    -> ReplaceSelection -> ContentsChangedByUser
//     Return, Enter, Tab   -> Commit -> SendChange (auto update off, text differs from committed)
//     Escape               -> Revert -> SendChange (auto update on)
//   Panel::SetFocusedItem (another item) -> FocusChanged (false) -> Commit, then ItemFocusLost
//
// Every path notifies observers as its last step: an observer may destroy the edit.

namespace Wg {

TextEditChangeEvent::TextEditChangeEvent (TextEdit* source) : ItemEvent (source) {}

TextEdit* TextEditChangeEvent::GetSource () const
{
    return static_cast<TextEdit*> (ItemEvent::GetSource ());
}

void TextEditObserver::TextEditChanged (const TextEditChangeEvent&) {}

TextEdit::TextEdit (const Panel& panel, const Rect& rect, short id, short maxLength)
    : Item (panel, rect, id), maxLength (maxLength > 0 ? maxLength : DefaultMaxLength)
{
}

void TextEdit::SetText (const Kor::UniString& newText)
{
    const Kor::UniString cut = Detail::CutToLength (newText, static_cast<std::size_t> (maxLength));
    // What the program sets is what counts as committed, even when it is already shown.
    committedText = cut;
    // The same text again (a list re-loading its edit after each keystroke) must not move the caret.
    if (cut == text) return;
    text = cut;
    NotifyPeer (Aspect::Text);
    const int end = static_cast<int> (text.GetLength ());
    SetSelection (Kor::Range<int> (end, end));
}

void TextEdit::SetMaxLength (short length)
{
    if (length <= 0 || length == maxLength) return;
    maxLength = length;
    NotifyPeer (Aspect::Bounds);
    committedText = Detail::CutToLength (committedText, static_cast<std::size_t> (maxLength));
    const Kor::UniString cut = Detail::CutToLength (text, static_cast<std::size_t> (maxLength));
    if (cut == text) return;
    text = cut;
    NotifyPeer (Aspect::Text);
    SetSelection (selection);
}

void TextEdit::SetSelection (const Kor::Range<int>& range)
{
    const int length = static_cast<int> (text.GetLength ());
    int begin = std::clamp (range.GetBegin (), 0, length);
    int end = std::clamp (range.GetEnd (), 0, length);
    if (begin > end) std::swap (begin, end);
    const Kor::Range<int> clamped (begin, end);
    if (clamped == selection) return;
    selection = clamped;
    NotifyPeer (Aspect::Selection);
}

void TextEdit::SelectAll ()
{
    SetSelection (Kor::Range<int> (0, static_cast<int> (text.GetLength ())));
}

void TextEdit::UserType (const Kor::UniString& characters)
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
        const std::size_t newLength = text.GetLength () - static_cast<std::size_t> (selection.GetLength ()) + characterLength;
        if (newLength > static_cast<std::size_t> (maxLength)) continue;
        ReplaceSelection (character);
        ContentsChangedByUser ();
        if (watch.IsGone ()) return;
    }
}

void TextEdit::UserSetText (const Kor::UniString& newText)
{
    if (!IsEnabled () || !IsVisible ()) return;
    const Kor::UniString cut = Detail::CutToLength (newText, static_cast<std::size_t> (maxLength));
    if (cut == text) return;
    text = cut;
    NotifyPeer (Aspect::Text);
    const int end = static_cast<int> (text.GetLength ());
    SetSelection (Kor::Range<int> (end, end));
    ContentsChangedByUser ();
}

bool TextEdit::HandleKey (const Key::Code& key)
{
    if (!IsEnabled () || !IsVisible ()) return false;
    const int caret = selection.GetEnd ();
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
        case Key::Backspace:
            if (selection.IsEmpty ()) {
                if (caret == 0) return true;
                const int start = static_cast<int> (Detail::PreviousCharacterStart (text, static_cast<std::size_t> (caret)));
                SetSelection (Kor::Range<int> (start, caret));
            }
            ReplaceSelection ({});
            ContentsChangedByUser ();
            return true;
        case Key::Delete:
            if (selection.IsEmpty ()) {
                const std::size_t length = Detail::CharacterLengthAt (text, static_cast<std::size_t> (caret));
                if (length == 0) return true;
                SetSelection (Kor::Range<int> (caret, caret + static_cast<int> (length)));
            }
            ReplaceSelection ({});
            ContentsChangedByUser ();
            return true;
        case Key::Left: {
            const int target = selection.IsEmpty () ? static_cast<int> (Detail::PreviousCharacterStart (text, static_cast<std::size_t> (caret))) : selection.GetBegin ();
            SetSelection (Kor::Range<int> (target, target));
            return true;
        }
        case Key::Right: {
            const int target = selection.IsEmpty () ? caret + static_cast<int> (Detail::CharacterLengthAt (text, static_cast<std::size_t> (caret))) : selection.GetEnd ();
            SetSelection (Kor::Range<int> (target, target));
            return true;
        }
        case Key::Home:
            SetSelection (Kor::Range<int> (0, 0));
            return true;
        case Key::End: {
            const int end = static_cast<int> (text.GetLength ());
            SetSelection (Kor::Range<int> (end, end));
            return true;
        }
        case Key::NoSpecial:
            // Characters held with the command modifier are shortcuts of the host, not text.
            if (key.HasModifier (Key::Command) || key.GetCharacter () < u' ') return false;
            UserType (Kor::UniString (1, key.GetCharacter ()));
            return true;
        default:
            return false;
    }
}

void TextEdit::Commit ()
{
    if (text == committedText) return;
    committedText = text;
    // With auto update on, observers heard of every change already.
    if (!autoUpdate) SendChange ();
}

void TextEdit::Revert ()
{
    if (text == committedText) return;
    text = committedText;
    NotifyPeer (Aspect::Text);
    const int end = static_cast<int> (text.GetLength ());
    SetSelection (Kor::Range<int> (end, end));
    // Reverting is a change of its own for observers that heard of every keystroke.
    if (autoUpdate) SendChange ();
}

void TextEdit::FocusChanged (bool gained)
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

void TextEdit::ReplaceSelection (const Kor::UniString& with)
{
    const std::size_t begin = static_cast<std::size_t> (selection.GetBegin ());
    const std::size_t count = static_cast<std::size_t> (selection.GetLength ());
    Kor::UniString newText = text;
    newText.Delete (begin, count);
    newText.Insert (begin, with);
    const bool changed = newText != text;
    text = newText;
    if (changed) NotifyPeer (Aspect::Text);
    const int caret = static_cast<int> (begin + with.GetLength ());
    SetSelection (Kor::Range<int> (caret, caret));
}

void TextEdit::ContentsChangedByUser ()
{
    if (autoUpdate) SendChange ();
}

void TextEdit::SendChange ()
{
    const TextEditChangeEvent event (this);
    NotifyObservers<TextEditObserver> ([&] (TextEditObserver& observer) { observer.TextEditChanged (event); });
}

}   // namespace Wg
