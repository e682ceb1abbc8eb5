// Persistent configuration under one textual path for every key and value.
//
// A path is "hive:element/element/...". The hive is a number 0 to 3 or an alias ("LOCAL:Paper
// Sizes/Names"), matched without regard to case; for value operations the last element names the
// value, and a path that ends in "/" or ":" means a key's default value. "\" separates like "/". A
// literal "/", ":" or "%" inside an element is doubled, or written "%2F", "%3A", "%25"; any other
// "%xy" is decoded too. A path without ":" behind its first character hangs from Root.
//
// Each call opens its key, does one thing and closes the key again; nothing is cached. Reads
// degrade to the caller's default; writes say only whether they worked. One thread at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "platform/KeyStore.h"

namespace ostvt {

// Flags of ExportBranch.
inline constexpr uint32_t kExportDeletion = 1;  // who reads the text deletes the branch first
inline constexpr uint32_t kExportChecksum = 2;  // the text's checksum is stored as kBranchChecksum
// Flag of ImportBranch.
inline constexpr uint32_t kImportEmptying = 1;  // a key is emptied when its header is met
// The value of a branch's key, a double word, that tells whether the branch has changed since it
// was last read. It is never exported nor imported.
inline constexpr char kBranchChecksum[] = "(CRC32)";

class ORegistry {
 public:
  ORegistry() = default;
  ORegistry(const ORegistry& other) = default;
  ORegistry& operator=(const ORegistry& other) = default;
  virtual ~ORegistry();
  // Rewrites a key path in place to the canonical form: a hive number, then escaped elements.
  void ResolvePath(OString* path) const;
  // Null on failure; the caller closes it with platform::CloseKey. Without rights to write, the key
  // is opened for reading; a write to it then fails. `create` makes missing keys. Without it, a
  // handle is no proof that the key exists: each operation on it fails if it doesn't (QueryKey
  // tells).
  virtual platform::KeyHandle OpenKey(const OString& canonicalPath, bool create) const;
  // The canonical path under which the store has what OpenKey opens for `canonicalPath`.
  virtual OString RouteKey(const OString& canonicalPath) const;

  // None of these touches the store.
  static OString Escape(const OString& name);
  static OString Unescape(const OString& name);
  // "2:SOFTWARE/A%2FB" to "HKEY_LOCAL_MACHINE\SOFTWARE\A/B", and back.
  static OString ToDisplayForm(const OString& canonical);
  static OString FromDisplayForm(const OString& display);
  // The display form of a path taken whole as a key; empty when it names none.
  OString ToFullPath(const OString& path) const;
  // An alias ("X:") is replaced at the head of `path`, without regard to case; a text without ":"
  // is a macro and is replaced wherever it stands, by exact case.
  static void SubstitutePrefix(OString* path, const OString& alias, const OString& target);
  // On entry a copy of Root and a caller's path; on success the canonical key path and the decoded
  // name of the value. An empty `valuePath` means that `keyPath` is a key path as a whole. False if
  // the path holds neither ":" nor "/".
  bool SplitPath(OString* keyPath, OString* valuePath) const;

  // The size of the stored value in bytes, or -1 if it is absent or larger than `size`. The stored
  // type is never looked at.
  int32_t ReadValue(const OString& path, void* buffer, int32_t size, uint32_t type) const;
  uint32_t ReadDword(const OString& path, uint32_t defaultValue) const;
  int32_t ReadInt(const OString& path, int32_t defaultValue) const;
  uint8_t ReadByte(const OString& path, uint8_t defaultValue) const;
  int32_t ReadBinary(const OString& path, void* buffer, int32_t size) const;
  // Values above 8192 bytes count as absent.
  OString ReadString(const OString& path, const OString& defaultValue) const;
  // The same limit. False leaves `array` as it was.
  bool ReadMultiString(const OString& path, OStringArray* array) const;

  // The size written, or -1.
  int32_t WriteValue(const OString& path, const void* data, int32_t size, uint32_t type);
  // Stored as a double word.
  bool WriteDword(const OString& path, uint32_t value);
  bool WriteDword(const OString& path, int32_t value);
  bool WriteDword(const OString& path, uint16_t value);
  // Stored as four bytes, little-endian; ReadInt and ReadDword take either.
  bool WriteInt(const OString& path, int32_t value);
  bool WriteByte(const OString& path, uint8_t value);
  // The size written, or -1.
  int32_t WriteBinary(const OString& path, const void* data, int32_t size);
  bool WriteString(const OString& path, const OString& value);
  // Empty strings are left out. These two write nothing when a text's code page can't make it wide.
  bool WriteMultiString(const OString& path, const OStringArray& array);

  // True if `path`, taken whole as a key, exists. Both counts may be null.
  bool GetKeyInfo(const OString& path, int32_t* subKeys, int32_t* values) const;
  // In bytes; -1 if the value is absent.
  int32_t GetValueSize(const OString& path) const;
  // The sorted names below a key path taken whole, without Root. The count, or -1 with `array` as
  // it was if there is no such key.
  int32_t EnumerateKeys(const OString& keyPath, OStringArray* array) const;
  int32_t EnumerateValues(const OString& keyPath, OStringArray* array) const;
  // "*" and "?" in the last element select among the names of the key above; a pattern without them
  // is a key whose names are all given. Root applies. Result as above.
  int32_t FindKeys(const OString& pattern, OStringArray* array) const;
  int32_t FindValues(const OString& pattern, OStringArray* array) const;
  // Deletes the key that the path names, or if there is none, the value. A key with sub-keys goes
  // only when `recursive`; a link to another key goes alone. The root of a hive is never deleted.
  bool Delete(const OString& path, bool recursive);
  // Deletes a value. True also where there was none.
  bool ForgetValue(const OString& path);
  // "*" and "?" in the last element select keys and values, which go with all below them; the
  // result is then true whatever happened. Otherwise a recursive Delete.
  bool DeleteMatching(const OString& pattern);

  // Appends the branch at a key path, taken whole without Root, as lines of text: see "The text of
  // a branch" in docs/formats.md. The flags concern the top key only. Left out are strings and
  // lists of more than 8192 bytes, double words of another size than four, and values and keys with
  // a line end in their name, and links to other keys; a string with a line end goes as binary.
  // False if the path is none; a key that is missing has no values.
  bool ExportBranch(const OString& path, OStringArray* lines, uint32_t flags);
  // Applies such lines, whatever keys they name; see KeepSectionsBelow for lines from outside. What
  // can't be read or written is passed over. Root is left at the last section. Always true.
  bool ImportBranch(const OStringArray& lines, uint32_t flags);

  // What relative paths hang from.
  OString Root;

 protected:
  // ResolvePath of the bare units.
  virtual void ResolveUnits(std::u16string* path) const;

 private:
  // A caller's path taken whole as a key, Root applying: its canonical form. False as SplitPath.
  bool SplitKeyPath(const OString& path, OString* key) const;
  // These take canonical paths and expand nothing in them.
  using Enumerator = bool (*)(platform::KeyHandle, int, char16_t (&)[platform::kNameUnits]);
  int32_t ListNames(const OString& key, Enumerator next, OStringArray* array) const;
  int32_t FindNames(const OString& pattern, Enumerator next, OStringArray* array) const;
  bool KeyExists(const OString& key) const;
  bool DeleteKey(OString key, bool recursive);
  bool DeleteValue(const OString& key, const OString& name);
  void ExportKey(const OString& key, OStringArray* lines) const;
  void ImportValue(std::u16string_view line);
};

}  // namespace ostvt
