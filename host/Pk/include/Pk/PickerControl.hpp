#pragma once
// Pk::PickerControl: the base of the picker controls (Pk::Pk257, Pk::Pk261): a button that opens
// a grid of entries (pens, fill patterns, line types) supplied by a callback (see
// Pk257CallBackRec for its protocol). The control's value (Wg::UserControl) is the chosen
// entry's value, such as a pen index, not its position. Without a callback there are no entries
// and ShowAndTrackPopup does nothing.

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "Gfx/Color.hpp"
#include "Kor/UniString.hpp"
#include "Pk/Pk257CallBackRec.hpp"
#include "Pk/TrackingControl.hpp"
#include "Wg/Icon.hpp"

namespace Pk {

class PickerControl : public TrackingControl {
public:
    using CallBack = PickerCallBack;

    // What the closed control shows. Codes are kept as given.
    enum ButtonType : short { DefaultButton = 0, SwatchButton = 1 };     // swatch: the chosen entry's colour or icon
    // What the open popup shows above its grid.
    enum HeaderType : short { NoHeader = 0, TextHeader = 1 };            // text: the entry under the pointer
    // How the open popup lays out its entries.
    enum ControlType : short { ListControl = 0, GridControl = 1 };

    // One entry as the callback describes it.
    struct Entry {
        std::int32_t   value = 0;
        Kor::UniString text;
        Wg::Icon       icon;
        Gfx::Color     color;
        bool           hasColor = false;
        bool           enabled = true;
        bool           separator = false;

        bool operator== (const Entry&) const = default;
    };

    // Positions are 16-bit in the host's popups; a callback that reports more is cut there.
    static constexpr int MaxEntryCount = 32767;

    PickerControl (const Wg::Panel& panel, const Wg::Rect& rect, short id = 0);

    CallBack GetCallBack () const { return callBack; }
    // Null removes the callback (the popup then has no entries).
    void     SetCallBack (CallBack newCallBack);

    short GetButtonType () const { return buttonType; }
    void  SetButtonType (short newButtonType);
    short GetHeaderType () const { return headerType; }
    void  SetHeaderType (short newHeaderType);
    short GetControlType () const { return controlType; }
    void  SetControlType (short newControlType);

    // --- Entries, asked from the callback each time (the data behind them may change) ---
    int                  GetEntryCount () const;
    // The entry at position (1-based); nothing outside 1..count.
    std::optional<Entry> GetEntry (int position) const;
    std::vector<Entry>   GetEntries () const;
    // The position of the first entry whose value is value; 0 when none has it.
    int                  FindEntry (std::int32_t value) const;

    // Asks the callback to describe an attribute (both phases, with the control's user data);
    // empty without a callback. See RequestDescription.
    std::vector<std::byte> RequestDescription (std::uint16_t typeCode, std::int32_t attributeIndex) const;

protected:
    // --- TrackingControl ---
    std::unique_ptr<TrackingSession> CreateSession () override;

private:
    Pk257CallBackRec MakeRequest (std::int16_t message) const;
    // Asks the callback (which must exist) about the entry at position.
    Entry            AskEntry (int position) const;

    CallBack callBack = nullptr;
    short    buttonType = DefaultButton;
    short    headerType = NoHeader;
    short    controlType = ListControl;
};

}   // namespace Pk
