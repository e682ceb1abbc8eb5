// The driver options on their way between machines: the text of the branch "Settings:" in a record
// of its own, its keys named from the neutral "DATA:" on.
#include "core/OFile.h"
#include "model/ModelAttributes.h"
#include "model/PrinterModel.h"
#include "platform/KeyStore.h"
#include "settings/DriverOptions.h"
#include "store/BranchSections.h"
#include "store/BranchText.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kOpening[] = "<options";
constexpr char kClosing[] = "</options>";
constexpr char kSettings[] = "Settings:";
constexpr char kNeutralRoot[] = "DATA:";
constexpr char kWhiteSpace[] = " \t\r\n";

void WriteLine(OStream& stream, const OString& line) {
  stream.WriteString(line);
  stream.WriteNewLine();
}

// A list of names ends at a quote and is parted by ";": "?" stands for either.
OString AttributeOf(OString modelName) {
  modelName.Replace("'", "?");
  modelName.Replace(";", "?");
  return modelName;
}

// True if the lines may change an option that the model's figures depend on.
bool ConcernsModel(const OStringArray& lines) {
  for (int32_t i = 0; i < lines.Count; ++i) {
    const BranchLine line(lines[i]);
    BranchHeader header;
    BranchValue value;
    if (ParseBranchHeader(line.Text, &header)) {
      header.Key.MakeUpper();
      if (header.IsDeletion || header.Key.Find("/SPECIFICATIONS") >= 0) return true;
    } else if (ParseBranchValue(line.Text, &value)) {
      for (const char* name : {"Disable Copies Limit", "Unprintable Width"}) {
        if (value.Name.CompareNoCase(name) == 0) return true;
      }
    }
  }
  return false;
}

// Applies a record's lines, all or, where the store can do that, none. False if it took them not.
bool Apply(PrinterModel* model, OStringArray* lines) {
  // The import moves the root of the object that it works on.
  PrinterRegistry store(model->GetStore());
  OStringArray branches;
  branches.Add(kSettings);
  store.ExpandAliasInLines(kNeutralRoot, lines);
  KeepSectionsBelow(store, branches, lines);
  KeyStoreTransaction together(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!together.IsOpen()) return false;
  store.ImportBranch(*lines, 0);
  return together.Commit();
}

}  // namespace

bool DriverOptions::ExportText(OStream& stream, const OString& modelName) const {
  if (!Model) return false;
  PrinterRegistry store(Model->GetStore());
  OStringArray lines;
  if (!store.ExportBranch(kSettings, &lines, 0)) return false;
  store.CollapseAliasInLines(kNeutralRoot, &lines);
  WriteLine(stream, OString(kOpening) + " model='" + AttributeOf(modelName) + "'>");
  for (int32_t i = 0; i < lines.Count; ++i) {
    if (!lines[i].IsEmpty()) WriteLine(stream, lines[i]);
  }
  WriteLine(stream, kClosing);
  stream.WriteNewLine();
  return true;
}

bool DriverOptions::ImportText(OFile& stream, const OString& modelName, const OString& modelId) {
  if (!Model) return false;
  stream.Seek(0, platform::FileOrigin::kBegin);
  OStringArray lines;
  bool isInside = false;
  bool found = false;
  bool concernsModel = false;
  for (OString line; stream.ReadLine(line);) {
    line.TrimLeft(kWhiteSpace);
    line.TrimRight(kWhiteSpace);
    if (line.IsEmpty()) continue;
    if (line.Left(sizeof(kOpening) - 1) == kOpening) {
      isInside = MatchesModelAttributes(line, modelName, modelId);
      lines.SetSize(0);
    } else if (isInside && line == kClosing) {
      isInside = false;
      lines.Add(OString());
      if (Apply(Model, &lines)) {
        concernsModel = ConcernsModel(lines) || concernsModel;
        found = true;
      }
    } else if (isInside) {
      // What parts the sections is dropped when they are written.
      if (line.GetWide()[0] == u'[' && lines.Count > 0) lines.Add(OString());
      lines.Add(line);
    }
  }
  if (found) Forget();
  if (concernsModel) Model->Invalidate();
  return found;
}

}  // namespace ostvt
