// Text records of presets from outside: what is read has whole blocks, in order, and is read the
// same from its own export; a default device mode leaves a session's block whole.
#include <cstdlib>
#include <string>

#include "fuzz/FuzzModel.h"
#include "fuzz/MemoryFile.h"
#include "settings/DriverSession.h"

namespace {

using namespace ostvt;
using fuzz::MemoryFile;
using fuzz::TheModel;

std::string Export(const PresetList& list) {
  MemoryFile file;
  list.ExportText(file);
  file.Flush();
  return file.Bytes;
}

int32_t Import(const std::string& text, PresetList* list) {
  MemoryFile file(text);
  return list->ImportText(file, TheModel());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  PresetList list;
  if (Import(text, &list) != list.GetCount()) abort();
  for (const PresetItem* item = list.GetFirst(); item; item = item->GetNext()) {
    if (item->Flags != 0 || item->Block.GetSize() != kDevModeSize) abort();
    if (item->Block.GetPublicSize() != kPublicSize || !item->Block.GetRecord().Record) abort();
    if (item->Block.Get(&PublicDevMode::dmScale) != 100) abort();
  }

  const std::string first = Export(list);
  PresetList again;
  if (Import(first, &again) != list.GetCount()) abort();
  const std::string second = Export(again);
  PresetList last;
  Import(second, &last);
  if (Export(last) != second) abort();

  DriverSession session;
  session.NoShadowPush = true;
  session.DevModeBuffer.AllocateDefaults(TheModel());
  MemoryFile file(text);
  session.ImportDefaultDevMode(file, TheModel());
  if (session.DevModeBuffer.GetSize() != kDevModeSize) abort();
  if (!session.DevModeBuffer.GetRecord().Record) abort();
  return 0;
}
