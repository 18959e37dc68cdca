#include "TxAttributeList/OnTabItems.hpp"

#include <algorithm>

namespace TxAL {

namespace {

// Controls start with no size; an item sizes them when it places them over a cell.
const Wg::Rect NoRect (0, 0, 0, 0);

template <typename Class>
constexpr bool IsEditClass = std::is_base_of_v<Wg::TypingEdit, Class>;

void CollectRealEdit (std::vector<Wg::RealEdit*>& edits, Wg::RealEdit& edit)
{
    edits.push_back (&edit);
}

template <typename Class>
void CollectRealEdit (std::vector<Wg::RealEdit*>&, Class&)
{
}

}   // namespace

// The text edit's row names textEditMaxLength among its constructor arguments.
#define TXAL_ON_TAB_CONSTRUCT(Class, Name, FocusRank, Query, Observer, ...) m##Name (panel, NoRect __VA_OPT__ (, ) __VA_ARGS__),

OnTabItems::OnTabItems (const Wg::Panel& panel, short textEditMaxLength, bool editControlAutoUpdate)
    : TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_CONSTRUCT) controls {}
{
#define TXAL_ON_TAB_REGISTER(Class, Name, FocusRank, Query, Observer, ...) \
    controls.push_back ({&m##Name, #Name, FocusRank, IsEditClass<Class>});  \
    CollectRealEdit (realEdits, m##Name);
    TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_REGISTER)
#undef TXAL_ON_TAB_REGISTER

    std::vector<const Control*> focusable;
    for (const Control& control : controls)
        if (control.focusRank != NoFocus) focusable.push_back (&control);
    const auto byRank = [] (const Control* a, const Control* b) { return a->focusRank < b->focusRank; };
    std::stable_sort (focusable.begin (), focusable.end (), byRank);
    for (const Control* control : focusable) focusOrder.push_back (control->item);

    for (const Control& control : controls) control.item->Hide ();
    SetEditControlAutoUpdate (editControlAutoUpdate);
}

#undef TXAL_ON_TAB_CONSTRUCT

const OnTabItems::Control* OnTabItems::FindControl (const Wg::Item* item) const
{
    if (item == nullptr) return nullptr;
    auto found = std::find_if (controls.begin (), controls.end (), [item] (const Control& control) { return control.item == item; });
    return found == controls.end () ? nullptr : &*found;
}

void OnTabItems::ClearUserControlCallbacks ()
{
    ForEachControl ([] (auto& control, auto) {
        if constexpr (std::is_base_of_v<Pk::PickerControl, std::remove_reference_t<decltype (control)>>) {
            control.SetUserData (nullptr);
            control.SetCallBack (nullptr);
        }
    });
    userControlOwner = nullptr;
}

void OnTabItems::ClearUserControlCallbacks (const void* owner)
{
    if (owner != nullptr && owner == userControlOwner) ClearUserControlCallbacks ();
}

void OnTabItems::SetEditControlAutoUpdate (bool on)
{
    ForEachControl ([on] (auto& control, auto) {
        if constexpr (IsEditClass<std::remove_reference_t<decltype (control)>>) control.SetAutoUpdate (on);
    });
}

}   // namespace TxAL
