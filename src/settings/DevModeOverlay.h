// One device mode's settings in place of another's.
#pragma once

namespace ostvt {

class DevMode;

// The header of `target` stays, and so does its halftone block. Private settings come only from a
// record of the same model and version.
void OverlayDevMode(const DevMode& source, DevMode* target);

}  // namespace ostvt
