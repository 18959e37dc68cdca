#pragma once
// Small controls: the bar control (slider), push buttons, check boxes, the push-check button,
// icon items and static texts.

#include <cstdint>

#include "Wg/Icon.hpp"
#include "Wg/Item.hpp"

namespace Wg {

class BarControl;
class ButtonItem;
class CheckItem;

// --- Bar control (slider) ---

class BarControlChangeEvent : public ItemEvent {
public:
    explicit BarControlChangeEvent (BarControl* source);
    BarControl* GetSource () const;
};

class BarControlTrackEvent : public ItemEvent {
public:
    explicit BarControlTrackEvent (BarControl* source);
    BarControl* GetSource () const;
};

class BarControlObserver : public virtual ItemObserver {
public:
    // The user released the thumb (or changed the value by keyboard).
    virtual void BarControlChanged (const BarControlChangeEvent& event);
    // The user drags the thumb.
    virtual void BarControlTracked (const BarControlTrackEvent& event);
};

class BarControl : public Item {
public:
    BarControl (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (BarControlObserver& observer) { Item::Attach (observer); }
    void Detach (BarControlObserver& observer) { Item::Detach (observer); }

    std::int32_t GetValue () const { return value; }
    void         SetValue (std::int32_t newValue);   // clamped to [min, max]
    std::int32_t GetMin () const { return minValue; }
    void         SetMin (std::int32_t newMin);
    std::int32_t GetMax () const { return maxValue; }
    void         SetMax (std::int32_t newMax);

    // --- User input entry points (values are clamped; each reports even when the thumb
    // stays where it was, so that a release always ends a drag) ---
    void UserDrag (std::int32_t newValue);
    void UserRelease (std::int32_t newValue);

private:
    std::int32_t value = 0;
    std::int32_t minValue = 0;
    std::int32_t maxValue = 100;
};

// --- Push button ---

class ButtonClickEvent : public ItemEvent {
public:
    explicit ButtonClickEvent (ButtonItem* source);
    ButtonItem* GetSource () const;
};

class ButtonItemObserver : public virtual ItemObserver {
public:
    virtual void ButtonClicked (const ButtonClickEvent& event);
};

// A push button with a caption, an icon, or both.
class ButtonItem : public Item {
public:
    ButtonItem (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (ButtonItemObserver& observer) { Item::Attach (observer); }
    void Detach (ButtonItemObserver& observer) { Item::Detach (observer); }

    Kor::UniString GetText () const { return text; }
    void           SetText (const Kor::UniString& newText);
    Icon           GetIcon () const { return icon; }
    void           SetIcon (const Icon& newIcon);

    // Entry point: a press (ignored while disabled or hidden).
    void UserPress ();

private:
    Kor::UniString text;
    Icon           icon;
};

// --- Check box and push-check button ---

class CheckItemChangeEvent : public ItemEvent {
public:
    explicit CheckItemChangeEvent (CheckItem* source);
    CheckItem* GetSource () const;
};

class CheckItemObserver : public virtual ItemObserver {
public:
    virtual void CheckItemChanged (const CheckItemChangeEvent& event);
};

class CheckItem : public Item {
public:
    CheckItem (const Panel& panel, const Rect& rect, short id = 0);

    void Attach (CheckItemObserver& observer) { Item::Attach (observer); }
    void Detach (CheckItemObserver& observer) { Item::Detach (observer); }

    bool           IsChecked () const { return checked; }
    void           SetState (bool check);
    void           Check () { SetState (true); }
    void           Uncheck () { SetState (false); }
    Kor::UniString GetText () const { return text; }
    void           SetText (const Kor::UniString& newText);

    // Entry point: the user toggled the box (ignored while disabled or hidden).
    void UserToggle ();

private:
    bool           checked = false;
    Kor::UniString text;
};

// A button that reports presses as check-item changes; it can show a drop-down arrow.
class PushCheck : public CheckItem {
public:
    enum Alignment : short { AlignDefault = 0, AlignCenter = 1, AlignLeft = 2, AlignRight = 3 };
    enum ArrowType : short { NoArrow = 0, DownArrow = 1, RightArrow = 2 };

    PushCheck (const Panel& panel, const Rect& rect, short id = 0);

    short GetAlignment () const { return alignment; }
    void  SetAlignment (short newAlignment);
    short GetArrowType () const { return arrowType; }
    void  SetArrowType (short newArrowType);
    Icon  GetIcon () const { return icon; }
    void  SetIcon (const Icon& newIcon);

    // Entry point: a press toggles the state and reports the change.
    void UserPress () { UserToggle (); }

private:
    short alignment = AlignDefault;
    short arrowType = NoArrow;
    Icon  icon;
};

// --- Static items ---

class IconItem : public Item {
public:
    IconItem (const Panel& panel, const Rect& rect, short id = 0);
    Icon GetIcon () const { return icon; }
    void SetIcon (const Icon& newIcon);

private:
    Icon icon;
};

class LeftText : public Item {
public:
    LeftText (const Panel& panel, const Rect& rect, short id = 0);
    Kor::UniString GetText () const { return text; }
    void           SetText (const Kor::UniString& newText);

private:
    Kor::UniString text;
};

}   // namespace Wg
