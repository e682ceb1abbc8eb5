// What the printer answered to the queries of jobs, kept in the user's part of the store from one
// load of the monitor to the next: below HKCU\SOFTWARE\Vantrel\Network Monitor, one answer for each
// printer and query name.
#pragma once

#include <cstdint>
#include <string>

#include "core/OString.h"
#include "store/ORegistry.h"

namespace ostvt::netmon {

// Names of queries are bytes, taken as they are (but for letters' case).
class AnswerStore {
 public:
  explicit AnswerStore(const OString& printerName);

  void Forget(const std::string& query);
  // `job` is the one that asked.
  bool Keep(const std::string& query, int32_t job, const std::string& bytes);
  // "" when there is none.
  std::string Find(const std::string& query) const;

  // A number above 0 that no job had before it.
  int32_t NextJob();
  // The last job of that name. What jobs long ago left of this printer goes, since there may be any
  // number of names.
  void KeepJob(const OString& document, int32_t job, bool isAnswered);
  // `job` 0: whichever number it had. True when the printer answered it.
  bool IsAnswered(const OString& document, int32_t job) const;

 private:
  void DropOld(const OString& keyPath, int64_t job);
  OString AnswersPath() const;
  OString JobsPath() const;
  OString AnswerPath(const std::string& query) const;
  OString JobPath(const OString& document) const;

  ORegistry Store;
  OString Printer;  // an element of a path
};

}  // namespace ostvt::netmon
