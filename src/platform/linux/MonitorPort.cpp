// The port monitor beside the module as the way to a printer.
#include "platform/Libraries.h"
#include "platform/Module.h"
#include "platform/linux/JobMonitor.h"
#include "platform/linux/PortWriter.h"

namespace ostvt::platform {
namespace {

class MonitorPort : public PortWriter {
 public:
  explicit MonitorPort(LibraryHandle library) : Library(library) {
    StartJob = FindFunction<PrintJobStartFunction>(library, kPrintJobStart);
    WriteJob = FindFunction<PrintJobWriteFunction>(library, kPrintJobWrite);
    EndJob = FindFunction<PrintJobEndFunction>(library, kPrintJobEnd);
  }
  ~MonitorPort() override {
    if (Job) EndJob(Job, 0);
    CloseLibrary(Library);
  }
  MonitorPort(const MonitorPort&) = delete;
  MonitorPort& operator=(const MonitorPort&) = delete;

  bool IsWhole() const { return StartJob && WriteJob && EndJob; }
  bool Start(const std::u16string& printer, const std::u16string& document) {
    JobId = StartJob(printer.c_str(), document.c_str(), &Job);
    return JobId > 0;
  }
  bool Write(const uint8_t* bytes, size_t count) override {
    return WriteJob(Job, bytes, static_cast<uint32_t>(count)) != 0;
  }
  bool Finish() override {
    void* job = Job;
    Job = nullptr;
    return EndJob(job, 1) != 0;
  }
  bool KnowsXpml() const override { return true; }

 private:
  LibraryHandle Library;
  PrintJobStartFunction* StartJob;
  PrintJobWriteFunction* WriteJob;
  PrintJobEndFunction* EndJob;
  void* Job = nullptr;
};

}  // namespace

std::unique_ptr<PortWriter> OpenMonitorPort(const std::u16string& printer,
                                            const std::u16string& document, bool* isInstalled) {
  *isInstalled = false;
  LibraryHandle library = OpenLibrary((ModuleDirectory() + u"/" + kJobMonitorFile).c_str());
  if (!library) return nullptr;
  auto port = std::make_unique<MonitorPort>(library);
  *isInstalled = port->IsWhole();
  if (!*isInstalled || !port->Start(printer, document)) return nullptr;
  return port;
}

}  // namespace ostvt::platform
