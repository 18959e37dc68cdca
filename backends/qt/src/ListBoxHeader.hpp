#pragma once
// The header of a list box: its sections (synchronised with the tab fields, or the list box's
// own items side by side), their painting and the dividers a user drags. Positions are
// list-box pixels: x from the rows' left edge.

#include <QPainter>
#include <QRect>
#include <vector>

#include "Wg/ListBox.hpp"

namespace TxalQt::ListBoxHeader {

struct Section {
    short item = 0;
    int   left = 0;
    int   right = 0;
};

std::vector<Section> GetSections (const Wg::ListBox& listBox);

// The resizable header item whose right divider is within reach of x; 0 for none. Of two
// dividers in reach, the nearer wins.
short GetDividerAt (const Wg::ListBox& listBox, int x);

// Paints the header into area (widget coordinates); section x positions start at rowsLeft.
void Paint (QPainter& painter, const Wg::ListBox& listBox, const QRect& area, int rowsLeft);

}   // namespace TxalQt::ListBoxHeader
