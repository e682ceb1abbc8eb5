// The store of the machine that a printer belongs to, as that machine sees it.
//
// For a printer of this machine that is its own store, past the shadow route. Where the environment
// names a server to be played, it is that server's: keys of its own below
// HKCU\SOFTWARE\Vantrel\Network Monitor\Servers\NAME, one for each hive, which no other path of the
// driver leads to.
#pragma once

#include "store/PrinterRegistry.h"

namespace ostvt::netmon {

class ServerRegistry : public PrinterRegistry {
 public:
  // `server` "": this machine. The printer's name may have "\\server\" in front; it need not be
  // known to a server that is played.
  ServerRegistry(const OString& printerName, const OString& server);
  platform::KeyHandle OpenKey(const OString& canonicalPath, bool create) const override;
  OString RouteKey(const OString& canonicalPath) const override;

  // The one that holds all branches of a configuration.
  platform::Hive GetHive() const {
    return IsPlayed() ? platform::Hive::kCurrentUser : GetDataHive();
  }
  bool IsPlayed() const { return !Home.IsEmpty(); }

 private:
  OString Home;  // the key of a server that is played
};

}  // namespace ostvt::netmon
