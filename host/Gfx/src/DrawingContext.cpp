#include "Gfx/DrawingContext.hpp"

#include <sstream>

namespace Gfx {

namespace {

std::string RectText (const Rect& r)
{
    return "(" + std::to_string (r.left) + "," + std::to_string (r.top) + "," + std::to_string (r.right) + "," + std::to_string (r.bottom) + ")";
}

std::string PointText (Point p)
{
    return "(" + std::to_string (p.x) + "," + std::to_string (p.y) + ")";
}

}   // namespace

void DrawingContext::FillRect (const Rect& rect, const Color& color)
{
    primitives.emplace_back (FillRectOp {rect, color});
}

void DrawingContext::FrameRect (const Rect& rect, const Color& color, int width)
{
    primitives.emplace_back (FrameRectOp {rect, color, width});
}

void DrawingContext::DrawLine (Point from, Point to, const Color& color, int width, std::vector<double> dashes)
{
    primitives.emplace_back (LineOp {from, to, color, width, std::move (dashes)});
}

void DrawingContext::FillPolygon (std::vector<Point> points, const Color& fill)
{
    DrawPolygon (std::move (points), fill, fill, true, false);
}

void DrawingContext::DrawPolygon (std::vector<Point> points, const Color& fill, const Color& frame, bool filled, bool framed)
{
    primitives.emplace_back (PolygonOp {std::move (points), fill, frame, filled, framed});
}

void DrawingContext::DrawHatch (const Rect& rect, const HatchPattern& pattern, const Color& foreground, const Color& background)
{
    primitives.emplace_back (HatchOp {rect, pattern, foreground, background});
}

void DrawingContext::DrawIcon (std::int64_t module, std::int32_t resourceId, const Rect& rect, bool greyed)
{
    primitives.emplace_back (IconOp {module, resourceId, rect, greyed});
}

void DrawingContext::DrawText (const Kor::UniString& text, const Rect& rect, const TextStyle& style)
{
    primitives.emplace_back (TextOp {text, rect, style});
}

void DrawingContext::PushClip (const Rect& rect)
{
    primitives.emplace_back (PushClipOp {rect});
    ++clipDepth;
}

void DrawingContext::PopClip ()
{
    if (clipDepth == 0) return;
    primitives.emplace_back (PopClipOp {});
    --clipDepth;
}

void DrawingContext::Clear ()
{
    primitives.clear ();
    clipDepth = 0;
}

std::string ToString (const Primitive& primitive)
{
    struct Printer {
        std::string operator() (const FillRectOp& op) const { return "fill " + RectText (op.rect) + " " + op.color.ToHex (); }
        std::string operator() (const FrameRectOp& op) const
        {
            return "frame " + RectText (op.rect) + " " + op.color.ToHex () + (op.width != 1 ? " w" + std::to_string (op.width) : "");
        }
        std::string operator() (const LineOp& op) const
        {
            return "line " + PointText (op.from) + "-" + PointText (op.to) + " " + op.color.ToHex () + (op.dashes.empty () ? "" : " dashed");
        }
        std::string operator() (const PolygonOp& op) const
        {
            std::string s = "polygon";
            for (const Point& p : op.points) s += " " + PointText (p);
            if (op.filled) s += " fill " + op.fill.ToHex ();
            if (op.framed) s += " frame " + op.frame.ToHex ();
            return s;
        }
        std::string operator() (const HatchOp& op) const
        {
            return "hatch " + RectText (op.rect) + " " + op.foreground.ToHex () + " on " + op.background.ToHex ();
        }
        std::string operator() (const IconOp& op) const
        {
            return "icon " + std::to_string (op.module) + ":" + std::to_string (op.resourceId) + " " + RectText (op.rect) + (op.greyed ? " greyed" : "");
        }
        std::string operator() (const TextOp& op) const
        {
            std::string s = "text \"" + op.text.ToUtf8 () + "\" " + RectText (op.rect) + " " + op.style.color.ToHex ();
            if (op.style.greyed) s += " greyed";
            if ((op.style.fontStyle & BoldFont) != 0) s += " bold";
            return s;
        }
        std::string operator() (const PushClipOp& op) const { return "clip " + RectText (op.rect); }
        std::string operator() (const PopClipOp&) const { return "unclip"; }
    };
    return std::visit (Printer {}, primitive);
}

std::string DrawingContext::ToString () const
{
    std::string out;
    for (const Primitive& p : primitives) {
        out += Gfx::ToString (p);
        out += '\n';
    }
    return out;
}

}   // namespace Gfx
