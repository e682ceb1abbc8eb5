// The pages of the Advanced sheet in real windows.
#include "settings/DriverOptions.h"
#include "tests/ui/windows/PagesFixture.h"
#include "ui/UserCommandPoints.h"

namespace ostvt::test {
namespace {

class UserCommandsPageTest : public PagesTest {
 protected:
  HWND Open() {
    if (!Printer) AddLabelPrinter();
    return Page = OpenPage("*:ADVANCED/USER_COMMANDS");
  }
  std::string Text(int point) { return GetCommandText(Settings(), point).GetNarrow(); }
  // The dialog that offers insertions: chooses that line.
  static DialogDriver::Step Insertion(int index) {
    return [index](HWND dialog) {
      EXPECT_EQ(10, SendDlgItemMessageW(dialog, IDC_INSERT_LIST, LB_GETCOUNT, 0, 0));
      ChooseLine(dialog, IDC_INSERT_LIST, index);
      Press(dialog, IDOK);
    };
  }

  HWND Page = nullptr;
};

TEST_F(UserCommandsPageTest, EachPointHasItsText) {
  Open();
  EXPECT_EQ("<Start of the job>;Start of each page;End of each page;End of the job",
            ListLines(Page, IDC_COMMAND_POINTS));
  Type(Page, IDC_COMMAND_TEXT, L"! U1 BEGIN-PAGE\\r\\n");
  EXPECT_TRUE(SheetChanged);
  ChooseLine(Page, IDC_COMMAND_POINTS, 3);
  EXPECT_EQ("", Narrow(Page, IDC_COMMAND_TEXT));
  Type(Page, IDC_COMMAND_TEXT, L"CUT");
  EXPECT_EQ("! U1 BEGIN-PAGE\\r\\n", Text(0));
  EXPECT_EQ("", Text(1));
  EXPECT_EQ("CUT", Text(3));
  ChooseLine(Page, IDC_COMMAND_POINTS, 0);
  EXPECT_EQ("! U1 BEGIN-PAGE\\r\\n", Narrow(Page, IDC_COMMAND_TEXT));
}

TEST_F(UserCommandsPageTest, LookingAtThePointsChangesNothing) {
  Open();
  const std::vector<uint8_t> block = Block();
  for (int point : {1, 2, 3, 0}) ChooseLine(Page, IDC_COMMAND_POINTS, point);
  EXPECT_EQ(block, Block());
  EXPECT_FALSE(SheetChanged);
}

TEST_F(UserCommandsPageTest, TextTakenBackIsNoChange) {
  Open();
  Type(Page, IDC_COMMAND_TEXT, L"CUT");
  EXPECT_TRUE(SheetChanged);
  Type(Page, IDC_COMMAND_TEXT, L"");
  EXPECT_FALSE(SheetChanged);
}

TEST_F(UserCommandsPageTest, InsertionGoesInPlaceOfTheSelection) {
  Open();
  DialogDriver user;
  Type(Page, IDC_COMMAND_TEXT, L"AXB");
  SendDlgItemMessageW(Page, IDC_COMMAND_TEXT, EM_SETSEL, 1, 2);
  user.Expect(Insertion(0));
  Click(Page, IDC_COMMAND_INSERT);
  EXPECT_EQ("A\\eB", Text(0));
}

// As with the mouse: the button takes the focus, and the box gets it back.
TEST_F(UserCommandsPageTest, InsertionStaysWhereTheCaretWas) {
  Open();
  DialogDriver user;
  Type(Page, IDC_COMMAND_TEXT, L"AB");
  HWND box = GetDlgItem(Page, IDC_COMMAND_TEXT);
  ::SetFocus(box);
  SendMessageW(box, EM_SETSEL, 1, 1);
  ::SetFocus(GetDlgItem(Page, IDC_COMMAND_INSERT));
  Say(Page, IDC_COMMAND_TEXT, EN_KILLFOCUS);
  user.Expect(Insertion(0));
  Click(Page, IDC_COMMAND_INSERT);
  EXPECT_EQ("A\\eB", Text(0));
  DWORD first = 0;
  DWORD last = 0;
  SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
  EXPECT_EQ(3u, first);
  EXPECT_EQ(3u, last);
}

TEST_F(UserCommandsPageTest, InsertionCountsWithoutWhatItReplaces) {
  Open();
  DialogDriver user;
  ChooseLine(Page, IDC_COMMAND_POINTS, 3);
  Type(Page, IDC_COMMAND_TEXT, std::wstring(250, L'x'));
  SendDlgItemMessageW(Page, IDC_COMMAND_TEXT, EM_SETSEL, 0, 2);
  user.Expect(Insertion(0));
  Click(Page, IDC_COMMAND_INSERT);
  EXPECT_EQ("\\e" + std::string(248, 'x'), Text(3));
}

TEST_F(UserCommandsPageTest, CancelledInsertionChangesNothing) {
  Open();
  DialogDriver user;
  user.Expect([](HWND dialog) { Press(dialog, IDCANCEL); });
  Click(Page, IDC_COMMAND_INSERT);
  EXPECT_EQ("", Text(0));
}

TEST_F(UserCommandsPageTest, InsertionThatDoesNotFitIsRefused) {
  Open();
  DialogDriver user;
  ChooseLine(Page, IDC_COMMAND_POINTS, 3);
  Type(Page, IDC_COMMAND_TEXT, std::wstring(249, L'x'));
  SendDlgItemMessageW(Page, IDC_COMMAND_TEXT, EM_SETSEL, 249, 249);
  user.Expect(Insertion(1));
  user.Answer(IDOK);
  Click(Page, IDC_COMMAND_INSERT);
  EXPECT_EQ(std::string(249, 'x'), Text(3));
  EXPECT_EQ("User Commands|The command is too long. It can have at most 250 bytes.",
            user.Messages.at(0));
}

TEST_F(UserCommandsPageTest, FileIsLoadedAsEscapes) {
  Open();
  TempDirectory files;
  FakeWindows windows;
  windows.ChosenFile = files
                           .Put("cut.prn", std::string("\x1B"
                                                       "h\r\nCUT\x00",
                                                       7))
                           .c_str();
  Session().Windows = &windows;
  Click(Page, IDC_COMMAND_LOAD);
  Session().Windows = nullptr;
  EXPECT_EQ("file Load Command from File 2337*.prn", windows.Calls.at(0));
  EXPECT_EQ("\\eh\r\nCUT", Text(0).substr(0, 9));
  EXPECT_EQ(Text(0), Narrow(Page, IDC_COMMAND_TEXT));
  EXPECT_TRUE(SheetChanged);
}

TEST_F(UserCommandsPageTest, FileThatIsTooLongOrMissingChangesNothing) {
  Open();
  DialogDriver user;
  user.Answer(IDOK);
  user.Answer(IDOK);
  TempDirectory files;
  FakeWindows windows;
  Session().Windows = &windows;
  windows.ChosenFile = files.Put("long.prn", std::string(100000, 'x')).c_str();
  Click(Page, IDC_COMMAND_LOAD);
  windows.ChosenFile = files.Path("none.prn").c_str();
  Click(Page, IDC_COMMAND_LOAD);
  windows.ChosenFile = OString();
  Click(Page, IDC_COMMAND_LOAD);
  Session().Windows = nullptr;
  EXPECT_EQ("", Text(0));
  EXPECT_EQ("User Commands|The command is too long. It can have at most 255 bytes.",
            user.Messages.at(0));
  EXPECT_EQ("User Commands|The file \"none.prn\" cannot be read.", user.Messages.at(1));
}

TEST_F(UserCommandsPageTest, HostileTextStaysInItsSlot) {
  Open();
  for (int point = 0; point < 4; ++point) {
    ChooseLine(Page, IDC_COMMAND_POINTS, point);
    for (const std::wstring& text : HostileTexts()) {
      const std::vector<uint8_t> before = Block();
      Type(Page, IDC_COMMAND_TEXT, text);
      std::vector<uint8_t> after = Block();
      ASSERT_EQ(before.size(), after.size());
      const size_t start = 1516 - 1132 + static_cast<size_t>(point) * 256;
      const size_t end = start + (point == 3 ? 252 : 256);
      for (size_t i = 0; i < after.size(); ++i) {
        if (i >= start && i < end) continue;
        ASSERT_EQ(before[i], after[i]) << i;
      }
      EXPECT_LE(Text(point).size(), point == 3 ? 250u : 255u);
    }
  }
}

class DriverOptionsPageTest : public PagesTest {
 protected:
  HWND Open() {
    if (!Printer) {
      ModelText text = WideModelText();
      text.Features = "Status.Ports=USB\n";
      AddLabelPrinter(text);
    }
    Page = OpenPage("*:ADVANCED/DRIVER_OPTIONS");
    Options.Bind(Session().Model);
    return Page;
  }
  HWND List() { return GetDlgItem(Page, IDC_OPTION_LIST); }
  std::string Cell(int row, int column) {
    wchar_t text[512] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 512;
    SendMessageW(List(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return Utf8(text);
  }
  // The row of that label; -1.
  int Row(const std::string& label) {
    const auto count = static_cast<int>(SendMessageW(List(), LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      if (Cell(row, 0) == label) return row;
    }
    return -1;
  }
  std::string Value(const std::string& label) { return Cell(Row(label), 1); }
  void SelectRow(int row) {
    LVITEMW item = {};
    item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
  }
  void Select(const std::string& label) {
    ASSERT_GE(Row(label), 0) << label;
    SelectRow(Row(label));
  }
  int StoredByte(const char* key) { return Store().ReadByte(OString("Settings:") + key, 99); }

  DriverOptions Options;
  HWND Page = nullptr;
};

constexpr char kOverride[] = "Specifications: override the model's";
constexpr char kMaximumWidth[] = "Specifications: maximum page width";

TEST_F(DriverOptionsPageTest, ShowsTheOptionsWithTheirValues) {
  Open();
  EXPECT_EQ("Off", Value("Ignore the limit on copies"));
  EXPECT_EQ("As the model has it", Value(kMaximumWidth));
  EXPECT_EQ("30000 ms", Value("Status: time-out for sending"));
  EXPECT_EQ(-1, Row("Function character"));
}

TEST_F(DriverOptionsPageTest, ChoiceGoesToTheStoreWhenItIsApplied) {
  Open();
  Select("Ignore the limit on copies");
  EXPECT_TRUE(IsShown(Page, IDC_OPTION_CHOICE));
  EXPECT_FALSE(IsShown(Page, IDC_OPTION_TEXT));
  EXPECT_EQ("<Off>;On", Lines(Page, IDC_OPTION_CHOICE));
  Choose(Page, IDC_OPTION_CHOICE, 1);
  EXPECT_EQ("On", Value("Ignore the limit on copies"));
  EXPECT_TRUE(SheetChanged);
  EXPECT_EQ(99, StoredByte("Disable Copies Limit"));
  EXPECT_EQ(0, SheetNotify(Page, PSN_APPLY));
  EXPECT_EQ(1, StoredByte("Disable Copies Limit"));
  EXPECT_FALSE(SheetChanged);
}

TEST_F(DriverOptionsPageTest, OptionsThatCanNotBeSavedAreToldAndStayEdited) {
  Open();
  DialogDriver user;
  user.Answer(IDOK);
  user.Answer(IDOK);
  Select("Ignore the limit on copies");
  Choose(Page, IDC_OPTION_CHOICE, 1);
  RefuseWrites();
  SheetNotify(Page, PSN_APPLY);
  SheetNotify(Page, PSN_APPLY);
  ASSERT_EQ(2u, user.Messages.size());
  EXPECT_EQ("Driver Options|The driver options could not be saved.", user.Messages[0]);
  EXPECT_EQ("On", Value("Ignore the limit on copies"));
}

TEST_F(DriverOptionsPageTest, CancelDropsTheEdits) {
  Open();
  const std::string store = StoreDump();
  Select("Ignore the limit on copies");
  Choose(Page, IDC_OPTION_CHOICE, 1);
  SheetNotify(Page, PSN_RESET);
  EXPECT_FALSE(Options.GetDisableCopiesLimit());
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(DriverOptionsPageTest, OpeningAndApplyingWritesNothing) {
  Open();
  const std::string store = StoreDump();
  for (int row = 0; row < 20; ++row) SelectRow(row);
  EXPECT_FALSE(SheetChanged);
  SheetNotify(Page, PSN_APPLY);
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
}

TEST_F(DriverOptionsPageTest, SpecificationsAreFreeOnlyWhileTheyAreInForce) {
  Open();
  Select(kMaximumWidth);
  EXPECT_TRUE(IsShown(Page, IDC_OPTION_TEXT));
  EXPECT_FALSE(IsEnabled(Page, IDC_OPTION_TEXT));
  Select(kOverride);
  Choose(Page, IDC_OPTION_CHOICE, 1);
  Select(kMaximumWidth);
  EXPECT_TRUE(IsEnabled(Page, IDC_OPTION_TEXT));
  Type(Page, IDC_OPTION_TEXT, L"4 in");
  EXPECT_EQ("101.6 mm", Narrow(Page, IDC_OPTION_TEXT));
  EXPECT_EQ("101.6 mm", Value(kMaximumWidth));
  EXPECT_EQ(101600, Options.GetMaximumPageWidth());
  Type(Page, IDC_OPTION_TEXT, L"");
  EXPECT_EQ("As the model has it", Value(kMaximumWidth));
}

TEST_F(DriverOptionsPageTest, AppliedSpecificationsChangeTheModel) {
  Open();
  Select(kOverride);
  Choose(Page, IDC_OPTION_CHOICE, 1);
  Select(kMaximumWidth);
  Type(Page, IDC_OPTION_TEXT, L"40 mm");
  SheetNotify(Page, PSN_APPLY);
  EXPECT_EQ(40000, Session().Model->GetMaximumX().ToMicrons());
}

TEST_F(DriverOptionsPageTest, AdvancedLengthIsTheDocuments) {
  Open();
  const std::string store = StoreDump();
  Select("Document: advanced length");
  EXPECT_FALSE(IsEnabled(Page, IDC_OPTION_TEXT));
  Select("Document: use its own advanced length");
  EXPECT_EQ("<Off>;On", Lines(Page, IDC_OPTION_CHOICE));
  Choose(Page, IDC_OPTION_CHOICE, 1);
  EXPECT_TRUE(SheetChanged);
  Select("Document: advanced length");
  EXPECT_TRUE(IsEnabled(Page, IDC_OPTION_TEXT));
  Type(Page, IDC_OPTION_TEXT, L"0");
  EXPECT_EQ("0.0 mm", Value("Document: advanced length"));
  Type(Page, IDC_OPTION_TEXT, L"1 in");
  EXPECT_EQ(25400, Session().DevModeBuffer.GetAdvancedLength());
  EXPECT_TRUE(Session().DevModeBuffer.UsesAdvancedLength());
  EXPECT_EQ("", DumpDifference(store, StoreDump()));
  SheetNotify(Page, PSN_RESET);
  EXPECT_FALSE(Session().DevModeBuffer.UsesAdvancedLength());
  EXPECT_EQ(6350, Session().DevModeBuffer.GetAdvancedLength());
}

TEST_F(DriverOptionsPageTest, LockedOptionsCanOnlyBeLookedAt) {
  AddLabelPrinter();
  Lock();
  Open();
  Select("Ignore the limit on copies");
  EXPECT_FALSE(IsEnabled(Page, IDC_OPTION_CHOICE));
  Select("Logging: folder");
  EXPECT_FALSE(IsEnabled(Page, IDC_OPTION_TEXT));
}

TEST_F(DriverOptionsPageTest, HostileTextStaysInsideTheBounds) {
  Open();
  Select(kOverride);
  Choose(Page, IDC_OPTION_CHOICE, 1);
  for (const char* label : {"Status: time-out for sending", kMaximumWidth, "Logging: folder"}) {
    Select(label);
    for (const std::wstring& text : HostileTexts()) {
      SetDlgItemTextW(Page, IDC_OPTION_TEXT, text.c_str());
      EXPECT_GE(Options.GetWriteTimeout(), 0);
      EXPECT_LE(Options.GetWriteTimeout(), 3600000);
      EXPECT_GE(Options.GetMaximumPageWidth(), 0);
      EXPECT_LE(Options.GetMaximumPageWidth(), 3276700);
      EXPECT_LE(Options.GetText(DriverOption::kDirectory).Length(), 259);
      Say(Page, IDC_OPTION_TEXT, EN_KILLFOCUS);
    }
  }
}

}  // namespace
}  // namespace ostvt::test
