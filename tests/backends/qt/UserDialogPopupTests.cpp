// The user dialogs' Qt popups: ticks and typing reach the session at once, closing accepts,
// Escape cancels. Runs on Qt's offscreen platform (the environment of QtBackendTests.cpp).

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>
#include <functional>
#include <memory>

#include "QtModalRunner.hpp"
#include "Rb/MultiLineEdit.hpp"
#include "Rb/MultipleChoice.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Panel.hpp"

namespace {

class UserDialogPopupTest : public ::testing::Test {
protected:
    UserDialogPopupTest () { previous = Wg::SetModalRunner (&runner); }
    ~UserDialogPopupTest () override { Wg::SetModalRunner (previous); }

    // Acts on the open popup once it shows.
    static void WhenOpen (std::function<void (QWidget& popup)> act)
    {
        QTimer::singleShot (0, [act] {
            if (QWidget* popup = QApplication::activePopupWidget ()) act (*popup);
        });
    }
    static void PressEscape (QWidget& popup)
    {
        QKeyEvent escape (QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent (&popup, &escape);
    }
    static std::string Ticks (const Rb::MultipleChoiceData& data)
    {
        std::string out;
        for (bool on : data.GetSelection ()) out += on ? "x" : ".";
        return out;
    }

    TxalQt::QtModalRunner runner;
    Wg::ModalRunner*      previous = nullptr;
    Wg::Panel             panel {Wg::Rect (0, 0, 300, 200)};
    Wg::ButtonItem        anchor {panel, Wg::Rect::FromSize (200, 10, 20, 20)};
};

TEST_F (UserDialogPopupTest, ChecklistTicksGoToTheDataAndClosingKeepsThem)
{
    // With a view, the popup opens under the anchor's widget.
    const std::unique_ptr<TxalQt::PanelView> view (TxalQt::Backend::AttachPanel (panel));
    view->show ();
    Rb::MultipleChoiceData data;
    for (const char* text : {"New", "Existing", "Demolish"}) data.AddItem (text, false);
    data.SetItemSelected (1, true);
    Rb::MultipleChoicePopUpDialog dialog (data, &anchor);
    std::string seenWhileOpen;
    WhenOpen ([&] (QWidget& popup) {
        auto* list = popup.findChild<QListWidget*> ();
        ASSERT_NE (list, nullptr);
        ASSERT_EQ (list->count (), 3);
        EXPECT_EQ (list->item (1)->checkState (), Qt::Checked);
        list->item (2)->setCheckState (Qt::Checked);
        seenWhileOpen = Ticks (data);
        popup.close ();
    });
    dialog.Invoke ();
    EXPECT_EQ (seenWhileOpen, ".xx") << "a tick reaches the data while the popup is open";
    EXPECT_EQ (Ticks (data), ".xx");
    EXPECT_TRUE (dialog.WasAccepted ());
}

TEST_F (UserDialogPopupTest, EscapeCancelsTheChecklistAndTheTextBox)
{
    Rb::MultipleChoiceData data;
    data.AddItem ("New", false);
    Rb::MultipleChoicePopUpDialog checklist (data, &anchor);
    WhenOpen ([] (QWidget& popup) {
        popup.findChild<QListWidget*> ()->item (0)->setCheckState (Qt::Checked);
        PressEscape (popup);
    });
    checklist.Invoke ();
    EXPECT_EQ (Ticks (data), ".");
    EXPECT_FALSE (checklist.WasAccepted ());

    Rb::MultiLineEditPopUpDialog textBox ("fire", &anchor, 200, 150);
    QSize size;
    WhenOpen ([&size] (QWidget& popup) {
        size = popup.size ();
        popup.findChild<QPlainTextEdit*> ()->setPlainText ("wet");
        PressEscape (popup);
    });
    textBox.Invoke ();
    EXPECT_EQ (textBox.GetText (), "fire");
    EXPECT_EQ (size, QSize (200, 150));
}

TEST_F (UserDialogPopupTest, TheTextBoxReportsEachChangeAndClosingAccepts)
{
    Rb::MultiLineEditPopUpDialog textBox ("fire", &anchor, 200, 150);
    WhenOpen ([] (QWidget& popup) {
        auto* edit = popup.findChild<QPlainTextEdit*> ();
        ASSERT_NE (edit, nullptr);
        EXPECT_EQ (edit->toPlainText (), "fire");
        edit->setPlainText ("fire\nwet");
        popup.close ();
    });
    textBox.Invoke ();
    EXPECT_EQ (textBox.GetText (), "fire\nwet");
    EXPECT_TRUE (textBox.WasAccepted ());
}

}   // namespace
