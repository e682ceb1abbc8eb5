// A sheet host that speaks the whole protocol, as the platform's own does and Wine's doesn't: it
// takes pages by record and by themselves, tells their number and handles, and tells the result.
// One at a time.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "entry/PlatformRecords.h"

namespace ostvt {
class DriverSession;
}

namespace host {

class ProtocolHost {
 public:
  // Over the printer, with the module in the spooler's directory.
  ProtocolHost(const std::wstring& printer, HANDLE handle);
  ~ProtocolHost();
  ProtocolHost(const ProtocolHost&) = delete;
  ProtocolHost& operator=(const ProtocolHost&) = delete;

  bool IsReady() const { return Sheets != nullptr; }
  // Shows the document sheet until it is closed; true for OK.
  bool Run(void* input, void* output, uint32_t mode);

  // Called between the start of the sheet and its first page, with what the pages work on.
  std::function<void(ostvt::DriverSession*)> AtStart;
  int Results = 0;  // told by the pages themselves
  size_t PageCount = 0;

 private:
  static intptr_t WINAPI Callback(void* sheet, uint32_t function, intptr_t first, intptr_t second);
  intptr_t Answer(uint32_t function, intptr_t first, intptr_t second);
  int32_t Send(uint16_t reason, void* parameter);

  using SheetFunction = int32_t(WINAPI*)(ostvt::PropSheetUiInfo*, intptr_t);
  HMODULE Module = nullptr;
  SheetFunction Sheets = nullptr;
  ostvt::DocumentPropertyHeader Header = {};
  ostvt::PropSheetUiInfo Info = {};
  std::vector<void*> Pages;
};

}  // namespace host
