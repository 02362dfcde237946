// The gateway's own way to the mark, against other programs.

#include "zelnor/standin/mark.h"

#include "standin/gateway_fixture.h"

namespace zelnor::standin {
namespace {

// The SHA-1 of a file in canonical form, by xmllint and openssl.
std::string Witnessed(const std::string& path) {
  return test::OutputOf("xmllint --nonet --c14n '" + path +
                        "' | openssl dgst -sha1 -binary | openssl base64");
}

constexpr const char* kBefore =
    "<GovTalkMessage xmlns=\"http://www.govtalk.gov.uk/CM/envelope\" xmlns:a=\"urn:a\"><Header/>\n";

TEST(Mark, IsTheDigestOfTheCanonicalBodyWithoutTheMark) {
  const test::TemporaryFolder folder;
  const std::string inside = "\n <IRenvelope b='2' a='1' xmlns=\"urn:e\"><IRheader>";
  const std::string behind = "<x a:y='&#13;&quot;'/> \xC3\xA9&#x20AC;</IRheader></IRenvelope>\n</Body>";
  const std::string message = kBefore + ("<Body>" + inside) +
                              "<IRmark Type=\"generic\">old</IRmark><!-- none -->" + behind +
                              "</GovTalkMessage>";
  // Body on its own, with what is in scope there; xmllint would keep a comment, the mark doesn't count it.
  const std::string body =
      folder.Put("body.xml", "<Body xmlns=\"http://www.govtalk.gov.uk/CM/envelope\" xmlns:a=\"urn:a\">" +
                                 inside + behind);
  EXPECT_EQ(MarkOf(message), Witnessed(body));
}

TEST(Mark, IsTheSameWhateverMarkIsThere) {
  const std::string with = kBefore + std::string(
                                         "<Body><IRenvelope><IRheader><IRmark>a</IRmark></IRheader>"
                                         "</IRenvelope></Body></GovTalkMessage>");
  const std::string without =
      kBefore + std::string("<Body><IRenvelope><IRheader></IRheader></IRenvelope></Body></GovTalkMessage>");
  EXPECT_EQ(MarkOf(with), MarkOf(without));
  EXPECT_EQ(MarkOf(with).size(), 28U);
}

TEST(Mark, IsEmptyWithoutABody) {
  EXPECT_EQ(MarkOf(""), "");
  EXPECT_EQ(MarkOf("no xml"), "");
  EXPECT_EQ(MarkOf(std::string(kBefore) + "</GovTalkMessage>"), "");
}

TEST(Mark, Base32IsTheSameDigest) {
  if (!test::HasPrograms("base32 base64")) GTEST_SKIP() << "base32 isn't installed";
  const std::string base64 = "qZk+NkcGgWq6PiVxeFDCbJzQ2J0=";
  EXPECT_EQ(Base32OfMark(base64), test::OutputOf("echo '" + base64 + "' | base64 -d | base32"));
  EXPECT_EQ(Base32OfMark(""), "");
  EXPECT_EQ(Base32OfMark("qZk+NkcGgWq6PiVxeFDCbJzQ2J"), "");
}

}  // namespace
}  // namespace zelnor::standin
