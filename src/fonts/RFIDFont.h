// A data font whose text is written to a radio tag.
#pragma once

#include <cstdint>
#include <memory>

#include "fonts/DataFont.h"

namespace ostvt {

class PrinterModel;

inline constexpr uint32_t kCustomEpcFormat = 0;
inline constexpr uint32_t kNoEpcFormat = 65535;

// The header's option is always on, and the custom format always ends inside its field.
class RFIDFont : public DataFont {
 public:
  RFIDFont();
  std::unique_ptr<DataFont> Clone() const override;

  uint32_t GetTagType() const { return Body.TagType; }
  // Begins anew for this tag: its defaults, no format. Without a model its blocks start at 0. A
  // number that is no tag, or several, is kept with the defaults that most tags have; Normalise
  // then makes it one of the model's.
  void SetTagType(uint32_t bit, PrinterModel* model);
  // kNoEpcFormat, kCustomEpcFormat or a number of the tag's list.
  uint32_t GetFormat() const { return Body.EpcFormat; }
  // A default text that isn't empty becomes the custom one.
  void SetFormat(uint32_t format, const OString& defaultText = OString());
  OString GetCustomFormat() const;
  void SetCustomFormat(const OString& text);  // 127 bytes of it
  // The model can write its kind of tag; false for null.
  bool IsValidFor(PrinterModel* model) const;
  // Brings the record to what the model can write: its tags, formats, blocks and segments. Null
  // leaves those as they are.
  void Normalise(PrinterModel* model);

  RfidBody Body = {};

 private:
  void Settle() override;
};

}  // namespace ostvt
