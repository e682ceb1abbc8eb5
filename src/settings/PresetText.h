// The lines of a preset's text record that hold its device mode.
#pragma once

#include "core/OString.h"

namespace ostvt {

class DevMode;
class OStream;
class PaperResolver;
class PresetItem;
class PrinterModel;

// Words of the record.
inline constexpr char kPresetRecord[] = "preset";
inline constexpr char kPresetData[] = "Data";
// True if the record holds the printer's default device mode instead of a preset.
bool IsDefaultDevModeRecord(const OString& openingLine);
// "Data=", "</preset>" and an empty line.
void WritePresetEnd(OStream& stream, const DevMode& devMode);
// What stands behind "Data=". False, with the item as it was, if it doesn't unpack.
bool ReadPresetData(const OString& text, PrinterModel* model, PaperResolver* papers,
                    PresetItem* item);

}  // namespace ostvt
