#pragma once
// TxalQt::TrackingPopup: what the picker popups share: a Qt popup that runs its own event loop
// until it hides, follows the entry under the pointer (1-based, 0 over none) and tells it to a
// track callback, and keeps the entry chosen. Subclasses lay out and paint the entries and say
// which ones the user can pick.

#include <QEventLoop>
#include <QWidget>
#include <functional>

class QPainter;

namespace TxalQt {

// The base of the popups of picker sessions.
class TrackingPopup : public QWidget {
public:
    // Shows the popup with its top-left at position and returns the chosen entry (0 for none)
    // when it has closed.
    int  Exec (const QPoint& position);
    // Closes the popup without a choice (the session ended by itself).
    void Dismiss ();
    // Marks entry as under the pointer without telling anybody (for screenshots).
    void ShowHovered (int entry);

protected:
    // track is called with the entry under the pointer when it changes; initialEntry is marked
    // as the preselected one.
    TrackingPopup (int initialEntry, std::function<void (int)> track);

    // The entry at a position in the popup's coordinates; 0 over none.
    virtual int  GetEntryAt (const QPoint& position) const = 0;
    virtual bool IsSelectable (int entry) const = 0;

    // Marks entry as under the pointer (an entry that cannot be picked counts as none) and
    // tells the track callback when that changes.
    void SetHovered (int entry);
    // Closes the popup with entry (0 for none) as the choice.
    void Close (int entry);
    // The popup's background and frame.
    void PaintBackground (QPainter& painter) const;
    // The highlight of entry's area: the one under the pointer, else the preselected one.
    void PaintHighlight (QPainter& painter, const QRect& area, int entry) const;

    int GetInitial () const { return initial; }
    int GetHovered () const { return hovered; }

    void mouseMoveEvent (QMouseEvent* event) override;
    void leaveEvent (QEvent* event) override;
    void hideEvent (QHideEvent* event) override;

private:
    std::function<void (int)> track;
    QEventLoop                loop;
    int                       initial = 0;
    int                       hovered = 0;
    int                       chosen = 0;
};

}   // namespace TxalQt
