// Which data fonts a model can print or write.
#include "fonts/BarCodeFont.h"
#include "fonts/BarCodeRules.h"
#include "fonts/RFIDFont.h"
#include "fonts/RFIDRules.h"
#include "model/PrinterModel.h"

namespace ostvt {

bool BarCodeFont::IsValidFor(PrinterModel* model) const {
  return model && IsPrintable(*this, *model->GetCapabilities());
}

bool RFIDFont::IsValidFor(PrinterModel* model) const {
  return model && IsWritableTag(Body.TagType, *model->GetRfidCapabilities());
}

void RFIDFont::Normalise(PrinterModel* model) {
  Header.Flags |= kDataFontOption;
  if (model) NormaliseTag(&Body, *model->GetRfidCapabilities());
}

void RFIDFont::SetTagType(uint32_t bit, PrinterModel* model) {
  ResetTag(&Body, bit, model ? *model->GetRfidCapabilities() : RfidCapabilities{});
}

}  // namespace ostvt
