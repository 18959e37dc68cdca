#pragma once
// Wg::TabPage: a panel shown on a tab of a Wg::TabControl, made from a dialog resource of a
// resource module (Res/DialogsFile.hpp): the page takes the dialog's size and owns one control
// per dialog item, with the item's index as its id and the item's rectangle. The tab control
// then sizes the page to its client rectangle, which the page's observers hear as a resize.

#include <memory>
#include <vector>

#include "Res/ResourceCache.hpp"
#include "Wg/Panel.hpp"

namespace Wg {

class TabControl;

// A tab page made from a dialog resource.
class TabPage : public Panel {
public:
    // The page's title is its tab's text. A missing module or dialog is reported through Kor's
    // assertion facility and gives an empty page of the tab control's client size.
    TabPage (const TabControl& tabControl, Res::ModuleHandle module, int dialogId, const Kor::UniString& title = {});
    TabPage (const TabPage&) = delete;
    TabPage& operator= (const TabPage&) = delete;
    ~TabPage () override;

    // The tab control; null once it is gone.
    TabControl* GetTabControl () const { return tabControl; }
    int         GetDialogId () const { return dialogId; }
    // Renames the page and its tab.
    void        SetTitle (const Kor::UniString& newTitle);

    // The control made for dialog item index. When the dialog has no such item, or one of
    // another kind, the failure is reported through Kor's assertion facility and a hidden
    // stand-in of the asked kind (with an empty rectangle and the next free id) is made and
    // kept, so that the caller always gets a control.
    template <typename ItemType>
    ItemType& GetDialogItem (short index);

private:
    friend class TabControl;

    struct StandIn {
        short                 index;
        std::unique_ptr<Item> item;
    };

    TabPage (const TabControl& tabControl, int dialogId, const Kor::UniString& title, const Res::DialogTemplate* dialog);
    void MakeItems (const Res::DialogTemplate& dialog);
    bool IsDialogItem (short index) const;
    void ReportMissingItem (short index) const;
    void TabControlGone () { tabControl = nullptr; }

    TabControl*                         tabControl;
    int                                 dialogId;
    std::vector<std::unique_ptr<Item>>  dialogItems;    // in index order
    std::vector<StandIn>                standIns;
};

template <typename ItemType>
ItemType& TabPage::GetDialogItem (short index)
{
    if (IsDialogItem (index))
        if (auto* item = dynamic_cast<ItemType*> (GetItem (index))) return *item;
    // A stand-in asked for once serves every later request for that index and kind.
    for (const StandIn& standIn : standIns)
        if (standIn.index == index)
            if (auto* item = dynamic_cast<ItemType*> (standIn.item.get ())) return *item;
    ReportMissingItem (index);
    auto item = std::make_unique<ItemType> (*this, Rect (), 0);
    ItemType& result = *item;
    result.Hide ();
    standIns.push_back (StandIn { index, std::move (item) });
    return result;
}

}   // namespace Wg
