#include "Kor/DynamicValue.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <typeinfo>

namespace Kor {

namespace {

UniString FormatNumber (double value, const DynamicValueConversionRules& rules)
{
    const int digits = std::clamp<int> (rules.GetDisplayDigits (), 0, 15);
    char buffer[512];
    std::snprintf (buffer, sizeof buffer, "%.*f", digits, value);
    std::string text = buffer;
    if ((rules.GetFlags () & DynamicValueConversionRules::HideTrailingZeros) != 0 && text.find ('.') != std::string::npos) {
        while (!text.empty () && text.back () == '0') text.pop_back ();
        if (!text.empty () && text.back () == '.') text.pop_back ();
    }
    // A negative number that rounds to zero shows without its sign.
    if (!text.empty () && text[0] == '-' && text.find_first_not_of ("-0.") == std::string::npos) text.erase (0, 1);
    return UniString (text);
}

}   // namespace

bool DynamicValue::IsValid () const
{
    switch (status) {
        case Normal: return PayloadIsValid ();
        case Undefined:
        case Mixed:
        case UserUndefined:
        case NotAvailable: return true;
    }
    return false;
}

bool DynamicValue::Equals (const DynamicValue& other) const
{
    if (typeid (*this) != typeid (other) || status != other.status) return false;
    return status != Normal || PayloadEquals (other);
}

UniString DynamicValue::ToDisplayText (const DynamicValueConversionRules& rules) const
{
    switch (status) {
        case Normal: return PayloadIsValid () ? PayloadToText (rules) : UniString ("###");
        case Undefined: return UniString ("");
        case Mixed: return UniString ("Mixed");
        case UserUndefined: return UniString ("Undefined");
        case NotAvailable: return UniString ("Not applicable");
    }
    return UniString ("###");
}

bool BoolValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const BoolValue&> (other).value;
}

UniString BoolValue::PayloadToText (const DynamicValueConversionRules&) const
{
    return UniString (value ? "Yes" : "No");
}

bool IntValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const IntValue&> (other).value;
}

UniString IntValue::PayloadToText (const DynamicValueConversionRules&) const
{
    return UniString (std::to_string (value));
}

bool NumValue::PayloadIsValid () const
{
    return std::isfinite (value);
}

bool NumValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const NumValue&> (other).value;
}

UniString NumValue::PayloadToText (const DynamicValueConversionRules& rules) const
{
    return FormatNumber (value, rules);
}

bool StringValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const StringValue&> (other).value;
}

UniString StringValue::PayloadToText (const DynamicValueConversionRules&) const
{
    return value;
}

bool GuidListValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const GuidListValue&> (other).value;
}

UniString GuidListValue::PayloadToText (const DynamicValueConversionRules& rules) const
{
    UniString text;
    for (std::size_t i = 0; i < value.GetSize (); ++i) {
        if (i > 0) text += rules.GetListSeparator ();
        text += value[i].ToUniString ();
    }
    return text;
}

bool StringListValue::PayloadEquals (const DynamicValue& other) const
{
    return value == static_cast<const StringListValue&> (other).value;
}

UniString StringListValue::PayloadToText (const DynamicValueConversionRules& rules) const
{
    UniString text;
    for (std::size_t i = 0; i < value.GetSize (); ++i) {
        if (i > 0) text += rules.GetListSeparator ();
        text += value[i];
    }
    return text;
}

void StringListValue::SetFromText (const UniString& text)
{
    value.Clear ();
    const std::u16string& chars = text.GetUtf16 ();
    std::size_t           begin = 0;
    auto addLine = [&] (std::size_t end) {
        UniString line = UniString (chars.substr (begin, end - begin)).Trimmed ();
        if (!line.IsEmpty ()) value.Push (line);
    };
    for (std::size_t i = 0; i < chars.size (); ++i) {
        if (chars[i] != u'\n' && chars[i] != u'\r') continue;
        addLine (i);
        if (chars[i] == u'\r' && i + 1 < chars.size () && chars[i + 1] == u'\n') ++i;
        begin = i + 1;
    }
    if (begin < chars.size ()) addLine (chars.size ());
    SetStatus (Normal);
}

UniString StringListValue::ToText () const
{
    UniString text;
    for (std::size_t i = 0; i < value.GetSize (); ++i) {
        if (i > 0) text += u'\n';
        text += value[i];
    }
    return text;
}

}   // namespace Kor
