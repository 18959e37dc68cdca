#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Kor/Exceptions.hpp"
#include "ODB/Ref.hpp"

namespace {

struct Base {
    virtual ~Base () = default;
    int value = 7;
};
struct Derived : Base {};

}   // namespace

TEST (ODBRefTest, LoadingAnEmptyReferenceFailsAndUsingItThrows)
{
    ODB::ConstRef<Base> empty;
    EXPECT_FALSE (empty.Load ());
    EXPECT_FALSE (empty.IsLoaded ());
    EXPECT_EQ (empty.Get (), nullptr);
    EXPECT_THROW ((void) empty->value, Kor::NullReferenceException);

    ODB::Ref<Base> emptyRef;
    EXPECT_FALSE (emptyRef.Load ());
    EXPECT_THROW ((void) *emptyRef, Kor::NullReferenceException);
}

TEST (ODBRefTest, CopiesShareTheObjectButStartUnloaded)
{
    ODB::Ref<Derived> object = ODB::NewObject<Derived> ();
    ASSERT_TRUE (object.Load ());
    ODB::ConstRef<Base> view (object);
    EXPECT_FALSE (view.IsLoaded ());
    EXPECT_TRUE (view.Load ());
    object->value = 9;
    EXPECT_EQ (view->value, 9);

    ODB::ConstRef<Base> copy;
    copy = view;
    EXPECT_FALSE (copy.IsLoaded ());
    EXPECT_TRUE (copy == view);
    EXPECT_TRUE (view == ODB::ConstRef<Derived> (object));
    EXPECT_FALSE (view == ODB::ConstRef<Base> (std::make_shared<Base> ()));
}

TEST (ODBRefTest, ADynamicCastToTheWrongTypeIsEmpty)
{
    const ODB::ConstRef<Base> plain (std::make_shared<Base> ());
    EXPECT_TRUE (plain.DynamicCastTo<Derived> ().IsNull ());
    const ODB::ConstRef<Base> derived (std::make_shared<Derived> ());
    EXPECT_FALSE (derived.DynamicCastTo<Derived> ().IsNull ());
}
