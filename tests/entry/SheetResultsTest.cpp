// What OK and Cancel on a document sheet do to the caller's device mode and to the printer.
#include <gtest/gtest.h>

#include "tests/entry/SheetFixture.h"

namespace ostvt::test {
namespace {

class SheetResults : public SheetTest {};

TEST_F(SheetResults, OkCopiesTheWholeDevMode) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(output.Word(kAtCopies), 77);
  EXPECT_EQ(output.Word(kAtSize), 220);
  EXPECT_EQ(memcmp(output.Data() + 1508, "vtsost", 6), 0);
}

TEST_F(SheetResults, OkWithTheUpdateBitAloneCopiesToo) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(1, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(output.Word(kAtCopies), 77);
}

TEST_F(SheetResults, OkWithoutUpdateAndCopyLeavesTheOutput) {
  AddPrinter();
  GuardedBlock output(1516);
  std::vector<uint8_t> before = StoredDevMode();
  for (uint32_t mode : {0u, 4u, 8u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, output.Data());
    RunDocumentSheet(&header, kResultOk);
  }
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(SheetResults, OkWithUpdateStoresTheDevModeWithThePrinter) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(1, nullptr);
  RunDocumentSheet(&header, kResultOk);
  std::vector<uint8_t> stored = StoredDevMode();
  ASSERT_EQ(stored.size(), 1516u);
  EXPECT_EQ(WordAt(stored, kAtCopies), 77);

  OpenHandle handle(Printer->Name());
  header = DocumentHeader(3, nullptr);
  header.hPrinter = handle;
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 78);
  EXPECT_EQ(host.SetResult(1), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(WordAt(StoredDevMode(), kAtCopies), 78);
}

TEST_F(SheetResults, HostThatTellsNoResultStillGetsWhatWasApplied) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(3, output.Data());
  OpenHandle handle(Printer->Name());
  header.hPrinter = handle;
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 77);
  SessionOf(&host.Info)->NotifyApplied();
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(output.Word(kAtCopies), 77);
  EXPECT_EQ(WordAt(StoredDevMode(), kAtCopies), 77);
}

TEST_F(SheetResults, ResultIsPassedOnOnce) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 77);
  SessionOf(&host.Info)->NotifyApplied();
  EXPECT_EQ(host.SetResult(kResultOk), 1);
  memset(output.Data(), 0xAB, 1516);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xAB));
}

TEST_F(SheetResults, SheetThatWasNeverAppliedWritesNothingAtItsEnd) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(3, output.Data());
  const std::vector<uint8_t> before = StoredDevMode();
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 77);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(SheetResults, OkWithoutUpdateLeavesThePrintersDevMode) {
  AddPrinter();
  std::vector<uint8_t> before = StoredDevMode();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(SheetResults, OkMergesWhenInputAndOutputAreOneBlock) {
  AddPrinter();
  // An older caller's block: what lies behind it is not its own.
  GuardedBlock both(188 + 10, 0);
  both.PutWord(kAtSpecVersion, 800);
  both.PutWord(kAtDriverVersion, 0x0101);
  both.PutWord(kAtSize, 188);
  both.PutWord(kAtExtra, 10);
  memset(both.Data() + 188, 0x5C, 10);
  DocumentPropertyHeader header = DocumentHeader(2, both.Data(), both.Data());
  RunDocumentSheet(&header, kResultOk);
  EXPECT_EQ(both.Word(kAtCopies), 77);
  EXPECT_EQ(both.Word(kAtSpecVersion), 800);
  EXPECT_EQ(both.Word(kAtDriverVersion), 0x0101);
  EXPECT_EQ(both.Word(kAtSize), 188);
  EXPECT_EQ(both.Word(kAtExtra), 10);
  for (size_t i = 188; i < 198; i++) EXPECT_EQ(both.Data()[i], 0x5C);
}

// What states no size has no room that could be written to.
TEST_F(SheetResults, OkLeavesOneBlockWithoutAHeader) {
  AddPrinter();
  for (uint32_t stated : {0u, 71u}) {
    GuardedBlock both(72, 0);
    both.PutWord(kAtSize, stated);
    std::vector<uint8_t> before = both.Copy();
    DocumentPropertyHeader header = DocumentHeader(3, both.Data(), both.Data());
    RunDocumentSheet(&header, kResultOk);
    EXPECT_EQ(both.Copy(), before);
    EXPECT_EQ(WordAt(StoredDevMode(), kAtCopies), 77);  // bit 0 has its effect all the same
  }
}

TEST_F(SheetResults, CancelRestoresTheDevModeAsItStoodAtTheStart) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(2, output.Data());
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  std::vector<uint8_t> before(1516);
  EXPECT_EQ(SessionOf(&host.Info)->DevModeBuffer.CopyTo(before.data(), 1516), 1516u);
  Edit(host, 77);
  EXPECT_EQ(host.SetResult(1), 1);  // applied, then cancelled
  EXPECT_EQ(output.Word(kAtCopies), 77);
  EXPECT_EQ(host.SetResult(0), 1);
  EXPECT_EQ(output.Copy(), before);
  EXPECT_EQ(host.Info.Result, 0u);
  EXPECT_EQ(host.Destroy(), 1);
}

// OK with edited copies on one block, then cancel. Gives the device mode as it stood at the start.
std::vector<uint8_t> ApplyThenCancel(DocumentPropertyHeader header, GuardedBlock* both) {
  std::vector<uint8_t> before(1516);
  SheetHost host(DrvDocumentPropertySheets, &header);
  EXPECT_EQ(host.Init(), 1);
  DevMode& devMode = SessionOf(&host.Info)->DevModeBuffer;
  EXPECT_EQ(devMode.CopyTo(before.data(), 1516), 1516u);
  devMode.SetCopies(77);
  EXPECT_EQ(host.SetResult(1), 1);
  EXPECT_EQ(both->Word(kAtCopies), 77);
  EXPECT_EQ(host.SetResult(0), 1);
  EXPECT_EQ(host.Destroy(), 1);
  return before;
}

TEST_F(SheetResults, CancelStaysInsideOneBlock) {
  AddPrinter();
  GuardedBlock both(188 + 10, 0);
  both.PutWord(kAtSpecVersion, 800);
  both.PutWord(kAtSize, 188);
  both.PutWord(kAtExtra, 10);
  memset(both.Data() + 188, 0x5C, 10);
  ApplyThenCancel(DocumentHeader(2, both.Data(), both.Data()), &both);
  EXPECT_EQ(both.Word(kAtCopies), 1);
  EXPECT_EQ(both.Word(kAtSize), 188);
  EXPECT_EQ(both.Word(kAtExtra), 10);
  for (size_t i = 188; i < 198; i++) EXPECT_EQ(both.Data()[i], 0x5C);
}

// Merging would keep a resolution that the caller's other printer name makes invalid.
TEST_F(SheetResults, CancelRestoresOneBlockOfTheWholeSizeByteForByte) {
  AddPrinter();
  GuardedBlock both(DriverDefault());
  both.PutWord(0, u'X');
  const std::vector<uint8_t> before =
      ApplyThenCancel(DocumentHeader(2, both.Data(), both.Data()), &both);
  EXPECT_EQ(both.Copy(), before);
}

TEST_F(SheetResults, CancelKeepsTheHeadOfOneBlockThatStatesMore) {
  AddPrinter();
  std::vector<uint8_t> bytes = DriverDefault();
  bytes.resize(220 + 2000, 0x5C);
  GuardedBlock both(bytes);
  both.PutWord(kAtExtra, 2000);
  ApplyThenCancel(DocumentHeader(2, both.Data(), both.Data()), &both);
  EXPECT_EQ(both.Word(kAtCopies), 1);
  EXPECT_EQ(both.Word(kAtExtra), 2000);
  for (size_t i = 1516; i < 2220; i++) ASSERT_EQ(both.Data()[i], 0x5C) << i;
}

TEST_F(SheetResults, AppliedSettingsOutliveACancelInAHostThatIsDeafToTheApply) {
  AddPrinter();
  DocumentPropertyHeader header = DocumentHeader(1, nullptr);
  SheetHost host(DrvDocumentPropertySheets, &header);
  ASSERT_EQ(host.Init(), 1);
  Edit(host, 77);
  SessionOf(&host.Info)->NotifyApplied();
  Edit(host, 78);
  EXPECT_EQ(host.SetResult(0), 1);
  EXPECT_EQ(host.Destroy(), 1);
  EXPECT_EQ(WordAt(StoredDevMode(), kAtCopies), 77);
}

TEST_F(SheetResults, CancelWithoutTheCopyBitLeavesTheOutput) {
  AddPrinter();
  GuardedBlock output(1516);
  for (uint32_t mode : {0u, 1u, 9u}) {
    DocumentPropertyHeader header = DocumentHeader(mode, output.Data());
    RunDocumentSheet(&header, kResultCancel);
  }
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

TEST_F(SheetResults, ResultsWithoutOutputAreTaken) {
  AddPrinter();
  const std::vector<uint8_t> before = StoredDevMode();
  DocumentPropertyHeader header = DocumentHeader(2, nullptr);
  for (intptr_t result : {kResultOk, kResultCancel}) {
    SheetHost host(DrvDocumentPropertySheets, &header);
    ASSERT_EQ(host.Init(), 1);
    Edit(host, 77);
    EXPECT_EQ(host.SetResult(result), 1);
    EXPECT_EQ(host.Info.Result, static_cast<uintptr_t>(result));
    EXPECT_EQ(host.Destroy(), 1);
  }
  EXPECT_EQ(StoredDevMode(), before);
}

TEST_F(SheetResults, OtherResultsAreOnlyPassedOn) {
  AddPrinter();
  GuardedBlock output(1516);
  DocumentPropertyHeader header = DocumentHeader(3, output.Data());
  RunDocumentSheet(&header, 2);
  RunDocumentSheet(&header, -1);
  EXPECT_EQ(output.Copy(), std::vector<uint8_t>(1516, 0xCD));
}

}  // namespace
}  // namespace ostvt::test
