// Font tables under test: a printer whose model has some bar codes and, if a test wants it, tags.
#pragma once

#include <string>
#include <vector>

#include "core/Base64.h"
#include "core/LZ77.h"
#include "core/OFile.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {

class FontTest : public ModelFixture {
 protected:
  // 203 x 300 dots per inch; bar codes Code39, Code128, PDF417 and QRCode.
  void SetUp() override {
    ModelFixture::SetUp();
    DefineChain("Resolution=203x300\nBarCode=BarCode:All\nDrawing=Drawing:All\n");
    Define("BarCode.d",
           "[All]\nCode39=Yes\nCode128=Yes\nPDF417=Yes\nQRCode=Yes\n"
           "QRCode.Model=1,2\nQRCode.Mask=Manual,Auto\n");
    Define("Drawing.d", "[All]\nText.Rotation=Any\n");
  }
  // Made on first use.
  PrinterModel* Model() { return Models.empty() ? &InstallAndOpen() : Models.back().get(); }
  PrinterRegistry& Store() { return Model()->GetStore(); }
  // The model writes tags with these bits from now on.
  void GiveTags(uint32_t bits) {
    auto& tags = const_cast<RfidCapabilities&>(*Model()->GetRfidCapabilities());
    tags.DefaultTagBit = bits & (~bits + 1);
    tags.Records[0].Present = 1;
    tags.Records[0].TagBits = bits;
  }

  // A text file, opened for reading.
  OFile& File(const std::string& bytes, uint32_t codePage = 0) {
    Input.Open(Texts.Put("in.sds", bytes).c_str(), kFileShareAll);
    Input.CodePage = codePage;
    return Input;
  }
  // What `write` writes; it gets the stream.
  template <typename Writer>
  std::string Written(Writer write, uint32_t codePage = 0) {
    {
      OFile file(Texts.Path("out.sds").c_str(), kFileWrite | kFileCreate);
      file.CodePage = codePage;
      Count = write(file);
    }
    return Texts.Get("out.sds");
  }

  static std::string Block(const std::string& type, const std::string& lines,
                           const std::string& attributes = "") {
    return "<font type='" + type + "'" + attributes + ">\r\n" + lines + "</font>\r\n\r\n";
  }
  // The value of a line "KEY=..." of a text.
  static std::string ValueOf(const std::string& text, const std::string& key) {
    const size_t at = text.find("\n" + key + "=");
    if (at == std::string::npos) return "(no " + key + ")";
    const size_t first = at + key.size() + 2;
    return text.substr(first, text.find("\r\n", first) - first);
  }
  // Without the lines "KEY=...": packed data differ with the library that packs them.
  static std::string Without(std::string text, const std::string& key) {
    for (size_t at; (at = text.find(key + "=")) != std::string::npos;) {
      text.erase(at, text.find('\n', at) + 1 - at);
    }
    return text;
  }
  // By the codecs alone.
  static std::vector<uint8_t> Unpacked(const std::string& line) {
    std::vector<uint8_t> frame(line.size() + 3);
    uint32_t size = 0;
    Base64::Decode(line.c_str(), static_cast<uint32_t>(line.size()), frame.data(), &size);
    std::vector<uint8_t> plain(65536);
    uint32_t length = 65536;
    if (!LZ77::Decode(frame.data(), size, plain.data(), &length)) length = 0;
    plain.resize(length);
    return plain;
  }

  TempDirectory Texts;
  OFile Input;
  int32_t Count = -1;  // what the last writer gave
};

// A block under construction.
inline void PutNumber(std::vector<uint8_t>* bytes, size_t offset, size_t width, uint32_t value) {
  if (bytes->size() < offset + width) bytes->resize(offset + width);
  for (size_t i = 0; i < width; ++i) (*bytes)[offset + i] = static_cast<uint8_t>(value >> 8 * i);
}

inline std::vector<uint16_t> Entries(const WordArray& table) {
  return {table.Data, table.Data + table.Count};
}

// Python: base64(b"ZLIB" + sizes + zlib.compress(bytes)) of 256 words, the entry's number but
// 0x20AC at 128; of 1, 2, 3; of 300 times 7.
inline constexpr char kPackedTable[] =
    "WkxJQgACAABjAQAAeJwFwQOQEAAAALBl2/5s27Zt27Yu27Zt27Zt23YbgQQWRFDBBBdCSKGEFkZY4YQXQUSRRBZFVNFE"
    "F0NMscQWR1zxxJdAgIQSSSyJpJJJLoWUUkktjbTSSS+DjDLJLIussskuh5xyyS2PvPLJr4CCCimsiKKKKa6EkkoprYyy"
    "yimvgooqqayKqqqproaaaqmtjrrqqa+BhhpprImmmmmuhZZaaa2Nttppr4OOOumsi6666a6HnnrprY+++ulvdcAAAw0y"
    "2BBDDTPcCCONMtoYY40z3gQTTTLZFFNNM90MM80y2xxzzTPfAgststgSSy2z3AorrbLaGmuts94GG22y2RZbbbPdDjvt"
    "stsee+2z3wEHHXLYEUcdc9wJJ51y2hlnnXPeBRddctkVV11z3Q033XLbHXfdc98DDz3y2BNPPfPcCy+98tobb73z3gcf"
    "ffLZF199890PP/3y2x9//fMfp9t/zQ==";
inline constexpr char kPackedShortTable[] = "WkxJQgYAAAAOAAAAeJxjZGBiYGYAAAAaAAc=";
inline constexpr char kPackedLongTable[] = "WkxJQlgCAAAQAAAAeJxjZ2AfhaOQ6hAAqAMINQ==";

inline std::vector<uint16_t> PackedTableEntries() {
  std::vector<uint16_t> entries(256);
  for (uint16_t i = 0; i < 256; ++i) entries[i] = i;
  entries[128] = 0x20AC;
  return entries;
}

}  // namespace ostvt::test
