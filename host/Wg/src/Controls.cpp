#include "Wg/Controls.hpp"

// Every user entry point here changes state, tells the peer, and notifies observers as its very
// last step: an observer may destroy the control.

namespace Wg {

namespace {

// The minimum is tested first, as everywhere in the controls: with min > max a value below the
// minimum ends at the minimum and any other value at the maximum (intended).
std::int32_t ClampToBounds (std::int32_t value, std::int32_t minValue, std::int32_t maxValue)
{
    if (minValue > value) return minValue;
    if (value > maxValue) return maxValue;
    return value;
}

bool TakesUserInput (const Item& item)
{
    return item.IsEnabled () && item.IsVisible ();
}

}   // namespace

// --- Events and observers ---

BarControlChangeEvent::BarControlChangeEvent (BarControl* source) : ItemEvent (source) {}
BarControl* BarControlChangeEvent::GetSource () const { return static_cast<BarControl*> (ItemEvent::GetSource ()); }

BarControlTrackEvent::BarControlTrackEvent (BarControl* source) : ItemEvent (source) {}
BarControl* BarControlTrackEvent::GetSource () const { return static_cast<BarControl*> (ItemEvent::GetSource ()); }

ButtonClickEvent::ButtonClickEvent (ButtonItem* source) : ItemEvent (source) {}
ButtonItem* ButtonClickEvent::GetSource () const { return static_cast<ButtonItem*> (ItemEvent::GetSource ()); }

CheckItemChangeEvent::CheckItemChangeEvent (CheckItem* source) : ItemEvent (source) {}
CheckItem* CheckItemChangeEvent::GetSource () const { return static_cast<CheckItem*> (ItemEvent::GetSource ()); }

void BarControlObserver::BarControlChanged (const BarControlChangeEvent&) {}
void BarControlObserver::BarControlTracked (const BarControlTrackEvent&) {}
void ButtonItemObserver::ButtonClicked (const ButtonClickEvent&) {}
void CheckItemObserver::CheckItemChanged (const CheckItemChangeEvent&) {}

// --- BarControl ---

BarControl::BarControl (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void BarControl::SetValue (std::int32_t newValue)
{
    newValue = ClampToBounds (newValue, minValue, maxValue);
    if (newValue == value) return;
    value = newValue;
    NotifyPeer (Aspect::Value);
}

void BarControl::SetMin (std::int32_t newMin)
{
    if (newMin == minValue) return;
    minValue = newMin;
    NotifyPeer (Aspect::Bounds);
    SetValue (value);
}

void BarControl::SetMax (std::int32_t newMax)
{
    if (newMax == maxValue) return;
    maxValue = newMax;
    NotifyPeer (Aspect::Bounds);
    SetValue (value);
}

// Both entry points report even when the thumb did not move: a release always ends a drag,
// and the observer of the drag waits for it.
void BarControl::UserDrag (std::int32_t newValue)
{
    if (!TakesUserInput (*this)) return;
    SetValue (newValue);
    const BarControlTrackEvent event (this);
    NotifyObservers<BarControlObserver> ([&] (BarControlObserver& observer) { observer.BarControlTracked (event); });
}

void BarControl::UserRelease (std::int32_t newValue)
{
    if (!TakesUserInput (*this)) return;
    SetValue (newValue);
    const BarControlChangeEvent event (this);
    NotifyObservers<BarControlObserver> ([&] (BarControlObserver& observer) { observer.BarControlChanged (event); });
}

// --- ButtonItem ---

ButtonItem::ButtonItem (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void ButtonItem::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    NotifyPeer (Aspect::Text);
}

void ButtonItem::SetIcon (const Icon& newIcon)
{
    if (newIcon == icon) return;
    icon = newIcon;
    NotifyPeer (Aspect::Content);
}

void ButtonItem::UserPress ()
{
    if (!TakesUserInput (*this)) return;
    const ButtonClickEvent event (this);
    NotifyObservers<ButtonItemObserver> ([&] (ButtonItemObserver& observer) { observer.ButtonClicked (event); });
}

// --- CheckItem and PushCheck ---

CheckItem::CheckItem (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void CheckItem::SetState (bool check)
{
    if (check == checked) return;
    checked = check;
    NotifyPeer (Aspect::Value);
}

void CheckItem::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    NotifyPeer (Aspect::Text);
}

void CheckItem::UserToggle ()
{
    if (!TakesUserInput (*this)) return;
    SetState (!checked);
    const CheckItemChangeEvent event (this);
    NotifyObservers<CheckItemObserver> ([&] (CheckItemObserver& observer) { observer.CheckItemChanged (event); });
}

PushCheck::PushCheck (const Panel& panel, const Rect& rect, short id) : CheckItem (panel, rect, id) {}

void PushCheck::SetAlignment (short newAlignment)
{
    // Unknown alignments are ignored.
    if (newAlignment < AlignDefault || newAlignment > AlignRight || newAlignment == alignment) return;
    alignment = newAlignment;
    NotifyPeer (Aspect::Content);
}

void PushCheck::SetArrowType (short newArrowType)
{
    if (newArrowType < NoArrow || newArrowType > RightArrow || newArrowType == arrowType) return;
    arrowType = newArrowType;
    NotifyPeer (Aspect::Content);
}

void PushCheck::SetIcon (const Icon& newIcon)
{
    if (newIcon == icon) return;
    icon = newIcon;
    NotifyPeer (Aspect::Content);
}

// --- Static items ---

IconItem::IconItem (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void IconItem::SetIcon (const Icon& newIcon)
{
    if (newIcon == icon) return;
    icon = newIcon;
    NotifyPeer (Aspect::Content);
}

LeftText::LeftText (const Panel& panel, const Rect& rect, short id) : Item (panel, rect, id) {}

void LeftText::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    NotifyPeer (Aspect::Text);
}

}   // namespace Wg
