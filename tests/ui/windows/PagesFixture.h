// Pages of a session on a test printer, made from the English language module, in a window that
// stands in for their sheet; and the hands of a user.
#pragma once

#include <string>
#include <vector>

#include "core/ArchiveReader.h"
#include "language/resource.h"
#include "model/PrinterModel.h"
#include "settings/AccessLevels.h"
#include "tests/settings/FakeWindows.h"
#include "tests/settings/StockFixture.h"
#include "tests/ui/windows/DialogDriver.h"
#include "tests/ui/windows/UiFixture.h"
#include "ui/windows/PageTable.h"

namespace ostvt::test {

inline constexpr char kEnglishModule[] = "base-r[enu].dll";

// The module out of the archive that ships, else from beside the tests; empty without either.
inline std::string EnglishModule() {
  ArchiveReader reader;
  reader.AddArchive(
      platform::AsUnits(FileBesideTests(L"..\\..\\..\\out\\data\\vt#base.ddz").c_str()));
  reader.LoadPending();
  uint32_t size = 0;
  if (const uint8_t* data = reader.GetMemberData(kEnglishModule, &size))
    return {reinterpret_cast<const char*>(data), size};
  return BytesOf(FileBesideTests(L"base-r[enu].dll"));
}

// 16 x 2 pixels: black at the left, white at the right.
inline std::string SampleFile() {
  const unsigned char bytes[] = {
      'B', 'M', 70, 0, 0, 0, 0, 0, 0, 0, 62,  0,   0,   0, 40, 0,   0, 0, 16, 0,   0, 0, 2, 0,
      0,   0,   1,  0, 1, 0, 0, 0, 0, 0, 8,   0,   0,   0, 0,  0,   0, 0, 0,  0,   0, 0, 2, 0,
      0,   0,   0,  0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 0, 0,  255, 0, 0, 0,  255, 0, 0};
  return {reinterpret_cast<const char*>(bytes), sizeof bytes};
}

// Without a window manager on its display the system waits seconds for each window that it leaves
// to one; so it shall manage its windows itself. Before the first window.
inline const bool kUnmanaged = [] {
  return RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Wine\\X11 Driver", L"Managed", REG_SZ, L"N",
                         2 * sizeof(wchar_t)) == ERROR_SUCCESS;
}();

class PagesTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    Locale.UsesInches = false;
    WNDCLASSW sheetClass = {};
    sheetClass.lpfnWndProc = SheetProcedure;
    sheetClass.lpszClassName = kSheetClass;
    sheetClass.hInstance = GetModuleHandleW(nullptr);
    RegisterClassW(&sheetClass);
    Sheet = CreateWindowExW(0, kSheetClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 500, 500, nullptr,
                            nullptr, sheetClass.hInstance, nullptr);
    ASSERT_NE(nullptr, Sheet);
    SetWindowLongPtrW(Sheet, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  void TearDown() override {
    ClosePages();
    DestroyWindow(Sheet);
    UiTest::TearDown();
  }
  void ClosePages() {
    for (const HWND page : Pages) DestroyWindow(page);
    Pages.clear();
  }

  // Lines of definitions beside the model's: "Copyright" and the like.
  std::string Manufacturer = "CompanyName=Vantrel\n";
  std::string Oem;

  // A 110 x 500 mm model with the stocks "Shelf" (50 x 25 mm) and "Tag" (30 x 20 mm), stored.
  void AddLabelPrinter(const ModelText& text = WideModelText()) {
    const std::string module = EnglishModule();
    ASSERT_FALSE(module.empty()) << "no English language module: build the archives first";
    TempDirectory directory;
    ZipBuilder base, family;
    base.Add("Driver.d", "[Ostrel Test]\nManufacturer=Manufacturer:Vantrel\nModel=Model:Test\n");
    base.Add(kEnglishModule, module);
    base.Add("LabelSample.bmp", SampleFile());
    if (!Oem.empty()) base.Add("OEM.d", Oem);
    family.Add("Manufacturer.d", "[Vantrel]\n" + Manufacturer);
    family.Add("Model.d",
               "[Test]\nDrawing=Drawing:D\nFeatures=Features:F\nMethod=Method:M\n" + text.Model);
    family.Add("Drawing.d", "[D]\n" + text.Drawing);
    family.Add("Features.d", "[F]\n" + text.Features);
    family.Add("Method.d", "[M]\n" + text.Method);
    ASSERT_TRUE(base.WriteTo(directory.Path("vt#base.ddz")));
    ASSERT_TRUE(family.WriteTo(directory.Path("vt#ost.ddz")));
    TestPrinterOptions options;
    options.DriverDirectory = directory.WidePath(u"");
    while (options.DriverDirectory.ends_with(u'\\')) options.DriverDirectory.pop_back();
    Printer = std::make_unique<TestPrinter>(options);
    ASSERT_TRUE(Printer->IsReady());
    StockList stock;
    stock.Load(Model());
    AddStockTo(&stock, "Shelf");
    AddStockTo(&stock, "Tag", 30000, 20000);
    stock.Normalize();
    ASSERT_TRUE(stock.Save(Model()));
    ModelObject.reset();
    ResourcesOf(&Session());  // the session's texts, which are wanted for its presets
  }
  // The user's level is too low for anything but the document.
  void Lock() {
    PrinterRegistry store = Store();
    SetLocalAccessLevel(&store, 4);
  }

  // From here on the session's store takes nothing: no key has so long a name.
  void RefuseWrites() {
    PrinterRegistry& store = Session().Model->GetStore();
    store.IsRemote = store.IsShadowed = true;
    store.ServerName = std::string(300, 'x').c_str();
  }

  HWND OpenPage(const char* templateName) {
    const DLGTEMPLATE* dialog = ResourcesOf(&Session()).LoadTemplate(templateName);
    EXPECT_NE(nullptr, dialog);
    if (!dialog) return nullptr;
    PROPSHEETPAGEW description = {};
    description.dwSize = 96;
    description.lParam = reinterpret_cast<LPARAM>(&Session());
    const HWND page = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), dialog, Sheet,
                                                 FindStartProcedure(templateName),
                                                 reinterpret_cast<LPARAM>(&description));
    EXPECT_NE(nullptr, page);
    Pages.push_back(page);
    ShowWindow(page, SW_SHOW);
    SheetNotify(page, PSN_SETACTIVE);
    return page;
  }
  LRESULT SheetNotify(HWND page, int code) {
    NMHDR header = {Sheet, 0, static_cast<UINT>(code)};
    SendMessageW(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    return GetWindowLongPtrW(page, DWLP_MSGRESULT);
  }

  // What a user does, and sees. `dialog` is the page or the dialog.
  static void Click(HWND dialog, int id) { SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0); }
  static void Say(HWND dialog, int id, int code) {
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, code),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
  }
  static void Choose(HWND dialog, int id, int index) {
    SendDlgItemMessageW(dialog, id, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Say(dialog, id, CBN_SELCHANGE);
  }
  static void ChooseLine(HWND dialog, int id, int index) {
    SendDlgItemMessageW(dialog, id, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Say(dialog, id, LBN_SELCHANGE);
  }
  // Types into an edit, and leaves it. A box of several lines takes no more than can be typed; the
  // text of others is set, as programs can do.
  static void Type(HWND dialog, int id, const std::wstring& text) {
    const HWND edit = GetDlgItem(dialog, id);
    if (GetWindowLongW(edit, GWL_STYLE) & ES_MULTILINE) {
      SendMessageW(edit, EM_SETSEL, 0, -1);
      SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    } else {
      SetWindowTextW(edit, text.c_str());
    }
    Say(dialog, id, EN_KILLFOCUS);
  }
  static void Press(HWND dialog, int id) {
    SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
  }
  static std::wstring Read(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, 0);
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.pop_back();
    return text;
  }
  static std::string Utf8(const std::wstring& wide) {
    OString text(platform::AsUnits(wide.c_str()));
    text.SetCodePage(kCodePageUtf8);
    return text.GetNarrow();
  }
  static std::string Narrow(HWND dialog, int id) { return Utf8(Read(dialog, id)); }
  // The lines of a combo box, the chosen one in "<>".
  static std::string Lines(HWND dialog, int id) {
    return LinesBy(dialog, id, CB_GETCOUNT, CB_GETCURSEL, CB_GETLBTEXTLEN, CB_GETLBTEXT);
  }
  static std::string ListLines(HWND dialog, int id) {
    return LinesBy(dialog, id, LB_GETCOUNT, LB_GETCURSEL, LB_GETTEXTLEN, LB_GETTEXT);
  }
  static bool IsEnabled(HWND dialog, int id) { return IsWindowEnabled(GetDlgItem(dialog, id)); }
  static bool IsShown(HWND dialog, int id) {
    return (GetWindowLongW(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
  }
  static bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, static_cast<int>(id)) == BST_CHECKED;
  }

  DevMode& Settings() { return Session().DevModeBuffer; }
  int16_t PaperSize() { return Settings().Get(&PublicDevMode::dmPaperSize); }
  std::vector<uint8_t> Block() {
    const DevMode& settings = Settings();
    return {settings.GetBlock(), settings.GetBlock() + settings.GetSize()};
  }
  // "Shelf,Tag" as the store has them now.
  std::string StoredStock() {
    StockList stock;
    stock.Load(Model());
    std::string names;
    for (const StockItem* item = stock.GetFirst(); item; item = item->GetNext()) {
      if (!item->IsUserForm()) names += (names.empty() ? "" : ",") + Utf8Name(item->Name);
    }
    return names;
  }
  static std::string Utf8Name(OString name) {
    name.SetCodePage(kCodePageUtf8);
    return name.GetNarrow();
  }
  // Whether the sheet was last told of a change.
  bool SheetChanged = false;
  // The page that a message asked the sheet to show; -1.
  int ShownPage = -1;
  int TabCount = 3;

  HWND Sheet = nullptr;
  std::vector<HWND> Pages;

 private:
  static constexpr wchar_t kSheetClass[] = L"ui pages sheet";

  static std::string LinesBy(HWND dialog, int id, UINT count, UINT selected, UINT length,
                             UINT text) {
    std::string lines;
    const HWND box = GetDlgItem(dialog, id);
    const auto total = static_cast<int>(SendMessageW(box, count, 0, 0));
    const auto chosen = static_cast<int>(SendMessageW(box, selected, 0, 0));
    for (int i = 0; i < total; ++i) {
      const auto at = static_cast<WPARAM>(i);
      std::wstring line(static_cast<size_t>(SendMessageW(box, length, at, 0)) + 1, 0);
      SendMessageW(box, text, at, reinterpret_cast<LPARAM>(line.data()));
      line.pop_back();
      const std::string shown = i == chosen ? "<" + Utf8(line) + ">" : Utf8(line);
      lines += (i == 0 ? "" : ";") + shown;
    }
    return lines;
  }
  static LRESULT CALLBACK SheetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* test = reinterpret_cast<PagesTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
      case PSM_CHANGED:
        test->SheetChanged = true;
        return 0;
      case PSM_UNCHANGED:
        test->SheetChanged = false;
        return 0;
      case PSM_GETTABCONTROL:
        return reinterpret_cast<LRESULT>(window);
      case TCM_GETITEMCOUNT:
        return test->TabCount;
      case PSM_SETCURSEL:
        test->ShownPage = static_cast<int>(wParam);
        return TRUE;
      case PSM_QUERYSIBLINGS:
        for (const HWND page : test->Pages) SendMessageW(page, message, wParam, lParam);
        return 0;
      default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
  }
};

// Texts that nobody should type.
inline std::vector<std::wstring> HostileTexts() {
  return {std::wstring(65536, L'x'),
          std::wstring(300, L'9'),
          L"99999999999999",
          L"-99999999999999 in",
          L"9999.99999999999999999999 cm",
          L"\xD800",
          L"\xDC00\xD800\xDC00",
          L"%s%n%s%n%s",
          L"\\x\\xG\\",
          L"{C}{R}{",
          L"\t \r\n",
          L"",
          L"..,,--++",
          std::wstring(300, L'\x00E9') + std::wstring(300, L'\x6807')};
}

}  // namespace ostvt::test
