#pragma once
// The demo's sample building model: elements (walls, slabs, doors, windows, zones) with named
// settings, read from a small text file of "[Kind ID]" sections and "key = value" lines.

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Demo {

// A malformed model file: what() is "<file>:<line>: <reason>".
class ModelError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Element {
public:
    Element (std::string kind, std::string id) : kind (std::move (kind)), id (std::move (id)) {}

    const std::string& GetKind () const { return kind; }
    const std::string& GetId () const { return id; }

    bool                       Has (const std::string& key) const;
    std::optional<std::string> Get (const std::string& key) const;
    // Adds the key at the end when it is new.
    void                       Set (const std::string& key, const std::string& value);
    const std::vector<std::pair<std::string, std::string>>& GetSettings () const { return settings; }

private:
    std::string                                      kind;
    std::string                                      id;
    std::vector<std::pair<std::string, std::string>> settings;
};

class BuildingModel {
public:
    // Parses a model; fileName names it in errors. Throws ModelError.
    static BuildingModel Parse (const std::string& text, const std::string& fileName);
    static BuildingModel Load (const std::string& path);
    // The model built into the demo (data/building.txt).
    static BuildingModel LoadBuiltIn ();

    const std::vector<Element>& GetElements () const { return elements; }
    Element*                    Find (const std::string& id);
    const Element*              Find (const std::string& id) const;

    // "[Kind ID]" and "key = value" lines, in order.
    std::string Dump () const;

private:
    std::vector<Element> elements;
};

// Numbers in the model file are written with a point, whatever the locale.
std::optional<double> ParseNumber (const std::string& text);
std::string           FormatNumber (double value);

}   // namespace Demo
