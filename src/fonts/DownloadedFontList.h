// The downloaded fonts of one printer, in order.
//
// Owns its nodes: a DownloadedFont* lives until it is removed or the next Load. One thread.
#pragma once

#include <cstdint>

#include "core/OString.h"
#include "core/ObjectList.h"
#include "fonts/DownloadedFont.h"

namespace ostvt {

class OFile;
class OStream;
class PrinterModel;

class DownloadedFontList : public ObjectList {
 public:
  // Empties the list and reads what the store has. A font without its 348 bytes of FontInfo is
  // dropped. Null: stays empty.
  void Load(PrinterModel* model);
  // Always writes; values of fonts behind the last one stay, unread. False if the store took it
  // not, and without a write for more fonts than it holds, 9999.
  bool Save(PrinterModel* model) const;
  // All fonts as text; how many.
  int32_t WriteText(OStream& stream) const;
  // The records of the whole file that are meant for `model`; how many were taken in. One that is
  // the same font as one here overwrites it.
  int32_t ReadText(OFile& stream, PrinterModel* model);
  // Changes with every field of every font.
  uint32_t Signature() const;

  // The list's own from here on. False if `node` is null.
  bool Append(DownloadedFont* node) { return AddTail(node); }
  void Clear() { ClearAll(); }
  DownloadedFont* GetFirst() const { return static_cast<DownloadedFont*>(Head); }
  int32_t GetCount() const;
  DownloadedFont* FindSame(const DownloadedFont& font) const;  // null if there is none
  bool FileIdExists(const OString& text) const;                // exact
  // Exact, against the part before the first "." of each file's name.
  bool FileNameExists(const OString& text) const;

  // The model's and the user's, as Load found them.
  uint16_t VerticalResolution = 0;  // dots per inch
  bool RotatesTextFreely = false;
  bool Enabled = true;
  bool AllowsMagnification = true;
  bool AlwaysUsesClosest = true;
};

}  // namespace ostvt
