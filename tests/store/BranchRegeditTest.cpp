// Our text of a branch beside the one that the system's registry editor writes of the same key.
#ifdef _WIN32

#include <cstring>
#include <map>

#include "platform/windows/Win32.h"
#include "tests/store/BranchFixture.h"

namespace ostvt::test {
namespace {

class BranchBesideRegedit : public BranchTest {
 protected:
  // The lines of the editor's export of the base key, without line ends.
  std::vector<std::u16string> EditorsLines() {
    const std::string file = Files.Path("branch.reg");
    Run("regedit.exe /e \"" + file + "\" \"" + kDisplay + "\"");
    const std::string bytes = Files.Get("branch.reg");
    std::u16string text(bytes.size() / 2, u'\0');
    memcpy(text.data(), bytes.data(), text.size() * 2);
    EXPECT_TRUE(text.starts_with(u"\uFEFFWindows Registry Editor Version 5.00\r\n"));
    std::vector<std::u16string> lines;
    for (size_t at = 1; at < text.size();) {
      const size_t end = std::min(text.find(u"\r\n", at), text.size());
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
  std::vector<std::u16string> OurLines() {
    OStringArray lines;
    Registry.ExportBranch(kBase, &lines, 0);
    std::vector<std::u16string> list;
    for (int32_t i = 0; i < lines.Count; ++i) list.push_back(lines[i].GetWide());
    return list;
  }
  // Each value under "[KEY]" and its name, with the parts of its lines joined.
  using ValueTexts = std::map<std::u16string, std::u16string>;
  static ValueTexts ValuesIn(const std::vector<std::u16string>& lines) {
    ValueTexts values;
    std::u16string key;
    std::u16string pending;
    for (std::u16string line : lines) {
      if (line.starts_with(u'[')) {
        key = line;
        values[key];
        continue;
      }
      line.erase(0, line.find_first_not_of(u' '));
      pending += line;
      if (pending.ends_with(u'\\')) {
        pending.pop_back();
        continue;
      }
      const size_t equals = pending.starts_with(u'@') ? 1 : pending.find(u"\"=") + 1;
      if (!pending.empty() && !key.empty())
        values[key + u" " + pending.substr(0, equals)] = pending.substr(equals + 1);
      pending.clear();
    }
    return values;
  }
  void ImportByEditor(const std::vector<std::u16string>& lines) {
    std::u16string text = u"\uFEFFWindows Registry Editor Version 5.00\r\n\r\n";
    for (const std::u16string& line : lines) text += line + u"\r\n";
    const std::string file = Files.Put(
        "import.reg", std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2));
    Run("regedit.exe \"" + file + "\"");
  }

  TempDirectory Files;

 private:
  static void Run(std::string command) {
    STARTUPINFOA start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process = {};
    ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &start, &process));
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process.hProcess, 60 * 1000));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
};

TEST_F(BranchBesideRegedit, StringsDwordsBytesAndListsAgree) {
  std::vector<uint8_t> bytes(100);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(3 * i);
  Registry.WriteString(At("plain"), "text");
  Registry.WriteString(At("empty"), "");
  Registry.WriteString(At("a \"quoted\" C:%5Cpath%5C"), "C:\\dir\\ \"x\"");
  Registry.WriteString(At("ends in a quote"), "a\"");
  Registry.WriteString(At(u"\u6807\u00E9"), u"\u7B7E\U0001F600");
  Registry.WriteDword(At("dword"), 0xDEADBEEFu);
  Registry.WriteInt(At("int"), -2);
  Registry.WriteByte(At("byte"), 0xAB);
  Registry.WriteBinary(At("hundred"), bytes.data(), 100);
  Registry.WriteBinary(At("no bytes"), "", 0);
  Registry.WriteValue(At("type 2"), u"%x%", 8, 2);
  OStringArray list = Lines({"a", "bc"});
  Registry.WriteMultiString(At("list"), list);
  Registry.WriteString(At("sub%2Fkey/Form 01%3A Name"), "Shelf 50%");
  Registry.WriteByte(At("sub%2Fkey/deeper/x"), 1);
  EXPECT_EQ(ValuesIn(EditorsLines()), ValuesIn(OurLines()));
}

TEST_F(BranchBesideRegedit, SectionsAgreeInHeaderAndEnd) {
  Registry.WriteByte(At("a/V"), 1);
  Registry.WriteByte(At("b/W"), 2);
  std::vector<std::u16string> editors = EditorsLines();
  // Behind the editor's own head and the empty line that follows it.
  editors.erase(editors.begin(), editors.begin() + 2);
  EXPECT_EQ(editors, OurLines());
}

TEST_F(BranchBesideRegedit, DefaultValueHasAnEmptyNameWhereTheEditorWritesASign) {
  Registry.WriteString(At(""), "x");
  EXPECT_EQ(u"@=\"x\"", EditorsLines()[3]);
  EXPECT_EQ(u"\"\"=\"x\"", OurLines()[1]);
}

TEST_F(BranchBesideRegedit, OtherTypesAreDecimalWhereTheEditorsAreHexadecimal) {
  Registry.WriteValue(At("V"), "\1\2", 2, 17);
  EXPECT_EQ(u"\"V\"=hex(11):01,02", EditorsLines()[3]);
  EXPECT_EQ(u"\"V\"=hex(17):01,02", OurLines()[1]);
}

TEST_F(BranchBesideRegedit, LinesOfManyBytesBreakAlike) {
  std::vector<uint8_t> bytes(100);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(255 - i);
  Registry.WriteBinary(At("V"), bytes.data(), 100);
  std::vector<std::u16string> editors = EditorsLines();
  editors.erase(editors.begin(), editors.begin() + 2);
  EXPECT_EQ(editors, OurLines());
}

TEST_F(BranchBesideRegedit, NamesAreSortedByExactLettersWhereTheEditorFoldsThem) {
  Registry.WriteByte(At("a"), 1);
  Registry.WriteByte(At("Z"), 1);
  EXPECT_EQ(u"\"a\"=hex:01", EditorsLines()[3]);
  EXPECT_EQ(u"\"Z\"=hex:01", OurLines()[1]);
}

TEST_F(BranchBesideRegedit, EachReadsTheOthersText) {
  std::vector<uint8_t> bytes(100, 0x5A);
  Registry.WriteBinary(At("bytes"), bytes.data(), 100);
  Registry.WriteString(At("a%5C\"b\""), "C:\\x\\ \"y\"");
  Registry.WriteDword(At("dword"), 7u);
  Registry.WriteMultiString(At("sub/list"), Lines({"a", "bc"}));
  const std::vector<std::u16string> ours = OurLines();
  const std::vector<std::u16string> editors = EditorsLines();
  const ValueTexts before = ValuesIn(ours);

  Registry.Delete(kBase, true);
  ImportByEditor(ours);
  EXPECT_EQ(before, ValuesIn(OurLines()));

  Registry.Delete(kBase, true);
  OStringArray lines;
  for (const std::u16string& line : editors) lines.Add(line.c_str());
  ORegistry().ImportBranch(lines, 0);
  EXPECT_EQ(before, ValuesIn(OurLines()));
}

}  // namespace
}  // namespace ostvt::test

#endif
