// Capability questions as programs ask them, through the spooler.

#include <gtest/gtest.h>

#include "HostEnvironment.h"

namespace host {
namespace {

class CapabilitiesHost : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(Printer.IsReady()); }
  int Ask(WORD index, void* output = nullptr) { return Capability(Printer.Name(), index, output); }
  HostPrinter Printer{kPrinterName};
};

TEST_F(CapabilitiesHost, NumbersOfEveryIndex) {
  // Index and answer; the ones that depend on the model have tests of their own.
  const struct {
    WORD Index;
    int Answer;
  } rows[] = {{DC_FIELDS, 0x1250F},
              {DC_BINS, 1},
              {DC_DUPLEX, 0},
              {DC_SIZE, 220},
              {DC_EXTRA, 1296},
              {DC_VERSION, 1025},
              {DC_DRIVER, 0x0607},
              {DC_BINNAMES, 1},
              {DC_ENUMRESOLUTIONS, 1},
              {DC_TRUETYPE, 1},
              {DC_ORIENTATION, 90},
              {DC_BINADJUST, 2},
              {DC_EMF_COMPLIANT, 1},
              {DC_DATATYPE_PRODUCED, -1},
              {DC_COLLATE, 0},
              {23, -1},
              {24, -1},
              {DC_PERSONALITY, 1},
              {26, -1},
              {27, -1},
              {28, -1},
              {29, -1},
              {DC_STAPLE, 0},
              {31, -1},
              {DC_COLORDEVICE, 0},
              {DC_NUP, 1},
              {34, -1}};
  for (const auto& row : rows) EXPECT_EQ(Ask(row.Index), row.Answer) << "index " << row.Index;
}

TEST_F(CapabilitiesHost, FieldsEqualTheDefaultDevModesFields) {
  std::vector<BYTE> block = DefaultDevMode(Printer);
  EXPECT_EQ(Ask(DC_FIELDS), static_cast<int>(reinterpret_cast<DEVMODEW*>(block.data())->dmFields));
}

TEST_F(CapabilitiesHost, ColourModelHasColourFields) {
  HostPrinter colour(L"Host Test Colour", L"Ostrel C4 Colour");
  ASSERT_TRUE(colour.IsReady());
  EXPECT_EQ(Capability(colour.Name(), DC_COLORDEVICE), 1);
  EXPECT_EQ(Capability(colour.Name(), DC_FIELDS), 0x1812D0F);
}

TEST_F(CapabilitiesHost, ExtentsOfTheModel) {
  int smallest = Ask(DC_MINEXTENT);
  int largest = Ask(DC_MAXEXTENT);
  EXPECT_GT(LOWORD(smallest), 0);
  EXPECT_GT(LOWORD(largest), LOWORD(smallest));
  EXPECT_GT(HIWORD(largest), HIWORD(smallest));
}

TEST_F(CapabilitiesHost, ResolutionComesAsPair) {
  LONG pair[2] = {};
  ASSERT_EQ(Ask(DC_ENUMRESOLUTIONS, pair), 1);
  EXPECT_EQ(pair[0], 203);
  EXPECT_EQ(pair[1], 203);
}

TEST_F(CapabilitiesHost, NamesFillTheirSlotsAndNothingBehind) {
  std::vector<wchar_t> bins(24 + 8, 0xCCCC);
  ASSERT_EQ(Ask(DC_BINNAMES, bins.data()), 1);
  EXPECT_STREQ(bins.data(), L"Internal Spool");
  EXPECT_EQ(bins[24], 0xCCCC);
  std::vector<wchar_t> personality(32 + 8, 0xCCCC);
  ASSERT_EQ(Ask(DC_PERSONALITY, personality.data()), 1);
  EXPECT_STREQ(personality.data(), L"OST");
  EXPECT_EQ(personality[32], 0xCCCC);
}

TEST_F(CapabilitiesHost, DependentFilesHaveNoDirectory) {
  const wchar_t* const files[] = {L"vt#base.ddz", L"vt#ost.ddz", L"Defaults.sds", L"ostenu.chm",
                                  L"ostdeu.chm"};
  constexpr int kFiles = 5;
  ASSERT_EQ(Ask(DC_FILEDEPENDENCIES), kFiles);
  std::vector<wchar_t> names(64 * kFiles + 8, 0xCCCC);
  ASSERT_EQ(Ask(DC_FILEDEPENDENCIES, names.data()), kFiles);
  for (int i = 0; i < kFiles; ++i) EXPECT_STREQ(names.data() + 64 * i, files[i]);
  EXPECT_EQ(names[64 * kFiles], 0xCCCC);
}

TEST_F(CapabilitiesHost, PairsOfCallsAgree) {
  for (int round = 0; round < 4; ++round) {
    int papers = Ask(DC_PAPERS);
    EXPECT_EQ(Ask(DC_PAPERSIZE), papers);
    EXPECT_EQ(Ask(DC_PAPERNAMES), papers);
    std::vector<BYTE> output(static_cast<size_t>(papers > 0 ? papers : 0) * 128 + 16);
    EXPECT_EQ(Ask(DC_PAPERS, output.data()), papers);
    EXPECT_EQ(Ask(DC_PAPERSIZE, output.data()), papers);
    EXPECT_EQ(Ask(DC_PAPERNAMES, output.data()), papers);
  }
}

TEST_F(CapabilitiesHost, SizesDoNotFollowTheCallersDevMode) {
  std::vector<BYTE> block = DefaultDevMode(Printer);
  DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(block.data());
  mode->dmSize = 188;
  mode->dmDriverExtra = 10;
  EXPECT_EQ(Capability(Printer.Name(), DC_SIZE, nullptr, mode), 220);
  EXPECT_EQ(Capability(Printer.Name(), DC_EXTRA, nullptr, mode), 1296);
}

TEST_F(CapabilitiesHost, NarrowCallersGetTheSameNumbers) {
  EXPECT_EQ(DeviceCapabilitiesA("Host Test Printer", "FILE:", DC_FIELDS, nullptr, nullptr),
            0x1250F);
  EXPECT_EQ(DeviceCapabilitiesA("Host Test Printer", "FILE:", DC_COPIES, nullptr, nullptr),
            Ask(DC_COPIES));
}

TEST_F(CapabilitiesHost, AskingChangesNothingInTheStore) {
  Ask(DC_FIELDS);
  std::string before = StoreDump(Printer.Name());
  for (WORD index = 1; index <= 33; ++index) Ask(index);
  EXPECT_EQ(StoreDump(Printer.Name()), before);
}

}  // namespace
}  // namespace host
