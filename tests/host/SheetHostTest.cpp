// The preferences sheet in the system's own host, worked by messages as a user works it.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "HostEnvironment.h"
#include "SheetUser.h"
#include "language/resource.h"

namespace host {
namespace {

using namespace sheetuser;

class SheetInHost : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Printer.IsReady()); }

  // Opens the sheet over `input` (may be null) and lets `work` have it. The host's answer.
  template <class Work>
  LONG Open(GuardedBlock* output, const DEVMODEW* input, Work work) {
    LONG result = -1;
    const DWORD flags = DM_IN_PROMPT | DM_OUT_BUFFER | (input ? DM_IN_BUFFER : 0u);
    EXPECT_TRUE(Attend([&] { result = Properties(Printer, output->Mode(), input, flags); }, work));
    EXPECT_TRUE(output->GuardsAreWhole());
    return result;
  }
  // By the stock editor; it is chosen from then on.
  static void AddStock(const wchar_t* name) {
    HWND stock = WaitForControl(IDC_STOCK);
    const int count = CountOf(stock);
    Press(WaitForControl(IDC_STOCK_NEW));
    HWND edit = WaitForControl(IDC_STOCK_NAME);
    ASSERT_NE(edit, nullptr);
    HWND dialog = WindowOf(edit);
    Type(edit, name);
    Type(WaitForControl(dialog, IDC_STOCK_WIDTH), L"70 mm");
    Type(WaitForControl(dialog, IDC_STOCK_HEIGHT), L"35 mm");
    Close(dialog, IDOK);
    ASSERT_TRUE(WaitUntilGone(dialog));
    EXPECT_EQ(CountOf(stock), count + 1);
  }
  static void CloseSheet(int id) {
    HWND sheet = SheetOf(WaitForControl(IDC_STOCK));
    ASSERT_NE(sheet, nullptr);
    Close(sheet, id);
    ASSERT_TRUE(WaitUntilGone(sheet));
  }

  HostPrinter Printer{kPrinterName};
};

TEST_F(SheetInHost, ChoicesArriveInTheCallersDevMode) {
  GuardedBlock output(kDevModeSize);
  bool isDone = false;
  const LONG result = Open(&output, nullptr, [&] {
    ASSERT_NE(WaitForControl(IDC_STOCK), nullptr) << "the sheet has no Page Setup page";
    AddStock(L"Shelf 70 x 35");
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    CloseSheet(IDOK);
    isDone = true;
  });
  ASSERT_TRUE(isDone);
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(output.Mode()->dmSize, kPublicSize);
  EXPECT_EQ(output.Mode()->dmOrientation, DMORIENT_LANDSCAPE);
  EXPECT_TRUE(std::wstring_view(output.Mode()->dmFormName) == L"Shelf 70 x 35");
  EXPECT_EQ(output.Mode()->dmPaperLength, 350);
}

TEST_F(SheetInHost, ChoiceIsThereWhenTheSheetOpensAgain) {
  GuardedBlock first(kDevModeSize);
  ASSERT_EQ(Open(&first, nullptr,
                 [&] {
                   Choose(WaitForControl(IDC_STOCK), 1);
                   Press(WaitForControl(IDC_ORIENTATION_ROTATED_LANDSCAPE));
                   CloseSheet(IDOK);
                 }),
            IDOK);
  GuardedBlock second(kDevModeSize);
  Open(&second, first.Mode(), [&] {
    HWND stock = WaitForControl(IDC_STOCK);
    // "NAME (WIDTH x HEIGHT)"
    EXPECT_EQ(ItemOf(stock, ChosenOf(stock)).substr(0, 15), L"Shelf 70 x 35 (");
    EXPECT_TRUE(IsChecked(WaitForControl(IDC_ORIENTATION_ROTATED_LANDSCAPE)));
    EXPECT_FALSE(IsChecked(WaitForControl(IDC_ORIENTATION_PORTRAIT)));
    CloseSheet(IDOK);
  });
  EXPECT_EQ(first.Copy(), second.Copy());
}

// The host answers OK in both cases; what counts is the block.
TEST_F(SheetInHost, CancelledSheetLeavesTheStoreAndTheBlock) {
  const std::vector<BYTE> input = DefaultDevMode(Printer);
  const std::string store = StoreDump(kPrinterName);
  GuardedBlock output(kDevModeSize);
  Open(&output, reinterpret_cast<const DEVMODEW*>(input.data()), [&] {
    Choose(WaitForControl(IDC_STOCK), 1);
    Press(WaitForControl(IDC_ORIENTATION_LANDSCAPE));
    CloseSheet(IDCANCEL);
  });
  EXPECT_EQ(output.Copy(), std::vector<BYTE>(kDevModeSize, 0xCC));
  EXPECT_EQ(StoreDump(kPrinterName), store);
}

TEST_F(SheetInHost, WhatAnInnerSheetAppliedIsDroppedWithTheOuterOne) {
  const std::vector<BYTE> input = DefaultDevMode(Printer);
  GuardedBlock output(kDevModeSize);
  Open(&output, reinterpret_cast<const DEVMODEW*>(input.data()), [&] {
    Press(WaitForControl(IDC_ADVANCED));
    HWND text = WaitForControl(IDC_COMMAND_TEXT);
    ASSERT_NE(text, nullptr) << "no Advanced sheet";
    Type(text, L"^PW800");
    HWND advanced = SheetOf(text);
    Close(advanced, IDOK);
    ASSERT_TRUE(WaitUntilGone(advanced));
    CloseSheet(IDCANCEL);
  });
  EXPECT_EQ(output.Copy(), std::vector<BYTE>(kDevModeSize, 0xCC));
}

TEST_F(SheetInHost, UserCommandsArriveWithBothSheets) {
  GuardedBlock output(kDevModeSize);
  Open(&output, nullptr, [&] {
    Press(WaitForControl(IDC_ADVANCED));
    HWND text = WaitForControl(IDC_COMMAND_TEXT);
    ASSERT_NE(text, nullptr) << "no Advanced sheet";
    Type(text, L"^PW800");
    HWND advanced = SheetOf(text);
    Close(advanced, IDOK);
    ASSERT_TRUE(WaitUntilGone(advanced));
    CloseSheet(IDOK);
  });
  const std::vector<BYTE> block = output.Copy();
  constexpr char kCommand[] = "^PW800";
  EXPECT_NE(std::search(block.begin(), block.end(), kCommand, kCommand + 6), block.end());
}

TEST_F(SheetInHost, DeletedStockIsGone) {
  GuardedBlock output(kDevModeSize);
  Open(&output, nullptr, [&] {
    HWND stock = WaitForControl(IDC_STOCK);
    const int count = CountOf(stock);
    Choose(stock, 1);
    Press(WaitForControl(IDC_STOCK_DELETE));
    HWND yes = WaitForControl(IDYES);
    ASSERT_NE(yes, nullptr) << "nobody is asked";
    HWND question = SheetOf(yes);
    Press(yes);
    ASSERT_TRUE(WaitUntilGone(question));
    EXPECT_EQ(CountOf(stock), count - 1);
    CloseSheet(IDOK);
  });
  Open(&output, nullptr, [&] {
    EXPECT_EQ(CountOf(WaitForControl(IDC_STOCK)), 1);
    CloseSheet(IDCANCEL);
  });
}

TEST_F(SheetInHost, OkWithoutAChangeGivesTheBlockAsItWas) {
  const std::vector<BYTE> input = DefaultDevMode(Printer);
  GuardedBlock output(kDevModeSize);
  EXPECT_EQ(
      Open(&output, reinterpret_cast<const DEVMODEW*>(input.data()), [&] { CloseSheet(IDOK); }),
      IDOK);
  EXPECT_EQ(output.Copy(), input);
}

TEST_F(SheetInHost, HostileTextIsHeldOff) {
  GuardedBlock output(kDevModeSize);
  Open(&output, nullptr, [&] {
    const std::wstring texts[] = {std::wstring(65536, L'W'),
                                  L"99999999999999999999 mm",
                                  L"-1 in",
                                  L"%s%n%s",
                                  L"\xD800\xDBFF",
                                  L""};
    for (const std::wstring& text : texts) {
      Press(WaitForControl(IDC_STOCK_EDIT));
      HWND width = WaitForControl(IDC_STOCK_WIDTH);
      ASSERT_NE(width, nullptr);
      HWND dialog = WindowOf(width);
      for (int id = IDC_STOCK_NAME; id <= IDC_MARGIN_BOTTOM; id++) {
        Type(GetDlgItem(dialog, id), text);
      }
      Close(dialog, IDCANCEL);
      ASSERT_TRUE(WaitUntilGone(dialog));
    }
    CloseSheet(IDCANCEL);
  });
}

}  // namespace
}  // namespace host
