#pragma once
// The user dialogs' popups in Qt, anchored under the control that opened them:
//   MultipleChoicePopUpDialog -> a checklist; each tick is a Tick step at once, closing it
//                                (a click outside, Return) accepts, Escape cancels
//   MultiLineEditPopUpDialog  -> a text box of the dialog's size; each change is a Type step,
//                                closing it accepts, Escape cancels
// The popups only report; the session carries out the steps.

#include "Wg/ModalRunner.hpp"

namespace TxalQt {

// Runs the session when it is one of the user dialogs; false when it is none of them.
bool RunUserDialogPopup (Wg::ModalSession& session);

}   // namespace TxalQt
