#pragma once
// Qt key presses as the model's key codes. Alt is the popup modifier, Ctrl (Command on a Mac)
// the command modifier; a modifier pressed alone is a Key::Modifier.

#include <QKeyEvent>
#include <optional>

#include "Wg/Key.hpp"

namespace TxalQt::KeyMapping {

int ToModifierFlags (Qt::KeyboardModifiers modifiers);

// The model's key for the press; nothing for keys the model has no code for, and for texts of
// more than one code unit (an input method's or a surrogate pair), which edits take as typed text.
std::optional<Wg::Key::Code> ToKeyCode (const QKeyEvent& event);

// The modifier pressed alone; nothing for other keys.
std::optional<Wg::Key::Modifier> ToModifier (const QKeyEvent& event);

}   // namespace TxalQt::KeyMapping
