// The names and addresses of employees, and their partners.

#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeNameType.h"
#include "zelnor/documents/clsEmployeePartnerDetails.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

using Name = clsEmployeeNameType;
using Address = clsEmployeeAddress;
using Partner = clsEmployeePartnerDetails;

String InitialsOf(const String& forename, const String& forename1 = {}) {
  Name name;
  name.Forename(forename);
  name.Forename1(forename1);
  return name.Initials();
}

String AddressWritten(const String& line3, const String& postcode, const String& country) {
  Address address;
  address.Create("", "", line3, "", postcode, country);
  return Written(address);
}

}  // namespace

TEST(clsEmployeeNameType, WritesItsTableInOrder) {
  Name name;
  name.Create(" Ms ", " Petra ", " Oakshott ");
  name.Forename1(" Jane ");
  name.Initials("PJ");
  EXPECT_EQ(Written(name),
            "<Name><Ttl>Ms</Ttl><Fore>Petra</Fore><Fore>Jane</Fore><Sur>Oakshott</Sur></Name>");
}

TEST(clsEmployeeNameType, WritesInitialsWhereThereIsNoForename) {
  Name name;
  EXPECT_EQ(Written(name), "<Name><Fore></Fore><Initials></Initials><Sur></Sur></Name>");
  name.Initials("P J");
  EXPECT_EQ(Written(name), "<Name><Fore></Fore><Initials>P J</Initials><Sur></Sur></Name>");
  name.Forename1("Jane");
  EXPECT_EQ(Written(name), "<Name><Fore></Fore><Fore>Jane</Fore><Sur></Sur></Name>");
}

TEST(clsEmployeeNameType, EmptiesItsElementBeforeWriting) {
  Name name;
  name.Create("", "P", "O");
  EXPECT_EQ(
      ParentAfterWriting(name, "<P><Name><Ttl/><Initials/><Fore/><Fore/><Fore/><Sur/><Sur/></Name></P>"),
      "<P><Name><Fore>P</Fore><Sur>O</Sur></Name></P>");
}

TEST(clsEmployeeNameType, ReadsAllButInitials) {
  const auto name =
      Read<Name>("<Name><Sur>O</Sur><Fore>P</Fore><Initials>XY</Initials><Fore>J</Fore><Ttl>Ms</Ttl></Name>");
  EXPECT_EQ(name->Title(), "Ms");
  EXPECT_EQ(name->Forename(), "P");
  EXPECT_EQ(name->Forename1(), "J");
  EXPECT_EQ(name->Surname(), "O");
  EXPECT_EQ(name->Initials(), "PJ");
}

TEST(clsEmployeeNameType, LosesInitialsOnReading) {
  Name name;
  name.Create("Ms", "P", "O");
  name.Initials("ABC");
  name.Validated(true);
  EXPECT_TRUE(name.ParseFromXML("<Name><Initials>XY</Initials><Sur>Q</Sur></Name>"));
  EXPECT_EQ(name.Title() + name.Forename() + name.Initials(), "");
  EXPECT_EQ(name.Surname(), "Q");
  EXPECT_FALSE(name.Validated());
  EXPECT_FALSE(name.ParseFromXML("<Names/>"));
  EXPECT_FALSE(name.CreateFromXML(Root("<Names/>")));
  EXPECT_EQ(name.RootElementName(), "Name");
}

TEST(clsEmployeeNameType, TakesInitialsFromTheForenames) {
  EXPECT_EQ(InitialsOf("Anne-Marie", "Jo"), "AMJ");
  EXPECT_EQ(InitialsOf("O'Neil", "Bob"), "OB");
  EXPECT_EQ(InitialsOf("4ever", "young"), "4y");
  EXPECT_EQ(InitialsOf(""), "");
  EXPECT_EQ(InitialsOf("Anne  -  Marie"), "AM");
  EXPECT_EQ(InitialsOf("Anne 2nd"), "An");
  EXPECT_EQ(InitialsOf("Anne 7 Bea"), "A B");
  EXPECT_EQ(InitialsOf("Anne-"), "A");
  EXPECT_EQ(InitialsOf("", "Jo"), "J");
  EXPECT_EQ(InitialsOf("-Anne"), "-A");
  EXPECT_EQ(InitialsOf("\xC3\x89lodie \xC3\x89ve"), "\xC3\x89v");
  EXPECT_EQ(InitialsOf("\xF0\x9D\x94\x98na May"), "\xF0\x9D\x94\x98M");
}

TEST(clsEmployeeNameType, KeepsTheInitialsItHasTaken) {
  Name name;
  name.Create("", "Petra", "Oakshott");
  EXPECT_EQ(name.Initials(), "P");
  name.Forename("Zoe");
  EXPECT_EQ(name.Initials(), "P");
  name.Initials("  Q R  ");
  EXPECT_EQ(name.Initials(), "Q R");
}

TEST(clsEmployeeNameType, StoresTrimmedAndClearsValidated) {
  for (const auto& [set, get] :
       std::vector<std::pair<void (Name::*)(const String&), String (Name::*)() const>>{
           {&Name::Title, &Name::Title},
           {&Name::Forename, &Name::Forename},
           {&Name::Forename1, &Name::Forename1},
           {&Name::Surname, &Name::Surname}}) {
    ExpectTextChangeClearsValidated<Name>(set, get);
    ExpectTextComesBack<Name>(set, get);
    Name name;
    (name.*set)("  x ");
    EXPECT_EQ((name.*get)(), "x");
  }
  Name name;
  name.Validated(true);
  name.Initials("");
  EXPECT_TRUE(name.Validated());
  name.Initials("P");
  EXPECT_FALSE(name.Validated());
}

TEST(clsEmployeeAddress, WritesLinesWithoutGaps) {
  Address address;
  address.Create("1", "", "3", "4", "KB4 7QT", "");
  EXPECT_EQ(Written(address),
            "<Address><Line>1</Line><Line>3</Line><Line>4</Line><UKPostcode>KB4 7QT</UKPostcode></Address>");
  EXPECT_EQ(address.PopulatedAddressLineCount(), 3);
  EXPECT_EQ(ParentAfterWriting(address, "<P><Address><PostCode/><Line>9</Line></Address></P>"),
            "<P>" + Written(address) + "</P>");
}

TEST(clsEmployeeAddress, LeavesOutAnEmptyPostcodeOnlyWhereThereIsACountry) {
  EXPECT_EQ(AddressWritten("", "", ""), "<Address><UKPostcode></UKPostcode></Address>");
  EXPECT_EQ(AddressWritten("", "", "Peru"), "<Address><ForeignCountry>Peru</ForeignCountry></Address>");
  EXPECT_EQ(AddressWritten("L", "KB4 7QT", "Peru"),
            "<Address><Line>L</Line><UKPostcode>KB4 7QT</UKPostcode><ForeignCountry>Peru</ForeignCountry>"
            "</Address>");
}

TEST(clsEmployeeAddress, ReadsFourLinesAndDropsTheFifth) {
  const auto address = Read<Address>(
      "<Address><ForeignCountry>C</ForeignCountry><UKPostcode>P</UKPostcode><Line>1</Line><Line/>"
      "<Line>3</Line><Line>4</Line><Line>5</Line></Address>");
  EXPECT_EQ(address->Address1(), "1");
  EXPECT_EQ(address->Address2(), "");
  EXPECT_EQ(address->Address3(), "3");
  EXPECT_EQ(address->Address4(), "4");
  EXPECT_EQ(address->Postcode(), "P");
  EXPECT_EQ(address->Country(), "C");
  EXPECT_EQ(address->ForeignCountry(), "C");
}

TEST(clsEmployeeAddress, ReadingClearsWhatTheNodeLacks) {
  Address address;
  address.Create("1", "2", "3", "4", "P", "C");
  address.Validated(true);
  EXPECT_TRUE(address.ParseFromXML("<Address><PostCode>x</PostCode><Country>y</Country></Address>"));
  EXPECT_EQ(address.PopulatedAddressLineCount(), 0);
  EXPECT_EQ(address.Postcode() + address.Country(), "");
  EXPECT_FALSE(address.Validated());
  EXPECT_FALSE(address.ParseFromXML("<?xml version='1.0'?><Address/>"));
  EXPECT_FALSE(address.CreateFromXML(Root("<Addr/>")));
  EXPECT_EQ(address.RootElementName(), "Address");
}

TEST(clsEmployeeAddress, AChangeClearsValidatedAndTextComesBack) {
  for (const auto& [set, get] :
       std::vector<std::pair<void (Address::*)(String), String (Address::*)() const>>{
           {&Address::Address1, &Address::Address1},
           {&Address::Postcode, &Address::Postcode},
           {&Address::Country, &Address::Country}}) {
    ExpectTextChangeClearsValidated<Address>(set, get);
    ExpectTextComesBack<Address>(set, get);
  }
  ExpectTextChangeClearsValidated<Address>(&Address::Address2, &Address::Address2);
  ExpectTextChangeClearsValidated<Address>(&Address::Address3, &Address::Address3);
  ExpectTextChangeClearsValidated<Address>(&Address::Address4, &Address::Address4);
}

TEST(clsEmployeePartnerDetails, WritesItsTableInOrder) {
  Partner partner;
  EXPECT_EQ(Written(partner),
            "<PartnerDetails><Name><Fore></Fore><Initials></Initials><Sur></Sur></Name></PartnerDetails>");
  partner.NINO("AB123456C");
  partner.CreateContact("Mr", "Ivo", "Tolland");
  EXPECT_EQ(
      Written(partner),
      "<PartnerDetails><NINO>AB123456C</NINO><Name><Ttl>Mr</Ttl><Fore>Ivo</Fore><Sur>Tolland</Sur></Name>"
      "</PartnerDetails>");
}

TEST(clsEmployeePartnerDetails, RemovesAnEmptyNINOFromItsElement) {
  Partner partner;
  partner.CreateContact("", "I", "T");
  EXPECT_EQ(ParentAfterWriting(partner,
                               "<P><PartnerDetails><NINO>X</NINO><Name><Ttl/></Name></PartnerDetails></P>"),
            "<P><PartnerDetails><Name><Fore>I</Fore><Sur>T</Sur></Name></PartnerDetails></P>");
}

TEST(clsEmployeePartnerDetails, ReadsItsTable) {
  Partner partner;
  EXPECT_TRUE(partner.ParseFromXML(
      "<PartnerDetails><Name><Sur>T</Sur></Name><NINO>AB123456C</NINO></PartnerDetails>"));
  EXPECT_EQ(partner.NINO(), "AB123456C");
  EXPECT_EQ(partner.Contact()->Surname(), "T");
  EXPECT_TRUE(partner.ParseFromXML("<PartnerDetails/>"));
  EXPECT_EQ(partner.NINO() + partner.Contact()->Surname(), "");
  EXPECT_FALSE(partner.ParseFromXML("<Partner/>"));
  EXPECT_FALSE(partner.CreateFromXML(Root("<Partner/>")));
  EXPECT_EQ(partner.RootElementName(), "PartnerDetails");
}

TEST(clsEmployeePartnerDetails, IsValidatedWithItsName) {
  const auto name = std::make_shared<Name>();
  Partner partner;
  partner.Create("N", name);
  EXPECT_EQ(partner.Contact(), name);
  EXPECT_EQ(partner.NINO(), "N");
  partner.Validated(true);
  EXPECT_FALSE(partner.Validated());
  name->Validated(true);
  EXPECT_TRUE(partner.Validated());
  partner.Contact(name);
  EXPECT_FALSE(name->Validated());
  partner.Contact(nullptr);
  EXPECT_TRUE(partner.Validated());
  EXPECT_NE(partner.Contact(), nullptr);
  partner.Contact()->Validated(true);
  partner.NINO("M");
  EXPECT_FALSE(partner.Validated());
}

TEST(clsEmployeePartnerDetails, TextComesBack) {
  ExpectTextComesBack<Partner>(&Partner::NINO, &Partner::NINO);
}
