// Lets a MonitorLink or PrinterPort reach a build of the port monitor by its path, on both systems.
#pragma once

#include "comm/MonitorFile.h"
#include "platform/Libraries.h"
#include "tests/support/TestMonitor.h"

namespace ostvt::test {

class TestMonitorLoader : public MonitorLoader {
 public:
  explicit TestMonitorLoader(const TestMonitor& monitor) : Path(monitor.Path()) {}
  void* Open() override {
    ++Openings;
    return platform::OpenLibrary(Path.c_str());
  }

  int Openings = 0;

 private:
  std::u16string Path;
};

}  // namespace ostvt::test
