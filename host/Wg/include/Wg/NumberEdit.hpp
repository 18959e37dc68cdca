#pragma once
// Number edits: Wg::RealEdit (a real number formatted and parsed in the working units of its
// subtype), Wg::IntEdit and Wg::PosIntEdit (whole numbers).
//
// Each holds a value, a minimum and a maximum. The user types into a text buffer; the buffer is
// parsed when the user commits (Return, Enter, Tab, focus loss) or, with auto update on, after
// every keystroke. A value that parses is clamped to [minimum, maximum] (the minimum tested
// first: with min > max a value below the minimum ends at the minimum, any other at the maximum)
// and stored; a change sends the change event. While the user types, the buffer stays as typed;
// a commit shows the value's text. Text that does not parse is refused: on commit the buffer
// returns to the value's text and the value stays. Escape restores the value's text.
// Programmatic setters never notify; SetValue stores the value as given, and the value the
// edit holds already leaves what the user is typing alone.

#include <cstdint>

#include "Wg/TypingEdit.hpp"
#include "Wg/WorkingUnits.hpp"

namespace Wg {

class RealEdit;
class IntEdit;
class PosIntEdit;

class RealEditChangeEvent : public ItemEvent {
public:
    explicit RealEditChangeEvent (RealEdit* source);
    RealEdit* GetSource () const;
};

class IntEditChangeEvent : public ItemEvent {
public:
    explicit IntEditChangeEvent (IntEdit* source);
    IntEdit* GetSource () const;
};

class PosIntEditChangeEvent : public ItemEvent {
public:
    explicit PosIntEditChangeEvent (PosIntEdit* source);
    PosIntEdit* GetSource () const;
};

class RealEditObserver : public virtual ItemObserver {
public:
    virtual void RealEditChanged (const RealEditChangeEvent& event);
};

class IntEditObserver : public virtual ItemObserver {
public:
    virtual void IntEditChanged (const IntEditChangeEvent& event);
};

class PosIntEditObserver : public virtual ItemObserver {
public:
    virtual void PosIntEditChanged (const PosIntEditChangeEvent& event);
};

// Shared text-buffer behaviour of the number edits.
class NumberEditBase : public TypingEdit {
public:
    // What the edit shows: the value's text, or what the user is typing.
    Kor::UniString GetText () const { return text; }
    bool           IsEditing () const { return editing; }

    // --- User input entry points ---
    // A shown value counts as selected as a whole: the first character typed replaces it, later
    // ones append (Backspace removes the last one).
    void UserSetText (const Kor::UniString& newText);
    void Commit () override;
    void Revert () override;

protected:
    NumberEditBase (const Panel& panel, const Rect& rect, short id);

    bool TypeCharacter (const Kor::UniString& character) override;
    // Backspace and Delete.
    bool HandleEditingKey (const Key::Code& key) override;
    // Shows the value's text (leaving editing state).
    void ShowValueText ();

    // Subclasses: the formatted value, and an attempt to take parsed text. TryAccept returns
    // false when the text does not parse; otherwise it stores the clamped value and sends the
    // change event when the value changed.
    virtual Kor::UniString FormatValue () const = 0;
    virtual bool           TryAccept (const Kor::UniString& typed, bool committing) = 0;

private:
    void Typed ();

    Kor::UniString text;
    bool           editing = false;
};

class RealEdit : public NumberEditBase {
public:
    // subtype: one of the RealSubtype codes (3 real, 4 angle, 5 polar angle, 6 length, 14 area,
    // 15 volume); others format and parse as plain reals.
    RealEdit (const Panel& panel, const Rect& rect, short subtype = RealSubtype::Real, short id = 0);

    void Attach (RealEditObserver& observer) { Item::Attach (observer); }
    void Detach (RealEditObserver& observer) { Item::Detach (observer); }

    short  GetSubtype () const { return subtype; }
    void   SetSubtype (short newSubtype);
    double GetValue () const { return value; }
    void   SetValue (double newValue);
    double GetMin () const { return minValue; }
    void   SetMin (double newMin);
    double GetMax () const { return maxValue; }
    void   SetMax (double newMax);

    // The working units changed: show the value in the new units (unless the user is typing).
    void RefreshText ()
    {
        if (!IsEditing ()) ShowValueText ();
    }

protected:
    Kor::UniString FormatValue () const override;
    bool           TryAccept (const Kor::UniString& typed, bool committing) override;

private:
    short  subtype;
    double value = 0.0;
    double minValue = -1e30;
    double maxValue = 1e30;
};

// A whole-number edit: blanks, an optional sign and decimal digits; numbers beyond 32 bits do
// not parse. The PosIntEdit accepts only numbers of at least 0: its bounds never go below 0 and
// a typed negative number is refused.
class IntEdit : public NumberEditBase {
public:
    IntEdit (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (IntEditObserver& observer) { Item::Attach (observer); }
    void Detach (IntEditObserver& observer) { Item::Detach (observer); }

    std::int32_t GetValue () const { return value; }
    void         SetValue (std::int32_t newValue);
    std::int32_t GetMin () const { return minValue; }
    void         SetMin (std::int32_t newMin);
    std::int32_t GetMax () const { return maxValue; }
    void         SetMax (std::int32_t newMax);

protected:
    Kor::UniString FormatValue () const override;
    bool           TryAccept (const Kor::UniString& typed, bool committing) override;
    virtual void   SendChange ();
    // No bound goes below this, and typed numbers below it are refused rather than clamped.
    virtual std::int32_t GetLowestMin () const;

private:
    std::int32_t value = 0;
    std::int32_t minValue = -2147483647;
    std::int32_t maxValue = 2147483647;
};

class PosIntEdit : public IntEdit {
public:
    PosIntEdit (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (PosIntEditObserver& observer) { Item::Attach (observer); }
    void Detach (PosIntEditObserver& observer) { Item::Detach (observer); }

protected:
    void         SendChange () override;
    std::int32_t GetLowestMin () const override;
};

}   // namespace Wg
