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
// By `escape`: 1 before and 2 after a device context is made, 5 a document starts, 12 it has ended:
// 1; any other: 0. 2 and 5 send an escape to `dc`. 1 and 5 bring a print server's configuration in,
// 12 gives back what changed. `input` is used with 5 only: there it is the address, `sizeIn` bytes,
// of a pointer to the job's DOCINFOW, which states its own size. `output` is never written.
int32_t OSTVT_API DrvDocumentEvent(void* printer, void* dc, int32_t escape, uint32_t sizeIn,
                                   void* input, uint32_t sizeOut, void* output);
// Bool. Event 1, a client connects: 0 only where this driver doesn't run on the system, of which
// the user is told. Event 3, the printer was created: its stored device mode becomes this driver's;
// 0 when it can't be opened with all access or its model is unknown, and where the driver doesn't
// run: the user is told and the printer marked. Other events: 0. `flags` and `lparam` are not used.
int32_t OSTVT_API DrvPrinterEvent(const char16_t* printerName, int32_t event, uint32_t flags,
                                  intptr_t lparam);
// Bool: the driver of a printer was replaced, so its stored device mode and definitions are made
// anew. `upgradeInfo` is a DriverUpgradeInfo whatever the level. Error numbers: 87 (no record, no
// such printer), 2001 (the system is too new for this driver's directory); none when the model is
// unknown.
int32_t OSTVT_API DrvUpgradePrinter(uint32_t level, void* upgradeInfo);
// Bool, sizes in bytes. Nothing outside `*sizeInOut` bytes of `output` is touched; without `output`
// `*sizeInOut` becomes 1516. Mode 1 fits `input` into the public size that `output` states, mode 2
// into the old one of 188 bytes; mode 4 gives the printer's default and needs 1516 bytes. Only mode
// 4 uses the name. Error numbers: 87 (a record is missing or states a public size below 72), 122
// (`*sizeInOut` is then what is needed, see ConvertDevMode.h); other modes and printers that can't
// be had fail without one.
int32_t OSTVT_API DrvConvertDevMode(const char16_t* printerName, const void* input, void* output,
                                    int32_t* sizeInOut, uint32_t mode);
// One call for each step of a sheet, by `info`'s Reason: 0 begins, 1 `lparam` is a
// PropSheetUiInfoHeader to fill, 3 `lparam` is a SetResultInfo, 2 ends; `lParamInit` is a
// DevicePropertyHeader. 1, or -1 when a record or the session is missing. UserData is the session,
// made with reason 0: the host keeps it and only hands it back, the module frees it with reason 2.
// All steps on one thread; the header's printer stays open until the last.
int32_t OSTVT_API DrvDevicePropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam);
// The same with a DocumentPropertyHeader; without one 0, and reason 2 gives 1 even without a
// session. On OK (result 1) with bit 0 or 1 of fMode `pdmOut` gets 1516 bytes; where it is `pdmIn`
// itself, only the fields inside the sizes that this states. Bit 0 stores the device mode with the
// printer too. On cancel (0) with bit 1 `pdmOut` gets the 1516 bytes as they were at the start,
// where it is `pdmIn` itself likewise inside its sizes. A host that ends the sheet after an apply
// without reason 3 gets with reason 2 what OK would have given.
//
// With `info` null `lparam` is the header and no sheet is wanted. fMode 0 or no `pdmOut`: 1516,
// also in cbOut, which is not read otherwise. Else 1, with 1516 bytes in `pdmOut` if fMode has 2
// (8: `pdmIn`, of which no more is read than its header states, merged in); 0 for an unknown model.
int32_t OSTVT_API DrvDocumentPropertySheets(ostvt::PropSheetUiInfo* info, intptr_t lparam);
// The platform's indexes 1 to 33. A count, a number, or 0xFFFFFFFF for an index or a printer that
// is not known. `output` null asks for the count; else it has room for that many items. The handle
// wins over the name, which counts where that is null. `devMode` counts for indexes 8 to 11 only.
uint32_t OSTVT_API DrvDeviceCapabilities(void* printer, const char16_t* deviceName,
                                         uint16_t capability, void* output, const void* devMode);
// Always 0: this is no port monitor.
int32_t OSTVT_API MonitorInterface();

// A session on an open printer, which the caller keeps open until DAL_Printer_Close. Null when
// memory is short. Each call below tolerates a null session.
void* OSTVT_API DAL_Printer_Open(void* printer);
void OSTVT_API DAL_Printer_Close(void* session);
// The numbered actions of settings/SessionActions.h that clients may ask for; 1 when the action was
// done or its window was shown, else 0. `parent` owns the windows and may be null.
int32_t OSTVT_API DAL_Printer_Action(void* session, int32_t action);
int32_t OSTVT_API DAL_Printer_ActionUI(void* session, void* parent, int32_t action);
// Bit 0 the action exists, bit 1 it opens a dialog. 0xFFFFFFFE for a null session.
uint32_t OSTVT_API DAL_Printer_ActionFlag(void* session, int32_t action);
// The file's bytes as they are, as a job of its name; nothing if it can't be read whole.
void OSTVT_API DAL_Printer_SendFile(void* session, const char16_t* path);
void OSTVT_API DAL_Settings_Load(void* session);
void OSTVT_API DAL_Settings_Save(void* session);
void OSTVT_API DAL_Settings_Export(void* session, const char16_t* path, uint32_t sections);
void OSTVT_API DAL_Settings_Import(void* session, const char16_t* path, uint32_t sections);
void OSTVT_API DAL_Settings_Reset(void* session, uint32_t sections);
// The size of a whole record, also for `size` 0, which asks for nothing else; -1 when there is no
// such stock or `size` is negative; -2 for a null session. Never writes beyond `size` bytes.
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
// Times are FILETIME records; each may be null. 1, or 0 with nothing set. One that can't be told
// stays as it is.
int32_t OSTVT_API X16_OFile_GetTime(const char16_t* path, void* created, void* accessed,
                                    void* written);
int32_t OSTVT_API X16_OFile_SetTime(const char16_t* path, const void* created, const void* accessed,
                                    const void* written);
// `record` is an ImageDitherRecord, see imaging/ImageDither.h.
void OSTVT_API X16_ImageDither_Dither(void* record);
void OSTVT_API X16_ImageDither_DitherSmooth(void* record);
// `record` is an ImageStretchRecord, see imaging/ImageStretch.h; its own destination is not used.
void OSTVT_API X16_ImageStretch_Stretch(void* record, void* destination);
// Lays the factory settings and the driver's companion files down for a printer.
void OSTVT_API X16_Install(const char16_t* printerName);
// A print server's configuration is brought in, and what changed here is given back.
void OSTVT_API X16_CreateShadow(const char16_t* printerName);
void OSTVT_API X16_CommitShadow(const char16_t* printerName);
// Serves the request of the partner whose channel has the name, given in the system's own code
// page; returns at once when there is no such channel. The other two are not used.
void OSTVT_API X16_DocumentProperties(void* window, void* instance, const char* channelName);

#pragma GCC visibility pop
}  // extern "C"
