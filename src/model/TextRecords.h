// The records of one kind in a settings file: from a line that begins "<kind" to the line
// "</kind>", with lines "key=value" between. What else the file holds is passed over.
#pragma once

#include "core/OString.h"

namespace ostvt {

class OFile;
class OStream;
class PrinterModel;

class TextRecordReader {
 public:
  enum class Line { kOpening, kValue, kClosing, kEnd };

  // Reads the whole file, from its start, for the records that are meant for `model`. A null model
  // takes those that are meant for all. `stream` is borrowed and must outlive the reader.
  TextRecordReader(OFile& stream, const char* kind, PrinterModel* model);
  TextRecordReader(const TextRecordReader&) = delete;
  TextRecordReader& operator=(const TextRecordReader&) = delete;

  // The next line that counts, trimmed. An opening one ends a record that was not closed.
  Line Next();
  // Behind an opening line: the record isn't wanted, and its lines don't count.
  void Skip() { IsInside = false; }

  // These hold until the next Next.
  OString Text;  // the line
  // Of a line with a value; split at the first "=", which isn't the line's first character.
  OString Key;
  OString Value;

 private:
  OFile& Stream;
  OString Opening;
  OString Closing;
  OString ModelName;
  OString ModelId;
  bool IsInside = false;
};

// "line" and "key=value", each with its line end. Line ends in a value are written as blanks.
void WriteRecordLine(OStream& stream, const char* line);
void WriteRecordValue(OStream& stream, const char* key, const OString& value);

}  // namespace ostvt
