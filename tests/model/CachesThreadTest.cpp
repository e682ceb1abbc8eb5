// Many threads on the two caches at once; the thread sanitizer is the judge.
#include <atomic>
#include <thread>

#include "model/ArchiveCache.h"
#include "model/RecordCache.h"
#include "tests/model/ModelFixture.h"

namespace ostvt::test {
namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 25;

template <typename Work>
void InThreads(Work work) {
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back([&work, i] { work(i); });
  for (std::thread& thread : threads) thread.join();
}

class CachesThreadTest : public ModelFixture {};

TEST_F(CachesThreadTest, RecordsOfManyThreadsStayWhole) {
  RecordCache& cache = *TheRecordCache();
  std::atomic<int> torn = 0;
  InThreads([&](int id) {
    for (int i = 0; i < 40 * kRounds; ++i) {
      const OString key = i % 2 ? u"Shared:Record" : u"\u0416:Record";
      uint8_t record[64];
      memset(record, id + 1, sizeof record);
      cache.Put(key, record, sizeof record);
      if (i % 16 == id) cache.SetGeneration(static_cast<uint32_t>(i));
      if (!cache.Get(key, record, sizeof record)) continue;
      for (uint8_t byte : record) torn += byte != record[0];
    }
  });
  EXPECT_EQ(torn, 0);
}

TEST_F(CachesThreadTest, AllThreadsGetOneReader) {
  const OString path = Files.WidePath(u"none.ddz").c_str();
  const std::u16string text = path.GetWide();
  std::atomic<ArchiveReader*> readers[kThreads] = {};
  InThreads([&](int id) {
    const OString own = text.c_str();
    for (int i = 0; i < kRounds; ++i) readers[id] = TheArchiveCache()->Open(own, own);
  });
  for (const auto& reader : readers) EXPECT_EQ(reader.load(), readers[0].load());
}

TEST_F(CachesThreadTest, SessionsOfOnePrinterAtOnce) {
  DefineChain("Copies.Limit=5\nBarCode=Model:One\nCode39=Yes\nResolution=203\nFont=Font:F\n");
  Define("Font.d", "[F]\nDefaultFont.Text.Name=Mono\n");
  Install();
  const std::u16string name = Printers.back()->Name().GetWide();
  std::atomic<int> wrong = 0;
  InThreads([&](int thread) {
    for (int i = 0; i < kRounds; ++i) {
      PrinterId id(OString(name.c_str()));
      PrinterModel model;
      if (!model.Open(id)) {
        ++wrong;
        continue;
      }
      wrong += model.GetCopiesLimit() != 5;
      wrong += !model.HasBarCodes();
      wrong += model.GetCapabilities()->DefaultFonts[0].Weight != 400;
      wrong += model.GetDefinitionString("Model", "Resolution").ToInt() != 203;
      if (thread == 0 && i % 5 == 0) model.Invalidate();
    }
  });
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace ostvt::test
