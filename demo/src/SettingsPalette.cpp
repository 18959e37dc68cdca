#include "SettingsPalette.hpp"

#include <cmath>

#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace Demo {

namespace {

constexpr int Margin = 0;

// Icons of the library's resource module that mark the kind of a row.
constexpr int TextIcon = 2001;
constexpr int LengthIcon = 2002;
constexpr int AreaIcon = 2003;
constexpr int VolumeIcon = 2004;
constexpr int AngleIcon = 2005;
constexpr int NumberIcon = 2006;
constexpr int CheckIcon = 2007;
constexpr int MaterialIcon = 2010;
constexpr int PropertyIcon = 28115;
constexpr int CalculateIcon = 31893;

constexpr double MaxLength = 1000.0;
constexpr double MaxArea = 1.0e6;
constexpr double MaxVolume = 1.0e7;
constexpr int    PercentMax = 100;
constexpr int    DetailStep = 10;

const char* const Layers[] = {"Walls - Exterior", "Walls - Interior", "Slabs", "Doors", "Windows", "Zones"};
const char* const Structures[] = {"Basic", "Composite", "Profile"};
const char* const FireRatings[] = {"-", "EI30", "EI60", "EI90", "REI60", "REI90"};
const char* const ConcreteClasses[] = {"C20/25", "C25/30", "C30/37", "C35/45"};
const char* const Swings[] = {"Left", "Right", "Tilt and turn", "Top hung", "Fixed"};
const char* const Occupancies[] = {"Residential", "Office", "Storage"};
const char* const Profiles[] = {"Masonry 365", "Masonry 240", "Drywall 115", "Concrete 250", "Concrete 220", "Timber frame 200"};

Wg::Icon LibIcon (int id)
{
    return TxAL::GetResourceIcon (id);
}

double Number (const Element& element, const std::string& key)
{
    const auto text = element.Get (key);
    if (!text) return 0.0;
    return ParseNumber (*text).value_or (0.0);
}

std::string Text (const Element& element, const std::string& key)
{
    return element.Get (key).value_or (std::string ());
}

bool Yes (const Element& element, const std::string& key)
{
    return Text (element, key) == "yes";
}

// Selects the entry whose text is the value.
template <typename Choices>
void AddChoices (TxAL::AttributeListSelectionItem& item, const Choices& choices, const std::string& value)
{
    short index = 1;
    short selected = -1;
    for (const char* choice : choices) {
        TxAL::AttributeListItem::PopupItem entry;
        entry.SetText (choice);
        item.AddItem (entry);
        if (value == choice) selected = index;
        ++index;
    }
    item.SelectItem (selected);
}

}   // namespace

SettingsPalette::SettingsPalette (Wg::Panel& panel, BuildingModel& model)
    : panel (panel),
      model (model),
      listBox (panel, Wg::Rect (Margin, Margin, panel.GetWidth () - Margin, panel.GetHeight () - Margin), ListBoxId,
               Wg::ListBox::VScroll, true),
      percentStrategy (1),
      detailStrategy (DetailStep),
      list (panel, ListBoxId,
            TxAL::AttributeList::OptionalParameters ()
                .SetHeaderString1 ("Setting")
                .SetHeaderString2 ("Value")
                .SetHeaderType (TxAL::AttributeList::SynchronizedHeader)),
      attributeRows ([this] (TxAL::AttributeListItem* item, const std::string& key) { Bind (item, key); },
                     [this] (const TxAL::AttributeListItem& item, const std::string& value) { Store (item, value); })
{
    // Whole numbers take effect when confirmed (Return, Tab, leaving the edit), not at each
    // keystroke: a slider's strategy then snaps the number the user meant.
    list.GetOnTabItems ().GetIntEdit ().SetAutoUpdate (false);
    const auto storeStep = [this] (const TxAL::AttributeListSliderItem& item, int value) { Store (item, std::to_string (value)); };
    percentStrategy.keyboardStepped = storeStep;
    detailStrategy.keyboardStepped = storeStep;
    panel.Attach (*this);
}

SettingsPalette::~SettingsPalette ()
{
    list.ClearList (false);
    ownedItems.clear ();
}

std::string SettingsPalette::GetSettingKey (const TxAL::AttributeListItem* item) const
{
    auto it = keys.find (item);
    return it == keys.end () ? std::string () : it->second;
}

void SettingsPalette::ShowElement (const std::string& id)
{
    const std::string selectedKey = GetSettingKey (list.GetSelectedItem ());
    // A group the user folded stays folded for every element that has it.
    for (const TxAL::AttributeListItem* item : list.GetItems ()) {
        if (const auto* group = dynamic_cast<const TxAL::AttributeListGroupItem*> (item)) {
            const std::string name = group->GetName ().ToUtf8 ();
            if (group->IsExpanded ())
                collapsedGroups.erase (name);
            else
                collapsedGroups.insert (name);
        }
    }
    list.ClearList (false);
    ownedItems.clear ();
    keys.clear ();
    elementId = id;
    if (Element* element = model.Find (id)) Build (*element);
    list.FullRefreshList (false);
    for (const auto& [item, key] : keys) {
        if (key == selectedKey && !key.empty ()) {
            list.SelectItem (const_cast<TxAL::AttributeListItem*> (item), false);
            break;
        }
    }
}

TxAL::AttributeListGroupItem* SettingsPalette::CreateGroup (const std::string& name, const Wg::Icon& icon)
{
    return list.CreateGroup (Kor::UniString (name), icon, !collapsedGroups.contains (name), true);
}

void SettingsPalette::Bind (TxAL::AttributeListItem* item, const std::string& key)
{
    if (item != nullptr) keys[item] = key;
}

void SettingsPalette::Build (Element& element)
{
    using namespace TxAL;
    list.DisableUpdate ();
    const auto has = [&element] (const char* key) { return element.Has (key); };

    AttributeListGroupItem* general = CreateGroup ("General", LibIcon (PropertyIcon));
    auto* id = new AttributeListTaggedTextItem ("ID", LibIcon (TextIcon), element.GetId (), false, false, false, true, false, element.GetKind ());
    ownedItems.emplace_back (id);
    general->AddItem (id);
    id->SetDefaultToolTip ("The element's identifier; it cannot be changed here.");
    if (has ("name")) {
        auto* name = general->CreateTextItem (false, "Name", LibIcon (TextIcon), Text (element, "name"), false, true, false, true, false);
        name->Attach (static_cast<AttributeListTextItemObserver&> (*this));
        Bind (name, "name");
    }
    if (has ("layer")) {
        auto* layer = general->CreateTextItem (false, "Layer", LibIcon (TextIcon), Text (element, "layer"), true, true, true, true, false);
        for (const char* choice : Layers) layer->AddStringItem (choice);
        layer->SetText (Text (element, "layer"), true);
        layer->Attach (static_cast<AttributeListTextItemObserver&> (*this));
        Bind (layer, "layer");
    }
    if (has ("structure")) {
        auto* structure = general->CreateSelectionItem (false, "Structure", LibIcon (PropertyIcon), true, false);
        AddChoices (*structure, Structures, Text (element, "structure"));
        structure->Attach (static_cast<AttributeListSelectionItemObserver&> (*this));
        Bind (structure, "structure");
    }
    if (has ("profile")) {
        auto* profile = general->CreateIconButtonItem (false, "Profile", LibIcon (MaterialIcon), Text (element, "profile"), "next",
                                                      LibIcon (CalculateIcon), true, false);
        profile->SetButtonIconAlwaysActive (true);
        profile->Attach (static_cast<AttributeListIconButtonItemObserver&> (*this));
        Bind (profile, "profile");
    }
    if (has ("occupancy")) {
        auto* occupancy = general->CreateDictionaryItem (false, "Occupancy", LibIcon (TextIcon), Text (element, "occupancy"), true, false);
        occupancy->Attach (static_cast<AttributeListDictionaryItemObserver&> (*this));
        Bind (occupancy, "occupancy");
    }
    if (has ("storey")) {
        auto* storey = general->CreateIntItem (false, "Storey", LibIcon (NumberIcon), -5, 50, static_cast<int> (Number (element, "storey")),
                                               true, true, false);
        storey->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (storey, "storey");
    }
    if (has ("storeyFrom")) {
        // An element that runs through several storeys; without an upper storey it runs to the top.
        auto* storeys = general->CreateIntervalItem (false, "Storeys from", LibIcon (NumberIcon), Number (element, "storeyFrom"),
                                                     Number (element, "storeyTo"), "to", !has ("storeyTo"), true, false);
        storeys->Attach (static_cast<AttributeListIntervalItemObserver&> (*this));
        Bind (storeys, "storeyFrom");
    }

    AttributeListGroupItem* geometry = CreateGroup ("Geometry", LibIcon (LengthIcon));
    const struct {
        const char* key;
        const char* label;
    } lengths[] = {{"height", "Height"}, {"width", "Width"}, {"thickness", "Thickness"}, {"length", "Length"}, {"sillHeight", "Sill height"}};
    for (const auto& length : lengths) {
        if (!has (length.key)) continue;
        auto* item = geometry->CreateLengthItem (false, length.label, LibIcon (LengthIcon), 0.0, MaxLength, Number (element, length.key),
                                                 true, true, false);
        item->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (item, length.key);
    }
    if (has ("area")) {
        auto* area = geometry->CreateAreaItem (false, "Area", LibIcon (AreaIcon), 0.0, MaxArea, Number (element, "area"), true, true, false);
        area->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (area, "area");
    }
    if (has ("volume")) {
        auto* volume = geometry->CreateVolumeItem (false, "Volume", LibIcon (VolumeIcon), 0.0, MaxVolume, Number (element, "volume"), true,
                                                   true, false);
        volume->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (volume, "volume");
    }
    if (has ("slant")) {
        auto* slant = geometry->CreateAngleItem (false, "Slant angle", LibIcon (AngleIcon), 0.0, 90.0, Number (element, "slant"), true, true,
                                                 false);
        slant->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (slant, "slant");
    }
    if (has ("orientation")) {
        auto* orientation = new AttributeListPolarAngleItem ("Orientation", LibIcon (AngleIcon), 0.0, 360.0, Number (element, "orientation"),
                                                             true, true, false);
        ownedItems.emplace_back (orientation);
        geometry->AddItem (orientation);
        orientation->Attach (static_cast<AttributeListRealItemObserver&> (*this));
        Bind (orientation, "orientation");
    }
    if (has ("length") && has ("height")) {
        // The list offers no button factory in groups: the palette owns this one.
        auto* recalculate = new AttributeListButtonItem ("Area and volume", LibIcon (CalculateIcon), "Recalculate from the geometry", true, false);
        ownedItems.emplace_back (recalculate);
        geometry->AddItem (recalculate);
        recalculate->Attach (static_cast<AttributeListButtonItemObserver&> (*this));
        Bind (recalculate, "recalculate");
    }

    if (has ("loadBearing")) {
        AttributeListGroupItem* structure = CreateGroup ("Load-bearing structure", LibIcon (CheckIcon));
        auto* master = structure->CreateCheckItem (true, "Load-bearing structure", LibIcon (CheckIcon), Yes (element, "loadBearing"),
                                                   "Carries loads", true, true);
        master->Attach (static_cast<AttributeListCheckItemObserver&> (*this));
        Bind (master, "loadBearing");
        if (has ("fireRating")) {
            auto* rating = structure->CreateSelectionItem (false, "Fire rating", LibIcon (PropertyIcon), true, false);
            AddChoices (*rating, FireRatings, Text (element, "fireRating"));
            rating->Attach (static_cast<AttributeListSelectionItemObserver&> (*this));
            Bind (rating, "fireRating");
        }
        if (has ("concreteClass")) {
            auto* concrete = structure->CreateTextItem (false, "Concrete class", LibIcon (MaterialIcon), Text (element, "concreteClass"), true,
                                                        true, true, true, false);
            for (const char* choice : ConcreteClasses) concrete->AddStringItem (choice);
            concrete->SetText (Text (element, "concreteClass"), true);
            concrete->Attach (static_cast<AttributeListTextItemObserver&> (*this));
            Bind (concrete, "concreteClass");
        }
        if (has ("reinforcement")) {
            auto* reinforcement = structure->CreateRealItem (false, "Reinforcement", LibIcon (NumberIcon), 0.0, 10.0, Number (element, "reinforcement"),
                                                             true, true, false);
            reinforcement->SetTagText ("%");
            for (const char* preset : {"1.0", "1.5", "2.0", "2.5"}) reinforcement->AddStringItem (preset);
            reinforcement->Attach (static_cast<AttributeListRealItemObserver&> (*this));
            Bind (reinforcement, "reinforcement");
        }
    }

    if (has ("swing") || has ("glazingLayers") || has ("frameMaterial")) {
        AttributeListGroupItem* opening = CreateGroup ("Opening", LibIcon (PropertyIcon));
        if (has ("swing")) {
            auto* swing = opening->CreateSelectionItem (false, "Opening type", LibIcon (PropertyIcon), true, false);
            AddChoices (*swing, Swings, Text (element, "swing"));
            swing->Attach (static_cast<AttributeListSelectionItemObserver&> (*this));
            Bind (swing, "swing");
        }
        if (has ("glazingLayers")) {
            auto* glazing = opening->CreateIntItem (false, "Glazing layers", LibIcon (NumberIcon), 0, 4, static_cast<int> (Number (element, "glazingLayers")),
                                                    true, true, false);
            glazing->Attach (static_cast<AttributeListRealItemObserver&> (*this));
            Bind (glazing, "glazingLayers");
        }
        if (has ("frameMaterial")) {
            auto* frame = opening->CreateTextItem (false, "Frame material", LibIcon (MaterialIcon), Text (element, "frameMaterial"), false, false,
                                                   false, false, false);
            frame->SetDefaultToolTip ("Frame materials come from the catalogue and cannot be edited here.");
            Bind (frame, "frameMaterial");
        }
    }

    if (has ("heated")) {
        AttributeListGroupItem* comfort = CreateGroup ("Comfort", LibIcon (CheckIcon));
        auto* heated = comfort->CreateCheckItem (false, "Heating", LibIcon (CheckIcon), Yes (element, "heated"), "Heated zone", true, false);
        heated->Attach (static_cast<AttributeListCheckItemObserver&> (*this));
        Bind (heated, "heated");
    }

    if (ElementAttributeRows::HasRows (element)) attributeRows.AddRows (*CreateGroup ("Attributes", LibIcon (MaterialIcon)), element, ownedItems);

    if (has ("transparency") || has ("detailLevel")) {
        AttributeListGroupItem* display = list.CreateGroup ("Display", LibIcon (PropertyIcon), true, true);
        if (has ("transparency")) AddSlider (*display, "Transparency (%)", element, "transparency", &percentStrategy);
        // Levels of detail come in steps of ten.
        if (has ("detailLevel")) AddSlider (*display, "Level of detail", element, "detailLevel", &detailStrategy);
    }

    list.CreateSeparatorItem ();
    auto* info = new AttributeListInfoItem ("Element type", LibIcon (PropertyIcon), true, false);
    info->SetAttributeInfoText (element.GetKind ());
    ownedItems.emplace_back (info);
    list.AddListItem (info);

    list.EnableUpdate ();
}

void SettingsPalette::AddSlider (TxAL::AttributeListGroupItem& group, const char* label, const Element& element, const char* key,
                                 TxAL::AttributeListSliderItemStrategy* strategy)
{
    // Slider items have no factory: the palette makes and keeps them.
    auto* slider = new TxAL::AttributeListSliderItem ();
    ownedItems.emplace_back (slider);
    slider->SetName (label);
    slider->SetIcon (LibIcon (NumberIcon));
    slider->SetMinValue (0);
    slider->SetMaxValue (PercentMax);
    slider->SetValue (static_cast<int> (std::lround (Number (element, key))));
    slider->SetStrategy (strategy);
    slider->Attach (static_cast<TxAL::AttributeListSliderItemObserver&> (*this));
    group.AddItem (slider);
    Bind (slider, key);
}

void SettingsPalette::Store (const TxAL::AttributeListItem& item, const std::string& value)
{
    Element* element = model.Find (elementId);
    const std::string key = GetSettingKey (&item);
    if (element == nullptr || key.empty ()) return;
    element->Set (key, value);
    ++storedChangeCount;
}

void SettingsPalette::SelectionChanged (const TxAL::AttributeListSelectionItem& item)
{
    // A real item's presets arrive here too: the chosen preset becomes its value.
    if (const auto* real = dynamic_cast<const TxAL::AttributeListRealItem*> (&item)) {
        if (auto value = ParseNumber (item.GetSelectedString ().ToUtf8 ())) {
            const_cast<TxAL::AttributeListRealItem*> (real)->SetValue (*value);
            Store (item, FormatNumber (real->GetValue ()));
        }
        return;
    }
    Store (item, item.GetSelectedString ().ToUtf8 ());
}

void SettingsPalette::TextChanged (const TxAL::AttributeListTextItem& item)
{
    Store (item, item.GetText ().ToUtf8 ());
}

void SettingsPalette::TextChanged (const TxAL::AttributeListDictionaryItem& item)
{
    Store (item, item.GetText ().ToUtf8 ());
}

void SettingsPalette::ValueChanged (const TxAL::AttributeListRealItem& item)
{
    if (const auto* integer = dynamic_cast<const TxAL::AttributeListIntItem*> (&item))
        Store (item, std::to_string (integer->GetValue ()));
    else
        Store (item, FormatNumber (item.GetValue ()));
}

void SettingsPalette::ValueChanged (const TxAL::AttributeListSliderItem& item)
{
    Store (item, std::to_string (item.GetValue ()));
}

void SettingsPalette::ValueChanged (const TxAL::AttributeListIntervalItem& item)
{
    Element* element = model.Find (elementId);
    if (element == nullptr) return;
    element->Set ("storeyFrom", FormatNumber (item.GetIntervalBeg ()));
    if (!item.IsEndHidden ()) element->Set ("storeyTo", FormatNumber (item.GetIntervalEnd ()));
}

void SettingsPalette::CheckChanged (const TxAL::AttributeListCheckItem& item)
{
    Store (item, item.IsChecked () ? "yes" : "no");
}

void SettingsPalette::ButtonClicked (const TxAL::AttributeListButtonItem&)
{
    Recalculate ();
}

void SettingsPalette::ButtonClicked (const TxAL::AttributeListIconButtonItem& item)
{
    NextProfile (item);
}

void SettingsPalette::ButtonIconClicked (const TxAL::AttributeListIconButtonItem& item)
{
    NextProfile (item);
}

void SettingsPalette::NextProfile (const TxAL::AttributeListIconButtonItem& item)
{
    const std::string current = item.GetText ().ToUtf8 ();
    std::size_t next = 0;
    const std::size_t count = std::size (Profiles);
    for (std::size_t i = 0; i < count; ++i)
        if (current == Profiles[i]) next = (i + 1) % count;
    const_cast<TxAL::AttributeListIconButtonItem&> (item).SetText (Profiles[next]);
    Store (item, Profiles[next]);
}

void SettingsPalette::Recalculate ()
{
    Element* element = model.Find (elementId);
    if (element == nullptr) return;
    const double area = Number (*element, "length") * Number (*element, "height");
    element->Set ("area", FormatNumber (std::round (area * 100.0) / 100.0));
    if (element->Has ("thickness") && element->Has ("volume"))
        element->Set ("volume", FormatNumber (std::round (area * Number (*element, "thickness") * 100.0) / 100.0));
    // Programmatic setters: the rows refresh, nobody is notified.
    for (const auto& [item, key] : keys) {
        auto* real = dynamic_cast<TxAL::AttributeListRealItem*> (const_cast<TxAL::AttributeListItem*> (item));
        if (real != nullptr && (key == "area" || key == "volume")) real->SetValue (Number (*element, key));
    }
}

void SettingsPalette::WorkingUnitsChanged ()
{
    TxAL::OnTabItems& controls = list.GetOnTabItems ();
    for (int i = 0; i < TxAL::OnTabItems::RealEditCount; ++i) controls.GetRealEdits ()[i]->RefreshText ();
    TxAL::AttributeList::AttributeListEditFocusGuard focusGuard (list);
    list.FullRefreshList (false);
}

void SettingsPalette::PanelResized (const Wg::PanelResizeEvent&)
{
    list.SetRect (Wg::Rect (Margin, Margin, panel.GetWidth () - Margin, panel.GetHeight () - Margin));
}

}   // namespace Demo
