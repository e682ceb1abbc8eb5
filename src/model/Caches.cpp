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

OString CopyOfText(const OString& text) {
  OString copy;
  if (text.GetCodePage() != 0) copy.SetCodePage(text.GetCodePage());
  if (text.HasWide()) {
    copy = text.GetWide();
  } else {
    copy = text.GetNarrow();
  }
  return copy;
}

}  // namespace ostvt
