#include "TxAC/AttributePickerPopUp.hpp"

#include "Kor/LifeWatch.hpp"
#include "TxAC/PreviewDrawUtility.hpp"
#include "TxAttr/Attributes.hpp"

namespace TxAC {

// --- Data ---

AttributePickerData::AttributePickerData (ODB::ConstRef<ADB::AttributeSet> set, ADB::AttributeTypeId type) : set (std::move (set)), type (type)
{
    this->set.Load ();
}

FillPickerData::FillPickerData (ODB::ConstRef<ADB::AttributeSet> set) : AttributePickerData (std::move (set), TxAttr::idFill) {}
CompositePickerData::CompositePickerData (ODB::ConstRef<ADB::AttributeSet> set) : AttributePickerData (std::move (set), TxAttr::idCompWall) {}
LineTypePickerData::LineTypePickerData (ODB::ConstRef<ADB::AttributeSet> set) : AttributePickerData (std::move (set), TxAttr::idLineType) {}
ProfilePickerData::ProfilePickerData (ODB::ConstRef<ADB::AttributeSet> set) : AttributePickerData (std::move (set), TxAttr::idProfile) {}
MaterialPickerData::MaterialPickerData (ODB::ConstRef<ADB::AttributeSet> set) : AttributePickerData (std::move (set), TxAttr::idMaterial) {}
BuildingMaterialPickerData::BuildingMaterialPickerData (ODB::ConstRef<ADB::AttributeSet> set)
    : AttributePickerData (std::move (set), TxAttr::idBuildingMaterial)
{
}

// --- Observer ---

void AttributePickerPopUpObserver::TrackedAttributeChanged (const AttributePickerTrackEvent&) {}
void AttributePickerPopUpObserver::SelectedAttributeIndexChanged (const AttributePickerPopUp&, const ADB::AttributeIndex&) {}

// --- The modal session ---

// Plays the runner's steps onto the popup: Track(i), Choose(i), Cancel. The entries are read
// once, when the popup opens, so that a choice maps to what the user saw.
class AttributePickerPopUp::Session : public AttributePickerSession {
public:
    explicit Session (AttributePickerPopUp& popUp) : popUp (popUp), indices (popUp.GetEntries ()) {}

    Kind      GetKind () const override { return Kind::Picker; }
    Wg::Item* GetAnchor () const override { return const_cast<Wg::Item*> (popUp.anchor.item); }

    std::vector<Wg::ModalEntry> GetEntries () const override
    {
        std::vector<Wg::ModalEntry> entries;
        const ADB::AttributeSet* set = popUp.data->GetAttributeSet ();
        for (ADB::AttributeIndex index : indices) {
            Wg::ModalEntry entry;
            if (set != nullptr)
                if (const ADB::Attribute* attribute = set->FindAttribute (popUp.data->GetAttributeType (), index)) entry.text = attribute->GetName ();
            entry.checked = index == popUp.selected;
            entries.push_back (entry);
        }
        return entries;
    }

    int GetInitialEntry () const override
    {
        for (std::size_t i = 0; i < indices.size (); ++i)
            if (indices[i] == popUp.selected) return static_cast<int> (i) + 1;
        return 0;
    }

    void Begin () override {}

    bool Perform (const Wg::ModalStep& step) override
    {
        switch (step.op) {
            case Wg::ModalStep::Track:
                popUp.NotifyTracked (IsEntry (step.entry) ? std::optional (indices[static_cast<std::size_t> (step.entry - 1)]) : std::nullopt);
                return false;
            case Wg::ModalStep::Choose:
                // A choice of no entry is ignored: the popup stays open.
                if (!IsEntry (step.entry)) return false;
                popUp.NotifyChosen (indices[static_cast<std::size_t> (step.entry - 1)]);
                End ();
                return true;
            case Wg::ModalStep::Cancel:
                End ();
                return true;
            default:
                return false;
        }
    }

    const AttributePickerPopUp&             GetPopUp () const override { return popUp; }
    const std::vector<ADB::AttributeIndex>& GetAttributeIndices () const override { return indices; }

private:
    bool IsEntry (int entry) const { return entry >= 1 && entry <= static_cast<int> (indices.size ()); }

    // Closing ends tracking: observers hear that the pointer is over nothing.
    void End ()
    {
        MarkEnded ();
        popUp.NotifyTracked (std::nullopt);
    }

    AttributePickerPopUp&            popUp;
    std::vector<ADB::AttributeIndex> indices;
};

// --- AttributePickerPopUp ---

AttributePickerPopUp::AttributePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<AttributePickerData> data,
                                            Kor::Owner<AttributePickerFilter> ownedFilter, ADB::AttributeIndex selected, short anchorFlag)
    : anchor (anchor), data (std::move (data)), ownedFilter (std::move (ownedFilter)), filter (this->ownedFilter.Get ()), selected (selected), anchorFlag (anchorFlag)
{
}

AttributePickerPopUp::AttributePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<AttributePickerData> data,
                                            const AttributePickerFilter* borrowedFilter, ADB::AttributeIndex selected, short anchorFlag)
    : anchor (anchor), data (std::move (data)), filter (borrowedFilter), selected (selected), anchorFlag (anchorFlag)
{
}

AttributePickerPopUp::~AttributePickerPopUp () = default;

std::vector<ADB::AttributeIndex> AttributePickerPopUp::GetEntries () const
{
    const ADB::AttributeSet* set = data.IsValid () ? data->GetAttributeSet () : nullptr;
    if (set == nullptr) return {};
    if (filter != nullptr) return filter->Select (*set, data->GetAttributeType ());
    return set->GetAttributeIndices (data->GetAttributeType ());
}

void AttributePickerPopUp::DrawEntryPreview (ADB::AttributeIndex index, Gfx::DrawingContext& context, const Gfx::Rect& rect) const
{
    const ADB::AttributeSet* set = data->GetAttributeSet ();
    if (set == nullptr) return;
    switch (data->GetAttributeType ()) {
        case TxAttr::idFill:
            PreviewDrawUtility::DrawFillPattern (context, rect, *set, index, Gfx::Color::Black, Gfx::Color::White, Gfx::Color::Black, false);
            break;
        case TxAttr::idCompWall:
            PreviewDrawUtility::DrawCompWall (context, rect, *set, index, {}, {}, {}, {}, true, true, true, true, false);
            break;
        case TxAttr::idLineType:
            PreviewDrawUtility::DrawLineIntoRect (context, rect, *set, index, Gfx::Color::Black, Gfx::Color::White);
            break;
        case TxAttr::idProfile: PreviewDrawUtility::DrawProfile (context, rect, *set, index, Gfx::Color::Black, false); break;
        case TxAttr::idMaterial: PreviewDrawUtility::DrawMaterial (context, rect, *set, index, false); break;
        case TxAttr::idBuildingMaterial: PreviewDrawUtility::DrawBuildingMaterial (context, rect, *set, index, false); break;
        default: break;
    }
}

void AttributePickerPopUp::InvokePopUp ()
{
    if (open) return;
    open = true;
    Session session (*this);
    Wg::RunModal (session);
    open = false;
}

void AttributePickerPopUp::NotifyTracked (std::optional<ADB::AttributeIndex> tracked)
{
    const AttributePickerTrackEvent event (*this, tracked);
    NotifyObservers<AttributePickerPopUpObserver> ([&event] (AttributePickerPopUpObserver& observer) { observer.TrackedAttributeChanged (event); });
}

void AttributePickerPopUp::NotifyChosen (ADB::AttributeIndex chosen)
{
    NotifyObservers<AttributePickerPopUpObserver> ([this, chosen] (AttributePickerPopUpObserver& observer) {
        observer.SelectedAttributeIndexChanged (*this, chosen);
    });
}

// --- Typed popups ---

FillPickerPopUp::FillPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<FillPickerData> data, Kor::Owner<FillPickerFilter> filter,
                                  ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (std::move (filter)), selected, anchorFlag)
{
}

FillPickerPopUp::FillPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<FillPickerData> data, const AttributeListAndFolderFilter* customFilter,
                                  ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), static_cast<const AttributePickerFilter*> (customFilter), selected, anchorFlag)
{
}

CompositePickerPopUp::CompositePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<CompositePickerData> data,
                                            Kor::Owner<CompositePickerFilter> filter, ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (std::move (filter)), selected, anchorFlag)
{
}

CompositePickerPopUp::CompositePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<CompositePickerData> data,
                                            const AttributeListAndFolderFilter* customFilter, ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), static_cast<const AttributePickerFilter*> (customFilter), selected, anchorFlag)
{
}

LineTypePickerPopUp::LineTypePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<LineTypePickerData> data,
                                          Kor::Owner<LineTypePickerFilter> filter, ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (std::move (filter)), selected, anchorFlag)
{
}

LineTypePickerPopUp::LineTypePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<LineTypePickerData> data,
                                          const AttributeListAndFolderFilter* customFilter, ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), static_cast<const AttributePickerFilter*> (customFilter), selected, anchorFlag)
{
}

ProfilePickerPopUp::ProfilePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<ProfilePickerData> data, Kor::Owner<ProfilePickerFilter> filter,
                                        ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (std::move (filter)), selected, anchorFlag)
{
}

MaterialPickerPopUp::MaterialPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<MaterialPickerData> data, ADB::AttributeIndex selected,
                                          short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (), selected, anchorFlag)
{
}

BuildingMaterialPickerPopUp::BuildingMaterialPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<BuildingMaterialPickerData> data,
                                                          ADB::AttributeIndex selected, short anchorFlag)
    : AttributePickerPopUp (anchor, std::move (data), Kor::Owner<AttributePickerFilter> (), selected, anchorFlag)
{
}

}   // namespace TxAC
