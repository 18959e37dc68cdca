#pragma once
// The user-dialogs library's own resource module, "Rb": its common strings (button texts that
// every dialog shares) and its icons. The module is loaded on first use and stays loaded for the
// life of the process.

#include "Kor/UniString.hpp"
#include "Res/ResourceCache.hpp"
#include "Wg/Icon.hpp"

namespace Rb {

constexpr const char* ResModuleName = "Rb";

// String list of the common strings of GetResourceCommonString.
constexpr int CommonStringsResId = 1;

// String list of the popups' names, read by assistive technology.
constexpr int PopupNamesResId = 2;
constexpr int ChecklistNameIndex = 1;
constexpr int ListEditNameIndex = 2;

// Icons of the module.
constexpr int InformationIconId = 17;        // a plain information mark
constexpr int ItemsHiddenIconId = 1109;      // some entries are not shown
constexpr int FilterActiveIconId = 1113;     // a filter applies to the entries
constexpr int TreeGroupIconId = 1101;        // an entry with entries below it
constexpr int TreeLeafIconId = 1102;         // an entry without entries below it

// The module's handle; NoModule when it cannot be loaded (then the next call tries again).
Res::ModuleHandle GetResModule ();

// The index-th string of string list resId of the module; empty when it is missing.
Kor::UniString GetResourceString (int resId, int index);

// The index-th common string (1 OK, 2 Cancel, 3 Apply, 4 Close, 5 Select).
Kor::UniString GetResourceCommonString (int index);

// The icon resId of the module; an empty icon when the module has no such icon.
Wg::Icon GetResourceIcon (int resId);

}   // namespace Rb
