#include "tools/vtdal/Json.h"

#include "tools/vtdal/Text.h"

namespace vtdal {

void JsonWriter::BeforeValue() {
  if (AfterKey) {
    AfterKey = false;
    return;
  }
  if (Depth == 0) return;
  if (!IsFirst) Document += ',';
  Document += '\n';
  Document.append(static_cast<size_t>(Depth) * 2, ' ');
  IsFirst = false;
}

void JsonWriter::BeginObject() {
  BeforeValue();
  Document += '{';
  Depth++;
  IsFirst = true;
}

void JsonWriter::BeginArray() {
  BeforeValue();
  Document += '[';
  Depth++;
  IsFirst = true;
}

void JsonWriter::End(char bracket) {
  Depth--;
  if (!IsFirst) {
    Document += '\n';
    Document.append(static_cast<size_t>(Depth) * 2, ' ');
  }
  Document += bracket;
  IsFirst = false;
}

void JsonWriter::EndObject() { End('}'); }
void JsonWriter::EndArray() { End(']'); }

void JsonWriter::Key(std::string_view key) {
  String(key);
  Document += ": ";
  AfterKey = true;
}

void JsonWriter::Number(int64_t value) {
  BeforeValue();
  Document += std::to_string(value);
}

void JsonWriter::Boolean(bool value) {
  BeforeValue();
  Document += value ? "true" : "false";
}

void JsonWriter::Decimal(int64_t value, int decimals) {
  BeforeValue();
  Document += DecimalText(value, decimals);
}

void JsonWriter::String(std::string_view utf8) {
  BeforeValue();
  Document += '"';
  for (char c : utf8) {
    unsigned byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      Document += '\\';
      Document += c;
    } else if (byte < 0x20 || byte == 0x7F) {
      Document += Format("\\u%04x", byte);
    } else {
      Document += c;
    }
  }
  Document += '"';
}

void JsonWriter::String(std::u16string_view text) { String(ToUtf8(text)); }

std::string JsonWriter::Take() {
  std::string document = Document + '\n';
  *this = JsonWriter();
  return document;
}

}  // namespace vtdal
