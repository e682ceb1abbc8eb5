// The text half of ORegistry: the path grammar, aliases and the display form. Nothing here touches
// the store.
#include "store/RegistryPath.h"

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

constexpr bool IsSeparator(char16_t unit) { return unit == u'/' || unit == u':'; }

bool EndsInSeparator(const OString& path) {
  const char16_t* text = path.GetWide();
  return *text && IsSeparator(text[std::char_traits<char16_t>::length(text) - 1]);
}

size_t LastSeparatorOf(std::u16string_view path) { return path.find_last_of(u"/:"); }

void ReplaceAll(std::u16string* text, std::u16string_view part, std::u16string_view other) {
  for (size_t at = text->find(part); at != std::u16string::npos;
       at = text->find(part, at + other.size())) {
    text->replace(at, part.size(), other);
  }
}

// A doubled character of the grammar, or a backslash.
bool NeedsNormalizing(std::u16string_view path) {
  for (size_t i = 0; i < path.size(); ++i) {
    const char16_t unit = path[i];
    if (unit == u'\\') return true;
    const bool isDoubled = i + 1 < path.size() && path[i + 1] == unit;
    if (isDoubled && (unit == u'%' || IsSeparator(unit))) return true;
  }
  return false;
}

// The order matters: a backslash pair ends as two separators, not as a literal "/".
std::u16string Normalize(const OString& path) {
  std::u16string text = path.GetWide();
  if (!NeedsNormalizing(text)) return text;
  ReplaceAll(&text, u"%%", u"%25");
  ReplaceAll(&text, u"//", u"%2F");
  ReplaceAll(&text, u"::", u"%3A");
  ReplaceAll(&text, u"\\", u"/");
  return text;
}

// A path that names its hive stands by itself.
bool HasHead(std::u16string_view path) { return path.find(u':', 1) != std::u16string_view::npos; }

// A path behind the one that it hangs from, both normalized.
struct WholePath {
  WholePath(const OString& root, const OString& path)
      : Units(Normalize(path)), CodePage(path.GetCodePage()) {
    if (HasHead(Units)) return;
    std::u16string head = Normalize(root);
    while (head.ends_with(u'/')) head.pop_back();
    if (head.empty()) return;
    if (!Units.empty() && head.back() != u':') head += u'/';
    Units.insert(0, head);
    CodePage = root.GetCodePage();
  }

  std::u16string Units;
  uint32_t CodePage;  // of its escapes
};

OString TextOf(const std::u16string& units, uint32_t codePage) {
  OString text;
  text.SetCodePage(codePage);
  text = units.c_str();
  return text;
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

bool HasUnits(const OString& text) { return text.IsEmpty() || *text.GetWide() != 0; }

bool StartsWithNoCase(std::u16string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (size_t i = 0; i < prefix.size(); ++i) {
    if (FoldAscii(text[i]) != FoldAscii(static_cast<unsigned char>(prefix[i]))) return false;
  }
  return true;
}

int LastSeparator(const OString& path) {
  const size_t last = LastSeparatorOf(path.GetWide());
  return last == std::u16string_view::npos ? -1 : static_cast<int>(last);
}

OString ChildKey(const OString& key, const OString& name) {
  const bool isRoot = key.GetWide()[key.Length() - 1] == u':';
  return key + (isRoot ? "" : "/") + ORegistry::Escape(name);
}

std::u16string DecodeEscapes(std::u16string_view text, uint32_t codePage) {
  std::u16string decoded;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'%' || i + 2 >= text.size()) {
      decoded += text[i];
      continue;
    }
    unsigned byte = (16 * LaxHexDigit(text[i + 1]) + LaxHexDigit(text[i + 2])) & 0xFF;
    i += 2;
    std::u16string units;
    if (byte >= 0x80) {
      units = WidenByte(static_cast<unsigned char>(byte), codePage).GetWide();
    } else if (byte != 0) {
      units = static_cast<char16_t>(byte);
    }
    decoded += units;
    // Of a byte that gives nothing the unit behind takes the place just looked at; it stays as it
    // is.
    if (units.empty() && i + 1 < text.size()) decoded += text[++i];
  }
  return decoded;
}

void SubstituteAlias(std::u16string* path, const Alias& alias) {
  const std::string_view target = alias.Target;
  std::string_view name = alias.Name;
  if (!StartsWithNoCase(*path, name)) return;
  path->replace(0, name.size(), std::u16string(target.begin(), target.end()));
  const bool endsThere = path->size() == target.size() || (*path)[target.size()] == u'/';
  if (!endsThere && !IsSeparator(static_cast<char16_t>(target.back())))
    path->insert(target.size(), 1, u'/');
}

void SubstituteMacro(std::u16string* path, std::u16string_view macro, const OString& text) {
  ReplaceAll(path, macro, text.GetWide());
}

OString ORegistry::Escape(const OString& name) {
  OString escaped = name;
  if (std::u16string_view(name.GetWide()).find_first_of(u"%/:") == std::u16string_view::npos)
    return escaped;
  escaped.Replace("%", "%25");
  escaped.Replace("/", "%2F");
  escaped.Replace(":", "%3A");
  return escaped;
}

OString ORegistry::Unescape(const OString& name) {
  if (std::u16string_view(name.GetWide()).find(u'%') == std::u16string_view::npos) return name;
  return TextOf(DecodeEscapes(name.GetWide(), name.GetCodePage()), name.GetCodePage());
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
  if (!HasUnits(*keyPath) || !HasUnits(*valuePath)) return false;
  const bool keyOnly = valuePath->IsEmpty();
  WholePath whole(*keyPath, *valuePath);
  const size_t split = LastSeparatorOf(whole.Units);
  if (split == std::u16string::npos) return false;
  if (!keyOnly) {
    *valuePath = Unescape(TextOf(whole.Units.substr(split + 1), whole.CodePage));
    whole.Units.resize(whole.Units[split] == u':' ? split + 1 : split);
  }
  ResolveUnits(&whole.Units);
  *keyPath = TextOf(whole.Units, whole.CodePage);
  return !whole.Units.empty();
}

bool ORegistry::SplitKeyPath(const OString& path, OString* key) const {
  if (!HasUnits(Root) || !HasUnits(path)) return false;
  WholePath whole(Root, path);
  if (LastSeparatorOf(whole.Units) == std::u16string::npos) return false;
  ResolveUnits(&whole.Units);
  *key = TextOf(whole.Units, whole.CodePage);
  return !whole.Units.empty();
}

void ORegistry::ResolvePath(OString* path) const {
  std::u16string units = path->GetWide();
  ResolveUnits(&units);
  *path = TextOf(units, path->GetCodePage());
}

void ORegistry::ResolveUnits(std::u16string* path) const {
  if (path->find(u':') == std::u16string::npos) return;
  for (const Alias& alias : kAliases) SubstituteAlias(path, alias);
}

}  // namespace ostvt
