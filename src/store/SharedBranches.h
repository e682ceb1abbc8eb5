// Which branches of a store belong to a printer's configuration, and so may come from another
// machine.
#pragma once

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

class PrinterRegistry;

// Keys below "LOCAL:" that belong to the machine, not to the printer.
inline constexpr const char* kMachinesOwnBranches[] = {"X16", "XPML", "Network"};
// By its plain name, whatever its case: to the store that is the same key.
bool IsMachinesOwnBranch(const OString& name);

// Keeps the sections and deletions of branches below "DATA:" and "LOCAL:", whether `store` has them
// or not, without those that are each machine's own; all else is dropped. Headers are in display
// form, as for KeepSectionsBelow.
void KeepSharedSections(const PrinterRegistry& store, OStringArray* lines);

}  // namespace ostvt
