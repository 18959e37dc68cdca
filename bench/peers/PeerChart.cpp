// The chart: a grid of panels, one per workload; in each, a group of bars per size, one bar per
// peer (its median), a whisker from the minimum to the maximum, on a decade log scale.

#include "PeerChart.hpp"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <string>

#include "Replay.hpp"

namespace Peers {

namespace {

constexpr int Columns = 2;
constexpr int PanelWidth = 620;
constexpr int PanelHeight = 300;
constexpr int Margin = 16;
constexpr int TitleHeight = 24;
constexpr int AxisWidth = 70;
constexpr int SizeLabelHeight = 22;
constexpr int BarGap = 3;
constexpr int GroupGap = 24;
constexpr int TextHeight = 16;
constexpr int LegendSwatch = 14;
constexpr double Decade = 10.0;

const Gfx::Color Background (255, 255, 255);
const Gfx::Color Frame (190, 190, 190);
const Gfx::Color Grid (228, 228, 228);
const Gfx::Color Ink (40, 40, 40);
const Gfx::Color Faint (120, 120, 120);

Gfx::Color PeerColor (std::size_t peer)
{
    static const Gfx::Color colors[] = {Gfx::Color (31, 119, 180), Gfx::Color (44, 160, 44), Gfx::Color (255, 127, 14),
                                        Gfx::Color (214, 39, 40)};
    return colors[peer % std::size (colors)];
}

std::string Label (double value)
{
    if (value >= 1.0) return std::to_string (static_cast<long long> (std::llround (value)));
    std::string text = std::to_string (value);
    text.erase (text.find_last_not_of ('0') + 1);
    return text;
}

std::string SizeLabel (int size)
{
    return size % 1000 == 0 ? std::to_string (size / 1000) + "k rows" : std::to_string (size) + " rows";
}

void Text (Gfx::DrawingContext& context, const std::string& text, const Gfx::Rect& rect, Gfx::TextAlign align = Gfx::TextAlign::Left,
           int fontStyle = Gfx::PlainFont, const Gfx::Color& color = Ink)
{
    Gfx::TextStyle style;
    style.align = align;
    style.fontStyle = fontStyle;
    style.color = color;
    context.DrawText (Kor::UniString (text), rect, style);
}

void DrawPanel (Gfx::DrawingContext& context, const Results& results, const Workload& workload, const std::vector<std::size_t>& peers,
                const Gfx::Rect& panel)
{
    context.FrameRect (panel, Frame);
    Text (context, std::string (workload.title) + " — " + workload.unit + " (log scale, lower is better)",
          Gfx::Rect (panel.left + Margin, panel.top + 4, panel.right - Margin, panel.top + TitleHeight), Gfx::TextAlign::Left, Gfx::BoldFont);
    const Gfx::Rect plot (panel.left + AxisWidth, panel.top + TitleHeight + Margin / 2, panel.right - Margin,
                          panel.bottom - SizeLabelHeight - Margin / 2);

    // The decades that hold every figure.
    double low = HUGE_VAL;
    double high = 0.0;
    for (int size : results.GetSizes ())
        for (std::size_t peer : peers)
            if (const Figure* figure = results.Find (PeerInfos ()[peer].key, size, workload.key); figure != nullptr && figure->HasValues ()) {
                low = std::min (low, std::max (figure->Min (), 1e-9));
                high = std::max (high, figure->Max ());
            }
    if (high <= 0.0) return;
    const double lowDecade = std::floor (std::log10 (low));
    const double highDecade = std::max (lowDecade + 1, std::ceil (std::log10 (high)));
    auto yOf = [&] (double value) {
        const double t = (std::log10 (std::max (value, std::pow (Decade, lowDecade))) - lowDecade) / (highDecade - lowDecade);
        return plot.bottom - static_cast<int> (std::lround (t * (plot.bottom - plot.top)));
    };
    for (double decade = lowDecade; decade <= highDecade; ++decade) {
        const int y = yOf (std::pow (Decade, decade));
        context.DrawLine (Gfx::Point (plot.left, y), Gfx::Point (plot.right, y), Grid);
        Text (context, Label (std::pow (Decade, decade)), Gfx::Rect (panel.left + 4, y - TextHeight / 2, plot.left - 6, y + TextHeight / 2),
              Gfx::TextAlign::Right, Gfx::PlainFont, Faint);
    }
    context.DrawLine (Gfx::Point (plot.left, plot.top), Gfx::Point (plot.left, plot.bottom), Frame);

    const int sizeCount = static_cast<int> (results.GetSizes ().size ());
    const int groupWidth = (plot.right - plot.left - GroupGap * (sizeCount + 1)) / std::max (1, sizeCount);
    const int barWidth = (groupWidth - BarGap * (static_cast<int> (peers.size ()) - 1)) / std::max<int> (1, static_cast<int> (peers.size ()));
    for (int s = 0; s < sizeCount; ++s) {
        const int size = results.GetSizes ()[static_cast<std::size_t> (s)];
        const int groupLeft = plot.left + GroupGap + s * (groupWidth + GroupGap);
        Text (context, SizeLabel (size), Gfx::Rect (groupLeft, plot.bottom + 4, groupLeft + groupWidth, plot.bottom + 4 + TextHeight),
              Gfx::TextAlign::Center);
        for (std::size_t p = 0; p < peers.size (); ++p) {
            const int left = groupLeft + static_cast<int> (p) * (barWidth + BarGap);
            const Figure* figure = results.Find (PeerInfos ()[peers[p]].key, size, workload.key);
            if (figure == nullptr || !figure->HasValues ()) {
                Text (context, "n/a", Gfx::Rect (left - BarGap, plot.bottom - TextHeight, left + barWidth + BarGap, plot.bottom),
                      Gfx::TextAlign::Center, Gfx::PlainFont, Faint);
                continue;
            }
            context.FillRect (Gfx::Rect (left, yOf (figure->Median ()), left + barWidth, plot.bottom), PeerColor (peers[p]));
            const int middle = left + barWidth / 2;
            context.DrawLine (Gfx::Point (middle, yOf (figure->Max ())), Gfx::Point (middle, yOf (figure->Min ())), Ink);
        }
    }
}

void DrawLegend (Gfx::DrawingContext& context, const std::vector<std::size_t>& peers, const Gfx::Rect& area)
{
    int y = area.top + Margin;
    Text (context, "Peers (bar: median; line: min to max)", Gfx::Rect (area.left + Margin, y, area.right, y + TextHeight), Gfx::TextAlign::Left,
          Gfx::BoldFont);
    for (std::size_t peer : peers) {
        y += TextHeight + 8;
        context.FillRect (Gfx::Rect::FromSize (area.left + Margin, y + 1, LegendSwatch, LegendSwatch), PeerColor (peer));
        Text (context, PeerInfos ()[peer].title, Gfx::Rect (area.left + Margin + LegendSwatch + 8, y, area.right, y + TextHeight));
    }
}

std::vector<std::size_t> PeersRun (const Results& results)
{
    std::vector<std::size_t> peers;
    for (std::size_t i = 0; i < PeerInfos ().size (); ++i)
        if (results.HasPeer (PeerInfos ()[i].key)) peers.push_back (i);
    return peers;
}

int PanelRows ()
{
    // One cell more than the workloads, for the legend.
    return (static_cast<int> (Workloads ().size ()) + 1 + Columns - 1) / Columns;
}

}   // namespace

Gfx::DrawingContext DrawChart (const Results& results)
{
    Gfx::DrawingContext context;
    const int width = Columns * PanelWidth + (Columns + 1) * Margin;
    const int height = PanelRows () * PanelHeight + (PanelRows () + 1) * Margin;
    context.FillRect (Gfx::Rect (0, 0, width, height), Background);
    const std::vector<std::size_t> peers = PeersRun (results);
    std::size_t cell = 0;
    auto cellRect = [] (std::size_t index) {
        const int column = static_cast<int> (index) % Columns;
        const int row = static_cast<int> (index) / Columns;
        return Gfx::Rect::FromSize (Margin + column * (PanelWidth + Margin), Margin + row * (PanelHeight + Margin), PanelWidth, PanelHeight);
    };
    for (const Workload& workload : Workloads ()) DrawPanel (context, results, workload, peers, cellRect (cell++));
    DrawLegend (context, peers, cellRect (cell));
    return context;
}

bool SaveChart (const Results& results, const std::string& fileName)
{
    const int width = Columns * PanelWidth + (Columns + 1) * Margin;
    const int height = PanelRows () * PanelHeight + (PanelRows () + 1) * Margin;
    QImage image (width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill (Qt::white);
    {
        QPainter painter (&image);
        TxalQt::Replay replay (painter, QRect (0, 0, width, height));
        replay.Play (DrawChart (results));
    }
    return image.save (QString::fromStdString (fileName), "PNG");
}

}   // namespace Peers
