// The text half of ORegistry; nothing here needs a store.
#include <gtest/gtest.h>

#include <string>

#include "store/ORegistry.h"
#include "tests/store/StoreText.h"

namespace ostvt {
namespace {

using test::Text;

// "KEY|VALUE", or "(fails)".
std::string Split(const OString& keyPath, const OString& valuePath) {
  ORegistry registry;
  OString key = keyPath;
  OString value = valuePath;
  return registry.SplitPath(&key, &value) ? Text(key) + "|" + Text(value) : "(fails)";
}

std::string Resolve(const char* path) {
  OString resolved = path;
  ORegistry().ResolvePath(&resolved);
  return Text(resolved);
}

std::string Substitute(const char* path, const char* alias, const char* target) {
  OString text = path;
  ORegistry::SubstitutePrefix(&text, alias, target);
  return Text(text);
}

TEST(ORegistryPath, RootIsEmptyAfterConstructionAndCopied) {
  ORegistry registry;
  EXPECT_TRUE(registry.Root.IsEmpty());
  registry.Root = "LOCAL:X";
  ORegistry copy(registry);
  EXPECT_EQ("LOCAL:X", Text(copy.Root));
}

TEST(ORegistryPath, EscapeWritesPercentSlashAndColon) {
  EXPECT_EQ("a%2Fb%3Ac%25d\\e", Text(ORegistry::Escape("a/b:c%d\\e")));
  EXPECT_EQ("%252F", Text(ORegistry::Escape("%2F")));
  EXPECT_EQ("plain", Text(ORegistry::Escape("plain")));
  EXPECT_EQ("", Text(ORegistry::Escape("")));
}

TEST(ORegistryPath, UnescapeDecodesEveryTriple) {
  EXPECT_EQ("a/b:c%d", Text(ORegistry::Unescape("a%2Fb%3Ac%25d")));
  EXPECT_EQ("A", Text(ORegistry::Unescape("%41")));
}

TEST(ORegistryPath, UnescapeNeverDecodesItsOwnResult) {
  EXPECT_EQ("%41", Text(ORegistry::Unescape("%2541")));
}

TEST(ORegistryPath, UnescapeLeavesPercentInTheLastTwoPositions) {
  EXPECT_EQ("a%", Text(ORegistry::Unescape("a%")));
  EXPECT_EQ("a%4", Text(ORegistry::Unescape("a%4")));
  EXPECT_EQ("aA%4", Text(ORegistry::Unescape("a%41%4")));
}

TEST(ORegistryPath, UnescapeOfZeroRemovesTheTripleAndPassesOverTheNextCharacter) {
  EXPECT_EQ("ab", Text(ORegistry::Unescape("a%00b")));
  EXPECT_EQ("%41B", Text(ORegistry::Unescape("%00%41%42")));
  EXPECT_EQ("a", Text(ORegistry::Unescape("a%00")));
}

TEST(ORegistryPath, UnescapeTakesAnyCharacterAsADigit) {
  // 'G' counts 7 + 9 = 16, 'z' 10 + 9 = 19, '-' 13 + 9 = 22, all modulo 256.
  EXPECT_EQ("\x01\x01", Text(ORegistry::Unescape("%G1%01")));
  EXPECT_EQ("C", Text(ORegistry::Unescape("%3z")));
  EXPECT_EQ("a", Text(ORegistry::Unescape("%-1")));
  EXPECT_EQ("oo", Text(ORegistry::Unescape("%6f%6F")));
}

TEST(ORegistryPath, UnescapeWidensBytesUnderTheStringsCodePage) {
  OString western = "%E9%41";
  western.SetCodePage(1252);
  EXPECT_EQ(std::u16string(u"\u00E9A"), ORegistry::Unescape(western).GetWide());
  OString cyrillic = "%E9%41";
  cyrillic.SetCodePage(1251);
  EXPECT_EQ(std::u16string(u"\u0439A"), ORegistry::Unescape(cyrillic).GetWide());
  EXPECT_EQ(1251u, ORegistry::Unescape(cyrillic).GetCodePage());
}

TEST(ORegistryPath, UnescapeKeepsCharactersOutsideTheCodePage) {
  OString text(u"\u4E2D%E9\u0416%2F\U0001F600");
  text.SetCodePage(1252);
  EXPECT_EQ(std::u16string(u"\u4E2D\u00E9\u0416/\U0001F600"), ORegistry::Unescape(text).GetWide());
}

TEST(ORegistryPath, EscapedNamesComeBack) {
  for (const char16_t* name : {u"a/b:c%d", u"%", u"%%", u"%2", u"%2F", u"\u4E2D:\u0416/", u"::"}) {
    EXPECT_EQ(std::u16string(name),
              ORegistry::Unescape(ORegistry::Escape(OString(name))).GetWide());
  }
}

TEST(ORegistryPath, DisplayFormNamesTheHive) {
  EXPECT_EQ("HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\Printers/Label",
            Text(ORegistry::ToDisplayForm("1:SOFTWARE/Vantrel/Drivers/Printers%2FLabel")));
  EXPECT_EQ("HKEY_CLASSES_ROOT\\A", Text(ORegistry::ToDisplayForm("0:A")));
  EXPECT_EQ("HKEY_LOCAL_MACHINE\\A", Text(ORegistry::ToDisplayForm("2:A")));
  EXPECT_EQ("HKEY_USERS\\A", Text(ORegistry::ToDisplayForm("3:A")));
}

TEST(ORegistryPath, DisplayFormReplacesHiveNumbersAnywhere) {
  EXPECT_EQ("HKEY_LOCAL_MACHINE\\COMHKEY_CURRENT_USER\\",
            Text(ORegistry::ToDisplayForm("2:COM1:")));
}

TEST(ORegistryPath, FromDisplayFormEscapesFirst) {
  EXPECT_EQ("1:SOFTWARE/Vantrel/Drivers/Printers%2FLabel",
            Text(ORegistry::FromDisplayForm(
                "HKEY_CURRENT_USER\\SOFTWARE\\Vantrel\\Drivers\\Printers/Label")));
  EXPECT_EQ("0:A%3AB", Text(ORegistry::FromDisplayForm("HKEY_CLASSES_ROOT\\A:B")));
  EXPECT_EQ("2:100%25", Text(ORegistry::FromDisplayForm("HKEY_LOCAL_MACHINE\\100%")));
  EXPECT_EQ("3:", Text(ORegistry::FromDisplayForm("HKEY_USERS\\")));
  EXPECT_EQ("HKEY_USERS", Text(ORegistry::FromDisplayForm("HKEY_USERS")));
}

TEST(ORegistryPath, FullPathTakesThePathAsAKey) {
  ORegistry registry;
  registry.Root = "USER:Elsewhere";
  EXPECT_EQ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\Paper Sizes",
            Text(registry.ToFullPath("LOCAL:Paper Sizes")));
  EXPECT_EQ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Vantrel\\Drivers\\A/B",
            Text(registry.ToFullPath("LOCAL:A//B/")));
  EXPECT_EQ("", Text(registry.ToFullPath("plain")));
  EXPECT_EQ("", Text(registry.ToFullPath("")));
}

TEST(ORegistryPath, EachAliasHasItsTarget) {
  EXPECT_EQ("0:", Resolve("CLASSES_ROOT:"));
  EXPECT_EQ("1:", Resolve("CURRENT_USER:"));
  EXPECT_EQ("2:", Resolve("LOCAL_MACHINE:"));
  EXPECT_EQ("3:", Resolve("USERS:"));
  EXPECT_EQ("1:SOFTWARE/Vantrel/Drivers", Resolve("USER:"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers", Resolve("LOCAL:"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Global Settings", Resolve("GLOBAL:"));
  EXPECT_EQ("2:SYSTEM/CurrentControlSet/Control/Print", Resolve("PRINT:"));
}

TEST(ORegistryPath, RestOfAnAliasPathIsJoinedWithOneSlash) {
  EXPECT_EQ("0:A", Resolve("CLASSES_ROOT:A"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A/B", Resolve("LOCAL:A/B"));
}

TEST(ORegistryPath, SubstitutionMakesNoEmptyElement) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Fonts", Resolve("LOCAL:/Fonts"));
  EXPECT_EQ("X:Y/Fonts", Substitute("A:/Fonts", "A:", "X:Y"));
  EXPECT_EQ("X:Y/Fonts", Substitute("A:Fonts", "A:", "X:Y/"));
}

TEST(ORegistryPath, AliasMatchesWithoutCaseAtTheHeadOnly) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/foo", Resolve("local:foo"));
  EXPECT_EQ("2:X/LOCAL:foo", Resolve("2:X/LOCAL:foo"));
  EXPECT_EQ("XLOCAL:foo", Resolve("XLOCAL:foo"));
}

TEST(ORegistryPath, PathWithoutColonIsNotResolved) { EXPECT_EQ("LOCAL", Resolve("LOCAL")); }

TEST(ORegistryPath, WholePathEqualToAnAliasBecomesTheTarget) {
  EXPECT_EQ("T", Substitute("ab:", "AB:", "T"));
  EXPECT_EQ("T", Substitute("[x]", "[X]", "T"));
}

TEST(ORegistryPath, MacroIsReplacedEverywhereByExactCase) {
  EXPECT_EQ("1:P/P/[p]", Substitute("1:[P]/[P]/[p]", "[P]", "P"));
  EXPECT_EQ("1:[P]x", Substitute("1:[P]", "[P]", "[P]x"));
}

TEST(ORegistryPath, AliasAloneIsAKeyAndItsDefaultValue) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers|", Split("", "LOCAL:"));
}

TEST(ORegistryPath, LastElementIsTheValueOfTheAliasRoot) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers|Foo", Split("", "LOCAL:Foo"));
}

TEST(ORegistryPath, TrailingSlashMeansTheDefaultValueOfTheKey) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/Foo|", Split("", "LOCAL:Foo/"));
}

TEST(ORegistryPath, DoubledSlashIsPartOfAName) {
  EXPECT_EQ("2:SOFTWARE/A%2FB|C", Split("", "2:SOFTWARE/A//B/C"));
}

TEST(ORegistryPath, DoubledCharactersInTheValueAreDecoded) {
  EXPECT_EQ("2:A|x/y:z%w", Split("", "2:A/x//y::z%%w"));
  EXPECT_EQ("2:A|x/y", Split("", "2:A/x%2Fy"));
  EXPECT_EQ("1:SOFTWARE/Vantrel/Drivers/Printers%2FLabel|Name",
            Split("", "USER:Printers//Label/Name"));
}

TEST(ORegistryPath, BackslashSeparatesLikeASlash) {
  EXPECT_EQ("2:A/B|C", Split("", "2:A\\B\\C"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A|B", Split("", "LOCAL:A\\B"));
}

TEST(ORegistryPath, DoubledBackslashIsTwoSeparatorsNotAName) {
  EXPECT_EQ("2:A/|C", Split("", "2:A\\\\C"));
}

TEST(ORegistryPath, OnlyTheKeyPartIsResolved) { EXPECT_EQ("2:X|LOCAL:", Split("", "2:X/LOCAL::")); }

TEST(ORegistryPath, RelativePathHangsFromTheKeyPath) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A|B", Split("LOCAL:A", "B"));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A/B|C", Split("LOCAL:A/", "B/C"));
}

TEST(ORegistryPath, KeyPathThatEndsInAColonNeedsNoSlash) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers|B", Split("LOCAL:", "B"));
}

TEST(ORegistryPath, AbsolutePathIgnoresTheKeyPath) {
  EXPECT_EQ("3:X|Y", Split("LOCAL:A", "3:X/Y"));
}

TEST(ORegistryPath, ColonAtTheVeryFrontIsRelative) { EXPECT_EQ("2:A/:|B", Split("2:A", ":B")); }

TEST(ORegistryPath, EmptyValuePathTakesTheKeyPathWhole) {
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A/B|", Split("LOCAL:A/B", ""));
  EXPECT_EQ("2:SOFTWARE/Vantrel/Drivers/A/B|", Split("LOCAL:A/B/", ""));
}

TEST(ORegistryPath, PathWithoutColonOrSlashFailsWithoutARoot) {
  EXPECT_EQ("(fails)", Split("", "x"));
  EXPECT_EQ("(fails)", Split("", ""));
  EXPECT_EQ("(fails)", Split("x", ""));
  EXPECT_EQ("x|y", Split("", "x/y"));
}

OString InPage(uint32_t codePage, const char* text) {
  OString made;
  made.SetCodePage(codePage);
  made = text;
  return made;
}

std::u16string SplitInPages(const OString& root, const OString& path) {
  OString key = root;
  OString value = path;
  EXPECT_TRUE(ORegistry().SplitPath(&key, &value));
  return std::u16string(key.GetWide()) + u"|" + value.GetWide();
}

// A relative path takes the page of what it hangs from, another one keeps its own.
TEST(ORegistryPath, EscapesAreOfThePageOfTheWholePath) {
  EXPECT_EQ(u"2:A/%E9|\u0439", SplitInPages("", InPage(1251, "2:A/%E9/%E9")));
  EXPECT_EQ(u"2:A|\u00E9", SplitInPages(InPage(1252, "2:A"), InPage(1251, "%E9")));
  EXPECT_EQ(u"2:B|\u0439", SplitInPages(InPage(1252, "2:A"), InPage(1251, "2:B/%E9")));
  EXPECT_EQ(u"x|\u0439", SplitInPages("", InPage(1251, "x/%E9")));
}

TEST(ORegistryPath, RootIsNormalizedToo) {
  EXPECT_EQ("2:A%2FB/C|D", Split("2:A//B\\C\\", "D"));
  EXPECT_EQ("2:A|D", Split("2:A\\\\", "D"));
}

// What can't be read as a path is none, and not the key that it would hang from.
TEST(ORegistryPath, TextOfAPageThatIsNoneIsNoPath) {
  OString key = "2:A/B";
  OString value = InPage(9999, "C");
  EXPECT_FALSE(ORegistry().SplitPath(&key, &value));
  key = InPage(9999, "2:A/B");
  value = "C";
  EXPECT_FALSE(ORegistry().SplitPath(&key, &value));
}

TEST(ORegistryPath, ByteThatGivesNothingPassesOverTheNextUnit) {
  OString name;
  name.SetCodePage(9999);
  name = u"%E9%2F";
  EXPECT_EQ(std::u16string(u"%2F"), ORegistry::Unescape(name).GetWide());
}

TEST(ORegistryPath, PositionsHoldInWideAndMultiByteText) {
  OString path;
  path.SetCodePage(932);
  path = "2:\x83\x5C/\x83\x5Cx";  // a pair whose second byte is a backslash's
  ORegistry registry;
  OString key;
  ASSERT_TRUE(registry.SplitPath(&key, &path));
  EXPECT_EQ(std::u16string(u"2:\u30BD"), key.GetWide());
  EXPECT_EQ(std::u16string(u"\u30BDx"), path.GetWide());
}

}  // namespace
}  // namespace ostvt
