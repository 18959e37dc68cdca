#pragma once
// The assertion reports of the picker rows. Their places (source tag and line) are part of
// what clients match reports against, so they are fixed numbers, not the lines of this code.

#include "Kor/Assert.hpp"

namespace TxAL::PickerAsserts {

inline constexpr const char* Prefix = "TxAL error";
inline constexpr const char* SourceFile = "AttributeListItems";

inline constexpr int UnknownAttributeTypeLine = 2338;
inline constexpr int FillWithoutCustomFilterLine = 2677;
inline constexpr int UnknownCompositeSubTypeLine = 2794;
inline constexpr int CompositeWithoutCustomFilterLine = 2806;
inline constexpr int LineTypeWithoutCustomFilterLine = 2955;
inline constexpr int UnknownLineTypeSubTypeLine = 2964;
inline constexpr int UnexpectedProfileSettingLine = 3080;

inline void Report (int line, const char* condition, const char* function)
{
    Kor::ReportAssertFailure (Prefix, SourceFile, line, condition, function);
}

// A row whose sub type asks for the custom filter reports a missing one (and opens its popup
// without a filter all the same).
inline void CheckCustomFilter (const void* customFilter, int line, const char* function)
{
    if (customFilter == nullptr) Report (line, "customFilter != nullptr", function);
}

}   // namespace TxAL::PickerAsserts
