#include "companions/netmon/AnswerStore.h"

#include "companions/netmon/Text.h"
#include "core/Crc.h"
#include "platform/KeyStore.h"

namespace ostvt::netmon {
namespace {

constexpr char kHome[] = "1:SOFTWARE/Vantrel/Network Monitor/";
constexpr char kLastJob[] = "1:SOFTWARE/Vantrel/Network Monitor/Last Job";

// What a value's name may be long.
constexpr size_t kLongestName = 240;
constexpr int32_t kLastNumber = 0x7FFFFFFF;

struct JobRecord {
  int32_t Job = 0;
  int32_t IsAnswered = 0;
};
static_assert(sizeof(JobRecord) == 8);

// A name for the store: printable ASCII stands for itself, but for "\", which would separate, and
// "%", which leads each other byte's digits. One that would be too long ends in a checksum.
OString NameOf(const std::string& bytes) {
  std::string name;
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= ' ' && byte <= '~' && byte != '%' && byte != '\\') {
      name += character;
    } else {
      name += '%';
      name += OString::HexOf(&byte, 1).GetNarrow();
    }
  }
  if (name.size() > kLongestName) {
    const uint32_t crc = CRC32(bytes.data(), static_cast<uint32_t>(bytes.size()), 0);
    name = name.substr(0, kLongestName - 10) + "%~" + OString::HexOf(crc).GetNarrow();
  }
  // No name at all would be another path.
  return name.empty() ? OString("%25") : ORegistry::Escape(name.c_str());
}

}  // namespace

AnswerStore::AnswerStore(const OString& printerName) : Printer(NameOf(ToUtf8(printerName))) {}

OString AnswerStore::AnswerPath(const std::string& query) const {
  return OString(kHome) + "Answers/" + Printer + "/" + NameOf(query);
}

OString AnswerStore::JobPath(const OString& document) const {
  return OString(kHome) + "Jobs/" + Printer + "/" + NameOf(ToUtf8(document));
}

void AnswerStore::Forget(const std::string& query) { Store.Delete(AnswerPath(query), false); }

bool AnswerStore::Keep(const std::string& query, const std::string& bytes) {
  const auto size = static_cast<int32_t>(bytes.size());
  return Store.WriteBinary(AnswerPath(query), bytes.data(), size) == size;
}

std::string AnswerStore::Find(const std::string& query) const {
  const OString path = AnswerPath(query);
  const int32_t size = Store.GetValueSize(path);
  if (size <= 0) return {};
  std::string bytes(static_cast<size_t>(size), '\0');
  const int32_t read = Store.ReadBinary(path, bytes.data(), size);
  bytes.resize(read > 0 ? static_cast<size_t>(read) : 0);
  return bytes;
}

int32_t AnswerStore::NextJob() {
  platform::KeyStoreTransaction transaction(platform::Hive::kCurrentUser,
                                            platform::KeyStoreTransaction::Purpose::kWrite);
  const int32_t last = Store.ReadInt(kLastJob, 0);
  const int32_t next = last < 0 || last == kLastNumber ? 1 : last + 1;
  Store.WriteDword(kLastJob, next);
  transaction.Commit();
  return next;
}

void AnswerStore::KeepJob(const OString& document, int32_t job, bool isAnswered) {
  const JobRecord record = {job, isAnswered ? 1 : 0};
  Store.WriteBinary(JobPath(document), &record, sizeof record);
}

bool AnswerStore::IsAnswered(const OString& document, int32_t job) const {
  JobRecord record;
  if (Store.ReadBinary(JobPath(document), &record, sizeof record) != sizeof record) return false;
  return record.IsAnswered == 1 && (job == 0 || job == record.Job);
}

}  // namespace ostvt::netmon
