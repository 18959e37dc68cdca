#pragma once
// TxAC::SetupData: the texts and preferences that the attribute controls share: unit texts of
// pen weights, the labels of the null pen and of pen 0, the texts of a row that shows no
// material or a missing attribute, and the unit in which pen weights are shown.

#include "Kor/UniString.hpp"

namespace TxAC {

// The shared texts and preferences of the attribute controls.
struct SetupData {
    // Pen weights are shown in millimetres or in points.
    enum PenWeightUnit : short { Millimetres = 0, Points = 2 };

    Kor::UniString millimetreUnitText = "mm";
    Kor::UniString pointUnitText = "pt";
    Kor::UniString nullPenText = "No Pen";
    Kor::UniString penZeroText = "Background";
    Kor::UniString noMaterialText = "No Material";
    Kor::UniString missingAttributeText = "Missing Attribute";
    short          penWeightUnit = Millimetres;
};

// The process-wide setup data; null while the host has withdrawn it (SetSetupData (nullptr)).
const SetupData* GetSetupData ();
// Replaces the setup data (null withdraws it) and returns the previous one, for a host that
// keeps its own (the caller keeps data alive while it is installed).
const SetupData* SetSetupData (const SetupData* data);
// The built-in setup data, which GetSetupData gives until another is installed.
SetupData&       GetDefaultSetupData ();

}   // namespace TxAC
