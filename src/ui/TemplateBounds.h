// Whoever shows a dialog template reads it without knowing its size.
#pragma once

#include "core/Buffer.h"

namespace ostvt {

// Makes a template of any content one that is read inside its block: controls that don't lie in it
// whole, and those behind them, are no longer counted; a head that breaks off, or has a number for
// a title, goes on with zeros and has no controls. A control with data in a plain template counts
// as one that doesn't lie in it. Other sound templates stay as they are. Sizes stay multiples of 4.
void KeepTemplateInside(Buffer* dialogTemplate);

}  // namespace ostvt
