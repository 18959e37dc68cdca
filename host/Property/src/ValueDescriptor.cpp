#include "Property/ValueDescriptor.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>

namespace Property {

namespace {

std::string Lower (std::string text)
{
    std::transform (text.begin (), text.end (), text.begin (), [] (unsigned char c) { return static_cast<char> (std::tolower (c)); });
    return text;
}

std::string Trimmed (const std::string& text)
{
    const auto begin = text.find_first_not_of (" \t\r\n");
    if (begin == std::string::npos) return {};
    const auto end = text.find_last_not_of (" \t\r\n");
    return text.substr (begin, end - begin + 1);
}

Kor::Owner<Kor::DynamicValue> ParseSingle (PropertyValueType type, const std::string& raw)
{
    const std::string text = Trimmed (raw);
    switch (type) {
        case PropertyValueType::Boolean: {
            const std::string word = Lower (text);
            if (word == "true" || word == "yes" || word == "1") return Kor::NewOwner<Kor::BoolValue> (true);
            if (word == "false" || word == "no" || word == "0") return Kor::NewOwner<Kor::BoolValue> (false);
            return nullptr;
        }
        case PropertyValueType::Integer: {
            std::int64_t number = 0;
            const auto [end, error] = std::from_chars (text.data (), text.data () + text.size (), number);
            if (error != std::errc () || end != text.data () + text.size () || text.empty ()) return nullptr;
            return Kor::NewOwner<Kor::IntValue> (number);
        }
        case PropertyValueType::Real: {
            double number = 0.0;
            const auto [end, error] = std::from_chars (text.data (), text.data () + text.size (), number);
            if (error != std::errc () || end != text.data () + text.size () || text.empty ()) return nullptr;
            return Kor::NewOwner<Kor::NumValue> (number);
        }
        case PropertyValueType::String:
        case PropertyValueType::Enumeration: return Kor::NewOwner<Kor::StringValue> (Kor::UniString (raw));
    }
    return nullptr;
}

}   // namespace

Kor::UniString IValueDescriptor::GetDisplayValue (const Kor::DynamicValue& value, const Kor::DynamicValueConversionRules& rules) const
{
    return value.ToDisplayText (rules);
}

// --- TypeValueDescriptor ---

TypeValueDescriptor::TypeValueDescriptor (PropertyValueType valueType, PropertyCollectionType collectionType)
    : valueType (valueType), collectionType (collectionType)
{
}

Kor::Owner<Kor::DynamicValue> TypeValueDescriptor::CreateValue () const
{
    if (collectionType == PropertyCollectionType::List) return Kor::NewOwner<Kor::StringListValue> ();
    switch (valueType) {
        case PropertyValueType::Boolean: return Kor::NewOwner<Kor::BoolValue> (false);
        case PropertyValueType::Integer: return Kor::NewOwner<Kor::IntValue> (0);
        case PropertyValueType::Real: return Kor::NewOwner<Kor::NumValue> (0.0);
        case PropertyValueType::String:
        case PropertyValueType::Enumeration: return Kor::NewOwner<Kor::StringValue> ();
    }
    return nullptr;
}

Kor::Owner<Kor::DynamicValue> TypeValueDescriptor::ConvertFromString (const Kor::StringValue& text) const
{
    if (collectionType == PropertyCollectionType::List) {
        auto list = Kor::NewOwner<Kor::StringListValue> ();
        list->SetFromText (text.GetValue ());
        return Kor::Owner<Kor::DynamicValue> (std::move (list));
    }
    return ParseSingle (valueType, text.GetValue ().ToUtf8 ());
}

// --- EnumerationValueDescriptor ---

EnumerationValueDescriptor::EnumerationValueDescriptor (const Kor::Array<EnumerationValue>& values, bool multiValue)
    : values (values), multiValue (multiValue)
{
}

std::optional<std::size_t> EnumerationValueDescriptor::FindKey (const Kor::Guid& key) const
{
    for (std::size_t i = 0; i < values.GetSize (); ++i)
        if (values[i].key == key) return i;
    return std::nullopt;
}

std::optional<std::size_t> EnumerationValueDescriptor::FindDisplayText (const Kor::UniString& text) const
{
    for (std::size_t i = 0; i < values.GetSize (); ++i)
        if (values[i].displayText == text) return i;
    return std::nullopt;
}

Kor::Owner<Kor::DynamicValue> EnumerationValueDescriptor::CreateValue () const
{
    if (multiValue) return Kor::NewOwner<Kor::GuidListValue> ();
    return Kor::NewOwner<Kor::StringValue> ();
}

Kor::Owner<Kor::DynamicValue> EnumerationValueDescriptor::ConvertFromString (const Kor::StringValue& text) const
{
    std::optional<std::size_t> found = FindDisplayText (text.GetValue ());
    if (!found) {
        for (std::size_t i = 0; i < values.GetSize () && !found; ++i)
            if (values[i].value == text.GetValue ()) found = i;
    }
    if (!found) return nullptr;
    const EnumerationValue& entry = values[*found];
    if (multiValue) return Kor::NewOwner<Kor::GuidListValue> (Kor::Array<Kor::Guid> {entry.key});
    return Kor::NewOwner<Kor::StringValue> (entry.displayText);
}

Kor::UniString EnumerationValueDescriptor::GetDisplayValue (const Kor::DynamicValue& value, const Kor::DynamicValueConversionRules& rules) const
{
    const auto* list = Kor::DynamicCast<Kor::GuidListValue> (&value);
    if (list == nullptr || value.GetStatus () != Kor::DynamicValue::Normal) return value.ToDisplayText (rules);
    Kor::UniString text;
    bool           first = true;
    for (const Kor::Guid& key : list->GetValue ()) {
        const std::optional<std::size_t> at = FindKey (key);
        if (!at) continue;
        if (!first) text += rules.GetListSeparator ();
        text += values[*at].displayText;
        first = false;
    }
    return text;
}

}   // namespace Property
