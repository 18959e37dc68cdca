// Slider and interval items.
//
// Slider user changes (each asks the strategy first and stops when it answers true):
//   int edit changed  -> strategy hook 1 -> SetValue (refreshes the row) -> ValueChanged
//   thumb released    -> [in slider event] hook 2 -> SetValue (int edit only) -> ValueChanged
//   thumb dragged     -> [in slider event] hook 3 -> SetValue (int edit only), nobody notified

#include <cstdint>
#include <limits>
#include <utility>

#include "Kor/Assert.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "TxAttributeList/SliderItems.hpp"
#include "Wg/WorkingUnits.hpp"

namespace TxAL {

namespace {

constexpr std::size_t IntTextBufferSize = 256;
// The in-place controls are kept this far inside their column.
constexpr short ControlWidthInset = 2;
// Edits are this much lower than the row (inside its separator line).
constexpr short EditHeightInset = 2;

short RowHeightInsideSeparators (const Wg::ListBox& listBox)
{
    return static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 1 : 0));
}

short ColumnWidth (const Wg::ListBox& listBox, short column)
{
    return static_cast<short> (listBox.GetTabFieldEndPosition (column) - listBox.GetTabFieldBeginPosition (column));
}

// Marks a slider event for as long as it is handled, however it ends: a strategy may throw, and
// an observer may delete the item (then there is nothing left to clear).
class SliderEventScope {
public:
    SliderEventScope (const Kor::EventSource& item, bool& flag) : life (item), flag (flag) { flag = true; }
    SliderEventScope (const SliderEventScope&) = delete;
    SliderEventScope& operator= (const SliderEventScope&) = delete;
    ~SliderEventScope ()
    {
        if (life.IsAlive ()) flag = false;
    }

    bool IsItemAlive () const { return life.IsAlive (); }

private:
    Kor::LifeWatch life;
    bool&          flag;
};

}   // namespace

void AttributeListSliderItemObserver::ValueChanged (const AttributeListSliderItem&) {}
void AttributeListIntervalItemObserver::ValueChanged (const AttributeListIntervalItem&) {}

// --- AttributeListSliderItemStrategy ---

AttributeListSliderItemStrategy::~AttributeListSliderItemStrategy () = default;

void AttributeListSliderItemStrategy::SetSliderValue (AttributeListSliderItem& item, int value)
{
    item.SetValue (value);
}

void AttributeListSliderItemStrategy::NotifySliderChange (AttributeListSliderItem& item)
{
    item.NotifyValueChanged ();
}

// --- AttributeListSliderItem ---

AttributeListSliderItem::AttributeListSliderItem () : AttributeListSimpleItem (Kor::UniString (), Wg::Icon (), true, false) {}

void AttributeListSliderItem::SetValue (int newValue)
{
    if (newValue == value) return;
    value = newValue;
    OnTabItems* controls = GetOnTabItems ();
    if (inSliderEvent && controls != nullptr) {
        // The thumb already stands where the user put it; only the number follows.
        controls->GetIntEdit ().SetValue (value);
        return;
    }
    if (GetAttributeList () != nullptr) RefreshItem (true);
}

AttributeListSliderItemStrategy* AttributeListSliderItem::SetStrategy (AttributeListSliderItemStrategy* newStrategy)
{
    AttributeListSliderItemStrategy* previous = strategy;
    strategy = newStrategy;
    return previous;
}

short AttributeListSliderItem::ThumbOffset (int minimum, int maximum, int value, int freeWidth)
{
    // Intended 16-bit arithmetic: d, the free width and the numerator wrap as signed 16-bit
    // numbers; only the range keeps 32 bits. The differences are taken in 64 bits so that
    // extreme bounds wrap instead of overflowing.
    const auto range = static_cast<std::int32_t> (static_cast<std::int64_t> (maximum) - minimum);
    if (range == 0) return 0;
    const auto d = static_cast<std::int16_t> (static_cast<std::int64_t> (value) - minimum);
    const auto w = static_cast<std::int16_t> (freeWidth);
    const auto numerator = static_cast<std::int16_t> (range / 2 + static_cast<std::int64_t> (d) * w);
    return static_cast<short> (numerator / range);
}

void AttributeListSliderItem::NotifyValueChanged ()
{
    NotifyObservers<AttributeListSliderItemObserver> ([this] (AttributeListSliderItemObserver& o) { o.ValueChanged (*this); });
}

void AttributeListSliderItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (IsOnGroup (row))
        listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), {});
    else
        listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    char buffer[IntTextBufferSize];
    listBox->SetTabItemText (row, GetCheckColumnIndex (), Kor::valuetostr (value, buffer, sizeof buffer) ? Kor::UniString (buffer) : Kor::UniString ());
    // The picture in the preview column follows the value.
    listBox->RedrawItem (row);
}

void AttributeListSliderItem::ClearListItem (short row) const
{
    AttributeListSimpleItem::ClearListItem (row);
    // The number too: a group row that loses its slider master must not keep it.
    if (Wg::ListBox* listBox = GetListBox ()) listBox->SetTabItemText (row, GetCheckColumnIndex (), {});
}

void AttributeListSliderItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    const short height = RowHeightInsideSeparators (*listBox);

    Wg::BarControl& bar = controls->GetSlider ();
    bar.SetWidth (ColumnWidth (*listBox, GetPreviewColumnIndex ()) - ControlWidthInset);
    bar.SetHeight (height);
    bar.SetMin (minValue);
    bar.SetMax (maxValue);
    listBox->SetOnTabItem (GetPreviewColumnIndex (), bar);
    bar.SetValue (value);

    Wg::IntEdit& edit = controls->GetIntEdit ();
    edit.SetWidth (ColumnWidth (*listBox, GetCheckColumnIndex ()) - ControlWidthInset);
    edit.SetHeight (height - EditHeightInset);
    edit.SetMin (minValue);
    edit.SetMax (maxValue);
    listBox->SetOnTabItem (GetCheckColumnIndex (), edit);
    edit.SetValue (value);
}

void AttributeListSliderItem::IntEditChanged (const Wg::IntEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetIntEdit ()) return;
    // The strategy, and the refresh of the row (which moves the focus), may run code that
    // deletes the item.
    const Kor::LifeWatch life (*this);
    if (strategy != nullptr && (strategy->IntEditChanged (event, *this) || life.IsGone ())) return;
    SetValue (controls->GetIntEdit ().GetValue ());
    if (life.IsAlive ()) NotifyValueChanged ();
}

void AttributeListSliderItem::SliderChanged (const Wg::BarControlChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetSlider ()) return;
    const SliderEventScope scope (*this, inSliderEvent);
    if (strategy != nullptr && (strategy->SliderChanged (event, *this) || !scope.IsItemAlive ())) return;
    SetValue (controls->GetSlider ().GetValue ());
    if (scope.IsItemAlive ()) NotifyValueChanged ();
}

void AttributeListSliderItem::SliderTracked (const Wg::BarControlTrackEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetSlider ()) return;
    const SliderEventScope scope (*this, inSliderEvent);
    if (strategy != nullptr && (strategy->SliderTracked (event, *this) || !scope.IsItemAlive ())) return;
    // The number follows the thumb; observers hear only of the release.
    SetValue (controls->GetSlider ().GetValue ());
}

void AttributeListSliderItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    Gfx::DrawingContext* context = event.GetDrawContext ();
    const Wg::ListBox* listBox = event.GetSource ();
    if (context == nullptr || listBox == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return;
    // The edited row shows the bar control itself; a picture beneath would show through it.
    OnTabItems* controls = GetOnTabItems ();
    if (controls != nullptr && event.GetListItem () == listBox->GetSelectedItem () && listBox->IsOnTabItem (controls->GetSlider ())) return;
    const bool greyed = !listBox->IsItemEnabled (event.GetListItem ());
    const Wg::Icon track = GetResourceIcon (TrackIconResId);
    const Wg::Icon thumb = GetResourceIcon (ThumbIconResId);
    const Gfx::Size trackSize = Wg::GetIconSize (track);
    const Gfx::Size thumbSize = Wg::GetIconSize (thumb);
    const Gfx::Rect cell = event.GetRect ();

    const int trackLeft = (cell.GetWidth () - trackSize.width) / 2 - 1;
    const int trackTop = (cell.GetHeight () - trackSize.height) / 2;
    Wg::DrawIcon (*context, track, Gfx::Rect::FromSize (cell.left + trackLeft, cell.top + trackTop, trackSize.width, trackSize.height), greyed);

    const auto freeWidth = static_cast<std::int16_t> (trackSize.width - thumbSize.width);
    if (value < minValue || value > maxValue || maxValue == minValue || freeWidth <= 0) return;
    // Kept as 16 bits, like the offset it is made of.
    const auto thumbLeft = static_cast<std::int16_t> (trackLeft + ThumbOffset (minValue, maxValue, value, freeWidth));
    Wg::DrawIcon (*context, thumb, Gfx::Rect::FromSize (cell.left + thumbLeft, cell.top + trackTop, thumbSize.width, thumbSize.height), greyed);
}

bool AttributeListSliderItem::HasFocusedEditField ()
{
    return GetOnTabItems () != nullptr && GetOnTabItems ()->GetIntEdit ().IsFocused ();
}

// --- AttributeListIntervalItem ---

AttributeListIntervalItem::AttributeListIntervalItem (const Kor::UniString& name, const Wg::Icon& icon, double intervalBeg, double intervalEnd,
                                                      Kor::UniString betweenText, bool endHidden, bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText),
      intervalBeg (intervalBeg),
      intervalEnd (intervalEnd),
      betweenText (std::move (betweenText)),
      endHidden (endHidden)
{
}

void AttributeListIntervalItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), WgDoubleToString (intervalBeg, Wg::RealSubtype::Real));
    listBox->SetTabItemText (row, GetCheckColumnIndex (), endHidden ? Kor::UniString () : WgDoubleToString (intervalEnd, Wg::RealSubtype::Real));
}

void AttributeListIntervalItem::ClearListItem (short row) const
{
    AttributeListSimpleItem::ClearListItem (row);
    if (Wg::ListBox* listBox = GetListBox ()) listBox->SetTabItemText (row, GetCheckColumnIndex (), {});
}

void AttributeListIntervalItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    const short height = static_cast<short> (RowHeightInsideSeparators (*listBox) - EditHeightInset);
    // An interval may run anywhere: the shared edits drop whatever bounds another row gave them.
    Wg::RealEdit& begEdit = controls->GetRealEdit ();
    begEdit.SetMin (std::numeric_limits<double>::lowest ());
    begEdit.SetMax (std::numeric_limits<double>::max ());
    begEdit.SetWidth (ColumnWidth (*listBox, GetAttributeNameColumnIndex ()));
    begEdit.SetHeight (height);
    begEdit.SetValue (intervalBeg);
    listBox->SetOnTabItem (GetAttributeNameColumnIndex (), begEdit);
    if (endHidden) return;
    Wg::RealEdit& endEdit = controls->GetSecondRealEdit ();
    endEdit.SetMin (std::numeric_limits<double>::lowest ());
    endEdit.SetMax (std::numeric_limits<double>::max ());
    endEdit.SetWidth (ColumnWidth (*listBox, GetCheckColumnIndex ()));
    endEdit.SetHeight (height);
    endEdit.SetValue (intervalEnd);
    listBox->SetOnTabItem (GetCheckColumnIndex (), endEdit);
}

void AttributeListIntervalItem::RealEditChanged (const Wg::RealEditChangeEvent& event)
{
    if (OnTabItems* controls = GetOnTabItems ()) {
        if (event.GetSource () == &controls->GetRealEdit ())
            intervalBeg = controls->GetRealEdit ().GetValue ();
        else if (event.GetSource () == &controls->GetSecondRealEdit ())
            intervalEnd = controls->GetSecondRealEdit ().GetValue ();
    }
    // Every real edit event is reported, whichever edit sent it; the row is redrawn by the list.
    NotifyObservers<AttributeListIntervalItemObserver> ([this] (AttributeListIntervalItemObserver& o) { o.ValueChanged (*this); });
}

void AttributeListIntervalItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    if (event.GetTabFieldIndex () == GetPreviewColumnIndex ()) DrawText (event, betweenText);
}

Kor::UniString AttributeListIntervalItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetPreviewColumnIndex () ? betweenText : Kor::UniString ();
}

}   // namespace TxAL
