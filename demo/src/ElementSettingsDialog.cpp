#include "ElementSettingsDialog.hpp"

#include "Kor/LifeWatch.hpp"
#include "PageStateFile.hpp"
#include "Res/ResourceCache.hpp"

namespace Demo {

namespace {

// The demo's own resource module: the settings tab is a page without controls of its own
// (the palette makes its list); its size is the dialog's client area at 100 %.
constexpr const char* ResModuleName = "TxalDemo";
constexpr int         SettingsDialogId = 100;
constexpr const char* ResStrings = "[1]\n1 = Settings\n";
constexpr const char* ResDialogs = "[100] 448 x 547\n";

constexpr short DialogPanelId = 1;
// Where the splitter's centre line starts when no state was kept: the classification list shows
// its title and both systems' rows (the page itself would start at its minimum).
constexpr short InitialSplitterPosition = 92;
constexpr int   Margin = 6;
constexpr int   ButtonWidth = 80;
constexpr int   ButtonHeight = 26;

Res::ModuleHandle DemoResModule ()
{
    static const Res::ModuleHandle module = [] {
        Res::ResRegisterModuleImage (ResModuleName, {{"strings.txt", ResStrings}, {"dialogs.txt", ResDialogs}});
        return Res::ResInitModuleImageCache (ResModuleName);
    }();
    return module;
}

Wg::Rect TabsRect (int width, int height)
{
    return Wg::Rect (Margin, Margin, width - Margin, height - 2 * Margin - ButtonHeight);
}

Wg::Rect CloseButtonRect (int width, int height)
{
    return Wg::Rect (width - Margin - ButtonWidth, height - Margin - ButtonHeight, width - Margin, height - Margin);
}

}   // namespace

ElementSettingsDialog::ElementSettingsDialog (BuildingModel& model, ElementPropertyStore& properties, ElementClassificationStore& classifications,
                                              std::string stateFile)
    : model (model),
      properties (properties),
      classifications (classifications),
      stateFile (std::move (stateFile)),
      panel (Wg::Rect (0, 0, Width, Height), DialogPanelId, Kor::UniString ("Element settings")),
      tabs (panel, TabsRect (Width, Height)),
      closeButton (panel, CloseButtonRect (Width, Height)),
      settingsPage (tabs, DemoResModule (), SettingsDialogId, Kor::UniString ("Settings")),
      palette (std::make_unique<SettingsPalette> (settingsPage, model)),
      pageState (this->stateFile.empty () ? TxAL::ClassificationsAndPropertiesPageState () : PageStateFile::Read (this->stateFile))
{
    if (pageState.GetSplitterPosition () == 0) pageState.SetSplitterPosition (InitialSplitterPosition);
    closeButton.SetText (Kor::UniString ("Close"));
    closeButton.Attach (static_cast<Wg::ButtonItemObserver&> (*this));
    panel.Attach (static_cast<Wg::PanelObserver&> (*this));
}

ElementSettingsDialog::~ElementSettingsDialog ()
{
    // The pages and the palette go before the tab control and the panel they stand on.
    page.reset ();
    palette.reset ();
}

void ElementSettingsDialog::ShowElements (const std::vector<std::string>& ids)
{
    std::vector<std::string> known;
    for (const std::string& id : ids)
        if (model.Find (id) != nullptr) known.push_back (id);
    if (known.empty ()) return;
    selection = known;
    if (palette->GetElementId () != selection.front ()) palette->ShowElement (selection.front ());
    if (page == nullptr)
        Open ();
    else
        page->SetSelection (selection);
}

void ElementSettingsDialog::Open ()
{
    if (page != nullptr) return;
    page = std::make_unique<PropertiesPage> (tabs, options, model, properties, classifications, selection);
    page->Init ();
    page->RestorePageState (pageState);
    tabs.SelectTab (lastTab);
    // The tab control fits the new page and passes the open on to both pages.
    panel.Open ();
    if (openChanged) openChanged (true);
}

void ElementSettingsDialog::Close ()
{
    if (page == nullptr) return;
    lastTab = tabs.GetSelectedTab ();
    Kor::LifeWatch alive (panel);
    panel.RequestClose (true);
    if (alive.IsGone () || page == nullptr) return;
    if (page->HasClosedAccepted ()) {
        page->StorePageState (pageState);
        if (!stateFile.empty ()) PageStateFile::Write (stateFile, pageState);
    }
    page.reset ();
    if (openChanged) openChanged (false);
}

void ElementSettingsDialog::PanelResized (const Wg::PanelResizeEvent&)
{
    tabs.SetRect (TabsRect (panel.GetWidth (), panel.GetHeight ()));
    closeButton.SetRect (CloseButtonRect (panel.GetWidth (), panel.GetHeight ()));
}

void ElementSettingsDialog::ButtonClicked (const Wg::ButtonClickEvent& event)
{
    if (event.GetSource () == &closeButton) Close ();
}

}   // namespace Demo
