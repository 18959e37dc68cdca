#pragma once
// TxalQt::EditPeer: the peer of a Wg::TextEdit and of the number edits (RealEdit, IntEdit,
// PosIntEdit). A QLineEdit that never edits itself: every key press goes to the panel, pasted
// and input-method text to the edit's UserType, and the model's text and selection are mirrored
// back. The mouse places the caret and selects in Qt; the selection goes to the model.

#include <QLineEdit>

#include "PeerBase.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/TextEdit.hpp"

namespace TxalQt {

class EditPeer : public QLineEdit, public PeerBase {
public:
    // edit: a Wg::TextEdit or a Wg::NumberEditBase.
    EditPeer (PanelView& view, Wg::Item& edit);

    // --- Clipboard operations, through the model's entry points ---
    void Copy ();
    void Cut ();
    void Paste ();
    void SelectAllText ();

protected:
    // --- PeerBase ---
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool KeyNotUsed (QKeyEvent& event) override;

    // --- QWidget ---
    bool event (QEvent* event) override;
    void keyPressEvent (QKeyEvent* event) override;
    void inputMethodEvent (QInputMethodEvent* event) override;
    void focusInEvent (QFocusEvent* event) override;
    void mousePressEvent (QMouseEvent* event) override;
    void mouseMoveEvent (QMouseEvent* event) override;
    void mouseReleaseEvent (QMouseEvent* event) override;
    void mouseDoubleClickEvent (QMouseEvent* event) override;
    void contextMenuEvent (QContextMenuEvent* event) override;

private:
    Wg::TextEdit*       GetTextEdit () const;
    Wg::NumberEditBase* GetNumberEdit () const;
    Kor::UniString      GetModelText () const;
    void                MirrorText ();
    void                MirrorSelection ();
    // The selection the mouse made, to the model (text edits; number edits have none).
    void                SendSelection ();
    void                Type (const QString& text);
    // Whether a clipboard or editing key sequence was handled.
    bool                HandleEditingShortcut (QKeyEvent& event);

    bool sendingSelection = false;
};

}   // namespace TxalQt
