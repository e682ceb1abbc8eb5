#include "settings/DevMode.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/Crc.h"
#include "core/DriverPath.h"
#include "core/Memory.h"
#include "settings/DevModeText.h"
#include "settings/PaperResolver.h"

namespace ostvt {
namespace {

constexpr uint32_t kAdvancedLengthEnd = offsetof(ModelRecord, AdvancedLength) + sizeof(int32_t);

constexpr uint32_t kSlotStarts[] = {0, 256, 512, 768};
constexpr uint32_t kSlotSizes[] = {256, 256, 256, 252};
// A fourth text of this length or more runs into PresetNameCrc.
constexpr uint32_t kLastSlotLimit = 251;

uint32_t SlotLength(const ModelRecord* record, int slot) {
  return static_cast<uint32_t>(strnlen(record->CommandTexts + kSlotStarts[slot], kSlotSizes[slot]));
}

bool SameTexts(const ModelRecord* a, const ModelRecord* b) {
  for (int slot = 0; slot < 4; ++slot) {
    const uint32_t length = SlotLength(a, slot);
    if (length != SlotLength(b, slot)) return false;
    const uint32_t start = kSlotStarts[slot];
    if (memcmp(a->CommandTexts + start, b->CommandTexts + start, length) != 0) return false;
  }
  return true;
}

bool SameRecords(const ModelRecordView& a, const ModelRecordView& b) {
  if (!a.Record || !b.Record) return false;
  if (!SameTexts(a.Record, b.Record)) return false;
  if (a.Record->RecordSize != b.Record->RecordSize) return false;
  const uint32_t size = CommonRecordSize(a, b);
  constexpr uint32_t kStart = offsetof(ModelRecord, RecordVersion);
  if (size <= kStart) return true;
  return memcmp(reinterpret_cast<const uint8_t*>(a.Record) + kStart,
                reinterpret_cast<const uint8_t*>(b.Record) + kStart, size - kStart) == 0;
}

bool HasColorManagement() { return DriverIsVersion3 || !DriverOnNtPath; }

int16_t RoundToTenths(int32_t thousandths) {
  return static_cast<int16_t>(std::clamp<int64_t>((int64_t{thousandths} + 50) / 100, 0, INT16_MAX));
}

}  // namespace

void DevMode::Allocate() {
  Release();
  Block = static_cast<uint8_t*>(AllocCountedZero(1, kDevModeSize));
  KnownLength = kDevModeSize;
  Owned = true;
}

void DevMode::Attach(void* block, uint32_t knownLength) {
  Release();
  Block = static_cast<uint8_t*>(block);
  KnownLength = block ? knownLength : 0;
}

void DevMode::Assign(const DevMode& other) {
  const uint32_t size = other.GetSize();
  uint8_t* copy = nullptr;
  if (size != 0) {
    copy = static_cast<uint8_t*>(AllocCounted(size));
    CopyBytes(copy, other.Block, size);
  }
  Release();
  Block = copy;
  KnownLength = size;
  Owned = copy != nullptr;
}

void DevMode::Release() {
  if (Owned) FreeCounted(Block);
  Block = nullptr;
  KnownLength = 0;
  Owned = false;
  View = ModelRecordView();
}

uint32_t DevMode::GetSize() const {
  const DevModeHeader header = ReadHeader(Block, KnownLength);
  return std::min(uint32_t{header.Size} + header.DriverExtra, KnownLength);
}

uint32_t DevMode::GetPublicSize() const {
  return std::min(uint32_t{ReadHeader(Block, KnownLength).Size}, KnownLength);
}

uint32_t DevMode::CopyTo(void* target, uint32_t room) const {
  const uint32_t size = std::min(GetSize(), room);
  CopyBytes(target, Block, size);
  return size;
}

uint32_t DevMode::Visible(uint32_t offset, size_t size) const {
  const uint32_t end = GetPublicSize();
  if (offset >= end) return 0;
  return std::min(static_cast<uint32_t>(size), end - offset);
}

void DevMode::ReadPublic(uint32_t offset, void* value, size_t size) const {
  if (const uint32_t visible = Visible(offset, size)) memcpy(value, Block + offset, visible);
}

void DevMode::WritePublic(uint32_t offset, const void* value, size_t size) {
  if (const uint32_t visible = Visible(offset, size)) memcpy(Block + offset, value, visible);
}

void DevMode::SetFormName(const OString& name) {
  char16_t field[32];
  FillWideField(field, 32, 32, name);
  WritePublic(offsetof(PublicDevMode, dmFormName), field, sizeof(field));
}

OString DevMode::GetFormName() const {
  char16_t name[32 + 1] = {};
  ReadPublic(offsetof(PublicDevMode, dmFormName), name, sizeof(PublicDevMode::dmFormName));
  return OString(name);
}

void DevMode::CopyFormName(const DevMode& other) {
  char16_t field[32] = {};
  other.ReadPublic(offsetof(PublicDevMode, dmFormName), field, sizeof(field));
  // What stands behind the name is nobody's text.
  bool ended = false;
  for (char16_t& unit : field) {
    ended = ended || unit == 0;
    if (ended) unit = 0;
  }
  WritePublic(offsetof(PublicDevMode, dmFormName), field, sizeof(field));
}

void DevMode::ChangeFields(uint32_t clear, uint32_t set) {
  Set(&PublicDevMode::dmFields, (Get(&PublicDevMode::dmFields) & ~clear) | set);
}

const ModelRecordView& DevMode::GetRecord() const {
  if (!View.Record) View = FindRecord(Block, KnownLength, ReadHeader(Block, KnownLength));
  return View;
}

DitherSetup* DevMode::GetDitherSetup() const {
  const ModelRecordView& view = GetRecord();
  constexpr uint32_t kEnd = offsetof(ModelRecord, DitherSetup) + sizeof(DitherSetup);
  return view.Room >= kEnd ? &view.Record->DitherSetup : nullptr;
}

OstrelSettings* DevMode::GetOstrelSettings() const {
  const ModelRecordView& view = GetRecord();
  constexpr uint32_t kEnd = offsetof(ModelRecord, OstrelSettings) + sizeof(OstrelSettings);
  return view.Room >= kEnd ? &view.Record->OstrelSettings : nullptr;
}

ModelRecord* DevMode::FindModelRecord(void* block, uint32_t knownLength) {
  return FindRecord(block, knownLength, ReadHeader(block, knownLength)).Record;
}

DevModeTrailer* DevMode::FindTrailer(void* block, uint32_t knownLength) {
  return FindRecord(block, knownLength, ReadHeader(block, knownLength)).Trailer;
}

void DevMode::CopyPrivateFrom(const DevMode& other) { CopyRecord(other.GetRecord(), GetRecord()); }

bool DevMode::Matches(const DevMode& other) const {
  if (!SameRecords(GetRecord(), other.GetRecord())) return false;
  const auto same = [&](auto field) { return Get(field) == other.Get(field); };
  const auto near = [&](auto field) { return std::abs(Get(field) - other.Get(field)) <= 2; };
  return same(&PublicDevMode::dmOrientation) && near(&PublicDevMode::dmPaperLength) &&
         near(&PublicDevMode::dmPaperWidth) && same(&PublicDevMode::dmDefaultSource) &&
         same(&PublicDevMode::dmPrintQuality) && same(&PublicDevMode::dmColor) &&
         same(&PublicDevMode::dmDuplex) && same(&PublicDevMode::dmYResolution) &&
         same(&PublicDevMode::dmCollate) && same(&PublicDevMode::dmICMMethod) &&
         same(&PublicDevMode::dmICMIntent) && same(&PublicDevMode::dmMediaType);
}

int32_t DevMode::GetPaperWidth() const {
  return HasFields(kFieldPaperWidth) ? Get(&PublicDevMode::dmPaperWidth) : 0;
}

int32_t DevMode::GetPaperLength() const {
  return HasFields(kFieldPaperLength) ? Get(&PublicDevMode::dmPaperLength) : 0;
}

int32_t DevMode::GetCopies() const {
  return HasFields(kFieldCopies) && Has(&PublicDevMode::dmCopies) ? Get(&PublicDevMode::dmCopies)
                                                                  : 1;
}

int32_t DevMode::GetOrientation() const {
  const int32_t landscape = Get(&PublicDevMode::dmOrientation) == 2 ? 1 : 0;
  return landscape + (GetImageFlag(kImageTurned) ? 2 : 0);
}

int32_t DevMode::GetColor() const { return IsEmpty() ? 1 : Get(&PublicDevMode::dmColor); }

uint32_t DevMode::GetResolution() const {
  const auto x = static_cast<uint16_t>(Get(&PublicDevMode::dmPrintQuality));
  const auto y = static_cast<uint16_t>(Get(&PublicDevMode::dmYResolution));
  return uint32_t{y} << 16 | x;
}

uint32_t DevMode::GetIcmMethod() const {
  return HasColorManagement() ? Get(&PublicDevMode::dmICMMethod) : 2;
}

uint32_t DevMode::GetIcmIntent() const {
  return HasColorManagement() ? Get(&PublicDevMode::dmICMIntent) : 1;
}

bool DevMode::GetMirror() const { return GetImageFlag(kImageMirror); }
bool DevMode::GetNegative() const { return GetImageFlag(kImageNegative); }

bool DevMode::HasAdvancedLength() const { return GetRecord().Room >= kAdvancedLengthEnd; }

bool DevMode::UsesAdvancedLength() const { return GetImageFlag(kImageAdvancedLength); }

int32_t DevMode::GetAdvancedLength() const {
  return HasAdvancedLength() ? GetRecord().Record->AdvancedLength : 0;
}

uint32_t DevMode::GetPresetNameCrc() const {
  const ModelRecord* record = GetRecord().Record;
  return record ? record->PresetNameCrc : 0;
}

void DevMode::SetCopies(int32_t value) {
  Set(&PublicDevMode::dmCopies, static_cast<int16_t>(std::clamp<int32_t>(value, 1, INT16_MAX)));
  ChangeFields(0, kFieldCopies);
}

void DevMode::SetOrientation(int32_t value) {
  if (value < 0 || value > 3) return;
  SetImageFlag(kImageTurned, value >= 2);
  Set(&PublicDevMode::dmOrientation, static_cast<int16_t>(1 + value % 2));
  ChangeFields(0, kFieldOrientation);
}

void DevMode::SetColor(int32_t value) {
  Set(&PublicDevMode::dmColor, static_cast<int16_t>(value));
  ChangeFields(0, kFieldColor);
}

void DevMode::SetResolution(uint32_t packed) {
  Set(&PublicDevMode::dmPrintQuality, static_cast<int16_t>(packed & 0xFFFF));
  Set(&PublicDevMode::dmYResolution, static_cast<int16_t>(packed >> 16));
}

void DevMode::SetIcmMethod(uint32_t value) {
  if (HasColorManagement()) Set(&PublicDevMode::dmICMMethod, value);
}

void DevMode::SetIcmIntent(uint32_t value) {
  if (HasColorManagement()) Set(&PublicDevMode::dmICMIntent, value);
}

void DevMode::SetMirror(bool value) { SetImageFlag(kImageMirror, value); }
void DevMode::SetNegative(bool value) { SetImageFlag(kImageNegative, value); }

void DevMode::UseAdvancedLength(bool value) { SetImageFlag(kImageAdvancedLength, value); }

void DevMode::SetAdvancedLength(int32_t value) {
  if (HasAdvancedLength()) GetRecord().Record->AdvancedLength = value;
}

void DevMode::SetStock(const PaperForm& stock) {
  Set(&PublicDevMode::dmPaperSize, stock.Id);
  Set(&PublicDevMode::dmPaperWidth, RoundToTenths(stock.PageWidth));
  Set(&PublicDevMode::dmPaperLength, RoundToTenths(stock.PageHeight));
  SetFormName(stock.Name);
  const uint32_t sizes = stock.IsUserForm ? kFieldPaperWidth | kFieldPaperLength : 0;
  ChangeFields(0, kFieldPaperSize | sizes | kFieldFormName);
}

void DevMode::SetPresetName(const OString& name) {
  ModelRecord* record = GetRecord().Record;
  if (!record || SlotLength(record, 3) >= kLastSlotLimit) return;
  const char16_t* text = name.GetWide();
  uint32_t units = 0;
  while (text[units] != 0) ++units;
  record->PresetNameCrc = CRC32(text, units * uint32_t{sizeof(char16_t)}, 0);
}

bool DevMode::GetImageFlag(uint16_t bit) const {
  const ModelRecordView& view = GetRecord();
  constexpr uint32_t kEnd = offsetof(ModelRecord, ImageFlags) + sizeof(uint16_t);
  return view.Room >= kEnd && (view.Record->ImageFlags & bit) != 0;
}

void DevMode::SetImageFlag(uint16_t bit, bool value) {
  const ModelRecordView& view = GetRecord();
  constexpr uint32_t kEnd = offsetof(ModelRecord, ImageFlags) + sizeof(uint16_t);
  if (view.Room < kEnd) return;
  const uint16_t flags = view.Record->ImageFlags;
  view.Record->ImageFlags = static_cast<uint16_t>(value ? flags | bit : flags & ~bit);
}

}  // namespace ostvt
