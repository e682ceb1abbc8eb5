#include "core/OStringForms.h"

#include <algorithm>

#include "core/Memory.h"
#include "core/OString.h"
#include "core/Utf8.h"
#include "platform/CodePages.h"

namespace ostvt {
namespace {

constexpr uint64_t kCapacityStep = 32;
// Bytes a character that no code page exceeds, shift sequences included.
constexpr size_t kWidestCharacter = 8;

size_t NarrowSize(const OStringBody* body) {
  return static_cast<size_t>(body->Capacity) * (body->CodePage == kCodePageUtf8 ? 4 : 2);
}

// What the buffer holds stays.
template <typename Unit>
void EnsureBuffer(Unit** buffer, size_t units) {
  bool missing = !*buffer;
  if (CountedSize(*buffer) >= units * sizeof(Unit)) return;
  *buffer = static_cast<Unit*>(ReallocCounted(*buffer, units * sizeof(Unit)));
  if (missing) **buffer = 0;
}

template <typename Unit>
Unit* CopyOf(std::basic_string_view<Unit> text, size_t units) {
  Unit* copy = nullptr;
  EnsureBuffer(&copy, std::max(units, text.size() + 1));
  CopyBytes(copy, text.data(), text.size() * sizeof(Unit));
  copy[text.size()] = 0;
  return copy;
}

// A failed conversion leaves the form absent, never half-written.
template <typename Unit>
void EndConversion(Unit* buffer, bool converted) {
  buffer[CountedSize(buffer) / sizeof(Unit) - 1] = 0;
  if (!converted) buffer[0] = 0;
}

void NarrowFromWide(OStringBody* body) {
  EnsureBuffer(&body->Narrow, NarrowSize(body));
  bool converted = true;
  if (body->CodePage == kCodePageUtf8) {
    EncodeUtf8(body->Wide, body->Narrow);
  } else {
    auto convert = [body] {
      return platform::WideToNarrow(body->CodePage, body->Wide, body->Narrow,
                                    static_cast<int>(CountedSize(body->Narrow))) > 0;
    };
    converted = convert();
    if (!converted) {
      // Perhaps a page of more than two bytes a character.
      EnsureBuffer(&body->Narrow, static_cast<size_t>(body->Capacity) * kWidestCharacter);
      converted = convert();
    }
  }
  EndConversion(body->Narrow, converted);
}

void WideFromNarrow(OStringBody* body) {
  size_t bytes = TextOf(body->Narrow).size();
  EnsureBuffer(&body->Wide, std::max(static_cast<size_t>(body->Capacity), bytes + 1));
  bool converted = true;
  if (body->CodePage == kCodePageUtf8) {
    DecodeUtf8(body->Narrow, body->Wide);
  } else {
    converted =
        platform::NarrowToWide(body->CodePage, body->Narrow, body->Wide,
                               static_cast<int>(CountedSize(body->Wide) / sizeof(char16_t))) > 0;
  }
  EndConversion(body->Wide, converted);
}

bool LiesIn(const void* buffer, const void* text) {
  auto start = reinterpret_cast<uintptr_t>(buffer);
  return buffer && reinterpret_cast<uintptr_t>(text) - start < CountedSize(buffer);
}

}  // namespace

bool IsMultiByte(uint32_t codePage) {
  if (codePage == 0) codePage = platform::AnsiCodePage();
  switch (codePage) {
    case kCodePageUtf8:
    case 932:
    case 936:
    case 949:
    case 950:
    case 1361:
      return true;
    default:
      return false;
  }
}

bool NeedsWide(const OStringBody* body) {
  return HasWide(body) || IsMultiByte(body ? body->CodePage : 0);
}

bool NeedsWide(const OStringBody* a, const OStringBody* b) {
  if (HasWide(a) || HasWide(b)) return true;
  uint32_t codePage = a ? a->CodePage : 0;
  return codePage != (b ? b->CodePage : 0) || IsMultiByte(codePage);
}

void Reserve(OStringBody* body, size_t count, bool keep) {
  if (count + 1 <= body->Capacity) {
    if (keep) return;
    if (body->Narrow) body->Narrow[0] = 0;
    if (body->Wide) body->Wide[0] = 0;
    return;
  }
  char* oldNarrow = body->Narrow;
  char16_t* oldWide = body->Wide;
  bool keepNarrow = keep && HasNarrow(body);
  bool keepWide = keep && HasWide(body);
  body->Capacity = (count + kCapacityStep) & ~(kCapacityStep - 1);
  body->Narrow = keepNarrow ? CopyOf(TextOf<char>(oldNarrow), NarrowSize(body)) : nullptr;
  body->Wide =
      keepWide ? CopyOf(TextOf<char16_t>(oldWide), static_cast<size_t>(body->Capacity)) : nullptr;
  FreeCounted(oldNarrow);
  FreeCounted(oldWide);
}

bool MakeForm(OStringBody* body, const char*) {
  if (!HasNarrow(body) && HasWide(body)) NarrowFromWide(body);
  return HasNarrow(body);
}

bool MakeForm(OStringBody* body, const char16_t*) {
  if (!HasWide(body) && HasNarrow(body)) WideFromNarrow(body);
  return HasWide(body);
}

char* RoomOf(OStringBody* body, const char*) {
  EnsureBuffer(&body->Narrow, NarrowSize(body));
  return body->Narrow;
}

char16_t* RoomOf(OStringBody* body, const char16_t*) {
  EnsureBuffer(&body->Wide, static_cast<size_t>(body->Capacity));
  return body->Wide;
}

void MarkOtherStale(OStringBody* body, const char*) {
  if (body->Wide) body->Wide[0] = 0;
}

void MarkOtherStale(OStringBody* body, const char16_t*) {
  if (body->Narrow) body->Narrow[0] = 0;
}

bool Holds(const OStringBody* body, const void* text) {
  return body && (LiesIn(body->Narrow, text) || LiesIn(body->Wide, text));
}

OStringBody* Clone(const OStringBody* body) {
  auto* clone = new OStringBody;
  clone->Capacity = body->Capacity;
  clone->CodePage = body->CodePage;
  if (body->Narrow) clone->Narrow = CopyOf(TextOf<char>(body->Narrow), NarrowSize(body));
  if (body->Wide)
    clone->Wide = CopyOf(TextOf<char16_t>(body->Wide), static_cast<size_t>(body->Capacity));
  return clone;
}

}  // namespace ostvt
