#include "TxalQt/Backend.hpp"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <algorithm>
#include <memory>

#include "AttributePickerPopupView.hpp"
#include "PickerPopup.hpp"
#include "Pk/PickerSession.hpp"

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

namespace {

// Plays one picker session for a screenshot, then hands the next ones back to the runner that
// was installed before it.
class PickerScreenshotRunner : public Wg::ModalRunner {
public:
    void Arm (QWidget& newWindow, const QString& newFileName, int newEntry)
    {
        window = &newWindow;
        fileName = newFileName;
        entry = newEntry;
        previous = Wg::SetModalRunner (this);
    }

    void Run (Wg::ModalSession& session) override
    {
        Wg::SetModalRunner (previous);
        session.Begin ();
        if (session.HasEnded () || window == nullptr) return;
        std::unique_ptr<QWidget> popup;
        if (const auto* attributes = dynamic_cast<const TxAC::AttributePickerSession*> (&session)) {
            auto view = std::make_unique<AttributePickerPopupView> (*attributes, nullptr);
            view->ShowHovered (entry);
            popup = std::move (view);
        } else if (const auto* pens = dynamic_cast<const Pk::PickerSession*> (&session)) {
            popup = std::make_unique<PickerPopup> (pens->GetPickerEntries (), entry, true, nullptr);
        }
        session.Perform (Wg::ModalStep::MakeTrack (entry));
        if (popup != nullptr && !session.HasEnded ()) {
            QApplication::processEvents ();
            QImage shot = Backend::Grab (*window);
            const QWidget* anchor = FindItemWidget (session.GetAnchor ());
            const QPoint bottomRight = anchor != nullptr ? anchor->mapTo (window, QPoint (anchor->width (), anchor->height ())) : QPoint (0, 0);
            const int anchorTop = bottomRight.y () - (anchor != nullptr ? anchor->height () : 0);
            // Right-aligned under the button, or above it where there is no room below; inside the window.
            QPoint at (bottomRight.x () - popup->width (), bottomRight.y ());
            if (at.y () + popup->height () > window->height ()) at.ry () = anchorTop - popup->height ();
            at.rx () = std::clamp (at.x (), 0, std::max (0, window->width () - popup->width ()));
            at.ry () = std::clamp (at.y (), 0, std::max (0, window->height () - popup->height ()));
            QPainter painter (&shot);
            painter.drawPixmap (at, popup->grab ());
            painter.end ();
            shot.save (fileName, "PNG");
        }
        if (!session.HasEnded ()) session.Perform (Wg::ModalStep::MakeCancel ());
    }

private:
    QWidget*         window = nullptr;
    QString          fileName;
    int              entry = 0;
    Wg::ModalRunner* previous = nullptr;
};

}   // namespace

void Backend::ScreenshotNextPicker (QWidget& window, const QString& fileName, int entry)
{
    static PickerScreenshotRunner runner;
    runner.Arm (window, fileName, entry);
}

}   // namespace TxalQt
