#include "companions/netmon/AnswerStore.h"

#include <cstring>

#include "companions/netmon/Text.h"
#include "core/Crc.h"
#include "core/OStringArray.h"
#include "platform/KeyStore.h"

namespace ostvt::netmon {
namespace {

constexpr char kHome[] = "1:SOFTWARE/Vantrel/Network Monitor/";
constexpr char kLastJob[] = "1:SOFTWARE/Vantrel/Network Monitor/Last Job";

// What a value's name may be long.
constexpr size_t kLongestName = 240;
constexpr int32_t kLastNumber = 0x7FFFFFFF;

// So many jobs later nobody asks any more for what one was answered.
constexpr int32_t kKeptJobs = 100;

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

// Every record begins with its job's number.
constexpr size_t kJobSize = sizeof(int32_t);

std::string ReadRecord(const ORegistry& store, const OString& path) {
  const int32_t size = store.GetValueSize(path);
  if (size <= 0) return {};
  std::string bytes(static_cast<size_t>(size), '\0');
  const int32_t read = store.ReadBinary(path, bytes.data(), size);
  bytes.resize(read > 0 ? static_cast<size_t>(read) : 0);
  return bytes;
}

int32_t JobOf(const std::string& record) {
  int32_t job = 0;
  if (record.size() >= kJobSize) memcpy(&job, record.data(), sizeof job);
  return job;
}

}  // namespace

AnswerStore::AnswerStore(const OString& printerName) : Printer(NameOf(ToUtf8(printerName))) {}

OString AnswerStore::AnswersPath() const { return OString(kHome) + "Answers/" + Printer; }

OString AnswerStore::JobsPath() const { return OString(kHome) + "Jobs/" + Printer; }

OString AnswerStore::AnswerPath(const std::string& query) const {
  return AnswersPath() + "/" + NameOf(query);
}

OString AnswerStore::JobPath(const OString& document) const {
  return JobsPath() + "/" + NameOf(ToUtf8(document));
}

void AnswerStore::Forget(const std::string& query) { Store.Delete(AnswerPath(query), false); }

bool AnswerStore::Keep(const std::string& query, int32_t job, const std::string& bytes) {
  std::string record(reinterpret_cast<const char*>(&job), sizeof job);
  record += bytes;
  const auto size = static_cast<int32_t>(record.size());
  return Store.WriteBinary(AnswerPath(query), record.data(), size) == size;
}

std::string AnswerStore::Find(const std::string& query) const {
  const std::string record = ReadRecord(Store, AnswerPath(query));
  return record.size() < kJobSize ? std::string() : record.substr(kJobSize);
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
  DropOld(AnswersPath(), job);
  DropOld(JobsPath(), job);
}

void AnswerStore::DropOld(const OString& keyPath, int64_t job) {
  OStringArray names;
  Store.EnumerateValues(keyPath, &names);
  // Not with each job, since that means to look at all of them.
  if (names.Count <= 2 * kKeptJobs) return;
  for (int32_t i = 0; i < names.Count; ++i) {
    const OString path = keyPath + "/" + ORegistry::Escape(names[i]);
    const int64_t its = JobOf(ReadRecord(Store, path));
    // Numbers a little above the job's are those of jobs at the same time; far above, those of
    // before they began again.
    if (its > job + kKeptJobs || its <= job - kKeptJobs) Store.Delete(path, false);
  }
}

bool AnswerStore::IsAnswered(const OString& document, int32_t job) const {
  JobRecord record;
  if (Store.ReadBinary(JobPath(document), &record, sizeof record) != sizeof record) return false;
  return record.IsAnswered == 1 && (job == 0 || job == record.Job);
}

}  // namespace ostvt::netmon
