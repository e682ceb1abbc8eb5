// Writes one JSON document, indented by two blanks a level.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vtdal {

// Calls must nest properly: inside an object every value is given its key first.
class JsonWriter {
 public:
  void BeginObject();
  void EndObject();
  void BeginArray();
  void EndArray();
  void Key(std::string_view key);
  void Number(int64_t value);
  void Boolean(bool value);
  // `value` / 10 ^ `decimals`, exactly.
  void Decimal(int64_t value, int decimals);
  void String(std::string_view utf8);
  void String(std::u16string_view text);
  // The document and a line end.
  std::string Take();

 private:
  void BeforeValue();
  void End(char bracket);

  std::string Document;
  int Depth = 0;
  bool IsFirst = true;  // nothing stands in the innermost object or array yet
  bool AfterKey = false;
};

}  // namespace vtdal
