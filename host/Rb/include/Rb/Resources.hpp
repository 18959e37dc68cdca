#pragma once
// Icons and texts of the user-dialogs library's own resource module, "Rb". The module is loaded
// on first use and stays loaded for the life of the process.

#include <cstdint>

#include "Kor/UniString.hpp"
#include "Res/ResourceCache.hpp"
#include "Wg/Icon.hpp"

namespace Rb {

constexpr const char* ResModuleName = "Rb";

// Icon 17: information ("i" in a circle), on buttons that open a popup with more detail.
constexpr std::int32_t InformationIconResId = 17;

// String list 1: the names of the popups.
constexpr int PopupNamesResId = 1;
constexpr int ChecklistNameIndex = 1;
constexpr int ListEditNameIndex = 2;

// The module handle; NoModule when it cannot be loaded (then the next call tries again).
Res::ModuleHandle GetResModule ();

// Icon resId of the module; an empty icon when the module has no such icon.
Wg::Icon GetResourceIcon (std::int32_t resId);

// The index-th string of string list resId of the module; empty when it is missing.
Kor::UniString GetResourceString (int resId, int index);

}   // namespace Rb
