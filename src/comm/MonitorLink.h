// One printer's way to the port monitor, and what the user's own settings say about its use.
//
// A value: cheap to make, holds no handle; the monitor's file is loaded for each call. Whoever
// calls one of these may wait as long as the monitor lets it, so capability calls never do. A call
// that fails is told by LastResult and LastError alone. One thread.
#pragma once

#include <cstdint>

#include "comm/MonitorFile.h"
#include "core/Buffer.h"
#include "core/OString.h"

namespace ostvt {

class PrinterId;
class PrinterRegistry;

class MonitorLink {
 public:
  MonitorLink() = default;
  explicit MonitorLink(const OString& printerName) : PrinterName(printerName) {}

  // The monitor's result: non-zero is success; 0 where it can't be reached too.
  int32_t SendRequest(const OString& request);
  // The same with the answer, which `response` holds alone; empty when there is none. One of more
  // than 16 MiB, or of no possible size, is not fetched: see IsAnswerRefused.
  int32_t SendRequestWithResponse(const OString& request, Buffer* response);

  // Asks the monitor how the printer stands. True without asking for a printer of this machine
  // without the bidirectional attribute: all is then 0.
  bool Refresh();
  // Takes the monitor's answer to that. False, with all as it was, when it is none.
  bool ReadState(const Buffer& answer);
  // Asks only if nobody did yet or the printer has moved since. A failure is not asked again.
  bool EnsureFresh();
  bool IsMonitoringSupported();
  bool IsBidirectional();
  OString GetPortType();  // "LPT", "USB" and others; empty when unknown

  // The printer is another machine's, and this one a client of it.
  bool IsNetworkClient() const;
  // A client is to use the server's state: the shadow route is on.
  bool IsServerCommunicationOn() const;
  // Asks the monitor. True also where an answer can't be understood.
  bool IsAnswering();
  // The monitor doesn't answer, although the settings want it and somebody depends on it: a client
  // of another machine's printer, or clients of a shared one. Asks it.
  bool IsMonitorMissed();

  // The settings of the printer's server, kept on this machine past the shadow route. The first
  // three tell the monitor to restart its network service, unless this machine is a client.
  bool GetNetworkCommunication() const;
  void SetNetworkCommunication(bool value);
  bool GetTcpEnabled() const;
  void SetTcpEnabled(bool value);
  int32_t GetTcpPort() const;
  void SetTcpPort(int32_t value);
  int32_t GetConnectionTimeout() const;  // milliseconds
  void SetConnectionTimeout(int32_t value);
  int32_t GetConnectionRetries() const;
  void SetConnectionRetries(int32_t value);
  bool GetServerAddressOverride() const;
  void SetServerAddressOverride(bool value);
  OString GetServerAddress() const;
  void SetServerAddress(const OString& value);

  // Nothing on a client.
  void RestartNetwork();

  // Dotted decimal text; empty when the name can't be resolved.
  OString ResolveHostName(const OString& hostName);

  // What starts the monitor's window for the printer: `verb` is "open" or "close".
  OString GetStatusMonitorCommand(const OString& verb) const;

  // While blocked, nothing is exchanged with the server for this user and printer. Kept in this
  // machine's own store, past the shadow route.
  void SetShadowBlocked(bool value);

  // A client of another machine's printer keeps an image of that machine's settings, the shadow,
  // and uses it in place of its own. Pulling brings what changed there, pushing sends what changed
  // here since it was last read. Both do nothing, which is true, where the shadow route is off,
  // while blocked, with network communication off, and where sharing isn't in force; false is a
  // failure, and the shadow is then as it was.
  bool PullShadow();
  bool PushShadow();
  // This user takes part and the server shares. May ask the monitor.
  bool IsSharingInForce();
  // For a client: the server shares. On the server: the printer can be asked at all.
  bool IsSharingPossible();
  // On a client: whether this user takes part. On the server: whether it shares.
  void SetConfigurationSharing(bool value);

  // As the spooler has it, with "\\server\" in front where the printer is remote.
  OString PrinterName;
  // What Refresh found.
  bool StateKnown = false;
  int32_t ConfigurationSharing = 0;  // 1: the server shares its configuration
  int32_t MonitoringSupported = 0;
  int32_t Bidirectional = 0;
  OString PortType;
  OString ServerName;
  bool LocalBidiEnabled = false;  // the printer's attribute when the monitor was last asked
  int32_t LastResult = 0;         // of SendXPMLRequest; 0 where it could not be called
  uint32_t LastError = 0;         // the system's error number behind it
  bool IsAnswerRefused = false;   // the last SendRequestWithResponse left an answer unfetched
  // The printer's store as its owner took it, whatever changes since; borrowed. Null: the printer
  // is looked up for each call.
  const PrinterRegistry* Known = nullptr;
  // How the monitor is reached; borrowed. Null: the file beside the module.
  MonitorLoader* Loader = nullptr;

 private:
  PrinterRegistry Store() const;
  PrinterRegistry OwnStore() const;  // past the shadow route
  // Of a printer of this machine: the spooler's own word.
  bool IsLocalBidiOn(PrinterId& printer) const;
  bool IsExchangeOff(const PrinterRegistry& store) const;
};

}  // namespace ostvt
