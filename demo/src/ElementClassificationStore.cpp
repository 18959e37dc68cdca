#include "ElementClassificationStore.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "TxImport/ClassificationImport.hpp"

namespace Demo {

namespace {

constexpr const char* CciFileName = "classification/cciconstruction-1.0.json";
// Overrides the data folder the demo was built with (an installed demo, a moved checkout).
constexpr const char* DataDirVariable = "TXAL_DATA_DIR";

// What a kind of element is called in class names, and its place in the element type system.
struct KindInfo {
    const char*              kind;
    std::vector<std::string> words;
    const char*              typeCode;
    const char*              cciCode;   // the CCI class an element of the kind starts with; empty: none
    bool                     cciAssociated;
};

const std::vector<KindInfo>& Kinds ()
{
    static const std::vector<KindInfo> kinds {
        {"Wall", {"wall"}, "WL", "L-AD", true},
        {"Slab", {"slab", "floor"}, "SL", "L-AC", true},
        {"Door", {"door"}, "OP-DR", "", true},
        {"Window", {"window"}, "OP-WN", "L-QQA", true},
        {"Zone", {"zone"}, "ZN", "", false},
    };
    return kinds;
}

const KindInfo* FindKind (const std::string& kind)
{
    for (const KindInfo& info : Kinds ())
        if (kind == info.kind) return &info;
    return nullptr;
}

std::string Lower (std::string text)
{
    std::transform (text.begin (), text.end (), text.begin (), [] (unsigned char c) { return static_cast<char> (std::tolower (c)); });
    return text;
}

bool Mentions (const std::string& lowerName, const std::vector<std::string>& words)
{
    return std::any_of (words.begin (), words.end (), [&] (const std::string& word) { return lowerName.find (word) != std::string::npos; });
}

}   // namespace

ODB::Ref<CLS::ClassificationSystem> MakeElementTypeSystem ()
{
    auto system = CLS::ClassificationSystem::Create ("Element types", "", "The kinds of element of the demo's building model");
    const auto walls = system->AddItem ({}, "WL", "Walls", "Vertical elements that enclose or divide spaces");
    system->AddItem (walls, "WL-EXT", "Exterior walls", "Walls between inside and outside");
    system->AddItem (walls, "WL-INT", "Interior walls", "Walls between two interior spaces");
    const auto slabs = system->AddItem ({}, "SL", "Slabs", "Horizontal load-bearing elements");
    system->AddItem (slabs, "SL-FLR", "Floor slabs");
    system->AddItem (slabs, "SL-ROF", "Roof slabs");
    const auto openings = system->AddItem ({}, "OP", "Openings", "Elements that fill an opening in a wall");
    system->AddItem (openings, "OP-DR", "Doors", "Openings one walks through");
    system->AddItem (openings, "OP-WN", "Windows", "Openings that let light in");
    system->AddItem ({}, "ZN", "Zones", "Spaces of the building");
    return system;
}

ODB::Ref<CLS::ClassificationSystem> LoadCciSystem ()
{
    const char* overridden = std::getenv (DataDirVariable);
    const std::string folder = overridden != nullptr ? overridden : TXAL_DATA_DIR;
    TxImport::ImportDiagnostics diagnostics;
    auto system = TxImport::ReadClassificationSystemFile (folder + "/" + CciFileName, diagnostics);
    if (!diagnostics.IsClean ()) std::fprintf (stderr, "txal-demo: %s", diagnostics.ToString ().c_str ());
    return system;
}

// --- ElementKindVisibility ---

ElementKindVisibility::ElementKindVisibility (std::string kind, ODB::ConstRef<CLS::ClassificationSystem> elementTypes)
    : kind (std::move (kind)), elementTypes (std::move (elementTypes))
{
}

bool ElementKindVisibility::IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>& item) const
{
    const KindInfo* info = FindKind (kind);
    if (info == nullptr || item.IsNull ()) return true;
    const auto* typed = dynamic_cast<const CLS::ClassificationItem*> (item.Get ());
    if (typed != nullptr && !elementTypes.IsNull () && typed->IsOf (*elementTypes)) {
        // The element's own type, and the groups above it.
        const std::string code = typed->GetCode ().ToUtf8 ();
        const std::string own = info->typeCode;
        return code.rfind (own, 0) == 0 || own.rfind (code, 0) == 0;
    }
    // Other systems: hide what names another kind of element and not this one.
    const std::string name = Lower (item->GetName ().ToUtf8 ());
    if (Mentions (name, info->words)) return true;
    for (const KindInfo& other : Kinds ())
        if (&other != info && Mentions (name, other.words)) return false;
    return true;
}

// --- The handler of one system for the shown element ---

class ElementClassificationStore::Handler : public TxAL::ClassificationSystemHandler {
public:
    Handler (ElementClassificationStore& owner, std::string elementId, ODB::ConstRef<CLS::ClassificationSystem> system)
        : owner (owner), elementId (std::move (elementId)), system (std::move (system)) {}

    CLS::ElemClassificationData GetClassificationData () override
    {
        const Stored& state = owner.GetStored (elementId, *system);
        return CLS::ElemClassificationData (system, state.item, state.associated);
    }
    bool IsEditable () const override { return true; }
    // An empty item takes the element out of the system.
    void SetClassificationItem (const ODB::ConstRef<CLS::ClassificationItem>& item) const override
    {
        Stored& state = owner.GetStored (elementId, *system);
        state.associated = !item.IsNull ();
        if (!item.IsNull ()) state.item = item;
        ++owner.storedChangeCount;
    }

private:
    ElementClassificationStore&              owner;
    std::string                              elementId;
    ODB::ConstRef<CLS::ClassificationSystem> system;
};

// --- ElementClassificationStore ---

ElementClassificationStore::ElementClassificationStore (const BuildingModel& model)
    : model (model), cci (LoadCciSystem ()), elementTypes (MakeElementTypeSystem ())
{
}

ElementClassificationStore::Stored& ElementClassificationStore::GetStored (const std::string& id, const CLS::ClassificationSystem& system)
{
    auto& ofElement = stored[id];
    auto it = ofElement.find (&system);
    if (it != ofElement.end ()) return it->second;

    // What an element starts with: its type, and the CCI class of its kind.
    Stored initial;
    const Element* element = model.Find (id);
    const KindInfo* info = element != nullptr ? FindKind (element->GetKind ()) : nullptr;
    if (info != nullptr && &system == elementTypes.Get ()) {
        initial.item = elementTypes->FindItemByCode (info->typeCode);
    } else if (info != nullptr && &system == cci.Get ()) {
        initial.associated = info->cciAssociated;
        if (*info->cciCode != '\0') initial.item = cci->FindItemByCode (info->cciCode);
    }
    return ofElement.emplace (&system, initial).first->second;
}

Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> ElementClassificationStore::CollectClassificationSystemHandlers ()
{
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> handlers;
    if (model.Find (elementId) == nullptr) return handlers;
    for (const ODB::Ref<CLS::ClassificationSystem>& system : {cci, elementTypes})
        if (!system.IsNull ()) handlers.Push (Kor::Ref<TxAL::ClassificationSystemHandler> (new Handler (*this, elementId, system.AsConst ())));
    return handlers;
}

Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> ElementClassificationStore::GetClassificationVisibilityGetter ()
{
    const Element* element = model.Find (elementId);
    return Kor::Ref<TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter> (
        new ElementKindVisibility (element != nullptr ? element->GetKind () : std::string (), elementTypes.AsConst ()));
}

std::string ElementClassificationStore::Describe (const std::string& id) const
{
    std::string out;
    const auto found = stored.find (id);
    for (const ODB::Ref<CLS::ClassificationSystem>& system : {cci, elementTypes}) {
        if (system.IsNull () || found == stored.end ()) continue;
        const auto state = found->second.find (system.Get ());
        if (state == found->second.end () || !state->second.associated) continue;
        out += (out.empty () ? "" : "; ") + system->GetName ().ToUtf8 () + ": " +
               (state->second.item.IsNull () ? std::string ("-") : state->second.item->GetCode ().ToUtf8 ());
    }
    return out;
}

}   // namespace Demo
