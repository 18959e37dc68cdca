#include "Rb/Resources.hpp"

namespace Rb {

namespace {

// What the resource layer's diagnostics of missing strings name as the asking code.
constexpr const char* SourceTag = "Rb";
constexpr int         StringLineTag = 1;

}   // namespace

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

Kor::UniString GetResourceString (int resId, int index)
{
    Kor::UniString result;
    Res::ResGetIndString_ParamAdapter (SourceTag, StringLineTag, resId, index, GetResModule (), Res::PlainStringType, result);
    return result;
}

}   // namespace Rb
