#pragma once
// The text format of a module image's dialogs.txt: dialog resources, each a size and the
// rectangles of its items, from which a panel (a tab page, say) makes its controls.
//
//     # A comment: a line whose first non-blank character is '#'. Blank lines are skipped.
//     [20197] 380 x 440             # dialog 20197, width x height in logical pixels
//     1 = icon      4 422  20 438   # <index> = <kind> <left> <top> <right> <bottom>
//     2 = text     24 420 380 440
//
// - A section "[<id>] <width> x <height>" starts the dialog <id> (1 to 2147483647); its size
//   is 1 to 32767 pixels each way. A dialog appears once; it may have no items (a panel that
//   makes its controls itself).
// - An item is "<index> = <kind> <left> <top> <right> <bottom>": index 1 to 32767 (the item's
//   id on the panel), once per dialog; kind one of icon, text, listbox, splitter, button,
//   check; the rectangle in the dialog's coordinates, inside the dialog, with left <= right
//   and top <= bottom. A '#' after the numbers starts a comment.
// - Files are UTF-8 (a byte order mark is allowed), with LF or CR LF line breaks.
//
// Anything else is an error: ParseDialogsFile throws Res::ResourceError "<file>:<line>: <reason>".

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Gfx/Geometry.hpp"

namespace Res {

// The kinds of control a dialog resource can hold.
enum class DialogItemKind { Icon, Text, ListBox, Splitter, Button, Check };

// One control of a dialog resource.
struct DialogItem {
    short          index = 0;   // the item's id on the panel
    DialogItemKind kind = DialogItemKind::Text;
    Gfx::Rect      rect;        // in the dialog's coordinates

    bool operator== (const DialogItem&) const = default;
};

// A dialog resource: its size and its items in index order.
struct DialogTemplate {
    Gfx::Size               size;
    std::vector<DialogItem> items;

    const DialogItem* FindItem (short index) const;
};

using DialogTemplates = std::map<int, DialogTemplate>;   // dialog id -> template

// Parses contents; fileName only names the file in error messages.
DialogTemplates ParseDialogsFile (const std::string& fileName, std::string_view contents);

// The keyword of a kind as the file writes it ("listbox").
const char* GetDialogItemKindName (DialogItemKind kind);

}   // namespace Res
