#pragma once
// The pen row: one pen index of the host's pen table, shown as the pen's weight, a colour
// swatch and the index, chosen in the pen picker (the list's Pk257 control) or typed into a
// number edit. Only the user's choices notify; SetPen refreshes the row and notifies nobody.

#include "ADB/AttributeSet.hpp"
#include "Kor/Owner.hpp"
#include "Pk/Pk257CallBackRec.hpp"
#include "TxAC/PenControl.hpp"
#include "TxAttributeList/AttributeListItems.hpp"

namespace TxAL {

class AttributeListPenItem;

// Hears the user choose a pen (in the picker or the number edit).
class AttributeListPenItemObserver : public virtual AttributeListItemObserver {
public:
    virtual void PenChanged (const AttributeListPenItem& item);
};

// A row that holds a pen index of the pen table.
class AttributeListPenItem : public AttributeListSimpleItem {
public:
    // Which pens the row offers: 1 the pens 1..255; 2 also the null pen (-1..255); 3 a client
    // callback (same range as 2). Other values place no number edit.
    enum SubType : std::int32_t { Pen = 1, PenWithNull = 2, Custom = 3 };
    using CallBack = void (*) (Pk257CallBackRec*);

    // The index of a row that has no pen to show.
    static constexpr short NoPenIndex = -1223;
    static constexpr short NullPen = -1;
    static constexpr short MaxPen = 255;

    AttributeListPenItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider, SubType subType,
                          short pen, bool status, bool boldText);
    AttributeListPenItem (const AttributeListPenItem&) = delete;
    AttributeListPenItem& operator= (const AttributeListPenItem&) = delete;
    ~AttributeListPenItem () override;

    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListPenItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListPenItemObserver& observer) { Kor::EventSource::Detach (observer); }

    short   GetPen () const { return pen; }
    // A changed pen refreshes the row (forced); nobody is notified.
    void    SetPen (short newPen);
    SubType GetSubType () const { return subType; }
    void    SetSubType (SubType newSubType);
    // Builds new picker user data from provider; no refresh.
    void    SetAttributeSetProvider (const ADB::IAttributeSetProvider* provider);
    // A non-null callback also makes the row a custom one (sub type 3).
    void    SetCustomCallBackAndUserData (CallBack callBack, const void* userData);
    // The index the row shows: the pen, or the entry under the pointer while the picker tracks.
    short   GetPenToDraw () const { return penToDraw; }
    const TxAC::PenControlData& GetPenControlData () const { return *penControlData; }

    // "%d" of index; empty for NoPenIndex.
    static Kor::UniString GetPenIndexAsString (short index);

    // --- Overrides of AttributeListItem ---
    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           IntEditChanged (const Wg::IntEditChangeEvent& event) override;
    void           PosIntEditChanged (const Wg::PosIntEditChangeEvent& event) override;
    void           ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void           Pk257Changed (const Wg::UserControlChangeEvent& event) override;
    void           Pk257TrackEntered (const Wg::UserControlTrackEvent& event) override;
    void           Pk257Tracked (const Wg::UserControlTrackEvent& event) override;
    void           UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;
    bool           HasFocusedEditField () override;

private:
    CallBack       GetCallBack () const;
    Kor::UniString GetPenText () const;
    bool           IsPickerPlaced () const;
    // Stores a pen the user chose and tells the observers (also when it is the same pen).
    void           ChoosePen (short newPen);

    short                            pen;
    short                            penToDraw;
    Kor::Owner<TxAC::PenControlData> penControlData;
    SubType                          subType;
    CallBack                         customCallBack = nullptr;
    const void*                      customUserData = nullptr;
};

}   // namespace TxAL
