#include "comm/PrinterPort.h"

#include <gtest/gtest.h>

#include "comm/PrinterJob.h"
#include "core/DriverPath.h"
#include "store/PrinterRegistry.h"
#include "tests/comm/JobRecorder.h"
#include "tests/support/TestPrinter.h"

namespace ostvt::test {
namespace {

using Sizes = std::vector<size_t>;
using Calls = std::vector<std::string>;

constexpr char kBlocked[] = "USER:Printers/[PRINTER]/Shadow Blocked";

// Writes its packets down instead of making jobs of them.
class PacketPort : public PrinterPort {
 public:
  bool WriteRaw(const void* bytes, int32_t count) override {
    Packets.emplace_back(static_cast<const char*>(bytes), static_cast<size_t>(count));
    return true;
  }
  Sizes PacketSizes() const {
    Sizes sizes;
    for (const std::string& packet : Packets) sizes.push_back(packet.size());
    return sizes;
  }
  std::string Bytes() const {
    std::string bytes;
    for (const std::string& packet : Packets) bytes += packet;
    return bytes;
  }

  std::vector<std::string> Packets;
};

// Bytes that tell where they belong.
std::string Pattern(size_t count) {
  std::string bytes(count, '\0');
  for (size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(i * 7 + (i >> 8));
  return bytes;
}

bool WriteBytes(PrinterPort* port, const std::string& bytes) {
  return port->Write(bytes.data(), static_cast<int32_t>(bytes.size()));
}

TEST(PrinterPort, NothingIsNotWritten) {
  PacketPort port;
  EXPECT_FALSE(port.Write(nullptr, 5));
  EXPECT_FALSE(port.Write("x", 0));
  EXPECT_FALSE(port.Write("x", -1));
  port.WriteText(nullptr);
  port.WriteText("");
  EXPECT_EQ(0, port.GetFill());
  port.Flush();
  EXPECT_TRUE(port.Packets.empty());
}

TEST(PrinterPort, BytesWaitInOrderUntilFlush) {
  PacketPort port;
  EXPECT_TRUE(port.Write("a\0b", 3));
  port.WriteText("text");
  port.WriteInt(-120);
  port.WriteNewLine();
  EXPECT_EQ(13, port.GetFill());
  EXPECT_TRUE(port.Packets.empty());
  port.Flush();
  EXPECT_EQ(0, port.GetFill());
  ASSERT_EQ(1u, port.Packets.size());
  EXPECT_EQ(std::string("a\0btext-120\r\n", 13), port.Packets[0]);
}

TEST(PrinterPort, BufferIsFilledToItsLastByte) {
  PacketPort port;
  EXPECT_TRUE(WriteBytes(&port, Pattern(8000)));
  EXPECT_TRUE(WriteBytes(&port, Pattern(192)));
  EXPECT_EQ(8192, port.GetFill());
  EXPECT_TRUE(port.Packets.empty());
  EXPECT_TRUE(port.Write("x", 1));
  EXPECT_EQ(1, port.GetFill());
  EXPECT_EQ((Sizes{8192}), port.PacketSizes());
}

TEST(PrinterPort, WriteOf70000BytesGoesOutInPiecesOf8192) {
  PacketPort port;
  const std::string bytes = Pattern(70000);
  EXPECT_TRUE(WriteBytes(&port, bytes));
  EXPECT_EQ((Sizes{8192, 8192, 8192, 8192, 8192, 8192, 8192, 8192, 4464}), port.PacketSizes());
  EXPECT_EQ(bytes, port.Bytes());
  EXPECT_EQ(0, port.GetFill());
}

TEST(PrinterPort, LargeWriteComesBehindWhatWaits) {
  PacketPort port;
  const std::string bytes = Pattern(8193);
  port.WriteText("first");
  EXPECT_TRUE(WriteBytes(&port, bytes));
  EXPECT_EQ((Sizes{5, 8192, 1}), port.PacketSizes());
  EXPECT_EQ("first" + bytes, port.Bytes());
}

TEST(PrinterPort, PiecesOfExactlyTheCapacityHaveNoEmptyOneBehind) {
  PacketPort port;
  EXPECT_TRUE(WriteBytes(&port, Pattern(2 * 8192)));
  EXPECT_EQ((Sizes{8192, 8192}), port.PacketSizes());
}

TEST(PrinterPort, CaptureOf9000BytesDoublesTheCapacityAndSendsNothing) {
  PacketPort port;
  port.BeginCapture();
  const std::string bytes = Pattern(9000);
  EXPECT_TRUE(WriteBytes(&port, bytes));
  EXPECT_EQ(16384, port.Capacity);
  EXPECT_EQ(9000, port.GetFill());
  EXPECT_EQ(bytes, std::string(reinterpret_cast<const char*>(port.Buffer), 9000));
  port.Flush();
  EXPECT_TRUE(port.Packets.empty());
}

TEST(PrinterPort, CaptureGrowsAsItGoes) {
  PacketPort port;
  port.BeginCapture();
  const std::string bytes = Pattern(5000);
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(WriteBytes(&port, bytes));
  EXPECT_EQ(65536, port.Capacity);
  EXPECT_EQ(65536, port.BufferAllocated);
  EXPECT_EQ(40000, port.GetFill());
  EXPECT_EQ(0, memcmp(port.Buffer + 35000, bytes.data(), 5000));
}

TEST(PrinterPort, CaptureBeginsBehindWhatWaited) {
  PacketPort port;
  port.WriteText("before");
  port.BeginCapture();
  EXPECT_EQ("before", port.Bytes());
  EXPECT_EQ(0, port.GetFill());
  port.WriteText("kept");
  port.BeginCapture();
  EXPECT_EQ(4, port.GetFill());
  EXPECT_EQ("before", port.Bytes());
}

TEST(PrinterPort, EndOfACaptureDropsIt) {
  PacketPort port;
  port.BeginCapture();
  port.WriteText("dropped");
  port.EndCapture();
  EXPECT_FALSE(port.Capturing);
  port.WriteText("sent");
  port.Flush();
  EXPECT_EQ("sent", port.Bytes());
}

TEST(PrinterPort, CaptureStopsAt1GiB) {
  PacketPort port;
  port.BeginCapture();
  port.Fill = (1 << 30) - 4;  // as if so much had come
  EXPECT_FALSE(port.Write("12345", 5));
  EXPECT_EQ((1 << 30) - 4, port.GetFill());
  EXPECT_EQ(8192, port.Capacity);
  port.Fill = 0;
}

TEST(PrinterPort, PacketsNeverPass32000Bytes) {
  PacketPort port;
  port.BeginCapture();
  EXPECT_TRUE(WriteBytes(&port, Pattern(40000)));
  port.EndCapture();
  EXPECT_EQ(65536, port.Capacity);
  EXPECT_TRUE(WriteBytes(&port, Pattern(40000)));
  EXPECT_TRUE(port.Packets.empty());
  port.Flush();
  EXPECT_EQ((Sizes{32000, 8000}), port.PacketSizes());
  EXPECT_EQ(Pattern(40000), port.Bytes());
}

TEST(PrinterPort, WritesDuringAFlushAreSentOnceAndLater) {
  class WritingPort : public PacketPort {
   public:
    bool WriteRaw(const void* bytes, int32_t count) override {
      if (Packets.empty()) WriteText("later");
      return PacketPort::WriteRaw(bytes, count);
    }
  };
  WritingPort port;
  port.WriteText("first");
  port.Flush();
  EXPECT_EQ("first", port.Bytes());
  EXPECT_EQ(5, port.GetFill());
  port.Flush();
  EXPECT_EQ("firstlater", port.Bytes());
}

TEST(PrinterPort, WriteAfterSuchAFlushStaysInsideTheBuffer) {
  class WritingPort : public PacketPort {
   public:
    bool WriteRaw(const void* bytes, int32_t count) override {
      if (Packets.empty()) WriteText("later");
      return PacketPort::WriteRaw(bytes, count);
    }
  };
  WritingPort port;
  EXPECT_TRUE(WriteBytes(&port, Pattern(8000)));
  EXPECT_TRUE(WriteBytes(&port, Pattern(8192)));
  port.Flush();
  EXPECT_EQ(8000u + 5 + 8192, port.Bytes().size());
}

class PrinterPortJob : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Printer.IsReady());
    Port.Bind(nullptr, nullptr, MonitorLink(Printer.Name()),
              [](const DriverSession*) { return Current; });
  }

  const TestPrinter Printer;
  JobRecorder System;
  inline static const char DevModes[2] = {};
  inline static const void* Current = nullptr;
  PrinterPort Port;
};

TEST_F(PrinterPortJob, JobBeginsWithAnEmptyPacket) {
  EXPECT_EQ(17, Port.OpenJob("Job"));
  Port.WriteText("bytes");
  Port.CloseJob();
  EXPECT_EQ((Calls{"create Test Printer", "start Job", "page", "packet 0", "packet 5", "end page",
                   "end", "delete"}),
            System.Calls);
  EXPECT_EQ(nullptr, Port.Job);
}

TEST_F(PrinterPortJob, BytesWrittenBeforeBelongToTheJob) {
  Port.WriteText("early");
  Port.OpenJob("Job");
  Port.WriteText("late");
  Port.CloseJob();
  EXPECT_EQ((std::vector<std::string>{"", "earlylate"}), System.Packets);
}

TEST_F(PrinterPortJob, RefusalAtTheEndIsAFailure) {
  System.RefusesAtEnd = true;
  Port.OpenJob("Job");
  Port.WriteText("bytes");
  Port.CloseJob();
  EXPECT_TRUE(Port.SendFailed);
  EXPECT_FALSE(Port.WriteRaw("x", 1));
}

TEST_F(PrinterPortJob, PacketOutsideAJobIsALittleJobOfItsOwn) {
  Port.WriteText("alone");
  Port.Flush();
  EXPECT_EQ((Calls{"create Test Printer", "start write_packet", "page", "packet 0", "packet 5",
                   "end page", "end", "delete"}),
            System.Calls);
  EXPECT_EQ("alone", System.Bytes());
}

TEST_F(PrinterPortJob, EachPieceOutsideAJobIsALittleJob) {
  WriteBytes(&Port, Pattern(10000));
  EXPECT_EQ((Sizes{0, 8192, 0, 1808}), System.Sizes());
  EXPECT_EQ(Pattern(10000), System.Bytes());
}

TEST_F(PrinterPortJob, RawWriteOfNothingMakesNoJob) {
  EXPECT_FALSE(Port.WriteRaw("", 0));
  EXPECT_TRUE(System.Calls.empty());
}

TEST_F(PrinterPortJob, ClosingWithoutAJobSendsWhatWaits) {
  Port.WriteText("alone");
  Port.CloseJob();
  EXPECT_EQ("alone", System.Bytes());
  EXPECT_EQ("delete", System.Calls.back());
}

TEST_F(PrinterPortJob, PrinterWithoutAContextTakesNothing) {
  System.HasContext = false;
  EXPECT_EQ(0, Port.OpenJob("Job"));
  EXPECT_FALSE(Port.WriteRaw("x", 1));
  Port.CloseJob();
  EXPECT_EQ((Calls{"create Test Printer"}), System.Calls);
}

TEST_F(PrinterPortJob, RefusedJobHasNumber0) {
  System.JobId = -1;
  EXPECT_EQ(0, Port.OpenJob("Job"));
  Port.CloseJob();
}

TEST_F(PrinterPortJob, RefusedPacketIsTold) {
  Port.OpenJob("Job");
  EXPECT_TRUE(Port.WriteRaw("x", 1));
  System.EscapeResult = -1;
  EXPECT_FALSE(Port.WriteRaw("x", 1));
  Port.CloseJob();
}

TEST_F(PrinterPortJob, DeviceModeGoesAlongOnThe16BitPathOnly) {
  const bool before = DriverOnNtPath;
  DriverOnNtPath = true;
  Port.OpenJob("Job");
  Port.CloseJob();
  EXPECT_EQ(nullptr, System.DevMode);
  DriverOnNtPath = false;
  // That of the moment: a cancelled dialog puts another block in its place.
  for (const char& block : DevModes) {
    Current = &block;
    Port.OpenJob("Job");
    Port.CloseJob();
    EXPECT_EQ(&block, System.DevMode);
  }
  DriverOnNtPath = before;
}

TEST_F(PrinterPortJob, OwnJobBlocksTheShadowBeforeItsContextIsMade) {
  PrinterRegistry store(Printer.Name());
  ASSERT_EQ(0, store.ReadByte(kBlocked, 0));
  System.AtCreate = [](const char16_t* printer) {
    EXPECT_EQ(1, PrinterRegistry(printer).ReadByte(kBlocked, 0));
  };
  Port.OpenJob("Job");
  Port.CloseJob();
  EXPECT_EQ(1, store.ReadByte(kBlocked, 0));
  MonitorLink(Printer.Name()).SetShadowBlocked(false);
}

TEST_F(PrinterPortJob, EscapeMakesTheContextOfTheNextJob) {
  System.OtherEscape = [](int escape, void*, int) { return escape - 15000; };
  EXPECT_EQ(34, Port.Escape(15034, 0, nullptr, 0, nullptr));
  ASSERT_NE(nullptr, Port.Job);
  Port.OpenJob("Job");
  Port.CloseJob();
  EXPECT_EQ((Calls{"create Test Printer", "escape 15034", "start Job", "page", "packet 0",
                   "end page", "end", "delete"}),
            System.Calls);
}

TEST_F(PrinterPortJob, ContextOfAnEscapeIsNoJob) {
  System.OtherEscape = [](int, void*, int) { return 1; };
  Port.Escape(15034, 0, nullptr, 0, nullptr);
  Port.WriteText("alone");
  Port.CloseJob();
  EXPECT_EQ(
      (Calls{"create Test Printer", "escape 15034", "create Test Printer", "start write_packet",
             "page", "packet 0", "packet 5", "end page", "end", "delete", "delete"}),
      System.Calls);
  EXPECT_FALSE(Port.SendFailed);
  EXPECT_EQ(nullptr, Port.Job);
}

TEST_F(PrinterPortJob, PortDataIsAskedForItsSizeFirst) {
  System.OtherEscape = [](int escape, void* output, int outputSize) {
    if (escape != 15033) return -1;
    if (!output) return outputSize == 0 ? 3 : -1;
    memcpy(output, "abc", static_cast<size_t>(outputSize));
    return 1;
  };
  Buffer data;
  ASSERT_TRUE(Port.ReadPortData(&data));
  ASSERT_EQ(3u, data.Size);
  EXPECT_EQ(0, memcmp(data.Data, "abc", 3));
}

TEST_F(PrinterPortJob, NoPortDataEmptiesTheBuffer) {
  System.OtherEscape = [](int, void*, int) { return 0; };
  Buffer data;
  data.Resize(5);
  EXPECT_FALSE(Port.ReadPortData(&data));
  EXPECT_EQ(0u, data.Size);
}

TEST_F(PrinterPortJob, PortDataThatCannotBeReadIsNone) {
  System.OtherEscape = [](int, void* output, int) { return output ? -1 : 3; };
  Buffer data;
  EXPECT_FALSE(Port.ReadPortData(&data));
  EXPECT_EQ(0u, data.Size);
}

TEST_F(PrinterPortJob, UnreasonableSizeOfPortDataIsNone) {
  System.OtherEscape = [](int, void* output, int) { return output ? 1 : 0x7FFFFFFF; };
  Buffer data;
  EXPECT_FALSE(Port.ReadPortData(&data));
}

TEST(PrinterJob, PacketLengthHas16Bits) {
  const TestPrinter printer;
  ASSERT_TRUE(printer.IsReady());
  JobRecorder system;
  const std::string bytes = Pattern(65536);
  {
    PrinterJob job(printer.Name(), nullptr);
    EXPECT_TRUE(job.Write(bytes.data(), 65535));
    EXPECT_FALSE(job.Write(bytes.data(), 65536));
    EXPECT_FALSE(job.Write(nullptr, 1));
    EXPECT_FALSE(job.Write("x", -1));
    EXPECT_TRUE(job.Write(nullptr, 0));
  }
  EXPECT_EQ((Sizes{65535, 0}), system.Sizes());
}

TEST(PrinterJob, UnknownPrinterHasNoContext) {
  PrinterJob job("No Such Printer", nullptr);
  EXPECT_EQ(0, job.Start("Job"));
  EXPECT_FALSE(job.Write("x", 1));
  EXPECT_EQ(0, job.Escape(15033, 0, nullptr, 0, nullptr));
  job.StartPage();
  job.EndPage();
  job.End();
  MonitorLink("No Such Printer").SetShadowBlocked(false);
}

}  // namespace
}  // namespace ostvt::test
