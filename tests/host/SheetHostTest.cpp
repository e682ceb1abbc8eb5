// The preferences sheet in the system's own host, worked by messages as a user works it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "SheetFixture.h"

namespace host {
namespace {

using namespace sheetuser;

TEST_F(SheetInHost, ChoicesArriveInTheCallersDevMode) {
  GuardedBlock output(kDevModeSize);
  bool isDone = false;
  const LONG result = Open(&output, nullptr, [&] {
    ASSERT_NE(WaitForControl(IDC_STOCK), nullptr) << "the sheet has no Page Setup page";
    AddStockInSheet(L"Shelf 70 x 35");
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
    Choose(WaitForControl(IDC_STOCK), 1);
    DeleteStockInSheet();
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

// The public part counts for every printer; the private one is another model's.
TEST_F(SheetInHost, PrivatePartOfAnotherModelGivesWayToTheDefaults) {
  const std::vector<BYTE> defaults = DefaultDevMode(Printer);
  std::vector<BYTE> foreign = defaults;
  constexpr size_t kRecord = kPublicSize + 164;
  std::memcpy(foreign.data() + kRecord, "^XA", 4);
  ASSERT_EQ(std::memcmp(foreign.data() + kDevModeSize - 5, "ost", 3), 0);
  std::memcpy(foreign.data() + kDevModeSize - 5, "xyz", 3);
  reinterpret_cast<DEVMODEW*>(foreign.data())->dmCopies = 4;
  GuardedBlock output(kDevModeSize);
  EXPECT_EQ(Open(&output, reinterpret_cast<const DEVMODEW*>(foreign.data()),
                 [&] {
                   EXPECT_TRUE(IsWindowEnabled(WaitForControl(IDC_STOCK)));
                   EXPECT_TRUE(IsWindowEnabled(WaitForControl(IDC_ORIENTATION_LANDSCAPE)));
                   CloseSheet(IDOK);
                 }),
            IDOK);
  EXPECT_EQ(output.Mode()->dmCopies, 4);
  const std::vector<BYTE> block = output.Copy();
  EXPECT_TRUE(std::equal(block.begin() + kPublicSize, block.end(), defaults.begin() + kPublicSize));
}

}  // namespace
}  // namespace host
