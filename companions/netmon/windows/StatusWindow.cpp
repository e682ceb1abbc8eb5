#include "companions/netmon/StatusWindow.h"

#include "companions/netmon/Socket.h"
#include "companions/netmon/Text.h"
#include "platform/windows/Win32.h"
#include "store/PrinterId.h"

namespace ostvt::netmon {
namespace {

using platform::AsWide;

constexpr const wchar_t* kClassName = L"Vantrel Status Monitor";
constexpr int kWidth = 360;
constexpr int kHeight = 110;
constexpr int kMargin = 12;
constexpr UINT kRefreshPeriod = 5000;  // milliseconds, as the next
constexpr int kConnectTimeout = 1000;
constexpr UINT_PTR kTimer = 1;
constexpr int kText = 100;  // the control that holds the state

std::u16string StateOf(const std::string& port) {
  PortAddress address;
  if (!ParsePortAddress(port, &address)) return u"The printer's port can't be asked.";
  Socket connection;
  if (!connection.Connect(address, kConnectTimeout)) return u"The printer doesn't answer.";
  connection.Finish(0);
  return u"The printer is connected.";
}

LRESULT CALLBACK StatusProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_TIMER: {
      const auto* port =
          reinterpret_cast<const std::string*>(GetWindowLongPtrW(window, GWLP_USERDATA));
      if (port) SetDlgItemTextW(window, kText, AsWide(StateOf(*port).c_str()));
      return 0;
    }
    case WM_DESTROY:
      KillTimer(window, kTimer);
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wparam, lparam);
  }
}

HINSTANCE OwnInstance() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&StatusProcedure), &module);
  return module;
}

}  // namespace

void RunStatusWindow(const OString& printerName, int show) {
  const std::string port = ToUtf8(PrinterId(printerName).Printer().PortName);
  WNDCLASSW type = {};
  type.lpfnWndProc = StatusProcedure;
  type.hInstance = OwnInstance();
  type.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
  type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  type.lpszClassName = kClassName;
  if (!RegisterClassW(&type)) return;
  HWND window = CreateWindowExW(0, kClassName, AsWide(printerName.GetWide()), WS_OVERLAPPEDWINDOW,
                                CW_USEDEFAULT, CW_USEDEFAULT, kWidth, kHeight, nullptr, nullptr,
                                type.hInstance, nullptr);
  if (window) {
    RECT inside;
    GetClientRect(window, &inside);
    CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE, kMargin, kMargin,
                    inside.right - 2 * kMargin, inside.bottom - 2 * kMargin, window,
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(kText)), type.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&port));
    SendMessageW(window, WM_TIMER, kTimer, 0);
    SetTimer(window, kTimer, kRefreshPeriod, nullptr);
    ShowWindow(window, show);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
  UnregisterClassW(kClassName, type.hInstance);
}

void CloseStatusWindow(const OString& printerName) {
  HWND window = FindWindowW(kClassName, AsWide(printerName.GetWide()));
  if (window) PostMessageW(window, WM_CLOSE, 0, 0);
}

}  // namespace ostvt::netmon
