#pragma once
// TxalQt::QtModalRunner: runs the model's modal sessions in real popups.
//   Menu sessions      -> a QMenu at the anchor (icons, separators, disabled entries, the
//                         initial entry checked)
//   Picker sessions    -> a grid of swatches (PickerPopup) when every entry has a colour or an
//                         icon and the control asks for a grid, otherwise a QMenu with swatches;
//                         attribute pickers a list of previews (AttributePickerPopupView)
//   Dialog sessions    -> the item selection popup (ItemSelectionPopup) for item selection
//                         dialogs, the user dialogs' popups (UserDialogPopups.hpp) for the
//                         checklist and the list edit; other dialogs are cancelled
// Steps: hovering an entry -> Track (i); leaving the entries -> Track (0); a choice -> Choose (i)
// once the popup has closed; closing without a choice -> Cancel.

#include "Wg/ModalRunner.hpp"

class QWidget;

namespace TxalQt {

class QtModalRunner : public Wg::ModalRunner {
public:
    void Run (Wg::ModalSession& session) override;

private:
    void RunMenu (Wg::ModalSession& session);
    void RunPickerGrid (Wg::ModalSession& session);
    void RunAttributePicker (Wg::ModalSession& session);
};

// The widget that shows the item (for placing popups); null when it has none.
QWidget* FindItemWidget (const Wg::Item* item);

}   // namespace TxalQt
