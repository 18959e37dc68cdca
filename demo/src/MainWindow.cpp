#include "MainWindow.hpp"

#include <QActionGroup>
#include <QHeaderView>
#include <QMenuBar>
#include <QSplitter>
#include <QTreeWidget>

#include "DemoScript.hpp"
#include "TxalQt/Backend.hpp"
#include "TxalQt/PanelView.hpp"

namespace Demo {

namespace {

constexpr int PaletteWidth = 460;
constexpr int PaletteHeight = 620;
constexpr int ElementListWidth = 230;
constexpr short PalettePanelId = 1;
constexpr short ClassificationPanelId = 2;
constexpr int ClassificationHeight = 130;
constexpr int PropertyPaletteWidth = 420;
constexpr short PropertyPanelId = 3;

}   // namespace

MainWindow::MainWindow (BuildingModel& model)
    : model (model), panel (Wg::Rect (0, 0, PaletteWidth, PaletteHeight), PalettePanelId, Kor::UniString ("Settings")),
      classificationPanel (Wg::Rect (0, 0, PaletteWidth, ClassificationHeight), ClassificationPanelId, Kor::UniString ("Classifications")),
      propertyPanel (Wg::Rect (0, 0, PropertyPaletteWidth, PaletteHeight), PropertyPanelId, Kor::UniString ("Properties"))
{
    setWindowTitle ("TxAttributeList demo: element settings");
    palette = std::make_unique<SettingsPalette> (panel, model);
    classifications = std::make_unique<ElementClassifications> (classificationPanel, model);
    // The published files have a few flaws (properties without a data type): the demo shows
    // what could be read; the importer's tests hold what could not.
    TxImport::ImportDiagnostics propertyProblems;
    propertyStore = std::make_unique<ElementPropertyStore> (model, GetPropertySetFolder (), GetCustomPropertyValues (), propertyProblems);
    properties = std::make_unique<PropertyPalette> (propertyPanel, *propertyStore);

    auto* splitter = new QSplitter (this);
    elements = new QTreeWidget (splitter);
    elements->setColumnCount (2);
    elements->setHeaderLabels ({"ID", "Element"});
    elements->setRootIsDecorated (false);
    elements->setUniformRowHeights (true);
    elements->header ()->setStretchLastSection (true);
    for (const Element& element : model.GetElements ()) {
        const QString id = QString::fromStdString (element.GetId ());
        auto* row = new QTreeWidgetItem (elements, {id, QString::fromStdString (element.Get ("name").value_or (""))});
        row->setData (0, Qt::UserRole, id);
        for (int column = 0; column < 2; ++column) row->setToolTip (column, QString::fromStdString (element.GetKind ()));
    }
    elements->resizeColumnToContents (0);
    auto* right = new QSplitter (Qt::Vertical, splitter);
    TxalQt::PanelView* view = TxalQt::Backend::AttachPanel (panel, right);
    view->setMinimumWidth (360);
    TxalQt::PanelView* classificationView = TxalQt::Backend::AttachPanel (classificationPanel, right);
    right->addWidget (view);
    right->addWidget (classificationView);
    right->setSizes ({PaletteHeight - ClassificationHeight, ClassificationHeight});
    right->setStretchFactor (0, 1);
    TxalQt::PanelView* propertyView = TxalQt::Backend::AttachPanel (propertyPanel, splitter);
    propertyView->setMinimumWidth (320);
    splitter->addWidget (elements);
    splitter->addWidget (right);
    splitter->addWidget (propertyView);
    splitter->setSizes ({ElementListWidth, PaletteWidth, PropertyPaletteWidth});
    splitter->setStretchFactor (1, 1);
    splitter->setStretchFactor (2, 1);
    setCentralWidget (splitter);
    resize (ElementListWidth + PaletteWidth + PropertyPaletteWidth + 12, PaletteHeight + 24);

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

    connect (elements, &QTreeWidget::currentItemChanged, this, [this] (QTreeWidgetItem* current) {
        if (current == nullptr) return;
        const std::string id = current->data (0, Qt::UserRole).toString ().toStdString ();
        palette->ShowElement (id);
        classifications->ShowElement (palette->GetElementId ());
        properties->ShowElement (id);
    });
    if (elements->topLevelItemCount () > 0) elements->setCurrentItem (elements->topLevelItem (0));
    panel.Open ();
    classificationPanel.Open ();
    propertyPanel.Open ();
}

MainWindow::~MainWindow ()
{
    // The lists and their controls go before the panels and their views.
    properties.reset ();
    classifications.reset ();
    palette.reset ();
}

void MainWindow::ShowElement (const std::string& id)
{
    for (int i = 0; i < elements->topLevelItemCount (); ++i) {
        QTreeWidgetItem* row = elements->topLevelItem (i);
        if (row->data (0, Qt::UserRole).toString ().toStdString () == id) {
            const QSignalBlocker blocker (elements);
            elements->setCurrentItem (row);
        }
    }
    if (palette->GetElementId () != id) palette->ShowElement (id);
    classifications->ShowElement (palette->GetElementId ());
    if (properties->GetElementId () != id) properties->ShowElement (id);
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
    SetMetricUnits (*palette, metric);
}

}   // namespace Demo
