// The classification selector on a large system: the real CCI Construction file replicated under
// distinct code prefixes until the system holds the asked number of items.
//   BM_BuildSelectionData/N  the selector's data built from the system     (ms_per_build)
//   BM_SearchKeystroke/N     one more character typed into the popup's search and the rows
//                            recomputed (ms_per_keystroke), over a word typed from scratch

#include <string>

#include "BenchSupport.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "TxAttributeList/ClassificationItemSelectorPopup.hpp"
#include "TxImport/ClassificationImport.hpp"

namespace {

constexpr double MillisecondsPerNanosecond = 1e-6;
// What the user types: common letters first, so that early keystrokes match many items.
constexpr const char* TypedWord = "construction";

ODB::Ref<CLS::ClassificationSystem> MakeLargeSystem (std::size_t itemCount)
{
    TxImport::ImportDiagnostics diagnostics;
    const auto real = TxImport::ReadClassificationSystemFile (std::string (TXAL_DATA_DIR) + "/classification/cciconstruction-1.0.json", diagnostics);
    auto large = CLS::ClassificationSystem::Create ("CCI Construction x", "1.0");
    if (real.IsNull () || real->GetItemCount () == 0) return large;
    for (int copy = 1; large->GetItemCount () < itemCount; ++copy) {
        const Kor::UniString prefix = Kor::UniString ("R") + Kor::UniString (std::to_string (copy)) + "-";
        // Parents come first in the traversal, so each copy's parents exist when their children come.
        CLS::ClassificationSystem::TraverseClassificationsConstTyped (real.AsConst (), CLS::DepthFirst, [&] (const ODB::ConstRef<CLS::ClassificationItem>& item) {
            const auto parent = item->GetParentTyped ();
            const auto copiedParent = parent.IsNull () ? ODB::ConstRef<CLS::ClassificationItem> () : large->FindItemByCode (prefix + parent->GetCode ());
            large->AddItem (copiedParent, prefix + item->GetCode (), item->GetName (), item->GetDescription ());
            return large->GetItemCount () < itemCount;
        });
    }
    return large;
}

bool Everything (const ODB::ConstRef<CLS::IClassificationItem>&) { return true; }

void BM_BuildSelectionData (benchmark::State& state)
{
    const auto system = MakeLargeSystem (static_cast<std::size_t> (state.range (0)));
    Bench::UnitTimer timer;
    for (auto _ : state) {
        timer.Time ([&] {
            TxAL::ClassificationSelectionDialogData data (system.AsConst (), {}, Everything);
            benchmark::DoNotOptimize (data.GetItemCount ());
        });
    }
    state.counters["items"] = static_cast<double> (system->GetItemCount ());
    timer.SetCounter (state, "ms_per_build", 1.0, MillisecondsPerNanosecond);
}
BENCHMARK (BM_BuildSelectionData)->Arg (20000)->Unit (benchmark::kMillisecond);

void BM_SearchKeystroke (benchmark::State& state)
{
    const auto system = MakeLargeSystem (static_cast<std::size_t> (state.range (0)));
    TxAL::ClassificationSelectionDialogData data (system.AsConst (), {}, Everything);
    Rb::AutoClosingSingleItemSelectionDialog dialog (data, nullptr);
    dialog.Begin ();
    // The popup reads the search strings once, when the user first types.
    dialog.SetSearchText ("c");
    const std::string word = TypedWord;
    Bench::UnitTimer timer;
    std::size_t results = 0;
    for (auto _ : state) {
        dialog.SetSearchText ("");
        for (std::size_t length = 1; length <= word.size (); ++length) {
            const Kor::UniString typed (word.substr (0, length));
            timer.Time ([&] { dialog.SetSearchText (typed); });
            if (length == 1) results += dialog.GetRows ().size ();
        }
    }
    state.counters["results_after_first_key"] = static_cast<double> (results) / static_cast<double> (state.iterations ());
    timer.SetCounter (state, "ms_per_keystroke", static_cast<double> (word.size ()), MillisecondsPerNanosecond);
}
BENCHMARK (BM_SearchKeystroke)->Arg (20000)->Unit (benchmark::kMillisecond);

}   // namespace
