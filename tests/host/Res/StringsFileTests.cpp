#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Res/ResourceError.hpp"
#include "Res/StringsFile.hpp"

namespace {

// "list/index=text" entries separated by '|', with line breaks and tabs shown as \n and \t.
std::string Dump (const Res::StringLists& lists)
{
    std::string out;
    for (const auto& [id, list] : lists) {
        for (const auto& [index, text] : list) {
            if (!out.empty ()) out += '|';
            out += std::to_string (id) + "/" + std::to_string (index) + "=";
            for (const char c : text.ToUtf8 ()) {
                if (c == '\n') out += "\\n";
                else if (c == '\t') out += "\\t";
                else out += c;
            }
        }
    }
    return out;
}

std::string ErrorOf (const std::string& contents)
{
    try {
        Res::ParseStringsFile ("bad.txt", contents);
    } catch (const Res::ResourceError& error) {
        return error.what ();
    }
    return "no error";
}

}   // namespace

TEST (StringsFileTest, ParsesSectionsCommentsQuotesAndEscapes)
{
    const std::string contents =
        "\xEF\xBB\xBF# Strings of a test module\r\n"
        "\r\n"
        "[2001]   # value items\r\n"
        "  1 =   Missing attribute  \r\n"
        "3=Custom\r\n"
        "[7]\n"
        "1 = \"  kept blanks  \"\n"
        "2 = Line one\\nLine two\\tTabbed\n"
        "3 = Fill #3 is \"odd\" \\\\ a backslash\n"
        "4 = \"say \\\"hi\\\"\"   \n"
        "5 = \"\"\n"
        "6 =\n"
        "7 = Wände 2.5 m²";
    EXPECT_EQ (Dump (Res::ParseStringsFile ("good.txt", contents)),
               "7/1=  kept blanks  |7/2=Line one\\nLine two\\tTabbed|7/3=Fill #3 is \"odd\" \\ a backslash|"
               "7/4=say \"hi\"|7/5=|7/6=|7/7=Wände 2.5 m²|"
               "2001/1=Missing attribute|2001/3=Custom");
}

TEST (StringsFileTest, EmptyOrCommentOnlyFileHasNoLists)
{
    EXPECT_EQ (Dump (Res::ParseStringsFile ("empty.txt", "")), "");
    EXPECT_EQ (Dump (Res::ParseStringsFile ("notes.txt", "# nothing yet\n\n   # still nothing\n")), "");
}

TEST (StringsFileTest, MalformedFilesNameFileLineAndReason)
{
    struct Case {
        std::string contents;
        std::string error;
    };
    const std::vector<Case> cases = {
        { "1 = x\n", "bad.txt:1: entry before the first '[<id>]' section" },
        { "# c\n[12\n1 = x\n", "bad.txt:2: unterminated section header: expected ']'" },
        { "[abc]\n1 = x\n", "bad.txt:1: list id 'abc' is not a number from 1 to 2147483647" },
        { "[-5]\n1 = x\n", "bad.txt:1: list id '-5' is not a number from 1 to 2147483647" },
        { "[1] two\n1 = x\n", "bad.txt:1: unexpected text after ']': 'two'" },
        { "[1]\n1 = a\n\n1 = b\n", "bad.txt:4: index 1 appears twice in list 1 (first at line 2)" },
        { "[1]\n1 = a\n[2]\n1 = b\n[1]\n2 = c\n", "bad.txt:5: list 1 appears twice (first at line 1)" },
        { "[1]\n[2]\n1 = a\n", "bad.txt:1: list 1 has no entries" },
        { "[1]\n1 = a\n[2]\n# only a comment\n", "bad.txt:3: list 2 has no entries" },
        { "[1]\nx = a\n", "bad.txt:2: index 'x' is not a number from 1 to 2147483647" },
        { "[1]\n0 = a\n", "bad.txt:2: index '0' is not a number from 1 to 2147483647" },
        { "[1]\n99999999999 = a\n", "bad.txt:2: index '99999999999' is not a number from 1 to 2147483647" },
        { "[1]\nhello world\n", "bad.txt:2: expected '[<id>]' or '<index> = <text>', found 'hello world'" },
        { "[1]\n1 = \"open\n", "bad.txt:2: unterminated quoted text: expected a closing '\"'" },
        { "[1]\n1 = \"closed\" tail\n", "bad.txt:2: text after the closing quote" },
        { "[1]\n1 = a\\q\n", "bad.txt:2: unknown escape \\q; use \\n, \\t, \\\\ or \\\"" },
        { "[1]\n1 = a\\\n", "bad.txt:2: a backslash ends the line; write \\\\ for a backslash" },
        { std::string ("[1]\n1 = a\0b\n", 12), "bad.txt:2: NUL byte at column 6: this is not a text file" },
        { "[1]\n1 = a\x01\n", "bad.txt:2: control character 0x01 at column 6" },
        { "[1]\n\x89PNG\r\n\x1a\n", "bad.txt:2: byte 0x89 at column 1 is not valid UTF-8" },
        { "[1]\n1 = \xC0\xAF\n", "bad.txt:2: byte 0xC0 at column 5 is not valid UTF-8" },
        { "[1]\n1 = " + std::string (70000, 'a') + "\n", "bad.txt:2: line is longer than 65536 bytes" },
        { std::string (5 * 1024 * 1024, '\n'), "bad.txt:1: file is larger than 4194304 bytes" },
    };
    for (const Case& c : cases) EXPECT_EQ (ErrorOf (c.contents), c.error) << "for: " << c.contents.substr (0, 40);
}

TEST (StringsFileTest, ErrorCarriesItsParts)
{
    try {
        Res::ParseStringsFile ("module/strings.txt", "[1]\n1 = a\n1 = b\n");
        FAIL () << "no error";
    } catch (const Res::ResourceError& error) {
        EXPECT_EQ (error.GetFile (), "module/strings.txt");
        EXPECT_EQ (error.GetLine (), 3);
        EXPECT_EQ (error.GetReason (), "index 1 appears twice in list 1 (first at line 2)");
    }
}
