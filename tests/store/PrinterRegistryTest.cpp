#include "store/PrinterRegistry.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/DriverPath.h"
#include "platform/KeyStore.h"
#include "store/PrinterId.h"
#include "tests/store/StoreText.h"
#include "tests/support/TestPrinter.h"

namespace ostvt {
namespace {

using test::Joined;
using test::TestPrinter;
using test::TestPrinterOptions;
using test::Text;

constexpr char kDriverData[] =
    "2:SYSTEM/CurrentControlSet/Control/Print/Printers/P/PrinterDriverData";

class PrinterRegistryTest : public ::testing::Test {
 protected:
  ~PrinterRegistryTest() override {
    // Where shadows of these tests lie outside the driver's own key.
    ORegistry().Delete("3:.DEFAULT/Tests-Store", true);
    ORegistry().Delete("2:SOFTWARE/Vantrel/DriversX", true);
    DriverOnNtPath = NtPathBefore;
    DriverIsVersion3 = Version3Before;
  }

  void AddPrinter(const char16_t* name, const char16_t* port = u"FILE:") {
    TestPrinterOptions options;
    options.Name = name;
    options.DriverName = u"Model/1";
    options.Port = port;
    Printer = std::make_unique<TestPrinter>(options);
    ASSERT_TRUE(Printer->IsReady());
  }
  PrinterRegistry Open() const { return PrinterRegistry(Printer->Name()); }
  static void SetDriverPath(bool ntPath, bool version3) {
    DriverOnNtPath = ntPath;
    DriverIsVersion3 = version3;
  }
  // True if this printer's registry has its shadow route on when "Shadow" holds `value`.
  bool ShadowedBy(uint8_t value) const {
    PrinterRegistry registry = Open();
    registry.SetShadowed(false);
    registry.WriteByte("LOCAL:Printers/[PRINTER]/Shadow", value);
    return Open().IsShadowed;
  }
  static std::string Resolve(const PrinterRegistry& registry, const char* path) {
    OString resolved = path;
    registry.ResolvePath(&resolved);
    return Text(resolved);
  }
  static std::string Split(const PrinterRegistry& registry, const char* path) {
    OString key;
    OString value = path;
    return registry.SplitPath(&key, &value) ? Text(key) + "|" + Text(value) : "(fails)";
  }

  bool NtPathBefore = DriverOnNtPath;
  bool Version3Before = DriverIsVersion3;
  std::unique_ptr<TestPrinter> Printer;
};

TEST_F(PrinterRegistryTest, FieldsComeFromTheSpooler) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  EXPECT_EQ("P", Text(registry.PrinterFullName));
  EXPECT_EQ("P", Text(registry.PrinterName));
  EXPECT_EQ("Model/1", Text(registry.ModelName));
  EXPECT_EQ("FILE:", Text(registry.PortName));
  EXPECT_FALSE(registry.ServerName.IsEmpty());
  EXPECT_EQ("vt", Text(registry.OemCode));
  EXPECT_FALSE(registry.IsRemote);
  EXPECT_FALSE(registry.IsShadowed);
  EXPECT_TRUE(registry.Root.IsEmpty());
}

TEST_F(PrinterRegistryTest, PortOnAnotherComputerMakesThePrinterRemote) {
  AddPrinter(u"P", u"\\\\host\\queue");
  PrinterRegistry registry = Open();
  EXPECT_TRUE(registry.IsRemote);
  EXPECT_TRUE(registry.IsShadowed);
  EXPECT_EQ("host", Text(registry.ServerName));
  EXPECT_EQ("1:x/host", Resolve(registry, "1:x/[SERVER]"));
}

TEST_F(PrinterRegistryTest, UnknownPrinterLeavesTheNamesEmpty) {
  AddPrinter(u"P");
  PrinterRegistry registry("No Such Printer");
  EXPECT_TRUE(registry.PrinterFullName.IsEmpty());
  EXPECT_TRUE(registry.PrinterName.IsEmpty());
  EXPECT_TRUE(registry.ModelName.IsEmpty());
  EXPECT_TRUE(registry.ServerName.IsEmpty());
  EXPECT_FALSE(registry.IsRemote);
  EXPECT_EQ("2:SYSTEM/CurrentControlSet/Control/Print/Printers//PrinterDriverData/Settings",
            Resolve(registry, "SETTINGS:"));
  EXPECT_EQ(9, registry.ReadByte("SETTINGS:A", 9));
  EXPECT_FALSE(registry.WriteByte("SETTINGS:A", 1));
}

// Where the name is the key's last element, the key above is everybody's.
TEST_F(PrinterRegistryTest, UnknownPrinterReachesNoKeyOfAllPrinters) {
  AddPrinter(u"P");
  PrinterRegistry registry("No Such Printer");
  ORegistry().WriteByte("USER:Printers/Shadow Blocked", 1);
  EXPECT_EQ(0, registry.ReadByte("USER:Printers/[PRINTER]/Shadow Blocked", 0));
  EXPECT_FALSE(registry.WriteByte("USER:Printers/[PRINTER]/Shadow Blocked", 2));
  EXPECT_FALSE(registry.Delete("USER:Printers/[PRINTER]", true));
  EXPECT_FALSE(registry.Delete("USER:Printers/[PRINTER]/", true));
  EXPECT_FALSE(registry.GetKeyInfo("USER:Printers/[PRINTER]", nullptr, nullptr));
  EXPECT_FALSE(registry.GetKeyInfo("USER:Printers/[PRINTER]/", nullptr, nullptr));
  EXPECT_TRUE(registry.GetKeyInfo("USER:Printers/", nullptr, nullptr));
  EXPECT_EQ(1, ORegistry().ReadByte("USER:Printers/Shadow Blocked", 0));
  ORegistry().Delete("USER:Printers/Shadow Blocked", false);
}

// Each macro works on what the one before it left.
TEST_F(PrinterRegistryTest, MacrosExpandInTheirOrder) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.PrinterName = "[PORT]";
  registry.PortName = "[PRINTER]";
  EXPECT_EQ("1:x/[PRINTER]/y", Resolve(registry, "1:x/[PRINTER]/y"));
  EXPECT_EQ("1:x/[PRINTER]/y", Resolve(registry, "1:x/[PORT]/y"));
  registry.PortName = "Q";
  EXPECT_EQ("1:x/Q/y", Resolve(registry, "1:x/[PRINTER]/y"));
}

TEST_F(PrinterRegistryTest, CopyForgetsTheModelName) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.Root = "DATA:";
  registry.SetShadowed(true);
  PrinterRegistry copy(registry);
  EXPECT_EQ("", Text(copy.ModelName));
  EXPECT_EQ("1:x//y", Resolve(copy, "1:x/[MODEL]/y"));
  EXPECT_EQ("P", Text(copy.PrinterFullName));
  EXPECT_EQ("P", Text(copy.PrinterName));
  EXPECT_EQ("FILE:", Text(copy.PortName));
  EXPECT_EQ(Text(registry.ServerName), Text(copy.ServerName));
  EXPECT_EQ("vt", Text(copy.OemCode));
  EXPECT_EQ("DATA:", Text(copy.Root));
  EXPECT_FALSE(copy.IsRemote);
  EXPECT_TRUE(copy.IsShadowed);
}

TEST_F(PrinterRegistryTest, EachAliasHasItsTarget) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.ServerName = "S";
  const std::string data = kDriverData;
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Paper Sizes", Resolve(registry, "STOCK:"));
  EXPECT_EQ(data + "/Settings/x", Resolve(registry, "SETTINGS:x"));
  EXPECT_EQ(data + "/Cache/x", Resolve(registry, "CACHE:x"));
  EXPECT_EQ(data + "/Downloaded Fonts/x", Resolve(registry, "FONTS:x"));
  EXPECT_EQ(data + "/Presets/x", Resolve(registry, "PRESETS:x"));
  EXPECT_EQ(data + "/Development/x", Resolve(registry, "DEBUG:x"));
  EXPECT_EQ("1:SOFTWARE/Vantrel/Drivers/Printers/P/Settings/x",
            Resolve(registry, "USERSETTINGS:x"));
  EXPECT_EQ(data, Resolve(registry, "DATA:"));
  EXPECT_EQ(data + "/Model/x", Resolve(registry, "MODEL:x"));
  EXPECT_EQ("2:SYSTEM/CurrentControlSet/Control/Print/Monitors/Vantrel Network Monitor/x",
            Resolve(registry, "MONITOR:x"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Network/@S/x", Resolve(registry, "NETWORK:x"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Global Settings/x", Resolve(registry, "GLOBAL:x"));
  EXPECT_EQ("0:x", Resolve(registry, "CLASSES_ROOT:x"));
}

TEST_F(PrinterRegistryTest, EachMacroIsEscapedExceptTheMakersCode) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.PrinterName = "p/1";
  registry.ModelName = "m:2";
  registry.PortName = "LPT1:";
  registry.ServerName = "s%3";
  registry.OemCode = "a/b";
  EXPECT_EQ("1:p%2F1|m%3A2|LPT1%3A|s%253|a/b",
            Resolve(registry, "1:[PRINTER]|[MODEL]|[PORT]|[SERVER]|[OEM]"));
}

TEST_F(PrinterRegistryTest, MacroIsReplacedWhereverItStandsByExactCase) {
  AddPrinter(u"P");
  EXPECT_EQ("1:aPb/P/[printer]", Resolve(Open(), "1:a[PRINTER]b/[PRINTER]/[printer]"));
}

TEST_F(PrinterRegistryTest, PathWithoutColonIsNotResolved) {
  AddPrinter(u"P");
  EXPECT_EQ("[PRINTER]", Resolve(Open(), "[PRINTER]"));
}

TEST_F(PrinterRegistryTest, DataPathNamesTheDriverDataOfThePrinter) {
  AddPrinter(u"P");
  EXPECT_EQ(std::string(kDriverData) + "/A|B", Split(Open(), "DATA:A/B"));
}

TEST_F(PrinterRegistryTest, PrinterNameIsOneElement) {
  AddPrinter(u"a/b:c");
  PrinterRegistry registry = Open();
  EXPECT_EQ("2:SYSTEM/CurrentControlSet/Control/Print/Printers/a%2Fb%3Ac/PrinterDriverData|x",
            Split(registry, "DATA:x"));
  EXPECT_TRUE(registry.WriteByte("DATA:x", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("PRINT:Printers/a//b::c/PrinterDriverData/x", 0));
}

TEST_F(PrinterRegistryTest, ModelAliasIsNotTheModelMacro) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  EXPECT_EQ(std::string(kDriverData) + "/Model|Synchronization",
            Split(registry, "MODEL:Synchronization"));
  EXPECT_EQ("1:Model%2F1/MODEL", Resolve(registry, "1:[MODEL]/MODEL"));
}

TEST_F(PrinterRegistryTest, AliasMatchesWithoutCase) {
  AddPrinter(u"P");
  EXPECT_EQ(Split(Open(), "DATA:x"), Split(Open(), "data:x"));
  EXPECT_EQ(Split(Open(), "SETTINGS:x"), Split(Open(), "Settings:x"));
}

TEST_F(PrinterRegistryTest, DriverInfoFollowsTheDriversDirectory) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  const std::string environments = "2:SYSTEM/CurrentControlSet/Control/Print/Environments/";
  SetDriverPath(false, true);
  EXPECT_EQ(environments + "Windows 4.0/Drivers/Model%2F1/x", Resolve(registry, "DRIVER_INFO:x"));
  SetDriverPath(true, false);
  EXPECT_EQ(environments + "Windows NT x86/Drivers/Version-2/Model%2F1/x",
            Resolve(registry, "driver_info:x"));
  SetDriverPath(true, true);
  EXPECT_EQ(environments + "Windows NT x86/Drivers/Version-3/Model%2F1",
            Resolve(registry, "DRIVER_INFO:"));
}

TEST_F(PrinterRegistryTest, ShadowOfALocalPrinter) {
  AddPrinter(u"P");
  EXPECT_FALSE(ShadowedBy(0));
  EXPECT_FALSE(ShadowedBy(1));
  EXPECT_TRUE(ShadowedBy(2));
  EXPECT_FALSE(ShadowedBy(3));
}

TEST_F(PrinterRegistryTest, ShadowOfARemotePrinter) {
  AddPrinter(u"P", u"\\\\host\\queue");
  EXPECT_TRUE(ShadowedBy(0));
  EXPECT_FALSE(ShadowedBy(1));
  EXPECT_TRUE(ShadowedBy(2));
  EXPECT_FALSE(ShadowedBy(3));
}

TEST_F(PrinterRegistryTest, ShadowIsDecidedOnce) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  EXPECT_TRUE(ShadowedBy(2));
  EXPECT_FALSE(registry.IsShadowed);
}

TEST_F(PrinterRegistryTest, SettingOfARemotePrinterLandsBelowTheUsersKey) {
  AddPrinter(u"P", u"\\\\host\\queue");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  EXPECT_TRUE(registry.WriteByte("SETTINGS:A", 5));
  EXPECT_EQ(5, registry.ReadByte("SETTINGS:A", 0));
  EXPECT_EQ(5, ORegistry().ReadByte("1:SOFTWARE/Vantrel/Drivers/@host/PRINT%3A/Printers/P/"
                                    "PrinterDriverData/Settings/A",
                                    0));
  registry.SetShadowed(false);
  EXPECT_EQ(0, registry.ReadByte("SETTINGS:A", 0));
}

TEST_F(PrinterRegistryTest, DeletingAShadowHeadLeavesTheMachinesKey) {
  AddPrinter(u"P", u"\\\\host\\queue");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  const char* const shadow = "1:SOFTWARE/Vantrel/Drivers/@host/LOCAL%3A";
  // Without sub-keys, which alone would keep it from being deleted.
  EXPECT_TRUE(ORegistry().WriteByte("2:SOFTWARE/Vantrel/DriversX/V", 1));
  EXPECT_TRUE(registry.WriteByte("2:SOFTWARE/Vantrel/DriversX/V", 2));
  EXPECT_TRUE(registry.Delete("2:SOFTWARE/Vantrel/DriversX", true));
  EXPECT_EQ(1, ORegistry().ReadByte("2:SOFTWARE/Vantrel/DriversX/V", 0));
  EXPECT_FALSE(ORegistry().GetKeyInfo(OString(shadow) + "X", nullptr, nullptr));

  EXPECT_TRUE(ORegistry().WriteByte("2:SOFTWARE/Vantrel/Drivers/Kept", 1));
  EXPECT_TRUE(registry.WriteByte("LOCAL:A/V", 2));
  EXPECT_TRUE(ORegistry().GetKeyInfo(shadow, nullptr, nullptr));
  EXPECT_TRUE(registry.Delete("LOCAL:", true));
  EXPECT_FALSE(ORegistry().GetKeyInfo(shadow, nullptr, nullptr));
  EXPECT_EQ(1, ORegistry().ReadByte("2:SOFTWARE/Vantrel/Drivers/Kept", 0));
  ORegistry().Delete("2:SOFTWARE/Vantrel/Drivers/Kept", false);
}

TEST_F(PrinterRegistryTest, LookedUpPrinterGivesTheSameFields) {
  AddPrinter(u"P", u"\\\\host\\queue");
  PrinterRegistry byName = Open();
  PrinterId id(Printer->Name());
  PrinterRegistry byId(id);
  EXPECT_EQ("P", Text(byId.PrinterFullName));
  EXPECT_EQ(Text(byName.PrinterName), Text(byId.PrinterName));
  EXPECT_EQ("Model/1", Text(byId.ModelName));
  EXPECT_EQ(Text(byName.PortName), Text(byId.PortName));
  EXPECT_EQ("host", Text(byId.ServerName));
  EXPECT_EQ("vt", Text(byId.OemCode));
  EXPECT_TRUE(byId.IsRemote);
  EXPECT_TRUE(byId.IsShadowed);
}

TEST_F(PrinterRegistryTest, LongNameOfEveryScriptReachesTheStoreWhole) {
  std::u16string name = u"\u65E5\u672C \u0416, /100%: #1 ";
  while (name.size() < 218) name += u'\u8A9E';
  name += u"\U0001F600";
  ASSERT_EQ(220u, name.size());
  AddPrinter(name.c_str());
  PrinterRegistry registry = Open();
  EXPECT_TRUE(registry.WriteByte("DATA:Sub/V", 7));
  const std::u16string path =
      u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" + name + u"\\PrinterDriverData\\Sub";
  platform::KeyHandle key = platform::OpenKey(platform::Hive::kLocalMachine, path.c_str(), false);
  uint8_t value = 0;
  EXPECT_EQ(1, platform::ReadValue(key, u"V", &value, 1, nullptr));
  EXPECT_EQ(7, value);
  platform::CloseKey(key);
  EXPECT_EQ(7, registry.ReadByte("DATA:Sub/V", 0));
}

TEST_F(PrinterRegistryTest, LocalShadowHasNoServerElement) {
  AddPrinter(u"P");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  registry.SetShadowed(true);
  EXPECT_TRUE(registry.WriteByte("DATA:A", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("USER:PRINT::/Printers/P/PrinterDriverData/A", 0));
}

TEST_F(PrinterRegistryTest, ShadowOfAVersion2DriverLiesInTheMachinesKey) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.SetShadowed(true);
  SetDriverPath(true, false);
  EXPECT_TRUE(registry.WriteByte("DATA:A", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("LOCAL:PRINT::/Printers/P/PrinterDriverData/A", 0));
  SetDriverPath(false, false);
  EXPECT_TRUE(registry.WriteByte("DATA:A", 6));
  EXPECT_EQ(6, ORegistry().ReadByte("USER:PRINT::/Printers/P/PrinterDriverData/A", 0));
}

TEST_F(PrinterRegistryTest, EachShadowHeadHasItsWord) {
  AddPrinter(u"P");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  registry.SetShadowed(true);
  EXPECT_TRUE(registry.WriteByte("LOCAL:x/V", 5));
  EXPECT_TRUE(registry.WriteByte("USER:x/V", 6));
  EXPECT_TRUE(registry.WriteByte("PRINT:x/V", 7));
  EXPECT_EQ(5, ORegistry().ReadByte("USER:LOCAL::/x/V", 0));
  EXPECT_EQ(6, ORegistry().ReadByte("USER:USER::/x/V", 0));
  EXPECT_EQ(7, ORegistry().ReadByte("USER:PRINT::/x/V", 0));
}

TEST_F(PrinterRegistryTest, ShadowHeadsAreComparedWithoutCaseByPrefixOnly) {
  AddPrinter(u"P");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  registry.SetShadowed(true);
  EXPECT_TRUE(registry.WriteByte("2:software/VANTREL/DriversX/V", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("1:SOFTWARE/Vantrel/Drivers/LOCAL%3AX/V", 0));
}

TEST_F(PrinterRegistryTest, ServerNameIsOneElementOfTheShadow) {
  AddPrinter(u"P", u"\\\\host\\queue");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  registry.ServerName = "a/b:c";
  EXPECT_TRUE(registry.WriteByte("LOCAL:x/V", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("USER:@a//b::c/LOCAL::/x/V", 0));
}

TEST_F(PrinterRegistryTest, KeysOfOtherRootsAreOpenedAsGiven) {
  AddPrinter(u"P");
  SetDriverPath(true, true);
  PrinterRegistry registry = Open();
  registry.SetShadowed(true);
  EXPECT_TRUE(registry.WriteByte("3:.DEFAULT/Tests-Store/V", 5));
  EXPECT_EQ(5, ORegistry().ReadByte("3:.DEFAULT/Tests-Store/V", 0));
}

TEST_F(PrinterRegistryTest, BidiIsABitOfThePrintersAttributes) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0x840);
  EXPECT_TRUE(registry.IsBidiEnabled());
  registry.WriteDword("PRINT:Printers/[PRINTER]/Attributes", 0xF7FF);
  EXPECT_FALSE(registry.IsBidiEnabled());
  EXPECT_FALSE(PrinterRegistry("No Such Printer").IsBidiEnabled());
}

TEST_F(PrinterRegistryTest, BranchRootsAreTheDataAndLocalKeys) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.DeleteMatching("DATA:*");
  registry.DeleteMatching("LOCAL:*");
  for (const char* key : {"DATA:Settings/x", "DATA:a//b/x", "DATA:x", "LOCAL:X16/x", "LOCAL:XPML/x",
                          "LOCAL:Network/x", "LOCAL:Paper Sizes/x", "LOCAL:x"}) {
    EXPECT_TRUE(registry.WriteByte(key, 1)) << key;
  }
  OStringArray roots;
  roots.Add("old");
  registry.ListBranchRoots(&roots);
  EXPECT_EQ("DATA:Settings,DATA:a%2Fb,LOCAL:Paper Sizes", Joined(roots));
}

TEST_F(PrinterRegistryTest, BranchRootsAreLeftOutByExactCaseOnly) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  registry.DeleteMatching("DATA:*");
  registry.DeleteMatching("LOCAL:*");
  registry.WriteByte("LOCAL:xpml/x", 1);
  registry.WriteByte("LOCAL:Network2/x", 1);
  OStringArray roots;
  registry.ListBranchRoots(&roots);
  EXPECT_EQ("LOCAL:Network2,LOCAL:xpml", Joined(roots));
}

// The result for one line.
std::string Expand(const PrinterRegistry& registry, const char* alias, const OString& line) {
  OStringArray lines;
  lines.Add(line);
  registry.ExpandAliasInLines(alias, &lines);
  return Text(lines[0]);
}

std::string Collapse(const PrinterRegistry& registry, const char* alias, const OString& line) {
  OStringArray lines;
  lines.Add(line);
  registry.CollapseAliasInLines(alias, &lines);
  return Text(lines[0]);
}

constexpr char kDataDisplay[] =
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\P\\PrinterDriverData";

TEST_F(PrinterRegistryTest, CollapseWritesTheAliasInHeaders) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  const std::string data = kDataDisplay;
  EXPECT_EQ("[DATA:\\Settings]", Collapse(registry, "DATA:", ("[" + data + "\\Settings]").c_str()));
  EXPECT_EQ("[-DATA:\\Settings]",
            Collapse(registry, "DATA:", ("[-" + data + "\\Settings]").c_str()));
  EXPECT_EQ("[DATA:]", Collapse(registry, "DATA:", ("[" + data + "]").c_str()));
}

// "[DATA:X]" would expand to another key.
TEST_F(PrinterRegistryTest, CollapseLeavesAKeyWhoseNameOnlyBeginsAlike) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  const std::string other = "[" + std::string(kDataDisplay) + "X]";
  EXPECT_EQ(other, Collapse(registry, "DATA:", other.c_str()));
  EXPECT_EQ("[2:SOFTWARE]", Collapse(registry, "2:", "[HKEY_LOCAL_MACHINE\\SOFTWARE]"));
}

TEST_F(PrinterRegistryTest, ExpandWritesTheFullPathInHeaders) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  const std::string data = kDataDisplay;
  EXPECT_EQ("[" + data + "\\Settings]", Expand(registry, "DATA:", "[DATA:\\Settings]"));
  EXPECT_EQ("[-" + data + "\\Settings]", Expand(registry, "DATA:", "[-DATA:\\Settings]"));
  EXPECT_EQ("[" + data + "]", Expand(registry, "DATA:", "[DATA:]"));
  // A hive's full path brings the separator along.
  EXPECT_EQ("[HKEY_LOCAL_MACHINE\\SOFTWARE]", Expand(registry, "2:", "[2:SOFTWARE]"));
}

TEST_F(PrinterRegistryTest, ExpandSeparatesAnAliasThatStandsDirectlyBeforeItsKey) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  const std::string data = kDataDisplay;
  EXPECT_EQ("[" + data + "\\Settings]", Expand(registry, "DATA:", "[DATA:Settings]"));
  EXPECT_EQ("[-" + data + "\\Settings]", Expand(registry, "DATA:", "[-DATA:Settings]"));
  // An alias that names a key below has no such end.
  EXPECT_EQ("[" + data + "\\AB]", Expand(registry, "DATA:A", "[DATA:AB]"));
}

TEST_F(PrinterRegistryTest, HeadersAreComparedWithoutCase) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  EXPECT_EQ("[" + std::string(kDataDisplay) + "\\x]", Expand(registry, "DATA:", "[data:\\x]"));
  EXPECT_EQ("[DATA:\\x]",
            Collapse(registry, "DATA:",
                     "[hkey_local_machine\\system\\currentcontrolset\\control\\print\\printers\\p\\"
                     "printerdriverdata\\x]"));
}

TEST_F(PrinterRegistryTest, OtherLinesStayAsTheyAre) {
  AddPrinter(u"P");
  PrinterRegistry registry = Open();
  for (const char* line : {"", "DATA:x", "\"DATA:\"=\"x\"", "[", "[-", "[XYDATA:\\x]",
                           "[HKEY_LOCAL_MACHINE\\SYSTEM]"}) {
    EXPECT_EQ(line, Expand(registry, "DATA:", line));
    EXPECT_EQ(line, Collapse(registry, "DATA:", line));
  }
}

TEST_F(PrinterRegistryTest, AliasOfNoPathChangesNothing) {
  AddPrinter(u"P");
  EXPECT_EQ("[x]", Collapse(Open(), "plain", "[x]"));
  EXPECT_EQ("[x]", Expand(Open(), "", "[x]"));
  EXPECT_EQ("[plainX]", Expand(Open(), "plain", "[plainX]"));
  EXPECT_EQ("[plain]", Expand(Open(), "plain", "[plain]"));
}

TEST_F(PrinterRegistryTest, CollapsedHeadersExpandToThemselves) {
  AddPrinter(u"a/b:c");
  PrinterRegistry registry = Open();
  OStringArray lines;
  lines.Add("[" + registry.ToFullPath("DATA:Settings") + "]");
  lines.Add("[-" + registry.ToFullPath("DATA:Settings") + "]");
  OStringArray copy(lines);
  registry.CollapseAliasInLines("DATA:", &copy);
  EXPECT_EQ("[DATA:\\Settings],[-DATA:\\Settings]", Joined(copy));
  registry.ExpandAliasInLines("DATA:", &copy);
  EXPECT_EQ(Joined(lines), Joined(copy));
}

}  // namespace
}  // namespace ostvt
