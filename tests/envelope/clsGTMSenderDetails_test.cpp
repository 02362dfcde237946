// The sender, and the authentication records in it.

#include "zelnor/envelope/clsGTMSenderDetails.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

TEST(clsGTMAuthentication, CreateTakesMethodRoleValueAndSignature) {
  clsGTMAuthentication authentication;
  authentication.Validated(true);
  authentication.Create("clear", "principal", "secret", "signed");
  EXPECT_EQ(authentication.Method(), "clear");
  EXPECT_EQ(authentication.Role(), "principal");
  EXPECT_EQ(authentication.value(), "secret");
  EXPECT_EQ(authentication.Signature(), "signed");
  EXPECT_FALSE(authentication.Validated());
}

TEST(clsGTMAuthentication, WritesItsElementsInOrderAndTheSignatureWhenGiven) {
  clsGTMAuthentication authentication;
  EXPECT_EQ(Written(authentication),
            "<Authentication><Method></Method><Role></Role><Value></Value></Authentication>");
  authentication.Create("MD5", "principal", "abc=", "signed");
  EXPECT_EQ(ParentAfterWriting(authentication, "<P><Authentication/></P>"),
            "<P><Authentication></Authentication><Authentication><Method>MD5</Method><Role>principal</Role>"
            "<Signature>signed</Signature><Value>abc=</Value></Authentication></P>");
}

TEST(clsGTMAuthentication, ReadsEveryRowAndClearsFirst) {
  clsGTMAuthentication authentication;
  EXPECT_TRUE(authentication.CreateFromXML(
      Root("<Authentication><Value>v</Value><Signature>s</Signature><Role>r</Role><Method>m</Method>"
           "</Authentication>")));
  EXPECT_EQ(
      authentication.Method() + authentication.Role() + authentication.Signature() + authentication.value(),
      "mrsv");
  EXPECT_TRUE(authentication.CreateFromXML(Root("<Authentication/>")));
  EXPECT_EQ(
      authentication.Method() + authentication.Role() + authentication.Signature() + authentication.value(),
      "");
  EXPECT_FALSE(authentication.CreateFromXML(Root("<Auth/>")));
  EXPECT_TRUE(authentication.ParseFromXML("<Authentication><Role>r</Role></Authentication>"));
  EXPECT_FALSE(authentication.ParseFromXML("<Auth/>"));
  EXPECT_EQ(authentication.Role(), "r");
}

TEST(clsGTMAuthentication, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  using T = clsGTMAuthentication;
  ExpectTextChangeClearsValidated(&T::Method, &T::Method);
  ExpectTextChangeClearsValidated(&T::Role, &T::Role);
  ExpectTextChangeClearsValidated(&T::Signature, &T::Signature);
  ExpectTextChangeClearsValidated(&T::value, &T::value);
  ExpectTextComesBack(&T::Method, &T::Method);
  ExpectTextComesBack(&T::Role, &T::Role);
  ExpectTextComesBack(&T::Signature, &T::Signature);
  ExpectTextComesBack(&T::value, &T::value);
}

TEST(clsGTMSenderDetails, CreateClearsTheCertificateAndAddsAnAuthentication) {
  clsGTMSenderDetails sender;
  sender.X509Certificate("CERT");
  sender.Validated(true);
  sender.Create("ID1", "principal", "secret", "a@b", "clear");
  EXPECT_EQ(sender.SenderID(), "ID1");
  EXPECT_EQ(sender.X509Certificate(), "");
  EXPECT_EQ(sender.EmailAddress(), "a@b");
  EXPECT_FALSE(sender.Validated());
  ASSERT_EQ(sender.Authentication()->Count(), 1);
  const auto authentication = sender.GetAuthentication(1);
  EXPECT_EQ(authentication->Method(), "clear");
  EXPECT_EQ(authentication->Role(), "principal");
  EXPECT_EQ(authentication->value(), "secret");
  sender.Create("ID2", "", "other");
  EXPECT_EQ(sender.Authentication()->Count(), 2);
}

TEST(clsGTMSenderDetails, WritesEveryRowOfItsTableInOrder) {
  clsGTMSenderDetails sender;
  sender.Create("ID1", "principal", "secret", "a@b", "clear");
  sender.CreateAuthentication("MD5", "abc=", "signed", "agent");
  sender.X509Certificate("CERT");
  EXPECT_EQ(Written(sender),
            "<SenderDetails><IDAuthentication><SenderID>ID1</SenderID><Authentication><Method>clear</Method>"
            "<Role>principal</Role><Value>secret</Value></Authentication><Authentication><Method>MD5</Method>"
            "<Role>agent</Role><Signature>signed</Signature><Value>abc=</Value></Authentication>"
            "</IDAuthentication><X509Certificate>CERT</X509Certificate><EmailAddress>a@b</EmailAddress>"
            "</SenderDetails>");
}

TEST(clsGTMSenderDetails, LeavesOutWhatIsEmptyAndWhatAFormerBuildLeft) {
  clsGTMSenderDetails sender;
  sender.CreateAuthentication("clear");
  EXPECT_EQ(ParentAfterWriting(sender,
                               "<P><SenderDetails><EmailAddress>x</EmailAddress><IDAuthentication><SenderID>y"
                               "</SenderID></IDAuthentication></SenderDetails></P>"),
            "<P><SenderDetails><IDAuthentication><Authentication><Method>clear</Method><Role></Role><Value>"
            "</Value></Authentication></IDAuthentication></SenderDetails></P>");
}

TEST(clsGTMSenderDetails, WithoutAuthenticationTheWholeSenderDisappears) {
  clsGTMSenderDetails sender;
  sender.SenderID("ID1");
  sender.EmailAddress("a@b");
  sender.X509Certificate("CERT");
  EXPECT_EQ(
      ParentAfterWriting(sender, "<P><SenderDetails><EmailAddress>x</EmailAddress></SenderDetails></P>"),
      "<P></P>");
  EXPECT_EQ(ParentAfterWriting(sender, "<P/>"), "<P></P>");
  EXPECT_FALSE(sender.ToXML(Root("<P/>")));
}

TEST(clsGTMSenderDetails, ReadsEveryRowOfItsTable) {
  const auto sender = Read<clsGTMSenderDetails>(
      "<SenderDetails><EmailAddress>a@b</EmailAddress><IDAuthentication><Authentication><Method>m</Method>"
      "</Authentication><SenderID>ID1</SenderID><Authentication><Method>n</Method></Authentication>"
      "</IDAuthentication><X509Certificate>CERT</X509Certificate></SenderDetails>");
  EXPECT_EQ(sender->SenderID(), "ID1");
  EXPECT_EQ(sender->EmailAddress(), "a@b");
  EXPECT_EQ(sender->X509Certificate(), "CERT");
  ASSERT_EQ(sender->Authentication()->Count(), 2);
  EXPECT_EQ(sender->GetAuthentication(2)->Method(), "n");
}

TEST(clsGTMSenderDetails, ReadingClearsTheTexts) {
  clsGTMSenderDetails sender;
  sender.Create("ID1", "principal", "secret", "a@b", "clear");
  sender.X509Certificate("CERT");
  sender.Validated(true);
  EXPECT_TRUE(sender.CreateFromXML(Root("<SenderDetails/>")));
  EXPECT_EQ(sender.SenderID() + sender.EmailAddress() + sender.X509Certificate(), "");
  EXPECT_FALSE(sender.Validated());
  EXPECT_FALSE(sender.CreateFromXML(Root("<Sender/>")));
}

TEST(clsGTMSenderDetails, APositionWithoutAuthenticationIsReported) {
  const WithRecordingHost host;
  clsGTMSenderDetails sender;
  EXPECT_FALSE(sender.GetAuthentication(1));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::clsGTMSenderDetails: Function GetAuthentication: Error 9 - Subscript out of "
      "range");
}

TEST(clsGTMSenderDetails, IsValidatedWhenItselfAndItsAuthenticationsAre) {
  clsGTMSenderDetails sender;
  sender.Validated(true);
  EXPECT_TRUE(sender.Validated());
  const auto authentication = std::make_shared<clsGTMAuthentication>();
  sender.AddAuthentication(authentication);
  EXPECT_EQ(sender.GetAuthentication(1), authentication);
  EXPECT_FALSE(sender.Validated());
  authentication->Validated(true);
  EXPECT_TRUE(sender.Validated());
}

TEST(clsGTMSenderDetails, EveryFieldFollowsTheRuleOfChange) {
  using T = clsGTMSenderDetails;
  ExpectTextChangeClearsValidated(&T::SenderID, &T::SenderID);
  ExpectTextChangeClearsValidated(&T::X509Certificate, &T::X509Certificate);
  ExpectTextChangeClearsValidated(&T::EmailAddress, &T::EmailAddress);
  T sender;
  sender.Validated(true);
  sender.Authentication(sender.Authentication());
  EXPECT_TRUE(sender.Validated());
  sender.Authentication(MakeCollection<clsGTMAuthentication>());
  EXPECT_FALSE(sender.Validated());
}

TEST(clsGTMSenderDetails, AnAbsentCollectionIsMadeByTheRead) {
  clsGTMSenderDetails sender;
  sender.Authentication(nullptr);
  ASSERT_TRUE(sender.Authentication());
  EXPECT_EQ(sender.Authentication()->Count(), 0);
}

TEST(clsGTMSenderDetails, AnyTextComesBack) {
  for (const String& text : TextsThatComeBack()) {
    clsGTMSenderDetails sender;
    sender.Create(text, "principal", "secret", text, "clear");
    sender.X509Certificate(text);
    const auto again = Read<clsGTMSenderDetails>(Written(sender));
    EXPECT_EQ(again->SenderID(), text);
    EXPECT_EQ(again->X509Certificate(), text);
    EXPECT_EQ(again->EmailAddress(), text);
  }
}

TEST(clsGTMSenderDetails, ParsesItsOwnRootOnly) {
  clsGTMSenderDetails sender;
  EXPECT_TRUE(sender.ParseFromXML("<SenderDetails><EmailAddress>a@b</EmailAddress></SenderDetails>"));
  EXPECT_FALSE(sender.ParseFromXML("<?xml version=\"1.0\"?><SenderDetails/>"));
  EXPECT_EQ(sender.EmailAddress(), "a@b");
  EXPECT_EQ(sender.RootElementName(), "SenderDetails");
}
