#include "EditPeer.hpp"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalBlocker>

#include "InputScope.hpp"
#include "Strings.hpp"
#include "Theme.hpp"
#include "TxalQt/PanelView.hpp"

// Input of an edit peer:
//   key press            -> Panel::KeyPress -> handlers, then Item::HandleKey (the model edits)
//   key nobody used      -> copy, cut, paste, select all (Tab is the panel's traversal)
//   input method text    -> UserType
//   paste, middle click  -> UserType (the selection is replaced, as when typing)
//   mouse selection      -> TextEdit::SetSelection
//   focus in and out     -> PeerBase (the model's focus; leaving it commits)
// Model changes come back as Text and Selection and are mirrored with Qt's signals blocked.

namespace TxalQt {

namespace {

QString SingleLine (QString text)
{
    text.replace (QStringLiteral ("\r\n"), QStringLiteral (" "));
    text.replace (QLatin1Char ('\n'), QLatin1Char (' '));
    text.replace (QLatin1Char ('\r'), QLatin1Char (' '));
    text.replace (QLatin1Char ('\t'), QLatin1Char (' '));
    return text;
}

}   // namespace

EditPeer::EditPeer (PanelView& view, Wg::Item& edit) : QLineEdit (&view), PeerBase (view, edit, *this)
{
    setFont (Theme::GetFont (Gfx::PlainFont));
    setFocusPolicy (Qt::StrongFocus);
    setDragEnabled (false);
    setAcceptDrops (false);
    // Nothing should reach QLineEdit's own editing; should anything slip through, the text goes
    // to the model as a paste over everything, and the model's answer is shown.
    QObject::connect (this, &QLineEdit::textEdited, this, [this] (const QString& typed) {
        if (GetItem () != nullptr && GetView ().AcceptsInput ()) {
            const InputScope scope;
            if (Wg::TextEdit* textEdit = GetTextEdit ())
                textEdit->UserSetText (ToUniString (typed));
            else if (Wg::NumberEditBase* numberEdit = GetNumberEdit ())
                numberEdit->UserSetText (ToUniString (typed));
        }
        if (GetItem () != nullptr) MirrorText ();
    });
}

Wg::TextEdit* EditPeer::GetTextEdit () const
{
    return dynamic_cast<Wg::TextEdit*> (GetItem ());
}

Wg::NumberEditBase* EditPeer::GetNumberEdit () const
{
    return dynamic_cast<Wg::NumberEditBase*> (GetItem ());
}

Kor::UniString EditPeer::GetModelText () const
{
    if (const Wg::TextEdit* textEdit = GetTextEdit ()) return textEdit->GetText ();
    if (const Wg::NumberEditBase* numberEdit = GetNumberEdit ()) return numberEdit->GetText ();
    return {};
}

// --- PeerBase ---

void EditPeer::Mirror (Wg::Aspect aspect, int)
{
    switch (aspect) {
        case Wg::Aspect::Text:
        case Wg::Aspect::Value:
            MirrorText ();
            break;
        case Wg::Aspect::Selection:
        case Wg::Aspect::Focus:
            MirrorSelection ();
            break;
        default:
            break;
    }
}

void EditPeer::MirrorAll ()
{
    MirrorText ();
}

void EditPeer::MirrorText ()
{
    const QString modelText = ToQString (GetModelText ());
    if (modelText != text ()) {
        const QSignalBlocker blocker (this);
        setText (modelText);
    }
    MirrorSelection ();
}

void EditPeer::MirrorSelection ()
{
    if (sendingSelection || GetItem () == nullptr) return;
    const QSignalBlocker blocker (this);
    if (const Wg::TextEdit* textEdit = GetTextEdit ()) {
        const Kor::Range<int> selection = textEdit->GetSelection ();
        if (selection.IsEmpty ())
            setCursorPosition (selection.GetEnd ());
        else
            setSelection (selection.GetBegin (), selection.GetLength ());
    } else if (const Wg::NumberEditBase* numberEdit = GetNumberEdit ()) {
        // A shown value counts as selected as a whole while the edit has the focus; what the
        // user types is appended at the end.
        const bool focused = GetView ().GetPanel () != nullptr && numberEdit->IsFocused ();
        if (focused && !numberEdit->IsEditing ()) {
            selectAll ();
        } else {
            deselect ();
            setCursorPosition (static_cast<int> (text ().size ()));
        }
    }
}

bool EditPeer::KeyNotUsed (QKeyEvent& event)
{
    if (HandleEditingShortcut (event)) return true;
    // Text of several code units (a surrogate pair, a composed character) is typed as a whole.
    if (event.text ().size () > 1 && !event.modifiers ().testFlag (Qt::ControlModifier) && GetView ().AcceptsInput ()) {
        Type (event.text ());
        return true;
    }
    event.ignore ();
    return true;
}

bool EditPeer::HandleEditingShortcut (QKeyEvent& event)
{
    if (event.matches (QKeySequence::Copy))
        Copy ();
    else if (event.matches (QKeySequence::Cut))
        Cut ();
    else if (event.matches (QKeySequence::Paste))
        Paste ();
    else if (event.matches (QKeySequence::SelectAll))
        SelectAllText ();
    else
        return false;
    return true;
}

// --- Clipboard ---

void EditPeer::Copy ()
{
    // A number edit's value counts as selected as a whole.
    const QString copied = hasSelectedText () ? selectedText () : (GetNumberEdit () != nullptr ? text () : QString ());
    if (!copied.isEmpty ()) QGuiApplication::clipboard ()->setText (copied);
}

void EditPeer::Cut ()
{
    if (!GetView ().AcceptsInput ()) return;
    Copy ();
    const InputScope scope;
    if (Wg::TextEdit* textEdit = GetTextEdit ()) {
        if (!textEdit->GetSelection ().IsEmpty ()) textEdit->HandleKey (Wg::Key::Code (Wg::Key::Delete));
    } else if (Wg::NumberEditBase* numberEdit = GetNumberEdit ()) {
        numberEdit->UserSetText ({});
    }
}

void EditPeer::Paste ()
{
    Type (SingleLine (QGuiApplication::clipboard ()->text ()));
}

void EditPeer::SelectAllText ()
{
    if (Wg::TextEdit* textEdit = GetTextEdit (); textEdit != nullptr && GetView ().AcceptsInput ()) {
        const InputScope scope;
        textEdit->SelectAll ();
    }
    MirrorSelection ();
}

void EditPeer::Type (const QString& typed)
{
    if (typed.isEmpty () || !GetView ().AcceptsInput ()) return;
    const InputScope scope;
    if (Wg::TextEdit* textEdit = GetTextEdit ())
        textEdit->UserType (ToUniString (typed));
    else if (Wg::NumberEditBase* numberEdit = GetNumberEdit ())
        numberEdit->UserType (ToUniString (typed));
}

void EditPeer::SendSelection ()
{
    Wg::TextEdit* textEdit = GetTextEdit ();
    if (textEdit == nullptr || !GetView ().AcceptsInput ()) return;
    const int begin = hasSelectedText () ? selectionStart () : cursorPosition ();
    const int end = hasSelectedText () ? begin + static_cast<int> (selectedText ().size ()) : begin;
    // Qt shows the selection already (with the caret where the mouse left it): no echo.
    sendingSelection = true;
    const InputScope scope;
    textEdit->SetSelection (Kor::Range<int> (begin, end));
    sendingSelection = false;
}

// --- QWidget ---

bool EditPeer::event (QEvent* event)
{
    if (event->type () == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*> (event);
        if (key->matches (QKeySequence::Copy) || key->matches (QKeySequence::Cut) || key->matches (QKeySequence::Paste) ||
            key->matches (QKeySequence::SelectAll)) {
            key->accept ();
            return true;
        }
    }
    return HandleEvent (*event) || QLineEdit::event (event);
}

void EditPeer::keyPressEvent (QKeyEvent* event)
{
    // The model edits; QLineEdit never does.
    event->ignore ();
}

void EditPeer::inputMethodEvent (QInputMethodEvent* event)
{
    // Composition is the input method's business; the model hears the committed text.
    Type (event->commitString ());
    event->accept ();
}

void EditPeer::focusInEvent (QFocusEvent* event)
{
    QLineEdit::focusInEvent (event);
    // QLineEdit selects everything when tabbed into; the model's selection is what counts.
    MirrorSelection ();
}

void EditPeer::mousePressEvent (QMouseEvent* event)
{
    if (event->button () == Qt::MiddleButton) return;
    QLineEdit::mousePressEvent (event);
    SendSelection ();
}

void EditPeer::mouseMoveEvent (QMouseEvent* event)
{
    QLineEdit::mouseMoveEvent (event);
    if (event->buttons ().testFlag (Qt::LeftButton)) SendSelection ();
}

void EditPeer::mouseReleaseEvent (QMouseEvent* event)
{
    if (event->button () == Qt::MiddleButton) {
        // The X11 selection's text, typed in as QLineEdit would paste it.
        if (QGuiApplication::clipboard ()->supportsSelection ()) Type (SingleLine (QGuiApplication::clipboard ()->text (QClipboard::Selection)));
        return;
    }
    QLineEdit::mouseReleaseEvent (event);
    SendSelection ();
    if (GetNumberEdit () != nullptr) MirrorSelection ();
}

void EditPeer::mouseDoubleClickEvent (QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent (event);
    SendSelection ();
}

void EditPeer::contextMenuEvent (QContextMenuEvent* event)
{
    const bool editable = GetItem () != nullptr && GetView ().AcceptsInput () && isEnabled ();
    const bool hasCopyable = hasSelectedText () || (GetNumberEdit () != nullptr && !text ().isEmpty ());
    QMenu menu (this);
    menu.addAction (tr ("Cu&t"), QKeySequence::Cut, [this] { Cut (); })->setEnabled (editable && hasCopyable);
    menu.addAction (tr ("&Copy"), QKeySequence::Copy, [this] { Copy (); })->setEnabled (hasCopyable);
    menu.addAction (tr ("&Paste"), QKeySequence::Paste, [this] { Paste (); })
        ->setEnabled (editable && !QGuiApplication::clipboard ()->text ().isEmpty ());
    if (GetTextEdit () != nullptr) {
        menu.addSeparator ();
        menu.addAction (tr ("Select &All"), QKeySequence::SelectAll, [this] { SelectAllText (); })->setEnabled (editable && !text ().isEmpty ());
    }
    const InputScope scope;
    menu.exec (event->globalPos ());
}

}   // namespace TxalQt
