// The text half of ORegistry's branches: a key with all below it as lines, and back.
#include <string>
#include <vector>

#include "core/Crc.h"
#include "store/BranchText.h"
#include "store/ORegistry.h"
#include "store/RegistryPath.h"
#include "store/ScopedKey.h"

namespace ostvt {
namespace {

// As far as reads of texts go: what is longer would reach the other side as nothing.
constexpr int kLongestText = 8192;

bool IsChecksum(const OString& name) { return name.CompareNoCase(kBranchChecksum) == 0; }

// Such a text would end its line, and what follows would be read as lines of their own.
bool HasLineEnd(const std::vector<uint8_t>& text) {
  for (size_t i = 0; i + 1 < text.size(); i += sizeof(char16_t)) {
    if (text[i + 1] == 0 && (text[i] == '\r' || text[i] == '\n')) return true;
  }
  return false;
}

bool HasLineEnd(const OString& name) { return name.FindOneOf("\r\n") >= 0; }

bool ReadBranchValue(platform::KeyHandle key, const OString& name, BranchValue* value) {
  int size = 0;
  if (!platform::GetValueSize(key, name.GetWide(), &size)) return false;
  value->Name = name;
  value->Data.resize(static_cast<size_t>(size));
  // A read wants a buffer even of an empty value.
  uint8_t none = 0;
  void* buffer = value->Data.empty() ? &none : value->Data.data();
  if (platform::ReadValue(key, name.GetWide(), buffer, size, &value->Type) != size) return false;
  switch (value->Type) {
    case platform::kValueString:
      // Whoever reads a text doesn't look at the type.
      if (HasLineEnd(value->Data)) value->Type = platform::kValueBinary;
      return size <= kLongestText;
    case platform::kValueMultiString:
      return size <= kLongestText;
    case platform::kValueDword:
      return size == sizeof(uint32_t);
    default:
      return true;
  }
}

// Each line with its terminator.
uint32_t ChecksumOf(const OStringArray& lines, int32_t first) {
  uint32_t crc = 0;
  for (int32_t i = first; i < lines.Count; ++i) {
    const char16_t* text = lines[i].GetWide();
    const size_t units = std::char_traits<char16_t>::length(text) + 1;
    crc = CRC32(text, static_cast<uint32_t>(units * sizeof(*text)), crc);
  }
  return crc;
}

}  // namespace

void ORegistry::ExportKey(const OString& key, OStringArray* lines) const {
  const OString header = MakeBranchHeader(key, false);
  if (HasLineEnd(header)) return;
  lines->Add(header);
  OStringArray names;
  ListNames(key, platform::EnumerateValue, &names);
  const ScopedKey opened(OpenKey(key, false));
  for (int32_t i = 0; i < names.Count; ++i) {
    BranchValue value;
    if (IsChecksum(names[i]) || HasLineEnd(names[i])) continue;
    if (!ReadBranchValue(opened.Get(), names[i], &value)) continue;
    AppendBranchValue(value, lines);
  }
  lines->Add(OString());
  OStringArray children;
  ListNames(key, platform::EnumerateKey, &children);
  for (int32_t i = 0; i < children.Count; ++i) {
    // A name that leads nowhere would be the key itself once more, and a link may be so, too.
    if (children[i].IsEmpty() || platform::IsLink(opened.Get(), children[i].GetWide())) continue;
    ExportKey(ChildKey(key, children[i]), lines);
  }
}

bool ORegistry::ExportBranch(const OString& path, OStringArray* lines, uint32_t flags) {
  OString key = path;
  OString value;
  if (!SplitPath(&key, &value)) return false;
  const int32_t first = lines->Count;
  if ((flags & kExportDeletion) && !HasLineEnd(ToDisplayForm(key))) {
    lines->Add(MakeBranchHeader(key, true));
    lines->Add(OString());
  }
  ExportKey(key, lines);
  if (flags & kExportChecksum) {
    WriteDword(ChildKey(key, kBranchChecksum), ChecksumOf(*lines, first));
  }
  return true;
}

void ORegistry::ImportValue(std::u16string_view line) {
  BranchValue value;
  if (!ParseBranchValue(line, &value) || IsChecksum(value.Name)) return;
  OString name = Escape(value.Name);
  name.Replace("\\", "%5C");
  WriteValue(name, value.Data.data(), static_cast<int32_t>(value.Data.size()), value.Type);
}

bool ORegistry::ImportBranch(const OStringArray& lines, uint32_t flags) {
  bool inSection = false;
  bool isBytes = false;
  std::u16string pending;
  for (int32_t i = 0; i < lines.Count; ++i) {
    const BranchLine line(lines[i]);
    if (!inSection) {
      BranchHeader header;
      if (!ParseBranchHeader(line.Text, &header)) continue;
      OString key;
      // A header names a key from its hive on, never one below the section before.
      const bool hasHive = header.Key.Find(':') > 0;
      if (header.IsDeletion) {
        if (hasHive && GetKeyInfo(header.Key, nullptr, nullptr)) Delete(header.Key, true);
        continue;
      }
      Root = header.Key;
      if (SplitKeyPath(OString(), &key)) platform::CloseKey(OpenKey(key, true));
      inSection = true;
      pending.clear();
      if (flags & kImportEmptying) DeleteMatching("*");
      continue;
    }
    if (line.Text.empty()) {
      inSection = false;
      continue;
    }
    if (pending.empty()) {
      if (!BeginsValue(line.Text)) continue;
      isBytes = IsBytesValue(line.Text);
    }
    pending += line.Text;
    if (line.Text.ends_with(u',') || (line.IsBroken && isBytes)) continue;
    ImportValue(pending);
    pending.clear();
  }
  return true;
}

}  // namespace ostvt
