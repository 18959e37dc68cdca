#pragma once
// Access to the library's resource module: its string lists, numeric values, icons and help
// anchors, by resource id and index. The module is registered when the library is loaded into
// the process; until then (handle 0) every lookup finds nothing.

#include <cstdint>

#include "Kor/UniString.hpp"
#include "Wg/Icon.hpp"

namespace TxAL {

// The handle of the library's resource module; 0 while it is not registered.
std::int64_t GetLibResModule ();

// The index-th string of string list resId; empty when there is none (the miss is reported to
// the resource layer's diagnostics).
Kor::UniString GetResourceString (int resId, int index);

// The index-th string of resId read as a whole number; defaultValue when the string is missing,
// is not a number or does not fit in a short.
short GetResourceShortValue (int resId, int index, short defaultValue);

// The icon resId of the library's module; an empty icon when the module has no such icon.
Wg::Icon GetResourceIcon (int resId);

// The help anchor of item index of dialog resId; empty when there is none.
// The name is spelled so on purpose and is kept.
Kor::UniString GetHelpAnchorSting (int resId, int index);

}   // namespace TxAL
