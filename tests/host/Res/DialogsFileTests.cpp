#include <gtest/gtest.h>

#include <string>

#include "Res/DialogsFile.hpp"
#include "Res/ResourceCache.hpp"
#include "Res/ResourceError.hpp"

namespace {

// "id:WxH[index kind l,t,r,b ...]" per dialog, separated by '|'.
std::string Dump (const Res::DialogTemplates& dialogs)
{
    std::string out;
    for (const auto& [id, dialog] : dialogs) {
        if (!out.empty ()) out += '|';
        out += std::to_string (id) + ":" + std::to_string (dialog.size.width) + "x" + std::to_string (dialog.size.height) + "[";
        for (const Res::DialogItem& item : dialog.items) {
            if (out.back () != '[') out += ' ';
            const Gfx::Rect& r = item.rect;
            out += std::to_string (item.index) + " " + Res::GetDialogItemKindName (item.kind) + " " + std::to_string (r.left) + "," +
                   std::to_string (r.top) + "," + std::to_string (r.right) + "," + std::to_string (r.bottom);
        }
        out += "]";
    }
    return out;
}

std::string ErrorOf (const std::string& contents)
{
    try {
        Res::ParseDialogsFile ("dialogs.txt", contents);
    } catch (const Res::ResourceError& error) {
        return error.what ();
    }
    return "no error";
}

}   // namespace

TEST (DialogsFileTest, ParsesDialogsWithItemsInIndexOrder)
{
    const std::string contents =
        "\xEF\xBB\xBF# two dialogs\r\n"
        "[30] 200x100   # small\r\n"
        "  2 = text 0 80 200 100   # bottom line\r\n"
        "1 = listbox 0 0 200 80\r\n"
        "\n"
        "[7] 50 x 60\n"
        "4 = splitter 0 0 50 6\n"
        "3 = icon 0 10 16 26\n"
        "9 = button 0 30 50 50\n"
        "8 = check 0 50 50 60\n"
        "[9] 1 x 1   # a page that makes its own controls\n";
    EXPECT_EQ (Dump (Res::ParseDialogsFile ("dialogs.txt", contents)),
               "7:50x60[3 icon 0,10,16,26 4 splitter 0,0,50,6 8 check 0,50,50,60 9 button 0,30,50,50]|9:1x1[]|"
               "30:200x100[1 listbox 0,0,200,80 2 text 0,80,200,100]");
}

TEST (DialogsFileTest, RejectsMalformedFilesNamingTheLine)
{
    EXPECT_EQ (ErrorOf ("1 = icon 0 0 1 1\n"), "dialogs.txt:1: item before the first '[<id>]' dialog");
    EXPECT_EQ (ErrorOf ("[5]\n1 = icon 0 0 1 1\n"), "dialogs.txt:1: expected the dialog's size after ']', like '[5] 380 x 440'");
    EXPECT_EQ (ErrorOf ("[5] 0 x 10\n1 = icon 0 0 1 1\n"), "dialogs.txt:1: dialog width '0' is not a number from 1 to 32767");
    EXPECT_EQ (ErrorOf ("[5] 10 x 40000\n"), "dialogs.txt:1: dialog height '40000' is not a number from 1 to 32767");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 0 1 1\n[5] 10 x 10\n"), "dialogs.txt:3: dialog 5 appears twice (first at line 1)");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 0 1 1\n1 = text 0 0 1 1\n"),
               "dialogs.txt:3: item 1 appears twice in dialog 5 (first at line 2)");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n0 = icon 0 0 1 1\n"), "dialogs.txt:2: item index '0' is not a number from 1 to 32767");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = slider 0 0 1 1\n"),
               "dialogs.txt:2: unknown item kind 'slider'; use one of icon, text, listbox, splitter, button, check");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 0 1\n"), "dialogs.txt:2: expected '<kind> <left> <top> <right> <bottom>' after '=', found 4 words");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 -1 1 1\n"), "dialogs.txt:2: coordinate '-1' is not a number from 0 to 32767");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 +1 1 1\n"), "dialogs.txt:2: coordinate '+1' is not a number from 0 to 32767");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 5 0 4 1\n"), "dialogs.txt:2: the rectangle's left or top lies beyond its right or bottom");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\n1 = icon 0 0 11 1\n"), "dialogs.txt:2: item 1 reaches outside the dialog's 10 x 10");
    EXPECT_EQ (ErrorOf ("[5] 10 x 10\nicon 0 0 1 1\n"),
               "dialogs.txt:2: expected '[<id>] <width> x <height>' or '<index> = <kind> <left> <top> <right> <bottom>', found 'icon 0 0 1 1'");
}

TEST (DialogsFileTest, TheLibraryModuleCarriesThePageDialog)
{
    // The page's layout relies on these: the property list ends where the strip's text begins,
    // and the splitter lies between the lists.
    const Res::ModuleHandle module = Res::ResInitModuleImageCache ("TxAttributeList");
    const Res::DialogTemplate* dialog = Res::ResGetDialogTemplate (module, 20197);
    ASSERT_NE (dialog, nullptr);
    const Res::DialogItem* text = dialog->FindItem (2);
    const Res::DialogItem* classifications = dialog->FindItem (3);
    const Res::DialogItem* splitter = dialog->FindItem (4);
    const Res::DialogItem* properties = dialog->FindItem (5);
    ASSERT_TRUE (dialog->FindItem (1) != nullptr && text != nullptr && classifications != nullptr && splitter != nullptr && properties != nullptr);
    EXPECT_EQ (dialog->FindItem (1)->kind, Res::DialogItemKind::Icon);
    EXPECT_EQ (text->kind, Res::DialogItemKind::Text);
    EXPECT_EQ (splitter->kind, Res::DialogItemKind::Splitter);
    EXPECT_EQ (classifications->rect.bottom, splitter->rect.top);
    EXPECT_EQ (splitter->rect.bottom, properties->rect.top);
    EXPECT_EQ (properties->rect.bottom, text->rect.top);
    EXPECT_EQ (text->rect.bottom, dialog->size.height);
    EXPECT_EQ (Res::ResGetDialogTemplate (module, 20196), nullptr);
    Res::ResRemoveModuleImageCache (module);
}
