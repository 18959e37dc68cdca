#include "KeyMapping.hpp"

namespace TxalQt::KeyMapping {

namespace {

constexpr char16_t FirstPrintable = u' ';
constexpr char16_t DeleteCharacter = u'\x7F';

std::optional<int> ToSpecial (int qtKey)
{
    switch (qtKey) {
        case Qt::Key_Return:    return Wg::Key::Return;
        case Qt::Key_Enter:     return Wg::Key::Enter;
        case Qt::Key_Escape:    return Wg::Key::Escape;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:   return Wg::Key::Tab;
        case Qt::Key_Backspace: return Wg::Key::Backspace;
        case Qt::Key_Left:      return Wg::Key::Left;
        case Qt::Key_Right:     return Wg::Key::Right;
        case Qt::Key_Up:        return Wg::Key::Up;
        case Qt::Key_Down:      return Wg::Key::Down;
        case Qt::Key_Delete:    return Wg::Key::Delete;
        case Qt::Key_Home:      return Wg::Key::Home;
        case Qt::Key_End:       return Wg::Key::End;
        case Qt::Key_PageUp:    return Wg::Key::PageUp;
        case Qt::Key_PageDown:  return Wg::Key::PageDown;
        case Qt::Key_Insert:    return Wg::Key::Insert;
        default:                return std::nullopt;
    }
}

}   // namespace

int ToModifierFlags (Qt::KeyboardModifiers modifiers)
{
    int flags = 0;
    if (modifiers.testFlag (Qt::ShiftModifier)) flags |= Wg::Key::ShiftFlag;
    if (modifiers.testFlag (Qt::AltModifier)) flags |= Wg::Key::PopupFlag;
    if (modifiers.testFlag (Qt::ControlModifier)) flags |= Wg::Key::CommandFlag;
    return flags;
}

std::optional<Wg::Key::Code> ToKeyCode (const QKeyEvent& event)
{
    int flags = ToModifierFlags (event.modifiers ());
    // Shift+Tab arrives as its own key; it is Tab with Shift for the model.
    if (event.key () == Qt::Key_Backtab) flags |= Wg::Key::ShiftFlag;
    if (const std::optional<int> special = ToSpecial (event.key ())) return Wg::Key::Code (*special, 0, flags);

    const QString text = event.text ();
    if (text.size () == 1 && text[0].unicode () >= FirstPrintable && text[0].unicode () != DeleteCharacter)
        return Wg::Key::Code::Character (text[0].unicode (), flags);
    if (text.size () > 1) return std::nullopt;
    // With Ctrl held the text is a control character (or nothing): the key names the character.
    const int key = event.key ();
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde) {
        char16_t character = static_cast<char16_t> (key);
        if (key >= Qt::Key_A && key <= Qt::Key_Z && !event.modifiers ().testFlag (Qt::ShiftModifier))
            character = static_cast<char16_t> (u'a' + (key - Qt::Key_A));
        return Wg::Key::Code::Character (character, flags);
    }
    return std::nullopt;
}

std::optional<Wg::Key::Modifier> ToModifier (const QKeyEvent& event)
{
    switch (event.key ()) {
        case Qt::Key_Shift:   return Wg::Key::Modifier (Wg::Key::Shift);
        case Qt::Key_Alt:     return Wg::Key::Modifier (Wg::Key::PopupModifier);
        case Qt::Key_Control: return Wg::Key::Modifier (Wg::Key::Command);
        default:              return std::nullopt;
    }
}

}   // namespace TxalQt::KeyMapping
