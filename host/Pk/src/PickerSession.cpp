#include "Pk/PickerSession.hpp"

#include <algorithm>

namespace Pk {

PickerSession::PickerSession (PickerControl& control) : TrackingSession (control), entries (control.GetEntries ())
{
}

std::vector<Wg::ModalEntry> PickerSession::GetEntries () const
{
    std::vector<Wg::ModalEntry> result;
    result.reserve (entries.size ());
    const int initial = GetInitialEntry ();
    int position = 0;
    for (const PickerControl::Entry& entry : entries) {
        ++position;
        Wg::ModalEntry modalEntry;
        modalEntry.text = entry.text;
        modalEntry.icon = entry.icon;
        modalEntry.enabled = entry.enabled;
        modalEntry.separator = entry.separator;
        modalEntry.checked = position == initial;
        result.push_back (modalEntry);
    }
    return result;
}

int PickerSession::GetInitialEntry () const
{
    const std::int32_t value = GetValueBefore ();
    const auto it = std::find_if (entries.begin (), entries.end (), [value] (const PickerControl::Entry& entry) { return !entry.separator && entry.value == value; });
    return it == entries.end () ? 0 : static_cast<int> (it - entries.begin ()) + 1;
}

bool PickerSession::IsSelectable (int entry) const
{
    if (entry < 1 || entry > static_cast<int> (entries.size ())) return false;
    const PickerControl::Entry& candidate = entries[static_cast<std::size_t> (entry - 1)];
    return candidate.enabled && !candidate.separator;
}

std::int32_t PickerSession::GetEntryValue (int entry) const
{
    return entries[static_cast<std::size_t> (entry - 1)].value;
}

}   // namespace Pk
