#pragma once
// Logs what an attribute picker popup tells its observer: "track(4) track(-) chose(4)".

#include <string>

#include "TxAC/AttributePickerPopUp.hpp"

namespace TestSupport {

class PickerPopUpLog : public TxAC::AttributePickerPopUpObserver {
public:
    void TrackedAttributeChanged (const TxAC::AttributePickerTrackEvent& event) override
    {
        const auto tracked = event.GetTrackedAttributeIndex ();
        Add ("track(" + (tracked ? std::to_string (tracked->GetValue ()) : std::string ("-")) + ")");
    }
    void SelectedAttributeIndexChanged (const TxAC::AttributePickerPopUp&, const ADB::AttributeIndex& index) override
    {
        Add ("chose(" + std::to_string (index.GetValue ()) + ")");
    }
    void Add (const std::string& entry) { log += (log.empty () ? "" : " ") + entry; }

    std::string log;
};

}   // namespace TestSupport
