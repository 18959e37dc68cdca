#pragma once
// AttributeListGroupItem: a collapsible heading with ordered children and an optional master
// item drawn on the heading's own row. The tree has two levels: a group holds simple items
// only.
//
// Ownership: children made by the group's Create…Item operations are own-created and deleted
// when removed; a master made that way is owned by the group and deleted whenever it is
// released. Items the caller added are never deleted by the group.

#include <new>
#include <utility>

#include "TxAttributeList/AttributeListItems.hpp"
#include "TxAttributeList/AttributePickerItems.hpp"
#include "TxAttributeList/PenItem.hpp"

namespace TxAL {


// A collapsible group heading with ordered children and an optional master item drawn on its
// row. Owns the children it created; groups do not nest.
class AttributeListGroupItem : public AttributeListItem {
public:
    using ItemArray = Kor::Array<AttributeListSimpleItem*>;

    AttributeListGroupItem ();
    AttributeListGroupItem (const AttributeListGroupItem& source) = default;
    AttributeListGroupItem& operator= (const AttributeListGroupItem& source) = default;
    ~AttributeListGroupItem () override;

    // --- Tree ---
    void AddItem (AttributeListSimpleItem& item);
    void AddItem (AttributeListSimpleItem* item);
    void AddMasterItem (AttributeListSimpleItem& item);
    void AddMasterItem (AttributeListSimpleItem* item);
    // Like AddMasterItem, for an item that is attached to the list already.
    void SetMasterItem (AttributeListSimpleItem& item);
    AttributeListSimpleItem* GetMasterItem () const { return masterItem; }
    void RemoveMasterItem ();
    void ClearMasterItem ();
    void RemoveItem (AttributeListSimpleItem* item) { DeleteItem (item, true); }
    void DeleteItem (AttributeListSimpleItem* item, bool deleteIfOwnCreated);
    // Puts newItem in oldItem's place, keeping the row and the selection; oldItem returns to
    // the caller and is never deleted.
    void ReplaceItem (AttributeListSimpleItem* oldItem, AttributeListSimpleItem* newItem);
    void ClearGroup ();

    std::size_t GetSize () const { return items.GetSize (); }
    const ItemArray& EnumerateItems () const { return items; }
    auto begin () const { return items.begin (); }
    auto end () const { return items.end (); }

    void Collapse ();
    void Expand ();
    bool IsExpanded () const { return expanded; }
    bool IsCollapsible () const { return collapsible; }
    // Stores only; no refresh.
    void SetCollapsible (bool value) { collapsible = value; }

    void DisableUpdate ();
    void EnableUpdate ();

    // Own-created children (or, with asMaster, the owned master); the other arguments are the
    // item's constructor arguments. Null when the item cannot be created.
    AttributeListTextItem* CreateTextItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                           bool autoCustomHandling, bool editable, bool valueListEnabled, bool status, bool boldText);
    AttributeListSelectionItem* CreateSelectionItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, bool status,
                                                     bool boldText);
    AttributeListDictionaryItem* CreateDictionaryItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                       const Kor::UniString& text, bool status, bool boldText);
    AttributeListRealItem*   CreateRealItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double minValue,
                                             double maxValue, double value, bool editable, bool status, bool boldText);
    AttributeListLengthItem* CreateLengthItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double minValue,
                                               double maxValue, double value, bool editable, bool status, bool boldText);
    AttributeListAreaItem*   CreateAreaItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double minValue,
                                             double maxValue, double value, bool editable, bool status, bool boldText);
    AttributeListVolumeItem* CreateVolumeItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double minValue,
                                               double maxValue, double value, bool editable, bool status, bool boldText);
    AttributeListAngleItem*  CreateAngleItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double minValue,
                                              double maxValue, double value, bool editable, bool status, bool boldText);
    AttributeListIntItem*    CreateIntItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, int minValue, int maxValue,
                                            int value, bool editable, bool status, bool boldText);
    AttributeListCheckItem*  CreateCheckItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, bool checked,
                                              const Kor::UniString& checkName, bool status, bool boldText);
    AttributeListIconButtonItem* CreateIconButtonItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                       const Kor::UniString& text, const Kor::UniString& tagText, const Wg::Icon& buttonIcon,
                                                       bool status, bool boldText);
    // A separator is never a master.
    AttributeListSeparatorItem* CreateSeparatorItem ();
    AttributeListIntervalItem* CreateIntervalItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, double intervalBeg,
                                                   double intervalEnd, const Kor::UniString& betweenText, bool endHidden, bool status,
                                                   bool boldText);
    // Pen and attribute picker rows; the provider is not owned.
    AttributeListPenItem*  CreatePenItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                          const ADB::IAttributeSetProvider* provider, AttributeListPenItem::SubType subType, short pen,
                                          bool status, bool boldText);
    AttributeListFillItem* CreateFillItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                                           const ADB::IAttributeSetProvider* provider, AttributeListFillItem::SubType subType,
                                           const ADB::AttributeIndex& index, short foregroundPen, short backgroundPen, short contourPen,
                                           short separatorPen, bool status, bool boldText);
    AttributeListLineTypeItem* CreateLineTypeItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                   const ADB::IAttributeSetProvider* provider, AttributeListLineTypeItem::SubType subType,
                                                   const ADB::AttributeIndex& index, bool status, bool boldText);
    AttributeListProfileItem* CreateProfileItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                 const ADB::IAttributeSetProvider* provider, AttributeListProfileItem::SubType subType,
                                                 const ADB::AttributeIndex& index, const TxAC::ProfileControlData* controlData, bool status,
                                                 bool boldText);
    AttributeListMaterialItem* CreateMaterialItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                   const ADB::IAttributeSetProvider* provider, const ADB::AttributeIndex& index, bool status,
                                                   bool boldText);
    AttributeListBuildingMaterialItem* CreateBuildingMaterialItem (bool asMaster, const Kor::UniString& name, const Wg::Icon& icon,
                                                                   const ADB::IAttributeSetProvider* provider, const ADB::AttributeIndex& index,
                                                                   bool status, bool boldText);

    // --- Overrides of AttributeListItem ---
    void AssignToList (AttributeList* newList) override;
    void DetachListItemFromList () override;
    void DrawListItem (short row) const override;
    void InitializeOnTabItems () const override;
    void IntEditChanged (const Wg::IntEditChangeEvent& event) override;
    void PosIntEditChanged (const Wg::PosIntEditChangeEvent& event) override;
    void ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled) override;
    void Pk257Changed (const Wg::UserControlChangeEvent& event) override;
    void Pk257TrackEntered (const Wg::UserControlTrackEvent& event) override;
    void Pk257Tracked (const Wg::UserControlTrackEvent& event) override;
    void Pk257TrackExited (const Wg::UserControlTrackEvent& event) override;
    void Pk261Changed (const Wg::UserControlChangeEvent& event) override;
    void Pk261TrackEntered (const Wg::UserControlTrackEvent& event) override;
    void Pk261Tracked (const Wg::UserControlTrackEvent& event) override;
    void Pk261TrackExited (const Wg::UserControlTrackEvent& event) override;
    void CheckItemChanged (const Wg::CheckItemChangeEvent& event) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event) override;
    void SliderChanged (const Wg::BarControlChangeEvent& event) override;
    void SliderTracked (const Wg::BarControlTrackEvent& event) override;
    void PkPopupControlChanged (const Wg::UserControlChangeEvent& event) override;
    void PkPopupControlTrackEntered (const Wg::UserControlTrackEvent& event) override;
    void PkPopupControlTracked (const Wg::UserControlTrackEvent& event) override;
    void PkPopupControlTrackExited (const Wg::UserControlTrackEvent& event) override;
    void TextEditChanged (const Wg::TextEditChangeEvent& event) override;
    void RealEditChanged (const Wg::RealEditChangeEvent& event) override;
    void ButtonClicked (const Wg::ButtonClickEvent& event) override;
    Kor::UniString GetToolTip () override;
    bool           IsOwnerDrawn () const override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;
    bool           HasFocusedEditField () override;
    void           SetSelection (Kor::Range<int> selection) override;

protected:
    // Toggles expanded when a child is visible and the group is collapsible.
    void HandleClick ();
    void InitOwnCreatedItem (AttributeListSimpleItem* item, bool asMaster);

    // Creates an owned child of type T; null (with updates left suspended) when it cannot be
    // allocated.
    template <typename T, typename... Args>
    T* CreateOwnedItem (bool asMaster, Args&&... args);

private:
    bool HasVisibleChild () const;
    bool IsInTriangleColumn (int x) const;
    // Commits the user's typing when the group's row is selected; returns whether the group
    // survived its observers.
    bool CommitTypingOnOwnRow ();
    void MakeMaster (AttributeListSimpleItem& item, bool assign);

    ItemArray                items;
    AttributeListSimpleItem* masterItem = nullptr;
    bool                     expanded = true;
    bool                     clearingMaster = false;
    bool                     collapsible = true;
    Wg::Icon                 expandedArrowIcon;
    Wg::Icon                 collapsedArrowIcon;
};

template <typename T, typename... Args>
T* AttributeListGroupItem::CreateOwnedItem (bool asMaster, Args&&... args)
{
    DisableUpdate ();
    T* item = new (std::nothrow) T (std::forward<Args> (args)...);
    if (item == nullptr) return nullptr;
    InitOwnCreatedItem (item, asMaster);
    return item;
}

}   // namespace TxAL
