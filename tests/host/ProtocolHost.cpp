#include <windows.h>
// Behind its own needs.
#include <prsht.h>

#include <string>

#include "ProtocolHost.h"
#include "SpoolerInstall.h"

namespace host {

ProtocolHost::ProtocolHost(const std::wstring& printer, HANDLE handle)
    : Module(LoadLibraryW((spooldemo::DriverDirectory() + L"\\3\\ostvt.dll").c_str())) {
  if (!Module) return;
  Sheets = reinterpret_cast<SheetFunction>(
      reinterpret_cast<void*>(GetProcAddress(Module, "DrvDocumentPropertySheets")));
  Header.cbSize = sizeof Header;
  Header.hPrinter = handle;
  Header.pszPrinterName = reinterpret_cast<const char16_t*>(printer.c_str());
}

ProtocolHost::~ProtocolHost() {
  if (Module) FreeLibrary(Module);
}

intptr_t WINAPI ProtocolHost::Callback(void* sheet, uint32_t function, intptr_t first,
                                       intptr_t second) {
  return static_cast<ProtocolHost*>(sheet)->Answer(function, first, second);
}

intptr_t ProtocolHost::Answer(uint32_t function, intptr_t first, intptr_t second) {
  switch (function) {
    case ostvt::kSheetAddPage:
      Pages.push_back(reinterpret_cast<void*>(first));
      return first;
    case ostvt::kSheetInsertPage: {
      const auto* record = reinterpret_cast<const ostvt::InsertPageInfo*>(second);
      Pages.push_back(reinterpret_cast<void*>(record->dwData1));
      return static_cast<intptr_t>(record->dwData1);
    }
    case ostvt::kSheetGetPageCount:
      return static_cast<intptr_t>(Pages.size());
    case ostvt::kSheetGetPageHandles:
      for (intptr_t i = 0; i < second; ++i)
        reinterpret_cast<void**>(first)[i] = Pages[static_cast<size_t>(i)];
      return second;
    case ostvt::kSheetSetResult:
      ++Results;
      return 1;
    default:
      return 0;
  }
}

int32_t ProtocolHost::Send(uint16_t reason, void* parameter) {
  Info.Reason = reason;
  return Sheets(&Info, reinterpret_cast<intptr_t>(parameter));
}

bool ProtocolHost::Run(void* input, void* output, uint32_t mode) {
  Header.pdmIn = input;
  Header.pdmOut = output;
  Header.fMode = mode;
  Info = {};
  Info.cbSize = sizeof Info;
  Info.hComPropSheet = this;
  Info.pfnComPropSheet = Callback;
  Info.lParamInit = reinterpret_cast<intptr_t>(&Header);
  Pages.clear();
  if (Send(ostvt::kReasonInit, &Header) <= 0) return false;
  PageCount = Pages.size();
  if (AtStart) AtStart(reinterpret_cast<ostvt::DriverSession*>(Info.UserData));
  ostvt::PropSheetUiInfoHeader title = {};
  title.cbSize = sizeof title;
  Send(ostvt::kReasonGetInfoHeader, &title);

  PROPSHEETHEADERW sheet = {};
  sheet.dwSize = sizeof sheet;
  sheet.dwFlags = PSH_HASHELP;
  sheet.pszCaption = reinterpret_cast<const wchar_t*>(title.pTitle);
  sheet.nPages = static_cast<UINT>(Pages.size());
  sheet.phpage = reinterpret_cast<HPROPSHEETPAGE*>(Pages.data());
  const bool accepted = PropertySheetW(&sheet) > 0;

  ostvt::SetResultInfo result = {};
  result.cbSize = sizeof result;
  result.Result = accepted ? ostvt::kResultOk : ostvt::kResultCancel;
  Send(ostvt::kReasonSetResult, &result);
  Send(ostvt::kReasonDestroy, nullptr);
  return accepted;
}

}  // namespace host
