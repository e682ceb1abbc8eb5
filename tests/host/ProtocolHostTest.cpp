// The preferences in a host that speaks the whole protocol, worked by messages as a user works
// them.

#include <gtest/gtest.h>

#include <string_view>

#include "HostEnvironment.h"
#include "ProtocolHost.h"
#include "SheetUser.h"
#include "language/resource.h"

namespace host {
namespace {

using namespace sheetuser;

constexpr uint32_t kCopy = 2;
constexpr uint32_t kMerge = 8;

class SheetInProtocolHost : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    ASSERT_TRUE(Host.IsReady());
  }
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
  static void CloseSheet(int id) {
    HWND sheet = SheetOf(WaitForControl(IDC_STOCK));
    ASSERT_NE(sheet, nullptr);
    Close(sheet, id);
    ASSERT_TRUE(WaitUntilGone(sheet));
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

// Above every user's level.
TEST_F(SheetInProtocolHost, LockedSheetIsForReading) {
  const std::wstring key = L"System\\CurrentControlSet\\Control\\Print\\Printers\\" +
                           Printer.Name() + L"\\PrinterDriverData\\Settings";
  const DWORD level = 4;
  ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Local Access Level", REG_DWORD,
                            &level, sizeof level),
            ERROR_SUCCESS);
  GuardedBlock output(kDevModeSize);
  Open(&output, nullptr, [] {
    ASSERT_NE(WaitForControl(IDC_STOCK), nullptr);
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_STOCK_NEW)));
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_STOCK_DELETE)));
    EXPECT_FALSE(IsWindowEnabled(WaitForControl(IDC_PRESETS)));
    CloseSheet(IDCANCEL);
  });
  RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Local Access Level");
}

}  // namespace
}  // namespace host
