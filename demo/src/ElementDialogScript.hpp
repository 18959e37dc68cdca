#pragma once
// The script commands of the element settings dialog, added to a DemoScript:
//
//   elements ID...                 select these elements (the first one's values show)
//   tab settings|properties        the user clicks a tab
//   list settings|properties|classifications
//                                  the list that label commands (click, type, expect-cell, ...)
//                                  address from now on
//   classify LABEL TEXT            press the button of the classification row LABEL and choose
//                                  the entry whose text is TEXT (rest of the line) in the selector
//   drag-splitter Y                drag the page's splitter so that its top would stand at Y
//   close-dialog                   the user presses the dialog's Close button
//   open-dialog                    the dialog opens again over the selection
//   expect-strip TEXT|none         the information strip's text (rest of the line), or no strip
//   expect-splitter Y              the splitter's top
//   expect-tab settings|properties
//
// Lists and page commands fail while the dialog is closed.

#include <optional>
#include <string>
#include <vector>

#include "DemoScript.hpp"

namespace Demo {

class ElementSettingsDialog;

// Connects a DemoScript to an element settings dialog.
class ElementDialogScript {
public:
    // A front end's reaction to a selection (e.g. the element list shows it).
    using SelectionHandler = std::function<void (const std::vector<std::string>& ids)>;

    explicit ElementDialogScript (ElementSettingsDialog& dialog, SelectionHandler selected = {});

    // Installs the list resolver, the extension and the change counter.
    void InstallInto (DemoScript& script);

    std::optional<ScriptTarget> FindList (const std::string& name);
    // Answers whether it knew the command; throws what fails.
    bool Execute (const std::vector<std::string>& words, const std::string& line);

private:
    ElementSettingsDialog& dialog;
    SelectionHandler       selected;
};

}   // namespace Demo
