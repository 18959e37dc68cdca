#pragma once
// TxalQt::ItemSelectionPopup: the real popup of an item selection dialog session
// (Rb::AutoClosingSingleItemSelectionDialog). A search field on top; below it the session's rows:
// the tree (a triangle opens and closes a group) or, while the field holds text, the results with
// the matched text highlighted and each result's path in grey; at the bottom the information
// line. Typing goes to the session on every keystroke; Up and Down move the highlight, Return
// picks the highlighted row, a click picks a row, Escape or a click outside cancels. The popup is
// never taller than the session's maximum height; the rows scroll.

#include <QEventLoop>
#include <QWidget>

class QLabel;
class QLineEdit;
class QScrollBar;

namespace Rb {
class AutoClosingSingleItemSelectionDialog;
}   // namespace Rb

namespace TxalQt {

class ItemSelectionRows;

// The selection dialog's popup (see the top of this file).
class ItemSelectionPopup : public QWidget {
public:
    static constexpr int RowHeight = 22;
    static constexpr int Width = 380;

    // The session must have begun and must outlive the popup.
    explicit ItemSelectionPopup (Rb::AutoClosingSingleItemSelectionDialog& session, QWidget* parent = nullptr);
    ~ItemSelectionPopup () override;

    // Shows the popup with its top-left at position and returns when the session has ended.
    void Exec (const QPoint& position);
    // Types into the search field as a user would (for screenshots and tests).
    void TypeSearchText (const QString& text);
    // Brings the widgets in line with the session (after a change the popup did not make).
    void Refresh ();

protected:
    bool eventFilter (QObject* watched, QEvent* event) override;
    void hideEvent (QHideEvent* event) override;

private:
    friend class ItemSelectionRows;

    void Pick (int row);
    void Cancel ();
    void Finish ();
    void UpdateGeometry ();

    Rb::AutoClosingSingleItemSelectionDialog& session;
    QLineEdit*                                search = nullptr;
    ItemSelectionRows*                        rows = nullptr;
    QScrollBar*                               scrollBar = nullptr;
    QWidget*                                  information = nullptr;
    QEventLoop                                loop;
};

}   // namespace TxalQt
