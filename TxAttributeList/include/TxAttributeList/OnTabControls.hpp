#pragma once
// The one table of the attribute list's in-place controls. Everything that names the controls
// one by one is generated from it: the members and getters of OnTabItems, the list's observer
// attachment, the focus order, the membership checks and the list's visibility queries.
// Adding a control is one line here.
//
//   X (Class, Name, FocusRank, Query, Observer, extra constructor arguments...)
//
// Class      the host control, constructed on the list's panel with an empty rectangle and the
//            extra arguments (the text edit takes the maximum text length given to OnTabItems).
// Name       gives the getter OnTabItems::Get<Name>.
// FocusRank  where the control stands in the order in which SetFocusToEditControl looks for an
//            edit over the selected row (lowest first); NoFocus keeps the control out of it.
// Query      VisibilityQuery gives the list the query Is<Name>OnTabItemVisible; NoQuery none.
// Observer   the observer interface through which the list hears the control.
//
// Rows are in construction order. The further real edit is observed but deliberately never a
// focus target.

// Keeps its arguments for a control with a visibility query, drops them for one without:
// TXAL_ON_TAB_IF_##Query (declaration).
#define TXAL_ON_TAB_IF_VisibilityQuery(...) __VA_ARGS__
#define TXAL_ON_TAB_IF_NoQuery(...)

#define TXAL_ON_TAB_CONTROLS(X)                                                                                            \
    X (Wg::IntEdit, IntEdit, 10, VisibilityQuery, Wg::IntEditObserver)                                                   \
    X (Wg::PosIntEdit, PosIntEdit, 20, VisibilityQuery, Wg::PosIntEditObserver)                                          \
    X (Pk::Pk257, Pk257, NoFocus, NoQuery, Wg::UserControlObserver)                                                      \
    X (Pk::Pk261, Pk261, NoFocus, NoQuery, Wg::UserControlObserver)                                                      \
    X (Wg::BarControl, Slider, NoFocus, VisibilityQuery, Wg::BarControlObserver)                                         \
    X (Pk::PopupControl, PopupControl, NoFocus, NoQuery, Wg::UserControlObserver)                                        \
    X (Wg::RealEdit, LengthEdit, 30, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Length)                     \
    X (Wg::RealEdit, AreaEdit, 40, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Area)                         \
    X (Wg::RealEdit, VolumeEdit, 50, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Volume)                     \
    X (Wg::RealEdit, AngleEdit, 60, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Angle)                       \
    X (Wg::RealEdit, PolarAngleEdit, 70, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::PolarAngle)             \
    X (Wg::TextEdit, TextEdit, 80, VisibilityQuery, Wg::TextEditObserver, 0, textEditMaxLength)                          \
    X (Wg::RealEdit, RealEdit, 90, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                         \
    X (Wg::RealEdit, SecondRealEdit, NoFocus, NoQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                      \
    X (Wg::RealEdit, PTStiffnessEdit, 100, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                 \
    X (Wg::RealEdit, PRStiffnessEdit, 110, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                 \
    X (Wg::RealEdit, LTStiffnessEdit, 120, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                 \
    X (Wg::RealEdit, LRStiffnessEdit, 130, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                 \
    X (Wg::RealEdit, STStiffnessEdit, 140, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                 \
    X (Wg::RealEdit, TRForceEdit, 150, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                     \
    X (Wg::RealEdit, RRMomentEdit, 160, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                    \
    X (Wg::RealEdit, PLForceEdit, 170, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                     \
    X (Wg::RealEdit, PLMomentEdit, 180, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                    \
    X (Wg::RealEdit, ELForceEdit, 190, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                     \
    X (Wg::RealEdit, ELMomentEdit, 200, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                    \
    X (Wg::RealEdit, SLForceEdit, 210, VisibilityQuery, Wg::RealEditObserver, Wg::RealSubtype::Real)                     \
    X (Wg::ButtonItem, Button, NoFocus, NoQuery, Wg::ButtonItemObserver)                                                 \
    X (Wg::ButtonItem, IconButton, NoFocus, NoQuery, Wg::ButtonItemObserver)                                             \
    X (Pk::PopupControl, IconColumnPopup, NoFocus, NoQuery, Wg::UserControlObserver)                                     \
    X (Wg::PushCheck, CheckBox, NoFocus, NoQuery, Wg::CheckItemObserver)

