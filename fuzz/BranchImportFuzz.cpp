// Lines of a branch from outside: what may be applied stays below its branch, and what the store
// then has is exported, imported and exported again alike. The lines are parted by LF; the first
// byte has the flags.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/KeyStore.h"
#include "store/BranchSections.h"
#include "store/BranchText.h"
#include "store/ORegistry.h"
#include "tests/support/TestStore.h"

namespace {

using ostvt::ORegistry;
using ostvt::OString;
using ostvt::OStringArray;

// What lies beside it must not be touched.
constexpr char kBase[] = "1:Fuzz/Branch";

void Require(bool condition) {
  if (!condition) abort();
}

OStringArray LinesOf(const std::string& bytes) {
  OStringArray lines;
  for (size_t at = 0; at <= bytes.size();) {
    const size_t end = std::min(bytes.find('\n', at), bytes.size());
    OString line;
    line.SetCodePage(ostvt::kCodePageUtf8);
    line = bytes.substr(at, end - at).c_str();
    lines.Add(line);
    at = end + 1;
  }
  return lines;
}

bool Same(const OStringArray& a, const OStringArray& b) {
  if (a.Count != b.Count) return false;
  for (int32_t i = 0; i < a.Count; ++i) {
    if (std::u16string(a[i].GetWide()) != b[i].GetWide()) return false;
  }
  return true;
}

// A value that can be read is written so that it reads the same.
void CheckValue(const OString& text) {
  ostvt::BranchValue value;
  const ostvt::BranchLine line(text);
  if (!ostvt::ParseBranchValue(line.Text, &value)) return;
  OStringArray lines;
  ostvt::AppendBranchValue(value, &lines);
  std::u16string joined;
  for (int32_t i = 0; i < lines.Count; ++i) joined += ostvt::BranchLine(lines[i]).Text;
  ostvt::BranchValue again;
  Require(ostvt::ParseBranchValue(joined, &again));
  Require(std::u16string(value.Name.GetWide()) == again.Name.GetWide());
  Require(value.Type == again.Type && value.Data == again.Data);
}

OStringArray Export(ORegistry& registry, const char* path) {
  OStringArray lines;
  Require(registry.ExportBranch(path, &lines, 0));
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const ostvt::test::TestStore kStore;
  if (size == 0) return 0;
  OStringArray lines = LinesOf(std::string(reinterpret_cast<const char*>(data + 1), size - 1));
  for (int32_t i = 0; i < lines.Count; ++i) CheckValue(lines[i]);

  ORegistry registry;
  OStringArray branches;
  branches.Add(kBase);
  ostvt::KeepSectionsBelow(registry, branches, &lines);
  OStringArray kept(lines);
  ostvt::KeepSectionsBelow(registry, branches, &kept);
  Require(Same(lines, kept));

  // What is undone in the end costs the store nothing.
  const ostvt::platform::KeyStoreTransaction undone(
      ostvt::platform::Hive::kCurrentUser, ostvt::platform::KeyStoreTransaction::Purpose::kWrite);
  registry.WriteByte("1:Fuzz/Beside/V", 1);
  registry.WriteByte("1:Fuzz/Branch2/V", 1);
  ORegistry().ImportBranch(lines, data[0] & 1);
  int32_t keys = 0;
  Require(registry.GetKeyInfo("1:Fuzz", &keys, nullptr) && keys <= 3);
  Require(registry.ReadByte("1:Fuzz/Beside/V", 0) == 1);
  Require(registry.ReadByte("1:Fuzz/Branch2/V", 0) == 1);

  const OStringArray first = Export(registry, kBase);
  registry.Delete(kBase, true);
  ORegistry().ImportBranch(first, 0);
  Require(Same(first, Export(registry, kBase)));
  return 0;
}
