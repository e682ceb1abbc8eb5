// How the platform calls the exports, and how the exports call back.
#pragma once

#ifdef _WIN32
#define OSTVT_API __stdcall
#else
#define OSTVT_API
#endif
