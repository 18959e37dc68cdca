#include "TxAttr/SampleAttributeSet.hpp"

#include <array>
#include <cmath>
#include <numbers>

#include "TxAttr/Attributes.hpp"

namespace TxAttr {

namespace {

using Lines = std::vector<HatchLineFamily>;

// The pen weights of a drawing office, thinnest first (millimetres).
constexpr std::array<double, 10> StandardWeights {0.10, 0.13, 0.18, 0.25, 0.35, 0.50, 0.70, 1.00, 1.40, 2.00};
// The first pens have the colours everyone expects; the rest are a palette.
constexpr short NamedPenCount = 8;
constexpr int   PaletteHues = 24;
constexpr int   PaletteBands = 11;

RGBColor HsvToRgb (double hue, double saturation, double value)
{
    const double c = value * saturation;
    const double h = std::fmod (hue, 360.0) / 60.0;
    const double x = c * (1.0 - std::abs (std::fmod (h, 2.0) - 1.0));
    double r = 0.0, g = 0.0, b = 0.0;
    if (h < 1) { r = c; g = x; }
    else if (h < 2) { r = x; g = c; }
    else if (h < 3) { g = c; b = x; }
    else if (h < 4) { g = x; b = c; }
    else if (h < 5) { r = x; b = c; }
    else { r = c; b = x; }
    const double m = value - c;
    const auto channel = [m] (double v) { return static_cast<std::uint8_t> (std::lround ((v + m) * 255.0)); };
    return RGBColor::FromBytes (channel (r), channel (g), channel (b));
}

std::shared_ptr<PenTable> MakePenTable ()
{
    auto table = std::make_shared<PenTable> ("Standard Pens");
    const std::array<RGBColor, NamedPenCount> named {
        RGBColor::FromBytes (0, 0, 0),     RGBColor::FromBytes (220, 30, 30),  RGBColor::FromBytes (30, 150, 50),
        RGBColor::FromBytes (30, 60, 200), RGBColor::FromBytes (230, 180, 0), RGBColor::FromBytes (150, 40, 170),
        RGBColor::FromBytes (0, 160, 170), RGBColor::FromBytes (128, 128, 128)};
    for (short index = 1; index <= PenTable::MaxPenIndex; ++index) {
        Pen pen;
        pen.weight = StandardWeights[static_cast<std::size_t> (index - 1) % StandardWeights.size ()];
        if (index <= NamedPenCount) {
            pen.color = named[static_cast<std::size_t> (index - 1)];
        } else {
            const int slot = index - NamedPenCount - 1;
            const int hue = slot % PaletteHues;
            const int band = (slot / PaletteHues) % PaletteBands;
            // The last band is a grey ramp; the others run from deep to pale colours.
            if (band == PaletteBands - 1) {
                const auto grey = static_cast<std::uint8_t> (255 * hue / (PaletteHues - 1));
                pen.color = RGBColor::FromBytes (grey, grey, grey);
            } else {
                const double value = 0.35 + 0.065 * band;
                const double saturation = 1.0 - 0.07 * band;
                pen.color = HsvToRgb (hue * 360.0 / PaletteHues, saturation, value);
            }
        }
        table->SetPen (index, pen);
    }
    return table;
}

HatchLineFamily Family (double angle, double spacing, double offset = 0.0, std::vector<double> dashes = {})
{
    return HatchLineFamily {angle, spacing, offset, std::move (dashes)};
}

ADB::AttributeIndex AddFill (ADB::AttributeSet& set, const char* name, FillKind kind, int usage, Lines lines = {})
{
    return set.AddAttribute (std::make_shared<Fill> (name, kind, usage, std::move (lines)));
}

std::vector<ProfilePoint> Circle (double radius, int segments)
{
    std::vector<ProfilePoint> points;
    for (int i = 0; i < segments; ++i) {
        const double a = 2.0 * std::numbers::pi * i / segments;
        points.push_back ({radius * std::cos (a), radius * std::sin (a)});
    }
    return points;
}

}   // namespace

std::shared_ptr<ADB::AttributeSet> MakeSampleAttributeSet ()
{
    auto set = std::make_shared<ADB::AttributeSet> ("Residential Template");
    set->AddAttribute (MakePenTable ());

    // --- Fills ---
    using namespace FillUsage;
    AddFill (*set, "Empty Fill", FillKind::Empty, Any);
    AddFill (*set, "Solid Fill", FillKind::Solid, Any);
    const auto brick = AddFill (*set, "Brick", FillKind::Hatch, Cut, {Family (45, 1.0)});
    const auto concrete = AddFill (*set, "Concrete", FillKind::Hatch, Cut, {Family (45, 2.0, 0, {1.5, 0.5}), Family (135, 3.0, 0.5, {0.2, 1.2})});
    const auto reinforced = AddFill (*set, "Reinforced Concrete", FillKind::Hatch, Cut, {Family (45, 1.2), Family (135, 2.4, 0.6, {0.3, 0.6})});
    const auto insulation = AddFill (*set, "Insulation", FillKind::Hatch, Cut, {Family (60, 2.0), Family (120, 2.0)});
    const auto earth = AddFill (*set, "Earth", FillKind::Hatch, Cut, {Family (45, 0.8, 0, {2.0, 0.8}), Family (135, 2.0, 0.4)});
    const auto timber = AddFill (*set, "Timber", FillKind::Hatch, Cut, {Family (0, 0.7, 0, {4.0, 1.0}), Family (90, 6.0, 1.0)});
    const auto glass = AddFill (*set, "Glass", FillKind::Hatch, Cut | Drafting, {Family (45, 3.0)});
    const auto gravel = AddFill (*set, "Gravel", FillKind::Hatch, Cut, {Family (30, 1.0, 0, {0.4, 0.8}), Family (150, 1.3, 0.5, {0.3, 0.9})});
    AddFill (*set, "Stone", FillKind::Hatch, Cut, {Family (0, 2.0), Family (90, 3.0, 1.5, {2.0, 2.0})});
    const auto steel = AddFill (*set, "Steel", FillKind::Hatch, Cut, {Family (45, 0.5)});
    const auto plaster = AddFill (*set, "Plaster", FillKind::Hatch, Cut, {Family (0, 0.8, 0, {0.15, 0.8})});
    const auto tiles = AddFill (*set, "Tiles", FillKind::Hatch, Cover, {Family (0, 3.0), Family (90, 3.0)});
    AddFill (*set, "Parquet", FillKind::Hatch, Cover, {Family (45, 2.0, 0, {3.0, 1.0}), Family (135, 2.0, 1.0, {3.0, 1.0})});
    AddFill (*set, "Grass", FillKind::Hatch, Cover, {Family (90, 1.2, 0, {0.6, 1.8})});
    AddFill (*set, "Water", FillKind::Hatch, Cover, {Family (0, 2.0, 0, {5.0, 1.5})});
    AddFill (*set, "Hatch 45°", FillKind::Hatch, Drafting, {Family (45, 1.5)});
    AddFill (*set, "Cross Hatch", FillKind::Hatch, Drafting, {Family (45, 1.5), Family (135, 1.5)});
    AddFill (*set, "Horizontal Lines", FillKind::Hatch, Drafting, {Family (0, 1.5)});
    const auto gypsum = AddFill (*set, "Gypsum Board", FillKind::Hatch, Cut, {Family (0, 0.6, 0, {0.6, 0.6}), Family (90, 0.6, 0.3, {0.6, 0.6})});
    const ADB::AttributeIndex empty = set->FindAttributeIndex (idFill, "Empty Fill");

    // --- Composites (outside first) ---
    namespace CU = CompositeUsage;
    const auto skin = [] (double thickness, ADB::AttributeIndex fill, short pen, bool core = false) {
        return Skin {thickness, fill, pen, 0, 1, core};
    };
    set->AddAttribute (std::make_shared<Composite> (
        "Exterior Wall - Brick Facing", CU::Wall,
        std::vector<Skin> {skin (115, brick, 2), skin (40, empty, 1), skin (120, insulation, 5), skin (200, concrete, 8, true), skin (15, plaster, 8)}));
    set->AddAttribute (std::make_shared<Composite> ("Partition - Gypsum Stud", CU::Wall,
                                                    std::vector<Skin> {skin (12.5, gypsum, 8), skin (75, insulation, 5, true), skin (12.5, gypsum, 8)}));
    set->AddAttribute (std::make_shared<Composite> ("Partition - Brick", CU::Wall,
                                                    std::vector<Skin> {skin (15, plaster, 8), skin (115, brick, 2, true), skin (15, plaster, 8)}));
    set->AddAttribute (std::make_shared<Composite> (
        "Slab - Concrete Floor", CU::Slab,
        std::vector<Skin> {skin (10, tiles, 7), skin (60, plaster, 8), skin (30, insulation, 5), skin (200, reinforced, 8, true)}));
    set->AddAttribute (std::make_shared<Composite> ("Roof - Flat Warm", CU::Roof | CU::Slab,
                                                    std::vector<Skin> {skin (50, gravel, 8), skin (160, insulation, 5), skin (220, reinforced, 8, true)}));
    set->AddAttribute (std::make_shared<Composite> ("Shell - Timber Frame", CU::Shell | CU::Roof,
                                                    std::vector<Skin> {skin (24, timber, 6), skin (140, insulation, 5, true), skin (12.5, gypsum, 8)}));

    // --- Line types ---
    set->AddAttribute (std::make_shared<LineType> ("Solid Line"));
    set->AddAttribute (std::make_shared<LineType> ("Dashed", std::vector<double> {3.0, 1.5}));
    set->AddAttribute (std::make_shared<LineType> ("Dotted", std::vector<double> {0.1, 1.0}));
    set->AddAttribute (std::make_shared<LineType> ("Dash-Dot", std::vector<double> {4.0, 1.0, 0.5, 1.0}));
    set->AddAttribute (std::make_shared<LineType> ("Centre Line", std::vector<double> {8.0, 1.5, 1.5, 1.5}));
    set->AddAttribute (std::make_shared<LineType> ("Hidden", std::vector<double> {1.5, 1.0}));
    set->AddAttribute (std::make_shared<LineType> ("Long Dashes", std::vector<double> {8.0, 2.0}));
    set->AddAttribute (std::make_shared<LineType> ("Property Line", std::vector<double> {10.0, 1.5, 1.5, 1.5, 1.5, 1.5}));

    // --- Profiles (outlines in millimetres around the origin) ---
    namespace PU = ProfileUsage;
    set->AddAttribute (std::make_shared<Profile> (
        "I-Beam IPE 200", PU::Beam | PU::Column,
        std::vector<ProfilePoint> {{-50, -100}, {50, -100}, {50, -91.5}, {2.8, -91.5}, {2.8, 91.5}, {50, 91.5}, {50, 100}, {-50, 100},
                                   {-50, 91.5}, {-2.8, 91.5}, {-2.8, -91.5}, {-50, -91.5}}));
    set->AddAttribute (std::make_shared<Profile> (
        "Hollow Section 120x80", PU::Column | PU::Beam, std::vector<ProfilePoint> {{-60, -40}, {60, -40}, {60, 40}, {-60, 40}},
        std::vector<std::vector<ProfilePoint>> {{{-54, -34}, {54, -34}, {54, 34}, {-54, 34}}}));
    set->AddAttribute (std::make_shared<Profile> ("Angle 100x100x10", PU::Beam,
                                                  std::vector<ProfilePoint> {{0, 0}, {100, 0}, {100, 10}, {10, 10}, {10, 100}, {0, 100}}));
    set->AddAttribute (std::make_shared<Profile> (
        "Channel UPN 160", PU::Beam,
        std::vector<ProfilePoint> {{0, 0}, {65, 0}, {65, 10.5}, {7.5, 10.5}, {7.5, 149.5}, {65, 149.5}, {65, 160}, {0, 160}}));
    set->AddAttribute (std::make_shared<Profile> (
        "Wall with Plinth", PU::Wall,
        std::vector<ProfilePoint> {{0, 0}, {450, 0}, {450, 600}, {365, 600}, {365, 3000}, {0, 3000}}));
    set->AddAttribute (std::make_shared<Profile> ("Handrail Round 42", PU::Handrail, Circle (21, 16)));

    // --- Materials ---
    const auto material = [&set] (const char* name, RGBColor color, ADB::AttributeIndex texture = ADB::InvalidAttributeIndex,
                                  short transparency = 0) {
        return set->AddAttribute (std::make_shared<Material> (name, color, texture, transparency));
    };
    const auto plasterSurface = material ("Plaster - White", RGBColor::FromBytes (240, 238, 230));
    const auto brickSurface = material ("Brick - Red", RGBColor::FromBytes (170, 70, 50), brick);
    const auto concreteSurface = material ("Concrete - Smooth", RGBColor::FromBytes (175, 175, 170), concrete);
    const auto glassSurface = material ("Glass - Clear", RGBColor::FromBytes (170, 210, 230), ADB::InvalidAttributeIndex, 70);
    const auto timberSurface = material ("Timber - Oak", RGBColor::FromBytes (180, 130, 80), timber);
    const auto steelSurface = material ("Steel - Galvanised", RGBColor::FromBytes (150, 155, 160));
    material ("Grass", RGBColor::FromBytes (90, 150, 60));
    material ("Water", RGBColor::FromBytes (60, 120, 190), ADB::InvalidAttributeIndex, 40);
    const auto tileSurface = material ("Tiles - Sand", RGBColor::FromBytes (215, 195, 160), tiles);
    material ("Paint - Yellow", RGBColor::FromBytes (240, 200, 60));

    // --- Building materials ---
    const auto building = [&set] (const char* name, ADB::AttributeIndex cut, short pen, ADB::AttributeIndex surface, short priority) {
        set->AddAttribute (std::make_shared<BuildingMaterial> (name, cut, pen, 0, surface, priority));
    };
    building ("Concrete - Structural", reinforced, 8, concreteSurface, 800);
    building ("Brick - Masonry", brick, 2, brickSurface, 600);
    building ("Insulation - Mineral Wool", insulation, 5, plasterSurface, 100);
    building ("Timber - Structural", timber, 6, timberSurface, 500);
    building ("Gypsum Board", gypsum, 8, plasterSurface, 300);
    building ("Glass", glass, 4, glassSurface, 200);
    building ("Steel", steel, 1, steelSurface, 900);
    building ("Earth", earth, 6, ADB::InvalidAttributeIndex, 50);
    building ("Gravel", gravel, 8, ADB::InvalidAttributeIndex, 60);
    building ("Ceramic Tiles", tiles, 7, tileSurface, 250);
    return set;
}

}   // namespace TxAttr
