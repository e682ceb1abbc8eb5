// Paths of the store: splitting, resolving and the two forms. Three texts, separated by NUL: the
// root, the path, the printer's name. Nothing touches the store but the opening of the key for
// reading.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "store/PrinterRegistry.h"

namespace {

using ostvt::OString;

void Require(bool condition) {
  if (!condition) abort();
}

OString Take(std::string* rest, uint32_t codePage) {
  size_t end = rest->find('\0');
  OString text;
  text.SetCodePage(codePage);
  text = rest->substr(0, end).c_str();
  rest->erase(0, end == std::string::npos ? end : end + 1);
  return text;
}

void CheckOne(std::string rest, uint32_t codePage) {
  static const ostvt::PrinterRegistry kUnknown("");
  ostvt::PrinterRegistry registry(kUnknown);
  registry.Root = Take(&rest, codePage);
  OString path = Take(&rest, codePage);
  registry.PrinterName = Take(&rest, codePage);
  registry.SetShadowed(path.Length() % 2 == 0);
  registry.IsRemote = path.Length() % 3 == 0;

  OString key = registry.Root;
  OString value = path;
  if (registry.SplitPath(&key, &value)) {
    ostvt::platform::CloseKey(registry.OpenKey(key, false));
    ostvt::ORegistry::ToDisplayForm(key);
  }
  registry.ToFullPath(path);
  ostvt::ORegistry::FromDisplayForm(path);
  ostvt::ORegistry::Unescape(path);
  // What Escape writes, Unescape reads, and no separator is left in it.
  OString escaped = ostvt::ORegistry::Escape(path);
  Require(escaped.Find('/') < 0 && escaped.Find(':') < 0);
  Require(ostvt::ORegistry::Unescape(escaped).Compare(OString(path.GetWide())) == 0);

  ostvt::OStringArray lines;
  lines.Add(path);
  lines.Add("[" + path);
  registry.ExpandAliasInLines("DATA:", &lines);
  registry.CollapseAliasInLines("DATA:", &lines);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // A store that is not there: openings run through the path checks and find nothing.
  static const int kDirectory = setenv("OSTVT_STORE_DIR", "/nonexistent", 1);
  (void)kDirectory;
  std::string input(reinterpret_cast<const char*>(data), size);
  for (uint32_t codePage : {0u, ostvt::kCodePageUtf8, 932u}) CheckOne(input, codePage);
  return 0;
}
