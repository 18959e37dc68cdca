#pragma once
// Keyboard input: key codes, modifiers, the application's key state and the low-level keyboard
// handler that a panel consults before the focused control.

namespace Wg {

class Item;

namespace Key {

// Special keys carry a negative code and no character; character keys carry code 0 and the
// character (space is code 0 with character 32).
enum Special : int {
    NoSpecial  = 0,
    Return     = -1,
    Enter      = -2,
    Escape     = -3,
    Tab        = -4,
    Backspace  = -5,
    Left       = -6,
    Right      = -7,
    Up         = -8,
    Down       = -9,
    Delete     = -10,
    Home       = -11,
    End        = -12,
    PageUp     = -13,
    PageDown   = -14,
    Insert     = -15,
};

// Modifier keys. The popup modifier (Alt, Option on a Mac) opens popups with the down arrow.
enum ModifierKey : int {
    NoModifier      = 0,
    Shift           = 1,
    PopupModifier   = 2,
    Command         = 3,   // Ctrl, Command on a Mac
};

// Bit set of modifiers held with a key.
enum ModifierFlags : int {
    ShiftFlag   = 1 << Shift,
    PopupFlag   = 1 << PopupModifier,
    CommandFlag = 1 << Command,
};

class Code {
public:
    constexpr Code () = default;
    constexpr Code (int code, char16_t character = 0, int modifiers = 0) : code (code), character (character), modifiers (modifiers) {}
    static constexpr Code Character (char16_t ch, int modifiers = 0) { return Code (NoSpecial, ch, modifiers); }

    constexpr int      GetCode () const { return code; }
    constexpr char16_t GetCharacter () const { return character; }
    constexpr int      GetModifiers () const { return modifiers; }
    constexpr bool     HasModifier (ModifierKey key) const { return (modifiers & (1 << key)) != 0; }
    constexpr bool     operator== (const Code&) const = default;

private:
    int      code = NoSpecial;
    char16_t character = 0;
    int      modifiers = 0;
};

// A modifier key pressed alone.
class Modifier {
public:
    constexpr Modifier () = default;
    constexpr explicit Modifier (int key) : key (key) {}
    constexpr int  GetKey () const { return key; }
    constexpr bool operator== (const Modifier&) const = default;

private:
    int key = NoModifier;
};

}   // namespace Key

// Result of a keyboard handler.
enum KeyResult : int { KeyNotHandled = 0, KeyHandled = 1 };

// Installed on a panel; asked before the focused control. sourceItem, when not null, may be
// set to the item that handled the key.
class KeyboardHandler {
public:
    virtual ~KeyboardHandler () = default;
    virtual KeyResult KeyPressed (const Key::Code& key, Item** sourceItem) = 0;
    virtual KeyResult KeyPressed (const Key::Modifier& modifier, Item** sourceItem) = 0;
};

// The state of the keyboard as the host application sees it.
class Application {
public:
    // Mode 1 asks whether the key is held now. Other modes answer false.
    static bool GetKeyState (int key, int mode);
    // Kept up to date by the panel's key entry points; tests may set it directly.
    static void SetModifierState (int modifierFlags);
    static int  GetModifierState ();
};

}   // namespace Wg
