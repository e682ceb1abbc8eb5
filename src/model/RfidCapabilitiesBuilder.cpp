// What a model's section on radio tags tells.
#include <span>

#include "model/CapabilitiesDataRecord.h"
#include "model/ModelDefinition.h"
#include "model/ModelInfoBuilder.h"
#include "model/RecordText.h"
#include "model/RfidTags.h"
#include "model/SectionReader.h"

namespace ostvt {
namespace {

constexpr WordBit kSegments[] = {{"All", kSegmentAll},         {"Header", kSegmentHeader},
                                 {"Data", kSegmentData},       {"EPC", kSegmentEpc},
                                 {"TID", kSegmentTid},         {"User", kSegmentUser},
                                 {"Control", kSegmentControl}, {"Reserved", kSegmentReserved}};

struct TagType {
  const char* Word;
  uint32_t Bit;
  uint16_t DefaultSegment;  // where the section has none
};
constexpr TagType kIso18000Types[] = {{"6B", kTagIso6B, kSegmentData}};
constexpr TagType kEpcTypes[] = {{"Class1", kTagEpcClass1, kSegmentData},
                                 {"Class0+", kTagEpcClass0Plus, kSegmentData},
                                 {"Class0", kTagEpcClass0, kSegmentData}};
constexpr TagType kGen2Types[] = {{"Class1", kTagGen2Class1, kSegmentEpc},
                                  {"Class2", kTagGen2Class2, kSegmentEpc},
                                  {"Class3", kTagGen2Class3, kSegmentEpc}};
constexpr TagType kIso15693Types[] = {{"Generic", kTagIsoGeneric, kSegmentData},
                                      {"Tag-It", kTagIsoTagIt, kSegmentData},
                                      {"I-Code", kTagIsoICode, kSegmentData},
                                      {"My-d", kTagIsoMyD, kSegmentAll}};

enum class TypeWords { kNone, kAnyCase, kExact };

struct Tag {
  const char* Key;
  int32_t Record;
  uint32_t Bit;  // without types
  // Where the section has none.
  uint16_t DefaultSegment;
  uint16_t DefaultStartBlock;
  TypeWords Words = TypeWords::kNone;
  std::span<const TagType> Types = {};
};

// In the order in which they are tested: the first bit becomes the model's default.
constexpr Tag kTags[] = {
    {"ISO18000", kRecordIso18000, 0, 0, 0, TypeWords::kAnyCase, kIso18000Types},
    {"EPC", kRecordEpc, 0, kSegmentData, 0, TypeWords::kExact, kEpcTypes},
    {"EPCGen2", kRecordGen2, 0, kSegmentEpc, 0, TypeWords::kExact, kGen2Types},
    {"UCODE_EPC119", kRecordUcode, kTagUcodeEpc119, kSegmentHeader, 0},
    {"ISO15693", kRecordIso15693, 0, 0, 0, TypeWords::kAnyCase, kIso15693Types},
    {"ICode1", kRecordICode1, kTagICode1, kSegmentAll, 5},
    {"Picotag", kRecordPicotag, kTagPicotag, kSegmentAll, 3},
    {"TagIt", kRecordTagIt, kTagTagIt, kSegmentData, 0},
    {"TagSys", kRecordTagSys, kTagTagSys, kSegmentData, 0},
};

class Builder : private SectionReader {
 public:
  Builder(ModelDefinition& definition, RfidCapabilities& record)
      : SectionReader(definition), Record(record) {}
  void Read(const Tag& tag);

 private:
  uint16_t ReadSegment(const OString& key);
  void ReadTypes(const Tag& tag, RfidTagRecord* record);
  void AddTag(uint32_t bit, RfidTagRecord* record);

  RfidCapabilities& Record;
};

// One word.
uint16_t Builder::ReadSegment(const OString& key) {
  const OString word = Definition.GetStringEx(key);
  for (const WordBit& entry : kSegments) {
    if (word.CompareNoCase(entry.Word) == 0) return static_cast<uint16_t>(entry.Bit);
  }
  return 0;
}

void Builder::AddTag(uint32_t bit, RfidTagRecord* record) {
  record->TagBits |= bit;
  if (Record.DefaultTagBit == 0) Record.DefaultTagBit = bit;
}

void Builder::ReadTypes(const Tag& tag, RfidTagRecord* record) {
  OStringArray list;
  Definition.GetListEx(OString(tag.Key) + ".Types", &list);
  for (const TagType& type : tag.Types) {
    const bool isListed = tag.Words == TypeWords::kExact
                              ? list.Find(type.Word) >= 0
                              : DefinitionFile::Contains(list, type.Word);
    if (!isListed) continue;
    AddTag(type.Bit, record);
    if (record->DefaultSegment == 0) record->DefaultSegment = type.DefaultSegment;
  }
}

void Builder::Read(const Tag& tag) {
  const OString key = tag.Key;
  if (!Flag(tag.Key)) return;
  RfidTagRecord& record = Record.Records[tag.Record];
  record.Present = 1;
  record.Segments = static_cast<uint16_t>(Bits(key + ".Segments", kSegments));
  record.DefaultSegment = ReadSegment(key + ".Segments.Default");
  record.DefaultStartBlock = StoreWord(Definition.GetIntEx(key + ".StartBlock.Default"));
  if (record.DefaultStartBlock == 0) record.DefaultStartBlock = tag.DefaultStartBlock;
  record.Flags = Bits(key + ".RestrictedMethods", kPageMethods);
  if (Definition.GetBoolEx(key + ".WriteProtect")) record.Flags |= kTagWriteProtect;
  if (Definition.GetBoolEx(key + ".StartBlock")) record.Flags |= kTagStartBlock;
  if (tag.Words == TypeWords::kNone) AddTag(tag.Bit, &record);
  ReadTypes(tag, &record);
  if (record.DefaultSegment == 0) record.DefaultSegment = tag.DefaultSegment;
}

}  // namespace

void BuildRfidCapabilities(ModelDefinition* definition, RfidCapabilities* record) {
  record->Size = sizeof *record;
  record->RecordSize = sizeof record->Records[0];
  record->FirstRecord = offsetof(RfidCapabilities, Records);
  record->RecordCount = kRfidTagRecords;
  if (!HasLink(definition, "RFID")) return;
  definition->SelectContext(Context::kRfid);
  Builder builder(*definition, *record);
  for (const Tag& tag : kTags) builder.Read(tag);
}

}  // namespace ostvt
