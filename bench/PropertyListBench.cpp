// Figures of the property list on the imported property set definitions: filling a list with
// 1,000 properties in 50 groups, and rebinding their values without rebuilding rows.
// Counter: us_per_property (time of one operation per property shown).

#include <memory>
#include <vector>

#include "BenchSupport.hpp"
#include "TxAttributeList/PropertyListItemContainer.hpp"
#include "TxImport/PsdImporter.hpp"
#include "Wg/Panel.hpp"

namespace {

constexpr int PropertiesPerGroup = 20;

// A handler with a custom value of its property's type, as a host's would have.
class BenchHandler : public TxAL::IUserDefinedPropertyHandler {
public:
    explicit BenchHandler (Kor::ConstSharedPtr<Property::PropertyDefinition> definition)
        : definition (std::move (definition)), value (this->definition->GetValueDescriptor ()->CreateValue ())
    {
    }

    Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () override { return definition; }
    DisplayMode                   GetDisplayMode () override { return AlwaysDisplayed; }
    Kor::Owner<Kor::DynamicValue> GetValue (const Kor::DynamicValueConversionRules&) override { return value->Clone (); }
    TxAL::PropertyListItem::DefaultValueType GetDefaultValueType () override { return TxAL::PropertyListItem::ValueDefault; }
    bool           HasCustomValue () const override { return true; }
    bool           ValueIsEditable () const override { return true; }
    void           SetValue (const Kor::DynamicValue* newValue) override { value = newValue->Clone (); }
    void           RemoveCustomValue () override {}
    Kor::UniString GetDescription () override { return definition->GetDescription (); }

private:
    Kor::ConstSharedPtr<Property::PropertyDefinition> definition;
    Kor::Owner<Kor::DynamicValue>                     value;
};

class BenchCollector : public TxAL::IUserDefinedPropertyHandlerCollector {
public:
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& guids) override
    {
        Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> found;
        found.reserve (guids.GetSize ());
        for (const Kor::Guid& guid : guids)
            if (const auto* handler = byGuid.GetPtr (guid)) found.Push (*handler);
        return found;
    }
    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override { return handlers; }

    Kor::Array<Kor::Ref<TxAL::IUserDefinedPropertyHandler>>               handlers;
    Kor::HashTable<Kor::Guid, Kor::Ref<TxAL::IUserDefinedPropertyHandler>> byGuid;
};

// `count` properties in groups of PropertiesPerGroup, cycling through the real definitions;
// each copy has a guid and a group of its own.
void FillCollector (BenchCollector& collector, int count)
{
    TxImport::ImportDiagnostics diagnostics;
    const std::vector<TxImport::PropertySet> sets =
        TxImport::ImportPropertySetDefinitionFolder (std::filesystem::path (TXAL_DATA_DIR) / "psd", diagnostics);
    std::vector<Kor::ConstSharedPtr<Property::PropertyDefinition>> real;
    for (const auto& set : sets)
        for (const auto& definition : set.definitions) real.push_back (definition);
    if (real.empty ()) return;
    Kor::ConstSharedPtr<Property::PropertyDefinitionGroup> group;
    for (int i = 0; i < count; ++i) {
        if (i % PropertiesPerGroup == 0) {
            const std::string name = "Set " + std::to_string (i / PropertiesPerGroup + 1);
            group = std::make_shared<const Property::PropertyDefinitionGroup> (Kor::Guid::Generate (), Property::PropertyDefinitionGroupUserId (name),
                                                                              name, "");
        }
        const Property::PropertyDefinition& source = *real[static_cast<std::size_t> (i) % real.size ()];
        Property::PropertyDefinition::Data data;
        data.guid = Kor::Guid::Generate ();
        data.name = source.GetName ();
        data.description = source.GetDescription ();
        data.group = group;
        data.valueType = source.GetValueType ();
        data.collectionType = source.GetCollectionType ();
        data.measure = source.GetMeasure ();
        data.valueDescriptor = source.GetValueDescriptor ();
        auto handler = Kor::NewRef<BenchHandler> (std::make_shared<const Property::PropertyDefinition> (std::move (data)));
        collector.handlers.Push (handler);
        collector.byGuid.Put (handler->GetPropertyDefinition ()->GetGuid (), handler);
    }
}

struct BenchPropertyList {
    explicit BenchPropertyList (int count) : panel (Wg::Rect (0, 0, 600, 800)), list (panel, 0, 0, 600, 800), container (collector)
    {
        FillCollector (collector, count);
    }
    ~BenchPropertyList () { list.ClearList (false); }

    // What a palette does to show the properties of a new selection.
    void Fill ()
    {
        list.ClearList (false);
        list.DisableUpdate ();
        container.InvalidatePropertyListItems ();
        container.AppendToAttributeList (list);
        list.EnableUpdate ();
        list.FullRefreshList (false);
    }

    Wg::Panel                       panel;
    TxAL::AttributeList             list;
    BenchCollector                  collector;
    TxAL::PropertyListItemContainer container;
};

void BM_FillPropertyList (benchmark::State& state)
{
    const int count = static_cast<int> (state.range (0));
    BenchPropertyList bench (count);
    Bench::UnitTimer timer;
    for (auto _ : state) timer.Time ([&] { bench.Fill (); });
    timer.SetCounter (state, "us_per_property", count, 1e-3);
    state.counters["rows"] = bench.list.GetListBox ().GetItemCount ();
}
BENCHMARK (BM_FillPropertyList)->Arg (1000)->Unit (benchmark::kMillisecond);

void BM_UpdatePropertyValues (benchmark::State& state)
{
    const int count = static_cast<int> (state.range (0));
    BenchPropertyList bench (count);
    bench.Fill ();
    Bench::UnitTimer timer;
    for (auto _ : state) timer.Time ([&] { bench.container.UpdatePropertyValues (); });
    timer.SetCounter (state, "us_per_property", count, 1e-3);
}
BENCHMARK (BM_UpdatePropertyValues)->Arg (1000)->Unit (benchmark::kMillisecond);

}   // namespace
