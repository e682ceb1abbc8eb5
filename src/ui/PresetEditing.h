// What the dialog of presets does to a list.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class DevMode;
class PresetItem;
class PresetList;

inline constexpr int32_t kPresetNameLimit = 63;  // characters that can be typed
inline constexpr int32_t kPresetDescriptionLimit = 255;

// A preset of `devMode` in its place in the list, the list's own. Its name is `pattern` with the
// first number in place of "%1" that makes it unlike all others.
PresetItem* AddPreset(PresetList* list, const DevMode& devMode, const OString& pattern);
// Gives a preset the name as the user typed it, without blanks around.
void RenamePreset(PresetItem* item, const OString& typed);

enum class PresetNameFault { kNone, kEmpty, kUsed };

// The first preset of the user's own whose name is empty, or that of another; null without one.
PresetItem* FindNameFault(const PresetList& list, PresetNameFault* fault);

}  // namespace ostvt
