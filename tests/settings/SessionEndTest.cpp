#include "settings/SessionEnd.h"

#include <gtest/gtest.h>

#include <optional>

#include "settings/DriverSession.h"

namespace ostvt {
namespace {

int ends = 0;

DriverSession* CountedSession() {
  ends = 0;
  auto* session = new DriverSession;
  session->AtEnd = [](DriverSession*) { ++ends; };
  return session;
}

TEST(SessionEnd, SessionThatNobodyKeepsEndsAtOnce) {
  EndSession(CountedSession());
  EXPECT_EQ(1, ends);
  EndSession(nullptr);
}

TEST(SessionEnd, KeeperAloneEndsNothing) {
  DriverSession* session = CountedSession();
  { SessionKeeper keeper(session); }
  EXPECT_EQ(0, ends);
  { SessionKeeper none(nullptr); }
  EndSession(session);
  EXPECT_EQ(1, ends);
}

TEST(SessionEnd, KeptSessionEndsWithItsLastKeeper) {
  DriverSession* session = CountedSession();
  std::optional<SessionKeeper> outer(session);
  std::optional<SessionKeeper> inner(session);
  EndSession(session);
  EXPECT_EQ(0, ends);
  inner.reset();
  EXPECT_EQ(0, ends);
  EXPECT_TRUE(session->IsEnded);
  outer.reset();
  EXPECT_EQ(1, ends);
}

TEST(SessionEnd, WindowThatTheEndItselfShowsEndsItOnce) {
  DriverSession* session = CountedSession();
  session->AtEnd = [](DriverSession* ending) {
    ++ends;
    SessionKeeper keeper(ending);
  };
  {
    SessionKeeper keeper(session);
    EndSession(session);
  }
  EXPECT_EQ(1, ends);
}

}  // namespace
}  // namespace ostvt
