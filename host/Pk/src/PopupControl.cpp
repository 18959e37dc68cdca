#include "Pk/PopupControl.hpp"

#include <utility>

#include "Pk/PopupControlSession.hpp"

namespace Pk {

PopupControl::PopupControl (const Wg::Panel& panel, const Wg::Rect& rect, short id) : TrackingControl (panel, rect, id)
{
}

short PopupControl::AppendItem (const Kor::UniString& text, const Wg::Icon& icon, bool enabled)
{
    if (entries.size () >= static_cast<std::size_t> (MaxItemCount)) return 0;
    entries.push_back ({text, icon, enabled, false});
    NotifyPeer (Wg::Aspect::Content);
    return GetItemCount ();
}

short PopupControl::AppendSeparator ()
{
    if (entries.size () >= static_cast<std::size_t> (MaxItemCount)) return 0;
    entries.push_back ({{}, {}, true, true});
    NotifyPeer (Wg::Aspect::Content);
    return GetItemCount ();
}

void PopupControl::DeleteAllItems ()
{
    if (entries.empty ()) return;
    entries.clear ();
    SetValue (0);
    NotifyPeer (Wg::Aspect::Content);
}

const PopupControl::Entry* PopupControl::FindEntry (int index) const
{
    if (index < 1 || index > static_cast<int> (entries.size ())) return nullptr;
    return &entries[static_cast<std::size_t> (index - 1)];
}

PopupControl::Entry* PopupControl::FindSettableEntry (int index)
{
    Entry* entry = const_cast<Entry*> (std::as_const (*this).FindEntry (index));
    return entry != nullptr && !entry->separator ? entry : nullptr;
}

Kor::UniString PopupControl::GetItemText (short index) const
{
    const Entry* entry = FindEntry (index);
    return entry != nullptr ? entry->text : Kor::UniString ();
}

void PopupControl::SetItemText (short index, const Kor::UniString& text)
{
    Entry* entry = FindSettableEntry (index);
    if (entry == nullptr || entry->text == text) return;
    entry->text = text;
    NotifyPeer (Wg::Aspect::Content);
}

Wg::Icon PopupControl::GetItemIcon (short index) const
{
    const Entry* entry = FindEntry (index);
    return entry != nullptr ? entry->icon : Wg::Icon ();
}

void PopupControl::SetItemIcon (short index, const Wg::Icon& icon)
{
    Entry* entry = FindSettableEntry (index);
    if (entry == nullptr || entry->icon == icon) return;
    entry->icon = icon;
    NotifyPeer (Wg::Aspect::Content);
}

bool PopupControl::IsItemEnabled (short index) const
{
    const Entry* entry = FindEntry (index);
    return entry != nullptr && entry->enabled;
}

void PopupControl::SetItemStatus (short index, bool enabled)
{
    Entry* entry = FindSettableEntry (index);
    if (entry == nullptr || entry->enabled == enabled) return;
    entry->enabled = enabled;
    NotifyPeer (Wg::Aspect::Content);
}

bool PopupControl::IsSeparator (short index) const
{
    const Entry* entry = FindEntry (index);
    return entry != nullptr && entry->separator;
}

bool PopupControl::IsSelectable (int index) const
{
    const Entry* entry = FindEntry (index);
    return entry != nullptr && entry->enabled && !entry->separator;
}

Kor::UniString PopupControl::GetSelectedText () const
{
    const Entry* entry = FindEntry (GetValue ());
    return entry != nullptr ? entry->text : Kor::UniString ();
}

Wg::Icon PopupControl::GetSelectedIcon () const
{
    const Entry* entry = FindEntry (GetValue ());
    return entry != nullptr ? entry->icon : Wg::Icon ();
}

void PopupControl::SetButtonType (short newButtonType)
{
    if (newButtonType == buttonType) return;
    buttonType = newButtonType;
    NotifyPeer (Wg::Aspect::Content);
}

void PopupControl::SetTextAlignment (short newTextAlignment)
{
    if (newTextAlignment == textAlignment) return;
    textAlignment = newTextAlignment;
    NotifyPeer (Wg::Aspect::Content);
}

std::unique_ptr<TrackingSession> PopupControl::CreateSession ()
{
    if (entries.empty ()) return nullptr;
    return std::make_unique<PopupControlSession> (*this);
}

}   // namespace Pk
