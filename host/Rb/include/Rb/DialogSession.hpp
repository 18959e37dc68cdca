#pragma once
// Rb::DialogSession: what the dialogs library's popup dialogs share: a modal dialog session
// anchored at a control, ended by Accept or by Cancel, which restores what the dialog began with.

#include "Kor/LifeWatch.hpp"
#include "Wg/ModalRunner.hpp"

namespace Rb {

// The base of the popup dialogs. Does not own its anchor; a destroyed anchor reads as none.
class DialogSession : public Wg::ModalSession {
public:
    // Runs the popup modally through the installed runner; returns when it is closed.
    void Invoke ();
    // Whether the popup was closed with Accept (as opposed to Cancel).
    bool WasAccepted () const { return accepted; }

    // --- Wg::ModalSession ---
    Kind      GetKind () const override { return Kind::Dialog; }
    Wg::Item* GetAnchor () const override { return anchorLife.IsAlive () ? anchor : nullptr; }

protected:
    explicit DialogSession (Wg::Item* anchor);

    // Ends the session on Accept, and on Cancel followed by RevertOnCancel (so that observers of
    // the revert see the session ended); false for any other step.
    bool PerformAcceptOrCancel (const Wg::ModalStep& step);
    // Restores what the dialog showed when it began.
    virtual void RevertOnCancel () = 0;

private:
    Wg::Item*      anchor;
    Kor::LifeWatch anchorLife;
    bool           accepted = false;
};

}   // namespace Rb
