// Reads the members of `.ddz` archives: zip files without archive comment, extra fields in front of
// the data, entry comments or stored members. Every member is taken for raw deflate.
//
// A reader serves all sessions of a process. FindMember, GetMemberData and ExtractMember may be
// called from any thread; AddArchive, LoadPending and GetMemberNames take no lock: whoever calls
// them keeps others away from this reader meanwhile.
#pragma once

#include <cstdint>

#include "core/Arrays.h"
#include "core/OString.h"
#include "core/OStringArray.h"
#include "platform/Lock.h"

namespace ostvt {

class ArchiveFile;

// One member: named, then with its local record, then with its data. Blocks are counted ones.
struct ArchiveMember {
  ArchiveMember() = default;
  ~ArchiveMember();
  ArchiveMember(const ArchiveMember&) = delete;
  ArchiveMember& operator=(const ArchiveMember&) = delete;

  OString Name;  // for the reader only: its body must not be shared with a session
  uint8_t* Data = nullptr;
  uint32_t DataSize = 0;  // above 0 only once `Data` is complete
  uint64_t Time = 0;      // 100-nanosecond steps since 1601 UTC; 0 if it states none
  OString ArchivePath;
  uint8_t* LocalRecord = nullptr;  // local header, name, packed bytes
  uint32_t LocalRecordSize = 0;
  uint8_t* CentralRecord = nullptr;  // central record, name
  uint32_t CentralRecordSize = 0;
};

// Flags of ExtractMember.
inline constexpr uint32_t kExtractIfNewer = 1;
inline constexpr uint32_t kExtractClearAttributes = 2;
inline constexpr uint32_t kExtractTemporary = 4;

// Pictures and language modules are far smaller; a damaged size must not take a spooler's memory.
inline constexpr uint32_t kLargestMember = 256u << 20;

class ArchiveReader {
 public:
  ArchiveReader() = default;
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  // The archive is opened at the first look-up, and again only for members that are not small.
  // False if there is no such file.
  bool AddArchive(const OString& path);
  // A file that does not end in an archive's end record is passed over. One that can't be opened,
  // or whose directory breaks off, ends the call with false: its members so far stay, and archives
  // behind it wait for the next call.
  bool LoadPending();
  // The first member of that name, case ignored, with its data; null if there is none, or it is
  // damaged or larger than `largest` bytes. It lives as long as the reader. Looks into every
  // archive: one that is damaged does not hold up those behind it.
  ArchiveMember* FindMember(const OString& name, uint32_t largest = kLargestMember);
  // The member's data, never copied, valid as long as the reader; null as FindMember. The data of
  // an empty member is a pointer to no bytes, and only until the next look-up of that member.
  // `size` may be null.
  const uint8_t* GetMemberData(const OString& name, uint32_t* size = nullptr,
                               uint32_t largest = kLargestMember);
  // `names` becomes all names, in archive order.
  void GetMemberNames(OStringArray* names);
  // Writes the member to a file and gives the file the member's time. kExtractIfNewer: an existing
  // target that is as new as the member stays, with true. False if there is no such member or the
  // target could not be written.
  bool ExtractMember(const OString& name, const OString& targetPath, uint32_t flags);
  // How many members were looked for so far, found or not.
  uint32_t GetLookupCount();

 private:
  bool LoadDirectory(ArchiveFile& file);
  void LoadSmallMembers(ArchiveFile& file, int32_t first);
  static bool LoadLocalRecord(ArchiveFile& file, ArchiveMember* member, uint32_t largest,
                              uint32_t largestRecord);
  static bool Expand(ArchiveMember* member);

  PointerArray Members;
  platform::Lock Lock;
  OString CurrentPath;
  OStringArray PendingPaths;
  uint32_t Lookups = 0;
};

}  // namespace ostvt
