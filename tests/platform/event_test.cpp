#include "zelnor/platform/event.h"

#include "zelnor/platform/values.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using testing::ElementsAre;

TEST(Event, CallsItsHandlersInTheOrderOfConnecting) {
  Event<String, Long> event;
  std::vector<String> calls;
  event.connect(
      [&](const String& text, Long number) { calls.push_back("first " + text + std::to_string(number)); });
  event.connect([&](const String& text, Long) { calls.push_back("second " + text); });
  event("a", 1);
  EXPECT_THAT(calls, ElementsAre("first a1", "second a"));
}

TEST(Event, LetsAHandlerChangeAnArgumentByReference) {
  Event<bool&> event;
  event.connect([](bool& cancel) { cancel = true; });
  bool cancel = false;
  event(cancel);
  EXPECT_TRUE(cancel);
}

TEST(Event, SurvivesAHandlerThatDisconnectsItself) {
  Event<> event;
  int calls = 0;
  sigc::connection connection;
  connection = event.connect([&] {
    ++calls;
    connection.disconnect();
  });
  event.connect([&] { calls += 10; });
  event();
  event();
  EXPECT_EQ(calls, 21);
}

TEST(Event, DoesNothingWithoutHandlers) {
  Event<Long> event;
  EXPECT_NO_THROW(event(1));
}

}  // namespace
}  // namespace zelnor
