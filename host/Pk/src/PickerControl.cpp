#include "Pk/PickerControl.hpp"

#include <algorithm>

#include "Pk/PickerSession.hpp"
#include "Wg/Panel.hpp"

namespace Pk {

PickerControl::PickerControl (const Wg::Panel& panel, const Wg::Rect& rect, short id) : TrackingControl (panel, rect, id)
{
}

void PickerControl::SetCallBack (CallBack newCallBack)
{
    if (newCallBack == callBack) return;
    callBack = newCallBack;
    NotifyPeer (Wg::Aspect::Content);
}

void PickerControl::SetButtonType (short newButtonType)
{
    if (newButtonType == buttonType) return;
    buttonType = newButtonType;
    NotifyPeer (Wg::Aspect::Content);
}

void PickerControl::SetHeaderType (short newHeaderType)
{
    if (newHeaderType == headerType) return;
    headerType = newHeaderType;
    NotifyPeer (Wg::Aspect::Content);
}

void PickerControl::SetControlType (short newControlType)
{
    if (newControlType == controlType) return;
    controlType = newControlType;
    NotifyPeer (Wg::Aspect::Content);
}

Pk257CallBackRec PickerControl::MakeRequest (std::int16_t message) const
{
    Pk257CallBackRec record;
    record.message = message;
    record.scale = GetPanel ().GetScale ();
    record.userData = GetUserData ();
    return record;
}

int PickerControl::GetEntryCount () const
{
    if (callBack == nullptr) return 0;
    Pk257CallBackRec record = MakeRequest (Pk257CallBackRec::CountMessage);
    callBack (&record);
    return std::clamp (record.entryCount, 0, MaxEntryCount);
}

PickerControl::Entry PickerControl::AskEntry (int position) const
{
    Pk257CallBackRec record = MakeRequest (Pk257CallBackRec::EntryMessage);
    record.entry = position;
    // A callback that answers only texts gets positions as values.
    record.value = position;
    callBack (&record);
    return Entry {record.value, record.text, record.icon, record.color, record.hasColor, record.enabled, record.separator};
}

std::optional<PickerControl::Entry> PickerControl::GetEntry (int position) const
{
    if (position < 1 || position > GetEntryCount ()) return std::nullopt;
    return AskEntry (position);
}

std::vector<PickerControl::Entry> PickerControl::GetEntries () const
{
    std::vector<Entry> entries;
    const int count = GetEntryCount ();
    entries.reserve (static_cast<std::size_t> (count));
    for (int position = 1; position <= count; ++position) entries.push_back (AskEntry (position));
    return entries;
}

int PickerControl::FindEntry (std::int32_t value) const
{
    const std::vector<Entry> entries = GetEntries ();
    const auto it = std::find_if (entries.begin (), entries.end (), [value] (const Entry& entry) { return !entry.separator && entry.value == value; });
    return it == entries.end () ? 0 : static_cast<int> (it - entries.begin ()) + 1;
}

std::vector<std::byte> PickerControl::RequestDescription (std::uint16_t typeCode, std::int32_t attributeIndex) const
{
    Pk257CallBackRec record = MakeRequest (Pk257CallBackRec::DescribeMessage);
    record.typeCode = typeCode;
    record.attributeIndex = attributeIndex;
    return Pk::RequestDescription (callBack, record);
}

std::unique_ptr<TrackingSession> PickerControl::CreateSession ()
{
    auto session = std::make_unique<PickerSession> (*this);
    if (session->GetPickerEntries ().empty ()) return nullptr;
    return session;
}

}   // namespace Pk
