// The tab control and splitter peers: a tab clicked on the bar and a splitter dragged with the
// mouse reach the model's entry points; the model's selection and pages reach the widgets.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTabBar>
#include <memory>
#include <string>

#include "Res/ResourceCache.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/Panel.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabControl.hpp"
#include "Wg/TabPage.hpp"

namespace {

constexpr const char* ModuleName = "QtTabPeerTestModule";
constexpr int         PageDialog = 700;

void SendMouse (QWidget& target, QEvent::Type type, const QPoint& position, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QMouseEvent event (type, QPointF (position), QPointF (target.mapToGlobal (position)), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent (&target, &event);
}

class QtTabPeerTest : public ::testing::Test, public Wg::TabControlObserver, public Wg::SplitterObserver {
protected:
    static void SetUpTestSuite ()
    {
        Res::ResRegisterModuleImage (ModuleName, {
            { "strings.txt", "[1]\n1 = unused\n" },
            { "dialogs.txt", "[700] 200 x 120\n1 = splitter 0 50 200 56\n2 = text 0 100 200 120\n" },
        });
    }

    void SetUp () override
    {
        module = Res::ResInitModuleImageCache (ModuleName);
        tabs = std::make_unique<Wg::TabControl> (dialog, Wg::Rect (10, 10, 212, 157));
        first = std::make_unique<Wg::TabPage> (*tabs, module, PageDialog, Kor::UniString ("First"));
        second = std::make_unique<Wg::TabPage> (*tabs, module, PageDialog, Kor::UniString ("Second"));
        tabs->Attach (static_cast<Wg::TabControlObserver&> (*this));
        view.reset (TxalQt::Backend::AttachPanel (dialog, nullptr));
        view->show ();
        QCoreApplication::processEvents ();
        view->SyncPeers ();
    }

    void TearDown () override
    {
        view.reset ();
        second.reset ();
        first.reset ();
        tabs.reset ();
        Res::ResRemoveModuleImageCache (module);
    }

    void TabControlChanged (const Wg::TabControlChangeEvent& event) override { Add ("tab:" + std::to_string (event.GetSource ()->GetSelectedTab ())); }
    void SplitterDragged (const Wg::SplitterDragEvent& event) override { Add ("drag:" + std::to_string (event.GetPosition ())); }

    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }
    std::string Take () { return std::exchange (log, {}); }

    TxalQt::PanelView* PageView (const Wg::TabPage& page) const { return TxalQt::Backend::FindView (page); }

    Res::ModuleHandle                   module = Res::NoModule;
    std::string                         log;
    Wg::Panel                           dialog {Wg::Rect (0, 0, 240, 180), 1, Kor::UniString ("Dialog")};
    std::unique_ptr<Wg::TabControl>     tabs;
    std::unique_ptr<Wg::TabPage>        first;
    std::unique_ptr<Wg::TabPage>        second;
    std::unique_ptr<TxalQt::PanelView>  view;
};

}   // namespace

TEST_F (QtTabPeerTest, TheBarShowsThePagesAndAClickedTabSelectsItsPage)
{
    auto* bar = view->findChild<QTabBar*> ();
    ASSERT_NE (bar, nullptr);
    ASSERT_EQ (bar->count (), 2);
    EXPECT_EQ (bar->tabText (1), QStringLiteral ("Second"));
    ASSERT_TRUE (PageView (*first) != nullptr && PageView (*second) != nullptr);
    // Each page's view stands over the client rectangle; only the selected one shows.
    EXPECT_EQ (PageView (*first)->geometry (), QRect (1, 26, 200, 120));
    EXPECT_TRUE (PageView (*first)->isVisible ());
    EXPECT_FALSE (PageView (*second)->isVisible ());

    SendMouse (*bar, QEvent::MouseButtonPress, bar->tabRect (1).center ());
    SendMouse (*bar, QEvent::MouseButtonRelease, bar->tabRect (1).center (), Qt::NoButton);
    EXPECT_EQ (Take (), "tab:2");
    EXPECT_EQ (tabs->GetSelectedTab (), 2);
    EXPECT_TRUE (PageView (*second)->isVisible ());
    EXPECT_FALSE (PageView (*first)->isVisible ());

    // The program's choice reaches the bar without a notification.
    tabs->SelectTab (1);
    EXPECT_EQ (bar->currentIndex (), 0);
    EXPECT_TRUE (PageView (*first)->isVisible ());
    EXPECT_EQ (Take (), "");

    // A renamed page renames its tab; a page that goes takes its tab with it.
    second->SetTitle (Kor::UniString ("Renamed"));
    EXPECT_EQ (bar->tabText (1), QStringLiteral ("Renamed"));
    second.reset ();
    EXPECT_EQ (bar->count (), 1);
}

TEST_F (QtTabPeerTest, DraggingTheSplitterReportsItsNewEdgeAtEveryMove)
{
    auto& splitter = first->GetDialogItem<Wg::Splitter> (1);
    splitter.Attach (static_cast<Wg::SplitterObserver&> (*this));
    TxalQt::PanelView* pageView = PageView (*first);
    ASSERT_NE (pageView, nullptr);
    pageView->SyncPeers ();
    QWidget* bar = pageView->FindPeerWidget (splitter);
    ASSERT_NE (bar, nullptr);
    EXPECT_EQ (bar->geometry (), QRect (0, 50, 200, 6));
    EXPECT_EQ (bar->cursor ().shape (), Qt::SplitVCursor);

    // Grabbed 2 pixels below its top: the edge follows the pointer less those 2 pixels.
    SendMouse (*bar, QEvent::MouseButtonPress, QPoint (100, 2));
    SendMouse (*bar, QEvent::MouseMove, QPoint (100, 22));
    SendMouse (*bar, QEvent::MouseMove, QPoint (100, -8));
    SendMouse (*bar, QEvent::MouseButtonRelease, QPoint (100, -8), Qt::NoButton);
    SendMouse (*bar, QEvent::MouseMove, QPoint (100, 30), Qt::NoButton);
    EXPECT_EQ (Take (), "drag:70 drag:40");
    // Nobody laid the page out: the bar stays where the model keeps it.
    EXPECT_EQ (bar->geometry (), QRect (0, 50, 200, 6));
    splitter.Move (0, 20);
    EXPECT_EQ (bar->geometry (), QRect (0, 70, 200, 6));
}
