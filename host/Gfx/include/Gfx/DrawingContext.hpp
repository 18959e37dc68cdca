#pragma once
// Gfx::DrawingContext records what owner-drawing code draws. Headless, the recording is kept
// and can be inspected; a backend replays it onto the screen. Coordinates are logical pixels in
// the space of the rectangle that the caller was given to draw into.

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "Gfx/Color.hpp"
#include "Gfx/Geometry.hpp"
#include "Gfx/TextMetrics.hpp"
#include "Kor/UniString.hpp"

namespace Gfx {

enum class TextAlign { Left, Center, Right };

struct TextStyle {
    Color     color = Color::Black;
    bool      greyed = false;
    int       fontStyle = PlainFont;
    TextAlign align = TextAlign::Left;
    bool      truncateEnd = true;   // cut with an ellipsis when the text does not fit
};

// A hatch: parallel line families (angle in degrees, spacing and offset in pixels) or, when
// bits is set, an 8x8 bitmap repeated over the area (bit 7 of bits[0] is the top-left pixel).
struct HatchLine {
    double angle = 0.0;
    double spacing = 4.0;
    double offset = 0.0;
    bool operator== (const HatchLine&) const = default;
};

struct HatchPattern {
    std::vector<HatchLine>       lines;
    bool                         isBitmap = false;
    std::array<std::uint8_t, 8>  bits {};
    bool operator== (const HatchPattern&) const = default;
};

struct FillRectOp    { Rect rect; Color color; };
struct FrameRectOp   { Rect rect; Color color; int width = 1; };
struct LineOp        { Point from; Point to; Color color; int width = 1; std::vector<double> dashes; };
struct PolygonOp     { std::vector<Point> points; Color fill; Color frame; bool filled = true; bool framed = false; };
struct HatchOp       { Rect rect; HatchPattern pattern; Color foreground; Color background; };
struct IconOp        { std::int64_t module = 0; std::int32_t resourceId = -1; Rect rect; bool greyed = false; };
struct TextOp        { Kor::UniString text; Rect rect; TextStyle style; };
struct PushClipOp    { Rect rect; };
struct PopClipOp     {};

using Primitive = std::variant<FillRectOp, FrameRectOp, LineOp, PolygonOp, HatchOp, IconOp, TextOp, PushClipOp, PopClipOp>;

class DrawingContext {
public:
    DrawingContext () = default;

    void FillRect (const Rect& rect, const Color& color);
    void FrameRect (const Rect& rect, const Color& color, int width = 1);
    void DrawLine (Point from, Point to, const Color& color, int width = 1, std::vector<double> dashes = {});
    void FillPolygon (std::vector<Point> points, const Color& fill);
    void DrawPolygon (std::vector<Point> points, const Color& fill, const Color& frame, bool filled, bool framed);
    void DrawHatch (const Rect& rect, const HatchPattern& pattern, const Color& foreground, const Color& background);
    // The icon keeps its aspect ratio: it is drawn at its natural size (scaled down to fit when
    // rect is smaller), at the left of rect and centred vertically.
    void DrawIcon (std::int64_t module, std::int32_t resourceId, const Rect& rect, bool greyed = false);
    void DrawText (const Kor::UniString& text, const Rect& rect, const TextStyle& style = {});
    // Clips every later primitive to rect (intersected with the current clip) until PopClip.
    void PushClip (const Rect& rect);
    // Ignored when no clip is pushed.
    void PopClip ();

    const std::vector<Primitive>& GetPrimitives () const { return primitives; }
    std::size_t                   GetCount () const { return primitives.size (); }
    bool                          IsEmpty () const { return primitives.empty (); }
    void                          Clear ();
    int                           GetClipDepth () const { return clipDepth; }

    // All primitives of one kind, in recording order.
    template <typename Op>
    std::vector<Op> Get () const
    {
        std::vector<Op> result;
        for (const Primitive& p : primitives)
            if (auto op = std::get_if<Op> (&p)) result.push_back (*op);
        return result;
    }

    // A compact dump, one primitive per line, e.g. `text "2.50 m" (100,0,200,18) #000000`.
    std::string ToString () const;

private:
    std::vector<Primitive> primitives;
    int                    clipDepth = 0;
};

std::string ToString (const Primitive& primitive);

}   // namespace Gfx
