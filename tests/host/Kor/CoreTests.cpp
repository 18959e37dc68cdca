#include <gtest/gtest.h>

#include <unordered_set>

#include "Kor/Array.hpp"
#include "Kor/Assert.hpp"
#include "Kor/Guid.hpp"
#include "Kor/HashSet.hpp"
#include "Kor/HashTable.hpp"
#include "Kor/Object.hpp"
#include "Kor/Owner.hpp"
#include "Kor/Range.hpp"
#include "Kor/Ref.hpp"

namespace {

struct Base : Kor::Object {
    int value = 1;
};
struct Derived : Base {
    Derived () { value = 2; }
};
struct Unrelated : Kor::Object {};

template <typename Fn>
std::string ThrownText (Fn fn)
{
    try {
        fn ();
    } catch (const std::exception& e) {
        return e.what ();
    }
    return "";
}

}   // namespace

TEST (ReferenceTest, NullDereferenceThrowsNullReference)
{
    Kor::Ref<Base> ref;
    Kor::Owner<Base> owner;
    Kor::ConstSharedPtr<Base> shared;
    EXPECT_EQ (ThrownText ([&] { (void) ref->value; }), "Null reference.");
    EXPECT_EQ (ThrownText ([&] { (void) *owner; }), "Null reference.");
    EXPECT_EQ (ThrownText ([&] { (void) shared->value; }), "Null reference.");
    EXPECT_THROW ((void) *ref, Kor::NullReferenceException);
}

TEST (ReferenceTest, RefSharesAndCasts)
{
    Kor::Ref<Base> a = Kor::NewRef<Derived> ();
    Kor::Ref<Base> b = a;
    EXPECT_EQ (a.GetCount (), 2);
    EXPECT_TRUE (a == b);
    EXPECT_EQ (a.DynamicCastTo<Derived> ()->value, 2);
    EXPECT_TRUE (Kor::NewRef<Base> ().DynamicCastTo<Derived> ().IsNull ());
    EXPECT_EQ (ThrownText ([] { Kor::NewRef<Base> ().CheckedCastTo<Derived> (); }), "Bad cast.");
    EXPECT_TRUE (Kor::Ref<Base> ().CheckedCastTo<Derived> ().IsNull ());
}

TEST (ReferenceTest, CheckedCastOfObjects)
{
    Derived d;
    Unrelated u;
    Kor::Object& od = d;
    Kor::Object& ou = u;
    EXPECT_EQ (Kor::CheckedCast<Base> (od).value, 2);
    EXPECT_EQ (ThrownText ([&] { Kor::CheckedCast<Base> (ou); }), "Bad cast.");
    EXPECT_EQ (Kor::DynamicCast<Base> (&ou), nullptr);
}

TEST (ReferenceTest, OwnerTransfersAndReleases)
{
    Kor::Owner<Base> owner = Kor::NewOwner<Derived> ();
    Kor::Owner<Base> moved = std::move (owner);
    EXPECT_TRUE (owner.IsNull ());
    EXPECT_EQ (moved->value, 2);
    std::unique_ptr<Base> taken (moved.Release ());
    EXPECT_TRUE (moved.IsNull ());
}

TEST (ContainerTest, ArrayCheckedAccess)
{
    Kor::Array<int> a {1, 2, 3};
    a.Insert (1, 9);
    EXPECT_EQ (a, (Kor::Array<int> {1, 9, 2, 3}));
    a.Delete (0);
    EXPECT_EQ (a.GetLast (), 3);
    EXPECT_EQ (a.FindFirst (2), 1u);
    EXPECT_FALSE (a.FindFirst (7).has_value ());
    EXPECT_THROW (a.Get (3), Kor::IndexOutOfRangeException);
    EXPECT_THROW (a.Insert (5, 0), Kor::IndexOutOfRangeException);
    EXPECT_THROW (Kor::Array<int> ().DeleteLast (), Kor::IndexOutOfRangeException);
    EXPECT_TRUE (a.DeleteFirst (9));
    EXPECT_FALSE (a.DeleteFirst (9));
}

TEST (ContainerTest, HashTableMissingKeyThrows)
{
    Kor::HashTable<Kor::UniString, int> table;
    EXPECT_TRUE (table.Add ("wall", 1));
    EXPECT_FALSE (table.Add ("wall", 2));
    EXPECT_EQ (table.Get ("wall"), 1);
    table.Put ("wall", 3);
    EXPECT_EQ (table.Get ("wall"), 3);
    EXPECT_THROW (table.Get ("slab"), Kor::KeyNotFoundException);
    EXPECT_EQ (table.GetPtr ("slab"), nullptr);

    Kor::HashSet<Kor::Guid> set;
    const Kor::Guid g = Kor::Guid::Generate ();
    EXPECT_TRUE (set.Add (g));
    EXPECT_FALSE (set.Add (g));
    EXPECT_TRUE (set.Contains (g));
}

TEST (GuidTest, ParsePrintAndGenerate)
{
    const auto g = Kor::Guid::Parse ("{6c2bd2a0-1f0e-4b2d-9a43-0c1d2e3f4a5b}");
    ASSERT_TRUE (g.has_value ());
    EXPECT_EQ (g->ToUniString (), "6C2BD2A0-1F0E-4B2D-9A43-0C1D2E3F4A5B");
    EXPECT_EQ (Kor::Guid::Parse (g->ToUniString ()), g);
    EXPECT_FALSE (Kor::Guid::Parse ("6c2bd2a0-1f0e-4b2d-9a43-0c1d2e3f4a5").has_value ());
    EXPECT_FALSE (Kor::Guid::Parse ("6c2bd2a0x1f0e-4b2d-9a43-0c1d2e3f4a5b").has_value ());
    EXPECT_FALSE (Kor::Guid::Parse ("zc2bd2a0-1f0e-4b2d-9a43-0c1d2e3f4a5b").has_value ());
    EXPECT_THROW (Kor::Guid::FromString ("nonsense"), Kor::Exception);
    EXPECT_TRUE (Kor::Guid ().IsNull ());

    std::unordered_set<Kor::Guid> many;
    for (int i = 0; i < 1000; ++i) many.insert (Kor::Guid::Generate ());
    EXPECT_EQ (many.size (), 1000u);
    const Kor::Guid one = Kor::Guid::Generate ();
    EXPECT_EQ (one.GetBytes ()[6] >> 4, 4);
}

TEST (AssertTest, ReportGoesToTheInstalledHandler)
{
    Kor::ScopedAssertCapture capture;
    EXPECT_FALSE (KOR_CHECK ("TxAL error", "AttributeList", 1 + 1 == 3));
    EXPECT_TRUE (KOR_CHECK ("TxAL error", "AttributeList", true));
    ASSERT_EQ (capture.GetCount (), 1u);
    const Kor::AssertReport& report = capture.GetReports ()[0];
    EXPECT_EQ (report.file, "AttributeList");
    EXPECT_EQ (report.condition, "1 + 1 == 3");
    EXPECT_EQ (report.ToString ().rfind ("TxAL error assertion failed at AttributeList:", 0), 0u);
}

TEST (AssertTest, ValueToStr)
{
    char buffer[256];
    EXPECT_TRUE (Kor::valuetostr (-2147483647, buffer, sizeof buffer));
    EXPECT_STREQ (buffer, "-2147483647");
    char small[3];
    EXPECT_FALSE (Kor::valuetostr (12345, small, sizeof small));
    EXPECT_STREQ (small, "");
    EXPECT_FALSE (Kor::valuetostr (1, nullptr, 0));
}

TEST (RangeTest, Bounds)
{
    constexpr Kor::Range<int> none (-1, -1);
    EXPECT_TRUE (none.IsEmpty ());
    EXPECT_TRUE (Kor::Range<int> (2, 5).Contains (5));
    EXPECT_EQ (Kor::Range<int> (2, 5).GetLength (), 3);
}
