#include "platform/linux/IcuConverter.h"

namespace ostvt::platform {
namespace {

// ICU's count is without the terminator; it warns where that one did not fit.
int Written(int32_t count, UErrorCode error) {
  return U_FAILURE(error) || error == U_STRING_NOT_TERMINATED_WARNING ? 0 : count + 1;
}

}  // namespace

IcuConverter::IcuConverter(const char* name) {
  UErrorCode error = U_ZERO_ERROR;
  if (name) Handle = ucnv_open(name, &error);
  // The near misses of ICU's tables, such as a full-width letter that becomes a plain one.
  if (Handle) ucnv_setFallback(Handle, true);
}

IcuConverter::~IcuConverter() {
  if (Handle) ucnv_close(Handle);
}

void IcuConverter::StopAtErrors() {
  UErrorCode error = U_ZERO_ERROR;
  ucnv_setToUCallBack(Handle, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
  ucnv_setFromUCallBack(Handle, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
}

size_t IcuConverter::ToWide(const char* bytes, size_t size, char16_t* target) {
  StopAtErrors();
  UErrorCode error = U_ZERO_ERROR;
  int32_t count = ucnv_toUChars(Handle, target, 2, bytes, static_cast<int32_t>(size), &error);
  return U_FAILURE(error) ? 0 : static_cast<size_t>(count);
}

size_t IcuConverter::ToNarrow(char16_t unit, char* target) {
  StopAtErrors();
  UErrorCode error = U_ZERO_ERROR;
  int32_t count = ucnv_fromUChars(Handle, target, 4, &unit, 1, &error);
  return U_FAILURE(error) ? 0 : static_cast<size_t>(count);
}

int IcuConverter::TextToWide(const char* source, char16_t* target, int capacity) {
  UErrorCode error = U_ZERO_ERROR;
  int32_t count = ucnv_toUChars(Handle, target, capacity, source, -1, &error);
  return Written(count, error);
}

int IcuConverter::TextToNarrow(const char16_t* source, char* target, int capacity) {
  UErrorCode error = U_ZERO_ERROR;
  int32_t count = ucnv_fromUChars(Handle, target, capacity, source, -1, &error);
  return Written(count, error);
}

}  // namespace ostvt::platform
