#pragma once
// The demo's window: the elements of the building on the left, the element settings dialog of
// the selected elements in the middle (the settings palette and the classifications and
// properties page on two tabs), the property palette of the current element on the right, and
// menus that switch the working units and open or close the dialog.

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementSettingsDialog.hpp"
#include "PropertyPalette.hpp"
#include "SettingsPalette.hpp"

class QAction;
class QLabel;
class QStackedWidget;
class QTreeWidget;

namespace Demo {

class MainWindow : public QMainWindow, private TxAL::PropertyListItemContainerObserver {
    Q_OBJECT

public:
    // stateFile: where the page state is kept between runs (empty: not kept).
    MainWindow (BuildingModel& model, const std::string& stateFile);
    ~MainWindow () override;

    SettingsPalette&       GetPalette () { return dialog->GetPalette (); }
    ElementSettingsDialog& GetDialog () { return *dialog; }
    PropertyPalette&       GetProperties () { return *properties; }
    // Shows the element in the list and the dialog.
    void ShowElement (const std::string& id);
    // Selects the elements in the list (the dialog shows them already).
    void ShowSelection (const std::vector<std::string>& ids);
    // Checks the menu entry of the units (the palette follows by itself).
    void ShowUnits (bool metric);
    // Gives the keyboard to the element list, as a click into it does.
    void FocusElementList ();

private:
    // --- TxAL::PropertyListItemContainerObserver: a value stored through the page or the
    // property palette shows in the other one at once (they share the store) ---
    void PropertyChanged (const TxAL::PropertyListItemContainer& container, const Kor::Guid& propertyGuid) override;

    void ChooseUnits (bool metric);
    void SelectionChanged ();

    BuildingModel&                         model;
    // What the elements hold besides their settings: property values and classifications.
    std::unique_ptr<ElementPropertyStore>  propertyStore;
    ElementClassificationStore             classificationStore;
    std::unique_ptr<ElementSettingsDialog> dialog;
    // The property list beside the dialog, over the same store.
    Wg::Panel                              propertyPanel;
    std::unique_ptr<PropertyPalette>       properties;
    QTreeWidget*                           elements = nullptr;
    QStackedWidget*                        dialogArea = nullptr;
    QLabel*                                closedNote = nullptr;
    QAction*                               metricAction = nullptr;
    QAction*                               imperialAction = nullptr;
};

}   // namespace Demo
