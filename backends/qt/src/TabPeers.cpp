#include "TabPeers.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>

#include "InputScope.hpp"
#include "Strings.hpp"
#include "Theme.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/TabPage.hpp"

namespace TxalQt {

namespace {

// The grip drawn in the middle of a splitter: dots this far apart.
constexpr int GripDotCount = 5;
constexpr int GripDotSpacing = 4;
constexpr int GripDotSize = 2;

}   // namespace

// --- TabControlPeer ---

TabControlPeer::TabControlPeer (PanelView& view, Wg::TabControl& control) : QWidget (&view), PeerBase (view, control, *this), tabBar (this)
{
    tabBar.setDrawBase (false);
    tabBar.setExpanding (false);
    tabBar.setFocusPolicy (Qt::NoFocus);
    QObject::connect (&tabBar, &QTabBar::currentChanged, this, [this] (int index) {
        Wg::TabControl* control = GetControl ();
        if (control == nullptr || !GetView ().AcceptsInput () || index < 0) return;
        {
            const InputScope scope;
            control->UserSelectTab (static_cast<short> (index + 1));
        }
        // The model may have refused (a disabled control): the bar shows what it says.
        SyncSelection ();
    });
}

void TabControlPeer::Mirror (Wg::Aspect aspect, int)
{
    switch (aspect) {
        case Wg::Aspect::Content:
        case Wg::Aspect::Text:    MirrorAll (); break;
        case Wg::Aspect::Value:
        case Wg::Aspect::Rect:    SyncSelection (); break;
        default:                  break;
    }
}

void TabControlPeer::MirrorAll ()
{
    SyncPages ();
    SyncSelection ();
}

void TabControlPeer::SyncPages ()
{
    const Wg::TabControl* control = GetControl ();
    std::vector<PageView> kept;
    const short count = control != nullptr ? control->GetTabCount () : short (0);
    for (short tab = 1; tab <= count; ++tab) {
        Wg::TabPage* page = control->GetPage (tab);
        auto known = std::find_if (pageViews.begin (), pageViews.end (), [page] (const PageView& entry) { return entry.page == page; });
        if (known != pageViews.end () && known->view != nullptr) {
            kept.push_back (*known);
            known->view = nullptr;
        } else {
            kept.push_back (PageView { page, Backend::AttachPanel (*page, this) });
        }
    }
    // Views of pages that went: their panels are gone or no longer shown here.
    for (PageView& gone : pageViews)
        if (gone.view != nullptr) InputScope::Release (*gone.view);
    pageViews = std::move (kept);

    const QSignalBlocker blocker (tabBar);
    while (tabBar.count () > 0) tabBar.removeTab (0);
    for (const PageView& entry : pageViews) tabBar.addTab (ToQString (entry.page->GetTitle ()));
}

void TabControlPeer::SyncSelection ()
{
    const Wg::TabControl* control = GetControl ();
    if (control == nullptr) return;
    const QSignalBlocker blocker (tabBar);
    tabBar.setCurrentIndex (control->GetSelectedTab () - 1);
    tabBar.setGeometry (0, 0, width (), Wg::TabControl::TabBarHeight);
    const Wg::Rect client = control->GetClientRect ();
    const Wg::Rect rect = control->GetRect ();
    for (std::size_t i = 0; i < pageViews.size (); ++i) {
        PanelView* view = pageViews[i].view;
        if (view == nullptr) continue;
        view->move (client.left - rect.left, client.top - rect.top);
        view->setVisible (static_cast<short> (i + 1) == control->GetSelectedTab ());
    }
}

bool TabControlPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QWidget::event (event);
}

void TabControlPeer::paintEvent (QPaintEvent*)
{
    QPainter painter (this);
    painter.setPen (Theme::FrameColor);
    const int top = Wg::TabControl::TabBarHeight - 1;
    painter.drawRect (QRect (0, top, width () - 1, height () - top - 1));
}

void TabControlPeer::resizeEvent (QResizeEvent* event)
{
    QWidget::resizeEvent (event);
    SyncSelection ();
}

// --- SplitterPeer ---

SplitterPeer::SplitterPeer (PanelView& view, Wg::Splitter& splitter) : QWidget (&view), PeerBase (view, splitter, *this)
{
    setFocusPolicy (Qt::NoFocus);
}

void SplitterPeer::Mirror (Wg::Aspect aspect, int)
{
    if (aspect == Wg::Aspect::Rect) MirrorAll ();
}

void SplitterPeer::MirrorAll ()
{
    const Wg::Splitter* splitter = GetSplitter ();
    if (splitter == nullptr) return;
    setCursor (splitter->IsHorizontal () ? Qt::SplitVCursor : Qt::SplitHCursor);
    update ();
}

bool SplitterPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QWidget::event (event);
}

void SplitterPeer::paintEvent (QPaintEvent*)
{
    const Wg::Splitter* splitter = GetSplitter ();
    if (splitter == nullptr) return;
    QPainter painter (this);
    painter.fillRect (rect (), dragging ? Theme::PressedColor : Theme::WindowColor);
    painter.setPen (Qt::NoPen);
    painter.setBrush (isEnabled () ? Theme::SecondaryInkColor : Theme::GreyedInkColor);
    const bool horizontal = splitter->IsHorizontal ();
    const int length = (GripDotCount - 1) * GripDotSpacing + GripDotSize;
    const QPoint start = horizontal ? QPoint ((width () - length) / 2, (height () - GripDotSize) / 2)
                                    : QPoint ((width () - GripDotSize) / 2, (height () - length) / 2);
    for (int dot = 0; dot < GripDotCount; ++dot) {
        const QPoint at = start + (horizontal ? QPoint (dot * GripDotSpacing, 0) : QPoint (0, dot * GripDotSpacing));
        painter.drawRect (QRect (at, QSize (GripDotSize, GripDotSize)));
    }
}

void SplitterPeer::mousePressEvent (QMouseEvent* event)
{
    const Wg::Splitter* splitter = GetSplitter ();
    if (event->button () != Qt::LeftButton || splitter == nullptr) {
        event->ignore ();
        return;
    }
    dragging = true;
    grabOffset = splitter->IsHorizontal () ? event->position ().toPoint ().y () : event->position ().toPoint ().x ();
    update ();
}

void SplitterPeer::mouseMoveEvent (QMouseEvent* event)
{
    Wg::Splitter* splitter = GetSplitter ();
    if (!dragging || splitter == nullptr || !GetView ().AcceptsInput ()) return;
    // In the panel's coordinates: the view is the panel.
    const QPoint inPanel = mapToParent (event->position ().toPoint ());
    const int position = (splitter->IsHorizontal () ? inPanel.y () : inPanel.x ()) - grabOffset;
    const InputScope scope;
    splitter->UserDrag (position);
}

void SplitterPeer::mouseReleaseEvent (QMouseEvent*)
{
    dragging = false;
    update ();
}

}   // namespace TxalQt
