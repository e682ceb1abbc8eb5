#include "platform/VersionResource.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "platform/Module.h"
#include "tests/support/TempDirectory.h"

#ifdef _WIN32
#include "platform/windows/Win32.h"
#endif

namespace ostvt::platform {
namespace {

#ifdef _WIN32

// A node of a version block: sizes, kind (1 text), key, value, then its children, each at a
// multiple of four bytes.
std::string Node(const std::u16string& key, const std::string& value, uint16_t valueLength,
                 uint16_t kind, const std::vector<std::string>& children) {
  auto align = [](std::string* bytes) { bytes->resize((bytes->size() + 3) & ~size_t{3}); };
  std::string bytes(6, '\0');
  bytes.append(reinterpret_cast<const char*>(key.c_str()), (key.size() + 1) * 2);
  align(&bytes);
  bytes += value;
  for (const std::string& child : children) {
    align(&bytes);
    bytes += child;
  }
  uint16_t size = static_cast<uint16_t>(bytes.size());
  memcpy(&bytes[0], &size, 2);
  memcpy(&bytes[2], &valueLength, 2);
  memcpy(&bytes[4], &kind, 2);
  return bytes;
}

std::string TextNode(const std::u16string& key, const std::u16string& text) {
  std::string value(reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * 2);
  return Node(key, value, static_cast<uint16_t>(text.size() + 1), 1, {});
}

// A copy of this program with a version block of ours, loaded but never run.
class VersionResource : public ::testing::Test {
 protected:
  void Load(const std::u16string& language) {
    const uint32_t fixed[13] = {0xFEEF04BD, 0x00010000};
    std::string table = Node(language, "", 0, 1,
                             {TextNode(u"ProductVersion", u"6.7.4"),
                              TextNode(u"Product Tag", u"Ж 😀"), TextNode(u"Build Date", u"")});
    std::string block =
        Node(u"VS_VERSION_INFO", std::string(reinterpret_cast<const char*>(fixed), sizeof fixed),
             sizeof fixed, 0, {Node(u"StringFileInfo", "", 0, 1, {table})});
    std::u16string path = Directory.WidePath(u"copy.dll");
    ASSERT_TRUE(CopyFileW(AsWide(ProcessPath().c_str()), AsWide(path.c_str()), FALSE));
    HANDLE update = BeginUpdateResourceW(AsWide(path.c_str()), TRUE);
    ASSERT_NE(nullptr, update);
    ASSERT_TRUE(UpdateResourceW(update, MAKEINTRESOURCEW(16), MAKEINTRESOURCEW(1), 0, block.data(),
                                static_cast<DWORD>(block.size())));
    ASSERT_TRUE(EndUpdateResourceW(update, FALSE));
    Copy = LoadLibraryExW(AsWide(path.c_str()), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(nullptr, Copy);
    Before = ModuleHandle();
    SetModuleHandle(Copy);
  }
  void TearDown() override {
    if (!Copy) return;
    SetModuleHandle(Before);
    FreeLibrary(Copy);
  }

 private:
  test::TempDirectory Directory;
  HMODULE Copy = nullptr;
  void* Before = nullptr;
};

TEST_F(VersionResource, TextsAreThoseUnder000004B0) {
  Load(u"000004B0");
  EXPECT_EQ(u"6.7.4", VersionText(u"ProductVersion"));
  EXPECT_EQ(u"Ж 😀", VersionText(u"Product Tag"));
  EXPECT_EQ(u"", VersionText(u"Build Date"));
  EXPECT_EQ(u"", VersionText(u"SCM Branch"));
  EXPECT_EQ(u"", VersionText(u""));
  EXPECT_EQ(u"", VersionText(nullptr));
}

TEST_F(VersionResource, TextsOfAnotherLanguageAreNotTaken) {
  Load(u"040904B0");
  EXPECT_EQ(u"", VersionText(u"ProductVersion"));
}

TEST_F(VersionResource, ModuleWithoutABlockHasNoTexts) {
  EXPECT_EQ(u"", VersionText(u"ProductVersion"));
}

#else

TEST(VersionResource, ProductVersionIsThatOfTheProject) {
  EXPECT_EQ(u"6.7.4", VersionText(u"ProductVersion"));
  EXPECT_EQ(u"6.7.4", VersionText(u"FileVersion"));
}

TEST(VersionResource, NamesAreFoundInAnyCase) {
  EXPECT_EQ(u"Ostrel", VersionText(u"Product Tag"));
  EXPECT_EQ(u"Ostrel", VersionText(u"PRODUCT tag"));
}

TEST(VersionResource, UnknownNameIsEmpty) {
  EXPECT_EQ(u"", VersionText(u"ProductVersio"));
  EXPECT_EQ(u"", VersionText(u"Product"));
  EXPECT_EQ(u"", VersionText(u""));
  EXPECT_EQ(u"", VersionText(nullptr));
}

#endif

}  // namespace
}  // namespace ostvt::platform
