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
//   answer-popup ENTRY            the next popup that opens, however it opens, chooses ENTRY
//   auto-update on|off            whether the palette's edits report every keystroke
//   focus-out                     the keyboard leaves the palette for another part of the window
//                                 (the front end's; headless the palette's panel loses it)
//   close                         the user closes the window (the front end's; headless the
//                                 keyboard leaves the palette, as it does when its window goes)
//   units metric|imperial
//   scroll ROW
//   screenshot NAME               handled by the front end (ignored headless)
//   expect-cell LABEL COLUMN TEXT the shown text of a cell (rest of the line)
//   expect-model ID KEY VALUE     a value in the building model (rest of the line)
//   expect-changes N              how many edits reached the model since the last expect-changes
//   expect-popups N               how many popups opened since the last expect-popups
//   expect-focus LABEL WHERE      the row labelled LABEL is selected and the keyboard is in the
//                                 control over column WHERE, or in the list itself (WHERE "list")
//   expect-focus none             no control of the palette has the keyboard
//   expect-rows LABEL...          the labels of all rows, in order
//   expect-group LABEL expanded|collapsed
//   list NAME                     the list that the commands above address from now on (the
//                                 settings palette's unless a front end names others; see
//                                 ElementDialogScript.hpp for the element settings dialog's)
//
// Labels with blanks are written in double quotes. Lines starting with # are comments.

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace TxAL {
class AttributeList;
}
namespace Wg {
class Panel;
}

namespace Demo {

class SettingsPalette;
class BuildingModel;

// A list that the script's commands address, with the panel it stands on.
struct ScriptTarget {
    TxAL::AttributeList& list;
    Wg::Panel&           panel;
};

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
    // What closing the window and leaving the palette do (e.g. in the real window).
    using WindowHandler = std::function<void ()>;
    void SetCloseHandler (WindowHandler handler) { close = std::move (handler); }
    void SetFocusOutHandler (WindowHandler handler) { focusOut = std::move (handler); }

    // The list of a name ("list NAME"); nothing for an unknown name. Without a resolver, and
    // until the first "list" line, the commands address the palette's list.
    using ListResolver = std::function<std::optional<ScriptTarget> (const std::string& name)>;
    void SetListResolver (ListResolver resolver) { listResolver = std::move (resolver); }
    // More commands: answers whether it knew the command (words[0]); throws what fails.
    using ExtensionHandler = std::function<bool (const std::vector<std::string>& words, const std::string& line)>;
    void SetExtensionHandler (ExtensionHandler handler) { extension = std::move (handler); }
    // How many edits reached the model so far (the palette's count unless given).
    using ChangeCounter = std::function<int ()>;
    void SetChangeCounter (ChangeCounter counter);

    // Runs every line; throws ScriptError at the first line that cannot be carried out.
    void Run (const std::string& text, const std::string& fileName);
    void RunFile (const std::string& path);

private:
    ScriptTarget Target () const;
    int          StoredChangeCount () const;
    void Execute (const std::vector<std::string>& words, const std::string& rest);
    // The commands that act on the current list; false for the others.
    bool ExecuteOnList (const std::vector<std::string>& words, const std::string& line);
    // The assertions about what the user sees and what reached the model.
    bool Expect (const std::vector<std::string>& words, const std::string& rest);

    SettingsPalette&  palette;
    BuildingModel&    model;
    ScreenshotHandler screenshot;
    UnitsHandler      units;
    ElementHandler    element;
    WindowHandler     close;
    WindowHandler     focusOut;
    ListResolver      listResolver;
    ExtensionHandler  extension;
    ChangeCounter     changeCounter;
    std::string       listName;
    // Counts at the last expect-changes and expect-popups.
    int               changesSeen = 0;
    int               popupsSeen = 0;
};

// Every cell of the palette, one row a line: "3 | Height | 2.700 m | | ". Each cell is the
// text automated UI testing reads (AttributeList::GetDrawnTextContentForKorAT), or, where an
// item reports none for that column, the text the list box shows in it.
std::string DumpPalette (SettingsPalette& palette);
// The same for any list.
std::string DumpList (const ScriptTarget& target);

// Switches the working units and lets the palette show every number anew.
void SetMetricUnits (SettingsPalette& palette, bool metric);

}   // namespace Demo
