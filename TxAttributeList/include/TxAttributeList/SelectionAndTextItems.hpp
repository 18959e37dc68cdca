#pragma once
// Selection and text items: a row with a popup of entries (selection), text typed in place with
// an optional list of suggested values and a custom entry (text), the text with a fixed tag
// (tagged text), and the always-editable text without entries (dictionary).
//
// Every observer operation is sent only for a user action; setters refresh the row (when the
// item is in a list) and notify nobody.

#include "TxAttributeList/AttributeListItems.hpp"

namespace TxAL {

class AttributeListSelectionItem;
class AttributeListTextItem;
class AttributeListDictionaryItem;

// --- Observers ---

class AttributeListSelectionItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListSelectionItem;
    // The user chose an entry of the popup.
    virtual void SelectionChanged (const AttributeListSelectionItem& item);
};

// Hears the user's typing and popup choices in a text row.
class AttributeListTextItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListTextItem;
    // The user typed, or chose a suggested value.
    virtual void TextChanged (const AttributeListTextItem& item);
};

// Hears the user's typing in a dictionary row.
class AttributeListDictionaryItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListDictionaryItem;
    virtual void TextChanged (const AttributeListDictionaryItem& item);
};

// --- Selection ---

// A row with a popup of entries (1-based) and one selected entry (-1: none).
class AttributeListSelectionItem : public AttributeListSimpleItem {
public:
    AttributeListSelectionItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);

    // The typed overloads below would hide these.
    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
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

}   // namespace TxAL
