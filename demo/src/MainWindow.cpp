#include "MainWindow.hpp"

#include <QActionGroup>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeWidget>

#include "DemoScript.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"

namespace Demo {

namespace {

constexpr int ElementListWidth = 230;
constexpr int DialogMinimumWidth = 360;
constexpr int PropertyPaletteWidth = 420;
constexpr int PropertyPaletteMinimumWidth = 320;
constexpr short PropertyPanelId = 3;

// The published files have a few flaws (properties without a data type): the demo shows what
// could be read; the importer's tests hold what could not.
std::unique_ptr<ElementPropertyStore> MakePropertyStore (const BuildingModel& model)
{
    TxImport::ImportDiagnostics problems;
    return std::make_unique<ElementPropertyStore> (model, GetPropertySetFolder (), GetCustomPropertyValues (), problems);
}

std::string IdOf (const QTreeWidgetItem* row)
{
    return row->data (0, Qt::UserRole).toString ().toStdString ();
}

}   // namespace

MainWindow::MainWindow (BuildingModel& model, const std::string& stateFile)
    : model (model),
      propertyStore (MakePropertyStore (model)),
      classificationStore (model),
      dialog (std::make_unique<ElementSettingsDialog> (model, *propertyStore, classificationStore, stateFile)),
      propertyPanel (Wg::Rect (0, 0, PropertyPaletteWidth, ElementSettingsDialog::Height), PropertyPanelId, Kor::UniString ("Properties"))
{
    setWindowTitle ("TxAttributeList demo: element settings");
    properties = std::make_unique<PropertyPalette> (propertyPanel, *propertyStore);

    auto* splitter = new QSplitter (this);
    elements = new QTreeWidget (splitter);
    elements->setColumnCount (2);
    elements->setHeaderLabels ({"ID", "Element"});
    elements->setRootIsDecorated (false);
    elements->setUniformRowHeights (true);
    elements->setSelectionMode (QAbstractItemView::ExtendedSelection);
    elements->header ()->setStretchLastSection (true);
    for (const Element& element : model.GetElements ()) {
        const QString id = QString::fromStdString (element.GetId ());
        auto* row = new QTreeWidgetItem (elements, {id, QString::fromStdString (element.Get ("name").value_or (""))});
        row->setData (0, Qt::UserRole, id);
        for (int column = 0; column < 2; ++column) row->setToolTip (column, QString::fromStdString (element.GetKind ()));
    }
    elements->resizeColumnToContents (0);

    // The dialog's view, or a note while the dialog is closed.
    dialogArea = new QStackedWidget (splitter);
    TxalQt::PanelView* view = TxalQt::Backend::AttachPanel (dialog->GetPanel (), dialogArea);
    view->setMinimumWidth (DialogMinimumWidth);
    closedNote = new QLabel ("The settings dialog is closed.\nSelect elements, or choose Element > Settings, to open it.", dialogArea);
    closedNote->setAlignment (Qt::AlignCenter);
    dialogArea->addWidget (view);
    dialogArea->addWidget (closedNote);
    dialogArea->setCurrentWidget (closedNote);
    dialog->openChanged = [this, view] (bool open) {
        dialogArea->setCurrentWidget (open ? static_cast<QWidget*> (view) : closedNote);
        if (open) dialog->GetPropertiesPage ()->AttachToPropertyListItemContainer (*this);
    };
    properties->GetContainer ().Attach (static_cast<TxAL::PropertyListItemContainerObserver&> (*this));

    TxalQt::PanelView* propertyView = TxalQt::Backend::AttachPanel (propertyPanel, splitter);
    propertyView->setMinimumWidth (PropertyPaletteMinimumWidth);
    splitter->addWidget (elements);
    splitter->addWidget (dialogArea);
    splitter->addWidget (propertyView);
    splitter->setSizes ({ElementListWidth, ElementSettingsDialog::Width, PropertyPaletteWidth});
    splitter->setStretchFactor (1, 1);
    splitter->setStretchFactor (2, 1);
    setCentralWidget (splitter);
    resize (ElementListWidth + ElementSettingsDialog::Width + PropertyPaletteWidth + 12, ElementSettingsDialog::Height + 24);

    QMenu* elementMenu = menuBar ()->addMenu ("&Element");
    QAction* openAction = elementMenu->addAction ("&Settings");
    openAction->setShortcut (QKeySequence ("Ctrl+E"));
    connect (openAction, &QAction::triggered, this, [this] { dialog->Open (); });
    QAction* closeAction = elementMenu->addAction ("&Close settings");
    closeAction->setShortcut (QKeySequence ("Ctrl+W"));
    connect (closeAction, &QAction::triggered, this, [this] { dialog->Close (); });

    QMenu* unitsMenu = menuBar ()->addMenu ("&Units");
    auto* group = new QActionGroup (this);
    metricAction = unitsMenu->addAction ("&Metric (m, m², m³)");
    imperialAction = unitsMenu->addAction ("&Imperial (ft-in, ft², ft³)");
    for (QAction* action : {metricAction, imperialAction}) {
        action->setCheckable (true);
        group->addAction (action);
    }
    metricAction->setChecked (true);
    connect (metricAction, &QAction::triggered, this, [this] { ChooseUnits (true); });
    connect (imperialAction, &QAction::triggered, this, [this] { ChooseUnits (false); });

    connect (elements, &QTreeWidget::itemSelectionChanged, this, [this] { SelectionChanged (); });
    if (elements->topLevelItemCount () > 0) elements->setCurrentItem (elements->topLevelItem (0));
    propertyPanel.Open ();
}

MainWindow::~MainWindow ()
{
    // The dialog's pages, the lists and their controls go before the panels and their views.
    properties.reset ();
    dialog.reset ();
}

void MainWindow::SelectionChanged ()
{
    // In the list's order, the current row first: its values are the ones shown.
    std::vector<std::string> ids;
    if (QTreeWidgetItem* current = elements->currentItem (); current != nullptr && current->isSelected ()) ids.push_back (IdOf (current));
    for (int i = 0; i < elements->topLevelItemCount (); ++i) {
        QTreeWidgetItem* row = elements->topLevelItem (i);
        if (row->isSelected () && row != elements->currentItem ()) ids.push_back (IdOf (row));
    }
    if (ids.empty ()) return;
    dialog->ShowElements (ids);
    if (properties->GetElementId () != ids.front ()) properties->ShowElement (ids.front ());
}

void MainWindow::ShowElement (const std::string& id)
{
    ShowSelection ({id});
    if (dialog->GetSelection () != std::vector<std::string> {id}) dialog->ShowElements ({id});
    if (properties->GetElementId () != id) properties->ShowElement (id);
}

void MainWindow::ShowSelection (const std::vector<std::string>& ids)
{
    const QSignalBlocker blocker (elements);
    elements->clearSelection ();
    for (int i = 0; i < elements->topLevelItemCount (); ++i) {
        QTreeWidgetItem* row = elements->topLevelItem (i);
        const bool selected = std::find (ids.begin (), ids.end (), IdOf (row)) != ids.end ();
        if (selected && !ids.empty () && IdOf (row) == ids.front ()) elements->setCurrentItem (row);
        row->setSelected (selected);
    }
    if (!ids.empty () && properties->GetElementId () != ids.front ()) properties->ShowElement (ids.front ());
}

void MainWindow::PropertyChanged (const TxAL::PropertyListItemContainer& container, const Kor::Guid&)
{
    PropertiesPage* page = dialog->GetPropertiesPage ();
    if (&container == &properties->GetContainer ()) {
        if (page != nullptr) page->UpdatePropertyValues ();
    } else {
        properties->GetContainer ().UpdatePropertyValues ();
    }
}

void MainWindow::ShowUnits (bool metric)
{
    (metric ? metricAction : imperialAction)->setChecked (true);
}

void MainWindow::FocusElementList ()
{
    activateWindow ();
    elements->setFocus (Qt::MouseFocusReason);
}

void MainWindow::ChooseUnits (bool metric)
{
    SetMetricUnits (dialog->GetPalette (), metric);
}

}   // namespace Demo
