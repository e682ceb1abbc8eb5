// The store as one printer sees it: aliases and macros for where its data lives, and the shadow
// route, which moves the keys of a remote printer below the driver's own key.
//
// Macro values and the shadow setting are taken once, when the object is made. A printer that
// cannot be looked up leaves them empty; nothing fails. One thread at a time.
#pragma once

#include "core/OString.h"
#include "core/OStringArray.h"
#include "store/ORegistry.h"

namespace ostvt {

class PrinterId;

class PrinterRegistry : public ORegistry {
 public:
  explicit PrinterRegistry(const OString& printerName);
  // The same for a printer that is looked up already, which spares asking the spooler again.
  explicit PrinterRegistry(PrinterId& printerId);
  // Takes everything but ModelName: in a copy "[MODEL]" expands to nothing.
  PrinterRegistry(const PrinterRegistry& other);
  PrinterRegistry& operator=(const PrinterRegistry& other) = delete;
  ~PrinterRegistry() override;
  platform::KeyHandle OpenKey(const OString& canonicalPath, bool create) const override;
  OString RouteKey(const OString& canonicalPath) const override;

  bool IsBidiEnabled() const;
  // The hive that the paths below "DATA:" and "LOCAL:" lead to.
  platform::Hive GetDataHive() const;
  // Turns the shadow route on or off for this object.
  void SetShadowed(bool shadowed) { IsShadowed = shadowed; }
  // The branches that together hold the printer's configuration, each as an alias path of this
  // class.
  void ListBranchRoots(OStringArray* array) const;
  // In section headers ("[KEY...", "[-KEY..."): `alias` ("DATA:") to its full display path, and
  // back.
  void ExpandAliasInLines(const OString& alias, OStringArray* lines) const;
  void CollapseAliasInLines(const OString& alias, OStringArray* lines) const;

  OString PrinterFullName;  // with "\\server\" in front where the printer is remote
  OString PrinterName;      // "[PRINTER]"
  OString ModelName;        // "[MODEL]": the printer's driver
  OString PortName;         // "[PORT]"
  OString ServerName;       // "[SERVER]"
  OString OemCode;          // "[OEM]": two letters
  bool IsRemote = false;
  bool IsShadowed = false;

 protected:
  void ResolveUnits(std::u16string* path) const override;

 private:
  void TakeFrom(PrinterId& printerId);
};

}  // namespace ostvt
