// Compares our records with the system's own headers. DEVICEPROPERTYHEADER, DOCUMENTPROPERTYHEADER
// and DRIVER_UPGRADE_INFO are in no header here.
#include "entry/PlatformRecords.h"
#include "platform/windows/Win32.h"

#include <winspool.h>

#include <compstui.h>
#include <winddiui.h>

namespace ostvt {
namespace {

#define SAME_SIZE(ours, theirs) static_assert(sizeof(ours) == sizeof(theirs))
#define SAME_PLACE(ours, theirs, field)                            \
  static_assert(offsetof(ours, field) == offsetof(theirs, field)); \
  static_assert(sizeof(ours::field) == sizeof(theirs::field))

SAME_SIZE(PropSheetUiInfo, PROPSHEETUI_INFO);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, cbSize);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, Version);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, Flags);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, Reason);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, hComPropSheet);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, pfnComPropSheet);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, lParamInit);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, UserData);
SAME_PLACE(PropSheetUiInfo, PROPSHEETUI_INFO, Result);

SAME_SIZE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, cbSize);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, Flags);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, pTitle);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, hWndParent);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, hInst);
SAME_PLACE(PropSheetUiInfoHeader, PROPSHEETUI_INFO_HEADER, IconID);
static_assert(kHeaderPropertiesTitle == PSUIHDRF_PROPTITLE);

SAME_SIZE(SetResultInfo, SETRESULT_INFO);
SAME_PLACE(SetResultInfo, SETRESULT_INFO, cbSize);
SAME_PLACE(SetResultInfo, SETRESULT_INFO, wReserved);
SAME_PLACE(SetResultInfo, SETRESULT_INFO, hSetResult);
SAME_PLACE(SetResultInfo, SETRESULT_INFO, Result);
static_assert(kResultCancel == CPSUI_CANCEL);
static_assert(kResultOk == CPSUI_OK);

SAME_SIZE(InsertPageInfo, INSERTPSUIPAGE_INFO);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, cbSize);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, Type);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, Mode);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, dwData1);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, dwData2);
SAME_PLACE(InsertPageInfo, INSERTPSUIPAGE_INFO, dwData3);

SAME_SIZE(DocInfo, DOCINFOW);
SAME_PLACE(DocInfo, DOCINFOW, cbSize);
SAME_PLACE(DocInfo, DOCINFOW, lpszDocName);
SAME_PLACE(DocInfo, DOCINFOW, lpszOutput);
SAME_PLACE(DocInfo, DOCINFOW, lpszDatatype);
SAME_PLACE(DocInfo, DOCINFOW, fwType);

static_assert(kSheetAddPage == CPSFUNC_ADD_HPROPSHEETPAGE);
static_assert(kSheetGetPageCount == CPSFUNC_GET_PAGECOUNT);
static_assert(kSheetSetResult == CPSFUNC_SET_RESULT);
static_assert(kSheetGetPageHandles == CPSFUNC_GET_HPSUIPAGES);
static_assert(kSheetInsertPage == CPSFUNC_INSERT_PSUIPAGE);
static_assert(kReasonInit == PROPSHEETUI_REASON_INIT);
static_assert(kReasonGetInfoHeader == PROPSHEETUI_REASON_GET_INFO_HEADER);
static_assert(kReasonDestroy == PROPSHEETUI_REASON_DESTROY);
static_assert(kReasonSetResult == PROPSHEETUI_REASON_SET_RESULT);
static_assert(kModeUpdate == DM_UPDATE);
static_assert(kModeCopy == DM_COPY);
static_assert(kModeMerge == DM_MODIFY);

#undef SAME_SIZE
#undef SAME_PLACE

}  // namespace
}  // namespace ostvt
