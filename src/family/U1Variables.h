// The variables of the family's printers by name, each as a query; to set one, clear `isQuery` and
// give it a value.
#pragma once

#include "family/U1Command.h"

namespace ostvt::u1 {

// Application.
inline U1Variable ApplDate() { return U1Variable::Query("appl.date"); }
inline U1Variable ApplName() { return U1Variable::Query("appl.name"); }
inline U1Variable ApplVersion() { return U1Variable::Query("appl.version"); }

// Serial port.
inline U1Variable CommBaud() { return U1Variable::Query("comm.baud"); }
inline U1Variable CommParity() { return U1Variable::Query("comm.parity"); }
inline U1Variable CommStopBits() { return U1Variable::Query("comm.stop_bits"); }

// Device.
inline U1Variable DeviceFriendlyName() { return U1Variable::Query("device.friendly_name"); }

// Memory.
inline U1Variable MemoryFlashSize() { return U1Variable::Query("memory.flash_size"); }
inline U1Variable MemoryFlashFree() { return U1Variable::Query("memory.flash_free"); }
inline U1Variable MemoryRamSize() { return U1Variable::Query("memory.ram_size"); }
inline U1Variable MemoryRamFree() { return U1Variable::Query("memory.ram_free"); }

// Network.
inline U1Variable IpAddr() { return U1Variable::Query("ip.addr"); }
inline U1Variable CardMacAddr() { return U1Variable::Query("card.mac_addr"); }
inline U1Variable IpGateway() { return U1Variable::Query("ip.gateway"); }
inline U1Variable IpNetmask() { return U1Variable::Query("ip.netmask"); }
inline U1Variable IpPort() { return U1Variable::Query("ip.port"); }
inline U1Variable IpRemote() { return U1Variable::Query("ip.remote"); }
inline U1Variable IpDhcpEnable() { return U1Variable::Query("ip.dhcp.enable"); }
inline U1Variable IpFtpEnable() { return U1Variable::Query("ip.ftp.enable"); }
inline U1Variable IpHttpEnable() { return U1Variable::Query("ip.http.enable"); }
inline U1Variable IpLpdEnable() { return U1Variable::Query("ip.lpd.enable"); }
inline U1Variable IpTcpEnable() { return U1Variable::Query("ip.tcp.enable"); }
inline U1Variable IpTelnetEnable() { return U1Variable::Query("ip.telnet.enable"); }
inline U1Variable IpUdpEnable() { return U1Variable::Query("ip.udp.enable"); }

// Power.
inline U1Variable PowerPercentFull() { return U1Variable::Query("power.percent_full"); }
inline U1Variable PowerVoltage() { return U1Variable::Query("power.voltage"); }
inline U1Variable PowerStatus() { return U1Variable::Query("power.status"); }
inline U1Variable PowerLowBatteryShutdown() {
  return U1Variable::Query("power.low_battery_shutdown");
}
inline U1Variable PowerLowBatteryWarning() {
  return U1Variable::Query("power.low_battery_warning");
}
inline U1Variable PowerDtrPowerOff() { return U1Variable::Query("power.dtr_power_off"); }
inline U1Variable PowerInactivityTimeout() { return U1Variable::Query("power.inactivity_timeout"); }
inline U1Variable PowerLowBatteryTimeout() {
  return U1Variable::Query("power.low_battery_timeout");
}

}  // namespace ostvt::u1
