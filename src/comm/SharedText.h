// The branches of a shared configuration as they travel between a client and its server: text lines
// in UTF-8 under the neutral root "DATA:", packed. The store is that of the printer, with its
// shadow route as it is.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Buffer.h"
#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

class PrinterRegistry;

// Stored checksums as they were before they were renewed.
class SharedChecksums {
 public:
  explicit SharedChecksums(PrinterRegistry& store) : Store(store) {}  // borrowed

  void Keep(const OString& branch);
  // What differed then from what was stored counts as changed again.
  void Restore();

 private:
  struct Checksum {
    OString Path;
    bool WasThere;
    uint32_t Before;
  };

  PrinterRegistry& Store;
  std::vector<Checksum> Kept;
};

// What the client has: "BRANCH",CHECKSUM; for each, with the checksum of what the store holds now,
// which is stored. `before` (may be null) keeps those that were.
OString ListSharedBranches(PrinterRegistry& store, SharedChecksums* before = nullptr);

// Takes the server's answer apart and replaces the keys that it names, as far as they belong to a
// printer's configuration. What came counts as unchanged from then on. False, with the store as it
// was, when the answer is no packed text.
bool ImportShared(PrinterRegistry& store, Buffer* answer);

// The branches that have changed since they were last read, as they are now. From here on they
// count as unchanged.
class SharedChanges {
 public:
  explicit SharedChanges(PrinterRegistry& store);  // borrowed

  bool IsEmpty() const { return Lines.Count == 0; }
  // As one line of text; empty when it can't be packed.
  OString Pack() const;
  // They didn't reach the server: they count as changed again.
  void Forget() { Before.Restore(); }

 private:
  SharedChecksums Before;
  OStringArray Lines;
};

}  // namespace ostvt
