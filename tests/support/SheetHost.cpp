#include "tests/support/SheetHost.h"

namespace ostvt::test {
namespace {

// Kinds of inserted pages and where they go.
constexpr uint8_t kTypePropSheetPage = 4;
constexpr uint8_t kModeLastChild = 3;

}  // namespace

SheetHost::SheetHost(SheetFunction function, void* header) : Function(function) {
  Info.cbSize = sizeof Info;
  Info.Version = 0x0100;
  Info.hComPropSheet = this;
  Info.pfnComPropSheet = Callback;
  Info.lParamInit = reinterpret_cast<intptr_t>(header);
  Info.Result = 0xCCCCCCCC;
}

int32_t SheetHost::Send(uint16_t reason, void* parameter) {
  Info.Reason = reason;
  return Function(&Info, reinterpret_cast<intptr_t>(parameter));
}

int32_t SheetHost::Init() { return Send(kReasonInit, reinterpret_cast<void*>(Info.lParamInit)); }

int32_t SheetHost::GetInfoHeader(PropSheetUiInfoHeader* header) {
  return Send(kReasonGetInfoHeader, header);
}

int32_t SheetHost::SetResult(intptr_t result) {
  SetResultInfo record = {};
  record.cbSize = sizeof record;
  record.Result = result;
  return Send(kReasonSetResult, &record);
}

int32_t SheetHost::Destroy() { return Send(kReasonDestroy, nullptr); }

void* SheetHost::HandleOf(size_t index) const { return reinterpret_cast<void*>(0x5000 + index); }

intptr_t OSTVT_API SheetHost::Callback(void* sheet, uint32_t function, intptr_t first,
                                       intptr_t second) {
  return static_cast<SheetHost*>(sheet)->Answer(function, first, second);
}

intptr_t SheetHost::AddPage(const Page& page) {
  Pages.push_back(page);
  return reinterpret_cast<intptr_t>(HandleOf(Pages.size() - 1));
}

intptr_t SheetHost::Answer(uint32_t function, intptr_t first, intptr_t second) {
  Calls.push_back({function, first, second});
  switch (function) {
    case kSheetAddPage:
      return first ? AddPage({static_cast<uintptr_t>(first), 0, 0, false}) : 0;
    case kSheetGetPageCount:
      return StatedPages >= 0 ? StatedPages : static_cast<intptr_t>(Pages.size());
    case kSheetSetResult:
      Info.Result = static_cast<uintptr_t>(second);
      return static_cast<intptr_t>(Pages.size());
    case kSheetGetPageHandles: {
      if (!TellsHandles) return 0;
      auto handles = reinterpret_cast<void**>(first);
      intptr_t count = 0;
      intptr_t limit = StatedPages >= 0 ? StatedPages : static_cast<intptr_t>(Pages.size());
      for (; handles && count < second && count < limit; count++) {
        handles[count] = HandleOf(static_cast<size_t>(count));
      }
      return count;
    }
    case kSheetInsertPage: {
      const auto* record = reinterpret_cast<const InsertPageInfo*>(second);
      if (!record || record->cbSize != sizeof *record || record->Type != kTypePropSheetPage ||
          record->Mode != kModeLastChild)
        return 0;
      return AddPage({record->dwData1, record->Type, record->Mode, true});
    }
    default:
      return 0;
  }
}

}  // namespace ostvt::test
