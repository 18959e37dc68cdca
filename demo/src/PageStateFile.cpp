#include "PageStateFile.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <vector>

namespace Demo {

namespace {

constexpr const char* SplitterKey = "splitter";
constexpr const char* CollapsedKey = "collapsed";
constexpr const char* FileHeader = "# txal-demo page state";
constexpr const char* RelativePath = "txal-demo/page-state.txt";

std::string Trimmed (const std::string& text)
{
    const auto first = text.find_first_not_of (" \t\r");
    if (first == std::string::npos) return {};
    const auto last = text.find_last_not_of (" \t\r");
    return text.substr (first, last - first + 1);
}

}   // namespace

std::string PageStateFile::GetDefaultPath ()
{
    namespace fs = std::filesystem;
    if (const char* config = std::getenv ("XDG_CONFIG_HOME"); config != nullptr && *config != '\0') return (fs::path (config) / RelativePath).string ();
    if (const char* home = std::getenv ("HOME"); home != nullptr && *home != '\0') return (fs::path (home) / ".config" / RelativePath).string ();
    return {};
}

TxAL::ClassificationsAndPropertiesPageState PageStateFile::Parse (const std::string& text)
{
    TxAL::ClassificationsAndPropertiesPageState state;
    std::istringstream in (text);
    std::string line;
    while (std::getline (in, line)) {
        line = Trimmed (line);
        if (line.empty () || line.front () == '#') continue;
        const auto equals = line.find ('=');
        if (equals == std::string::npos) continue;
        const std::string key = Trimmed (line.substr (0, equals));
        const std::string value = Trimmed (line.substr (equals + 1));
        if (key == SplitterKey) {
            try {
                std::size_t used = 0;
                const long position = std::stol (value, &used);
                if (used == value.size () && position >= 0 && position <= std::numeric_limits<short>::max ())
                    state.SetSplitterPosition (static_cast<short> (position));
            } catch (const std::exception&) {
                // A malformed number leaves the splitter where the page puts it.
            }
        } else if (key == CollapsedKey) {
            Kor::HashSet<Kor::Guid> guids;
            std::istringstream words (value);
            std::string word;
            while (words >> word)
                if (const std::optional<Kor::Guid> guid = Kor::Guid::Parse (Kor::UniString (word))) guids.insert (*guid);
            state.SetCollapsedPropertyGroupGuids (guids);
        }
    }
    return state;
}

std::string PageStateFile::Format (const TxAL::ClassificationsAndPropertiesPageState& state)
{
    // Sorted, so that the same state always writes the same file.
    std::vector<std::string> guids;
    for (const Kor::Guid& guid : state.GetCollapsedPropertyGroupGuids ()) guids.push_back (guid.ToUniString ().ToUtf8 ());
    std::sort (guids.begin (), guids.end ());
    std::string out = std::string (FileHeader) + "\n" + SplitterKey + " = " + std::to_string (state.GetSplitterPosition ()) + "\n" + CollapsedKey + " =";
    for (const std::string& guid : guids) out += " " + guid;
    return out + "\n";
}

TxAL::ClassificationsAndPropertiesPageState PageStateFile::Read (const std::string& path)
{
    std::ifstream file (path, std::ios::binary);
    if (!file) return {};
    std::ostringstream text;
    text << file.rdbuf ();
    return Parse (text.str ());
}

bool PageStateFile::Write (const std::string& path, const TxAL::ClassificationsAndPropertiesPageState& state)
{
    namespace fs = std::filesystem;
    if (path.empty ()) return false;
    std::error_code error;
    const fs::path parent = fs::path (path).parent_path ();
    if (!parent.empty ()) fs::create_directories (parent, error);
    std::ofstream file (path, std::ios::binary | std::ios::trunc);
    file << Format (state);
    return static_cast<bool> (file);
}

}   // namespace Demo
