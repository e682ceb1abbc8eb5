// What the Ostrel family adds to a session.
#pragma once

#include "settings/DriverSession.h"

namespace ostvt {

class FamilyDriverSession : public DriverSession {
 public:
  void GetFileNameRules(NameRules* record) override;
};

}  // namespace ostvt
