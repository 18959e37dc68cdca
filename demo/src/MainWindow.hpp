#pragma once
// The demo's window: the elements of the building on the left, the element settings dialog of
// the selected elements on the right (the settings palette and the classifications and
// properties page on two tabs), and menus that switch the working units and open or close the
// dialog.

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementData.hpp"
#include "ElementSettingsDialog.hpp"
#include "SettingsPalette.hpp"

class QAction;
class QLabel;
class QStackedWidget;
class QTreeWidget;

namespace Demo {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // stateFile: where the page state is kept between runs (empty: not kept).
    MainWindow (BuildingModel& model, const ElementData& data, const std::string& stateFile);
    ~MainWindow () override;

    SettingsPalette&       GetPalette () { return dialog->GetPalette (); }
    ElementSettingsDialog& GetDialog () { return *dialog; }
    // Shows the element in the list and the dialog.
    void ShowElement (const std::string& id);
    // Selects the elements in the list (the dialog shows them already).
    void ShowSelection (const std::vector<std::string>& ids);
    // Checks the menu entry of the units (the palette follows by itself).
    void ShowUnits (bool metric);
    // Gives the keyboard to the element list, as a click into it does.
    void FocusElementList ();

private:
    void ChooseUnits (bool metric);
    void SelectionChanged ();

    BuildingModel&                         model;
    std::unique_ptr<ElementSettingsDialog> dialog;
    QTreeWidget*                           elements = nullptr;
    QStackedWidget*                        dialogArea = nullptr;
    QLabel*                                closedNote = nullptr;
    QAction*                               metricAction = nullptr;
    QAction*                               imperialAction = nullptr;
};

}   // namespace Demo
