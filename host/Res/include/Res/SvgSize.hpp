#pragma once
// The size of an SVG icon at 100 % scale, in logical pixels: the root <svg> element's width and
// height when it has both (plain numbers or "px"), otherwise the width and height of its viewBox.
// Fractions are rounded to the nearest pixel; each side must come out between 1 and 4096.

#include <string>
#include <string_view>

#include "Gfx/Geometry.hpp"

namespace Res {

constexpr int MaxIconSide = 4096;

// Throws Res::ResourceError "<file>:<line>: <reason>" when contents is not a text file with an
// <svg> root element of a usable size. fileName only names the file in error messages.
Gfx::Size ReadSvgSize (const std::string& fileName, std::string_view contents);

}   // namespace Res
