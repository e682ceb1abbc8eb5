// The sections of a printer's settings, as settings files hold them, and what passed of each.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

// Bits of the one mask that export, import and reset take; others mean nothing.
inline constexpr uint32_t kSectionStock = 0x001;
inline constexpr uint32_t kSectionPresets = 0x002;
inline constexpr uint32_t kSectionDataFonts = 0x004;
inline constexpr uint32_t kSectionAliasFonts = 0x010;
inline constexpr uint32_t kSectionSubstitutions = 0x020;
inline constexpr uint32_t kSectionDownloadedFonts = 0x040;
inline constexpr uint32_t kSectionOptionalFonts = 0x080;
// An import reads the network settings under this bit too, not under their own.
inline constexpr uint32_t kSectionOptions = 0x100;
inline constexpr uint32_t kSectionDefaultDevMode = 0x200;
inline constexpr uint32_t kSectionNetwork = 0x400;
inline constexpr uint32_t kAllSections = 0xFFFFFFFF;

#pragma pack(push, 1)
// How many records an import took; of the last three, whether there was one (0 or 1). A count above
// 65535 is given as that.
struct ImportResult {
  uint16_t Stock;
  uint16_t Presets;
  uint16_t DataFonts;
  uint16_t AliasFonts;
  uint16_t Substitutions;
  uint16_t DownloadedFonts;
  uint16_t OptionalFonts;
  uint8_t Options;
  uint8_t DefaultDevMode;
  uint8_t Network;
};
#pragma pack(pop)

static_assert(sizeof(ImportResult) == 17);
static_assert(offsetof(ImportResult, Stock) == 0);
static_assert(offsetof(ImportResult, Presets) == 2);
static_assert(offsetof(ImportResult, DataFonts) == 4);
static_assert(offsetof(ImportResult, AliasFonts) == 6);
static_assert(offsetof(ImportResult, Substitutions) == 8);
static_assert(offsetof(ImportResult, DownloadedFonts) == 10);
static_assert(offsetof(ImportResult, OptionalFonts) == 12);
static_assert(offsetof(ImportResult, Options) == 14);
static_assert(offsetof(ImportResult, DefaultDevMode) == 15);
static_assert(offsetof(ImportResult, Network) == 16);

// The same of an export: what was written.
using ExportResult = ImportResult;

// How many records and sections.
constexpr int32_t CountAll(const ImportResult& result) {
  return result.Stock + result.Presets + result.DataFonts + result.AliasFonts +
         result.Substitutions + result.DownloadedFonts + result.OptionalFonts + result.Options +
         result.DefaultDevMode + result.Network;
}

}  // namespace ostvt
