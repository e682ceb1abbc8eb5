// The system's side of a job, which writes down what it is told. One at a time.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/PrintJob.h"

namespace ostvt::test {

class JobRecorder {
 public:
  JobRecorder() {
    current = this;
    Before = platform::SetPrintJobFunctions(&kFunctions);
  }
  ~JobRecorder() {
    EXPECT_EQ(0, Living) << "a context was not deleted";
    platform::SetPrintJobFunctions(Before);
    current = nullptr;
  }
  JobRecorder(const JobRecorder&) = delete;
  JobRecorder& operator=(const JobRecorder&) = delete;

  // All bytes of all packets, one behind the other.
  std::string Bytes() const {
    std::string bytes;
    for (const std::string& packet : Packets) bytes += packet;
    return bytes;
  }
  std::vector<size_t> Sizes() const {
    std::vector<size_t> sizes;
    for (const std::string& packet : Packets) sizes.push_back(packet.size());
    return sizes;
  }

  bool HasContext = true;
  int32_t JobId = 17;
  bool RefusesAtEnd = false;
  int EscapeResult = 1;
  // Answers to an escape that is no packet.
  int (*OtherEscape)(int escape, void* output, int outputSize) = nullptr;
  // Called first when a context is made.
  void (*AtCreate)(const char16_t* printer) = nullptr;

  // "create NAME", "start NAME", "page", "packet SIZE", "end page", "end", "delete".
  std::vector<std::string> Calls;
  std::vector<std::string> Packets;
  const void* DevMode = nullptr;

 private:
  static void Note(const std::string& call) { current->Calls.push_back(call); }
  static std::string Narrow(const char16_t* text) {
    std::string narrow;
    for (; *text; ++text) narrow += static_cast<char>(*text);
    return narrow;
  }

  static platform::PrintJobHandle Create(const char16_t* printer, const void* devMode) {
    if (current->AtCreate) current->AtCreate(printer);
    Note("create " + Narrow(printer));
    current->DevMode = devMode;
    if (!current->HasContext) return nullptr;
    ++current->Living;
    return current;
  }
  static void Delete(platform::PrintJobHandle) {
    Note("delete");
    --current->Living;
  }
  static int32_t Start(platform::PrintJobHandle, const char16_t* name) {
    Note("start " + Narrow(name));
    return current->JobId;
  }
  static bool StartPage(platform::PrintJobHandle) {
    Note("page");
    return true;
  }
  static bool EndPage(platform::PrintJobHandle) {
    Note("end page");
    return true;
  }
  static bool End(platform::PrintJobHandle) {
    Note("end");
    return !current->RefusesAtEnd;
  }
  static int Escape(platform::PrintJobHandle, int escape, const void* input, int inputSize,
                    void* output, int outputSize) {
    if (escape != 15001) {
      Note("escape " + std::to_string(escape));
      return current->OtherEscape ? current->OtherEscape(escape, output, outputSize) : 0;
    }
    const auto* block = static_cast<const uint8_t*>(input);
    EXPECT_GE(inputSize, 2);
    EXPECT_EQ(inputSize - 2, block[0] | block[1] << 8);
    EXPECT_EQ(nullptr, output);
    Note("packet " + std::to_string(inputSize - 2));
    current->Packets.emplace_back(reinterpret_cast<const char*>(block + 2),
                                  static_cast<size_t>(inputSize - 2));
    return current->EscapeResult;
  }

  static constexpr platform::PrintJobFunctions kFunctions = {Create,  Delete, Start, StartPage,
                                                             EndPage, End,    Escape};
  int Living = 0;
  const platform::PrintJobFunctions* Before;
  inline static JobRecorder* current = nullptr;
};

}  // namespace ostvt::test
