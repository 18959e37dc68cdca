#include "ControlPeers.hpp"

#include <QPainter>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "IconCache.hpp"
#include "InputScope.hpp"
#include "Strings.hpp"
#include "Theme.hpp"
#include "TxalQt/PanelView.hpp"

namespace TxalQt {

namespace {

// A popup control narrower than this shows its icon without the arrow.
constexpr int MinWidthForArrow = 28;

QColor ToQColor (const Gfx::Color& color)
{
    return QColor (color.GetRed (), color.GetGreen (), color.GetBlue (), color.GetAlpha ());
}

Qt::Alignment ToAlignment (short popupAlignment, Qt::Alignment byDefault)
{
    switch (popupAlignment) {
        case Pk::PopupControl::AlignLeft:   return Qt::AlignLeft;
        case Pk::PopupControl::AlignRight:  return Qt::AlignRight;
        case Pk::PopupControl::AlignCenter: return Qt::AlignHCenter;
        default:                            return byDefault;
    }
}

}   // namespace

// --- SliderPeer ---

SliderPeer::SliderPeer (PanelView& view, Wg::BarControl& bar) : QSlider (Qt::Horizontal, &view), PeerBase (view, bar, *this)
{
    setFocusPolicy (Qt::NoFocus);
    QObject::connect (this, &QSlider::sliderMoved, this, [this] (int position) {
        if (GetBar () == nullptr || !GetView ().AcceptsInput ()) return;
        const InputScope scope;
        GetBar ()->UserDrag (position);
    });
    QObject::connect (this, &QSlider::sliderReleased, this, [this] {
        if (GetBar () == nullptr || !GetView ().AcceptsInput ()) return;
        const InputScope scope;
        GetBar ()->UserRelease (value ());
    });
    // A click on the groove moves the value without a drag: that is a release, too.
    QObject::connect (this, &QSlider::valueChanged, this, [this] (int newValue) {
        if (GetBar () == nullptr || !GetView ().AcceptsInput () || isSliderDown ()) return;
        const InputScope scope;
        GetBar ()->UserRelease (newValue);
    });
}

void SliderPeer::Mirror (Wg::Aspect aspect, int)
{
    if (aspect == Wg::Aspect::Value || aspect == Wg::Aspect::Bounds || aspect == Wg::Aspect::Rect) MirrorAll ();
}

void SliderPeer::MirrorAll ()
{
    const Wg::BarControl* bar = GetBar ();
    if (bar == nullptr) return;
    const QSignalBlocker blocker (this);
    setOrientation (bar->GetWidth () >= bar->GetHeight () ? Qt::Horizontal : Qt::Vertical);
    setRange (bar->GetMin (), std::max (bar->GetMin (), bar->GetMax ()));
    setValue (bar->GetValue ());
    // Qt drags the thumb itself; between model updates it shows where the model put it.
    if (!isSliderDown ()) setSliderPosition (bar->GetValue ());
}

bool SliderPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QSlider::event (event);
}

void SliderPeer::wheelEvent (QWheelEvent* event)
{
    event->ignore ();
}

// --- ButtonPeerBase ---

ButtonPeerBase::ButtonPeerBase (PanelView& view, Wg::Item& item) : FlatButton (&view), PeerBase (view, item, *this)
{
    QObject::connect (this, &QToolButton::clicked, this, [this] {
        if (GetItem () == nullptr || !GetView ().AcceptsInput ()) return;
        const InputScope scope;
        Press ();
    });
}

void ButtonPeerBase::Mirror (Wg::Aspect aspect, int)
{
    switch (aspect) {
        case Wg::Aspect::Rect:
        case Wg::Aspect::Visibility:
            SetFlat (IsOnTab ());
            MirrorContent ();
            break;
        case Wg::Aspect::Text:
        case Wg::Aspect::Value:
        case Wg::Aspect::Content:
        case Wg::Aspect::Bounds:
            MirrorContent ();
            break;
        default:
            break;
    }
}

void ButtonPeerBase::MirrorAll ()
{
    SetFlat (IsOnTab ());
    MirrorContent ();
}

bool ButtonPeerBase::event (QEvent* event)
{
    return HandleEvent (*event) || FlatButton::event (event);
}

void ButtonPeer::MirrorContent ()
{
    const auto* button = static_cast<const Wg::ButtonItem*> (GetItem ());
    if (button == nullptr) return;
    Content content;
    content.text = ToQString (button->GetText ());
    content.icon = button->GetIcon ();
    SetContent (content);
}

void ButtonPeer::Press ()
{
    static_cast<Wg::ButtonItem*> (GetItem ())->UserPress ();
}

void PushCheckPeer::MirrorContent ()
{
    const auto* pushCheck = static_cast<const Wg::PushCheck*> (GetItem ());
    if (pushCheck == nullptr) return;
    Content content;
    content.text = ToQString (pushCheck->GetText ());
    content.icon = pushCheck->GetIcon ();
    switch (pushCheck->GetArrowType ()) {
        case Wg::PushCheck::DownArrow:  content.arrow = Arrow::Down; break;
        case Wg::PushCheck::RightArrow: content.arrow = Arrow::Right; break;
        default:                        content.arrow = Arrow::None; break;
    }
    switch (pushCheck->GetAlignment ()) {
        case Wg::PushCheck::AlignLeft:  content.alignment = Qt::AlignLeft; break;
        case Wg::PushCheck::AlignRight: content.alignment = Qt::AlignRight; break;
        default:                        content.alignment = Qt::AlignHCenter; break;
    }
    SetContent (content);
    SetOn (pushCheck->IsChecked ());
}

void PushCheckPeer::Press ()
{
    static_cast<Wg::PushCheck*> (GetItem ())->UserPress ();
}

void PopupPeer::MirrorContent ()
{
    const auto* popup = static_cast<const Pk::PopupControl*> (GetItem ());
    if (popup == nullptr) return;
    Content content;
    switch (popup->GetButtonType ()) {
        case Pk::PopupControl::IconButton:
            content.icon = popup->GetSelectedIcon ();
            content.arrow = width () >= MinWidthForArrow ? Arrow::Down : Arrow::None;
            content.alignment = ToAlignment (popup->GetTextAlignment (), Qt::AlignHCenter);
            break;
        case Pk::PopupControl::DropDownButton:
            content.arrow = Arrow::Down;
            break;
        default:
            content.text = ToQString (popup->GetSelectedText ());
            content.icon = popup->GetSelectedIcon ();
            content.arrow = Arrow::Down;
            content.alignment = ToAlignment (popup->GetTextAlignment (), Qt::AlignLeft);
            break;
    }
    SetContent (content);
}

void PopupPeer::Press ()
{
    // The popup runs through the modal runner; the control may be gone when it returns.
    static_cast<Pk::PopupControl*> (GetItem ())->UserPress ();
}

void PickerPeer::MirrorContent ()
{
    const auto* picker = static_cast<const Pk::PickerControl*> (GetItem ());
    if (picker == nullptr) return;
    Content content;
    content.arrow = Arrow::Down;
    content.alignment = Qt::AlignLeft;
    if (const std::optional<Pk::PickerControl::Entry> entry = picker->GetEntry (picker->FindEntry (picker->GetValue ()))) {
        if (entry->hasColor) content.swatch = ToQColor (entry->color);
        content.icon = entry->icon;
        if (picker->GetButtonType () != Pk::PickerControl::SwatchButton || (!entry->hasColor && entry->icon.IsEmpty ()))
            content.text = ToQString (entry->text);
    }
    SetContent (content);
}

void PickerPeer::Press ()
{
    static_cast<Pk::PickerControl*> (GetItem ())->UserPress ();
}

// --- CheckPeer ---

CheckPeer::CheckPeer (PanelView& view, Wg::CheckItem& check) : QCheckBox (&view), PeerBase (view, check, *this)
{
    setFocusPolicy (Qt::NoFocus);
    setFont (Theme::GetFont (Gfx::PlainFont));
    QObject::connect (this, &QCheckBox::clicked, this, [this] {
        if (GetCheck () == nullptr || !GetView ().AcceptsInput ()) return;
        const InputScope scope;
        GetCheck ()->UserToggle ();
    });
}

void CheckPeer::Mirror (Wg::Aspect aspect, int)
{
    if (aspect == Wg::Aspect::Value || aspect == Wg::Aspect::Text) MirrorAll ();
}

void CheckPeer::MirrorAll ()
{
    const Wg::CheckItem* check = GetCheck ();
    if (check == nullptr) return;
    const QSignalBlocker blocker (this);
    setText (ToQString (check->GetText ()));
    setChecked (check->IsChecked ());
}

bool CheckPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QCheckBox::event (event);
}

// --- IconPeer ---

IconPeer::IconPeer (PanelView& view, Wg::IconItem& item) : QLabel (&view), PeerBase (view, item, *this)
{
}

void IconPeer::Mirror (Wg::Aspect aspect, int)
{
    if (aspect == Wg::Aspect::Content) MirrorAll ();
}

void IconPeer::MirrorAll ()
{
    if (const auto* item = static_cast<const Wg::IconItem*> (GetItem ())) icon = item->GetIcon ();
    update ();
}

bool IconPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QLabel::event (event);
}

void IconPeer::paintEvent (QPaintEvent*)
{
    // Drawn at paint time, so that the pixmap always matches the screen's ratio.
    QSize size = IconCache::GetNaturalSize (icon.GetModule (), icon.GetResourceId ());
    if (size.isEmpty ()) return;
    size = size.boundedTo (this->size ());
    QPainter painter (this);
    const QRect area ((width () - size.width ()) / 2, 0, size.width (), height ());
    IconCache::Get ().Draw (painter, icon.GetModule (), icon.GetResourceId (), area, !isEnabled ());
}

// --- TextPeer ---

TextPeer::TextPeer (PanelView& view, Wg::LeftText& text) : QLabel (&view), PeerBase (view, text, *this)
{
    setFont (Theme::GetFont (Gfx::PlainFont));
    setAlignment (Qt::AlignLeft | Qt::AlignVCenter);
    setTextFormat (Qt::PlainText);
}

void TextPeer::Mirror (Wg::Aspect aspect, int)
{
    if (aspect == Wg::Aspect::Text) MirrorAll ();
}

void TextPeer::MirrorAll ()
{
    if (const auto* item = static_cast<const Wg::LeftText*> (GetItem ())) setText (ToQString (item->GetText ()));
}

bool TextPeer::event (QEvent* event)
{
    return HandleEvent (*event) || QLabel::event (event);
}

}   // namespace TxalQt
