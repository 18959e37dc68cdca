#include "Res/ModuleImage.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <system_error>

#include "Res/ResourceError.hpp"
#include "Res/SvgSize.hpp"
#include "TextLines.hpp"

namespace Res {

namespace {

namespace fs = std::filesystem;

// Errors about a file as a whole (missing, unreadable, badly named) point at its first line.
constexpr int WholeFileLine = 1;

const Kor::UniString* FindIn (const StringLists& lists, int resId, int index)
{
    const auto list = lists.find (resId);
    if (list == lists.end ()) return nullptr;
    const auto entry = list->second.find (index);
    return entry != list->second.end () ? &entry->second : nullptr;
}

std::string Joined (const std::string& origin, const std::string& path)
{
    if (origin.empty ()) return path;
    if (origin.back () == '/') return origin + path;
    return origin + "/" + path;
}

bool EndsWith (const std::string& text, const std::string& suffix)
{
    return text.size () >= suffix.size () && text.compare (text.size () - suffix.size (), suffix.size (), suffix) == 0;
}

// The id of an icon file "icons/<id>.svg", digits only, 1 to the largest int32.
std::optional<std::int32_t> IconIdOf (const std::string& path)
{
    const std::string folder = ModuleImage::IconFolder;
    const std::string extension = ModuleImage::IconExtension;
    const std::string stem = path.substr (folder.size (), path.size () - folder.size () - extension.size ());
    if (stem.empty () || stem.size () > 10) return std::nullopt;
    std::int64_t value = 0;
    for (const char c : stem) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    if (value < 1 || value > std::numeric_limits<std::int32_t>::max ()) return std::nullopt;
    return static_cast<std::int32_t> (value);
}

std::string ReadWholeFile (const fs::path& path, const std::string& shownName)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size (path, error);
    if (error) throw ResourceError (shownName, WholeFileLine, "cannot read the file: " + error.message ());
    if (size > Detail::MaxResourceFileSize)
        throw ResourceError (shownName, WholeFileLine, "file is larger than " + std::to_string (Detail::MaxResourceFileSize) + " bytes");
    std::ifstream stream (path, std::ios::binary);
    if (!stream) throw ResourceError (shownName, WholeFileLine, "cannot open the file");
    std::string contents ((std::istreambuf_iterator<char> (stream)), std::istreambuf_iterator<char> ());
    if (stream.bad ()) throw ResourceError (shownName, WholeFileLine, "cannot read the file");
    return contents;
}

}   // namespace

ModuleImage ModuleImage::FromFiles (const std::string& origin, const std::vector<ImageFile>& files)
{
    ModuleImage image;
    bool hasStrings = false;
    for (const ImageFile& file : files) {
        const std::string shownName = Joined (origin, file.path);
        if (file.path == StringsFileName) {
            image.stringLists = ParseStringsFile (shownName, file.contents);
            hasStrings = true;
        } else if (file.path == HelpAnchorsFileName) {
            image.helpAnchors = ParseStringsFile (shownName, file.contents);
        } else if (file.path == DialogsFileName) {
            image.dialogs = ParseDialogsFile (shownName, file.contents);
        } else if (file.path.rfind (IconFolder, 0) == 0 && EndsWith (file.path, IconExtension) &&
                   file.path.find ('/', std::string (IconFolder).size ()) == std::string::npos) {
            const std::optional<std::int32_t> id = IconIdOf (file.path);
            if (!id) throw ResourceError (shownName, WholeFileLine, "an icon file is named after its id, like icons/2001.svg");
            const Gfx::Size size = ReadSvgSize (shownName, file.contents);
            if (!image.icons.emplace (*id, Icon { size, file.contents }).second)
                throw ResourceError (shownName, WholeFileLine, "icon " + std::to_string (*id) + " is given twice");
        }
    }
    if (!hasStrings) throw ResourceError (Joined (origin, StringsFileName), WholeFileLine, "missing: every module image has a strings.txt");
    return image;
}

ModuleImage ModuleImage::FromDirectory (const std::string& folder)
{
    std::error_code error;
    if (!fs::is_directory (folder, error))
        throw ResourceError (folder, WholeFileLine, "not a folder: a module image is a folder with a strings.txt");

    std::vector<ImageFile> files;
    for (const char* name : { StringsFileName, HelpAnchorsFileName, DialogsFileName }) {
        const fs::path path = fs::path (folder) / name;
        if (fs::exists (path, error)) files.push_back (ImageFile { name, ReadWholeFile (path, Joined (folder, name)) });
    }
    const fs::path iconFolder = fs::path (folder) / "icons";
    if (fs::is_directory (iconFolder, error)) {
        std::vector<fs::path> iconPaths;
        for (fs::directory_iterator it (iconFolder, error), end; !error && it != end; it.increment (error))
            if (it->path ().extension () == IconExtension) iconPaths.push_back (it->path ());
        if (error) throw ResourceError (Joined (folder, "icons"), WholeFileLine, "cannot list the folder: " + error.message ());
        std::sort (iconPaths.begin (), iconPaths.end ());   // a stable order gives stable error messages
        for (const fs::path& path : iconPaths) {
            const std::string relative = std::string (IconFolder) + path.filename ().string ();
            files.push_back (ImageFile { relative, ReadWholeFile (path, Joined (folder, relative)) });
        }
    }
    return FromFiles (folder, files);
}

const Kor::UniString* ModuleImage::FindString (int resId, int index) const
{
    return FindIn (stringLists, resId, index);
}

const Kor::UniString* ModuleImage::FindHelpAnchor (int resId, int index) const
{
    return FindIn (helpAnchors, resId, index);
}

const DialogTemplate* ModuleImage::FindDialog (int resId) const
{
    const auto it = dialogs.find (resId);
    return it != dialogs.end () ? &it->second : nullptr;
}

const ModuleImage::Icon* ModuleImage::FindIcon (std::int32_t resId) const
{
    const auto it = icons.find (resId);
    return it != icons.end () ? &it->second : nullptr;
}

}   // namespace Res
