#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Res/ResourceError.hpp"
#include "Res/SvgSize.hpp"

namespace {

std::string SizeOf (const std::string& contents)
{
    try {
        const Gfx::Size size = Res::ReadSvgSize ("icon.svg", contents);
        return std::to_string (size.width) + "x" + std::to_string (size.height);
    } catch (const Res::ResourceError& error) {
        return error.what ();
    }
}

}   // namespace

TEST (SvgSizeTest, SizeComesFromWidthAndHeightElseViewBox)
{
    EXPECT_EQ (SizeOf ("<svg width=\"16\" height=\"16\" viewBox=\"0 0 32 32\"/>"), "16x16");
    EXPECT_EQ (SizeOf ("<svg xmlns='http://www.w3.org/2000/svg' width='80px' height=' 12px '></svg>"), "80x12");
    EXPECT_EQ (SizeOf ("<svg width=\"8.6\" height=\"11.4\"></svg>"), "9x11");
    EXPECT_EQ (SizeOf ("<svg viewBox=\"0,0,9,12\"></svg>"), "9x12");
    EXPECT_EQ (SizeOf ("<svg width=\"20\" viewBox=\"0 0 16 24\"></svg>"), "16x24");
    EXPECT_EQ (SizeOf ("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- drawn by hand -->\n"
                       "<!DOCTYPE svg [ <!ENTITY ink \"#333\"> ]>\n<svg\n  viewBox=\"0 0 24 16\">\n</svg>"),
               "24x16");
}

TEST (SvgSizeTest, BadFilesNameTheLine)
{
    struct Case {
        std::string contents;
        std::string error;
    };
    const std::vector<Case> cases = {
        { "", "icon.svg:1: no <svg> root element" },
        { "<!-- only a comment -->\n", "icon.svg:2: no <svg> root element" },
        { "<?xml version=\"1.0\"?>\n\n<svg\n  fill=\"none\">\n</svg>",
          "icon.svg:3: the <svg> element has neither width and height nor a viewBox, so the icon has no size" },
        { "<html><svg width=\"16\" height=\"16\"/></html>", "icon.svg:1: the root element is 'html', not <svg>" },
        { "<svg width=\"50%\" height=\"16\"/>", "icon.svg:1: width '50%' is not a length in pixels" },
        { "<svg width=\"1em\" height=\"16\"/>", "icon.svg:1: width '1em' is not a length in pixels" },
        { "<svg viewBox=\"0 0 16\"/>", "icon.svg:1: viewBox '0 0 16' is not four numbers" },
        { "<svg width=\"0\" height=\"16\"/>", "icon.svg:1: width must be between 1 and 4096 pixels" },
        { "<svg viewBox=\"0 0 16 5000\"/>", "icon.svg:1: viewBox height must be between 1 and 4096 pixels" },
        { "\n<svg width=\"16\"\n height=\"16\"", "icon.svg:3: unterminated <svg> start tag" },
        { "<svg width=\"16\" width=\"16\"/>", "icon.svg:1: attribute 'width' appears twice" },
        { "<svg width=16 height=16/>", "icon.svg:1: attribute 'width' is not quoted" },
        { "<svg width=\"16\n\n height=16/>", "icon.svg:1: unterminated value of attribute 'width'" },
        { "<!-- never closed\n<svg/>", "icon.svg:1: unterminated comment" },
        { "garbage <svg/>", "icon.svg:1: text before the <svg> root element" },
        { std::string ("<svg\0", 5), "icon.svg:1: NUL byte at column 5: this is not a text file" },
        { "\x1f\x8b\x08\x00", "icon.svg:1: control character 0x1F at column 1" },
    };
    for (const Case& c : cases) EXPECT_EQ (SizeOf (c.contents), c.error) << "for: " << c.contents;
}
