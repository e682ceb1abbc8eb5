#include "fonts/FontText.h"

#include "core/OFile.h"
#include "model/ModelAttributes.h"
#include "model/TextRecords.h"

namespace ostvt {

void FontTextWriter::Open(const char* kind) {
  WriteRecordLine(Stream, (OString("<font type='") + kind + "'>").GetNarrow());
}

void FontTextWriter::Write(const char* key, const OString& value) {
  WriteRecordValue(Stream, key, value);
}

void FontTextWriter::WriteUnlessEmpty(const char* key, const OString& value) {
  if (!value.IsEmpty()) Write(key, value);
}

void FontTextWriter::Close() {
  WriteRecordLine(Stream, "</font>");
  Stream.WriteNewLine();
}

int32_t ReadFontText(OFile& stream, PrinterModel* model, const char* kind, FontTextSink* sink) {
  using Line = TextRecordReader::Line;
  TextRecordReader reader(stream, "font", model);
  int32_t count = 0;
  for (Line line = reader.Next(); line != Line::kEnd; line = reader.Next()) {
    if (line == Line::kOpening) {
      const bool isMeant = GetAttribute(reader.Text, "type") == kind;
      isMeant ? sink->Open() : reader.Skip();
    } else if (line == Line::kValue) {
      sink->TakeValue(reader.Key, reader.Value);
    } else if (sink->Close()) {
      ++count;
    }
  }
  return count;
}

}  // namespace ostvt
