#include "model/BranchRecords.h"

#include "core/OFile.h"
#include "core/WhiteSpace.h"
#include "model/ModelAttributes.h"

namespace ostvt {
namespace {

void WriteLine(OStream& stream, const OString& line) {
  stream.WriteString(line);
  stream.WriteNewLine();
}

}  // namespace

BranchRecordReader::BranchRecordReader(OFile& stream, const char* kind)
    : Stream(stream),
      Opening(OString("<") + kind),
      Closing(OString("</") + kind + ">"),
      IsForAll(true) {
  Stream.Seek(0, platform::FileOrigin::kBegin);
}

BranchRecordReader::BranchRecordReader(OFile& stream, const char* kind, const OString& modelName,
                                       const OString& modelId)
    : BranchRecordReader(stream, kind) {
  IsForAll = false;
  ModelName = modelName;
  ModelId = modelId;
}

bool BranchRecordReader::Next(OStringArray* lines) {
  bool isInside = false;
  OString line;
  // Texts keep what other pages don't have.
  line.SetCodePage(Stream.CodePage);
  while (Stream.ReadLine(line)) {
    line.Trim(kWhiteSpace);
    if (line.IsEmpty()) continue;
    if (line.StartsWith(Opening)) {
      isInside = IsForAll || MatchesModelAttributes(line, ModelName, ModelId);
      lines->SetSize(0);
    } else if (isInside && line == Closing) {
      lines->Add(OString());
      return true;
    } else if (isInside) {
      // What parts the sections is dropped when they are written.
      if (line.GetWide()[0] == u'[' && lines->Count > 0) lines->Add(OString());
      lines->Add(line);
    }
  }
  return false;
}

void WriteBranchRecord(OStream& stream, const char* kind, const OString& attributes,
                       const OStringArray& lines) {
  WriteLine(stream, OString("<") + kind + attributes + ">");
  for (int32_t i = 0; i < lines.Count; ++i) {
    if (!lines[i].IsEmpty()) WriteLine(stream, lines[i]);
  }
  WriteLine(stream, OString("</") + kind + ">");
  stream.WriteNewLine();
}

}  // namespace ostvt
