#include "TxAttributeList/ResourceHelpers.hpp"

#include <limits>

#include "AttributeList/LibraryResources.hpp"
#include "Res/ResourceCache.hpp"

namespace TxAL {

namespace {

// What the resource layer's diagnostics of missing strings name as the asking code.
constexpr const char* SourceTag = "TxAttributeListResIds";
constexpr int         StringLineTag = 16;
constexpr int         NumberLineTag = 22;

std::int64_t libResModule = Res::NoModule;

// Registers the module when the library is loaded into the process and removes it when the
// library is unloaded. It lives in the same translation unit as GetLibResModule, so every
// program that uses the library links it.
struct LibraryAttachment {
    LibraryAttachment () { AttachLibraryResources (); }
    ~LibraryAttachment () { DetachLibraryResources (); }
    LibraryAttachment (const LibraryAttachment&) = delete;
    LibraryAttachment& operator= (const LibraryAttachment&) = delete;
};

const LibraryAttachment libraryAttachment;

Kor::UniString LookUpString (int lineTag, int resId, int index)
{
    Kor::UniString result;
    Res::ResGetIndString_ParamAdapter (SourceTag, lineTag, resId, index, libResModule, Res::PlainStringType, result);
    return result;
}

}   // namespace

void AttachLibraryResources ()
{
    if (libResModule > Res::NoModule) return;
    libResModule = Res::ResInitModuleImageCache (LibraryResModuleName);
}

void DetachLibraryResources ()
{
    if (libResModule > Res::NoModule) Res::ResRemoveModuleImageCache (libResModule);
    libResModule = Res::NoModule;
}

std::int64_t GetLibResModule ()
{
    return libResModule;
}

Kor::UniString GetResourceString (int resId, int index)
{
    return LookUpString (StringLineTag, resId, index);
}

short GetResourceShortValue (int resId, int index, short defaultValue)
{
    const std::optional<std::int64_t> value = LookUpString (NumberLineTag, resId, index).ToInteger ();
    if (!value || *value < std::numeric_limits<short>::min () || *value > std::numeric_limits<short>::max ())
        return defaultValue;
    return static_cast<short> (*value);
}

Wg::Icon GetResourceIcon (int resId)
{
    if (!Res::GetIconSize (libResModule, resId)) return Wg::Icon ();
    return Wg::Icon (libResModule, resId);
}

Kor::UniString GetHelpAnchorSting (int resId, int index)
{
    return Res::ResGetHelpAnchor (libResModule, resId, index);
}

}   // namespace TxAL
