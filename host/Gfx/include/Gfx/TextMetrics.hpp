#pragma once
// Measuring texts is a service of the backend. Headless, a fixed metric keeps layouts
// deterministic: every UTF-16 code unit is 7 pixels wide (8 in bold) and a line is 16 high.

#include <functional>

#include "Kor/UniString.hpp"

namespace Gfx {

enum FontStyle : int {
    PlainFont  = 0,
    BoldFont   = 16,   // the host list box's bold bit
    ItalicFont = 32,
};

struct TextMetrics {
    int width = 0;
    int height = 0;
};

using TextMeasurer = std::function<TextMetrics (const Kor::UniString& text, int fontStyle)>;

constexpr int HeadlessCharWidth = 7;
constexpr int HeadlessBoldCharWidth = 8;
constexpr int HeadlessLineHeight = 16;

TextMetrics MeasureText (const Kor::UniString& text, int fontStyle = PlainFont);

// Installs a measurer and returns the previous one; an empty one restores the headless metric.
TextMeasurer SetTextMeasurer (TextMeasurer measurer);

}   // namespace Gfx
