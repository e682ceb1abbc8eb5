#include "ui/windows/UResourceSet.h"

#include <memory>
#include <string_view>

#include "core/ArchiveReader.h"
#include "core/Buffer.h"
#include "core/OFile.h"
#include "model/ModelDefinition.h"
#include "model/PrinterModel.h"
#include "platform/CodePages.h"
#include "platform/Locale.h"
#include "platform/Module.h"
#include "platform/SystemVersion.h"
#include "settings/DriverSession.h"
#include "store/PrinterRegistry.h"
#include "ui/DialogTemplate.h"
#include "ui/Languages.h"
#include "ui/StringBlock.h"
#include "ui/TemplateBounds.h"
#include "ui/windows/PictureControl.h"

namespace ostvt {
namespace {

using platform::AsWide;

constexpr char kLanguageValue[] = "UserSettings:Language";
constexpr char kMeasurementValue[] = "UserSettings:Measurement System";

constexpr char kTempPrefix[] = "vt#";

constexpr char kDialogFont[] = "MS Shell Dlg";
constexpr uint32_t kFirstSystemWithDialogFont = 5;
constexpr int kInterfaceFont = 17;  // stock object

class ArchiveNeeds final : public LanguageNeeds {
 public:
  explicit ArchiveNeeds(ArchiveReader* archive) : Archive(archive) {}
  bool HasCodePage(uint32_t codePage) override { return platform::IsValidCodePage(codePage); }
  bool HasModule(const OString& name) override { return Archive && Archive->FindMember(name); }

 private:
  ArchiveReader* Archive;
};

TemplateTarget TargetOfSystem() {
  TemplateTarget target;
  target.FaceName = kDialogFont;
  if (platform::GetSystemVersion().Major < kFirstSystemWithDialogFont) {
    LOGFONTW font = {};
    if (GetObjectW(GetStockObject(kInterfaceFont), sizeof font, &font))
      target.FaceName = platform::AsUnits(font.lfFaceName);
  }
  constexpr DWORD kNotNt = 0x80000000;
  target.WideRichEdit = !(GetVersion() & kNotNt);
  return target;
}

}  // namespace

UResourceSet::UResourceSet(PrinterModel* model) : Model(model) {}

UResourceSet::~UResourceSet() {
  for (int32_t i = 0; i < TemplateCache.Values.Count; ++i)
    delete static_cast<Buffer*>(TemplateCache.Values[i]);
  for (int32_t i = 0; i < Modules.Count; ++i) delete static_cast<UResourceFile*>(Modules[i]);
  if (!WindowsInitialized) return;
  UnregisterPictureControl();
  platform::CloseLibrary(RichEditLibrary);
}

void UResourceSet::Initialize() {
  if (Initialized) return;
  Initialized = true;
  ReadSettings();
  OpenModules();
  LoadUnitText();
}

// What only windows need: texts are asked for without them too.
void UResourceSet::InitializeWindows() {
  Initialize();
  if (WindowsInitialized) return;
  WindowsInitialized = true;
  INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_DATE_CLASSES | ICC_INTERNET_CLASSES};
  using InitFunction = BOOL WINAPI(const INITCOMMONCONTROLSEX*);
  if (auto* init = CommonControlsFunction<InitFunction>("InitCommonControlsEx")) init(&classes);
  RegisterPictureControl();
}

void UResourceSet::ReadSettings() {
  const platform::UserLocale locale = platform::GetUserLocale();
  SystemMeasurement = locale.UsesInches ? kMeasureInches : kMeasureMillimetres;
  Style.LeadingZero = locale.LeadingZero;
  Style.DecimalSeparator = locale.DecimalSeparator.c_str();
  ThousandSeparator = locale.ThousandSeparator.c_str();
  SystemLanguage = LanguageOfAbbreviation(locale.Language.c_str());
  Language = kSystemLanguage;
  if (!Model) return;
  PrinterRegistry& store = Model->GetStore();
  Measurement = store.ReadInt(kMeasurementValue, kMeasureSystemDefault);
  if (Measurement < kMeasureSystemDefault || Measurement > kMeasureCentimetres)
    Measurement = kMeasureSystemDefault;
  Language = store.ReadString(kLanguageValue, kSystemLanguage);
}

void UResourceSet::OpenModules() {
  LanguageInForce = kEnglish;
  if (!Model) return;
  ArchiveReader* archive = Model->GetDefinition().GetArchive();
  const OString prefix = Model->GetFamilyCode();
  ArchiveNeeds needs(archive);
  LanguageInForce = ChooseLanguage(Language, SystemLanguage, prefix, needs);

  OStringArray paths;
  ListHelpFiles(platform::ModuleDirectory().c_str(), prefix, Model->GetDriverName(),
                LanguageInForce, &paths);
  HelpFile = paths[paths.Count - 2];  // English for the model, where there is none at all
  for (int32_t i = 0; i < paths.Count; ++i) {
    if (!OFile::FileExists(paths[i])) continue;
    HelpFile = paths[i];
    break;
  }

  if (!archive) return;
  OStringArray names;
  ListLanguageModules(prefix, LanguageInForce, &names);
  for (int32_t i = 0; i < names.Count; ++i) {
    if (!archive->FindMember(names[i])) continue;
    const OString path = OFile::MakeTempName(kTempPrefix, 0);
    if (path.IsEmpty()) continue;
    if (archive->ExtractMember(names[i], path, kExtractTemporary)) {
      Modules.Add(new UResourceFile(path, true));
    } else {
      OFile::DeleteFile(path);
    }
  }
}

void UResourceSet::AddModule(UResourceFile* module) {
  Initialize();
  Modules.Add(module);
  LoadUnitText();
}

void UResourceSet::LoadUnitText() {
  Style.System = GetMeasurement();
  Style.UnitText = FindText(UnitTextOf(Style.System));
}

ResourceData UResourceSet::Find(uint16_t type, const char16_t* name) {
  Initialize();
  for (int32_t i = 0; i < Modules.Count; ++i) {
    auto* module = static_cast<UResourceFile*>(Modules[i]);
    const uint32_t size = module->GetSize(type, name);
    const uint8_t* data = size > 0 ? module->GetData(type, name) : nullptr;
    if (data) return {data, size};
  }
  return {};
}

const DLGTEMPLATE* UResourceSet::LoadTemplate(const OString& name, uint32_t* size) {
  InitializeWindows();
  Buffer* patched = nullptr;
  const int32_t cached = TemplateCache.Find(name);
  if (cached >= 0) {
    patched = static_cast<Buffer*>(TemplateCache.Values[cached]);
  } else {
    const ResourceData source = Find(kResourceDialog, name.GetWide());
    if (source.Data) {
      // A large library, which few templates need.
      if (!RichEditLibrary && UsesRichEdit(source.Data, source.Size))
        RichEditLibrary = platform::OpenLibrary(u"riched20.dll");
      patched = new Buffer;
      PatchDialogTemplate(source.Data, source.Size, TargetOfSystem(), patched);
      KeepTemplateInside(patched);
      TemplateCache.Set(name, patched);
    }
  }
  if (size) *size = patched ? patched->Size : 0;
  return patched ? reinterpret_cast<const DLGTEMPLATE*>(patched->Data) : nullptr;
}

OString UResourceSet::FindText(int32_t id) {
  const uint16_t block = StringBlockOf(id);
  for (int32_t i = 0; block != 0 && i < Modules.Count; ++i) {
    auto* module = static_cast<UResourceFile*>(Modules[i]);
    const uint32_t size = module->GetSize(kResourceStrings, ResourceNumber(block));
    if (size == 0) continue;
    const std::u16string_view text =
        FindString(module->GetData(kResourceStrings, ResourceNumber(block)), size, id);
    if (text.empty()) continue;
    OString result;
    result.AssignCount(text.data(), static_cast<int>(text.size()));
    return result;
  }
  return OString();
}

OString UResourceSet::LoadText(int32_t id) {
  Initialize();
  return FindText(id);
}

OString UResourceSet::GetString(int32_t number) { return LoadText(number); }

OString UResourceSet::GetMessage(int32_t number) const {
  return const_cast<UResourceSet*>(this)->LoadText(number);  // what changes is found out, not set
}

HMENU UResourceSet::LoadMenu(const OString& name) {
  InitializeWindows();
  const ResourceData menu = Find(kResourceMenu, name.GetWide());
  return menu.Data ? LoadMenuIndirectW(menu.Data) : nullptr;
}

ResourceData UResourceSet::LoadBitmap(int32_t id) {
  InitializeWindows();
  if (id <= 0 || id > UINT16_MAX) return {};
  return Find(kResourceBitmap, ResourceNumber(static_cast<uint16_t>(id)));
}

int32_t UResourceSet::GetMeasurement() {
  Initialize();
  return Measurement == kMeasureSystemDefault ? SystemMeasurement : Measurement;
}

int32_t UResourceSet::GetMeasurementSetting() {
  Initialize();
  return Measurement;
}

void UResourceSet::SetMeasurement(int32_t value) {
  Initialize();
  Measurement = value;
  LoadUnitText();
}

OString UResourceSet::GetLanguage() {
  Initialize();
  return Language;
}

void UResourceSet::SetLanguage(const OString& language) {
  Initialize();
  Language = language;
}

OString UResourceSet::GetLanguageInForce() {
  Initialize();
  return LanguageInForce;
}

void UResourceSet::SaveSettings() {
  Initialize();
  if (!Model) return;
  PrinterRegistry& store = Model->GetStore();
  store.WriteString(kLanguageValue, Language);
  store.WriteDword(kMeasurementValue, Measurement);
}

OString UResourceSet::GetHelpFile() {
  Initialize();
  return HelpFile;
}

bool UResourceSet::ShowHelp(const OString& topic) { return Help.Show(GetHelpFile(), topic); }

OString UResourceSet::GetSymbolCopyright() { return CopyrightSymbol(GetLanguageInForce()); }
OString UResourceSet::GetSymbolTrademark() { return TrademarkSymbol(GetLanguageInForce()); }
OString UResourceSet::GetSymbolRegistered() { return RegisteredSymbol(GetLanguageInForce()); }

const MeasureStyle& UResourceSet::GetStyle() {
  Initialize();
  return Style;
}

OString UResourceSet::GetThousandSeparator() {
  Initialize();
  return ThousandSeparator;
}

OString UResourceSet::FormatMeasure(int32_t value) {
  return ostvt::FormatMeasure(GetStyle(), value);
}

int32_t UResourceSet::ParseMeasure(const OString& text) {
  return ostvt::ParseMeasure(GetStyle(), text);
}

OString UResourceSet::FormatDots(int32_t dots, int32_t dpi) {
  const MeasureStyle& style = GetStyle();
  const bool inches = style.System == kMeasureInches;
  return ostvt::FormatDots(style, dots, dpi,
                           FindText(inches ? kTextThousandthInch : kTextMillimetres));
}

OString UResourceSet::ResolutionUnit() {
  return LoadText(GetStyle().System == kMeasureInches ? kTextDotsPerInch : kTextDotsPerMillimetre);
}

OString UResourceSet::FormatResolution(int32_t dpi) {
  return ostvt::FormatResolution(GetStyle(), dpi, ResolutionUnit());
}

OString UResourceSet::FormatResolutionPair(int32_t x, int32_t y) {
  return ostvt::FormatResolutionPair(GetStyle(), x, y, ResolutionUnit());
}

UResourceSet& ResourcesOf(DriverSession* session) {
  if (!session->Resources) session->Resources = std::make_unique<UResourceSet>(session->Model);
  return static_cast<UResourceSet&>(*session->Resources);
}

}  // namespace ostvt
