// The preferences in a host that speaks the whole protocol, worked by messages as a user works
// them.

#include <gtest/gtest.h>

#include <cstring>
#include <string_view>

#include "ProtocolHost.h"
#include "SheetFixture.h"
#include "settings/DriverSession.h"

namespace host {
namespace {

using namespace sheetuser;

constexpr uint32_t kCopy = 2;
constexpr uint32_t kMerge = 8;
constexpr wchar_t kForms[] = L"SOFTWARE\\Vantrel\\Drivers\\Paper Sizes";

bool IsEverythingDisabled(HWND page) {
  bool isEnabled = false;
  EnumChildWindows(
      page,
      [](HWND control, LPARAM parameter) -> BOOL {
        *reinterpret_cast<bool*>(parameter) |= IsWindowEnabled(control) != FALSE;
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&isEnabled));
  return !isEnabled;
}

class SheetInProtocolHost : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    ASSERT_TRUE(Host.IsReady());
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kForms);
  }
  void TearDown() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kForms); }
  // The host's answer while `work` has the sheet.
  template <class Work>
  bool Open(GuardedBlock* output, std::vector<BYTE>* input, Work work) {
    bool accepted = false;
    const auto open = [&] {
      accepted =
          Host.Run(input ? input->data() : nullptr, output->Data(), kCopy | (input ? kMerge : 0));
    };
    EXPECT_TRUE(Attend(open, work));
    EXPECT_TRUE(output->GuardsAreWhole());
    return accepted;
  }
  // Keeps every user from the printer's settings.
  void Lock() {
    const DWORD level = 4;
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, SettingsKey().c_str(), L"Local Access Level",
                              REG_DWORD, &level, sizeof level),
              ERROR_SUCCESS);
  }
  std::wstring SettingsKey() const {
    return PrinterKey(Printer.Name()) + L"\\PrinterDriverData\\Settings";
  }
  // The printer's list gets a stock, and the device mode that is given back has it.
  std::vector<BYTE> BlockWithStock(const wchar_t* name) {
    GuardedBlock output(kDevModeSize);
    EXPECT_TRUE(Open(&output, nullptr, [&] {
      AddStockInSheet(name);
      CloseSheet(IDOK);
    }));
    EXPECT_STREQ(output.Mode()->dmFormName, name);
    return output.Copy();
  }
  // What came in, byte for byte, after a sheet in which `work` was done.
  template <class Work>
  void ExpectCancelGives(std::vector<BYTE>* input, Work work) {
    GuardedBlock output(kDevModeSize);
    bool isDone = false;
    EXPECT_FALSE(Open(&output, input, [&] {
      work();
      CloseSheet(IDCANCEL);
      isDone = true;
    }));
    EXPECT_TRUE(isDone);
    EXPECT_EQ(output.Copy(), *input);
  }
  static std::wstring ChosenStock() {
    HWND stock = WaitForControl(IDC_STOCK);
    return ItemOf(stock, ChosenOf(stock));
  }

  HostPrinter Printer{kPrinterName};
  ProtocolHost Host{Printer.Name(), Printer.Get()};
};

TEST_F(SheetInProtocolHost, ChoicesArriveWithTheResult) {
  GuardedBlock output(kDevModeSize);
  EXPECT_TRUE(Open(&output, nullptr, [] {
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    CloseSheet(IDOK);
  }));
  EXPECT_EQ(Host.PageCount, 2u);
  // By the first page's handle, once for each page that was applied.
  EXPECT_GE(Host.Results, 1);
  EXPECT_EQ(output.Mode()->dmSize, kPublicSize);
  EXPECT_EQ(output.Mode()->dmOrientation, DMORIENT_LANDSCAPE);
}

TEST_F(SheetInProtocolHost, CancelGivesTheBlockAsItWasAtTheStart) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  GuardedBlock output(kDevModeSize);
  EXPECT_FALSE(Open(&output, &input, [] {
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    CloseSheet(IDCANCEL);
  }));
  EXPECT_EQ(output.Copy(), input);
  EXPECT_EQ(Host.Results, 0);
}

TEST_F(SheetInProtocolHost, AppliedSettingsSurviveACancel) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  GuardedBlock output(kDevModeSize);
  Open(&output, &input, [] {
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    HWND sheet = SheetOf(WaitForControl(IDC_STOCK));
    constexpr int kApply = 0x3021;
    HWND apply = GetDlgItem(sheet, kApply);
    for (int i = 0; i < 100 && !IsWindowEnabled(apply); ++i) Sleep(20);
    ASSERT_TRUE(IsWindowEnabled(apply)) << "a change is not seen";
    Press(apply);
    for (int i = 0; i < 100 && IsWindowEnabled(apply); ++i) Sleep(20);
    EXPECT_FALSE(IsWindowEnabled(apply));
    Press(WaitForControl(IDC_ORIENTATION_PORTRAIT));
    CloseSheet(IDCANCEL);
  });
  EXPECT_EQ(output.Mode()->dmOrientation, DMORIENT_LANDSCAPE);
}

TEST_F(SheetInProtocolHost, NothingChangedLeavesApplyDisabled) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  GuardedBlock output(kDevModeSize);
  EXPECT_TRUE(Open(&output, &input, [] {
    HWND sheet = SheetOf(WaitForControl(IDC_STOCK));
    // There and back again is no change.
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    Press(WaitForControl(IDC_ORIENTATION_PORTRAIT));
    HWND apply = GetDlgItem(sheet, 0x3021);
    for (int i = 0; i < 100 && IsWindowEnabled(apply); ++i) Sleep(20);
    EXPECT_FALSE(IsWindowEnabled(apply));
    CloseSheet(IDOK);
  }));
  EXPECT_EQ(output.Copy(), input);
}

TEST_F(SheetInProtocolHost, LockedSheetIsForReading) {
  std::vector<BYTE> input = BlockWithStock(L"Shelf 70 x 35");
  Lock();
  const std::string store = StoreDump(Printer.Name());
  GuardedBlock output(kDevModeSize);
  bool isDone = false;
  const bool accepted = Open(&output, &input, [&] {
    HWND stock = WaitForControl(IDC_STOCK);
    ASSERT_NE(stock, nullptr);
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_STOCK_NEW)));
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_STOCK_DELETE)));
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_PRESETS)));

    HWND view = WaitForControl(IDC_STOCK_EDIT);
    EXPECT_EQ(TextOf(view), L"V&iew...");
    EXPECT_TRUE(IsWindowEnabled(view));
    Press(view);
    HWND name = WaitForControl(IDC_STOCK_NAME);
    ASSERT_NE(name, nullptr);
    HWND dialog = WindowOf(name);
    EXPECT_EQ(TextOf(name), L"Shelf 70 x 35");
    for (int id = IDC_STOCK_NAME; id <= IDC_MARGIN_BOTTOM; ++id)
      EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, id))) << id;
    Close(dialog, IDOK);
    ASSERT_TRUE(WaitUntilGone(dialog));

    // The size of the user form is the document's.
    const int chosen = ChosenOf(stock);
    Choose(stock, 0);
    EXPECT_EQ(TextOf(view), L"&Edit...");
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_STOCK_DELETE)));
    Choose(stock, chosen);
    EXPECT_EQ(TextOf(view), L"V&iew...");

    Press(WaitForControl(IDC_ADVANCED));
    HWND points = WaitForControl(IDC_COMMAND_POINTS);
    ASSERT_NE(points, nullptr) << "no Advanced sheet";
    HWND advanced = SheetOf(points);
    TurnTo(advanced, 1);
    HWND list = WaitForControl(advanced, IDC_OPTION_LIST);
    ASSERT_NE(list, nullptr);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(WindowOf(list), IDC_OPTION_CHOICE)));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(WindowOf(list), IDC_OPTION_TEXT)));
    Close(advanced, IDOK);
    ASSERT_TRUE(WaitUntilGone(advanced));
    CloseSheet(IDOK);
    isDone = true;
  });
  EXPECT_TRUE(isDone);
  EXPECT_TRUE(accepted);
  EXPECT_EQ(output.Copy(), input);
  EXPECT_EQ(StoreDump(Printer.Name()), store);
}

// Buttons that can't be pressed do nothing for a program that presses them all the same.
TEST_F(SheetInProtocolHost, LockedButtonsDoNothingWhenAProgramPressesThem) {
  std::vector<BYTE> input = BlockWithStock(L"Shelf 70 x 35");
  Lock();
  const std::string store = StoreDump(Printer.Name());
  GuardedBlock output(kDevModeSize);
  Open(&output, &input, [&] {
    HWND stock = WaitForControl(IDC_STOCK);
    ASSERT_NE(stock, nullptr);
    HWND page = WindowOf(stock);
    for (const int id : {IDC_STOCK_NEW, IDC_STOCK_DELETE}) {
      SendMessageTimeoutW(page, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                          reinterpret_cast<LPARAM>(GetDlgItem(page, id)), SMTO_NORMAL, 2000,
                          nullptr);
      EXPECT_TRUE(IsWindowEnabled(SheetOf(stock))) << id << " opened a window";
    }
    EXPECT_EQ(CountOf(stock), 2);
    CloseSheet(IDOK);
  });
  EXPECT_EQ(output.Copy(), input);
  EXPECT_EQ(StoreDump(Printer.Name()), store);
}

// What comes by the interface is given this model's private part first, so the block is damaged
// behind that. OK finds nothing to apply and keeps the sheet.
TEST_F(SheetInProtocolHost, PageOfAForeignPrivateBlockIsForReadingOnly) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  const std::string store = StoreDump(Printer.Name());
  BYTE* block = nullptr;
  std::vector<BYTE> damaged;
  Host.AtStart = [&](ostvt::DriverSession* session) {
    block = session->DevModeBuffer.GetBlock();
    ASSERT_EQ(std::memcmp(block + kDevModeSize - 5, "ost", 3), 0);
    std::memcpy(block + kDevModeSize - 5, "xyz", 3);
    damaged.assign(block, block + kDevModeSize);
  };
  GuardedBlock output(kDevModeSize);
  bool isDone = false;
  const bool accepted = Open(&output, &input, [&] {
    HWND stock = WaitForControl(IDC_STOCK);
    ASSERT_NE(stock, nullptr);
    HWND sheet = SheetOf(stock);
    EXPECT_TRUE(IsEverythingDisabled(WindowOf(stock)));
    // It is not filled either.
    EXPECT_EQ(CountOf(stock), 0);
    TurnTo(sheet, 1);
    TurnTo(sheet, 0);
    DWORD_PTR ignored = 0;
    EXPECT_TRUE(SendMessageTimeoutW(sheet, WM_COMMAND, IDOK, 0, SMTO_NORMAL, 5000, &ignored));
    EXPECT_TRUE(IsWindow(sheet) && IsWindowVisible(sheet) && IsWindowEnabled(sheet));
    EXPECT_EQ(Host.Results, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::vector<BYTE>(block, block + kDevModeSize), damaged);
    CloseSheet(IDCANCEL);
    isDone = true;
  });
  EXPECT_TRUE(isDone);
  EXPECT_FALSE(accepted);
  EXPECT_EQ(Host.Results, 0);
  EXPECT_EQ(output.Copy(), input);
  EXPECT_EQ(StoreDump(Printer.Name()), store);
}

// The list is the printer's and is kept at once; the block is the document's.
TEST_F(SheetInProtocolHost, CancelAfterDeletingTheDocumentsStockGivesItsBlockAsItCameIn) {
  std::vector<BYTE> input = BlockWithStock(L"Shelf 70 x 35");
  ExpectCancelGives(&input, [] {
    EXPECT_EQ(ChosenStock().substr(0, 15), L"Shelf 70 x 35 (");
    DeleteStockInSheet();
  });
  // A stock that is gone is the user form of its size, from the next sheet on.
  GuardedBlock later(kDevModeSize);
  Open(&later, &input, [&] {
    EXPECT_EQ(CountOf(WaitForControl(IDC_STOCK)), 1);
    EXPECT_EQ(ChosenStock().substr(0, 6), L"USER (");
    CloseSheet(IDOK);
  });
  EXPECT_EQ(later.Mode()->dmPaperSize, 256);
  const auto* was = reinterpret_cast<const DEVMODEW*>(input.data());
  EXPECT_EQ(later.Mode()->dmPaperWidth, was->dmPaperWidth);
  EXPECT_EQ(later.Mode()->dmPaperLength, was->dmPaperLength);
}

TEST_F(SheetInProtocolHost, CancelAfterAddingAStockGivesTheBlockAsItCameIn) {
  // Its name lies behind the new one's, so the numbers of both change.
  std::vector<BYTE> input = BlockWithStock(L"Shelf 70 x 35");
  ExpectCancelGives(&input, [] {
    AddStockInSheet(L"A small one");
    EXPECT_EQ(ChosenStock().substr(0, 13), L"A small one (");
  });
  GuardedBlock later(kDevModeSize);
  Open(&later, &input, [&] {
    EXPECT_EQ(CountOf(WaitForControl(IDC_STOCK)), 3);
    CloseSheet(IDCANCEL);
  });
}

// A caller that has one block for both.
TEST_F(SheetInProtocolHost, CancelAfterEditingTheListLeavesACallersOneBlock) {
  for (const bool isDeleted : {false, true}) {
    // The numbers in a block are those of the list as it was then.
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kForms);
    const std::vector<BYTE> input = BlockWithStock(L"Shelf 70 x 35");
    GuardedBlock both(kDevModeSize);
    std::memcpy(both.Data(), input.data(), input.size());
    const auto open = [&] { EXPECT_FALSE(Host.Run(both.Data(), both.Data(), kCopy | kMerge)); };
    EXPECT_TRUE(Attend(open, [&] {
      if (isDeleted) {
        DeleteStockInSheet();
      } else {
        AddStockInSheet(L"A small one");
      }
      CloseSheet(IDCANCEL);
    }));
    EXPECT_EQ(both.Copy(), input) << isDeleted;
    EXPECT_TRUE(both.GuardsAreWhole());
  }
}

}  // namespace
}  // namespace host
