#include "Rb/DialogSession.hpp"

namespace Rb {

DialogSession::DialogSession (Wg::Item* anchor) : anchor (anchor), anchorLife ({anchor})
{
}

void DialogSession::Invoke ()
{
    Wg::RunModal (*this);
}

bool DialogSession::PerformAcceptOrCancel (const Wg::ModalStep& step)
{
    switch (step.op) {
        case Wg::ModalStep::Accept:
            accepted = true;
            MarkEnded ();
            return true;
        case Wg::ModalStep::Cancel:
            MarkEnded ();
            RevertOnCancel ();
            return true;
        default: return false;
    }
}

}   // namespace Rb
