// Aliases and substitutions as text records.
#include <utility>

#include "core/OFile.h"
#include "fonts/FontMappingTable.h"
#include "fonts/FontText.h"
#include "fonts/FontValueText.h"
#include "fonts/NameIndex.h"

namespace ostvt {
namespace {

const char* KindText(uint16_t kind) { return kind == kFontAlias ? "Alias" : "Substitution"; }

void WriteRatio(FontTextWriter* writer, const char* key, float ratio) {
  if (ratio != 1.0f) writer->Write(key, PercentText(ratio));
}

void Write(FontTextWriter* writer, const FontMapping& mapping) {
  writer->Open(KindText(mapping.Kind));
  if (mapping.Kind == kFontAlias) {
    writer->Write("AliasName", mapping.Name);
    writer->Write("PrinterFont", mapping.Target);
    writer->Write("EnumerateAsScalable", BoolText(mapping.EnumerateAsScalable != 0));
    WriteRatio(writer, "NominalWidth", mapping.NominalWidth);
  } else {
    writer->Write("FontName", mapping.Name);
    writer->Write("PrinterFont", mapping.Target);
    writer->Write("FullName", mapping.FullName);
    writer->Write("Weight", UnsignedText(mapping.Weight));
    writer->Write("Italic", BoolText(mapping.Italic != 0));
  }
  WriteRatio(writer, "HorizontalRatio", mapping.ScaleX);
  WriteRatio(writer, "VerticalRatio", mapping.ScaleY);
  writer->Close();
}

// Reads one record of either kind.
class Reader : public FontTextSink {
 public:
  explicit Reader(uint16_t kind) : Kind(kind) {}
  void Open() override {
    Mapping = std::make_unique<FontMapping>();
    Mapping->Kind = Kind;
  }
  void TakeValue(const OString& key, const OString& value) override {
    if (key == "PrinterFont") {
      Mapping->Target = value;
    } else if (key == "HorizontalRatio") {
      Mapping->ScaleX = ParsePercentAsFloat(value);
    } else if (key == "VerticalRatio") {
      Mapping->ScaleY = ParsePercentAsFloat(value);
    } else if (Kind == kFontAlias) {
      TakeAliasValue(key, value);
    } else {
      TakeSubstitutionValue(key, value);
    }
  }

 protected:
  std::unique_ptr<FontMapping> Mapping;

 private:
  void TakeAliasValue(const OString& key, const OString& value) {
    if (key == "AliasName") {
      Mapping->Name = value;
    } else if (key == "EnumerateAsScalable") {
      Mapping->EnumerateAsScalable = IsTrue(value);
    } else if (key == "NominalWidth") {
      Mapping->NominalWidth = ParsePercentAsFloat(value);
    }
  }
  void TakeSubstitutionValue(const OString& key, const OString& value) {
    if (key == "FontName") {
      Mapping->Name = value;
    } else if (key == "FullName") {
      Mapping->FullName = value;
    } else if (key == "Weight") {
      Mapping->Weight = ParseWord(value);
    } else if (key == "Italic") {
      Mapping->Italic = IsTrue(value);
    }
  }

  const uint16_t Kind;
};

}  // namespace

void FontMappingTable::TakeIn(std::unique_ptr<FontMapping> mapping, NameIndex* index) {
  const int32_t place = index->Find(mapping->Key(), [&](int32_t each) {
    return GetAt(each)->Key().CompareNoCase(mapping->Key()) == 0;
  });
  if (place >= 0) {
    Mappings[static_cast<size_t>(place)] = std::move(mapping);
  } else {
    index->Add(mapping->Key());
    Add(std::move(mapping));
  }
}

int32_t FontMappingTable::WriteText(OStream& stream, uint16_t kind) const {
  FontTextWriter writer(stream);
  int32_t count = 0;
  for (const auto& mapping : Mappings) {
    if (mapping->Kind != kind) continue;
    Write(&writer, *mapping);
    ++count;
  }
  return count;
}

int32_t FontMappingTable::ReadText(OFile& stream, PrinterModel* model, uint16_t kind) {
  class TableReader : public Reader {
   public:
    TableReader(uint16_t kind, FontMappingTable* table) : Reader(kind), Table(table) {
      for (const auto& mapping : Table->Mappings) Keys.Add(mapping->Key());
    }
    bool Close() override {
      Table->TakeIn(std::move(Mapping), &Keys);
      return true;
    }

   private:
    FontMappingTable* Table;
    NameIndex Keys;
  };
  TableReader reader(kind, this);
  return ReadFontText(stream, model, KindText(kind), &reader);
}

}  // namespace ostvt
