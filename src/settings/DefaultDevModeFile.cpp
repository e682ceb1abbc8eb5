// A session's device mode in a settings file, as the printer's default.
#include <algorithm>

#include "core/DriverPath.h"
#include "core/Memory.h"
#include "core/OFile.h"
#include "model/TextRecords.h"
#include "settings/DriverSession.h"
#include "settings/PresetText.h"
#include "settings/StockPapers.h"
#include "settings/StoredDevMode.h"

namespace ostvt {
namespace {

// The header of `target` stays, and so does its halftone block.
void Overlay(const DevMode& source, DevMode* target) {
  constexpr uint32_t kStart = offsetof(PublicDevMode, dmFields);
  const uint32_t end = std::min(source.GetPublicSize(), target->GetPublicSize());
  if (end > kStart)
    CopyBytes(target->GetBlock() + kStart, source.GetBlock() + kStart, end - kStart);
  target->CopyPrivateFrom(source);
}

}  // namespace

void DriverSession::ExportDefaultDevMode(OStream& stream) const {
  if (DevModeBuffer.IsEmpty()) return;
  WriteRecordLine(stream, "<preset default='true'>");
  WritePresetEnd(stream, DevModeBuffer);
}

bool DriverSession::ImportDefaultDevMode(OFile& stream, PrinterModel* model) {
  using Line = TextRecordReader::Line;
  if (!model || DevModeBuffer.IsEmpty()) return false;
  TextRecordReader reader(stream, kPresetRecord, model);
  StockPapers papers(model);
  PresetItem item;
  bool applied = false;
  for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
    if (line == Line::kOpening) {
      item.Block.Release();
      if (!IsDefaultDevModeRecord(reader.Text)) reader.Skip();
    } else if (line == Line::kValue && reader.Key == kPresetData) {
      ReadPresetData(reader.Value, model, &papers, &item);
    } else if (line == Line::kClosing && !item.Block.IsEmpty()) {
      Overlay(item.Block, &DevModeBuffer);
      applied = true;
    }
  }
  if (applied && DriverOnNtPath) StoreDevMode(PrinterHandle, PrinterName, DevModeBuffer);
  return applied;
}

}  // namespace ostvt
