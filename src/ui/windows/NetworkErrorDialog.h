// What the user is asked when the port monitor doesn't answer.
#pragma once

#include "ui/windows/UPage.h"

namespace ostvt {

class NetworkErrorDialog : public UPage {
 public:
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  void OnApply() override;
  void OnReset() override;
  const char* GetHelpTopic() override;
};

}  // namespace ostvt
