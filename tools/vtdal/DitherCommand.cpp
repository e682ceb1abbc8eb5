// Shows what a dither method makes of a picture.
#include "imaging/ImageDither.h"
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/DitherOptions.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/PictureOptions.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

using ostvt::ImageDither;
using ostvt::ImageDitherRecord;

constexpr const char* kHelp =
    "Usage: vtdal dither IN OUT [OPTION]...\n"
    "\n"
    "Turns a picture into the dots that the driver prints.\n"
    "\n"
    "  IN                a BMP; on Linux also a PNG; at most 10921 pixels wide\n"
    "  OUT               the result; its name ends with .bmp, or on Linux with .png\n"
    "  --method METHOD   none, ordered, halftone (the default), screen or diffusion\n"
    "  --mode MODE       gray (the default), palette, planes (yellow, cyan, magenta) or black\n"
    "                    (planes with a black one, which looks the same)\n"
    "  --colors LIST     palette of mode palette: 1 to 16 colors as RRGGBB, parted by commas;\n"
    "                    otherwise sixteen common ones\n"
    "  --size N          matrix of ordered (2, 4, 8) or halftone (2, 4, 6, 8); otherwise 8\n"
    "  --screen N        screen 0 to 19; otherwise 18\n"
    "  --kernel KERNEL   of diffusion: floyd-steinberg (the default) or jarvis\n"
    "  --brightness N, --contrast N, --red N, --green N, --blue N\n"
    "                    adjustments, -100 to 100\n"
    "  --mirror, --flip, --invert\n"
    "                    left to right, top to bottom, light to dark\n"
    "  --origin X,Y      phase of matrices and screens; without a say in --smooth\n"
    "  --smooth          dither at twice the size and average, as the preview does\n"
    "  --json            tell what was done as JSON\n";

void PrintJson(const ImageDitherRecord& record, bool isSmooth) {
  JsonWriter json;
  json.BeginObject();
  const struct {
    const char* Key;
    int64_t Value;
  } rows[] = {{"width", record.width},
              {"height", record.height},
              {"colorMode", record.colorMode},
              {"paletteCount", record.paletteCount},
              {"originX", record.originX},
              {"originY", record.originY},
              {"method", record.setup.method},
              {"brightness", record.setup.brightness},
              {"contrast", record.setup.contrast},
              {"redAdjust", record.setup.redAdjust},
              {"greenAdjust", record.setup.greenAdjust},
              {"blueAdjust", record.setup.blueAdjust},
              {"orderedSize", record.setup.orderedSize},
              {"halftoneSize", record.setup.halftoneSize},
              {"diffusionKind", record.setup.diffusionKind},
              {"screenIndex", record.setup.screenIndex},
              {"flags", record.setup.flags}};
  for (const auto& row : rows) {
    json.Key(row.Key);
    json.Number(row.Value);
  }
  json.Key("smooth");
  json.Boolean(isSmooth);
  json.EndObject();
  Print(json.Take());
}

int RunDither(const Arguments& arguments) {
  ImageDitherRecord record = {};
  std::string error;
  if (!ReadDitherOptions(arguments, &record, &error)) return UsageError("dither", error);
  Bitmap bitmap;
  if (int code = OpenPicture("dither", arguments, &bitmap)) return code;
  // In the doubled picture a size is 16 bits with a sign as well.
  const bool isSmooth = arguments.Has("--smooth");
  const int highest = isSmooth ? 16383 : 32767;
  if (bitmap.Width > kWidestPicture || bitmap.Height > highest) {
    PrintError(Format("its size is %d x %d; %d x %d is the largest", bitmap.Width, bitmap.Height,
                      kWidestPicture, highest));
    return kFailed;
  }
  const PicturePart whole = {0, 0, bitmap.Width, bitmap.Height};
  Picture picture = StretchedPicture(bitmap, whole, bitmap.Width, bitmap.Height);
  ImageDither::SetImage(&record, picture.Pixels.data(), static_cast<uint32_t>(picture.Width),
                        static_cast<uint32_t>(picture.Height), 0);
  isSmooth ? ImageDither::DitherSmooth(&record) : ImageDither::Dither(&record);
  if (!WritePicture(arguments.Words()[1], picture, &error)) {
    PrintError(error);
    return kFailed;
  }
  if (arguments.Has("--json")) PrintJson(record, isSmooth);
  return kDone;
}

}  // namespace

std::vector<Command> DitherCommands() {
  return {{"dither", kHelp, 2, 2, DitherOptionRules(), RunDither}};
}

}  // namespace vtdal
