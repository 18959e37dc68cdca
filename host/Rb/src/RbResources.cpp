#include "Rb/RbResources.hpp"

#include "Res/ResidentModule.hpp"

namespace Rb {

namespace {

constinit Res::ResidentModule resModule {ResModuleName, "RbResources"};

}   // namespace

Res::ModuleHandle GetResModule ()
{
    return resModule.GetHandle ();
}

Kor::UniString GetResourceString (int resId, int index)
{
    return resModule.GetString (resId, index);
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
