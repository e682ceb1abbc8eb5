#include "model/TextRecords.h"

#include "core/OFile.h"
#include "core/WhiteSpace.h"
#include "model/ModelAttributes.h"
#include "model/PrinterModel.h"

namespace ostvt {
TextRecordReader::TextRecordReader(OFile& stream, const char* kind, PrinterModel* model)
    : Stream(stream), Opening(OString("<") + kind), Closing(OString("</") + kind + ">") {
  if (model) {
    ModelName = model->GetDriverName();
    ModelId = model->GetFamilyCode();
  }
  Stream.Seek(0, platform::FileOrigin::kBegin);
}

TextRecordReader::Line TextRecordReader::Next() {
  while (Stream.ReadLine(Text)) {
    Text.Trim(kWhiteSpace);
    if (Text.StartsWith(Opening)) {
      IsInside = MatchesModelAttributes(Text, ModelName, ModelId);
      if (IsInside) return Line::kOpening;
    } else if (IsInside && Text == Closing) {
      IsInside = false;
      return Line::kClosing;
    } else if (IsInside) {
      const int equals = Text.Find('=');
      if (equals <= 0) continue;
      Key = Text.Left(equals);
      Value = Text.Mid(equals + 1);
      return Line::kValue;
    }
  }
  return Line::kEnd;
}

void WriteRecordLine(OStream& stream, const char* line) {
  stream.WriteText(line);
  stream.WriteNewLine();
}

void WriteRecordValue(OStream& stream, const char* key, const OString& value) {
  stream.WriteText(key);
  stream.WriteText("=");
  // A line end would end the value, and what is behind it be read as the record's.
  OString line = value;
  line.Replace("\r", " ");
  line.Replace("\n", " ");
  stream.WriteString(line);
  stream.WriteNewLine();
}

}  // namespace ostvt
