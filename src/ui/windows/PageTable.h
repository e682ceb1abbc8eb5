// Which page belongs to a template.
#pragma once

#include "core/OString.h"
#include "ui/windows/Controls.h"

namespace ostvt {

// The start procedure of the page or dialog of that template, by its exact name; null when it has
// none here.
DLGPROC FindStartProcedure(const OString& templateName);

}  // namespace ostvt
