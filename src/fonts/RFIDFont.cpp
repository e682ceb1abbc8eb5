#include "fonts/RFIDFont.h"

#include "model/RecordText.h"

namespace ostvt {

RFIDFont::RFIDFont() : DataFont(&Body, sizeof(Body)) {
  Header.Kind = kDataFontRfid;
  Header.Flags = kDataFontOption;
  Body.Size = kRfidBodySize;
}

std::unique_ptr<DataFont> RFIDFont::Clone() const {
  auto copy = std::make_unique<RFIDFont>();
  copy->CopyFrom(*this);
  return copy;
}

void RFIDFont::Settle() {
  Header.Flags |= kDataFontOption;
  Body.CustomFormat[sizeof(Body.CustomFormat) - 1] = 0;
}

void RFIDFont::SetFormat(uint32_t format, const OString& defaultText) {
  Body.EpcFormat = format;
  if (!defaultText.IsEmpty()) SetCustomFormat(defaultText);
}

OString RFIDFont::GetCustomFormat() const {
  OString text;
  text.AssignCount(Body.CustomFormat, sizeof(Body.CustomFormat) - 1);
  return text;
}

void RFIDFont::SetCustomFormat(const OString& text) { StoreText(Body.CustomFormat, text); }

}  // namespace ostvt
