#include "ui/windows/SheetWindows.h"

// clang-format off
#include "ui/windows/Controls.h"
#include <commdlg.h>
// clang-format on

#include <vector>

#include "platform/Desktop.h"
#include "platform/Module.h"
#include "settings/DriverSession.h"
#include "settings/SessionEnd.h"
#include "settings/SheetHost.h"
#include "ui/PlatformWindows.h"
#include "ui/windows/PageTable.h"
#include "ui/windows/RunDialog.h"
#include "ui/windows/UPage.h"
#include "ui/windows/UResourceSet.h"

namespace ostvt {
namespace {

using platform::AsWide;

// The size of the description up to its activation context; later systems know more fields.
constexpr DWORD kPageSize = 96;
static_assert(offsetof(PROPSHEETPAGEW, hActCtx) + sizeof(HANDLE) == kPageSize);

constexpr DWORD kUseContext = 16384;

constexpr int kPathUnits = 32768;

using DestroyPageFunction = BOOL WINAPI(HPROPSHEETPAGE);

// A page of that template, not yet in a sheet; null when there is none. Without the template in any
// language module the page is made all the same, and the sheet then fails to show it.
HPROPSHEETPAGE CreatePage(DriverSession* session, const OString& templateName) {
  DLGPROC start = FindStartProcedure(templateName);
  using CreateFunction = HPROPSHEETPAGE WINAPI(const PROPSHEETPAGEW*);
  auto* create = CommonControlsFunction<CreateFunction>("CreatePropertySheetPageW");
  if (!start || !create) return nullptr;
  UResourceSet& resources = ResourcesOf(session);
  PROPSHEETPAGEW page = {};
  page.dwSize = kPageSize;
  page.dwFlags = PSP_DLGINDIRECT | PSP_HASHELP;
  page.hInstance = static_cast<HINSTANCE>(platform::ModuleHandle());
  page.pResource = resources.LoadTemplate(templateName);
  page.pfnDlgProc = start;
  page.lParam = reinterpret_cast<LPARAM>(session);
  HANDLE context = resources.GetActivationContext();
  if (context) {
    page.dwFlags |= kUseContext;
    page.hActCtx = context;
  }
  ActivationContext::Scope scope(context);
  return create(&page);
}

void DestroyPage(HPROPSHEETPAGE page) {
  if (auto* destroy = CommonControlsFunction<DestroyPageFunction>("DestroyPropertySheetPage"))
    destroy(page);
}

intptr_t CallHost(const DriverSession* session, uint32_t function, intptr_t first,
                  intptr_t second) {
  return session->SheetCallback(session->SheetHandle, function, first, second);
}

// What a sheet of the session's own must not touch: it may be opened from a page of the host's
// sheet, whose cancel goes back to the settings as they were when that one was opened.
class OuterSheet {
 public:
  explicit OuterSheet(DriverSession* session)
      : Session(session),
        Crc(session->DevModeCrc),
        WasApplied(session->IsApplied),
        Callback(session->SheetCallback),
        Channel(session->ChannelWindow) {
    Saved.Assign(session->SavedDevMode);
    Before.Assign(session->DevModeBuffer);
    session->SavedDevMode.Assign(session->DevModeBuffer);
    session->SheetCallback = nullptr;
    session->ChannelWindow = nullptr;
  }
  ~OuterSheet() {
    Session->SavedDevMode.Assign(Saved);
    Session->DevModeCrc = Crc;
    Session->IsApplied = WasApplied;
    Session->SheetCallback = Callback;
    Session->ChannelWindow = Channel;
  }
  OuterSheet(const OuterSheet&) = delete;
  OuterSheet& operator=(const OuterSheet&) = delete;

  void RestoreSettings() {
    if (!Before.IsEmpty()) Session->DevModeBuffer.Assign(Before);
  }

 private:
  DriverSession* Session;
  DevMode Saved;
  DevMode Before;
  uint32_t Crc;
  bool WasApplied;
  SheetCallbackFunction Callback;
  platform::ChannelWindow Channel;
};

void AppendWithZero(std::vector<wchar_t>* list, const OString& text) {
  for (const char16_t* unit = text.GetWide(); *unit; ++unit)
    list->push_back(static_cast<wchar_t>(*unit));
  list->push_back(0);
}

}  // namespace

std::unique_ptr<ResourceContext> SheetWindows::OpenResources(DriverSession* session) const {
  return std::make_unique<UResourceSet>(session->Model);
}

bool SheetWindows::AddPage(DriverSession* session, const OString& templateName) const {
  if (!session->SheetCallback) return false;
  HPROPSHEETPAGE page = CreatePage(session, templateName);
  if (!page) return false;
  InsertPageInfo record = {};
  record.cbSize = sizeof record;
  record.Type = kInsertPageHandle;
  record.Mode = kInsertLastChild;
  record.dwData1 = reinterpret_cast<uintptr_t>(page);
  intptr_t added = CallHost(session, kSheetInsertPage, 0, reinterpret_cast<intptr_t>(&record));
  // Hosts that don't know that function know the plainer one.
  if (!added) added = CallHost(session, kSheetAddPage, reinterpret_cast<intptr_t>(page), 0);
  if (!added) DestroyPage(page);
  return added != 0;
}

int32_t SheetWindows::RunSheet(DriverSession* session, void* owner, const OString& title,
                               std::span<const char* const> templateNames) const {
  using SheetFunction = INT_PTR WINAPI(const PROPSHEETHEADERW*);
  auto* run = CommonControlsFunction<SheetFunction>("PropertySheetW");
  if (!run || !platform::HasDesktop()) return 0;
  std::vector<HPROPSHEETPAGE> pages;
  for (const char* name : templateNames) {
    // The system would show an empty sheet in place of pages that it can't make.
    if (!ResourcesOf(session).LoadTemplate(name)) continue;
    if (HPROPSHEETPAGE page = CreatePage(session, name)) pages.push_back(page);
  }
  if (pages.empty()) return 0;
  PROPSHEETHEADERW header = {};
  header.dwSize = sizeof header;
  header.dwFlags = PSH_NOAPPLYNOW | PSH_HASHELP;
  header.hwndParent = static_cast<HWND>(owner);
  header.hInstance = static_cast<HINSTANCE>(platform::ModuleHandle());
  header.pszCaption = AsWide(title.GetWide());
  header.nPages = static_cast<UINT>(pages.size());
  header.phpage = pages.data();
  SessionKeeper keeper(session);
  OuterSheet outer(session);
  const INT_PTR result = run(&header);
  if (result > 0) return IDOK;
  outer.RestoreSettings();
  return result < 0 ? 0 : IDCANCEL;
}

int32_t SheetWindows::RunDialog(DriverSession* session, void* owner,
                                const OString& templateName) const {
  DLGPROC start = FindStartProcedure(templateName);
  // In a service nobody could ever close it.
  if (!start || !platform::HasDesktop()) return 0;
  // Without an owner of the caller's the dialog still belongs in front of the program's own window.
  HWND parent = owner ? static_cast<HWND>(owner) : GetActiveWindow();
  return RunSessionDialog(session, parent, templateName, start);
}

bool SheetWindows::ChooseFile(DriverSession* session, void* owner, const OString& title,
                              std::span<const FileKind> kinds, OString* path) const {
  platform::LibraryHandle library = platform::OpenLibrary(u"comdlg32.dll");
  using OpenFunction = BOOL WINAPI(OPENFILENAMEW*);
  auto* open = platform::FindFunction<OpenFunction>(library, "GetOpenFileNameW");
  bool chosen = false;
  if (open && platform::HasDesktop()) {
    UResourceSet& resources = ResourcesOf(session);
    std::vector<wchar_t> filter;
    for (const FileKind& kind : kinds) {
      AppendWithZero(&filter, resources.LoadText(kind.name));
      AppendWithZero(&filter, kind.pattern);
    }
    filter.push_back(0);
    std::vector<wchar_t> file(kPathUnits);
    OPENFILENAMEW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = static_cast<HWND>(owner);
    request.lpstrFilter = filter.data();
    request.lpstrFile = file.data();
    request.nMaxFile = kPathUnits;
    request.lpstrTitle = title.IsEmpty() ? nullptr : AsWide(title.GetWide());
    request.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    chosen = open(&request);
    if (chosen) *path = platform::AsUnits(file.data());
  }
  platform::CloseLibrary(library);
  return chosen;
}

void SheetWindows::RefreshSheet(void* page) const {
  HWND sheet = page ? GetParent(static_cast<HWND>(page)) : nullptr;
  if (sheet) SendMessageW(sheet, PSM_QUERYSIBLINGS, kSiblingUpdate, 1);
}

const SessionWindows* PlatformWindows() {
  static constexpr SheetWindows windows;
  return &windows;
}

}  // namespace ostvt
