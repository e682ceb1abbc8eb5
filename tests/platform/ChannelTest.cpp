#include "platform/Channel.h"

#include <gtest/gtest.h>

#include <string>

namespace ostvt::platform {
namespace {

std::string calls;
int window;

constexpr ChannelFunctions kNoting = {
    [](const char* name) -> void* {
      calls += std::string("find ") + name + ";";
      return &window;
    },
    [](void* to, uint32_t message) {
      calls += (to == &window ? "send " : "lost ") + std::to_string(message) + ";";
    },
    [](void* to, uint32_t message, uintptr_t value) {
      calls += (to == &window ? "post " : "lost ") + std::to_string(message) + " " +
               std::to_string(value) + ";";
    },
};

TEST(Channel, NobodyAnswersToANameThatNoPartnerHas) {
  EXPECT_EQ(nullptr, FindChannel("no such channel of ours"));
  EXPECT_EQ(nullptr, FindChannel(""));
  EXPECT_EQ(nullptr, FindChannel(nullptr));
}

TEST(Channel, MessagesToNobodyGoNowhere) {
  SetChannelFunctions(&kNoting);
  calls.clear();
  SendToChannel(nullptr, 1025);
  PostToChannel(nullptr, 1027, 2);
  EXPECT_EQ("", calls);
  SetChannelFunctions(nullptr);
}

TEST(Channel, FunctionsTakeThePlaceOfTheSystem) {
  SetChannelFunctions(&kNoting);
  calls.clear();
  EXPECT_EQ(&window, FindChannel("Chan"));
  SendToChannel(&window, 1025);
  PostToChannel(&window, 1027, 2);
  EXPECT_EQ("find Chan;send 1025;post 1027 2;", calls);
  SetChannelFunctions(nullptr);
  EXPECT_EQ(nullptr, FindChannel("Chan"));
}

}  // namespace
}  // namespace ostvt::platform
