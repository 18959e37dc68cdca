#pragma once
// The peers of the tab control and the splitter:
//   Wg::TabControl -> TabControlPeer (a QTabBar above a frame): each page gets a PanelView of
//                     its own, laid over the control's client rectangle; the selected page
//                     shows. A tab clicked -> UserSelectTab
//   Wg::Splitter   -> SplitterPeer (a bar with a grip and a resize cursor): a drag with the
//                     left button -> UserDrag with the bar's new leading edge, at every move

#include <QPointer>
#include <QTabBar>
#include <QWidget>
#include <vector>

#include "PeerBase.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabControl.hpp"

namespace TxalQt {

class PanelView;

class TabControlPeer : public QWidget, public PeerBase {
public:
    TabControlPeer (PanelView& view, Wg::TabControl& control);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    void paintEvent (QPaintEvent* event) override;
    void resizeEvent (QResizeEvent* event) override;

private:
    struct PageView {
        const Wg::Panel*    page;
        QPointer<PanelView> view;
    };

    Wg::TabControl* GetControl () const { return static_cast<Wg::TabControl*> (GetItem ()); }
    // Makes the views of new pages, drops those of pages that went, and puts the tabs in order.
    void SyncPages ();
    // Shows the selected page's view and places every view over the client rectangle.
    void SyncSelection ();

    QTabBar               tabBar;
    std::vector<PageView> pageViews;
};

class SplitterPeer : public QWidget, public PeerBase {
public:
    SplitterPeer (PanelView& view, Wg::Splitter& splitter);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    void paintEvent (QPaintEvent* event) override;
    void mousePressEvent (QMouseEvent* event) override;
    void mouseMoveEvent (QMouseEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;

private:
    Wg::Splitter* GetSplitter () const { return static_cast<Wg::Splitter*> (GetItem ()); }

    bool dragging = false;
    int  grabOffset = 0;   // where the bar was grabbed, from its leading edge
};

}   // namespace TxalQt
