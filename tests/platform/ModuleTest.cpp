#include "platform/Module.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#ifdef _WIN32
#include "platform/windows/Win32.h"
#else
#include <limits.h>
#include <stdlib.h>
#include <unistd.h>
#endif

namespace ostvt::platform {
namespace {

#ifdef _WIN32

TEST(Module, DirectoryIsThatOfTheModuleOfTheHandle) {
  void* before = ModuleHandle();
  char16_t system[MAX_PATH] = {};
  GetSystemDirectoryW(AsWide(system), MAX_PATH);
  SetModuleHandle(GetModuleHandleW(L"kernel32.dll"));
  EXPECT_EQ(0, lstrcmpiW(AsWide(system), AsWide(ModuleDirectory().c_str())));
  SetModuleHandle(before);
}

TEST(Module, WithoutAHandleTheProgramIsTheModule) {
  void* before = ModuleHandle();
  SetModuleHandle(nullptr);
  EXPECT_EQ(std::filesystem::path(ProcessPath()).parent_path().u16string(), ModuleDirectory());
  SetModuleHandle(before);
}

TEST(Module, ProcessPathIsThatOfTheProgram) {
  EXPECT_EQ(u"platform_tests.exe", std::filesystem::path(ProcessPath()).filename().u16string());
}

TEST(Module, PathIsThatOfItsFile) {
  void* before = ModuleHandle();
  SetModuleHandle(GetModuleHandleW(L"kernel32.dll"));
  EXPECT_EQ(0, lstrcmpiW(L"kernel32.dll", std::filesystem::path(ModulePath()).filename().c_str()));
  EXPECT_EQ(ModuleDirectory(), std::filesystem::path(ModulePath()).parent_path().u16string());
  SetModuleHandle(before);
}

TEST(Module, SystemsDirectoryLiesInThatOfWindows) {
  EXPECT_EQ(0, lstrcmpiW(AsWide(WindowsDirectory().c_str()),
                         std::filesystem::path(SystemDirectory()).parent_path().c_str()));
}

TEST(Module, PlacesTakeThatOfTheSystem) {
  const std::u16string system = SystemDirectory();
  const SystemPlaces places = {u"X:\\a", u"X:\\b"};
  SetSystemPlaces(&places);
  EXPECT_EQ(u"X:\\a", SystemDirectory());
  EXPECT_EQ(u"X:\\b", WindowsDirectory());
  SetSystemPlaces(nullptr);
  EXPECT_EQ(system, SystemDirectory());
}

#else

class Module : public ::testing::Test {
 protected:
  void SetUp() override { unsetenv("OSTVT_MODULE_DIR"); }
  void TearDown() override { unsetenv("OSTVT_MODULE_DIR"); }
};

TEST_F(Module, DirectoryIsThatOfTheFileWithThisCode) {
  EXPECT_EQ(std::filesystem::path(ProcessPath()).parent_path().u16string(), ModuleDirectory());
}

TEST_F(Module, EnvironmentTakesThePlaceOfTheDirectory) {
  setenv("OSTVT_MODULE_DIR", "/some/\xd0\x96/3", 1);
  EXPECT_EQ(u"/some/Ж/3", ModuleDirectory());
}

TEST_F(Module, DirectoryHasNoSeparatorBehindIt) {
  setenv("OSTVT_MODULE_DIR", "/some/3//", 1);
  EXPECT_EQ(u"/some/3", ModuleDirectory());
  setenv("OSTVT_MODULE_DIR", "/", 1);
  EXPECT_EQ(u"/", ModuleDirectory());
}

TEST_F(Module, EmptyEnvironmentCountsAsNone) {
  setenv("OSTVT_MODULE_DIR", "", 1);
  EXPECT_EQ(std::filesystem::path(ProcessPath()).parent_path().u16string(), ModuleDirectory());
}

TEST_F(Module, DirectoryHasAtMost260Units) {
  setenv("OSTVT_MODULE_DIR", std::string(300, 'x').c_str(), 1);
  EXPECT_EQ(std::u16string(260, u'x'), ModuleDirectory());
}

TEST_F(Module, PathIsThatOfTheFileWhateverTheEnvironmentSays) {
  EXPECT_EQ(ProcessPath(), ModulePath());
  setenv("OSTVT_MODULE_DIR", "/some/3", 1);
  EXPECT_EQ(ProcessPath(), ModulePath());
}

TEST_F(Module, SystemHasNoDirectoryOfItsOwn) {
  EXPECT_EQ(u"", SystemDirectory());
  EXPECT_EQ(u"", WindowsDirectory());
  const SystemPlaces places = {u"/a", u"/b"};
  SetSystemPlaces(&places);
  EXPECT_EQ(u"/a", SystemDirectory());
  EXPECT_EQ(u"/b", WindowsDirectory());
  SetSystemPlaces(nullptr);
  EXPECT_EQ(u"", SystemDirectory());
}

TEST_F(Module, ProcessPathIsThatOfTheProgram) {
  char path[PATH_MAX] = {};
  ASSERT_GT(readlink("/proc/self/exe", path, sizeof path - 1), 0);
  EXPECT_EQ(std::filesystem::path(path).u16string(), ProcessPath());
}

#endif

}  // namespace
}  // namespace ostvt::platform
