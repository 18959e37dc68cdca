#include "ListBoxHeader.hpp"

#include <QFontMetrics>
#include <cstdlib>

#include "Strings.hpp"
#include "Theme.hpp"

namespace TxalQt::ListBoxHeader {

namespace {

// How far from a divider the pointer still grips it.
constexpr int DividerReach = 3;
// Space between a section's edges and its title.
constexpr int TitlePadding = 5;
// Dividers stop short of the header's top and bottom edges.
constexpr int DividerInset = 4;

}   // namespace

std::vector<Section> GetSections (const Wg::ListBox& listBox)
{
    std::vector<Section> sections;
    const short count = listBox.GetHeaderItemCount ();
    sections.reserve (static_cast<std::size_t> (count));
    int x = 0;
    for (short item = 1; item <= count; ++item) {
        Section section;
        section.item = item;
        if (listBox.GetHeaderSynchronState ()) {
            section.left = listBox.GetTabFieldBeginPosition (item);
            section.right = std::max<int> (section.left, listBox.GetTabFieldEndPosition (item));
        } else {
            section.left = x;
            section.right = x + listBox.GetHeaderItemSize (item);
            x = section.right;
        }
        sections.push_back (section);
    }
    return sections;
}

short GetDividerAt (const Wg::ListBox& listBox, int x)
{
    short best = 0;
    int bestDistance = DividerReach + 1;
    for (const Section& section : GetSections (listBox)) {
        const int distance = std::abs (section.right - x);
        if (distance < bestDistance && listBox.IsHeaderItemResizable (section.item)) {
            best = section.item;
            bestDistance = distance;
        }
    }
    return best;
}

void Paint (QPainter& painter, const Wg::ListBox& listBox, const QRect& area, int rowsLeft)
{
    painter.fillRect (area, Theme::HeaderColor);
    painter.fillRect (QRect (area.left (), area.bottom (), area.width (), 1), Theme::FrameColor);
    painter.save ();
    painter.setClipRect (area);
    painter.setFont (Theme::GetHeaderFont ());
    const QFontMetrics metrics (Theme::GetHeaderFont ());
    const bool greyed = !listBox.IsEnabled ();
    for (const Section& section : GetSections (listBox)) {
        const int left = rowsLeft + section.left;
        const int right = rowsLeft + section.right;
        const QRect title (left + TitlePadding, area.top (), right - left - 2 * TitlePadding, area.height () - 1);
        const QString text = ToQString (listBox.GetHeaderItemText (section.item));
        if (!text.isEmpty () && title.width () > 0) {
            painter.setPen (greyed ? Theme::GreyedInkColor : Theme::SecondaryInkColor);
            painter.drawText (title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                              metrics.elidedText (text, Qt::ElideRight, title.width ()));
        }
        if (right > left)
            painter.fillRect (QRect (right - 1, area.top () + DividerInset, 1, area.height () - 2 * DividerInset), Theme::DividerColor);
    }
    painter.restore ();
}

}   // namespace TxalQt::ListBoxHeader
