// The device mode that applications ask for without a sheet.
#include <gtest/gtest.h>

#include <random>

#include "tests/entry/EntryFixture.h"

namespace ostvt::test {
namespace {

class DocumentDevMode : public EntryTest {
 protected:
  std::vector<uint8_t> Ask(uint32_t mode, void* input = nullptr) {
    GuardedBlock output(1516);
    DocumentPropertyHeader header = DocumentHeader(mode, output.Data(), input);
    EXPECT_EQ(AskWithoutPages(&header), 1);
    EXPECT_EQ(header.cbOut, 0xCCCCCCCC);
    return output.Copy();
  }
  void ExpectSound(const std::vector<uint8_t>& block) {
    EXPECT_EQ(WordAt(block, kAtSpecVersion), 1025);
    EXPECT_EQ(WordAt(block, kAtDriverVersion), 0x0607);
    EXPECT_EQ(WordAt(block, kAtSize), 220);
    EXPECT_EQ(WordAt(block, kAtExtra), 1296);
    EXPECT_EQ(memcmp(&block[1508], "vtsost", 6), 0);
    EXPECT_EQ(DwordAt(block, kAtFields) & ~0x1250Fu, 0u);
    EXPECT_GE(WordAt(block, kAtCopies), 1);
    EXPECT_LE(WordAt(block, kAtCopies), 999);
  }
};

TEST_F(DocumentDevMode, NoModeOrNoOutputAsksForTheSize) {
  AddPrinter();
  GuardedBlock output(1516);
  for (uint32_t mode : {0u, 2u, 10u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, mode ? nullptr : output.Data());
    EXPECT_EQ(AskWithoutPages(&header), 1516) << mode;
    EXPECT_EQ(header.cbOut, 1516u);
  }
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(DocumentDevMode, SizeNeedsNoPrinter) {
  DocumentPropertyHeader header = {};
  EXPECT_EQ(AskWithoutPages(&header), 1516);
  EXPECT_EQ(header.cbOut, 1516u);
}

TEST_F(DocumentDevMode, WithoutAHeaderNothingIsAnswered) {
  EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), 0);
  PropSheetUiInfo info = {};
  EXPECT_EQ(DrvDocumentPropertySheets(&info, 0), 0);
}

TEST_F(DocumentDevMode, UnknownPrinterIs0) {
  GuardedBlock output(1516);
  DocumentPropertyHeader header = {};
  header.pdmOut = output.Data();
  header.fMode = 2;
  EXPECT_EQ(AskWithoutPages(&header), 0);
  header.pszPrinterName = u"No Such Printer";
  EXPECT_EQ(AskWithoutPages(&header), 0);
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(DocumentDevMode, WholeBlockIsFilledWhateverCbOutHolds) {
  AddPrinter();
  std::vector<uint8_t> wanted = Ask(2);
  ExpectSound(wanted);
  for (uint32_t rubbish : {0u, 1u, 220u, 0xFFFFFFFFu}) {
    GuardedBlock output(1516, 0xAB);
    DocumentPropertyHeader header = DocumentHeader(2, output.Data());
    header.cbOut = rubbish;
    EXPECT_EQ(AskWithoutPages(&header), 1);
    EXPECT_EQ(output.Copy(), wanted);
  }
}

TEST_F(DocumentDevMode, HandleAloneIsEnough) {
  AddPrinter();
  std::vector<uint8_t> wanted = Ask(2);
  OpenHandle handle(Printer->Name());
  for (const char16_t* name : {static_cast<const char16_t*>(nullptr), u""}) {
    GuardedBlock output(1516);
    DocumentPropertyHeader header = DocumentHeader(2, output.Data());
    header.hPrinter = handle;
    header.pszPrinterName = name;
    EXPECT_EQ(AskWithoutPages(&header), 1);
    EXPECT_EQ(output.Copy(), wanted);
  }
}

TEST_F(DocumentDevMode, WithoutTheCopyBitTheOutputStays) {
  AddPrinter();
  EXPECT_EQ(Ask(8), std::vector<uint8_t>(1516, 0xCD));
  EXPECT_EQ(Ask(1), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(DocumentDevMode, StoredDevModeOfThePrinterIsMerged) {
  AddPrinter();
  std::vector<uint8_t> stored = DriverDefault();
  PutWordAt(&stored, kAtCopies, 12);
  StoreDevModeInSpooler(stored);
  EXPECT_EQ(WordAt(Ask(2), kAtCopies), 12);
}

TEST_F(DocumentDevMode, InputCountsOnlyWithTheMergeBit) {
  AddPrinter();
  std::vector<uint8_t> stored = DriverDefault();
  PutWordAt(&stored, kAtCopies, 12);
  StoreDevModeInSpooler(stored);
  std::vector<uint8_t> input = stored;
  PutWordAt(&input, kAtCopies, 34);
  EXPECT_EQ(WordAt(Ask(2, input.data()), kAtCopies), 12);
  EXPECT_EQ(WordAt(Ask(10, input.data()), kAtCopies), 34);
}

TEST_F(DocumentDevMode, MergeBitWithoutInputIsAsWithoutTheBit) {
  AddPrinter();
  EXPECT_EQ(Ask(10), Ask(2));
}

TEST_F(DocumentDevMode, InputIsValidated) {
  AddPrinter();
  std::vector<uint8_t> input = DriverDefault();
  PutWordAt(&input, kAtCopies, 5000);
  PutWordAt(&input, 90, 77);  // no such resolution
  std::vector<uint8_t> block = Ask(10, input.data());
  EXPECT_EQ(WordAt(block, kAtCopies), 999);
  EXPECT_EQ(WordAt(block, 90), 203);
}

TEST_F(DocumentDevMode, OneBlockAsInputAndOutputIsReplaced) {
  AddPrinter();
  std::vector<uint8_t> input = DriverDefault();
  PutWordAt(&input, kAtCopies, 34);
  std::vector<uint8_t> wanted = Ask(10, input.data());
  GuardedBlock both(input);
  DocumentPropertyHeader header = DocumentHeader(10, both.Data(), both.Data());
  EXPECT_EQ(AskWithoutPages(&header), 1);
  EXPECT_EQ(both.Copy(), wanted);
}

TEST_F(DocumentDevMode, PrivateDataOfAnotherDriverFallsBackToDefaults) {
  AddPrinter();
  std::vector<uint8_t> wanted = Ask(2);
  std::vector<uint8_t> input = DriverDefault();
  std::mt19937 random(1);
  for (size_t i = 220; i < input.size(); i++) input[i] = static_cast<uint8_t>(random());
  std::vector<uint8_t> block = Ask(10, input.data());
  EXPECT_EQ(std::vector<uint8_t>(block.begin() + 220, block.end()),
            std::vector<uint8_t>(wanted.begin() + 220, wanted.end()));
}

TEST_F(DocumentDevMode, InputIsReadOnlyAsFarAsItsHeaderSays) {
  AddPrinter();
  for (uint32_t publicSize : {0u, 71u, 72u, 86u, 87u, 103u, 148u, 188u, 220u, 1500u, 1516u}) {
    for (uint32_t extra : {0u, 1u, 8u, 9u, 164u, 1132u, 1296u}) {
      size_t length = publicSize < 72 ? 72 : publicSize + extra;
      GuardedBlock input(length, 0xFF);
      input.PutWord(kAtSpecVersion, 1025);
      input.PutWord(kAtDriverVersion, 0x0607);
      input.PutWord(kAtSize, publicSize);
      input.PutWord(kAtExtra, extra);
      std::vector<uint8_t> before = input.Copy();
      ExpectSound(Ask(10, input.Data()));
      EXPECT_EQ(input.Copy(), before);
    }
  }
}

// A block of this driver's length may be all that is there, whatever larger sizes it states.
TEST_F(DocumentDevMode, StatedSizesBeyondAWholeBlockAreNotBelieved) {
  AddPrinter();
  for (auto [publicSize, extra] :
       {std::pair{65535u, 65535u}, {220u, 65535u}, {65535u, 0u}, {220u, 1297u}, {1000u, 1000u}}) {
    GuardedBlock input(DriverDefault());
    input.PutWord(kAtSize, publicSize);
    input.PutWord(kAtExtra, extra);
    ExpectSound(Ask(10, input.Data()));
  }
}

TEST_F(DocumentDevMode, RandomInputGivesASoundBlock) {
  AddPrinter();
  std::mt19937 random(2);
  for (int round = 0; round < 300; round++) {
    GuardedBlock input(1516);
    for (size_t i = 0; i < 1516; i++) input.Data()[i] = static_cast<uint8_t>(random());
    if (round % 2) input.PutWord(kAtSize, 72 + uint32_t(random() % 200));
    if (round % 3) input.PutWord(kAtExtra, uint32_t(random() % 1300));
    ExpectSound(Ask(10, input.Data()));
  }
}

// Into such a private part no later device mode could be merged.
TEST_F(DocumentDevMode, ForeignPrivatePartOfTheStoredDefaultIsNotTaken) {
  AddPrinter();
  std::vector<uint8_t> wanted = Ask(2);
  const std::vector<uint8_t> good = DriverDefault();
  std::mt19937 random(3);
  for (bool isRandom : {true, false}) {
    std::vector<uint8_t> stored = good;
    if (isRandom) {
      for (size_t i = 220; i < stored.size(); i++) stored[i] = static_cast<uint8_t>(random());
    } else {
      stored.at(1511) = 'x';  // another family's record
      stored.at(1516 - 8 - 1124) ^= 0x5A;
    }
    PutWordAt(&stored, kAtCopies, 21);
    ASSERT_EQ(Store().WriteBinary("DATA:Initial DevMode", stored.data(), 1516), 1516);
    std::vector<uint8_t> block = Ask(2);
    EXPECT_EQ(WordAt(block, kAtCopies), 21);  // the public part is believed
    EXPECT_EQ(std::vector<uint8_t>(block.begin() + 220, block.end()),
              std::vector<uint8_t>(wanted.begin() + 220, wanted.end()));
  }
}

TEST_F(DocumentDevMode, StoredDefaultIsKeptAsItIs) {
  AddPrinter();
  std::vector<uint8_t> stored = DriverDefault();
  PutWordAt(&stored, kAtCopies, 21);
  ASSERT_EQ(Store().WriteBinary("DATA:Initial DevMode", stored.data(), 1516), 1516);
  EXPECT_EQ(WordAt(Ask(2), kAtCopies), 21);
  EXPECT_EQ(DriverDefault(), stored);
}

TEST_F(DocumentDevMode, DriverDefaultOfAnotherFormIsMadeAnew) {
  AddPrinter();
  std::vector<uint8_t> wanted = Ask(2);
  Store().WriteBinary("DATA:Initial DevMode", "junk", 4);
  EXPECT_EQ(Ask(2), wanted);
}

#ifndef _WIN32  // the spooler there renames nothing behind its own back
TEST_F(DocumentDevMode, FailingDriverDefaultIsReplacedByTheModels) {
  AddPrinter();
  const std::vector<uint8_t> wanted = Ask(2);
  Store().Delete("DATA:Initial DevMode", false);
  // The open printer goes on under its old key; whoever asks by the name that it tells finds none.
  OpenHandle handle(Printer->Name());
  Store().WriteString("PRINT:Printers/[PRINTER]/Name", u"Nobody");
  GuardedBlock output(1516);
  int32_t size = 1516;
  EXPECT_FALSE(DrvConvertDevMode(u"Nobody", nullptr, output.Data(), &size, 4));
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  header.hPrinter = handle;
  header.pszPrinterName = u"Nobody";
  EXPECT_EQ(AskWithoutPages(&header), 1);
  std::vector<uint8_t> block = output.Copy();
  EXPECT_EQ(std::vector<uint8_t>(block.begin() + 64, block.end()),
            std::vector<uint8_t>(wanted.begin() + 64, wanted.end()));
}
#endif

TEST_F(DocumentDevMode, WarmCallsLeaveTheStoreAsItWas) {
  AddPrinter();
  Ask(2);
  std::string before = StoreDump();
  Ask(2);
  Ask(10, DriverDefault().data());
  DocumentPropertyHeader header = DocumentHeader(0, nullptr);
  AskWithoutPages(&header);
  EXPECT_EQ(StoreDump(), before);
}

TEST_F(DocumentDevMode, FieldsOfAStoredDefaultEqualTheCapability) {
  AddPrinter();
  StoreDevModeInSpooler(Ask(2));
  EXPECT_EQ(DwordAt(Ask(2), kAtFields),
            DrvDeviceCapabilities(nullptr, Name(), 1, nullptr, nullptr));
}

TEST_F(DocumentDevMode, FieldsOfAColorModelsDefaultEqualTheCapability) {
  AddPrinter(ColorModelText());
  EXPECT_EQ(DwordAt(Ask(2), kAtFields), 0x1812D0Fu);
  EXPECT_EQ(DrvDeviceCapabilities(nullptr, Name(), 1, nullptr, nullptr), 0x1812D0Fu);
}

TEST_F(DocumentDevMode, LongNameIsNeverCutInsideASurrogatePair) {
  TestPrinterOptions options;
  // The 31st unit, where the field of 32 with its terminator ends, is the first half of a pair.
  options.Name = std::u16string(30, u'a') + u"\U0001F5A8 label";
  AddPrinter(ModelText(), options);
  std::vector<uint8_t> block = Ask(2);
  EXPECT_EQ(WordAt(block, 60), 0);
  EXPECT_EQ(WordAt(block, 62), 0);
  EXPECT_EQ(WordAt(block, 58), 'a');
}

TEST_F(DocumentDevMode, NamesOfEveryKindAreServed) {
  const std::u16string names[] = {u"Shelf, \"front\" 'left' & right",
                                  u"\u041F\u0440\u0438\u043D\u0442\u0435\u0440 \u2116 1",
                                  u"\u6A19\u7C64\u6A5F",
                                  u"\U0001F5A8\U0001F5A8",
                                  u"a%2Fb:c/d",
#ifndef _WIN32  // the spooler there would ask that server
                                  u"\\\\server\\Labels, front",
#endif
                                  std::u16string(220, u'x')};
  for (const std::u16string& name : names) {
    Printer.reset();
    TestPrinterOptions options;
    options.Name = name;
    AddPrinter(ModelText(), options);
    ExpectSound(Ask(2));
    EXPECT_EQ(DrvDeviceCapabilities(nullptr, name.c_str(), 13, nullptr, nullptr), 2u);
  }
}

}  // namespace
}  // namespace ostvt::test
