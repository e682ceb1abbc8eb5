// The small fixed records beside ModelData. Little-endian, no padding.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ostvt {

struct DriverInfo {
  uint16_t Size;
  // Constants of this build, handed through unchanged. The first two are also the driver version of
  // a device mode.
  uint16_t Value1;
  uint16_t Value2;
  uint16_t Value3;
  uint16_t Value4;
  uint16_t Value5;
  char FamilyCode[4];  // NUL-padded
  uint16_t Flags;
  uint16_t Reserved1;
  uint32_t Reserved2;
};

inline constexpr uint16_t kDriverInfoValue1 = 6;
inline constexpr uint16_t kDriverInfoValue2 = 7;
inline constexpr uint16_t kDriverInfoValue3 = 4;
inline constexpr uint16_t kDriverInfoValue4 = 1;
inline constexpr uint16_t kDriverInfoFlags = 32768;

static_assert(sizeof(DriverInfo) == 24);
static_assert(offsetof(DriverInfo, Size) == 0);
static_assert(offsetof(DriverInfo, Value1) == 2);
static_assert(offsetof(DriverInfo, Value2) == 4);
static_assert(offsetof(DriverInfo, Value3) == 6);
static_assert(offsetof(DriverInfo, Value4) == 8);
static_assert(offsetof(DriverInfo, Value5) == 10);
static_assert(offsetof(DriverInfo, FamilyCode) == 12);
static_assert(offsetof(DriverInfo, Flags) == 16);
static_assert(offsetof(DriverInfo, Reserved1) == 18);
static_assert(offsetof(DriverInfo, Reserved2) == 20);

struct ManufacturerInfo {
  uint16_t Size;
  char CompanyName[38];
  char DriverMaker[32];
  char MakerCode[6];
};

static_assert(sizeof(ManufacturerInfo) == 78);
static_assert(offsetof(ManufacturerInfo, CompanyName) == 2);
static_assert(offsetof(ManufacturerInfo, DriverMaker) == 40);
static_assert(offsetof(ManufacturerInfo, MakerCode) == 72);

// What one kind of RFID tag can do.
struct RfidTagRecord {
  uint16_t Present;
  uint16_t DefaultStartBlock;
  uint32_t Flags;
  uint32_t TagBits;
  uint16_t Segments;
  uint16_t DefaultSegment;
};

inline constexpr uint16_t kRfidTagRecords = 9;

struct RfidCapabilities {
  uint16_t Size;
  uint16_t RecordSize;
  uint16_t FirstRecord;
  uint16_t RecordCount;
  uint32_t Reserved;
  uint32_t DefaultTagBit;  // 0: the model writes no tags
  RfidTagRecord Records[kRfidTagRecords];
};

static_assert(sizeof(RfidTagRecord) == 16);
static_assert(offsetof(RfidTagRecord, DefaultStartBlock) == 2);
static_assert(offsetof(RfidTagRecord, Flags) == 4);
static_assert(offsetof(RfidTagRecord, TagBits) == 8);
static_assert(offsetof(RfidTagRecord, Segments) == 12);
static_assert(offsetof(RfidTagRecord, DefaultSegment) == 14);
static_assert(sizeof(RfidCapabilities) == 160);
static_assert(offsetof(RfidCapabilities, RecordSize) == 2);
static_assert(offsetof(RfidCapabilities, FirstRecord) == 4);
static_assert(offsetof(RfidCapabilities, RecordCount) == 6);
static_assert(offsetof(RfidCapabilities, Reserved) == 8);
static_assert(offsetof(RfidCapabilities, DefaultTagBit) == 12);
static_assert(offsetof(RfidCapabilities, Records) == 16);

}  // namespace ostvt
