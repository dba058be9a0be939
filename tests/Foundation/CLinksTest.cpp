#include <gtest/gtest.h>

#include "CAutoUpdatedList.h"
#include "CBind.h"
#include "CSelfBind.h"

TEST(CAutoUpdatedList, LinksLeaveTheListWhenTheyDie)
{
    int owner = 0, referrerA = 0, referrerB = 0;
    CAutoUpdatedList list;
    EXPECT_TRUE(list.SetObject(&owner));
    EXPECT_FALSE(list.SetObject(&referrerA)) << "the object is set once";

    CAutoUpdatedLink* a = new CAutoUpdatedLink();
    a->SetObject(&referrerA);
    {
        CAutoUpdatedLink b;
        b.SetObject(&referrerB);
        EXPECT_TRUE(list.Add(a));
        EXPECT_TRUE(list.Add(&b));
        EXPECT_TRUE(list.Add(&b)) << "already in this list";
        EXPECT_EQ(2u, list.GetCount());
        EXPECT_EQ(&owner, b.GetContainer());
        CAutoUpdatedList other;
        EXPECT_FALSE(other.Add(&b));
        EXPECT_FALSE(other.Remove(&b));
    }
    EXPECT_EQ(1u, list.GetCount());
    EXPECT_EQ(a, list.GetHead());
    EXPECT_EQ(a, list.GetTail());
    delete a;
    EXPECT_EQ(0u, list.GetCount());
    EXPECT_EQ(nullptr, list.GetHead());
    EXPECT_FALSE(list.RemoveAll(true)) << "an empty list answers false";
    EXPECT_FALSE(list.Add(nullptr));
}

TEST(CAutoUpdatedList, ADyingListDetachesItsLinks)
{
    CAutoUpdatedLink first, middle, last;
    {
        int owner = 0;
        CAutoUpdatedList list;
        list.SetObject(&owner);
        list.Add(&first);
        list.Add(&middle);
        list.Add(&last);
        EXPECT_TRUE(list.Remove(&middle));
        EXPECT_EQ(nullptr, middle.GetContainer());
        EXPECT_EQ(2u, list.GetCount());
        EXPECT_TRUE(list.Add(&middle));
        EXPECT_EQ(&middle, list.GetTail());
    }
    EXPECT_EQ(nullptr, first.GetContainer());
    EXPECT_EQ(nullptr, middle.GetList());
    EXPECT_EQ(nullptr, last.GetList());

    // Detached links can join another list, and RemoveAll detaches them again.
    CAutoUpdatedList again;
    EXPECT_TRUE(again.Add(&first));
    EXPECT_TRUE(again.Add(&last));
    EXPECT_TRUE(again.RemoveAll(true));
    EXPECT_EQ(0u, again.GetCount());
    EXPECT_EQ(nullptr, first.GetList());
    EXPECT_TRUE(again.Add(&last));
}

TEST(CBind, MutualBindingAndItsEnd)
{
    int x = 0, y = 0;
    CBind a, c;
    a.SetObject(&x);
    EXPECT_FALSE(a.Bind(&a));
    EXPECT_FALSE(a.Bind(nullptr));
    {
        CBind b;
        b.SetObject(&y);
        EXPECT_TRUE(a.Bind(&b));
        EXPECT_TRUE(b.Bind(&a)) << "already bound to each other";
        EXPECT_EQ(&y, a.GetBindedObject());
        EXPECT_EQ(&x, b.GetBindedObject());
        EXPECT_FALSE(c.Bind(&a)) << "a is bound elsewhere";
        EXPECT_FALSE(a.Bind(&c));
    }
    EXPECT_FALSE(a.Binded()) << "the dying side unbinds its partner";
    EXPECT_EQ(nullptr, a.GetBindedObject());
    EXPECT_TRUE(a.Unbind());

    struct Owner
    {
        Owner() : bind(this) {}
        CSelfBind<Owner> bind;
    } left, right;
    EXPECT_TRUE(left.bind.Bind(&right.bind));
    EXPECT_EQ(&right, left.bind.GetBindedObject());
    EXPECT_TRUE(right.bind.Unbind());
    EXPECT_FALSE(left.bind.Binded());
}
