// Printer names as people really give them.

#include <gtest/gtest.h>

#include "HostEnvironment.h"

namespace host {
namespace {

class NamesHost : public testing::TestWithParam<const wchar_t*> {};

TEST_P(NamesHost, PrinterAnswersUnderItsName) {
  HostPrinter printer(GetParam());
  ASSERT_TRUE(printer.IsReady());
  EXPECT_EQ(Properties(printer, nullptr, nullptr, 0), kDevModeSize);
  std::vector<BYTE> block = DefaultDevMode(printer);
  const DEVMODEW* mode = reinterpret_cast<const DEVMODEW*>(block.data());
  EXPECT_EQ(mode->dmPrintQuality, 203);
  // The device name is the printer's, cut to 31 units but never inside a surrogate pair.
  size_t length = wcsnlen(mode->dmDeviceName, 32);
  ASSERT_LT(length, 32u);
  EXPECT_EQ(std::wstring(mode->dmDeviceName), printer.Name().substr(0, length));
  ASSERT_GT(length, 0u);
  EXPECT_FALSE(IS_HIGH_SURROGATE(mode->dmDeviceName[length - 1]));
  EXPECT_EQ(Capability(printer.Name(), DC_SIZE), kPublicSize);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NamesHost,
    testing::Values(
        L"Plain", L"Dock 4, left \"door\"", L"\x041F\x0440\x0438\x043D\x0442\x0435\x0440 \x2116 5",
        L"\x30E9\x30D9\x30EB\x30D7\x30EA\x30F3\x30BF\x30FC", L"a/b:c%d",
        // Thirty units and then a character outside the basic plane.
        L"123456789012345678901234567890\xD83C\xDFF7 label",
        // 220 units.
        L"The printer at the packing line in hall three beside the second gate, used for the large "
        L"pallet labels of the night shift and for nothing else, please ask at the office before "
        L"you change its ribbon or any of its settings"));

}  // namespace
}  // namespace host
