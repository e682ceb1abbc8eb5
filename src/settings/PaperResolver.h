// What a device mode needs to know of papers, without knowing where they are kept.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

class DevMode;

// Lengths in thousandths of a millimetre, margins included.
struct PaperForm {
  int16_t Id = 0;  // for dmPaperSize
  int32_t PageWidth = 0;
  int32_t PageHeight = 0;
  bool IsUserForm = false;  // its size follows the device mode
  OString Name;
};

// Says which paper a device mode means.
class PaperResolver {
 public:
  virtual ~PaperResolver() = default;
  // False: there is none, and the paper fields of the device mode stay as they are.
  virtual bool ResolvePaper(const DevMode& devMode, PaperForm* paper) = 0;
};

}  // namespace ostvt
