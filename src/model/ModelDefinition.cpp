#include "model/ModelDefinition.h"

#include <string>
#include <string_view>

#include "core/Crc.h"
#include "model/ArchiveCache.h"
#include "model/Caches.h"
#include "model/CapabilitiesDataBuilder.h"
#include "model/ModelDataBuilder.h"
#include "model/ModelInfoBuilder.h"
#include "model/RecordCache.h"
#include "model/RecordText.h"
#include "platform/Module.h"
#include "store/NumberedEntries.h"

namespace ostvt {
namespace {

constexpr int kSuffixLength = 4;  // "(YY)"

// "X(YY)" for any maker YY. A name has no blank at its end, so that "X (YY)" is a name.
bool HasMakersSuffix(const OString& key) {
  const std::u16string_view text = key.GetWide();
  const size_t n = text.size();
  const auto isUpper = [](char16_t c) { return c >= u'A' && c <= u'Z'; };
  return n > kSuffixLength && text[n - 4] == u'(' && isUpper(text[n - 3]) && isUpper(text[n - 2]) &&
         text[n - 1] == u')' && text[n - 5] != u' ';
}

}  // namespace

ModelDefinition::ModelDefinition(PrinterId& printerId)
    : Store(printerId),
      PrinterName(printerId.GetFullName()),
      DriverName(printerId.Printer().DriverName),
      DriverDirectory(printerId.Driver().DriverDirectory),
      ModelDataKey(RecordKey("ModelData")) {
  OString maker = printerId.GetOemCode();
  StoreText(OemTag, "o" + maker);
  StoreText(FamilyCode, printerId.GetFamilyCode());
  DriverHash = HashOfDriver();
  if (!maker.IsEmpty()) {
    maker.MakeUpper();
    KeySuffix = "(" + maker + ")";
  }
}

ModelDefinition::~ModelDefinition() {
  delete DriverInfo;
  delete ManufacturerInfo;
  delete Capabilities;
  delete RfidCapabilities;
  delete TopOfFormMaximum;
}

void ModelDefinition::OpenArchive() {
  if (ArchiveChosen) return;
  ArchiveChosen = true;
  if (!TheArchiveCache()) return;
  OString directory = DriverDirectory;
  if (directory.IsEmpty()) directory = platform::ModuleDirectory().c_str();
  // The maker's code stands behind the "o" of the tag.
  const OString head = directory + "\\" + (OemTag + 1) + "#";
  Archive = TheArchiveCache()->Open(head + "base.ddz", head + FamilyCode + ".ddz");
}

ArchiveReader* ModelDefinition::GetArchive() {
  OpenArchive();
  return Archive;
}

OString ModelDefinition::GetOverride(const OString& key) {
  if (!KnownWithoutTable) {
    const OString section = Store.ReadString("Settings:Table/" + Store.Escape(key), OString());
    if (!section.IsEmpty()) return key + ":" + section;
  }
  return GetStringEx(key);
}

void ModelDefinition::SelectLink(const char* key) {
  SelectContext(Context::kModel);
  SelectSection(GetOverride(key));
}

void ModelDefinition::SelectContext(Context context) {
  OpenArchive();
  switch (context) {
    case Context::kDriver:
      SelectSection("Driver:" + DriverName);
      break;
    case Context::kManufacturer:
      SelectContext(Context::kDriver);
      SelectSection(GetOverride("Manufacturer"));
      break;
    case Context::kModel:
      if (ModelPath.IsEmpty()) {
        SelectContext(Context::kDriver);
        ModelPath = GetOverride("Model");
      }
      SelectSection(ModelPath);
      break;
    case Context::kBarCode:
      SelectLink("BarCode");
      break;
    case Context::kEncodings:
      SelectContext(Context::kFont);
      SelectSection(GetOverride("Encodings"));
      break;
    case Context::kDrawing:
      SelectLink("Drawing");
      break;
    case Context::kFeatures:
      SelectLink("Features");
      break;
    case Context::kFont:
      SelectLink("Font");
      break;
    case Context::kMethod:
      SelectLink("Method");
      break;
    case Context::kRfid:
      SelectLink("RFID");
      break;
    case Context::kCustomData:
      SelectLink("~CustomData");
      break;
  }
}

void ModelDefinition::SelectContextByName(const OString& name) {
  if (name.Find(':') >= 0) {
    OpenArchive();
    SelectSection(name);
  } else if (name.CompareNoCase("Driver") == 0) {
    SelectContext(Context::kDriver);
  } else if (name.CompareNoCase("Manufacturer") == 0) {
    SelectContext(Context::kManufacturer);
  } else if (name.CompareNoCase("Model") == 0) {
    SelectContext(Context::kModel);
  } else if (name.CompareNoCase("Encodings") == 0) {
    SelectContext(Context::kEncodings);
  } else {
    SelectContext(Context::kModel);
    SelectSection(GetOverride(name));
  }
}

OString ModelDefinition::GetStringEx(const OString& key, const OString& defaultValue) {
  if (!KeySuffix.IsEmpty()) {
    const OString* own = FindValue(key + KeySuffix);
    if (own && !own->IsEmpty()) return *own;
  }
  return GetString(key, defaultValue);
}

bool ModelDefinition::GetBoolEx(const OString& key, bool defaultValue) {
  return ParseBool(GetStringEx(key), defaultValue);
}

int32_t ModelDefinition::GetIntEx(const OString& key, int32_t defaultValue) {
  const OString value = GetStringEx(key);
  return value.IsEmpty() ? defaultValue : value.ToInt();
}

void ModelDefinition::GetListEx(const OString& key, OStringArray* array) {
  array->Split(GetStringEx(key), ",");
}

bool ModelDefinition::ListContainsEx(const OString& key, const OString& item) {
  OStringArray list;
  GetListEx(key, &list);
  return Contains(list, item);
}

Measure ModelDefinition::GetMeasureEx(const OString& key) {
  return Measure::Parse(GetStringEx(key));
}

void ModelDefinition::GetKeysEx(OStringArray* array) {
  OStringArray all;
  GetKeys(&all);
  array->SetSize(0);
  for (int32_t i = 0; i < all.Count; ++i) {
    OString key = all[i];
    if (HasMakersSuffix(key)) {
      const int length = key.Length() - kSuffixLength;
      if (!(key.Mid(length) == KeySuffix)) continue;
      key.Truncate(length);
      if (all.Find(key) >= 0) continue;
    }
    array->Add(key);
  }
}

OString ModelDefinition::GetEncodingDescription(const OString& name) {
  const OString path = "MODEL:FontEncodings/" + Store.Escape(name);
  if (Store.GetValueSize(path) >= 0) return Store.ReadString(path, OString());
  SelectContext(Context::kEncodings);
  const OString description = GetStringEx(name);
  // A longer one could not be read back.
  if (description.Length() <= kEntryTextUnits) Store.WriteString(path, description);
  return description;
}

uint8_t ModelDefinition::ParseAlignment(const OString& word) {
  constexpr const char* kWords[] = {"Top/Left",     "Top/Right",     "Bottom/Left",
                                    "Bottom/Right", "Baseline/Left", "Baseline/Right"};
  uint8_t alignment = 0;
  for (const char* known : kWords) {
    if (word.CompareNoCase(known) == 0) return alignment;
    ++alignment;
  }
  return 0;
}

OString ModelDefinition::RecordKey(const char* name) const { return PrinterName + ":" + name; }

// Of all that chooses the definitions.
uint32_t ModelDefinition::HashOfDriver() const {
  uint32_t hash = CRC32(OemTag, sizeof OemTag, 0);
  hash = CRC32(FamilyCode, sizeof FamilyCode, hash);
  for (const OString* text : {&DriverName, &DriverDirectory}) {
    const char16_t* wide = text->GetWide();
    const size_t units = std::char_traits<char16_t>::length(wide) + 1;
    hash = CRC32(wide, static_cast<uint32_t>(units * sizeof *wide), hash);
  }
  return hash == RecordCache::kAnyDriver ? 1 : hash;
}

// A record follows many links. That nearly every printer has no table is found out once for all.
template <typename Record>
void ModelDefinition::Build(Record* record, void (*build)(ModelDefinition*, Record*)) {
  const bool before = KnownWithoutTable;
  KnownWithoutTable = before || !Store.GetKeyInfo("Settings:Table", nullptr, nullptr);
  build(this, record);
  KnownWithoutTable = before;
}

void ModelDefinition::LoadModelData() {
  ForgetModelPath();
  Generation = Store.ReadDword("MODEL:Synchronization", 0);
  RecordCache* cache = TheRecordCache();
  if (!cache) return Build(&ModelData, BuildModelData);
  platform::LockGuard guard(cache->Lock);
  cache->SetGeneration(Generation);
  if (cache->Get(ModelDataKey, &ModelData, sizeof ModelData, DriverHash)) return;
  Build(&ModelData, BuildModelData);
  cache->Put(ModelDataKey, &ModelData, sizeof ModelData, DriverHash);
}

template <typename Record>
const Record* ModelDefinition::LoadRecord(const char* name, Record** record,
                                          void (*build)(ModelDefinition*, Record*)) {
  if (*record) return *record;
  *record = new Record{};
  RecordCache* cache = TheRecordCache();
  if (!cache) {
    Build(*record, build);
    return *record;
  }
  const OString key = RecordKey(name);
  platform::LockGuard guard(cache->Lock);
  // What this session reads may be older than what later ones do: it keeps its records to itself.
  const bool isCurrent = cache->GetGeneration() == Generation;
  if (isCurrent && cache->Get(key, *record, sizeof **record, DriverHash)) return *record;
  Build(*record, build);
  if (isCurrent) cache->Put(key, *record, sizeof **record, DriverHash);
  return *record;
}

const ostvt::DriverInfo* ModelDefinition::GetDriverInfo() {
  return LoadRecord("DriverInfo", &DriverInfo, BuildDriverInfo);
}

const ostvt::ManufacturerInfo* ModelDefinition::GetManufacturerInfo() {
  return LoadRecord("ManufacturerInfo", &ManufacturerInfo, BuildManufacturerInfo);
}

const CapabilitiesData* ModelDefinition::GetCapabilities() {
  return LoadRecord("CapabilitiesData", &Capabilities, BuildCapabilitiesData);
}

const ostvt::RfidCapabilities* ModelDefinition::GetRfidCapabilities() {
  return LoadRecord("RFIDCapabilities", &RfidCapabilities, BuildRfidCapabilities);
}

Measure ModelDefinition::GetTopOfFormMaximum() {
  return *LoadRecord("TopOfForm", &TopOfFormMaximum, BuildTopOfFormMaximum);
}

}  // namespace ostvt
