#include "store/PrinterRegistry.h"

#include <utility>

#include "core/DriverPath.h"
#include "store/PrinterId.h"
#include "store/RegistryPath.h"
#include "store/SharedBranches.h"

namespace ostvt {
namespace {

// In the order in which they are tried: the earlier ones lead to the later.
constexpr Alias kAliases[] = {
    {"STOCK:", "LOCAL:Paper Sizes"},
    {"SETTINGS:", "DATA:Settings"},
    {"CACHE:", "DATA:Cache"},
    {"FONTS:", "DATA:Downloaded Fonts"},
    {"PRESETS:", "DATA:Presets"},
    {"DEBUG:", "DATA:Development"},
    {"USERSETTINGS:", "USER:Printers/[PRINTER]/Settings"},
    {"DATA:", "PRINT:Printers/[PRINTER]/PrinterDriverData"},
    {"MODEL:", "PRINT:Printers/[PRINTER]/PrinterDriverData/Model"},
    {"MONITOR:", "PRINT:Monitors/Vantrel Network Monitor"},
    {"NETWORK:", "LOCAL:Network/@[SERVER]"},
};

struct ShadowHead {
  const char* Head;
  int Units;
  const char* Name;
};

template <int N>
constexpr ShadowHead MakeShadowHead(const char (&head)[N], const char* name) {
  return {head, N - 1, name};
}

// What the shadow route takes along, and under which word.
constexpr ShadowHead kShadowHeads[] = {
    MakeShadowHead("2:SYSTEM/CurrentControlSet/Control/Print", "PRINT%3A"),
    MakeShadowHead("2:SOFTWARE/Vantrel/Drivers", "LOCAL%3A"),
    MakeShadowHead("1:SOFTWARE/Vantrel/Drivers", "USER%3A"),
};

// Values of the stored "Shadow" byte; 0 follows IsRemote.
constexpr uint8_t kShadowAuto = 0;
constexpr uint8_t kShadowAlways = 2;

constexpr uint32_t kAttributeEnableBidi = 0x800;

// The environment's name is the same whatever the processor.
const char* DriverInfoTarget() {
  if (!DriverOnNtPath) return "PRINT:Environments/Windows 4.0/Drivers/[MODEL]";
  return DriverIsVersion3 ? "PRINT:Environments/Windows NT x86/Drivers/Version-3/[MODEL]"
                          : "PRINT:Environments/Windows NT x86/Drivers/Version-2/[MODEL]";
}

// The full path of a hive brings the separator along.
bool EndsInBackslash(const OString& path) {
  return std::u16string_view(path.GetWide()).ends_with(u'\\');
}

bool EndsKey(char16_t unit) { return unit == u'\\' || unit == u']'; }

// What stands between a key that is replaced and the rest of its header.
enum class Behind {
  kAnything,
  kEndOfKey,    // only where the key ends there: "A" is not replaced in "[AB]"
  kPutEndOfKey  // gets the separator that the display form has behind a key
};

// In section headers, `search` at the place of the key becomes `replacement`. An empty text, which
// stands for no key, is neither looked for nor put.
void ReplaceInHeaders(const OString& search, const OString& replacement, Behind behind,
                      OStringArray* lines) {
  int length = search.Length();
  if (length == 0 || replacement.IsEmpty()) return;
  for (int32_t i = 0; i < lines->Count; ++i) {
    OString& line = (*lines)[i];
    if (line.GetWide()[0] != u'[') continue;
    // "[KEY]" and "[-KEY]".
    for (int offset = 1; offset <= 2; ++offset) {
      if (line.Mid(offset, length).CompareNoCase(search) != 0) continue;
      OString rest = line.Mid(offset + length);
      bool ends = EndsKey(rest.GetWide()[0]);
      if (behind == Behind::kEndOfKey && !ends) continue;
      line = line.Left(offset) + replacement;
      if (behind == Behind::kPutEndOfKey && !ends) line += '\\';
      line += rest;
    }
  }
}

}  // namespace

PrinterRegistry::PrinterRegistry(const OString& printerName) {
  PrinterId id(printerName);
  TakeFrom(id);
}

PrinterRegistry::PrinterRegistry(PrinterId& printerId) { TakeFrom(printerId); }

void PrinterRegistry::TakeFrom(PrinterId& id) {
  // The driver first: both records then come of one opening.
  const OString oemCode = id.GetOemCode();
  if (id.IsKnown()) {
    const PrinterId::PrinterFields& printer = id.Printer();
    PrinterFullName = id.GetFullName();
    PrinterName = id.GetPrinterName();
    ModelName = printer.DriverName;
    PortName = printer.PortName;
    ServerName = printer.ServerName;
    OemCode = oemCode;
    IsRemote = printer.IsRemote;
  }
  // Read while the route is still off, from where it is set.
  uint8_t shadow = ReadByte("LOCAL:Printers/[PRINTER]/Shadow", kShadowAuto);
  IsShadowed = shadow == kShadowAuto ? IsRemote : shadow == kShadowAlways;
}

PrinterRegistry::PrinterRegistry(const PrinterRegistry& other)
    : ORegistry(other),
      PrinterFullName(other.PrinterFullName),
      PrinterName(other.PrinterName),
      PortName(other.PortName),
      ServerName(other.ServerName),
      OemCode(other.OemCode),
      IsRemote(other.IsRemote),
      IsShadowed(other.IsShadowed) {}

PrinterRegistry::~PrinterRegistry() = default;

void PrinterRegistry::ResolveUnits(std::u16string* path) const {
  if (path->find(u':') == std::u16string::npos) return;
  SubstituteAlias(path, {"DRIVER_INFO:", DriverInfoTarget()});
  for (const Alias& alias : kAliases) SubstituteAlias(path, alias);
  const bool endsOpen = path->ends_with(u'/');
  const bool endedTwice = path->ends_with(u"//");
  const std::pair<std::u16string_view, const OString&> macros[] = {{u"[PRINTER]", PrinterName},
                                                                   {u"[MODEL]", ModelName},
                                                                   {u"[PORT]", PortName},
                                                                   {u"[SERVER]", ServerName}};
  for (const auto& [macro, name] : macros) {
    if (path->find(macro) != std::u16string::npos) SubstituteMacro(path, macro, Escape(name));
  }
  SubstituteMacro(path, u"[OEM]", OemCode);
  // A key whose last element is the name of nobody would be the one above, which all printers
  // share. Opening passes over what separates at the end, however much it is.
  if (!endedTwice && path->ends_with(endsOpen ? u"//" : u"/")) path->clear();
  ORegistry::ResolveUnits(path);
}

platform::Hive PrinterRegistry::GetDataHive() const {
  const bool ofUser = IsShadowed && (!DriverOnNtPath || DriverIsVersion3);
  return ofUser ? platform::Hive::kCurrentUser : platform::Hive::kLocalMachine;
}

platform::KeyHandle PrinterRegistry::OpenKey(const OString& canonicalPath, bool create) const {
  return ORegistry::OpenKey(IsShadowed ? RouteKey(canonicalPath) : canonicalPath, create);
}

OString PrinterRegistry::RouteKey(const OString& canonicalPath) const {
  if (!IsShadowed) return canonicalPath;
  for (const ShadowHead& shadow : kShadowHeads) {
    if (!StartsWithNoCase(canonicalPath.GetWide(), shadow.Head)) continue;
    OString path;
    path.SetCodePage(canonicalPath.GetCodePage());
    path = GetDataHive() == platform::Hive::kCurrentUser ? "1:SOFTWARE/Vantrel/Drivers/"
                                                         : "2:SOFTWARE/Vantrel/Drivers/";
    if (IsRemote) path += OString("@") + Escape(ServerName) + "/";
    path += shadow.Name;
    path += canonicalPath.Mid(shadow.Units);
    return path;
  }
  return canonicalPath;
}

bool PrinterRegistry::IsBidiEnabled() const {
  return (ReadDword("PRINT:Printers/[PRINTER]/Attributes", 0) & kAttributeEnableBidi) != 0;
}

void PrinterRegistry::ListBranchRoots(OStringArray* array) const {
  array->SetSize(0);
  OStringArray names;
  EnumerateKeys("DATA:", &names);
  for (int32_t i = 0; i < names.Count; ++i) array->Add("DATA:" + Escape(names[i]));
  names.SetSize(0);
  EnumerateKeys("LOCAL:", &names);
  for (int32_t i = 0; i < names.Count; ++i) {
    bool isMachinesOwn = false;
    for (const char* branch : kMachinesOwnBranches) isMachinesOwn |= names[i] == branch;
    if (!isMachinesOwn) array->Add("LOCAL:" + Escape(names[i]));
  }
}

void PrinterRegistry::ExpandAliasInLines(const OString& alias, OStringArray* lines) const {
  const bool isWhole = !alias.IsEmpty() && alias.GetWide()[alias.Length() - 1] == u':';
  const OString full = ToFullPath(alias);
  const bool putsEnd = isWhole && !EndsInBackslash(full);
  ReplaceInHeaders(alias, full, putsEnd ? Behind::kPutEndOfKey : Behind::kAnything, lines);
}

void PrinterRegistry::CollapseAliasInLines(const OString& alias, OStringArray* lines) const {
  const OString full = ToFullPath(alias);
  ReplaceInHeaders(full, alias, EndsInBackslash(full) ? Behind::kAnything : Behind::kEndOfKey,
                   lines);
}

}  // namespace ostvt
