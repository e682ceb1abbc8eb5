// The text half of ORegistry: the path grammar, aliases and the display form. Nothing here touches
// the store.
#include "store/RegistryPath.h"

#include <cstring>
#include <string>

#include "core/HexDigit.h"
#include "store/ORegistry.h"

namespace ostvt {
namespace {

// In the order in which they are tried.
constexpr Alias kAliases[] = {
    {"CLASSES_ROOT:", "0:"},
    {"CURRENT_USER:", "1:"},
    {"LOCAL_MACHINE:", "2:"},
    {"USERS:", "3:"},
    {"USER:", "1:SOFTWARE/Vantrel/Drivers"},
    {"LOCAL:", "2:SOFTWARE/Vantrel/Drivers"},
    {"GLOBAL:", "2:SOFTWARE/Vantrel/Drivers/Global Settings"},
    {"PRINT:", "2:SYSTEM/CurrentControlSet/Control/Print"},
};

constexpr Alias kHiveNames[] = {
    {"0:", "HKEY_CLASSES_ROOT"},
    {"1:", "HKEY_CURRENT_USER"},
    {"2:", "HKEY_LOCAL_MACHINE"},
    {"3:", "HKEY_USERS"},
};

char16_t FoldAscii(char16_t unit) {
  return static_cast<char16_t>(unit >= u'a' && unit <= u'z' ? unit - 0x20 : unit);
}

bool Contains(const OString& text, const char16_t* set) {
  for (const char16_t* unit = text.GetWide(); *unit; ++unit) {
    for (const char16_t* member = set; *member; ++member) {
      if (*unit == *member) return true;
    }
  }
  return false;
}

bool IsSeparator(char16_t unit) { return unit == u'/' || unit == u':'; }

bool EndsInSeparator(const OString& path) {
  const char16_t* text = path.GetWide();
  return *text && IsSeparator(text[std::char_traits<char16_t>::length(text) - 1]);
}

// A doubled character of the grammar, or a backslash.
bool NeedsNormalizing(const OString& path) {
  for (const char16_t* unit = path.GetWide(); *unit; ++unit) {
    if (*unit == u'\\') return true;
    if ((*unit == u'%' || *unit == u'/' || *unit == u':') && unit[1] == *unit) return true;
  }
  return false;
}

// The order matters: a backslash pair ends as two separators, not as a literal "/".
void Normalize(OString* path) {
  if (!NeedsNormalizing(*path)) return;
  path->Replace("%%", "%25");
  path->Replace("//", "%2F");
  path->Replace("::", "%3A");
  path->Replace("\\", "/");
}

// Both are normalized.
OString JoinPath(const OString& keyPath, const OString& path) {
  if (path.Find(':', 1) > 0) return path;
  OString whole = keyPath;
  if (EndsInSeparator(whole)) whole.TrimRight("/");
  if (path.IsEmpty()) return whole;
  if (!whole.IsEmpty() && whole.GetWide()[whole.Length() - 1] != u':') whole += '/';
  whole += path;
  return whole;
}

// The wide text of one byte in a code page.
OString WidenByte(unsigned char byte, uint32_t codePage) {
  OString text;
  text.SetCodePage(codePage);
  char narrow[] = {static_cast<char>(byte), 0};
  text = narrow;
  return text;
}

}  // namespace

bool StartsWithNoCase(const OString& text, const char* prefix) {
  const char16_t* unit = text.GetWide();
  for (; *prefix; ++prefix, ++unit) {
    if (FoldAscii(*unit) != FoldAscii(static_cast<unsigned char>(*prefix))) return false;
  }
  return true;
}

int LastSeparator(const OString& path) {
  const char16_t* text = path.GetWide();
  int last = -1;
  for (int i = 0; text[i]; ++i) {
    if (IsSeparator(text[i])) last = i;
  }
  return last;
}

OString ChildKey(const OString& key, const OString& name) {
  const bool isRoot = key.GetWide()[key.Length() - 1] == u':';
  return key + (isRoot ? "" : "/") + ORegistry::Escape(name);
}

void SubstituteAlias(OString* path, const char* alias, const char* target) {
  if (!StartsWithNoCase(*path, alias)) return;
  const char16_t* rest = path->GetWide() + strlen(alias);
  std::u16string text(target, target + strlen(target));
  if (*rest && *rest != u'/' && !IsSeparator(text.back())) text += u'/';
  text += rest;
  *path = text.c_str();
}

OString ORegistry::Escape(const OString& name) {
  OString escaped = name;
  if (!Contains(name, u"%/:")) return escaped;
  escaped.Replace("%", "%25");
  escaped.Replace("/", "%2F");
  escaped.Replace(":", "%3A");
  return escaped;
}

OString ORegistry::Unescape(const OString& name) {
  if (!Contains(name, u"%")) return name;
  const std::u16string text = name.GetWide();
  std::u16string decoded;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'%' || i + 2 >= text.size()) {
      decoded += text[i];
      continue;
    }
    unsigned byte = (16 * LaxHexDigit(text[i + 1]) + LaxHexDigit(text[i + 2])) & 0xFF;
    i += 2;
    if (byte == 0) {
      // The unit behind has moved to the place just looked at; it stays as it is.
      if (i + 1 < text.size()) decoded += text[++i];
    } else if (byte < 0x80) {
      decoded += static_cast<char16_t>(byte);
    } else {
      decoded += WidenByte(static_cast<unsigned char>(byte), name.GetCodePage()).GetWide();
    }
  }
  OString result;
  result.SetCodePage(name.GetCodePage());
  result = decoded.c_str();
  return result;
}

OString ORegistry::ToDisplayForm(const OString& canonical) {
  OString display = canonical;
  for (const Alias& hive : kHiveNames) display.Replace(hive.Name, OString(hive.Target) + "/");
  display.Replace("/", "\\");
  return Unescape(display);
}

OString ORegistry::FromDisplayForm(const OString& display) {
  OString canonical = Escape(display);
  for (const Alias& hive : kHiveNames) canonical.Replace(OString(hive.Target) + "\\", hive.Name);
  canonical.Replace("\\", "/");
  return canonical;
}

OString ORegistry::ToFullPath(const OString& path) const {
  OString key = path;
  OString value;
  return SplitPath(&key, &value) ? ToDisplayForm(key) : OString();
}

void ORegistry::SubstitutePrefix(OString* path, const OString& alias, const OString& target) {
  if (path->CompareNoCase(alias) == 0) {
    *path = target;
    return;
  }
  int colon = alias.Find(':');
  if (colon < 0) {
    path->Replace(alias, target);
    return;
  }
  if (path->Left(colon + 1).CompareNoCase(alias) != 0) return;
  path->Delete(0, colon + 1);
  // A rest that brings its own separator must not make an empty element.
  if (!EndsInSeparator(target) && path->GetWide()[0] != u'/') path->Insert(0, "/", 1);
  path->Insert(0, target);
}

bool ORegistry::SplitPath(OString* keyPath, OString* valuePath) const {
  bool keyOnly = valuePath->IsEmpty();
  Normalize(keyPath);
  Normalize(valuePath);
  OString whole = JoinPath(*keyPath, *valuePath);
  int split = LastSeparator(whole);
  if (split < 0) return false;
  if (keyOnly) {
    *keyPath = whole;
  } else {
    bool isColon = whole.GetWide()[split] == u':';
    *keyPath = whole.Left(isColon ? split + 1 : split);
    *valuePath = Unescape(whole.Mid(split + 1));
  }
  ResolvePath(keyPath);
  return true;
}

bool ORegistry::SplitKeyPath(const OString& path, OString* key) const {
  OString root = Root;
  OString rest = path;
  Normalize(&root);
  Normalize(&rest);
  *key = JoinPath(root, rest);
  if (LastSeparator(*key) < 0) return false;
  ResolvePath(key);
  return true;
}

void ORegistry::ResolvePath(OString* path) const {
  if (path->Find(':') < 0) return;
  for (const Alias& alias : kAliases) SubstituteAlias(path, alias.Name, alias.Target);
}

}  // namespace ostvt
