#include "Gfx/TextMetrics.hpp"

namespace Gfx {

namespace {

TextMeasurer& Installed ()
{
    static TextMeasurer measurer;
    return measurer;
}

}   // namespace

TextMetrics MeasureText (const Kor::UniString& text, int fontStyle)
{
    if (Installed ()) return Installed () (text, fontStyle);
    const int charWidth = (fontStyle & BoldFont) != 0 ? HeadlessBoldCharWidth : HeadlessCharWidth;
    return TextMetrics {static_cast<int> (text.GetLength ()) * charWidth, HeadlessLineHeight};
}

TextMeasurer SetTextMeasurer (TextMeasurer measurer)
{
    TextMeasurer previous = std::move (Installed ());
    Installed () = std::move (measurer);
    return previous;
}

}   // namespace Gfx
