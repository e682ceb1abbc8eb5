#include "ui/windows/HelpViewer.h"

#include "platform/Components.h"
#include "platform/Desktop.h"
#include "store/ORegistry.h"
#include "ui/windows/Controls.h"

namespace ostvt {
namespace {

using platform::AsWide;

// The machine's classes: those of a user would be loaded into programs that have more rights.
constexpr char kServerPath[] =
    "2:SOFTWARE/Classes/CLSID/{ADB880A6-D8FF-11CF-9377-00AA003B7A11}/InprocServer32/";
constexpr char16_t kFallback[] = u"hhctrl.ocx";
constexpr uintptr_t kHelpOrdinal = 15;
constexpr UINT kDisplayTopic = 0;

using HelpFunction = HWND WINAPI(HWND owner, LPCWSTR file, UINT command, DWORD_PTR data);

platform::LibraryHandle LoadViewer() {
  const OString path = ORegistry().ReadString(kServerPath, OString());
  wchar_t expanded[MAX_PATH];
  const DWORD length = ExpandEnvironmentStringsW(AsWide(path.GetWide()), expanded, MAX_PATH);
  if (!path.IsEmpty() && length > 0 && length <= MAX_PATH) {
    if (void* library = platform::OpenLibrary(platform::AsUnits(expanded))) return library;
  }
  return platform::OpenLibrary(kFallback);
}

}  // namespace

bool HelpViewer::Show(const OString& helpFile, const OString& topic) {
  if (!platform::ComponentAvailable(u"HTML Help", u"0.0")) return false;
  if (!LoadTried) {
    LoadTried = true;
    Library = LoadViewer();
  }
  auto* show =
      platform::FindFunction<HelpFunction>(Library, reinterpret_cast<const char*>(kHelpOrdinal));
  if (!show) return false;
  const OString place = helpFile + "::" + topic;
  show(static_cast<HWND>(platform::DesktopWindow()), AsWide(place.GetWide()), kDisplayTopic, 0);
  return true;
}

}  // namespace ostvt
