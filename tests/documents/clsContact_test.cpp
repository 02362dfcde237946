#include "zelnor/documents/clsContact.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const char kWork[] = "Preferred=\"no\" Type=\"work\"";

}  // namespace

TEST(clsContact, ANewOneHoldsNameAndCollections) {
  clsContact contact;
  EXPECT_EQ(Written(contact), "<Contact><Name><Fore></Fore><Sur></Sur></Name></Contact>");
  EXPECT_EQ(contact.EmailAddresses()->Count(), 0);
  EXPECT_EQ(contact.Telephone()->Count(), 0);
  EXPECT_EQ(contact.Fax()->Count(), 0);
}

TEST(clsContact, WritesNameEmailsTelephonesAndFaxesInThisOrder) {
  clsContact contact;
  contact.CreateFax("5");
  contact.CreateTelephone("3");
  contact.CreateTelephone("4");
  contact.CreateEmail("1@a");
  contact.CreateEmail("2@a");
  contact.CreateContactName("Ms", "Petra", "Oakshott");
  const String work = kWork;
  EXPECT_EQ(Written(contact),
            "<Contact><Name><Ttl>Ms</Ttl><Fore>Petra</Fore><Sur>Oakshott</Sur></Name><Email " + work +
                ">1@a</Email><Email " + work + ">2@a</Email><Telephone Mobile=\"no\" " + work +
                "><Number>3</Number></Telephone><Telephone Mobile=\"no\" " + work +
                "><Number>4</Number></Telephone><Fax Mobile=\"no\" " + work +
                "><Number>5</Number></Fax></Contact>");
}

TEST(clsContact, EmptiesItsElementBeforeWriting) {
  clsContact contact;
  EXPECT_EQ(ParentAfterWriting(contact, "<P><Contact><Fax/><Email/><Other/></Contact></P>"),
            "<P><Contact><Name><Fore></Fore><Sur></Sur></Name></Contact></P>");
}

TEST(clsContact, ReadsAllItsChildren) {
  const auto contact = Read<clsContact>(
      "<Contact><Fax><Number>4</Number></Fax><Email>1@a</Email><Name><Sur>S</Sur></Name><Email>2@a</Email>"
      "<Telephone><Number>3</Number></Telephone><Pager/></Contact>");
  EXPECT_EQ(contact->ContactName()->Surname(), "S");
  ASSERT_EQ(contact->EmailAddresses()->Count(), 2);
  EXPECT_EQ(contact->EmailAddresses()->Item(1)->EmailAddress(), "1@a");
  EXPECT_EQ(contact->EmailAddresses()->Item(2)->EmailAddress(), "2@a");
  ASSERT_EQ(contact->Telephone()->Count(), 1);
  EXPECT_EQ(contact->Telephone()->Item(1)->Number(), "3");
  ASSERT_EQ(contact->Fax()->Count(), 1);
  EXPECT_EQ(contact->Fax()->Item(1)->Number(), "4");
}

TEST(clsContact, ReadingMakesNewCollectionsAndKeepsTheNameUntilOneComes) {
  clsContact contact;
  contact.CreateContactName("Ms", "Petra", "Oakshott");
  contact.CreateEmail("1@a");
  contact.CreateTelephone("3");
  contact.CreateFax("4");
  const auto emails = contact.EmailAddresses();
  EXPECT_TRUE(contact.CreateFromXML(Root("<Contact/>")));
  EXPECT_EQ(contact.ContactName()->Surname(), "Oakshott");
  EXPECT_EQ(contact.EmailAddresses()->Count() + contact.Telephone()->Count() + contact.Fax()->Count(), 0);
  EXPECT_EQ(emails->Count(), 1);
  EXPECT_TRUE(contact.CreateFromXML(Root("<Contact><Name/></Contact>")));
  EXPECT_EQ(contact.ContactName()->Surname(), "");
}

TEST(clsContact, AForeignNodeLeavesTheNameAndEmptiesTheRest) {
  clsContact contact;
  contact.CreateContactName("Ms", "Petra", "Oakshott");
  contact.CreateEmail("1@a");
  EXPECT_FALSE(contact.CreateFromXML(Root("<Kontakt><Name/></Kontakt>")));
  EXPECT_EQ(contact.ContactName()->Surname(), "Oakshott");
  EXPECT_EQ(contact.EmailAddresses()->Count(), 0);
}

TEST(clsContact, CreateStoresByReferenceAndClearsEveryFlag) {
  const auto name = std::make_shared<clsNameType>();
  const auto emails = MakeCollection<clsEmailType>();
  const auto telephones = MakeCollection<clsTelephoneType>();
  const auto faxes = MakeCollection<clsFaxType>();
  emails->Add(std::make_shared<clsEmailType>());
  telephones->Add(std::make_shared<clsTelephoneType>());
  faxes->Add(std::make_shared<clsFaxType>());
  name->Validated(true);
  emails->Item(1)->Validated(true);
  telephones->Item(1)->Validated(true);
  faxes->Item(1)->Validated(true);
  clsContact contact;
  contact.Validated(true);
  contact.Create(name, emails, telephones, faxes);
  EXPECT_EQ(contact.ContactName(), name);
  EXPECT_EQ(contact.EmailAddresses(), emails);
  EXPECT_EQ(contact.Telephone(), telephones);
  EXPECT_EQ(contact.Fax(), faxes);
  EXPECT_FALSE(name->Validated());
  EXPECT_FALSE(emails->Item(1)->Validated());
  EXPECT_FALSE(telephones->Item(1)->Validated());
  EXPECT_FALSE(faxes->Item(1)->Validated());
}

TEST(clsContact, CreateWithANameAloneWritesTheNameAlone) {
  const auto name = std::make_shared<clsNameType>();
  name->Create("", "Petra", "Oakshott");
  clsContact contact;
  contact.CreateEmail("1@a");
  contact.Create(name);
  EXPECT_EQ(Written(contact), "<Contact><Name><Fore>Petra</Fore><Sur>Oakshott</Sur></Name></Contact>");
}

TEST(clsContact, IsValidatedWhenItselfAndAllThatItHoldsAre) {
  clsContact contact;
  contact.CreateEmail("1@a");
  contact.CreateTelephone("2");
  contact.CreateFax("3");
  const std::vector<Record*> held = {&contact, contact.ContactName().get(),
                                     contact.EmailAddresses()->Item(1).get(),
                                     contact.Telephone()->Item(1).get(), contact.Fax()->Item(1).get()};
  for (Record* each : held) each->Validated(true);
  EXPECT_TRUE(contact.Validated());
  for (Record* each : held) {
    each->Validated(false);
    EXPECT_FALSE(contact.Validated());
    each->Validated(true);
  }
}

TEST(clsContact, AWriteOfTheNameClearsTheNamesFlag) {
  const auto name = std::make_shared<clsNameType>();
  name->Validated(true);
  clsContact contact;
  contact.ContactName(name);
  EXPECT_EQ(contact.ContactName(), name);
  EXPECT_FALSE(name->Validated());
}

TEST(clsContact, AnAbsentNameIsMadeByTheRead) {
  clsContact contact;
  contact.ContactName(nullptr);
  ASSERT_TRUE(contact.ContactName());
  EXPECT_EQ(contact.ContactName()->Surname(), "");
}

TEST(clsContact, TheCollectionsAreStoredAsGiven) {
  clsContact contact;
  const auto emails = MakeCollection<clsEmailType>();
  contact.EmailAddresses(emails);
  EXPECT_EQ(contact.EmailAddresses(), emails);
  const auto telephones = MakeCollection<clsTelephoneType>();
  contact.Telephone(telephones);
  EXPECT_EQ(contact.Telephone(), telephones);
  const auto faxes = MakeCollection<clsFaxType>();
  contact.Fax(faxes);
  EXPECT_EQ(contact.Fax(), faxes);
}

TEST(clsContact, CreateEmailTakesTheNumberOfTheType) {
  clsContact contact;
  contact.CreateEmail("1@a", 1, true);
  const auto email = contact.EmailAddresses()->Item(1);
  EXPECT_EQ(email->EmailAddress(), "1@a");
  EXPECT_EQ(email->EmailType(), EMAIL_TYPE::Home);
  EXPECT_TRUE(email->Preferred());
}

TEST(clsContact, CreateTelephoneAndCreateFaxHandOnAllArguments) {
  clsContact contact;
  contact.CreateTelephone("1", TELEPHONE_TYPE::Home, true, false, "8");
  const auto telephone = contact.Telephone()->Item(1);
  EXPECT_TRUE(telephone->IsMobile());
  EXPECT_FALSE(telephone->Preferred());
  EXPECT_EQ(telephone->Extension(), "8");
  contact.CreateFax("2", TELEPHONE_TYPE::Home, true, "9");
  const auto fax = contact.Fax()->Item(1);
  EXPECT_EQ(fax->TelType(), TELEPHONE_TYPE::Home);
  EXPECT_TRUE(fax->Preferred());
  EXPECT_FALSE(fax->IsMobile());
  EXPECT_EQ(fax->Extension(), "9");
}

TEST(clsContact, RemoveEmailTakesTheFirstThatIsEqualInAllThree) {
  clsContact contact;
  contact.CreateEmail("1@a", 1);
  contact.CreateEmail("1@a", 0, true);
  contact.CreateEmail("1@a");
  contact.CreateEmail("1@a");
  contact.RemoveEmail("1@b");
  EXPECT_EQ(contact.EmailAddresses()->Count(), 4);
  contact.RemoveEmail("1@a");
  ASSERT_EQ(contact.EmailAddresses()->Count(), 3);
  EXPECT_EQ(contact.EmailAddresses()->Item(1)->EmailType(), EMAIL_TYPE::Home);
  EXPECT_TRUE(contact.EmailAddresses()->Item(2)->Preferred());
  contact.RemoveEmail("1@a", EMAIL_TYPE::Work, true);
  ASSERT_EQ(contact.EmailAddresses()->Count(), 2);
  EXPECT_EQ(contact.EmailAddresses()->Item(1)->EmailType(), EMAIL_TYPE::Home);
  EXPECT_FALSE(contact.EmailAddresses()->Item(2)->Preferred());
}

TEST(clsContact, RemoveTelephoneTakesTheFirstThatIsEqualInAllFive) {
  clsContact contact;
  contact.CreateTelephone("1", TELEPHONE_TYPE::Home, true, true, "8");
  contact.RemoveTelephone("2", TELEPHONE_TYPE::Home, true, true, "8");
  contact.RemoveTelephone("1", TELEPHONE_TYPE::Work, true, true, "8");
  contact.RemoveTelephone("1", TELEPHONE_TYPE::Home, false, true, "8");
  contact.RemoveTelephone("1", TELEPHONE_TYPE::Home, true, false, "8");
  contact.RemoveTelephone("1", TELEPHONE_TYPE::Home, true, true, "9");
  EXPECT_EQ(contact.Telephone()->Count(), 1);
  contact.RemoveTelephone("1", TELEPHONE_TYPE::Home, true, true, "8");
  EXPECT_EQ(contact.Telephone()->Count(), 0);
}

TEST(clsContact, RemoveFaxReturnsAtOnceWithoutFaxes) {
  clsContact contact;
  contact.CreateTelephone("1");
  EXPECT_NO_THROW(contact.RemoveFax("1"));
  EXPECT_EQ(contact.Telephone()->Count(), 1);
}

TEST(clsContact, RemoveFaxRaisesATypeMismatchOverATelephone) {
  const WithRecordingHost host;
  clsContact contact;
  contact.CreateFax("1");
  contact.CreateTelephone("1");
  EXPECT_EQ(RaisedNumber([&] { contact.RemoveFax("1"); }), 13);
  EXPECT_EQ(contact.Fax()->Count(), 1);
  EXPECT_EQ(contact.Telephone()->Count(), 1);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsContact, RemoveFaxRaisesAnIndexErrorWithoutTelephones) {
  const WithRecordingHost host;
  clsContact contact;
  contact.CreateFax("1");
  EXPECT_EQ(RaisedNumber([&] { contact.RemoveFax("1"); }), 9);
  EXPECT_EQ(contact.Fax()->Count(), 1);
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsContact, ParsesTextWithoutDeclarationOnly) {
  clsContact contact;
  EXPECT_TRUE(contact.ParseFromXML("<Contact><Email>1@a</Email></Contact>"));
  EXPECT_EQ(contact.EmailAddresses()->Count(), 1);
  EXPECT_FALSE(contact.ParseFromXML("<?xml version=\"1.0\"?><Contact/>"));
  EXPECT_EQ(contact.EmailAddresses()->Count(), 1);
  EXPECT_EQ(contact.RootElementName(), "Contact");
}

TEST(clsContact, WritingWhatWasReadChangesNothingTheSecondTime) {
  const auto first = Read<clsContact>(
      "<Contact><Name><Fore>A</Fore><Sur>S</Sur></Name><Email Type=\"home\">1@a</Email>"
      "<Telephone Mobile=\"yes\"><Number>2</Number></Telephone><Fax Mobile=\"yes\"><Number>3</Number></Fax>"
      "</Contact>");
  const String once = Written(*first);
  EXPECT_EQ(Written(*Read<clsContact>(once)), once);
}
