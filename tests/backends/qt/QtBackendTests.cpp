// The Qt backend against the headless model: Qt input must reach the model's entry points, and
// model changes must reach the widgets. Runs on Qt's offscreen platform.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QSlider>
#include <QTimer>
#include <QToolTip>
#include <QToolButton>
#include <memory>
#include <string>

#include "ListBoxView.hpp"
#include "Named.hpp"
#include "OffscreenApplication.hpp"
#include "Pk/PopupControl.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/Controls.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace {

using QtTest::Facts;

const auto* const environment = ::testing::AddGlobalTestEnvironment (new QtTest::OffscreenApplication ("TxalQtTests"));

void SendKey (QWidget& target, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent press (QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent (&target, &press);
}

void SendMouse (QWidget& target, QEvent::Type type, const QPoint& position)
{
    QMouseEvent event (type, QPointF (position), QPointF (target.mapToGlobal (position)), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent (&target, &event);
}

void ReleaseDeferred ()
{
    QCoreApplication::sendPostedEvents (nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents ();
}

// Writes what the model's observers hear into one line.
class Recorder : public Wg::ListBoxObserver, public Wg::TextEditObserver, public Wg::BarControlObserver,
                 public Wg::CheckItemObserver, public Wg::UserControlObserver, public Wg::KeyboardHandler {
public:
    std::string log;

    std::string Take ()
    {
        std::string result = log;
        log.clear ();
        if (!result.empty ()) result.pop_back ();
        return result;
    }
    void Add (const std::string& entry) { log += entry + " "; }

    void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& event) override { Add ("Select:" + std::to_string (event.GetListItem ())); }
    void ListBoxClicked (const Wg::ListBoxClickEvent& event) override { Add ("Click:" + Where (event)); }
    void ListBoxDoubleClicked (const Wg::ListBoxDoubleClickEvent& event) override { Add ("DoubleClick:" + Where (event)); }
    void ListBoxHeaderItemResized (const Wg::ListBoxHeaderItemResizeEvent& event) override
    {
        Add ("Resize:" + std::to_string (event.GetHeaderItem ()) + "=" + std::to_string (event.GetNewSize ()));
    }
    void TextEditChanged (const Wg::TextEditChangeEvent& event) override { Add ("Changed:" + event.GetSource ()->GetText ().ToUtf8 ()); }
    void BarControlTracked (const Wg::BarControlTrackEvent& event) override { Add ("Drag:" + std::to_string (event.GetSource ()->GetValue ())); }
    void BarControlChanged (const Wg::BarControlChangeEvent& event) override { Add ("Release:" + std::to_string (event.GetSource ()->GetValue ())); }
    void CheckItemChanged (const Wg::CheckItemChangeEvent& event) override { Add ("Check:" + std::to_string (event.GetSource ()->IsChecked ())); }
    void UserControlTrackEntered (const Wg::UserControlTrackEvent& event) override { Add ("Enter:" + Value (event)); }
    void UserControlTracked (const Wg::UserControlTrackEvent& event) override { Add ("Track:" + Value (event)); }
    void UserControlTrackExited (const Wg::UserControlTrackEvent& event) override { Add ("Exit:" + Value (event)); }
    void UserControlChanged (const Wg::UserControlChangeEvent& event) override { Add ("Changed:" + std::to_string (event.GetSource ()->GetValue ())); }

    void ItemToolTipRequested (const Wg::ItemHelpEvent& event, Kor::UniString* text) override
    {
        Add ("Tip:" + std::to_string (event.GetSubItem ()));
        if (text != nullptr) *text = Kor::UniString::Printf ("Row %d", int (event.GetSubItem ()));
    }

    Wg::KeyResult KeyPressed (const Wg::Key::Code& key, Wg::Item**) override
    {
        Add ("Key:" + QtTest::KeyName (key));
        return key.GetCharacter () == u'x' ? Wg::KeyHandled : Wg::KeyNotHandled;
    }
    Wg::KeyResult KeyPressed (const Wg::Key::Modifier& modifier, Wg::Item**) override
    {
        Add ("Modifier:" + QtTest::ModifierKeyName (modifier.GetKey ()));
        return Wg::KeyHandled;
    }

private:
    static std::string Where (const Wg::ListBoxClickEvent& event)
    {
        return std::to_string (event.GetListItem ()) + "@" + std::to_string (event.GetMouseOffset ().x) + "," + std::to_string (event.GetMouseOffset ().y);
    }
    static std::string Value (const Wg::UserControlTrackEvent& event) { return std::to_string (event.GetSource ()->GetValue ()); }
};

class QtBackendTest : public ::testing::Test {
protected:
    static constexpr int RowCount = 50;

    Wg::Panel   panel {Wg::Rect (0, 0, 420, 320)};
    Wg::ListBox list {panel, Wg::Rect::FromSize (10, 10, 300, 200), 0, Wg::ListBox::VScroll, true};
    Recorder    recorder;
    std::unique_ptr<TxalQt::PanelView> view;

    void SetUp () override
    {
        list.SetTabFieldCount (2);
        list.SetTabFieldBeginEndPosition (1, 0, 120);
        list.SetTabFieldBeginEndPosition (2, 120, 280);
        for (int row = 1; row <= RowCount; ++row) list.SetTabItemText (list.AppendItem (), 1, "Row " + std::to_string (row));
        list.Attach (recorder);
        view.reset (TxalQt::Backend::AttachPanel (panel, nullptr));
        view->show ();
        view->activateWindow ();
        QCoreApplication::processEvents ();
    }

    void TearDown () override
    {
        view.reset ();
        list.Detach (recorder);
    }

    template <typename Widget>
    Widget& PeerOf (const Wg::Item& item)
    {
        view->SyncPeers ();
        auto* widget = dynamic_cast<Widget*> (view->FindPeerWidget (item));
        EXPECT_NE (widget, nullptr);
        return *widget;
    }
};

TEST_F (QtBackendTest, PressOnRowReachesClickWithRowAndOffset)
{
    list.SetScrollPosition (3);
    auto& listView = PeerOf<TxalQt::ListBoxView> (list);
    // Rows start under the frame (1) and the header (18); the third visible row is row 5.
    const QPoint onRowFive (1 + 37, 1 + 18 + 2 * 20 + 7);
    SendMouse (listView, QEvent::MouseButtonPress, onRowFive);
    SendMouse (listView, QEvent::MouseButtonDblClick, onRowFive);
    SendMouse (listView, QEvent::MouseButtonPress, QPoint (40, 5));      // the header: no row
    EXPECT_EQ (recorder.Take (), "Select:5 Click:5@37,7 DoubleClick:5@37,7");
    EXPECT_TRUE (list.IsFocused ());
}

TEST_F (QtBackendTest, HeaderDividerDragResizesLive)
{
    list.SetHeaderItemResizable (1, true);
    auto& listView = PeerOf<TxalQt::ListBoxView> (list);
    // The first divider stands at the first field's end, 120 pixels right of the rows' edge.
    SendMouse (listView, QEvent::MouseButtonPress, QPoint (1 + 120, 5));
    SendMouse (listView, QEvent::MouseMove, QPoint (1 + 140, 5));
    Facts facts;
    facts ("firstEndWhileDragging", list.GetTabFieldEndPosition (1))
          ("secondWhileDragging", std::to_string (list.GetTabFieldBeginPosition (2)) + "-" + std::to_string (list.GetTabFieldEndPosition (2)));
    SendMouse (listView, QEvent::MouseMove, QPoint (1 + 130, 5));
    SendMouse (listView, QEvent::MouseButtonRelease, QPoint (1 + 130, 5));
    SendMouse (listView, QEvent::MouseMove, QPoint (1 + 160, 5));
    facts ("firstAfterRelease", list.GetHeaderItemSize (1)) ("events", "[" + recorder.Take () + "]");
    // The second divider is fixed: a press there drags nothing.
    SendMouse (listView, QEvent::MouseButtonPress, QPoint (1 + 290, 5));
    SendMouse (listView, QEvent::MouseMove, QPoint (1 + 250, 5));
    facts ("fixedSecond", list.GetHeaderItemSize (2));
    EXPECT_EQ (facts.Text (),
               "firstEndWhileDragging=140 secondWhileDragging=140-300 firstAfterRelease=130 events=[Resize:1=140 Resize:1=130] fixedSecond=160");
}

TEST_F (QtBackendTest, KeysGoToThePanelHandlersFirst)
{
    panel.InstallKeyboardHandler (recorder);
    list.SetFocus ();
    auto& listView = PeerOf<TxalQt::ListBoxView> (list);
    SendKey (listView, Qt::Key_Down);
    SendKey (listView, Qt::Key_X, QString (QChar (0x18)), Qt::ControlModifier);
    SendKey (listView, Qt::Key_Alt, {}, Qt::AltModifier);
    SendKey (listView, Qt::Key_Backtab, {}, Qt::ShiftModifier);
    panel.RemoveKeyboardHandler (recorder);
    // Down went on to the list box, which selected the first row.
    EXPECT_EQ (recorder.Take (), "Key:Down Select:1 Key:Ctrl+x Modifier:Alt Key:Shift+Tab");
}

// Lays one edit over the second column of whichever row is selected.
class EditOnEveryRow : public Wg::ListBoxObserver {
public:
    EditOnEveryRow (Wg::ListBox& list, Wg::TextEdit& edit) : list (list), edit (edit) { list.Attach (*this); }
    ~EditOnEveryRow () override { list.Detach (*this); }
    void ListBoxSelectionChanged (const Wg::ListBoxSelectionEvent& event) override
    {
        if (event.GetListItem () > 0) list.SetOnTabItem (2, edit);
    }

private:
    Wg::ListBox&  list;
    Wg::TextEdit& edit;
};

TEST_F (QtBackendTest, TabStaysInTheListAndQtFollowsTheModelsFocus)
{
    Wg::TextEdit onRow (panel, Wg::Rect::FromSize (0, 0, 100, 18));
    Wg::TextEdit outside (panel, Wg::Rect::FromSize (10, 230, 150, 22));
    EditOnEveryRow placer (list, onRow);
    onRow.SetAutoUpdate (false);
    onRow.Attach (recorder);
    auto& rowEdit = PeerOf<QLineEdit> (onRow);
    auto& outsideEdit = PeerOf<QLineEdit> (outside);
    list.SetScrollPosition (RowCount - 3);
    list.UserSelect (RowCount - 1);
    onRow.SetFocus ();
    QCoreApplication::processEvents ();
    recorder.Take ();

    Facts facts;
    SendKey (rowEdit, Qt::Key_A, "a");
    SendKey (rowEdit, Qt::Key_Tab);
    facts ("afterTab", list.GetSelectedItem ()) ("events", "[" + recorder.Take () + "]") ("qtFollows", QApplication::focusWidget () == &rowEdit);
    // On the last row Tab goes nowhere, and certainly not to the edit outside the list.
    SendKey (rowEdit, Qt::Key_Tab);
    facts ("onLastRow", list.GetSelectedItem ()) ("outsideFocused", outside.IsFocused () || QApplication::focusWidget () == &outsideEdit);
    SendKey (rowEdit, Qt::Key_Backtab, {}, Qt::ShiftModifier);
    facts ("afterShiftTab", list.GetSelectedItem ()) ("editFocused", onRow.IsFocused ());
    onRow.Detach (recorder);
    EXPECT_EQ (facts.Text (), "afterTab=50 events=[Changed:a Select:50] qtFollows=true onLastRow=50 outsideFocused=false "
                              "afterShiftTab=49 editFocused=true");
}

TEST_F (QtBackendTest, TypingGoesThroughTheModelAndFocusMovesCommit)
{
    Wg::TextEdit first (panel, Wg::Rect::FromSize (10, 230, 150, 22));
    Wg::TextEdit second (panel, Wg::Rect::FromSize (170, 230, 150, 22));
    first.SetAutoUpdate (false);
    first.Attach (recorder);
    auto& firstEdit = PeerOf<QLineEdit> (first);
    auto& secondEdit = PeerOf<QLineEdit> (second);
    first.SetText ("Wall");
    std::string seen = firstEdit.text ().toStdString () + "|";

    first.SetFocus ();
    SendKey (firstEdit, Qt::Key_Backspace);
    SendKey (firstEdit, Qt::Key_A, "a");
    QInputMethodEvent composed;
    composed.setCommitString (QStringLiteral ("\u00FC"));
    QApplication::sendEvent (&firstEdit, &composed);
    seen += first.GetText ().ToUtf8 () + "=" + firstEdit.text ().toStdString () + "|";
    SendKey (firstEdit, Qt::Key_Escape);
    seen += firstEdit.text ().toStdString () + "|";

    // With auto update off the change arrives when the focus moves, however it moves.
    SendKey (firstEdit, Qt::Key_S, "s");
    secondEdit.setFocus (Qt::MouseFocusReason);
    seen += std::string (second.IsFocused () ? "second" : "first") + "|" + recorder.Take ();
    first.Detach (recorder);
    EXPECT_EQ (seen, "Wall|Walaü=Walaü|Wall|second|Changed:Walls");
}

// Gives the edit the focus back whenever it reports a change, as a list refreshing the
// committed row does.
class Refocuser : public Wg::TextEditObserver {
public:
    int  changes = 0;
    void TextEditChanged (const Wg::TextEditChangeEvent& event) override
    {
        ++changes;
        event.GetSource ()->SetFocus ();
    }
};

TEST_F (QtBackendTest, LeavingTheViewCommitsOnceAndTheKeyboardStaysWhereTheUserPutIt)
{
    QWidget window;
    auto* layout = new QHBoxLayout (&window);
    auto* elsewhere = new QLineEdit (&window);
    view->setParent (&window);
    layout->addWidget (view.get ());
    layout->addWidget (elsewhere);
    window.show ();
    window.activateWindow ();
    Wg::TextEdit edit (panel, Wg::Rect::FromSize (10, 230, 150, 22));
    edit.SetAutoUpdate (false);
    Refocuser refocuser;
    edit.Attach (refocuser);
    auto& line = PeerOf<QLineEdit> (edit);
    edit.SetFocus ();
    QCoreApplication::processEvents ();

    Facts facts;
    SendKey (line, Qt::Key_A, "a");
    elsewhere->setFocus (Qt::MouseFocusReason);
    QCoreApplication::processEvents ();
    facts ("changes", refocuser.changes) ("modelFocus", panel.GetFocusedItem () != nullptr) ("qtStaysElsewhere", QApplication::focusWidget () == elsewhere);

    // Hiding the view (its window closed) commits too.
    edit.SetFocus ();
    SendKey (line, Qt::Key_B, "b");
    view->hide ();
    facts ("changesAfterHide", refocuser.changes) ("text", edit.GetText ().ToUtf8 ()) ("modelFocusAfterHide", panel.GetFocusedItem () != nullptr);
    edit.Detach (refocuser);
    view->setParent (nullptr);
    EXPECT_EQ (facts.Text (), "changes=1 modelFocus=false qtStaysElsewhere=true changesAfterHide=2 text=ab modelFocusAfterHide=false");
}

TEST_F (QtBackendTest, NumberEditShowsWhatTheModelHolds)
{
    Wg::RealEdit edit (panel, Wg::Rect::FromSize (10, 230, 150, 22), Wg::RealSubtype::Length);
    edit.SetValue (2.5);
    auto& line = PeerOf<QLineEdit> (edit);
    // Each step: does the widget show the model's text, and is all of it selected?
    const auto state = [&] {
        const bool same = line.text () == QString::fromStdString (edit.GetText ().ToUtf8 ());
        return std::string (same ? "model's text" : "other text") + (line.selectedText () == line.text () ? ", all selected" : "");
    };
    Facts facts;
    facts ("unfocused", state ());
    edit.SetFocus ();
    facts ("focused", state ());
    SendKey (line, Qt::Key_3, "3");
    SendKey (line, Qt::Key_Period, ".");
    SendKey (line, Qt::Key_5, "5");
    facts ("typed", line.text ().toStdString ()) ("whileTyping", state ());
    SendKey (line, Qt::Key_Return);
    facts ("committed", state ()) ("value", edit.GetValue ());
    EXPECT_EQ (facts.Text (), "unfocused=model's text focused=model's text, all selected typed=3.5 whileTyping=model's text "
                              "committed=model's text, all selected value=3.5");
}

TEST_F (QtBackendTest, ToolTipsAskTheObserversForTheRow)
{
    auto& listView = PeerOf<TxalQt::ListBoxView> (list);
    const QPoint onRowTwo (30, 1 + 18 + 20 + 5);
    QHelpEvent withoutHelp (QEvent::ToolTip, onRowTwo, listView.mapToGlobal (onRowTwo));
    QApplication::sendEvent (&listView, &withoutHelp);
    list.SetHelpStyle (Wg::ListBox::ToolTipHelp);
    QHelpEvent withHelp (QEvent::ToolTip, onRowTwo, listView.mapToGlobal (onRowTwo));
    QApplication::sendEvent (&listView, &withHelp);
    EXPECT_EQ (recorder.Take () + " " + QToolTip::text ().toStdString (), "Tip:2 Row 2");
}

TEST_F (QtBackendTest, ResizingTheViewResizesThePanel)
{
    view->resize (500, 400);
    EXPECT_EQ (std::to_string (panel.GetWidth ()) + "x" + std::to_string (panel.GetHeight ()), "500x400");
    panel.Resize (-100, -50);
    EXPECT_EQ (view->size (), QSize (400, 350));
}

TEST_F (QtBackendTest, ModelChangesReachWidgetsAndClicksReachTheModel)
{
    Wg::CheckItem check (panel, Wg::Rect::FromSize (10, 230, 120, 20));
    Wg::BarControl bar (panel, Wg::Rect::FromSize (140, 230, 120, 20));
    check.Attach (recorder);
    bar.Attach (recorder);
    auto& box = PeerOf<QCheckBox> (check);
    auto& slider = PeerOf<QSlider> (bar);

    check.Check ();
    check.SetText ("Visible");
    bar.SetMax (200);
    bar.SetValue (40);
    bar.SetRect (Wg::Rect::FromSize (5, 6, 70, 20));
    bar.Disable ();
    check.Hide ();
    const QRect geometry = slider.geometry ();
    Facts facts;
    facts ("checked", box.isChecked ()) ("text", box.text ().toStdString ()) ("max", slider.maximum ()) ("value", slider.value ())
          ("at", std::to_string (geometry.x ()) + "," + std::to_string (geometry.y ())) ("width", geometry.width ())
          ("sliderEnabled", slider.isEnabled ()) ("boxVisible", box.isVisibleTo (view.get ()));

    check.Show ();
    bar.Enable ();
    box.click ();          // the model toggles, the box follows
    slider.setSliderDown (true);
    slider.setSliderPosition (70);
    slider.setSliderDown (false);
    facts ("modelChecked", check.IsChecked ()) ("modelValue", bar.GetValue ()) ("events", "[" + recorder.Take () + "]");
    check.Detach (recorder);
    bar.Detach (recorder);
    EXPECT_EQ (facts.Text (), "checked=true text=Visible max=200 value=40 at=5,6 width=70 sliderEnabled=false boxVisible=false "
                              "modelChecked=false modelValue=70 events=[Check:0 Drag:70 Release:70]");
}

TEST_F (QtBackendTest, TheSliderThumbFollowsThePointerAndReleaseEndsTheDrag)
{
    Wg::BarControl bar (panel, Wg::Rect::FromSize (20, 230, 120, 20));
    bar.SetMax (100);
    bar.Attach (recorder);
    auto& slider = PeerOf<QSlider> (bar);
    // The thumb stands at the left end: grab it, pull it right in two moves, let it go.
    const int y = slider.height () / 2;
    SendMouse (slider, QEvent::MouseButtonPress, QPoint (4, y));
    const bool grabbed = slider.isSliderDown ();
    SendMouse (slider, QEvent::MouseMove, QPoint (40, y));
    const int middle = bar.GetValue ();
    SendMouse (slider, QEvent::MouseMove, QPoint (90, y));
    const int far = bar.GetValue ();
    // A real release carries no button held any more; the slider ignores one that does.
    QMouseEvent release (QEvent::MouseButtonRelease, QPointF (90, y), QPointF (slider.mapToGlobal (QPoint (90, y))), Qt::LeftButton,
                         Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent (&slider, &release);
    bar.Detach (recorder);
    EXPECT_TRUE (grabbed);
    EXPECT_LT (0, middle);
    EXPECT_LT (middle, far);
    EXPECT_EQ (recorder.Take (), "Drag:" + std::to_string (middle) + " Drag:" + std::to_string (far) + " Release:" + std::to_string (far));
    EXPECT_EQ (slider.value (), far);
}

TEST_F (QtBackendTest, ScrollBarAndWheelMapToTheScrollPosition)
{
    auto& listView = PeerOf<TxalQt::ListBoxView> (list);
    QScrollBar& bar = listView.GetScrollBar ();
    // (200 - 2 frame - 18 header) / 20 = 9 visible rows; the last scroll position is 50 - 9 + 1.
    Facts facts;
    facts ("range", std::to_string (bar.minimum ()) + ".." + std::to_string (bar.maximum ())) ("page", bar.pageStep ());
    bar.setValue (10);
    facts ("modelAfterBar", list.GetScrollPosition ());
    list.SetScrollPosition (20);
    facts ("barAfterModel", bar.value ());
    QWheelEvent wheel (QPointF (50, 50), QPointF (listView.mapToGlobal (QPoint (50, 50))), QPoint (), QPoint (0, -120), Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent (&listView, &wheel);
    facts ("modelAfterWheel", list.GetScrollPosition ()) ("barAfterWheel", bar.value ());
    list.DeleteItem (1);
    facts ("maxAfterDelete", bar.maximum ());
    EXPECT_EQ (facts.Text (), "range=1..42 page=9 modelAfterBar=10 barAfterModel=20 modelAfterWheel=23 barAfterWheel=23 maxAfterDelete=41");
}

// Destroys the button that was clicked, from inside the click.
class SelfDestroyer : public Wg::ButtonItemObserver {
public:
    std::unique_ptr<Wg::ButtonItem> button;
    void ButtonClicked (const Wg::ButtonClickEvent&) override { button.reset (); }
};

TEST_F (QtBackendTest, ItemsThatDieFirstReleaseTheirWidgetsLater)
{
    const int peersBefore = view->GetPeerCount ();
    SelfDestroyer destroyer;
    destroyer.button = std::make_unique<Wg::ButtonItem> (panel, Wg::Rect::FromSize (10, 230, 80, 24));
    destroyer.button->Attach (destroyer);
    // Announced, then gone before its peer was made.
    auto transient = std::make_unique<Wg::TextEdit> (panel, Wg::Rect::FromSize (10, 260, 80, 22));
    transient.reset ();
    QPointer<QToolButton> button = &PeerOf<QToolButton> (*destroyer.button);
    const int peersWithButton = view->GetPeerCount ();

    button->click ();
    const bool keptDuringClick = button != nullptr && !button->isVisible ();
    ReleaseDeferred ();
    EXPECT_EQ (Facts () ("peersMade", peersWithButton - peersBefore) ("hiddenButKeptDuringClick", keptDuringClick)
                        ("releasedLater", button == nullptr) ("peersLeft", view->GetPeerCount () - peersBefore).Text (),
               "peersMade=1 hiddenButKeptDuringClick=true releasedLater=true peersLeft=0");
}

TEST_F (QtBackendTest, ViewThatGoesFirstDetachesAndRestoresTheMetric)
{
    const int measuredWhileAttached = Gfx::MeasureText ("iiii").width;
    view.reset ();
    EXPECT_EQ (list.GetPeer (), nullptr);
    EXPECT_EQ (panel.GetPeer (), nullptr);
    // The headless metric: 7 pixels a code unit; DejaVu's i is far narrower.
    EXPECT_LT (measuredWhileAttached, 4 * Gfx::HeadlessCharWidth);
    EXPECT_EQ (Gfx::MeasureText ("iiii").width, 4 * Gfx::HeadlessCharWidth);
}

class PanelRecorder : public Wg::PanelObserver {
public:
    int  idles = 0;
    int  closeRequests = 0;
    bool accept = false;

    void PanelIdle (const Wg::PanelIdleEvent&) override { ++idles; }
    void PanelCloseRequested (const Wg::PanelCloseRequestEvent&, bool* accepted) override
    {
        ++closeRequests;
        if (accepted != nullptr && accept) *accepted = true;
    }
};

// Runs the event loop until done holds or a generous limit passes.
template <typename Condition>
void RunEventsUntil (Condition done, int limitMs)
{
    QElapsedTimer clock;
    clock.start ();
    while (!done () && clock.elapsed () < limitMs) QCoreApplication::processEvents (QEventLoop::WaitForMoreEvents, 20);
}

TEST_F (QtBackendTest, ShownViewSendsIdleAndItsWindowClosesOnlyWhenAccepted)
{
    PanelRecorder observer;
    panel.Attach (observer);
    RunEventsUntil ([&] { return observer.idles > 0; }, 5000);
    EXPECT_GT (observer.idles, 0);

    // A hidden view is not idle: nothing of it is on screen to update.
    view->hide ();
    QCoreApplication::processEvents ();
    const int idlesWhenHidden = observer.idles;
    RunEventsUntil ([] { return false; }, 3 * TxalQt::PanelView::IdleIntervalMs);
    EXPECT_EQ (observer.idles, idlesWhenHidden);

    view->show ();
    EXPECT_FALSE (view->close ());
    EXPECT_TRUE (view->isVisible ());
    observer.accept = true;
    EXPECT_TRUE (view->close ());
    EXPECT_FALSE (view->isVisible ());
    EXPECT_EQ (observer.closeRequests, 2);
    panel.Detach (observer);
}

TEST (QtBackendLifeTest, PanelThatGoesFirstLeavesAnInertView)
{
    auto panel = std::make_unique<Wg::Panel> (Wg::Rect (0, 0, 200, 100));
    auto edit = std::make_unique<Wg::TextEdit> (*panel, Wg::Rect::FromSize (10, 10, 100, 22));
    std::unique_ptr<TxalQt::PanelView> view (TxalQt::Backend::AttachPanel (*panel, nullptr));
    edit->SetFocus ();
    edit.reset ();
    panel.reset ();
    ReleaseDeferred ();
    // Keys, painting and resizing of the orphaned view reach no model.
    view->setFocus ();
    SendKey (*view, Qt::Key_A, "a");
    const QImage image = TxalQt::Backend::Grab (*view);
    view->resize (300, 200);
    EXPECT_EQ (view->GetPanel (), nullptr);
    EXPECT_EQ (view->GetPeerCount (), 0);
    EXPECT_EQ (image.size (), QSize (200, 100) * view->devicePixelRatio ());
}

TEST_F (QtBackendTest, QtRunnerMapsMenuHoverAndChoiceToSessionSteps)
{
    Pk::PopupControl popup (panel, Wg::Rect::FromSize (10, 230, 120, 22));
    popup.AppendItem ("Solid");
    popup.AppendItem ("Dashed");
    popup.AppendSeparator ();
    popup.AppendItem ("Dotted");
    popup.SetValue (1);
    popup.Attach (recorder);
    auto& button = PeerOf<QToolButton> (popup);
    TxalQt::Backend::InstallModalRunner ();
    QTimer::singleShot (0, [] {
        auto* menu = dynamic_cast<QMenu*> (QApplication::activePopupWidget ());
        if (menu == nullptr) return;
        const QList<QAction*> actions = menu->actions ();
        actions[1]->hover ();
        actions[2]->hover ();      // the separator: over no entry
        actions[3]->trigger ();
        menu->close ();
    });
    button.click ();
    TxalQt::Backend::RemoveModalRunner ();
    popup.Detach (recorder);
    EXPECT_EQ (recorder.Take (), "Enter:1 Track:2 Track:0 Track:4 Exit:4 Changed:4");
}

}   // namespace
