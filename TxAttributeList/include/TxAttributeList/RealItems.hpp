#pragma once
// The real-number family and the int item: real numbers between limits, shown and typed in the
// working units of their kind (real, length, area, volume, angle, polar angle), and whole
// numbers edited in the integer edit.
//
// Every observer operation is sent only for a user action; setters refresh the row (when the
// item is in a list) and notify nobody.

#include "TxAttributeList/SelectionAndTextItems.hpp"

namespace Wg {
class RealEdit;
}   // namespace Wg

namespace TxAL {

class AttributeListRealItem;
class AttributeListIntItem;

// Hears the user's changes of a real-number or integer row.
class AttributeListRealItemObserver : public virtual AttributeListSelectionItemObserver {
protected:
    friend class AttributeListRealItem;
    friend class AttributeListIntItem;
    // The user changed the value in the edit.
    virtual void ValueChanged (const AttributeListRealItem& item);
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

// A length in the user's working units, edited in the list's length edit.
class AttributeListLengthItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

// An area in the user's working units, edited in the list's area edit.
class AttributeListAreaItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

// A volume in the user's working units, edited in the list's volume edit.
class AttributeListVolumeItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

// An angle in the user's working units, edited in the list's angle edit.
class AttributeListAngleItem : public AttributeListRealItem {
public:
    using AttributeListRealItem::AttributeListRealItem;
    Wg::RealEdit* GetRealEditControl () const override;
    short         GetEditControlSubtype () const override;
    bool          IsEditControlOnTabItemVisible () const override;
};

// A polar angle in the user's working units, edited in the list's polar angle edit.
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

}   // namespace TxAL
