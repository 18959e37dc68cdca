#include "ClassificationScreenshots.hpp"

#include <QApplication>
#include <QImage>

#include "MainWindow.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
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

// Presses the button of the element's first classification row with the runner installed.
void OpenSelector (MainWindow& window, PictureRunner& runner)
{
    auto& rows = window.GetClassifications ().GetList ().GetItems ();
    if (rows.IsEmpty ()) return;
    rows[0]->Select ();
    Wg::ButtonItem* button = const_cast<TxAL::AttributeListIconButtonItem&> (rows[0]->GetRow ()).GetIconButton ();
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
        QApplication::processEvents ();
        save (std::string ("classifications-") + shot.element, TxalQt::Backend::Grab (window));
        PictureRunner runner (QString::fromUtf8 (shot.search), [&] (const QImage& image) { save (shot.name, image); });
        OpenSelector (window, runner);
    }
}

}   // namespace Demo
