// Windows for a session that show nothing and note what was asked of them. The user's answers are
// set beforehand.
#pragma once

#include <string>
#include <vector>

#include "settings/SessionWindows.h"

namespace ostvt::test {

// Every text is its number in brackets.
class NumberedTexts : public ResourceContext {
 public:
  OString GetString(int32_t number) override {
    OString text = "[";
    text.AppendInt(number);
    return text + "]";
  }
};

class FakeWindows final : public SessionWindows {
 public:
  std::unique_ptr<ResourceContext> OpenResources(DriverSession*) const override {
    return std::make_unique<NumberedTexts>();
  }
  bool AddPage(DriverSession*, const OString& templateName) const override {
    Calls.push_back(std::string("page ") + templateName.GetNarrow());
    return !RefusesPages;
  }
  int32_t RunSheet(DriverSession*, void* owner, const OString& title,
                   std::span<const char* const> templateNames) const override {
    Owner = owner;
    std::string call = std::string("sheet ") + title.GetNarrow();
    for (const char* name : templateNames) call += std::string(" ") + name;
    Calls.push_back(call);
    return Result;
  }
  int32_t RunDialog(DriverSession*, void* owner, const OString& templateName) const override {
    Owner = owner;
    Calls.push_back(std::string("dialog ") + templateName.GetNarrow());
    return Result;
  }
  bool ChooseFile(DriverSession*, void* owner, const OString& title,
                  std::span<const FileKind> kinds, OString* path) const override {
    Owner = owner;
    std::string call = std::string("file ") + title.GetNarrow();
    for (const FileKind& kind : kinds) call += " " + std::to_string(kind.name) + kind.pattern;
    Calls.push_back(call);
    *path = ChosenFile;
    return !ChosenFile.IsEmpty();
  }
  void RefreshSheet(void* page) const override {
    Owner = page;
    Calls.push_back("refresh");
  }

  int32_t Result = 1;
  bool RefusesPages = false;
  OString ChosenFile;
  mutable std::vector<std::string> Calls;
  mutable void* Owner = nullptr;
};

}  // namespace ostvt::test
