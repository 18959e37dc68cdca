#include "ElementDialogScript.hpp"

#include <stdexcept>

#include "ElementSettingsDialog.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"
#include "Wg/ModalRunner.hpp"

namespace Demo {

namespace {

constexpr const char* SettingsName = "settings";
constexpr const char* PropertiesName = "properties";
constexpr const char* ClassificationsName = "classifications";

// The text after the first count words of a line, as DemoScript reads it.
std::string RestOfLine (const std::string& line, std::size_t count)
{
    std::size_t at = 0;
    for (std::size_t word = 0; word < count; ++word) {
        at = line.find_first_not_of (" \t", at);
        if (at == std::string::npos) return {};
        if (line[at] == '"') {
            at = line.find ('"', at + 1);
            at = at == std::string::npos ? line.size () : at + 1;
        } else {
            at = line.find_first_of (" \t", at);
            if (at == std::string::npos) return {};
        }
    }
    const std::size_t start = line.find_first_not_of (" \t", at);
    return start == std::string::npos ? std::string () : line.substr (start);
}

short TabByName (const std::string& name)
{
    if (name == SettingsName) return ElementSettingsDialog::SettingsTab;
    if (name == PropertiesName) return ElementSettingsDialog::PropertiesTab;
    throw std::invalid_argument ("tabs are settings or properties");
}

PropertiesPage& OpenPage (ElementSettingsDialog& dialog)
{
    if (dialog.GetPropertiesPage () == nullptr) throw std::invalid_argument ("the dialog is closed");
    return *dialog.GetPropertiesPage ();
}

}   // namespace

ElementDialogScript::ElementDialogScript (ElementSettingsDialog& dialog, SelectionHandler selected) : dialog (dialog), selected (std::move (selected)) {}

void ElementDialogScript::InstallInto (DemoScript& script)
{
    script.SetListResolver ([this] (const std::string& name) { return FindList (name); });
    script.SetExtensionHandler ([this] (const std::vector<std::string>& words, const std::string& line) { return Execute (words, line); });
    script.SetChangeCounter ([this] { return dialog.GetStoredChangeCount (); });
}

std::optional<ScriptTarget> ElementDialogScript::FindList (const std::string& name)
{
    if (name == SettingsName) return ScriptTarget {dialog.GetPalette ().GetList (), dialog.GetPalette ().GetPanel ()};
    PropertiesPage* page = dialog.GetPropertiesPage ();
    if (name == PropertiesName) {
        if (page == nullptr) throw std::invalid_argument ("the dialog is closed");
        return ScriptTarget {page->GetPropertyAttributeList (), *page};
    }
    if (name == ClassificationsName) {
        if (page == nullptr) throw std::invalid_argument ("the dialog is closed");
        return ScriptTarget {page->GetClassificationAttributeList (), *page};
    }
    return std::nullopt;
}

bool ElementDialogScript::Execute (const std::vector<std::string>& words, const std::string& line)
{
    const std::string& command = words[0];
    const auto need = [&words] (std::size_t count) {
        if (words.size () < count) throw std::invalid_argument ("\"" + words[0] + "\" needs " + std::to_string (count - 1) + " argument(s)");
    };
    if (command == "elements") {
        need (2);
        const std::vector<std::string> ids (words.begin () + 1, words.end ());
        dialog.ShowElements (ids);
        if (dialog.GetSelection () != ids) throw std::invalid_argument ("unknown element among " + RestOfLine (line, 1));
        if (selected) selected (ids);
    } else if (command == "tab") {
        need (2);
        dialog.GetTabControl ().UserSelectTab (TabByName (words[1]));
    } else if (command == "classify") {
        need (3);
        PropertiesPage& page = OpenPage (dialog);
        TxAL::AttributeList& list = page.GetClassificationAttributeList ();
        short row = 0;
        for (short candidate = 1; candidate <= list.GetListBox ().GetItemCount () && row == 0; ++candidate)
            if (list.GetListBox ().GetTabItemText (candidate, list.GetAttributeTypeColumnIndex ()).ToUtf8 () == words[1]) row = candidate;
        if (row == 0) throw std::invalid_argument ("no classification row \"" + words[1] + "\"");
        auto* item = dynamic_cast<TxAL::AttributeListIconButtonItem*> (static_cast<TxAL::AttributeListItem*> (list.GetListBox ().GetItemValue (row)));
        list.GetListBox ().UserSelect (row);
        Wg::ButtonItem* button = item != nullptr ? item->GetIconButton () : nullptr;
        if (button == nullptr || !button->IsVisible ()) throw std::invalid_argument ("the row \"" + words[1] + "\" has no button");
        Wg::ScriptedModalRunner& runner = Wg::GetHeadlessModalRunner ();
        runner.Queue (Rb::MakeChooseByTextStep (Kor::UniString (RestOfLine (line, 2))));
        button->UserPress ();
        const std::size_t unused = runner.GetPendingStepCount ();
        runner.ClearScript ();
        if (unused > 0) throw std::invalid_argument ("the selector did not offer \"" + RestOfLine (line, 2) + "\"");
    } else if (command == "drag-splitter") {
        need (2);
        PropertiesPage& page = OpenPage (dialog);
        page.GetDialogItem<Wg::Splitter> (TxAL::ClassificationsAndPropertiesPage::SplitterIndex).UserDrag (std::stoi (words[1]));
    } else if (command == "close-dialog") {
        OpenPage (dialog);
        dialog.Close ();
    } else if (command == "open-dialog") {
        dialog.Open ();
    } else if (command == "expect-strip") {
        need (2);
        PropertiesPage& page = OpenPage (dialog);
        const auto& text = page.GetDialogItem<Wg::LeftText> (TxAL::ClassificationsAndPropertiesPage::InfoTextIndex);
        const std::string actual = page.IsInfoStripVisible () ? text.GetText ().ToUtf8 () : "none";
        const std::string expected = RestOfLine (line, 1);
        if (actual != expected) throw std::invalid_argument ("the strip shows \"" + actual + "\", expected \"" + expected + "\"");
    } else if (command == "expect-splitter") {
        need (2);
        PropertiesPage& page = OpenPage (dialog);
        const int top = page.GetDialogItem<Wg::Splitter> (TxAL::ClassificationsAndPropertiesPage::SplitterIndex).GetRect ().top;
        if (top != std::stoi (words[1])) throw std::invalid_argument ("the splitter stands at " + std::to_string (top) + ", expected " + words[1]);
    } else if (command == "expect-tab") {
        need (2);
        if (dialog.GetTabControl ().GetSelectedTab () != TabByName (words[1]))
            throw std::invalid_argument ("tab " + std::to_string (dialog.GetTabControl ().GetSelectedTab ()) + " shows, expected " + words[1]);
    } else {
        return false;
    }
    return true;
}

}   // namespace Demo
