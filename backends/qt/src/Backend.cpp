#include "TxalQt/Backend.hpp"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>
#include <memory>

#include "IconCache.hpp"
#include "QtModalRunner.hpp"
#include "Theme.hpp"
#include "TxalQt/PanelView.hpp"

namespace TxalQt {

namespace {

constexpr const char* PreferredFontFamily = "DejaVu Sans";
constexpr int DefaultFontPointSize = 9;

std::unique_ptr<QtModalRunner> installedRunner;
Wg::ModalRunner*               previousRunner = nullptr;

}   // namespace

PanelView* Backend::AttachPanel (Wg::Panel& panel, QWidget* parent)
{
    if (PanelView* existing = FindView (panel)) return existing;
    return new PanelView (panel, parent);
}

PanelView* Backend::FindView (const Wg::Panel& panel)
{
    return dynamic_cast<PanelView*> (panel.GetPeer ());
}

void Backend::InstallModalRunner ()
{
    if (installedRunner != nullptr) return;
    installedRunner = std::make_unique<QtModalRunner> ();
    previousRunner = Wg::SetModalRunner (installedRunner.get ());
}

void Backend::RemoveModalRunner ()
{
    if (installedRunner == nullptr) return;
    // The headless runner is what GetModalRunner answers when none is installed.
    Wg::SetModalRunner (previousRunner == &Wg::GetHeadlessModalRunner () ? nullptr : previousRunner);
    installedRunner.reset ();
    previousRunner = nullptr;
}

bool Backend::IsModalRunnerInstalled ()
{
    return installedRunner != nullptr;
}

void Backend::InstallTextMeasurer ()
{
    Theme::AcquireTextMeasurer ();
}

void Backend::RemoveTextMeasurer ()
{
    Theme::ReleaseTextMeasurer ();
}

void Backend::ApplyTheme (QApplication& application)
{
    if (QStyle* fusion = QStyleFactory::create (QStringLiteral ("Fusion"))) application.setStyle (fusion);
    QPalette palette = application.palette ();
    palette.setColor (QPalette::Window, Theme::WindowColor);
    palette.setColor (QPalette::WindowText, Theme::InkColor);
    palette.setColor (QPalette::Base, Theme::BaseColor);
    palette.setColor (QPalette::AlternateBase, Theme::WindowColor);
    palette.setColor (QPalette::Text, Theme::InkColor);
    palette.setColor (QPalette::Button, Theme::WindowColor);
    palette.setColor (QPalette::ButtonText, Theme::InkColor);
    palette.setColor (QPalette::Highlight, Theme::AccentColor);
    palette.setColor (QPalette::HighlightedText, Qt::white);
    palette.setColor (QPalette::ToolTipBase, Theme::BaseColor);
    palette.setColor (QPalette::ToolTipText, Theme::InkColor);
    palette.setColor (QPalette::Disabled, QPalette::Text, Theme::GreyedInkColor);
    palette.setColor (QPalette::Disabled, QPalette::WindowText, Theme::GreyedInkColor);
    palette.setColor (QPalette::Disabled, QPalette::ButtonText, Theme::GreyedInkColor);
    application.setPalette (palette);
    if (QFontDatabase::hasFamily (QString::fromLatin1 (PreferredFontFamily))) {
        QFont font (QString::fromLatin1 (PreferredFontFamily), DefaultFontPointSize);
        application.setFont (font);
    }
    // Stock images are drawn by the style: they change with it.
    IconCache::Get ().Clear ();
}

QImage Backend::Grab (QWidget& widget)
{
    QList<PanelView*> views = widget.findChildren<PanelView*> ();
    if (auto* self = dynamic_cast<PanelView*> (&widget)) views.append (self);
    for (PanelView* view : views) view->SyncPeers ();
    return widget.grab ().toImage ();
}

bool Backend::SaveScreenshot (QWidget& widget, const QString& fileName)
{
    const QImage image = Grab (widget);
    return !image.isNull () && image.save (fileName, "PNG");
}

}   // namespace TxalQt
