#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/KeyPath.h"
#include "platform/KeyStore.h"
#include "platform/linux/KeyFold.h"
#include "platform/linux/SqliteHive.h"

namespace ostvt::platform {
namespace {

constexpr size_t kValueNameLimit = kNameUnits - 1;

// Where an enumeration stands, so that the next index need not count from the start.
struct Cursor {
  int Next = 0;
  std::u16string Last;  // folded, of index Next - 1
};

// The handle of an open key: where it is, not a claim on it.
struct OpenedKey {
  Hive Root;
  std::u16string Path;  // folded
  Cursor SubKeys;
  Cursor Values;
};

OpenedKey* AsKey(KeyHandle key) { return static_cast<OpenedKey*>(key); }

bool KeyExists(HiveFile* file, std::u16string_view path) {
  return HiveQuery(file, Query::kFindKey).Bind(1, path).Row();
}

// A miss is found out without the writers' lock, which waits for others.
bool ValueExists(HiveFile* file, std::u16string_view path, std::u16string_view name) {
  return HiveQuery(file, Query::kFindValue).Bind(1, path).Bind(2, name).Row();
}

bool IsKeyName(std::u16string_view name) {
  return !name.empty() && name.find(u'\\') == std::u16string_view::npos;
}

// `path` as its caller wrote it, `folded` the same folded.
bool CreateKey(HiveFile* file, std::u16string_view path, std::u16string_view folded) {
  HiveTransaction transaction(file);
  if (!transaction.IsOpen()) return false;
  std::u16string_view parent;
  for (size_t start = 0; start < path.size();) {
    size_t end = path.find(u'\\', start);
    if (end == std::u16string_view::npos) end = path.size();
    std::u16string_view element = folded.substr(0, end);
    if (!HiveQuery(file, Query::kAddKey)
             .Bind(1, element)
             .Bind(2, parent)
             .Bind(3, path.substr(start, end - start))
             .Run()) {
      return false;
    }
    parent = element;
    start = end + 1;
  }
  return transaction.Commit();
}

// In the order of the store, that of the bytes.
bool IsBehind(std::u16string_view text, std::u16string_view other) {
  const size_t shorter = std::min(text.size(), other.size());
  const int order = memcmp(text.data(), other.data(), shorter * sizeof(char16_t));
  return order > 0 || (order == 0 && text.size() > other.size());
}

// `at` and `after` give a name and, in the second column, what it is found by: `head` and the
// folded name. A row where that is not so was not written by us: it would be given out without end,
// or lead to another key.
bool EnumerateName(OpenedKey* key, Query at, Query after, std::u16string_view head, Cursor* cursor,
                   int index, char16_t (&name)[kNameUnits]) {
  if (index < 0) return false;
  HiveUse use(key->Root, false);
  bool resume = index > 0 && index == cursor->Next;
  HiveQuery query(use.File(), resume ? after : at);
  query.Bind(1, key->Path);
  if (resume) {
    query.Bind(2, cursor->Last);
  } else {
    query.BindNumber(2, index);
  }
  if (!query.Row()) return false;
  std::u16string text = query.Text(0);
  if (text.size() >= kNameUnits || text.find(u'\0') != std::u16string::npos) return false;
  std::u16string found(head);
  found += FoldName(text);
  if (!query.Holds(1, found)) return false;
  // In a damaged file the row behind may be one from before.
  if (resume && !IsBehind(found, cursor->Last)) return false;
  memcpy(name, text.c_str(), (text.size() + 1) * sizeof(char16_t));
  cursor->Last = std::move(found);
  cursor->Next = index + 1;
  return true;
}

}  // namespace

KeyHandle OpenKeyUnchecked(Hive hive, const char16_t* subKey) {
  std::u16string_view path = subKey ? subKey : u"";
  if (!IsKeyPath(path)) return nullptr;
  return new (std::nothrow) OpenedKey{hive, FoldName(path), {}, {}};
}

KeyHandle OpenKey(Hive hive, const char16_t* subKey, bool create) {
  KeyHandle key = OpenKeyUnchecked(hive, subKey);
  if (!key) return nullptr;
  const std::u16string& folded = AsKey(key)->Path;
  HiveUse use(hive, create);
  bool exists = folded.empty() || KeyExists(use.File(), folded) ||
                (create && CreateKey(use.File(), subKey, folded));
  if (exists) return key;
  CloseKey(key);
  return nullptr;
}

void CloseKey(KeyHandle key) { delete AsKey(key); }

int WriteValue(KeyHandle key, const char16_t* name, const void* data, int size, uint32_t type) {
  std::u16string_view display = name ? name : u"";
  if (!key || size < 0 || (!data && size > 0) || display.size() > kValueNameLimit) return -1;
  std::u16string folded = FoldName(display);
  // The root is there even before its file is.
  HiveUse use(AsKey(key)->Root, AsKey(key)->Path.empty());
  bool written = HiveQuery(use.File(), Query::kWriteValue)
                     .Bind(1, AsKey(key)->Path)
                     .Bind(2, folded)
                     .Bind(3, display)
                     .BindNumber(4, type)
                     .BindData(5, data, size)
                     .Run();
  return written && use.File()->ChangedRows() > 0 ? size : -1;
}

int ReadValue(KeyHandle key, const char16_t* name, void* buffer, int size, uint32_t* type) {
  if (!key) return -1;
  std::u16string folded = FoldName(name ? name : u"");
  HiveUse use(AsKey(key)->Root, false);
  HiveQuery query(use.File(), Query::kReadValue);
  if (!query.Bind(1, AsKey(key)->Path).Bind(2, folded).Row()) return -1;
  int stored = 0;
  const void* data = query.Data(1, &stored);
  if (stored > size || (!buffer && stored > 0)) return -1;
  if (stored > 0) memcpy(buffer, data, static_cast<size_t>(stored));
  if (type) *type = static_cast<uint32_t>(query.Number(0));
  return stored;
}

bool GetValueSize(KeyHandle key, const char16_t* name, int* size) {
  if (!key) return false;
  std::u16string folded = FoldName(name ? name : u"");
  HiveUse use(AsKey(key)->Root, false);
  HiveQuery query(use.File(), Query::kSizeOfValue);
  if (!query.Bind(1, AsKey(key)->Path).Bind(2, folded).Row()) return false;
  *size = static_cast<int>(query.Number(0));
  return true;
}

bool EnumerateKey(KeyHandle key, int index, char16_t (&name)[kNameUnits]) {
  if (!key) return false;
  std::u16string head = AsKey(key)->Path;
  if (!head.empty()) head += u'\\';
  return EnumerateName(AsKey(key), Query::kSubKeyAt, Query::kSubKeyAfter, head,
                       &AsKey(key)->SubKeys, index, name) &&
         IsKeyName(name);
}

bool EnumerateValue(KeyHandle key, int index, char16_t (&name)[kNameUnits]) {
  return key && EnumerateName(AsKey(key), Query::kValueAt, Query::kValueAfter, u"",
                              &AsKey(key)->Values, index, name);
}

bool QueryKey(KeyHandle key, int* subKeys, int* values) {
  if (!key) return false;
  HiveUse use(AsKey(key)->Root, false);
  HiveQuery query(use.File(), Query::kCountKey);
  bool found = query.Bind(1, AsKey(key)->Path).Row();
  if (!found && !AsKey(key)->Path.empty()) return false;
  if (subKeys) *subKeys = found ? static_cast<int>(query.Number(0)) : 0;
  if (values) *values = found ? static_cast<int>(query.Number(1)) : 0;
  return true;
}

bool IsLink(KeyHandle parent, const char16_t* name) { return !parent || !name || !*name; }

bool DeleteKey(KeyHandle parent, const char16_t* name) {
  std::u16string_view element = name ? name : u"";
  if (!parent || element.empty() || !IsKeyPath(element)) return false;
  std::u16string path = AsKey(parent)->Path;
  if (!path.empty()) path += u'\\';
  path += FoldName(element);
  HiveUse use(AsKey(parent)->Root, false);
  // A miss is found out without the writers' lock.
  if (!KeyExists(use.File(), path)) return false;
  HiveTransaction transaction(use.File());
  return transaction.IsOpen() && !HiveQuery(use.File(), Query::kHasSubKeys).Bind(1, path).Row() &&
         HiveQuery(use.File(), Query::kDropValues).Bind(1, path).Run() &&
         HiveQuery(use.File(), Query::kDropKey).Bind(1, path).Run() &&
         use.File()->ChangedRows() > 0 && transaction.Commit();
}

bool DeleteValue(KeyHandle key, const char16_t* name) {
  if (!key) return false;
  std::u16string folded = FoldName(name ? name : u"");
  HiveUse use(AsKey(key)->Root, false);
  if (!ValueExists(use.File(), AsKey(key)->Path, folded)) return false;
  return HiveQuery(use.File(), Query::kDeleteValue)
             .Bind(1, AsKey(key)->Path)
             .Bind(2, folded)
             .Run() &&
         use.File()->ChangedRows() > 0;
}

}  // namespace ostvt::platform
