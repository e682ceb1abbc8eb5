// Tables that are loaded while another session saves them: what is loaded was all there at once.
#include <thread>

#include "fonts/BarCodeFont.h"
#include "fonts/CustomCharacterSetTable.h"
#include "fonts/DataFontTable.h"
#include "fonts/DownloadedFontList.h"
#include "fonts/FontMappingTable.h"
#include "fonts/OptionalFontTable.h"
#include "tests/fonts/FontFixture.h"

namespace ostvt::test {
namespace {

constexpr int kFonts = 8;
constexpr int kSaves = 30;

OString NameOf(int font) { return OString("Font ") + OString::FromInt(font, 2); }

class FontTablesAtOnce : public FontTest {
 protected:
  // `fill` fills a table with records that all bear the number of the save, `numberOf` gives the
  // number of record i.
  template <typename Table, typename Fill, typename NumberOf>
  void ExpectOneSave(int count, Fill fill, NumberOf numberOf) {
    PrinterModel* reader = &InstallAndOpen();
    // A body of text belongs to one thread.
    PrinterModel* writer =
        &Open(OString(std::u16string(Printers.back()->Name().GetWide()).c_str()));
    const auto save = [&](int number) {
      Table table;
      fill(&table, number);
      EXPECT_TRUE(table.Save(writer));
    };
    save(0);
    std::thread saving([&] {
      for (int number = 1; number <= kSaves; ++number) save(number);
    });
    int last = 0;
    while (last < kSaves && !HasFailure()) {
      Table table;
      table.Load(reader);
      EXPECT_EQ(count, table.GetCount()) << "after " << last;
      if (HasFailure()) break;
      const int number = numberOf(table, 0);
      for (int i = 1; i < count; ++i) EXPECT_EQ(number, numberOf(table, i)) << i;
      EXPECT_GE(number, last);
      last = number;
    }
    saving.join();
  }
};

TEST_F(FontTablesAtOnce, OptionalFonts) {
  ExpectOneSave<OptionalFontTable>(
      kFonts,
      [](OptionalFontTable* table, int number) {
        for (int i = 0; i < kFonts; ++i) {
          auto font = std::make_unique<OptionalFont>();
          font->Category = kOptionalFontCustom;
          font->Name = NameOf(i);
          font->Weight = static_cast<uint32_t>(number);
          table->Add(std::move(font));
        }
      },
      [](const OptionalFontTable& table, int i) {
        return static_cast<int>(table.GetAt(i)->Weight);
      });
}

TEST_F(FontTablesAtOnce, AliasesWithSubstitutions) {
  ExpectOneSave<FontMappingTable>(
      kFonts,
      [](FontMappingTable* table, int number) {
        for (int i = 0; i < kFonts; ++i) {
          auto mapping = std::make_unique<FontMapping>();
          mapping->Kind = i < kFonts / 2 ? kFontAlias : kFontSubstitution;
          mapping->Name = mapping->FullName = NameOf(i);
          mapping->Target = OString::FromInt(number, 1);
          table->Add(std::move(mapping));
        }
      },
      [](const FontMappingTable& table, int i) { return int{table.GetAt(i)->Target.ToInt()}; });
}

TEST_F(FontTablesAtOnce, DataFonts) {
  ExpectOneSave<DataFontTable>(
      kFonts,
      [](DataFontTable* table, int number) {
        for (int i = 0; i < kFonts; ++i) {
          auto font = std::make_unique<BarCodeFont>();
          font->SetName(NameOf(i));
          font->Header.CodePage = static_cast<uint32_t>(number);
          table->AddOrReplace(std::move(font));
        }
      },
      [](const DataFontTable& table, int i) {
        return static_cast<int>(table.GetAt(i)->Header.CodePage);
      });
}

TEST_F(FontTablesAtOnce, CustomCharacterSets) {
  ExpectOneSave<CustomCharacterSetTable>(
      kFonts,
      [](CustomCharacterSetTable* table, int number) {
        for (int i = 0; i < kFonts; ++i) {
          auto set = std::make_unique<CustomCharacterSet>();
          set->Name = NameOf(i);
          set->SourceCodePage = static_cast<uint16_t>(number);
          table->Add(std::move(set));
        }
      },
      [](const CustomCharacterSetTable& table, int i) {
        return int{table.GetAt(i)->SourceCodePage};
      });
}

const DownloadedFont* FontAt(const DownloadedFontList& list, int index) {
  const DownloadedFont* font = list.GetFirst();
  while (index-- > 0) font = font->GetNext();
  return font;
}

TEST_F(FontTablesAtOnce, DownloadedFonts) {
  ExpectOneSave<DownloadedFontList>(
      kFonts,
      [](DownloadedFontList* list, int number) {
        for (int i = 0; i < kFonts; ++i) {
          auto* font = new DownloadedFont;
          font->Weight = static_cast<uint16_t>(number);
          list->Append(font);
        }
      },
      [](const DownloadedFontList& list, int i) { return int{FontAt(list, i)->Weight}; });
}

}  // namespace
}  // namespace ostvt::test
