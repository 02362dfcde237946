// The records below a contact: name, e-mail address, telephone and fax.

#include "zelnor/documents/clsEmailType.h"
#include "zelnor/documents/clsFaxType.h"
#include "zelnor/documents/clsNameType.h"
#include "zelnor/documents/clsTelephoneType.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

TEST(clsNameType, CreateStoresAllThreeTrimmedAndLeavesTheSecondForename) {
  clsNameType name;
  name.Forename1("Jane");
  name.Validated(true);
  name.Create(" Ms ", " Petra", "Oakshott ");
  EXPECT_EQ(name.Title(), "Ms");
  EXPECT_EQ(name.Forename(), "Petra");
  EXPECT_EQ(name.Forename1(), "Jane");
  EXPECT_EQ(name.Surname(), "Oakshott");
  EXPECT_FALSE(name.Validated());
}

TEST(clsNameType, WritesItsElementsInOrder) {
  clsNameType name;
  name.Create("Ms", "Petra", "Oakshott");
  name.Forename1("Jane");
  EXPECT_EQ(Written(name),
            "<Name><Ttl>Ms</Ttl><Fore>Petra</Fore><Fore>Jane</Fore><Sur>Oakshott</Sur></Name>");
}

TEST(clsNameType, WritesEmptyForenameAndSurnameAndLeavesOutTheRest) {
  clsNameType name;
  EXPECT_EQ(Written(name), "<Name><Fore></Fore><Sur></Sur></Name>");
}

TEST(clsNameType, EmptiesItsElementBeforeWriting) {
  clsNameType name;
  name.Create("", "Petra", "Oakshott");
  EXPECT_EQ(
      ParentAfterWriting(name, "<P><Name><Sur>Old</Sur><Ttl>Mr</Ttl><Fore>a</Fore><Fore>b</Fore></Name></P>"),
      "<P><Name><Fore>Petra</Fore><Sur>Oakshott</Sur></Name></P>");
}

TEST(clsNameType, TellsForenamesApartByPositionAndDropsTheThird) {
  const auto three = Read<clsNameType>("<Name><Fore>A</Fore><Sur>S</Sur><Fore>B</Fore><Fore>C</Fore></Name>");
  EXPECT_EQ(three->Forename(), "A");
  EXPECT_EQ(three->Forename1(), "B");
  EXPECT_EQ(three->Surname(), "S");
  const auto one = Read<clsNameType>("<Name><Fore>A</Fore></Name>");
  EXPECT_EQ(one->Forename(), "A");
  EXPECT_EQ(one->Forename1(), "");
}

TEST(clsNameType, ReadingClearsAllFourFirstAlsoForAForeignNode) {
  clsNameType name;
  name.Create("Ms", "Petra", "Oakshott");
  name.Forename1("Jane");
  name.Validated(true);
  EXPECT_FALSE(name.CreateFromXML(Root("<Names><Sur>X</Sur></Names>")));
  EXPECT_EQ(name.Title() + name.Forename() + name.Forename1() + name.Surname(), "");
  EXPECT_FALSE(name.Validated());
}

TEST(clsNameType, ReadsTrimmedTextAlsoWhereWhiteSpaceIsPreserved) {
  const auto name = Read<clsNameType>(
      "<Name xml:space=\"preserve\"><Ttl> Ms </Ttl><Fore> A</Fore><Fore>B </Fore><Sur> S </Sur></Name>");
  EXPECT_EQ(name->Title() + "|" + name->Forename() + "|" + name->Forename1() + "|" + name->Surname(),
            "Ms|A|B|S");
}

TEST(clsNameType, AWriteComparesTheUntrimmedValueAndStoresTheTrimmed) {
  clsNameType name;
  name.Surname(" Oakshott ");
  EXPECT_EQ(name.Surname(), "Oakshott");
  name.Validated(true);
  name.Surname("Oakshott");
  EXPECT_TRUE(name.Validated());
  name.Surname("Oakshott ");
  EXPECT_FALSE(name.Validated());
  EXPECT_EQ(name.Surname(), "Oakshott");
}

TEST(clsNameType, EveryFieldFollowsTheRuleOfChange) {
  ExpectTextChangeClearsValidated(&clsNameType::Title, &clsNameType::Title);
  ExpectTextChangeClearsValidated(&clsNameType::Forename, &clsNameType::Forename);
  ExpectTextChangeClearsValidated(&clsNameType::Forename1, &clsNameType::Forename1);
  ExpectTextChangeClearsValidated(&clsNameType::Surname, &clsNameType::Surname);
}

TEST(clsNameType, AnyTextComesBack) {
  ExpectTextComesBack(&clsNameType::Title, &clsNameType::Title);
  ExpectTextComesBack(&clsNameType::Forename, &clsNameType::Forename);
  ExpectTextComesBack(&clsNameType::Forename1, &clsNameType::Forename1);
  ExpectTextComesBack(&clsNameType::Surname, &clsNameType::Surname);
}

TEST(clsNameType, TakesTheNamespaceOfItsParent) {
  clsNameType name;
  const XmlNode written = name.ToXML(Root("<P xmlns=\"urn:p\"/>"));
  EXPECT_EQ(written.NamespaceURI(), "urn:p");
  EXPECT_EQ(written.FindChild("Sur").NamespaceURI(), "urn:p");
}

TEST(clsNameType, ParsesTextWithoutDeclarationOnly) {
  clsNameType name;
  EXPECT_TRUE(name.ParseFromXML("<Name><Sur>S</Sur></Name>"));
  EXPECT_EQ(name.Surname(), "S");
  EXPECT_FALSE(name.ParseFromXML("<?xml version=\"1.0\"?><Name><Sur>T</Sur></Name>"));
  EXPECT_FALSE(name.ParseFromXML("<name/>"));
  EXPECT_EQ(name.Surname(), "S");
}

TEST(clsNameType, TextThatIsNotWellFormedIsRefusedWithoutAMessage) {
  const WithRecordingHost host;
  clsNameType name;
  EXPECT_FALSE(name.ParseFromXML("<Name>"));
  EXPECT_FALSE(name.ParseFromXML(""));
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsNameType, NoNodeAndNoParentAreReportedAndEndThere) {
  const WithRecordingHost host;
  clsNameType name;
  EXPECT_FALSE(name.CreateFromXML(nullptr));
  EXPECT_FALSE(name.ToXML(nullptr));
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsNameType: Function CreateFromXML: Error 91 - Object variable or With "
            "block variable not set");
  EXPECT_EQ(host->messages[1].text,
            "Error in ZELNOR.dll::clsNameType: Function ToXML: Error 91 - Object variable or With block "
            "variable not set");
}

TEST(clsEmailType, StartsAtWorkAndNotPreferred) {
  const clsEmailType email;
  EXPECT_EQ(email.EmailType(), EMAIL_TYPE::Work);
  EXPECT_FALSE(email.Preferred());
  EXPECT_EQ(email.EmailAddress(), "");
  EXPECT_FALSE(email.Validated());
}

TEST(clsEmailType, AnyNumberButZeroMeansPreferred) {
  clsEmailType email;
  for (const Integer number : {Integer{1}, Integer{-1}, Integer{2}}) {
    email.Create("a@b", EMAIL_TYPE::Home, number);
    EXPECT_TRUE(email.Preferred()) << number;
  }
  email.Validated(true);
  email.Create("a@b", EMAIL_TYPE::Home, 0);
  EXPECT_FALSE(email.Preferred());
  EXPECT_EQ(email.EmailType(), EMAIL_TYPE::Home);
  EXPECT_FALSE(email.Validated());
}

TEST(clsEmailType, WritesBothAttributesAlways) {
  clsEmailType email;
  EXPECT_EQ(Written(email), "<Email Preferred=\"no\" Type=\"work\"></Email>");
  email.Create("a@b.example", EMAIL_TYPE::Home, 1);
  EXPECT_EQ(Written(email), "<Email Preferred=\"yes\" Type=\"home\">a@b.example</Email>");
  email.EmailType(static_cast<EMAIL_TYPE>(7));
  EXPECT_EQ(Written(email), "<Email Preferred=\"yes\" Type=\"work\">a@b.example</Email>");
}

TEST(clsEmailType, AppendsANewElementAtEachWrite) {
  clsEmailType email;
  email.EmailAddress("b@b");
  EXPECT_EQ(ParentAfterWriting(email, "<P><Email>a@a</Email></P>"),
            "<P><Email>a@a</Email><Email Preferred=\"no\" Type=\"work\">b@b</Email></P>");
}

TEST(clsEmailType, ReadsAttributesInAnyCase) {
  EXPECT_TRUE(Read<clsEmailType>("<Email Preferred=\"Yes\"/>")->Preferred());
  EXPECT_FALSE(Read<clsEmailType>("<Email Preferred=\"true\"/>")->Preferred());
  EXPECT_EQ(Read<clsEmailType>("<Email Type=\"HOME\"/>")->EmailType(), EMAIL_TYPE::Home);
  EXPECT_EQ(Read<clsEmailType>("<Email Type=\"club\"/>")->EmailType(), EMAIL_TYPE::Work);
}

TEST(clsEmailType, AbsentAttributesKeepTheStoredValues) {
  clsEmailType email;
  email.Create("a@b", EMAIL_TYPE::Home, 1);
  email.Validated(true);
  EXPECT_TRUE(email.CreateFromXML(Root("<Email>c@d</Email>")));
  EXPECT_TRUE(email.Preferred());
  EXPECT_EQ(email.EmailType(), EMAIL_TYPE::Home);
  EXPECT_EQ(email.EmailAddress(), "c@d");
  EXPECT_FALSE(email.Validated());
}

TEST(clsEmailType, AForeignNodeChangesNothing) {
  clsEmailType email;
  email.Create("a@b", EMAIL_TYPE::Home, 1);
  email.Validated(true);
  EXPECT_FALSE(email.CreateFromXML(Root("<EMail Preferred=\"no\">c@d</EMail>")));
  EXPECT_TRUE(email.Preferred());
  EXPECT_EQ(email.EmailAddress(), "a@b");
  EXPECT_FALSE(email.Validated());
}

TEST(clsEmailType, ADeclarationInFrontIsRefused) {
  clsEmailType email;
  EXPECT_FALSE(email.ParseFromXML("<?xml version=\"1.0\"?><Email>a@b</Email>"));
  EXPECT_TRUE(email.ParseFromXML("<Email>a@b</Email>"));
  EXPECT_EQ(email.RootElementName(), "Email");
}

TEST(clsEmailType, EveryFieldFollowsTheRuleOfChange) {
  ExpectTextChangeClearsValidated(&clsEmailType::EmailAddress, &clsEmailType::EmailAddress);
  ExpectChangeClearsValidated(&clsEmailType::Preferred, &clsEmailType::Preferred, true, false);
  ExpectChangeClearsValidated(&clsEmailType::EmailType, &clsEmailType::EmailType, EMAIL_TYPE::Home,
                              EMAIL_TYPE::Work);
}

TEST(clsEmailType, AnyTextComesBack) {
  ExpectTextComesBack(&clsEmailType::EmailAddress, &clsEmailType::EmailAddress);
}

TEST(clsTelephoneType, CreateStoresItsArgumentsInTheirOrder) {
  clsTelephoneType telephone;
  telephone.Create("01632 960417", TELEPHONE_TYPE::Home, true, false, "212");
  EXPECT_EQ(telephone.Number(), "01632 960417");
  EXPECT_EQ(telephone.TelType(), TELEPHONE_TYPE::Home);
  EXPECT_TRUE(telephone.IsMobile());
  EXPECT_FALSE(telephone.Preferred());
  EXPECT_EQ(telephone.Extension(), "212");
  telephone.Create("1");
  EXPECT_EQ(telephone.TelType(), TELEPHONE_TYPE::Work);
  EXPECT_FALSE(telephone.IsMobile());
  EXPECT_EQ(telephone.Extension(), "");
}

TEST(clsTelephoneType, WritesAttributesAndNumberAlwaysAndTheExtensionWhenGiven) {
  clsTelephoneType telephone;
  EXPECT_EQ(Written(telephone),
            "<Telephone Mobile=\"no\" Preferred=\"no\" Type=\"work\"><Number></Number></Telephone>");
  telephone.Create("07700 900461", TELEPHONE_TYPE::Home, true, true, "9");
  EXPECT_EQ(Written(telephone),
            "<Telephone Mobile=\"yes\" Preferred=\"yes\" Type=\"home\"><Number>07700 900461</Number>"
            "<Extension>9</Extension></Telephone>");
}

TEST(clsTelephoneType, AppendsANewElementAtEachWrite) {
  clsTelephoneType telephone;
  telephone.Number("2");
  EXPECT_EQ(ParentAfterWriting(telephone, "<P><Telephone><Number>1</Number></Telephone></P>"),
            "<P><Telephone><Number>1</Number></Telephone><Telephone Mobile=\"no\" Preferred=\"no\" "
            "Type=\"work\"><Number>2</Number></Telephone></P>");
}

TEST(clsTelephoneType, ReadingClearsAllButTheType) {
  clsTelephoneType telephone;
  telephone.Create("1", TELEPHONE_TYPE::Home, true, true, "9");
  EXPECT_TRUE(telephone.CreateFromXML(Root("<Telephone/>")));
  EXPECT_EQ(telephone.Number(), "");
  EXPECT_EQ(telephone.Extension(), "");
  EXPECT_FALSE(telephone.IsMobile());
  EXPECT_FALSE(telephone.Preferred());
  EXPECT_EQ(telephone.TelType(), TELEPHONE_TYPE::Home);
}

TEST(clsTelephoneType, ReadsEveryRowOfItsTable) {
  const auto telephone = Read<clsTelephoneType>(
      "<Telephone Mobile=\"YES\" Preferred=\"yes\" Type=\"Home\"><!-- x --><Extension>9</Extension>"
      "<Number>1</Number></Telephone>");
  EXPECT_TRUE(telephone->IsMobile());
  EXPECT_TRUE(telephone->Preferred());
  EXPECT_EQ(telephone->TelType(), TELEPHONE_TYPE::Home);
  EXPECT_EQ(telephone->Number(), "1");
  EXPECT_EQ(telephone->Extension(), "9");
}

TEST(clsTelephoneType, ATypeThatIsNotHomeIsWork) {
  clsTelephoneType telephone;
  telephone.TelType(TELEPHONE_TYPE::Home);
  EXPECT_TRUE(telephone.CreateFromXML(Root("<Telephone Type=\"mobile\"/>")));
  EXPECT_EQ(telephone.TelType(), TELEPHONE_TYPE::Work);
}

TEST(clsTelephoneType, TakesElementsAloneAmongItsChildren) {
  // The base name of a processing instruction is its target.
  const auto telephone =
      Read<clsTelephoneType>("<Telephone><Number>1</Number><?Number 2?><?Extension 3?></Telephone>");
  EXPECT_EQ(telephone->Number(), "1");
  EXPECT_EQ(telephone->Extension(), "");
}

TEST(clsTelephoneType, EveryFieldFollowsTheRuleOfChange) {
  ExpectTextChangeClearsValidated(&clsTelephoneType::Number, &clsTelephoneType::Number);
  ExpectTextChangeClearsValidated(&clsTelephoneType::Extension, &clsTelephoneType::Extension);
  ExpectChangeClearsValidated(&clsTelephoneType::IsMobile, &clsTelephoneType::IsMobile, true, false);
  ExpectChangeClearsValidated(&clsTelephoneType::Preferred, &clsTelephoneType::Preferred, false, true);
  ExpectChangeClearsValidated(&clsTelephoneType::TelType, &clsTelephoneType::TelType, TELEPHONE_TYPE::Home,
                              TELEPHONE_TYPE::Work);
}

TEST(clsTelephoneType, AnyTextComesBack) {
  ExpectTextComesBack(&clsTelephoneType::Number, &clsTelephoneType::Number);
  ExpectTextComesBack(&clsTelephoneType::Extension, &clsTelephoneType::Extension);
}

TEST(clsTelephoneType, ParsesItsOwnRootOnly) {
  clsTelephoneType telephone;
  EXPECT_TRUE(telephone.ParseFromXML("<Telephone><Number>1</Number></Telephone>"));
  EXPECT_FALSE(telephone.ParseFromXML("<Fax><Number>2</Number></Fax>"));
  EXPECT_EQ(telephone.Number(), "1");
}

TEST(clsFaxType, CreateSetsMobileToFalse) {
  clsFaxType fax;
  fax.IsMobile(true);
  fax.Create("1", TELEPHONE_TYPE::Home, true, "9");
  EXPECT_FALSE(fax.IsMobile());
  EXPECT_TRUE(fax.Preferred());
  EXPECT_EQ(fax.TelType(), TELEPHONE_TYPE::Home);
  EXPECT_EQ(fax.Number(), "1");
  EXPECT_EQ(fax.Extension(), "9");
}

TEST(clsFaxType, WritesAsATelephoneUnderItsOwnName) {
  clsFaxType fax;
  fax.Create("1", TELEPHONE_TYPE::Home, true, "9");
  fax.IsMobile(true);
  EXPECT_EQ(ParentAfterWriting(fax, "<P><Fax/></P>"),
            "<P><Fax></Fax><Fax Mobile=\"yes\" Preferred=\"yes\" Type=\"home\"><Number>1</Number>"
            "<Extension>9</Extension></Fax></P>");
}

TEST(clsFaxType, ReadingDoesNotTakeMobileSoThatARewriteSaysNo) {
  const auto fax =
      Read<clsFaxType>("<Fax Mobile=\"yes\" Preferred=\"yes\" Type=\"home\"><Number>1</Number></Fax>");
  EXPECT_EQ(Written(*fax), "<Fax Mobile=\"no\" Preferred=\"yes\" Type=\"home\"><Number>1</Number></Fax>");
}

TEST(clsFaxType, ReadingBeginsWithANewRecord) {
  clsFaxType fax;
  fax.Create("1", TELEPHONE_TYPE::Home, true, "9");
  fax.Validated(true);
  EXPECT_TRUE(fax.CreateFromXML(Root("<Fax/>")));
  EXPECT_EQ(fax.TelType(), TELEPHONE_TYPE::Work);
  EXPECT_FALSE(fax.Preferred());
  EXPECT_EQ(fax.Number() + fax.Extension(), "");
  EXPECT_FALSE(fax.Validated());
  EXPECT_FALSE(fax.CreateFromXML(Root("<Telephone/>")));
}

TEST(clsFaxType, EveryFieldFollowsTheRuleOfChange) {
  ExpectTextChangeClearsValidated(&clsFaxType::Number, &clsFaxType::Number);
  ExpectTextChangeClearsValidated(&clsFaxType::Extension, &clsFaxType::Extension);
  ExpectChangeClearsValidated(&clsFaxType::IsMobile, &clsFaxType::IsMobile, true, false);
  ExpectChangeClearsValidated(&clsFaxType::Preferred, &clsFaxType::Preferred, false, true);
  ExpectChangeClearsValidated(&clsFaxType::TelType, &clsFaxType::TelType, TELEPHONE_TYPE::Home,
                              TELEPHONE_TYPE::Work);
}

TEST(clsFaxType, AnyTextComesBack) {
  ExpectTextComesBack(&clsFaxType::Number, &clsFaxType::Number);
  ExpectTextComesBack(&clsFaxType::Extension, &clsFaxType::Extension);
}
