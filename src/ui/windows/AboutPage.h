// The maker's page, the last of every sheet.
#pragma once

#include "ui/windows/PictureControl.h"
#include "ui/windows/UPage.h"

namespace ostvt {

class AboutPage : public UPage {
 public:
  void OnInitDialog() override;
  void Update(bool initial) override;
  const char* GetHelpTopic() override;

 private:
  void ShowPicture();

  DevicePicture Picture = {};
};

}  // namespace ostvt
