#pragma once
// TxalQt::AttributePickerPopupView: the popup of an attribute picker session (fills,
// composites, line types, profiles, materials, building materials): one line per attribute
// with its preview and its name, the preselected one marked. The pointer (or the arrow keys)
// tracks entries, a click or Return chooses, Escape or a click outside cancels. It only
// reports; the runner performs the session's steps.

#include "TrackingPopup.hpp"
#include "TxAC/AttributePickerPopUp.hpp"

namespace TxalQt {

class AttributePickerPopupView : public TrackingPopup {
public:
    // track is called with the entry under the pointer (1-based, 0 over none) when it changes.
    AttributePickerPopupView (const TxAC::AttributePickerSession& session, std::function<void (int)> track);

    QRect GetLineRect (int entry) const;

protected:
    void paintEvent (QPaintEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;

    int  GetEntryAt (const QPoint& position) const override;
    bool IsSelectable (int entry) const override;

private:
    int GetCount () const;

    const TxAC::AttributePickerSession& session;
};

}   // namespace TxalQt
