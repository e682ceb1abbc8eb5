// The printer's stored default block, "DATA:Initial DevMode": a whole block, used on the spooler
// path. What the store holds is believed only if it has this driver's sizes.
#pragma once

#include <cstdint>

#include "settings/DevModeRecord.h"

namespace ostvt {

class DevMode;
class ORegistry;
class PrinterModel;

// False, with `block` undefined, unless there is a value of exactly this driver's sizes.
bool ReadInitialDevMode(const ORegistry& store, uint8_t (&block)[kDevModeSize]);
// Fills `target`, which has room for a whole block. A stored private part of another model or
// version is replaced by defaults, since nothing could be merged into it ever after. False, with
// `target` unchanged, if nothing fitting is stored.
bool LoadInitialDevMode(PrinterModel* model, DevMode* target);
bool WriteInitialDevMode(ORegistry* store, const DevMode& devMode);

}  // namespace ostvt
