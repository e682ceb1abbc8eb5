#include "store/PrinterId.h"

#include "core/Memory.h"
#include "core/PathName.h"
#include "core/WholeUnits.h"

namespace ostvt {
namespace {

// Where the parts of a data file's name lie.
constexpr int kFamilyCodeLength = 3;
constexpr int kOemCodeStart = 3;
constexpr int kOemCodeLength = 2;

// Where a server's name begins in "\\server\...".
constexpr int kServerStart = 2;

OString Text(const std::u16string& text) { return OString(text.c_str()); }

// Both separate directories on one of the platforms, and neither stands in a name on any.
int LastSeparator(const OString& path) { return path.ReverseFindOneOf("\\/"); }

OString NameOf(const std::u16string& path) { return NameOfPath(Text(path)); }

OString DirectoryOf(const std::u16string& path) {
  OString text = Text(path);
  return text.Left(LastSeparator(text));
}

// Characters of a file's name, without the half of a surrogate pair at either end.
OString Piece(const OString& name, int start, int count) {
  OString piece = OString(name.GetWide()).Mid(start, count);
  const char16_t* units = piece.GetWide();
  int length = piece.Length();
  int first = length > 0 && (units[0] & 0xFC00) == 0xDC00 ? 1 : 0;
  int end = length > first && IsLeadSurrogate(units[length - 1]) ? length - 1 : length;
  OString result = piece.Mid(first, end - first);
  result.MakeLower();
  return result;
}

}  // namespace

PrinterId::PrinterId(const OString& fullName) : GivenName(fullName) {}

PrinterId::PrinterId(platform::PrinterHandle handle, const OString& name)
    : Handle(handle), GivenName(name) {}

OString PrinterId::GetFullName() {
  LoadPrinter();
  return FullName;
}

OString PrinterId::GetPrinterName() {
  OString name = GetFullName();
  // The position counts units of the wide form, whatever form the name came in.
  OString wide(name.GetWide());
  int cut = wide.Find(u'\\', kServerStart);
  return cut < 0 ? name : wide.Mid(cut + 1);
}

const PrinterId::PrinterFields& PrinterId::Printer() {
  LoadPrinter();
  return PrinterData;
}

const PrinterId::DriverFields& PrinterId::Driver() {
  LoadDriver();
  return DriverData;
}

bool PrinterId::IsKnown() {
  LoadPrinter();
  return Known;
}

OString PrinterId::GetOemCode() { return Piece(Driver().DataFile, kOemCodeStart, kOemCodeLength); }

OString PrinterId::GetFamilyCode() { return Piece(Driver().DataFile, 0, kFamilyCodeLength); }

void PrinterId::LoadPrinter() {
  if (PrinterLoaded) return;
  if (Handle) {
    FillPrinter(Handle);
    return;
  }
  platform::PrinterHandle printer = OpenGiven();
  FillPrinter(printer);
  platform::ClosePrinter(printer);
}

void PrinterId::LoadDriver() {
  if (DriverLoaded) return;
  if (Handle) {
    FillDriver(Handle);
    return;
  }
  // Who asks for the driver needs the printer too: one opening serves both records.
  platform::PrinterHandle printer = OpenGiven();
  if (!PrinterLoaded) FillPrinter(printer);
  FillDriver(printer);
  platform::ClosePrinter(printer);
}

platform::PrinterHandle PrinterId::OpenGiven() const {
  return platform::OpenPrinter(GivenName.GetWide(), platform::kPrinterAccessUse);
}

void PrinterId::FillPrinter(platform::PrinterHandle printer) {
  PrinterLoaded = true;
  FullName = GivenName;
  platform::PrinterRecord record;
  if (!platform::GetPrinterRecord(printer, &record)) return;
  Known = true;
  if (!record.Name.empty()) FullName = Text(record.Name);
  PrinterData.ShareName = Text(record.ShareName);
  PrinterData.PortName = Text(record.PortName);
  PrinterData.DriverName = Text(record.DriverName);
  PrinterData.Comment = Text(record.Comment);
  PrinterData.Location = Text(record.Location);
  PrinterData.SepFile = Text(record.SepFile);
  PrinterData.PrintProcessor = Text(record.PrintProcessor);
  PrinterData.Datatype = Text(record.Datatype);
  PrinterData.Parameters = Text(record.Parameters);
  PrinterData.Attributes = record.Attributes;
  PrinterData.DevMode.Resize(static_cast<uint32_t>(record.DevMode.size()));
  CopyBytes(PrinterData.DevMode.Data, record.DevMode.data(), record.DevMode.size());
  SetServer(Text(record.ServerName));
}

void PrinterId::SetServer(const OString& spoolerServer) {
  const OString& port = PrinterData.PortName;
  if (!spoolerServer.IsEmpty()) {
    PrinterData.ServerName = spoolerServer;
    PrinterData.ServerName.TrimLeft("\\");
    PrinterData.IsRemote = true;
  } else if (port.Left(kServerStart) == "\\\\") {
    int end = port.Find(u'\\', kServerStart);
    if (end < 0) {
      PrinterData.ServerName = port.Mid(kServerStart);
    } else {
      PrinterData.ServerName = port.Mid(kServerStart, end - kServerStart);
      PrinterData.ShareName = port.Mid(end + 1);
    }
    PrinterData.IsRemote = true;
  } else {
    PrinterData.ServerName = Text(platform::ComputerName());
  }
}

void PrinterId::FillDriver(platform::PrinterHandle printer) {
  DriverLoaded = true;
  platform::DriverRecord record;
  if (!platform::GetDriverRecord(printer, &record)) return;
  DriverData.Version = record.Version;
  DriverData.Environment = Text(record.Environment);
  DriverData.DriverDirectory = DirectoryOf(record.DriverPath);
  DriverData.DriverFile = NameOf(record.DriverPath);
  DriverData.DataFile = NameOf(record.DataFile);
  DriverData.ConfigFile = NameOf(record.ConfigFile);
  DriverData.HelpFile = NameOf(record.HelpFile);
  for (const std::u16string& file : record.DependentFiles)
    DriverData.DependentFiles.Add(NameOf(file));
  DriverData.MonitorName = Text(record.MonitorName);
  DriverData.DefaultDataType = Text(record.DefaultDataType);
  DriverData.MfgName = Text(record.MfgName);
  DriverData.HardwareId = Text(record.HardwareId);
  DriverData.Provider = Text(record.Provider);
}

}  // namespace ostvt
