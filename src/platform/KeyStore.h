// The hierarchical key and value store: the registry on Windows, one SQLite file per hive on Linux.
//
// Names keep their case and are found without regard to it. Key names have up to 255 units, value
// names up to 260 (the registry itself takes longer ones, which cannot be enumerated). Each call is
// a transaction of its own; several processes may work at once, and a process that dies in the
// middle of a call leaves the old state or the new one. Any thread may call; a handle belongs to
// one thread at a time. A null handle makes every call fail.
//
// On Linux the files are "classes_root.db", "current_user.db", "local_machine.db" and "users.db" in
// the directory of the environment's OSTVT_STORE_DIR; where that is not set, in /var/lib/ostvt, the
// second one in the user's data directory ($XDG_DATA_HOME/ostvt or ~/.local/share/ostvt). A damaged
// file reads as an empty one and takes no writes.
#pragma once

#include <cstdint>

namespace ostvt::platform {

// Hives by the number that heads a canonical path.
enum class Hive { kClassesRoot = 0, kCurrentUser = 1, kLocalMachine = 2, kUsers = 3 };

inline constexpr uint32_t kValueString = 1;
inline constexpr uint32_t kValueBinary = 3;
inline constexpr uint32_t kValueDword = 4;
inline constexpr uint32_t kValueMultiString = 7;

// Room for an enumerated name, terminator included.
inline constexpr int kNameUnits = 261;

// An open key; null is none.
using KeyHandle = void*;

// `subKey`: elements separated by "\", none before the first and none doubled; "" is the hive's
// root, which always exists. Opens for reading and writing, else for reading; with `create`, a
// missing key is made together with those above it. Null on failure. Close with CloseKey.
KeyHandle OpenKey(Hive hive, const char16_t* subKey, bool create);
// OpenKey without `create` for one quick read: that the key is missing may come out only when the
// operations on the handle fail. QueryKey tells.
KeyHandle OpenKeyUnchecked(Hive hive, const char16_t* subKey);
void CloseKey(KeyHandle key);  // null is allowed

// `name` "" is the key's default value.
// The size written, or -1.
int WriteValue(KeyHandle key, const char16_t* name, const void* data, int size, uint32_t type);
// The size of the value, or -1 on any failure, a value larger than `size` among them.
// `type` (may be null) gets the stored type.
int ReadValue(KeyHandle key, const char16_t* name, void* buffer, int size, uint32_t* type);
bool GetValueSize(KeyHandle key, const char16_t* name, int* size);
// The name at `index`, in no particular order; false at the end. A name that does not fit
// kNameUnits ends the enumeration, and so does one that damage or another program left and that
// leads to no key or value: a key's empty name, one that holds a NUL.
bool EnumerateKey(KeyHandle key, int index, char16_t (&name)[kNameUnits]);
bool EnumerateValue(KeyHandle key, int index, char16_t (&name)[kNameUnits]);
// Counts may be null. False if the key does not exist (any more).
bool QueryKey(KeyHandle key, int* subKeys, int* values);
// True if the sub-key `name` of `parent` is a link to another key, or if that can't be told. It may
// lead anywhere, so whoever takes a whole branch must not follow it. A missing key is none; Linux
// has none.
bool IsLink(KeyHandle parent, const char16_t* name);
// The sub-key `name` of `parent`, with its values; it must have no sub-keys itself. Of a link, the
// link itself. "" deletes nothing.
bool DeleteKey(KeyHandle parent, const char16_t* name);
bool DeleteValue(KeyHandle key, const char16_t* name);

// Takes calls of one thread on one hive together for as long as it lives. Others that hold one for
// writing, in any process, wait until it is gone. One inside another of the same hive is part of
// that one. Not for long: on Linux it keeps every other thread of the process off the store. A fork
// inside one undoes it: its Commit fails, and the calls behind it stand for themselves. On Windows
// a process that is refused the lock (a sandboxed one) goes without: it keeps nobody out.
class KeyStoreTransaction {
 public:
  enum class Purpose {
    kRead,   // the calls see one state; write nothing meanwhile
    kWrite,  // what is written is there for others once Commit was called
  };
  KeyStoreTransaction(Hive hive, Purpose purpose);
  // What was not committed is undone, where it can be.
  ~KeyStoreTransaction();
  KeyStoreTransaction(const KeyStoreTransaction&) = delete;
  KeyStoreTransaction& operator=(const KeyStoreTransaction&) = delete;

  // False: there is no such hive, it takes no writes (for kWrite), or somebody kept it for too
  // long. Calls then stand for themselves. Those behind an error that ended an open kWrite (a full
  // disk) fail until it is gone, and so does its Commit.
  bool IsOpen() const { return State != nullptr; }
  // The registry undoes nothing: each value is there as soon as it is written.
  bool CanRollBack() const;
  // Once, for kWrite.
  bool Commit();

 private:
  void* State = nullptr;
};

}  // namespace ostvt::platform
