// AttributeList: in-place editing, control events, focus, tool tips and keyboard.
//
// How host events reach items:
//   ListBoxSelectionChanged  -> SetOnTabItems -> item.InitializeOnTabItems; observers hear
//                               AttributeListSelectionChanged
//   ListBoxClicked           -> item.ItemClicked (selected row)
//   ListBoxDoubleClicked     -> item.ItemDoubleClicked (under draw suspension)
//   ListBoxItemUpdate        -> item.UpdatePreviewItem (row of the event)
//   ListBoxTabFieldUpdate    -> item.UpdatePreviewTab (row of the event)
//   edit / user control / slider / button / check box events
//                            -> DispatchToSelectedItem -> item handler of the same kind, then
//                               item.DrawListItem (selected row)
//   KeyPressed (the list's keyboard handler) -> arrows, space, popup modifier; Left/Right with
//                               the modifier step a slider row (StepSlider)

#include <algorithm>
#include <cstdint>
#include <limits>

#include "DrawSuspension.hpp"
#include "Kor/Assert.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributePickerItems.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/PenItem.hpp"
#include "TxAttributeList/ValueItems.hpp"

namespace TxAL {

namespace {

constexpr const char* AssertPrefix = "TxAL error";
constexpr const char* SourceFile = "AttributeList";

// The modifier that opens popups, as the host's key state query names it.
constexpr int PopupModifierKey = 2;
constexpr int KeyStateDown = 1;
constexpr char16_t SpaceCharacter = 32;

// One arrow-key step of a slider row: the strategy may adjust the proposal, the bounds hold.
void StepSlider (AttributeListSliderItem& slider, int step)
{
    // Taken in 64 bits so that a step beyond the 32-bit range ends at its edge.
    const std::int64_t stepped = std::clamp<std::int64_t> (std::int64_t {slider.GetValue ()} + step, std::numeric_limits<int>::min (),
                                                           std::numeric_limits<int>::max ());
    int proposed = static_cast<int> (stepped);
    if (AttributeListSliderItemStrategy* strategy = slider.GetStrategy ()) proposed = strategy->SliderStepped (slider, proposed);
    // The minimum is tested first, so that inverted bounds cannot fail the clamp.
    if (proposed < slider.GetMinValue ())
        proposed = slider.GetMinValue ();
    else if (proposed > slider.GetMaxValue ())
        proposed = slider.GetMaxValue ();
    slider.SetValue (proposed);
}

}   // namespace

template <typename Fn>
void AttributeList::DispatchToSelectedItem (Fn&& fn)
{
    AttributeListItem* item = GetSelectedRowItem ();
    if (item == nullptr) return;
    DrawSuspension suspension (*this);
    Kor::LifeWatch alive {item, this};
    fn (*item);
    // An observer may have deleted the item or the list, or the rows may have moved.
    if (alive.IsGone ()) return;
    const short row = listBox->GetSelectedItem ();
    if (row > 0 && GetItemOfRow (row) == item) item->DrawListItem (row);
}

void AttributeList::RunModalWithRowsDrawn (const std::function<void ()>& run)
{
    // Drawing suspensions are scoped, so those begun inside the popup have ended when it
    // returns; the outer hold is taken again then, unless the popup's observers destroyed the list.
    class HoldAgain {
    public:
        explicit HoldAgain (AttributeList& list) : list (list), depth (list.drawSuspensionDepth), listLife (list) {}
        ~HoldAgain ()
        {
            if (depth == 0 || listLife.IsGone ()) return;
            list.drawSuspensionDepth = depth;
            list.listBox->DisableDraw ();
        }
        std::int16_t GetDepth () const { return depth; }

    private:
        AttributeList& list;
        std::int16_t   depth;
        Kor::LifeWatch listLife;
    } hold (*this);
    if (hold.GetDepth () > 0) {
        drawSuspensionDepth = 0;
        listBox->EnableDraw ();
    }
    run ();
}

// --- In-place controls and focus ---

bool AttributeList::SetOnTabItems ()
{
    AttributeListItem* item = GetSelectedRowItem ();
    if (item == nullptr) return false;
    Kor::LifeWatch alive {this, item};
    item->SetOnTabItems (*onTabItems);
    item->InitializeOnTabItems ();
    if (alive.IsGone ()) return false;
    // A disabled row takes no user change: every control it placed is greyed, and a row that
    // can be edited again gets its controls back enabled.
    const short row = listBox->GetSelectedItem ();
    const bool editable = IsRowEditable (row);
    const short count = listBox->GetTabFieldCount ();
    for (short column = 1; column <= count; ++column) {
        Wg::Item* control = listBox->GetOnTabItem (column);
        if (control == nullptr || control->IsEnabled () == editable) continue;
        if (editable)
            control->Enable ();
        else
            control->Disable ();
        if (alive.IsGone ()) return false;
    }
    return true;
}

bool AttributeList::IsRowEditable (short row) const
{
    // What the user sees decides: the row's greying and the status of the item that edits on
    // it (a group's master on the group's row), which may be newer than the row's greying.
    const AttributeListItem* item = GetItemOfRow (row);
    if (item == nullptr || !listBox->IsEnabled () || !listBox->IsItemEnabled (row)) return false;
    if (item->kind == AttributeListItem::Kind::Group) {
        if (const AttributeListSimpleItem* master = static_cast<const AttributeListGroupItem*> (item)->GetMasterItem ())
            return master->GetStatus ();
    }
    return item->GetStatus ();
}

bool AttributeList::IsTypingInPlacedEdit () const
{
    const Wg::Item* focused = panel.GetFocusedItem ();
    return focused != nullptr && IsEditControlFocused () && listBox->IsOnTabItem (*focused);
}

void AttributeList::SetFocusToEditControl ()
{
    for (Wg::Item* control : onTabItems->GetFocusOrder ()) {
        if (listBox->IsOnTabItem (*control)) {
            control->SetFocus ();
            return;
        }
    }
}

bool AttributeList::IsEditControlFocused () const
{
    const OnTabItems::Control* control = onTabItems->FindControl (panel.GetFocusedItem ());
    return control != nullptr && control->isEdit;
}

bool AttributeList::IsOnTabControl (const Wg::Item* item) const
{
    return onTabItems->FindControl (item) != nullptr;
}

bool AttributeList::IsListFocused () const
{
    const Wg::Item* focused = panel.GetFocusedItem ();
    return focused != nullptr && (focused == listBox || IsOnTabControl (focused));
}

AttributeListItem* AttributeList::GetSelectedItem () const
{
    return GetSelectedRowItem ();
}

std::optional<Wg::Rect> AttributeList::GetSelectedItemRect () const
{
    const short row = listBox->GetSelectedItem ();
    if (row < 1) return std::nullopt;
    return listBox->GetItemRect (row);
}

void AttributeList::SelectItem (AttributeListItem* item, bool setFocus)
{
    if (item == nullptr) return;
    if (item->list != nullptr && item->list != this) {
        Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "item belongs to this list");
        return;
    }
    item->Select (setFocus);
}

void AttributeList::RemoveOnTabItemsFromAllColumns ()
{
    const short count = listBox->GetTabFieldCount ();
    // Removing a focused control commits its typing, whose observers may destroy the list.
    Kor::LifeWatch alive (*this);
    for (short column = 1; column <= count && alive.IsAlive (); ++column) listBox->RemoveOnTabItem (column);
}

void AttributeList::CommitEditing ()
{
    if (!IsEditControlFocused ()) return;
    if (auto* edit = dynamic_cast<Wg::TypingEdit*> (panel.GetFocusedItem ())) edit->Commit ();
}

void AttributeList::NotifySelectionChanged ()
{
    NotifyObservers<AttributeListObserver> ([this] (AttributeListObserver& o) { o.AttributeListSelectionChanged (*this); });
}

#define TXAL_ON_TAB_QUERY(Class, Name, FocusRank, Query, ...) \
    TXAL_ON_TAB_IF_##Query (bool AttributeList::Is##Name##OnTabItemVisible () const { return listBox->IsOnTabItem (onTabItems->Get##Name ()); })
TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_QUERY)
#undef TXAL_ON_TAB_QUERY

// --- Panel and list box events ---

void AttributeList::PanelScaleChanged (const Wg::PanelScaleChangeEvent&)
{
    RemoveOnTabItemsFromAllColumns ();
    LayoutTabs ();
}

void AttributeList::ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent&)
{
    SetOnTabItems ();
    NotifySelectionChanged ();
}

void AttributeList::ListBoxClicked (const Wg::ListBoxClickEvent& event)
{
    AttributeListItem* item = GetSelectedRowItem ();
    if (item == nullptr) return;
    item->SetOnTabItems (*onTabItems);
    item->ItemClicked (event);
}

void AttributeList::ListBoxDoubleClicked (const Wg::ListBoxDoubleClickEvent& event)
{
    AttributeListItem* item = GetSelectedRowItem ();
    if (item == nullptr) return;
    DrawSuspension suspension (*this);
    bool handled = false;
    item->ItemDoubleClicked (event, &handled);
}

void AttributeList::ListBoxItemUpdate (const Wg::ListBoxItemUpdateEvent& event)
{
    if (AttributeListItem* item = GetItemOfRow (event.GetListItem ())) item->UpdatePreviewItem (event);
}

void AttributeList::ListBoxTabFieldUpdate (const Wg::ListBoxTabItemUpdateEvent& event)
{
    if (AttributeListItem* item = GetItemOfRow (event.GetListItem ())) item->UpdatePreviewTab (event);
}

void AttributeList::ListBoxOverlayUpdate (const Wg::ListBoxOverlayUpdateEvent& event)
{
    if (event.GetSource () != listBox) Kor::ReportAssertFailure (AssertPrefix, SourceFile, __LINE__, "ev.GetSource () == &mListBox");
    NotifyObservers<AttributeListObserver> ([this] (AttributeListObserver& o) { o.AttributeListOverlayUpdate (*this); });
}

void AttributeList::ListBoxHeaderItemResized (const Wg::ListBoxHeaderItemResizeEvent&)
{
    CalculateResizeableColumnsRatio ();
}

void AttributeList::ItemToolTipRequested (const Wg::ItemHelpEvent& event, Kor::UniString* text)
{
    if (text == nullptr) return;
    if (event.GetSource () == listBox) {
        const short row = event.GetSubItem ();
        if (row < 1 || row > listBox->GetItemCount ()) return;
        if (AttributeListItem* item = GetItemOfRow (row)) *text = item->GetToolTip ();
        return;
    }
    if (IsOnTabControl (event.GetSource ())) {
        if (AttributeListItem* item = GetSelectedRowItem ()) *text = item->GetToolTip ();
    }
}

// --- Control events ---

void AttributeList::TextEditChanged (const Wg::TextEditChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.TextEditChanged (event); });
}

void AttributeList::RealEditChanged (const Wg::RealEditChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.RealEditChanged (event); });
}

void AttributeList::IntEditChanged (const Wg::IntEditChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.IntEditChanged (event); });
}

void AttributeList::PosIntEditChanged (const Wg::PosIntEditChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.PosIntEditChanged (event); });
}

void AttributeList::UserControlChanged (const Wg::UserControlChangeEvent& event)
{
    const Wg::UserControl* source = event.GetSource ();
    OnTabItems& c = *onTabItems;
    DispatchToSelectedItem ([&] (AttributeListItem& item) {
        if (source == &c.GetPk257 ()) {
            item.Pk257Changed (event);
        } else if (source == &c.GetPk261 ()) {
            item.Pk261Changed (event);
        } else if (source == &c.GetPopupControl ()) {
            item.PkPopupControlChanged (event);
        } else if (source == &c.GetIconColumnPopup ()) {
            // The popup was placed by the master when the row is a group's.
            AttributeListItem* target = &item;
            if (item.kind == AttributeListItem::Kind::Group) {
                if (AttributeListSimpleItem* master = static_cast<AttributeListGroupItem&> (item).GetMasterItem ()) target = master;
            }
            target->IconColumnPopupChanged ();
        }
    });
}

void AttributeList::UserControlTrackEntered (const Wg::UserControlTrackEvent& event)
{
    const Wg::UserControl* source = event.GetSource ();
    OnTabItems& c = *onTabItems;
    DispatchToSelectedItem ([&] (AttributeListItem& item) {
        if (source == &c.GetPk257 ())
            item.Pk257TrackEntered (event);
        else if (source == &c.GetPk261 ())
            item.Pk261TrackEntered (event);
        else if (source == &c.GetPopupControl ())
            item.PkPopupControlTrackEntered (event);
    });
}

void AttributeList::UserControlTracked (const Wg::UserControlTrackEvent& event)
{
    const Wg::UserControl* source = event.GetSource ();
    OnTabItems& c = *onTabItems;
    DispatchToSelectedItem ([&] (AttributeListItem& item) {
        if (source == &c.GetPk257 ())
            item.Pk257Tracked (event);
        else if (source == &c.GetPk261 ())
            item.Pk261Tracked (event);
        else if (source == &c.GetPopupControl ())
            item.PkPopupControlTracked (event);
    });
}

void AttributeList::UserControlTrackExited (const Wg::UserControlTrackEvent& event)
{
    const Wg::UserControl* source = event.GetSource ();
    OnTabItems& c = *onTabItems;
    DispatchToSelectedItem ([&] (AttributeListItem& item) {
        if (source == &c.GetPk257 ())
            item.Pk257TrackExited (event);
        else if (source == &c.GetPk261 ())
            item.Pk261TrackExited (event);
        else if (source == &c.GetPopupControl ())
            item.PkPopupControlTrackExited (event);
    });
}

void AttributeList::BarControlChanged (const Wg::BarControlChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.SliderChanged (event); });
}

void AttributeList::BarControlTracked (const Wg::BarControlTrackEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.SliderTracked (event); });
}

void AttributeList::ButtonClicked (const Wg::ButtonClickEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.ButtonClicked (event); });
}

void AttributeList::CheckItemChanged (const Wg::CheckItemChangeEvent& event)
{
    DispatchToSelectedItem ([&] (AttributeListItem& item) { item.CheckItemChanged (event); });
}

// --- Keyboard ---

Wg::KeyResult AttributeList::KeyPressed (const Wg::Key::Modifier& modifier, Wg::Item**)
{
    // Pressing the popup modifier alone is kept from the host while the list has the focus.
    return IsListFocused () && modifier.GetKey () == PopupModifierKey ? Wg::KeyHandled : Wg::KeyNotHandled;
}

Wg::KeyResult AttributeList::MoveSelection (short step)
{
    const short count = listBox->GetItemCount ();
    short row = static_cast<short> (listBox->GetSelectedItem () + step);
    while (row >= 1 && row <= count && !listBox->IsItemEnabled (row)) row = static_cast<short> (row + step);
    if (row < 1 || row > count || !listBox->IsItemEnabled (row)) return Wg::KeyHandled;

    // Taking the controls away commits the typing, whose observers may destroy the list or
    // rebuild its rows.
    Kor::LifeWatch alive (*this);
    RemoveOnTabItemsFromAllColumns ();
    if (alive.IsGone () || row > listBox->GetItemCount ()) return Wg::KeyHandled;
    listBox->SelectItem (row);
    // The list box hides on-tab items of a row out of view, and a hidden edit takes no focus.
    listBox->ScrollIntoView (row);
    if (SetOnTabItems () && alive.IsAlive ()) SetFocusToEditControl ();
    if (alive.IsGone ()) return Wg::KeyHandled;
    NotifySelectionChanged ();
    return Wg::KeyHandled;
}

Wg::KeyResult AttributeList::KeyPressed (const Wg::Key::Code& key, Wg::Item**)
{
    const short row = listBox->GetSelectedItem ();
    if (!IsListFocused () || row < 1) return Wg::KeyNotHandled;
    AttributeListItem* rowItem = GetItemOfRow (row);
    if (rowItem == nullptr) return Wg::KeyNotHandled;

    // On a group's row the master stands in where a value item is meant; the group itself
    // stays the one that collapses.
    auto* group = rowItem->kind == AttributeListItem::Kind::Group ? static_cast<AttributeListGroupItem*> (rowItem) : nullptr;
    AttributeListItem* valueItem = rowItem;
    if (group != nullptr && group->GetMasterItem () != nullptr) valueItem = group->GetMasterItem ();
    const bool popupModifier = Wg::Application::GetKeyState (PopupModifierKey, KeyStateDown);

    const int code = key.GetCode ();
    const bool plain = key.GetCharacter () == 0;
    if ((code == Wg::Key::Right || code == Wg::Key::Left) && plain) {
        // Slider rows never collapse or expand: the arrows step the value, with the modifier only.
        if (auto* slider = dynamic_cast<AttributeListSliderItem*> (valueItem)) {
            if (!popupModifier) return Wg::KeyNotHandled;
            StepSlider (*slider, code == Wg::Key::Right ? 1 : -1);
            return Wg::KeyHandled;
        }
        if (group != nullptr) {
            // The rebuild tells observers, which may destroy the list.
            Kor::LifeWatch alive (*this);
            if (code == Wg::Key::Right)
                group->Expand ();
            else
                group->Collapse ();
            if (alive.IsGone ()) return Wg::KeyHandled;
        }
        // Without the modifier an edit keeps the arrow for its caret.
        if (IsEditControlFocused ()) return popupModifier ? Wg::KeyHandled : Wg::KeyNotHandled;
        return Wg::KeyHandled;
    }

    if (code == Wg::Key::NoSpecial && key.GetCharacter () == SpaceCharacter) {
        // A disabled check row does nothing with the key, so the host may use it.
        if (auto* check = dynamic_cast<AttributeListCheckItem*> (valueItem); check != nullptr && IsRowEditable (row)) {
            check->InvertCheckAndNotify ();
            return Wg::KeyHandled;
        }
        return Wg::KeyNotHandled;
    }

    if (code == Wg::Key::Down && plain) {
        if (popupModifier && OpenPopupByKeyboard (valueItem)) return Wg::KeyHandled;
        if (popupModifier && dynamic_cast<AttributeListSelectionItem*> (valueItem) != nullptr) {
            // Only the popup that the row placed is its popup: a row without entries has none,
            // and the control may still hold another row's entries.
            Pk::PopupControl& popup = onTabItems->GetPopupControl ();
            if (listBox->IsOnTabItem (popup)) popup.ShowAndTrackPopup ();
            return Wg::KeyHandled;
        }
        return MoveSelection (1);
    }
    if (code == Wg::Key::Up && plain) return MoveSelection (-1);
    return Wg::KeyNotHandled;
}

bool AttributeList::OpenPopupByKeyboard (AttributeListItem* item)
{
    // The pen row opens the pen picker it placed (a row of another sub type may not have).
    if (dynamic_cast<AttributeListPenItem*> (item) != nullptr) {
        Pk::Pk257& picker = onTabItems->GetPk257 ();
        if (listBox->IsOnTabItem (picker)) picker.ShowAndTrackPopup ();
        return true;
    }
    // Fill, profile and line type rows open the picker that their button opens, so that
    // keyboard and mouse reach one popup.
    const bool keyboardPicker = dynamic_cast<AttributeListFillItem*> (item) != nullptr ||
                                dynamic_cast<AttributeListProfileItem*> (item) != nullptr ||
                                dynamic_cast<AttributeListLineTypeItem*> (item) != nullptr;
    if (!keyboardPicker) return false;
    static_cast<AttributePickerListItem*> (item)->OpenPickerPopUp ();
    return true;
}

// --- Guards ---

AttributeList::AttributeListEditFocusGuard::AttributeListEditFocusGuard (AttributeList& list)
    : list (list), wasFocused (list.IsEditControlFocused ())
{
}

AttributeList::AttributeListEditFocusGuard::~AttributeListEditFocusGuard ()
{
    if (wasFocused) list.SetFocusToEditControl ();
}

AttributeListSaveSelectionGuard::AttributeListSaveSelectionGuard (AttributeList& list) : list (list), item (list.GetSelectedItem ())
{
    if (item == nullptr) return;
    hadFocusedEditField = item->HasFocusedEditField ();
    item->Attach (*this);
}

AttributeListSaveSelectionGuard::~AttributeListSaveSelectionGuard ()
{
    list.SelectItem (item, hadFocusedEditField);
}

void AttributeListSaveSelectionGuard::SourceDestroyed (Kor::EventSource&)
{
    item = nullptr;
}

}   // namespace TxAL
