#include "tools/vtdal/DevModeFields.h"

#include <algorithm>
#include <cstring>

#include "settings/DevModeRecord.h"
#include "tools/vtdal/DevModeFlags.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using Kind = FieldKind;
using ostvt::HalftoneBlock;
using ostvt::ModelRecord;
using ostvt::PublicDevMode;

#define FIELD(record, name, member, kind) \
  { name, offsetof(record, member), sizeof(record::member), kind }
#define PUBLIC(member, kind) FIELD(PublicDevMode, #member, member, kind)
#define INFO(member) FIELD(HalftoneBlock, #member, HalftoneInfo.member, Kind::kSigned)
#define COLOR(member) INFO(member.x), INFO(member.y), INFO(member.Y)
#define ADJUST(member, kind) FIELD(HalftoneBlock, #member, ColorAdjustment.member, kind)
#define DITHER(member, kind) FIELD(ModelRecord, #member, DitherSetup.member, kind)
#define FAMILY(member, kind) FIELD(ModelRecord, #member, OstrelSettings.member, kind)
#define TRAILER(member, kind) FIELD(ModelRecord, #member, Trailer.member, kind)

const std::vector<Field> kPublicFields = {
    PUBLIC(dmDeviceName, Kind::kWideText),
    PUBLIC(dmSpecVersion, Kind::kUnsigned),
    PUBLIC(dmDriverVersion, Kind::kHex),
    PUBLIC(dmSize, Kind::kUnsigned),
    PUBLIC(dmDriverExtra, Kind::kUnsigned),
    PUBLIC(dmFields, Kind::kFieldBits),
    PUBLIC(dmOrientation, Kind::kOrientation),
    PUBLIC(dmPaperSize, Kind::kSigned),
    PUBLIC(dmPaperLength, Kind::kTenthsMm),
    PUBLIC(dmPaperWidth, Kind::kTenthsMm),
    PUBLIC(dmScale, Kind::kSigned),
    PUBLIC(dmCopies, Kind::kSigned),
    PUBLIC(dmDefaultSource, Kind::kSigned),
    PUBLIC(dmPrintQuality, Kind::kSigned),
    PUBLIC(dmColor, Kind::kSigned),
    PUBLIC(dmDuplex, Kind::kSigned),
    PUBLIC(dmYResolution, Kind::kSigned),
    PUBLIC(dmTTOption, Kind::kSigned),
    PUBLIC(dmCollate, Kind::kSigned),
    PUBLIC(dmFormName, Kind::kWideText),
    PUBLIC(dmLogPixels, Kind::kUnsigned),
    PUBLIC(dmBitsPerPel, Kind::kUnsigned),
    PUBLIC(dmPelsWidth, Kind::kUnsigned),
    PUBLIC(dmPelsHeight, Kind::kUnsigned),
    PUBLIC(dmDisplayFlags, Kind::kUnsigned),
    PUBLIC(dmDisplayFrequency, Kind::kUnsigned),
    PUBLIC(dmICMMethod, Kind::kUnsigned),
    PUBLIC(dmICMIntent, Kind::kUnsigned),
    PUBLIC(dmMediaType, Kind::kUnsigned),
    PUBLIC(dmDitherType, Kind::kUnsigned),
    PUBLIC(dmReserved1, Kind::kUnsigned),
    PUBLIC(dmReserved2, Kind::kUnsigned),
    PUBLIC(dmPanningWidth, Kind::kUnsigned),
    PUBLIC(dmPanningHeight, Kind::kUnsigned),
};

const std::vector<Field> kHalftoneFields = {
    FIELD(HalftoneBlock, "Size", Size, Kind::kUnsigned),
    FIELD(HalftoneBlock, "Version", Version, Kind::kUnsigned),
    FIELD(HalftoneBlock, "Signature", Signature, Kind::kNarrowText),
    FIELD(HalftoneBlock, "HTFlags", HalftoneInfo.HTFlags, Kind::kHex),
    FIELD(HalftoneBlock, "HTPatternSize", HalftoneInfo.HTPatternSize, Kind::kUnsigned),
    FIELD(HalftoneBlock, "DevPelsDPI", HalftoneInfo.DevPelsDPI, Kind::kUnsigned),
    COLOR(Red),
    COLOR(Green),
    COLOR(Blue),
    COLOR(Cyan),
    COLOR(Magenta),
    COLOR(Yellow),
    COLOR(AlignmentWhite),
    INFO(RedGamma),
    INFO(GreenGamma),
    INFO(BlueGamma),
    INFO(MagentaInCyanDye),
    INFO(YellowInCyanDye),
    INFO(CyanInMagentaDye),
    INFO(YellowInMagentaDye),
    INFO(CyanInYellowDye),
    INFO(MagentaInYellowDye),
    ADJUST(caSize, Kind::kUnsigned),
    ADJUST(caFlags, Kind::kHex),
    ADJUST(caIlluminantIndex, Kind::kUnsigned),
    ADJUST(caRedGamma, Kind::kUnsigned),
    ADJUST(caGreenGamma, Kind::kUnsigned),
    ADJUST(caBlueGamma, Kind::kUnsigned),
    ADJUST(caReferenceBlack, Kind::kUnsigned),
    ADJUST(caReferenceWhite, Kind::kUnsigned),
    ADJUST(caContrast, Kind::kSigned),
    ADJUST(caBrightness, Kind::kSigned),
    ADJUST(caColorfulness, Kind::kSigned),
    ADJUST(caRedGreenTint, Kind::kSigned),
};

const std::vector<Field> kModelFields = {
    {"CommandText1", 0, 256, Kind::kNarrowText},
    {"CommandText2", 256, 256, Kind::kNarrowText},
    {"CommandText3", 512, 256, Kind::kNarrowText},
    {"CommandText4", 768, 252, Kind::kNarrowText},
    FIELD(ModelRecord, "PresetNameCrc", PresetNameCrc, Kind::kHex),
    FIELD(ModelRecord, "RecordSize", RecordSize, Kind::kUnsigned),
    FIELD(ModelRecord, "RecordVersion", RecordVersion, Kind::kUnsigned),
    FIELD(ModelRecord, "ImageFlags", ImageFlags, Kind::kHex),
    FIELD(ModelRecord, "AdvancedLength", AdvancedLength, Kind::kMicrometres),
    DITHER(method, Kind::kUnsigned),
    DITHER(brightness, Kind::kSigned),
    DITHER(contrast, Kind::kSigned),
    DITHER(redAdjust, Kind::kSigned),
    DITHER(greenAdjust, Kind::kSigned),
    DITHER(blueAdjust, Kind::kSigned),
    DITHER(orderedSize, Kind::kUnsigned),
    DITHER(halftoneSize, Kind::kUnsigned),
    DITHER(diffusionKind, Kind::kUnsigned),
    DITHER(screenIndex, Kind::kSigned),
    FIELD(ModelRecord, "ditherFlags", DitherSetup.flags, Kind::kHex),
    FAMILY(mediaKind, Kind::kSigned),
    FAMILY(feedMode, Kind::kSigned),
    FAMILY(feedOption, Kind::kSigned),
    FAMILY(listA, Kind::kSigned),
    FAMILY(listB, Kind::kSigned),
    FAMILY(labelLength, Kind::kMicrometres),
    FAMILY(labelGap, Kind::kMicrometres),
    FAMILY(labelCount, Kind::kSigned),
    FAMILY(topOfForm, Kind::kMicrometres),
    FAMILY(feedLength, Kind::kMicrometres),
    FAMILY(feedRate, Kind::kSigned),
    FAMILY(feedStop, Kind::kMicrometres),
    FAMILY(feedOffset, Kind::kMicrometres),
    FAMILY(printSpeed, Kind::kSigned),
    FAMILY(darkness, Kind::kSigned),
    FAMILY(flags, Kind::kHex),
    TRAILER(TrailerSignature, Kind::kNarrowText),
    TRAILER(TrailerModel, Kind::kNarrowText),
    TRAILER(TrailerSize, Kind::kUnsigned),
};

// The offset of a part's first byte that is read from the header, and where the header itself ends.
constexpr size_t kHeaderSize = offsetof(PublicDevMode, dmFields);

// Null unless the last bytes of [start, end) are a record of ours.
const uint8_t* FindModel(const uint8_t* start, const uint8_t* end) {
  if (static_cast<size_t>(end - start) < sizeof(ModelRecord)) return nullptr;
  const uint8_t* record = end - sizeof(ModelRecord);
  const uint8_t* signature = record + offsetof(ModelRecord, Trailer.TrailerSignature);
  return memcmp(signature, ostvt::kTrailerSignature, 3) == 0 ? record : nullptr;
}

}  // namespace

std::vector<DevModePart> FindParts(const std::vector<uint8_t>& block) {
  std::vector<DevModePart> parts;
  if (block.size() < kHeaderSize) return parts;
  PublicDevMode header;
  memcpy(&header, block.data(), kHeaderSize);
  size_t publicSize = std::min<size_t>(header.dmSize, block.size());
  size_t wholeSize = std::min<size_t>(publicSize + header.dmDriverExtra, block.size());
  const uint8_t* extra = block.data() + publicSize;
  const uint8_t* end = block.data() + wholeSize;
  parts.push_back({"public", "Public part", block.data(), publicSize, &kPublicFields});
  size_t room = static_cast<size_t>(end - extra);
  constexpr size_t kSignatureAt = offsetof(HalftoneBlock, Signature);
  if (room >= sizeof(HalftoneBlock) &&
      memcmp(extra + kSignatureAt, ostvt::kHalftoneSignature, 4) == 0)
    parts.push_back({"halftone", "Halftone block", extra, sizeof(HalftoneBlock), &kHalftoneFields});
  if (const uint8_t* record = FindModel(extra, end))
    parts.push_back({"model", "Model record", record, sizeof(ModelRecord), &kModelFields});
  return parts;
}

bool IsPresent(const DevModePart& part, const Field& field) {
  return field.Offset + field.Width <= part.Size;
}

bool IsText(const Field& field) {
  return field.Kind == Kind::kWideText || field.Kind == Kind::kNarrowText;
}

int64_t NumberOf(const DevModePart& part, const Field& field) {
  uint32_t bits = 0;
  memcpy(&bits, part.Data + field.Offset, field.Width);
  bool isUnsigned =
      field.Kind == Kind::kUnsigned || field.Kind == Kind::kHex || field.Kind == Kind::kFieldBits;
  if (isUnsigned) return bits;
  return field.Width == 2 ? static_cast<int16_t>(bits) : static_cast<int32_t>(bits);
}

std::string TextOf(const DevModePart& part, const Field& field) {
  const uint8_t* data = part.Data + field.Offset;
  std::u16string text;
  if (field.Kind == Kind::kWideText) {
    text.resize(field.Width / 2);
    memcpy(text.data(), data, text.size() * 2);
  } else {
    text.assign(data, data + field.Width);  // bytes above 0x7F as Latin-1
  }
  text.resize(std::min(text.find(u'\0'), text.size()));
  return ToUtf8(text);
}

std::string MeaningOf(const DevModePart& part, const Field& field) {
  int64_t number = IsText(field) ? 0 : NumberOf(part, field);
  switch (field.Kind) {
    case Kind::kHex:
      return Format("0x%0*X", static_cast<int>(field.Width * 2), static_cast<uint32_t>(number));
    case Kind::kTenthsMm:
      return DecimalText(number, 1) + " mm";
    case Kind::kMicrometres:
      return DecimalText(number, 3) + " mm";
    case Kind::kOrientation:
      return number == 1 ? "portrait" : number == 2 ? "landscape" : "";
    case Kind::kFieldBits: {
      std::string names = Format("0x%X:", static_cast<uint32_t>(number));
      for (const std::string& name : FieldNames(static_cast<uint32_t>(number)))
        names += (names.back() == ':' ? " " : ", ") + name;
      return names;
    }
    default:
      return "";
  }
}

}  // namespace vtdal
