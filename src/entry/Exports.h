// Every export of the module, under its exact name. The platform, and clients such as vtdal, find
// them by name in the loaded module; a client may include this for the types.
//
// "Bool" results are 0 and 1. Wide texts end with NUL. All pointers may be null. A session belongs
// to one thread at a time; everything else may be called on several threads at once.
#pragma once

#include <cstdint>

#include "entry/CallingConvention.h"
#include "entry/PlatformRecords.h"

extern "C" {
#pragma GCC visibility push(default)

// The platform's load and unload call: `reason` 1 attaches, 0 detaches. The module's own entry
// makes the same call; a second attach, or detach, changes nothing. Always 1.
int32_t OSTVT_API DllInitialize(void* instance, uint32_t reason, void* reserved);
// Always 1: every job may print.
int32_t OSTVT_API DevQueryPrintEx(void* record);
// 1 for the events that the module takes, else 0.
int32_t OSTVT_API DrvDocumentEvent(void* printer, void* dc, int32_t escape, uint32_t sizeIn,
                                   void* input, uint32_t sizeOut, void* output);
int32_t OSTVT_API DrvPrinterEvent(const char16_t* printerName, int32_t event, uint32_t flags,
                                  intptr_t lparam);
// Error numbers: 87 (no such printer), 2001 (the system is too new for this driver's directory).
int32_t OSTVT_API DrvUpgradePrinter(uint32_t level, void* upgradeInfo);
// Sizes in bytes. Nothing outside `*sizeInOut` bytes of `output` is touched. Error numbers: 87,
// 122.
int32_t OSTVT_API DrvConvertDevMode(const char16_t* printerName, const void* input, void* output,
                                    int32_t* sizeInOut, uint32_t mode);
int32_t OSTVT_API DrvDevicePropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam);
int32_t OSTVT_API DrvDocumentPropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam);
uint32_t OSTVT_API DrvDeviceCapabilities(void* printer, const char16_t* deviceName,
                                         uint16_t capability, void* output, const void* devMode);
// Always 0: this is no port monitor.
int32_t OSTVT_API MonitorInterface();

// A session on an open printer, which the caller keeps open until DAL_Printer_Close. Null when
// memory is short. Each call below tolerates a null session.
void* OSTVT_API DAL_Printer_Open(void* printer);
void OSTVT_API DAL_Printer_Close(void* session);
int32_t OSTVT_API DAL_Printer_Action(void* session, int32_t action);
int32_t OSTVT_API DAL_Printer_ActionUI(void* session, void* parent, int32_t action);
// Bit 0 the action exists, bit 1 it opens a dialog. 0xFFFFFFFE for a null session.
uint32_t OSTVT_API DAL_Printer_ActionFlag(void* session, int32_t action);
void OSTVT_API DAL_Printer_SendFile(void* session, const char16_t* path);
void OSTVT_API DAL_Settings_Load(void* session);
void OSTVT_API DAL_Settings_Save(void* session);
void OSTVT_API DAL_Settings_Export(void* session, const char16_t* path, uint32_t sections);
void OSTVT_API DAL_Settings_Import(void* session, const char16_t* path, uint32_t sections);
void OSTVT_API DAL_Settings_Reset(void* session, uint32_t sections);
// The size of a whole record, also for `size` 0, which asks for nothing else; -1 when there is no
// such stock; -2 for a null session. Never writes beyond `size` bytes.
int32_t OSTVT_API DAL_Stock_Enumerate(void* session, int32_t index, void* record, int32_t size);
int32_t OSTVT_API DAL_Stock_EnumerateName(void* session, const char16_t* name, void* record,
                                          int32_t size);
// 1, 0 when there is no stock of the record's name, -1 for a null record, -2 for a null session.
int32_t OSTVT_API DAL_Stock_EnumerateUpdate(void* session, void* record);
int32_t OSTVT_API DAL_Stock_Add(void* session, const char16_t* name);
int32_t OSTVT_API DAL_Stock_Remove(void* session, int32_t index);
int32_t OSTVT_API DAL_Stock_RemoveName(void* session, const char16_t* name);

// The utilities for the 16-bit side, with the argument rules of core/Base64.h, LZ77.h and Crc.h. A
// null pointer where one is needed makes them do nothing (false; a checksum gives the seed).
void OSTVT_API X16_Base64_Encode(const void* input, uint32_t inputLength, char* output,
                                 uint32_t* outputLength);
void OSTVT_API X16_Base64_Decode(const char* input, uint32_t inputLength, void* output,
                                 uint32_t* outputLength);
int32_t OSTVT_API X16_LZ77_Encode(const void* input, uint32_t inputLength, void* output,
                                  uint32_t* length);
int32_t OSTVT_API X16_LZ77_Decode(const void* input, uint32_t inputLength, void* output,
                                  uint32_t* length);
int32_t OSTVT_API X16_LZ77_RawEncode(const void* input, uint32_t inputLength, void* output,
                                     uint32_t* length);
int32_t OSTVT_API X16_LZ77_RawDecode(const void* input, uint32_t inputLength, void* output,
                                     uint32_t* length);
uint16_t OSTVT_API X16_CRC16(const void* data, uint32_t length, uint16_t seed);
uint32_t OSTVT_API X16_CRC32(const void* data, uint32_t length, uint32_t seed);
// Times are FILETIME records; each may be null.
int32_t OSTVT_API X16_OFile_GetTime(const char16_t* path, void* created, void* accessed,
                                    void* written);
int32_t OSTVT_API X16_OFile_SetTime(const char16_t* path, const void* created, const void* accessed,
                                    const void* written);
void OSTVT_API X16_ImageDither_Dither(void* record);
void OSTVT_API X16_ImageDither_DitherSmooth(void* record);
void OSTVT_API X16_ImageStretch_Stretch(void* record, void* destination);
void OSTVT_API X16_Install(const char16_t* printerName);
void OSTVT_API X16_CreateShadow(const char16_t* printerName);
void OSTVT_API X16_CommitShadow(const char16_t* printerName);
void OSTVT_API X16_DocumentProperties(void* window, void* instance, const char* channelName);

#pragma GCC visibility pop
}  // extern "C"
