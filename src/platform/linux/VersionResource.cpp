#include "platform/VersionResource.h"

#include <strings.h>

#include "platform/ModuleVersion.h"
#include "platform/linux/Utf8.h"

namespace ostvt::platform {
namespace {

struct Entry {
  const char* Name;
  const char* Text;
};

constexpr Entry kEntries[] = {
    {"CompanyName", OSTVT_COMPANY_NAME},       {"FileDescription", OSTVT_FILE_DESCRIPTION},
    {"FileVersion", OSTVT_VERSION_TEXT},       {"InternalName", OSTVT_INTERNAL_NAME},
    {"LegalCopyright", OSTVT_LEGAL_COPYRIGHT}, {"OriginalFilename", "libostvt.so"},
    {"ProductName", OSTVT_PRODUCT_NAME},       {"ProductVersion", OSTVT_VERSION_TEXT},
    {"Product Tag", OSTVT_PRODUCT_TAG},        {"Build Date", OSTVT_BUILD_DATE},
    {"SCM Branch", OSTVT_SCM_BRANCH},          {"SCM Revision", OSTVT_SCM_REVISION},
};

}  // namespace

std::u16string VersionText(const char16_t* name) {
  if (!name) return {};
  std::string wanted = ToUtf8(name);
  for (const Entry& entry : kEntries) {
    if (strcasecmp(entry.Name, wanted.c_str()) == 0) return FromUtf8(entry.Text);
  }
  return {};
}

}  // namespace ostvt::platform
