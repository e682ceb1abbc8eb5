// A printer in the spooler at hand, for one test: on Linux in a store of its own in a temporary
// directory (which also keeps the test's settings apart), on Windows in the real spooler of the
// Wine prefix, with its keys removed at both ends of the test. There one program at a time has test
// printers. A second one made while a first lives shares the first one's store and must go before
// it.
#pragma once

#include <string>

#include "core/OString.h"

namespace ostvt::test {

struct TestPrinterOptions {
  std::u16string Name = u"Test Printer";
  std::u16string DriverName = u"Ostrel Test";
  std::u16string Port = u"FILE:";
  std::u16string DataFile = u"ostvt.dat";  // characters 0 to 2 the family, 3 and 4 the maker
  // Where the archives lie; empty: a directory without any. On Windows the archives are copied from
  // here to the spooler's directory of drivers.
  std::u16string DriverDirectory;
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
  std::string StoreDirectory;  // Linux only
  bool HoldsSpooler = false;   // Windows only, as the next
  bool DataFileIsOurs = false;
  bool Ready = false;
};

}  // namespace ostvt::test
