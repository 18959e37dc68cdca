#include "Rb/RbResources.hpp"

namespace Rb {

namespace {

constexpr const char* SourceTag = "RbResources";
constexpr int         StringLineTag = 1;

}   // namespace

Res::ModuleHandle GetResModule ()
{
    // Never removed: the module lives as long as the process, like the dialogs library.
    static Res::ModuleHandle module = Res::NoModule;
    if (module <= Res::NoModule) module = Res::ResInitModuleImageCache (ResModuleName);
    return module;
}

Kor::UniString GetResourceString (int resId, int index)
{
    Kor::UniString result;
    Res::ResGetIndString_ParamAdapter (SourceTag, StringLineTag, resId, index, GetResModule (), Res::PlainStringType, result);
    return result;
}

Kor::UniString GetResourceCommonString (int index)
{
    return GetResourceString (CommonStringsResId, index);
}

Wg::Icon GetResourceIcon (int resId)
{
    const Res::ModuleHandle module = GetResModule ();
    if (module <= Res::NoModule || !Res::GetIconSize (module, resId).has_value ()) return {};
    return Wg::Icon (module, resId);
}

}   // namespace Rb
