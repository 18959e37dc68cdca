#include <cmath>
#include <limits>

#include "Kor/Assert.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/WorkingUnits.hpp"

namespace TxAL {

namespace {

constexpr std::size_t IntTextBufferSize = 256;

short EditHeight (const Wg::ListBox& listBox)
{
    return static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 1 : 0) - 2);
}

// Truncation toward zero. A minimum or value of INT_MIN given to the constructor reads back as
// it stands; NaN gives 0, and numbers beyond the 32-bit range (never stored) are held at its ends.
int TruncateToInt (double value)
{
    if (std::isnan (value)) return 0;
    if (value >= static_cast<double> (std::numeric_limits<int>::max ())) return std::numeric_limits<int>::max ();
    if (value <= static_cast<double> (std::numeric_limits<int>::min ())) return std::numeric_limits<int>::min ();
    return static_cast<int> (std::trunc (value));
}

}   // namespace

void AttributeListRealItemObserver::ValueChanged (const AttributeListRealItem&) {}

// --- AttributeListRealItem ---

AttributeListRealItem::AttributeListRealItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                              double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText)
    : AttributeListSelectionItem (name, icon, status, boldText),
      tagText (tagText),
      value (value),
      minValue (minValue),
      maxValue (maxValue),
      editable (editable)
{
    AttributeListRealItem::CorrectValue ();
}

bool AttributeListRealItem::Differs (double stored, double proposed)
{
    // A NaN proposal fails the tolerance test and is dropped; a stored NaN is no number to be
    // close to, so any number replaces it.
    if (std::isnan (stored)) return !std::isnan (proposed);
    return std::fabs (stored - proposed) > Tolerance;
}

bool AttributeListRealItem::CanUpdateEditControl () const
{
    return GetOnTabItems () != nullptr && GetAttributeList () != nullptr && IsEditControlOnTabItemVisible () && IsSelected ();
}

void AttributeListRealItem::NotifyValueChanged ()
{
    NotifyObservers<AttributeListRealItemObserver> ([this] (AttributeListRealItemObserver& o) { o.ValueChanged (*this); });
}

void AttributeListRealItem::ShowOnTabItem () const
{
    Wg::ListBox* listBox = GetListBox ();
    Wg::RealEdit* edit = GetRealEditControl ();
    if (!editable || listBox == nullptr || edit == nullptr) return;
    edit->SetMin (minValue);
    edit->SetMax (maxValue);
    edit->SetValue (value);
    const short column = GetAttributeNameColumnIndex ();
    edit->SetWidth (listBox->GetTabFieldEndPosition (column) - listBox->GetTabFieldBeginPosition (column));
    edit->SetHeight (EditHeight (*listBox));
    listBox->SetOnTabItem (column, *edit);
}

void AttributeListRealItem::CorrectValue ()
{
    // The minimum is tested first; a NaN value compares false both ways and is kept.
    if (minValue > value)
        value = minValue;
    else if (value > maxValue)
        value = maxValue;
    if (!RefreshItem (true)) return;
    if (CanUpdateEditControl ()) GetRealEditControl ()->SetValue (value);
}

Kor::UniString AttributeListRealItem::ConvertValueToUniString () const
{
    return WgDoubleToString (value, GetEditControlSubtype ());
}

Wg::RealEdit* AttributeListRealItem::GetRealEditControl () const
{
    return GetOnTabItems () != nullptr ? &GetOnTabItems ()->GetRealEdit () : nullptr;
}

short AttributeListRealItem::GetEditControlSubtype () const
{
    return Wg::RealSubtype::Real;
}

bool AttributeListRealItem::IsEditControlOnTabItemVisible () const
{
    return GetAttributeList () != nullptr && GetAttributeList ()->IsRealEditOnTabItemVisible ();
}

void AttributeListRealItem::SetMinValue (double newMin)
{
    if (!Differs (minValue, newMin)) return;
    minValue = newMin;
    // Refreshing the row may run observers that delete the item.
    Kor::LifeWatch alive (*this);
    CorrectValue ();
    if (alive.IsAlive () && CanUpdateEditControl ()) GetRealEditControl ()->SetMin (minValue);
}

void AttributeListRealItem::SetMaxValue (double newMax)
{
    if (!Differs (maxValue, newMax)) return;
    maxValue = newMax;
    // Refreshing the row may run observers that delete the item.
    Kor::LifeWatch alive (*this);
    CorrectValue ();
    if (alive.IsAlive () && CanUpdateEditControl ()) GetRealEditControl ()->SetMax (maxValue);
}

void AttributeListRealItem::SetValue (double newValue)
{
    if (!Differs (value, newValue)) return;
    value = newValue;
    CorrectValue ();
}

void AttributeListRealItem::SetEditable (bool newEditable)
{
    editable = newEditable;
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr || !IsSelected ()) return;
    if (!editable)
        listBox->RemoveOnTabItem (GetAttributeNameColumnIndex ());
    else
        ShowOnTabItem ();
}

void AttributeListRealItem::AddStringItem (const Kor::UniString& text)
{
    PopupItem entry;
    entry.SetText (text);
    AddItem (entry);
}

void AttributeListRealItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), ConvertValueToUniString ());
}

void AttributeListRealItem::ClearListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), {});
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), Wg::Icon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), {});
    listBox->RemoveOnTabItem (GetCheckColumnIndex ());
}

void AttributeListRealItem::InitializeOnTabItems () const
{
    AttributeListSelectionItem::InitializeOnTabItems ();
    ShowOnTabItem ();
}

void AttributeListRealItem::RealEditChanged (const Wg::RealEditChangeEvent& event)
{
    Wg::RealEdit* edit = GetRealEditControl ();
    if (edit == nullptr || event.GetSource () != edit) return;
    // The edit enforced the bounds it was given; the value is taken as it stands.
    value = edit->GetValue ();
    if (!RefreshItem (false)) return;
    NotifyValueChanged ();
}

void AttributeListRealItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    if (event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return;
    DrawText (event, tagText);
}

bool AttributeListRealItem::HasFocusedEditField ()
{
    Wg::RealEdit* edit = GetRealEditControl ();
    return edit != nullptr && edit->IsFocused ();
}

Kor::UniString AttributeListRealItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetPreviewColumnIndex () ? tagText : Kor::UniString ();
}

// --- Flavours ---

#define TXAL_REAL_FLAVOUR(Class, Subtype, Getter, Query)                                                  \
    Wg::RealEdit* Class::GetRealEditControl () const                                                      \
    {                                                                                                     \
        return GetOnTabItems () != nullptr ? &GetOnTabItems ()->Getter () : nullptr;                      \
    }                                                                                                     \
    short Class::GetEditControlSubtype () const { return Subtype; }                                       \
    bool  Class::IsEditControlOnTabItemVisible () const                                                   \
    {                                                                                                     \
        return GetAttributeList () != nullptr && GetAttributeList ()->Query ();                           \
    }

TXAL_REAL_FLAVOUR (AttributeListLengthItem, Wg::RealSubtype::Length, GetLengthEdit, IsLengthEditOnTabItemVisible)
TXAL_REAL_FLAVOUR (AttributeListAreaItem, Wg::RealSubtype::Area, GetAreaEdit, IsAreaEditOnTabItemVisible)
TXAL_REAL_FLAVOUR (AttributeListVolumeItem, Wg::RealSubtype::Volume, GetVolumeEdit, IsVolumeEditOnTabItemVisible)
TXAL_REAL_FLAVOUR (AttributeListAngleItem, Wg::RealSubtype::Angle, GetAngleEdit, IsAngleEditOnTabItemVisible)
TXAL_REAL_FLAVOUR (AttributeListPolarAngleItem, Wg::RealSubtype::PolarAngle, GetPolarAngleEdit, IsPolarAngleEditOnTabItemVisible)

#undef TXAL_REAL_FLAVOUR

// --- AttributeListIntItem ---

AttributeListIntItem::AttributeListIntItem (const Kor::UniString& name, const Wg::Icon& icon, int minValue, int maxValue, int value,
                                            bool editable, bool status, bool boldText, const Kor::UniString& tagText)
    : AttributeListRealItem (name, icon, minValue, maxValue, value, editable, status, boldText, tagText)
{
    AttributeListIntItem::CorrectValue ();
}

int AttributeListIntItem::GetValue () const
{
    return TruncateToInt (AttributeListRealItem::GetValue ());
}

int AttributeListIntItem::GetMinValue () const
{
    return TruncateToInt (AttributeListRealItem::GetMinValue ());
}

int AttributeListIntItem::GetMaxValue () const
{
    return TruncateToInt (AttributeListRealItem::GetMaxValue ());
}

void AttributeListIntItem::SetValue (int newValue)
{
    AttributeListRealItem::SetValue (static_cast<double> (newValue));
}

void AttributeListIntItem::SetMinValue (int newMin)
{
    // Through the virtual slot, so that the int item's own limits apply.
    static_cast<AttributeListRealItem&> (*this).SetMinValue (static_cast<double> (newMin));
}

void AttributeListIntItem::SetMaxValue (int newMax)
{
    static_cast<AttributeListRealItem&> (*this).SetMaxValue (static_cast<double> (newMax));
}

bool AttributeListIntItem::CanUpdateIntEdit () const
{
    return GetOnTabItems () != nullptr && GetAttributeList () != nullptr && GetAttributeList ()->IsIntEditOnTabItemVisible () && IsSelected ();
}

void AttributeListIntItem::SetMinValue (double newMin)
{
    // The tolerance test compares the unclamped number.
    if (!Differs (AttributeListRealItem::GetMinValue (), newMin)) return;
    StoreMinValue (std::max (LowestValue, newMin));
    Kor::LifeWatch alive (*this);
    CorrectValue ();
    if (alive.IsAlive () && CanUpdateIntEdit ()) GetOnTabItems ()->GetIntEdit ().SetMin (GetMinValue ());
}

void AttributeListIntItem::SetMaxValue (double newMax)
{
    if (!Differs (AttributeListRealItem::GetMaxValue (), newMax)) return;
    StoreMaxValue (std::min (HighestValue, newMax));
    Kor::LifeWatch alive (*this);
    CorrectValue ();
    if (alive.IsAlive () && CanUpdateIntEdit ()) GetOnTabItems ()->GetIntEdit ().SetMax (GetMaxValue ());
}

void AttributeListIntItem::ShowOnTabItem () const
{
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (!IsEditable () || listBox == nullptr || controls == nullptr) return;
    Wg::IntEdit& edit = controls->GetIntEdit ();
    edit.SetMin (GetMinValue ());
    edit.SetMax (GetMaxValue ());
    edit.SetValue (GetValue ());
    const short column = GetAttributeNameColumnIndex ();
    edit.SetWidth (listBox->GetTabFieldEndPosition (column) - listBox->GetTabFieldBeginPosition (column));
    edit.SetHeight (EditHeight (*listBox));
    listBox->SetOnTabItem (column, edit);
}

void AttributeListIntItem::CorrectValue ()
{
    const double current = AttributeListRealItem::GetValue ();
    const double minimum = AttributeListRealItem::GetMinValue ();
    const double maximum = AttributeListRealItem::GetMaxValue ();
    if (minimum > current)
        StoreValue (minimum);
    else if (current > maximum)
        StoreValue (maximum);
    if (!RefreshItem (true)) return;
    if (CanUpdateIntEdit ()) GetOnTabItems ()->GetIntEdit ().SetValue (GetValue ());
}

Kor::UniString AttributeListIntItem::ConvertValueToUniString () const
{
    char buffer[IntTextBufferSize];
    if (!Kor::valuetostr (GetValue (), buffer, sizeof buffer)) return {};
    return Kor::UniString (buffer);
}

void AttributeListIntItem::IntEditChanged (const Wg::IntEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetIntEdit ()) return;
    StoreValue (static_cast<double> (controls->GetIntEdit ().GetValue ()));
    if (!RefreshItem (false)) return;
    NotifyValueChanged ();
}

bool AttributeListIntItem::HasFocusedEditField ()
{
    return GetOnTabItems () != nullptr && GetOnTabItems ()->GetIntEdit ().IsFocused ();
}

}   // namespace TxAL
