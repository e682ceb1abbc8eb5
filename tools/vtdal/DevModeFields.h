// The fields of a device mode block: where they lie and how they are shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vtdal {

enum class FieldKind {
  kUnsigned,
  kSigned,
  kWideText,    // NUL-terminated, or filling its width
  kNarrowText,  // likewise, one byte a character
  kHex,         // a number best seen in hexadecimal
  kFieldBits,   // the bits of dmFields
  kOrientation,
  kTenthsMm,
  kMicrometres,
};

struct Field {
  const char* Name;
  size_t Offset;  // in its part
  size_t Width;   // in bytes
  FieldKind Kind;
};

// A stretch of the block that was found in it.
struct DevModePart {
  const char* Name;   // for JSON
  const char* Title;  // for people
  const uint8_t* Data;
  size_t Size;
  const std::vector<Field>* Fields;
};

// The public part, and the private ones where the block has them. A part is cut at what its header
// and the block's own length leave of it; a field that is cut counts as absent. Empty when the
// block has no header.
std::vector<DevModePart> FindParts(const std::vector<uint8_t>& block);

bool IsPresent(const DevModePart& part, const Field& field);
bool IsText(const Field& field);
// For fields that are present.
int64_t NumberOf(const DevModePart& part, const Field& field);
std::string TextOf(const DevModePart& part, const Field& field);  // UTF-8
// What the value means where the number doesn't say it; often empty.
std::string MeaningOf(const DevModePart& part, const Field& field);

}  // namespace vtdal
