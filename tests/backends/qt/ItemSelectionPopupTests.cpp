// The Qt item selection popup against its session: typing reaches the search at every
// keystroke, Up/Down/Return and clicks pick, Escape and a click outside cancel, triangles open
// groups, and the popup keeps to the session's maximum height. Runs on Qt's offscreen platform.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <memory>
#include <string>

#include "../../host/Rb/SelectionTestData.hpp"
#include "OffscreenApplication.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/ItemSelectionPopup.hpp"
#include "Wg/ModalRunner.hpp"

namespace {

using Dialog = Rb::AutoClosingSingleItemSelectionDialog;
using Popup = TxalQt::ItemSelectionPopup;

const auto* const environment = ::testing::AddGlobalTestEnvironment (new QtTest::OffscreenApplication ("ItemSelectionPopupTests"));

void Key (QWidget& target, int key, const QString& text = {})
{
    QKeyEvent press (QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent (&target, &press);
}

void Type (QWidget& target, const QString& text)
{
    for (const QChar ch : text) Key (target, 0, QString (ch));
}

class ItemSelectionPopupTest : public ::testing::Test {
protected:
    ItemSelectionPopupTest ()
    {
        const Rb::ItemIndex walls = data.Group (-1, "Walls");
        data.Item (walls, "External wall");
        data.Item (walls, "Curtain wall");
        const Rb::ItemIndex roofs = data.Group (-1, "Roofs");
        const Rb::ItemIndex flat = data.Group (roofs, "Flat roof");
        data.Item (flat, "Green roof");
        data.Item (roofs, "Pitched roof");
        data.Item (-1, "Doors");
        dialog.Begin ();
    }

    QLineEdit& Search (Popup& popup) { return *popup.findChild<QLineEdit*> (); }
    // The widget that paints the rows: the popup's child under the search field.
    QWidget& Rows (Popup& popup) { return *popup.childAt (QPoint (Popup::Width / 2, 50)); }
    void Click (QWidget& rows, int row, int x = 120)
    {
        const QPointF at (x, (row - 1) * Popup::RowHeight + Popup::RowHeight / 2);
        QMouseEvent release (QEvent::MouseButtonRelease, at, rows.mapToGlobal (at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent (&rows, &release);
    }

    RbTest::TextData data;
    Dialog           dialog {data, nullptr};
};

TEST_F (ItemSelectionPopupTest, TypingSearchesAtEveryKeyAndReturnPicksTheHighlightedResult)
{
    Popup popup (dialog);
    popup.show ();
    Type (Search (popup), "ROO");
    EXPECT_EQ (dialog.GetSearchText (), "ROO");
    EXPECT_EQ (RbTest::DumpRows (dialog), "*[Roo]fs | Flat [roo]f @Roofs | Green [roo]f @Roofs › Flat roof | Pitched [roo]f @Roofs");
    Key (Search (popup), Qt::Key_Down);
    Key (Search (popup), Qt::Key_Down);
    Key (Search (popup), Qt::Key_Up);
    EXPECT_EQ (dialog.GetHighlightedRow (), 2);
    Key (Search (popup), Qt::Key_Return);
    EXPECT_TRUE (dialog.HasEnded ());
    EXPECT_TRUE (dialog.WasPicked ());
    EXPECT_EQ (data.Selected (), "Flat roof");
    EXPECT_FALSE (popup.isVisible ());
}

TEST_F (ItemSelectionPopupTest, TrianglesOpenGroupsAndAClickOnARowPicksIt)
{
    Popup popup (dialog);
    popup.show ();
    QWidget& rows = Rows (popup);
    Click (rows, 2, 8);
    EXPECT_EQ (RbTest::DumpRows (dialog), "-Walls | *+Roofs |   -Flat roof |   Pitched roof | Doors");
    EXPECT_FALSE (dialog.HasEnded ());
    Click (rows, 4);
    EXPECT_EQ (data.Selected (), "Pitched roof");
    EXPECT_TRUE (dialog.HasEnded ());
}

TEST_F (ItemSelectionPopupTest, EscapeAndAClickOutsideCancel)
{
    {
        Popup popup (dialog);
        popup.show ();
        Key (Search (popup), Qt::Key_Escape);
        EXPECT_TRUE (dialog.HasEnded ());
    }
    Dialog second (data, nullptr);
    second.Begin ();
    Popup popup (second);
    popup.show ();
    popup.hide ();
    EXPECT_TRUE (second.HasEnded ());
    EXPECT_EQ (data.Selected (), "");
}

TEST_F (ItemSelectionPopupTest, PopupKeepsToTheMaximumHeightAndShowsTheInformationLine)
{
    for (int i = 0; i < 200; ++i) data.Item (-1, "Entry " + std::to_string (i));
    Dialog tall (data, nullptr);
    tall.SetMaximumHeight (300);
    tall.SetInformation ({}, "Some items are hidden.");
    tall.Begin ();
    Popup popup (tall);
    popup.show ();
    EXPECT_LE (popup.height (), 300);
    EXPECT_GE (popup.height (), 200) << "a long list uses the height it may";
    bool informationShown = false;
    for (QWidget* child : popup.findChildren<QWidget*> ())
        if (auto* label = qobject_cast<QLabel*> (child); label != nullptr && label->text () == "Some items are hidden.") informationShown = label->isVisible ();
    EXPECT_TRUE (informationShown);
}

TEST_F (ItemSelectionPopupTest, TheQtRunnerShowsThePopupForASelectionDialog)
{
    TxalQt::Backend::InstallModalRunner ();
    QTimer::singleShot (0, [] {
        auto* popup = qobject_cast<QWidget*> (QApplication::activePopupWidget ());
        if (popup == nullptr) return;
        auto* search = popup->findChild<QLineEdit*> ();
        Type (*search, "door");
        Key (*search, Qt::Key_Return);
    });
    Dialog run (data, nullptr);
    const bool picked = run.Invoke ();
    TxalQt::Backend::RemoveModalRunner ();
    EXPECT_TRUE (picked);
    EXPECT_EQ (data.Selected (), "Doors");
}

}   // namespace
