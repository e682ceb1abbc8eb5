// Stored forms of data fonts, whatever their sizes say: what is read writes a blob of its kind's
// size, which is read as the same font. The same bytes as values of text records.
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/PackedText.h"
#include "fonts/DataFontTable.h"
#include "fonts/DownloadedFontList.h"
#include "fuzz/FuzzModel.h"
#include "fuzz/MemoryFile.h"

namespace {

using namespace ostvt;
using fuzz::MemoryFile;
using fuzz::TheModel;

void ReadBlob(const uint8_t* data, uint32_t size) {
  const std::unique_ptr<DataFont> font = NewDataFontFor(data, size);
  if (!font) {
    uint32_t kind = 0;
    if (size >= 74) memcpy(&kind, data + 44, sizeof(kind));
    if (kind >= 1 && kind <= 3) abort();
    return;
  }
  if (!font->SetBlob(data, size)) abort();
  Buffer blob;
  font->GetBlob(&blob);
  if (blob.Size != (font->IsRfid() ? 228u : 168u)) abort();
  const std::unique_ptr<DataFont> again = font->Clone();
  if (!again->SetBlob(blob.Data, blob.Size)) abort();
  Buffer second;
  again->GetBlob(&second);
  if (second.Size != blob.Size || memcmp(second.Data, blob.Data, blob.Size) != 0) abort();
}

void ReadTexts(const uint8_t* data, uint32_t size) {
  const std::string value = PackText(data, size).GetNarrow();
  MemoryFile file("<font type='Bar Code'>\nName=A\nData=" + value +
                  "\n</font>\n<font type='RFID'>\nName=B\nData=" + value +
                  "\n</font>\n<font type='Downloaded'>\nTextMetric=" + value +
                  "\nEncodingTable=" + value + "\n</font>\n");
  DataFontTable fonts;
  // Unless it is a bar code that the model can't print, a font stays.
  if (fonts.ReadBarCodeText(file, TheModel()) == 0 && size != 168) abort();
  fonts.ReadRfidText(file, TheModel());
  DownloadedFontList list;
  if (list.ReadText(file, TheModel()) != 1) abort();
  const DownloadedFont& font = *list.GetFirst();
  if (font.EncodingTable.Count != 0 && font.EncodingTable.Count != 256) abort();
  if (size != 60 && font.Weight != 400) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ReadBlob(data, static_cast<uint32_t>(size));
  if (size > 0) ReadTexts(data, static_cast<uint32_t>(size));
  return 0;
}
