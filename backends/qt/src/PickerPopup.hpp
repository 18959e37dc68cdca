#pragma once
// TxalQt::PickerPopup: the grid popup of a picker session (pens, fills, line types): a cell per
// entry with its colour swatch or icon, and above the grid the text of the entry under the
// pointer. The pointer (or the arrow keys) tracks entries, a click or Return chooses, Escape
// or a click outside cancels. It only reports; the runner performs the session's steps.

#include <vector>

#include "Pk/PickerControl.hpp"
#include "TrackingPopup.hpp"

namespace TxalQt {

class PickerPopup : public TrackingPopup {
public:
    // track is called with the entry under the pointer (1-based, 0 over none) when it changes.
    PickerPopup (std::vector<Pk::PickerControl::Entry> entries, int initialEntry, bool showHeader, std::function<void (int)> track);

    // The cell of an entry, in the popup's coordinates (for tests).
    QRect GetCellRect (int entry) const;

protected:
    void paintEvent (QPaintEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;

    int  GetEntryAt (const QPoint& position) const override;
    bool IsSelectable (int entry) const override;

private:
    void Choose (int entry);

    std::vector<Pk::PickerControl::Entry> entries;
    int                                   columns = 1;
    int                                   headerHeight = 0;
};

}   // namespace TxalQt
