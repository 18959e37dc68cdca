#pragma once
// The attribute controls' side of the pen and pattern pickers (Pk::Pk257): the user data of a
// pen picker (PenControlData) and the callbacks that fill a picker from the attribute set (see
// Pk257CallBackRec for the protocol).
//   PenControlCallBack               the pens 1..255 of the active pen table, as colour swatches
//                                    numbered by their index; user data: a PenControlData
//   PenWithNullControlCallBack       the same, after a first entry for the null pen (value -1)
//   BuildingMaterialControlCallBack  describes building materials (type code 11) and lists
//                                    them; user data: an ADB::IAttributeSetProvider

#include "ADB/AttributeSet.hpp"
#include "Gfx/Color.hpp"
#include "Pk/Pk257CallBackRec.hpp"
#include "TxAttr/Attributes.hpp"

namespace TxAC {

// The type code under which a picker callback describes building materials.
inline constexpr std::uint16_t BuildingMaterialTypeCode = 11;

// The user data of a pen picker: the route to the active pen table.
class PenControlData {
public:
    explicit PenControlData (const ADB::IAttributeSetProvider* provider) : provider (provider) {}

    const ADB::IAttributeSetProvider* GetAttributeSetProvider () const { return provider; }

    // The unit in which pen weights are shown (SetupData::PenWeightUnit), from the setup data;
    // millimetres while there is none.
    static short GetPenWeightUnit ();

private:
    const ADB::IAttributeSetProvider* provider;
};

void PenControlCallBack (Pk257CallBackRec* record);
void PenWithNullControlCallBack (Pk257CallBackRec* record);
void BuildingMaterialControlCallBack (Pk257CallBackRec* record);

// The high byte of each 16-bit channel, opaque.
Gfx::Color RGBColorToGfxColor (const TxAttr::RGBColor& color);

}   // namespace TxAC
