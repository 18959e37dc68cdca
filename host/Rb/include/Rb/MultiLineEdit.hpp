#pragma once
// The multi-line edit popup: a text box of a given size under the control that opened it. It
// tells its observers of every change of the text; MultiLineEditPopUpDialogChanges says afterwards
// whether the text differs from the one the popup started with.
//
// Headless, the popup plays the modal runner's script: Type(text) replaces the whole text, Accept
// closes keeping it, Cancel closes and restores the starting text.

#include "Kor/Event.hpp"
#include "Kor/LifeWatch.hpp"
#include "Rb/DialogSession.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Item.hpp"
#include "Wg/ModalRunner.hpp"

namespace Rb {

class MultiLineEditPopUpDialog;

// Hears every change of the text of a multi-line edit popup.
class MultiLineEditPopUpDialogObserver : public virtual Kor::EventObserver {
public:
    virtual void TextChanged (const MultiLineEditPopUpDialog& dialog);
};

// The popup. Does not own its anchor.
class MultiLineEditPopUpDialog : public DialogSession, public Kor::EventSource {
public:
    MultiLineEditPopUpDialog (const Kor::UniString& text, Wg::Item* anchor, short width, short height);

    void Attach (MultiLineEditPopUpDialogObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (MultiLineEditPopUpDialogObserver& observer) { Kor::EventSource::Detach (observer); }

    const Kor::UniString& GetText () const { return text; }
    const Kor::UniString& GetInitialText () const { return initialText; }
    // What the user typed: a changed text notifies the observers.
    void                  SetText (const Kor::UniString& newText);
    short                 GetWidth () const { return width; }
    short                 GetHeight () const { return height; }

    // --- Wg::ModalSession ---
    void Begin () override {}
    bool Perform (const Wg::ModalStep& step) override;

protected:
    void RevertOnCancel () override;

private:
    Kor::UniString text;
    Kor::UniString initialText;
    short          width;
    short          height;
};

// Whether the text of a multi-line edit popup differs from the one it started with.
class MultiLineEditPopUpDialogChanges {
public:
    explicit MultiLineEditPopUpDialogChanges (const MultiLineEditPopUpDialog& dialog) : dialog (dialog) {}

    bool HasTextChanged () const { return dialog.GetText () != dialog.GetInitialText (); }

private:
    const MultiLineEditPopUpDialog& dialog;
};

}   // namespace Rb
