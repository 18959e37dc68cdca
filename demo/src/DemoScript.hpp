#pragma once
// Scripts of user input for the demo: each line is one thing a user does to the settings
// palette, carried out through the widget model's user input entry points, exactly as the Qt
// backend would. Used by `txal-demo --script FILE` and by the end-to-end tests.
//
//   element ID                    show an element (a click in the element list)
//   click LABEL [COLUMN [DX]]     click the row labelled LABEL; COLUMN is one of triangle, icon,
//                                 label, value (default), preview, check; DX pixels from the
//                                 column's left edge (default 4; the check column: its middle)
//   double-click LABEL [COLUMN [DX]]
//   select LABEL                  select the row as the arrow keys would
//   type TEXT                     type the rest of the line into the focused control
//   key NAME                      Return Enter Escape Tab Backspace Delete Up Down Left Right Home
//                                 End Space; prefixes Alt+ (the popup modifier) and Shift+
//   pick LABEL ENTRY              open the row's popup and choose entry ENTRY (1-based)
//   toggle LABEL                  click the row's check box
//   units metric|imperial
//   scroll ROW
//   screenshot NAME               handled by the front end (ignored headless)
//   expect-cell LABEL COLUMN TEXT the shown text of a cell (rest of the line)
//   expect-model ID KEY VALUE     a value in the building model (rest of the line)
//
// Labels with blanks are written in double quotes. Lines starting with # are comments.

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Demo {

class SettingsPalette;
class BuildingModel;

// A script that cannot be carried out: what() is "<file>:<line>: <reason>".
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class DemoScript {
public:
    using ScreenshotHandler = std::function<void (const std::string& name)>;
    using UnitsHandler = std::function<void (bool metric)>;

    DemoScript (SettingsPalette& palette, BuildingModel& model);

    void SetScreenshotHandler (ScreenshotHandler handler) { screenshot = std::move (handler); }
    // What switching units does besides the palette (e.g. a menu check mark).
    void SetUnitsHandler (UnitsHandler handler) { units = std::move (handler); }
    // What showing an element does besides the palette (e.g. the element list's selection).
    using ElementHandler = std::function<void (const std::string& id)>;
    void SetElementHandler (ElementHandler handler) { element = std::move (handler); }

    // Runs every line; throws ScriptError at the first line that cannot be carried out.
    void Run (const std::string& text, const std::string& fileName);
    void RunFile (const std::string& path);

private:
    void Execute (const std::vector<std::string>& words, const std::string& rest);

    SettingsPalette&  palette;
    BuildingModel&    model;
    ScreenshotHandler screenshot;
    UnitsHandler      units;
    ElementHandler    element;
};

// Every cell of the palette, one row a line: "3 | Height | 2.700 m | | ". Each cell is the
// text automated UI testing reads (AttributeList::GetDrawnTextContentForKorAT), or, where an
// item reports none for that column, the text the list box shows in it.
std::string DumpPalette (SettingsPalette& palette);

// Switches the working units and lets the palette show every number anew.
void SetMetricUnits (SettingsPalette& palette, bool metric);

}   // namespace Demo
