#include "Pk/Pk257.hpp"

namespace Pk {

Pk257::Pk257 (const Wg::Panel& panel, const Wg::Rect& rect, short id) : PickerControl (panel, rect, id)
{
}

void Pk257::SetColor (std::optional<Gfx::Color>& slot, const std::optional<Gfx::Color>& newColor)
{
    if (slot == newColor) return;
    slot = newColor;
    NotifyPeer (Wg::Aspect::Content);
}

}   // namespace Pk
