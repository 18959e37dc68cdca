#pragma once
// Pen colours for fill previews and fill-pattern controls: the one place where the library
// reads the pen table. Pen 0 needs no table (white as a background, black otherwise); pens -1
// and -2 never resolve.

#include "ADB/AttributeSet.hpp"
#include "Gfx/Color.hpp"
#include "Pk/Pk257.hpp"

namespace TxAL {

// Turns pen into red, green and blue bytes through set's active pen table; false when any
// output is missing or the pen does not resolve (nothing is written then).
bool SetDiFillColors (short pen, bool background, unsigned char* red, unsigned char* green, unsigned char* blue,
                      ODB::ConstRef<ADB::AttributeSet> set);

// Give control the pen's colour as its fore, back, frame (contour) or separator (inner) colour;
// when the pen does not resolve, the control uses its cell's colour or the fallback given.
void DiSetFillForePen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set);
void DiSetFillForePen (Pk::Pk257* control, short pen, const Gfx::Color& fallback, ODB::ConstRef<ADB::AttributeSet> set);
void DiSetFillBackPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set);
void DiSetFillBackPen (Pk::Pk257* control, short pen, const Gfx::Color& fallback, ODB::ConstRef<ADB::AttributeSet> set);
void DiSetFillContourPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set);
void DiSetFillInnerPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set);

// Asks the host's fill-pattern control callback whether attribute index of typeCode can be
// drawn: its description must name at least one part and have a fill or a surface. userData
// goes to the callback; without it the callback gets a provider of set.
bool IsValidAttr (const ADB::AttributeIndex& index, unsigned short typeCode, ODB::ConstRef<ADB::AttributeSet> set,
                  void (*callBack) (Pk257CallBackRec*), const void* userData);

}   // namespace TxAL
