#include "entry/Sheet.h"

#include "core/Memory.h"
#include "entry/CallerBlock.h"
#include "entry/PageMessage.h"
#include "entry/SheetHook.h"
#include "model/PrinterModel.h"
#include "platform/Module.h"
#include "settings/DriverSession.h"
#include "settings/ModelRecordView.h"
#include "settings/SessionEnd.h"
#include "settings/StockPapers.h"
#include "settings/StoredDevMode.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

constexpr uintptr_t kSheetIcon = 64082;
constexpr int32_t kPageLimit = 100;  // as many as a sheet of the platform can have

uint32_t TakeMessage(DriverSession* session) {
  if (!session->Model) return 0;
  PrinterRegistry& store = session->Model->GetStore();
  uint32_t message = store.ReadDword(kPageMessage, 0);
  if (message) store.WriteDword(kPageMessage, uint32_t{0});
  return message;
}

void KeepContext(DriverSession* session, const PropSheetUiInfo* info) {
  session->SheetCallback = info->pfnComPropSheet;
  session->SheetHandle = info->hComPropSheet;
}

intptr_t CallHost(DriverSession* session, uint32_t function, intptr_t first, intptr_t second) {
  if (!session->SheetCallback) return 0;
  return session->SheetCallback(session->SheetHandle, function, first, second);
}

// The host's handles of the pages, by which later calls name them. A host that speaks less than the
// whole protocol knows neither their number nor handles.
void KeepPageHandles(DriverSession* session, int32_t added) {
  session->PageCount = added;
  intptr_t count = CallHost(session, kSheetGetPageCount, 0, 0);
  if (count <= 0) return;
  if (count > kPageLimit) count = kPageLimit;
  session->PageCount = static_cast<int32_t>(count);
  FreeCounted(session->PageHandles);
  session->PageHandles =
      static_cast<void**>(AllocCountedZero(static_cast<size_t>(count), sizeof(void*)));
  const auto handles = reinterpret_cast<intptr_t>(session->PageHandles);
  if (CallHost(session, kSheetGetPageHandles, handles, count) == 0) {
    FreeCounted(session->PageHandles);
    session->PageHandles = nullptr;
  }
}

// The About page is always the last.
void AddPages(DriverSession* session, uint32_t flags) {
  int32_t added = session->RegisterPages(flags);
  if (session->AddAboutPage()) added++;
  KeepPageHandles(session, added);
}

void HandOver(DriverSession* session, PropSheetUiInfo* info) {
  info->UserData = reinterpret_cast<uintptr_t>(session);
  info->Result = 0;
}

char16_t FoldLetter(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

// The caller's own block has no more room than it states, at worst none.
void GiveBack(const DriverSession& session, const DevMode& devMode,
              const DocumentPropertyHeader& header) {
  if (!header.pdmOut) return;
  if (header.pdmIn != header.pdmOut) {
    devMode.CopyTo(header.pdmOut, kDevModeSize);
    return;
  }
  CallerBlock target(header.pdmOut);
  StockPapers papers(session.Model);
  if (target.GetSize() > 0) target.Merge(devMode, session.Model, &papers);
}

// A block that states just the sizes of this driver's.
bool IsWholeBlock(const void* block) {
  if (CallerBlockLength(block) != kDevModeSize) return false;
  const DevModeHeader header = ReadHeader(block, kDevModeSize);
  return header.Size == kPublicSize && header.DriverExtra == kDriverExtra;
}

// As it was at the start; a block of this driver's size whole, since merging keeps some of it.
void Restore(const DriverSession& session, const DocumentPropertyHeader& header) {
  if (header.pdmIn == header.pdmOut && IsWholeBlock(header.pdmOut)) {
    session.SavedDevMode.CopyTo(header.pdmOut, kDevModeSize);
  } else {
    GiveBack(session, session.SavedDevMode, header);
  }
}

}  // namespace

bool IsExplorer(std::u16string_view programPath) {
  constexpr std::u16string_view name = u"explorer.exe";
  constexpr size_t limit = 1023;  // units of the path that are looked at
  programPath = programPath.substr(0, limit);
  for (size_t start = 0; start + name.size() <= programPath.size(); start++) {
    size_t i = 0;
    while (i < name.size() && FoldLetter(programPath[start + i]) == name[i]) i++;
    if (i == name.size()) return true;
  }
  return false;
}

int32_t StartDeviceSheet(DriverSession* session, PropSheetUiInfo* info) {
  KeepContext(session, info);
  uint32_t flags = kPagesFonts;
  if (TakeMessage(session) == kMessageCache) {
    flags = kPagesCache;
    session->KeepAboutClosed();
  }
  AddPages(session, flags);
  InstallSheetHook(session, session->PageCount > 0 && session->IsAboutFirst());
  HandOver(session, info);
  return 1;
}

int32_t StartDocumentSheet(DriverSession* session, PropSheetUiInfo* info) {
  KeepContext(session, info);
  if (!session->IsDefaultsSession()) session->KeepAboutClosed();
  AddPages(session, kPagesSetup | kPagesGraphics);
  HandOver(session, info);
  return 1;
}

int32_t FillInfoHeader(const PropSheetUiInfo* info, PropSheetUiInfoHeader* header) {
  DriverSession* session = SessionOf(info);
  if (!session || !header) return kSheetFailure;
  header->Flags = kHeaderPropertiesTitle;
  header->pTitle = session->PrinterName.GetWide();
  header->hInst = platform::ModuleHandle();
  header->IconID = kSheetIcon;
  return 1;
}

int32_t ApplySheetResult(PropSheetUiInfo* info, const SetResultInfo* setResult,
                         const DocumentPropertyHeader* header) {
  DriverSession* session = SessionOf(info);
  if (!session || !setResult) return kSheetFailure;
  if (header && !session->DevModeBuffer.IsEmpty()) {
    if (setResult->Result == kResultOk && (header->fMode & (kModeUpdate | kModeCopy))) {
      GiveBack(*session, session->DevModeBuffer, *header);
      if (header->fMode & kModeUpdate) {
        StoreDevMode(session->PrinterHandle, session->PrinterName, session->DevModeBuffer);
      }
    }
    if (setResult->Result == kResultCancel) {
      // What was applied before stays applied, with a host too that was deaf to it.
      if (session->IsApplied && (header->fMode & kModeUpdate))
        StoreDevMode(session->PrinterHandle, session->PrinterName, session->SavedDevMode);
      if (header->fMode & kModeCopy) Restore(*session, *header);
    }
  }
  session->IsApplied = false;
  info->Result = static_cast<uintptr_t>(setResult->Result);
  return 1;
}

void EndSheet(PropSheetUiInfo* info, const DocumentPropertyHeader* header) {
  const DriverSession* session = SessionOf(info);
  if (session && session->IsApplied) {
    SetResultInfo result = {};
    result.cbSize = sizeof result;
    result.Result = kResultOk;
    ApplySheetResult(info, &result, header);
  }
  EndSession(SessionOf(info));
  info->UserData = 0;
}

}  // namespace ostvt
