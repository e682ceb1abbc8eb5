#include "comm/NetworkSettings.h"

#include "comm/MonitorLink.h"
#include "core/OFile.h"
#include "core/OStringArray.h"
#include "platform/KeyStore.h"
#include "store/BranchSections.h"
#include "store/PrinterRegistry.h"

namespace ostvt {
namespace {

using platform::KeyStoreTransaction;

constexpr char kBranch[] = "NETWORK:";
constexpr char kOpening[] = "<network";
constexpr char kWholeOpening[] = "<network>";
constexpr char kClosing[] = "</network>";
constexpr char kWhiteSpace[] = " \t\r\n";

constexpr int32_t kLeastLines = 3;  // of a branch with a value: its header, the value, the end

void WriteLine(OStream& stream, const OString& line) {
  stream.WriteString(line);
  stream.WriteNewLine();
}

bool StartsWith(const OString& text, const OString& head) {
  return text.Left(head.Length()) == head;
}

// All at once: whoever dies in the middle leaves the old settings, and others never see none.
void ReplaceSettings(PrinterRegistry* store, OStringArray* lines) {
  OStringArray branches;
  branches.Add(kBranch);
  store->ExpandAliasInLines(kBranch, lines);
  KeepSectionsBelow(*store, branches, lines);
  KeyStoreTransaction together(store->GetDataHive(), KeyStoreTransaction::Purpose::kWrite);
  store->Delete(kBranch, true);
  store->ImportBranch(*lines, 0);
  together.Commit();
}

}  // namespace

bool ExportNetworkSettings(const MonitorLink& link, OStream& stream) {
  PrinterRegistry store(link.PrinterName);
  store.SetShadowed(false);
  OStringArray lines;
  if (!store.ExportBranch(kBranch, &lines, 0) || lines.Count < kLeastLines) return false;
  store.CollapseAliasInLines(kBranch, &lines);
  WriteLine(stream, kWholeOpening);
  for (int32_t i = 0; i < lines.Count; ++i) {
    if (!lines[i].IsEmpty()) WriteLine(stream, lines[i]);
  }
  WriteLine(stream, kClosing);
  stream.WriteNewLine();
  return true;
}

bool ImportNetworkSettings(MonitorLink& link, OFile& file) {
  PrinterRegistry store(link.PrinterName);
  store.SetShadowed(false);
  const int32_t portBefore = link.GetTcpPort();
  OStringArray lines;
  bool isInside = false;
  int32_t records = 0;
  file.Seek(0, platform::FileOrigin::kBegin);
  OString line;
  line.SetCodePage(file.CodePage);
  while (file.ReadLine(line)) {
    line.TrimLeft(kWhiteSpace);
    line.TrimRight(kWhiteSpace);
    if (line.IsEmpty()) continue;
    if (!isInside) {
      isInside = StartsWith(line, kOpening);
      continue;
    }
    if (line == kClosing) {
      lines.Add(OString());
      ReplaceSettings(&store, &lines);
      lines.SetSize(0);
      isInside = false;
      ++records;
      continue;
    }
    if (line.GetWide()[0] == u'[' && lines.Count > 0) lines.Add(OString());
    lines.Add(line);
  }
  if (records > 0 && link.GetTcpPort() != portBefore) link.RestartNetwork();
  return records > 0;
}

}  // namespace ostvt
