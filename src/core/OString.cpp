// Lifetime, access, assignment and appending.
#include "core/OString.h"

#include "core/Memory.h"
#include "core/OStringForms.h"

namespace ostvt {

OString::OString(const char* text) { *this = text; }

OString::OString(const char16_t* text) { *this = text; }

OString::OString(char character) { AssignUnits(&character, character ? 1 : 0); }

OString::OString(char16_t character) { AssignUnits(&character, character ? 1 : 0); }

void OString::Destroy(OStringBody* body) {
  FreeCounted(body->Narrow);
  FreeCounted(body->Wide);
  delete body;
}

OStringBody* OString::MakeUnique() {
  if (!Body) {
    Body = new OStringBody;
  } else if (Body->RefCount > 1) {
    OStringBody* clone = Clone(Body);
    --Body->RefCount;
    Body = clone;
  }
  return Body;
}

bool OString::NeedsWide() const { return ostvt::NeedsWide(Body); }

bool OString::NeedsWide(const OString& other) const { return ostvt::NeedsWide(Body, other.Body); }

const char* OString::GetNarrow() const {
  MakeForm(Body, kForm<char>);
  return FormOf(Body, kForm<char>);
}

const char16_t* OString::GetWide() const {
  MakeForm(Body, kForm<char16_t>);
  return FormOf(Body, kForm<char16_t>);
}

char* OString::GetNarrowBuffer(int n) {
  AssignUnits<char>(nullptr, 0);
  OStringBody* body = MakeUnique();
  Reserve(body, n > 0 ? static_cast<size_t>(n) : 0, false);
  return RoomOf(body, kForm<char>);
}

char16_t* OString::GetWideBuffer(int n) {
  AssignUnits<char16_t>(nullptr, 0);
  OStringBody* body = MakeUnique();
  Reserve(body, n > 0 ? static_cast<size_t>(n) : 0, false);
  return RoomOf(body, kForm<char16_t>);
}

bool OString::HasNarrow() const { return ostvt::HasNarrow(Body); }

bool OString::HasWide() const { return ostvt::HasWide(Body); }

bool OString::IsEmpty() const { return !HasNarrow() && !HasWide(); }

int OString::Length() const {
  return static_cast<int>(NeedsWide() ? TextOf(GetWide()).size() : TextOf(GetNarrow()).size());
}

uint32_t OString::GetCodePage() const { return Body ? Body->CodePage : 0; }

void OString::SetCodePage(uint32_t codePage) {
  if (GetCodePage() == codePage) return;
  OStringBody* body = MakeUnique();
  // Bytes of a page that cannot be converted are all there is of the text: they stay.
  bool keepBytes = HasNarrow() && !MakeForm(body, kForm<char16_t>);
  if (!keepBytes) {
    FreeCounted(body->Narrow);
    body->Narrow = nullptr;
  }
  body->CodePage = codePage;
}

template <typename Unit>
void OString::AssignUnits(const Unit* text, size_t count) {
  if (!Body && count == 0) return;
  OString kept;  // `text` may lie in the buffers that are about to go
  if (Holds(Body, text)) kept = *this;
  if (!Body || Body->RefCount > 1) {
    auto* fresh = new OStringBody;
    fresh->CodePage = GetCodePage();
    Drop(Body);
    Body = fresh;
  }
  Reserve(Body, count, false);
  if (count == 0) return;
  Unit* room = RoomOf(Body, kForm<Unit>);
  CopyBytes(room, text, count * sizeof(Unit));
  room[count] = 0;
}

template void OString::AssignUnits(const char*, size_t);
template void OString::AssignUnits(const char16_t*, size_t);

OString& OString::operator=(const char* text) {
  AssignUnits(text, text ? TextOf(text).size() : 0);
  return *this;
}

OString& OString::operator=(const char16_t* text) {
  AssignUnits(text, text ? TextOf(text).size() : 0);
  return *this;
}

void OString::AssignCount(const char* text, int n) {
  AssignUnits(text, BoundedText(text, n).size());
}

void OString::AssignCount(const char16_t* text, int n) {
  AssignUnits(text, BoundedText(text, n).size());
}

// `text` must not lie in this string's buffers.
template <typename Unit>
void OString::AppendUnits(const Unit* text, size_t count) {
  OStringBody* body = MakeUnique();
  if (!MakeForm(body, kForm<Unit>) && !IsEmpty()) return;  // rather than lose the text
  size_t length = TextOf(FormOf(body, kForm<Unit>)).size();
  MarkOtherStale(body, kForm<Unit>);
  Reserve(body, length + count, true);
  Unit* room = RoomOf(body, kForm<Unit>);
  CopyBytes(room + length, text, count * sizeof(Unit));
  room[length + count] = 0;
}

OString& OString::operator+=(const OString& text) {
  if (text.IsEmpty()) return *this;
  if (IsEmpty()) return *this = text;
  OString added = text;  // keeps the text in place when it is this string's own
  if (NeedsWide(added)) {
    const char16_t* wide = added.GetWide();
    AppendUnits(wide, TextOf(wide).size());
  } else {
    const char* narrow = added.GetNarrow();
    AppendUnits(narrow, TextOf(narrow).size());
  }
  return *this;
}

OString& OString::operator+=(char character) {
  if (character == 0) {
    MakeUnique();
  } else if (!HasWide() || (GetCodePage() == kCodePageUtf8 && (character & 0x80))) {
    // Byte by byte, so that the bytes of one character may come in turn.
    AppendUnits(&character, 1);
  } else {
    // The narrow form may lack what its code page cannot say, so the wide form is the one to grow.
    OString widened;
    widened.SetCodePage(GetCodePage());
    widened.AssignUnits(&character, 1);
    const char16_t* wide = widened.GetWide();
    AppendUnits(wide, TextOf(wide).size());
  }
  return *this;
}

OString& OString::operator+=(char16_t character) {
  if (character == 0) {
    MakeUnique();
  } else {
    AppendUnits(&character, 1);
  }
  return *this;
}

OString& OString::operator+=(const char* text) { return *this += OString(text); }

OString& OString::operator+=(const char16_t* text) { return *this += OString(text); }

void OString::AppendTab() { *this += "\t"; }

void OString::AppendNewLine() { *this += "\r\n"; }

OString operator+(const OString& a, const OString& b) {
  OString sum = a;
  sum += b;
  return sum;
}

OString operator+(const OString& a, char b) {
  OString sum = a;
  sum += b;
  return sum;
}

OString operator+(const OString& a, const char* b) {
  OString sum = a;
  sum += b;
  return sum;
}

OString operator+(const char* a, const OString& b) {
  OString sum = a;
  sum += b;
  return sum;
}

OString CopyOfText(const OString& text) {
  OString copy;
  if (text.GetCodePage() != 0) copy.SetCodePage(text.GetCodePage());
  if (text.HasWide()) {
    copy = text.GetWide();
  } else {
    copy = text.GetNarrow();
  }
  return copy;
}

}  // namespace ostvt
