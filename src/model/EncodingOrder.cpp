#include "model/EncodingOrder.h"

#include "model/DefinitionFile.h"
#include "model/EncodingName.h"

namespace ostvt {
namespace {

constexpr uint16_t kUsPage = 437;
constexpr uint16_t kWesternPage = 850;

bool IsEastAsianPage(uint32_t page) {
  return page == 932 || page == 936 || page == 949 || page == 950;
}

bool IsEuropeanPage(uint32_t page) { return page == 874 || (page >= 1250 && page <= 1258); }

// Puts encodings that come ahead of all others at their places.
class Ordering {
 public:
  Ordering(const SystemCodePages& system, OStringArray* ordered)
      : System(system),
        Ordered(ordered),
        Utf8At(ordered->Count),
        AnsiAt(ordered->Count),
        OemAt(ordered->Count) {}

  void Take(const OString& name) {
    if (name.CompareNoCase("UTF-8") == 0) {
      Ordered->InsertAt(Utf8At, name);
      ++AnsiAt;
      ++OemAt;
    } else if (name.CompareNoCase("UTF-16") == 0) {
      Utf16 = name;
    } else {
      TakePage(name, static_cast<uint16_t>(name.ToInt()));
    }
  }

  void Finish() {
    Ordered->Append(European);
    if (!Utf16.IsEmpty()) Ordered->Add(Utf16);
    Ordered->Append(EastAsian);
    Ordered->Append(Other);
    Ordered->Append(Words);
  }

 private:
  void TakePage(const OString& name, uint16_t page) {
    // The page 850 is a better 437.
    const bool isWesternForUs = System.Oem == kUsPage && page == kWesternPage;
    if (page == System.Ansi) {
      Ordered->InsertAt(AnsiAt, name);
      ++OemAt;
    } else if (page == System.Oem || isWesternForUs) {
      Ordered->InsertAt(OemAt, name);
      if (isWesternForUs) ++OemAt;
    } else if (page == 0) {
      Words.Add(name);
    } else if (IsEastAsianPage(page)) {
      EastAsian.Add(name);
    } else if (IsEuropeanPage(page)) {
      European.Add(name);
    } else {
      Other.Add(name);
    }
  }

  const SystemCodePages System;
  OStringArray* const Ordered;
  int32_t Utf8At;
  int32_t AnsiAt;
  int32_t OemAt;
  OString Utf16;  // the last one
  OStringArray European;
  OStringArray EastAsian;
  OStringArray Other;
  OStringArray Words;
};

}  // namespace

void ListAnsiEncodings(const OStringArray& raw, uint32_t ansiPage, OStringArray* preferred) {
  preferred->SetSize(0);
  for (int32_t i = 0; i < raw.Count; ++i) {
    const EncodingName parsed = ParseEncodingName(raw[i]);
    if (parsed.Kind != EncodingKind::kCodePage) continue;
    if (!IsEuropeanPage(parsed.Number) && !IsEastAsianPage(parsed.Number)) continue;
    preferred->InsertAt(parsed.Number == ansiPage ? 0 : preferred->Count, raw[i]);
  }
}

void OrderEncodings(const OStringArray& raw, const OStringArray& preferred,
                    const SystemCodePages& system, OStringArray* ordered) {
  ordered->Copy(preferred);
  Ordering ordering(system, ordered);
  for (int32_t i = 0; i < raw.Count; ++i) {
    if (!DefinitionFile::Contains(preferred, raw[i])) ordering.Take(raw[i]);
  }
  ordering.Finish();
}

}  // namespace ostvt
