#include "Rb/MultiLineEdit.hpp"

namespace Rb {

void MultiLineEditPopUpDialogObserver::TextChanged (const MultiLineEditPopUpDialog&) {}

MultiLineEditPopUpDialog::MultiLineEditPopUpDialog (const Kor::UniString& text, Wg::Item* anchor, short width, short height)
    : DialogSession (anchor), text (text), initialText (text), width (width), height (height)
{
}

void MultiLineEditPopUpDialog::SetText (const Kor::UniString& newText)
{
    if (newText == text) return;
    text = newText;
    NotifyObservers<MultiLineEditPopUpDialogObserver> ([this] (MultiLineEditPopUpDialogObserver& o) { o.TextChanged (*this); });
}

bool MultiLineEditPopUpDialog::Perform (const Wg::ModalStep& step)
{
    if (HasEnded ()) return true;
    if (step.op == Wg::ModalStep::Type)
        SetText (step.text);
    else
        PerformAcceptOrCancel (step);
    return HasEnded ();
}

void MultiLineEditPopUpDialog::RevertOnCancel ()
{
    SetText (initialText);
}

}   // namespace Rb
