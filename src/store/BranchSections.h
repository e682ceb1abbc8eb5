// Which sections of a branch's text may be applied.
#pragma once

#include "core/OStringArray.h"
#include "store/ORegistry.h"

namespace ostvt {

// Lines from files and other machines may name any key. Keeps the sections and deletions whose key
// is one of `branches` (key paths of `store`, "SETTINGS:", "DATA:Fonts") or lies below one; all
// else is dropped. Headers are in display form: ExpandAliasInLines goes before, ImportBranch on the
// same `store` comes behind.
void KeepSectionsBelow(const ORegistry& store, const OStringArray& branches, OStringArray* lines);

}  // namespace ostvt
