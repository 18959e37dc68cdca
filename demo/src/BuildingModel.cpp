#include "BuildingModel.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

namespace Demo {

extern const char* const BuiltInModelText;

namespace {

constexpr std::size_t MaxLineLength = 4096;

std::string Trim (const std::string& text)
{
    const auto first = text.find_first_not_of (" \t\r");
    if (first == std::string::npos) return {};
    const auto last = text.find_last_not_of (" \t\r");
    return text.substr (first, last - first + 1);
}

[[noreturn]] void Fail (const std::string& fileName, int line, const std::string& reason)
{
    throw ModelError (fileName + ":" + std::to_string (line) + ": " + reason);
}

bool IsKey (const std::string& key)
{
    return !key.empty () && std::all_of (key.begin (), key.end (), [] (char c) { return std::isalnum (static_cast<unsigned char> (c)) || c == '_'; });
}

}   // namespace

bool Element::Has (const std::string& key) const
{
    return Get (key).has_value ();
}

std::optional<std::string> Element::Get (const std::string& key) const
{
    for (const auto& [k, v] : settings)
        if (k == key) return v;
    return std::nullopt;
}

void Element::Set (const std::string& key, const std::string& value)
{
    for (auto& [k, v] : settings) {
        if (k == key) {
            v = value;
            return;
        }
    }
    settings.emplace_back (key, value);
}

BuildingModel BuildingModel::Parse (const std::string& text, const std::string& fileName)
{
    BuildingModel model;
    std::istringstream in (text);
    std::string raw;
    int lineNumber = 0;
    while (std::getline (in, raw)) {
        ++lineNumber;
        if (raw.size () > MaxLineLength) Fail (fileName, lineNumber, "line too long");
        if (raw.find ('\0') != std::string::npos) Fail (fileName, lineNumber, "binary data");
        const std::string line = Trim (raw);
        if (line.empty () || line[0] == '#') continue;
        if (line[0] == '[') {
            if (line.back () != ']') Fail (fileName, lineNumber, "section without ']'");
            std::istringstream header (line.substr (1, line.size () - 2));
            std::string kind, id, rest;
            header >> kind >> id;
            if (kind.empty () || id.empty () || (header >> rest)) Fail (fileName, lineNumber, "a section is [Kind ID]");
            if (model.Find (id) != nullptr) Fail (fileName, lineNumber, "duplicate element " + id);
            model.elements.emplace_back (kind, id);
            continue;
        }
        const auto equals = line.find ('=');
        if (equals == std::string::npos) Fail (fileName, lineNumber, "expected key = value");
        if (model.elements.empty ()) Fail (fileName, lineNumber, "setting outside an element");
        const std::string key = Trim (line.substr (0, equals));
        if (!IsKey (key)) Fail (fileName, lineNumber, "bad key \"" + key + "\"");
        if (model.elements.back ().Has (key)) Fail (fileName, lineNumber, "duplicate key " + key);
        model.elements.back ().Set (key, Trim (line.substr (equals + 1)));
    }
    return model;
}

BuildingModel BuildingModel::Load (const std::string& path)
{
    std::ifstream file (path, std::ios::binary);
    if (!file) throw ModelError (path + ":0: cannot be read");
    std::ostringstream text;
    text << file.rdbuf ();
    return Parse (text.str (), path);
}

BuildingModel BuildingModel::LoadBuiltIn ()
{
    return Parse (BuiltInModelText, "data/building.txt");
}

Element* BuildingModel::Find (const std::string& id)
{
    for (Element& e : elements)
        if (e.GetId () == id) return &e;
    return nullptr;
}

const Element* BuildingModel::Find (const std::string& id) const
{
    return const_cast<BuildingModel*> (this)->Find (id);
}

std::string BuildingModel::Dump () const
{
    std::string out;
    for (const Element& e : elements) {
        out += "[" + e.GetKind () + " " + e.GetId () + "]\n";
        for (const auto& [k, v] : e.GetSettings ()) out += k + " = " + v + "\n";
    }
    return out;
}

std::optional<double> ParseNumber (const std::string& text)
{
    const std::string t = Trim (text);
    double value = 0.0;
    const auto [end, error] = std::from_chars (t.data (), t.data () + t.size (), value);
    if (error != std::errc () || end != t.data () + t.size () || !std::isfinite (value)) return std::nullopt;
    return value;
}

std::string FormatNumber (double value)
{
    char buffer[64];
    const auto [end, error] = std::to_chars (buffer, buffer + sizeof buffer, value);
    if (error != std::errc ()) return "0";
    return std::string (buffer, end);
}

}   // namespace Demo
