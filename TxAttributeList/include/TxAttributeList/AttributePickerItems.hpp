#pragma once
// Attribute picker rows: a stored attribute of the host's attribute database (a fill, a
// composite, a line type, a profile, a material or a building material) shown by name with a
// small preview, chosen in the attribute picker popup that a click on the preview or on the
// row's drop-down button opens. While the user browses, the row previews the entry under the
// pointer; a choice is kept and told to the row's observers. Setting the index from code
// refreshes the row and notifies nobody.
//
// The provider is not owned; the row asks it for the current attribute set each time.

#include <optional>
#include <utility>

#include "ADB/AttributeSet.hpp"
#include "Kor/LifeWatch.hpp"
#include "Kor/Owner.hpp"
#include "TxAC/AttributePickerPopUp.hpp"
#include "TxAC/PickerFilters.hpp"
#include "TxAttributeList/AttributeListItems.hpp"

namespace TxAL {

class AttributeListFillItem;
class AttributeListCompositeItem;
class AttributeListLineTypeItem;
class AttributeListProfileItem;
class AttributeListMaterialItem;
class AttributeListBuildingMaterialItem;

// --- Observers: each hears the user's choice in its row's picker ---

// Hears the user choose a fill.
class AttributeListFillItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void FillChanged (const AttributeListFillItem& item);
};

// Hears the user choose a composite.
class AttributeListCompositeItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void CompositeChanged (const AttributeListCompositeItem& item);
};

// Hears the user choose a line type.
class AttributeListLineTypeItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void LineTypeChanged (const AttributeListLineTypeItem& item);
};

// Hears the user choose a profile.
class AttributeListProfileItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void ProfileChanged (const AttributeListProfileItem& item);
};

// Hears the user choose a material.
class AttributeListMaterialItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void MaterialChanged (const AttributeListMaterialItem& item);
};

// Hears the user choose a building material.
class AttributeListBuildingMaterialItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void BuildingMaterialChanged (const AttributeListBuildingMaterialItem& item);
};

// The base of the picker rows: name, tooltip, drop-down button, opening and tracking the
// popup, keeping the chosen index. Subclasses build the popup and draw the preview.
class AttributePickerListItem : public AttributeListSimpleItem, public TxAC::AttributePickerPopUpObserver {
public:
    AttributePickerListItem (const AttributePickerListItem&) = delete;
    AttributePickerListItem& operator= (const AttributePickerListItem&) = delete;
    ~AttributePickerListItem () override;

    // --- Virtual operations added, in slot order ---
    // A new popup of the row's type, anchored at the row's button, with the row's
    // preselection and filter; null when the row cannot offer one.
    virtual Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () = 0;
    virtual void SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider);
    // Takes the filter; the previous one is deleted.
    virtual void SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter);

    // Opens the picker as the row's button does (also from the keyboard); returns when it has
    // closed. The row may have been destroyed by an observer by then.
    void OpenPickerPopUp ();

    ADB::AttributeTypeId              GetAttributeTypeId () const { return attributeTypeId; }
    // The index the row draws: the selected one, or the entry under the pointer while browsing.
    const ADB::AttributeIndex&        GetDisplayedAttributeIndex () const { return displayedIndex; }
    const ADB::IAttributeSetProvider* GetAttributeSetProvider () const { return attributeSetProvider; }
    const TxAC::AttributeListAndFolderFilter* GetCustomFilter () const { return customFilter.Get (); }

    // --- Overrides of AttributeListItem ---
    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void           CheckItemChanged (const Wg::CheckItemChangeEvent& event) override;
    Kor::UniString GetToolTip () override;

    // --- Overrides of TxAC::AttributePickerPopUpObserver ---
    void TrackedAttributeChanged (const TxAC::AttributePickerTrackEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;

protected:
    AttributePickerListItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                             const ADB::AttributeIndex& index, bool status, bool boldText, ADB::AttributeTypeId attributeTypeId);

    const ADB::AttributeIndex& GetSelectedAttributeIndex () const { return selectedIndex; }
    // Sets both the selected and the displayed index and refreshes the row; notifies nobody.
    void                       SetSelectedAttributeIndex (const ADB::AttributeIndex& index);

    // The provider's current set, loaded; an empty reference when there is none.
    ODB::ConstRef<ADB::AttributeSet> GetAttributeSet () const;
    // Where the popup opens: the row's drop-down button.
    TxAC::PopUpAnchor                GetPopUpAnchor () const;
    // The preview rectangle of the right-half previews: right half of the cell, inset by 2.
    static Gfx::Rect                 GetRightHalfPreviewRect (const Gfx::Rect& cell);

    // What a preview draws: into the event's context, the displayed attribute of the set, in the
    // right-half preview rectangle of the cell, greyed when the row is disabled.
    struct PreviewCell {
        Gfx::DrawingContext&             context;
        ODB::ConstRef<ADB::AttributeSet> set;
        ADB::AttributeIndex              index;
        Gfx::Rect                        rect;
        bool                             greyed;
    };
    // The preview cell when the event is for the preview column and there is a set and an index
    // to draw; nothing otherwise.
    std::optional<PreviewCell> GetPreviewCell (const Wg::ListBoxTabItemUpdateEvent& event) const;
    // The mark of a displayed attribute that the set does not hold.
    static void                DrawMissingAttribute (const PreviewCell& cell);

    // A new popup of type PopUp anchored at the row's button, preselecting the row's index;
    // args are what the popup type takes between the anchor and the index.
    template <typename PopUp, typename... Args>
    Kor::Owner<TxAC::AttributePickerPopUp> MakePickerPopUp (Args&&... args) const
    {
        return Kor::NewOwner<PopUp> (GetPopUpAnchor (), std::forward<Args> (args)..., GetSelectedAttributeIndex (),
                                     TxAC::AttributePickerPopUp::DropBelowAnchor);
    }

    // Keeps the user's choice as the base does, then tells the row's own observers through
    // changed, unless an observer of the redraw destroyed the row meanwhile.
    template <typename Observer, typename Item>
    void KeepChoiceAndNotify (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index,
                              void (Observer::*changed) (const Item&))
    {
        Kor::LifeWatch alive (*this);
        AttributePickerListItem::SelectedAttributeIndexChanged (source, index);
        if (alive.IsGone ()) return;
        NotifyObservers<Observer> ([this, changed] (Observer& observer) { (observer.*changed) (static_cast<const Item&> (*this)); });
    }

private:
    int  GetAttributeTypeNameResId () const;
    void RedrawSelectedRow ();

    ADB::AttributeTypeId                           attributeTypeId;
    ADB::AttributeIndex                            selectedIndex;
    ADB::AttributeIndex                            displayedIndex;
    const ADB::IAttributeSetProvider*              attributeSetProvider;
    Kor::Owner<TxAC::AttributeListAndFolderFilter> customFilter;
};

// The base of the fill and composite rows: optional pens that the preview imposes.
class AttributeListFillAndCompositeBaseItem : public AttributePickerListItem {
public:
    // The pen value that means "no pen".
    static constexpr short NoPen = -1223;

    // An RGBA colour with a presence flag.
    struct OptionalColor {
        unsigned char red = 0, green = 0, blue = 0, alpha = 0;
        bool          present = false;
        Gfx::Color    ToColor () const { return Gfx::Color (red, green, blue, alpha); }
    };
    // The resolved colours of the four pens.
    struct Colors {
        OptionalColor foreground, background, contour, separator;
    };

    // NoPen unsets the pen; every call refreshes the row (forced) when in a list.
    void SetForegroundPen (short pen);
    void SetBackgroundPen (short pen);
    void SetContourPen (short pen);
    void SetSeparatorPen (short pen);
    // No refresh.
    void SetCustomIcon (const Wg::Icon& icon) { customIcon = icon; }
    const Wg::Icon& GetCustomIcon () const { return customIcon; }

protected:
    AttributeListFillAndCompositeBaseItem (const Kor::UniString& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                                           const ADB::IAttributeSetProvider* provider, const ADB::AttributeIndex& index, bool status,
                                           bool boldText, ADB::AttributeTypeId attributeTypeId);

    Colors GetColors () const;
    // The sub type as the fill and composite rows share it; changing it refreshes (not forced).
    void   StoreSubType (std::int32_t& subType, std::int32_t newSubType);

private:
    struct OptionalPen {
        short pen = 0;
        bool  set = false;
    };
    void SetPen (OptionalPen& slot, short pen);

    OptionalPen foregroundPen, backgroundPen, contourPen, separatorPen;
    Wg::Icon    customIcon;
};

// A fill row.
class AttributeListFillItem : public AttributeListFillAndCompositeBaseItem {
public:
    // Narrows the fills the picker offers; 7 uses the custom filter.
    enum SubType : std::int32_t { CutFills = 0, DraftingAndCutFills = 1, SolidFills = 2, CutFillsWithoutEmpty = 3, EveryFill = 4,
                                  DraftingFills = 5, CoverFillsWithoutEmpty = 6, CustomFills = 7 };

    AttributeListFillItem (const Kor::UniString& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                           const ADB::IAttributeSetProvider* provider, SubType subType, const ADB::AttributeIndex& index,
                           short foregroundPen, short backgroundPen, short contourPen, short separatorPen, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListFillItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListFillItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetFill () const { return GetSelectedAttributeIndex (); }
    void                       SetFill (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }
    SubType                    GetSubType () const { return static_cast<SubType> (subType); }
    void                       SetSubType (SubType newSubType) { StoreSubType (subType, newSubType); }
    // The filter mode that a sub type gives the fill picker.
    static short               GetFilterMode (SubType subType);

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;

private:
    std::int32_t subType;
};

// A composite row.
class AttributeListCompositeItem : public AttributeListFillAndCompositeBaseItem {
public:
    // Narrows the composites by element kind; 7 uses the custom filter.
    enum SubType : std::int32_t { AllKinds = 1, WallComposites = 2, SlabComposites = 3, RoofComposites = 4, ShellComposites = 5,
                                  AnyKind = 6, CustomComposites = 7 };

    AttributeListCompositeItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider, SubType subType,
                                const ADB::AttributeIndex& index, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListCompositeItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListCompositeItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetComposite () const { return GetSelectedAttributeIndex (); }
    void                       SetComposite (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }
    SubType                    GetSubType () const { return static_cast<SubType> (subType); }
    void                       SetSubType (SubType newSubType) { StoreSubType (subType, newSubType); }
    // The kind mask that a sub type gives the composite picker (asserts on an unknown one).
    static int                 GetFilterOption (SubType subType);

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;

private:
    std::int32_t subType;
};

// A line type row; its preview spans the whole preview cell.
class AttributeListLineTypeItem : public AttributePickerListItem {
public:
    // 1 every line type, 2 dashed ones only, 3 the custom filter.
    enum SubType : std::int32_t { AllLineTypes = 1, DashedLineTypes = 2, CustomLineTypes = 3 };

    AttributeListLineTypeItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider, SubType subType,
                               const ADB::AttributeIndex& index, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListLineTypeItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListLineTypeItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetLineType () const { return GetSelectedAttributeIndex (); }
    void                       SetLineType (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }
    SubType                    GetSubType () const { return subType; }
    void                       SetSubType (SubType newSubType);

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void SetCustomFilter (Kor::Owner<TxAC::AttributeListAndFolderFilter> filter) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;

private:
    SubType subType;
};

// A profile row (no preview); it keeps the profile picker's set-up.
class AttributeListProfileItem : public AttributePickerListItem {
public:
    // Which profiles the picker offers, by element kind.
    enum SubType : std::int32_t { AllProfiles = 1, WallProfiles = 2, ColumnProfiles = 3, BeamProfiles = 4, HandrailProfiles = 5,
                                  OtherProfiles = 6 };

    // controlData may be null; it is copied.
    AttributeListProfileItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider, SubType subType,
                              const ADB::AttributeIndex& index, const TxAC::ProfileControlData* controlData, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListProfileItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListProfileItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetProfileIndex () const { return GetSelectedAttributeIndex (); }
    void                       SetProfileIndex (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }
    SubType                    GetSubType () const { return subType; }
    void                       SetSubType (SubType newSubType);
    short                      GetShowCustomMode () const { return controlData->GetShowCustomMode (); }
    const TxAC::ProfileControlData& GetProfileControlData () const { return *controlData; }
    // Copies data and takes its provider; null is ignored.
    void SetProfileControlData (const TxAC::ProfileControlData* data);
    // The profile type mask of a sub type (sub types 3 and 4 give 4 and 2, on purpose).
    static int GetProfileMask (SubType subType);

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;

private:
    Kor::Owner<TxAC::ProfileControlData> controlData;
    SubType                              subType;
};

// A material (surface) row.
class AttributeListMaterialItem : public AttributePickerListItem {
public:
    AttributeListMaterialItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                               const ADB::AttributeIndex& index, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListMaterialItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListMaterialItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetMaterial () const { return GetSelectedAttributeIndex (); }
    void                       SetMaterial (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;
};

// A building material row.
class AttributeListBuildingMaterialItem : public AttributePickerListItem {
public:
    AttributeListBuildingMaterialItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                       const ADB::AttributeIndex& index, bool status, bool boldText);

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListBuildingMaterialItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListBuildingMaterialItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const ADB::AttributeIndex& GetBuildingMaterial () const { return GetSelectedAttributeIndex (); }
    void                       SetBuildingMaterial (const ADB::AttributeIndex& index) { SetSelectedAttributeIndex (index); }

    Kor::Owner<TxAC::AttributePickerPopUp> CreatePickerPopUp () override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp& source, const ADB::AttributeIndex& index) override;
};

}   // namespace TxAL
