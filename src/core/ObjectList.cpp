#include "core/ObjectList.h"

namespace ostvt {

bool ObjectList::Link(ListItem* item, ListItem* previous, ListItem* next) {
  item->Owner = this;
  item->Previous = previous;
  item->Next = next;
  (previous ? previous->Next : Head) = item;
  (next ? next->Previous : Tail) = item;
  return true;
}

bool ObjectList::AddTail(ListItem* item) {
  if (!item) return false;
  if (item->Owner) item->Owner->Detach(item);
  return Link(item, Tail, nullptr);
}

bool ObjectList::AddHead(ListItem* item) {
  if (!item) return false;
  if (item->Owner) item->Owner->Detach(item);
  return Link(item, nullptr, Head);
}

bool ObjectList::InsertBefore(ListItem* item, ListItem* before) {
  if (!item || (before && before->Owner != this)) return false;
  if (item == before) return true;
  if (!before || before == Head) return AddHead(item);
  if (item->Owner) item->Owner->Detach(item);
  return Link(item, before->Previous, before);
}

bool ObjectList::Detach(ListItem* item) {
  if (!item || item->Owner != this) return false;
  (item->Previous ? item->Previous->Next : Head) = item->Next;
  (item->Next ? item->Next->Previous : Tail) = item->Previous;
  item->Next = item->Previous = nullptr;
  item->Owner = nullptr;
  return true;
}

void ObjectList::ClearAll() {
  while (Head) delete Head;
}

int32_t ObjectList::GetCount() const {
  int32_t count = 0;
  for (const ListItem* item = Head; item; item = item->Next) ++count;
  return count;
}

}  // namespace ostvt
