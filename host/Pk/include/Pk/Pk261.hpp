#pragma once
// Pk::Pk261: the line-type picker. It is a plain picker control; its callback takes the same
// record as Pk257's (Pk261CallBackRec names Pk257CallBackRec), and its entries are line types.

#include "Pk/PickerControl.hpp"

namespace Pk {

class Pk261 : public PickerControl {
public:
    Pk261 (const Wg::Panel& panel, const Wg::Rect& rect, short id = 0);
};

}   // namespace Pk
