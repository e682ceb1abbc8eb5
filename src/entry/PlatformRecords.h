// The records in which the platform hands its requests to the exports, laid out as published for
// 64-bit systems. They stand here so that the exports build and run where the platform's headers
// don't exist; where those exist, the build compares the two.
//
// Field names are the platform's. Every pointer may be null.
#pragma once

#include <cstddef>
#include <cstdint>

#include "entry/CallingConvention.h"
#include "settings/SheetHost.h"

namespace ostvt {

// What the host of a property sheet offers to those who add pages. The result depends on the
// function.
using ComPropSheetFunction = intptr_t(OSTVT_API*)(void* hComPropSheet, uint32_t function,
                                                  intptr_t lParam1, intptr_t lParam2);

// Values of PropSheetUiInfo::Reason.
inline constexpr uint16_t kReasonInit = 0;
inline constexpr uint16_t kReasonGetInfoHeader = 1;
inline constexpr uint16_t kReasonDestroy = 2;
inline constexpr uint16_t kReasonSetResult = 3;

// PROPSHEETUI_INFO
struct PropSheetUiInfo {
  uint16_t cbSize;
  uint16_t Version;
  uint16_t Flags;
  uint16_t Reason;
  void* hComPropSheet;
  ComPropSheetFunction pfnComPropSheet;
  intptr_t lParamInit;
  uintptr_t UserData;
  uintptr_t Result;
};
static_assert(sizeof(PropSheetUiInfo) == 48);
static_assert(offsetof(PropSheetUiInfo, Reason) == 6);
static_assert(offsetof(PropSheetUiInfo, hComPropSheet) == 8);
static_assert(offsetof(PropSheetUiInfo, pfnComPropSheet) == 16);
static_assert(offsetof(PropSheetUiInfo, lParamInit) == 24);
static_assert(offsetof(PropSheetUiInfo, UserData) == 32);
static_assert(offsetof(PropSheetUiInfo, Result) == 40);

// The host writes "Properties" behind the title.
inline constexpr uint16_t kHeaderPropertiesTitle = 4;

// PROPSHEETUI_INFO_HEADER
struct PropSheetUiInfoHeader {
  uint16_t cbSize;
  uint16_t Flags;
  uint8_t Reserved[4];
  const char16_t* pTitle;
  void* hWndParent;
  void* hInst;
  uintptr_t IconID;
};
static_assert(sizeof(PropSheetUiInfoHeader) == 40);
static_assert(offsetof(PropSheetUiInfoHeader, Flags) == 2);
static_assert(offsetof(PropSheetUiInfoHeader, pTitle) == 8);
static_assert(offsetof(PropSheetUiInfoHeader, hWndParent) == 16);
static_assert(offsetof(PropSheetUiInfoHeader, hInst) == 24);
static_assert(offsetof(PropSheetUiInfoHeader, IconID) == 32);

inline constexpr intptr_t kResultCancel = 0;
inline constexpr intptr_t kResultOk = 1;

// SETRESULT_INFO
struct SetResultInfo {
  uint16_t cbSize;
  uint16_t wReserved;
  uint8_t Reserved[4];
  void* hSetResult;
  intptr_t Result;
};
static_assert(sizeof(SetResultInfo) == 24);
static_assert(offsetof(SetResultInfo, hSetResult) == 8);
static_assert(offsetof(SetResultInfo, Result) == 16);

// DEVICEPROPERTYHEADER
struct DevicePropertyHeader {
  uint16_t cbSize;
  uint16_t Flags;
  uint8_t Reserved[4];
  void* hPrinter;
  const char16_t* pszPrinterName;
};
static_assert(sizeof(DevicePropertyHeader) == 24);
static_assert(offsetof(DevicePropertyHeader, hPrinter) == 8);
static_assert(offsetof(DevicePropertyHeader, pszPrinterName) == 16);

// Bits of DocumentPropertyHeader::fMode.
inline constexpr uint32_t kModeUpdate = 1;
inline constexpr uint32_t kModeCopy = 2;
inline constexpr uint32_t kModeMerge = 8;

// DOCUMENTPROPERTYHEADER
struct DocumentPropertyHeader {
  uint16_t cbSize;
  uint16_t Reserved;
  uint8_t Reserved2[4];
  void* hPrinter;
  const char16_t* pszPrinterName;
  void* pdmIn;
  void* pdmOut;
  uint32_t cbOut;
  uint32_t fMode;
};
static_assert(sizeof(DocumentPropertyHeader) == 48);
static_assert(offsetof(DocumentPropertyHeader, hPrinter) == 8);
static_assert(offsetof(DocumentPropertyHeader, pszPrinterName) == 16);
static_assert(offsetof(DocumentPropertyHeader, pdmIn) == 24);
static_assert(offsetof(DocumentPropertyHeader, pdmOut) == 32);
static_assert(offsetof(DocumentPropertyHeader, cbOut) == 40);
static_assert(offsetof(DocumentPropertyHeader, fMode) == 44);

// DOCINFOW
struct DocInfo {
  int32_t cbSize;
  uint8_t Reserved[4];
  const char16_t* lpszDocName;
  const char16_t* lpszOutput;
  const char16_t* lpszDatatype;
  uint32_t fwType;
  uint8_t Reserved2[4];
};
static_assert(sizeof(DocInfo) == 40);
static_assert(offsetof(DocInfo, lpszDocName) == 8);
static_assert(offsetof(DocInfo, lpszOutput) == 16);
static_assert(offsetof(DocInfo, lpszDatatype) == 24);
static_assert(offsetof(DocInfo, fwType) == 32);

// The head that the DRIVER_UPGRADE_INFO records of every level share.
struct DriverUpgradeInfo {
  const char16_t* pPrinterName;
  const char16_t* pOldDriverDirectory;
};
static_assert(sizeof(DriverUpgradeInfo) == 16);

}  // namespace ostvt
