#include "Wg/TabControl.hpp"

#include <algorithm>

#include "Kor/LifeWatch.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TabPage.hpp"

namespace Wg {

TabControlChangeEvent::TabControlChangeEvent (TabControl* source) : ItemEvent (source) {}

TabControl* TabControlChangeEvent::GetSource () const
{
    return static_cast<TabControl*> (ItemEvent::GetSource ());
}

void TabControlObserver::TabControlChanged (const TabControlChangeEvent&) {}

template <typename Fn>
void TabControl::ForEachPage (Fn&& fn)
{
    // A page's observers may destroy pages, or the control itself.
    Kor::LifeWatch alive (*this);
    const std::vector<TabPage*> snapshot = pages;
    for (TabPage* page : snapshot) {
        if (std::find (pages.begin (), pages.end (), page) == pages.end ()) continue;
        fn (*page);
        if (alive.IsGone ()) return;
    }
}

// Hears the control's panel and passes its life-cycle events on to the pages. The pages fit
// the control before they hear an open or idle event: they are made at their dialog's size.
// Whether the panel may close stays its own observers' answer; the pages are only told.
class TabControl::OwnerObserver : public PanelObserver {
public:
    explicit OwnerObserver (TabControl& control) : control (control) {}

    void PanelOpened (const PanelOpenEvent&) override
    {
        control.ForEachPage ([this] (TabPage& page) {
            Kor::LifeWatch alive (page);
            control.FitPage (page);
            if (alive.IsAlive ()) page.Open ();
        });
    }

    void PanelIdle (const PanelIdleEvent&) override
    {
        control.ForEachPage ([this] (TabPage& page) {
            Kor::LifeWatch alive (page);
            control.FitPage (page);
            if (alive.IsAlive ()) page.Idle ();
        });
    }

    void PanelResizeExited (const PanelResizeExitEvent&) override
    {
        control.ForEachPage ([] (TabPage& page) { page.ResizeExit (); });
    }

    void PanelCloseRequested (const PanelCloseRequestEvent& event, bool*) override
    {
        const bool closeAccepted = event.IsAccepted ();
        control.ForEachPage ([closeAccepted] (TabPage& page) { page.RequestClose (closeAccepted); });
    }

    void PanelScaleChanged (const PanelScaleChangeEvent& event) override
    {
        const double scale = event.GetNewScale ();
        control.ForEachPage ([scale] (TabPage& page) { page.SetScale (scale); });
    }

private:
    TabControl& control;
};

TabControl::TabControl (const Panel& panel, const Rect& rect, short id)
    : Item (panel, rect, id), ownerObserver (std::make_unique<OwnerObserver> (*this))
{
    GetPanel ().Attach (*ownerObserver);
}

TabControl::~TabControl ()
{
    for (TabPage* page : pages) page->TabControlGone ();
    pages.clear ();
}

TabPage* TabControl::GetPage (short tab) const
{
    return tab >= 1 && tab <= GetTabCount () ? pages[static_cast<std::size_t> (tab - 1)] : nullptr;
}

short TabControl::GetTabOf (const TabPage& page) const
{
    const auto it = std::find (pages.begin (), pages.end (), &page);
    return it == pages.end () ? 0 : static_cast<short> (it - pages.begin () + 1);
}

void TabControl::SelectTab (short tab)
{
    if (tab < 1 || tab > GetTabCount () || tab == selected) return;
    selected = tab;
    NotifyPeer (Aspect::Value);
}

Rect TabControl::GetClientRect () const
{
    const Rect rect = GetRect ();
    const int left = rect.left + FrameWidth;
    const int top = rect.top + TabBarHeight;
    return Rect (left, top, std::max (left, rect.right - FrameWidth), std::max (top, rect.bottom - FrameWidth));
}

void TabControl::UserSelectTab (short tab)
{
    if (!IsVisible () || !IsEnabled () || tab < 1 || tab > GetTabCount () || tab == selected) return;
    selected = tab;
    NotifyPeer (Aspect::Value);
    const TabControlChangeEvent event (this);
    NotifyObservers<TabControlObserver> ([&] (TabControlObserver& observer) { observer.TabControlChanged (event); });
}

void TabControl::RectChanged ()
{
    ForEachPage ([this] (TabPage& page) { FitPage (page); });
}

void TabControl::AddPage (TabPage& page)
{
    pages.push_back (&page);
    if (selected == 0) selected = 1;
    NotifyPeer (Aspect::Content);
}

void TabControl::RemovePage (TabPage& page)
{
    const short tab = GetTabOf (page);
    if (tab == 0) return;
    pages.erase (pages.begin () + (tab - 1));
    // The tab after a removed selected one takes its place; the last one when it was last.
    if (tab < selected || selected > GetTabCount ()) --selected;
    NotifyPeer (Aspect::Content);
}

void TabControl::FitPage (TabPage& page)
{
    const Rect client = GetClientRect ();
    const Point origin = GetPanel ().GetScreenOrigin ();
    page.MoveTo (Point (origin.x + client.left, origin.y + client.top));
    const int dWidth = client.GetWidth () - page.GetWidth ();
    const int dHeight = client.GetHeight () - page.GetHeight ();
    if (dWidth != 0 || dHeight != 0) page.Resize (dWidth, dHeight);
}

}   // namespace Wg
