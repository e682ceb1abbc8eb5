// Device modes as programs ask for them and hand them in, through the spooler.

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "HostEnvironment.h"

namespace host {
namespace {

class DocumentPropertiesHost : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Printer.IsReady()); }

  // What comes back when `input` goes in.
  std::vector<BYTE> Validate(const DEVMODEW* input) {
    GuardedBlock output(kDevModeSize);
    EXPECT_EQ(Properties(Printer, output.Mode(), input, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_TRUE(output.GuardsAreWhole());
    return output.Copy();
  }
  static const DEVMODEW* AsMode(const std::vector<BYTE>& block) {
    return reinterpret_cast<const DEVMODEW*>(block.data());
  }
  void ExpectSound(const std::vector<BYTE>& block) {
    const DEVMODEW* mode = AsMode(block);
    EXPECT_EQ(mode->dmSize, kPublicSize);
    EXPECT_EQ(mode->dmDriverExtra, kPrivateSize);
    EXPECT_EQ(mode->dmSpecVersion, 1025);
    EXPECT_TRUE(mode->dmOrientation == 1 || mode->dmOrientation == 2);
    EXPECT_EQ(mode->dmScale, 100);
    EXPECT_EQ(mode->dmDuplex, 1);
    EXPECT_EQ(mode->dmCollate, 0);
    EXPECT_EQ(mode->dmColor, 1);
    EXPECT_EQ(mode->dmPrintQuality, 203);
    EXPECT_EQ(mode->dmYResolution, 203);
    EXPECT_GE(mode->dmCopies, 1);
    EXPECT_EQ(mode->dmFields & ~0x1250Fu, 0u);
    EXPECT_EQ(std::memcmp(block.data() + 1516 - 8, "vtsost", 6), 0);
  }

  HostPrinter Printer{kPrinterName};
};

TEST_F(DocumentPropertiesHost, SizeIsThatOfTheWholeBlock) {
  EXPECT_EQ(Properties(Printer, nullptr, nullptr, 0), kDevModeSize);
  EXPECT_EQ(Properties(Printer, nullptr, nullptr, DM_OUT_BUFFER), kDevModeSize);
}

TEST_F(DocumentPropertiesHost, OutputIsFilledWhole) {
  // A block of each of two fillings: a byte that was left alone would differ between them.
  GuardedBlock first(kDevModeSize, 0x11);
  GuardedBlock second(kDevModeSize, 0xEE);
  ASSERT_EQ(Properties(Printer, first.Mode(), nullptr, DM_OUT_BUFFER), IDOK);
  ASSERT_EQ(Properties(Printer, second.Mode(), nullptr, DM_OUT_BUFFER), IDOK);
  EXPECT_EQ(first.Copy(), second.Copy());
  EXPECT_TRUE(first.GuardsAreWhole());
  EXPECT_TRUE(second.GuardsAreWhole());
  ExpectSound(first.Copy());
}

TEST_F(DocumentPropertiesHost, GoodInputIsTakenOver) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(input.data());
  mode->dmOrientation = DMORIENT_LANDSCAPE;
  mode->dmCopies = 7;
  mode->dmPaperWidth = 800;
  mode->dmPaperLength = 1200;
  std::vector<BYTE> output = Validate(mode);
  ExpectSound(output);
  EXPECT_EQ(AsMode(output)->dmOrientation, DMORIENT_LANDSCAPE);
  EXPECT_EQ(AsMode(output)->dmCopies, 7);
}

TEST_F(DocumentPropertiesHost, PrivateSettingsAreTakenOver) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  const size_t printSpeed = kPublicSize + 164 + 1112;
  input[printSpeed] = 2;
  EXPECT_EQ(Validate(AsMode(input))[printSpeed], 2);
}

TEST_F(DocumentPropertiesHost, ForeignDriversBlockLosesItsPrivatePart) {
  std::vector<BYTE> defaults = DefaultDevMode(Printer);
  std::vector<BYTE> foreign(kPublicSize + 500, 0xA5);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(foreign.data());
  std::memset(mode, 0, kPublicSize);
  wcscpy(mode->dmDeviceName, L"Some Other Printer");
  mode->dmSpecVersion = 0x0401;
  mode->dmDriverVersion = 0x0300;
  mode->dmSize = kPublicSize;
  mode->dmDriverExtra = 500;
  mode->dmFields = DM_COPIES | DM_PRINTQUALITY;
  mode->dmCopies = 4;
  mode->dmPrintQuality = 600;
  std::vector<BYTE> output = Validate(mode);
  ExpectSound(output);
  EXPECT_EQ(AsMode(output)->dmCopies, 4);
  EXPECT_EQ(std::vector<BYTE>(output.begin() + kPublicSize, output.end()),
            std::vector<BYTE>(defaults.begin() + kPublicSize, defaults.end()));
}

TEST_F(DocumentPropertiesHost, ShorterOlderBlockIsAccepted) {
  // The size before the ICM fields came: 188 public bytes, no private ones.
  std::vector<BYTE> input(188);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(input.data());
  mode->dmSpecVersion = 0x0320;
  mode->dmDriverVersion = 0x0100;
  mode->dmSize = 188;
  mode->dmFields = DM_ORIENTATION | DM_COPIES;
  mode->dmOrientation = DMORIENT_LANDSCAPE;
  mode->dmCopies = 2;
  std::vector<BYTE> output = Validate(mode);
  ExpectSound(output);
  EXPECT_EQ(AsMode(output)->dmOrientation, DMORIENT_LANDSCAPE);
  EXPECT_EQ(AsMode(output)->dmCopies, 2);
}

TEST_F(DocumentPropertiesHost, BlockThatClaimsMoreThanItHasDoesNoHarm) {
  std::vector<BYTE> input = DefaultDevMode(Printer);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(input.data());
  mode->dmDriverExtra = 0xFFFF;
  ExpectSound(Validate(mode));
}

TEST_F(DocumentPropertiesHost, RandomBlocksComeBackSound) {
  std::mt19937 random(20261120);
  for (int round = 0; round < 200; ++round) {
    std::vector<BYTE> input(kDevModeSize);
    for (BYTE& byte : input) byte = static_cast<BYTE>(random());
    DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(input.data());
    // The spooler itself trusts these two when it copies a block.
    mode->dmSize = kPublicSize;
    mode->dmDriverExtra = static_cast<WORD>(random() % (kPrivateSize + 1));
    ExpectSound(Validate(mode));
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST_F(DocumentPropertiesHost, RandomPrivatePartFallsBackToDefaults) {
  std::vector<BYTE> defaults = DefaultDevMode(Printer);
  std::vector<BYTE> input = defaults;
  std::mt19937 random(7);
  for (size_t i = kPublicSize; i < input.size(); ++i) input[i] = static_cast<BYTE>(random());
  std::vector<BYTE> output = Validate(AsMode(input));
  EXPECT_EQ(output, defaults);
}

TEST_F(DocumentPropertiesHost, InputAndOutputMayBeTheSameBlock) {
  std::vector<BYTE> block = DefaultDevMode(Printer);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(block.data());
  mode->dmCopies = 9;
  mode->dmScale = 400;
  EXPECT_EQ(Properties(Printer, mode, mode, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
  EXPECT_EQ(mode->dmCopies, 9);
  EXPECT_EQ(mode->dmScale, 100);
}

TEST_F(DocumentPropertiesHost, NarrowCallersBlockIsConvertedByTheSpooler) {
  LONG size = DocumentPropertiesA(nullptr, Printer.Get(), const_cast<char*>("Host Test Printer"),
                                  nullptr, nullptr, 0);
  ASSERT_GT(size, kPrivateSize);
  std::vector<BYTE> block(static_cast<size_t>(size) + 64);
  DEVMODEA* mode = reinterpret_cast<DEVMODEA*>(block.data());
  ASSERT_EQ(DocumentPropertiesA(nullptr, Printer.Get(), const_cast<char*>("Host Test Printer"),
                                mode, nullptr, DM_OUT_BUFFER),
            IDOK);
  EXPECT_EQ(mode->dmPrintQuality, 203);
  EXPECT_EQ(mode->dmDriverExtra, kPrivateSize);
  mode->dmCopies = 5;
  std::vector<BYTE> second(block.size());
  DEVMODEA* answer = reinterpret_cast<DEVMODEA*>(second.data());
  ASSERT_EQ(DocumentPropertiesA(nullptr, Printer.Get(), const_cast<char*>("Host Test Printer"),
                                answer, mode, DM_IN_BUFFER | DM_OUT_BUFFER),
            IDOK);
  EXPECT_EQ(answer->dmCopies, 5);
  // Blocks of any size: never trusted, never a crash.
  std::mt19937 random(11);
  for (const WORD stated : {WORD{40}, WORD{124}, WORD{156}}) {
    std::vector<BYTE> odd = block;
    auto* input = reinterpret_cast<DEVMODEA*>(odd.data());
    input->dmSize = stated;
    input->dmDriverExtra = static_cast<WORD>(random() % (odd.size() - stated));
    EXPECT_EQ(DocumentPropertiesA(nullptr, Printer.Get(), const_cast<char*>("Host Test Printer"),
                                  answer, input, DM_IN_BUFFER | DM_OUT_BUFFER),
              IDOK)
        << stated;
    EXPECT_EQ(answer->dmDriverExtra, kPrivateSize) << stated;
    EXPECT_EQ(answer->dmPrintQuality, 203) << stated;
  }
}

TEST_F(DocumentPropertiesHost, StoredDefaultOfThePrinterIsMergedIn) {
  std::vector<BYTE> wanted = DefaultDevMode(Printer);
  reinterpret_cast<DEVMODEW*>(wanted.data())->dmCopies = 11;
  DWORD needed = 0;
  GetPrinterW(Printer.Get(), 2, nullptr, 0, &needed);
  std::vector<BYTE> record(needed);
  ASSERT_TRUE(GetPrinterW(Printer.Get(), 2, record.data(), needed, &needed));
  PRINTER_INFO_2W* info = reinterpret_cast<PRINTER_INFO_2W*>(record.data());
  info->pDevMode = reinterpret_cast<DEVMODEW*>(wanted.data());
  info->pSecurityDescriptor = nullptr;
  ASSERT_TRUE(SetPrinterW(Printer.Get(), 2, record.data(), 0));
  EXPECT_EQ(AsMode(DefaultDevMode(Printer))->dmCopies, 11);
}

TEST_F(DocumentPropertiesHost, AskingAgainChangesNothingInTheStore) {
  DefaultDevMode(Printer);
  std::string before = StoreDump(Printer.Name());
  Properties(Printer, nullptr, nullptr, 0);
  std::vector<BYTE> block = DefaultDevMode(Printer);
  Validate(AsMode(block));
  EXPECT_EQ(StoreDump(Printer.Name()), before);
}

TEST_F(DocumentPropertiesHost, DeviceContextIsMadeThroughThePostScriptHalf) {
  std::vector<BYTE> block = DefaultDevMode(Printer);
  HDC context = CreateDCW(L"WINSPOOL", Printer.Name().c_str(), nullptr, AsMode(block));
  ASSERT_NE(context, nullptr);
  EXPECT_GT(GetDeviceCaps(context, LOGPIXELSX), 0);
  DeleteDC(context);
}

}  // namespace
}  // namespace host
