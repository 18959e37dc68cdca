#pragma once
// Helpers for list boxes that the host's dialogs share: the height that shows every row, and
// the background of section-header rows.

#include "Gfx/Color.hpp"
#include "Wg/ListBox.hpp"

namespace Rb {

// A light grey-blue that sets section headers apart from white rows and from the selection.
inline constexpr Gfx::Color DefaultSectionHeaderBackgroundColor {228, 233, 240};

// The list box height that shows all its rows without scrolling: header height, rows times
// item height, and the frame at the top and bottom (clamped to the 16-bit range).
short GetListBoxRequiredHeight (const Wg::ListBox& listBox);

// The background of a section-header row; the same colour for every row and item.
Gfx::Color GetListBoxDefaultSectionHeaderBackgroundColor (const Wg::ListBox& listBox, short row, const void* item);

}   // namespace Rb
