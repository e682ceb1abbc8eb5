// The spooler's interface for the files that may see it, without the macros that would rename our
// functions of the same names.
#pragma once

#include "platform/windows/Win32.h"
//
#include <winspool.h>

#undef AddPrinter
#undef EnumPrinters
#undef OpenPrinter
#undef SetPrinterData
