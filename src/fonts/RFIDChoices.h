// The tags and formats that the rendering half knows by name.
//
// Its answers are blocks from outside: what they place outside themselves is left out.
#pragma once

#include <cstdint>
#include <vector>

#include "core/OString.h"
#include "platform/PrintContext.h"

namespace ostvt {

class MessageTexts;
class RFIDFont;

struct RfidTagChoice {
  uint32_t Bit;
  OString Name;
};
struct RfidFormatChoice {
  uint16_t Format;
  OString Name;
  OString DefaultText;
};

// Empty without a context, or if the rendering half has none.
std::vector<RfidTagChoice> ListRfidTags(platform::PrintContext context);
std::vector<RfidFormatChoice> ListRfidFormats(platform::PrintContext context, uint32_t tagBit);
// The formats with none in front and the custom one at the end.
std::vector<RfidFormatChoice> ListRfidFormatChoices(platform::PrintContext context, uint32_t tagBit,
                                                    const MessageTexts& texts);

// The answers themselves. Texts are in the system's ANSI page. Null only with size 0: no entries.
std::vector<RfidTagChoice> ReadRfidTags(const void* block, uint32_t size);
std::vector<RfidFormatChoice> ReadRfidFormats(const void* block, uint32_t size);

inline constexpr int32_t kDataFormats = 4;
inline constexpr int32_t kFirstDataFormatMessage = 3100;  // of format 0
// The custom text can be edited.
bool ShowsCustomFormat(const RFIDFont& font);

}  // namespace ostvt
