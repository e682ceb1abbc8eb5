// A session's device mode in a settings file, as the printer's default.
#include "core/DriverPath.h"
#include "core/OFile.h"
#include "model/TextRecords.h"
#include "settings/DevModeOverlay.h"
#include "settings/DriverSession.h"
#include "settings/PresetText.h"
#include "settings/StockPapers.h"
#include "settings/StoredDevMode.h"

namespace ostvt {
void DriverSession::ExportDefaultDevMode(OStream& stream) const {
  if (DevModeBuffer.IsEmpty()) return;
  WriteRecordLine(stream, "<preset default='true'>");
  WritePresetEnd(stream, DevModeBuffer);
}

bool DriverSession::ImportDefaultDevMode(OFile& stream, PrinterModel* model) {
  using Line = TextRecordReader::Line;
  if (!model || DevModeBuffer.IsEmpty()) return false;
  TextRecordReader reader(stream, kPresetRecord, model);
  StockPapers papers(model, StockLoaded ? &Stock : nullptr);
  PresetItem item;
  bool applied = false;
  for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
    if (line == Line::kOpening) {
      item.Block.Release();
      if (!IsDefaultDevModeRecord(reader.Text)) reader.Skip();
    } else if (line == Line::kValue && reader.Key == kPresetData) {
      ReadPresetData(reader.Value, model, &papers, &item);
    } else if (line == Line::kClosing && !item.Block.IsEmpty()) {
      OverlayDevMode(item.Block, &DevModeBuffer);
      applied = true;
    }
  }
  if (applied && DriverOnNtPath) StoreDevMode(PrinterHandle, PrinterName, DevModeBuffer);
  return applied;
}

}  // namespace ostvt
