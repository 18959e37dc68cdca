#pragma once
// AttributeList: the attribute list control. It lives on a host panel, owns (or binds) one
// single-selection list box with six fixed columns, owns the shared in-place controls
// (OnTabItems) that it lays over the selected row, and holds the top-level items.
//
// Rows are 1-based list-box rows; x offsets are list-box pixels. Structural changes go through
// the update counter (DisableUpdate/EnableUpdate); FullRefreshList rebuilds all rows only when
// the counter is 0.

#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "Kor/Event.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/AttributeListItems.hpp"
#include "TxAttributeList/OnTabControls.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Key.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"
#include "Wg/UserControl.hpp"

namespace TxAL {

class AttributeList;

// Hears list-wide events of an AttributeList: its row count, its selection, its overlay.
class AttributeListObserver : public virtual Kor::EventObserver {
public:
    // A full refresh changed the number of rows.
    virtual void AttributeListRequiredHeightChanged (const AttributeList& list);
    // The selection changed (after the in-place controls moved), also when the list selected a
    // row itself.
    virtual void AttributeListSelectionChanged (const AttributeList& list);
    // The list box asks for its overlay to be drawn.
    virtual void AttributeListOverlayUpdate (const AttributeList& list);
};

// The attribute list control on a host panel: owns (or binds) its list box and the shared
// in-place controls, holds the top-level items and turns user input into item operations.
class AttributeList : private Kor::EventSource,
                      public Wg::PanelObserver,
                      public Wg::ListBoxObserver,
                      public Wg::TextEditObserver,
                      public Wg::RealEditObserver,
                      public Wg::IntEditObserver,
                      public Wg::PosIntEditObserver,
                      public Wg::UserControlObserver,
                      public Wg::BarControlObserver,
                      public Wg::ButtonItemObserver,
                      public Wg::CheckItemObserver,
                      public Wg::KeyboardHandler {
public:
    enum HeaderType : short { NoHeader = 0, SynchronizedHeader = 1, OwnHeader = 2 };
    enum EditableColumnNum : short { NameColumn = 1, ValueColumn = 2 };

    // Construction parameters, with chained setters.
    class OptionalParameters {
    public:
        OptionalParameters () = default;

        OptionalParameters& SetScrollType (Wg::ListBox::ScrollType value) { scrollType = value; return *this; }
        OptionalParameters& SetTextEditMaxLength (short value) { textEditMaxLength = value; return *this; }
        OptionalParameters& SetHeaderString1 (const Kor::UniString& value) { headerString1 = value; return *this; }
        OptionalParameters& SetHeaderString2 (const Kor::UniString& value) { headerString2 = value; return *this; }
        OptionalParameters& SetHeaderType (HeaderType value) { headerType = value; return *this; }
        OptionalParameters& SetHasGroupColumn (bool value) { hasGroupColumn = value; return *this; }
        OptionalParameters& SetHasIconColumn (bool value) { hasIconColumn = value; return *this; }
        OptionalParameters& SetIconColumnWidth (short value) { iconColumnWidth = value; return *this; }
        OptionalParameters& SetIsVisible (bool value) { isVisible = value; return *this; }
        OptionalParameters& SetEditControlAutoUpdate (bool value) { editControlAutoUpdate = value; return *this; }
        OptionalParameters& SetResizeableColumnsRatio (double value) { resizeableColumnsRatio = value; return *this; }
        OptionalParameters& SetKeepResizableColumnsRatio (bool value) { keepResizableColumnsRatio = value; return *this; }

        Wg::ListBox::ScrollType GetScrollType () const { return scrollType; }
        short                   GetTextEditMaxLength () const { return textEditMaxLength; }
        const Kor::UniString&   GetHeaderString1 () const { return headerString1; }
        const Kor::UniString&   GetHeaderString2 () const { return headerString2; }
        HeaderType              GetHeaderType () const { return headerType; }
        bool                    HasGroupColumn () const { return hasGroupColumn; }
        bool                    HasIconColumn () const { return hasIconColumn; }
        short                   GetIconColumnWidth () const { return iconColumnWidth; }
        bool                    IsVisible () const { return isVisible; }
        bool                    GetEditControlAutoUpdate () const { return editControlAutoUpdate; }
        double                  GetResizeableColumnsRatio () const { return resizeableColumnsRatio; }
        bool                    GetKeepResizableColumnsRatio () const { return keepResizableColumnsRatio; }

    private:
        Wg::ListBox::ScrollType scrollType = Wg::ListBox::VScroll;
        short                   textEditMaxLength = 64;
        Kor::UniString          headerString1;
        Kor::UniString          headerString2;
        HeaderType              headerType = SynchronizedHeader;
        bool                    hasGroupColumn = true;
        bool                    hasIconColumn = true;
        short                   iconColumnWidth = 40;
        bool                    isVisible = true;
        bool                    editControlAutoUpdate = true;
        double                  resizeableColumnsRatio = 0.64;
        bool                    keepResizableColumnsRatio = false;
    };

    // Keeps the user typing across a rebuild: if an in-place edit had the focus when the guard
    // was made, the focus returns to the (new) edit of the selected row when it ends.
    class AttributeListEditFocusGuard {
    public:
        explicit AttributeListEditFocusGuard (AttributeList& list);
        ~AttributeListEditFocusGuard ();
        AttributeListEditFocusGuard (const AttributeListEditFocusGuard&) = delete;
        AttributeListEditFocusGuard& operator= (const AttributeListEditFocusGuard&) = delete;

    private:
        AttributeList& list;
        bool           wasFocused;
    };

    static constexpr short  AttributeTypeColumnMinSize = 40;
    static constexpr short  AttributeNameColumnMinSize = 40;
    static constexpr short  PreviewColumnSize = 100;
    static constexpr short  CheckColumnSize = 20;
    static constexpr double defaultResizeableColumnsRatio = 0.64;
    static constexpr double resizeableColumnsResizeRatio = 0.3;
    static constexpr short  resizeableColumnsOriginalSize = 287;

    // On the panel's existing list box with that id.
    AttributeList (const Wg::Panel& panel, short itemId, const OptionalParameters& params);
    AttributeList (const Wg::Panel& panel, short itemId);
    // On a new list box at the rectangle.
    AttributeList (const Wg::Panel& panel, short x, short y, short width, short height, const OptionalParameters& params);
    AttributeList (const Wg::Panel& panel, short x, short y, short width, short height);
    AttributeList (const AttributeList&) = delete;
    AttributeList& operator= (const AttributeList&) = delete;
    ~AttributeList () override;

    void Attach (AttributeListObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListObserver& observer) { Kor::EventSource::Detach (observer); }

    // --- Geometry and layout ---
    void     SetRect (const Wg::Rect& rect);
    void     MoveAndResize (short dx, short dy, short dWidth, short dHeight);
    void     Resize (short dWidth, short dHeight);
    void     Move (short dx, short dy);
    Wg::Rect GetRect () const;
    Wg::Rect GetNativeRectInScreenSpace () const;
    short    GetRequiredHeight () const;
    void     LayoutTabs ();
    void     LayoutTabs (short width);
    double   GetResizeableColumnsRatio () const { return resizeableColumnsRatio; }
    HeaderType GetHeaderType () const { return headerType; }
    short    GetGroupColumnWidth () const { return groupColumnWidth; }
    short    GetIconColumnWidth () const { return iconColumnWidth; }

    // --- Columns ---
    short GetGroupTriangleColumnIndex () const { return groupTriangleColumnIndex; }
    short GetAttributeIconColumnIndex () const { return attributeIconColumnIndex; }
    short GetAttributeTypeColumnIndex () const { return attributeTypeColumnIndex; }
    short GetAttributeNameColumnIndex () const { return attributeNameColumnIndex; }
    short GetPreviewColumnIndex () const { return previewColumnIndex; }
    short GetCheckColumnIndex () const { return checkColumnIndex; }
    void              SetEditableColumnNum (EditableColumnNum column) { editableColumnNum = column; }
    EditableColumnNum GetEditableColumnNum () const { return editableColumnNum; }

    // --- Items ---
    // Appends without a rebuild: end the batch with FullRefreshList.
    void AddListItem (AttributeListItem& item);
    void AddListItem (AttributeListItem* item);
    void RemoveListItem (AttributeListItem* item) { DeleteListItem (item, true); }
    void DeleteListItem (AttributeListItem* item, bool deleteIfOwnCreated);
    void DetachListItemFromList (AttributeListItem* item);
    void ClearList (bool refresh);
    bool IsEmpty () const { return items.IsEmpty (); }
    const Kor::Array<AttributeListItem*>& GetItems () const { return items; }

    AttributeListGroupItem* CreateGroup (const Kor::UniString& name, const Wg::Icon& icon, bool expanded, bool status);

    // Own-created items, shown at once; the arguments are the item's constructor arguments.
    // Null when the item cannot be created.
    AttributeListTextItem* CreateTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                           bool autoCustomHandling, bool editable, bool valueListEnabled, bool status, bool boldText);
    AttributeListTaggedTextItem* CreateTaggedTextItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                       bool autoCustomHandling, bool editable, bool valueListEnabled, bool status,
                                                       bool boldText, const Kor::UniString& tagText);
    AttributeListSelectionItem* CreateSelectionItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);
    AttributeListDictionaryItem* CreateDictionaryItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                       bool status, bool boldText);
    AttributeListRealItem*   CreateRealItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                             double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListLengthItem* CreateLengthItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                               double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListAreaItem*   CreateAreaItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                             double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListVolumeItem* CreateVolumeItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                               double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListAngleItem*  CreateAngleItem (const Kor::UniString& name, const Wg::Icon& icon, double minValue, double maxValue,
                                              double value, bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListIntItem*    CreateIntItem (const Kor::UniString& name, const Wg::Icon& icon, int minValue, int maxValue, int value,
                                            bool editable, bool status, bool boldText, const Kor::UniString& tagText = {});
    AttributeListCheckItem*  CreateCheckItem (const Kor::UniString& name, const Wg::Icon& icon, bool checked, const Kor::UniString& checkName,
                                              bool status, bool boldText);
    AttributeListButtonItem* CreateButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& buttonText, bool status,
                                               bool boldText);
    AttributeListIconButtonItem* CreateIconButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text,
                                                       const Kor::UniString& tagText, const Wg::Icon& buttonIcon, bool status, bool boldText);
    AttributeListSeparatorItem* CreateSeparatorItem ();
    AttributeListIntervalItem* CreateIntervalItem (const Kor::UniString& name, const Wg::Icon& icon, double intervalBeg, double intervalEnd,
                                                   const Kor::UniString& betweenText, bool endHidden, bool status, bool boldText);
    // Pen and attribute picker rows; the provider is not owned.
    AttributeListPenItem*  CreatePenItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                          AttributeListPenItem::SubType subType, short pen, bool status, bool boldText);
    AttributeListFillItem* CreateFillItem (const Kor::UniString& name, const Wg::Icon& icon, const Wg::Icon& customIcon,
                                           const ADB::IAttributeSetProvider* provider, AttributeListFillItem::SubType subType,
                                           const ADB::AttributeIndex& index, short foregroundPen, short backgroundPen, short contourPen,
                                           short separatorPen, bool status, bool boldText);
    AttributeListLineTypeItem* CreateLineTypeItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                   AttributeListLineTypeItem::SubType subType, const ADB::AttributeIndex& index, bool status,
                                                   bool boldText);
    AttributeListProfileItem* CreateProfileItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                 AttributeListProfileItem::SubType subType, const ADB::AttributeIndex& index,
                                                 const TxAC::ProfileControlData* controlData, bool status, bool boldText);
    AttributeListMaterialItem* CreateMaterialItem (const Kor::UniString& name, const Wg::Icon& icon, const ADB::IAttributeSetProvider* provider,
                                                   const ADB::AttributeIndex& index, bool status, bool boldText);
    AttributeListBuildingMaterialItem* CreateBuildingMaterialItem (const Kor::UniString& name, const Wg::Icon& icon,
                                                                   const ADB::IAttributeSetProvider* provider, const ADB::AttributeIndex& index,
                                                                   bool status, bool boldText);
    void CollapseAllGroups ();
    void ExpandAllGroups ();

    // --- Refresh ---
    void RefreshItem (const AttributeListItem& item, bool redraw);
    void FullRefreshList (bool selectFirst);
    void DisableUpdate ();
    void EnableUpdate ();
    bool UpdateIsEnabled () const { return updateCounter == 0; }
    void DisableDraw ();
    void EnableDraw ();
    void DisableAllItems ();
    bool EnableAllItems ();

    // --- The list box ---
    void         SetStatus (bool enable);
    bool         IsEnabled () const;
    void         Show ();
    void         Hide ();
    bool         IsVisible () const;
    Wg::ListBox& GetListBox () const { return *listBox; }
    short        GetListBoxId () const;

    AttributeListItem* GetFirstVisibleItem () const;
    void               SetFirstVisibleItem (AttributeListItem* item);
    // The first row showing the item (or the group whose master it is); -1 when none.
    short GetFirstListBoxIndex (const AttributeListItem* item) const;
    // The header background for rows without a custom colour (asked once, then cached).
    Gfx::Color GetDefaultHeaderBgColor (short row, const AttributeListItem* item) const;

    // The text shown in a cell of any live list, for automated UI testing.
    static Kor::UniString GetDrawnTextContentForKorAT (short panelId, short listBoxId, short row, short column);

    // --- Editing and focus ---
    bool SetOnTabItems ();
    void SetFocusToEditControl ();
    bool IsEditControlFocused () const;
    bool IsListFocused () const;
    AttributeListItem*      GetSelectedItem () const;
    std::optional<Wg::Rect> GetSelectedItemRect () const;
    void SelectItem (AttributeListItem* item, bool setFocus);
    OnTabItems& GetOnTabItems () const { return *onTabItems; }
    // Runs a modal popup (run) with the rows drawn while it is open. The handler that opens a
    // popup may hold the list's drawing, yet the rows must follow the popup (the preview of the
    // entry under the pointer, ticks) as the user browses; the hold is back when run returns.
    void RunModalWithRowsDrawn (const std::function<void ()>& run);

    // Whether a control stands over a column of the list box now: Is<Name>OnTabItemVisible for
    // every control of the table that asks for a query (IsLengthEditOnTabItemVisible, ...).
#define TXAL_ON_TAB_QUERY(Class, Name, FocusRank, Query, ...) TXAL_ON_TAB_IF_##Query (bool Is##Name##OnTabItemVisible () const;)
    TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_QUERY)
#undef TXAL_ON_TAB_QUERY

    // --- Keyboard (the list's low-level handler) ---
    Wg::KeyResult KeyPressed (const Wg::Key::Code& key, Wg::Item** sourceItem) override;
    Wg::KeyResult KeyPressed (const Wg::Key::Modifier& modifier, Wg::Item** sourceItem) override;

protected:
    // Marks a new item own-created, appends it and rebuilds the list.
    void InitOwnCreatedItem (AttributeListItem* item);

    // Creates an own-created top-level item of type T; null (with updates left suspended)
    // when it cannot be allocated.
    template <typename T, typename... Args>
    T* CreateOwnedItem (Args&&... args);

private:
    class DrawSuspension;
    friend class AttributeListItem;
    friend class AttributeListGroupItem;
    friend class AttributeListSimpleItem;

    AttributeList (const Wg::Panel& panel, bool bindExisting, Wg::ListBox* existing, const Wg::Rect& rect,
                   const OptionalParameters& params);
    void Init (bool visible, const OptionalParameters& params);
    void InitHeader (const OptionalParameters& params);
    void SetColumnFormatting ();
    void CalculateResizeableColumnsRatio ();
    void AssignListItemToList (AttributeListItem* item, short row);
    // DeleteListItem for an item known to be one of the top-level items.
    void RemoveTopLevelItem (AttributeListItem* item, bool deleteIfOwnCreated);
    void AppendRowFor (AttributeListItem* item);
    // The lowest row above `after` that holds the item or the group (null: none), or 0.
    short NextRowOf (const AttributeListItem* item, const AttributeListItem* group, short after) const;
    void RemoveOnTabItemsFromAllColumns ();
    AttributeListItem* GetItemOfRow (short row) const;
    AttributeListItem* GetSelectedRowItem () const { return GetItemOfRow (listBox->GetSelectedItem ()); }
    void NotifySelectionChanged ();
    // Sends what the user typed into the focused in-place edit before an operation takes the
    // edit away; the focus stays. Runs observers: callers check what survived.
    void CommitEditing ();
    // Whether the row's item (and, on a group's row, its master) is enabled, and the row too.
    bool IsRowEditable (short row) const;
    // Whether the user is typing into one of the edits placed on the selected row.
    bool IsTypingInPlacedEdit () const;
    bool IsOnTabControl (const Wg::Item* item) const;
    Wg::KeyResult MoveSelection (short step);
    // Opens the popup of a pen, fill, profile or line type row (Down with the popup
    // modifier); false for other rows.
    bool          OpenPopupByKeyboard (AttributeListItem* item);

    // Runs fn(item) on the selected row's item under draw suspension, then redraws its cells.
    template <typename Fn>
    void DispatchToSelectedItem (Fn&& fn);

    // --- Overrides of the widget observers ---
    void PanelScaleChanged (const Wg::PanelScaleChangeEvent& event) override;
    void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& event) override;
    void ListBoxClicked (const Wg::ListBoxClickEvent& event) override;
    void ListBoxDoubleClicked (const Wg::ListBoxDoubleClickEvent& event) override;
    void ListBoxItemUpdate (const Wg::ListBoxItemUpdateEvent& event) override;
    void ListBoxTabFieldUpdate (const Wg::ListBoxTabItemUpdateEvent& event) override;
    void ListBoxOverlayUpdate (const Wg::ListBoxOverlayUpdateEvent& event) override;
    void ListBoxHeaderItemResized (const Wg::ListBoxHeaderItemResizeEvent& event) override;
    void ItemToolTipRequested (const Wg::ItemHelpEvent& event, Kor::UniString* text) override;
    void TextEditChanged (const Wg::TextEditChangeEvent& event) override;
    void RealEditChanged (const Wg::RealEditChangeEvent& event) override;
    void IntEditChanged (const Wg::IntEditChangeEvent& event) override;
    void PosIntEditChanged (const Wg::PosIntEditChangeEvent& event) override;
    void UserControlChanged (const Wg::UserControlChangeEvent& event) override;
    void UserControlTrackEntered (const Wg::UserControlTrackEvent& event) override;
    void UserControlTracked (const Wg::UserControlTrackEvent& event) override;
    void UserControlTrackExited (const Wg::UserControlTrackEvent& event) override;
    void BarControlChanged (const Wg::BarControlChangeEvent& event) override;
    void BarControlTracked (const Wg::BarControlTrackEvent& event) override;
    void ButtonClicked (const Wg::ButtonClickEvent& event) override;
    void CheckItemChanged (const Wg::CheckItemChangeEvent& event) override;

    Wg::Panel&                     panel;
    std::unique_ptr<OnTabItems>    onTabItems;
    std::unique_ptr<Wg::ListBox>   ownListBox;       // when the list made its list box
    Wg::ListBox*                   listBox = nullptr;
    Kor::Array<AttributeListItem*> items;
    HeaderType                     headerType = NoHeader;
    std::int16_t                   updateCounter = 0;
    std::int16_t                   drawSuspensionDepth = 0;
    EditableColumnNum              editableColumnNum = ValueColumn;
    double                         resizeableColumnsRatio;
    bool                           keepResizableColumnsRatio;
    short                          groupTriangleColumnIndex = 1;
    short                          attributeIconColumnIndex = 2;
    short                          attributeTypeColumnIndex = 3;
    short                          attributeNameColumnIndex = 4;
    short                          previewColumnIndex = 5;
    short                          checkColumnIndex = 6;
    short                          groupColumnWidth;
    short                          iconColumnWidth;
    mutable bool                   hasDefaultHeaderColor = false;
    mutable Gfx::Color             defaultHeaderColor;
};

template <typename T, typename... Args>
T* AttributeList::CreateOwnedItem (Args&&... args)
{
    DisableUpdate ();
    T* item = new (std::nothrow) T (std::forward<Args> (args)...);
    if (item == nullptr) return nullptr;
    InitOwnCreatedItem (item);
    return item;
}

// Keeps the selected item selected across a rebuild, wherever its row ends up, with the focus
// back in its edit if it had it. Forgets the item if it is destroyed meanwhile.
class AttributeListSaveSelectionGuard : public AttributeListItemObserver {
public:
    explicit AttributeListSaveSelectionGuard (AttributeList& list);
    ~AttributeListSaveSelectionGuard () override;
    AttributeListSaveSelectionGuard (const AttributeListSaveSelectionGuard&) = delete;
    AttributeListSaveSelectionGuard& operator= (const AttributeListSaveSelectionGuard&) = delete;

    void SourceDestroyed (Kor::EventSource& source) override;

private:
    AttributeList&     list;
    AttributeListItem* item = nullptr;
    bool               hadFocusedEditField = false;
};

}   // namespace TxAL
