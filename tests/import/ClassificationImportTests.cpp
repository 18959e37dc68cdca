// The classification importer on the real CCI Construction file and on broken variants of it.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "CLS/ClassificationSystem.hpp"
#include "TxImport/ClassificationImport.hpp"

namespace {

const std::string CciFile = std::string (TXAL_DATA_DIR) + "/classification/cciconstruction-1.0.json";

std::string ReadAll (const std::string& path)
{
    std::ifstream in (path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf ();
    return out.str ();
}

// A document with the given classes, each "code[<parent]" and named after its code.
std::string Document (std::initializer_list<std::string> classes)
{
    std::string json = R"({"DictionaryName":"Test","DictionaryVersion":"2","Classes":[)";
    bool first = true;
    for (const std::string& entry : classes) {
        const std::size_t lt = entry.find ('<');
        const std::string code = entry.substr (0, lt);
        json += first ? "" : ",";
        first = false;
        json += R"({"Code":")" + code + R"(","Name":"N)" + code + "\"";
        if (lt != std::string::npos) json += R"(,"ParentClassCode":")" + entry.substr (lt + 1) + "\"";
        json += "}";
    }
    return json + "]}";
}

class ClassificationImportTest : public ::testing::Test {
protected:
    // "code(children...)" of the whole tree.
    static std::string Tree (const CLS::ClassificationSystem& system)
    {
        std::string out;
        int previousDepth = -1;
        system.TraverseClassificationsConst (CLS::DepthFirst, [&] (const ODB::ConstRef<CLS::IClassificationItem>& item) {
            int depth = 0;
            for (auto p = item->GetParent (); !p.IsNull (); p = p->GetParent ()) ++depth;
            for (int d = previousDepth; d >= depth; --d) out += d > 0 || d == depth ? ")" : "";
            if (depth <= previousDepth) out += depth == 0 ? " " : ",";
            out += item->GetCode ().ToUtf8 () + "(";
            previousDepth = depth;
            return true;
        });
        for (int d = previousDepth; d >= 0; --d) out += ")";
        return out;
    }

    ODB::Ref<CLS::ClassificationSystem> Import (const std::string& json)
    {
        return TxImport::ReadClassificationSystemJson (json, "test.json", diagnostics);
    }

    TxImport::ImportDiagnostics diagnostics;
};

TEST_F (ClassificationImportTest, RealFileGivesEveryClassInItsPlace)
{
    const auto system = TxImport::ReadClassificationSystemFile (CciFile, diagnostics);
    ASSERT_FALSE (system.IsNull ()) << diagnostics.ToString ();
    EXPECT_TRUE (diagnostics.IsClean ()) << diagnostics.ToString ();
    EXPECT_EQ (system->GetDisplayName (), "CCI Construction 1.0");
    EXPECT_EQ (system->GetItemCount (), 1247u);

    std::string roots;
    for (const auto& root : system->GetRootItems ()) roots += root->GetCode ().ToUtf8 () + " ";
    EXPECT_EQ (roots, "cefc cetc ceco uoce uocs ");
    int deepest = 0;
    CLS::ClassificationSystem::TraverseClassificationsConstTyped (system.AsConst (), CLS::DepthFirst, [&] (const auto& item) {
        deepest = std::max (deepest, item->GetDepth () + 1);
        return true;
    });
    EXPECT_EQ (deepest, 4);

    const auto railroad = system->FindItemByCode ("L-R");
    ASSERT_FALSE (railroad.IsNull ());
    EXPECT_EQ (railroad->GetName (), "Railroad system");
    EXPECT_EQ (railroad->GetDescription (), "installation system guiding and directing track-bound vehicles");
    EXPECT_EQ (railroad->GetParentTyped ()->GetCode (), "cefc");
    const auto shield = system->FindItemByCode ("L-FEA");
    ASSERT_FALSE (shield.IsNull ());
    EXPECT_EQ (shield->GetName (), "Electric field shield");
    EXPECT_EQ (shield->GetDepth (), 3);
    EXPECT_EQ (shield->GetParentTyped ()->GetCode (), "L-FE_");
}

TEST_F (ClassificationImportTest, ParentsMayComeLaterAndSiblingsKeepFileOrder)
{
    const auto system = Import (Document ({"c<b", "a", "b<a", "d<a", "e<b", "f"}));
    EXPECT_EQ (Tree (*system), "a(b(c(),e()),d()) f()");
    EXPECT_TRUE (diagnostics.IsClean ()) << diagnostics.ToString ();
    EXPECT_EQ (system->GetDisplayName (), "Test 2");
}

TEST_F (ClassificationImportTest, UnmappableClassesAreReportedByCodeAndLeftOutWithTheirSubtrees)
{
    const auto system = Import (Document ({"a", "b<missing", "c<b", "x<y", "y<x", "z<y", "a<a", "ok<a"}) );
    EXPECT_EQ (Tree (*system), "a(ok())");
    EXPECT_EQ (diagnostics.ToString (),
               "test.json: class 'a': duplicate code; the first class with it is kept\n"
               "test.json: class 'b': its parent class 'missing' does not exist\n"
               "test.json: class 'c': its parent class 'b' could not be imported\n"
               "test.json: class 'x': its parent classes form a cycle\n"
               "test.json: class 'y': its parent classes form a cycle\n"
               "test.json: class 'z': its parent class 'y' could not be imported\n");
}

TEST_F (ClassificationImportTest, ClassesWithoutUsableFieldsAreReportedByPosition)
{
    const auto system = Import (R"({"Classes":[{"Name":"no code"},{"Code":""},7,{"Code":3},{"Code":"n","Name":["list"]},
                                   {"Code":"good","Name":null,"Definition":null}]})");
    EXPECT_EQ (Tree (*system), "good()");
    EXPECT_EQ (system->FindItemByCode ("good")->GetDisplayName (), "good");
    EXPECT_EQ (diagnostics.ToString (),
               "test.json: class #1: no code\n"
               "test.json: class #2: no code\n"
               "test.json: class #3: not an object\n"
               "test.json: class #4: no code\n"
               "test.json: class 'n': its name, definition or parent code is not a text\n");
}

TEST_F (ClassificationImportTest, BrokenDocumentsGiveOneClearProblemAndNoSystem)
{
    const std::string real = ReadAll (CciFile);
    ASSERT_GT (real.size (), 1000u);
    for (const std::string& broken : {real.substr (0, real.size () / 2), std::string ("{\"Classes\": {}}"), std::string ("[]"),
                                      std::string (""), std::string ("\xEF\xBB\xBF"), std::string ("{\"Classes\":[{\"Code\":\"\xC3\x28\"}]}"),
                                      real + "}"}) {
        TxImport::ImportDiagnostics problems;
        EXPECT_TRUE (TxImport::ReadClassificationSystemJson (broken, "cci.json", problems).IsNull ());
        ASSERT_EQ (problems.GetCount (), 1u) << problems.ToString ();
        EXPECT_EQ (problems.GetProblems ()[0].file, "cci.json");
    }
    TxImport::ImportDiagnostics missing;
    EXPECT_TRUE (TxImport::ReadClassificationSystemFile ("/nonexistent/cci.json", missing).IsNull ());
    EXPECT_EQ (missing.ToString (), "/nonexistent/cci.json: file: cannot be opened\n");
}

TEST_F (ClassificationImportTest, ByteOrderMarksAroundTheDocumentAreIgnored)
{
    const std::string doc = Document ({"a", "b<a"});
    for (const std::string& variant : {"\xEF\xBB\xBF" + doc, doc + "\xEF\xBB\xBF", " \xEF\xBB\xBF\r\n" + doc + "\r\n\xEF\xBB\xBF\xEF\xBB\xBF\n"}) {
        TxImport::ImportDiagnostics problems;
        const auto system = TxImport::ReadClassificationSystemJson (variant, "bom.json", problems);
        ASSERT_FALSE (system.IsNull ()) << problems.ToString ();
        EXPECT_EQ (system->GetItemCount (), 2u);
    }
}

}   // namespace
