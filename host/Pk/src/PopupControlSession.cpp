#include "Pk/PopupControlSession.hpp"

namespace Pk {

PopupControlSession::PopupControlSession (PopupControl& control) : TrackingSession (control)
{
}

std::vector<Wg::ModalEntry> PopupControlSession::GetEntries () const
{
    std::vector<Wg::ModalEntry> result;
    const PopupControl* control = GetPopupControl ();
    if (control == nullptr) return result;
    const int initial = GetInitialEntry ();
    int number = 0;
    for (const PopupControl::Entry& entry : control->GetItems ()) {
        ++number;
        Wg::ModalEntry modalEntry;
        modalEntry.text = entry.text;
        modalEntry.icon = entry.icon;
        modalEntry.enabled = entry.enabled;
        modalEntry.separator = entry.separator;
        modalEntry.checked = number == initial;
        result.push_back (modalEntry);
    }
    return result;
}

int PopupControlSession::GetInitialEntry () const
{
    return IsSelectable (GetValueBefore ()) ? GetValueBefore () : NoEntryValue;
}

bool PopupControlSession::IsSelectable (int entry) const
{
    const PopupControl* control = GetPopupControl ();
    return control != nullptr && control->IsSelectable (entry);
}

}   // namespace Pk
