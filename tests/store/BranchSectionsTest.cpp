// Which sections of lines from outside may be applied.
#include "store/BranchSections.h"

#include "core/DriverPath.h"
#include "store/PrinterRegistry.h"
#include "tests/store/BranchFixture.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

class BranchSections : public ::testing::Test {
 protected:
  static TextLines Kept(const ORegistry& store, std::initializer_list<std::string> branches,
                        const TextLines& lines) {
    OStringArray roots;
    for (const std::string& branch : branches) roots.Add(branch.c_str());
    OStringArray array;
    for (const std::string& line : lines) array.Add(line.c_str());
    KeepSectionsBelow(store, roots, &array);
    TextLines kept;
    for (int32_t i = 0; i < array.Count; ++i) kept.push_back(Text(array[i]));
    return kept;
  }
  TextLines Kept(const TextLines& lines) { return Kept(Registry, {"USER:A/B"}, lines); }
  bool IsKept(const std::string& header) { return !Kept({header, ""}).empty(); }

  // Of keys below the driver's own, each named with a "\\" in front.
  static std::string Section(const char* below, const char* opening = "[") {
    std::string line = opening;
    line.append("HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers").append(below).append("]");
    return line;
  }
  static std::string Deletion(const char* below) { return Section(below, "[-"); }

  ORegistry Registry;
};

TEST_F(BranchSections, KeyOfTheBranchAndKeysBelowAreKept) {
  const TextLines ours{
      Section("\\A\\B"), "\"a\"=\"x\"", "\"b\"=hex:01,\\", "  02", "", Section("\\A\\B\\C"), ""};
  EXPECT_EQ(ours, Kept(ours));
}

TEST_F(BranchSections, OtherSectionsGoWithTheirValues) {
  EXPECT_EQ((TextLines{Section("\\A\\B"), "\"b\"=\"2\"", ""}),
            Kept({"\"x\"=\"0\"", Section("\\A"), "\"a\"=\"1\"", "", Section("\\A\\B"),
                  "\"b\"=\"2\"", "", "\"c\"=\"3\"", Section("\\C"), "\"d\"=\"4\""}));
}

TEST_F(BranchSections, NameThatOnlyBeginsLikeTheBranchIsAnother) {
  EXPECT_FALSE(IsKept(Section("\\A\\BC")));
  // Two backslashes are one "/" in a name: a sibling.
  EXPECT_FALSE(IsKept(Section("\\A\\B\\\\C")));
  EXPECT_FALSE(IsKept(Section("\\A\\B/C")));
  EXPECT_FALSE(IsKept(Section("\\A/B")));
}

TEST_F(BranchSections, NamesCountWithoutCase) {
  EXPECT_TRUE(IsKept("[HKEY_CURRENT_USER\\Software\\VANTREL\\drivers\\a\\b\\c]"));
  EXPECT_FALSE(IsKept("[hkey_current_user\\SOFTWARE\\Vantrel\\Drivers\\A\\B]"));
}

TEST_F(BranchSections, OtherHivesAndHeadersThatLeadNowhereAreDropped) {
  for (const char* header :
       {"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\A\\B]", "[USER:A\\B]", "[USER:\\A\\B]",
        "[1:SOFTWARE\\Vantrel\\Drivers\\A\\B]", "[]", "[", "[HKEY_CURRENT_USER]",
        "[HKEY_CURRENT_USER\\]", "[xHKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\A\\B]",
        "[ HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\A\\B]", "[A\\B]"}) {
    EXPECT_FALSE(IsKept(header)) << header;
  }
}

TEST_F(BranchSections, DeletionsAreHeldToTheSameBranches) {
  EXPECT_EQ((TextLines{Deletion("\\A\\B"), Deletion("\\A\\B\\C")}),
            Kept({Deletion("\\A"), "", Deletion("\\A\\B"), "", Deletion("\\A\\B\\C"), Deletion(""),
                  "\"x\"=\"y\""}));
}

// As the import sees it: inside a section a bracket begins no header.
TEST_F(BranchSections, BracketInsideASectionIsNoHeader) {
  const TextLines hidden{Section("\\A"), Section("\\A\\B"), "\"a\"=\"x\""};
  EXPECT_EQ(TextLines{}, Kept(hidden));
  const TextLines ours{Section("\\A\\B"), Section("\\A"), "\"a\"=\"x\""};
  EXPECT_EQ(ours, Kept(ours));
}

TEST_F(BranchSections, LinesCountAsTheImportTrimsThem) {
  const std::string header = Section("\\A\\B", " \t[") + " \\";
  EXPECT_EQ((TextLines{header, "\"a\"=\"x\"", " \\ "}),
            Kept({header, "\"a\"=\"x\"", " \\ ", "\"b\"=\"x\""}));
}

TEST_F(BranchSections, SeveralBranchesAndWholeHives) {
  const TextLines lines{Section("\\A"), "", Section("\\B"), "", Section("\\C"), ""};
  EXPECT_EQ((TextLines{Section("\\A"), "", Section("\\C"), ""}),
            Kept(Registry, {"USER:A", "USER:C/"}, lines));
  EXPECT_EQ(lines, Kept(Registry, {"1:"}, lines));
  EXPECT_EQ(TextLines{}, Kept(Registry, {"2:", "", "plain"}, lines));
  EXPECT_EQ(TextLines{}, Kept(Registry, {}, lines));
}

TEST(BranchSectionsOfPrinter, AliasesOfThePrinterNameItsBranches) {
  TestPrinterOptions options;
  options.Name = u"a,b (c)";
  const TestPrinter printer(options);
  ASSERT_TRUE(printer.IsReady());
  PrinterRegistry store(printer.Name());
  store.WriteByte("SETTINGS:V", 1);
  store.WriteByte("SETTINGS:Sub/V", 2);
  store.WriteByte("PRESETS:V", 3);
  OStringArray lines;
  store.ExportBranch("DATA:", &lines, 0);
  store.CollapseAliasInLines("DATA:", &lines);
  store.ExpandAliasInLines("DATA:", &lines);
  OStringArray branches;
  branches.Add("Settings:");
  KeepSectionsBelow(store, branches, &lines);
  store.CollapseAliasInLines("SETTINGS:", &lines);
  EXPECT_EQ("[SETTINGS:],\"V\"=hex:01,,[SETTINGS:\\Sub],\"V\"=hex:02,", Joined(lines));
}

// The text names the keys as they are seen, wherever the route leads.
TEST(BranchSectionsOfPrinter, BranchesTravelBetweenRoutes) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  PrinterRegistry store(printer.Name());
  store.WriteByte("SETTINGS:Sub/V", 1);
  PrinterRegistry shadow(store);
  shadow.SetShadowed(true);
  OStringArray lines;
  store.ExportBranch("SETTINGS:", &lines, kExportDeletion);
  shadow.WriteByte("SETTINGS:Other", 1);
  shadow.ImportBranch(lines, 0);
  shadow.Root.Release();
  EXPECT_EQ(1, shadow.ReadByte("SETTINGS:Sub/V", 0));
  EXPECT_EQ(-1, shadow.GetValueSize("SETTINGS:Other"));
  shadow.WriteByte("SETTINGS:Sub/V", 2);
  EXPECT_EQ(1, store.ReadByte("SETTINGS:Sub/V", 0));
  OStringArray shadowLines;
  shadow.ExportBranch("SETTINGS:", &shadowLines, kExportDeletion);
  EXPECT_EQ(lines.Count, shadowLines.Count);
  EXPECT_EQ(Text(lines[2]), Text(shadowLines[2]));
  shadow.Delete("SETTINGS:", true);
}

}  // namespace
}  // namespace ostvt::test
