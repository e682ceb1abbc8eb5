// The INF as the system's own setup reads and carries it out, on stand-ins of the driver's files.
#include <gtest/gtest.h>
// Behind the test header, which wants the system's own.
#include <windows.h>

#include <setupapi.h>
#include <winspool.h>

#include <cstdlib>
#include <set>
#include <string>

namespace host {
namespace {

const std::set<std::wstring> kFiles = {L"ostvt.dll",  L"ostvt.dat",    L"vt#base.ddz",
                                       L"vt#ost.ddz", L"Defaults.sds", L"ostenu.chm",
                                       L"ostdeu.chm"};

std::wstring MakeDirectory() {
  wchar_t base[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, base);
  std::wstring path = std::wstring(base) + L"ostvt-inf-" + std::to_wstring(GetCurrentProcessId());
  CreateDirectoryW(path.c_str(), nullptr);
  return path;
}

void WriteStandIn(const std::wstring& path) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, "stand-in", 8, &written, nullptr);
  CloseHandle(file);
}

// Those of ours that lie there.
std::set<std::wstring> FilesIn(const std::wstring& directory) {
  std::set<std::wstring> names;
  for (const std::wstring& name : kFiles) {
    if (GetFileAttributesW((directory + L"\\" + name).c_str()) != INVALID_FILE_ATTRIBUTES)
      names.insert(name);
  }
  return names;
}

void RemoveFiles(const std::wstring& directory) {
  for (const std::wstring& name : kFiles) DeleteFileW((directory + L"\\" + name).c_str());
}

class InfHost : public testing::Test {
 protected:
  void SetUp() override {
    const wchar_t* path = _wgetenv(L"OSTVT_TEST_INF");
    ASSERT_NE(path, nullptr) << "OSTVT_TEST_INF names no file";
    UINT wrongLine = 0;
    Inf = SetupOpenInfFileW(path, L"Printer", INF_STYLE_WIN4, &wrongLine);
    ASSERT_NE(Inf, INVALID_HANDLE_VALUE) << "line " << wrongLine << ", error " << GetLastError();
  }
  void TearDown() override {
    if (Inf != INVALID_HANDLE_VALUE) SetupCloseInfFile(Inf);
  }
  // The only value of the key; strings are filled in.
  std::wstring Value(const wchar_t* section, const wchar_t* key, DWORD field = 1) const {
    INFCONTEXT line = {};
    if (!SetupFindFirstLineW(Inf, section, key, &line)) return L"(none)";
    wchar_t text[256] = {};
    if (!SetupGetStringFieldW(&line, field, text, 256, nullptr)) return L"(no field)";
    return text;
  }
  // The first field of each line.
  std::set<std::wstring> Lines(const wchar_t* section, DWORD field) const {
    std::set<std::wstring> names;
    INFCONTEXT line = {};
    for (BOOL more = SetupFindFirstLineW(Inf, section, nullptr, &line); more;
         more = SetupFindNextLine(&line, &line)) {
      wchar_t text[256] = {};
      if (SetupGetStringFieldW(&line, field, text, 256, nullptr)) names.insert(text);
    }
    return names;
  }

  HINF Inf = INVALID_HANDLE_VALUE;
};

TEST_F(InfHost, TellsWhatItIs) {
  EXPECT_EQ(Value(L"Version", L"Signature"), L"$Windows NT$");
  EXPECT_EQ(Value(L"Version", L"ClassGuid"), L"{4D36E979-E325-11CE-BFC1-08002BE10318}");
  EXPECT_EQ(Value(L"Version", L"Provider"), L"Vantrel");
}

TEST_F(InfHost, NamesTheParametersOfADriverRecord) {
  EXPECT_EQ(Value(L"OSTVT.Data", L"ConfigFile"), L"ostvt.dll");
  EXPECT_EQ(Value(L"OSTVT.Data", L"DataFile"), L"ostvt.dat");
  EXPECT_EQ(Value(L"OSTVT.Data", L"HelpFile"), L"ostenu.chm");
}

TEST_F(InfHost, ListsEveryFileOnItsDisk) {
  EXPECT_EQ(Lines(L"OSTVT.Files", 1), kFiles);
  EXPECT_EQ(Lines(L"SourceDisksFiles.amd64", 0), kFiles);
  for (const std::wstring& name : kFiles) {
    EXPECT_EQ(Value(L"SourceDisksFiles.amd64", name.c_str()), L"1");
  }
  EXPECT_EQ(Value(L"SourceDisksNames.amd64", L"1"), L"Vantrel driver for Ostrel label printers");
}

// As a rendering half's install section takes it in.
TEST_F(InfHost, InstallingItsSectionCopiesTheFilesToTheDriverDirectory) {
  wchar_t target[MAX_PATH] = {};
  DWORD needed = 0;
  ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(target),
                                         sizeof target, &needed));
  RemoveFiles(target);
  const std::wstring source = MakeDirectory();
  for (const std::wstring& name : kFiles) WriteStandIn(source + L"\\" + name);
  HSPFILEQ queue = SetupOpenFileQueue();
  EXPECT_TRUE(
      SetupInstallFilesFromInfSectionW(Inf, nullptr, queue, L"OSTVT.Half", source.c_str(), 0))
      << GetLastError();
  void* context = SetupInitDefaultQueueCallbackEx(nullptr, static_cast<HWND>(INVALID_HANDLE_VALUE),
                                                  0, 0, nullptr);
  EXPECT_TRUE(SetupCommitFileQueueW(nullptr, queue, SetupDefaultQueueCallbackW, context))
      << GetLastError();
  SetupTermDefaultQueueCallback(context);
  SetupCloseFileQueue(queue);
  EXPECT_EQ(FilesIn(target), kFiles);
  RemoveFiles(target);
  RemoveFiles(source);
  RemoveDirectoryW(source.c_str());
}

}  // namespace
}  // namespace host
