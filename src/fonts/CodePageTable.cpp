#include "fonts/CodePageTable.h"

#include "fonts/FontFields.h"
#include "fonts/ScriptCodePages.h"
#include "platform/CodePages.h"

namespace ostvt {
namespace {

constexpr int32_t kFirstPrintable = 32;
constexpr int32_t kFirstHigh = platform::kFirstHighByte;

void FillIdentity(WordArray* table, int32_t from) {
  for (int32_t code = from; code < kEncodingEntries; ++code) {
    (*table)[code] = static_cast<uint16_t>(code);
  }
}

void FillScript(const ScriptCodePage& script, WordArray* table) {
  int32_t code = kFirstHigh;
  for (uint32_t letter = script.First; letter <= script.Last && code < kEncodingEntries; ++letter) {
    (*table)[code++] = static_cast<uint16_t>(letter);
  }
}

}  // namespace

void BuildCodePageTable(uint32_t page, WordArray* table) {
  table->SetSize(0);
  table->SetSize(kEncodingEntries);
  for (int32_t code = kFirstPrintable; code < kFirstHigh; ++code) {
    (*table)[code] = static_cast<uint16_t>(code);
  }
  if (const ScriptCodePage* script = FindScriptCodePage(page)) return FillScript(*script, table);
  if (page == kSymbolCodePage) FillIdentity(table, kFirstHigh);
  char16_t units[platform::kHighBytes];
  if (!platform::HighBytesToWide(page, units)) return;
  for (int32_t i = 0; i < platform::kHighBytes; ++i) {
    (*table)[kFirstHigh + i] = units[i];
  }
}

}  // namespace ostvt
