#pragma once
// The classification test bed: a small system, handlers and a collector that log what the list
// asks of them, a visibility rule by code, a panel with a list box for the classification list,
// and a runner that plays the selector popup as a backend would.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>

#include "AttributeListTestSupport.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "TxAttributeList/ClassificationAttributeList.hpp"
#include "Wg/Controls.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/Panel.hpp"

namespace ClassificationTest {

using ItemRef = ODB::ConstRef<CLS::ClassificationItem>;
using SystemRef = ODB::ConstRef<CLS::ClassificationSystem>;
using Getter = TxAL::ClassificationItemSelectorPopup::IClassificationVisibilityGetter;
using Dialog = Rb::AutoClosingSingleItemSelectionDialog;

// The texts of a dialog's rows, joined by ", ".
inline std::string RbTestRows (const Rb::AutoClosingSingleItemSelectionDialog& dialog)
{
    std::string out;
    for (const auto& row : dialog.GetRows ()) out += (out.empty () ? "" : ", ") + row.text.ToUtf8 ();
    return out;
}

inline std::string Code (const ItemRef& item) { return item.IsNull () ? "none" : item->GetCode ().ToUtf8 (); }

// Hides the items whose codes it holds, while enabled.
class CodeFilter : public Getter {
public:
    CodeFilter (std::set<std::string> hidden, bool enabled) : hidden (std::move (hidden)), enabled (enabled) {}
    bool IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>& item) const override
    {
        return hidden.count (item->GetCode ().ToUtf8 ()) == 0;
    }
    bool IsClassificationVisibilityHandlingEnabled () const override { return enabled; }

    std::set<std::string> hidden;
    bool                  enabled;
};

// A host's handler of one system for one element: logs each store as "name=code".
class Handler : public TxAL::ClassificationSystemHandler {
public:
    Handler (std::string name, CLS::ElemClassificationData data, bool editable, std::string& log)
        : name (std::move (name)), data (std::move (data)), editable (editable), log (log) {}

    CLS::ElemClassificationData GetClassificationData () override { return data; }
    bool IsEditable () const override { return editable; }
    void SetClassificationItem (const ItemRef& item) const override
    {
        log += (log.empty () ? "" : " ") + name + "=" + Code (item);
        data.SetClassificationItem (item);
        if (onStore) onStore ();
    }

    std::string                         name;
    mutable CLS::ElemClassificationData data;
    bool                                editable;
    std::string&                        log;
    std::function<void ()>              onStore;
};

class Collector : public TxAL::IClassificationHandlerCollector {
public:
    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> CollectClassificationSystemHandlers () override
    {
        ++collects;
        return handlers;
    }
    Kor::Ref<Getter> GetClassificationVisibilityGetter () override
    {
        ++getterRequests;
        return getter;
    }

    Kor::Array<Kor::Ref<TxAL::ClassificationSystemHandler>> handlers;
    Kor::Ref<Getter> getter = Kor::Ref<Getter> (new TxAL::NoClassificationVisisibilityEffect ());
    int              collects = 0;
    int              getterRequests = 0;
};

// Plays a backend: runs a function on the selector dialog, then cancels if it is still open.
class DialogRunner : public Wg::ModalRunner {
public:
    explicit DialogRunner (std::function<void (Dialog&)> play) : play (std::move (play)) {}
    void Run (Wg::ModalSession& session) override
    {
        ++runs;
        auto* dialog = dynamic_cast<Dialog*> (&session);
        ASSERT_NE (dialog, nullptr);
        session.Begin ();
        play (*dialog);
        if (!session.HasEnded ()) session.Perform (Wg::ModalStep::MakeCancel ());
    }

    std::function<void (Dialog&)> play;
    int                           runs = 0;
};

class ClassificationFixture : public ::testing::Test {
protected:
    static constexpr short ListBoxId = 7;

    ClassificationFixture ()
    {
        elements = system->AddItem ({}, "EF", "Elements", "Parts of a building");
        walls = system->AddItem (elements, "EF_25", "Walls", "  Vertical enclosing elements\n");
        external = system->AddItem (walls, "EF_25_10", "External walls");
        internal = system->AddItem (walls, "EF_25_30", "Internal walls");
        roofs = system->AddItem (elements, "EF_30", "Roofs");
        systems = system->AddItem ({}, "Ss", "Systems");
        frames = system->AddItem (systems, "Ss_20", "Structural systems");
    }
    ~ClassificationFixture () override
    {
        Wg::SetModalRunner (nullptr);
        Wg::GetHeadlessModalRunner ().ClearScript ();
    }

    static Wg::ScriptedModalRunner& Script () { return Wg::GetHeadlessModalRunner (); }

    Kor::Ref<Handler> AddHandler (const std::string& name, const SystemRef& sys, const ItemRef& item, bool associated, bool editable = true)
    {
        auto handler = Kor::Ref<Handler> (new Handler (name, CLS::ElemClassificationData (sys, item, associated), editable, log));
        collector.handlers.Push (handler);
        return handler;
    }

    TxAL::ClassificationAttributeList& MakeList (const Kor::UniString& title = {})
    {
        list = std::make_unique<TxAL::ClassificationAttributeList> (collector, panel, ListBoxId, title);
        return *list;
    }
    std::string Rows () { return TxALTest::DumpRows (list->GetAttributeList ()); }
    // Each classification row: "label=value" then the icon column's mark ([x] associated, [ ]
    // not), "btn" while the button shows, "~" when greyed and the tooltip in quotes if any.
    std::string States ()
    {
        std::string out;
        const short iconColumn = list->GetAttributeList ().GetAttributeIconColumnIndex ();
        for (const Kor::Ref<TxAL::ClassificationListItem>& item : list->GetItems ()) {
            auto& row = const_cast<TxAL::AttributeListIconButtonItem&> (item->GetRow ());
            if (!out.empty ()) out += " | ";
            out += row.GetName ().ToUtf8 () + "=" + row.GetText ().ToUtf8 ();
            const short number = static_cast<short> (&item - list->GetItems ().data () + 1 + (Box ().GetItemCount () - (short) list->GetItems ().size ()));
            out += " " + TxALTest::CellMark (Box ().GetTabItemIcon (number, iconColumn));
            if (row.GetOnTabItemVisibility ()) out += " btn";
            if (!row.GetStatus ()) out += " ~";
            const std::string tip = row.GetToolTip ().ToUtf8 ();
            if (!tip.empty ()) out += " '" + tip + "'";
        }
        return out;
    }
    Wg::ListBox& Box () { return list->GetAttributeList ().GetListBox (); }
    void ClickIcon (short row)
    {
        const short column = list->GetAttributeList ().GetAttributeIconColumnIndex ();
        Box ().Click (row, Wg::Point ((Box ().GetTabFieldBeginPosition (column) + Box ().GetTabFieldEndPosition (column)) / 2, 5));
    }
    // Presses the button of the row (selecting the row first, as a click would).
    bool PressButton (TxAL::ClassificationListItem& item)
    {
        item.Select ();
        Wg::ButtonItem* button = const_cast<TxAL::AttributeListIconButtonItem&> (item.GetRow ()).GetIconButton ();
        if (button == nullptr) return false;
        button->UserPress ();
        return true;
    }

    ODB::Ref<CLS::ClassificationSystem> system = CLS::ClassificationSystem::Create ("Uniclass", "2015");
    ItemRef elements, walls, external, internal, roofs, systems, frames;
    std::string log;
    Collector collector;
    Wg::Panel panel {Wg::Rect (0, 0, 500, 400), 3};
    Wg::ListBox listBox {panel, Wg::Rect (10, 10, 445, 200), ListBoxId};
    std::unique_ptr<TxAL::ClassificationAttributeList> list;
};

}   // namespace ClassificationTest
