#pragma once
// Texts of the foundation utilities' own resource module, "KorUtils". The module is loaded on
// first use and stays loaded for the life of the process.

#include "Kor/UniString.hpp"
#include "Res/ResourceCache.hpp"

namespace KorUtils {

constexpr const char* ResModuleName = "KorUtils";

// String list 101 holds the two choices of a boolean value.
constexpr int BoolChoicesResId = 101;
constexpr int TrueChoiceIndex = 1;
constexpr int FalseChoiceIndex = 2;

// The utilities' module handle; NoModule when it cannot be loaded (then the next call tries again).
Res::ModuleHandle GetResModule ();

// The index-th string of string list resId of the utilities' module; empty when it is missing.
Kor::UniString GetResourceString (int resId, int index);

}   // namespace KorUtils
