// Resamples a picture as the driver does for its preview.
#include "tools/vtdal/Commands.h"
#include "tools/vtdal/Json.h"
#include "tools/vtdal/PictureOptions.h"
#include "tools/vtdal/Text.h"

namespace vtdal {
namespace {

constexpr const char* kHelp =
    "Usage: vtdal stretch IN OUT --size WIDTHxHEIGHT [--rect X,Y,WIDTH,HEIGHT] [--json]\n"
    "\n"
    "Resamples a picture to another size by the nearest pixel, as the driver does.\n"
    "\n"
    "  IN      a BMP of 1, 4, 8, 16, 24 or 32 bits; on Linux also a PNG. The driver takes the\n"
    "          channels of 16 bits as they are, so they come out dark, with red and blue changed.\n"
    "  OUT     the result; its name ends with .bmp, or on Linux with .png\n"
    "  --size  the size of the result, at most 10921x32767\n"
    "  --rect  the part that is taken, from the top left; otherwise the whole picture\n"
    "  --json  tell sizes as JSON\n";

constexpr int kHighestPicture = 32767;

// What --rect says, or the whole picture.
bool ReadPart(const Arguments& arguments, const Bitmap& bitmap, PicturePart* part) {
  *part = {0, 0, bitmap.Width, bitmap.Height};
  if (!arguments.Has("--rect")) return true;
  std::vector<int64_t> numbers;
  if (!ParseNumbers(arguments.Value("--rect"), u',', 4, 0, kHighestPicture, &numbers)) return false;
  *part = {static_cast<int>(numbers[0]), static_cast<int>(numbers[1]), static_cast<int>(numbers[2]),
           static_cast<int>(numbers[3])};
  return part->Width > 0 && part->Height > 0 && part->X + part->Width <= bitmap.Width &&
         part->Y + part->Height <= bitmap.Height;
}

void PrintJson(const Bitmap& bitmap, const PicturePart& part, const Picture& picture) {
  JsonWriter json;
  json.BeginObject();
  const struct {
    const char* Key;
    int Value;
  } rows[] = {{"bits", bitmap.Header[14]},
              {"x", part.X},
              {"y", part.Y},
              {"sourceWidth", part.Width},
              {"sourceHeight", part.Height},
              {"width", picture.Width},
              {"height", picture.Height}};
  for (const auto& row : rows) {
    json.Key(row.Key);
    json.Number(row.Value);
  }
  json.EndObject();
  Print(json.Take());
}

int RunStretch(const Arguments& arguments) {
  if (!arguments.Has("--size")) return UsageError("stretch", "--size is missing");
  std::vector<int64_t> size;
  const std::u16string text = arguments.Value("--size");
  if (!ParseNumbers(text, u'x', 2, 1, kHighestPicture, &size) || size[0] > kWidestPicture)
    return UsageError("stretch", "'" + Printable(text) + "' is no size from 1x1 to 10921x32767");
  Bitmap bitmap;
  if (int code = OpenPicture("stretch", arguments, &bitmap)) return code;
  PicturePart part;
  if (!ReadPart(arguments, bitmap, &part)) {
    PrintError(Format("'%s' is no part X,Y,WIDTH,HEIGHT of a picture of %d x %d",
                      Printable(arguments.Value("--rect")).c_str(), bitmap.Width, bitmap.Height));
    return kFailed;
  }
  const Picture picture =
      StretchedPicture(bitmap, part, static_cast<int>(size[0]), static_cast<int>(size[1]));
  std::string error;
  if (!WritePicture(arguments.Words()[1], picture, &error)) {
    PrintError(error);
    return kFailed;
  }
  if (arguments.Has("--json")) PrintJson(bitmap, part, picture);
  return kDone;
}

}  // namespace

std::vector<Command> StretchCommands() {
  return {{"stretch",
           kHelp,
           2,
           2,
           {{"--size", true}, {"--rect", true}, {"--json", false}},
           RunStretch}};
}

}  // namespace vtdal
