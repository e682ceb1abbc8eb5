#ifdef _WIN32

#include <stdio.h>

#include "TestPrinter.h"
#include "platform/Spooler.h"
#include "platform/windows/Winspool.h"

namespace ostvt::test {
namespace {

using platform::AsWide;

constexpr DWORD kMutexTimeout = 300 * 1000;

// The driver file, which nobody can load: the spooler wants it to be there, no more.
constexpr char16_t kLibrary[] = u"ostvt-test-dummy.dll";
constexpr const wchar_t* kEnvironment = L"Windows x64";

// Keys that the driver's own store uses.
constexpr const wchar_t* kStoreKey = L"SOFTWARE\\Vantrel";

// One spooler and one directory of drivers serve every program of the prefix, so test printers of
// different programs must not live at the same time. Nests within a program.
HANDLE SpoolerMutex() {
  static HANDLE mutex = CreateMutexW(nullptr, FALSE, L"ostvt test spooler");
  return mutex;
}

int livingPrinters = 0;

void RemoveStore() {
  RegDeleteTreeW(HKEY_CURRENT_USER, kStoreKey);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kStoreKey);
}

void Report(const char* what) {
  fprintf(stderr, "TestPrinter: %s: error %lu\n", what, GetLastError());
}

// Where the spooler copies the files of drivers of version 3.
std::u16string SpoolerDirectory() {
  char16_t path[MAX_PATH] = {};
  DWORD needed = 0;
  if (!GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path), sizeof path,
                                  &needed))
    return {};
  return std::u16string(path) + u"\\3";
}

bool Exists(const std::u16string& path) {
  return GetFileAttributesW(AsWide(path.c_str())) != INVALID_FILE_ATTRIBUTES;
}

bool Copy(const std::u16string& from, const std::u16string& to) {
  return CopyFileW(AsWide(from.c_str()), AsWide(to.c_str()), FALSE);
}

std::u16string MakeDirectory() {
  char16_t base[MAX_PATH] = {};
  if (GetTempPathW(MAX_PATH, AsWide(base)) == 0) return {};
  std::u16string path = base;
  path += u"ostvt-test-";
  for (char digit : std::to_string(GetCurrentProcessId()) + "-" + std::to_string(livingPrinters))
    path += static_cast<char16_t>(digit);
  return CreateDirectoryW(AsWide(path.c_str()), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS
             ? path
             : std::u16string();
}

bool WriteDummy(const std::u16string& path) {
  HANDLE file = CreateFileW(AsWide(path.c_str()), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  constexpr char kText[] = "*PPD-Adobe: \"4.3\"\r\n";
  DWORD written = 0;
  bool done = WriteFile(file, kText, sizeof kText - 1, &written, nullptr);
  CloseHandle(file);
  return done;
}

// `action(name)` for each file of the directory that matches "vt#*.ddz".
template <typename Action>
void ForEachArchive(const std::u16string& directory, Action action) {
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW(AsWide((directory + u"\\vt#*.ddz").c_str()), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    action(std::u16string(platform::AsUnits(found.cFileName)));
  } while (FindNextFileW(search, &found));
  FindClose(search);
}

void RemoveArchives(const std::u16string& directory) {
  ForEachArchive(directory, [&](const std::u16string& name) {
    DeleteFileW(AsWide((directory + u"\\" + name).c_str()));
  });
}

}  // namespace

TestPrinter::TestPrinter(const TestPrinterOptions& options) : Options(options) {
  DWORD waited = WaitForSingleObject(SpoolerMutex(), kMutexTimeout);
  if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) {
    Report("another program holds the spooler");
    return;
  }
  HoldsSpooler = true;
  if (livingPrinters++ == 0) {
    RemoveStore();
    RemoveArchives(SpoolerDirectory());
  }

  std::u16string source = MakeDirectory();
  if (source.empty()) {
    Report("no temporary directory");
    return;
  }
  std::u16string library = source + u"\\" + kLibrary;
  std::u16string data = source + u"\\" + Options.DataFile;
  WriteDummy(library);
  // Another driver may have a data file of this name: the spooler then copies it over itself.
  std::u16string installedData = SpoolerDirectory() + u"\\" + Options.DataFile;
  DataFileIsOurs = !Exists(installedData);
  if (DataFileIsOurs)
    WriteDummy(data);
  else
    Copy(installedData, data);
  platform::DriverRecord driver;
  driver.Name = Options.DriverName;
  driver.DriverPath = library;
  driver.ConfigFile = library;
  driver.DataFile = data;
  driver.MfgName = u"Vantrel";
  bool added = platform::AddDriver(driver);
  if (!added) Report("the driver was refused");
  DeleteFileW(AsWide(library.c_str()));
  DeleteFileW(AsWide(data.c_str()));
  RemoveDirectoryW(AsWide(source.c_str()));
  if (!added) return;

  platform::DeletePrinter(Options.Name.c_str());  // of a test that was killed
  Ready = platform::AddPrinter({Options.Name, Options.DriverName, Options.Port, u""});
  if (!Ready) {
    Report("the printer was refused");
    return;
  }
  platform::PrinterHandle printer =
      platform::OpenPrinter(Options.Name.c_str(), platform::kPrinterAccessUse);
  platform::DriverRecord installed;
  if (!platform::GetDriverRecord(printer, &installed)) Report("no driver record");
  platform::ClosePrinter(printer);
  Directory = installed.DriverPath.substr(0, installed.DriverPath.rfind(u'\\'));
  if (Options.DriverDirectory.empty()) return;
  ForEachArchive(Options.DriverDirectory, [this](const std::u16string& name) {
    Copy(Options.DriverDirectory + u"\\" + name, Directory + u"\\" + name);
  });
}

TestPrinter::~TestPrinter() {
  if (!HoldsSpooler) return;
  if (Ready) platform::DeletePrinter(Options.Name.c_str());
  DeletePrinterDriverExW(nullptr, const_cast<wchar_t*>(kEnvironment),
                         AsWide(Options.DriverName.data()), 0, 0);
  if (!Directory.empty() && livingPrinters == 1) {
    RemoveArchives(Directory);
    DeleteFileW(AsWide((Directory + u"\\" + kLibrary).c_str()));
  }
  if (DataFileIsOurs && !Directory.empty())
    DeleteFileW(AsWide((Directory + u"\\" + Options.DataFile).c_str()));
  if (--livingPrinters == 0) RemoveStore();
  ReleaseMutex(SpoolerMutex());
}

}  // namespace ostvt::test

#endif
