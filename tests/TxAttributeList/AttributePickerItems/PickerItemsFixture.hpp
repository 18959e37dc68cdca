#pragma once
// The picker rows' test bed: the value items' list harness with the embedded sample attribute
// set behind a switchable provider, a log of every picker observer call, and a modal runner
// that takes a snapshot of the list after each step of a popup, so that a test sees what the
// row showed while the user browsed.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "TxAC/SetupData.hpp"
#include "TxAttr/Attributes.hpp"
#include "TxAttr/SampleAttributeSet.hpp"
#include "TxAttributeList/AttributePickerItems.hpp"
#include "TxAttributeList/PenItem.hpp"
#include "ValueItemsFixture.hpp"

namespace PickerItemsTest {

using namespace TxAL;

// Logs "FillChanged(Cut fill)"-style entries of every picker row it watches.
class PickerLog : public AttributeListPenItemObserver,
                  public AttributeListFillItemObserver,
                  public AttributeListCompositeItemObserver,
                  public AttributeListLineTypeItemObserver,
                  public AttributeListProfileItemObserver,
                  public AttributeListMaterialItemObserver,
                  public AttributeListBuildingMaterialItemObserver {
public:
    explicit PickerLog (std::string tag = {}, std::string* sink = nullptr) : tag (std::move (tag)), sink (sink != nullptr ? sink : &own) {}

    template <typename Item>
    void Watch (Item& item) { item.Attach (*this); }

    std::string Take ()
    {
        std::string taken;
        taken.swap (*sink);
        return taken;
    }

    std::function<void ()> onCall;

    void PenChanged (const AttributeListPenItem& item) override { Add ("PenChanged", item); }
    void FillChanged (const AttributeListFillItem& item) override { Add ("FillChanged", item); }
    void CompositeChanged (const AttributeListCompositeItem& item) override { Add ("CompositeChanged", item); }
    void LineTypeChanged (const AttributeListLineTypeItem& item) override { Add ("LineTypeChanged", item); }
    void ProfileChanged (const AttributeListProfileItem& item) override { Add ("ProfileChanged", item); }
    void MaterialChanged (const AttributeListMaterialItem& item) override { Add ("MaterialChanged", item); }
    void BuildingMaterialChanged (const AttributeListBuildingMaterialItem& item) override { Add ("BuildingMaterialChanged", item); }

private:
    void Add (const char* call, const AttributeListItem& item)
    {
        if (!sink->empty ()) *sink += ' ';
        if (!tag.empty ()) *sink += tag + ":";
        *sink += std::string (call) + "(" + item.GetName ().ToUtf8 () + ")";
        if (onCall) onCall ();
    }

    std::string  tag;
    std::string  own;
    std::string* sink;
};

// Plays its steps like the headless runner and records snapshot () after each one.
class SnapshotRunner : public Wg::ModalRunner {
public:
    explicit SnapshotRunner (std::function<std::string ()> snapshot) : snapshot (std::move (snapshot)), previous (Wg::SetModalRunner (this)) {}
    ~SnapshotRunner () override { Wg::SetModalRunner (previous); }

    void Queue (const Wg::ModalStep& step) { steps.push_back (step); }

    void Run (Wg::ModalSession& session) override
    {
        ++runs;
        session.Begin ();
        for (const Wg::ModalStep& step : steps) {
            const bool ended = session.Perform (step);
            shots.push_back (snapshot ());
            if (ended) break;
        }
        steps.clear ();
    }

    // The snapshots, joined by " / ".
    std::string Shots () const
    {
        std::string out;
        for (const std::string& shot : shots) out += (out.empty () ? "" : " / ") + shot;
        return out;
    }
    int Runs () const { return runs; }

private:
    std::function<std::string ()> snapshot;
    Wg::ModalRunner*              previous;
    std::vector<Wg::ModalStep>    steps;
    std::vector<std::string>      shots;
    int                           runs = 0;
};

class PickerTest : public ValueItemsTest::ListTest {
protected:
    PickerTest () : sample (TxAttr::MakeSampleAttributeSet ()), provider (ODB::ConstRef<ADB::AttributeSet> (sample)) {}
    ~PickerTest () override { TxAC::SetSetupData (&TxAC::GetDefaultSetupData ()); }

    ADB::AttributeIndex Index (ADB::AttributeTypeId type, const char* name) const
    {
        const ADB::AttributeIndex index = sample->FindAttributeIndex (type, name);
        EXPECT_TRUE (index.IsValid ()) << name;
        return index;
    }
    ADB::AttributeIndex Fill (const char* name) const { return Index (TxAttr::idFill, name); }

    static std::string RectText (const Gfx::Rect& r)
    {
        return "(" + std::to_string (r.left) + "," + std::to_string (r.top) + "," + std::to_string (r.right) + "," + std::to_string (r.bottom) + ")";
    }
    // The right half of a row's preview cell, inset by 2, where most previews are drawn.
    Gfx::Rect RightHalf (short row) const
    {
        const Gfx::Rect cell = Box ().GetCellRect (row, Preview ());
        return Gfx::Rect (cell.left + cell.GetWidth () / 2 + 2, cell.top + 2, cell.right - 2, cell.bottom - 2);
    }
    // The primitives recorded for a row's preview cell, one per line.
    std::string PreviewOf (short row) { return Paint (row, Preview ()); }
    // The value column's text and the preview's text as automated testing reads them.
    std::string ValueText (short row) const { return Cell (row, Value ()); }

    std::shared_ptr<ADB::AttributeSet> sample;
    ADB::AttributeSetProvider          provider;
    ADB::AttributeSetProvider          noSet;
    PickerLog                          log;
};

}   // namespace PickerItemsTest
