#pragma once
// Shared helpers of the attribute list tests: a panel with a list on it, compact dumps of the
// rows and of the in-place controls, an observer that logs every call it hears, a lifetime
// watcher for items, and a test item that counts its instances.
//
// Row dump:      "1:▾Walls 2:  Height|2.500 m 3:  Fire|[x] 4:Note~"
//                triangle (▾ expanded, ▸ collapsed), two blanks for a group's child, the label,
//                then the non-empty value, preview and check cells joined by "|" (check marks
//                as [x] and [ ]); "~" ends a greyed row. Owner-drawn texts are read as automated
//                UI testing reads them.
// Control dump:  "sel=2 4:LengthEdit 6:Popup focus=LengthEdit"
//                the selected row, each column's in-place control, the focused control, and
//                "stray:Name" for a control of the list that is visible but over no column.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "TxAttributeList/ValueItems.hpp"
#include "Wg/Key.hpp"
#include "Wg/ListBox.hpp"
#include "Wg/Panel.hpp"

namespace TxALTest {

using TxAL::AttributeList;
using TxAL::AttributeListGroupItem;
using TxAL::AttributeListItem;
using TxAL::AttributeListSimpleItem;

// --- Names of the in-place controls ---

inline std::vector<std::pair<const Wg::Item*, std::string>> ControlNames (TxAL::OnTabItems& c)
{
    std::vector<std::pair<const Wg::Item*, std::string>> names = {
        {&c.GetIntEdit (), "IntEdit"},       {&c.GetPosIntEdit (), "PosIntEdit"},   {&c.GetPk257 (), "Pk257"},
        {&c.GetPk261 (), "Pk261"},           {&c.GetSlider (), "Slider"},           {&c.GetPopupControl (), "Popup"},
        {&c.GetLengthEdit (), "LengthEdit"}, {&c.GetAreaEdit (), "AreaEdit"},       {&c.GetVolumeEdit (), "VolumeEdit"},
        {&c.GetAngleEdit (), "AngleEdit"},   {&c.GetPolarAngleEdit (), "PolarAngleEdit"},
        {&c.GetTextEdit (), "TextEdit"},     {&c.GetRealEdit (), "RealEdit"},       {&c.GetSecondRealEdit (), "SecondRealEdit"},
        {&c.GetButton (), "Button"},         {&c.GetIconButton (), "IconButton"},   {&c.GetIconColumnPopup (), "IconPopup"},
        {&c.GetCheckBox (), "CheckBox"},
    };
    // The structural edits have no distinct use in the core; one name serves them.
    for (int i = 0; i < TxAL::OnTabItems::RealEditCount; ++i) {
        const Wg::Item* edit = c.GetRealEdits ()[i];
        bool known = false;
        for (const auto& entry : names) known = known || entry.first == edit;
        if (!known) names.emplace_back (edit, "StructuralEdit");
    }
    return names;
}

inline std::string ControlName (AttributeList& list, const Wg::Item* item)
{
    if (item == nullptr) return "none";
    if (item == &list.GetListBox ()) return "ListBox";
    for (const auto& [control, name] : ControlNames (list.GetOnTabItems ()))
        if (control == item) return name;
    return "other";
}

// --- Dumps ---

inline std::string CellMark (const Wg::Icon& icon)
{
    if (icon == Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOn)) return "[x]";
    if (icon == Wg::Icon (Wg::Icon::StockModule, Wg::Icon::StockCheckOff)) return "[ ]";
    return {};
}

// The text of a cell: what the cell holds, else what the item reports it draws there.
inline std::string CellText (AttributeList& list, short row, short column)
{
    const Wg::ListBox& listBox = list.GetListBox ();
    std::string text = listBox.GetTabItemText (row, column).ToUtf8 ();
    if (text.empty ())
        text = AttributeList::GetDrawnTextContentForKorAT (listBox.GetPanel ().GetId (), listBox.GetId (), row, column).ToUtf8 ();
    return CellMark (listBox.GetTabItemIcon (row, column)) + text;
}

inline std::string DumpRows (AttributeList& list)
{
    const Wg::ListBox& listBox = list.GetListBox ();
    std::string out;
    for (short row = 1; row <= listBox.GetItemCount (); ++row) {
        if (!out.empty ()) out += ' ';
        out += std::to_string (row) + ":";
        const auto* item = static_cast<const AttributeListItem*> (listBox.GetItemValue (row));
        if (item == nullptr) {
            out += "?";
            continue;
        }
        const Wg::Icon triangle = listBox.GetTabItemIcon (row, list.GetGroupTriangleColumnIndex ());
        if (triangle == Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowDown)) out += "▾";
        if (triangle == Wg::GetArrowImage (Wg::TriangleArrow, Wg::ArrowRight)) out += "▸";
        if (const auto* simple = dynamic_cast<const AttributeListSimpleItem*> (item); simple != nullptr && simple->GetGroup () != nullptr)
            out += "  ";
        out += CellText (list, row, list.GetAttributeTypeColumnIndex ());
        for (short column : {list.GetAttributeNameColumnIndex (), list.GetPreviewColumnIndex (), list.GetCheckColumnIndex ()}) {
            const std::string text = CellText (list, row, column);
            if (!text.empty ()) out += "|" + text;
        }
        if (!listBox.IsItemEnabled (row)) out += "~";
    }
    return out;
}

inline std::string DumpControls (AttributeList& list)
{
    Wg::ListBox& listBox = list.GetListBox ();
    std::string out = "sel=" + std::to_string (listBox.GetSelectedItem ());
    for (short column = 1; column <= listBox.GetTabFieldCount (); ++column)
        if (const Wg::Item* control = listBox.GetOnTabItem (column)) out += " " + std::to_string (column) + ":" + ControlName (list, control);
    out += " focus=" + ControlName (list, listBox.GetPanel ().GetFocusedItem ());
    for (const auto& [control, name] : ControlNames (list.GetOnTabItems ()))
        if (control->IsVisible () && !listBox.IsOnTabItem (*control)) out += " stray:" + name;
    return out;
}

// "3:60-203 4:203-307": begin and end of the given columns.
inline std::string DumpColumns (const Wg::ListBox& listBox, std::initializer_list<short> columns = {1, 2, 3, 4, 5, 6})
{
    std::string out;
    for (short column : columns) {
        if (!out.empty ()) out += ' ';
        out += std::to_string (column) + ":" + std::to_string (listBox.GetTabFieldBeginPosition (column)) + "-" +
               std::to_string (listBox.GetTabFieldEndPosition (column));
    }
    return out;
}

// --- Call log ---

// Logs every notification of items and lists it observes: "NameChanged(Height) Selection".
// Entries of items carry the item's name at the time of the call; list entries are "Height"
// (required height changed), "Selection" and "Overlay". With a tag, entries read "tag:...";
// several logs can write into one sink to show their order.
class CallLog : public TxAL::AttributeListObserver,
                public TxAL::AttributeListTextItemObserver,
                public TxAL::AttributeListDictionaryItemObserver,
                public TxAL::AttributeListRealItemObserver,
                public TxAL::AttributeListCheckItemObserver,
                public TxAL::AttributeListButtonItemObserver,
                public TxAL::AttributeListIconButtonItemObserver {
public:
    explicit CallLog (std::string tag = {}, std::string* sink = nullptr) : tag (std::move (tag)), sink (sink != nullptr ? sink : &own) {}

    void Watch (AttributeListItem& item) { item.AttributeListItem::Attach (static_cast<TxAL::AttributeListItemObserver&> (*this)); }
    void Unwatch (AttributeListItem& item) { item.AttributeListItem::Detach (static_cast<TxAL::AttributeListItemObserver&> (*this)); }
    void Watch (AttributeList& list) { list.Attach (static_cast<TxAL::AttributeListObserver&> (*this)); }
    void Unwatch (AttributeList& list) { list.Detach (static_cast<TxAL::AttributeListObserver&> (*this)); }

    std::string Take ()
    {
        std::string taken;
        taken.swap (*sink);
        return taken;
    }
    const std::string& Get () const { return *sink; }

    // Run after each logged call (the item is null for list calls): lets a test react inside
    // a notification.
    std::function<void (const std::string& call, const AttributeListItem* item)> onCall;
    // Tool tips answered by item name; others get an empty answer.
    std::map<std::string, std::string> toolTips;

    // --- AttributeListItemObserver ---
    Kor::UniString AttributeListItemToolTipRequested (const AttributeListItem& item) override
    {
        // Looked up first: the reaction may delete the item.
        auto it = toolTips.find (item.GetName ().ToUtf8 ());
        Kor::UniString answer = it != toolTips.end () ? Kor::UniString (it->second) : Kor::UniString ();
        Add ("ToolTip", &item);
        return answer;
    }
    void NameChanged (const AttributeListItem& item) override { Add ("NameChanged", &item); }
    void IconColumnClicked (const AttributeListItem& item) override { Add ("IconColumnClicked", &item); }
    void IconColumnDoubleClicked (const AttributeListItem& item) override { Add ("IconColumnDoubleClicked", &item); }
    void IconColumnPopupChanged (const AttributeListItem& item) override { Add ("IconColumnPopupChanged", &item); }
    void SourceDestroyed (Kor::EventSource&) override { Add ("Destroyed", nullptr); }

    // --- Value item observers ---
    void SelectionChanged (const TxAL::AttributeListSelectionItem& item) override { Add ("SelectionChanged", &item); }
    void TextChanged (const TxAL::AttributeListTextItem& item) override { Add ("TextChanged", &item); }
    void TextChanged (const TxAL::AttributeListDictionaryItem& item) override { Add ("TextChanged", &item); }
    void ValueChanged (const TxAL::AttributeListRealItem& item) override { Add ("ValueChanged", &item); }
    void CheckChanged (const TxAL::AttributeListCheckItem& item) override { Add ("CheckChanged", &item); }
    void ButtonClicked (const TxAL::AttributeListButtonItem& item) override { Add ("ButtonClicked", &item); }
    void ButtonClicked (const TxAL::AttributeListIconButtonItem& item) override { Add ("ButtonClicked", &item); }
    void ButtonIconClicked (const TxAL::AttributeListIconButtonItem& item) override { Add ("ButtonIconClicked", &item); }

    // --- AttributeListObserver ---
    void AttributeListRequiredHeightChanged (const AttributeList&) override { Add ("Height", nullptr); }
    void AttributeListSelectionChanged (const AttributeList&) override { Add ("Selection", nullptr); }
    void AttributeListOverlayUpdate (const AttributeList&) override { Add ("Overlay", nullptr); }

private:
    void Add (const std::string& call, const AttributeListItem* item)
    {
        if (!sink->empty ()) *sink += ' ';
        if (!tag.empty ()) *sink += tag + ":";
        *sink += call;
        if (item != nullptr) *sink += "(" + item->GetName ().ToUtf8 () + ")";
        if (onCall) onCall (call, item);
    }

    std::string  tag;
    std::string  own;
    std::string* sink;
};

// --- Lifetimes ---

// Writes "~Name" when a watched item is destroyed (the name as it was when watching began).
class Lifetimes {
public:
    void Watch (AttributeListItem& item) { watchers.push_back (std::make_unique<Watcher> (item, log)); }
    std::string Take ()
    {
        std::string taken;
        taken.swap (log);
        return taken;
    }

private:
    class Watcher : public TxAL::AttributeListItemObserver {
    public:
        Watcher (AttributeListItem& item, std::string& log) : name (item.GetName ().ToUtf8 ()), log (log)
        {
            item.AttributeListItem::Attach (*this);
        }
        void SourceDestroyed (Kor::EventSource&) override { log += (log.empty () ? "~" : " ~") + name; }

    private:
        std::string  name;
        std::string& log;
    };

    std::string                           log;
    std::vector<std::unique_ptr<Watcher>> watchers;
};

// --- A test item ---

// A single-row item that shows its name and a fixed value, and counts its instances.
class CountedItem : public AttributeListSimpleItem {
public:
    static inline int         live = 0;
    static inline std::string destroyed;

    explicit CountedItem (const char* name, const char* value = "", bool status = true)
        : AttributeListSimpleItem (name, Wg::Icon (), status, false), value (value)
    {
        ++live;
    }
    CountedItem (const CountedItem&) = delete;
    ~CountedItem () override
    {
        --live;
        destroyed += (destroyed.empty () ? "~" : " ~") + GetName ().ToUtf8 ();
    }

    static std::string TakeDestroyed ()
    {
        std::string taken;
        taken.swap (destroyed);
        return taken;
    }

    void DrawListItem (short row) const override
    {
        Wg::ListBox* listBox = GetListBox ();
        if (listBox == nullptr) return;
        if (!IsOnGroup (row)) listBox->SetTabItemText (row, GetAttributeTypeColumnIndex (), GetName ());
        listBox->SetTabItemText (row, GetAttributeNameColumnIndex (), value);
    }

    short Row () const { return GetRow (); }
    bool  OwnCreated () const { return IsOwnCreated (); }
    bool  InList () const { return GetAttributeList () != nullptr; }

private:
    Kor::UniString value;
};

// A list that can create own-created items of any kind, as its Create…Item operations do.
class TestList : public AttributeList {
public:
    using AttributeList::AttributeList;

    template <typename T, typename... Args>
    T* CreateOwned (Args&&... args)
    {
        return CreateOwnedItem<T> (std::forward<Args> (args)...);
    }
};

// A group that can create own-created children (or an owned master) of any kind.
class TestGroup : public AttributeListGroupItem {
public:
    explicit TestGroup (const char* name) { SetName (name); }

    template <typename T, typename... Args>
    T* CreateOwned (bool asMaster, Args&&... args)
    {
        return CreateOwnedItem<T> (asMaster, std::forward<Args> (args)...);
    }
};

// --- The panel and the list ---

// A panel with one attribute list on a list box of its own at (10, 10). The default width 445
// gives rows 427 pixels wide (frame and scroll bar taken off): without a header, label and
// value columns then share exactly the base width of 287. Rows are 20 pixels high, 9 visible.
struct ListHarness {
    static constexpr short DefaultWidth = 445;
    static constexpr short DefaultHeight = 200;

    explicit ListHarness (const AttributeList::OptionalParameters& params = {}, short width = DefaultWidth, short height = DefaultHeight)
        : panel (Wg::Rect (0, 0, 800, 600), NextPanelId ()), list (std::make_unique<TestList> (panel, 10, 10, width, height, params))
    {
    }

    // Each harness's panel has an id of its own, so that automated-testing look-ups by panel
    // and list-box id find this list even while others live.
    static short NextPanelId ()
    {
        static short next = 100;
        return next < 30000 ? ++next : next;
    }

    Wg::ListBox& ListBox () const { return list->GetListBox (); }
    std::string  Rows () const { return DumpRows (*list); }
    std::string  Controls () const { return DumpControls (*list); }

    // The middle of a column, in list-box pixels.
    int ColumnMiddle (short column) const
    {
        return (ListBox ().GetTabFieldBeginPosition (column) + ListBox ().GetTabFieldEndPosition (column)) / 2;
    }
    void Click (short row, int x) { ListBox ().Click (row, Wg::Point (x, 5)); }
    void ClickColumn (short row, short column) { Click (row, ColumnMiddle (column)); }
    void DoubleClick (short row, int x) { ListBox ().DoubleClick (row, Wg::Point (x, 5)); }
    bool Key (int code, int modifiers = 0) { return panel.KeyPress (Wg::Key::Code (code, 0, modifiers)); }
    bool Char (char16_t ch, int modifiers = 0) { return panel.KeyPress (Wg::Key::Code::Character (ch, modifiers)); }

    Wg::Panel                 panel;
    std::unique_ptr<TestList> list;
};

}   // namespace TxALTest
