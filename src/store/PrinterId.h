// A printer's identity and its spooler records, read on first use.
#pragma once

#include <cstdint>

#include "core/Buffer.h"
#include "core/OString.h"
#include "core/OStringArray.h"
#include "platform/Spooler.h"

namespace ostvt {

// Fields are empty where the spooler could not be asked. One thread.
class PrinterId {
 public:
  struct PrinterFields {
    OString ServerName;  // without leading "\\"; this computer's name for a local printer
    OString ShareName;
    OString PortName;
    OString DriverName;
    OString Comment;
    OString Location;
    OString SepFile;
    OString PrintProcessor;
    OString Datatype;
    OString Parameters;
    uint32_t Attributes = 0;
    bool IsRemote = false;
    Buffer DevMode;  // the stored default device mode, whole as stored; unchecked
  };
  // File fields hold names without directory.
  struct DriverFields {
    uint32_t Version = 0;
    OString Environment;
    OString DriverDirectory;
    OString DriverFile;
    OString DataFile;
    OString ConfigFile;
    OString HelpFile;
    OStringArray DependentFiles;
    OString MonitorName;
    OString DefaultDataType;
    OString MfgName;
    OString HardwareId;
    OString Provider;
  };

  // Opens the printer by itself, for use only, while it fills a record.
  explicit PrinterId(const OString& fullName);
  // `handle` is borrowed and must stay open. Null with a `name`: as by name.
  explicit PrinterId(platform::PrinterHandle handle, const OString& name = OString());
  PrinterId(const PrinterId&) = delete;
  PrinterId& operator=(const PrinterId&) = delete;

  // The name as the spooler has it, or as given where the spooler could not be asked.
  OString GetFullName();
  // The full name without "\\server\".
  OString GetPrinterName();
  const PrinterFields& Printer();
  const DriverFields& Driver();
  // The spooler gave the printer's record; otherwise its fields are empty.
  bool IsKnown();
  // Characters 3 and 4 (from 0) of the data file's name, lower case: the maker code.
  OString GetOemCode();
  // The first three characters of the data file's name, lower case.
  OString GetFamilyCode();

 private:
  void LoadPrinter();
  void LoadDriver();
  platform::PrinterHandle OpenGiven() const;
  // Null is allowed and leaves the fields empty.
  void FillPrinter(platform::PrinterHandle printer);
  void FillDriver(platform::PrinterHandle printer);
  // Decides ServerName, IsRemote and, for a port on a server, ShareName.
  void SetServer(const OString& spoolerServer);

  platform::PrinterHandle Handle = nullptr;
  OString GivenName;
  OString FullName;
  bool PrinterLoaded = false;
  bool Known = false;
  bool DriverLoaded = false;
  PrinterFields PrinterData;
  DriverFields DriverData;
};

}  // namespace ostvt
