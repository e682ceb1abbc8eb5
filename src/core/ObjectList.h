// An intrusive doubly linked list of objects.
//
// Items are made with `new` by the caller and belong to the list while they are in it: ClearAll and
// the list's end delete them. Walk from Head through Next. One thread at a time.
#pragma once

#include <cstdint>

namespace ostvt {

class ObjectList;

// Base of what a list holds; an item is in one list at most. Deleting it takes it out of its list.
class ListItem {
 public:
  ListItem() = default;
  inline virtual ~ListItem();
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;

  ListItem* Next = nullptr;
  ListItem* Previous = nullptr;
  ObjectList* Owner = nullptr;  // null when in no list
};

class ObjectList {
 public:
  ObjectList() = default;
  virtual ~ObjectList() { ClearAll(); }
  ObjectList(const ObjectList&) = delete;
  ObjectList& operator=(const ObjectList&) = delete;

  // Each takes the item out of the list it is in, first. False if `item` is null; InsertBefore also
  // if `before` is in another list.
  bool AddTail(ListItem* item);
  bool AddHead(ListItem* item);
  // A null `before`, or the head, adds at the head.
  bool InsertBefore(ListItem* item, ListItem* before);
  // The item is the caller's again. False, and nothing done, if it is not in this list.
  bool Detach(ListItem* item);
  void ClearAll();
  // Walks the list.
  int32_t GetCount() const;

  ListItem* Head = nullptr;
  ListItem* Tail = nullptr;

 private:
  bool Link(ListItem* item, ListItem* previous, ListItem* next);
};

ListItem::~ListItem() {
  if (Owner) Owner->Detach(this);
}

}  // namespace ostvt
