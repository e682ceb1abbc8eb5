// Stock as programs see it through the spooler. The stocks are put into the registry by hand.

#include <gtest/gtest.h>

#include "HostEnvironment.h"

namespace host {
namespace {

constexpr wchar_t kForms[] = L"SOFTWARE\\Vantrel\\Drivers\\Paper Sizes";
constexpr DWORD kPaperFields = DM_FORMNAME | DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH;

// The model's default page is 104.14 x 152.4 mm, its largest 118.11 x 990.6 mm.
class StockHost : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kForms);
    PutForm(L"Form 01", L"Shelf", {50040, 25090, 0, 0, 0, 0, 4});
    PutForm(L"Form 02", L"Banner", {300000, 25000, 0, 0, 0, 0, 4});  // too wide
    PutForm(L"Form 03", L"Pallet", {100000, 150000, 1000, 1000, 500, 500, 0});
    const DWORD total = 3;
    Put(L"Total", REG_DWORD, &total, sizeof(total));
  }
  void TearDown() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kForms); }

  static void Put(const std::wstring& name, DWORD type, const void* data, size_t size) {
    EXPECT_EQ(ERROR_SUCCESS, RegSetKeyValueW(HKEY_LOCAL_MACHINE, kForms, name.c_str(), type, data,
                                             static_cast<DWORD>(size)));
  }
  static void PutForm(const std::wstring& form, const std::wstring& name,
                      const std::vector<int>& data) {
    Put(form + L": Name", REG_SZ, name.c_str(), (name.size() + 1) * sizeof(wchar_t));
    Put(form + L": Data", REG_BINARY, data.data(), data.size() * sizeof(int));
  }
  int Ask(WORD index, void* output = nullptr) { return Capability(Printer.Name(), index, output); }

  // What becomes of a device mode that asks for a paper: "257 Pallet 1020x1510".
  std::wstring Settle(DWORD fields, short size, const wchar_t* name, short width, short length) {
    std::vector<BYTE> input = DefaultDevMode(Printer);
    DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(input.data());
    mode->dmFields = (mode->dmFields & ~kPaperFields) | fields;
    mode->dmPaperSize = size;
    wcsncpy(mode->dmFormName, name, CCHFORMNAME);
    mode->dmPaperWidth = width;
    mode->dmPaperLength = length;
    GuardedBlock output(kDevModeSize);
    EXPECT_EQ(Properties(Printer, output.Mode(), mode, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_TRUE(output.GuardsAreWhole());
    const DEVMODEW* settled = output.Mode();
    EXPECT_EQ(settled->dmFields & kPaperFields, kPaperFields);
    return std::to_wstring(settled->dmPaperSize) + L" " + settled->dmFormName + L" " +
           std::to_wstring(settled->dmPaperWidth) + L"x" + std::to_wstring(settled->dmPaperLength);
  }

  HostPrinter Printer{kPrinterName};
};

TEST_F(StockHost, PapersSizesAndNamesAgreeInNumberAndOrder) {
  ASSERT_EQ(Ask(DC_PAPERS), 4);
  ASSERT_EQ(Ask(DC_PAPERSIZE), 4);
  ASSERT_EQ(Ask(DC_PAPERNAMES), 4);
  WORD papers[4] = {};
  POINT sizes[4] = {};
  wchar_t names[4][64] = {};
  EXPECT_EQ(Ask(DC_PAPERS, papers), 4);
  EXPECT_EQ(Ask(DC_PAPERSIZE, sizes), 4);
  EXPECT_EQ(Ask(DC_PAPERNAMES, names), 4);
  const struct {
    WORD Paper;
    POINT Size;
    const wchar_t* Name;
  } rows[] = {{256, {1041, 1524}, L"USER"},
              {0, {3000, 250}, L"Banner"},
              {257, {1020, 1510}, L"Pallet"},
              {258, {500, 251}, L"Shelf"}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(papers[i], rows[i].Paper) << i;
    EXPECT_EQ(sizes[i].x, rows[i].Size.x) << i;
    EXPECT_EQ(sizes[i].y, rows[i].Size.y) << i;
    EXPECT_STREQ(names[i], rows[i].Name) << i;
  }
}

TEST_F(StockHost, DeviceModeNamesAFormByName) {
  EXPECT_EQ(Settle(DM_FORMNAME, 0, L"Shelf", 1, 1), L"258 Shelf 500x250");
  EXPECT_EQ(Settle(DM_FORMNAME | DM_PAPERWIDTH | DM_PAPERLENGTH, 7, L"Pallet", 1, 1),
            L"257 Pallet 1020x1510");
}

TEST_F(StockHost, DeviceModeNamesAFormByNumber) {
  EXPECT_EQ(Settle(DM_PAPERSIZE, 257, L"", 1, 1), L"257 Pallet 1020x1510");
  EXPECT_EQ(Settle(DM_PAPERSIZE | DM_FORMNAME, 258, L"Pallet", 1, 1), L"258 Shelf 500x250");
}

TEST_F(StockHost, DeviceModeNamesAFormBySize) {
  EXPECT_EQ(Settle(DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH, 256, L"", 800, 900),
            L"256 USER 800x900");
  EXPECT_EQ(Settle(DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH, 0, L"", 800, 900),
            L"256 USER 800x900");
  EXPECT_EQ(Settle(DM_PAPERSIZE, 256, L"", 32000, 32000), L"256 USER 1181x9906");
}

TEST_F(StockHost, DeviceModeThatNamesAFormWronglyGetsTheUserForm) {
  EXPECT_EQ(Settle(DM_FORMNAME, 0, L"Nowhere", 800, 900), L"256 USER 800x900");
  EXPECT_EQ(Settle(DM_FORMNAME, 0, L"Banner", 800, 900), L"256 USER 800x900");
  EXPECT_EQ(Settle(DM_PAPERSIZE, 259, L"Shelf", 800, 900), L"256 USER 800x900");
  EXPECT_EQ(Settle(DM_PAPERSIZE, DMPAPER_A4, L"", 2100, 2970), L"256 USER 1181x2970");
}

TEST_F(StockHost, DefaultDeviceModeHasTheUserForm) {
  std::vector<BYTE> block = DefaultDevMode(Printer);
  const DEVMODEW* mode = reinterpret_cast<DEVMODEW*>(block.data());
  EXPECT_EQ(mode->dmPaperSize, 256);
  EXPECT_STREQ(mode->dmFormName, L"USER");
  EXPECT_EQ(mode->dmPaperWidth, 1041);
  EXPECT_EQ(mode->dmPaperLength, 1524);
}

}  // namespace
}  // namespace host
