#include "ElementAttributeRows.hpp"

#include "SampleAttributes.hpp"
#include "SettingsPalette.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"

namespace Demo {

namespace {

constexpr int MaterialIcon = 2010;
constexpr int PropertyIcon = 28115;
constexpr short NoPen = TxAL::AttributeListFillItem::NoPen;

// The setting keys of the rows, in the order the rows appear.
constexpr const char* CutFillKey = "cutFill";
constexpr const char* CompositeKey = "composite";
constexpr const char* ContourPenKey = "contourPen";
constexpr const char* LineTypeKey = "lineType";
constexpr const char* ProfileKey = "profileSection";
constexpr const char* BuildingMaterialKey = "buildingMaterial";
constexpr const char* SurfaceKey = "surface";
const char* const Keys[] = {CutFillKey, CompositeKey, ContourPenKey, LineTypeKey, ProfileKey, BuildingMaterialKey, SurfaceKey};

std::string Text (const Element& element, const char* key)
{
    return element.Get (key).value_or (std::string ());
}

ADB::AttributeIndex Attribute (const Element& element, ADB::AttributeTypeId type, const char* key)
{
    return FindSampleAttribute (type, Text (element, key));
}

}   // namespace

ElementAttributeRows::ElementAttributeRows (Bind bind, Store store) : bind (std::move (bind)), store (std::move (store))
{
}

bool ElementAttributeRows::HasRows (const Element& element)
{
    for (const char* key : Keys)
        if (element.Has (key)) return true;
    return false;
}

void ElementAttributeRows::AddRows (TxAL::AttributeListGroupItem& group, const Element& element,
                                    std::vector<std::unique_ptr<TxAL::AttributeListItem>>& owned)
{
    using namespace TxAL;
    const ADB::IAttributeSetProvider* provider = &GetSampleAttributes ();
    const Wg::Icon materialIcon = GetResourceIcon (MaterialIcon);
    const Wg::Icon propertyIcon = GetResourceIcon (PropertyIcon);

    if (element.Has (CutFillKey)) {
        auto* fill = group.CreateFillItem (false, "Cut fill", materialIcon, {}, provider, AttributeListFillItem::CutFills,
                                           Attribute (element, TxAttr::idFill, CutFillKey), 1, 0, 1, NoPen, true, false);
        fill->Attach (static_cast<AttributeListFillItemObserver&> (*this));
        bind (fill, CutFillKey);
    }
    if (element.Has (CompositeKey)) {
        // Walls offer wall composites, everything else slab build-ups.
        const auto subType = element.GetKind () == "Wall" ? AttributeListCompositeItem::WallComposites : AttributeListCompositeItem::SlabComposites;
        auto* composite = new AttributeListCompositeItem ("Composite", materialIcon, provider, subType,
                                                          Attribute (element, TxAttr::idCompWall, CompositeKey), true, false);
        owned.emplace_back (composite);
        group.AddItem (composite);
        composite->Attach (static_cast<AttributeListCompositeItemObserver&> (*this));
        bind (composite, CompositeKey);
    }
    if (element.Has (ContourPenKey)) {
        const auto pen = static_cast<short> (ParseNumber (Text (element, ContourPenKey)).value_or (1.0));
        auto* contour = group.CreatePenItem (false, "Contour pen", propertyIcon, provider, AttributeListPenItem::Pen, pen, true, false);
        contour->Attach (static_cast<AttributeListPenItemObserver&> (*this));
        bind (contour, ContourPenKey);
    }
    if (element.Has (LineTypeKey)) {
        auto* line = group.CreateLineTypeItem (false, "Line type", propertyIcon, provider, AttributeListLineTypeItem::AllLineTypes,
                                               Attribute (element, TxAttr::idLineType, LineTypeKey), true, false);
        line->Attach (static_cast<AttributeListLineTypeItemObserver&> (*this));
        bind (line, LineTypeKey);
    }
    if (element.Has (ProfileKey)) {
        auto* profile = group.CreateProfileItem (false, "Profile", materialIcon, provider, AttributeListProfileItem::AllProfiles,
                                                 Attribute (element, TxAttr::idProfile, ProfileKey), nullptr, true, false);
        profile->SetSubType (AttributeListProfileItem::BeamProfiles);
        profile->Attach (static_cast<AttributeListProfileItemObserver&> (*this));
        bind (profile, ProfileKey);
    }
    if (element.Has (BuildingMaterialKey)) {
        auto* building = group.CreateBuildingMaterialItem (false, "Building material", materialIcon, provider,
                                                           Attribute (element, TxAttr::idBuildingMaterial, BuildingMaterialKey), true, false);
        building->Attach (static_cast<AttributeListBuildingMaterialItemObserver&> (*this));
        bind (building, BuildingMaterialKey);
    }
    if (element.Has (SurfaceKey)) {
        auto* surface = group.CreateMaterialItem (false, "Surface", materialIcon, provider, Attribute (element, TxAttr::idMaterial, SurfaceKey),
                                                  true, false);
        surface->Attach (static_cast<AttributeListMaterialItemObserver&> (*this));
        bind (surface, SurfaceKey);
    }
}

void ElementAttributeRows::PenChanged (const TxAL::AttributeListPenItem& item)
{
    store (item, std::to_string (item.GetPen ()));
}

void ElementAttributeRows::FillChanged (const TxAL::AttributeListFillItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idFill, item.GetFill ()));
}

void ElementAttributeRows::CompositeChanged (const TxAL::AttributeListCompositeItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idCompWall, item.GetComposite ()));
}

void ElementAttributeRows::LineTypeChanged (const TxAL::AttributeListLineTypeItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idLineType, item.GetLineType ()));
}

void ElementAttributeRows::ProfileChanged (const TxAL::AttributeListProfileItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idProfile, item.GetProfileIndex ()));
}

void ElementAttributeRows::MaterialChanged (const TxAL::AttributeListMaterialItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idMaterial, item.GetMaterial ()));
}

void ElementAttributeRows::BuildingMaterialChanged (const TxAL::AttributeListBuildingMaterialItem& item)
{
    store (item, GetSampleAttributeName (TxAttr::idBuildingMaterial, item.GetBuildingMaterial ()));
}

void OpenSelectedRowPicker (SettingsPalette& palette)
{
    TxAL::AttributeList& list = palette.GetList ();
    TxAL::AttributeListItem* item = list.GetSelectedItem ();
    if (auto* picker = dynamic_cast<TxAL::AttributePickerListItem*> (item)) {
        picker->OpenPickerPopUp ();
    } else if (dynamic_cast<TxAL::AttributeListPenItem*> (item) != nullptr) {
        Pk::Pk257& pens = list.GetOnTabItems ().GetPk257 ();
        if (list.GetListBox ().IsOnTabItem (pens)) pens.ShowAndTrackPopup ();
    }
}

}   // namespace Demo
