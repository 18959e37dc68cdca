#pragma once
// TxalQt::AttributePickerPopupView: the popup of an attribute picker session (fills,
// composites, line types, profiles, materials, building materials): one line per attribute
// with its preview and its name, the preselected one marked. The pointer (or the arrow keys)
// tracks entries, a click or Return chooses, Escape or a click outside cancels. It only
// reports; the runner performs the session's steps.

#include <QEventLoop>
#include <QWidget>
#include <functional>

#include "TxAC/AttributePickerPopUp.hpp"

namespace TxalQt {

class AttributePickerPopupView : public QWidget {
public:
    // track is called with the entry under the pointer (1-based, 0 over none) when it changes.
    AttributePickerPopupView (const TxAC::AttributePickerSession& session, std::function<void (int)> track);

    // Shows the popup with its top-left at position and returns the chosen entry (0 for none)
    // when it has closed.
    int  Exec (const QPoint& position);
    void Dismiss ();
    // Marks entry as under the pointer without telling anybody (for screenshots).
    void ShowHovered (int entry);

    QRect GetLineRect (int entry) const;

protected:
    void paintEvent (QPaintEvent* event) override;
    void mouseMoveEvent (QMouseEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void leaveEvent (QEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;
    void hideEvent (QHideEvent* event) override;

private:
    int  GetEntryAt (const QPoint& position) const;
    int  GetCount () const;
    void SetHovered (int entry);

    const TxAC::AttributePickerSession& session;
    std::function<void (int)>           track;
    QEventLoop                          loop;
    int                                 initial = 0;
    int                                 hovered = 0;
    int                                 chosen = 0;
};

}   // namespace TxalQt
