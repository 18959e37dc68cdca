#include "Gfx/Color.hpp"

#include <cstdio>

namespace Gfx {

std::string Color::ToHex () const
{
    char buffer[16];
    if (alpha == 255)
        std::snprintf (buffer, sizeof buffer, "#%02X%02X%02X", red, green, blue);
    else
        std::snprintf (buffer, sizeof buffer, "#%02X%02X%02X%02X", red, green, blue, alpha);
    return buffer;
}

}   // namespace Gfx
