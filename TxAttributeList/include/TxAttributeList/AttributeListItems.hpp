#pragma once
// The item base of the attribute list. Every row of an AttributeList is drawn, clicked and
// edited through an item: AttributeListItem carries what every row has (label, icon, status,
// visibility, tool tip, icon-column popup, the link to its list); AttributeListSimpleItem is the
// base of every single-row value item. The group (AttributeListGroupItem) derives from
// AttributeListItem directly, so groups cannot nest.
//
// Observers hear only of what the user did; setters called by the program refresh the row and
// notify nobody.

#include <cstdint>
#include <functional>

#include "Gfx/Color.hpp"
#include "Gfx/DrawingContext.hpp"
#include "Kor/Array.hpp"
#include "Kor/Event.hpp"
#include "Kor/LifeWatch.hpp"
#include "Kor/Object.hpp"
#include "Kor/Owner.hpp"
#include "Kor/Range.hpp"
#include "Kor/Ref.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Icon.hpp"

namespace Wg {
class BarControlChangeEvent;
class BarControlTrackEvent;
class ButtonClickEvent;
class CheckItemChangeEvent;
class IntEditChangeEvent;
class ListBox;
class ListBoxClickEvent;
class ListBoxDoubleClickEvent;
class ListBoxItemUpdateEvent;
class ListBoxTabItemUpdateEvent;
class PosIntEditChangeEvent;
class RealEditChangeEvent;
class TextEditChangeEvent;
class UserControlChangeEvent;
class UserControlTrackEvent;
}   // namespace Wg

namespace TxAL {

class AttributeList;
class AttributeListGroupItem;
class AttributeListItem;
class OnTabItems;

// The value items, which the list's and the group's factories make (ValueItems.hpp and the family headers it includes).
class AttributeListSelectionItem;
class AttributeListTextItem;
class AttributeListTaggedTextItem;
class AttributeListDictionaryItem;
class AttributeListRealItem;
class AttributeListLengthItem;
class AttributeListAreaItem;
class AttributeListVolumeItem;
class AttributeListAngleItem;
class AttributeListIntItem;
class AttributeListCheckItem;
class AttributeListButtonItem;
class AttributeListIconButtonItem;
class AttributeListSeparatorItem;
class AttributeListIntervalItem;

// Hears what every row has: tool-tip requests, renaming, icon-column clicks and popup choices.
class AttributeListItemObserver : public virtual Kor::EventObserver {
public:
    // The list asks the item for its tool tip; the first non-empty answer wins.
    virtual Kor::UniString AttributeListItemToolTipRequested (const AttributeListItem& item);
    // The user edited the item's name in the name edit.
    virtual void NameChanged (const AttributeListItem& item);
    virtual void IconColumnClicked (const AttributeListItem& item);
    virtual void IconColumnDoubleClicked (const AttributeListItem& item);
    // The user chose another entry of the icon-column popup.
    virtual void IconColumnPopupChanged (const AttributeListItem& item);
};

// The base of every row: label, icon, status, visibility, tool tip, icon-column popup and the
// link to its list. The list calls its virtual operations for the user's input on its row.
class AttributeListItem : protected Kor::EventSource {
public:
    // One entry of the popup that can replace the icon of the icon column.
    class PopupItem {
    public:
        PopupItem () = default;

        const Wg::Icon&       GetIcon () const { return icon; }
        void                  SetIcon (const Wg::Icon& newIcon) { icon = newIcon; }
        const Kor::UniString& GetText () const { return text; }
        void                  SetText (const Kor::UniString& newText) { text = newText; }
        bool                  IsEnabled () const { return isEnabled; }
        void                  SetIsEnabled (bool enabled) { isEnabled = enabled; }
        bool                  IsSeparator () const { return isSeparator; }
        void                  SetIsSeparator (bool separator) { isSeparator = separator; }
        const Kor::Ref<Kor::Object, Kor::Counter>& GetUserData () const { return userData; }
        void SetUserData (const Kor::Ref<Kor::Object, Kor::Counter>& data) { userData = data; }

    private:
        Wg::Icon                            icon;
        Kor::UniString                      text;
        bool                                isEnabled = true;
        bool                                isSeparator = false;
        Kor::Ref<Kor::Object, Kor::Counter> userData;
    };

    static constexpr std::uint32_t NoIconColumnPopupItem = 0xFFFFFFFF;

    // Copies every field as it stands, the list link, row and in-place controls included;
    // observers are not copied.
    AttributeListItem (const AttributeListItem& source);
    AttributeListItem& operator= (const AttributeListItem& source);

    // --- Virtual operations, in slot order ---
    virtual ~AttributeListItem ();
    virtual void AssignToList (AttributeList* newList);
    virtual void DetachListItemFromList ();
    virtual void DrawListItem (short row) const;
    virtual void InitializeOnTabItems () const;
    virtual void IntEditChanged (const Wg::IntEditChangeEvent& event);
    virtual void PosIntEditChanged (const Wg::PosIntEditChangeEvent& event);
    virtual void ItemClicked (const Wg::ListBoxClickEvent& event);
    virtual void ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled);
    virtual void Pk257Changed (const Wg::UserControlChangeEvent& event);
    virtual void Pk257TrackEntered (const Wg::UserControlTrackEvent& event);
    virtual void Pk257Tracked (const Wg::UserControlTrackEvent& event);
    virtual void Pk257TrackExited (const Wg::UserControlTrackEvent& event);
    virtual void Pk261Changed (const Wg::UserControlChangeEvent& event);
    virtual void Pk261TrackEntered (const Wg::UserControlTrackEvent& event);
    virtual void Pk261Tracked (const Wg::UserControlTrackEvent& event);
    virtual void Pk261TrackExited (const Wg::UserControlTrackEvent& event);
    virtual void CheckItemChanged (const Wg::CheckItemChangeEvent& event);
    virtual void UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event);
    virtual void UpdatePreviewItem (const Wg::ListBoxItemUpdateEvent& event);
    virtual void SliderChanged (const Wg::BarControlChangeEvent& event);
    virtual void SliderTracked (const Wg::BarControlTrackEvent& event);
    virtual void PkPopupControlChanged (const Wg::UserControlChangeEvent& event);
    virtual void PkPopupControlTrackEntered (const Wg::UserControlTrackEvent& event);
    virtual void PkPopupControlTracked (const Wg::UserControlTrackEvent& event);
    virtual void PkPopupControlTrackExited (const Wg::UserControlTrackEvent& event);
    virtual void TextEditChanged (const Wg::TextEditChangeEvent& event);
    virtual void RealEditChanged (const Wg::RealEditChangeEvent& event);
    virtual void ButtonClicked (const Wg::ButtonClickEvent& event);
    virtual Kor::UniString GetToolTip ();
    virtual bool           IsOwnerDrawn () const;
    // The text the item shows in a column, for automated UI testing; only the list may ask.
    virtual Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column);
    virtual void           SetStatus (bool newStatus);
    virtual void           SetVisibility (bool newVisibility);
    virtual bool           HasFocusedEditField ();
    virtual void           SetSelection (Kor::Range<int> selection);
    virtual Kor::UniString GetLastText ();

    // --- Observers ---
    void Attach (AttributeListItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // Runs a modal popup opened from this item's row with the rows drawn while it is open (see
    // AttributeList::RunModalWithRowsDrawn); outside a list it just runs it.
    void RunModalWithRowsDrawn (const std::function<void ()>& run) const;

    // --- Fields ---
    const Kor::UniString& GetName () const { return name; }
    // A changed name refreshes the row when the item is in a list.
    void SetName (const Kor::UniString& newName);
    void SetIcon (const Wg::Icon& newIcon);
    bool GetStatus () const { return status; }
    bool IsVisible () const { return visible; }
    int  GetUserData () const { return userData; }
    void SetUserData (int data) { userData = data; }
    void SetDefaultToolTip (const Kor::UniString& toolTip) { defaultToolTip = toolTip; }
    // Takes effect at the next refresh of the row.
    void SetCustomBgColor (const Gfx::Color& color);

    void SetIconColumnPopupItems (const Kor::Array<PopupItem>& items) { iconColumnPopupItems = items; }
    const Kor::Array<PopupItem>& GetIconColumnPopupItems () const { return iconColumnPopupItems; }
    std::uint32_t GetSelectedIconColumnPopupItemIndex () const { return selectedIconColumnPopupItemIndex; }
    // 0-based; takes effect at the next refresh.
    void SetSelectedIconColumnPopupItemIndex (std::uint32_t index) { selectedIconColumnPopupItemIndex = index; }
    // Null when the selected index is out of range.
    Kor::Ref<Kor::Object, Kor::Counter> GetSelectedIconColumnPopupItemUserData () const;

    bool IsSelected () const;
    // Selects the item's row and places its in-place controls; with setFocus the focus goes
    // into its edit control.
    void Select (bool setFocus);
    // Scrolls the item's row to the top.
    void SetFirstVisible ();
    Kor::Range<int> GetLastSelection () const { return lastSelection; }

    // Column indexes of the owning list (valid while attached; 0 otherwise).
    short GetGroupTriangleColumnIndex () const;
    short GetAttributeIconColumnIndex () const;
    short GetAttributeTypeColumnIndex () const;
    short GetAttributeNameColumnIndex () const;
    short GetPreviewColumnIndex () const;
    short GetCheckColumnIndex () const;

protected:
    AttributeListItem (const Kor::UniString& name, const Wg::Icon& icon, bool status);

    // The icon of the selected icon-column popup entry, else the item's own icon.
    Wg::Icon       GetIcon () const;
    AttributeList* GetAttributeList () const { return list; }
    // The list's list box, or null when not attached.
    Wg::ListBox*   GetListBox () const;
    unsigned       GetListBoxIndex () const { return listBoxIndex; }
    void           SetListBoxIndex (unsigned index) { listBoxIndex = index; }
    bool           IsOwnCreated () const { return ownCreated; }
    void           SetOwnCreated () { ownCreated = true; }
    void           SetOnTabItems (OnTabItems& items) { onTabItems = &items; }
    OnTabItems*    GetOnTabItems () const { return onTabItems; }
    // Redraws the item's row. Placing the row's controls again moves the focus, which may
    // commit typing elsewhere and run observers: returns whether the item survived.
    bool           RefreshItem (bool redraw) const;
    void           FullRefreshList () const;
    void           IconColumnPopupChanged ();
    void           UpdateHeaderBgColor (short row) const;
    void           SetLastSelection (Kor::Range<int> selection) { lastSelection = selection; }
    // The list row as a signed 16-bit value: rows are only those above 0.
    short          GetRow () const { return static_cast<short> (listBoxIndex); }

    // Text drawing into owner-drawn rows and cells: the text between two x positions of the
    // event's rectangle, greyed when the item is disabled.
    void DrawText (const Wg::ListBoxItemUpdateEvent& event, const Kor::UniString& text, short begin, short end) const;
    void DrawText (const Wg::ListBoxTabItemUpdateEvent& event, const Kor::UniString& text) const;
    void DrawText (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Kor::UniString& text, short begin, short end,
                   int fontStyle = 0) const;
    void DrawTextWithStatus (Gfx::DrawingContext& context, const Gfx::Rect& rect, const Kor::UniString& text, bool enabled,
                             int fontStyle = 0) const;

private:
    friend class AttributeList;
    friend class AttributeListGroupItem;
    friend class AttributeListSimpleItem;

    bool IsInIconColumn (int x) const;

    AttributeList*                list = nullptr;
    bool                          status;
    bool                          visible = true;
    Kor::UniString                name;
    Wg::Icon                      icon;
    std::uint32_t                 listBoxIndex = 0;
    bool                          ownCreated = false;
    std::int32_t                  userData = 0;
    Kor::UniString                defaultToolTip;
    bool                          hasCustomBgColor = false;
    Gfx::Color                    customBgColor;
    Kor::Range<int>               lastSelection {-1, -1};
    Kor::Array<PopupItem>         iconColumnPopupItems;
    std::uint32_t                 selectedIconColumnPopupItemIndex = NoIconColumnPopupItem;
    OnTabItems*                   onTabItems = nullptr;

    // What the list needs to know per row without a dynamic cast; set by the subclasses' constructors.
    enum class Kind : std::uint8_t { Other, Simple, Group };
    Kind                          kind = Kind::Other;
};

// The base of every single-row value item; it may stand in a group or on a group's row as
// its master.
class AttributeListSimpleItem : public AttributeListItem {
public:
    AttributeListSimpleItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);
    AttributeListSimpleItem (const AttributeListSimpleItem& source) = default;
    AttributeListSimpleItem& operator= (const AttributeListSimpleItem& source) = default;
    ~AttributeListSimpleItem () override;

    // --- Overrides of AttributeListItem ---
    void AssignToList (AttributeList* newList) override;

    // --- Virtual operations added, in slot order ---
    // The first column the item draws when it stands on its group's row.
    virtual short GetFirstDrawnColumnIfOnGroup () const;
    virtual void  ClearListItem (short row) const;

    AttributeListGroupItem* GetGroup () const { return group; }
    bool HasBoldText () const { return boldText; }
    // Stores and re-applies the font style at once.
    void SetBoldText (bool bold);
    bool GetOnTabItemVisibility () const { return onTabItemVisibility; }
    void SetOnTabItemVisibility (bool visibility);
    // Whether row is the row of this item's group (the item is shown on its group's row).
    bool IsOnGroup (short row) const;
    bool IsMasterOwnedByGroup () const { return masterOwnedByGroup; }

protected:
    void SetGroup (AttributeListGroupItem* newGroup) { group = newGroup; }
    void RefreshItemFontStyle ();

private:
    friend class AttributeList;
    friend class AttributeListGroupItem;

    bool                    boldText;
    std::int32_t            savedFontStyle = -1;
    AttributeListGroupItem* group = nullptr;
    bool                    onTabItemVisibility = true;
    bool                    masterOwnedByGroup = false;
};

}   // namespace TxAL
