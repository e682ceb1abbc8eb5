#include "companions/netmon/ServerSettings.h"

#include "companions/netmon/ServerRegistry.h"
#include "companions/netmon/Text.h"
#include "core/Buffer.h"
#include "core/HexDigit.h"
#include "core/OStringArray.h"
#include "platform/KeyStore.h"
#include "store/SharedBranches.h"

namespace ostvt::netmon {
namespace {

constexpr char kDataRoot[] = "DATA:";

// The checksum that the client gave for the branch; false when it doesn't list it.
bool FindChecksum(std::string_view known, const std::string& branch, uint32_t* checksum) {
  const std::string entry = "\"" + branch + "\",";
  size_t at = known.find(entry);
  // At the list's head or behind another entry.
  while (at != std::string_view::npos && at != 0 && known[at - 1] != ';') {
    at = known.find(entry, at + 1);
  }
  if (at == std::string_view::npos) return false;
  const std::string_view digits = known.substr(at + entry.size(), 8);
  if (digits.size() < 8) return false;
  *checksum = 0;
  for (const char digit : digits) {
    const int value = HexDigit(static_cast<unsigned char>(digit));
    if (value < 0) return false;
    *checksum = *checksum << 4 | static_cast<uint32_t>(value);
  }
  return true;
}

}  // namespace

std::string ChangedSettings(ServerRegistry* server, std::string_view known) {
  OStringArray branches;
  server->ListBranchRoots(&branches);
  OStringArray lines;
  for (int32_t i = 0; i < branches.Count; ++i) {
    OStringArray branch;
    if (!server->ExportBranch(branches[i], &branch, kExportChecksum)) continue;
    const uint32_t checksum = server->ReadDword(branches[i] + "/" + kBranchChecksum, 0);
    uint32_t clients = 0;
    if (FindChecksum(known, branches[i].GetNarrow(), &clients) && clients == checksum) continue;
    lines.Append(branch);
  }
  server->CollapseAliasInLines(kDataRoot, &lines);
  Buffer text;
  lines.JoinBlock(&text, BlockMode::kLines, kCodePageUtf8);
  return std::string(reinterpret_cast<const char*>(text.Data), text.Size);
}

bool UpdateSettings(ServerRegistry* server, const std::string& text) {
  OStringArray lines;
  lines.SplitBlock(text.data(), static_cast<uint32_t>(text.size()), BlockMode::kLines,
                   kCodePageUtf8);
  server->ExpandAliasInLines(kDataRoot, &lines);
  KeepSharedSections(*server, &lines);
  // A client that reads meanwhile gets the old settings or the new ones.
  platform::KeyStoreTransaction together(server->GetHive(),
                                         platform::KeyStoreTransaction::Purpose::kWrite);
  if (!together.IsOpen()) return false;
  server->ImportBranch(lines, kImportEmptying);
  return together.Commit();
}

}  // namespace ostvt::netmon
