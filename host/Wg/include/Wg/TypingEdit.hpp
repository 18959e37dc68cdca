#pragma once
// Wg::TypingEdit: what every one-line edit shares, the text edit and the number edits alike.
// It reads the keys that commit (Return, Enter, Tab) and revert (Escape), types printable
// characters one by one, and commits what was typed when the focus leaves. What a character,
// a commit or a revert does to the contents is the subclass's.
//
// Auto update on (the default): observers hear of every change the user makes. Off: they hear
// once, when the user commits.

#include "Wg/Item.hpp"

namespace Wg {

class TypingEdit : public Item {
public:
    bool IsFocusable () const override { return true; }

    bool GetAutoUpdate () const { return autoUpdate; }
    void SetAutoUpdate (bool on) { autoUpdate = on; }

    // --- User input entry points ---
    // Types characters one by one; control characters are skipped. Stops when the edit is
    // disabled, hidden or destroyed by an observer of an earlier character.
    void UserType (const Kor::UniString& characters);
    // Return and Enter commit; Tab commits but is reported unused, so that the panel or the
    // host moves the focus on; Escape reverts; a printable character is typed; characters held
    // with the command modifier are the host's shortcuts. Other keys go to HandleEditingKey.
    bool HandleKey (const Key::Code& key) override;
    // Takes what the user typed; the subclass tells its observers as its last step.
    virtual void Commit () = 0;
    // Drops what the user typed since the last commit.
    virtual void Revert () = 0;

protected:
    TypingEdit (const Panel& panel, const Rect& rect, short id);

    // Commits before anybody hears that the focus left.
    void FocusChanged (bool gained) override;

    // Puts one typeable character into the contents and tells observers as auto update wants;
    // false when the contents refuse it (full).
    virtual bool TypeCharacter (const Kor::UniString& character) = 0;
    // Keys that edit the contents (Backspace, Delete, caret moves); false when not used.
    virtual bool HandleEditingKey (const Key::Code& key) = 0;

private:
    bool autoUpdate = true;
};

}   // namespace Wg
