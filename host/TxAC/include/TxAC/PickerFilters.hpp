#pragma once
// The filters of the attribute picker popups: which attributes of a type a picker offers, and
// in which order. Each picker type has its own filter with modes or masks; the
// AttributeListAndFolderFilter is the caller-made filter of an explicit list.

#include <cstdint>
#include <vector>

#include "ADB/AttributeSet.hpp"

namespace TxAC {

// The base of every picker filter: offers the attributes of a type that it accepts, ascending.
class AttributePickerFilter {
public:
    virtual ~AttributePickerFilter () = default;

    virtual bool Accepts (const ADB::Attribute& attribute) const = 0;
    // The entries of a picker of type over set, in the order shown.
    virtual std::vector<ADB::AttributeIndex> Select (const ADB::AttributeSet& set, ADB::AttributeTypeId type) const;
};

// A caller-made filter: the attributes it lists, one by one or gathered in named folders.
// An empty filter accepts nothing.
class AttributeListAndFolderFilter : public AttributePickerFilter {
public:
    struct Folder {
        Kor::UniString                   name;
        std::vector<ADB::AttributeIndex> indices;
    };

    AttributeListAndFolderFilter () = default;
    explicit AttributeListAndFolderFilter (std::vector<ADB::AttributeIndex> indices) : indices (std::move (indices)) {}

    void AddIndex (ADB::AttributeIndex index) { indices.push_back (index); }
    void AddFolder (Folder folder) { folders.push_back (std::move (folder)); }

    const std::vector<ADB::AttributeIndex>& GetIndices () const { return indices; }
    const std::vector<Folder>&              GetFolders () const { return folders; }

    bool Accepts (const ADB::Attribute& attribute) const override;

private:
    std::vector<ADB::AttributeIndex> indices;
    std::vector<Folder>              folders;
};

// Fills by use. Modes:
//   0 every fill                      5 solid fills
//   1 cut fills (sections)            6 vector hatches
//   2 cover fills (surfaces)          7 cut fills without the empty fill
//   3 drafting fills                  8 drafting and cut fills
//   4 cut and cover fills             9 cover fills without the empty fill
// Other modes offer every fill. The preselected fill is always offered, so that the picker
// shows what the row holds even where the mode would hide it.
class FillPickerFilter : public AttributePickerFilter {
public:
    static constexpr short ModeCount = 10;

    // Where the hatch of each preview starts, as a fraction of the preview cell (0 to 1).
    struct HatchOrigin {
        float x = 0.0f;
        float y = 0.0f;
    };

    FillPickerFilter (short mode, ADB::AttributeIndex selected, HatchOrigin origin = HatchOrigin {0.0f, 0.0f});

    short       GetMode () const { return mode; }
    HatchOrigin GetHatchOrigin () const { return origin; }

    bool Accepts (const ADB::Attribute& attribute) const override;

private:
    short               mode;
    ADB::AttributeIndex selected;
    HatchOrigin         origin;
};

// Composites by the element kinds they serve: a mask of TxAttr::CompositeUsage bits (4 walls,
// 8 slabs, 16 roofs, 32 shells); a composite is offered when it serves any kind of the mask.
// The preselected composite is always offered.
class CompositePickerFilter : public AttributePickerFilter {
public:
    CompositePickerFilter (int kindMask, ADB::AttributeIndex selected);

    int  GetKindMask () const { return kindMask; }
    bool Accepts (const ADB::Attribute& attribute) const override;

private:
    int                 kindMask;
    ADB::AttributeIndex selected;
};

// Line types. Mode 0 offers every line type; mode 1 only dashed ones (no solid line), for
// places where a solid line would mean nothing. The preselected line type is always offered.
class LineTypePickerFilter : public AttributePickerFilter {
public:
    LineTypePickerFilter (short mode, ADB::AttributeIndex selected);

    short GetMode () const { return mode; }
    bool  Accepts (const ADB::Attribute& attribute) const override;

private:
    short               mode;
    ADB::AttributeIndex selected;
};

// Profiles by the profile type mask (TxAttr::ProfileUsage bits; 0 offers every profile), with
// the element's custom profile placed as the show-custom mode says:
//   0 the custom profile is not offered;
//   1 only the custom profile is offered;
//   2 the custom profile comes first, then the profiles of the mask.
// With core-mode filtering only wall profiles are offered (the profiles that can stand for a
// composite's core); excluded indices are never offered.
class ProfilePickerFilter : public AttributePickerFilter {
public:
    enum ShowCustomMode : short { HideCustom = 0, CustomOnly = 1, CustomFirst = 2 };

    ProfilePickerFilter (int typeMask, short showCustomMode, ADB::AttributeIndex customProfile, bool coreModeFiltering,
                         std::vector<ADB::AttributeIndex> excluded);

    static bool IsValidShowCustomMode (short mode) { return mode >= HideCustom && mode <= CustomFirst; }

    bool Accepts (const ADB::Attribute& attribute) const override;
    std::vector<ADB::AttributeIndex> Select (const ADB::AttributeSet& set, ADB::AttributeTypeId type) const override;

private:
    bool IsExcluded (ADB::AttributeIndex index) const;

    int                              typeMask;
    short                            showCustomMode;
    ADB::AttributeIndex              customProfile;
    bool                             coreModeFiltering;
    std::vector<ADB::AttributeIndex> excluded;
};

// What a profile picker is set up with: the provider of the attribute set, the profile type
// mask, the element's custom profile and the show-custom mode (see ProfilePickerFilter), and
// the core-mode filtering and excluded indices. Copies share the provider (not owned).
class ProfileControlData {
public:
    ProfileControlData (const ADB::IAttributeSetProvider* provider, int profileTypeMask = 0,
                        ADB::AttributeIndex customProfile = ADB::InvalidAttributeIndex,
                        short showCustomMode = ProfilePickerFilter::CustomFirst);

    const ADB::IAttributeSetProvider* GetAttributeSetProvider () const { return provider; }
    int                               GetProfileTypeMask () const { return profileTypeMask; }
    void                              SetProfileTypeMask (int mask) { profileTypeMask = mask; }
    ADB::AttributeIndex               GetCustomProfile () const { return customProfile; }
    void                              SetCustomProfile (ADB::AttributeIndex index) { customProfile = index; }
    short                             GetShowCustomMode () const { return showCustomMode; }
    void                              SetShowCustomMode (short mode) { showCustomMode = mode; }
    bool                              GetCoreModeFiltering () const { return coreModeFiltering; }
    void                              SetCoreModeFiltering (bool on) { coreModeFiltering = on; }
    const std::vector<ADB::AttributeIndex>& GetExcludedIndices () const { return excluded; }
    void SetExcludedIndices (std::vector<ADB::AttributeIndex> indices) { excluded = std::move (indices); }

private:
    const ADB::IAttributeSetProvider* provider;
    int                               profileTypeMask;
    ADB::AttributeIndex               customProfile;
    short                             showCustomMode;
    bool                              coreModeFiltering = false;
    std::vector<ADB::AttributeIndex>  excluded;
};

}   // namespace TxAC
