// Hostile device modes: u16 length of a first block, that block, the rest is a second one. Each
// gets a heap block of exactly its size, so that the address sanitizer sees every byte outside.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "fuzz/FuzzModel.h"
#include "settings/DevMode.h"
#include "settings/DevModeBlob.h"
#include "settings/PaperResolver.h"

namespace {

using namespace ostvt;
using fuzz::TheModel;

void Require(bool condition) {
  if (!condition) abort();
}

struct Block {
  Block(const uint8_t* data, size_t size)
      : Bytes(new uint8_t[size]), Size(static_cast<uint32_t>(size)) {
    if (size != 0) memcpy(Bytes.get(), data, size);
  }
  std::unique_ptr<uint8_t[]> Bytes;
  uint32_t Size;
};

class AnyPaper : public PaperResolver {
 public:
  bool ResolvePaper(const DevMode& devMode, PaperForm* paper) override {
    paper->Id = devMode.Get(&PublicDevMode::dmPaperSize);
    paper->PageWidth = devMode.GetPaperWidth() * 100;
    paper->PageHeight = devMode.GetPaperLength() * 100;
    paper->Name = u"A paper whose name is as long as its field";
    return true;
  }
};

// What a validated block of ours may never hold.
void RequireSane(const DevMode& devMode) {
  Require(devMode.GetSize() == kDevModeSize);
  Require(devMode.GetPublicSize() == kPublicSize);
  const int orientation = devMode.Get(&PublicDevMode::dmOrientation);
  Require(orientation == 1 || orientation == 2);
  Require(devMode.Get(&PublicDevMode::dmCopies) >= 1);
  const uint32_t resolution = devMode.GetResolution();
  Require(resolution == (203u << 16 | 203) || resolution == (150u << 16 | 300));
  Require(!devMode.GetNegative());
  const DitherSetup* dither = devMode.GetDitherSetup();
  const OstrelSettings* settings = devMode.GetOstrelSettings();
  Require(dither && settings);
  Require(dither->method <= 5 && dither->screenIndex >= 0 && dither->screenIndex <= 19);
  Require(dither->orderedSize <= 2 && dither->halftoneSize <= 3 && dither->diffusionKind <= 1);
  Require(settings->feedRate >= 125 && settings->printSpeed >= 0 && settings->printSpeed <= 5);
  Require(settings->topOfForm >= -10000 && settings->topOfForm <= 10000);
  const ModelRecord* record = devMode.GetRecord().Record;
  Require(record->RecordSize == kRecordSize && record->RecordVersion == kRecordVersion);
  Require(record->Trailer.TrailerSize == kModelRecordSize);
}

void ReadAll(const DevMode& devMode) {
  const int64_t sum = int64_t{devMode.GetPaperWidth()} + devMode.GetPaperLength() +
                      devMode.GetCopies() + devMode.GetOrientation() + devMode.GetColor() +
                      devMode.GetResolution() + devMode.GetIcmMethod() + devMode.GetIcmIntent() +
                      devMode.GetMirror() + devMode.GetNegative() + devMode.GetPresetNameCrc();
  volatile int64_t used = sum;
  (void)used;
}

void WriteAll(DevMode* devMode) {
  devMode->SetCopies(2);
  devMode->SetOrientation(3);
  devMode->SetColor(2);
  devMode->SetResolution(0x0096012C);
  devMode->SetMirror(true);
  devMode->SetNegative(true);
  devMode->SetFormName(u"A paper whose name is as long as its field");
  devMode->SetPresetName("Preset");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2 || size > 0x10000) return 0;
  PrinterModel* model = TheModel();
  const size_t stated = data[0] | size_t{data[1]} << 8;
  const size_t firstSize = stated < size - 2 ? stated : size - 2;
  const uint8_t* second = data + 2 + firstSize;
  const size_t secondSize = size - 2 - firstSize;

  Block first(data + 2, firstSize);
  Block other(second, secondSize);
  const DevMode view(first.Bytes.get(), first.Size);
  const DevMode otherView(other.Bytes.get(), other.Size);
  DevMode::FindModelRecord(first.Bytes.get(), first.Size);
  DevMode::FindTrailer(first.Bytes.get(), first.Size);
  ReadAll(view);
  view.Matches(otherView);

  DevMode ours;
  AnyPaper papers;
  ours.AllocateDefaults(model);
  ours.Merge(view, model);
  RequireSane(ours);
  ours.Merge(otherView, model, &papers);
  RequireSane(ours);
  ours.Matches(view);
  ours.ImportNarrow(first.Bytes.get(), first.Size);
  ours.Validate(model);
  RequireSane(ours);
  ReadDevModeBlob(first.Bytes.get(), first.Size, model, &ours);

  // The hostile block as the target.
  {
    Block target(data + 2, firstSize);
    DevMode devMode(target.Bytes.get(), target.Size);
    devMode.Merge(otherView, model, &papers);
    devMode.Merge(ours, model);
    devMode.CopyPrivateFrom(ours);
    WriteAll(&devMode);
    devMode.Validate(model);
    devMode.ImportNarrow(other.Bytes.get(), other.Size);
    Buffer blob;
    WriteDevModeBlob(devMode, &blob);
    DevMode copy;
    copy.Assign(devMode);
    ReadAll(copy);
  }
  {
    Block target(data + 2, firstSize);
    ours.ExportNarrow(target.Bytes.get(), target.Size);
    otherView.ExportNarrow(target.Bytes.get(), target.Size);
  }
  uint8_t narrow[kNarrowDevModeSize];
  view.WriteNarrow("Printer", narrow);
  return 0;
}
