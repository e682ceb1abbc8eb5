#include "core/ArchiveReader.h"

#include "core/ArchiveFile.h"
#include "core/LZ77.h"
#include "core/LittleEndian.h"
#include "core/Memory.h"
#include "platform/Clock.h"

namespace ostvt {
namespace {

// The parts of a zip file that are read, by their offsets; all numbers are little-endian.
constexpr uint32_t kEndSize = 22;
constexpr uint32_t kEndSignature = 0x06054B50;
constexpr uint32_t kEndEntries = 10;
constexpr uint32_t kEndDirectory = 16;

constexpr uint32_t kCentralSize = 46;
constexpr uint32_t kCentralSignature = 0x02014B50;
constexpr uint32_t kCentralPackedSize = 20;
constexpr uint32_t kCentralNameLength = 28;
constexpr uint32_t kCentralLocalHeader = 42;

constexpr uint32_t kLocalSize = 30;
constexpr uint32_t kLocalSignature = 0x04034B50;
constexpr uint32_t kLocalTime = 10;
constexpr uint32_t kLocalDate = 12;
constexpr uint32_t kLocalPackedSize = 18;
constexpr uint32_t kLocalPlainSize = 22;
constexpr uint32_t kLocalNameLength = 26;

// Small members' local records are kept from the start, up to a sum: to open a file once more takes
// longer than to read a definition.
constexpr uint32_t kSmallRecord = 8192;
constexpr uint32_t kSmallRecordSum = 65536;

constexpr uint32_t kAttributeTemporary = 256;

uint16_t WordAt(const uint8_t* record, uint32_t offset) { return ReadLittleWord(record + offset); }
uint32_t DwordAt(const uint8_t* record, uint32_t offset) {
  return ReadLittleDword(record + offset);
}

bool ReadRecord(ArchiveFile& file, uint32_t position, uint8_t* record, uint32_t size,
                uint32_t signature) {
  return file.Read(position, record, size) && DwordAt(record, 0) == signature;
}

uint8_t* AllocBytes(uint64_t size) {
  return static_cast<uint8_t*>(AllocCounted(static_cast<size_t>(size)));
}

OString NameIn(const ArchiveMember& member) {
  OString name;
  name.AssignCount(reinterpret_cast<const char*>(member.CentralRecord) + kCentralSize,
                   static_cast<int>(member.CentralRecordSize - kCentralSize));
  return name;
}

// The member whose central record lies at `position`, named; null if it breaks off.
ArchiveMember* ReadCentralRecord(ArchiveFile& file, uint32_t position) {
  uint8_t central[kCentralSize];
  if (!ReadRecord(file, position, central, kCentralSize, kCentralSignature)) return nullptr;
  const uint32_t nameLength = WordAt(central, kCentralNameLength);
  if (nameLength > file.Size() - position - kCentralSize) return nullptr;
  auto* member = new ArchiveMember;
  member->CentralRecordSize = kCentralSize + nameLength;
  member->CentralRecord = AllocBytes(member->CentralRecordSize);
  CopyBytes(member->CentralRecord, central, kCentralSize);
  if (!file.Read(position + kCentralSize, member->CentralRecord + kCentralSize, nameLength)) {
    delete member;
    return nullptr;
  }
  member->Name = NameIn(*member);
  return member;
}

}  // namespace

ArchiveMember::~ArchiveMember() {
  FreeCounted(Data);
  FreeCounted(LocalRecord);
  FreeCounted(CentralRecord);
}

ArchiveReader::~ArchiveReader() {
  for (int32_t i = 0; i < Members.Count; ++i) delete static_cast<ArchiveMember*>(Members[i]);
}

bool ArchiveReader::AddArchive(const OString& path) {
  if (!platform::IsFile(path.GetWide())) return false;
  // A body of its own: the caller's belongs to one session.
  PendingPaths.Add(OString(path.GetWide()));
  return true;
}

bool ArchiveReader::LoadPending() {
  while (PendingPaths.Count > 0) {
    CurrentPath = PendingPaths[0];
    PendingPaths.RemoveAt(0);
    ArchiveFile file(CurrentPath);
    if (!file.IsOpen() || !LoadDirectory(file)) return false;
  }
  return true;
}

bool ArchiveReader::LoadDirectory(ArchiveFile& file) {
  uint8_t end[kEndSize];
  const uint32_t size = file.Size();
  if (size < kEndSize || !ReadRecord(file, size - kEndSize, end, kEndSize, kEndSignature)) {
    return true;
  }
  const int32_t first = Members.Count;
  uint32_t position = DwordAt(end, kEndDirectory);
  uint32_t left = WordAt(end, kEndEntries);
  for (; left > 0; --left) {
    ArchiveMember* member = ReadCentralRecord(file, position);
    if (member == nullptr) break;
    member->ArchivePath = CurrentPath;
    Members.Add(member);
    position += member->CentralRecordSize;
  }
  LoadSmallMembers(file, first);
  return left == 0;
}

void ArchiveReader::LoadSmallMembers(ArchiveFile& file, int32_t first) {
  uint32_t room = kSmallRecordSum;
  for (int32_t i = first; i < Members.Count; ++i) {
    ArchiveMember* member = static_cast<ArchiveMember*>(Members[i]);
    const uint32_t largest = room < kSmallRecord ? room : kSmallRecord;
    // The directory's word saves reading at members that are not small. Where the local record says
    // otherwise the archive is damaged, and each member waits until it is wanted.
    const uint64_t size = uint64_t{kLocalSize} + member->CentralRecordSize - kCentralSize +
                          DwordAt(member->CentralRecord, kCentralPackedSize);
    if (size > largest) continue;
    if (!LoadLocalRecord(file, member, kLargestMember, largest)) return;
    room -= member->LocalRecordSize;
  }
}

ArchiveMember* ArchiveReader::FindMember(const OString& name, uint32_t largest) {
  platform::LockGuard guard(Lock);
  ++Lookups;
  // Each call takes at least one path off the list.
  while (PendingPaths.Count > 0) LoadPending();
  for (int32_t i = 0; i < Members.Count; ++i) {
    ArchiveMember* member = static_cast<ArchiveMember*>(Members[i]);
    if (member->Name.CompareNoCase(name) != 0) continue;
    if (member->DataSize > 0) return member->DataSize <= largest ? member : nullptr;
    if (member->LocalRecord == nullptr) {
      ArchiveFile file(member->ArchivePath);
      if (!LoadLocalRecord(file, member, largest, 0xFFFFFFFF)) return nullptr;
    }
    if (DwordAt(member->LocalRecord, kLocalPlainSize) > largest) return nullptr;
    return Expand(member) ? member : nullptr;
  }
  return nullptr;
}

bool ArchiveReader::LoadLocalRecord(ArchiveFile& file, ArchiveMember* member, uint32_t largest,
                                    uint32_t largestRecord) {
  const uint32_t start = DwordAt(member->CentralRecord, kCentralLocalHeader);
  uint8_t local[kLocalSize];
  if (!ReadRecord(file, start, local, kLocalSize, kLocalSignature)) return false;

  const uint32_t packedSize = DwordAt(local, kLocalPackedSize);
  const uint32_t plainSize = DwordAt(local, kLocalPlainSize);
  const uint64_t size =
      static_cast<uint64_t>(kLocalSize) + WordAt(local, kLocalNameLength) + packedSize;
  if (size > file.Size() - start || size > largestRecord) return false;
  if (plainSize > largest || !LZ77::IsPlausibleSize(plainSize, packedSize)) return false;

  uint8_t* record = AllocBytes(size);
  CopyBytes(record, local, kLocalSize);
  const uint32_t rest = static_cast<uint32_t>(size) - kLocalSize;
  if (!file.Read(start + kLocalSize, record + kLocalSize, rest)) {
    FreeCounted(record);
    return false;
  }
  member->LocalRecord = record;
  member->LocalRecordSize = static_cast<uint32_t>(size);
  member->Time = platform::FileTimeFromDos(WordAt(local, kLocalDate), WordAt(local, kLocalTime));
  return true;
}

// DataSize is set last: a member that can't be expanded stays without data, however often it is
// asked for.
bool ArchiveReader::Expand(ArchiveMember* member) {
  const uint8_t* local = member->LocalRecord;
  const uint8_t* packed = local + kLocalSize + WordAt(local, kLocalNameLength);
  uint32_t plainSize = DwordAt(local, kLocalPlainSize);
  uint8_t* data = AllocBytes(plainSize);
  if (!LZ77::RawDecode(packed, DwordAt(local, kLocalPackedSize), data, &plainSize)) {
    FreeCounted(data);
    return false;
  }
  FreeCounted(member->Data);
  member->Data = data;
  if (plainSize > 0) member->DataSize = plainSize;
  return true;
}

const uint8_t* ArchiveReader::GetMemberData(const OString& name, uint32_t* size, uint32_t largest) {
  platform::LockGuard guard(Lock);
  const ArchiveMember* member = FindMember(name, largest);
  if (size != nullptr) *size = member != nullptr ? member->DataSize : 0;
  return member != nullptr ? member->Data : nullptr;
}

uint32_t ArchiveReader::GetLookupCount() {
  platform::LockGuard guard(Lock);
  return Lookups;
}

void ArchiveReader::GetMemberNames(OStringArray* names) {
  LoadPending();
  names->SetSize(0);
  // Made anew from the record's bytes: `Name` may be gaining its wide form in another thread.
  for (int32_t i = 0; i < Members.Count; ++i) {
    names->Add(NameIn(*static_cast<ArchiveMember*>(Members[i])));
  }
}

bool ArchiveReader::ExtractMember(const OString& name, const OString& targetPath, uint32_t flags) {
  const ArchiveMember* member = FindMember(name);
  if (member == nullptr) return false;
  uint64_t written = 0;
  if ((flags & kExtractIfNewer) && OFile::GetTime(targetPath, nullptr, nullptr, &written) &&
      member->Time <= written) {
    return true;
  }
  if (flags & kExtractClearAttributes) OFile::SetAttributes(targetPath, 0);
  OFile target(targetPath, kFileWrite | kFileCreate);
  if (!target.IsOpen()) return false;
  bool whole =
      member->DataSize == 0 || target.RawWrite(member->Data, member->DataSize) == member->DataSize;
  target.Close();
  if (!whole) {
    // What is left of it is newer than the member and would pass for current ever after.
    OFile::DeleteFile(targetPath);
    return false;
  }
  if (flags & kExtractTemporary) OFile::SetAttributes(targetPath, kAttributeTemporary);
  OFile::SetTime(targetPath, &member->Time, &member->Time, &member->Time);
  return true;
}

}  // namespace ostvt
