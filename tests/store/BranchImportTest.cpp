// Lines of a branch applied to the store.
#include "tests/store/BranchFixture.h"

namespace ostvt::test {
namespace {

class BranchImport : public BranchTest {};

TEST_F(BranchImport, EachFormHasItsType) {
  ImportValues({"\"a\"=\"text\"", "\"b\"=dword:0000002a", "\"c\"=hex:01,02,ff",
                "\"d\"=hex(7):61,00,00,00,62,00,00,00,00,00", ""});
  EXPECT_EQ("1:74006500780074000000", Stored("a"));
  EXPECT_EQ("4:2A000000", Stored("b"));
  EXPECT_EQ("3:0102FF", Stored("c"));
  EXPECT_EQ(
      "7:6100000062000000"
      "0000",
      Stored("d"));
}

TEST_F(BranchImport, BytesOfAnyOtherTypeComeBackBinary) {
  ImportValues({"\"a\"=hex(2):01,02", "\"b\"=hex(3):01", "\"c\"=hex(17):01", "\"d\"=hex():01",
                "\"e\"=hexadecimal:01"});
  for (const char* name : {"b", "c", "d", "e"}) EXPECT_EQ("3:01", Stored(name)) << name;
  EXPECT_EQ("3:0102", Stored("a"));
}

TEST_F(BranchImport, KindWordsCountWithoutCase) {
  ImportValues({"\"a\"=DWord:0000002A", "\"b\"=HEX:0A,fF", "\"c\"=Hex(7):61,00,00,00,00,00"});
  EXPECT_EQ("4:2A000000", Stored("a"));
  EXPECT_EQ("3:0AFF", Stored("b"));
  EXPECT_EQ("7:610000000000", Stored("c"));
}

TEST_F(BranchImport, StringWithQuoteAndBackslashSurvivesTheRoundTrip) {
  const char* texts[] = {"a\"b\\c", "a\"",  "\"",  "\"\"",      "\\",
                         "\\\\",    "\\\"", "a\\", "C:\\new\\", ""};
  for (const char* text : texts) {
    Registry.WriteString(At("V"), text);
    OStringArray lines;
    Registry.ExportBranch(kBase, &lines, 0);
    Registry.Delete(At("V"), false);
    ORegistry().ImportBranch(lines, 0);
    EXPECT_EQ(text, Text(Registry.ReadString(At("V"), "(default)")));
  }
}

// A doubled backslash before an "n" or a quote is one backslash; replacing one escape after the
// other in the whole text would see another escape in the result.
TEST_F(BranchImport, EscapesAreUndoneFromLeftToRightInOnePass) {
  ImportValues({R"("a"="x\\\"y")", R"("b"="\\\\\"")", R"("c"="\n\\n")"});
  EXPECT_EQ("x\\\"y", Text(Registry.ReadString(At("a"), "")));
  EXPECT_EQ("\\\\\"", Text(Registry.ReadString(At("b"), "")));
  EXPECT_EQ("\\n\\n", Text(Registry.ReadString(At("c"), "")));
}

TEST_F(BranchImport, OneQuoteIsTakenOffEachEnd) {
  ImportValues({R"("a"=""x"")", R"("b"="x)", R"("c"=")", R"("d"="")"});
  EXPECT_EQ("\"x\"", Text(Registry.ReadString(At("a"), "")));
  EXPECT_EQ("x", Text(Registry.ReadString(At("b"), "")));
  EXPECT_EQ("1:0000", Stored("c"));
  EXPECT_EQ("1:0000", Stored("d"));
}

TEST_F(BranchImport, NamesKeepEveryCharacter) {
  const char* names[] = {"a\\b", "a/b",   "a:b",   "100%", "%41", "%5C", "a\"b",
                         "\"",   "\"x\"", "a\"=b", "=",    "a=b", "=\"", "\\",
                         "\\\"", "-1",    "[x]",   " x ",  "@"};
  for (const char* name : names) {
    OString escaped = ORegistry::Escape(name);
    escaped.Replace("\\", "%5C");
    ASSERT_TRUE(Registry.WriteString(At(escaped), name)) << name;
  }
  OStringArray lines;
  Registry.ExportBranch(kBase, &lines, 0);
  const std::string before = Values();
  Registry.Delete(kBase, true);
  ORegistry().ImportBranch(lines, 0);
  EXPECT_EQ(before, Values());
  EXPECT_EQ("", Keys());
  OStringArray again;
  Registry.ExportBranch(kBase, &again, 0);
  EXPECT_EQ(List(lines), List(again));
}

TEST_F(BranchImport, FirstQuoteThatIsNotEscapedEndsTheName) {
  ImportValues({R"("a\"=b"="x"="y")", R"("c\\"="x")", R"("="="x")"});
  EXPECT_EQ("=,a\"=b,c\\", Values());
  EXPECT_EQ("x\"=\"y", Text(Registry.ReadString(At("a\"=b"), "")));
  EXPECT_EQ("x", Text(Registry.ReadString(At("="), "")));
}

TEST_F(BranchImport, EmptyNameIsTheDefaultValue) {
  ImportValues({"\"\"=\"x\""});
  EXPECT_EQ("x", Text(Registry.ReadString(At(""), "")));
}

TEST_F(BranchImport, WideTextSurvives) {
  OStringArray lines = Lines({Header()});
  lines.Add(u"\"\u6807\u00E9\"=\"\u7B7E\U0001F600\"");
  Registry.ImportBranch(lines, 0);
  Registry.Root.Release();
  EXPECT_EQ(0, Registry.ReadString(At(u"\u6807\u00E9"), "").Compare(u"\u7B7E\U0001F600"));
}

TEST_F(BranchImport, LineThatIsNoValueIsDropped) {
  ImportValues({"garbage", "\"a\"", "a=b", "\"a\" =\"x\"", "@=\"x\"", "\"b\"=text",
                "\"c\"=", "\"d\"=hex01", "\"e\"=hex(7)", "[x]", "\"z\"=\"good\""});
  EXPECT_EQ("z", Values());
}

// A comma at its end does not make it the beginning of the next one.
TEST_F(BranchImport, LineThatIsNoValueTakesNoOtherWithIt) {
  ImportValues({"garbage,", "\"b\"=\"x\""});
  EXPECT_EQ("b", Values());
}

TEST_F(BranchImport, MissingDigitsReadAsZero) {
  ImportValues({"\"a\"=dword:", "\"b\"=dword:1", "\"c\"=dword:123", "\"d\"=hex:", "\"e\"=hex:1,2",
                "\"f\"=hex:1,,03", "\"g\"=dword:123456789"});
  EXPECT_EQ("4:00000000", Stored("a"));
  EXPECT_EQ("4:00000010", Stored("b"));
  EXPECT_EQ("4:00003012", Stored("c"));
  EXPECT_EQ("3:", Stored("d"));
  EXPECT_EQ("3:1020", Stored("e"));
  EXPECT_EQ("3:100003", Stored("f"));
  EXPECT_EQ("4:78563412", Stored("g"));
}

// '0' to '9' as such, anything else by its low four bits plus 9.
TEST_F(BranchImport, OddDigitsCountByTheirLowBits) {
  ImportValues({"\"a\"=hex:gg,1z,q0"});
  EXPECT_EQ("3:1023A0", Stored("a"));
}

TEST_F(BranchImport, OnlyTheFirstTwoDigitsBeforeACommaCount) {
  ImportValues({"\"a\"=hex:0102,03"});
  EXPECT_EQ("3:0103", Stored("a"));
}

TEST_F(BranchImport, ListIsRebuiltWithoutEmptyStrings) {
  ImportValues({"\"a\"=hex(7):61,00", "\"b\"=hex(7):", "\"c\"=hex(7):61",
                "\"d\"=hex(7):61,00,00,00,00,00,62,00,00,00"});
  EXPECT_EQ("7:610000000000", Stored("a"));
  EXPECT_EQ("7:0000", Stored("b"));
  EXPECT_EQ("7:0000", Stored("c"));
  EXPECT_EQ("7:610000000000", Stored("d"));
}

TEST_F(BranchImport, HundredBytesReadBackFromTheirBrokenLines) {
  uint8_t bytes[100];
  for (int i = 0; i < 100; ++i) bytes[i] = static_cast<uint8_t>(255 - i);
  Registry.WriteBinary(At("V"), bytes, sizeof(bytes));
  Registry.WriteBinary(At("W" + OString(std::string(100, 'n').c_str())), bytes, sizeof(bytes));
  OStringArray lines;
  Registry.ExportBranch(kBase, &lines, 0);
  const std::string values = Values();
  Registry.Delete(kBase, true);
  ORegistry().ImportBranch(lines, 0);
  uint8_t read[100] = {};
  EXPECT_EQ(values, Values());
  EXPECT_EQ(100, Registry.ReadBinary(At("V"), read, sizeof(read)));
  EXPECT_EQ(0, memcmp(bytes, read, sizeof(read)));
  EXPECT_EQ(100, Registry.GetValueSize(At("W" + OString(std::string(100, 'n').c_str()))));
}

TEST_F(BranchImport, BytesMayBeBrokenAnywhere) {
  ImportValues({"\"a\"=hex:\\", "\t01,\\ \t", "02\\", ",0\\", "3", "\"b\"=hex:01,", "02",
                "\"c\"=hex(7):61,00,\\\r\n", "  00,00,00,00"});
  EXPECT_EQ("3:010203", Stored("a"));
  EXPECT_EQ("3:0102", Stored("b"));
  EXPECT_EQ("7:610000000000", Stored("c"));
}

TEST_F(BranchImport, BackslashBehindAnyOtherValueIsPassedOver) {
  ImportValues({"\"a\"=dword:00000001\\", "\"b\"=\"x\" \\", "\"c\"=\"y\""});
  EXPECT_EQ("a,b,c", Values());
  EXPECT_EQ("4:01000000", Stored("a"));
}

TEST_F(BranchImport, BlanksAroundLinesArePassedOver) {
  Import({" \t" + Header() + "\r\n", "\t \"a\"=\"x\" \r", " \t "});
  EXPECT_EQ("x", Text(Registry.ReadString(At("a"), "")));
}

TEST_F(BranchImport, HeaderMakesItsKey) {
  Import({Header("\\a\\b/c:d%"), ""});
  EXPECT_EQ("a", Keys());
  EXPECT_EQ("b/c:d%", Keys(At("a")));
}

TEST_F(BranchImport, OneBracketIsTakenOffEachEnd) {
  Import({Header("\\a]"), "\"V\"=\"x\"", "", Header("\\[b]]"), ""});
  EXPECT_EQ("[b]],a]", Keys());
  Import({Deletion("\\a]")});
  EXPECT_EQ("[b]]", Keys());
}

TEST_F(BranchImport, LinesOutsideSectionsArePassedOver) {
  Import({"\"a\"=\"x\"", "REGEDIT4", "", Header(), "", "\"b\"=\"x\"", "  02"});
  EXPECT_EQ("", Values());
}

TEST_F(BranchImport, SectionEndsWithAnEmptyLineOnly) {
  Import({Header(), "\"a\"=\"1\"", Header("\\sub"), "\"b\"=\"2\"", "", Header("\\sub"),
          "\"c\"=\"3\""});
  EXPECT_EQ("a,b", Values());
  EXPECT_EQ("c", Values(At("sub")));
}

// The rest of the value is lost, and only that.
TEST_F(BranchImport, EmptyLineInABrokenValueEndsTheSection) {
  Import({Header(), "\"a\"=hex:01,\\", "", "  02", "\"b\"=\"x\"", Header("\\sub"), "\"c\"=\"y\""});
  EXPECT_EQ("", Values());
  EXPECT_EQ("c", Values(At("sub")));
}

TEST_F(BranchImport, LinesThatEndInABrokenValueLoseIt) {
  Import({Header(), "\"a\"=hex:01,02,\\"});
  EXPECT_EQ("", Values());
}

TEST_F(BranchImport, DeletionRemovesTheKeyAndAllBelowIt) {
  Registry.WriteByte(At("a/b/V"), 1);
  Registry.WriteByte(At("ab/V"), 1);
  Import({Deletion("\\a"), "", Header("\\c"), ""});
  EXPECT_EQ("ab,c", Keys());
}

TEST_F(BranchImport, DeletionOfAnAbsentKeyChangesNothing) {
  Registry.WriteByte(At("a"), 1);
  Registry.WriteByte(At("b/V"), 1);
  Import({Deletion("\\a"), Deletion("\\x"), Deletion("\\b\\V")});
  EXPECT_EQ("a", Values());
  EXPECT_EQ("V", Values(At("b")));
}

TEST_F(BranchImport, DeletionOpensNoSection) {
  Registry.WriteByte(At("V"), 1);
  Import({Deletion("\\a"), "\"b\"=\"x\"", Header(), "\"c\"=\"x\""});
  EXPECT_EQ("V,c", Values());
}

TEST_F(BranchImport, ExportWithADeletingHeaderReplacesTheBranch) {
  Registry.WriteByte(At("a/V"), 1);
  OStringArray lines;
  Registry.ExportBranch(kBase, &lines, kExportDeletion);
  Registry.WriteByte(At("b/V"), 1);
  Registry.WriteByte(At("W"), 1);
  ORegistry().ImportBranch(lines, 0);
  EXPECT_EQ("a", Keys());
  EXPECT_EQ("", Values());
}

TEST_F(BranchImport, EmptyingRemovesWhatAKeyHadWhenItsHeaderIsMet) {
  Registry.WriteByte(At("V"), 1);
  Registry.WriteByte(At("a/b/V"), 1);
  Import({Header(), "\"W\"=\"x\"", "", Header("\\a"), "\"c\"=\"x\"", ""}, kImportEmptying);
  EXPECT_EQ("W", Values());
  EXPECT_EQ("a", Keys());
  EXPECT_EQ("c", Values(At("a")));
  EXPECT_EQ("", Keys(At("a")));
}

TEST_F(BranchImport, OtherValuesStayWithoutEmptying) {
  Registry.WriteByte(At("V"), 1);
  Import({Header(), "\"W\"=\"x\"", ""});
  EXPECT_EQ("V,W", Values());
}

TEST_F(BranchImport, RootIsLeftAtTheLastSection) {
  Registry.ImportBranch(Lines({Header(), "", Header("\\a"), "", Deletion("\\b")}), 0);
  EXPECT_EQ("1:SOFTWARE/Vantrel/Drivers/Tests-Store/a", Text(Registry.Root));
}

TEST_F(BranchImport, HeaderInAliasFormLeadsNowhere) {
  Registry.WriteByte(At("V"), 1);
  for (const char* header : {"[USER:Tests-Store]", "[DATA:Settings]", "[1:SOFTWARE\\Vantrel]", "[]",
                             "[", "[HKEY_CURRENT_USER]", "[x]", "[x\\y]"}) {
    Import({header, "\"W\"=\"x\"", ""}, kImportEmptying);
  }
  Import({"[-USER:Tests-Store]", "[-]", "[--]", "[-HKEY_CURRENT_USER\\]"});
  EXPECT_EQ("V", Values());
  EXPECT_EQ("(none)", Values("1:DATA:Settings"));
}

// "[-x]" could otherwise delete below the section before.
TEST_F(BranchImport, DeletionWithoutAHiveLeadsNowhere) {
  Registry.WriteByte(At("x/V"), 1);
  Import({Header(), "", "[-x]", "[-x\\V]"});
  EXPECT_EQ("V", Values(At("x")));
}

TEST_F(BranchImport, ChecksumIsNotImported) {
  Registry.WriteDword(At("(CRC32)"), 7);
  ImportValues({"\"(CRC32)\"=dword:00000001", "\"(crc32)\"=\"x\"", "\"V\"=\"x\""});
  EXPECT_EQ("4:07000000", Stored("(CRC32)"));
  EXPECT_EQ("(CRC32),V", Values());
}

TEST_F(BranchImport, CopyOfABranchIsItsExportUnderAnotherHeader) {
  Registry.WriteString(At("a/V"), "x");
  Registry.WriteInt(At("a/b/W"), 5);
  OStringArray lines;
  Registry.ExportBranch(At("a"), &lines, 0);
  for (int32_t i = 0; i < lines.Count; ++i) lines[i].Replace("Tests-Store\\a", "Tests-Store\\c");
  ORegistry().ImportBranch(lines, 0);
  EXPECT_EQ("x", Text(Registry.ReadString(At("c/V"), "")));
  EXPECT_EQ(5, Registry.ReadInt(At("c/b/W"), 0));
}

TEST_F(BranchImport, NothingAndOddLinesAreTrueAsWell) {
  Import({});
  Import({"", "\\", "\"", "[", "]", "-", ","});
  ImportValues({"\\", "\"", "\"=", "=", ",", ",\\", "\"=\"", "\"\\"});
  EXPECT_EQ("", Keys());
}

}  // namespace
}  // namespace ostvt::test
