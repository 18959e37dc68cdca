#pragma once
// The text format of a module image's strings.txt (string lists) and helpanchors.txt (help
// anchors of dialog items, by resource id and item index). Both files share one syntax:
//
//     # A comment: a line whose first non-blank character is '#'. Blank lines are skipped.
//     [2001]                  # starts list 2001; a comment may follow the closing bracket
//     1 = Missing attribute
//     3 = Custom
//     4 = "  kept blanks  "   # no comment here: this '#' and all after it are part of the text
//     5 = Line one\nLine two
//
// - A section "[<id>]" starts the list <id>; every entry line until the next section belongs
//   to it. A list appears once and has at least one entry.
// - An entry is "<index> = <text>". Ids and indices are decimal numbers from 1 to 2147483647;
//   an index appears once per list. Blanks around the index, the '=' and the text are dropped.
// - A text that starts with '"' is quoted: it runs to the next unescaped '"', which must end
//   the line, and keeps its leading and trailing blanks. Any other text is taken as it stands
//   up to the end of the line; '#' and '"' inside it are ordinary characters.
// - Escapes, in quoted and unquoted text alike: \n line break, \t tab, \\ backslash, \" quote.
//   Any other backslash sequence is an error.
// - Files are UTF-8 (a byte order mark is allowed), with LF or CR LF line breaks.
//
// Anything else is an error: ParseStringsFile throws Res::ResourceError "<file>:<line>: <reason>".

#include <map>
#include <string>
#include <string_view>

#include "Kor/UniString.hpp"

namespace Res {

using StringList = std::map<int, Kor::UniString>;      // index -> text
using StringLists = std::map<int, StringList>;         // list id -> list

// Parses contents; fileName only names the file in error messages.
StringLists ParseStringsFile (const std::string& fileName, std::string_view contents);

}   // namespace Res
