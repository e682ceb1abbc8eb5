// Makes a device mode safe to print with: every value that the module acts on comes into its range.
#include <algorithm>

#include "core/Arrays.h"
#include "model/PrinterModel.h"
#include "settings/DevMode.h"
#include "settings/PaperResolver.h"

namespace ostvt {
namespace {

constexpr uint16_t kAnyColor = 0xFF;
// The last place of a terminator in each of the four texts; the fourth shares its slot's end.
constexpr size_t kCommandTextEnds[] = {255, 511, 767, 1018};
constexpr int32_t kLengthLimit = 254000;  // ten inches in thousandths of a millimetre

// Tenths of a millimetre, the rest cut off.
int16_t CutToTenths(int32_t thousandths) {
  return static_cast<int16_t>(std::clamp<int32_t>(thousandths / 100, 0, INT16_MAX));
}

bool HasResolution(PrinterModel* model, int16_t x, int16_t y) {
  DwordArray pairs;
  const int32_t count = model->GetResolutions(&pairs);
  for (int32_t i = 0; i < count; ++i) {
    if (pairs[2 * i] == static_cast<uint16_t>(x) && pairs[2 * i + 1] == static_cast<uint16_t>(y))
      return true;
  }
  return false;
}

void ClampDither(DitherSetup* dither) {
  // By value: a record may lie at an odd address, where no reference to a field may be made.
  const auto most = [](uint16_t value, uint16_t highest) { return std::min(value, highest); };
  const auto adjustment = [](int16_t value) { return std::clamp<int16_t>(value, -100, 100); };
  dither->method = most(dither->method, 5);
  dither->brightness = adjustment(dither->brightness);
  dither->contrast = adjustment(dither->contrast);
  dither->redAdjust = adjustment(dither->redAdjust);
  dither->greenAdjust = adjustment(dither->greenAdjust);
  dither->blueAdjust = adjustment(dither->blueAdjust);
  dither->orderedSize = most(dither->orderedSize, 2);
  if (dither->halftoneSize > 3) dither->halftoneSize = 2;
  dither->diffusionKind = most(dither->diffusionKind, 1);
  // It indexes a table, so a wild value must not stay.
  if (dither->screenIndex < 0 || dither->screenIndex > 19) dither->screenIndex = 18;
}

void ClampSettings(OstrelSettings* settings, PrinterModel* model) {
  const auto limit = [](int32_t value, int32_t highest) { return std::clamp(value, 0, highest); };
  settings->mediaKind = limit(settings->mediaKind, 2);
  settings->feedMode = limit(settings->feedMode, 4);
  settings->feedOption = limit(settings->feedOption, 1);
  settings->listA = limit(settings->listA, 2);
  settings->listB = limit(settings->listB, 2);
  settings->labelLength = limit(settings->labelLength, kLengthLimit);
  settings->labelGap = limit(settings->labelGap, kLengthLimit);
  settings->labelCount = std::max(int32_t{settings->labelCount}, 0);
  // Zero needs no limit: the usual block is validated without a look into the definition.
  if (settings->topOfForm != 0) {
    const int32_t maximum = model->GetTopOfFormMaximum().ToMicrons();
    settings->topOfForm = std::clamp(int32_t{settings->topOfForm}, -maximum, maximum);
  }
  settings->feedLength = limit(settings->feedLength, kLengthLimit);
  settings->feedRate = std::max(int32_t{settings->feedRate}, 125);
  settings->feedStop = limit(settings->feedStop, kLengthLimit);
  settings->feedOffset = limit(settings->feedOffset, kLengthLimit);
  settings->printSpeed = limit(settings->printSpeed, 5);
  settings->darkness = (settings->flags & kDarknessInPercent) != 0
                           ? std::clamp(int32_t{settings->darkness}, -99, 200)
                           : limit(settings->darkness, 3);
}

}  // namespace

void DevMode::Validate(PrinterModel* model, PaperResolver* papers) {
  const int16_t orientation = Get(&PublicDevMode::dmOrientation);
  if (orientation != 1 && orientation != 2) Set(&PublicDevMode::dmOrientation, int16_t{1});

  PaperForm paper;
  if (papers && papers->ResolvePaper(*this, &paper)) {
    Set(&PublicDevMode::dmPaperSize, paper.Id);
    Set(&PublicDevMode::dmPaperWidth, CutToTenths(paper.PageWidth));
    Set(&PublicDevMode::dmPaperLength, CutToTenths(paper.PageHeight));
    SetFormName(paper.Name);
    ChangeFields(0, kFieldFormName | kFieldPaperSize | kFieldPaperWidth | kFieldPaperLength);
  }

  const int32_t copies = Get(&PublicDevMode::dmCopies);
  const int32_t copiesLimit = std::clamp<int32_t>(model->GetCopiesLimit(), 1, INT16_MAX);
  Set(&PublicDevMode::dmCopies, static_cast<int16_t>(std::clamp(copies, 1, copiesLimit)));

  if (!model->HasColor(kAnyColor)) Set(&PublicDevMode::dmColor, int16_t{1});

  Set(&PublicDevMode::dmScale, int16_t{100});
  Set(&PublicDevMode::dmDuplex, int16_t{1});
  Set(&PublicDevMode::dmCollate, int16_t{0});

  if (!HasResolution(model, Get(&PublicDevMode::dmPrintQuality),
                     Get(&PublicDevMode::dmYResolution))) {
    Set(&PublicDevMode::dmPrintQuality, static_cast<int16_t>(model->GetDefaultResolutionX()));
    Set(&PublicDevMode::dmYResolution, static_cast<int16_t>(model->GetDefaultResolutionY()));
  }

  const int32_t known = model->GetDeviceCapability(kCapabilityFields, nullptr, nullptr);
  ChangeFields(~static_cast<uint32_t>(known), 0);

  ValidateRecord(model);
}

void DevMode::ValidateRecord(PrinterModel* model) {
  const ModelRecordView& view = GetRecord();
  // Whoever reads a command text reads to its end, so each must have one.
  if (view.Room >= sizeof(view.Record->CommandTexts)) {
    for (const size_t end : kCommandTextEnds) view.Record->CommandTexts[end] = 0;
  }
  if (!model->HasMirror()) SetImageFlag(kImageMirror, false);
  if (!model->HasInverse()) SetImageFlag(kImageNegative, false);
  if (DitherSetup* dither = GetDitherSetup()) ClampDither(dither);
  if (OstrelSettings* settings = GetOstrelSettings()) ClampSettings(settings, model);
}

}  // namespace ostvt
