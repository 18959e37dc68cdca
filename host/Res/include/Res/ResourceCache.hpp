#pragma once
// The resource layer: module images registered by name and cached by handle, and the lookups
// of strings, help anchors and icons by (module handle, resource id, index).
//
// Where an image comes from: a module name maps to a source, either a folder or a set of files
// in memory (ResRegisterModuleImageDirectory, ResRegisterModuleImage), or else to the image of
// that name built into this library from the project's resources/ folder ("TxAttributeList",
// "KorUtils"), so that the built-in modules work from any working directory.
//
// Handles and use counts: ResInitModuleImageCache loads an image on its first use and returns a
// handle above 0; further calls for the same name return the same handle and count one more
// use. ResRemoveModuleImageCache counts one use less and drops the image with the last one;
// its handle then finds nothing, and a later load gets a new handle (handles are never reused).
//
// All calls come from the user-interface thread. Pointers returned by GetIconSvg stay valid
// until the module's image is dropped or reloaded.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Gfx/Geometry.hpp"
#include "Kor/UniString.hpp"
#include "Res/ModuleImage.hpp"

namespace Res {

using ModuleHandle = std::int64_t;

// No module: what a failed load returns, and what a client holds before it loads its module.
constexpr ModuleHandle NoModule = 0;

// String types of ResGetIndString_ParamAdapter. Every string is returned as stored; other
// values are accepted and treated the same.
constexpr int PlainStringType = 0;

// Registers a source for moduleName; it is used when the module is next loaded (an image that is
// already cached stays as it is until its last use is removed). A registered source takes
// precedence over the built-in image of the same name.
void ResRegisterModuleImage (const char* moduleName, std::vector<ImageFile> files);
void ResRegisterModuleImageDirectory (const char* moduleName, const std::string& folder);
// Forgets the registered source of moduleName, so that its next load reads the built-in image.
void ResUnregisterModuleImage (const char* moduleName);

// Loads (or counts one more use of) the image of moduleName and returns its handle. An unknown
// name or an image that cannot be read is reported through Kor's assertion facility (for a bad
// file: "Res error assertion failed at <file>:<line> (<reason>)") and gives NoModule.
ModuleHandle ResInitModuleImageCache (const char* moduleName);

// Counts one use less; the image is dropped with its last use. Handles of NoModule and below
// are ignored; an unknown handle above 0 is reported through Kor's assertion facility.
void ResRemoveModuleImageCache (ModuleHandle module);

// Registers folder as the source of moduleName and reads it now: throws Res::ResourceError
// (nothing changes then). When the module is cached, the new image replaces the cached one under
// the same handle; either way one more use is counted and the handle returned.
ModuleHandle ResLoadModuleImageFromDirectory (const std::string& folder, const char* moduleName);

// How many uses the cached module has; 0 when the handle names no cached module.
int ResGetModuleUseCount (ModuleHandle module);

// The index-th string of string list resId of the module. On a miss, result is emptied, the
// miss is reported to the miss handler (Res/Diagnostics.hpp) with sourceFile and line, and the
// result is false.
bool ResGetIndString_ParamAdapter (const char* sourceFile, int line, int resId, int index, ModuleHandle module,
                                   int stringType, Kor::UniString& result);

// The help anchor of item index of dialog resId; empty when there is none.
Kor::UniString ResGetHelpAnchor (ModuleHandle module, int resId, int index);

// The dialog resource resId of the module; null when the module or the dialog is missing. The
// pointer stays valid as long as the icon pointers do.
const DialogTemplate* ResGetDialogTemplate (ModuleHandle module, int resId);

// The icon's size at 100 % and its SVG document; nothing (null) when the module or icon is missing.
std::optional<Gfx::Size> GetIconSize (ModuleHandle module, std::int32_t resId);
const std::string*       GetIconSvg (ModuleHandle module, std::int32_t resId);

// The cached image of a module, null when the handle names none. For hosts that list contents.
const ModuleImage* ResGetModuleImage (ModuleHandle module);

}   // namespace Res
