// A session's settings on their way to a settings file.
#include "model/PrinterModel.h"
#include "model/RecordText.h"
#include "settings/DriverOptions.h"
#include "settings/DriverSession.h"
#include "settings/SettingsFile.h"

namespace ostvt {
namespace {

constexpr char kHead[] = "<driver version='6.6'>";

uint8_t ExportOptions(PrinterModel* model, OStream& stream) {
  DriverOptions options;
  options.Bind(model);
  return options.ExportText(stream, model->GetDriverName());
}

// The order of the sections is the file's.
ExportResult WriteSections(DriverSession* session, uint32_t sections, OStream& stream) {
  PrinterModel* const model = session->Model;
  ExportResult written = {};
  if ((sections & kSectionStock) != 0)
    written.Stock = StoreWord(session->GetStock().ExportText(stream));
  if ((sections & kSectionDefaultDevMode) != 0) {
    session->ExportDefaultDevMode(stream);
    written.DefaultDevMode = !session->DevModeBuffer.IsEmpty();
  }
  if ((sections & kSectionPresets) != 0)
    written.Presets = StoreWord(session->GetPresets().ExportText(stream));
  if ((sections & kSectionDataFonts) != 0) {
    const int32_t barCodes = session->DataFonts.WriteBarCodeText(stream);
    written.DataFonts = StoreWord(barCodes + session->DataFonts.WriteRfidText(stream, model));
  }
  if ((sections & kSectionAliasFonts) != 0)
    written.AliasFonts = StoreWord(session->FontMappings.WriteText(stream, kFontAlias));
  if ((sections & kSectionSubstitutions) != 0)
    written.Substitutions = StoreWord(session->FontMappings.WriteText(stream, kFontSubstitution));
  if ((sections & kSectionDownloadedFonts) != 0)
    written.DownloadedFonts = StoreWord(session->DownloadedFonts.WriteText(stream));
  if ((sections & kSectionOptionalFonts) != 0)
    written.OptionalFonts = StoreWord(session->OptionalFonts.WriteText(stream));
  if ((sections & kSectionOptions) != 0) written.Options = ExportOptions(model, stream);
  if ((sections & kSectionNetwork) != 0) written.Network = session->ExportNetworkSettings(stream);
  return written;
}

}  // namespace

bool DriverSession::ExportSettings(const OString& path, uint32_t sections, ExportResult* result) {
  if (result) *result = ExportResult();
  if (!Model) return false;
  SettingsFileWriter file(path);
  if (!file.IsOpen()) return false;
  file.WriteText(kHead);
  file.WriteNewLine();
  file.WriteNewLine();
  const ExportResult written = WriteSections(this, sections, file);
  if (!file.Commit()) return false;
  if (result) *result = written;
  return true;
}

}  // namespace ostvt
