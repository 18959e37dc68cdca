#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Kor/Assert.hpp"
#include "Res/ResourceCache.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabControl.hpp"
#include "Wg/TabPage.hpp"

namespace {

constexpr const char* ModuleName = "TabPageTestModule";
constexpr int         PageDialog = 600;
constexpr int         OtherDialog = 601;

std::string RectText (const Wg::Rect& r)
{
    return std::to_string (r.left) + "," + std::to_string (r.top) + "," + std::to_string (r.right) + "," + std::to_string (r.bottom);
}

// Logs what a panel's observers hear, prefixed with the panel's title.
class PanelLog : public Wg::PanelObserver {
public:
    PanelLog (std::string& log, Wg::Panel& panel) : log (log), name (panel.GetTitle ().ToUtf8 ()) { panel.Attach (*this); }

    bool acceptClose = true;

    void PanelOpened (const Wg::PanelOpenEvent&) override { Add ("open"); }
    void PanelIdle (const Wg::PanelIdleEvent&) override { Add ("idle"); }
    void PanelResized (const Wg::PanelResizeEvent& event) override
    {
        Add ("resize(" + std::to_string (event.GetHorizontalChange ()) + "," + std::to_string (event.GetVerticalChange ()) + ")");
    }
    void PanelResizeExited (const Wg::PanelResizeExitEvent&) override { Add ("exit"); }
    void PanelCloseRequested (const Wg::PanelCloseRequestEvent& event, bool* accepted) override
    {
        Add (event.IsAccepted () ? "close(ok)" : "close(cancel)");
        if (accepted != nullptr && acceptClose) *accepted = true;
    }
    void PanelScaleChanged (const Wg::PanelScaleChangeEvent& event) override { Add ("scale(" + std::to_string (event.GetNewScale ()).substr (0, 3) + ")"); }

private:
    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + name + ":" + entry; }

    std::string& log;
    std::string  name;
};

class TabPageTest : public ::testing::Test, public Wg::TabControlObserver, public Wg::SplitterObserver {
protected:
    static void SetUpTestSuite ()
    {
        Res::ResRegisterModuleImage (ModuleName, {
            { "strings.txt", "[1]\n1 = unused\n" },
            { "dialogs.txt", "[600] 200 x 120\n"
                             "1 = icon 2 102 18 118\n"
                             "2 = text 20 100 200 120\n"
                             "3 = listbox 0 0 200 50\n"
                             "4 = splitter 0 50 200 54\n"
                             "5 = listbox 0 54 200 100\n"
                             "[601] 100 x 100\n"
                             "7 = button 10 10 90 30\n" },
        });
    }

    void SetUp () override { module = Res::ResInitModuleImageCache (ModuleName); }
    void TearDown () override { Res::ResRemoveModuleImageCache (module); }

    // --- Wg::TabControlObserver, Wg::SplitterObserver ---
    void TabControlChanged (const Wg::TabControlChangeEvent& event) override
    {
        log += (log.empty () ? "" : " ") + std::string ("tab:") + std::to_string (event.GetSource ()->GetSelectedTab ());
    }
    void SplitterDragged (const Wg::SplitterDragEvent& event) override
    {
        log += (log.empty () ? "" : " ") + std::string ("drag:") + std::to_string (event.GetPosition ());
    }

    std::string Take () { return std::exchange (log, {}); }

    // "id:kind rect" of every item of the page, in id order.
    static std::string Items (const Wg::Panel& page)
    {
        std::string out;
        for (const Wg::Item* item : page.GetItems ()) {
            const char* kind = dynamic_cast<const Wg::ListBox*> (item) != nullptr    ? "listbox"
                               : dynamic_cast<const Wg::Splitter*> (item) != nullptr ? "splitter"
                               : dynamic_cast<const Wg::IconItem*> (item) != nullptr ? "icon"
                               : dynamic_cast<const Wg::LeftText*> (item) != nullptr ? "text"
                               : dynamic_cast<const Wg::ButtonItem*> (item) != nullptr ? "button"
                                                                                        : "?";
            out += (out.empty () ? "" : " ") + std::to_string (item->GetId ()) + ":" + kind + " " + RectText (item->GetRect ());
        }
        return out;
    }

    Res::ModuleHandle module = Res::NoModule;
    std::string       log;
    Wg::Panel         dialog {Wg::Rect (100, 200, 500, 500), 1, Kor::UniString ("dialog")};
};

}   // namespace

TEST_F (TabPageTest, APageTakesItsDialogAndFitsTheControlBeforeItOpens)
{
    // Client rectangle: the control less its tab row above and its frame on the other sides.
    Wg::TabControl tabs (dialog, Wg::Rect (10, 10, 312, 237));
    EXPECT_EQ (RectText (tabs.GetClientRect ()), "11,36,311,236");
    Wg::TabPage page (tabs, module, PageDialog, Kor::UniString ("page"));
    EXPECT_EQ (page.GetId (), PageDialog);
    EXPECT_EQ (RectText (page.GetRect ()), "111,236,311,356");
    EXPECT_EQ (Items (page), "1:icon 2,102,18,118 2:text 20,100,200,120 3:listbox 0,0,200,50 4:splitter 0,50,200,54 5:listbox 0,54,200,100");

    PanelLog dialogLog (log, dialog);
    PanelLog pageLog (log, page);
    dialog.Open ();
    // The page is fitted before it hears the open; the dialog's newer observer hears first.
    EXPECT_EQ (Take (), "dialog:open page:resize(100,80) page:open");
    EXPECT_TRUE (page.IsOpen ());
    EXPECT_EQ (RectText (page.GetRect ()), "111,236,411,436");
    // The items stay where the dialog put them: laying them out is the page's business.
    EXPECT_EQ (RectText (page.GetItem (5)->GetRect ()), "0,54,200,100");

    dialog.Idle ();
    EXPECT_EQ (Take (), "dialog:idle page:idle");
}

TEST_F (TabPageTest, ThePagesHearTheDialogsEventsAndFollowTheControl)
{
    Wg::TabControl tabs (dialog, Wg::Rect (0, 0, 202, 147));
    Wg::TabPage first (tabs, module, PageDialog, Kor::UniString ("first"));
    Wg::TabPage second (tabs, module, OtherDialog, Kor::UniString ("second"));
    PanelLog firstLog (log, first);
    PanelLog secondLog (log, second);
    firstLog.acceptClose = false;
    secondLog.acceptClose = false;
    dialog.Open ();
    EXPECT_EQ (Take (), "first:open second:resize(100,20) second:open");

    tabs.Resize (30, -10);
    tabs.Move (5, 0);
    EXPECT_EQ (Take (), "first:resize(30,-10) second:resize(30,-10)");
    EXPECT_EQ (RectText (second.GetRect ()), "106,226,336,336");
    dialog.ResizeExit ();
    dialog.SetScale (2.0);
    EXPECT_EQ (Take (), "first:exit second:exit first:scale(2.0) second:scale(2.0)");

    // The pages hear how the dialog closes; whether it closes is the dialog's own answer.
    EXPECT_FALSE (dialog.RequestClose (false));
    EXPECT_EQ (Take (), "first:close(cancel) second:close(cancel)");
    EXPECT_FALSE (dialog.RequestClose ());
    EXPECT_EQ (Take (), "first:close(ok) second:close(ok)");
}

TEST_F (TabPageTest, OnlyTheUsersTabChoiceNotifiesAndRemovalKeepsASelection)
{
    Wg::TabControl tabs (dialog, Wg::Rect (0, 0, 300, 300));
    tabs.Attach (static_cast<Wg::TabControlObserver&> (*this));
    EXPECT_EQ (tabs.GetSelectedTab (), 0);
    auto first = std::make_unique<Wg::TabPage> (tabs, module, PageDialog);
    auto second = std::make_unique<Wg::TabPage> (tabs, module, OtherDialog);
    auto third = std::make_unique<Wg::TabPage> (tabs, module, OtherDialog);
    EXPECT_EQ (tabs.GetSelectedPage (), first.get ());
    tabs.SelectTab (3);
    tabs.UserSelectTab (3);
    tabs.UserSelectTab (4);
    tabs.UserSelectTab (0);
    EXPECT_EQ (Take (), "");
    tabs.UserSelectTab (2);
    EXPECT_EQ (Take (), "tab:2");
    tabs.Disable ();
    tabs.UserSelectTab (1);
    EXPECT_EQ (Take (), "");
    EXPECT_EQ (tabs.GetTabOf (*second), 2);

    // The removed selected page's successor is shown; a removal before it keeps the same page.
    second.reset ();
    EXPECT_EQ (tabs.GetSelectedPage (), third.get ());
    first.reset ();
    EXPECT_EQ (tabs.GetSelectedTab (), 1);
    EXPECT_EQ (tabs.GetSelectedPage (), third.get ());
    third.reset ();
    EXPECT_EQ (tabs.GetSelectedTab (), 0);
    EXPECT_EQ (Take (), "");
}

TEST_F (TabPageTest, APageOutlivesItsControlAndMissingResourcesGiveStandIns)
{
    auto tabs = std::make_unique<Wg::TabControl> (dialog, Wg::Rect (0, 0, 300, 300));
    Kor::ScopedAssertCapture capture;
    Wg::TabPage empty (*tabs, module, 999);
    ASSERT_EQ (capture.GetCount (), 1u);
    EXPECT_EQ (capture.GetReports ()[0].condition, "no dialog 999 in module " + std::to_string (module));
    EXPECT_EQ (RectText (empty.GetRect ()), "101,226,399,499");
    EXPECT_EQ (Items (empty), "");

    Wg::TabPage page (*tabs, module, PageDialog);
    // Asking for item 1 as a list box: reported, and a hidden stand-in serves this and every
    // later request for it.
    Wg::ListBox& standIn = page.GetDialogItem<Wg::ListBox> (1);
    EXPECT_EQ (&page.GetDialogItem<Wg::ListBox> (1), &standIn);
    EXPECT_EQ (capture.GetCount (), 2u);
    EXPECT_FALSE (standIn.IsVisible ());
    EXPECT_EQ (standIn.GetId (), 6);
    EXPECT_EQ (&page.GetDialogItem<Wg::IconItem> (1), page.GetItem (1));
    EXPECT_EQ (capture.GetCount (), 2u);

    tabs.reset ();
    EXPECT_EQ (page.GetTabControl (), nullptr);
    dialog.Open ();
    EXPECT_FALSE (page.IsOpen ());
}

TEST_F (TabPageTest, ASplitterReportsDragsWithoutMovingItself)
{
    Wg::TabControl tabs (dialog, Wg::Rect (0, 0, 300, 300));
    Wg::TabPage page (tabs, module, PageDialog);
    auto& splitter = page.GetDialogItem<Wg::Splitter> (4);
    splitter.Attach (static_cast<Wg::SplitterObserver&> (*this));
    EXPECT_TRUE (splitter.IsHorizontal ());
    EXPECT_EQ (splitter.GetPosition (), 50);
    splitter.UserDrag (70);
    splitter.UserDrag (50);
    EXPECT_EQ (Take (), "drag:70 drag:50");
    EXPECT_EQ (RectText (splitter.GetRect ()), "0,50,200,54");
    splitter.Hide ();
    splitter.UserDrag (60);
    splitter.Show ();
    splitter.Disable ();
    splitter.UserDrag (60);
    EXPECT_EQ (Take (), "");

    Wg::Splitter upright (page, Wg::Rect (100, 0, 104, 120));
    EXPECT_FALSE (upright.IsHorizontal ());
    EXPECT_EQ (upright.GetPosition (), 100);
}
