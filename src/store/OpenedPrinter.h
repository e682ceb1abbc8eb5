// A printer that is open as long as this object lives.
#pragma once

#include <cstdint>

#include "platform/Spooler.h"

namespace ostvt {

class OpenedPrinter {
 public:
  // A null name opens nothing.
  OpenedPrinter(const char16_t* name, uint32_t access)
      : Printer(name ? platform::OpenPrinter(name, access) : nullptr) {}
  ~OpenedPrinter() { platform::ClosePrinter(Printer); }
  OpenedPrinter(const OpenedPrinter&) = delete;
  OpenedPrinter& operator=(const OpenedPrinter&) = delete;

  bool IsOpen() const { return Printer != nullptr; }
  platform::PrinterHandle Handle() const { return Printer; }

 private:
  platform::PrinterHandle Printer;
};

}  // namespace ostvt
