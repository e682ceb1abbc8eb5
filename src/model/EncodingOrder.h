// The order in which a model's encodings are offered.
#pragma once

#include <cstdint>

#include "core/OStringArray.h"

namespace ostvt {

// The system's code pages.
struct SystemCodePages {
  uint32_t Ansi;
  uint32_t Oem;
};

// The encodings of `raw` that are code pages of Windows, that of the system first. Replaces the
// content of `preferred`.
void ListAnsiEncodings(const OStringArray& raw, uint32_t ansiPage, OStringArray* preferred);
// `preferred` as it stands, then the others of `raw`: UTF-8, the system's pages, other Windows
// pages, UTF-16, East Asian pages, other numbers, words. Replaces the content of `ordered`.
void OrderEncodings(const OStringArray& raw, const OStringArray& preferred,
                    const SystemCodePages& system, OStringArray* ordered);

}  // namespace ostvt
