// The texts of the module's version record, for its resource script and for systems without one.
// Macros only, since the resource compiler reads this too.
#pragma once

#define OSTVT_VERSION_MAJOR 6
#define OSTVT_VERSION_MINOR 7
#define OSTVT_VERSION_PATCH 4
#define OSTVT_VERSION_TEXT "6.7.4"

#define OSTVT_COMPANY_NAME "Vantrel"
#define OSTVT_FILE_DESCRIPTION "Vantrel Driver"
#define OSTVT_INTERNAL_NAME "ostvt"
#define OSTVT_LEGAL_COPYRIGHT "Copyright (C) 2026 Vantrel"
#define OSTVT_PRODUCT_NAME "Vantrel Drivers"
#define OSTVT_PRODUCT_TAG "Ostrel"

// Known to the build only; empty where it doesn't say.
#ifndef OSTVT_BUILD_DATE
#define OSTVT_BUILD_DATE ""
#endif
#ifndef OSTVT_SCM_BRANCH
#define OSTVT_SCM_BRANCH ""
#endif
#ifndef OSTVT_SCM_REVISION
#define OSTVT_SCM_REVISION ""
#endif
