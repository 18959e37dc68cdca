#include "StepSnapStrategy.hpp"

#include <cstdint>

#include "Wg/Controls.hpp"
#include "Wg/NumberEdit.hpp"

namespace Demo {

namespace {

// Division that rounds toward minus infinity, so that negative values snap like positive ones.
std::int64_t FloorDiv (std::int64_t value, std::int64_t divisor)
{
    const std::int64_t quotient = value / divisor;
    return (value % divisor != 0 && value < 0) ? quotient - 1 : quotient;
}

int ToInt (std::int64_t value, const TxAL::AttributeListSliderItem& item)
{
    // The list clamps the keyboard's answer; typed and dragged values are kept in the bounds here.
    if (value < item.GetMinValue ()) return item.GetMinValue ();
    if (value > item.GetMaxValue ()) return item.GetMaxValue ();
    return static_cast<int> (value);
}

}   // namespace

StepSnapStrategy::StepSnapStrategy (int step) : step (step > 0 ? step : 1) {}

int StepSnapStrategy::Snap (int value) const
{
    return static_cast<int> (FloorDiv (std::int64_t {value} + step / 2, step) * step);
}

bool StepSnapStrategy::IntEditChanged (const Wg::IntEditChangeEvent& event, TxAL::AttributeListSliderItem& item)
{
    SetSliderValue (item, ToInt (Snap (event.GetSource ()->GetValue ()), item));
    NotifySliderChange (item);
    return true;
}

bool StepSnapStrategy::SliderChanged (const Wg::BarControlChangeEvent& event, TxAL::AttributeListSliderItem& item)
{
    Wg::BarControl& bar = *event.GetSource ();
    const int snapped = ToInt (Snap (bar.GetValue ()), item);
    // Inside a slider event only the number follows the item: the thumb is moved here.
    bar.SetValue (snapped);
    SetSliderValue (item, snapped);
    NotifySliderChange (item);
    return true;
}

bool StepSnapStrategy::SliderTracked (const Wg::BarControlTrackEvent& event, TxAL::AttributeListSliderItem& item)
{
    // The thumb follows the pointer; the number shows the step it will land on.
    SetSliderValue (item, ToInt (Snap (event.GetSource ()->GetValue ()), item));
    return true;
}

int StepSnapStrategy::SliderStepped (const TxAL::AttributeListSliderItem& item, int proposedValue)
{
    // One step toward the proposal from the step at or beyond the current value.
    const std::int64_t current = item.GetValue ();
    const std::int64_t below = FloorDiv (current, step) * step;
    const std::int64_t next = proposedValue > current ? below + step : (below == current ? below - step : below);
    const int value = ToInt (next, item);
    if (keyboardStepped) keyboardStepped (item, value);
    return value;
}

}   // namespace Demo
