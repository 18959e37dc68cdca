#pragma once
// The peers of the small controls, each a real Qt widget laid exactly over its item:
//   Wg::BarControl      -> SliderPeer (QSlider): drag -> UserDrag, release or click -> UserRelease
//   Wg::ButtonItem      -> ButtonPeer (flat tool button): click -> UserPress
//   Wg::PushCheck       -> PushCheckPeer (flat tool button, drawn pressed while on, with its
//                          arrow): click -> UserPress
//   Wg::CheckItem       -> CheckPeer (QCheckBox): click -> UserToggle; the box never toggles itself
//   Pk::PopupControl    -> PopupPeer (flat tool button with the selected entry): click -> UserPress,
//                          which shows and tracks the popup through the modal runner
//   Pk::PickerControl   -> PickerPeer (flat tool button with the chosen entry's swatch): likewise
//   Wg::IconItem        -> IconPeer (QLabel that draws the icon at the device ratio)
//   Wg::LeftText        -> TextPeer (QLabel)

#include <QCheckBox>
#include <QLabel>
#include <QSlider>

#include "FlatButton.hpp"
#include "PeerBase.hpp"
#include "Pk/PickerControl.hpp"
#include "Pk/PopupControl.hpp"
#include "Wg/Controls.hpp"

namespace TxalQt {

class SliderPeer : public QSlider, public PeerBase {
public:
    SliderPeer (PanelView& view, Wg::BarControl& bar);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    // The model's bar control has no wheel: a wheel turned over it scrolls what lies beneath.
    void wheelEvent (QWheelEvent* event) override;

private:
    Wg::BarControl* GetBar () const { return static_cast<Wg::BarControl*> (GetItem ()); }
};

// The base of the button peers: clicks, flatness over rows, common events.
class ButtonPeerBase : public FlatButton, public PeerBase {
public:
    ButtonPeerBase (PanelView& view, Wg::Item& item);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    // The kind's content and state.
    virtual void MirrorContent () = 0;
    // The kind's entry point for a click.
    virtual void Press () = 0;
};

class ButtonPeer : public ButtonPeerBase {
public:
    ButtonPeer (PanelView& view, Wg::ButtonItem& button) : ButtonPeerBase (view, button) {}

protected:
    void MirrorContent () override;
    void Press () override;
};

class PushCheckPeer : public ButtonPeerBase {
public:
    PushCheckPeer (PanelView& view, Wg::PushCheck& pushCheck) : ButtonPeerBase (view, pushCheck) {}

protected:
    void MirrorContent () override;
    void Press () override;
};

class PopupPeer : public ButtonPeerBase {
public:
    PopupPeer (PanelView& view, Pk::PopupControl& popup) : ButtonPeerBase (view, popup) {}

protected:
    void MirrorContent () override;
    void Press () override;
};

class PickerPeer : public ButtonPeerBase {
public:
    PickerPeer (PanelView& view, Pk::PickerControl& picker) : ButtonPeerBase (view, picker) {}

protected:
    void MirrorContent () override;
    void Press () override;
};

class CheckPeer : public QCheckBox, public PeerBase {
public:
    CheckPeer (PanelView& view, Wg::CheckItem& check);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    // The model toggles; the box shows what the model says.
    void nextCheckState () override {}

private:
    Wg::CheckItem* GetCheck () const { return static_cast<Wg::CheckItem*> (GetItem ()); }
};

class IconPeer : public QLabel, public PeerBase {
public:
    IconPeer (PanelView& view, Wg::IconItem& icon);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
    void paintEvent (QPaintEvent* event) override;

private:
    Wg::Icon icon;
};

class TextPeer : public QLabel, public PeerBase {
public:
    TextPeer (PanelView& view, Wg::LeftText& text);

protected:
    void Mirror (Wg::Aspect aspect, int detail) override;
    void MirrorAll () override;
    bool event (QEvent* event) override;
};

}   // namespace TxalQt
