// The page's geometry through the panel's and the splitter's entry points: first layout, the
// splitter and its minimums, the information strip and resizes.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

#include "ClassificationsAndPropertiesPage/PageLayout.hpp"
#include "Res/ResourceCache.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "Wg/TabControl.hpp"

namespace {

using TxAL::PageLayout;
using InfoStrip = TxAL::ClassificationsAndPropertiesPageInfoStrip;

constexpr int   PageDialog = 20197;
constexpr short ClassificationListId = 3;
constexpr short PropertyListId = 5;
constexpr int   PageWidth = 380;
constexpr int   PageHeight = 440;

class Options : public TxAL::IClassificationsAndPropertiesPageOptions {
public:
    bool resizable = true;
    bool classifications = true;
    bool properties = true;

    bool PageIsResizable () const override { return resizable; }
    bool EditControlAutoUpdate () const override { return true; }
    bool ShowClassifications () const override { return classifications; }
    bool ShowProperties () const override { return properties; }
};

// Counts the backend's repaints of the page: a block of moves repaints once at its end.
class PagePeer : public Wg::PanelPeer {
public:
    int changes = 0;
    int changesInsideBlock = 0;

    void PanelChanged (Wg::Panel& panel) override { (panel.IsInMoveResize () ? changesInsideBlock : changes) += 1; }
    void ItemAdded (Wg::Panel&, Wg::Item&) override {}
    void PanelDestroyed (Wg::Panel&) override {}
};

// A page as the real one forwards its events: to the layout, with the layout's own operation.
class LayoutPage : public Wg::PanelObserver, public Wg::SplitterObserver {
public:
    LayoutPage (Wg::TabControl& tabs, const Options& options)
        : page (tabs, TxAL::GetLibResModule (), PageDialog, Kor::UniString ("Classifications and properties")),
          classificationList (page, ClassificationListId),
          propertyList (page, PropertyListId),
          layout ({page, page.GetDialogItem<Wg::IconItem> (1), page.GetDialogItem<Wg::LeftText> (2), page.GetDialogItem<Wg::Splitter> (4),
                   classificationList, propertyList},
                  options, {WarningIcon (), InformationIcon ()}, [this] { return strip; },
                  [this] (short dWidth, short dHeight, bool block) {
                      ++layouts;
                      layout.LayoutPageWithSplitter (dWidth, dHeight, block);
                  })
    {
        page.Attach (static_cast<Wg::PanelObserver&> (*this));
        page.GetDialogItem<Wg::Splitter> (4).Attach (static_cast<Wg::SplitterObserver&> (*this));
        page.SetPeer (&peer);
    }
    ~LayoutPage () override { page.SetPeer (nullptr); }

    static Wg::Icon WarningIcon () { return TxAL::GetResourceIcon (31888); }
    static Wg::Icon InformationIcon () { return TxAL::GetResourceIcon (31887); }

    void PanelOpened (const Wg::PanelOpenEvent&) override { layout.PanelOpened (); }
    void PanelIdle (const Wg::PanelIdleEvent&) override { layout.PanelIdle (); }
    void PanelResized (const Wg::PanelResizeEvent& event) override { layout.PanelResized (event.GetHorizontalChange (), event.GetVerticalChange ()); }
    void PanelResizeExited (const Wg::PanelResizeExitEvent&) override { layout.PanelResizeExited (); }
    void SplitterDragged (const Wg::SplitterDragEvent& event) override { layout.SplitterDragged (event); }

    // "C top-bottom S top-bottom P top-bottom strip" with the width when it is not the page's;
    // hidden items are left out, the strip shows as "i:text" or "!:text".
    std::string Geometry ()
    {
        std::string out;
        const auto add = [&] (const char* name, const Wg::Item& item) {
            if (!item.IsVisible ()) return;
            const Wg::Rect r = item.GetRect ();
            out += (out.empty () ? "" : " ") + std::string (name) + std::to_string (r.top) + "-" + std::to_string (r.bottom);
            if (r.GetWidth () != page.GetWidth ()) out += "w" + std::to_string (r.GetWidth ());
        };
        add ("C", classificationList.GetListBox ());
        add ("S", page.GetDialogItem<Wg::Splitter> (4));
        add ("P", propertyList.GetListBox ());
        const auto& icon = page.GetDialogItem<Wg::IconItem> (1);
        const auto& text = page.GetDialogItem<Wg::LeftText> (2);
        if (text.IsVisible () && icon.IsVisible ()) {
            out += std::string (" ") + (icon.GetIcon () == WarningIcon () ? "!" : icon.GetIcon () == InformationIcon () ? "i" : "?") + ":" +
                   text.GetText ().ToUtf8 () + "@" + std::to_string (text.GetRect ().top) + "-" + std::to_string (text.GetRect ().bottom);
        }
        return out;
    }

    Wg::TabPage              page;
    TxAL::AttributeList      classificationList;
    TxAL::AttributeList      propertyList;
    PageLayout               layout;
    std::optional<InfoStrip> strip;
    PagePeer                 peer;
    int                      layouts = 0;
};

class PageLayoutTest : public ::testing::Test {
protected:
    // The control's client rectangle is exactly the dialog's size.
    Wg::Panel      dialog {Wg::Rect (0, 0, 400, 500)};
    Wg::TabControl tabs {dialog, Wg::Rect (0, 0, PageWidth + 2 * Wg::TabControl::FrameWidth,
                                           PageHeight + Wg::TabControl::TabBarHeight + Wg::TabControl::FrameWidth)};
    Options        options;
    std::unique_ptr<LayoutPage> page = std::make_unique<LayoutPage> (tabs, options);

    // Makes the page's height (the control follows, the page hears a resize).
    void SetPageHeight (int height) { tabs.Resize (0, height - page->page.GetHeight ()); }
};

}   // namespace

TEST_F (PageLayoutTest, TheFirstOpenHidesAnAbsentStripAndClampsTheSplitterToTheMinimum)
{
    EXPECT_EQ (page->Geometry (), "C0-150 S150-156 P156-420 ?:@420-440");
    dialog.Open ();
    // The strip's 20 pixels went to the property list; the splitter's centre line stands at 54.
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-440");
    EXPECT_EQ (page->layout.GetSplitterPosition (), 54);
    EXPECT_EQ (page->layouts, 1);
    // Once only: a second open or an idle with a position set lays nothing out.
    page->page.Open ();
    dialog.Idle ();
    EXPECT_EQ (page->layouts, 1);
}

TEST_F (PageLayoutTest, ThePropertyMinimumWinsOnAPageTooSmallForBoth)
{
    dialog.Open ();
    SetPageHeight (100);
    // 100 - 54 = 46 leaves the classification list less than its minimum: the property list's wins.
    EXPECT_EQ (page->layout.GetSplitterPosition (), 46);
    EXPECT_EQ (page->Geometry (), "C0-43 S43-49 P49-100");
    SetPageHeight (300);
    // The stored 46 is clamped anew: on a page large enough the classification minimum holds.
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-300");
}

TEST_F (PageLayoutTest, HidingAndShowingTheStripGivesThePropertyListBackItsExactHeight)
{
    page->strip = InfoStrip::CreateWarning (Kor::UniString ("Mixed selection"));
    dialog.Open ();
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-420 !:Mixed selection@420-440");
    page->strip.reset ();
    page->layout.RefreshInfoStrip ();
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-440");
    page->strip = InfoStrip::CreateInfo (Kor::UniString ("One wall"));
    page->layout.RefreshInfoStrip ();
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-420 i:One wall@420-440");
    // Shown twice in a row: only the message changes.
    page->strip = InfoStrip::CreateInfo (Kor::UniString ("Two walls"));
    page->layout.RefreshInfoStrip ();
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-420 i:Two walls@420-440");

    // The strip's items follow a resize; the lists keep clear of the strip.
    SetPageHeight (400);
    tabs.Resize (-80, 0);
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-380 i:Two walls@380-400");
    EXPECT_EQ (page->page.GetWidth (), 300);
    EXPECT_EQ (page->page.GetDialogItem<Wg::LeftText> (2).GetWidth (), 352 - 80);
    EXPECT_EQ (page->page.GetDialogItem<Wg::IconItem> (1).GetRect ().top, 382);
}

TEST_F (PageLayoutTest, OnlyThePagesOwnSplitterMovesItAndTheMovesAreOneBlock)
{
    dialog.Open ();
    Wg::Splitter other (page->page, Wg::Rect (0, 300, 380, 306));
    other.Attach (static_cast<Wg::SplitterObserver&> (*page));
    other.UserDrag (200);
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-440");

    page->peer = {};
    page->page.GetDialogItem<Wg::Splitter> (4).UserDrag (200);
    EXPECT_EQ (page->layout.GetSplitterPosition (), 203);
    EXPECT_EQ (page->Geometry (), "C0-200 S200-206 P206-440");
    EXPECT_EQ (page->peer.changes, 1);
    EXPECT_EQ (page->peer.changesInsideBlock, 0);

    // Dragged past the bottom: the property list keeps its minimum.
    page->page.GetDialogItem<Wg::Splitter> (4).UserDrag (430);
    EXPECT_EQ (page->Geometry (), "C0-383 S383-389 P389-440");
    EXPECT_EQ (page->layout.GetSplitterPosition (), 440 - 54);
}

TEST_F (PageLayoutTest, IdleLaysOutAPageWithoutASplitterPositionInOneBlock)
{
    // No open: the first idle makes the first layout, which clamps the position, so that the
    // idle has nothing more to do.
    page->layout.SetSplitterPosition (-5);
    dialog.Idle ();
    EXPECT_EQ (page->layouts, 1);
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-440");
    page->peer = {};
    page->layout.SetSplitterPosition (0);
    dialog.Idle ();
    EXPECT_EQ (page->layouts, 2);
    EXPECT_EQ (page->peer.changes, 1);
}

TEST_F (PageLayoutTest, WithoutClassificationsThePropertyListTakesTheirPlaceAndDragsNeverArrive)
{
    options.classifications = false;
    dialog.Open ();
    EXPECT_EQ (page->Geometry (), "P0-440");
    EXPECT_EQ (page->layouts, 0);
    page->page.GetDialogItem<Wg::Splitter> (4).UserDrag (200);
    page->layout.PanelResizeExited ();
    EXPECT_EQ (page->layouts, 0);
    SetPageHeight (300);
    EXPECT_EQ (page->Geometry (), "P0-300");
}

TEST_F (PageLayoutTest, AFixedSizePageIgnoresResizesAndOnlyClassificationsResizeAlone)
{
    options.resizable = false;
    dialog.Open ();
    SetPageHeight (300);
    EXPECT_EQ (page->Geometry (), "C0-51 S51-57 P57-440");

    options.resizable = true;
    options.properties = false;
    SetPageHeight (250);
    EXPECT_EQ (page->Geometry (), "C0-1 S51-57 P57-440");
}

TEST_F (PageLayoutTest, TheMinimumsAreReadOnceAndKept)
{
    // The first layout of the process has read them by now.
    dialog.Open ();
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path () / ("txal-page-minimums-" + std::to_string (::getpid ()));
    fs::create_directories (folder);
    std::ofstream (folder / "strings.txt") << "[20197]\n1 = Classifications\n2 = 120\n3 = 120\n";
    std::ofstream (folder / "dialogs.txt") << "[20197] 380 x 440\n1 = icon 4 422 20 438\n2 = text 24 420 376 440\n"
                                              "3 = listbox 0 0 380 150\n4 = splitter 0 150 380 156\n5 = listbox 0 156 380 420\n";
    const Res::ModuleHandle module = Res::ResLoadModuleImageFromDirectory (folder.string (), "TxAttributeList");
    EXPECT_EQ (TxAL::GetResourceShortValue (20197, 2, 0), 120);
    LayoutPage second (tabs, options);
    dialog.Idle ();
    EXPECT_EQ (second.layout.GetSplitterPosition (), 54);
    Res::ResLoadModuleImageFromDirectory (TXAL_RESOURCE_SOURCE_DIR "/TxAttributeList", "TxAttributeList");
    Res::ResRemoveModuleImageCache (module);
    Res::ResRemoveModuleImageCache (module);
    fs::remove_all (folder);
    EXPECT_EQ (TxAL::GetResourceShortValue (20197, 2, 0), 54);
}
