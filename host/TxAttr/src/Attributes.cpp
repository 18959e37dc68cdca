#include "TxAttr/Attributes.hpp"

namespace TxAttr {

const ADB::ClassInfo PenTable::classInfo ("TxAttr::PenTable");
const ADB::ClassInfo Fill::classInfo ("TxAttr::Fill");
const ADB::ClassInfo Composite::classInfo ("TxAttr::Composite");
const ADB::ClassInfo LineType::classInfo ("TxAttr::LineType");
const ADB::ClassInfo Profile::classInfo ("TxAttr::Profile");
const ADB::ClassInfo Material::classInfo ("TxAttr::Material");
const ADB::ClassInfo BuildingMaterial::classInfo ("TxAttr::BuildingMaterial");

PenTable::PenTable (const Kor::UniString& name) : ADB::Attribute (idPenTable, name), pens (MaxPenIndex)
{
}

const Pen* PenTable::GetPenPtr (short index) const
{
    if (index < 1 || index > MaxPenIndex) return nullptr;
    return &pens[static_cast<std::size_t> (index - 1)];
}

void PenTable::SetPen (short index, const Pen& pen)
{
    if (index < 1 || index > MaxPenIndex) return;
    pens[static_cast<std::size_t> (index - 1)] = pen;
}

Fill::Fill (const Kor::UniString& name, FillKind kind, int usage, std::vector<HatchLineFamily> lines)
    : ADB::Attribute (idFill, name), kind (kind), usage (usage), lines (std::move (lines))
{
}

Composite::Composite (const Kor::UniString& name, int usage, std::vector<Skin> skins, short separatorPen)
    : ADB::Attribute (idCompWall, name), usage (usage), skins (std::move (skins)), separatorPen (separatorPen)
{
}

double Composite::GetThickness () const
{
    double total = 0.0;
    for (const Skin& skin : skins) total += skin.thickness;
    return total;
}

LineType::LineType (const Kor::UniString& name, std::vector<double> pattern) : ADB::Attribute (idLineType, name), pattern (std::move (pattern))
{
}

Profile::Profile (const Kor::UniString& name, int usage, std::vector<ProfilePoint> outline, std::vector<std::vector<ProfilePoint>> holes)
    : ADB::Attribute (idProfile, name), usage (usage), outline (std::move (outline)), holes (std::move (holes))
{
}

Material::Material (const Kor::UniString& name, RGBColor surfaceColor, ADB::AttributeIndex textureFill, short transparency)
    : ADB::Attribute (idMaterial, name), surfaceColor (surfaceColor), textureFill (textureFill), transparency (transparency)
{
}

BuildingMaterial::BuildingMaterial (const Kor::UniString& name, ADB::AttributeIndex cutFill, short cutFillPen, short cutBackgroundPen,
                                    ADB::AttributeIndex surface, short priority)
    : ADB::Attribute (idBuildingMaterial, name),
      cutFill (cutFill),
      cutFillPen (cutFillPen),
      cutBackgroundPen (cutBackgroundPen),
      surface (surface),
      priority (priority)
{
}

}   // namespace TxAttr
