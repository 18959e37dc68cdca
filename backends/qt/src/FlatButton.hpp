#pragma once
// TxalQt::FlatButton: the flat tool button of the peers (buttons, push-checks, popup and picker
// controls). It shows a colour swatch or an icon, a text, and optionally an arrow at its right
// edge; over a list row it has no frame until the pointer is over it.

#include <QColor>
#include <QToolButton>
#include <optional>

#include "Wg/Icon.hpp"

namespace TxalQt {

class FlatButton : public QToolButton {
public:
    enum class Arrow { None, Down, Right };

    struct Content {
        QString               text;
        Wg::Icon              icon;
        std::optional<QColor> swatch;
        Arrow                 arrow = Arrow::None;
        Qt::Alignment         alignment = Qt::AlignHCenter;
        bool                  operator== (const Content&) const = default;
    };

    explicit FlatButton (QWidget* parent);

    void SetContent (const Content& newContent);
    const Content& GetContent () const { return content; }
    // Drawn pressed: a push-check that is on.
    void SetOn (bool on);
    // Flat: no frame until hovered (a control over a list row).
    void SetFlat (bool flat);

    QSize sizeHint () const override;

protected:
    void paintEvent (QPaintEvent* event) override;

private:
    Content content;
    bool    on = false;
    bool    flat = false;
};

}   // namespace TxalQt
