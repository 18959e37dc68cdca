// txal-demo: a settings palette for a small sample building.
//
//   txal-demo                          a window (needs a display)
//   txal-demo --screenshot DIR         renders the pages to DIR/*.png offscreen (100 % and 200 %)
//   txal-demo --script FILE            replays a script of user input first (see DemoScript.hpp);
//                                      its "screenshot NAME" lines write DIR/NAME.png
//   txal-demo --dump                   prints every cell of the palette after the script
//   txal-demo --dump-model             prints the building model after the script
//   txal-demo --model FILE             reads another building model
//   txal-demo --settings FILE          keeps the classifications and properties page's state in
//                                      FILE between runs (windows: a file in the user's config
//                                      folder unless given; scripts and screenshots: none)
//   txal-demo --scale 2                renders at 200 % (used for the second set of screenshots)
//   txal-demo --version, --help
//
// Exit codes: 0 fine, 1 bad arguments or files, 2 a script line failed.

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "BuildingModel.hpp"
#include "ClassificationScreenshots.hpp"
#include "DemoScript.hpp"
#include "ElementDialogScript.hpp"
#include "MainWindow.hpp"
#include "PageStateFile.hpp"
#include "PropertyScreenshots.hpp"
#include "TxAttributeList/Version.hpp"
#include "ElementAttributeRows.hpp"
#include "TxalQt/Backend.hpp"

namespace {

constexpr const char* Usage =
    "Usage: txal-demo [options]\n"
    "A settings palette for a small sample building, built with TxAttributeList.\n"
    "\n"
    "  --screenshot DIR   render the pages to DIR/*.png offscreen (100 % and 200 %)\n"
    "  --script FILE      replay a script of user input first\n"
    "  --dump             print every cell of the palette after the script\n"
    "  --dump-model       print the building model after the script\n"
    "  --model FILE       read another building model\n"
    "  --settings FILE    keep the page state of the settings dialog in FILE between runs\n"
    "  --scale FACTOR     render at FACTOR (2 for 200 %)\n"
    "  --suffix TEXT      append TEXT to the screenshot file names\n"
    "  --version          print the version and exit\n"
    "  --help             print this text and exit\n"
    "\n"
    "Without a display the demo runs offscreen. Exit codes: 0 fine, 1 bad arguments or files,\n"
    "2 a script line failed.\n";

struct Options {
    bool        help = false;
    bool        version = false;
    std::string screenshotDir;
    std::string script;
    std::string modelFile;
    std::string settingsFile;
    bool        settingsGiven = false;
    std::string suffix;
    std::string scale;
    bool        dump = false;
    bool        dumpModel = false;
};

// The pages that screenshots show: one element of each kind with a row being edited, then a
// wall in imperial units.
const struct {
    const char* element;
    const char* row;
} Pages[] = {{"W-01", "Height"}, {"D-01", "\"Opening type\""}, {"N-01", "\"Level of detail\""}, {"N-03", "Name"}, {"Z-01", "Occupancy"},
             {"W-03", "\"Cut fill\""}, {"S-01", "Composite"}, {"B-01", "Profile"}};

bool ParseArguments (int argc, char** argv, Options& options)
{
    const std::vector<std::string> args (argv + 1, argv + argc);
    for (std::size_t i = 0; i < args.size (); ++i) {
        const std::string& arg = args[i];
        const auto value = [&] (std::string& target) {
            if (i + 1 >= args.size ()) return false;
            target = args[++i];
            return true;
        };
        bool ok = true;
        if (arg == "--screenshot")
            ok = value (options.screenshotDir);
        else if (arg == "--script")
            ok = value (options.script);
        else if (arg == "--model")
            ok = value (options.modelFile);
        else if (arg == "--settings")
            ok = options.settingsGiven = value (options.settingsFile);
        else if (arg == "--suffix")
            ok = value (options.suffix);
        else if (arg == "--scale")
            ok = value (options.scale);
        else if (arg == "--dump")
            options.dump = true;
        else if (arg == "--dump-model")
            options.dumpModel = true;
        else if (arg == "--help" || arg == "-h")
            options.help = true;
        else if (arg == "--version")
            options.version = true;
        else
            ok = false;
        if (!ok) {
            std::fprintf (stderr, "txal-demo: bad argument \"%s\" (see txal-demo --help)\n", arg.c_str ());
            return false;
        }
    }
    return true;
}

// The classifications and properties tab: a wall, the information strip for a mixed
// selection, the splitter dragged, and the page at a second size.
template <typename Screenshot>
void PageScreenshots (Demo::MainWindow& window, Demo::BuildingModel& model, const Screenshot& screenshot)
{
    Demo::DemoScript pages (window.GetPalette (), model);
    Demo::ElementDialogScript dialogScript (window.GetDialog (), [&window] (const std::vector<std::string>& ids) { window.ShowSelection (ids); });
    dialogScript.InstallInto (pages);
    pages.Run ("elements W-01\ntab properties\n", "pages");
    screenshot ("page-W-01");
    pages.Run ("elements W-01 D-01\n", "pages");
    screenshot ("page-strip-shown");
    pages.Run ("elements W-01 W-02\n", "pages");
    screenshot ("page-strip-same-kind");
    pages.Run ("elements W-01\n", "pages");
    screenshot ("page-strip-hidden");
    pages.Run ("drag-splitter 220\n", "pages");
    screenshot ("page-splitter-dragged");
    const QSize size = window.size ();
    window.resize (size.width () - 60, size.height () - 160);
    QApplication::processEvents ();
    screenshot ("page-small");
    window.resize (size);
    QApplication::processEvents ();
    pages.Run ("tab settings\n", "pages");
}

bool Headless (const Options& options)
{
    const bool noDisplay = std::getenv ("DISPLAY") == nullptr && std::getenv ("WAYLAND_DISPLAY") == nullptr;
    return !options.screenshotDir.empty () || options.dump || options.dumpModel || (!options.script.empty () && noDisplay) || noDisplay;
}

}   // namespace

int main (int argc, char** argv)
{
    Options options;
    if (!ParseArguments (argc, argv, options)) return 1;
    if (options.help) {
        std::fputs (Usage, stdout);
        return 0;
    }
    if (options.version) {
        std::printf ("txal-demo %s\n", TXAL_VERSION_STRING);
        return 0;
    }
    if (Headless (options)) qputenv ("QT_QPA_PLATFORM", "offscreen");
    if (!options.scale.empty ()) qputenv ("QT_SCALE_FACTOR", QByteArray::fromStdString (options.scale));

    QApplication application (argc, argv);
    TxalQt::Backend::ApplyTheme (application);

    Demo::BuildingModel model;
    try {
        model = options.modelFile.empty () ? Demo::BuildingModel::LoadBuiltIn () : Demo::BuildingModel::Load (options.modelFile);
    } catch (const Demo::ModelError& e) {
        std::fprintf (stderr, "txal-demo: %s\n", e.what ());
        return 1;
    }

    // A window keeps the page state in the user's config folder; runs of scripts and
    // screenshots start from the page's defaults unless told otherwise.
    const std::string stateFile = options.settingsGiven ? options.settingsFile : Headless (options) ? std::string () : Demo::PageStateFile::GetDefaultPath ();

    // A person at a real screen gets real popups; scripts and screenshots keep the headless runner.
    if (!Headless (options)) TxalQt::Backend::InstallModalRunner ();
    Demo::MainWindow window (model, stateFile);
    window.show ();
    application.processEvents ();

    const QString screenshotDir = QString::fromStdString (options.screenshotDir.empty () ? std::string (".") : options.screenshotDir);
    QDir ().mkpath (screenshotDir);
    const auto screenshot = [&] (const std::string& name) {
        application.processEvents ();
        const QString file = screenshotDir + "/" + QString::fromStdString (name + options.suffix) + ".png";
        if (!TxalQt::Backend::SaveScreenshot (window, file)) std::fprintf (stderr, "txal-demo: could not write %s\n", file.toLocal8Bit ().constData ());
    };

    if (!options.script.empty ()) {
        Demo::DemoScript script (window.GetPalette (), model);
        Demo::ElementDialogScript dialogScript (window.GetDialog (), [&window] (const std::vector<std::string>& ids) { window.ShowSelection (ids); });
        dialogScript.InstallInto (script);
        script.SetScreenshotHandler (screenshot);
        script.SetUnitsHandler ([&window] (bool metric) { window.ShowUnits (metric); });
        script.SetElementHandler ([&window] (const std::string& id) { window.ShowElement (id); });
        script.SetCloseHandler ([&window, &application] {
            window.close ();
            application.processEvents ();
        });
        script.SetFocusOutHandler ([&window, &application] {
            window.FocusElementList ();
            application.processEvents ();
        });
        try {
            script.RunFile (options.script);
        } catch (const Demo::ScriptError& e) {
            std::fprintf (stderr, "txal-demo: %s\n", e.what ());
            return 2;
        }
        application.processEvents ();
    }
    if (options.dump) std::fputs (Demo::DumpPalette (window.GetPalette ()).c_str (), stdout);
    if (options.dumpModel) std::fputs (model.Dump ().c_str (), stdout);

    if (!options.screenshotDir.empty ()) {
        if (options.script.empty ()) {
            Demo::DemoScript pages (window.GetPalette (), model);
            pages.SetElementHandler ([&window] (const std::string& id) { window.ShowElement (id); });
            pages.SetUnitsHandler ([&window] (bool metric) { window.ShowUnits (metric); });
            for (const auto& page : Pages) {
                pages.Run (std::string ("element ") + page.element + "\nclick " + page.row + "\n", "pages");
                screenshot (std::string ("palette-") + page.element);
            }
            pages.Run ("element W-01\nunits imperial\nclick Thickness\n", "pages");
            screenshot ("palette-W-01-imperial");
            pages.Run ("units metric\n", "pages");
            PageScreenshots (window, model, screenshot);
            // Open pickers, on the settings tab: the row previews the entry under the pointer.
            const auto openPicker = [&] (const char* element, const char* row, int entry, const char* name) {
                pages.Run (std::string ("element ") + element + "\nclick " + row + "\n", "pages");
                application.processEvents ();
                const QString file = screenshotDir + "/" + QString::fromStdString (name + options.suffix) + ".png";
                TxalQt::Backend::ScreenshotNextPicker (window, file, entry);
                Demo::OpenSelectedRowPicker (window.GetPalette ());
            };
            openPicker ("W-03", "\"Cut fill\"", 4, "picker-cut-fill");
            openPicker ("W-03", "Composite", 1, "picker-composite");
            openPicker ("W-03", "\"Contour pen\"", 2, "picker-pen");
            openPicker ("B-01", "Profile", 3, "picker-profile");
            // These leave the classifications and properties tab shown.
            Demo::SaveClassificationScreenshots (window, [&] (const std::string& name, const QImage& image) {
                const QString file = screenshotDir + "/" + QString::fromStdString (name + options.suffix) + ".png";
                if (!image.save (file)) std::fprintf (stderr, "txal-demo: could not write %s\n", file.toLocal8Bit ().constData ());
            });
            Demo::SavePropertyScreenshots (window, screenshotDir, QString::fromStdString (options.suffix));
        }
        // The same pages at 200 %, from a second run (the scale is fixed when Qt starts).
        if (options.scale.empty ()) {
            QStringList arguments = QApplication::arguments ().mid (1);
            arguments << "--scale" << "2" << "--suffix" << "@2x";
            arguments.removeAll ("--dump");
            arguments.removeAll ("--dump-model");
            QProcess::execute (QApplication::applicationFilePath (), arguments);
        }
        return 0;
    }
    if (Headless (options)) return 0;
    return application.exec ();
}
