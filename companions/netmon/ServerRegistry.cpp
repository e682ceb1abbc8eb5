#include "companions/netmon/ServerRegistry.h"

namespace ostvt::netmon {
namespace {

constexpr char kServers[] = "1:SOFTWARE/Vantrel/Network Monitor/Servers/";

}  // namespace

ServerRegistry::ServerRegistry(const OString& printerName, const OString& server)
    : PrinterRegistry(printerName) {
  SetShadowed(false);
  if (server.IsEmpty()) return;
  PrinterName = printerName.FileNamePart();
  PrinterFullName = PrinterName;
  ServerName = server;
  IsRemote = false;
  Home = OString(kServers) + Escape(server) + "/";
}

platform::KeyHandle ServerRegistry::OpenKey(const OString& canonicalPath, bool create) const {
  return PrinterRegistry::OpenKey(RouteKey(canonicalPath), create);
}

// "2:SYSTEM/..." is "2/SYSTEM/..." there.
OString ServerRegistry::RouteKey(const OString& canonicalPath) const {
  if (Home.IsEmpty()) return canonicalPath;
  const int colon = canonicalPath.Find(':');
  if (colon < 0) return canonicalPath;
  return Home + canonicalPath.Left(colon) + "/" + canonicalPath.Mid(colon + 1);
}

}  // namespace ostvt::netmon
