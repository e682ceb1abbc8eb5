#include "platform/Libraries.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/TempDirectory.h"

#ifdef _WIN32
#include "platform/windows/Win32.h"
#else
#include <dlfcn.h>
#include <sqlite3.h>
#endif

namespace ostvt::platform {
namespace {

using test::TempDirectory;

#ifdef _WIN32

constexpr char16_t kLibrary[] = u"version.dll";
constexpr char kSymbol[] = "VerQueryValueW";

std::filesystem::path LibraryPath() {
  char16_t path[MAX_PATH] = {};
  GetSystemDirectoryW(AsWide(path), MAX_PATH);
  return std::filesystem::path(path) / kLibrary;
}

#else

constexpr char16_t kLibrary[] = u"libsqlite3.so.0";
constexpr char kSymbol[] = "sqlite3_libversion";

std::filesystem::path LibraryPath() {
  Dl_info info = {};
  dladdr(reinterpret_cast<void*>(&sqlite3_libversion), &info);
  return std::filesystem::canonical(info.dli_fname);
}

#endif

TEST(Libraries, NameAloneIsSearchedForByTheSystem) {
  LibraryHandle library = OpenLibrary(kLibrary);
  ASSERT_NE(nullptr, library);
  EXPECT_NE(nullptr, FindSymbol(library, kSymbol));
  CloseLibrary(library);
}

TEST(Libraries, NameAloneIsNotTakenFromTheCurrentFolder) {
  TempDirectory directory;
  std::filesystem::copy_file(LibraryPath(), directory.Path("planted.dll"));
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(directory.Path());
  LibraryHandle library = OpenLibrary(u"planted.dll");
  std::filesystem::current_path(before);
  EXPECT_EQ(nullptr, library);
  CloseLibrary(library);
}

TEST(Libraries, PathLoadsExactlyThatFile) {
  LibraryHandle library = OpenLibrary(LibraryPath().u16string().c_str());
  ASSERT_NE(nullptr, library);
  EXPECT_NE(nullptr, FindSymbol(library, kSymbol));
  CloseLibrary(library);
  EXPECT_EQ(
      nullptr,
      OpenLibrary(
          (LibraryPath().parent_path() / "no-such-directory" / kLibrary).u16string().c_str()));
}

TEST(Libraries, UnknownSymbolIsNull) {
  LibraryHandle library = OpenLibrary(kLibrary);
  EXPECT_EQ(nullptr, FindSymbol(library, "NoSuchFunctionOfOurs"));
  CloseLibrary(library);
  EXPECT_EQ(nullptr, FindSymbol(nullptr, kSymbol));
  CloseLibrary(nullptr);
}

TEST(Libraries, FileThatIsNoLibraryIsRefused) {
  TempDirectory directory;
  directory.Put("broken.dll", "not a library");
  directory.Put("empty.dll", "");
  EXPECT_EQ(nullptr, OpenLibrary(directory.WidePath(u"broken.dll").c_str()));
  EXPECT_EQ(nullptr, OpenLibrary(directory.WidePath(u"empty.dll").c_str()));
  EXPECT_EQ(nullptr, OpenLibrary(directory.WidePath(u"absent.dll").c_str()));
  EXPECT_EQ(nullptr, OpenLibrary(u""));
  EXPECT_EQ(nullptr, OpenLibrary(nullptr));
}

#ifndef _WIN32

TEST(Libraries, FunctionIsCalledAsItsType) {
  LibraryHandle library = OpenLibrary(kLibrary);
  auto* version = FindFunction<const char*()>(library, kSymbol);
  ASSERT_NE(nullptr, version);
  EXPECT_STREQ(sqlite3_libversion(), version());
  CloseLibrary(library);
}

TEST(Libraries, BackslashesSeparateDirectories) {
  TempDirectory directory;
  std::filesystem::create_directory(directory.Path("sub"));
  std::filesystem::copy_file(LibraryPath(), directory.Path("sub/own.so"));
  std::u16string path = directory.WidePath(u"sub") + u"\\own.so";
  LibraryHandle library = OpenLibrary(path.c_str());
  ASSERT_NE(nullptr, library);
  Dl_info info = {};
  dladdr(FindSymbol(library, kSymbol), &info);
  EXPECT_EQ(directory.Path("sub/own.so"), info.dli_fname);
  CloseLibrary(library);
}

#endif

}  // namespace
}  // namespace ostvt::platform
