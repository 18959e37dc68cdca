#include "TxAttributeList/FillPenHelpers.hpp"

#include <optional>

#include "TxAttr/Attributes.hpp"

namespace TxAL {

namespace {

constexpr short NullPen = -1;
constexpr short TransparentPen = -2;
constexpr int   HighByte = 8;
constexpr std::uint8_t Opaque = 255;

// A provider of exactly one set, for a callback that asks for one.
class SingleSetProvider : public ADB::IAttributeSetProvider {
public:
    explicit SingleSetProvider (ODB::ConstRef<ADB::AttributeSet> set) : set (std::move (set)) {}
    ODB::ConstRef<ADB::AttributeSet> GetAttributeSet () const override { return set; }

private:
    ODB::ConstRef<ADB::AttributeSet> set;
};

// Resolves pen for a control; the colour when it resolves.
std::optional<Gfx::Color> Resolve (short pen, bool background, const ODB::ConstRef<ADB::AttributeSet>& set)
{
    unsigned char red = 0, green = 0, blue = 0;
    if (!SetDiFillColors (pen, background, &red, &green, &blue, set)) return std::nullopt;
    return Gfx::Color (red, green, blue, Opaque);
}

}   // namespace

bool SetDiFillColors (short pen, bool background, unsigned char* red, unsigned char* green, unsigned char* blue,
                      ODB::ConstRef<ADB::AttributeSet> set)
{
    if (red == nullptr || green == nullptr || blue == nullptr) return false;
    if (pen == NullPen || pen == TransparentPen) return false;
    if (pen == 0) {
        const unsigned char level = background ? 255 : 0;
        *red = *green = *blue = level;
        return true;
    }
    if (!set.Load ()) return false;
    const ODB::ConstRef<ADB::Attribute> active = set->GetConstActiveAttribute (TxAttr::idPenTable);
    if (!active.Load ()) return false;
    const auto* table = ADB::AttributeCast<TxAttr::PenTable> (active.Get ());
    const TxAttr::Pen* record = table != nullptr ? table->GetPenPtr (pen) : nullptr;
    if (record == nullptr) return false;
    *red = static_cast<unsigned char> (record->color.red >> HighByte);
    *green = static_cast<unsigned char> (record->color.green >> HighByte);
    *blue = static_cast<unsigned char> (record->color.blue >> HighByte);
    return true;
}

void DiSetFillForePen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    if (auto color = Resolve (pen, false, set)) control->SetForeColor (*color);
    else control->UseCellForeColor ();
}

void DiSetFillForePen (Pk::Pk257* control, short pen, const Gfx::Color& fallback, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    control->SetForeColor (Resolve (pen, false, set).value_or (fallback));
}

void DiSetFillBackPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    if (auto color = Resolve (pen, true, set)) control->SetBackColor (*color);
    else control->UseCellBackColor ();
}

void DiSetFillBackPen (Pk::Pk257* control, short pen, const Gfx::Color& fallback, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    control->SetBackColor (Resolve (pen, true, set).value_or (fallback));
}

void DiSetFillContourPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    if (auto color = Resolve (pen, false, set)) control->SetFrameColor (*color);
    else control->UseCellFrameColor ();
}

// The inner pen is drawn as the control's separator colour, on purpose.
void DiSetFillInnerPen (Pk::Pk257* control, short pen, ODB::ConstRef<ADB::AttributeSet> set)
{
    if (control == nullptr) return;
    if (auto color = Resolve (pen, false, set)) control->SetSeparatorColor (*color);
    else control->UseCellSeparatorColor ();
}

bool IsValidAttr (const ADB::AttributeIndex& index, unsigned short typeCode, ODB::ConstRef<ADB::AttributeSet> set,
                  void (*callBack) (Pk257CallBackRec*), const void* userData)
{
    if (!set.Load () || callBack == nullptr) return false;
    const SingleSetProvider provider (set);
    Pk257CallBackRec record;
    record.typeCode = typeCode;
    record.attributeIndex = index.ToLegacyAttributeIndex_Deprecated ();
    record.scale = 1.0;
    record.userData = userData != nullptr ? userData : static_cast<const ADB::IAttributeSetProvider*> (&provider);
    const Pk::AttributeDescription description = Pk::AttributeDescription::Read (Pk::RequestDescription (callBack, record));
    return description.GetPartCount () >= 1 && (description.GetFillWord () != 0 || description.GetSurfaceWord () != 0);
}

}   // namespace TxAL
