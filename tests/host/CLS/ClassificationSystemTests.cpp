// The classification library: building a system, the two traversal orders and their early
// stop, the element's classification data, decorated names, and references that compare by
// identity.

#include <gtest/gtest.h>

#include <string>

#include "CLS/ClassificationHierarchyConflictManager.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "CLS/ElemClassificationData.hpp"
#include "Kor/HashSet.hpp"

namespace {

using CLS::ClassificationItem;
using CLS::ClassificationSystem;
using ItemRef = ODB::ConstRef<ClassificationItem>;

class ClassificationSystemTest : public ::testing::Test {
protected:
    ClassificationSystemTest ()
    {
        elements = system->AddItem ({}, "EF", "Elements", "  Parts of a building  ");
        walls = system->AddItem (elements, "EF_25", "Walls");
        external = system->AddItem (walls, "EF_25_10", "External walls");
        internal = system->AddItem (walls, "EF_25_30", "Internal walls");
        roofs = system->AddItem (elements, "EF_30", "Roofs");
        systems = system->AddItem ({}, "Ss", "Systems");
        frames = system->AddItem (systems, "Ss_20", "");
    }

    std::string Codes (int mode, const std::string& stopAt = {}) const
    {
        std::string out;
        system->TraverseClassificationsConst (mode, [&] (const ODB::ConstRef<CLS::IClassificationItem>& item) {
            out += (out.empty () ? "" : " ") + item->GetCode ().ToUtf8 ();
            return item->GetCode ().ToUtf8 () != stopAt;
        });
        return out;
    }

    ODB::Ref<ClassificationSystem> system = ClassificationSystem::Create ("Uniclass", "2015");
    ItemRef elements, walls, external, internal, roofs, systems, frames;
};

TEST_F (ClassificationSystemTest, TraversalsVisitParentsFirstInTheirOrderAndStopOnFalse)
{
    EXPECT_EQ (Codes (CLS::DepthFirst), "EF EF_25 EF_25_10 EF_25_30 EF_30 Ss Ss_20");
    EXPECT_EQ (Codes (CLS::LevelOrder), "EF Ss EF_25 EF_30 Ss_20 EF_25_10 EF_25_30");
    EXPECT_EQ (Codes (CLS::DepthFirst, "EF_25_10"), "EF EF_25 EF_25_10");
    EXPECT_EQ (Codes (CLS::LevelOrder, "EF"), "EF");

    std::string typed;
    ClassificationSystem::TraverseClassificationsConstTyped (system.AsConst (), CLS::LevelOrder, [&] (const ItemRef& item) {
        typed += std::to_string (item->GetDepth ());
        return true;
    });
    EXPECT_EQ (typed, "0011122");
    ClassificationSystem::TraverseClassificationsConstTyped ({}, CLS::DepthFirst, [&] (const ItemRef&) {
        ADD_FAILURE () << "an empty system has nothing to visit";
        return true;
    });
}

TEST_F (ClassificationSystemTest, ItemsKnowTheirPlaceAndNames)
{
    EXPECT_EQ (system->GetDisplayName (), "Uniclass 2015");
    EXPECT_EQ (ClassificationSystem::Create ("Own", "")->GetDisplayName (), "Own");
    EXPECT_EQ (system->GetItemCount (), 7u);
    EXPECT_TRUE (external->GetParent () == walls);
    EXPECT_TRUE (elements->GetParent ().IsNull ());
    EXPECT_EQ (walls->GetChildren ().size (), 2u);
    EXPECT_TRUE (walls->HasChildren ());
    EXPECT_FALSE (roofs->HasChildren ());
    EXPECT_TRUE (system->FindItemByCode ("EF_30") == roofs);
    EXPECT_TRUE (system->FindItemByCode ("XX").IsNull ());
    EXPECT_EQ (frames->GetDisplayName (), "Ss_20") << "an item without a name shows its code";
    EXPECT_EQ (walls->GetDisplayName (), "Walls");

    using Manager = CLS::ClassificationHierarchyConflictManager;
    EXPECT_EQ (Manager::GetItemDecoratedDisplayName (walls), "EF_25 Walls");
    EXPECT_EQ (Manager::GetItemDecoratedDisplayName (frames), "Ss_20");
    EXPECT_EQ (Manager::GetItemDecoratedDisplayName (system->AddItem ({}, "", "Unnamed code")), "Unnamed code");
    EXPECT_EQ (Manager::GetItemDecoratedDisplayName ({}), "");
}

TEST_F (ClassificationSystemTest, AnItemOfAnotherSystemIsNeitherParentNorChoice)
{
    auto other = ClassificationSystem::Create ("Other", "1");
    const ItemRef foreign = other->AddItem ({}, "X", "Foreign");
    EXPECT_TRUE (system->AddItem (foreign, "Y", "Child").IsNull ());
    EXPECT_EQ (system->GetItemCount (), 7u);

    CLS::ElemClassificationData data (system.AsConst (), {}, false);
    EXPECT_FALSE (data.SetClassificationItem (foreign));
    EXPECT_FALSE (data.HasClassificationItem ());
}

TEST_F (ClassificationSystemTest, ElementDataReportsOnlyRealChanges)
{
    CLS::ElemClassificationData data (system.AsConst (), walls, true);
    std::string log;
    for (const ItemRef& item : {walls, roofs, roofs, ItemRef (), ItemRef (), walls}) log += data.SetClassificationItem (item) ? "1" : "0";
    EXPECT_EQ (log, "010101");
    data.SwitchAssociatedWithElemFlag ();
    EXPECT_FALSE (data.IsAssociatedWithElem ());
    data.SwitchAssociatedWithElemFlag ();
    EXPECT_TRUE (data.IsAssociatedWithElem ());
}

TEST_F (ClassificationSystemTest, ReferencesCompareAndHashByIdentityAcrossViews)
{
    const ODB::ConstRef<CLS::IClassificationItem> asInterface = walls;
    EXPECT_TRUE (asInterface == walls);
    EXPECT_TRUE (walls->GetChildren ()[0]->GetParent () == asInterface);
    Kor::HashSet<ODB::ConstRef<CLS::IClassificationItem>> set;
    set.Add (walls);
    EXPECT_TRUE (set.Contains (external->GetParent ()));
    EXPECT_FALSE (set.Contains (roofs));
    EXPECT_TRUE (asInterface.DynamicCastTo<ClassificationItem> () == walls);

    const ItemRef none;
    EXPECT_THROW ((void) none->GetCode (), Kor::NullReferenceException);
}

TEST_F (ClassificationSystemTest, ItemsOutliveTheirSystemWithoutKeepingItAlive)
{
    std::weak_ptr<ClassificationSystem> watch = system.GetShared ();
    const ItemRef kept = external;
    elements = walls = external = internal = roofs = systems = frames = {};
    system = {};
    EXPECT_TRUE (watch.expired ());
    EXPECT_EQ (kept->GetCode (), "EF_25_10");
    EXPECT_TRUE (kept->GetParent ().IsNull ()) << "the parent went with the system";
}

}   // namespace
