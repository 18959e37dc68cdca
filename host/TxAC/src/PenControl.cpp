#include "TxAC/PenControl.hpp"

#include "TxAC/SetupData.hpp"

namespace TxAC {

namespace {

// The pen table behind a pen picker's user data; null when there is none.
const TxAttr::PenTable* FindPenTable (const void* userData, ODB::ConstRef<ADB::AttributeSet>& set)
{
    const auto* data = static_cast<const PenControlData*> (userData);
    if (data == nullptr || data->GetAttributeSetProvider () == nullptr) return nullptr;
    set = data->GetAttributeSetProvider ()->GetAttributeSet ();
    if (!set.Load ()) return nullptr;
    const ODB::ConstRef<ADB::Attribute> table = set->GetConstActiveAttribute (TxAttr::idPenTable);
    // The table is kept alive by the set, which the caller holds.
    return table.Load () ? ADB::AttributeCast<TxAttr::PenTable> (table.Get ()) : nullptr;
}

// Answers the messages of a pen palette whose first `extra` entries are given by extraEntry.
template <typename ExtraEntry>
void AnswerPens (Pk257CallBackRec* record, int extra, ExtraEntry&& extraEntry)
{
    if (record == nullptr) return;
    ODB::ConstRef<ADB::AttributeSet> set;
    const TxAttr::PenTable* table = FindPenTable (record->userData, set);
    switch (record->message) {
        case Pk257CallBackRec::CountMessage:
            record->entryCount = table != nullptr ? static_cast<std::int32_t> (TxAttr::PenTable::MaxPenIndex) + extra : 0;
            break;
        case Pk257CallBackRec::EntryMessage: {
            if (table == nullptr) break;
            if (record->entry >= 1 && record->entry <= extra) {
                extraEntry (*record);
                break;
            }
            const auto index = static_cast<short> (record->entry - extra);
            const TxAttr::Pen* pen = table->GetPenPtr (index);
            if (pen == nullptr) break;
            record->value = index;
            record->text = Kor::UniString::Printf ("%d", static_cast<int> (index));
            record->color = RGBColorToGfxColor (pen->color);
            record->hasColor = true;
            break;
        }
        default: break;
    }
}

}   // namespace

short PenControlData::GetPenWeightUnit ()
{
    const SetupData* setup = GetSetupData ();
    return setup != nullptr ? setup->penWeightUnit : static_cast<short> (SetupData::Millimetres);
}

void PenControlCallBack (Pk257CallBackRec* record)
{
    AnswerPens (record, 0, [] (Pk257CallBackRec&) {});
}

void PenWithNullControlCallBack (Pk257CallBackRec* record)
{
    AnswerPens (record, 1, [] (Pk257CallBackRec& entry) {
        constexpr short NullPen = -1;
        entry.value = NullPen;
        const SetupData* setup = GetSetupData ();
        entry.text = setup != nullptr ? setup->nullPenText : Kor::UniString ();
        // The null pen draws nothing: a white swatch with the label.
        entry.color = Gfx::Color::White;
        entry.hasColor = true;
    });
}

void BuildingMaterialControlCallBack (Pk257CallBackRec* record)
{
    if (record == nullptr) return;
    const auto* provider = static_cast<const ADB::IAttributeSetProvider*> (record->userData);
    ODB::ConstRef<ADB::AttributeSet> set = provider != nullptr ? provider->GetAttributeSet () : ODB::ConstRef<ADB::AttributeSet> ();
    if (!set.Load ()) {
        if (record->message == Pk257CallBackRec::CountMessage) record->entryCount = 0;
        return;
    }
    const std::vector<ADB::AttributeIndex> indices = set->GetAttributeIndices (TxAttr::idBuildingMaterial);
    switch (record->message) {
        case Pk257CallBackRec::CountMessage: record->entryCount = static_cast<std::int32_t> (indices.size ()); break;
        case Pk257CallBackRec::EntryMessage:
            if (record->entry >= 1 && record->entry <= static_cast<std::int32_t> (indices.size ())) {
                const ADB::AttributeIndex index = indices[static_cast<std::size_t> (record->entry - 1)];
                record->value = index.ToLegacyAttributeIndex_Deprecated ();
                record->text = set->FindAttribute (TxAttr::idBuildingMaterial, index)->GetName ();
            }
            break;
        case Pk257CallBackRec::DescribeMessage: {
            if (record->typeCode != BuildingMaterialTypeCode) return;
            const auto* material = TxAttr::FindAttribute<TxAttr::BuildingMaterial> (
                *set, TxAttr::idBuildingMaterial, ADB::AttributeIndex::FromLegacyAttributeIndex (record->attributeIndex));
            // An unknown material has no description (size 0).
            if (material == nullptr) return;
            const bool hasFill = set->FindAttribute (TxAttr::idFill, material->GetCutFill ()) != nullptr;
            const bool hasSurface = set->FindAttribute (TxAttr::idMaterial, material->GetSurface ()) != nullptr;
            const Pk::AttributeDescription description ((hasFill ? 1 : 0) + (hasSurface ? 1 : 0), hasFill ? 1 : 0, hasSurface ? 1 : 0);
            description.Answer (*record);
            break;
        }
        default: break;
    }
}

Gfx::Color RGBColorToGfxColor (const TxAttr::RGBColor& color)
{
    constexpr int HighByte = 8;
    return Gfx::Color (static_cast<std::uint8_t> (color.red >> HighByte), static_cast<std::uint8_t> (color.green >> HighByte),
                       static_cast<std::uint8_t> (color.blue >> HighByte));
}

}   // namespace TxAC
