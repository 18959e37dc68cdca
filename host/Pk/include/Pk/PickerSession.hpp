#pragma once
// Pk::PickerSession: the picker session of a Pk::PickerControl. It reads the entries from the
// control's callback once, when it is made, and keeps them for its whole life, so that a choice
// maps to the value the user saw. Tracking an entry makes the control's value that entry's
// value; over no entry the control shows the value it had before (any value, 0 included, may
// be a real entry's).

#include <vector>

#include "Pk/PickerControl.hpp"
#include "Pk/TrackingSession.hpp"

namespace Pk {

class PickerSession : public TrackingSession {
public:
    explicit PickerSession (PickerControl& control);

    // The control, or null once it has been destroyed.
    PickerControl* GetPickerControl () const { return static_cast<PickerControl*> (GetControl ()); }
    // The entries with their values and colours, for a backend that draws swatches.
    const std::vector<PickerControl::Entry>& GetPickerEntries () const { return entries; }

    // --- Wg::ModalSession ---
    Kind GetKind () const override { return Kind::Picker; }
    std::vector<Wg::ModalEntry> GetEntries () const override;
    // The first entry with the control's value, 0 when none has it.
    int GetInitialEntry () const override;

protected:
    // --- TrackingSession ---
    bool         IsSelectable (int entry) const override;
    std::int32_t GetEntryValue (int entry) const override;
    std::int32_t GetValueOverNone () const override { return GetValueBefore (); }

private:
    std::vector<PickerControl::Entry> entries;
};

}   // namespace Pk
