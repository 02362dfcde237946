// Who an employee is, in each kind of document.

#include "zelnor/documents/clsEmployeeDetails.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployment.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

using Details = clsEmployeeDetails;

const String kFPS = "FullPaymentSubmission";
const String kEYU = "EarlierYearUpdate";
const String kNVR = "NINOverificationRequest";
const String kEAS = "EmployerAlignmentSubmission";

const String kEmptyName = "<Name><Fore></Fore><Initials></Initials><Sur></Sur></Name>";

String WrittenIn(const String& section, Details& details) {
  return details.ToXML(Root("<" + section + "><Employee/></" + section + ">").FirstChild()).Xml();
}

String WrittenBirthDate(const String& section, Details& details) {
  const XmlNode parent = Root("<" + section + "/>");
  const XmlNode birth_date = details.ToXML(parent).FindChild("BirthDate");
  return birth_date ? birth_date.Xml() : "none";
}

std::shared_ptr<Details> FullDetails() {
  const auto name = std::make_shared<clsEmployeeNameType>();
  name->Create("", "P", "O");
  const auto address = std::make_shared<clsEmployeeAddress>();
  address->Create("1", "", "", "", "KB4 7QT", "");
  const auto partner = std::make_shared<clsEmployeePartnerDetails>();
  partner->CreateContact("", "I", "T");
  auto details = std::make_shared<Details>();
  details->Create("AB123456C", name, address, Date::FromParts(1984, 2, 29), EMPLOYEE_GENDER::f, " 123 ",
                  partner);
  return details;
}

const String kUpToGender =
    "<EmployeeDetails><NINO>AB123456C</NINO><Name><Fore>P</Fore><Sur>O</Sur></Name>"
    "<Address><Line>1</Line><UKPostcode>KB4 7QT</UKPostcode></Address><BirthDate>1984-02-29</BirthDate>"
    "<Gender>F</Gender>";
const String kPassportAndPartner =
    "<PassportNumber>123</PassportNumber>"
    "<PartnerDetails><Name><Fore>I</Fore><Sur>T</Sur></Name></PartnerDetails>";
const String kEnd = "</EmployeeDetails>";

}  // namespace

TEST(clsEmployeeDetails, WritesPassportAndPartnerInFPSAndEYUAlone) {
  const auto details = FullDetails();
  EXPECT_EQ(WrittenIn(kFPS, *details), kUpToGender + kPassportAndPartner + kEnd);
  EXPECT_EQ(WrittenIn(kEYU, *details), kUpToGender + kPassportAndPartner + kEnd);
  EXPECT_EQ(WrittenIn(kNVR, *details), kUpToGender + kEnd);
  EXPECT_EQ(WrittenIn(kEAS, *details), kUpToGender + kEnd);
  EXPECT_EQ(Written(*details), kUpToGender + kPassportAndPartner + kEnd);  // no section counts as FPS
}

TEST(clsEmployeeDetails, WritesNameAndGenderAlways) {
  Details details;
  EXPECT_EQ(WrittenIn(kFPS, details), "<EmployeeDetails>" + kEmptyName + "<Gender>M</Gender>" + kEnd);
}

TEST(clsEmployeeDetails, EmptiesItsElementBeforeWriting) {
  Details details;
  EXPECT_EQ(ParentAfterWriting(details,
                               "<P><EmployeeDetails><NINO/><Else/><PartnerDetails/></EmployeeDetails></P>"),
            "<P><EmployeeDetails>" + kEmptyName + "<Gender>M</Gender>" + kEnd + "</P>");
}

TEST(clsEmployeeDetails, WritesEveryGenderButFAsM) {
  Details details;
  details.Gender(EMPLOYEE_GENDER::Undefined);
  EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("Gender").Text(), "M");
  details.Gender(EMPLOYEE_GENDER::f);
  EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("Gender").Text(), "F");
}

TEST(clsEmployeeDetails, WritesAnAddressWithALineOrAPostcode) {
  const auto has_address = [](const String& line, const String& postcode, const String& country) {
    Details details;
    details.CreateAddress("", "", "", line, postcode, country);
    return static_cast<bool>(details.ToXML(Root("<P/>")).FindChild("Address"));
  };
  EXPECT_TRUE(has_address("4", "", ""));
  EXPECT_TRUE(has_address("", "KB4 7QT", ""));
  EXPECT_FALSE(has_address("", "", ""));
  EXPECT_FALSE(has_address("", "", "Peru"));
}

TEST(clsEmployeeDetails, WritesBirthDatesLaterThanTheFirstDayOf1900) {
  Details details;
  for (const String& section : {kFPS, kEYU, kNVR, kEAS}) {
    details.DateOfBirth({});
    EXPECT_EQ(WrittenBirthDate(section, details), "none");
    details.DateOfBirth(Date::FromParts(1900, 1, 1));
    EXPECT_EQ(WrittenBirthDate(section, details), "none");
    details.DateOfBirth(Date::FromParts(1900, 1, 2));
    EXPECT_EQ(WrittenBirthDate(section, details), "<BirthDate></BirthDate>");
    details.DateOfBirth(Date::FromParts(1900, 12, 31));
    EXPECT_EQ(WrittenBirthDate(section, details), "<BirthDate></BirthDate>");
    details.DateOfBirth(Date::FromParts(1901, 1, 1));
    EXPECT_EQ(WrittenBirthDate(section, details), "<BirthDate>1901-01-01</BirthDate>");
  }
}

TEST(clsEmployeeDetails, WritesABirthDateForANonIndividualInAnEYUAlways) {
  const auto employee = std::make_shared<clsEmployee>();
  employee->AddEmployment()->IsNonIndividual(true);
  Details& details = *employee->EmployeeDetails();
  EXPECT_EQ(WrittenBirthDate(kEYU, details), "none");  // knows no employee yet
  details.Parent(employee);
  EXPECT_EQ(WrittenBirthDate(kEYU, details), "<BirthDate></BirthDate>");
  EXPECT_EQ(WrittenBirthDate(kFPS, details), "none");
  EXPECT_EQ(WrittenBirthDate(kEAS, details), "none");
  details.DateOfBirth(Date::FromParts(1984, 2, 29));
  EXPECT_EQ(WrittenBirthDate(kEYU, details), "<BirthDate>1984-02-29</BirthDate>");
  details.DateOfBirth({});
  employee->GetEmployment(1)->IsNonIndividual(false);
  EXPECT_EQ(WrittenBirthDate(kEYU, details), "none");
}

TEST(clsEmployeeDetails, ReadsItsTable) {
  const auto details = Read<Details>(
      "<EmployeeDetails><PartnerDetails><NINO>P1</NINO></PartnerDetails><PassportNumber>123</PassportNumber>"
      "<Gender>f</Gender><BirthDate>1984-02-29</BirthDate><Address><Line>1</Line></Address>"
      "<Name><Sur>O</Sur></Name><NINO>AB123456C</NINO><Other/></EmployeeDetails>");
  EXPECT_EQ(details->NINO(), "AB123456C");
  EXPECT_EQ(details->Contact()->Surname(), "O");
  EXPECT_EQ(details->Address()->Address1(), "1");
  EXPECT_EQ(details->DateOfBirth(), Date::FromParts(1984, 2, 29));
  EXPECT_EQ(details->Gender(), EMPLOYEE_GENDER::f);
  EXPECT_EQ(details->PassportNo(), "123");
  EXPECT_EQ(details->PartnerDetails()->NINO(), "P1");
}

TEST(clsEmployeeDetails, ReadingClearsAllButTheGender) {
  const auto details = FullDetails();
  EXPECT_TRUE(details->ParseFromXML("<EmployeeDetails/>"));
  EXPECT_EQ(details->NINO() + details->PassportNo() + details->Contact()->Surname(), "");
  EXPECT_TRUE(details->DateOfBirth().IsZero());
  EXPECT_FALSE(details->HasAddress());
  EXPECT_FALSE(details->HasPartnerDetails());
  EXPECT_EQ(details->Gender(), EMPLOYEE_GENDER::f);
  EXPECT_FALSE(details->ParseFromXML("<Employee/>"));
  EXPECT_FALSE(details->CreateFromXML(Root("<Employee/>")));
  EXPECT_EQ(details->RootElementName(), "EmployeeDetails");
}

TEST(clsEmployeeDetails, ReadsAnyOtherGenderAsM) {
  for (const String text : {"M", "m", "X", ""}) {
    Details details;
    details.Gender(EMPLOYEE_GENDER::f);
    EXPECT_TRUE(details.ParseFromXML("<EmployeeDetails><Gender>" + text + "</Gender></EmployeeDetails>"));
    EXPECT_EQ(details.Gender(), EMPLOYEE_GENDER::M) << text;
  }
}

TEST(clsEmployeeDetails, ReadsABirthDateThatIsNoDateAsNone) {
  const WithRecordingHost host;
  const auto details = Read<Details>("<EmployeeDetails><BirthDate>soon</BirthDate></EmployeeDetails>");
  EXPECT_TRUE(details->DateOfBirth().IsZero());
  EXPECT_TRUE(host->messages.empty());
  EXPECT_EQ(
      Read<Details>("<EmployeeDetails><BirthDate>29/02/1984</BirthDate></EmployeeDetails>")->DateOfBirth(),
      Date::FromParts(1984, 2, 29));
}

TEST(clsEmployeeDetails, MakesChildrenWhenReadButNotWhenAsked) {
  Details details;
  EXPECT_FALSE(details.HasAddress());
  EXPECT_FALSE(details.HasPartnerDetails());
  EXPECT_NE(details.Address(), nullptr);
  EXPECT_NE(details.PartnerDetails(), nullptr);
  EXPECT_TRUE(details.HasAddress());
  EXPECT_TRUE(details.HasPartnerDetails());
  details.Contact(nullptr);
  EXPECT_NE(details.Contact(), nullptr);
}

TEST(clsEmployeeDetails, FillsItsChildren) {
  Details details;
  const Ref<clsEmployeeNameType> name = details.Contact();
  details.CreateContact("Ms", "P", "O");
  EXPECT_EQ(name->Title() + name->Forename() + name->Surname(), "MsPO");
  details.CreateAddress("1", "2", "3", "4", "KB4 7QT", "Peru");
  EXPECT_EQ(details.Address()->Address1() + details.Address()->Address4(), "14");
  EXPECT_EQ(details.Address()->Postcode() + details.Address()->Country(), "KB4 7QTPeru");
  details.CreatePartnerDetails("P1", name);
  EXPECT_EQ(details.PartnerDetails()->NINO(), "P1");
  EXPECT_EQ(details.PartnerDetails()->Contact(), name);
}

TEST(clsEmployeeDetails, CreateClearsValidatedHereAndOnTheChildren) {
  const auto details = FullDetails();
  const auto validate = [&] {
    details->Contact()->Validated(true);
    details->Address()->Validated(true);
    details->PartnerDetails()->Contact()->Validated(true);
    details->PartnerDetails()->Validated(true);
    details->Validated(true);
  };
  validate();
  EXPECT_TRUE(details->Validated());
  details->Create("", details->Contact(), details->Address(), {}, EMPLOYEE_GENDER::M, "",
                  details->PartnerDetails());
  EXPECT_FALSE(details->Contact()->Validated() || details->Address()->Validated() ||
               details->PartnerDetails()->Validated() || details->Validated());
  validate();
  details->Contact()->Surname("Q");
  EXPECT_FALSE(details->Validated());
  validate();
  details->Address()->Address1("Q");
  EXPECT_FALSE(details->Validated());
  validate();
  details->PartnerDetails()->NINO("Q");
  EXPECT_FALSE(details->Validated());
  details->Create("", nullptr, nullptr, {}, EMPLOYEE_GENDER::M, "", nullptr);
  details->Validated(true);
  EXPECT_TRUE(details->Validated());
}

TEST(clsEmployeeDetails, ItsOwnFieldsLeaveValidated) {
  Details details;
  details.Contact()->Validated(true);
  details.Validated(true);
  details.NINO("N");
  details.DateOfBirth(Date::FromParts(1984, 2, 29));
  details.Gender(EMPLOYEE_GENDER::f);
  details.PassportNo("  1 2 ");
  EXPECT_EQ(details.PassportNo(), "1 2");
  EXPECT_TRUE(details.Validated());
  const auto address = std::make_shared<clsEmployeeAddress>();
  address->Validated(true);
  details.Address(address);
  EXPECT_FALSE(address->Validated());
}

TEST(clsEmployeeDetails, DoesNotKeepItsEmployeeAlive) {
  auto employee = std::make_shared<clsEmployee>();
  const Ref<Details> details = employee->EmployeeDetails();
  details->Parent(employee);
  EXPECT_EQ(details->Parent(), employee);
  employee.reset();
  EXPECT_EQ(details->Parent(), nullptr);
}

TEST(clsEmployeeDetails, TextComesBack) {
  ExpectTextComesBack<Details>(&Details::NINO, &Details::NINO);
  ExpectTextComesBack<Details>(&Details::PassportNo, &Details::PassportNo);
}
