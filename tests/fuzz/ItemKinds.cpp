// The table of single-row item kinds the fuzzer knows. A new kind is one entry: how to make it
// as a caller and through the list's and group's Create…Item, what a program does to it, how
// its value reads and what a user types into it.

#include <cmath>
#include <cstdio>

#include "FuzzWorld.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"

namespace TxALFuzz {

namespace {

using namespace TxAL;

constexpr double RealLow = -1000.0;
constexpr double RealHigh = 1000.0;
constexpr int    IntLow = -5000;
constexpr int    IntHigh = 5000;
// Typed reals are halves, which every precision shows and parses exactly.
constexpr int    TypedHalfSteps = 4000;

template <typename T>
T& As (AttributeListSimpleItem& item)
{
    return static_cast<T&> (item);
}
template <typename T>
const T& As (const AttributeListSimpleItem& item)
{
    return static_cast<const T&> (item);
}

Kor::UniString Name (const char* kind) { return Kor::UniString (kind); }
bool           Status (Rng& rng) { return Chance (rng, 85); }

AttributeListItem::PopupItem Entry (Rng& rng)
{
    AttributeListItem::PopupItem entry;
    entry.SetText (Chance (rng, 80) ? Kor::UniString ("e" + std::to_string (Pick (rng, 100))) : ExtremeText (rng));
    entry.SetIsEnabled (Chance (rng, 80));
    entry.SetIsSeparator (Chance (rng, 10));
    return entry;
}

std::string RealText (double value)
{
    char buffer[64];
    std::snprintf (buffer, sizeof buffer, "%.17g", value);
    return buffer;
}

// Program calls every value list takes, with hostile indices.
void PokeSelection (AttributeListSelectionItem& item, Rng& rng)
{
    const short index = static_cast<short> (Chance (rng, 70) ? Pick (rng, 6) : ExtremeInt (rng));
    switch (Pick (rng, 7)) {
        case 0: item.AddItem (Entry (rng)); break;
        case 1: item.AddSeparator (); break;
        case 2: item.DeleteAllItems (); break;
        case 3: item.SetItemStatus (index, Chance (rng, 50)); break;
        case 4: item.SelectItem (index); break;
        case 5: item.SetItemIcon (index, Wg::Icon ()); break;
        default: item.SetItemData (index, {}); break;
    }
}

void PokeText (AttributeListTextItem& item, Rng& rng)
{
    switch (Pick (rng, 7)) {
        case 0:
        case 1: item.SetText (ExtremeText (rng), Chance (rng, 50)); break;
        case 2: item.SetCustomText (ExtremeText (rng)); break;
        case 3: item.AddStringItem (ExtremeText (rng)); break;
        case 4: item.SetEditable (Chance (rng, 70)); break;
        case 5: Chance (rng, 50) ? item.EnableValueList () : item.DisableValueList (); break;
        default: PokeSelection (item, rng); break;
    }
}

void PokeReal (AttributeListRealItem& item, Rng& rng)
{
    switch (Pick (rng, 7)) {
        case 0:
        case 1: item.SetValue (ExtremeReal (rng)); break;
        case 2: item.SetMinValue (ExtremeReal (rng)); break;
        case 3: item.SetMaxValue (ExtremeReal (rng)); break;
        case 4: item.SetEditable (Chance (rng, 80)); break;
        case 5: item.SetTagText (ExtremeText (rng)); break;
        default: PokeSelection (item, rng); break;
    }
}

// A typed value inside the item's range that differs from the current one; none when the
// range holds no such value.
std::optional<double> TypedReal (double min, double max, double current, Rng& rng)
{
    const double low = std::max (min, RealLow), high = std::min (max, RealHigh);
    if (!(low <= high)) return std::nullopt;
    for (int attempt = 0; attempt < 4; ++attempt) {
        const double value = std::ceil (low * 2.0) / 2.0 + Pick (rng, TypedHalfSteps) / 2.0;
        if (value <= high && value != current) return value;
    }
    return std::nullopt;
}

// A real-valued kind (the plain real and the unit kinds) from its factory functions. The plain
// real's value reads back as typed; the unit kinds' typing depends on the working units, so
// only whether they changed is checked.
template <typename T, auto ListCreate, auto GroupCreate>
ItemKind RealKind (const char* name, bool readsBackAsTyped)
{
    ItemKind kind;
    kind.name = name;
    kind.make = [name] (Rng& rng) -> AttributeListSimpleItem* {
        return new T (Name (name), Wg::Icon (), RealLow, RealHigh, Pick (rng, 200) - 100.0, Chance (rng, 85), Status (rng), false);
    };
    kind.createInList = [name] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return (list.*ListCreate) (Name (name), Wg::Icon (), RealLow, RealHigh, Pick (rng, 200) / 4.0, Chance (rng, 85), Status (rng),
                                   Chance (rng, 20), Kor::UniString ());
    };
    kind.createInGroup = [name] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return (group.*GroupCreate) (asMaster, Name (name), Wg::Icon (), RealLow, RealHigh, Pick (rng, 200) / 4.0, Chance (rng, 85),
                                     Status (rng), false);
    };
    kind.poke = [] (AttributeListSimpleItem& item, Rng& rng) { PokeReal (As<AttributeListRealItem> (item), rng); };
    kind.read = [] (const AttributeListSimpleItem& item) { return RealText (As<AttributeListRealItem> (item).GetValue ()); };
    kind.typing = [readsBackAsTyped] (const AttributeListSimpleItem& item, Rng& rng) -> std::optional<ItemKind::Typing> {
        const auto& real = As<AttributeListRealItem> (item);
        const std::optional<double> value = TypedReal (real.GetMinValue (), real.GetMaxValue (), real.GetValue (), rng);
        if (!value) return std::nullopt;
        ItemKind::Typing typing;
        char buffer[32];
        std::snprintf (buffer, sizeof buffer, "%.1f", *value);
        typing.text = Kor::UniString (buffer);
        if (readsBackAsTyped) typing.expected = RealText (*value);
        return typing;
    };
    return kind;
}

// The attribute set of the pen and picker rows; sometimes a provider with no set at all.
const ADB::IAttributeSetProvider* SampleProvider (Rng& rng)
{
    static const ADB::AttributeSetProvider sample (ODB::ConstRef<ADB::AttributeSet> (TxAttr::MakeSampleAttributeSet ()));
    static const ADB::AttributeSetProvider empty;
    if (Chance (rng, 5)) return nullptr;
    return Chance (rng, 90) ? &sample : &empty;
}

// An index that names an attribute of the sample set, none, or nothing sensible.
ADB::AttributeIndex SomeIndex (Rng& rng)
{
    if (Chance (rng, 80)) return ADB::AttributeIndex (static_cast<std::uint32_t> (1 + Pick (rng, 22)));
    return Chance (rng, 50) ? ADB::InvalidAttributeIndex : ADB::AttributeIndex (static_cast<std::uint32_t> (ExtremeInt (rng)));
}

short SomePen (Rng& rng)
{
    return static_cast<short> (Chance (rng, 80) ? Pick (rng, 258) - 2 : ExtremeInt (rng));
}

// What a program does to every picker row; then what it does to the kind's own fields.
void PokePicker (AttributePickerListItem& item, Rng& rng)
{
    switch (Pick (rng, 3)) {
        case 0: item.SetAttributeSetProvider (SampleProvider (rng)); break;
        case 1: {
            Kor::Owner<TxAC::AttributeListAndFolderFilter> filter;
            if (Chance (rng, 70)) filter = Kor::NewOwner<TxAC::AttributeListAndFolderFilter> (std::vector<ADB::AttributeIndex> {SomeIndex (rng)});
            item.SetCustomFilter (std::move (filter));
            break;
        }
        default: break;
    }
}

ItemKind PickerKind (const char* name, std::function<AttributePickerListItem* (Rng&)> make,
                     std::function<void (AttributePickerListItem&, Rng&)> pokeOwn, std::function<std::string (const AttributePickerListItem&)> read)
{
    ItemKind kind;
    kind.name = name;
    kind.make = [make] (Rng& rng) -> AttributeListSimpleItem* { return make (rng); };
    kind.poke = [pokeOwn] (AttributeListSimpleItem& item, Rng& rng) {
        auto& picker = As<AttributePickerListItem> (item);
        Chance (rng, 30) ? PokePicker (picker, rng) : pokeOwn (picker, rng);
    };
    kind.read = [read] (const AttributeListSimpleItem& item) { return read (As<AttributePickerListItem> (item)); };
    return kind;
}

std::string IndexText (const ADB::AttributeIndex& index)
{
    return std::to_string (index.GetValue ());
}

void AddPickerKinds (std::vector<ItemKind>& kinds)
{
    ItemKind pen;
    pen.name = "Pen";
    const auto penSubType = [] (Rng& rng) { return static_cast<AttributeListPenItem::SubType> (Chance (rng, 90) ? 1 + Pick (rng, 3) : ExtremeInt (rng)); };
    pen.make = [penSubType] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListPenItem (Name ("Pen"), Wg::Icon (), SampleProvider (rng), penSubType (rng), SomePen (rng), Status (rng), false);
    };
    pen.createInList = [penSubType] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreatePenItem (Name ("Pen"), Wg::Icon (), SampleProvider (rng), penSubType (rng), SomePen (rng), Status (rng), false);
    };
    pen.createInGroup = [penSubType] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreatePenItem (asMaster, Name ("Pen"), Wg::Icon (), SampleProvider (rng), penSubType (rng), SomePen (rng), Status (rng),
                                    false);
    };
    pen.poke = [penSubType] (AttributeListSimpleItem& item, Rng& rng) {
        auto& p = As<AttributeListPenItem> (item);
        switch (Pick (rng, 4)) {
            case 0: p.SetPen (SomePen (rng)); break;
            case 1: p.SetSubType (penSubType (rng)); break;
            case 2: p.SetAttributeSetProvider (SampleProvider (rng)); break;
            default: p.SetCustomCallBackAndUserData (Chance (rng, 50) ? &TxAC::PenWithNullControlCallBack : nullptr, nullptr); break;
        }
    };
    pen.read = [] (const AttributeListSimpleItem& item) { return std::to_string (As<AttributeListPenItem> (item).GetPen ()); };
    kinds.push_back (pen);

    const auto fillSubType = [] (Rng& rng) { return static_cast<AttributeListFillItem::SubType> (Chance (rng, 90) ? Pick (rng, 8) : ExtremeInt (rng)); };
    ItemKind fill = PickerKind (
        "Fill",
        [fillSubType] (Rng& rng) {
            return new AttributeListFillItem (Name ("Fill"), Wg::Icon (), Wg::Icon (), SampleProvider (rng), fillSubType (rng), SomeIndex (rng),
                                              SomePen (rng), SomePen (rng), -1223, SomePen (rng), Status (rng), false);
        },
        [fillSubType] (AttributePickerListItem& item, Rng& rng) {
            auto& f = static_cast<AttributeListFillItem&> (item);
            switch (Pick (rng, 4)) {
                case 0: f.SetFill (SomeIndex (rng)); break;
                case 1: f.SetSubType (fillSubType (rng)); break;
                case 2: f.SetForegroundPen (SomePen (rng)); break;
                default: f.SetContourPen (SomePen (rng)); break;
            }
        },
        [] (const AttributePickerListItem& item) { return IndexText (static_cast<const AttributeListFillItem&> (item).GetFill ()); });
    fill.createInList = [fillSubType] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateFillItem (Name ("Fill"), Wg::Icon (), Wg::Icon (), SampleProvider (rng), fillSubType (rng), SomeIndex (rng), -1223,
                                    SomePen (rng), SomePen (rng), -1223, Status (rng), false);
    };
    fill.createInGroup = [fillSubType] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateFillItem (asMaster, Name ("Fill"), Wg::Icon (), Wg::Icon (), SampleProvider (rng), fillSubType (rng), SomeIndex (rng),
                                     SomePen (rng), -1223, -1223, -1223, Status (rng), false);
    };
    kinds.push_back (fill);

    kinds.push_back (PickerKind (
        "Composite",
        [] (Rng& rng) {
            return new AttributeListCompositeItem (Name ("Composite"), Wg::Icon (), SampleProvider (rng),
                                                   static_cast<AttributeListCompositeItem::SubType> (1 + Pick (rng, 7)), SomeIndex (rng),
                                                   Status (rng), false);
        },
        [] (AttributePickerListItem& item, Rng& rng) {
            auto& c = static_cast<AttributeListCompositeItem&> (item);
            switch (Pick (rng, 3)) {
                case 0: c.SetComposite (SomeIndex (rng)); break;
                case 1: c.SetSubType (static_cast<AttributeListCompositeItem::SubType> (1 + Pick (rng, 7))); break;
                default: c.SetSeparatorPen (SomePen (rng)); break;
            }
        },
        [] (const AttributePickerListItem& item) { return IndexText (static_cast<const AttributeListCompositeItem&> (item).GetComposite ()); }));

    const auto lineSubType = [] (Rng& rng) { return static_cast<AttributeListLineTypeItem::SubType> (Pick (rng, 5)); };
    ItemKind lineType = PickerKind (
        "LineType",
        [lineSubType] (Rng& rng) {
            return new AttributeListLineTypeItem (Name ("LineType"), Wg::Icon (), SampleProvider (rng), lineSubType (rng), SomeIndex (rng),
                                                  Status (rng), false);
        },
        [lineSubType] (AttributePickerListItem& item, Rng& rng) {
            auto& l = static_cast<AttributeListLineTypeItem&> (item);
            Chance (rng, 50) ? l.SetLineType (SomeIndex (rng)) : l.SetSubType (lineSubType (rng));
        },
        [] (const AttributePickerListItem& item) { return IndexText (static_cast<const AttributeListLineTypeItem&> (item).GetLineType ()); });
    lineType.createInList = [lineSubType] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateLineTypeItem (Name ("LineType"), Wg::Icon (), SampleProvider (rng), lineSubType (rng), SomeIndex (rng), Status (rng),
                                        false);
    };
    kinds.push_back (lineType);

    const auto profileSubType = [] (Rng& rng) { return static_cast<AttributeListProfileItem::SubType> (Pick (rng, 8)); };
    ItemKind profile = PickerKind (
        "Profile",
        [profileSubType] (Rng& rng) {
            const TxAC::ProfileControlData data (nullptr, Pick (rng, 32), SomeIndex (rng), static_cast<short> (Pick (rng, 4)));
            return new AttributeListProfileItem (Name ("Profile"), Wg::Icon (), SampleProvider (rng), profileSubType (rng), SomeIndex (rng),
                                                 Chance (rng, 50) ? &data : nullptr, Status (rng), false);
        },
        [profileSubType] (AttributePickerListItem& item, Rng& rng) {
            auto& p = static_cast<AttributeListProfileItem&> (item);
            switch (Pick (rng, 3)) {
                case 0: p.SetProfileIndex (SomeIndex (rng)); break;
                case 1: p.SetSubType (profileSubType (rng)); break;
                default: {
                    const TxAC::ProfileControlData data (SampleProvider (rng), Pick (rng, 32), SomeIndex (rng), static_cast<short> (Pick (rng, 4)));
                    p.SetProfileControlData (Chance (rng, 80) ? &data : nullptr);
                    break;
                }
            }
        },
        [] (const AttributePickerListItem& item) { return IndexText (static_cast<const AttributeListProfileItem&> (item).GetProfileIndex ()); });
    profile.createInGroup = [profileSubType] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateProfileItem (asMaster, Name ("Profile"), Wg::Icon (), SampleProvider (rng), profileSubType (rng), SomeIndex (rng),
                                        nullptr, Status (rng), false);
    };
    kinds.push_back (profile);

    ItemKind material = PickerKind (
        "Material",
        [] (Rng& rng) {
            return new AttributeListMaterialItem (Name ("Material"), Wg::Icon (), SampleProvider (rng), SomeIndex (rng), Status (rng), false);
        },
        [] (AttributePickerListItem& item, Rng& rng) { static_cast<AttributeListMaterialItem&> (item).SetMaterial (SomeIndex (rng)); },
        [] (const AttributePickerListItem& item) { return IndexText (static_cast<const AttributeListMaterialItem&> (item).GetMaterial ()); });
    material.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateMaterialItem (Name ("Material"), Wg::Icon (), SampleProvider (rng), SomeIndex (rng), Status (rng), false);
    };
    kinds.push_back (material);

    ItemKind building = PickerKind (
        "BuildingMaterial",
        [] (Rng& rng) {
            return new AttributeListBuildingMaterialItem (Name ("BuildingMaterial"), Wg::Icon (), SampleProvider (rng), SomeIndex (rng),
                                                          Status (rng), false);
        },
        [] (AttributePickerListItem& item, Rng& rng) {
            static_cast<AttributeListBuildingMaterialItem&> (item).SetBuildingMaterial (SomeIndex (rng));
        },
        [] (const AttributePickerListItem& item) {
            return IndexText (static_cast<const AttributeListBuildingMaterialItem&> (item).GetBuildingMaterial ());
        });
    building.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateBuildingMaterialItem (asMaster, Name ("BuildingMaterial"), Wg::Icon (), SampleProvider (rng), SomeIndex (rng),
                                                 Status (rng), false);
    };
    kinds.push_back (building);
}

std::vector<ItemKind> MakeKinds ()
{
    std::vector<ItemKind> kinds;

    ItemKind selection;
    selection.name = "Selection";
    selection.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        auto* item = new AttributeListSelectionItem (Name ("Selection"), Wg::Icon (), Status (rng), false);
        for (int i = 0; i < 3; ++i) item->AddItem (Entry (rng));
        item->SelectItem (1);
        return item;
    };
    selection.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        auto* item = list.CreateSelectionItem (Name ("Selection"), Wg::Icon (), Status (rng), false);
        if (item != nullptr)
            for (int i = 0; i < 4; ++i) item->AddItem (Entry (rng));
        return item;
    };
    selection.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        auto* item = group.CreateSelectionItem (asMaster, Name ("Selection"), Wg::Icon (), Status (rng), false);
        if (item != nullptr) item->AddItem (Entry (rng));
        return item;
    };
    selection.poke = [] (AttributeListSimpleItem& item, Rng& rng) { PokeSelection (As<AttributeListSelectionItem> (item), rng); };
    selection.read = [] (const AttributeListSimpleItem& item) {
        return std::to_string (As<AttributeListSelectionItem> (item).GetSelected ());
    };
    kinds.push_back (selection);

    ItemKind text;
    text.name = "Text";
    text.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        auto* item = new AttributeListTextItem (Name ("Text"), Wg::Icon (), "abc", false, Chance (rng, 85), Chance (rng, 30), Status (rng), false);
        if (Chance (rng, 40)) item->AddStringItem ("listed");
        return item;
    };
    text.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateTextItem (Name ("Text"), Wg::Icon (), "xyz", Chance (rng, 20), Chance (rng, 85), Chance (rng, 30), Status (rng), false);
    };
    text.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateTextItem (asMaster, Name ("Text"), Wg::Icon (), "", false, Chance (rng, 85), false, Status (rng), false);
    };
    text.poke = [] (AttributeListSimpleItem& item, Rng& rng) { PokeText (As<AttributeListTextItem> (item), rng); };
    text.read = [] (const AttributeListSimpleItem& item) { return As<AttributeListTextItem> (item).GetText ().ToUtf8 (); };
    text.typing = [] (const AttributeListSimpleItem& item, Rng& rng) -> std::optional<ItemKind::Typing> {
        const auto& textItem = As<AttributeListTextItem> (item);
        if (textItem.GetAutoCustomHandling ()) return std::nullopt;
        ItemKind::Typing typing;
        const std::string typed = "typed" + std::to_string (Pick (rng, 100000));
        typing.text = Kor::UniString (typed);
        typing.expected = typed;
        return typing;
    };
    kinds.push_back (text);

    ItemKind tagged = text;
    tagged.name = "TaggedText";
    tagged.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListTaggedTextItem (Name ("TaggedText"), Wg::Icon (), "tagged", false, Chance (rng, 85), false, Status (rng),
                                                false, "tag");
    };
    tagged.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateTaggedTextItem (Name ("TaggedText"), Wg::Icon (), "", false, true, false, Status (rng), false,
                                          Chance (rng, 50) ? ExtremeText (rng) : Kor::UniString ("tag"));
    };
    tagged.createInGroup = nullptr;
    kinds.push_back (tagged);

    ItemKind dictionary;
    dictionary.name = "Dictionary";
    dictionary.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListDictionaryItem (Name ("Dictionary"), Wg::Icon (), "word", Status (rng), false);
    };
    dictionary.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateDictionaryItem (Name ("Dictionary"), Wg::Icon (), "", Status (rng), false);
    };
    dictionary.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateDictionaryItem (asMaster, Name ("Dictionary"), Wg::Icon (), "entry", Status (rng), false);
    };
    dictionary.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& dict = As<AttributeListDictionaryItem> (item);
        if (Chance (rng, 60))
            dict.SetText (ExtremeText (rng));
        else
            PokeSelection (dict, rng);
    };
    dictionary.read = [] (const AttributeListSimpleItem& item) { return As<AttributeListDictionaryItem> (item).GetText ().ToUtf8 (); };
    dictionary.typing = [] (const AttributeListSimpleItem&, Rng& rng) -> std::optional<ItemKind::Typing> {
        ItemKind::Typing typing;
        const std::string typed = "word" + std::to_string (Pick (rng, 100000));
        typing.text = Kor::UniString (typed);
        typing.expected = typed;
        return typing;
    };
    kinds.push_back (dictionary);

    kinds.push_back (RealKind<AttributeListRealItem, &AttributeList::CreateRealItem, &AttributeListGroupItem::CreateRealItem> ("Real", true));
    kinds.push_back (
        RealKind<AttributeListLengthItem, &AttributeList::CreateLengthItem, &AttributeListGroupItem::CreateLengthItem> ("Length", false));
    kinds.push_back (RealKind<AttributeListAreaItem, &AttributeList::CreateAreaItem, &AttributeListGroupItem::CreateAreaItem> ("Area", false));
    kinds.push_back (
        RealKind<AttributeListVolumeItem, &AttributeList::CreateVolumeItem, &AttributeListGroupItem::CreateVolumeItem> ("Volume", false));
    kinds.push_back (
        RealKind<AttributeListAngleItem, &AttributeList::CreateAngleItem, &AttributeListGroupItem::CreateAngleItem> ("Angle", false));
    {
        ItemKind polar = RealKind<AttributeListPolarAngleItem, &AttributeList::CreateAngleItem, &AttributeListGroupItem::CreateAngleItem> (
            "PolarAngle", false);
        // Neither the list nor a group creates one: the caller always owns it.
        polar.createInList = nullptr;
        polar.createInGroup = nullptr;
        kinds.push_back (polar);
    }

    ItemKind integer;
    integer.name = "Int";
    integer.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        const bool extreme = Chance (rng, 20);
        return new AttributeListIntItem (Name ("Int"), Wg::Icon (), extreme ? ExtremeInt (rng) : IntLow, extreme ? ExtremeInt (rng) : IntHigh,
                                         extreme ? ExtremeInt (rng) : Pick (rng, 100), Chance (rng, 85), Status (rng), false);
    };
    integer.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateIntItem (Name ("Int"), Wg::Icon (), IntLow, IntHigh, Pick (rng, 100), Chance (rng, 85), Status (rng), false);
    };
    integer.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateIntItem (asMaster, Name ("Int"), Wg::Icon (), IntLow, IntHigh, -Pick (rng, 100), Chance (rng, 85), Status (rng),
                                    false);
    };
    integer.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& intItem = As<AttributeListIntItem> (item);
        switch (Pick (rng, 5)) {
            case 0: intItem.SetValue (ExtremeInt (rng)); break;
            case 1: intItem.SetMinValue (ExtremeInt (rng)); break;
            case 2: intItem.SetMaxValue (ExtremeInt (rng)); break;
            case 3: intItem.SetValue (ExtremeReal (rng)); break;
            default: PokeSelection (intItem, rng); break;
        }
    };
    integer.read = [] (const AttributeListSimpleItem& item) { return std::to_string (As<AttributeListIntItem> (item).GetValue ()); };
    integer.typing = [] (const AttributeListSimpleItem& item, Rng& rng) -> std::optional<ItemKind::Typing> {
        const auto& intItem = As<AttributeListIntItem> (item);
        const long long low = std::max (intItem.GetMinValue (), IntLow), high = std::min (intItem.GetMaxValue (), IntHigh);
        if (low >= high) return std::nullopt;
        long long value = low + Pick (rng, static_cast<int> (high - low + 1));
        if (value == intItem.GetValue ()) value = value == high ? low : value + 1;
        ItemKind::Typing typing;
        typing.text = Kor::UniString (std::to_string (value));
        typing.expected = std::to_string (value);
        return typing;
    };
    kinds.push_back (integer);

    ItemKind check;
    check.name = "Check";
    check.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListCheckItem (Name ("Check"), Wg::Icon (), Chance (rng, 50), "on", Status (rng), false);
    };
    check.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateCheckItem (Name ("Check"), Wg::Icon (), Chance (rng, 50), "", Status (rng), false);
    };
    check.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateCheckItem (asMaster, Name ("Check"), Wg::Icon (), Chance (rng, 50), "visible", Status (rng), false);
    };
    check.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& checkItem = As<AttributeListCheckItem> (item);
        switch (Pick (rng, 3)) {
            case 0: checkItem.SetChecked (Chance (rng, 50)); break;
            case 1: checkItem.SetCheckName (ExtremeText (rng)); break;
            default: checkItem.InvertCheckAndNotify (); break;
        }
    };
    check.read = [] (const AttributeListSimpleItem& item) { return std::string (As<AttributeListCheckItem> (item).IsChecked () ? "on" : "off"); };
    kinds.push_back (check);

    ItemKind button;
    button.name = "Button";
    button.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListButtonItem (Name ("Button"), Wg::Icon (), "Apply", Status (rng), false);
    };
    button.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateButtonItem (Name ("Button"), Wg::Icon (), "Close", Status (rng), false);
    };
    button.poke = [] (AttributeListSimpleItem& item, Rng& rng) { As<AttributeListButtonItem> (item).SetButtonText (ExtremeText (rng)); };
    kinds.push_back (button);

    ItemKind iconButton;
    iconButton.name = "IconButton";
    iconButton.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListIconButtonItem (Name ("IconButton"), Wg::Icon (), "text", "tag", Wg::Icon (), Status (rng), false);
    };
    iconButton.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateIconButtonItem (Name ("IconButton"), Wg::Icon (), "", "", Wg::Icon (), Status (rng), false);
    };
    iconButton.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateIconButtonItem (asMaster, Name ("IconButton"), Wg::Icon (), "t", "g", Wg::Icon (), Status (rng), false);
    };
    iconButton.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& b = As<AttributeListIconButtonItem> (item);
        switch (Pick (rng, 4)) {
            case 0: b.SetText (ExtremeText (rng)); break;
            case 1: b.SetTagText (ExtremeText (rng)); break;
            case 2: b.SetButtonIcon (Wg::Icon ()); break;
            default: b.SetButtonIconAlwaysActive (Chance (rng, 50)); break;
        }
    };
    kinds.push_back (iconButton);

    ItemKind slider;
    slider.name = "Slider";
    slider.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        auto* item = new AttributeListSliderItem ();
        item->SetMinValue (Chance (rng, 80) ? 0 : ExtremeInt (rng));
        item->SetMaxValue (Chance (rng, 80) ? 100 : ExtremeInt (rng));
        item->SetValue (Pick (rng, 101));
        return item;
    };
    slider.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& s = As<AttributeListSliderItem> (item);
        switch (Pick (rng, 3)) {
            case 0: s.SetValue (ExtremeInt (rng)); break;
            case 1: s.SetMinValue (ExtremeInt (rng)); break;
            default: s.SetMaxValue (ExtremeInt (rng)); break;
        }
    };
    slider.read = [] (const AttributeListSimpleItem& item) { return std::to_string (As<AttributeListSliderItem> (item).GetValue ()); };
    kinds.push_back (slider);

    ItemKind interval;
    interval.name = "Interval";
    interval.make = [] (Rng& rng) -> AttributeListSimpleItem* {
        return new AttributeListIntervalItem (Name ("Interval"), Wg::Icon (), 1.0, 2.0, "to", Chance (rng, 30), Status (rng), false);
    };
    interval.createInList = [] (AttributeList& list, Rng& rng) -> AttributeListSimpleItem* {
        return list.CreateIntervalItem (Name ("Interval"), Wg::Icon (), -1.0, 1.0, "", Chance (rng, 30), Status (rng), false);
    };
    interval.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng& rng) -> AttributeListSimpleItem* {
        return group.CreateIntervalItem (asMaster, Name ("Interval"), Wg::Icon (), 0.0, 3.0, "..", false, Status (rng), false);
    };
    interval.poke = [] (AttributeListSimpleItem& item, Rng& rng) {
        auto& i = As<AttributeListIntervalItem> (item);
        Chance (rng, 50) ? i.SetIntervalBeg (ExtremeReal (rng)) : i.SetIntervalEnd (ExtremeReal (rng));
    };
    interval.read = [] (const AttributeListSimpleItem& item) {
        const auto& i = As<AttributeListIntervalItem> (item);
        return RealText (i.GetIntervalBeg ()) + ".." + RealText (i.GetIntervalEnd ());
    };
    kinds.push_back (interval);

    ItemKind info;
    info.name = "Info";
    info.make = [] (Rng& rng) -> AttributeListSimpleItem* { return new AttributeListInfoItem (Name ("Info"), Wg::Icon (), Status (rng), false); };
    info.poke = [] (AttributeListSimpleItem& item, Rng& rng) { As<AttributeListInfoItem> (item).SetAttributeInfoText (ExtremeText (rng)); };
    kinds.push_back (info);

    ItemKind separator;
    separator.name = "Separator";
    separator.make = [] (Rng&) -> AttributeListSimpleItem* { return new AttributeListSeparatorItem (); };
    separator.createInList = [] (AttributeList& list, Rng&) -> AttributeListSimpleItem* { return list.CreateSeparatorItem (); };
    separator.createInGroup = [] (AttributeListGroupItem& group, bool asMaster, Rng&) -> AttributeListSimpleItem* {
        // A separator is never a master.
        return asMaster ? nullptr : group.CreateSeparatorItem ();
    };
    separator.poke = [] (AttributeListSimpleItem&, Rng&) {};
    kinds.push_back (separator);

    AddPickerKinds (kinds);
    return kinds;
}

}   // namespace

const std::vector<ItemKind>& ItemKinds ()
{
    static const std::vector<ItemKind> kinds = MakeKinds ();
    return kinds;
}

}   // namespace TxALFuzz
