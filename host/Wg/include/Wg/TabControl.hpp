#pragma once
// Wg::TabControl: a row of tabs above a stack of tab pages (Wg::TabPage), one shown at a time.
// The pages are panels of their own laid over the control's client rectangle; the control keeps
// their size in step with its own and passes its panel's life-cycle events (open, idle, resize
// exit, close request, scale) on to every page, so that a page hears them as a dialog would.
//
// Call tree:
//   owner Panel::Open/Idle/ResizeExit/RequestClose/SetScale -> OwnerObserver -> each page's same entry point
//   TabControl rect changes -> each page follows: Panel::MoveTo, Panel::Resize (the page hears PanelResized)
//   UserSelectTab -> selection -> TabControlObserver::TabControlChanged

#include <memory>
#include <vector>

#include "Wg/Item.hpp"

namespace Wg {

class TabControl;
class TabPage;

// The user chose another tab.
class TabControlChangeEvent : public ItemEvent {
public:
    explicit TabControlChangeEvent (TabControl* source);
    TabControl* GetSource () const;
};

// Hears the tab changes of a tab control.
class TabControlObserver : public virtual ItemObserver {
public:
    virtual void TabControlChanged (const TabControlChangeEvent& event);
};

// A tab control. Tabs are 1-based, in the order their pages were made; 0 means no tab. The
// control does not own its pages: whoever makes a page destroys it (a page that goes leaves its
// tab; a control that goes first leaves its pages without a control).
class TabControl : public Item {
public:
    static constexpr int TabBarHeight = 26;   // the row of tabs above the pages
    static constexpr int FrameWidth = 1;      // the frame around the pages

    TabControl (const Panel& panel, const Rect& rect, short id = 0);
    ~TabControl () override;

    void Attach (TabControlObserver& observer) { Item::Attach (observer); }
    void Detach (TabControlObserver& observer) { Item::Detach (observer); }

    short    GetTabCount () const { return static_cast<short> (pages.size ()); }
    // The page of a tab; null out of range.
    TabPage* GetPage (short tab) const;
    // The tab of a page; 0 when it is none of this control's.
    short    GetTabOf (const TabPage& page) const;
    short    GetSelectedTab () const { return selected; }
    TabPage* GetSelectedPage () const { return GetPage (selected); }
    // Shows the page of a tab (ignored out of range); the observers hear nothing.
    void     SelectTab (short tab);

    // Where the pages stand, in the panel's coordinates: the control without its tab row and
    // frame (empty, never inverted, when the control is smaller than those).
    Rect GetClientRect () const;

    // Entry point: the user clicked a tab (ignored while hidden or disabled, out of range, or
    // when the tab is shown already).
    void UserSelectTab (short tab);

protected:
    void RectChanged () override;

private:
    friend class TabPage;
    class OwnerObserver;

    void AddPage (TabPage& page);
    void RemovePage (TabPage& page);
    void PageTitleChanged () { NotifyPeer (Aspect::Text); }
    // Puts the page over the client rectangle: its screen origin, then its size.
    void FitPage (TabPage& page);
    // Calls fn(page) for each page, stopping when the control is gone.
    template <typename Fn>
    void ForEachPage (Fn&& fn);

    std::vector<TabPage*>          pages;
    short                          selected = 0;
    std::unique_ptr<OwnerObserver> ownerObserver;
};

}   // namespace Wg
