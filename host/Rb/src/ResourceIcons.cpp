#include "Rb/ResourceIcons.hpp"

namespace Rb {

Res::ModuleHandle GetResModule ()
{
    // Never removed: the module lives as long as the process, like the library itself.
    static Res::ModuleHandle module = Res::NoModule;
    if (module <= Res::NoModule) module = Res::ResInitModuleImageCache (ResModuleName);
    return module;
}

Wg::Icon GetResourceIcon (std::int32_t resId)
{
    const Res::ModuleHandle module = GetResModule ();
    if (!Res::GetIconSize (module, resId)) return Wg::Icon ();
    return Wg::Icon (module, resId);
}

}   // namespace Rb
