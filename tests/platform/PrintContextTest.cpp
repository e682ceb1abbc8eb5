#include "platform/PrintContext.h"

#include <gtest/gtest.h>

#include <cstring>

namespace ostvt::platform {
namespace {

struct Call {
  PrintContext Context;
  int Escape;
  const void* Input;
  int InputSize;
  void* Output;
  int OutputSize;
};
Call lastCall;

int Record(PrintContext context, int escape, const void* input, int inputSize, void* output,
           int outputSize) {
  lastCall = {context, escape, input, inputSize, output, outputSize};
  return 7;
}

int Other(PrintContext, int, const void*, int, void*, int) { return 0; }

class PrintContextTest : public ::testing::Test {
 protected:
  void SetUp() override { lastCall = {}; }
  void TearDown() override { SetEscapeFunction(nullptr); }
};

TEST_F(PrintContextTest, WithoutAContextNobodyIsAsked) {
  EXPECT_EQ(0, SendEscape(nullptr, 15041, "x", 1, nullptr, 0));
}

TEST_F(PrintContextTest, SetFunctionGetsEverythingAsItWas) {
  SetEscapeFunction(Record);
  int context = 0;
  char input[3] = {};
  char output[5] = {};
  EXPECT_EQ(7, SendEscape(&context, 19902, input, 3, output, 5));
  EXPECT_EQ(&context, lastCall.Context);
  EXPECT_EQ(19902, lastCall.Escape);
  EXPECT_EQ(input, lastCall.Input);
  EXPECT_EQ(3, lastCall.InputSize);
  EXPECT_EQ(output, lastCall.Output);
  EXPECT_EQ(5, lastCall.OutputSize);
}

TEST_F(PrintContextTest, NegativeSizesCountAsZero) {
  SetEscapeFunction(Record);
  EXPECT_EQ(7, SendEscape(nullptr, 1, "x", -1, nullptr, -5));
  EXPECT_EQ(0, lastCall.InputSize);
  EXPECT_EQ(0, lastCall.OutputSize);
}

TEST_F(PrintContextTest, SettingGivesTheOneBefore) {
  EXPECT_EQ(nullptr, SetEscapeFunction(Record));
  EXPECT_EQ(&Record, SetEscapeFunction(Other));
  EXPECT_EQ(&Other, SetEscapeFunction(nullptr));
  EXPECT_EQ(nullptr, SetEscapeFunction(nullptr));
}

}  // namespace
}  // namespace ostvt::platform
