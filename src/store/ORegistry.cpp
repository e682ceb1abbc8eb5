#include "store/ORegistry.h"

#include <string>

#include "store/RegistryPath.h"
#include "store/ScopedKey.h"

namespace ostvt {
namespace {

// What a read of text takes: 4096 units, terminator included.
constexpr int32_t kTextBytes = 8192;

// The hive of a canonical path, by the number in front of the colon, and where that colon stands.
bool ParseHive(const OString& path, platform::Hive* hive, int* colon) {
  const char16_t* text = path.GetWide();
  int end = 0;
  while (text[end] && text[end] != u':') ++end;
  if (end == 0 || !text[end]) return false;
  const bool isDigit = end == 1 && text[0] >= u'0' && text[0] <= u'9';
  const int number = isDigit ? text[0] - u'0' : path.Left(end).ToInt();
  if (number < 0 || number > 3) return false;
  *hive = static_cast<platform::Hive>(number);
  *colon = end;
  return true;
}

}  // namespace

ORegistry::~ORegistry() = default;

platform::KeyHandle ORegistry::OpenKey(const OString& canonicalPath, bool create) const {
  platform::Hive root;
  int colon;
  if (!ParseHive(canonicalPath, &root, &colon)) return nullptr;
  std::u16string subKey = canonicalPath.GetWide() + colon + 1;
  bool escaped = false;
  for (char16_t& unit : subKey) {
    if (unit == u'/') unit = u'\\';
    if (unit == u'%') escaped = true;
  }
  if (escaped) subKey = DecodeEscapes(subKey, canonicalPath.GetCodePage());
  while (!subKey.empty() && subKey.back() == u'\\') subKey.pop_back();
  return create ? platform::OpenKey(root, subKey.c_str(), true)
                : platform::OpenKeyUnchecked(root, subKey.c_str());
}

OString ORegistry::RouteKey(const OString& canonicalPath) const { return canonicalPath; }

int32_t ORegistry::ReadValue(const OString& path, void* buffer, int32_t size, uint32_t) const {
  OString key = Root;
  OString name = path;
  if (!SplitPath(&key, &name)) return -1;
  ScopedKey opened(OpenKey(key, false));
  return platform::ReadValue(opened.Get(), name.GetWide(), buffer, size, nullptr);
}

uint32_t ORegistry::ReadDword(const OString& path, uint32_t defaultValue) const {
  uint32_t value = 0;
  int32_t size = ReadValue(path, &value, sizeof(value), platform::kValueDword);
  return size == sizeof(value) ? value : defaultValue;
}

int32_t ORegistry::ReadInt(const OString& path, int32_t defaultValue) const {
  return static_cast<int32_t>(ReadDword(path, static_cast<uint32_t>(defaultValue)));
}

uint8_t ORegistry::ReadByte(const OString& path, uint8_t defaultValue) const {
  uint8_t value = 0;
  return ReadBinary(path, &value, 1) == 1 ? value : defaultValue;
}

int32_t ORegistry::ReadBinary(const OString& path, void* buffer, int32_t size) const {
  return ReadValue(path, buffer, size, platform::kValueBinary);
}

OString ORegistry::ReadString(const OString& path, const OString& defaultValue) const {
  char16_t buffer[kTextBytes / sizeof(char16_t) + 1];
  int32_t size = ReadValue(path, buffer, kTextBytes, platform::kValueString);
  if (size <= 0) return defaultValue;
  // Nobody promises a terminator, nor whole units.
  buffer[static_cast<size_t>(size) / sizeof(char16_t)] = 0;
  return OString(buffer);
}

bool ORegistry::ReadMultiString(const OString& path, OStringArray* array) const {
  char16_t buffer[kTextBytes / sizeof(char16_t)];
  int32_t size = ReadValue(path, buffer, kTextBytes, platform::kValueMultiString);
  if (size < 1) return false;
  array->SplitBlockWide(buffer, static_cast<uint32_t>(size), BlockMode::kTerminated);
  return true;
}

int32_t ORegistry::WriteValue(const OString& path, const void* data, int32_t size, uint32_t type) {
  OString key = Root;
  OString name = path;
  if (!SplitPath(&key, &name)) return -1;
  {
    // Most keys are there already, and a look first would cost as much again as half the write.
    ScopedKey opened(OpenKey(key, false));
    int32_t written = platform::WriteValue(opened.Get(), name.GetWide(), data, size, type);
    if (written >= 0) return written;
    // Where the key is there, another try would fail alike.
    if (platform::QueryKey(opened.Get(), nullptr, nullptr)) return -1;
  }
  platform::Hive hive;
  int colon;
  if (!ParseHive(RouteKey(key), &hive, &colon)) return -1;
  // The key comes together with its value or not at all.
  platform::KeyStoreTransaction together(hive, platform::KeyStoreTransaction::Purpose::kWrite);
  ScopedKey opened(OpenKey(key, true));
  int32_t written = platform::WriteValue(opened.Get(), name.GetWide(), data, size, type);
  return written >= 0 && together.IsOpen() && !together.Commit() ? -1 : written;
}

bool ORegistry::WriteDword(const OString& path, uint32_t value) {
  return WriteValue(path, &value, sizeof(value), platform::kValueDword) == sizeof(value);
}

bool ORegistry::WriteDword(const OString& path, int32_t value) {
  return WriteDword(path, static_cast<uint32_t>(value));
}

bool ORegistry::WriteDword(const OString& path, uint16_t value) {
  return WriteDword(path, static_cast<uint32_t>(value));
}

bool ORegistry::WriteInt(const OString& path, int32_t value) {
  return WriteBinary(path, &value, sizeof(value)) == sizeof(value);
}

bool ORegistry::WriteByte(const OString& path, uint8_t value) {
  return WriteBinary(path, &value, 1) == 1;
}

int32_t ORegistry::WriteBinary(const OString& path, const void* data, int32_t size) {
  return WriteValue(path, data, size, platform::kValueBinary);
}

bool ORegistry::WriteString(const OString& path, const OString& value) {
  if (!HasUnits(value)) return false;
  const char16_t* text = value.GetWide();
  size_t units = std::char_traits<char16_t>::length(text) + 1;
  int32_t size = static_cast<int32_t>(units * sizeof(char16_t));
  return WriteValue(path, text, size, platform::kValueString) == size;
}

bool ORegistry::WriteMultiString(const OString& path, const OStringArray& array) {
  for (int32_t i = 0; i < array.Count; ++i) {
    if (!HasUnits(array[i])) return false;
  }
  Buffer block;
  array.JoinBlockWide(&block, BlockMode::kTerminated);
  int32_t size = static_cast<int32_t>(block.Size);
  return WriteValue(path, block.Data, size, platform::kValueMultiString) == size;
}

bool ORegistry::GetKeyInfo(const OString& path, int32_t* subKeys, int32_t* values) const {
  OString key;
  if (!SplitKeyPath(path, &key)) return false;
  ScopedKey opened(OpenKey(key, false));
  return platform::QueryKey(opened.Get(), subKeys, values);
}

int32_t ORegistry::GetValueSize(const OString& path) const {
  OString key = Root;
  OString name = path;
  if (!SplitPath(&key, &name)) return -1;
  ScopedKey opened(OpenKey(key, false));
  int size = 0;
  return platform::GetValueSize(opened.Get(), name.GetWide(), &size) ? size : -1;
}

int32_t ORegistry::ListNames(const OString& key, Enumerator next, OStringArray* array) const {
  ScopedKey opened(OpenKey(key, false));
  if (!platform::QueryKey(opened.Get(), nullptr, nullptr)) return -1;
  array->SetSize(0);
  char16_t name[platform::kNameUnits];
  for (int i = 0; next(opened.Get(), i, name); ++i) array->Add(name);
  array->Sort();
  return array->Count;
}

int32_t ORegistry::EnumerateKeys(const OString& keyPath, OStringArray* array) const {
  OString key = keyPath;
  OString value;
  return SplitPath(&key, &value) ? ListNames(key, platform::EnumerateKey, array) : -1;
}

int32_t ORegistry::EnumerateValues(const OString& keyPath, OStringArray* array) const {
  OString key = keyPath;
  OString value;
  return SplitPath(&key, &value) ? ListNames(key, platform::EnumerateValue, array) : -1;
}

int32_t ORegistry::FindNames(const OString& pattern, Enumerator next, OStringArray* array) const {
  OString key = Root;
  OString name = pattern;
  if (!SplitPath(&key, &name)) return -1;
  if (name.FindOneOf("*?") < 0) {
    return SplitKeyPath(pattern, &key) ? ListNames(key, next, array) : -1;
  }
  OStringArray names;
  if (ListNames(key, next, &names) < 0) return -1;
  array->SetSize(0);
  for (int32_t i = 0; i < names.Count; ++i) {
    if (names[i].Match(name)) array->Add(names[i]);
  }
  return array->Count;
}

int32_t ORegistry::FindKeys(const OString& pattern, OStringArray* array) const {
  return FindNames(pattern, platform::EnumerateKey, array);
}

int32_t ORegistry::FindValues(const OString& pattern, OStringArray* array) const {
  return FindNames(pattern, platform::EnumerateValue, array);
}

bool ORegistry::KeyExists(const OString& key) const {
  ScopedKey opened(OpenKey(key, false));
  return platform::QueryKey(opened.Get(), nullptr, nullptr);
}

bool ORegistry::DeleteKey(OString key, bool recursive) {
  key.TrimRight("/");
  // The key that is enumerated is the one that goes: the key above may lie on another route.
  OString place = RouteKey(key);
  place.TrimRight("/");
  int split = LastSeparator(place);
  OString name = Unescape(place.Mid(split + 1));
  name.TrimRight("\\");
  // The root of a hive stays, with all that it holds.
  if (split < 0 || name.IsEmpty()) return false;
  const bool isColon = place.GetWide()[split] == u':';
  const ScopedKey parent(ORegistry::OpenKey(place.Left(isColon ? split + 1 : split), false));
  // What lies behind a link is not of this branch.
  if (recursive && !platform::IsLink(parent.Get(), name.GetWide())) {
    OStringArray children;
    ListNames(key, platform::EnumerateKey, &children);
    for (int32_t i = 0; i < children.Count; ++i) {
      // A name that leads nowhere would be the key itself once more.
      if (!children[i].IsEmpty()) DeleteKey(ChildKey(key, children[i]), true);
    }
  }
  return platform::DeleteKey(parent.Get(), name.GetWide());
}

bool ORegistry::DeleteValue(const OString& key, const OString& name) {
  ScopedKey opened(OpenKey(key, false));
  return platform::DeleteValue(opened.Get(), name.GetWide());
}

bool ORegistry::Delete(const OString& path, bool recursive) {
  OString key = Root;
  OString name = path;
  OString target;
  if (!SplitPath(&key, &name) || !SplitKeyPath(path, &target)) return false;
  return KeyExists(target) ? DeleteKey(target, recursive) : DeleteValue(key, name);
}

bool ORegistry::ForgetValue(const OString& path) {
  OString key = Root;
  OString name = path;
  return SplitPath(&key, &name) && (DeleteValue(key, name) || GetValueSize(path) < 0);
}

bool ORegistry::DeleteMatching(const OString& pattern) {
  OString key = Root;
  OString name = pattern;
  if (!SplitPath(&key, &name)) return false;
  if (name.FindOneOf("*?") < 0) return Delete(pattern, true);
  OStringArray keys;
  FindKeys(pattern, &keys);
  OStringArray values;
  FindValues(pattern, &values);
  for (int32_t i = 0; i < keys.Count; ++i) {
    if (!keys[i].IsEmpty()) DeleteKey(ChildKey(key, keys[i]), true);
  }
  for (int32_t i = 0; i < values.Count; ++i) DeleteValue(key, values[i]);
  return true;
}

}  // namespace ostvt
