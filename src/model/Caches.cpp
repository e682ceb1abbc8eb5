#include "model/Caches.h"

#include "model/ArchiveCache.h"
#include "model/RecordCache.h"

namespace ostvt {
namespace {

ArchiveCache* archiveCache = nullptr;
RecordCache* recordCache = nullptr;

}  // namespace

void OpenCaches() {
  if (!archiveCache) archiveCache = new ArchiveCache;
  if (!recordCache) recordCache = new RecordCache;
}

void CloseCaches() {
  delete recordCache;
  recordCache = nullptr;
  delete archiveCache;
  archiveCache = nullptr;
}

ArchiveCache* TheArchiveCache() { return archiveCache; }
RecordCache* TheRecordCache() { return recordCache; }

}  // namespace ostvt
