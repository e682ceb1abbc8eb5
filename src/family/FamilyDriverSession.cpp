#include "family/FamilyDriverSession.h"

namespace ostvt {
namespace {

constexpr int32_t kFileNameLimit = 128;

}  // namespace

void FamilyDriverSession::GetFileNameRules(NameRules* record) {
  record->required = true;
  record->upperCase = true;
  record->maxLength = kFileNameLimit;
  record->allowed.Release();
  record->forbidden.Release();
}

}  // namespace ostvt
