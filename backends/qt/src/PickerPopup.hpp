#pragma once
// TxalQt::PickerPopup: the grid popup of a picker session (pens, fills, line types): a cell per
// entry with its colour swatch or icon, and above the grid the text of the entry under the
// pointer. The pointer (or the arrow keys) tracks entries, a click or Return chooses, Escape
// or a click outside cancels. It only reports; the runner performs the session's steps.

#include <QEventLoop>
#include <QWidget>
#include <functional>
#include <vector>

#include "Pk/PickerControl.hpp"

namespace TxalQt {

class PickerPopup : public QWidget {
public:
    // track is called with the entry under the pointer (1-based, 0 over none) when it changes.
    PickerPopup (std::vector<Pk::PickerControl::Entry> entries, int initialEntry, bool showHeader, std::function<void (int)> track);

    // Shows the popup with its top-left at position and returns the chosen entry (0 for none)
    // when it has closed.
    int Exec (const QPoint& position);
    // Closes the popup without a choice (the session ended by itself).
    void Dismiss ();

    // The cell of an entry, in the popup's coordinates (for tests).
    QRect GetCellRect (int entry) const;

protected:
    void paintEvent (QPaintEvent* event) override;
    void mouseMoveEvent (QMouseEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void leaveEvent (QEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;
    void hideEvent (QHideEvent* event) override;

private:
    int  GetEntryAt (const QPoint& position) const;
    bool IsSelectable (int entry) const;
    void SetHovered (int entry);
    void Choose (int entry);

    std::vector<Pk::PickerControl::Entry> entries;
    std::function<void (int)>             track;
    QEventLoop                            loop;
    int                                   columns = 1;
    int                                   headerHeight = 0;
    int                                   initial = 0;
    int                                   hovered = 0;
    int                                   chosen = 0;
};

}   // namespace TxalQt
