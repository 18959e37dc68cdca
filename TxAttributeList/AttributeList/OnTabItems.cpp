#include "TxAttributeList/OnTabItems.hpp"

namespace TxAL {

namespace {

// Controls start with no size; an item sizes them when it places them over a cell.
const Wg::Rect NoRect (0, 0, 0, 0);

}   // namespace

OnTabItems::OnTabItems (const Wg::Panel& panel, short textEditMaxLength, bool editControlAutoUpdate)
    : intEdit (panel, NoRect),
      posIntEdit (panel, NoRect),
      pk257 (panel, NoRect),
      pk261 (panel, NoRect),
      slider (panel, NoRect),
      popupControl (panel, NoRect),
      lengthEdit (panel, NoRect, Wg::RealSubtype::Length),
      areaEdit (panel, NoRect, Wg::RealSubtype::Area),
      volumeEdit (panel, NoRect, Wg::RealSubtype::Volume),
      angleEdit (panel, NoRect, Wg::RealSubtype::Angle),
      polarAngleEdit (panel, NoRect, Wg::RealSubtype::PolarAngle),
      textEdit (panel, NoRect, 0, textEditMaxLength),
      realEdit (panel, NoRect, Wg::RealSubtype::Real),
      secondRealEdit (panel, NoRect, Wg::RealSubtype::Real),
      ptStiffnessEdit (panel, NoRect, Wg::RealSubtype::Real),
      prStiffnessEdit (panel, NoRect, Wg::RealSubtype::Real),
      ltStiffnessEdit (panel, NoRect, Wg::RealSubtype::Real),
      lrStiffnessEdit (panel, NoRect, Wg::RealSubtype::Real),
      stStiffnessEdit (panel, NoRect, Wg::RealSubtype::Real),
      trForceEdit (panel, NoRect, Wg::RealSubtype::Real),
      rrMomentEdit (panel, NoRect, Wg::RealSubtype::Real),
      plForceEdit (panel, NoRect, Wg::RealSubtype::Real),
      plMomentEdit (panel, NoRect, Wg::RealSubtype::Real),
      elForceEdit (panel, NoRect, Wg::RealSubtype::Real),
      elMomentEdit (panel, NoRect, Wg::RealSubtype::Real),
      slForceEdit (panel, NoRect, Wg::RealSubtype::Real),
      button (panel, NoRect),
      iconButton (panel, NoRect),
      iconColumnPopup (panel, NoRect),
      checkBox (panel, NoRect),
      realEdits {&lengthEdit, &areaEdit, &volumeEdit, &angleEdit, &polarAngleEdit, &realEdit, &secondRealEdit,
                 &ptStiffnessEdit, &prStiffnessEdit, &ltStiffnessEdit, &lrStiffnessEdit, &stStiffnessEdit, &trForceEdit,
                 &rrMomentEdit, &plForceEdit, &plMomentEdit, &elForceEdit, &elMomentEdit, &slForceEdit}
{
    Wg::Item* all[] = {&intEdit, &posIntEdit, &pk257, &pk261, &slider, &popupControl, &textEdit,
                       &button, &iconButton, &iconColumnPopup, &checkBox};
    for (Wg::Item* control : all) control->Hide ();
    for (Wg::RealEdit* edit : realEdits) edit->Hide ();
    SetEditControlAutoUpdate (editControlAutoUpdate);
}

void OnTabItems::ClearUserControlCallbacks ()
{
    pk257.SetUserData (nullptr);
    pk257.SetCallBack (nullptr);
    pk261.SetUserData (nullptr);
    pk261.SetCallBack (nullptr);
}

void OnTabItems::SetEditControlAutoUpdate (bool on)
{
    intEdit.SetAutoUpdate (on);
    posIntEdit.SetAutoUpdate (on);
    textEdit.SetAutoUpdate (on);
    for (Wg::RealEdit* edit : realEdits) edit->SetAutoUpdate (on);
}

}   // namespace TxAL
