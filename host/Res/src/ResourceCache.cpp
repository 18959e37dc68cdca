#include "Res/ResourceCache.hpp"

#include <map>
#include <memory>
#include <variant>

#include "BuiltInModuleImages.hpp"
#include "Kor/Assert.hpp"
#include "Res/Diagnostics.hpp"
#include "Res/ResourceError.hpp"

namespace Res {

namespace {

constexpr const char* ErrorPrefix = "Res error";
constexpr const char* SourceTag = "ResourceCache";
constexpr ModuleHandle FirstHandle = 1;

using Folder = std::string;
using Source = std::variant<std::vector<ImageFile>, Folder>;

struct CacheEntry {
    std::string                        name;
    std::unique_ptr<const ModuleImage> image;
    int                                useCount = 0;
};

struct Registry {
    std::map<std::string, Source>         sources;
    std::map<ModuleHandle, CacheEntry>    cache;
    std::map<std::string, ModuleHandle>   handleByName;
    ModuleHandle                          nextHandle = FirstHandle;
};

Registry& GetRegistry ()
{
    static Registry registry;
    return registry;
}

std::optional<std::vector<ImageFile>> BuiltInFiles (const std::string& name)
{
    for (const Detail::EmbeddedModule& module : Detail::GetBuiltInModuleImages ()) {
        if (name != module.name) continue;
        std::vector<ImageFile> files;
        for (std::size_t i = 0; i < module.fileCount; ++i)
            files.push_back (ImageFile { module.files[i].path, std::string (module.files[i].data, module.files[i].size) });
        return files;
    }
    return std::nullopt;
}

// Reads the image of name from its registered source or the built-in one; null when name has
// neither. Throws ResourceError for an image that cannot be read.
std::unique_ptr<const ModuleImage> ReadImage (const std::string& name)
{
    const Registry& registry = GetRegistry ();
    if (const auto source = registry.sources.find (name); source != registry.sources.end ()) {
        if (const Folder* folder = std::get_if<Folder> (&source->second))
            return std::make_unique<const ModuleImage> (ModuleImage::FromDirectory (*folder));
        return std::make_unique<const ModuleImage> (ModuleImage::FromFiles (name, std::get<std::vector<ImageFile>> (source->second)));
    }
    if (const std::optional<std::vector<ImageFile>> files = BuiltInFiles (name))
        return std::make_unique<const ModuleImage> (ModuleImage::FromFiles (name, *files));
    return nullptr;
}

ModuleHandle AddUse (const std::string& name, std::unique_ptr<const ModuleImage> image)
{
    Registry& registry = GetRegistry ();
    if (const auto known = registry.handleByName.find (name); known != registry.handleByName.end ()) {
        CacheEntry& entry = registry.cache.at (known->second);
        if (image != nullptr) entry.image = std::move (image);
        ++entry.useCount;
        return known->second;
    }
    const ModuleHandle handle = registry.nextHandle++;
    registry.cache.emplace (handle, CacheEntry { name, std::move (image), 1 });
    registry.handleByName.emplace (name, handle);
    return handle;
}

const ModuleImage* FindImage (ModuleHandle module)
{
    const Registry& registry = GetRegistry ();
    const auto entry = registry.cache.find (module);
    return entry != registry.cache.end () ? entry->second.image.get () : nullptr;
}

}   // namespace

void ResRegisterModuleImage (const char* moduleName, std::vector<ImageFile> files)
{
    if (!KOR_CHECK (ErrorPrefix, SourceTag, moduleName != nullptr && *moduleName != '\0')) return;
    GetRegistry ().sources.insert_or_assign (moduleName, Source (std::move (files)));
}

void ResRegisterModuleImageDirectory (const char* moduleName, const std::string& folder)
{
    if (!KOR_CHECK (ErrorPrefix, SourceTag, moduleName != nullptr && *moduleName != '\0')) return;
    GetRegistry ().sources.insert_or_assign (moduleName, Source (folder));
}

void ResUnregisterModuleImage (const char* moduleName)
{
    if (moduleName != nullptr) GetRegistry ().sources.erase (moduleName);
}

ModuleHandle ResInitModuleImageCache (const char* moduleName)
{
    if (!KOR_CHECK (ErrorPrefix, SourceTag, moduleName != nullptr && *moduleName != '\0')) return NoModule;
    const std::string name (moduleName);
    if (GetRegistry ().handleByName.count (name) != 0) return AddUse (name, nullptr);

    std::unique_ptr<const ModuleImage> image;
    try {
        image = ReadImage (name);
    } catch (const ResourceError& error) {
        Kor::ReportAssertFailure (ErrorPrefix, error.GetFile ().c_str (), error.GetLine (), error.GetReason ().c_str ());
        return NoModule;
    } catch (const std::exception& error) {
        Kor::ReportAssertFailure (ErrorPrefix, name.c_str (), 0, error.what ());
        return NoModule;
    }
    if (image == nullptr) {
        const std::string reason = "no module image named '" + name + "'";
        Kor::ReportAssertFailure (ErrorPrefix, SourceTag, __LINE__, reason.c_str ());
        return NoModule;
    }
    return AddUse (name, std::move (image));
}

void ResRemoveModuleImageCache (ModuleHandle module)
{
    if (module <= NoModule) return;
    Registry& registry = GetRegistry ();
    const auto entry = registry.cache.find (module);
    if (!KOR_CHECK (ErrorPrefix, SourceTag, entry != registry.cache.end ())) return;
    if (--entry->second.useCount > 0) return;
    registry.handleByName.erase (entry->second.name);
    registry.cache.erase (entry);
}

ModuleHandle ResLoadModuleImageFromDirectory (const std::string& folder, const char* moduleName)
{
    if (!KOR_CHECK (ErrorPrefix, SourceTag, moduleName != nullptr && *moduleName != '\0')) return NoModule;
    auto image = std::make_unique<const ModuleImage> (ModuleImage::FromDirectory (folder));
    ResRegisterModuleImageDirectory (moduleName, folder);
    return AddUse (moduleName, std::move (image));
}

int ResGetModuleUseCount (ModuleHandle module)
{
    const Registry& registry = GetRegistry ();
    const auto entry = registry.cache.find (module);
    return entry != registry.cache.end () ? entry->second.useCount : 0;
}

bool ResGetIndString_ParamAdapter (const char* sourceFile, int line, int resId, int index, ModuleHandle module,
                                   int /*stringType*/, Kor::UniString& result)
{
    const ModuleImage* image = FindImage (module);
    const Kor::UniString* text = image != nullptr ? image->FindString (resId, index) : nullptr;
    if (text == nullptr) {
        result.Clear ();
        ReportMiss (MissReport { sourceFile != nullptr ? sourceFile : "", line, module, resId, index });
        return false;
    }
    result = *text;
    return true;
}

Kor::UniString ResGetHelpAnchor (ModuleHandle module, int resId, int index)
{
    const ModuleImage* image = FindImage (module);
    const Kor::UniString* anchor = image != nullptr ? image->FindHelpAnchor (resId, index) : nullptr;
    return anchor != nullptr ? *anchor : Kor::UniString ();
}

const DialogTemplate* ResGetDialogTemplate (ModuleHandle module, int resId)
{
    const ModuleImage* image = FindImage (module);
    return image != nullptr ? image->FindDialog (resId) : nullptr;
}

std::optional<Gfx::Size> GetIconSize (ModuleHandle module, std::int32_t resId)
{
    const ModuleImage* image = FindImage (module);
    const ModuleImage::Icon* icon = image != nullptr ? image->FindIcon (resId) : nullptr;
    if (icon == nullptr) return std::nullopt;
    return icon->size;
}

const std::string* GetIconSvg (ModuleHandle module, std::int32_t resId)
{
    const ModuleImage* image = FindImage (module);
    const ModuleImage::Icon* icon = image != nullptr ? image->FindIcon (resId) : nullptr;
    return icon != nullptr ? &icon->svg : nullptr;
}

const ModuleImage* ResGetModuleImage (ModuleHandle module)
{
    return FindImage (module);
}

}   // namespace Res
