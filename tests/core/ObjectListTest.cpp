#include "core/ObjectList.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt {
namespace {

struct Named : ListItem {
  explicit Named(char name, std::string* log = nullptr) : Name(name), Log(log) {}
  ~Named() override {
    if (Log) *Log += Name;
  }
  char Name;
  std::string* Log;
};

// The names forwards, and the same backwards.
std::string Names(const ObjectList& list) {
  std::string forwards;
  std::string backwards;
  for (ListItem* item = list.Head; item; item = item->Next) {
    EXPECT_EQ(&list, item->Owner);
    forwards += static_cast<Named*>(item)->Name;
  }
  for (ListItem* item = list.Tail; item; item = item->Previous) {
    backwards.insert(0, 1, static_cast<Named*>(item)->Name);
  }
  EXPECT_EQ(forwards, backwards);
  return forwards;
}

TEST(ObjectList, StartsEmpty) {
  ObjectList list;
  EXPECT_EQ(nullptr, list.Head);
  EXPECT_EQ(nullptr, list.Tail);
}

TEST(ObjectList, AddsAtBothEnds) {
  ObjectList list;
  EXPECT_TRUE(list.AddTail(new Named('b')));
  EXPECT_TRUE(list.AddTail(new Named('c')));
  EXPECT_TRUE(list.AddHead(new Named('a')));
  EXPECT_EQ("abc", Names(list));
}

TEST(ObjectList, NullItemsAreRefused) {
  ObjectList list;
  EXPECT_FALSE(list.AddTail(nullptr));
  EXPECT_FALSE(list.AddHead(nullptr));
  EXPECT_FALSE(list.InsertBefore(nullptr, nullptr));
  EXPECT_FALSE(list.Detach(nullptr));
}

TEST(ObjectList, InsertBeforeNullOrHeadAddsAtTheHead) {
  ObjectList list;
  EXPECT_TRUE(list.InsertBefore(new Named('c'), nullptr));
  EXPECT_TRUE(list.InsertBefore(new Named('b'), nullptr));
  EXPECT_TRUE(list.InsertBefore(new Named('a'), list.Head));
  EXPECT_EQ("abc", Names(list));
}

TEST(ObjectList, InsertBeforeAnItem) {
  ObjectList list;
  list.AddTail(new Named('a'));
  list.AddTail(new Named('c'));
  EXPECT_TRUE(list.InsertBefore(new Named('b'), list.Tail));
  EXPECT_EQ("abc", Names(list));
  EXPECT_TRUE(list.InsertBefore(list.Tail, list.Tail));
  EXPECT_EQ("abc", Names(list));
}

TEST(ObjectList, InsertBeforeAnItemOfAnotherListDoesNothing) {
  ObjectList list;
  ObjectList other;
  other.AddTail(new Named('x'));
  Named item('a');
  EXPECT_FALSE(list.InsertBefore(&item, other.Head));
  EXPECT_EQ(nullptr, item.Owner);
  EXPECT_EQ("", Names(list));
  EXPECT_EQ("x", Names(other));
}

TEST(ObjectList, DetachedItemIsTheCallersAgain) {
  ObjectList list;
  std::string log;
  auto* middle = new Named('b', &log);
  list.AddTail(new Named('a', &log));
  list.AddTail(middle);
  list.AddTail(new Named('c', &log));
  EXPECT_TRUE(list.Detach(middle));
  EXPECT_EQ("ac", Names(list));
  EXPECT_EQ(nullptr, middle->Owner);
  EXPECT_EQ(nullptr, middle->Next);
  EXPECT_EQ(nullptr, middle->Previous);
  EXPECT_EQ("", log);
  delete middle;
}

TEST(ObjectList, DetachingAnItemOfAnotherListDoesNothing) {
  ObjectList list;
  ObjectList other;
  list.AddTail(new Named('a'));
  other.AddTail(new Named('x'));
  EXPECT_FALSE(list.Detach(other.Head));
  EXPECT_EQ("a", Names(list));
  EXPECT_EQ("x", Names(other));
}

TEST(ObjectList, DetachesTheEnds) {
  ObjectList list;
  for (char name : {'a', 'b', 'c'}) list.AddTail(new Named(name));
  Named* first = static_cast<Named*>(list.Head);
  Named* last = static_cast<Named*>(list.Tail);
  list.Detach(first);
  list.Detach(last);
  EXPECT_EQ("b", Names(list));
  EXPECT_EQ(list.Head, list.Tail);
  delete first;
  delete last;
}

TEST(ObjectList, DeletingAnItemLeavesTheListSound) {
  ObjectList list;
  for (char name : {'a', 'b', 'c'}) list.AddTail(new Named(name));
  delete list.Head->Next;
  EXPECT_EQ("ac", Names(list));
  delete list.Tail;
  EXPECT_EQ("a", Names(list));
  delete list.Head;
  EXPECT_EQ("", Names(list));
}

TEST(ObjectList, ItemIsInOneListAtMost) {
  ObjectList list;
  ObjectList other;
  for (char name : {'a', 'b'}) list.AddTail(new Named(name));
  EXPECT_TRUE(other.AddTail(list.Head));
  EXPECT_EQ("b", Names(list));
  EXPECT_EQ("a", Names(other));
  EXPECT_TRUE(other.AddHead(list.Head));
  EXPECT_EQ("ba", Names(other));
  EXPECT_TRUE(other.AddTail(other.Head));
  EXPECT_EQ("ab", Names(other));
}

TEST(ObjectList, ClearAllDeletesThroughTheVirtualDestructor) {
  std::string log;
  ObjectList list;
  for (char name : {'a', 'b', 'c'}) list.AddTail(new Named(name, &log));
  list.ClearAll();
  EXPECT_EQ("abc", log);
  EXPECT_EQ("", Names(list));
  list.ClearAll();
  EXPECT_EQ("abc", log);
}

TEST(ObjectList, EndOfTheListDeletesItsItems) {
  std::string log;
  {
    ObjectList list;
    list.AddTail(new Named('a', &log));
  }
  EXPECT_EQ("a", log);
}

}  // namespace
}  // namespace ostvt
