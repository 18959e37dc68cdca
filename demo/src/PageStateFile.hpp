#pragma once
// The small settings file in which the demo keeps the state of its "Classifications and
// properties" page between runs:
//
//     # txal-demo page state
//     splitter = 203
//     collapsed = 3e9a...-... 7c21...-...      (property group guids, blank-separated)
//
// Reading is forgiving: a missing file gives the empty state, unknown keys and malformed
// values are skipped, so that a file of another version never stops the demo.

#include <string>

#include "TxAttributeList/ClassificationsAndPropertiesPageTypes.hpp"

namespace Demo {

// Reads and writes the page state file.
class PageStateFile {
public:
    // Where the file goes when the demo is not told: $XDG_CONFIG_HOME/txal-demo/page-state.txt,
    // else ~/.config/txal-demo/page-state.txt; empty when neither is known.
    static std::string GetDefaultPath ();

    static TxAL::ClassificationsAndPropertiesPageState Parse (const std::string& text);
    static std::string                                 Format (const TxAL::ClassificationsAndPropertiesPageState& state);

    static TxAL::ClassificationsAndPropertiesPageState Read (const std::string& path);
    // Makes the folder when needed; returns whether the file was written.
    static bool Write (const std::string& path, const TxAL::ClassificationsAndPropertiesPageState& state);
};

}   // namespace Demo
