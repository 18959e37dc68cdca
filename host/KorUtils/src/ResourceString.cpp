#include "KorUtils/ResourceString.hpp"

#include "Res/ResidentModule.hpp"

namespace KorUtils {

namespace {

constinit Res::ResidentModule resModule {ResModuleName, "KorUtils"};

}   // namespace

Res::ModuleHandle GetResModule ()
{
    return resModule.GetHandle ();
}

Kor::UniString GetResourceString (int resId, int index)
{
    return resModule.GetString (resId, index);
}

}   // namespace KorUtils
