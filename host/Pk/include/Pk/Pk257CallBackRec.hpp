#pragma once
// Pk257CallBackRec: the request record that the picker controls (Pk::Pk257, Pk::Pk261) hand to
// their callback, `void (*) (Pk257CallBackRec*)`. Pk261CallBackRec names the same record. The
// control (or a client) fills the request fields, calls the callback and reads the answers.
//
// Messages:
//   CountMessage     answer entryCount: how many entries the popup offers.
//   EntryMessage     entry = k (1-based); answer value (what choosing the entry makes the
//                    control's value, e.g. a pen index; preset to k), text, icon, color with
//                    hasColor, enabled and separator (preset to an enabled plain entry).
//   DescribeMessage  describe the attribute attributeIndex (a legacy index) of type typeCode,
//                    in two calls: in SizePhase the callback sets resultSize to the size of its
//                    description; in FillPhase result points to a zeroed buffer of resultSize
//                    bytes, which it fills (see Pk::AttributeDescription). entry is NoEntry.
// Every request carries the control's user data and the scale of its panel (1.0 for 100 %).

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Gfx/Color.hpp"
#include "Kor/UniString.hpp"
#include "Wg/Icon.hpp"

struct Pk257CallBackRec {
    enum Message : std::int16_t {
        NoMessage = 0,
        DescribeMessage = 1,
        CountMessage = 2,
        EntryMessage = 3,
    };
    enum Phase : std::int16_t {
        NoPhase = 0,
        SizePhase = 1,
        FillPhase = 2,
    };
    static constexpr std::int32_t NoEntry = -1;

    // --- Request ---
    std::uint16_t  typeCode = 0;          // attribute type of a describe request
    std::int16_t   message = NoMessage;
    std::int32_t   entry = NoEntry;       // the entry asked about (EntryMessage)
    std::int16_t   phase = NoPhase;       // DescribeMessage: SizePhase, then FillPhase
    std::int32_t   attributeIndex = 0;    // DescribeMessage: the attribute's legacy index
    // --- Answers to CountMessage and EntryMessage ---
    std::int32_t   entryCount = 0;
    std::int32_t   value = 0;
    // --- Request ---
    double         scale = 1.0;
    const void*    userData = nullptr;
    // --- Describe buffer ---
    std::size_t    resultSize = 0;
    void*          result = nullptr;
    // --- Answers to EntryMessage ---
    Kor::UniString text;
    Wg::Icon       icon;
    Gfx::Color     color;
    bool           hasColor = false;
    bool           enabled = true;
    bool           separator = false;
};

using Pk261CallBackRec = Pk257CallBackRec;

namespace Pk {

using PickerCallBack = void (*) (Pk257CallBackRec*);

// The larger descriptions are refused: a callback that reports a huge size is broken.
inline constexpr std::size_t MaxDescriptionSize = 1u << 20;

// Runs both phases of the describe request prepared in record (typeCode, attributeIndex,
// userData, scale; message and phases are set here) and returns the description. Empty when
// there is no callback or it reports a size of 0 or above MaxDescriptionSize. The record's
// result is null again afterwards; its resultSize tells the size the callback reported.
std::vector<std::byte> RequestDescription (PickerCallBack callBack, Pk257CallBackRec& record);

// The fixed places of a description: the number of drawable parts (32-bit) at byte 8, and two
// 16-bit words that are non-zero when the attribute has a fill (byte 352) or a surface (byte
// 3748) to draw. Everything else in the block belongs to the callback.
class AttributeDescription {
public:
    static constexpr std::size_t Size = 3752;
    static constexpr std::size_t PartCountOffset = 8;
    static constexpr std::size_t FillWordOffset = 352;
    static constexpr std::size_t SurfaceWordOffset = 3748;

    AttributeDescription () = default;
    AttributeDescription (std::int32_t partCount, std::int16_t fillWord, std::int16_t surfaceWord)
        : partCount (partCount), fillWord (fillWord), surfaceWord (surfaceWord) {}
    // Reads a returned block; fields beyond a short block read as 0.
    static AttributeDescription Read (const std::vector<std::byte>& block);

    std::int32_t GetPartCount () const { return partCount; }
    std::int16_t GetFillWord () const { return fillWord; }
    std::int16_t GetSurfaceWord () const { return surfaceWord; }

    // For a callback: answers a describe request in either phase. In FillPhase only the fields
    // that fit into the caller's buffer are written.
    void Answer (Pk257CallBackRec& record) const;

    bool operator== (const AttributeDescription&) const = default;

private:
    std::int32_t partCount = 0;
    std::int16_t fillWord = 0;
    std::int16_t surfaceWord = 0;
};

}   // namespace Pk
