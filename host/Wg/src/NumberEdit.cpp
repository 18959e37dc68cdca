#include "Wg/NumberEdit.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "ControlSupport.hpp"
#include "Wg/Panel.hpp"

// Flow of user input:
//   Panel::KeyPress -> HandleKey
//     character, Backspace, Delete -> UserType / buffer edit -> Typed -> TryAccept (auto update on)
//     Return, Enter, Tab           -> Commit -> TryAccept (committing: reformat, then the event)
//                                             or ShowValueText when the buffer does not parse
//     Escape                       -> Revert -> ShowValueText
//   Panel::SetFocusedItem (another item) -> FocusChanged (false) -> Commit, then ItemFocusLost
//
// TryAccept sends the change event as its very last step: an observer may destroy the edit.

namespace Wg {

namespace {

// Longest buffer a user can type; more is refused like a full text edit refuses characters.
constexpr std::size_t MaxBufferLength = 255;

// Both bounds tested in this order, the minimum first: with min > max, a value below the
// minimum ends at the minimum and any other value at the maximum (intended; the list's items
// clamp the same way).
template <typename T>
T Clamp (T value, T minValue, T maxValue)
{
    if (minValue > value) return minValue;
    if (value > maxValue) return maxValue;
    return value;
}

bool SameReal (double a, double b)
{
    return a == b || (std::isnan (a) && std::isnan (b));
}

// A whole number as a user types it: blanks around, an optional sign, ASCII digits. Anything
// else, or a number outside the 32-bit range, does not parse.
std::optional<std::int32_t> ParseInteger (const Kor::UniString& typed)
{
    const Kor::UniString text = typed.Trimmed ();
    std::size_t index = 0;
    bool negative = false;
    if (text[0] == u'+' || text[0] == u'-') {
        negative = text[0] == u'-';
        ++index;
    }
    if (index == text.GetLength ()) return std::nullopt;
    constexpr std::int64_t Limit = std::int64_t (std::numeric_limits<std::int32_t>::max ()) + 1;
    std::int64_t magnitude = 0;
    for (; index < text.GetLength (); ++index) {
        const char16_t ch = text[index];
        if (ch < u'0' || ch > u'9') return std::nullopt;
        magnitude = magnitude * 10 + (ch - u'0');
        if (magnitude > Limit) return std::nullopt;
    }
    const std::int64_t value = negative ? -magnitude : magnitude;
    if (value > std::numeric_limits<std::int32_t>::max ()) return std::nullopt;
    return static_cast<std::int32_t> (value);
}

}   // namespace

// --- Events and observers ---

RealEditChangeEvent::RealEditChangeEvent (RealEdit* source) : ItemEvent (source) {}
RealEdit* RealEditChangeEvent::GetSource () const { return static_cast<RealEdit*> (ItemEvent::GetSource ()); }

IntEditChangeEvent::IntEditChangeEvent (IntEdit* source) : ItemEvent (source) {}
IntEdit* IntEditChangeEvent::GetSource () const { return static_cast<IntEdit*> (ItemEvent::GetSource ()); }

PosIntEditChangeEvent::PosIntEditChangeEvent (PosIntEdit* source) : ItemEvent (source) {}
PosIntEdit* PosIntEditChangeEvent::GetSource () const { return static_cast<PosIntEdit*> (ItemEvent::GetSource ()); }

void RealEditObserver::RealEditChanged (const RealEditChangeEvent&) {}
void IntEditObserver::IntEditChanged (const IntEditChangeEvent&) {}
void PosIntEditObserver::PosIntEditChanged (const PosIntEditChangeEvent&) {}

// --- NumberEditBase ---

NumberEditBase::NumberEditBase (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void NumberEditBase::UserType (const Kor::UniString& characters)
{
    Kor::LifeWatch watch (*this);
    std::size_t index = 0;
    while (index < characters.GetLength ()) {
        const std::size_t characterLength = Detail::CharacterLengthAt (characters, index);
        const Kor::UniString character = characters.GetSubstring (index, characterLength);
        index += characterLength;
        if (!IsEnabled () || !IsVisible ()) return;
        if (!Detail::IsTypeable (character)) continue;
        // The shown value counts as selected as a whole: the first character replaces it.
        const std::size_t kept = editing ? text.GetLength () : 0;
        if (kept + characterLength > MaxBufferLength) continue;
        if (!editing) text.Clear ();
        editing = true;
        text += character;
        Typed ();
        if (watch.IsGone ()) return;
    }
}

void NumberEditBase::UserSetText (const Kor::UniString& newText)
{
    if (!IsEnabled () || !IsVisible ()) return;
    const Kor::UniString cut = Detail::CutToLength (newText, MaxBufferLength);
    if (cut == text) return;
    text = cut;
    editing = true;
    Typed ();
}

bool NumberEditBase::HandleKey (const Key::Code& key)
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
        case Key::Backspace:
        case Key::Delete:
            // The caret stands at the end of what is typed; a shown value is selected as a whole.
            if (!editing)
                text.Clear ();
            else if (key.GetCode () == Key::Backspace && !text.IsEmpty ())
                text.Delete (Detail::PreviousCharacterStart (text, text.GetLength ()));
            else
                return true;
            editing = true;
            Typed ();
            return true;
        case Key::NoSpecial:
            if (key.HasModifier (Key::Command) || key.GetCharacter () < u' ') return false;
            UserType (Kor::UniString (1, key.GetCharacter ()));
            return true;
        default:
            return false;
    }
}

void NumberEditBase::Commit ()
{
    if (!editing) return;
    const Kor::UniString typed = text;
    // TryAccept notifies last; after an accepted commit this edit may be gone.
    if (TryAccept (typed, true)) return;
    ShowValueText ();
}

void NumberEditBase::Revert ()
{
    if (editing) ShowValueText ();
}

void NumberEditBase::FocusChanged (bool gained)
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

void NumberEditBase::ShowValueText ()
{
    editing = false;
    const Kor::UniString formatted = FormatValue ();
    if (formatted == text) return;
    text = formatted;
    NotifyPeer (Aspect::Text);
}

void NumberEditBase::Typed ()
{
    NotifyPeer (Aspect::Text);
    // While the user types, an accepted value leaves the buffer as typed.
    if (autoUpdate) TryAccept (text, false);
}

// --- RealEdit ---

RealEdit::RealEdit (const Panel& panel, const Rect& rect, short subtype, short id) : NumberEditBase (panel, rect, id), subtype (subtype)
{
    ShowValueText ();
}

void RealEdit::SetSubtype (short newSubtype)
{
    if (newSubtype == subtype) return;
    subtype = newSubtype;
    NotifyPeer (Aspect::Bounds);
    if (!IsEditing ()) ShowValueText ();
}

void RealEdit::SetValue (double newValue)
{
    if (SameReal (newValue, value)) {
        // Re-loading the value the user is typing keeps the buffer; a shown value catches up
        // with the working units.
        if (!IsEditing ()) ShowValueText ();
        return;
    }
    value = newValue;
    NotifyPeer (Aspect::Value);
    ShowValueText ();
}

void RealEdit::SetMin (double newMin)
{
    // A NaN bound would make every comparison false; it is ignored.
    if (std::isnan (newMin) || newMin == minValue) return;
    minValue = newMin;
    NotifyPeer (Aspect::Bounds);
}

void RealEdit::SetMax (double newMax)
{
    if (std::isnan (newMax) || newMax == maxValue) return;
    maxValue = newMax;
    NotifyPeer (Aspect::Bounds);
}

Kor::UniString RealEdit::FormatValue () const
{
    return DoubleToString (value, subtype);
}

bool RealEdit::TryAccept (const Kor::UniString& typed, bool committing)
{
    const std::optional<double> parsed = ParseRealValue (typed, subtype);
    if (!parsed.has_value () || !std::isfinite (*parsed)) return false;
    const double accepted = Clamp (*parsed, minValue, maxValue);
    const bool changed = !SameReal (accepted, value);
    value = accepted;
    if (committing) ShowValueText ();
    if (!changed) return true;
    NotifyPeer (Aspect::Value);
    const RealEditChangeEvent event (this);
    NotifyObservers<RealEditObserver> ([&] (RealEditObserver& observer) { observer.RealEditChanged (event); });
    return true;
}

// --- IntEdit and PosIntEdit ---

IntEdit::IntEdit (const Panel& panel, const Rect& rect, short id) : NumberEditBase (panel, rect, id)
{
    ShowValueText ();
}

void IntEdit::SetValue (std::int32_t newValue)
{
    if (newValue == value) {
        if (!IsEditing ()) ShowValueText ();
        return;
    }
    value = newValue;
    NotifyPeer (Aspect::Value);
    ShowValueText ();
}

void IntEdit::SetMin (std::int32_t newMin)
{
    newMin = std::max (newMin, GetLowestMin ());
    if (newMin == minValue) return;
    minValue = newMin;
    NotifyPeer (Aspect::Bounds);
}

void IntEdit::SetMax (std::int32_t newMax)
{
    newMax = std::max (newMax, GetLowestMin ());
    if (newMax == maxValue) return;
    maxValue = newMax;
    NotifyPeer (Aspect::Bounds);
}

Kor::UniString IntEdit::FormatValue () const
{
    return Kor::UniString (std::to_string (value));
}

bool IntEdit::TryAccept (const Kor::UniString& typed, bool committing)
{
    const std::optional<std::int32_t> parsed = ParseInteger (typed);
    // Below the lowest minimum is garbage for this edit (a minus sign in a PosIntEdit), not a
    // number to clamp.
    if (!parsed.has_value () || *parsed < GetLowestMin ()) return false;
    const std::int32_t accepted = Clamp (*parsed, minValue, maxValue);
    const bool changed = accepted != value;
    value = accepted;
    if (committing) ShowValueText ();
    if (!changed) return true;
    NotifyPeer (Aspect::Value);
    SendChange ();
    return true;
}

std::int32_t IntEdit::GetLowestMin () const
{
    return std::numeric_limits<std::int32_t>::min ();
}

void IntEdit::SendChange ()
{
    const IntEditChangeEvent event (this);
    NotifyObservers<IntEditObserver> ([&] (IntEditObserver& observer) { observer.IntEditChanged (event); });
}

PosIntEdit::PosIntEdit (const Panel& panel, const Rect& rect, short id) : IntEdit (panel, rect, id)
{
    SetMin (0);
}

std::int32_t PosIntEdit::GetLowestMin () const
{
    return 0;
}

void PosIntEdit::SendChange ()
{
    const PosIntEditChangeEvent event (this);
    NotifyObservers<PosIntEditObserver> ([&] (PosIntEditObserver& observer) { observer.PosIntEditChanged (event); });
}

}   // namespace Wg
