// A port monitor in the test itself, reached through MonitorLink::Loader. One at a time.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "comm/MonitorLink.h"
#include "platform/Errors.h"

namespace ostvt::test {

class FakeMonitor : public MonitorLoader {
 public:
  FakeMonitor() { current = this; }
  ~FakeMonitor() override {
    EXPECT_EQ(0, OpenFiles) << "the file was not freed";
    EXPECT_EQ(Handles, Freed) << "an answer was not freed";
    current = nullptr;
  }
  FakeMonitor(const FakeMonitor&) = delete;
  FakeMonitor& operator=(const FakeMonitor&) = delete;

  void* Open() override {
    ++Loads;
    if (IsMissing) return nullptr;
    ++OpenFiles;
    return this;
  }
  void Close(void* file) override {
    EXPECT_EQ(this, file);
    --OpenFiles;
  }
  void* Find(void* file, const char* name) override {
    EXPECT_EQ(this, file);
    const std::string text = name;
    if (std::find(MissingExports.begin(), MissingExports.end(), text) != MissingExports.end())
      return nullptr;
    if (text == "SendXPMLRequest") return reinterpret_cast<void*>(&Send);
    if (text == "HTTPResponse_Size") return reinterpret_cast<void*>(&SizeOf);
    if (text == "HTTPResponse_Data") return reinterpret_cast<void*>(&DataOf);
    if (text == "HTTPResponse_Free") return reinterpret_cast<void*>(&Free);
    if (text == "HostNameToIP") return reinterpret_cast<void*>(&Resolve);
    if (text == "Query") return reinterpret_cast<void*>(&RunQuery);
    ADD_FAILURE() << "no export is called " << text;
    return nullptr;
  }

  // How it behaves.
  bool IsMissing = false;
  std::vector<std::string> MissingExports;
  int32_t Result = 1;
  uint32_t Error = 0;
  bool GivesHandle = true;
  std::string Answer = "1;1;1;USB";
  // For requests and updates of settings.
  int32_t SettingsResult = 1;
  std::string Settings;
  static constexpr int32_t kOwnSize = -1000;  // the answer's
  int32_t StatedSize = kOwnSize;
  int32_t StatedSettingsSize = kOwnSize;
  uint8_t Address[4] = {};
  int32_t ResolveResult = 1;
  int32_t QueryResult = 1;

  // What it was asked.
  int Loads = 0;
  std::vector<std::string> Requests;
  std::u16string Printer;
  std::string HostName;
  std::u16string Command;
  void* Window = nullptr;
  int DataCalls = 0;
  int Handles = 0;
  int Freed = 0;

 private:
  static int32_t Send(const char16_t* printer, const char* request, void** response) {
    EXPECT_GT(current->OpenFiles, 0);
    current->Printer = printer;
    current->Requests.push_back(request);
    if (response) {
      EXPECT_EQ(nullptr, *response);
      if (current->GivesHandle) {
        *response = current;
        ++current->Handles;
      }
    }
    platform::SetLastErrorNumber(current->Error);
    const bool isSettings = current->Requests.back().find("<settings") != std::string::npos;
    current->Given = isSettings ? &current->Settings : &current->Answer;
    return isSettings ? current->SettingsResult : current->Result;
  }
  static int32_t SizeOf(void* response) {
    EXPECT_EQ(current, response);
    const int32_t stated =
        current->Given == &current->Settings ? current->StatedSettingsSize : current->StatedSize;
    return stated == kOwnSize ? static_cast<int32_t>(current->Given->size()) : stated;
  }
  static void DataOf(void* response, void* buffer) {
    EXPECT_EQ(current, response);
    ++current->DataCalls;
    memcpy(buffer, current->Given->data(), current->Given->size());
  }
  static void Free(void* response) {
    EXPECT_EQ(current, response);
    ++current->Freed;
  }
  static int32_t Resolve(const char* hostName, uint8_t* address) {
    current->HostName = hostName;
    memcpy(address, current->Address, sizeof current->Address);
    return current->ResolveResult;
  }
  static int32_t RunQuery(void* window, const char16_t* command) {
    current->Window = window;
    current->Command = command;
    return current->QueryResult;
  }

  int OpenFiles = 0;
  const std::string* Given = &Answer;
  inline static FakeMonitor* current = nullptr;
};

}  // namespace ostvt::test
