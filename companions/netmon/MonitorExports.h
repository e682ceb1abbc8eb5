// The exports of vtnetmon.d64. Their contracts stand with the driver: comm/MonitorFile.h, and for a
// job's bytes platform/linux/JobMonitor.h. Null arguments are allowed. Any thread may call; a
// handle belongs to one at a time.
#pragma once

#include <cstdint>

extern "C" {
#pragma GCC visibility push(default)

int32_t SendXPMLRequest(const char16_t* printerName, const char* request, void** response);
int32_t HTTPResponse_Size(void* response);
void HTTPResponse_Data(void* response, void* buffer);
void HTTPResponse_Free(void* response);
int32_t HostNameToIP(const char* hostName, uint8_t* address);
int32_t Query(void* window, const char16_t* command);
void StatusMonitor(void* window, void* instance, const char* command, int32_t show);

int32_t PrintJob_Start(const char16_t* printerName, const char16_t* documentName, void** job);
int32_t PrintJob_Write(void* job, const void* bytes, uint32_t count);
int32_t PrintJob_End(void* job, int32_t complete);

#pragma GCC visibility pop
}
