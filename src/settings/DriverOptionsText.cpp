// The driver options on their way between machines: the text of the branch "Settings:" in a record
// of its own, its keys named from the neutral "DATA:" on.
#include "core/OFile.h"
#include "model/BranchRecords.h"
#include "model/PrinterModel.h"
#include "model/SpecificationOptions.h"
#include "platform/KeyStore.h"
#include "settings/DriverOptions.h"
#include "store/BranchSections.h"
#include "store/BranchText.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kRecord[] = "options";
constexpr char kSettings[] = "Settings:";
constexpr char kNeutralRoot[] = "DATA:";

// A list of names ends at a quote and is parted by ";": "?" stands for either.
OString AttributeOf(OString modelName) {
  modelName.Replace("'", "?");
  modelName.Replace(";", "?");
  return modelName;
}

// `key`, which is "Settings:" or lies below it, from there on.
OString BelowSettings(const PrinterRegistry& store, OString key) {
  OString root = kSettings;
  OString none;
  if (!store.SplitPath(&root, &none) || !store.SplitPath(&key, &none)) return {};
  root.TrimRight("/");
  key.TrimRight("/");
  return key.Mid(root.Length() + 1);
}

// True if the lines, all of them of "Settings:", may change an option that the model is made from.
bool ConcernsModel(const PrinterRegistry& store, const OStringArray& lines) {
  OString section;
  for (int32_t i = 0; i < lines.Count; ++i) {
    const BranchLine line(lines[i]);
    BranchHeader header;
    BranchValue value;
    if (ParseBranchHeader(line.Text, &header)) {
      section = BelowSettings(store, header.Key);
      if (header.IsDeletion && (section.IsEmpty() || IsModelOption(section))) return true;
    } else if (ParseBranchValue(line.Text, &value)) {
      if (IsModelOption(section.IsEmpty() ? value.Name : section + "/" + value.Name)) return true;
    }
  }
  return false;
}

// What has become of a record.
enum class Outcome { kRefused, kApplied, kAppliedToModel };

// Applies a record's lines, all or, where the store can do that, none.
Outcome Apply(PrinterModel* model, OStringArray* lines) {
  // The import moves the root of the object that it works on.
  PrinterRegistry store(model->GetStore());
  OStringArray branches;
  branches.Add(kSettings);
  store.ExpandAliasInLines(kNeutralRoot, lines);
  KeepSectionsBelow(store, branches, lines);
  const bool concernsModel = ConcernsModel(store, *lines);
  KeyStoreTransaction together(store.GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  if (!together.IsOpen()) return Outcome::kRefused;
  store.ImportBranch(*lines, 0);
  if (!together.Commit()) return Outcome::kRefused;
  return concernsModel ? Outcome::kAppliedToModel : Outcome::kApplied;
}

}  // namespace

bool DriverOptions::ExportText(OStream& stream, const OString& modelName) const {
  if (!Model) return false;
  PrinterRegistry store(Model->GetStore());
  OStringArray lines;
  const KeyStoreTransaction reading(store.GetDataHive(), KeyStoreTransaction::Purpose::kRead);
  if (!store.ExportBranch(kSettings, &lines, 0)) return false;
  store.CollapseAliasInLines(kNeutralRoot, &lines);
  WriteBranchRecord(stream, kRecord, OString(" model='") + AttributeOf(modelName) + "'", lines);
  return true;
}

bool DriverOptions::ImportText(OFile& stream, const OString& modelName, const OString& modelId) {
  if (!Model) return false;
  BranchRecordReader reader(stream, kRecord, modelName, modelId);
  bool found = false;
  bool concernsModel = false;
  for (OStringArray lines; reader.Next(&lines);) {
    const Outcome outcome = Apply(Model, &lines);
    found = found || outcome != Outcome::kRefused;
    concernsModel = concernsModel || outcome == Outcome::kAppliedToModel;
  }
  if (found) Forget();
  if (concernsModel) Model->Invalidate();
  return found;
}

}  // namespace ostvt
