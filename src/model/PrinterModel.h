// The one object that the rest of the system asks about a printer model.
//
// Made by CreatePrinterModel, deleted by its maker; lives as long as a session or one spooler call.
// All questions are answered from complete records: a model without a definition has zeros and
// defaults. Records and texts handed out as pointers are valid for the object's life, and change
// with Invalidate() only. One thread.
// OpenCaches() (model/Caches.h) must have run before a model is opened.
#pragma once

#include <cstdint>

#include "core/Arrays.h"
#include "core/Buffer.h"
#include "core/OString.h"
#include "core/OStringArray.h"
#include "model/CapabilitiesDataRecord.h"
#include "model/Measure.h"
#include "model/ModelDataRecord.h"
#include "model/ModelInfoRecords.h"

namespace ostvt {

class ModelDefinition;
class PaperSource;
struct FontGroupInfo;
class PrinterId;
class PrinterRegistry;

// The model's own dither method, and the method that is chosen by default.
struct DefaultDither {
  uint32_t HasOwnMethod;  // 0 or 1
  uint32_t DefaultMethod;
};

// Head of the block that GetClockInfo makes. Offsets are from its start; 0 without a clock.
struct ClockInfo {
  uint16_t Size;
  uint16_t HasClock;
  uint16_t TimeFormatOffset;
  uint16_t DateFormatOffset;
};

// Platform numbers of the capability questions.
enum DeviceCapability : int32_t {
  kCapabilityFields = 1,
  kCapabilityPapers = 2,
  kCapabilityPaperSize = 3,
  kCapabilityMinExtent = 4,
  kCapabilityMaxExtent = 5,
  kCapabilityBins = 6,
  kCapabilityDuplex = 7,
  kCapabilitySize = 8,
  kCapabilityExtra = 9,
  kCapabilityVersion = 10,
  kCapabilityDriver = 11,
  kCapabilityBinNames = 12,
  kCapabilityEnumResolutions = 13,
  kCapabilityFileDependencies = 14,
  kCapabilityTrueType = 15,
  kCapabilityPaperNames = 16,
  kCapabilityOrientation = 17,
  kCapabilityCopies = 18,
  kCapabilityBinAdjust = 19,
  kCapabilityEmfCompliant = 20,
  kCapabilityCollate = 22,
  kCapabilityPersonality = 25,
  kCapabilityStaple = 30,
  kCapabilityColorDevice = 32,
  kCapabilityNup = 33,
};

class PrinterModel {
 public:
  PrinterModel();
  virtual ~PrinterModel();
  PrinterModel(const PrinterModel&) = delete;
  PrinterModel& operator=(const PrinterModel&) = delete;

  // The width that a page has beside the stock at either side.
  virtual Measure GetEdgeAllowance();
  // Tells the model of the current device mode, a whole block of this driver.
  virtual void SetDevMode(const void* devMode);
  virtual void GetDefaultDither(DefaultDither* record);
  // `block` gets a ClockInfo and what its offsets name.
  virtual void GetClockInfo(Buffer* block);

  // Once, before anything else, by the factory. False when the spooler has no driver with a data
  // file for the printer; the model must then be deleted.
  bool Open(PrinterId& printerId);

  PrinterRegistry& GetStore();
  ModelDefinition& GetDefinition();
  OString GetPrinterName() const;
  OString GetDriverName() const;
  const char* GetOemTag() const;      // "o" and the maker's two letters
  const char* GetFamilyCode() const;  // three letters
  const char* GetCompanyName() const;
  const char* GetProductName() const;
  const char* GetFontsPrefix() const;
  const ModelData& GetModelData() const;
  const DriverInfo* GetDriverInfo();
  const ManufacturerInfo* GetManufacturerInfo();
  const CapabilitiesData* GetCapabilities();
  const RfidCapabilities* GetRfidCapabilities();

  Measure GetUnprintableWidth() const;
  Measure GetStockUnprintableWidth() const;
  Measure GetPrintableX() const;
  Measure GetPrintableY() const;
  Measure GetDefaultX() const;
  Measure GetDefaultY() const;
  Measure GetMinimumX() const;
  Measure GetMinimumY() const;
  Measure GetMaximumX() const;
  Measure GetMaximumY() const;
  // GetDefaultX() and the edge allowance at both sides, in whole micrometres.
  Measure GetDefaultPageWidth();

  bool HasColor(uint16_t mask) const;  // any of the kColor... bits
  uint8_t GetColorDefault() const;
  uint8_t GetStockTracking() const;  // kTracking...
  bool IsCenterTracking() const;
  uint8_t GetOrientation() const;
  bool HasFlip180() const;
  bool HasMirror() const;
  bool HasInverse() const;
  uint16_t GetMapResolution() const;
  uint16_t GetLineThicknessMaximum() const;
  uint16_t GetBoxThicknessMaximum() const;
  uint16_t GetCopiesLimit() const;
  bool IsBidirectionalParallel() const;
  bool IsBidirectionalUsb() const;
  uint16_t GetStatusPorts() const;  // kPort...
  bool GetStatusMonitorDefault() const;
  bool CanRotateTextAnyAngle() const;
  bool CanScaleText() const;
  bool CanDownload() const;
  bool CanDownloadTrueType() const;
  bool CanDownloadSymbolTrueType() const;
  bool CanDownloadBitmap() const;
  // 0 upright, 1 turned by 90 degrees; false for any other.
  bool CanDownloadBitmapAt(int32_t orientation) const;
  uint16_t GetDefaultResolutionX() const;
  uint16_t GetDefaultResolutionY() const;
  // X, Y, X, Y...; replaces the content. The number of pairs.
  int32_t GetResolutions(DwordArray* array) const;

  bool HasBarCodes();
  bool CanCacheFormat();
  bool CanCacheGraphic();
  bool HasRfid();
  bool IsRfidEnabled();
  // `context` as in ModelDefinition::SelectContextByName; keys of the printer's maker win.
  OString GetDefinitionString(const OString& context, const OString& key,
                              const OString& defaultValue = OString());
  bool GetDefinitionBool(const OString& context, const OString& key, bool defaultValue);
  bool HasPrinterFontCommand();
  // The largest adjustment of the top of form in either direction, never below zero.
  Measure GetTopOfFormMaximum();
  OString GetEncodingDescription(const OString& name);
  // The encodings of the model's fonts, in the order in which they are offered. Replaces the
  // content. Built on first use; what was found is kept until RebuildEncodings().
  void GetEncodings(OStringArray* list);
  // The system's character sets that the encodings cover; 1 alone stands for Unicode. Replaces the
  // content, and is kept likewise.
  void GetCharacterSets(ByteArray* array);
  bool IsUnicodeModel();
  // After a change of the font groups.
  void RebuildEncodings();

  // The user may declare fonts of his own; fonts of cards and packs are offered.
  bool AllowsCustomFonts();
  bool AllowsPredefinedFonts();
  // Each replaces the list's content.
  void GetFontProviders(OStringArray* list);
  void GetProviderFonts(const OString& provider, OStringArray* list);
  // Empty if there is no such provider, font or key.
  OString GetProviderFontValue(const OString& provider, const OString& font, const OString& key);
  // The names of the groups of fonts, kept in the store until Invalidate(): the model's own and
  // those that the user's optional fonts bring, without those that the user excludes.
  void GetFontGroups(OStringArray* list);
  // Kept likewise. False, with `info` as it was, if the group has no fonts.
  bool GetFontGroupInfo(const OString& group, FontGroupInfo* info);
  bool HasFontGroups();
  // The groups that the user's optional fonts bring. The model is invalidated. False, and nothing
  // is changed, if the store refuses them.
  bool SetExpansionFonts(const OStringArray& list);

  // A command as a user types it, in bytes of the system's own code page: "\r", "\n", "\t", "\e"
  // (escape), "\\" and "\xHH", two digits of either case, become one byte each; every other "\"
  // stands as typed. Replaces the content.
  static void ExpandCommandText(const OString& text, Buffer* bytes);

  // `methods` is a "RestrictedMethods" list.
  static bool IsMethodRestricted(const OStringArray& methods);
  // Lays the model's default for job monitoring down in the driver options.
  void ApplyStatusDefaults();
  // After a change that the records depend on: clears what the store keeps for the model, makes
  // every process drop its records the next time it opens a model, and builds ModelData anew.
  // That changes what GetModelData and its texts were handed out as; the records behind other
  // pointers keep their content.
  void Invalidate();

  // The answer to the spooler. `output` may be null, which asks for the count alone; otherwise it
  // has room for what that count promised, 4 bytes for the two extents, whose answer is no count.
  // `devMode`, for kCapabilitySize to kCapabilityDriver, is null or a device mode of at least 72
  // bytes. `papers` may be null: no papers. -1 for an unknown question.
  int32_t GetDeviceCapability(int32_t capability, void* output, const void* devMode,
                              PaperSource* papers = nullptr);

 protected:
  ModelDefinition* Definition = nullptr;

 private:
  const ModelData& Data() const;
  int32_t GetPaperCapability(int32_t capability, void* output, PaperSource* papers);

  OStringArray DependentFiles;  // names without directory
  OStringArray Encodings;       // empty until they are asked for
  ByteArray Charsets;           // of Encodings, likewise
  bool EncodingsLoaded = false;
};

// The family's factory: a new model, opened; null when the printer cannot be identified.
PrinterModel* CreatePrinterModel(PrinterId& printerId);

}  // namespace ostvt
