// Font records in a text: "<font type='KIND'>", a line "Key=Value" for each field, "</font>", and
// an empty line.
#pragma once

#include <cstdint>

#include "core/OStream.h"
#include "core/OString.h"

namespace ostvt {

class OFile;
class PrinterModel;

class FontTextWriter {
 public:
  explicit FontTextWriter(OStream& stream) : Stream(stream) {}
  void Open(const char* kind);
  void Write(const char* key, const OString& value);
  void WriteUnlessEmpty(const char* key, const OString& value);
  void Close();

 private:
  OStream& Stream;
};

// What one pass over a text does with the records of its kind. Values and an end come only for a
// record that has begun.
class FontTextSink {
 public:
  virtual ~FontTextSink() = default;
  // A record begins. Whatever was begun before it has no end and is to be forgotten.
  virtual void Open() = 0;
  virtual void TakeValue(const OString& key, const OString& value) = 0;
  // The record ends. True if it was taken in.
  virtual bool Close() = 0;
};

// Passes over the whole of `stream`, from its start, wherever it stands. `model` decides which
// records are meant for the printer; null: those that are for all. How many were taken in.
int32_t ReadFontText(OFile& stream, PrinterModel* model, const char* kind, FontTextSink* sink);

}  // namespace ostvt
