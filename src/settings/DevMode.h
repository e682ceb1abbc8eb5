// A print job's settings: a view of a device mode block, owned or foreign.
//
// A block comes from anywhere, so it has a known length, given with it; what its header says about
// sizes is believed only inside that length. A public field counts as far as it lies inside dmSize
// and the known length: of a field that is cut off there the missing bytes read 0 and are not
// written. Private data that can't be found reads as off, and what would change it does nothing.
// An empty DevMode reads as zeros, where the getters say nothing else.
//
// Not copied: Assign makes an owned copy of a block. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "settings/DevModeRecord.h"
#include "settings/ModelRecordView.h"

namespace ostvt {

class PaperResolver;
class PrinterModel;
struct PaperForm;

class DevMode {
 public:
  DevMode() = default;
  // As Attach.
  DevMode(void* block, uint32_t knownLength) { Attach(block, knownLength); }
  ~DevMode() { Release(); }
  DevMode(const DevMode&) = delete;
  DevMode& operator=(const DevMode&) = delete;

  // An owned block of TotalSize() zero bytes.
  void Allocate();
  void AllocateDefaults(PrinterModel* model);
  // A view of `knownLength` bytes at `block`, which stay the caller's. Null makes it empty.
  void Attach(void* block, uint32_t knownLength);
  // An owned copy of all that GetSize() covers of `other`; empty when that is nothing.
  void Assign(const DevMode& other);
  void Release();

  // The size of every block made here.
  static constexpr uint32_t TotalSize() { return kDevModeSize; }
  uint8_t* GetBlock() const { return Block; }
  uint32_t GetKnownLength() const { return KnownLength; }
  bool IsEmpty() const { return Block == nullptr; }
  // dmSize + dmDriverExtra, at most the known length; 0 without a header.
  uint32_t GetSize() const;
  // dmSize, likewise.
  uint32_t GetPublicSize() const;
  // GetSize() bytes, at most `room`; how many that were.
  uint32_t CopyTo(void* target, uint32_t room) const;

  // Fills the block with the model's defaults. Needs room for TotalSize() bytes, else does nothing.
  void SetDefaults(PrinterModel* model);
  // Makes a block that came from anywhere safe to print with. Without `papers` there is no paper to
  // follow, and the paper fields stay.
  void Validate(PrinterModel* model, PaperResolver* papers = nullptr);
  // Takes over what `source` declares, then validates. An empty source declares nothing.
  void Merge(const DevMode& source, PrinterModel* model, PaperResolver* papers = nullptr);
  // From and to the older narrow form, field by field inside both blocks. A form name isn't
  // carried. The header of the target stays as it is.
  void ImportNarrow(const void* narrow, uint32_t knownLength);
  void ExportNarrow(void* narrow, uint32_t knownLength) const;
  // A whole narrow block with a header and a record of its own. `printerName` is cut to its field.
  void WriteNarrow(const OString& printerName, uint8_t (&narrow)[kNarrowDevModeSize]) const;
  // Only from a record of the same model and version.
  void CopyPrivateFrom(const DevMode& other);
  // True if both mean the same settings; copies, scale, paper id and form name don't count.
  bool Matches(const DevMode& other) const;

  // Tenths of a millimetre; 0 unless the block declares it.
  int32_t GetPaperWidth() const;
  int32_t GetPaperLength() const;
  int32_t GetCopies() const;  // 1 unless declared
  // 0 portrait, 1 landscape; 2 and 3 the same turned by 180 degrees. Others are not taken.
  int32_t GetOrientation() const;
  int32_t GetColor() const;        // 1 when empty
  uint32_t GetResolution() const;  // dots per inch: Y in the high word, X in the low
  uint32_t GetIcmMethod() const;   // 2 on a spooler path below version 3
  uint32_t GetIcmIntent() const;   // 1 there
  bool GetMirror() const;
  bool GetNegative() const;
  uint32_t GetPresetNameCrc() const;
  bool HasAdvancedLength() const;  // the record reaches so far
  // Whether an advanced length of the document's own is in force, and which: thousandths of a
  // millimetre, 0 where the record has none.
  bool UsesAdvancedLength() const;
  int32_t GetAdvancedLength() const;

  void SetCopies(int32_t value);
  void SetOrientation(int32_t value);
  void SetColor(int32_t value);
  void SetResolution(uint32_t packed);
  void SetIcmMethod(uint32_t value);  // nothing on a spooler path below version 3
  void SetIcmIntent(uint32_t value);
  void SetMirror(bool value);
  void SetNegative(bool value);
  void UseAdvancedLength(bool value);
  void SetAdvancedLength(int32_t value);
  void SetStock(const PaperForm& stock);
  // Notes the name's CRC; nothing where the fourth command text is so long that it lies over it.
  void SetPresetName(const OString& name);

  // One field of the public part.
  template <typename T>
  T Get(T PublicDevMode::*field) const {
    T value{};
    ReadPublic(OffsetOf(field), &value, sizeof(T));
    return value;
  }
  template <typename T>
  void Set(T PublicDevMode::*field, T value) {
    WritePublic(OffsetOf(field), &value, sizeof(T));
  }
  // True if at least the first byte of the field is there.
  template <typename T>
  bool Has(T PublicDevMode::*field) const {
    return Visible(OffsetOf(field), sizeof(T)) != 0;
  }
  // At most 32 units, zero-filled.
  void SetFormName(const OString& name);
  // What lies of it, to its terminator.
  OString GetFormName() const;
  // What lies of the other's form name, to its terminator; the rest is zero.
  void CopyFormName(const DevMode& other);
  // Bits of dmFields.
  bool HasFields(uint32_t bits) const { return (Get(&PublicDevMode::dmFields) & bits) == bits; }
  void ChangeFields(uint32_t clear, uint32_t set);

  // Parts of the private record, null where it doesn't reach so far. Valid as long as the block.
  const ModelRecordView& GetRecord() const;
  DitherSetup* GetDitherSetup() const;
  OstrelSettings* GetOstrelSettings() const;

  static ModelRecord* FindModelRecord(void* block, uint32_t knownLength);
  static DevModeTrailer* FindTrailer(void* block, uint32_t knownLength);

 private:
  template <typename T>
  static uint32_t OffsetOf(T PublicDevMode::*field) {
    alignas(8) static constexpr PublicDevMode kProbe{};
    return static_cast<uint32_t>(reinterpret_cast<const uint8_t*>(&(kProbe.*field)) -
                                 reinterpret_cast<const uint8_t*>(&kProbe));
  }
  // How many of `size` bytes at `offset` lie in the public part.
  uint32_t Visible(uint32_t offset, size_t size) const;
  void ReadPublic(uint32_t offset, void* value, size_t size) const;
  void WritePublic(uint32_t offset, const void* value, size_t size);
  void MergePaper(const DevMode& source);
  void MergeHalftone(const DevMode& source);
  bool GetImageFlag(uint16_t bit) const;
  void SetImageFlag(uint16_t bit, bool value);
  void ValidateRecord(PrinterModel* model);

  uint8_t* Block = nullptr;
  uint32_t KnownLength = 0;
  bool Owned = false;
  mutable ModelRecordView View;  // found on first need
};

}  // namespace ostvt
