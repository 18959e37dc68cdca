#pragma once
// Registration of the library's resource module. The library attaches it by itself when it is
// loaded into the process and detaches it when unloaded; these calls exist for tests that check
// the lookups of a library whose module is not (yet) registered.

namespace TxAL {

// The name under which the resource layer knows the library's module.
constexpr const char* LibraryResModuleName = "TxAttributeList";

// Registers the module unless it is registered already.
void AttachLibraryResources ();

// Removes the module registration, if there is one; GetLibResModule then returns 0.
void DetachLibraryResources ();

}   // namespace TxAL
