#pragma once
// A slider strategy that keeps a slider item on whole steps (0, 10, 20, ... for a step of 10):
// the number snaps while the thumb is dragged, the thumb snaps when it is released, a typed
// number snaps to the nearest step, and the arrow keys move by one step. A step of 1 only keeps
// typed and dragged numbers within the bounds and reports keyboard steps.

#include <functional>

#include "TxAttributeList/SliderItems.hpp"

namespace Demo {

class StepSnapStrategy : public TxAL::AttributeListSliderItemStrategy {
public:
    // step must be positive.
    explicit StepSnapStrategy (int step);

    // The step nearest to value (halves round up).
    int Snap (int value) const;

    // The arrow keys set the value without telling the item's observers: whoever keeps the
    // value hears of a keyboard step here, with the value the item is about to take.
    std::function<void (const TxAL::AttributeListSliderItem& item, int value)> keyboardStepped;

    bool IntEditChanged (const Wg::IntEditChangeEvent& event, TxAL::AttributeListSliderItem& item) override;
    bool SliderChanged (const Wg::BarControlChangeEvent& event, TxAL::AttributeListSliderItem& item) override;
    bool SliderTracked (const Wg::BarControlTrackEvent& event, TxAL::AttributeListSliderItem& item) override;
    int  SliderStepped (const TxAL::AttributeListSliderItem& item, int proposedValue) override;

private:
    int step;
};

}   // namespace Demo
