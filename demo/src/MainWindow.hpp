#pragma once
// The demo's window: the elements of the building on the left, the settings palette of the
// chosen element in the middle, its property sets on the right, and a menu that switches the working units.

#include <QMainWindow>
#include <memory>

#include "BuildingModel.hpp"
#include "ElementClassifications.hpp"
#include "PropertyPalette.hpp"
#include "SettingsPalette.hpp"
#include "Wg/Panel.hpp"

class QAction;
class QTreeWidget;

namespace Demo {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow (BuildingModel& model);
    ~MainWindow () override;

    SettingsPalette& GetPalette () { return *palette; }
    ElementClassifications& GetClassifications () { return *classifications; }
    PropertyPalette& GetProperties () { return *properties; }
    // Shows the element in the list and the palette.
    void ShowElement (const std::string& id);
    // Checks the menu entry of the units (the palette follows by itself).
    void ShowUnits (bool metric);
    // Gives the keyboard to the element list, as a click into it does.
    void FocusElementList ();

private:
    void ChooseUnits (bool metric);

    BuildingModel&                   model;
    Wg::Panel                        panel;
    std::unique_ptr<SettingsPalette> palette;
    Wg::Panel                        classificationPanel;
    std::unique_ptr<ElementClassifications> classifications;
    // The property list beside the settings: its sets and values, its panel and the palette.
    std::unique_ptr<ElementPropertyStore> propertyStore;
    Wg::Panel                             propertyPanel;
    std::unique_ptr<PropertyPalette>      properties;
    QTreeWidget*                     elements = nullptr;
    QAction*                         metricAction = nullptr;
    QAction*                         imperialAction = nullptr;
};

}   // namespace Demo
