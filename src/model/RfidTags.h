// Kinds of radio tags and the parts of their memory, as bits of records.
#pragma once

#include <cstdint>

namespace ostvt {

inline constexpr uint32_t kTagOldEpc1 = 1;  // of older records
inline constexpr uint32_t kTagOldEpc2 = 2;
inline constexpr uint32_t kTagTagIt = 4;
inline constexpr uint32_t kTagIsoGeneric = 8;
inline constexpr uint32_t kTagICode1 = 16;
inline constexpr uint32_t kTagPicotag = 32;
inline constexpr uint32_t kTagIsoMyD = 64;
inline constexpr uint32_t kTagIsoTagIt = 128;
inline constexpr uint32_t kTagIsoICode = 256;
inline constexpr uint32_t kTagTagSys = 512;
inline constexpr uint32_t kTagIso6B = 1024;
inline constexpr uint32_t kTagEpcClass0Plus = 2048;
inline constexpr uint32_t kTagEpcClass1 = 4096;
inline constexpr uint32_t kTagEpcClass0 = 8192;
inline constexpr uint32_t kTagUcodeEpc119 = 0x10000;
inline constexpr uint32_t kTagGen2Class1 = 0x20000;
inline constexpr uint32_t kTagGen2Class2 = 0x40000;
inline constexpr uint32_t kTagGen2Class3 = 0x80000;

// Their records in RfidCapabilities.
inline constexpr int32_t kRecordTagIt = 0;
inline constexpr int32_t kRecordIso15693 = 1;
inline constexpr int32_t kRecordICode1 = 2;
inline constexpr int32_t kRecordPicotag = 3;
inline constexpr int32_t kRecordTagSys = 4;
inline constexpr int32_t kRecordIso18000 = 5;
inline constexpr int32_t kRecordEpc = 6;
inline constexpr int32_t kRecordUcode = 7;
inline constexpr int32_t kRecordGen2 = 8;

inline constexpr uint16_t kSegmentAll = 1;
inline constexpr uint16_t kSegmentHeader = 2;
inline constexpr uint16_t kSegmentData = 4;
inline constexpr uint16_t kSegmentEpc = 256;
inline constexpr uint16_t kSegmentTid = 512;
inline constexpr uint16_t kSegmentUser = 1024;
inline constexpr uint16_t kSegmentControl = 2048;
inline constexpr uint16_t kSegmentReserved = 4096;

// Flags of RfidTagRecord, beside its kRestricts... bits.
inline constexpr uint32_t kTagWriteProtect = 1;
inline constexpr uint32_t kTagStartBlock = 2;

}  // namespace ostvt
