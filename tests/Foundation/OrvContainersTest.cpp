#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OrvBlockStorage.h"
#include "OrvTArray.h"
#include "OrvTObjectArray.h"
#include "OrvUnicode.h"
#include "OrvTStack.h"
#include "OrvTTreeNode.h"
#include "OrvTestBytes.h"

namespace
{
struct Counted
{
    explicit Counted(int* deaths) : deaths(deaths) {}
    virtual ~Counted() { ++*deaths; }
    int* deaths;
};

struct Node : OrvTTreeNode<Node>
{
    int parentChanges = 0;
    void SetParent(Node* parent) override
    {
        ++parentChanges;
        OrvTTreeNode<Node>::SetParent(parent);
    }
};
}

TEST(AlignSize, RoundsToPowerOfTwoBlocks)
{
    EXPECT_EQ(32u, array::AlignSize(0, 32, true));
    EXPECT_EQ(0u, array::AlignSize(0, 32, false));
    EXPECT_EQ(64u, array::AlignSize(33, 32, false));
    EXPECT_EQ(32u, array::AlignSize(32, 32, false));
    EXPECT_EQ(5u, array::AlignSize(5, 0, false));
    EXPECT_EQ(0u, array::AlignSize(5, 24, false));
    EXPECT_EQ(64u, unicode::AlignSize(33, 32, false));
}

TEST(OrvTArray, CapacityFollowsSizeInBlocksOf32)
{
    int deaths = 0;
    std::vector<Counted> items(33, Counted(&deaths));
    deaths = 0;
    OrvTArray<Counted> array;
    EXPECT_EQ(0u, array.GetCapacity());
    for (int i = 0; i < 32; ++i)
        array.Add(&items[i], false);
    EXPECT_EQ(32u, array.GetCapacity());
    array.Add(&items[32], false);
    EXPECT_EQ(64u, array.GetCapacity());
    EXPECT_EQ(&items[32], array[32]);

    // Removing from the middle keeps the order of the others.
    EXPECT_EQ(&items[5], array.Remove(5ul));
    EXPECT_EQ(32u, array.GetCapacity());
    EXPECT_EQ(&items[6], array[5]);
    EXPECT_EQ(&items[32], array[31]);
    EXPECT_EQ(nullptr, array.Remove(32ul));
    EXPECT_EQ(nullptr, array[32]);
    while (array.GetSize() > 0)
        array.Remove(0ul);
    EXPECT_EQ(0u, array.GetCapacity());
    EXPECT_EQ(nullptr, array[0]);
    EXPECT_EQ(0, deaths);
}

TEST(OrvTArray, UniqueAddRemoveFirstAndOwnership)
{
    int deaths = 0;
    Counted* a = new Counted(&deaths);
    Counted* b = new Counted(&deaths);
    OrvTArray<Counted> array;
    array.Add(a, true);
    array.Add(a, true);
    EXPECT_EQ(1u, array.GetSize());
    array.Add(b, false);
    array.Add(a, false);
    EXPECT_EQ(3u, array.GetSize());

    // Only the first of the duplicates goes.
    EXPECT_EQ(a, array.Remove(a));
    EXPECT_EQ(b, array[0]);
    EXPECT_EQ(a, array[1]);
    Counted stranger(&deaths);
    EXPECT_EQ(nullptr, array.Remove(&stranger));

    OrvTArray<Counted> copy;
    copy = array;
    EXPECT_EQ(2u, copy.GetSize());
    EXPECT_EQ(a, copy[1]);
    copy.Destroy();
    EXPECT_EQ(0, deaths);

    array.Delete(b);
    EXPECT_EQ(1, deaths);
    array.DeleteAll();
    EXPECT_EQ(2, deaths);
    EXPECT_EQ(0u, array.GetSize());
}

TEST(OrvTArray, MemCopyNeverWritesPastTheUsedPart)
{
    int deaths = 0;
    Counted x(&deaths);
    Counted* many[4] = {&x, &x, &x, &x};
    OrvTArray<Counted> array;
    EXPECT_FALSE(array.MemCopy(0, many, sizeof(many)));
    array.Add(nullptr, false);
    array.Add(nullptr, false);
    EXPECT_FALSE(array.MemCopy(2 * sizeof(Counted*), many, sizeof(Counted*)));
    EXPECT_FALSE(array.MemCopy(0, nullptr, 8));
    EXPECT_TRUE(array.MemCopy(sizeof(Counted*), many, sizeof(many)));
    EXPECT_EQ(nullptr, array[0]);
    EXPECT_EQ(&x, array[1]);
    EXPECT_EQ(2u, array.GetSize());
}

TEST(OrvTObjectArray, GrowsAndShrinksByOneStep)
{
    OrvTObjectArray<int> array;
    EXPECT_EQ(32u, array.GetCapacity());
    for (int i = 0; i < 33; ++i)
        array.Add(i);
    EXPECT_EQ(64u, array.GetCapacity());
    EXPECT_EQ(32, array[32]);

    EXPECT_EQ(0, array.RemoveIndex(0));
    EXPECT_EQ(64u, array.GetCapacity()) << "32 elements are not below 64 - 32";
    array.RemoveIndex(0);
    EXPECT_EQ(32u, array.GetCapacity());
    EXPECT_EQ(2, array[0]);
    EXPECT_EQ(32, array[30]);

    array.RemoveAll();
    array.Add(7);
    EXPECT_EQ(7, array.RemoveIndex(0));
    EXPECT_EQ(32u, array.GetCapacity());
}

namespace
{
// Counts the copies made of it; moves are free.
struct CopyCounted
{
    static int copies;
    std::string text;
    CopyCounted() = default;
    explicit CopyCounted(const char* t) : text(t) {}
    CopyCounted(const CopyCounted& other) : text(other.text) { ++copies; }
    CopyCounted(CopyCounted&&) = default;
    CopyCounted& operator=(const CopyCounted& other)
    {
        text = other.text;
        ++copies;
        return *this;
    }
    CopyCounted& operator=(CopyCounted&&) = default;
    bool operator==(const CopyCounted& other) const { return text == other.text; }
};
int CopyCounted::copies = 0;
}  // namespace

TEST(OrvTObjectArray, GrowingMovesElementsInsteadOfCopyingThem)
{
    OrvTObjectArray<CopyCounted> array;
    const CopyCounted item("x");
    CopyCounted::copies = 0;
    for (int i = 0; i < 10000; ++i)
        array.Add(item);
    EXPECT_EQ(10000, CopyCounted::copies) << "one copy per element added, none when the storage grows";
    EXPECT_EQ(10016u, array.GetCapacity()) << "still a whole number of steps";
    for (int i = 0; i < 9990; ++i)
        array.RemoveIndex(array.GetCount() - 1);
    EXPECT_EQ(32u, array.GetCapacity());
    EXPECT_TRUE(array[9] == item);
    EXPECT_EQ(10000, CopyCounted::copies) << "removing copies nothing either";

    // Strings move too: the engine's token and archive lists hold them.
    OrvTObjectArray<OrvUnicode> texts;
    for (int i = 0; i < 100; ++i)
        texts.Add(OrvUnicode(i));
    EXPECT_TRUE(texts[99] == "99");
    EXPECT_TRUE(texts[0] == "0");
}

TEST(OrvTObjectArray, InsertSetAndIndexChecks)
{
    OrvTObjectArray<int> array;
    array.Insert(0, 2);
    array.Insert(0, 1);
    array.Insert(2, 4);
    array.Insert(2, 3);
    ASSERT_EQ(4u, array.GetCount());
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(i + 1, array[i]);

    const char* file = " | template/OrvTObjectArray";
    const std::string prefix = "Orv Array Exception | The index at which you are trying to ";
    EXPECT_EQ(prefix + "insert an element is out of bounds" + file, Thrown([&] { array.Insert(5, 0); }).Full());
    EXPECT_EQ(prefix + "set an element is out of bounds" + file, Thrown([&] { array.Set(4, 0); }).Full());
    EXPECT_EQ(prefix + "remove an element is out of bounds" + file, Thrown([&] { array.RemoveIndex(4); }).Full());
    EXPECT_EQ(prefix + "access an element is out of bounds" + file, Thrown([&] { (void)array[4]; }).Full());
    EXPECT_EQ(4u, array.GetCount());

    // Growing while inserting an element of the array itself.
    for (int i = 0; i < 28; ++i)
        array.Add(i);
    array.Insert(0, array[31]);
    EXPECT_EQ(27, array[0]);
    EXPECT_EQ(64u, array.GetCapacity());
}

TEST(OrvTTreeNode, ChildManagementAndMessages)
{
    Node root, other, child;
    root.AddChild(&child);
    EXPECT_EQ(&root, child.GetParent());
    EXPECT_EQ(1, child.parentChanges) << "SetParent goes through the virtual slot";
    root.AddChild(&child);
    EXPECT_EQ(1u, root.GetChildCount());

    const std::string prefix = "Orv Tree Node Exception | You tried to ";
    EXPECT_EQ(prefix + "add a child that already has a parent | template/OrvTTreeNode",
              Thrown([&] { other.AddChild(&child); }).Full());
    EXPECT_EQ(prefix + "add a Null pointer as a child | template/OrvTTreeNode",
              Thrown([&] { root.AddChild(nullptr); }).Full());
    EXPECT_EQ(prefix + "remove a Null pointer as a child | template/OrvTTreeNode",
              Thrown([&] { root.RemoveChild(nullptr); }).Full());

    other.RemoveChild(&child);
    EXPECT_EQ(&root, child.GetParent()) << "removing a stranger changes nothing";
    root.RemoveChild(&child);
    EXPECT_EQ(nullptr, child.GetParent());
    EXPECT_EQ(0u, root.GetChildCount());
    other.AddChild(&child);
    EXPECT_EQ(&child, other.GetChild(0));
}

TEST(OrvTStack, HoldsCapacityElementsStartingWithOne)
{
    OrvTStack<int> stack(15);
    EXPECT_EQ(0, stack.Peek());
    for (int i = 1; i <= 14; ++i)
        stack.Push(i);
    EXPECT_EQ("Orv Stack Exception | You tried to push a full stack | template/OrvTStack",
              Thrown([&] { stack.Push(15); }).Full());
    EXPECT_EQ(14, stack.Peek());
    for (int i = 14; i >= 0; --i)
        EXPECT_EQ(i, stack.Pop());
    EXPECT_EQ("Orv Stack Exception | You tried to pop an empty stack | template/OrvTStack",
              Thrown([&] { stack.Pop(); }).Full());
    EXPECT_EQ("Orv Stack Exception | You tried to peek a empty stack | template/OrvTStack",
              Thrown([&] { stack.Peek(); }).Full());
}
