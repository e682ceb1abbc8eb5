// The definition of one printer's model: the chain of sections that makes it up, and the records
// computed from it.
//
// Lives as long as its session and belongs to one thread. Records are loaded on first use, from the
// process-wide record cache or by a build, and are valid for the object's life.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/OStringArray.h"
#include "model/CapabilitiesDataRecord.h"
#include "model/DefinitionFile.h"
#include "model/ModelDataRecord.h"
#include "model/ModelInfoRecords.h"
#include "model/StringMap.h"
#include "platform/Lock.h"
#include "store/PrinterId.h"
#include "store/PrinterRegistry.h"

namespace ostvt {

// The sections of a model, by what they tell.
enum class Context : int32_t {
  kDriver = 0,
  kManufacturer = 1,
  kModel = 2,
  kBarCode = 3,
  kEncodings = 4,
  kDrawing = 5,
  kFeatures = 6,
  kFont = 7,
  kMethod = 8,
  kRfid = 9,
  kCustomData = 10,
};

class ModelDefinition : public DefinitionFile {
 public:
  explicit ModelDefinition(PrinterId& printerId);
  ~ModelDefinition() override;

  // Chooses the archives, once per object. Selecting a context calls it; what is read before either
  // finds nothing, then and later.
  void OpenArchive();
  // The archives, which also hold what else travels with the model; not the caller's. Null where
  // none can be had.
  ArchiveReader* GetArchive();
  // The path of the section that the current one names by `key`. An administrator's value
  // "Settings:Table/KEY" wins; it names a section of the file KEY.
  OString GetOverride(const OString& key);
  // A link that is missing leaves the section in force that it was looked for in.
  void SelectContext(Context context);
  // A name of Context ("Driver", "Manufacturer", "Model", "Encodings"), a path with ":", or a key
  // of the model's section. Case is ignored.
  void SelectContextByName(const OString& name);

  // With `key` + KeySuffix where that key has a value, else with `key`.
  OString GetStringEx(const OString& key, const OString& defaultValue = OString());
  bool GetBoolEx(const OString& key, bool defaultValue = false);
  int32_t GetIntEx(const OString& key, int32_t defaultValue = 0);
  void GetListEx(const OString& key, OStringArray* array);
  bool ListContainsEx(const OString& key, const OString& item);  // case ignored
  Measure GetMeasureEx(const OString& key);
  // The section's keys as these calls take them, each once: a key "X(YY)" is maker YY's word for
  // "X", so it is "X" for our maker and none for others. "X (YY)", with a blank, is a key as it is.
  void GetKeysEx(OStringArray* array);

  // What the store knows about an encoding; else the definition's word for it, which is then kept
  // in the store.
  OString GetEncodingDescription(const OString& name);
  // "Top/Left" 0, "Top/Right" 1, "Bottom/Left" 2, "Bottom/Right" 3, "Baseline/Left" 4,
  // "Baseline/Right" 5; anything else 0. Case is ignored.
  static uint8_t ParseAlignment(const OString& word);

  // Looks the model's section up anew. Drops every record of the process if the store says that
  // some model has changed since.
  void LoadModelData();
  const ostvt::DriverInfo* GetDriverInfo();
  const ostvt::ManufacturerInfo* GetManufacturerInfo();
  const CapabilitiesData* GetCapabilities();
  const ostvt::RfidCapabilities* GetRfidCapabilities();
  // The largest adjustment of the top of form in either direction, never below zero.
  Measure GetTopOfFormMaximum();
  // Makes the next look-up of the model's section start anew.
  void ForgetModelPath() { ModelPath.Release(); }

  PrinterRegistry Store;
  OString PrinterName;  // with "\\server\" in front where the printer is remote
  OString DriverName;
  char OemTag[4] = {};      // "o" and the maker's two letters, lower case
  char FamilyCode[4] = {};  // lower case
  OString KeySuffix;        // "(XX)"; empty without a maker
  ostvt::ModelData ModelData = {};
  // The driver options as the pages of a session see them, with edits that the store doesn't have
  // yet; see DriverOptions.
  StringMap OptionCache;
  // Held for each access. A transaction of the store may be opened under it, never the other way
  // round; no other lock of ours is taken under it.
  platform::Lock OptionLock;

 private:
  template <typename Record>
  const Record* LoadRecord(const char* name, Record** record,
                           void (*build)(ModelDefinition*, Record*));
  template <typename Record>
  void Build(Record* record, void (*build)(ModelDefinition*, Record*));
  OString RecordKey(const char* name) const;
  uint32_t HashOfDriver() const;
  void SelectLink(const char* key);

  OString DriverDirectory;
  OString ModelDataKey;
  uint32_t DriverHash;      // tells records of this printer's drivers apart
  uint32_t Generation = 0;  // that of the cache when ModelData was loaded
  ostvt::DriverInfo* DriverInfo = nullptr;
  ostvt::ManufacturerInfo* ManufacturerInfo = nullptr;
  CapabilitiesData* Capabilities = nullptr;
  ostvt::RfidCapabilities* RfidCapabilities = nullptr;
  Measure* TopOfFormMaximum = nullptr;
  OString ModelPath;  // what the driver's section names as its model; empty until it is asked for
  bool ArchiveChosen = false;
  bool KnownWithoutTable = false;  // while a record is built: there is no "Settings:Table"
};

}  // namespace ostvt
