// Stands in for the system's viewer of help files: tells what it was asked to show.
#include "platform/windows/Win32.h"

extern "C" HWND WINAPI RecordHelp(HWND, LPCWSTR file, UINT command, DWORD_PTR) {
  SetEnvironmentVariableW(L"OSTVT_HELP_SHOWN", command == 0 ? file : L"?");
  return nullptr;
}
