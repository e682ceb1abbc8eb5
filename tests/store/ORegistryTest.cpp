#include "store/ORegistry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/store/StoreText.h"
#include "tests/support/TestStore.h"

#ifndef _WIN32
#include <sqlite3.h>
#endif

namespace ostvt {
namespace {

using test::Joined;
using test::Text;

// Where these tests keep their keys.
constexpr char kBase[] = "USER:Tests-Store";
constexpr char16_t kBaseKey[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store";

class ORegistryStore : public ::testing::Test {
 protected:
  static OString At(const OString& path) { return OString(kBase) + "/" + path; }

  // What lies in the store itself: "TYPE:HEX BYTES".
  static std::string Stored(const char16_t* value) {
    unsigned char bytes[128];
    uint32_t type = 0;
    platform::KeyHandle key = platform::OpenKey(platform::Hive::kCurrentUser, kBaseKey, false);
    int size = platform::ReadValue(key, value, bytes, sizeof(bytes), &type);
    platform::CloseKey(key);
    if (size < 0) return "(none)";
    return std::to_string(type) + ":" + Text(OString::HexOf(bytes, size));
  }
  std::string Keys(const OString& path) const {
    OStringArray names;
    return Registry.EnumerateKeys(path, &names) < 0 ? "(none)" : Joined(names);
  }
  std::string Values(const OString& path) const {
    OStringArray names;
    return Registry.EnumerateValues(path, &names) < 0 ? "(none)" : Joined(names);
  }
  void MakeKey(const OString& path) { Registry.WriteByte(At(path + "/made"), 1); }

  test::TestStore Store;
  ORegistry Registry;
};

// What can't be read as a path is none, and not the key that it would hang from.
TEST_F(ORegistryStore, TextOfAPageThatIsNoneLeavesItsRootAlone) {
  OString lost;
  lost.SetCodePage(9999);
  lost = "x";
  Registry.Root = kBase;
  ASSERT_TRUE(Registry.WriteByte("Kept", 1));
  EXPECT_FALSE(Registry.Delete(lost, true));
  EXPECT_FALSE(Registry.WriteByte(lost, 2));
  EXPECT_EQ(1, Registry.ReadByte("Kept", 0));
}

TEST_F(ORegistryStore, DwordOfMissingValueIsTheDefault) {
  EXPECT_EQ(77u, Registry.ReadDword(At("V"), 77));
}

TEST_F(ORegistryStore, DwordOfTwoBytesIsTheDefault) {
  Registry.WriteBinary(At("V"), "\1\2", 2);
  EXPECT_EQ(77u, Registry.ReadDword(At("V"), 77));
  Registry.WriteBinary(At("V"), "\1\2\3\4\5", 5);
  EXPECT_EQ(77u, Registry.ReadDword(At("V"), 77));
}

TEST_F(ORegistryStore, DwordIsStoredAsType4) {
  EXPECT_TRUE(Registry.WriteDword(At("V"), uint32_t{0x89ABCDEF}));
  EXPECT_EQ("4:EFCDAB89", Stored(u"V"));
  EXPECT_EQ(0x89ABCDEFu, Registry.ReadDword(At("V"), 0));
}

TEST_F(ORegistryStore, DwordTakes16BitAndSignedArguments) {
  EXPECT_TRUE(Registry.WriteDword(At("V"), uint16_t{0xFFFE}));
  EXPECT_EQ("4:FEFF0000", Stored(u"V"));
  EXPECT_TRUE(Registry.WriteDword(At("V"), -2));
  EXPECT_EQ("4:FEFFFFFF", Stored(u"V"));
}

TEST_F(ORegistryStore, IntIsStoredAsFourBinaryBytes) {
  EXPECT_TRUE(Registry.WriteInt(At("V"), -2));
  EXPECT_EQ("3:FEFFFFFF", Stored(u"V"));
  EXPECT_EQ(-2, Registry.ReadInt(At("V"), 0));
  EXPECT_EQ(-5, Registry.ReadInt(At("W"), -5));
}

TEST_F(ORegistryStore, ReadsCannotTellIntAndDwordApart) {
  Registry.WriteInt(At("V"), 5);
  EXPECT_EQ(5u, Registry.ReadDword(At("V"), 0));
  Registry.WriteDword(At("V"), 6);
  EXPECT_EQ(6, Registry.ReadInt(At("V"), 0));
}

TEST_F(ORegistryStore, ByteIsStoredAsOneBinaryByte) {
  EXPECT_TRUE(Registry.WriteByte(At("V"), 0xA5));
  EXPECT_EQ("3:A5", Stored(u"V"));
  EXPECT_EQ(0xA5, Registry.ReadByte(At("V"), 0));
}

TEST_F(ORegistryStore, ByteOfAValueOfFourBytesIsTheDefault) {
  Registry.WriteDword(At("V"), 1);
  EXPECT_EQ(9, Registry.ReadByte(At("V"), 9));
  Registry.WriteBinary(At("V"), "", 0);
  EXPECT_EQ(9, Registry.ReadByte(At("V"), 9));
}

TEST_F(ORegistryStore, StringIsStoredWideWithItsTerminator) {
  EXPECT_TRUE(Registry.WriteString(At("V"), OString(u"A\u0416")));
  EXPECT_EQ("1:410016040000", Stored(u"V"));
  EXPECT_EQ(std::u16string(u"A\u0416"), Registry.ReadString(At("V"), "x").GetWide());
}

TEST_F(ORegistryStore, EmptyStringIsAValue) {
  EXPECT_TRUE(Registry.WriteString(At("V"), ""));
  EXPECT_EQ("1:0000", Stored(u"V"));
  EXPECT_EQ("", Text(Registry.ReadString(At("V"), "default")));
  EXPECT_EQ("default", Text(Registry.ReadString(At("W"), "default")));
}

// It would be stored as an empty one.
TEST_F(ORegistryStore, TextOfAPageThatIsNoneIsNotStored) {
  OString lost;
  lost.SetCodePage(9999);
  lost = "x";
  Registry.WriteString(At("V"), "kept");
  EXPECT_FALSE(Registry.WriteString(At("V"), lost));
  EXPECT_FALSE(Registry.WriteString(At("W"), lost));
  EXPECT_EQ("kept", Text(Registry.ReadString(At("V"), "")));
  EXPECT_EQ("(none)", Stored(u"W"));

  OStringArray array;
  array.Add("a");
  EXPECT_TRUE(Registry.WriteMultiString(At("M"), array));
  array.Add(lost);
  array.Add("b");
  EXPECT_FALSE(Registry.WriteMultiString(At("M"), array));
  EXPECT_EQ("7:610000000000", Stored(u"M"));
}

TEST_F(ORegistryStore, StringOf4096CharactersOrMoreReadsAsTheDefault) {
  std::string text(4095, 'x');
  EXPECT_TRUE(Registry.WriteString(At("V"), text.c_str()));
  EXPECT_EQ(text, Text(Registry.ReadString(At("V"), "default")));
  text += 'x';
  EXPECT_TRUE(Registry.WriteString(At("V"), text.c_str()));
  EXPECT_EQ("default", Text(Registry.ReadString(At("V"), "default")));
  EXPECT_EQ(4097 * 2, Registry.GetValueSize(At("V")));
}

TEST_F(ORegistryStore, UnterminatedStringEndsWithItsWholeUnits) {
  Registry.WriteValue(At("V"), u"AB", 4, platform::kValueString);
  EXPECT_EQ("AB", Text(Registry.ReadString(At("V"), "x")));
  Registry.WriteValue(At("V"), u"AB", 3, platform::kValueString);
  EXPECT_EQ("A", Text(Registry.ReadString(At("V"), "x")));
  Registry.WriteValue(At("V"), u"AB", 1, platform::kValueString);
  EXPECT_EQ("", Text(Registry.ReadString(At("V"), "x")));
  std::u16string full(4096, u'y');
  Registry.WriteValue(At("V"), full.data(), 8192, platform::kValueString);
  EXPECT_EQ(4096, Registry.ReadString(At("V"), "x").Length());
}

TEST_F(ORegistryStore, ValueOfNoBytesReadsAsTheDefaultString) {
  Registry.WriteValue(At("V"), nullptr, 0, platform::kValueString);
  EXPECT_EQ("x", Text(Registry.ReadString(At("V"), "x")));
}

TEST_F(ORegistryStore, StoredTypeIsNeverLookedAt) {
  Registry.WriteValue(At("V"), u"AB\0", 6, platform::kValueBinary);
  EXPECT_EQ("AB", Text(Registry.ReadString(At("V"), "x")));
  char bytes[6];
  Registry.WriteString(At("V"), "AB");
  EXPECT_EQ(6, Registry.ReadValue(At("V"), bytes, 6, platform::kValueDword));
  EXPECT_EQ(6, Registry.ReadBinary(At("V"), bytes, 6));
}

TEST_F(ORegistryStore, MultiStringLeavesEmptyStringsOut) {
  OStringArray array;
  array.Add("a");
  array.Add("");
  array.Add(OString(u"\u0416c"));
  EXPECT_TRUE(Registry.WriteMultiString(At("V"), array));
  EXPECT_EQ(
      "7:61000000160463000000"
      "0000",
      Stored(u"V"));
  OStringArray read;
  read.Add("old");
  EXPECT_TRUE(Registry.ReadMultiString(At("V"), &read));
  ASSERT_EQ(2, read.Count);
  EXPECT_EQ(std::u16string(u"\u0416c"), read[1].GetWide());
}

TEST_F(ORegistryStore, EmptyMultiStringIsOneTerminator) {
  EXPECT_TRUE(Registry.WriteMultiString(At("V"), OStringArray()));
  EXPECT_EQ("7:0000", Stored(u"V"));
  OStringArray read;
  read.Add("old");
  EXPECT_TRUE(Registry.ReadMultiString(At("V"), &read));
  EXPECT_EQ(0, read.Count);
}

TEST_F(ORegistryStore, MissingOrLargeMultiStringLeavesTheArray) {
  OStringArray read;
  read.Add("old");
  EXPECT_FALSE(Registry.ReadMultiString(At("V"), &read));
  Registry.WriteValue(At("V"), nullptr, 0, platform::kValueMultiString);
  EXPECT_FALSE(Registry.ReadMultiString(At("V"), &read));
  std::string large(8193, 'x');
  Registry.WriteValue(At("V"), large.data(), 8193, platform::kValueMultiString);
  EXPECT_FALSE(Registry.ReadMultiString(At("V"), &read));
  EXPECT_EQ("old", Joined(read));
}

TEST_F(ORegistryStore, MultiStringStopsAtAnEmptyStringOrAtItsEnd) {
  OStringArray read;
  Registry.WriteValue(At("V"), u"a\0b\0\0c\0", 14, platform::kValueMultiString);
  EXPECT_TRUE(Registry.ReadMultiString(At("V"), &read));
  EXPECT_EQ("a,b", Joined(read));
  Registry.WriteValue(At("V"), u"a\0bc", 8, platform::kValueMultiString);
  EXPECT_TRUE(Registry.ReadMultiString(At("V"), &read));
  EXPECT_EQ("a,bc", Joined(read));
  Registry.WriteValue(At("V"), u"a\0bc", 7, platform::kValueMultiString);
  EXPECT_TRUE(Registry.ReadMultiString(At("V"), &read));
  EXPECT_EQ("a,b", Joined(read));
}

TEST_F(ORegistryStore, BinaryGivesTheStoredSize) {
  char bytes[16] = "unchanged";
  EXPECT_EQ(5, Registry.WriteBinary(At("V"), "12345", 5));
  EXPECT_EQ("3:3132333435", Stored(u"V"));
  EXPECT_EQ(-1, Registry.ReadBinary(At("V"), bytes, 4));
  EXPECT_EQ(5, Registry.ReadBinary(At("V"), bytes, 16));
  EXPECT_EQ(0, memcmp(bytes, "12345", 5));
  EXPECT_EQ(-1, Registry.ReadBinary(At("W"), bytes, 16));
}

class CountingRegistry : public ORegistry {
 public:
  platform::KeyHandle OpenKey(const OString& path, bool create) const override {
    if (create) ++Created;
    return ORegistry::OpenKey(path, create);
  }
  mutable int Created = 0;
};

TEST_F(ORegistryStore, KeyIsMadeOnlyWhereItIsMissing) {
  CountingRegistry registry;
  EXPECT_TRUE(registry.WriteByte(At("A/V"), 1));
  EXPECT_EQ(1, registry.Created);
  EXPECT_TRUE(registry.WriteByte(At("A/V"), 2));
  // No value takes a size without data.
  EXPECT_EQ(-1, registry.WriteBinary(At("A/V"), nullptr, 5));
  EXPECT_EQ(1, registry.Created);
  EXPECT_EQ(2, registry.ReadByte(At("A/V"), 0));
}

#ifndef _WIN32

TEST_F(ORegistryStore, WriteThatFailsLeavesNoKeyBehind) {
  EXPECT_EQ(-1, Registry.WriteBinary(At("Made/For/V"), nullptr, 5));
  EXPECT_FALSE(Registry.GetKeyInfo(At("Made"), nullptr, nullptr));
  EXPECT_EQ(5, Registry.WriteBinary(At("Made/For/V"), "12345", 5));
}

TEST_F(ORegistryStore, RootsOfAllHivesStayWithAllThatTheyHold) {
  for (const char* root : {"0:", "1:", "2:", "3:"}) {
    EXPECT_TRUE(Registry.WriteByte(OString(root) + "V", 1));
    EXPECT_TRUE(Registry.WriteByte(OString(root) + "Key/V", 2));
    EXPECT_FALSE(Registry.Delete(root, true)) << root;
    EXPECT_FALSE(Registry.Delete(OString(root) + "/", true)) << root;
    EXPECT_EQ(1, Registry.ReadByte(OString(root) + "V", 0)) << root;
    EXPECT_EQ(2, Registry.ReadByte(OString(root) + "Key/V", 0)) << root;
  }
}

// Rows that only damage can bring: a child without a name, and one whose name is another's.
TEST_F(ORegistryStore, RecursiveDeleteEndsOnHostileRows) {
  MakeKey("A");
  MakeKey("B");
  sqlite3* database = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(Store.Files().Path("current_user.db").c_str(), &database));
  for (const char* text :
       {"INSERT INTO keys SELECT path||x'5C00', path, x'' FROM keys WHERE name=x'4100'",
        "INSERT INTO keys SELECT path||x'FF', path, name FROM keys WHERE name=x'4100'"}) {
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, text, nullptr, nullptr, nullptr));
  }
  sqlite3_close(database);
  EXPECT_FALSE(Registry.Delete(At("A"), true));
  EXPECT_TRUE(Registry.DeleteMatching(At("A*")));
  EXPECT_EQ("A,B", Keys(kBase));
  EXPECT_TRUE(Registry.Delete(At("B"), true));
}

#endif

TEST_F(ORegistryStore, WriteMakesTheKeysOnTheWay) {
  EXPECT_TRUE(Registry.WriteByte(At("A/B/V"), 1));
  EXPECT_TRUE(Registry.GetKeyInfo(At("A/B"), nullptr, nullptr));
}

TEST_F(ORegistryStore, ReadMakesNoKeys) {
  Registry.ReadDword(At("A/V"), 0);
  EXPECT_FALSE(Registry.GetKeyInfo(At("A"), nullptr, nullptr));
}

TEST_F(ORegistryStore, DefaultValueOfAKey) {
  EXPECT_TRUE(Registry.WriteString(At("A/"), "default"));
  EXPECT_EQ("default", Text(Registry.ReadString(At("A/"), "")));
  OStringArray names;
  EXPECT_EQ(1, Registry.EnumerateValues(At("A"), &names));
  EXPECT_EQ("", Text(names[0]));
}

TEST_F(ORegistryStore, DoubledSlashNamesOneKey) {
  EXPECT_TRUE(Registry.WriteByte(At("A//B/C"), 5));
  EXPECT_EQ("A/B", Keys(kBase));
  EXPECT_EQ(5, Registry.ReadByte(At("A%2FB/C"), 0));
  EXPECT_EQ(0, Registry.ReadByte(At("A/B/C"), 0));
}

TEST_F(ORegistryStore, EscapesReachTheStoreDecoded) {
  EXPECT_TRUE(Registry.WriteByte(At("p%41th/na%6De::%%"), 5));
  EXPECT_EQ("pAth", Keys(kBase));
  EXPECT_EQ("name:%", Values(At("pAth")));
}

TEST_F(ORegistryStore, AliasMatchesWithoutCase) {
  Registry.WriteByte("user:tests-store/v", 5);
  EXPECT_EQ(5, Registry.ReadByte("USER:Tests-Store/V", 0));
}

TEST_F(ORegistryStore, RelativePathNeedsARoot) {
  EXPECT_FALSE(Registry.WriteByte("x", 1));
  EXPECT_EQ(-1, Registry.WriteBinary("x", "1", 1));
  EXPECT_FALSE(Registry.WriteByte("x/y", 1));
  EXPECT_EQ(9, Registry.ReadByte("x", 9));
  EXPECT_EQ(9, Registry.ReadByte("x/y", 9));
  EXPECT_EQ(-1, Registry.GetValueSize("x"));
  EXPECT_FALSE(Registry.GetKeyInfo("x", nullptr, nullptr));
  EXPECT_FALSE(Registry.Delete("x", true));
  EXPECT_FALSE(Registry.DeleteMatching("x"));
  EXPECT_FALSE(Registry.DeleteMatching("*"));
  OStringArray names;
  EXPECT_EQ(-1, Registry.EnumerateKeys("x", &names));
  EXPECT_EQ(-1, Registry.FindValues("x*", &names));
}

TEST_F(ORegistryStore, RelativePathHangsFromTheRoot) {
  Registry.Root = kBase;
  EXPECT_TRUE(Registry.WriteByte("A/V", 5));
  EXPECT_EQ(5, ORegistry().ReadByte(At("A/V"), 0));
  EXPECT_TRUE(Registry.GetKeyInfo("A", nullptr, nullptr));
  EXPECT_TRUE(Registry.GetKeyInfo("", nullptr, nullptr));
  EXPECT_EQ(1, Registry.GetValueSize("A/V"));
  EXPECT_TRUE(Registry.Delete("A", true));
  EXPECT_FALSE(ORegistry().GetKeyInfo(At("A"), nullptr, nullptr));
}

TEST_F(ORegistryStore, OtherHiveNumbersGiveNoKey) {
  EXPECT_EQ(nullptr, Registry.OpenKey("4:X", true));
  EXPECT_EQ(nullptr, Registry.OpenKey("-1:X", true));
  EXPECT_EQ(9u, Registry.ReadDword("4:X/V", 9));
  EXPECT_EQ(-1, Registry.WriteBinary("4:X/V", "1", 1));
  EXPECT_FALSE(Registry.WriteDword("4:X/V", 1));
}

TEST_F(ORegistryStore, PathWithoutHiveGivesNoKey) {
  EXPECT_EQ(nullptr, Registry.OpenKey("SOFTWARE/X", true));
  EXPECT_EQ(nullptr, Registry.OpenKey(":SOFTWARE/X", true));
  EXPECT_EQ(nullptr, Registry.OpenKey("", true));
}

TEST_F(ORegistryStore, HiveNumberIsParsedAsANumber) {
  Registry.WriteByte(At("V"), 5);
  platform::KeyHandle key = Registry.OpenKey(" +01x:SOFTWARE/Vantrel/Drivers/Tests-Store/", false);
  EXPECT_TRUE(platform::QueryKey(key, nullptr, nullptr));
  platform::CloseKey(key);
}

TEST_F(ORegistryStore, EmptyElementReadsAsTheDefaultAndTakesNoWrite) {
  Registry.WriteByte(At("A/V"), 5);
  Registry.Root = "1:SOFTWARE/Vantrel/Drivers/Tests-Store\\\\A";
  EXPECT_EQ(9, Registry.ReadByte("V", 9));
  EXPECT_FALSE(Registry.WriteByte("V", 1));
}

TEST_F(ORegistryStore, KeyInfoCountsSubKeysAndValues) {
  MakeKey("A/B");
  MakeKey("A/C");
  Registry.WriteByte(At("A/V"), 1);
  int32_t keys = -5;
  int32_t values = -5;
  EXPECT_TRUE(Registry.GetKeyInfo(At("A"), &keys, &values));
  EXPECT_EQ(2, keys);
  EXPECT_EQ(1, values);
  EXPECT_FALSE(Registry.GetKeyInfo(At("A/V"), &keys, &values));
}

TEST_F(ORegistryStore, ValueSizeOfAbsentValueIsMinusOne) {
  EXPECT_EQ(-1, Registry.GetValueSize(At("V")));
  Registry.WriteBinary(At("V"), "12345", 5);
  EXPECT_EQ(5, Registry.GetValueSize(At("V")));
  Registry.WriteBinary(At("V"), "", 0);
  EXPECT_EQ(0, Registry.GetValueSize(At("V")));
}

TEST_F(ORegistryStore, EnumerationOfAMissingKeyLeavesTheArray) {
  OStringArray names;
  names.Add("old");
  EXPECT_EQ(-1, Registry.EnumerateKeys(At("A"), &names));
  EXPECT_EQ(-1, Registry.EnumerateValues(At("A"), &names));
  EXPECT_EQ(-1, Registry.FindKeys(At("A/*"), &names));
  EXPECT_EQ(-1, Registry.FindValues(At("A/*"), &names));
  EXPECT_EQ("old", Joined(names));
}

TEST_F(ORegistryStore, EnumerationOfAnEmptyKeyGivesZero) {
  platform::CloseKey(Registry.OpenKey("1:SOFTWARE/Vantrel/Drivers/Tests-Store/A", true));
  OStringArray names;
  names.Add("old");
  EXPECT_EQ(0, Registry.EnumerateKeys(At("A"), &names));
  EXPECT_EQ(0, names.Count);
  names.Add("old");
  EXPECT_EQ(0, Registry.EnumerateValues(At("A"), &names));
  EXPECT_EQ(0, names.Count);
}

TEST_F(ORegistryStore, EnumerationIsSortedWithCase) {
  for (const char* name : {"b", "a", "C", "B2", "\xC4", "_"}) {
    Registry.WriteByte(At(name), 1);
    MakeKey(name);
  }
  EXPECT_EQ("B2,C,_,a,b,\xC4", Keys(kBase));
  EXPECT_EQ("B2,C,_,a,b,\xC4", Values(kBase));
}

TEST_F(ORegistryStore, EnumerationTakesThePathWithoutTheRoot) {
  MakeKey("A");
  Registry.Root = kBase;
  OStringArray names;
  EXPECT_EQ(-1, Registry.EnumerateKeys("A", &names));
  EXPECT_EQ(-1, Registry.EnumerateKeys("", &names));
  EXPECT_EQ(1, Registry.EnumerateKeys(kBase, &names));
}

TEST_F(ORegistryStore, PatternIsMatchedWithCase) {
  for (const char* name : {"Size", "Speed", "side", "Gap", "S"}) Registry.WriteByte(At(name), 1);
  OStringArray names;
  EXPECT_EQ(3, Registry.FindValues(At("S*"), &names));
  EXPECT_EQ("S,Size,Speed", Joined(names));
  EXPECT_EQ(2, Registry.FindValues(At("?i?e"), &names));
  EXPECT_EQ("Size,side", Joined(names));
  EXPECT_EQ(0, Registry.FindValues(At("X*"), &names));
  EXPECT_EQ(0, names.Count);
}

TEST_F(ORegistryStore, PatternInTheKeyPartIsTakenLiterally) {
  MakeKey("A/x1");
  OStringArray names;
  EXPECT_EQ(-1, Registry.FindKeys(At("?/x*"), &names));
  EXPECT_EQ(1, Registry.FindKeys(At("A/x*"), &names));
  MakeKey("a*/x2");
  EXPECT_EQ(1, Registry.FindKeys(At("a*/*"), &names));
  EXPECT_EQ("x2", Joined(names));
}

TEST_F(ORegistryStore, FindWithoutAPatternEnumerates) {
  MakeKey("A/B");
  Registry.WriteByte(At("A/V"), 1);
  OStringArray names;
  EXPECT_EQ(1, Registry.FindKeys(At("A"), &names));
  EXPECT_EQ("B", Joined(names));
  EXPECT_EQ(1, Registry.FindValues(At("A"), &names));
  EXPECT_EQ("V", Joined(names));
}

TEST_F(ORegistryStore, FindHangsFromTheRoot) {
  MakeKey("A/Bx");
  Registry.Root = kBase;
  OStringArray names;
  EXPECT_EQ(1, Registry.FindKeys("A/B*", &names));
  EXPECT_EQ(1, Registry.FindKeys("A", &names));
  EXPECT_EQ("Bx", Joined(names));
}

TEST_F(ORegistryStore, DeleteOfNeitherKeyNorValueIsFalse) {
  MakeKey("A");
  EXPECT_FALSE(Registry.Delete(At("A/V"), true));
  EXPECT_FALSE(Registry.Delete(At("B"), true));
  EXPECT_FALSE(Registry.Delete(At("B/"), true));
  EXPECT_TRUE(Registry.GetKeyInfo(At("A"), nullptr, nullptr));
}

TEST_F(ORegistryStore, KeyHidesAValueOfTheSameName) {
  MakeKey("A/V");
  Registry.WriteByte(At("A/V"), 5);
  EXPECT_TRUE(Registry.Delete(At("A/V"), false));
  EXPECT_FALSE(Registry.GetKeyInfo(At("A/V"), nullptr, nullptr));
  EXPECT_EQ(5, Registry.ReadByte(At("A/V"), 0));
  EXPECT_TRUE(Registry.Delete(At("A/V"), false));
  EXPECT_EQ(0, Registry.ReadByte(At("A/V"), 0));
}

TEST_F(ORegistryStore, KeyWithSubKeysIsDeletedRecursivelyOnly) {
  MakeKey("A/B/C");
  MakeKey("A/D");
  EXPECT_FALSE(Registry.Delete(At("A"), false));
  EXPECT_EQ("B,D", Keys(At("A")));
  EXPECT_TRUE(Registry.Delete(At("A"), true));
  EXPECT_EQ("", Keys(kBase));
}

TEST_F(ORegistryStore, RecursiveDeleteTakesExactlyTheChildrenWhateverTheirNames) {
  MakeKey("A/b//c");
  MakeKey("A/100%%41");
  MakeKey("A/x::y/z");
  MakeKey("A/tail%%");
  MakeKey("b/c");
  MakeKey("100A");
  EXPECT_TRUE(Registry.Delete(At("A"), true));
  EXPECT_EQ("100A,b", Keys(kBase));
  EXPECT_EQ("c", Keys(At("b")));
}

TEST_F(ORegistryStore, EmptyValuePartDeletesTheKeyItself) {
  MakeKey("A/B");
  MakeKey("C");
  EXPECT_TRUE(Registry.Delete(At("A/"), true));
  EXPECT_EQ("C", Keys(kBase));
  Registry.Root = At("C");
  EXPECT_TRUE(Registry.Delete("", false));
  EXPECT_EQ("", Keys(kBase));
}

TEST_F(ORegistryStore, EscapedNameIsDeletedByItsPath) {
  MakeKey("a//b");
  Registry.WriteByte(At("c//d"), 1);
  EXPECT_TRUE(Registry.Delete(At("a//b"), false));
  EXPECT_TRUE(Registry.Delete(At("c%2Fd"), false));
  EXPECT_EQ("", Keys(kBase));
  EXPECT_EQ("", Values(kBase));
}

TEST_F(ORegistryStore, RootOfAHiveIsNeverDeleted) {
  MakeKey("A");
  for (const char* root : {"1:", "CURRENT_USER:", "1:/", "1:%5C", "1:%5C%5C"}) {
    EXPECT_FALSE(Registry.Delete(root, true)) << root;
  }
  EXPECT_EQ("A", Keys(kBase));
}

TEST_F(ORegistryStore, DeleteMatchingTakesKeysAndValues) {
  MakeKey("Sx/Sub");
  MakeKey("sz");
  Registry.WriteByte(At("Sy"), 1);
  Registry.WriteByte(At("Sx"), 1);
  Registry.WriteByte(At("T"), 1);
  EXPECT_TRUE(Registry.DeleteMatching(At("S*")));
  EXPECT_EQ("T", Values(kBase));
  EXPECT_EQ("sz", Keys(kBase));  // case counts
}

// "1:" needs no "/" behind it.
TEST_F(ORegistryStore, DeleteMatchingBelowARootTakesWholeBranches) {
  EXPECT_TRUE(Registry.WriteByte("1:Tests-Store-Root/Sub/Deep/V", 1));
  EXPECT_TRUE(Registry.DeleteMatching("1:Tests-Store-Ro?t"));
  EXPECT_FALSE(Registry.GetKeyInfo("1:Tests-Store-Root", nullptr, nullptr));
}

TEST_F(ORegistryStore, DeleteMatchingOfAllLeavesTheKeyEmpty) {
  MakeKey("A/B//C/D");
  Registry.WriteByte(At("A/V//W"), 1);
  Registry.WriteString(At("A/"), "default");
  Registry.Root = At("A");
  EXPECT_TRUE(Registry.DeleteMatching("*"));
  int32_t keys = -5;
  int32_t values = -5;
  EXPECT_TRUE(Registry.GetKeyInfo("", &keys, &values));
  EXPECT_EQ(0, keys);
  EXPECT_EQ(0, values);
}

TEST_F(ORegistryStore, DeleteMatchingIsTrueWhateverHappened) {
  EXPECT_TRUE(Registry.DeleteMatching(At("Missing/*")));
}

TEST_F(ORegistryStore, DeleteMatchingWithoutAPatternIsARecursiveDelete) {
  MakeKey("A/B");
  EXPECT_TRUE(Registry.DeleteMatching(At("A")));
  EXPECT_FALSE(Registry.DeleteMatching(At("A")));
  EXPECT_EQ("", Keys(kBase));
}

}  // namespace
}  // namespace ostvt
