// The two process-wide caches: open archives, and the records computed from definitions.
//
// Made when the module loads and freed when it unloads. Any thread may use them. Order of locks:
// record cache, archive cache, archive reader. No OString body of a session gets inside: keys and
// paths are kept as copies of their text.
#pragma once

namespace ostvt {

class ArchiveCache;
class RecordCache;

// Does nothing if the caches are open.
void OpenCaches();
// Frees both. No model may be in use.
void CloseCaches();

// Null while the caches are not open: nothing is then cached, and no archive is read.
ArchiveCache* TheArchiveCache();
RecordCache* TheRecordCache();

}  // namespace ostvt
