#pragma once
// Slider and interval items.
//
// AttributeListSliderItem holds one whole number between a minimum and a maximum. On the
// selected row the list's bar control stands over the preview column and its integer edit over
// the check column, linked: dragging moves the number, typing moves the thumb. Other rows draw a
// picture of the slider and the number. A client-supplied AttributeListSliderItemStrategy may
// take over each kind of user change before the item applies it.
//
// AttributeListIntervalItem holds a beginning and an end, edited in two real edits with a fixed
// text between them; the end can be hidden.
//
// Observers hear only of what the user did; setters called by the program notify nobody.

#include "TxAttributeList/SelectionAndTextItems.hpp"

namespace TxAL {

class AttributeListSliderItem;
class AttributeListIntervalItem;

// --- Observers ---

class AttributeListSliderItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListSliderItem;
    friend class AttributeListSliderItemStrategy;
    // The user released the thumb or typed a number; a drag alone is not reported.
    virtual void ValueChanged (const AttributeListSliderItem& item);
};

// Derives from the selection item's observer although the interval item is no selection item:
// the class shape is kept as clients know it.
class AttributeListIntervalItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListIntervalItem;
    // The user edited the beginning or the end.
    virtual void ValueChanged (const AttributeListIntervalItem& item);
};

// --- Slider ---

// Takes over user changes of a slider item. Each hook answers true when it has dealt with the
// event; the item then does nothing more. The item does not own its strategy.
class AttributeListSliderItemStrategy {
public:
    // --- Virtual operations, in slot order ---
    // The user typed a number into the integer edit.
    virtual bool IntEditChanged (const Wg::IntEditChangeEvent& event, AttributeListSliderItem& item) = 0;
    // The user released the thumb.
    virtual bool SliderChanged (const Wg::BarControlChangeEvent& event, AttributeListSliderItem& item) = 0;
    // The user drags the thumb.
    virtual bool SliderTracked (const Wg::BarControlTrackEvent& event, AttributeListSliderItem& item) = 0;
    // The list's keyboard (never the item) asks for the value that one arrow-key step from the
    // current value should propose; the list clamps the answer to the item's bounds.
    virtual int  SliderStepped (const AttributeListSliderItem& item, int proposedValue) = 0;
    virtual ~AttributeListSliderItemStrategy ();

protected:
    AttributeListSliderItemStrategy () = default;
    AttributeListSliderItemStrategy (const AttributeListSliderItemStrategy&) = default;
    AttributeListSliderItemStrategy& operator= (const AttributeListSliderItemStrategy&) = default;

    // The item's SetValue, as if the program called it.
    void SetSliderValue (AttributeListSliderItem& item, int value);
    // Sends ValueChanged (item) to the item's observers.
    void NotifySliderChange (AttributeListSliderItem& item);
};

// A whole number between a minimum and a maximum, edited with the list's bar control and
// integer edit; a strategy may take over each kind of user change.
class AttributeListSliderItem : public AttributeListSimpleItem {
public:
    // The library's images of the slider picture.
    static constexpr int TrackIconResId = 31849;
    static constexpr int ThumbIconResId = 31850;

    // An empty name and icon, enabled, not bold; value, minimum and maximum 0.
    AttributeListSliderItem ();

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListSliderItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListSliderItemObserver& observer) { Kor::EventSource::Detach (observer); }

    int GetValue () const { return value; }
    int GetMinValue () const { return minValue; }
    int GetMaxValue () const { return maxValue; }
    // Not clamped to the bounds. A changed value refreshes the row, except while a slider event
    // is handled: then only the integer edit follows (the thumb is already there).
    void SetValue (int newValue);
    // Store only: the bounds reach the controls when the row is next made current.
    void SetMinValue (int newMin) { minValue = newMin; }
    void SetMaxValue (int newMax) { maxValue = newMax; }

    // Returns the previous strategy. Not owned: the caller keeps it alive while it is set.
    AttributeListSliderItemStrategy* SetStrategy (AttributeListSliderItemStrategy* newStrategy);
    AttributeListSliderItemStrategy* GetStrategy () const { return strategy; }

    // The thumb's offset from the track's left end, in the 16-bit arithmetic the picture uses:
    // (range / 2 + d × freeWidth) / range with d = value − minimum, where d, freeWidth and the
    // numerator are signed 16-bit numbers. A numerator beyond 16 bits wraps on purpose (long
    // tracks with wide ranges); do not widen it. range must not be 0.
    static short ThumbOffset (int minimum, int maximum, int value, int freeWidth);

    // --- Overrides ---
    void DrawListItem (short row) const override;
    void ClearListItem (short row) const override;
    void InitializeOnTabItems () const override;
    void IntEditChanged (const Wg::IntEditChangeEvent& event) override;
    void SliderChanged (const Wg::BarControlChangeEvent& event) override;
    void SliderTracked (const Wg::BarControlTrackEvent& event) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    bool HasFocusedEditField () override;

private:
    friend class AttributeListSliderItemStrategy;

    void NotifyValueChanged ();

    std::int32_t                     value = 0;
    std::int32_t                     minValue = 0;
    std::int32_t                     maxValue = 0;
    AttributeListSliderItemStrategy* strategy = nullptr;
    // Set while a change or track event of the bar control is handled.
    bool                             inSliderEvent = false;
};

// --- Interval ---

// Two real numbers, the beginning and the end of an interval, with a fixed text between them.
class AttributeListIntervalItem : public AttributeListSimpleItem {
public:
    AttributeListIntervalItem (const Kor::UniString& name, const Wg::Icon& icon, double intervalBeg, double intervalEnd,
                               Kor::UniString betweenText, bool endHidden, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListIntervalItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListIntervalItemObserver& observer) { Kor::EventSource::Detach (observer); }

    double GetIntervalBeg () const { return intervalBeg; }
    double GetIntervalEnd () const { return intervalEnd; }
    // Store only, without a refresh or an ordering check: the beginning may exceed the end.
    void SetIntervalBeg (double value) { intervalBeg = value; }
    void SetIntervalEnd (double value) { intervalEnd = value; }
    const Kor::UniString& GetBetweenText () const { return betweenText; }
    bool IsEndHidden () const { return endHidden; }

    // --- Overrides ---
    void           DrawListItem (short row) const override;
    void           ClearListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           RealEditChanged (const Wg::RealEditChangeEvent& event) override;
    void           UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    double         intervalBeg;
    double         intervalEnd;
    Kor::UniString betweenText;
    bool           endHidden;
};

}   // namespace TxAL
