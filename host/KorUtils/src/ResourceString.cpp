#include "KorUtils/ResourceString.hpp"

namespace KorUtils {

namespace {

constexpr const char* SourceTag = "KorUtils";
constexpr int         StringLineTag = 1;

}   // namespace

Res::ModuleHandle GetResModule ()
{
    // Never removed: the module lives as long as the process, like the utilities themselves.
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

}   // namespace KorUtils
