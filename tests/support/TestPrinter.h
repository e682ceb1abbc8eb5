// A printer in the spooler at hand, for one test: on Linux in a store of its own in a temporary
// directory (which also keeps the test's settings apart), on Windows in the real spooler of the
// Wine prefix, with its keys removed at both ends of the test.
#pragma once

#include <string>

#include "core/OString.h"

namespace ostvt::test {

struct TestPrinterOptions {
  std::u16string Name = u"Test Printer";
  std::u16string DriverName = u"Ostrel Test";
  std::u16string Port = u"FILE:";
  std::u16string DataFile = u"ostvt.dat";  // characters 0 to 2 the family, 3 and 4 the maker
  std::u16string DriverDirectory;          // where the archives lie; empty: a temporary directory
};

class TestPrinter {
 public:
  explicit TestPrinter(const TestPrinterOptions& options = {});
  ~TestPrinter();
  TestPrinter(const TestPrinter&) = delete;
  TestPrinter& operator=(const TestPrinter&) = delete;

  // False when the spooler refused it; the test then fails with the reason on stderr.
  bool IsReady() const { return Ready; }
  OString Name() const { return OString(Options.Name.c_str()); }
  // The directory that the driver record names; files put there are found as driver files.
  std::u16string DriverDirectory() const { return Directory; }

 private:
  TestPrinterOptions Options;
  std::u16string Directory;
  std::string StoreDirectory;
  bool Ready = false;
};

}  // namespace ostvt::test
