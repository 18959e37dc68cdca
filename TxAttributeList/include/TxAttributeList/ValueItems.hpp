#pragma once
// Value items: rows that show and edit plain values. One header per family; this one includes
// them all.
//   SelectionAndTextItems.hpp  selection, text, tagged text, dictionary
//   RealItems.hpp              real, length, area, volume, angle, polar angle, int
//   SimpleValueItems.hpp       check, button, icon button, information, separator
//   SliderItems.hpp            slider, interval

#include "TxAttributeList/RealItems.hpp"
#include "TxAttributeList/SelectionAndTextItems.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"
#include "TxAttributeList/SliderItems.hpp"
