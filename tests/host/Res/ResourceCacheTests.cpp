#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "Kor/Assert.hpp"
#include "Res/Diagnostics.hpp"
#include "Res/ResourceCache.hpp"
#include "Res/ResourceError.hpp"
#include "Res/ResidentModule.hpp"

namespace fs = std::filesystem;

namespace {

constexpr const char* GoodStrings = "[5]\n1 = Five one\n2 = Five two\n[6]\n1 = Six one\n";
constexpr const char* GoodAnchors = "[20197]\n3 = classification-page-list\n";
constexpr const char* GoodIcon = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"12\"/>";

// Each test gets a fresh folder and fresh module names, since the cache lives for the process.
class ResourceCacheTest : public ::testing::Test {
protected:
    void SetUp () override
    {
        static std::atomic<int> counter { 0 };
        const std::string unique = std::to_string (::getpid ()) + "-" + std::to_string (counter++);
        root = fs::temp_directory_path () / ("txal-res-tests-" + unique);
        moduleName = "TestModule-" + unique;
        fs::create_directories (root);
    }

    void TearDown () override
    {
        std::error_code ignored;
        fs::remove_all (root, ignored);
    }

    void Write (const std::string& relative, const std::string& contents) const
    {
        const fs::path path = root / relative;
        fs::create_directories (path.parent_path ());
        std::ofstream (path, std::ios::binary) << contents;
    }

    void WriteGoodModule () const
    {
        Write ("strings.txt", GoodStrings);
        Write ("helpanchors.txt", GoodAnchors);
        Write ("icons/7.svg", GoodIcon);
        Write ("icons/notes.txt", "not an icon, ignored");
        Write ("README", "ignored as well");
    }

    std::string LoadError () const
    {
        try {
            Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ());
        } catch (const Res::ResourceError& error) {
            // Relative to the folder, so that the expectation does not depend on the temp path.
            std::string text = error.what ();
            const std::string prefix = root.string ();
            if (text.rfind (prefix, 0) == 0) text = "<dir>" + text.substr (prefix.size ());
            return text;
        }
        return "no error";
    }

    static std::string StringOf (Res::ModuleHandle module, int resId, int index)
    {
        Kor::UniString result ("stale");
        const bool found = Res::ResGetIndString_ParamAdapter ("Test", 1, resId, index, module, Res::PlainStringType, result);
        return (found ? "" : "miss:") + result.ToUtf8 ();
    }

    fs::path    root;
    std::string moduleName;
};

}   // namespace

TEST_F (ResourceCacheTest, FolderImageAnswersEveryLookup)
{
    WriteGoodModule ();
    const Res::ModuleHandle module = Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ());
    ASSERT_GT (module, 0);
    EXPECT_EQ (StringOf (module, 5, 1) + "|" + StringOf (module, 5, 2) + "|" + StringOf (module, 6, 1), "Five one|Five two|Six one");
    EXPECT_EQ (Res::ResGetHelpAnchor (module, 20197, 3), "classification-page-list");
    EXPECT_EQ (Res::ResGetHelpAnchor (module, 20197, 4), "");
    EXPECT_EQ (Res::GetIconSize (module, 7), Gfx::Size (9, 12));
    ASSERT_NE (Res::GetIconSvg (module, 7), nullptr);
    EXPECT_EQ (*Res::GetIconSvg (module, 7), GoodIcon);
    EXPECT_EQ (Res::GetIconSize (module, 8), std::nullopt);
    EXPECT_EQ (Res::GetIconSvg (module, 8), nullptr);
    Res::ResRemoveModuleImageCache (module);
}

TEST_F (ResourceCacheTest, MissesAreReportedWithTheCallersTags)
{
    WriteGoodModule ();
    const Res::ModuleHandle module = Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ());
    Res::ScopedMissCapture misses;
    Kor::UniString result ("stale");
    EXPECT_FALSE (Res::ResGetIndString_ParamAdapter ("TxAttributeListResIds", 16, 5, 9, module, 0, result));
    EXPECT_TRUE (result.IsEmpty ());
    EXPECT_FALSE (Res::ResGetIndString_ParamAdapter ("Caller", 22, 404, 1, module, 0, result));
    EXPECT_FALSE (Res::ResGetIndString_ParamAdapter (nullptr, 3, 5, 1, Res::NoModule, 0, result));
    EXPECT_TRUE (Res::ResGetIndString_ParamAdapter ("Caller", 30, 5, 1, module, 0, result));
    ASSERT_EQ (misses.GetReports ().size (), 3u);
    const std::string handle = std::to_string (module);
    EXPECT_EQ (misses.GetReports ()[0].ToString (), "missing string 5/9 in module " + handle + ", asked at TxAttributeListResIds:16");
    EXPECT_EQ (misses.GetReports ()[1].ToString (), "missing string 404/1 in module " + handle + ", asked at Caller:22");
    EXPECT_EQ (misses.GetReports ()[2].ToString (), "missing string 5/1 in module 0, asked at :3");
    Res::ResRemoveModuleImageCache (module);
}

TEST_F (ResourceCacheTest, UseCountKeepsTheHandleUntilTheLastRemove)
{
    WriteGoodModule ();
    const Res::ModuleHandle module = Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ());
    EXPECT_EQ (Res::ResInitModuleImageCache (moduleName.c_str ()), module);
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 2);

    Res::ResRemoveModuleImageCache (module);
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 1);
    EXPECT_EQ (StringOf (module, 5, 1), "Five one");

    Res::ResRemoveModuleImageCache (module);
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 0);
    EXPECT_EQ (StringOf (module, 5, 1), "miss:");
    EXPECT_EQ (Res::GetIconSize (module, 7), std::nullopt);

    // The folder stays registered: a new load reads it again under a new handle.
    const Res::ModuleHandle again = Res::ResInitModuleImageCache (moduleName.c_str ());
    EXPECT_GT (again, module);
    EXPECT_EQ (StringOf (again, 6, 1), "Six one");
    Res::ResRemoveModuleImageCache (again);
}

TEST_F (ResourceCacheTest, LoadingAgainReplacesTheCachedImageUnderTheSameHandle)
{
    WriteGoodModule ();
    const Res::ModuleHandle module = Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ());
    Write ("strings.txt", "[5]\n1 = Edited\n");
    EXPECT_EQ (Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ()), module);
    EXPECT_EQ (StringOf (module, 5, 1) + "|" + StringOf (module, 6, 1), "Edited|miss:");

    // A failed reload changes nothing.
    Write ("strings.txt", "[5]\n1 = a\n1 = b\n");
    EXPECT_THROW (Res::ResLoadModuleImageFromDirectory (root.string (), moduleName.c_str ()), Res::ResourceError);
    EXPECT_EQ (StringOf (module, 5, 1), "Edited");
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 2);
    Res::ResRemoveModuleImageCache (module);
    Res::ResRemoveModuleImageCache (module);
}

TEST_F (ResourceCacheTest, MalformedFolderErrorsNameFileAndLine)
{
    EXPECT_EQ (LoadError (), "<dir>/strings.txt:1: missing: every module image has a strings.txt");

    Write ("strings.txt", "[5]\n1 = a\n");
    Write ("helpanchors.txt", "[1]\n\n2 anchor\n");
    EXPECT_EQ (LoadError (), "<dir>/helpanchors.txt:3: expected '[<id>]' or '<index> = <text>', found '2 anchor'");

    fs::remove (root / "helpanchors.txt");
    Write ("icons/12a.svg", GoodIcon);
    EXPECT_EQ (LoadError (), "<dir>/icons/12a.svg:1: an icon file is named after its id, like icons/2001.svg");

    fs::remove (root / "icons/12a.svg");
    Write ("icons/12.svg", "<svg\n  fill=\"red\"/>");
    EXPECT_EQ (LoadError (), "<dir>/icons/12.svg:1: the <svg> element has neither width and height nor a viewBox, so the icon has no size");

    Write ("icons/12.svg", std::string ("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    EXPECT_EQ (LoadError (), "<dir>/icons/12.svg:1: byte 0x89 at column 1 is not valid UTF-8");

    fs::remove_all (root);
    EXPECT_EQ (LoadError (), "<dir>:1: not a folder: a module image is a folder with a strings.txt");
    EXPECT_EQ (Res::ResGetModuleUseCount (1000000), 0);
}

TEST_F (ResourceCacheTest, InitReportsABadImageAndReturnsNoModule)
{
    Write ("strings.txt", "[5]\n1 = a\n[5]\n2 = b\n");
    Res::ResRegisterModuleImageDirectory (moduleName.c_str (), root.string ());
    Kor::ScopedAssertCapture asserts;
    EXPECT_EQ (Res::ResInitModuleImageCache (moduleName.c_str ()), Res::NoModule);
    ASSERT_EQ (asserts.GetCount (), 1u);
    EXPECT_EQ (asserts.GetReports ()[0].file, (root / "strings.txt").string ());
    EXPECT_EQ (asserts.GetReports ()[0].line, 3);
    EXPECT_EQ (asserts.GetReports ()[0].condition, "list 5 appears twice (first at line 1)");

    asserts.Clear ();
    EXPECT_EQ (Res::ResInitModuleImageCache ("NoSuchModule"), Res::NoModule);
    EXPECT_EQ (Res::ResInitModuleImageCache (nullptr), Res::NoModule);
    ASSERT_EQ (asserts.GetCount (), 2u);
    EXPECT_EQ (asserts.GetReports ()[0].condition, "no module image named 'NoSuchModule'");
}

TEST_F (ResourceCacheTest, RemovingAnUnknownHandleIsReportedAndHarmless)
{
    Kor::ScopedAssertCapture asserts;
    Res::ResRemoveModuleImageCache (Res::NoModule);
    Res::ResRemoveModuleImageCache (-4);
    EXPECT_EQ (asserts.GetCount (), 0u);
    Res::ResRemoveModuleImageCache (987654321);
    EXPECT_EQ (asserts.GetCount (), 1u);
}

TEST_F (ResourceCacheTest, InMemoryImageIsReadOnFirstUse)
{
    Res::ResRegisterModuleImage (moduleName.c_str (), { { "strings.txt", "[1]\n1 = \"  In memory  \"\n" },
                                                        { "icons/3.svg", "<svg viewBox=\"0 0 80 12\"/>" } });
    const Res::ModuleHandle module = Res::ResInitModuleImageCache (moduleName.c_str ());
    EXPECT_EQ (StringOf (module, 1, 1), "  In memory  ");
    EXPECT_EQ (Res::GetIconSize (module, 3), Gfx::Size (80, 12));
    ASSERT_NE (Res::ResGetModuleImage (module), nullptr);
    EXPECT_EQ (Res::ResGetModuleImage (module)->GetIcons ().size (), 1u);
    Res::ResRemoveModuleImageCache (module);

    // Errors in an in-memory image name the module and the file.
    Res::ResRegisterModuleImage (moduleName.c_str (), { { "strings.txt", "[1]\n1 = ok\nbroken\n" } });
    Kor::ScopedAssertCapture asserts;
    EXPECT_EQ (Res::ResInitModuleImageCache (moduleName.c_str ()), Res::NoModule);
    ASSERT_EQ (asserts.GetCount (), 1u);
    EXPECT_EQ (asserts.GetReports ()[0].ToString (),
               "Res error assertion failed at " + moduleName + "/strings.txt:3 (expected '[<id>]' or '<index> = <text>', found 'broken')");
}

TEST_F (ResourceCacheTest, ResidentModuleLoadsOnceAndRetriesAFailedLoad)
{
    Res::ResidentModule resident (moduleName.c_str (), "ResidentTag");
    {
        // Nothing registered yet: the load fails and is reported, and a lookup finds nothing.
        Kor::ScopedAssertCapture asserts;
        Res::ScopedMissCapture   misses;
        EXPECT_EQ (resident.GetHandle (), Res::NoModule);
        EXPECT_EQ (resident.GetString (5, 1), "");
        EXPECT_EQ (asserts.GetCount (), 2u);
        ASSERT_EQ (misses.GetReports ().size (), 1u);
    }
    WriteGoodModule ();
    Res::ResRegisterModuleImageDirectory (moduleName.c_str (), root.string ());
    const Res::ModuleHandle module = resident.GetHandle ();
    ASSERT_GT (module, Res::NoModule);
    EXPECT_EQ (resident.GetString (6, 1), "Six one");
    // Further uses neither load again nor count more uses.
    EXPECT_EQ (resident.GetHandle (), module);
    EXPECT_EQ (Res::ResGetModuleUseCount (module), 1);

    Res::ScopedMissCapture misses;
    EXPECT_EQ (resident.GetString (6, 2), "");
    ASSERT_EQ (misses.GetReports ().size (), 1u);
    EXPECT_EQ (misses.GetReports ()[0].ToString (), "missing string 6/2 in module " + std::to_string (module) + ", asked at ResidentTag:1");
    Res::ResRemoveModuleImageCache (module);
}

TEST (BuiltInModuleTest, EmbeddedImagesLoadFromAnyWorkingDirectory)
{
    const fs::path previous = fs::current_path ();
    fs::current_path (fs::temp_directory_path ());
    const Res::ModuleHandle library = Res::ResInitModuleImageCache ("TxAttributeList");
    const Res::ModuleHandle utilities = Res::ResInitModuleImageCache ("KorUtils");
    fs::current_path (previous);

    ASSERT_GT (library, 0);
    ASSERT_GT (utilities, 0);
    EXPECT_NE (library, utilities);
    Kor::UniString text;
    EXPECT_TRUE (Res::ResGetIndString_ParamAdapter ("Test", 1, 101, 1, utilities, 0, text));
    EXPECT_EQ (text, "Yes");
    EXPECT_EQ (Res::GetIconSize (library, 31849), Gfx::Size (98, 14));
    ASSERT_NE (Res::GetIconSvg (library, 31849), nullptr);
    EXPECT_EQ (Res::GetIconSvg (library, 31849)->rfind ("<svg", 0), 0u);
    Res::ResRemoveModuleImageCache (library);
    Res::ResRemoveModuleImageCache (utilities);
}
