// The system's headers of windows, controls and property sheets.
//
// The common controls are loaded when they are first needed, since this module is loaded by every
// program that prints: their functions are never linked, but asked for by name.
#pragma once

// clang-format off
#include "platform/windows/Win32.h"
#include <commctrl.h>
#include <prsht.h>
// clang-format on

#include "platform/Libraries.h"

namespace ostvt {

// The library of common controls, which stays loaded; null where the system has none.
platform::LibraryHandle CommonControls();

template <typename F>
F* CommonControlsFunction(const char* name) {
  return platform::FindFunction<F>(CommonControls(), name);
}

}  // namespace ostvt
