// The settings of a printer's server that the monitor works by.
#include "comm/MonitorLink.h"
#include "comm/XpmlText.h"
#include "store/PrinterRegistry.h"

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
  return OwnStore().ReadByte(kCommunication, 1) != 0;
}

void MonitorLink::SetNetworkCommunication(bool value) {
  OwnStore().WriteByte(kCommunication, value);
  RestartNetwork();
}

bool MonitorLink::GetTcpEnabled() const { return OwnStore().ReadByte(kTcpEnabled, 1) != 0; }

void MonitorLink::SetTcpEnabled(bool value) {
  OwnStore().WriteByte(kTcpEnabled, value);
  RestartNetwork();
}

int32_t MonitorLink::GetTcpPort() const { return OwnStore().ReadInt(kTcpPort, kDefaultTcpPort); }

void MonitorLink::SetTcpPort(int32_t value) {
  OwnStore().WriteInt(kTcpPort, value);
  RestartNetwork();
}

int32_t MonitorLink::GetConnectionTimeout() const {
  return OwnStore().ReadInt(kTimeout, kDefaultTimeout);
}

void MonitorLink::SetConnectionTimeout(int32_t value) { OwnStore().WriteInt(kTimeout, value); }

int32_t MonitorLink::GetConnectionRetries() const {
  return OwnStore().ReadInt(kRetries, kDefaultRetries);
}

void MonitorLink::SetConnectionRetries(int32_t value) { OwnStore().WriteInt(kRetries, value); }

bool MonitorLink::GetServerAddressOverride() const {
  return OwnStore().ReadByte(kAddressOverride, 0) != 0;
}

void MonitorLink::SetServerAddressOverride(bool value) {
  OwnStore().WriteByte(kAddressOverride, value);
}

OString MonitorLink::GetServerAddress() const { return OwnStore().ReadString(kAddress, OString()); }

void MonitorLink::SetServerAddress(const OString& value) {
  OwnStore().WriteString(kAddress, value);
}

void MonitorLink::RestartNetwork() {
  if (!IsNetworkClient()) SendRequest(kXpmlNetworkRestart);
}

}  // namespace ostvt
