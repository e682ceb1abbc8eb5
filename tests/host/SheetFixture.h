// The preferences sheet of a printer in the system's own host.
#pragma once

#include <gtest/gtest.h>

#include "HostEnvironment.h"
#include "SheetUser.h"
#include "language/resource.h"

namespace host {

// By the stock editor; it is chosen from then on.
inline void AddStockInSheet(const wchar_t* name) {
  using namespace sheetuser;
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

// The chosen stock, with yes to the question.
inline void DeleteStockInSheet() {
  using namespace sheetuser;
  HWND stock = WaitForControl(IDC_STOCK);
  const int count = CountOf(stock);
  Press(WaitForControl(IDC_STOCK_DELETE));
  HWND yes = WaitForControl(IDYES);
  ASSERT_NE(yes, nullptr) << "nobody is asked";
  HWND question = SheetOf(yes);
  Press(yes);
  ASSERT_TRUE(WaitUntilGone(question));
  EXPECT_EQ(CountOf(stock), count - 1);
}

inline void CloseSheet(int id) {
  using namespace sheetuser;
  HWND sheet = SheetOf(WaitForControl(IDC_STOCK));
  ASSERT_NE(sheet, nullptr);
  Close(sheet, id);
  ASSERT_TRUE(WaitUntilGone(sheet));
}

class SheetInHost : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Printer.IsReady()); }

  // Opens the sheet over `input` (may be null) and lets `work` have it. The host's answer.
  template <class Work>
  LONG Open(GuardedBlock* output, const DEVMODEW* input, Work work) {
    LONG result = -1;
    const DWORD flags = DM_IN_PROMPT | DM_OUT_BUFFER | (input ? DM_IN_BUFFER : 0u);
    const auto open = [&] { result = Properties(Printer, output->Mode(), input, flags); };
    EXPECT_TRUE(sheetuser::Attend(open, work));
    EXPECT_TRUE(output->GuardsAreWhole());
    return result;
  }

  HostPrinter Printer{kPrinterName};
};

}  // namespace host
