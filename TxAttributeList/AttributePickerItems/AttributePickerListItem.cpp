// The picker row base. Call flow:
//   ItemClicked (preview .. button column) or CheckItemChanged (the drop-down button) or the
//   keyboard -> OpenPickerPopUp -> CreatePickerPopUp (subclass) -> InvokePopUp, during which
//     TrackedAttributeChanged       displayedIndex follows the pointer, the selected row redraws
//     SelectedAttributeIndexChanged selectedIndex is the choice (subclasses then notify)

#include "TxAttributeList/AttributePickerItems.hpp"

#include "AttributePickerItems/PickerAsserts.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAC/SetupData.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "Wg/ListBox.hpp"

namespace TxAL {

namespace {

// Host codes of the drop-down button: centred, with a down arrow.
constexpr short ButtonAlignment = 1;
constexpr short ButtonArrowType = 1;
// String lists: attribute type names, and the text of a missing attribute (index 1).
constexpr int AttributeTypeNamesResId = 2000;
constexpr int ItemTextsResId = 2001;
constexpr int MissingAttributeTextIndex = 1;
constexpr int PreviewInset = 2;
// What a preview shows for an attribute that the set does not hold.
constexpr const char* MissingAttributeMark = "?";

}   // namespace

void AttributeListFillItemObserver::FillChanged (const AttributeListFillItem&) {}
void AttributeListCompositeItemObserver::CompositeChanged (const AttributeListCompositeItem&) {}
void AttributeListLineTypeItemObserver::LineTypeChanged (const AttributeListLineTypeItem&) {}
void AttributeListProfileItemObserver::ProfileChanged (const AttributeListProfileItem&) {}
void AttributeListMaterialItemObserver::MaterialChanged (const AttributeListMaterialItem&) {}
void AttributeListBuildingMaterialItemObserver::BuildingMaterialChanged (const AttributeListBuildingMaterialItem&) {}

AttributePickerListItem::AttributePickerListItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                  const ADB::AttributeIndex& index, bool status, bool boldText,
                                                  ADB::AttributeTypeId attributeTypeId)
    : AttributeListSimpleItem (name, icon, status, boldText),
      attributeTypeId (attributeTypeId),
      selectedIndex (index),
      displayedIndex (index),
      attributeSetProvider (provider)
{
}

AttributePickerListItem::~AttributePickerListItem () = default;

void AttributePickerListItem::SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider)
{
    attributeSetProvider = provider;
}

void AttributePickerListItem::SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter)
{
    customFilter = std::move (filter);
}

ODB::ConstRef<ADB::AttributeSet> AttributePickerListItem::GetAttributeSet () const
{
    if (attributeSetProvider == nullptr) return {};
    ODB::ConstRef<ADB::AttributeSet> set = attributeSetProvider->GetAttributeSet ();
    set.Load ();
    return set.IsLoaded () ? set : ODB::ConstRef<ADB::AttributeSet> ();
}

TxAC::PopUpAnchor AttributePickerListItem::GetPopUpAnchor () const
{
    TxAC::PopUpAnchor anchor;
    if (OnTabItems* controls = GetOnTabItems ()) {
        const Wg::PushCheck& button = controls->GetCheckBox ();
        anchor.panelId = button.GetPanel ().GetId ();
        anchor.itemId = button.GetId ();
        anchor.item = &button;
    }
    return anchor;
}

Gfx::Rect AttributePickerListItem::GetRightHalfPreviewRect (const Gfx::Rect& cell)
{
    const int width = cell.GetWidth ();
    const int height = cell.GetHeight ();
    return Gfx::Rect (cell.left + width / 2 + PreviewInset, cell.top + PreviewInset, cell.left + width - PreviewInset,
                      cell.top + height - PreviewInset);
}

std::optional<AttributePickerListItem::PreviewCell> AttributePickerListItem::GetPreviewCell (const Wg::ListBoxTabItemUpdateEvent& event) const
{
    Gfx::DrawingContext* context = event.GetDrawContext ();
    if (context == nullptr || event.GetTabFieldIndex () != GetPreviewColumnIndex ()) return std::nullopt;
    ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    if (set.IsNull () || displayedIndex == ADB::InvalidAttributeIndex) return std::nullopt;
    return PreviewCell {*context, std::move (set), displayedIndex, GetRightHalfPreviewRect (event.GetRect ()), !GetStatus ()};
}

void AttributePickerListItem::DrawMissingAttribute (const PreviewCell& cell)
{
    TxAC::PreviewDrawUtility::DrawInvalidAttr (cell.context, cell.rect, cell.greyed, MissingAttributeMark);
}

void AttributePickerListItem::SetSelectedAttributeIndex (const ADB::AttributeIndex& index)
{
    selectedIndex = index;
    displayedIndex = index;
    RefreshItem (true);
}

void AttributePickerListItem::DrawListItem (short row) const
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    const short label = GetAttributeTypeColumnIndex ();
    OnTabItems* controls = GetOnTabItems ();
    const bool editingName = controls != nullptr && row == listBox->GetSelectedItem () && listBox->GetOnTabItem (label) == &controls->GetTextEdit ();
    if (!editingName && !IsOnGroup (row)) listBox->SetTabItemText (row, label, GetName ());
    if (GetAttributeIconColumnIndex () > 0) listBox->SetTabItemIcon (row, GetAttributeIconColumnIndex (), GetIcon ());

    const ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    const ADB::Attribute* attribute = set.IsNull () ? nullptr : set->FindAttribute (attributeTypeId, displayedIndex);
    const short value = GetAttributeNameColumnIndex ();
    if (attribute != nullptr) {
        listBox->SetTabItemText (row, value, attribute->GetName ());
        return;
    }
    const TxAC::SetupData* setup = TxAC::GetSetupData ();
    if (setup == nullptr) return;
    const bool noMaterial = attributeTypeId == TxAttr::idMaterial && displayedIndex == ADB::InvalidAttributeIndex;
    listBox->SetTabItemText (row, value, noMaterial ? setup->noMaterialText : setup->missingAttributeText);
}

void AttributePickerListItem::InitializeOnTabItems () const
{
    AttributeListSimpleItem::InitializeOnTabItems ();
    Wg::ListBox* listBox = GetListBox ();
    OnTabItems* controls = GetOnTabItems ();
    if (listBox == nullptr || controls == nullptr) return;
    const short side = static_cast<short> (listBox->GetItemHeight () - (listBox->HasSeparatorLines () ? 3 : 2));
    Wg::PushCheck& button = controls->GetCheckBox ();
    button.SetWidth (side);
    button.SetHeight (side);
    button.SetAlignment (ButtonAlignment);
    button.SetArrowType (ButtonArrowType);
    listBox->SetOnTabItem (GetCheckColumnIndex (), button);
}

void AttributePickerListItem::ItemClicked (const Wg::ListBoxClickEvent& event)
{
    Kor::LifeWatch alive (*this);
    AttributeListSimpleItem::ItemClicked (event);
    if (alive.IsGone () || GetOnTabItems () == nullptr) return;
    const Wg::ListBox* listBox = event.GetSource ();
    if (listBox == nullptr) return;
    const int x = event.GetMouseOffset ().x;
    // Both bounds belong to the area: the preview column's first pixel and the button column's last.
    if (listBox->GetTabFieldBeginPosition (GetPreviewColumnIndex ()) <= x && x <= listBox->GetTabFieldEndPosition (GetCheckColumnIndex ()))
        OpenPickerPopUp ();
}

void AttributePickerListItem::CheckItemChanged (const Wg::CheckItemChangeEvent& event)
{
    OnTabItems* controls = GetOnTabItems ();
    if (controls == nullptr || event.GetSource () != &controls->GetCheckBox ()) return;
    OpenPickerPopUp ();
}

void AttributePickerListItem::OpenPickerPopUp ()
{
    Kor::Owner<TxAC::AttributePickerPopUp> popUp = CreatePickerPopUp ();
    if (popUp.IsNull ()) return;
    popUp->SetSelectedAttributeIndex (selectedIndex);
    popUp->Attach (*this);
    // The popup is owned here and dies with this call, whatever the observers did meanwhile.
    RunModalWithRowsDrawn ([&popUp] { popUp->InvokePopUp (); });
}

void AttributePickerListItem::RedrawSelectedRow ()
{
    Wg::ListBox* listBox = GetListBox ();
    if (listBox == nullptr) return;
    // The popup opens from the selected row, so that is the row that previews.
    const short row = listBox->GetSelectedItem ();
    if (row > 0) DrawListItem (row);
    listBox->Redraw ();
}

void AttributePickerListItem::TrackedAttributeChanged (const TxAC::AttributePickerTrackEvent& event)
{
    displayedIndex = event.GetTrackedAttributeIndex ().value_or (selectedIndex);
    RedrawSelectedRow ();
}

void AttributePickerListItem::SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp&, const ADB::AttributeIndex& index)
{
    selectedIndex = index;
    RedrawSelectedRow ();
}

int AttributePickerListItem::GetAttributeTypeNameResId () const
{
    switch (attributeTypeId) {
        case TxAttr::idLineType: return 2;
        case TxAttr::idFill: return 3;
        case TxAttr::idCompWall: return 5;
        case TxAttr::idProfile: return 12;
        case TxAttr::idMaterial: return 6;
        case TxAttr::idBuildingMaterial: return 17;
        default:
            PickerAsserts::Report (PickerAsserts::UnknownAttributeTypeLine, "known attribute type",
                                   "TxAL::AttributePickerListItem::GetAttributeTypeNameResId");
            return 0;
    }
}

Kor::UniString AttributePickerListItem::GetToolTip ()
{
    Kor::LifeWatch alive (*this);
    Kor::UniString toolTip = AttributeListSimpleItem::GetToolTip ();
    if (!toolTip.IsEmpty () || alive.IsGone ()) return toolTip;
    const ODB::ConstRef<ADB::AttributeSet> set = GetAttributeSet ();
    const ADB::Attribute* attribute = set.IsNull () ? nullptr : set->FindAttribute (attributeTypeId, selectedIndex);
    const Kor::UniString attributePart =
        attribute != nullptr ? attribute->GetName () : GetResourceString (ItemTextsResId, MissingAttributeTextIndex);
    return GetResourceString (AttributeTypeNamesResId, GetAttributeTypeNameResId ()) + ": " + attributePart;
}

}   // namespace TxAL
