#pragma once
// TxAC::AttributePickerPopUp: the popup that lets the user browse the attributes of one type
// (fills, composites, line types, profiles, materials, building materials) with a preview of
// each, and choose one. It runs as a modal session (Wg::RunModal): headless it plays the queued
// script, in a backend it is a real popup. While it is open it tells its observers:
//   TrackedAttributeChanged        the entry under the pointer (empty over none); a final one
//                                  with an empty index when the popup closes
//   SelectedAttributeIndexChanged  the user chose an entry (before the final tracking event)
// Script steps: Track(i) with i the 1-based entry (0: over none), Choose(i), Cancel.

#include <optional>
#include <vector>

#include "ADB/AttributeSet.hpp"
#include "Gfx/DrawingContext.hpp"
#include "Kor/Event.hpp"
#include "Kor/Owner.hpp"
#include "TxAC/PickerFilters.hpp"
#include "Wg/Item.hpp"
#include "Wg/ModalRunner.hpp"

namespace TxAC {

class AttributePickerPopUp;

// Where a popup opens: the control it drops from (panel and item ids, and the control itself
// for a backend that places the popup).
struct PopUpAnchor {
    short           panelId = 0;
    short           itemId = 0;
    const Wg::Item* item = nullptr;
};

// The attribute set a picker shows, with the attribute type; one subclass per picker.
class AttributePickerData {
public:
    AttributePickerData (ODB::ConstRef<ADB::AttributeSet> set, ADB::AttributeTypeId type);
    virtual ~AttributePickerData () = default;

    // The set (loaded), or null when the reference is empty.
    const ADB::AttributeSet* GetAttributeSet () const { return set.Get (); }
    ADB::AttributeTypeId     GetAttributeType () const { return type; }

private:
    ODB::ConstRef<ADB::AttributeSet> set;
    ADB::AttributeTypeId             type;
};

// Fill picker data.
class FillPickerData : public AttributePickerData {
public:
    explicit FillPickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// Composite picker data.
class CompositePickerData : public AttributePickerData {
public:
    explicit CompositePickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// Line type picker data.
class LineTypePickerData : public AttributePickerData {
public:
    explicit LineTypePickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// Profile picker data.
class ProfilePickerData : public AttributePickerData {
public:
    explicit ProfilePickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// Material (surface) picker data.
class MaterialPickerData : public AttributePickerData {
public:
    explicit MaterialPickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// Building material picker data.
class BuildingMaterialPickerData : public AttributePickerData {
public:
    explicit BuildingMaterialPickerData (ODB::ConstRef<ADB::AttributeSet> set);
};

// What the pointer is over while the popup tracks.
class AttributePickerTrackEvent {
public:
    AttributePickerTrackEvent (const AttributePickerPopUp& source, std::optional<ADB::AttributeIndex> tracked)
        : source (source), tracked (tracked) {}

    const AttributePickerPopUp&        GetSource () const { return source; }
    // Empty when the pointer is over no entry or tracking ends.
    std::optional<ADB::AttributeIndex> GetTrackedAttributeIndex () const { return tracked; }

private:
    const AttributePickerPopUp&        source;
    std::optional<ADB::AttributeIndex> tracked;
};

// Hears an open picker popup.
class AttributePickerPopUpObserver : public virtual Kor::EventObserver {
public:
    virtual void TrackedAttributeChanged (const AttributePickerTrackEvent& event);
    virtual void SelectedAttributeIndexChanged (const AttributePickerPopUp& source, const ADB::AttributeIndex& index);
};

// The popup of one attribute type. It owns its data and, when given one, its filter; a
// borrowed filter must outlive it. Without a filter every attribute of the type is offered.
class AttributePickerPopUp : protected Kor::EventSource {
public:
    // The anchor flag that drops the popup below its control.
    static constexpr short DropBelowAnchor = 1;

    AttributePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<AttributePickerData> data, Kor::Owner<AttributePickerFilter> ownedFilter,
                          ADB::AttributeIndex selected, short anchorFlag);
    AttributePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<AttributePickerData> data, const AttributePickerFilter* borrowedFilter,
                          ADB::AttributeIndex selected, short anchorFlag);
    ~AttributePickerPopUp () override;

    void Attach (AttributePickerPopUpObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributePickerPopUpObserver& observer) { Kor::EventSource::Detach (observer); }

    const PopUpAnchor&          GetAnchor () const { return anchor; }
    short                       GetAnchorFlag () const { return anchorFlag; }
    const AttributePickerData&  GetData () const { return *data; }
    const AttributePickerFilter* GetFilter () const { return filter; }
    ADB::AttributeIndex         GetSelectedAttributeIndex () const { return selected; }
    // The preselected entry (shown checked when the popup opens).
    void                        SetSelectedAttributeIndex (const ADB::AttributeIndex& index) { selected = index; }

    // The attributes offered, in order (entry i is element i - 1).
    std::vector<ADB::AttributeIndex> GetEntries () const;
    // Draws the preview of an offered attribute into rect.
    void DrawEntryPreview (ADB::AttributeIndex index, Gfx::DrawingContext& context, const Gfx::Rect& rect) const;

    // Shows the popup; returns when it has closed. Observers may destroy anything but the
    // popup meanwhile.
    void InvokePopUp ();

    bool IsOpen () const { return open; }

private:
    class Session;
    friend class Session;

    void NotifyTracked (std::optional<ADB::AttributeIndex> tracked);
    void NotifyChosen (ADB::AttributeIndex chosen);

    PopUpAnchor                      anchor;
    Kor::Owner<AttributePickerData>  data;
    Kor::Owner<AttributePickerFilter> ownedFilter;
    const AttributePickerFilter*     filter;
    ADB::AttributeIndex              selected;
    short                            anchorFlag;
    bool                             open = false;
};

// The session of an open picker popup, for a backend that draws the previews of its entries.
class AttributePickerSession : public Wg::ModalSession {
public:
    virtual const AttributePickerPopUp&        GetPopUp () const = 0;
    virtual const std::vector<ADB::AttributeIndex>& GetAttributeIndices () const = 0;
};

// Fill picker popup.
class FillPickerPopUp : public AttributePickerPopUp {
public:
    FillPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<FillPickerData> data, Kor::Owner<FillPickerFilter> filter,
                     ADB::AttributeIndex selected, short anchorFlag);
    FillPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<FillPickerData> data, const AttributeListAndFolderFilter* customFilter,
                     ADB::AttributeIndex selected, short anchorFlag);
};

// Composite picker popup.
class CompositePickerPopUp : public AttributePickerPopUp {
public:
    CompositePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<CompositePickerData> data, Kor::Owner<CompositePickerFilter> filter,
                          ADB::AttributeIndex selected, short anchorFlag);
    CompositePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<CompositePickerData> data,
                          const AttributeListAndFolderFilter* customFilter, ADB::AttributeIndex selected, short anchorFlag);
};

// Line type picker popup.
class LineTypePickerPopUp : public AttributePickerPopUp {
public:
    LineTypePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<LineTypePickerData> data, Kor::Owner<LineTypePickerFilter> filter,
                         ADB::AttributeIndex selected, short anchorFlag);
    LineTypePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<LineTypePickerData> data,
                         const AttributeListAndFolderFilter* customFilter, ADB::AttributeIndex selected, short anchorFlag);
};

// Profile picker popup.
class ProfilePickerPopUp : public AttributePickerPopUp {
public:
    ProfilePickerPopUp (const PopUpAnchor& anchor, Kor::Owner<ProfilePickerData> data, Kor::Owner<ProfilePickerFilter> filter,
                        ADB::AttributeIndex selected, short anchorFlag);
};

// Material picker popup: every material.
class MaterialPickerPopUp : public AttributePickerPopUp {
public:
    MaterialPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<MaterialPickerData> data, ADB::AttributeIndex selected, short anchorFlag);
};

// Building material picker popup: every building material.
class BuildingMaterialPickerPopUp : public AttributePickerPopUp {
public:
    BuildingMaterialPickerPopUp (const PopUpAnchor& anchor, Kor::Owner<BuildingMaterialPickerData> data, ADB::AttributeIndex selected,
                                 short anchorFlag);
};

}   // namespace TxAC
