#include "Rb/MultiLineEdit.hpp"

namespace Rb {

void MultiLineEditPopUpDialogObserver::TextChanged (const MultiLineEditPopUpDialog&) {}

MultiLineEditPopUpDialog::MultiLineEditPopUpDialog (const Kor::UniString& text, Wg::Item* anchor, short width, short height)
    : text (text), initialText (text), anchor (anchor), anchorLife ({anchor}), width (width), height (height)
{
}

void MultiLineEditPopUpDialog::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    NotifyObservers<MultiLineEditPopUpDialogObserver> ([this] (MultiLineEditPopUpDialogObserver& o) { o.TextChanged (*this); });
}

void MultiLineEditPopUpDialog::Invoke ()
{
    Wg::RunModal (*this);
}

bool MultiLineEditPopUpDialog::Perform (const Wg::ModalStep& step)
{
    if (HasEnded ()) return true;
    switch (step.op) {
        case Wg::ModalStep::Type: SetText (step.text); break;
        case Wg::ModalStep::Accept:
            accepted = true;
            MarkEnded ();
            break;
        case Wg::ModalStep::Cancel:
            MarkEnded ();
            SetText (initialText);
            break;
        default: break;
    }
    return HasEnded ();
}

}   // namespace Rb
