// The workloads on our attribute list: the headless model alone, or with --qt the Qt backend
// showing it in an offscreen window and painting every change.

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <memory>
#include <vector>

#include "PeerWorkload.hpp"
#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace {

using namespace Peers;

constexpr int PanelWidth = 600;
constexpr int PanelHeight = 800;

// Counts the paint events of a widget, so that "shown" is a fact, not a hope.
class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter (QObject* watched, QEvent* event) override
    {
        if (event->type () == QEvent::Paint) ++paints;
        return QObject::eventFilter (watched, event);
    }
};

class TextObserver : public TxAL::AttributeListTextItemObserver {
public:
    int changes = 0;

protected:
    void TextChanged (const TxAL::AttributeListTextItem&) override { ++changes; }
};

struct Built {
    TxAL::AttributeListRealItem* real = nullptr;
    TxAL::AttributeListTextItem* text = nullptr;
};

Built Populate (TxAL::AttributeList& list, int rows)
{
    Built built;
    // The choices are made once and given to every choice item, as a program would.
    std::vector<TxAL::AttributeListItem::PopupItem> choices (ChoiceCount);
    for (int choice = 0; choice < ChoiceCount; ++choice) choices[static_cast<std::size_t> (choice)].SetText (ChoiceName (choice));
    const int realTarget = MiddleProperty (rows, Kind::Real);
    const int textTarget = MiddleProperty (rows, Kind::Text);
    list.DisableUpdate ();
    TxAL::AttributeListGroupItem* group = nullptr;
    for (int property = 0; property < rows; ++property) {
        if (property % PropertiesPerGroup == 0) group = list.CreateGroup (GroupName (property / PropertiesPerGroup).c_str (), Wg::Icon (), true, true);
        const Kor::UniString name (PropertyName (property).c_str ());
        switch (KindOf (property)) {
            case Kind::Text: {
                auto* item = group->CreateTextItem (false, name, Wg::Icon (), "Exterior wall", false, true, false, true, false);
                if (property == textTarget) built.text = item;
                break;
            }
            case Kind::Int: group->CreateIntItem (false, name, Wg::Icon (), IntMin, IntMax, property % IntMax, true, true, false); break;
            case Kind::Real: {
                auto* item = group->CreateRealItem (false, name, Wg::Icon (), RealMin, RealMax, 0.5, true, true, false);
                if (property == realTarget) built.real = item;
                break;
            }
            case Kind::Check: group->CreateCheckItem (false, name, Wg::Icon (), property % 2 == 0, "", true, false); break;
            case Kind::Choice: {
                auto* item = group->CreateSelectionItem (false, name, Wg::Icon (), true, false);
                for (const TxAL::AttributeListItem::PopupItem& entry : choices) item->AddItem (entry);
                item->SelectItem (static_cast<short> (1 + property % ChoiceCount));
                break;
            }
        }
    }
    list.EnableUpdate ();
    list.FullRefreshList (true);
    return built;
}

std::string RowText (const Wg::ListBox& listBox, short row)
{
    std::string text;
    for (short column = 1; column <= listBox.GetTabFieldCount (); ++column) text += listBox.GetTabItemText (row, column).ToUtf8 () + "|";
    return text;
}

int Run (int rows, bool withQt)
{
    std::unique_ptr<QApplication> application;
    static int argc = 1;
    static char name[] = "txal-peer-ours";
    static char* argv[] = {name, nullptr};
    if (withQt) {
        qputenv ("QT_QPA_PLATFORM", "offscreen");
        application = std::make_unique<QApplication> (argc, argv);
    }
    Wg::Panel panel (Wg::Rect (0, 0, PanelWidth, PanelHeight));
    auto list = std::make_unique<TxAL::AttributeList> (panel, 0, 0, PanelWidth, PanelHeight);
    Wg::ListBox& listBox = list->GetListBox ();
    std::unique_ptr<TxalQt::PanelView> view;
    QWidget* listWidget = nullptr;
    PaintCounter counter;
    if (withQt) {
        view.reset (TxalQt::Backend::AttachPanel (panel, nullptr));
        view->resize (PanelWidth, PanelHeight);
        view->show ();
        view->SyncPeers ();
        listWidget = view->FindPeerWidget (listBox);
        Check (listWidget != nullptr, "no widget shows the list box");
        listWidget->installEventFilter (&counter);
        QApplication::processEvents ();
    }
    // Shows what changed: the peers follow the model, then the window paints what they invalidated.
    auto show = [&] {
        if (!withQt) return;
        view->SyncPeers ();
        QApplication::processEvents ();
    };

    // --- Populate, and the heap it holds ---
    const std::size_t heapBefore = HeapInUse ();
    const long faultsBefore = MinorFaults ();
    Built built;
    const double populateUs = CpuMicroseconds ([&] {
        built = Populate (*list, rows);
        show ();
    });
    const long faults = MinorFaults () - faultsBefore;
    // The list box's index of rows by item is made at the first refresh of one item: its
    // memory is part of every list in use.
    Check (list->GetFirstListBoxIndex (built.real) > 0, "the real item has no row");
    const std::size_t heapAfter = HeapInUse ();
    Check (built.real != nullptr && built.text != nullptr, "the target items were not made");
    Check (listBox.GetItemCount () == rows + GroupCount (rows), "populate made " + std::to_string (listBox.GetItemCount ()) + " rows");
    Print ("populate", populateUs * 1000.0 / rows);
    Print ("memory", static_cast<double> (heapAfter - heapBefore) / rows);
    Print ("faults", static_cast<double> (faults) / rows);

    // --- One value set by the program in the middle of the list, and shown ---
    built.real->SetFirstVisible ();
    show ();
    const short realRow = list->GetFirstListBoxIndex (built.real);
    int step = 0;
    const int paintsBefore = counter.paints;
    const std::string textBefore = RowText (listBox, realRow);
    Print ("change", MedianMicroseconds (SmallRepeats, [&] {
        built.real->SetValue (1.0 + (++step % 2));
        show ();
    }));
    Check (built.real->GetValue () == 1.0 + (step % 2), "the value does not read back");
    Check (RowText (listBox, realRow) != textBefore, "the row does not show the value");
    if (withQt) Check (counter.paints >= paintsBefore + SmallRepeats, "a change was not painted");

    // --- The user types one character into a text value; its observer hears it ---
    TextObserver observer;
    built.text->Attach (observer);
    built.text->SetFirstVisible ();
    built.text->Select (true);
    show ();
    Wg::TextEdit& edit = list->GetOnTabItems ().GetTextEdit ();
    QWidget* editWidget = withQt ? view->FindPeerWidget (edit) : nullptr;
    if (withQt) Check (editWidget != nullptr && editWidget->isVisible (), "no edit widget over the text row");
    int heard = 0;
    Print ("edit", MedianMicroseconds (
                       SmallRepeats,
                       [&] {
                           edit.UserSetText ("Wall");
                           show ();
                           heard = observer.changes;
                       },
                       [&] {
                           if (withQt) {
                               QKeyEvent press (QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral ("a"));
                               QApplication::sendEvent (editWidget, &press);
                               show ();
                           } else {
                               edit.UserType ("a");
                           }
                           Check (observer.changes == heard + 1, "the observer did not hear the keystroke");
                       }));
    Check (built.text->GetText ().ToUtf8 () == "Walla", "the typing did not reach the item: " + built.text->GetText ().ToUtf8 ());
    built.text->Detach (observer);

    // --- Every row rebuilt from the items ---
    Print ("refresh", MedianCpuMicroseconds (LargeRepeats, [&] {
              list->FullRefreshList (true);
              show ();
          }) / 1000.0);
    Check (listBox.GetItemCount () == rows + GroupCount (rows), "the refresh lost rows");

    // --- One screen painted ---
    if (withQt) {
        QImage frame (listWidget->size (), QImage::Format_ARGB32_Premultiplied);
        const int paintsBeforeFrame = counter.paints;
        Print ("paint", MedianCpuMicroseconds (LargeRepeats, [&] { listWidget->render (&frame); }) / 1000.0);
        Check (counter.paints >= paintsBeforeFrame + LargeRepeats, "the screen was not painted");
    } else {
        NotApplicable ("paint", "the headless model paints nothing; see ours (Qt)");
    }

    // --- All groups collapsed, then expanded ---
    Print ("collapse", MedianCpuMicroseconds (LargeRepeats, [&] {
              list->CollapseAllGroups ();
              Check (listBox.GetItemCount () == GroupCount (rows), "collapsing left rows");
              list->ExpandAllGroups ();
              show ();
          }) / 1000.0);
    Check (listBox.GetItemCount () == rows + GroupCount (rows), "expanding lost rows");

    // --- Populated again after clearing, as a palette is for every new selection ---
    list->ClearList (true);
    show ();
    Print ("repopulate", CpuMicroseconds ([&] {
              built = Populate (*list, rows);
              show ();
          }) * 1000.0 / rows);
    Check (listBox.GetItemCount () == rows + GroupCount (rows), "repopulate made " + std::to_string (listBox.GetItemCount ()) + " rows");

    view.reset ();
    list.reset ();
    return 0;
}

}   // namespace

int main (int argc, char** argv)
{
    return Run (ParseRows (argc, argv), HasFlag (argc, argv, "--qt"));
}
