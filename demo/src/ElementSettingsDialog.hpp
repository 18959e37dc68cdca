#pragma once
// The demo's element settings dialog: a tab control with the settings palette on its first tab
// and the library's classifications and properties page on its second, and a Close button.
// The dialog shows the selected elements: the palette the first of them, the page all of them.
//
// Closing (the button, or Close ()) asks the panel to close by acceptance: the page stores its
// state, the dialog keeps it and writes it to the page state file, and the page goes. Opening
// makes the page anew over the current selection and restores the state, so that folded
// property groups and the splitter are where the user left them, also in the next run.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ElementClassificationStore.hpp"
#include "ElementProperties.hpp"
#include "PropertiesPage.hpp"
#include "SettingsPalette.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPageTypes.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TabControl.hpp"
#include "Wg/TabPage.hpp"

namespace Demo {

// The element settings dialog (see the top of this file).
class ElementSettingsDialog : public Wg::PanelObserver, public Wg::ButtonItemObserver {
public:
    static constexpr int   Width = 460;
    static constexpr int   Height = 620;
    static constexpr short SettingsTab = 1;
    static constexpr short PropertiesTab = 2;

    // The stores are not owned and must outlive the dialog. The state file is read now and
    // written at every close (none: kept in memory only).
    ElementSettingsDialog (BuildingModel& model, ElementPropertyStore& properties, ElementClassificationStore& classifications,
                           std::string stateFile);
    ~ElementSettingsDialog () override;

    Wg::Panel&       GetPanel () { return panel; }
    Wg::TabControl&  GetTabControl () { return tabs; }
    SettingsPalette& GetPalette () { return *palette; }
    // Null while the dialog is closed.
    PropertiesPage*  GetPropertiesPage () { return page.get (); }
    const std::vector<std::string>& GetSelection () const { return selection; }
    const TxAL::ClassificationsAndPropertiesPageState& GetPageState () const { return pageState; }

    // Shows the elements (unknown ids are left out); opens the dialog when it is closed.
    void ShowElements (const std::vector<std::string>& ids);
    void Open ();
    void Close ();
    bool IsOpen () const { return page != nullptr; }

    // How many of the user's edits reached the model, through either tab.
    int GetStoredChangeCount () const
    {
        return palette->GetStoredChangeCount () + properties.GetStoreCount () + classifications.GetStoredChangeCount ();
    }

    // Told after the dialog opened or closed (a window shows or hides the dialog's view).
    std::function<void (bool open)> openChanged;

protected:
    // --- Wg::PanelObserver: the tab control fills the panel above the button row ---
    void PanelResized (const Wg::PanelResizeEvent& event) override;
    // --- Wg::ButtonItemObserver: the Close button ---
    void ButtonClicked (const Wg::ButtonClickEvent& event) override;

private:
    BuildingModel&                              model;
    ElementPropertyStore&                       properties;
    ElementClassificationStore&                 classifications;
    std::string                                 stateFile;
    Wg::Panel                                   panel;
    Wg::TabControl                              tabs;
    Wg::ButtonItem                              closeButton;
    Wg::TabPage                                 settingsPage;
    std::unique_ptr<SettingsPalette>            palette;
    PropertiesPageOptions                       options;
    std::unique_ptr<PropertiesPage>             page;
    TxAL::ClassificationsAndPropertiesPageState pageState;
    std::vector<std::string>                    selection;
    short                                       lastTab = SettingsTab;
};

}   // namespace Demo
