// The pen row. Call flow: a click on the swatch or the button (ItemClicked) or the keyboard
// opens the list's Pk257 picker; its tracking reaches Pk257TrackEntered/Pk257Tracked (the row
// previews the pen under the pointer), a choice Pk257Changed; typing reaches IntEditChanged or
// PosIntEditChanged. Each choice stores the pen (SetPen) and notifies PenChanged.

#include "TxAttributeList/PenItem.hpp"

#include <algorithm>
#include <optional>

#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAC/SetupData.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ListBox.hpp"

namespace TxAL {

namespace {

// Host codes of the pen picker: a swatch button, a header naming the pen under the pointer,
// a grid of pens.
constexpr short PickerButtonType = 1;
constexpr short PickerHeaderType = 1;
constexpr short PickerControlType = 1;
// Pen weights below this are shown as "0".
constexpr double ZeroWeight = 1e-5;
// Millimetres to points (72 / 25.4).
constexpr double PointsPerMillimetre = 2.8346456692913;
// The swatch leaves room at the right of the preview cell for the index text.
constexpr int IndexTextWidth = 26;
constexpr int SwatchInset = 2;

short ControlSide (const Wg::ListBox& listBox)
{
    return static_cast<short> (listBox.GetItemHeight () - (listBox.HasSeparatorLines () ? 3 : 2));
}

}   // namespace

void AttributeListPenItemObserver::PenChanged (const AttributeListPenItem&) {}

AttributeListPenItem::AttributeListPenItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                            SubType subType, short pen, bool status, bool boldText)
    : AttributeListSimpleItem (name, icon, status, boldText),
      pen (pen),
      penToDraw (pen),
      penControlData (Kor::NewOwner<TxAC::PenControlData> (provider)),
      subType (subType),
      customCallBack (&TxAC::PenControlCallBack)
{
}

AttributeListPenItem::~AttributeListPenItem ()
{
    // The picker may still hold this row's user data; it must not outlive the data.
    if (OnTabItems* controls = GetOnTabItems ()) controls->ClearUserControlCallbacks (this);
}

void AttributeListPenItem::SetPen (short newPen)
{
    if (newPen == pen) return;
    pen = newPen;
    penToDraw = newPen;
    RefreshItem (true);
}

void AttributeListPenItem::SetSubType (SubType newSubType)
{
    if (newSubType == subType) return;
    subType = newSubType;
    RefreshItem (false);
}

void AttributeListPenItem::SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider)
{
    Kor::Owner<TxAC::PenControlData> fresh = Kor::NewOwner<TxAC::PenControlData> (provider);
    // The picker may hold the old data as its user data.
    if (OnTabItems* controls = GetOnTabItems (); controls != nullptr && controls->GetPk257 ().GetUserData () == penControlData.Get ())
        controls->GetPk257 ().SetUserData (fresh.Get ());
    penControlData = std::move (fresh);
}

void AttributeListPenItem::SetCustomCallBackAndUserData (CallBack callBack, const void* userData)
{
    customCallBack = callBack;
    customUserData = userData;
    if (callBack != nullptr) subType = Custom;
}

Kor::UniString AttributeListPenItem::GetPenIndexAsString (short index)
{
    if (index == NoPenIndex) return {};
    return Kor::UniString::Printf ("%d", static_cast<int> (index));
}

AttributeListPenItem::CallBack AttributeListPenItem::GetCallBack () const
{
    switch (subType) {
        case PenWithNull: return &TxAC::PenWithNullControlCallBack;
        case Custom: return customCallBack;
        default: return &TxAC::PenControlCallBack;
    }
}

Kor::UniString AttributeListPenItem::GetPenText () const
{
    const TxAC::SetupData* setup = TxAC::GetSetupData ();
    const bool offersNull = subType == PenWithNull || subType == Custom;
    if (penToDraw == NullPen) return offersNull && setup != nullptr ? setup->nullPenText : Kor::UniString ();
    if (penToDraw == 0) return offersNull && setup != nullptr ? setup->penZeroText : Kor::UniString ();

    const ADB::IAttributeSetProvider* provider = penControlData->GetAttributeSetProvider ();
    if (provider == nullptr) return {};
    const ODB::ConstRef<ADB::AttributeSet> set = provider->GetAttributeSet ();
    if (!set.Load ()) return {};
    const ODB::ConstRef<ADB::Attribute> active = set->GetConstActiveAttribute (TxAttr::idPenTable);
    if (!active.Load ()) return {};
    const auto* table = ADB::AttributeCast<TxAttr::PenTable> (active.Get ());
    const TxAttr::Pen* record = table != nullptr ? table->GetPenPtr (penToDraw) : nullptr;
    if (record == nullptr) return {};

    const bool points = TxAC::PenControlData::GetPenWeightUnit () == TxAC::SetupData::Points;
    const Kor::UniString unit = setup == nullptr ? Kor::UniString () : points ? setup->pointUnitText : setup->millimetreUnitText;
    const double weight = record->weight;
    Kor::UniString text;
    if (weight < ZeroWeight)
        text = Kor::UniString::Printf ("0 %T", unit);
    else
        text = Kor::UniString::Printf ("%5.2f %T", points ? weight * PointsPerMillimetre : weight, unit);
    // "%5.2f" pads weights below 10 with one blank.
    if (!text.IsEmpty () && text[0] == u' ') text = text.GetSubstring (1);
    return text;
}

bool AttributeListPenItem::IsPickerPlaced () const
{
    const Wg::ListBox* listBox = GetListBox ();
    const OnTabItems* controls = GetOnTabItems ();
    return listBox != nullptr && controls != nullptr && listBox->IsOnTabItem (const_cast<OnTabItems*> (controls)->GetPk257 ());
}

void AttributeListPenItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());
    listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), GetPenText ());
}

void AttributeListPenItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    const short side = ControlSide (*listBox);

    Pk::Pk257& picker = controls->GetPk257 ();
    picker.SetWidth (side);
    picker.SetHeight (side);
    picker.SetUserData (subType == Custom ? customUserData : penControlData.Get ());
    picker.SetButtonType (PickerButtonType);
    picker.SetHeaderType (PickerHeaderType);
    picker.SetControlType (PickerControlType);
    // A custom row without a callback leaves the picker without one: another row's callback
    // must never read this row's user data.
    picker.SetCallBack (GetCallBack ());
    controls->SetUserControlOwner (this);
    listBox->SetOnTabItem (GetCheckColumnIndex (), picker);
    picker.SetValue (pen);

    const short preview = GetPreviewColumnIndex ();
    const int editWidth = (listBox->GetTabFieldEndPosition (preview) - listBox->GetTabFieldBeginPosition (preview)) / 2;
    Wg::IntEdit* edit = nullptr;
    if (subType == Pen) {
        edit = &controls->GetPosIntEdit ();
        edit->SetMin (1);
        edit->SetMax (MaxPen);
    } else if (subType == PenWithNull || subType == Custom) {
        edit = &controls->GetIntEdit ();
        edit->SetMin (NullPen);
        edit->SetMax (MaxPen);
    }
    if (edit == nullptr) return;
    edit->SetWidth (editWidth);
    edit->SetHeight (side);
    listBox->SetOnTabItem (preview, *edit);
    edit->SetValue (pen);
}

void AttributeListPenItem::ChoosePen (short newPen)
{
    Kor::LifeWatch alive (*this);
    SetPen (newPen);
    if (alive.IsGone ()) return;
    NotifyObservers<AttributeListPenItemObserver> ([this] (AttributeListPenItemObserver& o) { o.PenChanged (*this); });
}

void AttributeListPenItem::IntEditChanged (const Wg::IntEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetIntEdit ()) return;
    ChoosePen (static_cast<short> (controls->GetIntEdit ().GetValue ()));
}

void AttributeListPenItem::PosIntEditChanged (const Wg::PosIntEditChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetPosIntEdit ()) return;
    ChoosePen (static_cast<short> (controls->GetPosIntEdit ().GetValue ()));
}

void AttributeListPenItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    Kor::LifeWatch alive (*this);
    AttributeListSimpleItem::ItemClicked (event);
    if (alive.IsGone () || !IsPickerPlaced ()) return;
    const Wg::ListBox& listBox = *GetListBox ();
    const int x = event.GetMouseOffset ().x;
    const short preview = GetPreviewColumnIndex ();
    const short check = GetCheckColumnIndex ();
    const int previewMiddle = (listBox.GetTabFieldBeginPosition (preview) + listBox.GetTabFieldEndPosition (preview)) / 2;
    const bool inPreview = previewMiddle <= x && x <= listBox.GetTabFieldEndPosition (preview);
    const bool inCheck = listBox.GetTabFieldBeginPosition (check) <= x && x <= listBox.GetTabFieldEndPosition (check);
    if (inPreview || inCheck) GetOnTabItems ()->GetPk257 ().ShowAndTrackPopup ();
}

void AttributeListPenItem::Pk257Changed (const Wg::UserControlChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetPk257 ()) return;
    ChoosePen (static_cast<short> (controls->GetPk257 ().GetValue ()));
}

void AttributeListPenItem::Pk257TrackEntered (const Wg::UserControlTrackEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetPk257 ()) return;
    penToDraw = pen;
}

void AttributeListPenItem::Pk257Tracked (const Wg::UserControlTrackEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetPk257 ()) return;
    penToDraw = static_cast<short> (controls->GetPk257 ().GetValue ());
    if (subType == Pen)
        controls->GetPosIntEdit ().SetValue (penToDraw);
    else if (subType == PenWithNull || subType == Custom)
        controls->GetIntEdit ().SetValue (penToDraw);
    // The list redraws the row's cells after the event; the preview cell is owner-drawn.
    if (Wg::ListBox* listBox = GetListBox (); listBox != nullptr && GetRow () > 0) listBox->RedrawItem (GetRow ());
}

void AttributeListPenItem::UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event)
{
    Gfx::DrawingContext* context = event.GetDrawContext ();
    const Wg::ListBox* listBox = event.GetSource ();
    if (context == nullptr || listBox == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return;
    const bool greyed = !listBox->IsItemEnabled (event.GetListItem ());
    const Gfx::Rect cell = event.GetRect ();
    const Gfx::Rect textRect (std::max (cell.left, cell.right - IndexTextWidth), cell.top, cell.right - SwatchInset, cell.bottom);
    const Gfx::Rect swatch (cell.left + SwatchInset, cell.top + SwatchInset, textRect.left - SwatchInset, cell.bottom - SwatchInset);

    std::optional<Gfx::Color> color;
    if (penToDraw == 0) color = Gfx::Color::White;
    if (penToDraw > 0)
        if (const ADB::IAttributeSetProvider* provider = penControlData->GetAttributeSetProvider ()) {
            const ODB::ConstRef<ADB::AttributeSet> set = provider->GetAttributeSet ();
            if (set.Load ()) color = TxAC::PreviewDrawUtility::GetPenColor (*set, penToDraw, false);
        }
    if (color.has_value () && !swatch.IsEmpty ()) TxAC::PreviewDrawUtility::DrawColorIntoRect (*context, swatch, *color, greyed);
    Gfx::TextStyle style;
    style.greyed = greyed;
    style.align = Gfx::TextAlign::Right;
    context->DrawText (GetPenIndexAsString (penToDraw), textRect, style);
}

Kor::UniString AttributeListPenItem::GetDrawnTextContentForKorAT (Kor::Friend<AttributeList>, short column)
{
    return column == GetPreviewColumnIndex () ? GetPenIndexAsString (penToDraw) : Kor::UniString ();
}

bool AttributeListPenItem::HasFocusedEditField ()
{
    const OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr) return false;
    auto& mutableControls = const_cast<OnTabItems&> (*controls);
    return mutableControls.GetIntEdit ().IsFocused () || mutableControls.GetPosIntEdit ().IsFocused ();
}

}   // namespace TxAL
