#ifndef _WIN32

#include <stdio.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "TestPrinter.h"
#include "platform/Spooler.h"
#include "platform/linux/Utf8.h"

namespace ostvt::test {
namespace {

constexpr char kStoreVariable[] = "OSTVT_STORE_DIR";

// The living test printer that made the store; those made meanwhile share it.
TestPrinter* storeOwner = nullptr;
bool hadStore = false;
std::string storeBefore;

std::string MakeDirectory() {
  std::error_code error;
  std::string path = std::filesystem::temp_directory_path(error).string() + "/ostvt-test-XXXXXX";
  return mkdtemp(path.data()) ? path : std::string();
}

void RemoveDirectory(const std::string& path) {
  std::error_code error;
  if (!path.empty()) std::filesystem::remove_all(path, error);
}

}  // namespace

TestPrinter::TestPrinter(const TestPrinterOptions& options) : Options(options) {
  StoreDirectory = MakeDirectory();
  if (StoreDirectory.empty()) {
    perror("TestPrinter: no temporary directory");
    return;
  }
  if (!storeOwner) {
    storeOwner = this;
    const char* before = getenv(kStoreVariable);
    hadStore = before != nullptr;
    storeBefore = before ? before : "";
    setenv(kStoreVariable, StoreDirectory.c_str(), 1);
  }
  Directory = Options.DriverDirectory;
  if (Directory.empty()) {
    std::string drivers = StoreDirectory + "/drivers";
    std::error_code error;
    std::filesystem::create_directory(drivers, error);
    Directory = platform::FromUtf8(drivers);
  }

  platform::DriverRecord driver;
  driver.Name = Options.DriverName;
  driver.DriverPath = Directory + u"/libostvt.so";
  driver.ConfigFile = driver.DriverPath;
  driver.DataFile = Directory + u"/" + Options.DataFile;
  driver.MfgName = u"Vantrel";
  if (!platform::AddDriver(driver)) {
    fprintf(stderr, "TestPrinter: the driver was refused\n");
    return;
  }
  Ready = platform::AddPrinter({Options.Name, Options.DriverName, Options.Port, u""});
  if (!Ready) fprintf(stderr, "TestPrinter: the printer was refused\n");
}

TestPrinter::~TestPrinter() {
  if (Ready) platform::DeletePrinter(Options.Name.c_str());
  if (storeOwner == this) {
    storeOwner = nullptr;
    if (hadStore)
      setenv(kStoreVariable, storeBefore.c_str(), 1);
    else
      unsetenv(kStoreVariable);
  }
  RemoveDirectory(StoreDirectory);
}

}  // namespace ostvt::test

#endif
