// The text of a branch as a record of a settings file: a line that begins "<kind", the branch's
// lines without the empty ones, a line "</kind>".
#pragma once

#include "core/OString.h"
#include "core/OStringArray.h"

namespace ostvt {

class OFile;
class OStream;

class BranchRecordReader {
 public:
  // Reads the whole file, from its start, for all records of the kind. `stream` is borrowed and
  // must outlive the reader.
  BranchRecordReader(OFile& stream, const char* kind);
  // Only those that are meant for the model; see MatchesModelAttributes.
  BranchRecordReader(OFile& stream, const char* kind, const OString& modelName,
                     const OString& modelId);
  BranchRecordReader(const BranchRecordReader&) = delete;
  BranchRecordReader& operator=(const BranchRecordReader&) = delete;

  // The lines of the next record that is closed, with an empty one behind each section, as
  // ImportBranch takes them. An opening line ends a record that was not closed, which is dropped.
  // False at the end, with what `lines` then holds of no use.
  bool Next(OStringArray* lines);

 private:
  OFile& Stream;
  OString Opening;
  OString Closing;
  bool IsForAll;
  OString ModelName;
  OString ModelId;
};

// A whole record and an empty line. `attributes` is what stands between the kind and ">", with a
// blank in front; may be empty. Empty lines are left out.
void WriteBranchRecord(OStream& stream, const char* kind, const OString& attributes,
                       const OStringArray& lines);

}  // namespace ostvt
