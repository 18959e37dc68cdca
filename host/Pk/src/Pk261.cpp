#include "Pk/Pk261.hpp"

namespace Pk {

Pk261::Pk261 (const Wg::Panel& panel, const Wg::Rect& rect, short id) : PickerControl (panel, rect, id)
{
}

}   // namespace Pk
