#pragma once
// The property list's test bed: property definitions made on the spot, a host handler that
// keeps a custom value and a default and logs what the list asks it to store, a collector over
// such handlers, and a list with a container on it. Handler calls and container notifications
// go into one log, in the order they happen: "Set(Height=2.5) Changed(Height)".

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "AttributeListTestSupport.hpp"
#include "Kor/Assert.hpp"
#include "Property/PropertyDefinition.hpp"
#include "TxAttributeList/PropertyListItemContainer.hpp"
#include "TxAttributeList/PropertyListItems.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/WorkingUnits.hpp"

namespace PropertyListTest {

using Kor::DynamicValue;
using Property::MeasureType;
using Property::PropertyCollectionType;
using Property::PropertyValueType;
using TxAL::IUserDefinedPropertyHandler;
using TxAL::PropertyListItem;

// A value as the log writes it: its display text with three decimals, "undef" for a
// user-undefined one, "null" for none.
inline std::string Text (const DynamicValue* value)
{
    if (value == nullptr) return "null";
    if (value->GetStatus () == DynamicValue::UserUndefined) return "undef";
    if (const auto* list = Kor::DynamicCast<Kor::StringListValue> (value)) {
        std::string out = "[";
        for (const Kor::UniString& entry : list->GetValue ()) out += (out.size () > 1 ? "," : "") + entry.ToUtf8 ();
        return out + "]";
    }
    return value->ToDisplayText (Kor::DynamicValueConversionRules (3, Kor::DynamicValueConversionRules::HideTrailingZeros)).ToUtf8 ();
}

// A guid made of one number, so that tests can name guids.
inline Kor::Guid MakeGuid (std::uint8_t high, std::uint8_t low)
{
    std::array<std::uint8_t, 16> bytes {};
    bytes[0] = high;
    bytes[15] = low;
    return Kor::Guid (bytes);
}

// Groups are told apart by their names, which are also their primary ids.
inline Kor::ConstSharedPtr<Property::PropertyDefinitionGroup> MakeGroup (const char* name, std::uint8_t number)
{
    return std::make_shared<const Property::PropertyDefinitionGroup> (MakeGuid (1, number), Property::PropertyDefinitionGroupUserId (name), name,
                                                                      std::string (name) + " description");
}

// What a test definition is: a name, its types and optionally its group and descriptor.
struct DefinitionFields {
    DefinitionFields (const char* name = "P", PropertyValueType valueType = PropertyValueType::Real, MeasureType measure = MeasureType::Number,
                    PropertyCollectionType collection = PropertyCollectionType::Single,
                    Kor::ConstSharedPtr<Property::PropertyDefinitionGroup> group = {}, Kor::ConstSharedPtr<Property::IValueDescriptor> descriptor = {})
        : name (name), valueType (valueType), measure (measure), collection (collection), group (std::move (group)), descriptor (std::move (descriptor))
    {
    }

    const char*                                            name;
    PropertyValueType                                      valueType;
    MeasureType                                            measure;
    PropertyCollectionType                                 collection;
    Kor::ConstSharedPtr<Property::PropertyDefinitionGroup> group;
    Kor::ConstSharedPtr<Property::IValueDescriptor>        descriptor;
};

inline Kor::ConstSharedPtr<Property::PropertyDefinition> MakeDefinition (const DefinitionFields& fields)
{
    static std::uint8_t next = 0;
    Property::PropertyDefinition::Data data;
    data.guid = MakeGuid (2, ++next);
    data.name = fields.name;
    data.description = std::string (fields.name) + " text";
    data.group = fields.group.IsNull () ? MakeGroup ("Common", 1) : fields.group;
    data.valueType = fields.valueType;
    data.collectionType = fields.collection;
    data.measure = Property::Measure (fields.measure);
    data.valueDescriptor = fields.descriptor;
    return std::make_shared<const Property::PropertyDefinition> (std::move (data));
}

// An enumeration "Status" of New, Existing, Demolish; keys (3, 1..3).
inline Kor::ConstSharedPtr<Property::IValueDescriptor> MakeStatusEnumeration (bool multiValue)
{
    Kor::Array<Property::EnumerationValue> values;
    const char* names[] = {"New", "Existing", "Demolish"};
    for (std::uint8_t i = 0; i < 3; ++i) values.Push ({MakeGuid (3, static_cast<std::uint8_t> (i + 1)), names[i], names[i], {}});
    return std::shared_ptr<const Property::IValueDescriptor> (std::make_shared<const Property::EnumerationValueDescriptor> (values, multiValue));
}

// A host handler: a default value, maybe a custom one, and a log of what it was asked to store.
class FakeHandler : public IUserDefinedPropertyHandler {
public:
    FakeHandler (Kor::ConstSharedPtr<Property::PropertyDefinition> definition, std::string& log) : definition (std::move (definition)), log (log) {}

    Kor::ConstSharedPtr<Property::PropertyDefinition> GetPropertyDefinition () override { return definition; }
    DisplayMode GetDisplayMode () override { return displayMode; }
    Kor::Owner<DynamicValue> GetValue (const Kor::DynamicValueConversionRules&) override
    {
        ++getValueCalls;
        const DynamicValue* shown = custom != nullptr ? custom.Get () : defaultValue.Get ();
        return shown == nullptr ? nullptr : shown->Clone ();
    }
    PropertyListItem::DefaultValueType GetDefaultValueType () override { return defaultValueType; }
    bool           HasCustomValue () const override { return custom != nullptr; }
    bool           ValueIsEditable () const override { return editable; }
    void           SetValue (const DynamicValue* value) override
    {
        Write ("Set(" + Name () + "=" + Text (value) + ")");
        custom = value == nullptr ? nullptr : value->Clone ();
    }
    void           RemoveCustomValue () override
    {
        Write ("Remove(" + Name () + ")");
        custom = nullptr;
    }
    Kor::UniString GetDescription () override { return description; }

    std::string Name () const { return definition->GetName ().ToUtf8 (); }
    void        Write (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }

    Kor::ConstSharedPtr<Property::PropertyDefinition> definition;
    std::string&                                      log;
    Kor::Owner<DynamicValue>                          defaultValue;
    Kor::Owner<DynamicValue>                          custom;
    DisplayMode                                       displayMode = NormalDisplay;
    PropertyListItem::DefaultValueType                defaultValueType = PropertyListItem::ValueDefault;
    bool                                              editable = true;
    Kor::UniString                                    description = "  Tool tip  ";
    int                                               getValueCalls = 0;
};

// Hands out its handlers in their order; by guid, in the order of the guids asked for.
class FakeCollector : public TxAL::IUserDefinedPropertyHandlerCollector {
public:
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers (const Kor::Array<Kor::Guid>& guids) override
    {
        ++byGuidCalls;
        Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> found;
        for (const Kor::Guid& guid : guids)
            for (const Kor::Ref<FakeHandler>& handler : handlers)
                if (handler->definition->GetGuid () == guid) found.Push (handler);
        return found;
    }
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> CollectUserDefinedPropertyHandlers () override
    {
        ++allCalls;
        Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>> all;
        for (const Kor::Ref<FakeHandler>& handler : handlers) all.Push (handler);
        return all;
    }

    Kor::Array<Kor::Ref<FakeHandler>> handlers;
    int                               allCalls = 0;
    int                               byGuidCalls = 0;
};

// Logs the container's notifications into the shared log.
class ContainerLog : public TxAL::PropertyListItemContainerObserver {
public:
    explicit ContainerLog (std::string& log) : log (log) {}
    void PropertyChanged (const TxAL::PropertyListItemContainer& container, const Kor::Guid& guid) override
    {
        std::string name = "?";
        for (const Kor::Ref<PropertyListItem>& item : container.GetPropertyItems ())
            if (const Kor::Guid* itemGuid = container.GetPropertyGuid (*item); itemGuid != nullptr && *itemGuid == guid)
                name = item->GetValueAttributeListItem ().GetName ().ToUtf8 ();
        log += (log.empty () ? "" : " ") + ("Changed(" + name + ")");
    }

private:
    std::string& log;
};

class PropertyListFixture : public ::testing::Test {
protected:
    PropertyListFixture ()
    {
        Runner ().ClearScript ();
        container.Attach (containerLog);
    }
    ~PropertyListFixture () override
    {
        Runner ().ClearScript ();
        Wg::SetWorkingUnits (savedUnits);
    }

    static Wg::ScriptedModalRunner& Runner () { return Wg::GetHeadlessModalRunner (); }

    FakeHandler& Add (const DefinitionFields& fields, Kor::Owner<DynamicValue> defaultValue = nullptr, Kor::Owner<DynamicValue> custom = nullptr)
    {
        auto handler = Kor::NewRef<FakeHandler> (MakeDefinition (fields), log);
        handler->defaultValue = std::move (defaultValue);
        handler->custom = std::move (custom);
        collector.handlers.Push (handler);
        return *handler;
    }

    // Builds the rows (or appends the built ones again) and refreshes the list.
    void Show ()
    {
        container.AppendToAttributeList (*harness.list);
        harness.list->FullRefreshList (false);
    }
    std::string Rows () const { return harness.Rows (); }
    std::string Take ()
    {
        std::string taken;
        taken.swap (log);
        return taken;
    }

    TxAL::OnTabItems& Controls () { return harness.list->GetOnTabItems (); }
    short ValueColumn () const { return harness.list->GetAttributeNameColumnIndex (); }
    void  SelectRow (short row) { harness.ClickColumn (row, harness.list->GetAttributeTypeColumnIndex ()); }
    // Chooses an entry (1-based: default, separator, custom, status) of a row's icon-column popup.
    void  ChoosePopupEntry (short row, int entry)
    {
        SelectRow (row);
        Runner ().QueueChoose (entry);
        Controls ().GetIconColumnPopup ().UserPress ();
    }
    // The entries of the icon-column popup as the user sees it; the checked entry is marked.
    std::string PopupEntries (short row)
    {
        SelectRow (row);
        std::string out;
        const Pk::PopupControl& popup = Controls ().GetIconColumnPopup ();
        for (short i = 1; i <= popup.GetItemCount (); ++i) {
            if (!out.empty ()) out += " | ";
            out += popup.IsSeparator (i) ? "---" : popup.GetItemText (i).ToUtf8 ();
            if (popup.GetValue () == i) out += " *";
        }
        return out;
    }

    std::string        log;
    FakeCollector      collector;
    // Edits report once, when the user confirms: every edit reaches the host exactly once.
    TxALTest::ListHarness harness {TxAL::AttributeList::OptionalParameters ().SetEditControlAutoUpdate (false)};
    TxAL::PropertyListItemContainer container {collector};
    ContainerLog       containerLog {log};

private:
    const Wg::WorkingUnits savedUnits = Wg::GetWorkingUnits ();
};

}   // namespace PropertyListTest
