#pragma once
// Wg::TextEdit: a one-line text edit.
//
// Change events: with auto update on (the default), every change of the contents by the user
// sends TextEditChanged; with it off, the event comes when the user commits (Return, Enter, Tab
// or the focus leaving the edit) and the text differs from the last committed one. Escape
// restores the last committed text. Programmatic SetText never notifies, makes its text the
// committed one and, when the text is unchanged, leaves caret and selection alone.

#include "Kor/Range.hpp"
#include "Wg/TypingEdit.hpp"

namespace Wg {

class TextEdit;

class TextEditChangeEvent : public ItemEvent {
public:
    explicit TextEditChangeEvent (TextEdit* source);
    TextEdit* GetSource () const;
};

class TextEditObserver : public virtual ItemObserver {
public:
    virtual void TextEditChanged (const TextEditChangeEvent& event);
};

class TextEdit : public TypingEdit {
public:
    static constexpr short DefaultMaxLength = 255;

    TextEdit (const Panel& panel, const Rect& rect, short id = 0, short maxLength = DefaultMaxLength);

    void Attach (TextEditObserver& observer) { Item::Attach (observer); }
    void Detach (TextEditObserver& observer) { Item::Detach (observer); }

    Kor::UniString GetText () const { return text; }
    // Cuts the text to the maximum length.
    void SetText (const Kor::UniString& newText);

    short GetMaxLength () const { return maxLength; }
    // Non-positive values are ignored. A longer text is cut.
    void SetMaxLength (short length);

    // Character selection [begin, end) in code units; the caret is at end.
    Kor::Range<int> GetSelection () const { return selection; }
    void            SetSelection (const Kor::Range<int>& range);
    void            SelectAll ();

    // --- User input entry points ---
    // Typing (TypingEdit::UserType) goes in at the caret, replacing the selection; one change
    // per character. Replaces the whole text (a paste over everything): one change.
    void UserSetText (const Kor::UniString& newText);
    // Sends the pending change (auto update off) when the text differs from the committed one.
    void Commit () override;
    void Revert () override;

protected:
    bool TypeCharacter (const Kor::UniString& character) override;
    // Backspace, Delete, arrows, Home, End.
    bool HandleEditingKey (const Key::Code& key) override;

private:
    void ReplaceSelection (const Kor::UniString& with);
    void ContentsChangedByUser ();
    void SendChange ();

    Kor::UniString  text;
    Kor::UniString  committedText;
    short           maxLength;
    Kor::Range<int> selection {0, 0};
};

}   // namespace Wg
