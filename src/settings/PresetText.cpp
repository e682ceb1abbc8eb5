#include "settings/PresetText.h"

#include "core/Buffer.h"
#include "core/PackedText.h"
#include "model/ModelAttributes.h"
#include "model/TextRecords.h"
#include "settings/DevModeBlob.h"
#include "settings/PresetItem.h"

namespace ostvt {

bool IsDefaultDevModeRecord(const OString& openingLine) {
  return GetAttribute(openingLine, "default") == "true";
}

void WritePresetEnd(OStream& stream, const DevMode& devMode) {
  Buffer blob;
  WriteDevModeBlob(devMode, &blob);
  WriteRecordValue(stream, kPresetData, PackText(blob.Data, blob.Size));
  WriteRecordLine(stream, "</preset>");
  WriteRecordLine(stream, "");
}

bool ReadPresetData(const OString& text, PrinterModel* model, PaperResolver* papers,
                    PresetItem* item) {
  Buffer blob;
  blob.Resize(kDevModeBlobHead + kLargestDevMode);
  uint32_t size = blob.Size;
  if (!UnpackText(text, blob.Data, &size)) return false;
  item->SetFromBlob(blob.Data, size, model, papers);
  return true;
}

}  // namespace ostvt
