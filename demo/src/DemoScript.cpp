#include "DemoScript.hpp"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "BuildingModel.hpp"
#include "SettingsPalette.hpp"
#include "TxAttributeList/AttributeListGroupItem.hpp"
#include "TxAttributeList/OnTabItems.hpp"
#include "Wg/ModalRunner.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/TextEdit.hpp"
#include "Wg/WorkingUnits.hpp"

namespace Demo {

namespace {

constexpr int DefaultClickOffset = 4;
constexpr short ColumnCount = 6;

// How many leading words a command takes before its free text (0: the whole line is words).
std::size_t WordsBeforeFreeText (const std::string& line)
{
    const auto begin = line.find_first_not_of (" \t");
    const auto end = line.find_first_of (" \t", begin);
    const std::string command = line.substr (begin, end == std::string::npos ? std::string::npos : end - begin);
    if (command == "type") return 1;
    if (command == "expect-cell" || command == "expect-model") return 3;
    return 0;
}

// Splits a line into words; double quotes group blanks. Free text at the end of a line is not
// split (it may hold quotes, such as an inch mark).
std::vector<std::string> SplitWords (const std::string& line)
{
    const std::size_t limit = WordsBeforeFreeText (line);
    std::vector<std::string> words;
    std::string word;
    bool quoted = false;
    bool any = false;
    for (char c : line) {
        if (limit > 0 && words.size () == limit) break;
        if (c == '"') {
            quoted = !quoted;
            any = true;
        } else if ((c == ' ' || c == '\t') && !quoted) {
            if (any) words.push_back (word);
            word.clear ();
            any = false;
        } else {
            word += c;
            any = true;
        }
    }
    if (quoted) throw std::invalid_argument ("unterminated quote");
    if (any) words.push_back (word);
    return words;
}

// The text after the first n words of a line.
std::string RestAfterWords (const std::string& line, std::size_t n)
{
    std::size_t pos = 0;
    for (std::size_t i = 0; i < n; ++i) {
        pos = line.find_first_not_of (" \t", pos);
        if (pos == std::string::npos) return {};
        if (line[pos] == '"') {
            pos = line.find ('"', pos + 1);
            pos = pos == std::string::npos ? line.size () : pos + 1;
        } else {
            pos = line.find_first_of (" \t", pos);
            if (pos == std::string::npos) return {};
        }
    }
    if (pos >= line.size ()) return {};
    return line.substr (pos + 1);
}

short ColumnByName (const TxAL::AttributeList& list, const std::string& name)
{
    if (name == "triangle") return list.GetGroupTriangleColumnIndex ();
    if (name == "icon") return list.GetAttributeIconColumnIndex ();
    if (name == "label") return list.GetAttributeTypeColumnIndex ();
    if (name == "value") return list.GetAttributeNameColumnIndex ();
    if (name == "preview") return list.GetPreviewColumnIndex ();
    if (name == "check") return list.GetCheckColumnIndex ();
    throw std::invalid_argument ("unknown column \"" + name + "\"");
}

std::string CellText (const ScriptTarget& target, short row, short column)
{
    TxAL::AttributeList& list = target.list;
    const Wg::ListBox& listBox = list.GetListBox ();
    const Kor::UniString at = TxAL::AttributeList::GetDrawnTextContentForKorAT (target.panel.GetId (), listBox.GetId (), row, column);
    return (at.IsEmpty () ? listBox.GetTabItemText (row, column) : at).ToUtf8 ();
}

short FindRow (const ScriptTarget& target, const std::string& label)
{
    TxAL::AttributeList& list = target.list;
    const short labelColumn = list.GetAttributeTypeColumnIndex ();
    for (short row = 1; row <= list.GetListBox ().GetItemCount (); ++row)
        if (CellText (target, row, labelColumn) == label) return row;
    throw std::invalid_argument ("no row labelled \"" + label + "\"");
}

Wg::Point ClickPoint (const ScriptTarget& target, short column, const std::vector<std::string>& words, std::size_t offsetWord)
{
    const Wg::ListBox& listBox = target.list.GetListBox ();
    const int begin = listBox.GetTabFieldBeginPosition (column);
    const int end = listBox.GetTabFieldEndPosition (column);
    int dx = column == target.list.GetCheckColumnIndex () ? (end - begin) / 2 : DefaultClickOffset;
    if (words.size () > offsetWord) dx = std::stoi (words[offsetWord]);
    return Wg::Point (begin + dx, listBox.GetItemHeight () / 2);
}

Wg::Key::Code KeyByName (const std::string& keyText)
{
    int modifiers = 0;
    std::string name = keyText;
    for (;;) {
        if (name.rfind ("Alt+", 0) == 0) {
            modifiers |= Wg::Key::PopupFlag;
            name = name.substr (4);
        } else if (name.rfind ("Shift+", 0) == 0) {
            modifiers |= Wg::Key::ShiftFlag;
            name = name.substr (6);
        } else {
            break;
        }
    }
    const struct {
        const char* name;
        int         code;
    } specials[] = {{"Return", Wg::Key::Return}, {"Enter", Wg::Key::Enter},         {"Escape", Wg::Key::Escape}, {"Tab", Wg::Key::Tab},
                    {"Backspace", Wg::Key::Backspace}, {"Delete", Wg::Key::Delete}, {"Up", Wg::Key::Up},         {"Down", Wg::Key::Down},
                    {"Left", Wg::Key::Left},     {"Right", Wg::Key::Right},         {"Home", Wg::Key::Home},     {"End", Wg::Key::End}};
    for (const auto& special : specials)
        if (name == special.name) return Wg::Key::Code (special.code, 0, modifiers);
    if (name == "Space") return Wg::Key::Code::Character (u' ', modifiers);
    throw std::invalid_argument ("unknown key \"" + keyText + "\"");
}

// Where the keyboard is: "LABEL COLUMN" for a control over a column of the selected row,
// "LABEL list" for the list itself, "none" or "outside" (another item of the panel).
std::string FocusText (const ScriptTarget& target)
{
    TxAL::AttributeList& list = target.list;
    const Wg::ListBox& listBox = list.GetListBox ();
    const Wg::Item* focused = target.panel.GetFocusedItem ();
    if (focused == nullptr) return "none";
    const short row = listBox.GetSelectedItem ();
    const std::string label = row > 0 ? "\"" + CellText (target, row, list.GetAttributeTypeColumnIndex ()) + "\" " : std::string ("(no row) ");
    if (focused == &listBox) return label + "list";
    const short column = listBox.GetOnTabItemColumn (*focused);
    if (column <= 0) return "outside";
    const char* const names[] = {"triangle", "icon", "label", "value", "preview", "check"};
    for (const char* name : names)
        if (ColumnByName (list, name) == column) return label + name;
    return label + std::to_string (column);
}

std::string Quoted (const std::vector<std::string>& words, std::size_t first)
{
    std::string out;
    for (std::size_t i = first; i < words.size (); ++i) out += (out.empty () ? "\"" : " \"") + words[i] + "\"";
    return out;
}

void TypeIntoFocus (Wg::Panel& panel, const std::string& text)
{
    Wg::Item* focused = panel.GetFocusedItem ();
    if (auto* edit = dynamic_cast<Wg::TextEdit*> (focused)) {
        edit->UserType (Kor::UniString (text));
        return;
    }
    if (auto* number = dynamic_cast<Wg::NumberEditBase*> (focused)) {
        number->UserType (Kor::UniString (text));
        return;
    }
    throw std::invalid_argument ("no edit has the focus");
}

}   // namespace

DemoScript::DemoScript (SettingsPalette& palette, BuildingModel& model)
    : palette (palette), model (model), changesSeen (palette.GetStoredChangeCount ()), popupsSeen (Wg::GetHeadlessModalRunner ().GetRunCount ())
{
}

void DemoScript::SetChangeCounter (ChangeCounter counter)
{
    changeCounter = std::move (counter);
    changesSeen = StoredChangeCount ();
}

int DemoScript::StoredChangeCount () const
{
    return changeCounter ? changeCounter () : palette.GetStoredChangeCount ();
}

ScriptTarget DemoScript::Target () const
{
    if (listResolver)
        if (const std::optional<ScriptTarget> target = listResolver (listName)) return *target;
    return ScriptTarget {palette.GetList (), palette.GetPanel ()};
}

void DemoScript::RunFile (const std::string& path)
{
    std::ifstream file (path, std::ios::binary);
    if (!file) throw ScriptError (path + ":0: cannot be read");
    std::ostringstream text;
    text << file.rdbuf ();
    Run (text.str (), path);
}

void DemoScript::Run (const std::string& text, const std::string& fileName)
{
    std::istringstream in (text);
    std::string line;
    int lineNumber = 0;
    while (std::getline (in, line)) {
        ++lineNumber;
        if (!line.empty () && line.back () == '\r') line.pop_back ();
        const auto first = line.find_first_not_of (" \t");
        if (first == std::string::npos || line[first] == '#') continue;
        try {
            const std::vector<std::string> words = SplitWords (line);
            Execute (words, line);
        } catch (const std::exception& e) {
            throw ScriptError (fileName + ":" + std::to_string (lineNumber) + ": " + e.what ());
        }
    }
}

void DemoScript::Execute (const std::vector<std::string>& words, const std::string& line)
{
    const std::string& command = words[0];
    const auto need = [&words] (std::size_t count) {
        if (words.size () < count) throw std::invalid_argument ("\"" + words[0] + "\" needs " + std::to_string (count - 1) + " argument(s)");
    };

    if (command == "element") {
        need (2);
        if (model.Find (words[1]) == nullptr) throw std::invalid_argument ("no element " + words[1]);
        palette.ShowElement (words[1]);
        if (element) element (words[1]);
    } else if (command == "focus-out") {
        if (focusOut)
            focusOut ();
        else
            palette.GetPanel ().SetFocusedItem (nullptr);
    } else if (command == "close") {
        if (close)
            close ();
        else
            palette.GetPanel ().SetFocusedItem (nullptr);
    } else if (command == "units") {
        need (2);
        if (words[1] != "metric" && words[1] != "imperial") throw std::invalid_argument ("units are metric or imperial");
        const bool metric = words[1] == "metric";
        SetMetricUnits (palette, metric);
        if (units) units (metric);
    } else if (command == "screenshot") {
        need (2);
        if (screenshot) screenshot (words[1]);
    } else if (command == "list") {
        need (2);
        if (!listResolver || !listResolver (words[1]).has_value ()) throw std::invalid_argument ("no list \"" + words[1] + "\"");
        listName = words[1];
    } else if (ExecuteOnList (words, line)) {
    } else if (Expect (words, line)) {
    } else if (extension && extension (words, line)) {
    } else {
        throw std::invalid_argument ("unknown command \"" + command + "\"");
    }
}

bool DemoScript::ExecuteOnList (const std::vector<std::string>& words, const std::string& line)
{
    static const char* const listCommands[] = {"click", "double-click", "select", "type", "key", "pick", "toggle", "answer-popup", "auto-update", "scroll"};
    const std::string& command = words[0];
    if (std::find (std::begin (listCommands), std::end (listCommands), command) == std::end (listCommands)) return false;
    const auto need = [&words] (std::size_t count) {
        if (words.size () < count) throw std::invalid_argument ("\"" + words[0] + "\" needs " + std::to_string (count - 1) + " argument(s)");
    };
    // The list is looked up only for the commands that use it: another may be closed meanwhile.
    const ScriptTarget target = Target ();
    TxAL::AttributeList& list = target.list;
    Wg::ListBox& listBox = list.GetListBox ();

    if (command == "click" || command == "double-click") {
        need (2);
        const short row = FindRow (target, words[1]);
        const short column = words.size () > 2 ? ColumnByName (list, words[2]) : list.GetAttributeNameColumnIndex ();
        const Wg::Point point = ClickPoint (target, column, words, 3);
        listBox.Click (row, point);
        if (command == "double-click") listBox.DoubleClick (row, point);
    } else if (command == "select") {
        need (2);
        listBox.UserSelect (FindRow (target, words[1]));
    } else if (command == "type") {
        TypeIntoFocus (target.panel, RestAfterWords (line, 1));
    } else if (command == "key") {
        need (2);
        target.panel.KeyPress (KeyByName (words[1]));
    } else if (command == "pick") {
        need (3);
        const short row = FindRow (target, words[1]);
        Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
        runner.QueueTrack (std::stoi (words[2]));
        runner.QueueChoose (std::stoi (words[2]));
        const short check = list.GetCheckColumnIndex ();
        listBox.Click (row, ClickPoint (target, check, {}, 0));
        runner.ClearScript ();
    } else if (command == "toggle") {
        need (2);
        const short row = FindRow (target, words[1]);
        const short preview = list.GetPreviewColumnIndex ();
        listBox.Click (row, Wg::Point (listBox.GetTabFieldBeginPosition (preview) + listBox.GetItemHeight () / 2, listBox.GetItemHeight () / 2));
    } else if (command == "answer-popup") {
        need (2);
        Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
        runner.QueueTrack (std::stoi (words[1]));
        runner.QueueChoose (std::stoi (words[1]));
    } else if (command == "auto-update") {
        need (2);
        if (words[1] != "on" && words[1] != "off") throw std::invalid_argument ("auto-update is on or off");
        list.GetOnTabItems ().SetEditControlAutoUpdate (words[1] == "on");
    } else if (command == "scroll") {
        need (2);
        listBox.UserScroll (static_cast<short> (std::stoi (words[1])));
    }
    return true;
}

bool DemoScript::Expect (const std::vector<std::string>& words, const std::string& line)
{
    const std::string& command = words[0];
    const auto need = [&words] (std::size_t count) {
        if (words.size () < count) throw std::invalid_argument ("\"" + words[0] + "\" needs " + std::to_string (count - 1) + " argument(s)");
    };
    if (command == "expect-cell") {
        need (3);
        const ScriptTarget target = Target ();
        const std::string expected = RestAfterWords (line, 3);
        const std::string actual = CellText (target, FindRow (target, words[1]), ColumnByName (target.list, words[2]));
        if (actual != expected) throw std::invalid_argument ("cell shows \"" + actual + "\", expected \"" + expected + "\"");
    } else if (command == "expect-model") {
        need (3);
        const Element* element = model.Find (words[1]);
        if (element == nullptr) throw std::invalid_argument ("no element " + words[1]);
        const std::string expected = RestAfterWords (line, 3);
        const std::string actual = element->Get (words[2]).value_or ("<none>");
        if (actual != expected) throw std::invalid_argument ("model has \"" + actual + "\", expected \"" + expected + "\"");
    } else if (command == "expect-changes") {
        need (2);
        const int changes = StoredChangeCount () - changesSeen;
        changesSeen = StoredChangeCount ();
        if (changes != std::stoi (words[1]))
            throw std::invalid_argument (std::to_string (changes) + " edit(s) reached the model, expected " + words[1]);
    } else if (command == "expect-popups") {
        need (2);
        Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
        const int popups = runner.GetRunCount () - popupsSeen;
        popupsSeen = runner.GetRunCount ();
        const std::size_t unused = runner.GetPendingStepCount ();
        runner.ClearScript ();
        if (popups != std::stoi (words[1])) throw std::invalid_argument (std::to_string (popups) + " popup(s) opened, expected " + words[1]);
        if (unused > 0) throw std::invalid_argument ("an answer-popup was never used");
    } else if (command == "expect-focus") {
        need (2);
        if (words[1] != "none") need (3);
        const std::string expected = words[1] == "none" ? "none" : "\"" + words[1] + "\" " + words[2];
        const std::string actual = FocusText (Target ());
        if (actual != expected) throw std::invalid_argument ("the keyboard is at " + actual + ", expected " + expected);
    } else if (command == "expect-rows") {
        const ScriptTarget target = Target ();
        std::vector<std::string> labels {command};
        for (short row = 1; row <= target.list.GetListBox ().GetItemCount (); ++row)
            labels.push_back (CellText (target, row, target.list.GetAttributeTypeColumnIndex ()));
        if (labels != words) throw std::invalid_argument ("rows are " + Quoted (labels, 1) + ", expected " + Quoted (words, 1));
    } else if (command == "expect-group") {
        need (3);
        const TxAL::AttributeListGroupItem* group = nullptr;
        for (const TxAL::AttributeListItem* item : Target ().list.GetItems ())
            if (auto* candidate = dynamic_cast<const TxAL::AttributeListGroupItem*> (item); candidate != nullptr && candidate->GetName ().ToUtf8 () == words[1])
                group = candidate;
        if (group == nullptr) throw std::invalid_argument ("no group \"" + words[1] + "\"");
        const std::string actual = group->IsExpanded () ? "expanded" : "collapsed";
        if (actual != words[2]) throw std::invalid_argument ("the group is " + actual + ", expected " + words[2]);
    } else {
        return false;
    }
    return true;
}

std::string DumpPalette (SettingsPalette& palette)
{
    return DumpList (ScriptTarget {palette.GetList (), palette.GetPanel ()});
}

std::string DumpList (const ScriptTarget& target)
{
    std::string out;
    const short count = target.list.GetListBox ().GetItemCount ();
    for (short row = 1; row <= count; ++row) {
        out += std::to_string (row);
        for (short column = 1; column <= ColumnCount; ++column) out += " | " + CellText (target, row, column);
        out += '\n';
    }
    return out;
}

void SetMetricUnits (SettingsPalette& palette, bool metric)
{
    Wg::SetWorkingUnits (metric ? Wg::WorkingUnits::Metric () : Wg::WorkingUnits::Imperial ());
    palette.WorkingUnitsChanged ();
}

}   // namespace Demo
