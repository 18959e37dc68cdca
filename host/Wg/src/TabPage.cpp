#include "Wg/TabPage.hpp"

#include <algorithm>
#include <limits>
#include <string>

#include "Kor/Assert.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabControl.hpp"

namespace Wg {

namespace {

constexpr const char* ErrorPrefix = "Wg error";
constexpr const char* SourceTag = "TabPage";

// A panel id is a short: dialogs beyond it keep the default id.
constexpr short DefaultPanelId = 1;

short PanelIdOf (int dialogId)
{
    return dialogId > 0 && dialogId <= std::numeric_limits<short>::max () ? static_cast<short> (dialogId) : DefaultPanelId;
}

const Res::DialogTemplate* FindDialog (Res::ModuleHandle module, int dialogId)
{
    const Res::DialogTemplate* dialog = Res::ResGetDialogTemplate (module, dialogId);
    if (dialog == nullptr) {
        const std::string reason = "no dialog " + std::to_string (dialogId) + " in module " + std::to_string (module);
        Kor::ReportAssertFailure (ErrorPrefix, SourceTag, __LINE__, reason.c_str ());
    }
    return dialog;
}

// Where a page of the control stands on the screen, at the dialog's size (or, without one, at
// the client rectangle's size).
Rect InitialRect (const TabControl& control, const Res::DialogTemplate* dialog)
{
    const Rect client = control.GetClientRect ();
    const Point origin = control.GetPanel ().GetScreenOrigin ();
    const Size size = dialog != nullptr ? dialog->size : Size (client.GetWidth (), client.GetHeight ());
    return Rect::FromSize (origin.x + client.left, origin.y + client.top, size.width, size.height);
}

}   // namespace

TabPage::TabPage (const TabControl& control, Res::ModuleHandle module, int dialogId, const Kor::UniString& title)
    : TabPage (control, dialogId, title, FindDialog (module, dialogId))
{
}

TabPage::TabPage (const TabControl& control, int dialogId, const Kor::UniString& title, const Res::DialogTemplate* dialog)
    : Panel (InitialRect (control, dialog), PanelIdOf (dialogId), title),
      tabControl (&const_cast<TabControl&> (control)),
      dialogId (dialogId)
{
    if (dialog != nullptr) MakeItems (*dialog);
    tabControl->AddPage (*this);
}

TabPage::~TabPage ()
{
    if (tabControl != nullptr) tabControl->RemovePage (*this);
    // The controls go before the panel they stand on, newest first.
    standIns.clear ();
    while (!dialogItems.empty ()) dialogItems.pop_back ();
}

void TabPage::SetTitle (const Kor::UniString& newTitle)
{
    if (newTitle == GetTitle ()) return;
    Panel::SetTitle (newTitle);
    if (tabControl != nullptr) tabControl->PageTitleChanged ();
}

void TabPage::MakeItems (const Res::DialogTemplate& dialog)
{
    for (const Res::DialogItem& entry : dialog.items) {
        std::unique_ptr<Item> item;
        switch (entry.kind) {
            case Res::DialogItemKind::Icon:     item = std::make_unique<IconItem> (*this, entry.rect, entry.index); break;
            case Res::DialogItemKind::Text:     item = std::make_unique<LeftText> (*this, entry.rect, entry.index); break;
            case Res::DialogItemKind::ListBox:  item = std::make_unique<SingleSelListBox> (*this, entry.rect, entry.index); break;
            case Res::DialogItemKind::Splitter: item = std::make_unique<Splitter> (*this, entry.rect, entry.index); break;
            case Res::DialogItemKind::Button:   item = std::make_unique<ButtonItem> (*this, entry.rect, entry.index); break;
            case Res::DialogItemKind::Check:    item = std::make_unique<CheckItem> (*this, entry.rect, entry.index); break;
        }
        if (item != nullptr) dialogItems.push_back (std::move (item));
    }
}

bool TabPage::IsDialogItem (short index) const
{
    return std::any_of (dialogItems.begin (), dialogItems.end (), [index] (const auto& item) { return item->GetId () == index; });
}

void TabPage::ReportMissingItem (short index) const
{
    const std::string reason = "dialog " + std::to_string (dialogId) + " has no item " + std::to_string (index) + " of the kind asked for";
    Kor::ReportAssertFailure (ErrorPrefix, SourceTag, __LINE__, reason.c_str ());
}

}   // namespace Wg
