// A branch of the store written as lines.
#include "core/Crc.h"
#include "tests/store/BranchFixture.h"

namespace ostvt::test {
namespace {

class BranchExport : public BranchTest {};

TEST_F(BranchExport, KeyWithoutValuesGivesAHeaderAndAnEmptyLine) {
  Registry.WriteByte(At("V"), 1);
  Registry.Delete(At("V"), false);
  EXPECT_EQ((TextLines{Header(), ""}), Export());
  EXPECT_TRUE(Exported);
}

TEST_F(BranchExport, MissingKeyReadsAsOneWithoutValues) {
  EXPECT_EQ((TextLines{Header("\\Absent"), ""}), Export(0, At("Absent")));
  EXPECT_TRUE(Exported);
  EXPECT_EQ("(none)", Keys(At("Absent")));
}

TEST_F(BranchExport, PathThatCannotBeSplitFails) {
  EXPECT_EQ(TextLines{}, Export(3, "plain"));
  EXPECT_FALSE(Exported);
}

TEST_F(BranchExport, EachTypeHasItsForm) {
  Registry.WriteString(At("a string"), "text");
  Registry.WriteDword(At("b dword"), 42);
  Registry.WriteBinary(At("c binary"), "\x01\x02\xFF", 3);
  OStringArray list = Lines({"a", "bc"});
  Registry.WriteMultiString(At("d list"), list);
  Registry.WriteValue(At("e other"), "\x01\x02", 2, 2);
  Registry.WriteValue(At("f far"), "\x01", 1, 0xFFFFFFFF);
  EXPECT_EQ((TextLines{
                "\"a string\"=\"text\"",
                "\"b dword\"=dword:0000002a",
                "\"c binary\"=hex:01,02,ff",
                "\"d list\"=hex(7):61,00,00,00,62,00,63,00,00,00,00,00",
                "\"e other\"=hex(2):01,02",
                "\"f far\"=hex(4294967295):01",
                "",
            }),
            ExportedValues());
}

TEST_F(BranchExport, DwordHasEightLowerCaseDigitsHighestFirst) {
  Registry.WriteDword(At("V"), 0xABCDEF01u);
  EXPECT_EQ("\"V\"=dword:abcdef01", ExportedValues()[0]);
}

TEST_F(BranchExport, IntsAndBytesOfTheStoreAreBinary) {
  Registry.WriteInt(At("I"), -2);
  Registry.WriteByte(At("J"), 7);
  EXPECT_EQ((TextLines{"\"I\"=hex:fe,ff,ff,ff", "\"J\"=hex:07", ""}), ExportedValues());
}

TEST_F(BranchExport, ValuesWithoutBytesKeepTheirForm) {
  Registry.WriteBinary(At("binary"), "", 0);
  Registry.WriteValue(At("list"), "", 0, platform::kValueMultiString);
  Registry.WriteValue(At("other"), "", 0, 2);
  Registry.WriteValue(At("string"), "", 0, platform::kValueString);
  EXPECT_EQ((TextLines{"\"binary\"=hex:", "\"list\"=hex(7):00,00",
                       "\"other\"=hex(2):", "\"string\"=\"\"", ""}),
            ExportedValues());
}

TEST_F(BranchExport, ListWithoutItsEndGetsIt) {
  Registry.WriteValue(At("list"), u"ab", 5, platform::kValueMultiString);
  EXPECT_EQ("\"list\"=hex(7):61,00,62,00,00,00,00,00", ExportedValues()[0]);
}

TEST_F(BranchExport, StringEndsAtItsTerminatorOrWithItsLastUnit) {
  Registry.WriteValue(At("a"), u"ab\0c", 8, platform::kValueString);
  Registry.WriteValue(At("b"), u"ab", 4, platform::kValueString);
  Registry.WriteValue(At("c"), u"ab", 3, platform::kValueString);
  EXPECT_EQ((TextLines{"\"a\"=\"ab\"", "\"b\"=\"ab\"", "\"c\"=\"a\"", ""}), ExportedValues());
}

TEST_F(BranchExport, BackslashesAndQuotesAreEscapedInNamesAndTexts) {
  Registry.WriteString(At("n\"a%5Cb"), "C:\\x \"y\"");
  EXPECT_EQ("\"n\\\"a\\\\b\"=\"C:\\\\x \\\"y\\\"\"", ExportedValues()[0]);
}

TEST_F(BranchExport, NamesShowSeparatorsAsTheyAre) {
  Registry.WriteByte(At("a%2Fb%3Ac%25d/1%2F2%3A3%25/V"), 1);
  Registry.WriteByte(At("V%2F%3A%25"), 1);
  EXPECT_EQ((TextLines{Header(), "\"V/:%\"=hex:01", "", Header("\\a/b:c%d"), "",
                       Header("\\a/b:c%d\\1/2:3%"), "\"V\"=hex:01", ""}),
            Export());
}

TEST_F(BranchExport, DefaultValueHasTheEmptyName) {
  Registry.WriteString(At(""), "x");
  EXPECT_EQ("\"\"=\"x\"", ExportedValues()[0]);
}

TEST_F(BranchExport, ValuesComeSortedByExactName) {
  for (const char* name : {"b", "a", "Z", "", "9", "10"}) Registry.WriteByte(At(name), 1);
  EXPECT_EQ((TextLines{"\"\"=hex:01", "\"10\"=hex:01", "\"9\"=hex:01", "\"Z\"=hex:01",
                       "\"a\"=hex:01", "\"b\"=hex:01", ""}),
            ExportedValues());
}

TEST_F(BranchExport, SubKeysFollowSortedEachWithAllBelowIt) {
  Registry.WriteByte(At("b/V"), 1);
  Registry.WriteByte(At("a/z/V"), 2);
  Registry.WriteByte(At("a/V"), 3);
  Registry.WriteByte(At("V"), 4);
  EXPECT_EQ((TextLines{Header(), "\"V\"=hex:04", "",          //
                       Header("\\a"), "\"V\"=hex:03", "",     //
                       Header("\\a\\z"), "\"V\"=hex:02", "",  //
                       Header("\\b"), "\"V\"=hex:01", ""}),
            Export());
}

// A path that ends in ":" or "/" must not put an empty element before its sub-keys.
TEST_F(BranchExport, OneSeparatorStandsBeforeASubKeyWhateverThePathEndsIn) {
  Registry.WriteByte(At("a/V"), 1);
  const TextLines expected{Header(), "", Header("\\a"), "\"V\"=hex:01", ""};
  EXPECT_EQ(expected, Export(0, At("")));
  EXPECT_EQ(expected, Export(0, "1:SOFTWARE\\Vantrel/Drivers\\Tests-Store\\"));
}

TEST_F(BranchExport, RootDoesNotApplyAndStays) {
  Registry.Root = "LOCAL:Other";
  Registry.WriteByte(At("a/V"), 1);
  Export();
  EXPECT_EQ("LOCAL:Other", Text(Registry.Root));
  Export(0, "a");
  EXPECT_FALSE(Exported);
}

TEST_F(BranchExport, LinesAreAppended) {
  OStringArray lines = Lines({"first"});
  Registry.WriteByte(At("V"), 1);
  Registry.ExportBranch(kBase, &lines, 0);
  EXPECT_EQ((TextLines{"first", Header(), "\"V\"=hex:01", ""}), List(lines));
}

TEST_F(BranchExport, DeletingHeaderComesFirstForTheTopKeyOnly) {
  Registry.WriteByte(At("a/V"), 1);
  EXPECT_EQ((TextLines{Deletion(), "", Header(), "", Header("\\a"), "\"V\"=hex:01", ""}),
            Export(kExportDeletion));
}

std::string BytesText(int from, int to) {
  std::string text;
  char pair[4];
  for (int i = from; i < to; ++i) {
    snprintf(pair, sizeof(pair), "%02x,", i);
    text += pair;
  }
  return text;
}

// Broken as soon as a line is longer than 76 characters: 23 bytes behind `"V"=hex:`, 25 behind two
// blanks.
TEST_F(BranchExport, HundredBytesTakeFiveLinesOfUpTo25) {
  uint8_t bytes[100];
  for (int i = 0; i < 100; ++i) bytes[i] = static_cast<uint8_t>(i);
  Registry.WriteBinary(At("V"), bytes, sizeof(bytes));
  const std::string last = BytesText(98, 100);
  EXPECT_EQ((TextLines{"\"V\"=hex:" + BytesText(0, 23) + "\\", "  " + BytesText(23, 48) + "\\",
                       "  " + BytesText(48, 73) + "\\", "  " + BytesText(73, 98) + "\\",
                       "  " + last.substr(0, last.size() - 1), ""}),
            ExportedValues());
}

TEST_F(BranchExport, LineIsBrokenOnlyBeforeAByte) {
  uint8_t bytes[23] = {};
  Registry.WriteBinary(At("V"), bytes, sizeof(bytes));
  EXPECT_EQ(2u, ExportedValues().size());
  // 76 characters are not too long yet.
  const OString name = ("V" + std::string(67, 'n')).c_str();
  Registry.Delete(At("V"), false);
  Registry.WriteByte(At(name), 1);
  EXPECT_EQ("\"V" + std::string(67, 'n') + "\"=hex:01", ExportedValues()[0]);
  Registry.Delete(At(name), false);
  Registry.WriteByte(At(name + "nn"), 1);
  EXPECT_EQ((TextLines{"\"V" + std::string(69, 'n') + "\"=hex:\\", "  01", ""}), ExportedValues());
}

// What stands behind the line end would be read as a line of its own.
TEST_F(BranchExport, TextOfMoreThanOneLineTravelsAsBinary) {
  Registry.WriteString(At("a"), "1\r\n[");
  Registry.WriteString(At("b"), "1\n");
  Registry.WriteString(At("c"), "one");
  const TextLines lines{"\"a\"=hex:31,00,0d,00,0a,00,5b,00,00,00", "\"b\"=hex:31,00,0a,00,00,00",
                        "\"c\"=\"one\"", ""};
  EXPECT_EQ(lines, ExportedValues());
  // There it is the same text, and the same line.
  Registry.Delete(kBase, true);
  Import({Header(), lines[0], lines[1], lines[2], ""});
  EXPECT_EQ("1\r\n[", Text(Registry.ReadString(At("a"), "")));
  EXPECT_EQ(lines, ExportedValues());
}

TEST_F(BranchExport, NamesOfMoreThanOneLineDoNotTravel) {
  Registry.WriteByte(At("a\n[-HKEY_CURRENT_USER\\SOFTWARE]\n/V"), 1);
  Registry.WriteByte(At("b/V"), 1);
  Registry.WriteByte(At("x\r\"=hex:01"), 1);
  Registry.WriteByte(At("y\n"), 1);
  EXPECT_EQ((TextLines{Header(), "", Header("\\b"), "\"V\"=hex:01", ""}), Export());
  EXPECT_EQ(TextLines{}, Export(kExportDeletion, At("c\nd")));
}

TEST_F(BranchExport, TextsAndListsAbove8192BytesDoNotTravel) {
  const std::u16string text(4095, u'x');
  const std::u16string longer(4096, u'x');
  Registry.WriteString(At("a"), text.c_str());
  Registry.WriteString(At("b"), longer.c_str());
  OStringArray list;
  list.Add(longer.c_str());
  Registry.WriteMultiString(At("c"), list);
  std::vector<uint8_t> bytes(8193);
  Registry.WriteBinary(At("d"), bytes.data(), 8193);
  const TextLines lines = ExportedValues();
  EXPECT_EQ("\"a\"=\"" + std::string(4095, 'x') + "\"", lines[0]);
  EXPECT_EQ("\"d\"=hex:", lines[1].substr(0, 8));
}

TEST_F(BranchExport, DwordOfAnotherSizeIsSkipped) {
  Registry.WriteValue(At("a"), "\1\2", 2, platform::kValueDword);
  Registry.WriteValue(At("b"), "\1\2\3\4\5", 5, platform::kValueDword);
  EXPECT_EQ((TextLines{Header(), ""}), Export());
}

TEST_F(BranchExport, ChecksumIsNeverExported) {
  Registry.WriteDword(At("(CRC32)"), 5);
  Registry.WriteDword(At("a/(crc32)"), 5);
  Registry.WriteDword(At("(CRC32) "), 5);
  EXPECT_EQ((TextLines{Header(), "\"(CRC32) \"=dword:00000005", "", Header("\\a"), ""}), Export());
}

// Python: zlib.crc32 over each line in UTF-16LE with its terminator, seeded by the one before.
TEST_F(BranchExport, ChecksumRunsOverTheWideLinesWithTheirTerminators) {
  Registry.WriteString(At("V"), "x");
  Registry.WriteByte(At("a/W"), 1);
  Export(kExportChecksum);
  EXPECT_EQ(0x6D5E745Cu, Registry.ReadDword(At("(CRC32)"), 0));
  EXPECT_EQ(platform::kValueDword, static_cast<uint32_t>(Stored("(CRC32)")[0] - '0'));
  EXPECT_EQ("W", Values(At("a")));  // the top key only
}

TEST_F(BranchExport, ChecksumCoversTheDeletingHeaderButNotEarlierLines) {
  Registry.WriteString(At("V"), "x");
  OStringArray lines = Lines({"earlier"});
  Registry.ExportBranch(kBase, &lines, kExportChecksum | kExportDeletion);
  EXPECT_EQ(0x09F4E92Bu, Registry.ReadDword(At("(CRC32)"), 0));
}

TEST_F(BranchExport, ChecksumTwiceInARowIsTheSame) {
  Registry.WriteString(At("V"), "x");
  const TextLines first = Export(kExportChecksum);
  const std::string checksum = Stored("(CRC32)");
  EXPECT_EQ(first, Export(kExportChecksum));
  EXPECT_EQ(checksum, Stored("(CRC32)"));
  Registry.WriteString(At("V"), "y");
  Export(kExportChecksum);
  EXPECT_NE(checksum, Stored("(CRC32)"));
}

TEST_F(BranchExport, ExportWithoutTheFlagWritesNothing) {
  Registry.WriteString(At("V"), "x");
  Export(kExportDeletion);
  EXPECT_EQ("V", Values());
}

}  // namespace
}  // namespace ostvt::test
