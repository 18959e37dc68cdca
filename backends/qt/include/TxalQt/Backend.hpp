#pragma once
// TxalQt::Backend: shows headless Wg panels in Qt widgets. User input reaches the model only
// through its entry points, so the window behaves exactly as the tests do.
//
//     QApplication application (argc, argv);
//     TxalQt::Backend::ApplyTheme (application);      // optional: style, palette, font
//     TxalQt::Backend::InstallModalRunner ();         // optional: real popups (not offscreen)
//     TxalQt::PanelView* view = TxalQt::Backend::AttachPanel (panel, parentOrNull);
//     view->show ();
//     TxalQt::Backend::SaveScreenshot (*view, "panel.png");
//
// Attaching installs the Qt text measurer (so the model's centring and elision match the
// screen) for as long as a view exists; without views the model keeps its headless metric.

#include <QImage>
#include <QString>

class QApplication;
class QWidget;

namespace Wg {
class Panel;
}

namespace TxalQt {

class PanelView;

// Shows panels in Qt windows and installs the Qt modal runner, text measurer and theme.
class Backend {
public:
    // The panel's view, made on the first call: a child of parent (which owns it), or a
    // top-level widget that the caller owns (delete it, or give it Qt::WA_DeleteOnClose).
    // Later calls return the same view.
    static PanelView* AttachPanel (Wg::Panel& panel, QWidget* parent = nullptr);
    // The panel's view, or null.
    static PanelView* FindView (const Wg::Panel& panel);

    // The Qt modal runner: popup controls and pickers open real popups. Runs without a screen
    // (offscreen, automation) keep the headless scripted runner and install nothing.
    static void InstallModalRunner ();
    static void RemoveModalRunner ();
    static bool IsModalRunnerInstalled ();

    // The text measurer alone (AttachPanel installs it as well); counted, so each install
    // needs its removal.
    static void InstallTextMeasurer ();
    static void RemoveTextMeasurer ();

    // Fusion style, the backend's palette and a default font (DejaVu Sans when present).
    static void ApplyTheme (QApplication& application);

    // Renders widget at its device pixel ratio, after the views in it have made their pending
    // peers; SaveScreenshot writes the rendering to a PNG file and answers whether it could.
    static QImage Grab (QWidget& widget);
    static bool   SaveScreenshot (QWidget& widget, const QString& fileName);
    // For screenshots of open pickers: the next picker that opens (attribute or pen picker) has
    // the pointer over entry, so that its row previews that entry, and is written with window
    // behind it to fileName; then it closes without a choice. Answers nothing: check the file.
    static void ScreenshotNextPicker (QWidget& window, const QString& fileName, int entry);
};

}   // namespace TxalQt
