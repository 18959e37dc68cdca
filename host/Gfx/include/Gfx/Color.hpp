#pragma once
// Gfx::Color: an 8-bit RGBA colour.

#include <cstdint>
#include <string>

namespace Gfx {

class Color {
public:
    constexpr Color () = default;
    constexpr Color (std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha = 255)
        : red (red), green (green), blue (blue), alpha (alpha) {}

    constexpr std::uint8_t GetRed () const { return red; }
    constexpr std::uint8_t GetGreen () const { return green; }
    constexpr std::uint8_t GetBlue () const { return blue; }
    constexpr std::uint8_t GetAlpha () const { return alpha; }
    constexpr void SetRed (std::uint8_t v) { red = v; }
    constexpr void SetGreen (std::uint8_t v) { green = v; }
    constexpr void SetBlue (std::uint8_t v) { blue = v; }
    constexpr void SetAlpha (std::uint8_t v) { alpha = v; }

    // "#RRGGBB" or "#RRGGBBAA" when not opaque.
    std::string ToHex () const;

    constexpr bool operator== (const Color&) const = default;

    static const Color Black;
    static const Color White;
    static const Color Transparent;

private:
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

inline constexpr Color Color::Black {0, 0, 0};
inline constexpr Color Color::White {255, 255, 255};
inline constexpr Color Color::Transparent {0, 0, 0, 0};

}   // namespace Gfx
