#include <climits>
#include <cstdint>
#include <cstring>
#include <string>

#include "platform/KeyPath.h"
#include "platform/KeyStore.h"
#include "platform/windows/Win32.h"

namespace ostvt::platform {
namespace {

constexpr REGSAM kReadWrite = 0x2001F;
constexpr REGSAM kReadOnly = 0x20019;

HKEY AsKey(KeyHandle key) { return static_cast<HKEY>(key); }

HKEY RootOf(Hive hive) {
  switch (hive) {
    case Hive::kClassesRoot:
      return HKEY_CLASSES_ROOT;
    case Hive::kCurrentUser:
      return HKEY_CURRENT_USER;
    case Hive::kLocalMachine:
      return HKEY_LOCAL_MACHINE;
    case Hive::kUsers:
      return HKEY_USERS;
  }
  return nullptr;
}

HKEY CreateKey(HKEY root, const char16_t* subKey) {
  // A key for everybody (a null access list, not an absent one): a user without rights on the
  // machine writes to it later.
  SECURITY_DESCRIPTOR descriptor;
  if (!InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) ||
      !SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE)) {
    return nullptr;
  }
  SECURITY_ATTRIBUTES attributes = {sizeof(attributes), &descriptor, FALSE};
  HKEY key = nullptr;
  LSTATUS status = RegCreateKeyExW(root, AsWide(subKey), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                   kReadWrite, &attributes, &key, nullptr);
  return status == ERROR_SUCCESS ? key : nullptr;
}

// Of a link, the link and not what it leads to.
LSTATUS OpenItself(KeyHandle parent, const char16_t* name, REGSAM access, HKEY* key) {
  return RegOpenKeyExW(AsKey(parent), AsWide(name), REG_OPTION_OPEN_LINK, access, key);
}

// RegDeleteKeyW would delete what a link leads to.
bool DeleteItself(HKEY key) {
  using NtDeleteKeyFunction = LONG WINAPI(HANDLE);
  HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  auto* erase = ntdll ? reinterpret_cast<NtDeleteKeyFunction*>(
                            reinterpret_cast<void*>(GetProcAddress(ntdll, "NtDeleteKey")))
                      : nullptr;
  return erase && erase(key) >= 0;
}

bool IsText(uint32_t type) {
  return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

}  // namespace

KeyHandle OpenKey(Hive hive, const char16_t* subKey, bool create) {
  if (!subKey) subKey = u"";
  HKEY root = RootOf(hive);
  // The system itself passes over empty elements, which would turn the path of a printer without a
  // name into that of the key above.
  if (!root || !IsKeyPath(subKey)) return nullptr;
  HKEY key = nullptr;
  const LSTATUS opened = RegOpenKeyExW(root, AsWide(subKey), 0, kReadWrite, &key);
  if (opened == ERROR_SUCCESS) return key;
  // A key that is not there is not there for reading either; most keys asked for are not.
  if (opened != ERROR_FILE_NOT_FOUND &&
      RegOpenKeyExW(root, AsWide(subKey), 0, kReadOnly, &key) == ERROR_SUCCESS) {
    return key;
  }
  return create ? CreateKey(root, subKey) : nullptr;
}

KeyHandle OpenKeyUnchecked(Hive hive, const char16_t* subKey) {
  return OpenKey(hive, subKey, false);
}

void CloseKey(KeyHandle key) {
  if (key) RegCloseKey(AsKey(key));
}

int WriteValue(KeyHandle key, const char16_t* name, const void* data, int size, uint32_t type) {
  if (!key || size < 0 || (!data && size > 0)) return -1;
  std::u16string guarded;
  if (IsText(type) && size > 0) {
    // For text the system looks at the unit behind the data, and takes it along if it is a NUL. It
    // gets units of ours to look at, which are none.
    size_t units = (static_cast<size_t>(size) + 1) / sizeof(char16_t);
    guarded.assign(units + 1, u'\xFFFF');
    memcpy(guarded.data(), data, static_cast<size_t>(size));
    data = guarded.data();
  }
  LSTATUS status = RegSetValueExW(AsKey(key), AsWide(name), 0, type, static_cast<const BYTE*>(data),
                                  static_cast<DWORD>(size));
  return status == ERROR_SUCCESS ? size : -1;
}

int ReadValue(KeyHandle key, const char16_t* name, void* buffer, int size, uint32_t* type) {
  if (!key || size < 0) return -1;
  // Without a buffer the system would only tell the size.
  BYTE none = 0;
  if (!buffer) {
    buffer = &none;
    size = 0;
  }
  DWORD stored = static_cast<DWORD>(size);
  DWORD storedType = 0;
  LSTATUS status = RegQueryValueExW(AsKey(key), AsWide(name), nullptr, &storedType,
                                    static_cast<BYTE*>(buffer), &stored);
  if (status != ERROR_SUCCESS || stored > static_cast<DWORD>(size)) return -1;
  if (type) *type = storedType;
  return static_cast<int>(stored);
}

bool GetValueSize(KeyHandle key, const char16_t* name, int* size) {
  DWORD stored = 0;
  if (!key || RegQueryValueExW(AsKey(key), AsWide(name), nullptr, nullptr, nullptr, &stored) !=
                  ERROR_SUCCESS) {
    return false;
  }
  *size = stored > INT_MAX ? INT_MAX : static_cast<int>(stored);
  return true;
}

bool EnumerateKey(KeyHandle key, int index, char16_t (&name)[kNameUnits]) {
  DWORD units = kNameUnits;
  // The system's own calls can make names with a NUL inside, which no path leads to.
  return key && index >= 0 &&
         RegEnumKeyExW(AsKey(key), static_cast<DWORD>(index), AsWide(name), &units, nullptr,
                       nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
         units > 0 && std::char_traits<char16_t>::length(name) == units;
}

bool EnumerateValue(KeyHandle key, int index, char16_t (&name)[kNameUnits]) {
  DWORD units = kNameUnits;
  return key && index >= 0 &&
         RegEnumValueW(AsKey(key), static_cast<DWORD>(index), AsWide(name), &units, nullptr,
                       nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
         std::char_traits<char16_t>::length(name) == units;
}

bool QueryKey(KeyHandle key, int* subKeys, int* values) {
  DWORD keyCount = 0;
  DWORD valueCount = 0;
  if (!key || RegQueryInfoKeyW(AsKey(key), nullptr, nullptr, nullptr, &keyCount, nullptr, nullptr,
                               &valueCount, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  if (subKeys) *subKeys = static_cast<int>(keyCount);
  if (values) *values = static_cast<int>(valueCount);
  return true;
}

bool IsLink(KeyHandle parent, const char16_t* name) {
  if (!parent || !name || name[0] == 0) return true;
  HKEY key = nullptr;
  const LSTATUS opened = OpenItself(parent, name, KEY_QUERY_VALUE, &key);
  // Whoever makes a link may forbid others to look at it, and it works all the same.
  if (opened != ERROR_SUCCESS) return opened != ERROR_FILE_NOT_FOUND;
  DWORD type = REG_NONE;
  const LSTATUS found =
      RegQueryValueExW(key, L"SymbolicLinkValue", nullptr, &type, nullptr, nullptr);
  RegCloseKey(key);
  return found == ERROR_SUCCESS && type == REG_LINK;
}

bool DeleteKey(KeyHandle parent, const char16_t* name) {
  // The system would take an empty name for the key itself.
  if (!parent || !name || name[0] == 0 || !IsKeyPath(name)) return false;
  HKEY key = nullptr;
  if (OpenItself(parent, name, DELETE, &key) != ERROR_SUCCESS) return false;
  const bool deleted = DeleteItself(key);
  RegCloseKey(key);
  return deleted;
}

bool DeleteValue(KeyHandle key, const char16_t* name) {
  return key && RegDeleteValueW(AsKey(key), AsWide(name)) == ERROR_SUCCESS;
}

}  // namespace ostvt::platform
