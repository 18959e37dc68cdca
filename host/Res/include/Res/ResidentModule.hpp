#pragma once
// A library's own resource module that is loaded on first use and stays loaded for the life of
// the process, for libraries that have no attach/detach of their own.

#include "Kor/UniString.hpp"
#include "Res/ResourceCache.hpp"

namespace Res {

// One library's resident module. Not thread-safe, like the rest of the resource layer.
class ResidentModule {
public:
    // sourceTag names the library in the reports of missing strings.
    constexpr ResidentModule (const char* name, const char* tag) : moduleName (name), sourceTag (tag) {}
    ResidentModule (const ResidentModule&) = delete;
    ResidentModule& operator= (const ResidentModule&) = delete;

    // The module's handle; NoModule when it cannot be loaded (then the next call tries again).
    ModuleHandle GetHandle ();
    // The index-th string of string list resId; empty when it is missing (the miss is reported).
    Kor::UniString GetString (int resId, int index);

private:
    const char*  moduleName;
    const char*  sourceTag;
    ModuleHandle handle = NoModule;
};

}   // namespace Res
