#pragma once
// Value items: rows that show and edit plain values. Selection (a popup of entries), text (typed
// in place, with an optional list of suggested values and a custom entry), tagged text,
// dictionary text, real numbers in working units (real, length, area, volume, angle, polar
// angle), integers, check boxes, push buttons, icon buttons, information rows and separators.
//
// Every observer operation is sent only for a user action; setters refresh the row (when the
// item is in a list) and notify nobody.

#include "TxAttributeList/AttributeListItems.hpp"

namespace Wg {
class ButtonItem;
class RealEdit;
}   // namespace Wg

namespace TxAL {

class AttributeListSelectionItem;
class AttributeListTextItem;
class AttributeListDictionaryItem;
class AttributeListRealItem;
class AttributeListIntItem;
class AttributeListCheckItem;
class AttributeListButtonItem;
class AttributeListIconButtonItem;

// --- Observers ---

class AttributeListSelectionItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListSelectionItem;
    // The user chose an entry of the popup.
    virtual void SelectionChanged (const AttributeListSelectionItem& item);
};

class AttributeListTextItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListTextItem;
    // The user typed, or chose a suggested value.
    virtual void TextChanged (const AttributeListTextItem& item);
};

class AttributeListDictionaryItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListDictionaryItem;
    virtual void TextChanged (const AttributeListDictionaryItem& item);
};

class AttributeListRealItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListRealItem;
    friend class AttributeListIntItem;
    // The user changed the value in the edit.
    virtual void ValueChanged (const AttributeListRealItem& item);
};

class AttributeListCheckItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListCheckItem;
    virtual void CheckChanged (const AttributeListCheckItem& item);
};

class AttributeListButtonItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListButtonItem;
    virtual void ButtonClicked (const AttributeListButtonItem& item);
};

class AttributeListIconButtonItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListIconButtonItem;
    virtual void ButtonClicked (const AttributeListIconButtonItem& item);
    // A click on the always-active icon in the check column.
    virtual void ButtonIconClicked (const AttributeListIconButtonItem& item);
};

// --- Selection ---

// A row with a popup of entries (1-based) and one selected entry (-1: none).
class AttributeListSelectionItem : public AttributeListSimpleItem {
public:
    AttributeListSelectionItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);

    void Attach (AttributeListSelectionItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListSelectionItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // Appends an entry; returns its 1-based index (the new count), or -1 when the popup is full.
    virtual short AddItem (const PopupItem& entry);
    short AddSeparator ();
    void  DeleteAllItems ();
    // Per-entry operations ignore indices outside 1..count and separator entries.
    void  SetItemStatus (short index, bool enabled);
    void  EnableItem (short index) { SetItemStatus (index, true); }
    void  DisableItem (short index) { SetItemStatus (index, false); }
    void  SetItemIcon (short index, const Wg::Icon& icon);
    void  SetItemData (short index, Kor::Ref<Kor::Object, Kor::Counter> data);
    Kor::Ref<Kor::Object, Kor::Counter> GetItemData (short index) const;

    // Selects an existing, non-separator entry other than the selected one; never notifies.
    void           SelectItem (short index);
    short          GetSelected () const { return selectedIndex; }
    Kor::UniString GetSelectedString () const;
    // The raw entry count, separators and disabled entries included.
    unsigned       GetSelectableItemCount () const { return static_cast<unsigned> (entries.GetSize ()); }

    // --- Overrides ---
    void InitializeOnTabItems () const override;
    void ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled) override;
    void DrawListItem (short row) const override;
    void PkPopupControlChanged (const Wg::UserControlChangeEvent& event) override;
    void PkPopupControlTrackEntered (const Wg::UserControlTrackEvent& event) override;
    void PkPopupControlTracked (const Wg::UserControlTrackEvent& event) override;
    void PkPopupControlTrackExited (const Wg::UserControlTrackEvent& event) override;
    void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;

protected:
    bool HasValueList () const { return !entries.IsEmpty (); }
    const Kor::Array<PopupItem>& GetEntries () const { return entries; }
    short GetTrackedIndex () const { return trackedIndex; }
    bool  IsValidEntry (short index) const { return index >= 1 && index <= static_cast<short> (entries.GetSize ()); }
    // Inserts at a 1-based position (count + 1 appends), refreshing the row (not forced).
    void  InsertEntry (short position, const PopupItem& entry);
    // Removes the last entry; a selection that pointed at it is cleared.
    void  DeleteLastEntry ();
    // Whether x (list-box pixels) opens the popup: the right half of the preview column or the
    // check column, both ends included.
    bool  IsInPopupArea (int x) const;
    bool  IsInRightHalfOfPreview (int x) const;
    bool  IsInCheckColumn (int x) const;
    // The row height left for a control inside the row.
    short GetControlRowHeight () const;
    void  NotifySelectionChanged ();
    // The entry chosen in the popup control, 0 when the value names no entry of this item.
    short GetChosenEntry (const Wg::UserControlChangeEvent& event) const;

private:
    short                 selectedIndex = -1;
    short                 trackedIndex = -1;
    Kor::Array<PopupItem> entries;
};

// --- Text ---

// A text typed in place, with an optional popup of suggested values and a custom entry.
// Invariant: when the custom text is not empty, the last entry is the custom entry and every
// string entry added later goes in front of it.
class AttributeListTextItem : public AttributeListSelectionItem {
public:
    AttributeListTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text, bool autoCustomHandling,
                           bool editable, bool valueListEnabled, bool status, bool boldText);

    using AttributeListSelectionItem::Attach;
    using AttributeListSelectionItem::Detach;
    void Attach (AttributeListTextItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListTextItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- Virtual operations added, in slot order ---
    // Places the text edit over the value cell (when editable).
    virtual void  ShowOnTabItem () const;
    // Where the text edit ends: the end of the preview column.
    virtual short GetTextEndPosition () const;

    const Kor::UniString& GetText () const { return text; }
    // With syncSelection and a value list, selects the entry equal to the text, or (with auto
    // custom handling) makes the text the custom entry.
    void SetText (const Kor::UniString& newText, bool syncSelection);
    const Kor::UniString& GetCustomText () const { return customText; }
    void SetCustomText (const Kor::UniString& newCustomText);
    // Adds a suggested value (only with the value list enabled).
    void AddStringItem (const Kor::UniString& value);
    bool IsEditable () const { return editable; }
    void SetEditable (bool value);
    bool IsValueListEnabled () const { return valueListEnabled; }
    void EnableValueList ();
    void DisableValueList ();
    void SetAutoCustomHandling (bool value) { autoCustomHandling = value; }
    bool GetAutoCustomHandling () const { return autoCustomHandling; }

    // --- Overrides ---
    Kor::UniString GetLastText () override { return text; }
    void           SetSelection (Kor::Range<int> selection) override;
    void           ClearListItem (short row) const override;
    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           TextEditChanged (const Wg::TextEditChangeEvent& event) override;
    bool           HasFocusedEditField () override;
    bool           IsOwnerDrawn () const override;
    void           UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;
    void           PkPopupControlChanged (const Wg::UserControlChangeEvent& event) override;

protected:
    // Whether the list's text edit stands on this item's row.
    bool IsTextEditShown () const;

private:
    // SetText without the redraw of the row; returns whether the text changed. Selecting the
    // matching entry redraws the row and may run observers: callers check survival.
    bool StoreText (const Kor::UniString& newText, bool syncSelection);

    Kor::UniString text;
    Kor::UniString customText;
    bool           editable;
    bool           valueListEnabled;
    bool           autoCustomHandling;
};

// A text item that shows a fixed tag text in the preview column, after the text.
class AttributeListTaggedTextItem : public AttributeListTextItem {
public:
    AttributeListTaggedTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text, bool autoCustomHandling,
                                 bool editable, bool valueListEnabled, bool status, bool boldText, const Kor::UniString& tagText);

    const Kor::UniString& GetTagText () const { return tagText; }
    // Stores only: the tag shows at the next redraw of the row (intended).
    void SetTagText (const Kor::UniString& value) { tagText = value; }

    short          GetTextEndPosition () const override;
    void           UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    Kor::UniString tagText;
};

// --- Dictionary ---

// A text row that is always editable in place, without value list or custom entry.
class AttributeListDictionaryItem : public AttributeListSelectionItem {
public:
    AttributeListDictionaryItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text, bool status, bool boldText);

    using AttributeListSelectionItem::Attach;
    using AttributeListSelectionItem::Detach;
    void Attach (AttributeListDictionaryItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListDictionaryItemObserver& observer) { Kor::EventSource::Detach (observer); }

    virtual void  ShowOnTabItem () const;
    virtual short GetTextEndPosition () const;

    const Kor::UniString& GetText () const { return text; }
    void                  SetText (const Kor::UniString& newText);

    Kor::UniString GetLastText () override { return text; }
    void           SetSelection (Kor::Range<int> selection) override;
    void           ClearListItem (short row) const override;
    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           TextEditChanged (const Wg::TextEditChangeEvent& event) override;
    bool           HasFocusedEditField () override;
    bool           IsOwnerDrawn () const override;
    void           UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    bool IsTextEditShown () const;

    Kor::UniString text;
};

// --- Real numbers ---

// A real number between a minimum and a maximum, shown and typed in the working units of its
// kind. Its entries serve as preset strings.
class AttributeListRealItem : public AttributeListSelectionItem {
public:
    // Changes of value, minimum or maximum smaller than this are dropped.
    static constexpr double Tolerance = 0.00001;

    AttributeListRealItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue, double value,
                           bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});

    using AttributeListSelectionItem::Attach;
    using AttributeListSelectionItem::Detach;
    void Attach (AttributeListRealItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListRealItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- Virtual operations added, in slot order ---
    virtual void           ShowOnTabItem () const;
    // Keeps the value within [minimum, maximum] (minimum tested first; NaN is kept).
    virtual void           CorrectValue ();
    virtual Kor::UniString ConvertValueToUniString () const;
    virtual Wg::RealEdit*  GetRealEditControl () const;
    virtual short          GetEditControlSubtype () const;
    virtual bool           IsEditControlOnTabItemVisible () const;
    virtual void           SetMinValue (double newMin);
    virtual void           SetMaxValue (double newMax);

    const Kor::UniString& GetTagText () const { return tagText; }
    // Stores only: the tag shows at the next redraw (intended).
    void   SetTagText (const Kor::UniString& value) { tagText = value; }
    double GetValue () const { return value; }
    double GetMinValue () const { return minValue; }
    double GetMaxValue () const { return maxValue; }
    void   SetValue (double newValue);
    bool   IsEditable () const { return editable; }
    void   SetEditable (bool value);
    // Appends a preset entry (no custom-entry logic).
    void   AddStringItem (const Kor::UniString& value);

    // --- Overrides ---
    void           DrawListItem (short row) const override;
    void           ClearListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           RealEditChanged (const Wg::RealEditChangeEvent& event) override;
    void           UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    bool           HasFocusedEditField () override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

protected:
    static bool Differs (double stored, double proposed);
    // Whether the item's edit control may be loaded now: the list's controls exist, the item is
    // in a list and selected, and its edit stands on the list box.
    bool CanUpdateEditControl () const;
    void StoreValue (double newValue) { value = newValue; }
    void StoreMinValue (double newMin) { minValue = newMin; }
    void StoreMaxValue (double newMax) { maxValue = newMax; }
    void NotifyValueChanged ();

private:
    Kor::UniString tagText;
    double         value;
    double         minValue;
    double         maxValue;
    bool           editable;
};

class AttributeListLengthItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

class AttributeListAreaItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

class AttributeListVolumeItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

class AttributeListAngleItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

class AttributeListPolarAngleItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

// A whole number kept in the real item's double storage and edited in the integer edit.
class AttributeListIntItem : public AttributeListRealItem {
public:
    // The lower limit is one above the smallest 32-bit integer on purpose: the limits are symmetric.
    static constexpr double LowestValue = -2147483647.0;
    static constexpr double HighestValue = 2147483647.0;

    AttributeListIntItem (const Kor::UniString& name, const Wg::Icon& icon, int minValue, int maxValue, int value, bool editable,
                          bool status, bool boldText, const Kor::UniString& tagText = {});

    // Truncated toward zero.
    int GetValue () const;
    int GetMinValue () const;
    int GetMaxValue () const;
    void SetValue (int newValue);
    void SetMinValue (int newMin);
    void SetMaxValue (int newMax);
    using AttributeListRealItem::SetValue;

    void           ShowOnTabItem () const override;
    void           CorrectValue () override;
    Kor::UniString ConvertValueToUniString () const override;
    void           IntEditChanged (const Wg::IntEditChangeEvent& event) override;
    bool           HasFocusedEditField () override;

private:
    void SetMinValue (double newMin) override;
    void SetMaxValue (double newMax) override;
    bool CanUpdateIntEdit () const;
};

// --- Check ---

class AttributeListCheckItem : public AttributeListSimpleItem {
public:
    // The check column value that stands for "the list's preview column".
    static constexpr unsigned short PreviewColumn = 65535;

    AttributeListCheckItem (const Kor::UniString& name, const Wg::Icon& icon, bool checked, const Kor::UniString& checkName, bool status,
                            bool boldText);

    void Attach (AttributeListCheckItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListCheckItemObserver& observer) { Kor::EventSource::Detach (observer); }

    bool  IsChecked () const { return checked; }
    void  SetChecked (bool value);
    const Kor::UniString& GetCheckName () const { return checkName; }
    void  SetCheckName (const Kor::UniString& value);
    short GetCheckColumn () const;
    // Stores without a refresh.
    void  SetCheckColumn (short column) { checkColumn = static_cast<unsigned short> (column); }
    // What the space bar and a click on the box do: toggle and tell the observers.
    void  InvertCheckAndNotify ();

    void  DrawListItem (short row) const override;
    void  ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void  ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled) override;
    void  UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    short GetFirstDrawnColumnIfOnGroup () const override;

private:
    bool IsInBox (int x) const;

    bool           checked;
    Kor::UniString checkName;
    unsigned short checkColumn = PreviewColumn;
};

// --- Buttons ---

class AttributeListButtonItem : public AttributeListSimpleItem {
public:
    AttributeListButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& buttonText, bool status, bool boldText);

    void Attach (AttributeListButtonItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListButtonItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const Kor::UniString& GetButtonText () const { return buttonText; }
    void                  SetButtonText (const Kor::UniString& value);

    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           ButtonClicked (const Wg::ButtonClickEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    Kor::UniString buttonText;
};

class AttributeListIconButtonItem : public AttributeListSimpleItem {
public:
    AttributeListIconButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text, const Kor::UniString& tagText,
                                 const Wg::Icon& buttonIcon, bool status, bool boldText);

    void Attach (AttributeListIconButtonItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListIconButtonItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const Kor::UniString& GetText () const { return text; }
    void                  SetText (const Kor::UniString& value);
    const Kor::UniString& GetTagText () const { return tagText; }
    void                  SetTagText (const Kor::UniString& value);
    const Wg::Icon&       GetButtonIcon () const { return buttonIcon; }
    void                  SetButtonIcon (const Wg::Icon& value);
    bool                  IsButtonIconAlwaysActive () const { return buttonIconAlwaysActive; }
    void                  SetButtonIconAlwaysActive (bool value);
    // The list's icon button while it stands on this item's row, else null.
    Wg::ButtonItem*       GetIconButton () const;

    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void           ButtonClicked (const Wg::ButtonClickEvent& event) override;
    void           UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    Kor::UniString text;
    Kor::UniString tagText;
    Wg::Icon       buttonIcon;
    bool           buttonIconAlwaysActive = false;
};

// --- Information and separator ---

// A read-only label and text.
class AttributeListInfoItem : public AttributeListSimpleItem {
public:
    AttributeListInfoItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);

    // Stores without comparing or refreshing: the text shows at the next redraw (intended).
    void SetAttributeInfoText (const Kor::UniString& text) { infoText = text; }
    const Kor::UniString& GetAttributeInfoText () const { return infoText; }

    void DrawListItem (short row) const override;

private:
    Kor::UniString infoText;
};

// A row painted in the header colour, without text or control.
class AttributeListSeparatorItem : public AttributeListSimpleItem {
public:
    AttributeListSeparatorItem ();

    void DrawListItem (short row) const override;
};

}   // namespace TxAL
