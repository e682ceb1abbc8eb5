// The settings of a printer's server that the monitor works by.
#include "comm/MonitorLink.h"
#include "comm/XpmlText.h"
#include "store/TrueStore.h"

namespace ostvt {
namespace {

constexpr char kCommunication[] = "NETWORK:Network Communication";
constexpr char kTcpEnabled[] = "NETWORK:TCP Enabled";
constexpr char kTcpPort[] = "NETWORK:TCP Port";
constexpr char kTimeout[] = "NETWORK:Connection Timeout";
constexpr char kRetries[] = "NETWORK:Connection Retries";
constexpr char kAddressOverride[] = "NETWORK:Server Address Override";
constexpr char kAddress[] = "NETWORK:Server Address";

constexpr int32_t kDefaultTcpPort = 6160;
constexpr int32_t kDefaultTimeout = 1000;
constexpr int32_t kDefaultRetries = 2;

}  // namespace

bool MonitorLink::GetNetworkCommunication() const {
  return TrueStore(PrinterName).ReadByte(kCommunication, 1) != 0;
}

void MonitorLink::SetNetworkCommunication(bool value) {
  TrueStore(PrinterName).WriteByte(kCommunication, value);
  RestartNetwork();
}

bool MonitorLink::GetTcpEnabled() const {
  return TrueStore(PrinterName).ReadByte(kTcpEnabled, 1) != 0;
}

void MonitorLink::SetTcpEnabled(bool value) {
  TrueStore(PrinterName).WriteByte(kTcpEnabled, value);
  RestartNetwork();
}

int32_t MonitorLink::GetTcpPort() const {
  return TrueStore(PrinterName).ReadInt(kTcpPort, kDefaultTcpPort);
}

void MonitorLink::SetTcpPort(int32_t value) {
  TrueStore(PrinterName).WriteInt(kTcpPort, value);
  RestartNetwork();
}

int32_t MonitorLink::GetConnectionTimeout() const {
  return TrueStore(PrinterName).ReadInt(kTimeout, kDefaultTimeout);
}

void MonitorLink::SetConnectionTimeout(int32_t value) {
  TrueStore(PrinterName).WriteInt(kTimeout, value);
}

int32_t MonitorLink::GetConnectionRetries() const {
  return TrueStore(PrinterName).ReadInt(kRetries, kDefaultRetries);
}

void MonitorLink::SetConnectionRetries(int32_t value) {
  TrueStore(PrinterName).WriteInt(kRetries, value);
}

bool MonitorLink::GetServerAddressOverride() const {
  return TrueStore(PrinterName).ReadByte(kAddressOverride, 0) != 0;
}

void MonitorLink::SetServerAddressOverride(bool value) {
  TrueStore(PrinterName).WriteByte(kAddressOverride, value);
}

OString MonitorLink::GetServerAddress() const {
  return TrueStore(PrinterName).ReadString(kAddress, OString());
}

void MonitorLink::SetServerAddress(const OString& value) {
  TrueStore(PrinterName).WriteString(kAddress, value);
}

void MonitorLink::RestartNetwork() {
  if (!IsNetworkClient()) SendRequest(kXpmlNetworkRestart);
}

}  // namespace ostvt
