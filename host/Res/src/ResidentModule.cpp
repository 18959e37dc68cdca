#include "Res/ResidentModule.hpp"

namespace Res {

namespace {

// The line that miss reports of a resident module give: the library has one lookup place.
constexpr int StringLineTag = 1;

}   // namespace

ModuleHandle ResidentModule::GetHandle ()
{
    // Never removed: the module lives as long as the process, like the library that owns it.
    if (handle <= NoModule) handle = ResInitModuleImageCache (moduleName);
    return handle;
}

Kor::UniString ResidentModule::GetString (int resId, int index)
{
    Kor::UniString result;
    ResGetIndString_ParamAdapter (sourceTag, StringLineTag, resId, index, GetHandle (), PlainStringType, result);
    return result;
}

}   // namespace Res
