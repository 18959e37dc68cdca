#pragma once
// OnTabItems: the attribute list's one set of in-place controls. The list creates them on its
// panel, observes them all and lays those that the selected row's item needs over that row's
// columns. Items use the controls; they never own them.

#include "Pk/Pk257.hpp"
#include "Pk/Pk261.hpp"
#include "Pk/PopupControl.hpp"
#include "Wg/Controls.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace TxAL {

class OnTabItems {
public:
    OnTabItems (const Wg::Panel& panel, short textEditMaxLength, bool editControlAutoUpdate);
    OnTabItems (const OnTabItems&) = delete;
    OnTabItems& operator= (const OnTabItems&) = delete;

    Wg::IntEdit&       GetIntEdit () { return intEdit; }
    Wg::PosIntEdit&    GetPosIntEdit () { return posIntEdit; }
    Pk::Pk257&         GetPk257 () { return pk257; }
    Pk::Pk261&         GetPk261 () { return pk261; }
    Wg::BarControl&    GetSlider () { return slider; }
    Pk::PopupControl&  GetPopupControl () { return popupControl; }
    Wg::RealEdit&      GetLengthEdit () { return lengthEdit; }
    Wg::RealEdit&      GetAreaEdit () { return areaEdit; }
    Wg::RealEdit&      GetVolumeEdit () { return volumeEdit; }
    Wg::RealEdit&      GetAngleEdit () { return angleEdit; }
    Wg::RealEdit&      GetPolarAngleEdit () { return polarAngleEdit; }
    Wg::TextEdit&      GetTextEdit () { return textEdit; }
    Wg::RealEdit&      GetRealEdit () { return realEdit; }
    Wg::RealEdit&      GetSecondRealEdit () { return secondRealEdit; }
    Wg::RealEdit&      GetPTStiffnessEdit () { return ptStiffnessEdit; }
    Wg::RealEdit&      GetPRStiffnessEdit () { return prStiffnessEdit; }
    Wg::RealEdit&      GetLTStiffnessEdit () { return ltStiffnessEdit; }
    Wg::RealEdit&      GetLRStiffnessEdit () { return lrStiffnessEdit; }
    Wg::RealEdit&      GetSTStiffnessEdit () { return stStiffnessEdit; }
    Wg::RealEdit&      GetTRForceEdit () { return trForceEdit; }
    Wg::RealEdit&      GetRRMomentEdit () { return rrMomentEdit; }
    Wg::RealEdit&      GetPLForceEdit () { return plForceEdit; }
    Wg::RealEdit&      GetPLMomentEdit () { return plMomentEdit; }
    Wg::RealEdit&      GetELForceEdit () { return elForceEdit; }
    Wg::RealEdit&      GetELMomentEdit () { return elMomentEdit; }
    Wg::RealEdit&      GetSLForceEdit () { return slForceEdit; }
    Wg::ButtonItem&    GetButton () { return button; }
    Wg::ButtonItem&    GetIconButton () { return iconButton; }
    Pk::PopupControl&  GetIconColumnPopup () { return iconColumnPopup; }
    Wg::PushCheck&     GetCheckBox () { return checkBox; }

    // Every real edit, in the order above.
    Wg::RealEdit* const* GetRealEdits () const { return realEdits; }
    static constexpr int RealEditCount = 19;

    // Forgets the user data and callbacks of the two picker controls.
    void ClearUserControlCallbacks ();
    // Applies a new auto-update mode to every edit.
    void SetEditControlAutoUpdate (bool on);

private:
    Wg::IntEdit      intEdit;
    Wg::PosIntEdit   posIntEdit;
    Pk::Pk257        pk257;
    Pk::Pk261        pk261;
    Wg::BarControl   slider;
    Pk::PopupControl popupControl;
    Wg::RealEdit     lengthEdit;
    Wg::RealEdit     areaEdit;
    Wg::RealEdit     volumeEdit;
    Wg::RealEdit     angleEdit;
    Wg::RealEdit     polarAngleEdit;
    Wg::TextEdit     textEdit;
    Wg::RealEdit     realEdit;
    Wg::RealEdit     secondRealEdit;
    Wg::RealEdit     ptStiffnessEdit;
    Wg::RealEdit     prStiffnessEdit;
    Wg::RealEdit     ltStiffnessEdit;
    Wg::RealEdit     lrStiffnessEdit;
    Wg::RealEdit     stStiffnessEdit;
    Wg::RealEdit     trForceEdit;
    Wg::RealEdit     rrMomentEdit;
    Wg::RealEdit     plForceEdit;
    Wg::RealEdit     plMomentEdit;
    Wg::RealEdit     elForceEdit;
    Wg::RealEdit     elMomentEdit;
    Wg::RealEdit     slForceEdit;
    Wg::ButtonItem   button;
    Wg::ButtonItem   iconButton;
    Pk::PopupControl iconColumnPopup;
    Wg::PushCheck    checkBox;
    Wg::RealEdit*    realEdits[RealEditCount];
};

}   // namespace TxAL
