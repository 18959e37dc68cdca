#pragma once
// Pk::PopupControl: a button that opens a popup menu of entries. Entries are 1-based; the
// control's value (Wg::UserControl) is the selected entry, 0 for none. The menu is shown and
// tracked by ShowAndTrackPopup through a Pk::PopupControlSession; the control's observers hear
// the tracking protocol of Wg::UserControl with entry numbers as values.

#include <memory>
#include <vector>

#include "Kor/UniString.hpp"
#include "Pk/TrackingControl.hpp"
#include "Wg/Icon.hpp"

namespace Pk {

class PopupControl : public TrackingControl {
public:
    // What the closed control shows. Other codes are kept as given and shown as a text button.
    enum ButtonType : short {
        TextButton = 0,        // the selected entry's text and a drop-down arrow
        IconButton = 1,        // the selected entry's icon
        DropDownButton = 3,    // a small square button with a drop-down arrow only
    };

    // Alignment of the selected entry's text or icon on the button.
    enum TextAlignment : short {
        AlignDefault = 0,
        AlignLeft = 1,
        AlignRight = 2,
        AlignCenter = 3,
    };

    struct Entry {
        Kor::UniString text;
        Wg::Icon       icon;
        bool           enabled = true;
        bool           separator = false;

        bool operator== (const Entry&) const = default;
    };

    // Entry numbers are 16-bit in the host's popups.
    static constexpr short MaxItemCount = 32767;

    PopupControl (const Wg::Panel& panel, const Wg::Rect& rect, short id = 0);

    // Appends an entry and returns its number (the new count); 0 when the control is full.
    short AppendItem (const Kor::UniString& text, const Wg::Icon& icon = {}, bool enabled = true);
    short AppendSeparator ();
    // Removes every entry; the selection goes with them (value 0).
    void  DeleteAllItems ();
    short GetItemCount () const { return static_cast<short> (entries.size ()); }
    const std::vector<Entry>& GetItems () const { return entries; }

    // Per-entry access. Setters ignore numbers outside 1..count and separators; getters answer
    // an empty text, an empty icon or false outside 1..count.
    Kor::UniString GetItemText (short index) const;
    void           SetItemText (short index, const Kor::UniString& text);
    Wg::Icon       GetItemIcon (short index) const;
    void           SetItemIcon (short index, const Wg::Icon& icon);
    bool           IsItemEnabled (short index) const;
    void           SetItemStatus (short index, bool enabled);
    void           EnableItem (short index) { SetItemStatus (index, true); }
    void           DisableItem (short index) { SetItemStatus (index, false); }
    bool           IsSeparator (short index) const;
    // Whether the entry exists, is enabled and is not a separator: whether it can be chosen.
    bool           IsSelectable (int index) const;

    // The selected entry's text and icon, what the closed control shows (empty for none).
    Kor::UniString GetSelectedText () const;
    Wg::Icon       GetSelectedIcon () const;

    short GetButtonType () const { return buttonType; }
    void  SetButtonType (short newButtonType);
    short GetTextAlignment () const { return textAlignment; }
    void  SetTextAlignment (short newTextAlignment);

protected:
    // --- TrackingControl ---
    std::unique_ptr<TrackingSession> CreateSession () override;

private:
    const Entry* FindEntry (int index) const;
    // The entry a setter may change: not a separator.
    Entry*       FindSettableEntry (int index);

    std::vector<Entry> entries;
    short              buttonType = TextButton;
    short              textAlignment = AlignDefault;
};

}   // namespace Pk
