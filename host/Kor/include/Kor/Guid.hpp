#pragma once
// Kor::Guid: a 128-bit identifier, printed as "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx" (upper case).

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "Kor/Exceptions.hpp"
#include "Kor/UniString.hpp"

namespace Kor {

class Guid {
public:
    constexpr Guid () = default;
    explicit Guid (const std::array<std::uint8_t, 16>& bytes) : bytes (bytes) {}

    // A random (version 4) guid.
    static Guid Generate ();
    // Reads the 8-4-4-4-12 hexadecimal form, with or without braces; nullopt when malformed.
    static std::optional<Guid> Parse (const UniString& text);
    // The same, throwing Kor::Exception with the text in the message when malformed.
    static Guid FromString (const UniString& text);

    UniString ToUniString () const;
    bool      IsNull () const;
    const std::array<std::uint8_t, 16>& GetBytes () const { return bytes; }

    bool operator== (const Guid&) const = default;
    bool operator< (const Guid& other) const { return bytes < other.bytes; }

    std::size_t GetHash () const;

private:
    std::array<std::uint8_t, 16> bytes {};
};

inline constexpr Guid NullGuid {};

}   // namespace Kor

template <>
struct std::hash<Kor::Guid> {
    std::size_t operator() (const Kor::Guid& g) const noexcept { return g.GetHash (); }
};
