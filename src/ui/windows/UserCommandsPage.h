// The page of the commands that the driver sends at fixed points of a job.
#pragma once

#include "ui/windows/UEdit.h"
#include "ui/windows/UListBox.h"
#include "ui/windows/UPage.h"

namespace ostvt {

class UserCommandsPage : public UPage {
 public:
  void Update(bool initial) override;
  bool OnCommand(int32_t id, uint32_t code, LPARAM param) override;
  void OnInitDialog() override;
  const char* GetHelpTopic() override;

 private:
  void ShowText();
  void TakeText();
  void Insert();
  void LoadFile();
  void ShowTooLong(int32_t point);

  UListBox PointBox;
  UEdit TextBox;
  int32_t ShownPoint = -1;  // whose text stands in the box
  OString ShownText;        // as the box had it last
  bool Writing = false;
};

}  // namespace ostvt
