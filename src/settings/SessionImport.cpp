// Settings on their way from a file, of whichever kind, into a session.
#include "model/PrinterModel.h"
#include "model/RecordText.h"
#include "settings/DriverOptions.h"
#include "settings/DriverSession.h"
#include "settings/SettingsFile.h"
#include "settings/StockPapers.h"

namespace ostvt {
namespace {

// Options that were set and not yet written stay, unless the file has a record of them.
uint8_t ImportOptions(PrinterModel* model, OFile& file) {
  DriverOptions options;
  options.Bind(model);
  return options.ImportText(file, model->GetDriverName(), model->GetFamilyCode());
}

void ImportPresets(DriverSession* session, uint32_t sections, SettingsFileReader& file,
                   ImportResult* taken) {
  if ((sections & kSectionPresets) == 0) return;
  StockPapers papers(session->Model, session->StockLoaded ? &session->Stock : nullptr);
  PresetList& presets = session->GetPresets();
  taken->Presets = StoreWord(file.GetKind() == SettingsFileKind::kPresets
                                 ? presets.ImportBinary(file, session->Model, &papers)
                                 : presets.ImportText(file, session->Model, &papers));
}

void ImportFonts(DriverSession* session, uint32_t sections, SettingsFileReader& file,
                 ImportResult* taken) {
  PrinterModel* const model = session->Model;
  if ((sections & kSectionDataFonts) != 0) {
    const int32_t barCodes = session->DataFonts.ReadBarCodeText(file, model);
    taken->DataFonts = StoreWord(barCodes + session->DataFonts.ReadRfidText(file, model));
  }
  FontMappingTable& mappings = session->FontMappings;
  if ((sections & kSectionAliasFonts) != 0)
    taken->AliasFonts = StoreWord(mappings.ReadText(file, model, kFontAlias));
  if ((sections & kSectionSubstitutions) != 0)
    taken->Substitutions = StoreWord(mappings.ReadText(file, model, kFontSubstitution));
  if ((sections & kSectionDownloadedFonts) != 0)
    taken->DownloadedFonts = StoreWord(session->DownloadedFonts.ReadText(file, model));
  if ((sections & kSectionOptionalFonts) != 0)
    taken->OptionalFonts = StoreWord(session->OptionalFonts.ReadText(file, model));
}

// Stock comes first, since presets name it, then the options, whose limits presets are brought
// inside. Each reader passes over the whole file, and is spared that where nothing can be for it.
void ImportText(DriverSession* session, uint32_t sections, SettingsFileReader& file,
                ImportResult* taken) {
  const bool hasPresets = file.Has(kHasPresets);
  const bool wantsOptions = (sections & kSectionOptions) != 0;
  if ((sections & kSectionStock) != 0 && file.Has(kHasStock))
    taken->Stock = StoreWord(session->GetStock().ImportText(file, session->Model));
  if (wantsOptions && file.Has(kHasOptions)) {
    const uint32_t userForm = StockList::StoredUserFormCrc(session->Model);
    taken->Options = ImportOptions(session->Model, file);
    if (taken->Options && session->StockLoaded)
      session->Stock.FollowOptions(StockList::StoredUserFormCrc(session->Model) == userForm);
  }
  if (hasPresets) ImportPresets(session, sections, file, taken);
  if (file.Has(kHasFonts)) ImportFonts(session, sections, file, taken);
  if ((sections & kSectionDefaultDevMode) != 0 && hasPresets)
    taken->DefaultDevMode = session->ImportDefaultDevMode(file, session->Model);
  // These have a bit of their own, which only an export looks at.
  if (wantsOptions && file.Has(kHasNetwork)) taken->Network = session->ImportNetworkSettings(file);
}

}  // namespace

void DriverSession::ImportSettings(const OString& path, uint32_t sections, ImportResult* result) {
  ImportResult taken = {};
  if (Model) {
    SettingsFileReader file(path);
    switch (file.GetKind()) {
      case SettingsFileKind::kNone:
        break;
      case SettingsFileKind::kPresets:
        ImportPresets(this, sections, file, &taken);
        break;
      case SettingsFileKind::kDataFonts:
        if ((sections & kSectionDataFonts) != 0)
          taken.DataFonts = StoreWord(DataFonts.ReadBinary(file, Model));
        break;
      case SettingsFileKind::kStock:
        if ((sections & kSectionStock) != 0) taken.Stock = StoreWord(GetStock().ImportBinary(file));
        break;
      case SettingsFileKind::kText:
        ImportText(this, sections, file, &taken);
        break;
    }
    // The current settings are among the presets, and the factory's, which follow the options.
    if ((taken.DefaultDevMode || taken.Options) && BuiltInPresetsAdded) AddBuiltInPresets();
  }
  if (result) *result = taken;
}

}  // namespace ostvt
