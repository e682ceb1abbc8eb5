#include "platform/KeyStore.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/TestStore.h"

namespace ostvt::platform {
namespace {

constexpr char16_t kBase[] = u"SOFTWARE\\Vantrel\\Drivers\\Tests-Store";

class KeyStore : public ::testing::Test {
 protected:
  ~KeyStore() override {
    for (KeyHandle key : Opened) CloseKey(key);
  }
  // A key below the test's own; "" is that one.
  KeyHandle Open(const std::u16string& path, bool create) {
    std::u16string full = kBase;
    if (!path.empty()) full += u"\\" + path;
    KeyHandle key = OpenKey(Hive::kCurrentUser, full.c_str(), create);
    if (key) Opened.push_back(key);
    return key;
  }
  KeyHandle Create(const std::u16string& path) { return Open(path, true); }
  bool Exists(const std::u16string& path) { return Open(path, false) != nullptr; }

  static std::string Read(KeyHandle key, const char16_t* name) {
    char buffer[64] = {};
    int size = ReadValue(key, name, buffer, sizeof(buffer), nullptr);
    return size < 0 ? "(none)" : std::string(buffer, static_cast<size_t>(size));
  }
  static int Write(KeyHandle key, const char16_t* name, const std::string& data) {
    return WriteValue(key, name, data.data(), static_cast<int>(data.size()), kValueBinary);
  }
  static std::set<std::u16string> Keys(KeyHandle key) {
    std::set<std::u16string> names;
    char16_t name[kNameUnits];
    for (int i = 0; EnumerateKey(key, i, name); ++i) names.insert(name);
    return names;
  }
  static std::set<std::u16string> Values(KeyHandle key) {
    std::set<std::u16string> names;
    char16_t name[kNameUnits];
    for (int i = 0; EnumerateValue(key, i, name); ++i) names.insert(name);
    return names;
  }

  test::TestStore Store;
  std::vector<KeyHandle> Opened;
};

using Names = std::set<std::u16string>;

TEST_F(KeyStore, MissingKeyIsNullUnlessCreated) {
  EXPECT_EQ(nullptr, Open(u"A", false));
  EXPECT_NE(nullptr, Open(u"A", true));
  EXPECT_NE(nullptr, Open(u"A", false));
}

TEST_F(KeyStore, CreateMakesTheKeysAboveAsWell) {
  ASSERT_NE(nullptr, Create(u"A\\B\\C"));
  EXPECT_TRUE(Exists(u"A\\B"));
  EXPECT_EQ(Names{u"A"}, Keys(Open(u"", false)));
  EXPECT_EQ(Names{u"C"}, Keys(Open(u"A\\B", false)));
}

TEST_F(KeyStore, UncheckedHandleOfMissingKeyFailsInEveryOperation) {
  std::u16string path = std::u16string(kBase) + u"\\Missing";
  KeyHandle key = OpenKeyUnchecked(Hive::kCurrentUser, path.c_str());
  char16_t name[kNameUnits];
  int size = 0;
  EXPECT_FALSE(QueryKey(key, nullptr, nullptr));
  EXPECT_EQ("(none)", Read(key, u"V"));
  EXPECT_EQ(-1, Write(key, u"V", "x"));
  EXPECT_FALSE(GetValueSize(key, u"V", &size));
  EXPECT_FALSE(EnumerateKey(key, 0, name));
  EXPECT_FALSE(EnumerateValue(key, 0, name));
  EXPECT_FALSE(DeleteKey(key, u"K"));
  EXPECT_FALSE(DeleteValue(key, u"V"));
  CloseKey(key);
  EXPECT_FALSE(Exists(u"Missing"));
}

TEST_F(KeyStore, KeyNamesKeepTheirCaseAndAreFoundWithoutIt) {
  Create(u"Stra\u00DFe \u0416\u00E9");
  EXPECT_TRUE(Exists(u"STRA\u00DFE \u0436\u00C9"));
  Create(u"stra\u00DFe \u0436\u00e9");
  EXPECT_EQ(Names{u"Stra\u00DFe \u0416\u00E9"}, Keys(Open(u"", false)));
}

TEST_F(KeyStore, ValueNamesKeepTheirFirstSpellingAndAreFoundWithoutCase) {
  KeyHandle key = Create(u"A");
  Write(key, u"Gap \u0416", "1");
  Write(key, u"gAP \u0436", "22");
  EXPECT_EQ("22", Read(key, u"GAP \u0416"));
  EXPECT_EQ(Names{u"Gap \u0416"}, Values(key));
}

// Letters whose upper case has another lower case, such as the dotless i and the final sigma.
TEST_F(KeyStore, LettersThatUpperCaseWouldTakeForOthersStayThemselves) {
  constexpr char16_t kPairs[][2] = {
      {0x00B5, 0x039C}, {0x0131, 0x0049}, {0x017F, 0x0053}, {0x01C5, 0x01C4}, {0x01C8, 0x01C7},
      {0x01CB, 0x01CA}, {0x01F2, 0x01F1}, {0x0345, 0x0399}, {0x03C2, 0x03A3}, {0x03D0, 0x0392},
      {0x03D1, 0x0398}, {0x03D5, 0x03A6}, {0x03D6, 0x03A0}, {0x03F0, 0x039A}, {0x03F1, 0x03A1},
      {0x03F5, 0x0395}, {0x1C80, 0x0412}, {0x1C81, 0x0414}, {0x1C82, 0x041E}, {0x1C83, 0x0421},
      {0x1C84, 0x0422}, {0x1C85, 0x0422}, {0x1C86, 0x042A}, {0x1C87, 0x0462}, {0x1C88, 0xA64A},
      {0x1E9B, 0x1E60}, {0x1FBE, 0x0399}};
  KeyHandle key = Create(u"A");
  for (const auto& [letter, upper] : kPairs) {
    const std::u16string name(1, letter);
    const std::u16string other(1, upper);
    Create(u"A\\" + name);
    Write(key, name.c_str(), "x");
    EXPECT_TRUE(Exists(u"A\\" + name)) << int{letter};
    EXPECT_FALSE(Exists(u"A\\" + other)) << int{letter};
    EXPECT_EQ("(none)", Read(key, other.c_str())) << int{letter};
  }
  for (const auto& [lower, upper] : {std::pair{u"\u00FF", u"\u0178"},
                                     {u"\u01C6", u"\u01C4"},
                                     {u"\u03C3", u"\u03A3"},
                                     {u"\u0561", u"\u0531"},
                                     {u"\u1E61", u"\u1E60"},
                                     {u"\uFF41", u"\uFF21"}}) {
    Write(key, lower, "y");
    EXPECT_EQ("y", Read(key, upper));
  }
}

TEST_F(KeyStore, OrdinaryAndMissingKeysAreNoLinks) {
  KeyHandle key = Create(u"A");
  Create(u"A\\B");
  Write(Open(u"A\\B", true), u"SymbolicLinkValue", "x");
  EXPECT_FALSE(IsLink(key, u"B"));
  EXPECT_FALSE(IsLink(key, u"C"));
}

TEST_F(KeyStore, SurrogatePairsAreUnitsOfAName) {
  KeyHandle key = Create(u"\U0001F600");
  Write(key, u"\U0001F601", "x");
  EXPECT_EQ(Names{u"\U0001F601"}, Values(Open(u"\U0001F600", false)));
  EXPECT_FALSE(Exists(u"\U0001F601"));
}

TEST_F(KeyStore, TypeIsKeptWithTheValue) {
  KeyHandle key = Create(u"A");
  uint32_t type = 99;
  char buffer[8];
  WriteValue(key, u"V", "1234", 4, kValueDword);
  EXPECT_EQ(4, ReadValue(key, u"V", buffer, 8, &type));
  EXPECT_EQ(kValueDword, type);
  WriteValue(key, u"V", "12", 2, 77);
  EXPECT_EQ(2, ReadValue(key, u"V", buffer, 8, &type));
  EXPECT_EQ(77u, type);
}

TEST_F(KeyStore, ReadIntoTooSmallBufferFails) {
  KeyHandle key = Create(u"A");
  Write(key, u"V", "12345");
  char buffer[8] = {};
  EXPECT_EQ(-1, ReadValue(key, u"V", buffer, 4, nullptr));
  EXPECT_EQ(5, ReadValue(key, u"V", buffer, 5, nullptr));
  EXPECT_EQ(-1, ReadValue(key, u"V", nullptr, 0, nullptr));
  EXPECT_EQ(-1, ReadValue(key, u"V", nullptr, 100, nullptr));
  EXPECT_EQ(-1, ReadValue(key, u"V", buffer, -5, nullptr));
}

TEST_F(KeyStore, EmptyValueHasSizeZero) {
  KeyHandle key = Create(u"A");
  int size = -5;
  EXPECT_EQ(0, WriteValue(key, u"V", nullptr, 0, kValueBinary));
  EXPECT_TRUE(GetValueSize(key, u"V", &size));
  EXPECT_EQ(0, size);
  EXPECT_EQ("", Read(key, u"V"));
}

TEST_F(KeyStore, WriteRefusesASizeWithoutData) {
  KeyHandle key = Create(u"A");
  EXPECT_EQ(-1, WriteValue(key, u"V", nullptr, 3, kValueBinary));
  EXPECT_EQ(-1, WriteValue(key, u"V", "abc", -1, kValueBinary));
  EXPECT_TRUE(Values(key).empty());
}

TEST_F(KeyStore, TextIsStoredByteForByteEvenIfATerminatorFollowsIt) {
  KeyHandle key = Create(u"A");
  const char text[] = {'a', 0, 'b', 0, 0, 0, 0, 0};
  for (int size = 1; size <= 6; ++size) {
    EXPECT_EQ(size, WriteValue(key, u"V", text, size, kValueString));
    EXPECT_EQ(std::string(text, static_cast<size_t>(size)), Read(key, u"V"));
    EXPECT_EQ(size, WriteValue(key, u"V", text, size, kValueMultiString));
    EXPECT_EQ(std::string(text, static_cast<size_t>(size)), Read(key, u"V"));
  }
}

TEST_F(KeyStore, EmptyNameIsTheDefaultValue) {
  KeyHandle key = Create(u"A");
  EXPECT_EQ("(none)", Read(key, u""));
  Write(key, u"", "d");
  EXPECT_EQ("d", Read(key, u""));
  EXPECT_EQ(Names{u""}, Values(key));
}

TEST_F(KeyStore, SizeOfAbsentValueIsFalse) {
  KeyHandle key = Create(u"A");
  int size = -5;
  EXPECT_FALSE(GetValueSize(key, u"V", &size));
  Write(key, u"V", "123");
  EXPECT_TRUE(GetValueSize(key, u"v", &size));
  EXPECT_EQ(3, size);
}

TEST_F(KeyStore, LargeValuesArriveWhole) {
  KeyHandle key = Create(u"A");
  std::string data(200000, '\0');
  for (size_t i = 0; i < data.size(); ++i) data[i] = static_cast<char>(i * 7);
  EXPECT_EQ(200000, Write(key, u"V", data));
  std::string read(200000, '\0');
  EXPECT_EQ(200000, ReadValue(key, u"V", read.data(), 200000, nullptr));
  EXPECT_EQ(data, read);
}

TEST_F(KeyStore, KeyNameHasAtMost255Units) {
  std::u16string longest(255, u'k');
  EXPECT_NE(nullptr, Create(longest));
  EXPECT_EQ(nullptr, Create(longest + u"k"));
  EXPECT_EQ(Names{longest}, Keys(Open(u"", false)));
}

TEST_F(KeyStore, ValueNameOf260UnitsIsEnumerated) {
  KeyHandle key = Create(u"A");
  std::u16string longest(260, u'v');
  EXPECT_EQ(1, Write(key, longest.c_str(), "x"));
  EXPECT_EQ(Names{longest}, Values(key));
}

TEST_F(KeyStore, EnumerationGivesEachNameOnceInAnyOrderOfIndexes) {
  KeyHandle key = Create(u"A");
  Names wanted;
  for (int i = 0; i < 40; ++i) {
    std::u16string name = u"n" + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)) +
                          std::u16string(1, static_cast<char16_t>(u'A' + i / 26));
    Create(u"A\\" + name);
    Write(key, name.c_str(), "x");
    wanted.insert(name);
  }
  EXPECT_EQ(wanted, Keys(key));
  EXPECT_EQ(wanted, Values(key));
  Names backwards;
  char16_t name[kNameUnits];
  for (int i = 39; i >= 0; --i) {
    ASSERT_TRUE(EnumerateKey(key, i, name));
    backwards.insert(name);
  }
  EXPECT_EQ(wanted, backwards);
  EXPECT_FALSE(EnumerateKey(key, 40, name));
  EXPECT_FALSE(EnumerateKey(key, -1, name));
  EXPECT_FALSE(EnumerateValue(key, 40, name));
  EXPECT_FALSE(EnumerateValue(key, -1, name));
}

TEST_F(KeyStore, QueryCountsSubKeysAndValues) {
  KeyHandle key = Create(u"A");
  Create(u"A\\B\\C");
  Create(u"A\\D");
  Write(key, u"V", "1");
  int keys = -5;
  int values = -5;
  EXPECT_TRUE(QueryKey(key, &keys, &values));
  EXPECT_EQ(2, keys);
  EXPECT_EQ(1, values);
  EXPECT_TRUE(QueryKey(key, nullptr, nullptr));
}

TEST_F(KeyStore, KeyWithSubKeysIsNotDeleted) {
  KeyHandle base = Create(u"");
  KeyHandle key = Create(u"A");
  Write(key, u"V", "1");
  Create(u"A\\B");
  EXPECT_FALSE(DeleteKey(base, u"A"));
  EXPECT_EQ("1", Read(Open(u"A", false), u"V"));
  EXPECT_TRUE(DeleteKey(key, u"b"));
  EXPECT_TRUE(DeleteKey(base, u"A"));
  EXPECT_FALSE(Exists(u"A"));
}

TEST_F(KeyStore, DeletedKeyTakesItsValuesAlong) {
  KeyHandle base = Create(u"");
  Write(Create(u"A"), u"V", "1");
  EXPECT_TRUE(DeleteKey(base, u"A"));
  EXPECT_FALSE(DeleteKey(base, u"A"));
  EXPECT_TRUE(Values(Create(u"A")).empty());
}

TEST_F(KeyStore, DeleteKeyWithoutANameDeletesNothing) {
  KeyHandle key = Create(u"A");
  EXPECT_FALSE(DeleteKey(key, u""));
  EXPECT_FALSE(DeleteKey(key, nullptr));
  EXPECT_TRUE(Exists(u"A"));
}

TEST_F(KeyStore, KeyWhoseNameBeginsAlikeIsAnotherKey) {
  KeyHandle base = Create(u"");
  Create(u"A");
  Create(u"A B\\C");
  Create(u"AB");
  EXPECT_TRUE(DeleteKey(base, u"A"));
  EXPECT_EQ((Names{u"A B", u"AB"}), Keys(base));
}

TEST_F(KeyStore, DeletedKeyTakesNoMoreValues) {
  KeyHandle base = Create(u"");
  KeyHandle key = Create(u"A");
  EXPECT_TRUE(DeleteKey(base, u"A"));
  EXPECT_EQ(-1, Write(key, u"V", "1"));
  EXPECT_FALSE(QueryKey(key, nullptr, nullptr));
  EXPECT_FALSE(Exists(u"A"));
}

TEST_F(KeyStore, DeleteValueWorksOnce) {
  KeyHandle key = Create(u"A");
  Write(key, u"V", "1");
  EXPECT_TRUE(DeleteValue(key, u"v"));
  EXPECT_FALSE(DeleteValue(key, u"V"));
  EXPECT_EQ("(none)", Read(key, u"V"));
}

TEST_F(KeyStore, EmptyElementsAreNoPath) {
  EXPECT_EQ(nullptr, Create(u"A\\\\B"));
  EXPECT_EQ(nullptr, Create(u"A\\"));
  EXPECT_EQ(nullptr, OpenKey(Hive::kCurrentUser, u"\\SOFTWARE", true));
  EXPECT_FALSE(Exists(u"A"));
}

TEST_F(KeyStore, RootOfEachHiveExists) {
  for (Hive hive : {Hive::kClassesRoot, Hive::kCurrentUser, Hive::kLocalMachine, Hive::kUsers}) {
    KeyHandle key = OpenKey(hive, u"", false);
    EXPECT_NE(nullptr, key);
    EXPECT_TRUE(QueryKey(key, nullptr, nullptr));
    CloseKey(key);
  }
}

TEST_F(KeyStore, HivesAreApart) {
  Write(Create(u"A"), u"V", "1");
  KeyHandle machine = OpenKey(Hive::kLocalMachine, kBase, true);
  EXPECT_TRUE(Keys(machine).empty());
  CloseKey(machine);
}

TEST_F(KeyStore, NullHandleFailsInEveryOperation) {
  char16_t name[kNameUnits];
  char buffer[4];
  int size = 0;
  EXPECT_EQ(-1, WriteValue(nullptr, u"V", "x", 1, kValueBinary));
  EXPECT_EQ(-1, ReadValue(nullptr, u"V", buffer, 4, nullptr));
  EXPECT_FALSE(GetValueSize(nullptr, u"V", &size));
  EXPECT_FALSE(EnumerateKey(nullptr, 0, name));
  EXPECT_FALSE(EnumerateValue(nullptr, 0, name));
  EXPECT_FALSE(QueryKey(nullptr, nullptr, nullptr));
  EXPECT_FALSE(DeleteKey(nullptr, u"A"));
  EXPECT_FALSE(DeleteValue(nullptr, u"A"));
  CloseKey(nullptr);
}

}  // namespace
}  // namespace ostvt::platform
