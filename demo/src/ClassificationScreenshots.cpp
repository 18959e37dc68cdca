#include "ClassificationScreenshots.hpp"

#include <QApplication>
#include <QImage>

#include "MainWindow.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"
#include "Wg/ListBox.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/ItemSelectionPopup.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ModalRunner.hpp"

namespace Demo {

namespace {

// A runner that shows the selector popup, types into it, takes the picture and cancels.
class PictureRunner : public Wg::ModalRunner {
public:
    PictureRunner (QString search, std::function<void (const QImage&)> take) : search (std::move (search)), take (std::move (take)) {}

    void Run (Wg::ModalSession& session) override
    {
        session.Begin ();
        if (auto* dialog = dynamic_cast<Rb::AutoClosingSingleItemSelectionDialog*> (&session)) {
            TxalQt::ItemSelectionPopup popup (*dialog);
            popup.move (0, 0);
            popup.show ();
            popup.TypeSearchText (search);
            QApplication::processEvents ();
            take (TxalQt::Backend::Grab (popup));
            popup.hide ();
        }
        if (!session.HasEnded ()) session.Perform (Wg::ModalStep::MakeCancel ());
    }

private:
    QString                             search;
    std::function<void (const QImage&)> take;
};

// Presses the button of the element's first classification row (on the dialog's classifications
// and properties tab) with the runner installed.
void OpenSelector (MainWindow& window, PictureRunner& runner)
{
    PropertiesPage* page = window.GetDialog ().GetPropertiesPage ();
    if (page == nullptr) return;
    Wg::ListBox& listBox = page->GetClassificationAttributeList ().GetListBox ();
    TxAL::AttributeListIconButtonItem* row = nullptr;
    for (short candidate = 1; candidate <= listBox.GetItemCount () && row == nullptr; ++candidate) {
        row = dynamic_cast<TxAL::AttributeListIconButtonItem*> (static_cast<TxAL::AttributeListItem*> (listBox.GetItemValue (candidate)));
        if (row != nullptr) listBox.UserSelect (candidate);
    }
    Wg::ButtonItem* button = row != nullptr ? row->GetIconButton () : nullptr;
    if (button == nullptr) return;
    Wg::ModalRunner* previous = Wg::SetModalRunner (&runner);
    button->UserPress ();
    Wg::SetModalRunner (previous == &Wg::GetHeadlessModalRunner () ? nullptr : previous);
}

}   // namespace

void SaveClassificationScreenshots (MainWindow& window, const std::function<void (const std::string&, const QImage&)>& save)
{
    struct Shot {
        const char* element;
        const char* search;
        const char* name;
    };
    // A door: wall classes are hidden and the popup says so. A wall: the search finds its kind.
    for (const Shot& shot : {Shot {"D-01", "door", "classification-search-D-01"}, Shot {"W-01", "wall con", "classification-search-W-01"}}) {
        window.ShowElement (shot.element);
        window.GetDialog ().GetTabControl ().UserSelectTab (ElementSettingsDialog::PropertiesTab);
        QApplication::processEvents ();
        save (std::string ("classifications-") + shot.element, TxalQt::Backend::Grab (window));
        PictureRunner runner (QString::fromUtf8 (shot.search), [&] (const QImage& image) { save (shot.name, image); });
        OpenSelector (window, runner);
    }
}

}   // namespace Demo
