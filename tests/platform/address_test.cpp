#include "zelnor/platform/address.h"

#include <gtest/gtest.h>

namespace zelnor {
namespace {

bool IsLoopback(const String& url) {
  const std::optional<AddressHost> host = HostOfAddress(url);
  return host && host->loopback;
}

TEST(HostOfAddress, IsTheNameAlone) {
  EXPECT_EQ(HostOfAddress("https://Gateway.Example:8443/submission?a#b")->name, "gateway.example");
  EXPECT_EQ(HostOfAddress("http://[::1]:80/")->name, "::1");
  EXPECT_EQ(HostOfAddress("http://127.0.0.1:1@evil.example/s")->name, "evil.example");
  EXPECT_EQ(HostOfAddress("http://gateway.example")->name, "gateway.example");
}

TEST(HostOfAddress, TellsOfAUser) {
  EXPECT_FALSE(HostOfAddress("http://gateway.example/a@b")->has_user);
  EXPECT_TRUE(HostOfAddress("http://127.0.0.1:1@evil.example/s")->has_user);
  EXPECT_TRUE(HostOfAddress("http://ann@localhost/")->has_user);
  EXPECT_TRUE(HostOfAddress("http://evil.example\\@127.0.0.1/")->has_user);
  EXPECT_TRUE(HostOfAddress("http://:secret@localhost/")->has_user);
}

TEST(HostOfAddress, IsNoneForWhatIsNoAddress) {
  for (const char* url : {"", "http://", "ftp://localhost/", "file:///etc/hosts", "http://local host/",
                          "http://localhost:abc/", "http://localhost:99999/"}) {
    EXPECT_FALSE(HostOfAddress(url)) << url;
  }
}

TEST(HostOfAddress, KnowsThisMachine) {
  for (const char* url : {"http://127.0.0.1:8080/s", "https://127.255.0.9/", "http://localhost/",
                          "http://LocalHost:1/", "http://[::1]/s", "http://[0:0:0:0:0:0:0:1]:8/"}) {
    EXPECT_TRUE(IsLoopback(url)) << url;
  }
}

TEST(HostOfAddress, IsNotTakenInByOthers) {
  for (const char* url :
       {"http://127.0.0.1.evil.example/s", "http://127.0.0.1:1@evil.example/s", "http://127.evil.example/",
        "http://localhost.evil.example/", "http://localhost@evil.example/", "http://128.0.0.1/",
        "http://[::2]/", "http://[::1]@evil.example/", "http://evil.example/127.0.0.1",
        "http://evil.example#@127.0.0.1/"}) {
    EXPECT_FALSE(IsLoopback(url)) << url;
  }
}

}  // namespace
}  // namespace zelnor
