#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ControlRecorder.hpp"
#include "RecordingPeer.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace {

using Wg::Key::Code;

class TextEditTest : public ::testing::Test {
protected:
    TextEditTest ()
    {
        edit.Attach (recorder);
        edit.SetFocus ();
        log.clear ();
    }

    bool Press (int code) { return panel.KeyPress (Code (code)); }

    // "text|begin-end"
    std::string State () const
    {
        const Kor::Range<int> selection = edit.GetSelection ();
        return edit.GetText ().ToUtf8 () + "|" + std::to_string (selection.GetBegin ()) + "-" + std::to_string (selection.GetEnd ());
    }

    Wg::Panel                    panel;
    Wg::TextEdit                 edit {panel, Wg::Rect (0, 0, 100, 20)};
    Wg::TextEdit                 other {panel, Wg::Rect (0, 30, 100, 50)};
    std::string                  log;
    TestSupport::ControlRecorder recorder {log};
};

TEST_F (TextEditTest, OnlyATextThatDiffersIsAChange)
{
    edit.UserSetText ("pasted");
    edit.UserSetText ("pasted");
    EXPECT_EQ (recorder.Take (), "Text:pasted");
    // Typing back to the committed text is no change.
    edit.SetAutoUpdate (false);
    edit.UserType ("c");
    Press (Wg::Key::Return);
    EXPECT_EQ (recorder.Take (), "Text:pastedc");
    Press (Wg::Key::Backspace);
    edit.UserType ("c");
    Press (Wg::Key::Return);
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (TextEditTest, EscapeRestoresTheCommittedText)
{
    edit.SetText ("door");
    edit.SetAutoUpdate (false);
    edit.UserType ("x");
    Press (Wg::Key::Escape);
    EXPECT_EQ (State (), "door|4-4");

    // Observers that heard each keystroke hear the revert too.
    edit.SetAutoUpdate (true);
    edit.UserType ("xy");
    Press (Wg::Key::Escape);
    EXPECT_EQ (recorder.Take (), "Text:doorx Text:doorxy Text:door");
    // After a commit there is nothing left to revert.
    edit.UserType ("s");
    Press (Wg::Key::Return);
    Press (Wg::Key::Escape);
    EXPECT_EQ (recorder.Take (), "Text:doors");
}

TEST_F (TextEditTest, ReloadingTheSameTextKeepsCaretAndCommits)
{
    // The list re-loads its edit with the item's text after every keystroke.
    recorder.action = [this] { edit.SetText (edit.GetText ()); };
    edit.SetText ("hello");
    Press (Wg::Key::Home);
    Press (Wg::Key::Right);
    Press (Wg::Key::Right);
    edit.UserType ("XY");
    EXPECT_EQ (State (), "heXYllo|4-4");
    EXPECT_EQ (recorder.Take (), "Text:heXllo Text:heXYllo");

    recorder.action = nullptr;
    edit.SetText ("other");
    EXPECT_EQ (State (), "other|5-5");
    // The program's text counts as committed: nothing to revert, nothing to send.
    edit.SetAutoUpdate (false);
    Press (Wg::Key::Escape);
    Press (Wg::Key::Return);
    EXPECT_EQ (State (), "other|5-5");
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (TextEditTest, MaxLengthCutsAndRefusesCharacterByCharacter)
{
    Wg::TextEdit shortEdit (panel, Wg::Rect (0, 60, 100, 80), 0, 5);
    shortEdit.Attach (recorder);
    shortEdit.SetText ("abcdefgh");
    EXPECT_EQ (shortEdit.GetText (), "abcde");
    shortEdit.SetSelection (Kor::Range<int> (1, 3));
    shortEdit.UserType ("XYZ");
    EXPECT_EQ (shortEdit.GetText (), "aXYde");
    EXPECT_EQ (recorder.Take (), "Text:aXde Text:aXYde");
    shortEdit.UserSetText ("0123456789");
    EXPECT_EQ (recorder.Take (), "Text:01234");

    TestSupport::RecordingPeer peer;
    peer.AttachTo (shortEdit);
    shortEdit.SetMaxLength (0);
    shortEdit.SetMaxLength (3);
    EXPECT_EQ (shortEdit.GetText (), "012");
    EXPECT_EQ (peer.TakeLog (), "Bounds Text Selection");
    // A cut never splits a surrogate pair.
    shortEdit.SetText (u"ab\U0001F600");
    EXPECT_EQ (shortEdit.GetText (), "ab");
    EXPECT_EQ (recorder.Take (), "");
}

TEST_F (TextEditTest, EditingKeysWorkOnCharactersAndTheSelection)
{
    edit.SetText ("hello");
    edit.SetSelection (Kor::Range<int> (4, 1));
    EXPECT_EQ (State (), "hello|1-4");
    edit.UserType ("a");
    EXPECT_EQ (State (), "hao|2-2");
    Press (Wg::Key::Backspace);
    EXPECT_EQ (State (), "ho|1-1");
    Press (Wg::Key::Delete);
    EXPECT_EQ (State (), "h|1-1");
    Press (Wg::Key::Delete);
    Press (Wg::Key::Right);
    EXPECT_EQ (State (), "h|1-1");
    Press (Wg::Key::Home);
    Press (Wg::Key::Backspace);
    Press (Wg::Key::Left);
    EXPECT_EQ (State (), "h|0-0");
    edit.SetSelection (Kor::Range<int> (-3, 99));
    EXPECT_EQ (State (), "h|0-1");

    // A surrogate pair is one character for the caret and for deleting.
    edit.SetText (u"a\U0001F600b");
    Press (Wg::Key::Left);
    Press (Wg::Key::Left);
    EXPECT_EQ (State (), "a\xF0\x9F\x98\x80" "b|1-1");
    Press (Wg::Key::Delete);
    EXPECT_EQ (State (), "ab|1-1");
    EXPECT_EQ (recorder.Take (), "Text:hao Text:ho Text:h Text:ab");
}

TEST_F (TextEditTest, PeerHearsTextAndSelectionButNotSettersWithTheCurrentState)
{
    TestSupport::RecordingPeer peer;
    peer.AttachTo (edit);
    edit.UserType ("a");
    EXPECT_EQ (peer.TakeLog (), "Text Selection");
    edit.SetText ("a");
    edit.SetSelection (Kor::Range<int> (1, 1));
    edit.SetMaxLength (Wg::TextEdit::DefaultMaxLength);
    EXPECT_EQ (peer.TakeLog (), "");
    edit.SelectAll ();
    other.SetFocus ();
    EXPECT_EQ (peer.TakeLog (), "Selection Focus");
}

TEST_F (TextEditTest, DisabledOrHiddenEditIgnoresTheUser)
{
    edit.SetText ("keep");
    edit.Disable ();
    edit.UserType ("x");
    edit.UserSetText ("y");
    edit.Enable ();
    edit.Hide ();
    EXPECT_EQ (State (), "keep|4-4");
    EXPECT_EQ (recorder.Take (), "-focus");
}

TEST_F (TextEditTest, KeyboardHandlerSeesKeysFirstAndMaySwallowThem)
{
    struct Handler : Wg::KeyboardHandler {
        std::string& log;
        explicit Handler (std::string& log) : log (log) {}
        Wg::KeyResult KeyPressed (const Code& key, Wg::Item**) override
        {
            log += log.empty () ? "handler" : " handler";
            return key.GetCharacter () == u'x' ? Wg::KeyHandled : Wg::KeyNotHandled;
        }
        Wg::KeyResult KeyPressed (const Wg::Key::Modifier&, Wg::Item**) override { return Wg::KeyNotHandled; }
    } handler (log);
    panel.InstallKeyboardHandler (handler);
    EXPECT_TRUE (panel.KeyPress (Code::Character (u'x')));
    EXPECT_TRUE (panel.KeyPress (Code::Character (u'y')));
    panel.RemoveKeyboardHandler (handler);
    EXPECT_TRUE (panel.KeyPress (Code::Character (u'x')));
    EXPECT_EQ (recorder.Take (), "handler handler Text:y Text:yx");
}

TEST_F (TextEditTest, ObserverMayDetachOrDestroyTheEditWhileItNotifies)
{
    auto doomed = std::make_unique<Wg::TextEdit> (panel, Wg::Rect (0, 60, 100, 80));
    TestSupport::ControlRecorder detaching (log);
    detaching.action = [&] { doomed->Detach (detaching); };
    doomed->Attach (recorder);
    doomed->Attach (detaching);
    recorder.action = [&] {
        if (doomed->GetText () == "ab") doomed.reset ();
    };
    doomed->UserType ("abc");
    EXPECT_EQ (doomed, nullptr);
    EXPECT_EQ (recorder.Take (), "Text:a Text:a Text:ab");

    // Destroyed by the commit that the focus loss makes: the new item still gets the focus.
    doomed = std::make_unique<Wg::TextEdit> (panel, Wg::Rect (0, 60, 100, 80));
    doomed->Attach (recorder);
    doomed->SetAutoUpdate (false);
    doomed->SetFocus ();
    doomed->UserType ("ab");
    other.SetFocus ();
    EXPECT_EQ (doomed, nullptr);
    EXPECT_TRUE (other.IsFocused ());
    EXPECT_EQ (recorder.Take (), "-focus +focus Text:ab");

    // Destroyed by the commit that hiding it makes: nothing more happens to it.
    doomed = std::make_unique<Wg::TextEdit> (panel, Wg::Rect (0, 60, 100, 80));
    doomed->Attach (recorder);
    doomed->SetAutoUpdate (false);
    doomed->SetFocus ();
    doomed->UserType ("cd");
    recorder.action = [&] {
        if (log.find ("Text:cd") != std::string::npos) doomed.reset ();
    };
    doomed->Hide ();
    EXPECT_EQ (doomed, nullptr);
    EXPECT_EQ (panel.GetFocusedItem (), nullptr);
    EXPECT_EQ (recorder.Take (), "+focus Text:cd");
}

}   // namespace
