// Which branches of a store belong to a printer's configuration, and so may come from another
// machine.
#pragma once

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

class PrinterRegistry;

// A key below "LOCAL:" that is each machine's own, by its plain name.
bool IsMachinesOwnBranch(const OString& name);

// Keeps the sections and deletions of branches below "DATA:" and "LOCAL:", whether `store` has them
// or not, without those that are each machine's own; all else is dropped. Headers are in display
// form, as for KeepSectionsBelow.
void KeepSharedSections(const PrinterRegistry& store, OStringArray* lines);

}  // namespace ostvt
