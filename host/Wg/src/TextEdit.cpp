#include "Wg/TextEdit.hpp"

#include <algorithm>

#include "ControlSupport.hpp"
#include "Wg/Panel.hpp"

// Flow of user input:
//   Panel::KeyPress -> TypingEdit::HandleKey
//     character            -> UserType -> TypeCharacter -> ReplaceSelection -> ContentsChangedByUser -> SendChange (auto update)
//     Backspace, Delete    -> HandleEditingKey -> ReplaceSelection -> ContentsChangedByUser
//     Return, Enter, Tab   -> Commit -> SendChange (auto update off, text differs from committed)
//     Escape               -> Revert -> SendChange (auto update on)
//   Panel::SetFocusedItem (another item) -> TypingEdit::FocusChanged (false) -> Commit, then ItemFocusLost
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
    : TypingEdit (panel, rect, id), maxLength (maxLength > 0 ? maxLength : DefaultMaxLength)
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

bool TextEdit::TypeCharacter (const Kor::UniString& character)
{
    const std::size_t newLength = text.GetLength () - static_cast<std::size_t> (selection.GetLength ()) + character.GetLength ();
    if (newLength > static_cast<std::size_t> (maxLength)) return false;
    ReplaceSelection (character);
    ContentsChangedByUser ();
    return true;
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

bool TextEdit::HandleEditingKey (const Key::Code& key)
{
    const int caret = selection.GetEnd ();
    switch (key.GetCode ()) {
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
        default:
            return false;
    }
}

void TextEdit::Commit ()
{
    if (text == committedText) return;
    committedText = text;
    // With auto update on, observers heard of every change already.
    if (!GetAutoUpdate ()) SendChange ();
}

void TextEdit::Revert ()
{
    if (text == committedText) return;
    text = committedText;
    NotifyPeer (Aspect::Text);
    const int end = static_cast<int> (text.GetLength ());
    SetSelection (Kor::Range<int> (end, end));
    // Reverting is a change of its own for observers that heard of every keystroke.
    if (GetAutoUpdate ()) SendChange ();
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
    if (GetAutoUpdate ()) SendChange ();
}

void TextEdit::SendChange ()
{
    const TextEditChangeEvent event (this);
    NotifyObservers<TextEditObserver> ([&] (TextEditObserver& observer) { observer.TextEditChanged (event); });
}

}   // namespace Wg
