// The printer-wide switches and numbers below "Settings:", as the pages of a session edit them.
//
// A view of the model's cache: all objects bound to one model see each other's edits at once; the
// store sees them with Commit. Each accessor holds the cache's lock. An object that is bound to
// nothing gives defaults and keeps nothing. Lengths are in micrometres, times in milliseconds.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "settings/DriverOptionsTable.h"

namespace ostvt {

class OFile;
class OStream;
class PrinterModel;

class DriverOptions {
 public:
  // The model, which is not owned, must live longer.
  void Bind(PrinterModel* model) { Model = model; }

  char16_t GetFunctionCharacter() const;
  bool GetDisableCopiesLimit() const { return GetFlag(DriverOption::kDisableCopiesLimit); }
  bool GetOfficeCompatibility() const { return GetFlag(DriverOption::kOfficeCompatibility); }
  bool GetOverride() const { return GetFlag(DriverOption::kOverride); }
  int32_t GetXResolution() const { return GetNumber(DriverOption::kXResolution); }
  int32_t GetYResolution() const { return GetNumber(DriverOption::kYResolution); }
  int32_t GetPrintableWidth() const { return GetNumber(DriverOption::kPrintableWidth); }
  int32_t GetTracking() const { return GetNumber(DriverOption::kTracking); }
  int32_t GetMinimumPageWidth() const { return GetNumber(DriverOption::kMinimumPageWidth); }
  int32_t GetMaximumPageWidth() const { return GetNumber(DriverOption::kMaximumPageWidth); }
  int32_t GetMinimumPageLength() const { return GetNumber(DriverOption::kMinimumPageLength); }
  int32_t GetMaximumPageLength() const { return GetNumber(DriverOption::kMaximumPageLength); }
  bool GetLogging() const { return GetFlag(DriverOption::kLogging); }
  bool GetOverwriteFiles() const { return GetFlag(DriverOption::kOverwriteFiles); }
  bool GetPrintCodeRecording() const { return GetFlag(DriverOption::kPrintCodeRecording); }
  OString GetDirectory() const { return GetText(DriverOption::kDirectory); }
  OString GetLogFile() const { return GetText(DriverOption::kLogFile); }
  bool GetMonitorStatus() const { return GetFlag(DriverOption::kMonitorStatus); }
  bool GetQueryBeforeJob() const { return GetFlag(DriverOption::kQueryBeforeJob); }
  bool GetVerifyJobComplete() const { return GetFlag(DriverOption::kVerifyJobComplete); }
  bool GetShowOnError() const { return GetFlag(DriverOption::kShowOnError); }
  bool GetSystemTrayIcon() const { return GetFlag(DriverOption::kSystemTrayIcon); }
  int32_t GetWriteTimeout() const { return GetNumber(DriverOption::kWriteTimeout); }
  int32_t GetJobCompleteTimeout() const { return GetNumber(DriverOption::kJobCompleteTimeout); }
  int32_t GetQueryInterval() const { return GetNumber(DriverOption::kQueryInterval); }

  // 0 means the default character.
  void SetFunctionCharacter(char16_t value);
  void SetDisableCopiesLimit(bool value) { SetFlag(DriverOption::kDisableCopiesLimit, value); }
  void SetOfficeCompatibility(bool value) { SetFlag(DriverOption::kOfficeCompatibility, value); }
  void SetOverride(bool value) { SetFlag(DriverOption::kOverride, value); }
  void SetXResolution(int32_t value) { SetNumber(DriverOption::kXResolution, value); }
  void SetYResolution(int32_t value) { SetNumber(DriverOption::kYResolution, value); }
  void SetPrintableWidth(int32_t value) { SetNumber(DriverOption::kPrintableWidth, value); }
  void SetTracking(int32_t value) { SetNumber(DriverOption::kTracking, value); }
  void SetMinimumPageWidth(int32_t value) { SetNumber(DriverOption::kMinimumPageWidth, value); }
  void SetMaximumPageWidth(int32_t value) { SetNumber(DriverOption::kMaximumPageWidth, value); }
  void SetMinimumPageLength(int32_t value) { SetNumber(DriverOption::kMinimumPageLength, value); }
  void SetMaximumPageLength(int32_t value) { SetNumber(DriverOption::kMaximumPageLength, value); }
  void SetLogging(bool value) { SetFlag(DriverOption::kLogging, value); }
  void SetOverwriteFiles(bool value) { SetFlag(DriverOption::kOverwriteFiles, value); }
  void SetPrintCodeRecording(bool value) { SetFlag(DriverOption::kPrintCodeRecording, value); }
  void SetDirectory(const OString& value) { SetText(DriverOption::kDirectory, value); }
  void SetLogFile(const OString& value) { SetText(DriverOption::kLogFile, value); }
  void SetMonitorStatus(bool value) { SetFlag(DriverOption::kMonitorStatus, value); }
  void SetQueryBeforeJob(bool value) { SetFlag(DriverOption::kQueryBeforeJob, value); }
  void SetVerifyJobComplete(bool value) { SetFlag(DriverOption::kVerifyJobComplete, value); }
  void SetShowOnError(bool value) { SetFlag(DriverOption::kShowOnError, value); }
  void SetSystemTrayIcon(bool value) { SetFlag(DriverOption::kSystemTrayIcon, value); }
  void SetWriteTimeout(int32_t value) { SetNumber(DriverOption::kWriteTimeout, value); }
  void SetJobCompleteTimeout(int32_t value) { SetNumber(DriverOption::kJobCompleteTimeout, value); }
  void SetQueryInterval(int32_t value) { SetNumber(DriverOption::kQueryInterval, value); }

  // The same by option, which must be of that kind; the character is a text here.
  bool GetFlag(DriverOption option) const { return GetNumber(option) != 0; }
  int32_t GetNumber(DriverOption option) const;
  OString GetText(DriverOption option) const;
  void SetFlag(DriverOption option, bool value) { SetNumber(option, value ? 1 : 0); }
  void SetNumber(DriverOption option, int32_t value);
  void SetText(DriverOption option, const OString& value);

  // Writes what was set and not written yet, in a transaction of the store that is held under the
  // cache's lock. Where options changed that the model is made from, the model is invalidated,
  // behind both. False if the store did not take all of it: the next call tries again.
  bool Commit();
  // Drops what is cached, with edits that were not committed. The next reads ask the store.
  void Forget();

  // What the store has below "Settings:", as a block of text for printers of the driver
  // `modelName`. False, with nothing written, without a model.
  bool ExportText(OStream& stream, const OString& modelName) const;
  // Applies each block of the whole file that is meant for this printer; see
  // MatchesModelAttributes. Edits that were not committed give way, and the model is invalidated as
  // by Commit. True if there was one that the store took.
  bool ImportText(OFile& stream, const OString& modelName, const OString& modelId);

 private:
  PrinterModel* Model = nullptr;
};

}  // namespace ostvt
