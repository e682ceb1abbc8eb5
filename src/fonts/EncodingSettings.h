// The user's order of a printer's encodings, and how a code page is chosen from them. One thread.
#pragma once

#include <cstdint>

#include "core/OStringArray.h"

namespace ostvt {

class PrinterModel;

class EncodingSettings {
 public:
  // The model's own list where the user has none. Null: an empty list.
  void Load(PrinterModel* model);
  // The model's own list; nothing is stored yet.
  void RestoreDefaults(PrinterModel* model);
  // The list is written only if it has changed since Load or Save; one that is the model's own is
  // not kept. False if the store refused anything.
  bool Save(PrinterModel* model);

  OStringArray Encodings;
  int32_t CodePageSelectLogic = 0;  // 0 or 1

 private:
  uint32_t Signature() const;

  uint32_t LoadedSignature = 0;
};

}  // namespace ostvt
