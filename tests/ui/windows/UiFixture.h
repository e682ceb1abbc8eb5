// A session on a test printer whose archives may have language modules, and a page that notes what
// it is asked.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Locale.h"
#include "settings/DriverSession.h"
#include "tests/settings/SettingsFixture.h"
#include "ui/windows/RunDialog.h"
#include "ui/windows/UPage.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt::test {

// The path of a file beside this program.
inline std::wstring FileBesideTests(const std::wstring& name) {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring whole = path;
  return whole.substr(0, whole.rfind(L'\\') + 1) + name;
}

inline std::string BytesOf(const std::wstring& path) {
  std::string bytes;
  FILE* file = _wfopen(path.c_str(), L"rb");
  if (!file) return bytes;
  char part[4096];
  for (size_t n; (n = fread(part, 1, sizeof part, file)) > 0;) bytes.append(part, n);
  fclose(file);
  return bytes;
}

inline OString FirstModule() {
  return platform::AsUnits(FileBesideTests(L"first-resources.dll").c_str());
}
inline OString SecondModule() {
  return platform::AsUnits(FileBesideTests(L"second-resources.dll").c_str());
}

class UiTest : public SettingsTest {
 protected:
  void SetUp() override {
    SettingsTest::SetUp();
    Locale.DecimalSeparator = u".";
    Locale.ThousandSeparator = u",";
    Locale.Language = "ENU";
    platform::SetUserLocale(&Locale);
  }
  void TearDown() override {
    TheSession.reset();
    platform::SetUserLocale(nullptr);
    SettingsTest::TearDown();
  }

  // `modules` by their names in the archives: those that begin with "base" lie in the common one.
  void AddPrinterWith(const std::map<std::string, std::string>& modules) {
    TempDirectory directory;
    ZipBuilder base, family;
    base.Add("Driver.d", "[Ostrel Test]\nModel=Model:Test\n");
    family.Add("Model.d", "[Test]\nStock.Default.X=4 in\nStock.Default.Y=6 in\n");
    for (const auto& [name, bytes] : modules)
      (name.starts_with("base") ? base : family).Add(name, bytes);
    ASSERT_TRUE(base.WriteTo(directory.Path("vt#base.ddz")));
    ASSERT_TRUE(family.WriteTo(directory.Path("vt#ost.ddz")));
    TestPrinterOptions options;
    options.DriverDirectory = directory.WidePath(u"");
    while (options.DriverDirectory.ends_with(u'\\')) options.DriverDirectory.pop_back();
    Printer = std::make_unique<TestPrinter>(options);
    ASSERT_TRUE(Printer->IsReady());
  }

  DriverSession& Session() {
    if (!TheSession) {
      if (!Printer) AddPrinterWith({});
      TheSession = std::make_unique<DriverSession>();
      TheSession->NoShadowPush = true;
      TheSession->Initialize(nullptr, nullptr, 0, Printer->Name());
      TheSession->SavedDevMode.Assign(TheSession->DevModeBuffer);
    }
    return *TheSession;
  }

  platform::UserLocale Locale;
  std::unique_ptr<DriverSession> TheSession;
};

// What a TestPage says and was asked, of one test.
struct PageRecord {
  std::vector<std::string> Calls;
  bool CommandHandled = true;
  bool NotifyHandled = true;
  bool Applies = true;
  bool Cancels = true;
  bool LetsGo = true;
  int32_t CommandAtStart = 0;   // sent to the dialog by itself
  bool ChangesAtStart = false;  // the device mode, in OnInitDialog
  bool RefreshesInUpdate = false;
  int Pages = 0;  // alive

  std::string Taken() {
    std::string text;
    for (const std::string& call : Calls) text += call + ";";
    Calls.clear();
    return text;
  }
  // The same without what the system tells any window that is shown or goes.
  std::string TakenSteps() {
    std::erase_if(Calls, [](const std::string& call) {
      return call.starts_with("palette") || call.starts_with("command");
    });
    return Taken();
  }
};

class TestPage : public UPage {
 public:
  TestPage() {
    ++Record_->Pages;
    Last = this;
  }
  ~TestPage() override {
    --Record_->Pages;
    if (Last == this) Last = nullptr;
  }
  bool OnDrawItem(const DRAWITEMSTRUCT* item) override {
    Note("draw " + std::to_string(item->CtlID));
    return true;
  }
  void Update(bool initial) override {
    Note(initial ? "update initial" : "update");
    if (Record_->RefreshesInUpdate) Refresh(true);
  }
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override {
    Note("command " + std::to_string(id) + " " + std::to_string(code) +
         (code < 16 && param < 100000 ? " " + std::to_string(param) : ""));
    return Record_->CommandHandled;
  }
  bool OnNotify(int32_t control, uint32_t code, NMHDR*) override {
    Note("notify " + std::to_string(control) + " " + std::to_string(static_cast<int>(code)));
    return Record_->NotifyHandled;
  }
  void OnInitDialog() override {
    UPage::OnInitDialog();
    Note(InSheet ? "init in sheet" : "init");
    if (Record_->ChangesAtStart) Settings().SetCopies(Settings().GetCopies() + 1);
    if (Record_->CommandAtStart)
      PostMessageW(Window, WM_COMMAND, static_cast<WPARAM>(Record_->CommandAtStart), 0);
  }
  void OnHelp() override { Note("help"); }
  void OnApply() override {
    Note("apply");
    UPage::OnApply();
  }
  void OnReset() override {
    Note("reset");
    UPage::OnReset();
  }
  void OnDestroy() override { Note("destroy"); }
  void OnTimer(uintptr_t id) override { Note("timer " + std::to_string(id)); }
  bool CanApply() override {
    Note("can apply");
    return Record_->Applies;
  }
  bool CanCancel() override { return Record_->Cancels; }
  bool OnSetActive() override {
    Note("active");
    return true;
  }
  bool OnKillActive() override {
    Note("inactive");
    return Record_->LetsGo;
  }
  bool OnPaletteMessage(UINT message, WPARAM, LPARAM) override {
    Note("palette " + std::to_string(message));
    return true;
  }
  void OnPrivate(LPARAM param) override { Note("private " + std::to_string(param)); }

  static void Note(const std::string& call) { Record_->Calls.push_back(call); }

  static inline PageRecord* Record_ = nullptr;
  static inline TestPage* Last = nullptr;
};

}  // namespace ostvt::test
