#include "zelnor/platform/host.h"

#include "zelnor/platform/connection.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <ifaddrs.h>
#include <list>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "support/scoped_environment.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ScopedEnvironment;
using test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

// ---- messages

TEST(DefaultHost, WritesAMessageAsOneLineWithItsTitle) {
  DefaultHost host;
  testing::internal::CaptureStderr();
  const Long button = host.MessageBox("First.\r\nSecond \xC2\xA3\x1B[2J", kOkOnly, "ZELNOR");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "ZELNOR: First.  Second \xC2\xA3 [2J\n");
  EXPECT_EQ(button, 1);
}

TEST(DefaultHost, WritesAMessageWithoutTitleAlone) {
  DefaultHost host;
  testing::internal::CaptureStderr();
  host.MessageBox("Text", kOkOnly, "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Text\n");
}

class QuietHost : public testing::Test {
 protected:
  QuietHost() { testing::internal::CaptureStderr(); }
  ~QuietHost() override { testing::internal::GetCapturedStderr(); }

  DefaultHost host;
};

TEST_F(QuietHost, KeepsMessagesAsTheyWereGiven) {
  host.MessageBox("a\nb", kExclamationIcon, "Title");
  ASSERT_EQ(host.Messages().size(), 1U);
  EXPECT_EQ(host.Messages()[0].text, "a\nb");
  EXPECT_EQ(host.Messages()[0].style, kExclamationIcon);
  EXPECT_EQ(host.Messages()[0].title, "Title");
  host.ClearMessages();
  EXPECT_TRUE(host.Messages().empty());
}

TEST_F(QuietHost, KeepsTheLastHundredMessages) {
  for (int i = 1; i <= 130; ++i) host.MessageBox(std::to_string(i), kOkOnly, "");
  ASSERT_EQ(host.Messages().size(), 100U);
  EXPECT_EQ(host.Messages().front().text, "31");
  EXPECT_EQ(host.Messages().back().text, "130");
}

TEST_F(QuietHost, KeepsMessagesOfSeveralThreads) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([this] {
      for (int j = 0; j < 20; ++j) host.MessageBox("text", kOkOnly, "");
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(host.Messages().size(), 80U);
}

TEST_F(QuietHost, AnswersAMessageBoxWithItsLastButton) {
  EXPECT_EQ(host.MessageBox("?", kExclamationIcon + kOkOnly, ""), 1);
  EXPECT_EQ(host.MessageBox("?", kQuestionIcon + 4, ""), 7);
  EXPECT_EQ(host.MessageBox("?", kQuestionIcon + 3, ""), 2);
}

// ---- dialogs

TEST_F(QuietHost, AnswersCombineReplaceIgnoreWithIgnore) {
  const DialogAnswer answer =
      host.ShowDialog({"Clash", 38, "ZELNOR", 1, "Do this for any further issues of this type"});
  EXPECT_EQ(answer.result, 5);
  EXPECT_FALSE(answer.checked);
  ASSERT_EQ(host.Messages().size(), 1U);
  EXPECT_EQ(host.Messages()[0].text, "Clash");
}

TEST_F(QuietHost, AnswersAnyOtherDialogWithItsLastButton) {
  const Long last_buttons[] = {1, 2, 5, 2, 7, 2, 5, 1};
  for (Long icon : {16, 32, 48, 64}) {
    for (Long part = 1; part <= 7; ++part) {
      EXPECT_EQ(host.ShowDialog({"", icon + part, "", 0, ""}).result, last_buttons[part])
          << icon << " + " << part;
    }
  }
}

TEST_F(QuietHost, AStyleWithoutIconOrButtonsIsAnsweredWithOk) {
  // An icon alone is one step below the bound from which its own number counts.
  for (Long style : {-1, 0, 4, 16, 32, 48, 64})
    EXPECT_EQ(host.ShowDialog({"", style, "", 0, ""}).result, 1) << style;
}

// ---- clock

TEST(DefaultHost, NowIsLocalToTheMillisecond) {
  DefaultHost host;
  const std::time_t before = std::time(nullptr);
  const double serial = host.Now().Serial();
  std::tm local{};
  localtime_r(&before, &local);
  const double expected = 25569.0 + static_cast<double>(before + local.tm_gmtoff) / 86400.0;
  EXPECT_NEAR((serial - expected) * 86400.0, 0.5, 3.0);
  const double milliseconds = serial * 86400.0 * 1000.0;
  EXPECT_NEAR(milliseconds, std::round(milliseconds), 0.01);
}

TEST(DefaultHost, TickCountsMillisecondsAndNeverGoesBack) {
  DefaultHost host;
  const std::int64_t before = host.Tick();
  host.Sleep(30);
  const std::int64_t after = host.Tick();
  EXPECT_GE(after - before, 29);
  EXPECT_LT(after - before, 20'000);
}

TEST(DefaultHost, SleepsNotAtAllForNothingOrLess) {
  DefaultHost host;
  const std::int64_t before = host.Tick();
  host.Sleep(0);
  host.Sleep(-100'000);
  host.Yield();
  EXPECT_LT(host.Tick() - before, 20'000);
}

// ---- opening files

class OpenFile : public testing::Test {
 protected:
  /// A program that notes its number of arguments, the last of them and the open files.
  std::string Viewer(const std::string& name) {
    std::string script =
        folder.Put(name, "#!/bin/sh\n{ echo \"$#|$1\"; ls -l /proc/self/fd; } > '" + folder.At("new") +
                             "'\nmv '" + folder.At("new") + "' '" + folder.At("note") + "'\n");
    chmod(script.c_str(), 0700);
    return script;
  }

  /// What the viewer noted, waited for.
  std::string Note() const {
    for (int i = 0; i < 1000 && !std::filesystem::exists(folder.At("note")); ++i) usleep(10'000);
    return folder.Get("note");
  }

  TemporaryFolder folder;
  DefaultHost host;
};

TEST_F(OpenFile, HandsTheFileOverAsTheOneArgument) {
  const std::string file = "/tmp\\a b \xC3\xA9 $(touch x); `y` & \"q\" 'z'.xml";
  ASSERT_TRUE(host.OpenFile(Viewer("my viewer"), file));
  EXPECT_THAT(Note(), testing::StartsWith("1|/tmp/a b \xC3\xA9 $(touch x); `y` & \"q\" 'z'.xml\n"));
}

TEST_F(OpenFile, TakesTheSystemsViewerWhenNoneIsNamed) {
  Viewer("bin/xdg-open");
  const ScopedEnvironment path("PATH", folder.At("bin") + ":" + std::getenv("PATH"));
  ASSERT_TRUE(host.OpenFile("", "a.xml"));
  EXPECT_THAT(Note(), testing::StartsWith("1|a.xml\n"));
}

TEST_F(OpenFile, AFileNameIsNeverAnOption) {
  ASSERT_TRUE(host.OpenFile(Viewer("viewer"), "--version"));
  EXPECT_THAT(Note(), testing::StartsWith("1|./--version\n"));
}

TEST_F(OpenFile, LeavesNoZombieAndNoOpenFiles) {
  const int secret = open(folder.Put("secret", "x").c_str(), O_RDONLY);  // without O_CLOEXEC
  ASSERT_GE(secret, 3);
  ASSERT_TRUE(host.OpenFile(Viewer("viewer"), "a.xml"));
  EXPECT_THAT(Note(), Not(HasSubstr("secret")));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
  close(secret);
}

TEST_F(OpenFile, WorksWhereTheApplicationLeavesItsChildrenToTheSystem) {
  struct sigaction ignored {};
  struct sigaction before {};
  ignored.sa_handler = SIG_IGN;
  ASSERT_EQ(sigaction(SIGCHLD, &ignored, &before), 0);
  EXPECT_TRUE(host.OpenFile(Viewer("viewer"), "a.xml"));
  EXPECT_FALSE(host.OpenFile(folder.At("missing"), "a.xml"));
  sigaction(SIGCHLD, &before, nullptr);
  EXPECT_THAT(Note(), testing::StartsWith("1|a.xml\n"));
}

TEST_F(OpenFile, IsFalseWhenTheProgramCannotBeStarted) {
  EXPECT_FALSE(host.OpenFile(folder.At("missing"), "a.xml"));
  EXPECT_FALSE(host.OpenFile(folder.Put("no program", "x"), "a.xml"));
  EXPECT_FALSE(host.OpenFile(folder.Path(), "a.xml"));
  const ScopedEnvironment path("PATH", folder.Path());
  EXPECT_FALSE(host.OpenFile("", "a.xml"));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(OpenFile, NeverOpensANetworkPath) {
  EXPECT_FALSE(host.OpenFile(Viewer("viewer"), "\\\\server\\share\\a.xml"));
  EXPECT_FALSE(host.OpenFile("\\\\server\\share\\viewer", "a.xml"));
  EXPECT_FALSE(std::filesystem::exists(folder.At("note")));
}

// ---- connection

/// A list of interfaces as the system gives it.
class Interfaces {
 public:
  Interfaces& Add(unsigned flags) { return Add(flags, nullptr); }

  Interfaces& AddIpv4(unsigned flags) {
    ipv4_.emplace_back().sin_family = AF_INET;
    return Add(flags, reinterpret_cast<sockaddr*>(&ipv4_.back()));
  }

  Interfaces& AddIpv6(unsigned flags, std::uint8_t first, std::uint8_t second) {
    sockaddr_in6& address = ipv6_.emplace_back();
    address.sin6_family = AF_INET6;
    address.sin6_addr.s6_addr[0] = first;
    address.sin6_addr.s6_addr[1] = second;
    return Add(flags, reinterpret_cast<sockaddr*>(&address));
  }

  bool Connected() const { return AnyInterfaceConnected(entries_.empty() ? nullptr : &entries_.front()); }

 private:
  Interfaces& Add(unsigned flags, sockaddr* address) {
    ifaddrs* before = entries_.empty() ? nullptr : &entries_.back();
    ifaddrs& entry = entries_.emplace_back();
    entry.ifa_flags = flags;
    entry.ifa_addr = address;
    if (before != nullptr) before->ifa_next = &entry;
    return *this;
  }

  std::list<ifaddrs> entries_;
  std::list<sockaddr_in> ipv4_;
  std::list<sockaddr_in6> ipv6_;
};

constexpr unsigned kWorking = IFF_UP | IFF_RUNNING;

TEST(AnyInterfaceConnected, WantsAnAddressOnAWorkingInterface) {
  EXPECT_FALSE(Interfaces().Connected());
  EXPECT_FALSE(Interfaces().Add(kWorking).Connected());
  EXPECT_FALSE(Interfaces().AddIpv4(IFF_UP).Connected());
  EXPECT_FALSE(Interfaces().AddIpv4(IFF_RUNNING).Connected());
  EXPECT_FALSE(Interfaces().AddIpv4(kWorking | IFF_LOOPBACK).Connected());
  EXPECT_TRUE(Interfaces().AddIpv4(kWorking).Connected());
  EXPECT_TRUE(Interfaces().Add(kWorking).AddIpv4(kWorking | IFF_LOOPBACK).AddIpv4(kWorking).Connected());
}

TEST(AnyInterfaceConnected, ALinkLocalIpv6AddressAloneIsNone) {
  EXPECT_FALSE(Interfaces().AddIpv6(kWorking, 0xFE, 0x80).Connected());
  EXPECT_TRUE(Interfaces().AddIpv6(kWorking, 0x20, 0x01).Connected());
  EXPECT_TRUE(Interfaces().AddIpv6(kWorking, 0xFD, 0x00).Connected());
  EXPECT_TRUE(Interfaces().AddIpv6(kWorking, 0xFE, 0x80).AddIpv4(kWorking).Connected());
}

class Connection : public testing::Test {
 protected:
  Connection() {
    for (const char* name :
         {"http_proxy", "https_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY"}) {
      cleared_.emplace_back(name, std::nullopt);
    }
  }

  DefaultHost host;

 private:
  std::list<ScopedEnvironment> cleared_;
};

TEST_F(Connection, IsAlwaysConfiguredAndHasTheLanBitWhenConnected) {
  const ConnectionState state = host.Connection();
  EXPECT_EQ(state.flags, kConnectionConfigured + (state.connected ? kConnectionLan : 0));
}

TEST_F(Connection, HasTheProxyBitWithAProxyInTheEnvironment) {
  for (const char* name :
       {"http_proxy", "https_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY"}) {
    const ScopedEnvironment proxy(name, "http://127.0.0.1:3128");
    EXPECT_EQ(host.Connection().flags & kConnectionProxy, kConnectionProxy) << name;
  }
  const ScopedEnvironment empty("http_proxy", "");
  EXPECT_EQ(host.Connection().flags & kConnectionProxy, 0);
}

// ---- the host of the process

class CurrentHostTest : public testing::Test {
 protected:
  ~CurrentHostTest() override { SetHost(nullptr); }
};

TEST_F(CurrentHostTest, IsADefaultHostUntilAnotherIsSet) {
  EXPECT_NE(dynamic_cast<DefaultHost*>(CurrentHost().get()), nullptr);
  EXPECT_EQ(CurrentHost(), CurrentHost());
}

TEST_F(CurrentHostTest, CanBeReplacedAndGivenBack) {
  const auto mine = std::make_shared<DefaultHost>();
  SetHost(mine);
  EXPECT_EQ(CurrentHost(), mine);
  SetHost(nullptr);
  ASSERT_NE(CurrentHost(), nullptr);
  EXPECT_NE(CurrentHost(), mine);
}

TEST_F(CurrentHostTest, AHostThatAsksForTheHostInItsDestructorDoesNotHang) {
  struct Asking : DefaultHost {
    ~Asking() override { CurrentHost()->Yield(); }
  };
  SetHost(std::make_shared<Asking>());
  SetHost(nullptr);
  EXPECT_NE(CurrentHost(), nullptr);
}

TEST_F(CurrentHostTest, MayBeReplacedWhileOtherThreadsUseIt) {
  std::atomic<bool> done = false;
  std::atomic<int> missing = 0;
  std::vector<std::thread> users;
  for (int i = 0; i < 3; ++i) {
    users.emplace_back([&] {
      while (!done) {
        const auto host = CurrentHost();
        if (host == nullptr) ++missing;
        host->Tick();
      }
    });
  }
  for (int i = 0; i < 2000; ++i) SetHost(i % 3 == 0 ? nullptr : std::make_shared<DefaultHost>());
  done = true;
  for (std::thread& user : users) user.join();
  EXPECT_EQ(missing, 0);
}

}  // namespace
}  // namespace zelnor
