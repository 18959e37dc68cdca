#pragma once
// OnTabItems: the attribute list's one set of in-place controls. The list creates them on its
// panel, observes them all and lays those that the selected row's item needs over that row's
// columns. Items use the controls; they never own them. The controls are those of the table in
// OnTabControls.hpp.

#include <type_traits>
#include <vector>

#include "Pk/Pk257.hpp"
#include "Pk/Pk261.hpp"
#include "Pk/PopupControl.hpp"
#include "TxAttributeList/OnTabControls.hpp"
#include "Wg/Controls.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace TxAL {

// The attribute list's one set of in-place controls, laid over the selected row; items use
// them and never own them.
class OnTabItems {
public:
    // The rank of a control that SetFocusToEditControl never focuses.
    static constexpr int NoFocus = 0;

    // One row of the table as the list sees it at run time.
    struct Control {
        Wg::Item*   item;
        const char* name;        // the table's Name: "LengthEdit"
        int         focusRank;   // NoFocus or the rank in the focus order
        bool        isEdit;      // an edit the user types in (auto-update applies to it)
    };

    OnTabItems (const Wg::Panel& panel, short textEditMaxLength, bool editControlAutoUpdate);
    OnTabItems (const OnTabItems&) = delete;
    OnTabItems& operator= (const OnTabItems&) = delete;

#define TXAL_ON_TAB_GETTER(Class, Name, ...) \
    Class& Get##Name () { return m##Name; }
    TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_GETTER)
#undef TXAL_ON_TAB_GETTER

    // Every control in table order; the edits that take the focus, in focus order.
    const std::vector<Control>&   GetControls () const { return controls; }
    const std::vector<Wg::Item*>& GetFocusOrder () const { return focusOrder; }
    const Control*                FindControl (const Wg::Item* item) const;

    // Every real edit, in table order.
    Wg::RealEdit* const* GetRealEdits () const { return realEdits.data (); }
#define TXAL_ON_TAB_COUNT_REAL_EDIT(Class, ...) +(std::is_same_v<Class, Wg::RealEdit> ? 1 : 0)
    static constexpr int RealEditCount = 0 TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_COUNT_REAL_EDIT);
#undef TXAL_ON_TAB_COUNT_REAL_EDIT

    // Calls fn (control, std::type_identity<Observer> {}) for every control in table order, so
    // that a caller can attach the observer interface that the table names for it.
    template <typename Fn>
    void ForEachControl (Fn&& fn)
    {
#define TXAL_ON_TAB_VISIT(Class, Name, FocusRank, Query, Observer, ...) fn (m##Name, std::type_identity<Observer> {});
        TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_VISIT)
#undef TXAL_ON_TAB_VISIT
    }

    // Forgets the user data and callbacks of the picker controls.
    void ClearUserControlCallbacks ();
    // The same, only when owner placed them last (SetUserControlOwner): a row that leaves the
    // list must not clear what the row now being edited has just placed.
    void ClearUserControlCallbacks (const void* owner);
    // Records who placed the picker controls' callbacks and user data.
    void SetUserControlOwner (const void* owner) { userControlOwner = owner; }
    const void* GetUserControlOwner () const { return userControlOwner; }
    // Applies a new auto-update mode to every edit.
    void SetEditControlAutoUpdate (bool on);

private:
    // Generated member names: m<Name>.
#define TXAL_ON_TAB_MEMBER(Class, Name, ...) Class m##Name;
    TXAL_ON_TAB_CONTROLS (TXAL_ON_TAB_MEMBER)
#undef TXAL_ON_TAB_MEMBER

    std::vector<Control>       controls;
    std::vector<Wg::Item*>     focusOrder;
    std::vector<Wg::RealEdit*> realEdits;
    const void*                userControlOwner = nullptr;
};

}   // namespace TxAL
