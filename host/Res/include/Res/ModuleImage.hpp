#pragma once
// Res::ModuleImage: the parsed contents of one resource module: its string lists, help anchors
// and icons. An image is read from a set of files named by their path relative to the module's
// folder:
//   strings.txt        string lists (format in Res/StringsFile.hpp), required
//   helpanchors.txt    help anchors in the same format: [resId] then "<item index> = <anchor>"
//   dialogs.txt        dialog resources: sizes and item rectangles (format in Res/DialogsFile.hpp)
//   icons/<id>.svg     icon <id>; its size at 100 % comes from the SVG (Res/SvgSize.hpp)
// Other files are ignored, so a module folder can carry notes. Reading throws
// Res::ResourceError "<file>:<line>: <reason>" at the first problem.

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Gfx/Geometry.hpp"
#include "Kor/UniString.hpp"
#include "Res/DialogsFile.hpp"
#include "Res/StringsFile.hpp"

namespace Res {

// One file of a module image; path is relative to the module's folder, with '/' separators.
struct ImageFile {
    std::string path;
    std::string contents;
};

class ModuleImage {
public:
    struct Icon {
        Gfx::Size   size;   // at 100 %, in logical pixels
        std::string svg;    // the SVG document
    };

    static constexpr const char* StringsFileName = "strings.txt";
    static constexpr const char* HelpAnchorsFileName = "helpanchors.txt";
    static constexpr const char* DialogsFileName = "dialogs.txt";
    static constexpr const char* IconFolder = "icons/";
    static constexpr const char* IconExtension = ".svg";

    ModuleImage () = default;

    // origin prefixes the paths in error messages (a module name or a folder).
    static ModuleImage FromFiles (const std::string& origin, const std::vector<ImageFile>& files);
    // Reads strings.txt, helpanchors.txt and icons/*.svg of folder.
    static ModuleImage FromDirectory (const std::string& folder);

    // Null when there is no such entry.
    const Kor::UniString* FindString (int resId, int index) const;
    const Kor::UniString* FindHelpAnchor (int resId, int index) const;
    const Icon*           FindIcon (std::int32_t resId) const;
    const DialogTemplate* FindDialog (int resId) const;

    const StringLists&                    GetStringLists () const { return stringLists; }
    const std::map<std::int32_t, Icon>&   GetIcons () const { return icons; }

private:
    StringLists                  stringLists;
    StringLists                  helpAnchors;
    DialogTemplates              dialogs;
    std::map<std::int32_t, Icon> icons;
};

}   // namespace Res
