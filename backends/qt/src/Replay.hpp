#pragma once
// TxalQt::Replay: plays a Gfx::DrawingContext recording onto a QPainter. The recording's
// coordinates are the painter's (the caller translates to the space it was recorded in); the
// base clip bounds every primitive, clips pushed by the recording are intersected with it.

#include <QPainter>
#include <QRect>
#include <vector>

#include "Gfx/DrawingContext.hpp"

namespace TxalQt {

class Replay {
public:
    Replay (QPainter& painter, const QRect& baseClip);
    Replay (const Replay&) = delete;
    Replay& operator= (const Replay&) = delete;

    void Play (const Gfx::DrawingContext& context);

    // --- The primitives, one by one ---
    void operator() (const Gfx::FillRectOp& op);
    void operator() (const Gfx::FrameRectOp& op);
    void operator() (const Gfx::LineOp& op);
    void operator() (const Gfx::PolygonOp& op);
    void operator() (const Gfx::HatchOp& op);
    void operator() (const Gfx::IconOp& op);
    void operator() (const Gfx::TextOp& op);
    void operator() (const Gfx::PushClipOp& op);
    void operator() (const Gfx::PopClipOp& op);

private:
    void ApplyClip ();
    void DrawHatchLines (const QRect& rect, const Gfx::HatchLine& line, const QColor& color);

    QPainter&          painter;
    QRect              baseClip;
    std::vector<QRect> clips;
    int                fontStyle = -1;
};

}   // namespace TxalQt
