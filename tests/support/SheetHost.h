// A host of property sheets: speaks the platform's protocol with a driver's sheet function, keeps
// the pages that it adds, and notes every call. Shows nothing.
#pragma once

#include <cstdint>
#include <vector>

#include "entry/PlatformRecords.h"

namespace ostvt::test {

class SheetHost {
 public:
  using SheetFunction = int32_t(OSTVT_API*)(PropSheetUiInfo*, intptr_t);

  struct Call {
    uint32_t Function;
    intptr_t First;
    intptr_t Second;
  };
  // A page as the driver gave it: by itself (function 0) or by a record (function 17).
  struct Page {
    uintptr_t Handed;
    uint8_t Type;
    uint8_t Mode;
    bool Inserted;
  };

  // `header` is the driver's lParamInit; it lives as long as the host.
  SheetHost(SheetFunction function, void* header);
  SheetHost(const SheetHost&) = delete;
  SheetHost& operator=(const SheetHost&) = delete;

  // Each sends one reason and gives the driver's result.
  int32_t Init();
  int32_t GetInfoHeader(PropSheetUiInfoHeader* header);
  int32_t SetResult(intptr_t result);
  int32_t Destroy();
  int32_t Send(uint16_t reason, void* parameter);

  // The handle by which the host knows the page at `index`.
  void* HandleOf(size_t index) const;

  // What function 8 answers instead of the number of pages; below 0: that number.
  intptr_t StatedPages = -1;
  // Function 10 gives handles.
  bool TellsHandles = true;
  PropSheetUiInfo Info = {};
  std::vector<Call> Calls;
  std::vector<Page> Pages;

 private:
  static intptr_t OSTVT_API Callback(void* sheet, uint32_t function, intptr_t first,
                                     intptr_t second);
  intptr_t Answer(uint32_t function, intptr_t first, intptr_t second);
  intptr_t AddPage(const Page& page);

  SheetFunction Function;
};

}  // namespace ostvt::test
