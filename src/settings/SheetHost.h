// How pages are handed to the platform's host of property sheets: what is published about its
// callback, as far as more than the exports needs it.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

// Functions of the callback. A host that lacks one answers 0.
inline constexpr uint32_t kSheetAddPage = 0;
inline constexpr uint32_t kSheetGetPageCount = 8;
inline constexpr uint32_t kSheetSetResult = 9;
inline constexpr uint32_t kSheetGetPageHandles = 10;
inline constexpr uint32_t kSheetInsertPage = 17;

// Values of InsertPageInfo: dwData1 is the page's handle; behind all others.
inline constexpr uint8_t kInsertPageHandle = 4;
inline constexpr uint8_t kInsertLastChild = 3;

// INSERTPSUIPAGE_INFO
struct InsertPageInfo {
  uint16_t cbSize;
  uint8_t Type;
  uint8_t Mode;
  uint8_t Reserved[4];
  uintptr_t dwData1;
  uintptr_t dwData2;
  uintptr_t dwData3;
};
static_assert(sizeof(InsertPageInfo) == 32);
static_assert(offsetof(InsertPageInfo, Type) == 2);
static_assert(offsetof(InsertPageInfo, Mode) == 3);
static_assert(offsetof(InsertPageInfo, dwData1) == 8);

}  // namespace ostvt
