#pragma once
// The drawing attributes of a building model, as the attribute database stores them: the pen
// table, fills, composites, line types, profiles, materials and building materials, with the
// data their previews need. Lengths are in millimetres on paper (pen weights, hatch spacing,
// dash lengths) or in millimetres of the model (skin thicknesses, profile outlines).

#include <cstdint>
#include <vector>

#include "ADB/Attribute.hpp"
#include "ADB/AttributeSet.hpp"

namespace TxAttr {

// --- Type ids ---
inline constexpr ADB::AttributeTypeId idLineType = 1;
inline constexpr ADB::AttributeTypeId idFill = 2;
inline constexpr ADB::AttributeTypeId idCompWall = 3;
inline constexpr ADB::AttributeTypeId idPenTable = 4;
inline constexpr ADB::AttributeTypeId idMaterial = 5;
inline constexpr ADB::AttributeTypeId idProfile = 6;
inline constexpr ADB::AttributeTypeId idBuildingMaterial = 11;

// A colour with 16 bits per channel.
struct RGBColor {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;

    // From 8-bit channels (each byte is repeated: 0xAB becomes 0xABAB).
    static constexpr RGBColor FromBytes (std::uint8_t r, std::uint8_t g, std::uint8_t b)
    {
        return RGBColor {static_cast<std::uint16_t> (r * 257), static_cast<std::uint16_t> (g * 257), static_cast<std::uint16_t> (b * 257)};
    }
    bool operator== (const RGBColor&) const = default;
};

// One pen of the pen table.
struct Pen {
    RGBColor color;
    double   weight = 0.0;   // millimetres on paper
};

// The numbered pens 1..MaxPenIndex.
class PenTable : public ADB::Attribute {
public:
    static constexpr short MaxPenIndex = 255;
    static const ADB::ClassInfo classInfo;

    explicit PenTable (const Kor::UniString& name);

    // The pen of index, null outside 1..MaxPenIndex.
    const Pen* GetPenPtr (short index) const;
    // Ignored outside 1..MaxPenIndex.
    void       SetPen (short index, const Pen& pen);

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    std::vector<Pen> pens;
};

// --- Fills ---

enum class FillKind { Empty, Solid, Hatch };

// Where a fill may be used (bits).
namespace FillUsage {
inline constexpr int Drafting = 1;
inline constexpr int Cut = 2;
inline constexpr int Cover = 4;
inline constexpr int Any = Drafting | Cut | Cover;
}   // namespace FillUsage

// A family of parallel hatch lines.
struct HatchLineFamily {
    double              angle = 0.0;     // degrees, counter-clockwise from the x axis
    double              spacing = 1.0;   // millimetres between lines
    double              offset = 0.0;    // millimetres, shifts the family across its lines
    std::vector<double> dashes;          // dash, gap, dash, ... in millimetres; empty = continuous
};

// A fill pattern: empty, solid or a vector hatch.
class Fill : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    Fill (const Kor::UniString& name, FillKind kind, int usage, std::vector<HatchLineFamily> lines = {});

    FillKind                            GetKind () const { return kind; }
    int                                 GetUsage () const { return usage; }
    const std::vector<HatchLineFamily>& GetLines () const { return lines; }

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    FillKind                     kind;
    int                          usage;
    std::vector<HatchLineFamily> lines;
};

// --- Composites ---

// Element kinds a composite may be used for (bits).
namespace CompositeUsage {
inline constexpr int Wall = 4;
inline constexpr int Slab = 8;
inline constexpr int Roof = 16;
inline constexpr int Shell = 32;
inline constexpr int All = Wall | Slab | Roof | Shell;
}   // namespace CompositeUsage

// One layer of a composite, outside first.
struct Skin {
    double              thickness = 0.0;   // model millimetres
    ADB::AttributeIndex fill;
    short               fillPen = 1;
    short               backgroundPen = 0;
    short               contourPen = 1;
    bool                core = false;
};

// A build-up of skins.
class Composite : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    Composite (const Kor::UniString& name, int usage, std::vector<Skin> skins, short separatorPen = 1);

    int                      GetUsage () const { return usage; }
    const std::vector<Skin>& GetSkins () const { return skins; }
    short                    GetSeparatorPen () const { return separatorPen; }
    double                   GetThickness () const;

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    int               usage;
    std::vector<Skin> skins;
    short             separatorPen;
};

// --- Line types ---

// A solid line or a repeated dash pattern.
class LineType : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    // pattern: dash, gap, dash, ... in millimetres on paper; empty for a solid line.
    LineType (const Kor::UniString& name, std::vector<double> pattern = {});

    bool                       IsSolid () const { return pattern.empty (); }
    const std::vector<double>& GetPattern () const { return pattern; }

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    std::vector<double> pattern;
};

// --- Profiles ---

// What a profile is made for (bits of a profile type mask).
namespace ProfileUsage {
inline constexpr int Wall = 1;
inline constexpr int Beam = 2;
inline constexpr int Column = 4;
inline constexpr int Handrail = 8;
inline constexpr int Other = 16;
}   // namespace ProfileUsage

// A point of a profile outline, model millimetres.
struct ProfilePoint {
    double x = 0.0;
    double y = 0.0;
};

// A cross-section: an outer outline and optional holes.
class Profile : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    Profile (const Kor::UniString& name, int usage, std::vector<ProfilePoint> outline, std::vector<std::vector<ProfilePoint>> holes = {});

    int                                            GetUsage () const { return usage; }
    const std::vector<ProfilePoint>&               GetOutline () const { return outline; }
    const std::vector<std::vector<ProfilePoint>>&  GetHoles () const { return holes; }

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    int                                    usage;
    std::vector<ProfilePoint>              outline;
    std::vector<std::vector<ProfilePoint>> holes;
};

// --- Materials ---

// A surface: its colour and an optional texture fill drawn over it.
class Material : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    Material (const Kor::UniString& name, RGBColor surfaceColor, ADB::AttributeIndex textureFill = ADB::InvalidAttributeIndex,
              short transparency = 0);

    RGBColor            GetSurfaceColor () const { return surfaceColor; }
    ADB::AttributeIndex GetTextureFill () const { return textureFill; }
    short               GetTransparency () const { return transparency; }   // percent

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    RGBColor            surfaceColor;
    ADB::AttributeIndex textureFill;
    short               transparency;
};

// What a building element is made of: its cut fill with pens, and its surface.
class BuildingMaterial : public ADB::Attribute {
public:
    static const ADB::ClassInfo classInfo;

    BuildingMaterial (const Kor::UniString& name, ADB::AttributeIndex cutFill, short cutFillPen, short cutBackgroundPen,
                      ADB::AttributeIndex surface, short priority);

    ADB::AttributeIndex GetCutFill () const { return cutFill; }
    short               GetCutFillPen () const { return cutFillPen; }
    short               GetCutBackgroundPen () const { return cutBackgroundPen; }
    ADB::AttributeIndex GetSurface () const { return surface; }
    short               GetPriority () const { return priority; }   // higher wins where elements meet

    const ADB::ClassInfo* GetClassInfo () const override { return &classInfo; }

private:
    ADB::AttributeIndex cutFill;
    short               cutFillPen;
    short               cutBackgroundPen;
    ADB::AttributeIndex surface;
    short               priority;
};

// The attribute of (type, index) in set as a T (class checked), or null.
template <typename T>
const T* FindAttribute (const ADB::AttributeSet& set, ADB::AttributeTypeId type, ADB::AttributeIndex index)
{
    return ADB::AttributeCast<T> (set.FindAttribute (type, index));
}

}   // namespace TxAttr
