// The smallest application that embeds an attribute list in a Qt window: a group with a length,
// a choice and a check box, and an observer that prints what the user changes.
// Run with --once to show the window, toggle the check box as a user would, and quit.

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstring>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"

// Hears every change the user makes; program changes (setters) are not reported.
class PrintChanges : public TxAL::AttributeListRealItemObserver, public TxAL::AttributeListCheckItemObserver {
    void ValueChanged (const TxAL::AttributeListRealItem& item) override
    {
        std::printf ("%s: %g\n", item.GetName ().ToUtf8 ().c_str (), item.GetValue ());
    }
    void SelectionChanged (const TxAL::AttributeListSelectionItem& item) override
    {
        std::printf ("%s: %s\n", item.GetName ().ToUtf8 ().c_str (), item.GetSelectedString ().ToUtf8 ().c_str ());
    }
    void CheckChanged (const TxAL::AttributeListCheckItem& item) override
    {
        std::printf ("%s: %s\n", item.GetName ().ToUtf8 ().c_str (), item.IsChecked () ? "on" : "off");
    }
};

// The window closes when the panel agrees.
class CloseOnRequest : public Wg::PanelObserver {
    void PanelCloseRequested (const Wg::PanelCloseRequestEvent&, bool* accepted) override { *accepted = true; }
};

int main (int argc, char** argv)
{
    QApplication application (argc, argv);
    TxalQt::Backend::ApplyTheme (application);
    TxalQt::Backend::InstallModalRunner ();

    Wg::Panel panel (Wg::Rect (0, 0, 420, 160), 1, "Wall");
    TxAL::AttributeList list (panel, 0, 0, 420, 160);   // the list owns what it creates
    TxAL::AttributeListGroupItem* group = list.CreateGroup ("Geometry", Wg::Icon (), true, true);
    auto* height = group->CreateLengthItem (false, "Height", Wg::Icon (), 0.0, 10.0, 2.7, true, true, false);
    auto* finish = group->CreateSelectionItem (false, "Finish", Wg::Icon (), true, false);
    for (const char* name : {"Plaster", "Paint", "Tiles"}) {
        TxAL::AttributeListItem::PopupItem entry;
        entry.SetText (name);
        finish->AddItem (entry);
    }
    finish->SelectItem (1);
    auto* visible = group->CreateCheckItem (false, "Visible", Wg::Icon (), true, "", true, false);

    PrintChanges printer;
    height->Attach (static_cast<TxAL::AttributeListRealItemObserver&> (printer));
    finish->Attach (static_cast<TxAL::AttributeListSelectionItemObserver&> (printer));
    visible->Attach (static_cast<TxAL::AttributeListCheckItemObserver&> (printer));

    CloseOnRequest closer;
    panel.Attach (closer);
    TxalQt::PanelView* view = TxalQt::Backend::AttachPanel (panel);
    view->show ();
    if (argc > 1 && std::strcmp (argv[1], "--once") == 0) {
        // What a click on the check box does: through the list box's entry point.
        list.GetListBox ().Click (4, Wg::Point (list.GetListBox ().GetTabFieldBeginPosition (list.GetPreviewColumnIndex ()) + 8, 5));
        QTimer::singleShot (0, &application, &QApplication::quit);
    }
    const int result = application.exec ();
    delete view;
    return result;
}
