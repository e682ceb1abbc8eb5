// Text records of fonts from outside, of all kinds: what is read is read the same from its own
// export.
#include <cstdlib>
#include <string>

#include "fonts/DataFontTable.h"
#include "fonts/DownloadedFontList.h"
#include "fonts/FontMappingTable.h"
#include "fonts/OptionalFontTable.h"
#include "fuzz/FuzzModel.h"
#include "fuzz/MemoryFile.h"

namespace {

using namespace ostvt;
using fuzz::MemoryFile;
using fuzz::TheModel;

struct Tables {
  explicit Tables(const std::string& text) {
    MemoryFile file(text);
    Taken = Optional.ReadText(file, TheModel());
    Taken += Mappings.ReadText(file, TheModel(), kFontAlias);
    Taken += Mappings.ReadText(file, TheModel(), kFontSubstitution);
    Taken += Data.ReadBarCodeText(file, TheModel());
    Taken += Data.ReadRfidText(file, TheModel());
    Taken += Downloaded.ReadText(file, TheModel());
  }
  std::string Export() const {
    MemoryFile file;
    int32_t written = Optional.WriteText(file);
    written += Mappings.WriteText(file, kFontAlias);
    written += Mappings.WriteText(file, kFontSubstitution);
    written += Data.WriteBarCodeText(file);
    written += Data.WriteRfidText(file, TheModel());
    written += Downloaded.WriteText(file);
    if (written != GetCount()) abort();
    file.Flush();
    return file.Bytes;
  }
  int32_t GetCount() const {
    return Optional.GetCount() + Mappings.GetCount() + Data.GetCount() + Downloaded.GetCount();
  }

  OptionalFontTable Optional;
  FontMappingTable Mappings;
  DataFontTable Data;
  DownloadedFontList Downloaded;
  int32_t Taken = 0;
};

bool IsTable(const WordArray& table) { return table.Count == 0 || table.Count == 256; }

void Check(const Tables& tables) {
  if (tables.GetCount() > tables.Taken) abort();
  for (int32_t i = 0; i < tables.Optional.GetCount(); ++i) {
    const OptionalFont& font = *tables.Optional.GetAt(i);
    if (!IsTable(font.EncodingTable)) abort();
    for (const uint32_t ratio : {font.NominalWidth, font.HorizontalRatio, font.VerticalRatio}) {
      if (ratio < 1638 || ratio > 40 * 65536) abort();
    }
  }
  for (int32_t i = 0; i < tables.Mappings.GetCount(); ++i) {
    const FontMapping& mapping = *tables.Mappings.GetAt(i);
    if (!(mapping.ScaleX >= 0.025f && mapping.ScaleX <= 40)) abort();
    if (!(mapping.ScaleY >= 0.025f && mapping.ScaleY <= 40)) abort();
    if (!(mapping.NominalWidth >= 0.025f && mapping.NominalWidth <= 40)) abort();
  }
  for (const DownloadedFont* font = tables.Downloaded.GetFirst(); font; font = font->GetNext()) {
    if (!IsTable(font->EncodingTable) || font->Type > kDownloadedSpeedo) abort();
    if (font->Info.FullName[63] != 0 || font->Info.FileId[63] != 0) abort();
    if (font->Info.FileName[63] != 0 || font->Info.FilePath[63] != 0) abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Tables tables(std::string(reinterpret_cast<const char*>(data), size));
  Check(tables);
  // Names lose blanks at their ends, ratios and sizes all behind the first decimal, and a name with
  // a wildcard may cover another one: exports come to rest.
  std::string text = tables.Export();
  for (int rounds = tables.GetCount() + 2; rounds >= 0; --rounds) {
    const Tables again(text);
    Check(again);
    const std::string next = again.Export();
    if (next == text) return 0;
    text = next;
  }
  abort();
}
