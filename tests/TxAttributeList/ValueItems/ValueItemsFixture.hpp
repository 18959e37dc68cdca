#pragma once
// The value items' test bed on the shared list harness: column positions, what automated UI
// checks and the recording context read from a cell, popup and redraw counts, and a call log
// of every notification. Working units and the popup script are restored after each test.

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "AttributeListTestSupport.hpp"
#include "TxAttributeList/ResourceHelpers.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/WorkingUnits.hpp"

namespace ValueItemsTest {

using Params = TxAL::AttributeList::OptionalParameters;

inline std::string Number (double value)
{
    std::ostringstream out;
    out << value;
    return out.str ();
}

inline TxAL::AttributeListItem::PopupItem Entry (const char* text, const Wg::Icon& icon = {})
{
    TxAL::AttributeListItem::PopupItem entry;
    entry.SetText (text);
    entry.SetIcon (icon);
    return entry;
}

class ListTest : public ::testing::Test {
protected:
    ~ListTest () override
    {
        Wg::SetWorkingUnits (savedUnits);
        Runner ().ClearScript ();
    }

    void MakeList (const Params& params)
    {
        harness.reset ();
        harness = std::make_unique<TxALTest::ListHarness> (params);
        list = harness->list.get ();
    }

    Wg::ListBox&      Box () const { return list->GetListBox (); }
    TxAL::OnTabItems& Controls () const { return list->GetOnTabItems (); }
    static Wg::ScriptedModalRunner& Runner () { return Wg::GetHeadlessModalRunner (); }

    short Label () const { return list->GetAttributeTypeColumnIndex (); }
    short Value () const { return list->GetAttributeNameColumnIndex (); }
    short Preview () const { return list->GetPreviewColumnIndex (); }
    short Check () const { return list->GetCheckColumnIndex (); }
    int   Begin (short column) const { return Box ().GetTabFieldBeginPosition (column); }
    int   End (short column) const { return Box ().GetTabFieldEndPosition (column); }
    int   RowHeight () const { return Box ().GetItemHeight (); }

    void Click (short row, int x) { harness->Click (row, x); }
    void DoubleClick (short row, int x) { harness->DoubleClick (row, x); }
    bool Press (int code, int modifiers = 0) { return harness->Key (code, modifiers); }
    // Each popup the user saw is one modal session.
    static int    Popups () { return Runner ().GetRunCount (); }
    std::uint64_t Redraws () const { return Box ().GetRedrawCount (); }

    // What automated UI checks read from a cell, what the cell holds, and how it is painted.
    std::string AT (short row, short column) const
    {
        return TxAL::AttributeList::GetDrawnTextContentForKorAT (harness->panel.GetId (), list->GetListBoxId (), row, column).ToUtf8 ();
    }
    std::string Cell (short row, short column) const { return Box ().GetTabItemText (row, column).ToUtf8 (); }
    std::string Paint (short row, short column) const { return Box ().PaintCell (row, column).ToString (); }
    // The controls over the selected row's columns: "sel=1 4:LengthEdit 6:PopupControl".
    std::string Placed () const
    {
        const std::string dump = harness->Controls ();
        return dump.substr (0, dump.find (" focus="));
    }

    std::unique_ptr<TxALTest::ListHarness> harness = std::make_unique<TxALTest::ListHarness> ();
    TxALTest::TestList*                    list = harness->list.get ();
    TxALTest::CallLog                      calls;

private:
    const Wg::WorkingUnits savedUnits = Wg::GetWorkingUnits ();
};

}   // namespace ValueItemsTest
