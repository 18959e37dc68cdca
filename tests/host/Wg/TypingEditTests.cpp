// The keys and the focus loss that every one-line edit reads alike, whatever it holds.

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <utility>

#include "ControlRecorder.hpp"
#include "Wg/NumberEdit.hpp"
#include "Wg/Panel.hpp"
#include "Wg/TextEdit.hpp"

namespace {

using Wg::Key::Code;

template <typename Edit>
class TypingEditTest : public ::testing::Test {
protected:
    TypingEditTest ()
    {
        edit.Attach (recorder);
        edit.SetFocus ();
        log.clear ();
    }

    // Keys go to the edit through what all edits share.
    bool Press (const Code& key) { return static_cast<Wg::TypingEdit&> (edit).HandleKey (key); }

    // The observer calls with the kind of change left out: "7 -focus".
    std::string TakeLog ()
    {
        std::string taken = std::regex_replace (log, std::regex ("[A-Za-z]+:"), "");
        log.clear ();
        return taken;
    }

    Wg::Panel                    panel;
    Edit                         edit {panel, Wg::Rect (0, 0, 100, 20)};
    Wg::TextEdit                 other {panel, Wg::Rect (0, 30, 100, 50)};
    std::string                  log;
    TestSupport::ControlRecorder recorder {log};
};

using Edits = ::testing::Types<Wg::TextEdit, Wg::RealEdit, Wg::IntEdit, Wg::PosIntEdit>;
TYPED_TEST_SUITE (TypingEditTest, Edits);

TYPED_TEST (TypingEditTest, WithoutAutoUpdateReturnEnterAndTabCommitOnceAndOnlyTabIsLeftToThePanel)
{
    this->edit.SetAutoUpdate (false);
    // Each key commits another digit, then finds nothing left to commit.
    std::string out;
    const std::pair<int, const char*> keys[] = {{Wg::Key::Return, "7"}, {Wg::Key::Enter, "8"}, {Wg::Key::Tab, "9"}};
    for (const auto& [key, digit] : keys) {
        this->edit.UserSetText (digit);
        out += this->TakeLog () + "|";
        for (int press = 0; press < 2; ++press) {
            const bool used = this->Press (Code (key));
            out += (used ? "used " : "unused ") + this->TakeLog () + "|";
        }
    }
    EXPECT_EQ (out, "|used 7|used |" "|used 8|used |" "|unused 9|unused |");
}

TYPED_TEST (TypingEditTest, EscapeDropsTheTypingUnheard)
{
    this->edit.SetAutoUpdate (false);
    const std::string before = this->edit.GetText ().ToUtf8 ();
    this->edit.UserType ("7");
    EXPECT_TRUE (this->Press (Code (Wg::Key::Escape)));
    EXPECT_EQ (this->edit.GetText ().ToUtf8 (), before);
    this->Press (Code (Wg::Key::Return));
    EXPECT_EQ (this->TakeLog (), "");
}

TYPED_TEST (TypingEditTest, TheFocusLeavingCommitsBeforeTheLossIsHeard)
{
    this->edit.SetAutoUpdate (false);
    this->edit.UserType ("7");
    this->other.SetFocus ();
    EXPECT_EQ (this->TakeLog (), "7 -focus");
}

TYPED_TEST (TypingEditTest, WithAutoUpdateEachCharacterIsHeardAndACommitOrFocusLossAddsNothing)
{
    this->edit.UserType ("7");
    EXPECT_EQ (this->TakeLog (), "7");
    EXPECT_TRUE (this->Press (Code::Character (u'8')));
    EXPECT_NE (this->TakeLog (), "");
    this->Press (Code (Wg::Key::Return));
    EXPECT_EQ (this->TakeLog (), "");
    // Nor does the commit that the focus loss makes.
    this->edit.UserType ("9");
    this->TakeLog ();
    this->other.SetFocus ();
    EXPECT_EQ (this->TakeLog (), "-focus");
}

TYPED_TEST (TypingEditTest, ShortcutsAndControlCharactersAreLeftToTheHost)
{
    const std::string before = this->edit.GetText ().ToUtf8 ();
    EXPECT_FALSE (this->Press (Code::Character (u'x', Wg::Key::CommandFlag)));
    EXPECT_FALSE (this->Press (Code::Character (u'\x01')));
    this->edit.UserType (Kor::UniString ("\t"));
    EXPECT_EQ (this->edit.GetText ().ToUtf8 (), before);
    EXPECT_EQ (this->TakeLog (), "");
}

TYPED_TEST (TypingEditTest, ADisabledOrHiddenEditTakesNoKey)
{
    this->edit.Disable ();
    EXPECT_FALSE (this->Press (Code::Character (u'7')));
    EXPECT_FALSE (this->Press (Code (Wg::Key::Return)));
    this->edit.Enable ();
    this->edit.Hide ();
    this->TakeLog ();
    this->edit.UserType ("7");
    EXPECT_FALSE (this->Press (Code (Wg::Key::Escape)));
    EXPECT_EQ (this->TakeLog (), "");
}

}   // namespace
