#include "Rb/ListBoxHelpers.hpp"

#include <algorithm>
#include <limits>

namespace Rb {

short GetListBoxRequiredHeight (const Wg::ListBox& listBox)
{
    const int height = listBox.GetHeaderHeight () + listBox.GetItemCount () * listBox.GetItemHeight () + 2 * Wg::ListBox::FrameWidth;
    return static_cast<short> (std::min (height, int (std::numeric_limits<short>::max ())));
}

Gfx::Color GetListBoxDefaultSectionHeaderBackgroundColor (const Wg::ListBox&, short, const void*)
{
    return DefaultSectionHeaderBackgroundColor;
}

}   // namespace Rb
