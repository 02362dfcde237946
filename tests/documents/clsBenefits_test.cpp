#include "zelnor/documents/clsBenefits.h"

#include <utility>

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;
using test::Written;

const Date kFrom = Date::FromParts(2025, 4, 6);
const Date kTo = Date::FromParts(2025, 12, 31);
const Date kRegistered = Date::FromParts(2023, 3, 1);

clsCarDetails FullCar() {
  clsCarDetails car;
  const auto fuel = std::make_shared<clsFreeFuel>();
  fuel->Create(kFrom, Currency::FromPence(695012), kTo);
  car.Create("Kestrel & Co", "98", eFuel::enmDieselEuroStd, true, Currency::FromPence(2845050), kFrom,
             Currency(6828), "POOL 3", kTo, fuel);
  car.FirstRegd(kRegistered);
  car.ZeroEmissionsMileage(40);
  return car;
}

const char* const kFullCar =
    "<Car><Make>Kestrel &amp; Co</Make><FirstRegd>2023-03-01</FirstRegd><CO2>98</CO2>"
    "<ZeroEmissionsMileage>40</ZeroEmissionsMileage><Fuel>F</Fuel><ID>POOL 3</ID><Amendment>yes</Amendment>"
    "<Price>28450.50</Price><AvailFrom>2025-04-06</AvailFrom><CashEquiv>6828.00</CashEquiv>"
    "<AvailTo>2025-12-31</AvailTo><FreeFuel><Provided>2025-04-06</Provided><CashEquiv>6950.12</CashEquiv>"
    "<Withdrawn>2025-12-31</Withdrawn></FreeFuel></Car>";

const char* const kBareCar =
    "<Car><Make></Make><FirstRegd>1899-12-30</FirstRegd><CO2></CO2><Fuel>D</Fuel><Amendment>no</Amendment>"
    "<Price>0.00</Price><AvailFrom>1899-12-30</AvailFrom><CashEquiv>0.00</CashEquiv></Car>";

// ---- FreeFuel

TEST(clsFreeFuel, WritesItsRowsInOrder) {
  clsFreeFuel fuel;
  fuel.Create(kFrom, Currency(6950), kTo);
  EXPECT_EQ(Written(fuel),
            "<FreeFuel><Provided>2025-04-06</Provided><CashEquiv>6950.00</CashEquiv>"
            "<Withdrawn>2025-12-31</Withdrawn></FreeFuel>");
}

TEST(clsFreeFuel, LeavesOutNoWithdrawal) {
  clsFreeFuel fuel;
  fuel.Create(kFrom, 0);
  EXPECT_EQ(Written(fuel), "<FreeFuel><Provided>2025-04-06</Provided><CashEquiv>0.00</CashEquiv></FreeFuel>");
  EXPECT_EQ(test::ParentAfterWriting(fuel,
                                     "<P><FreeFuel><Provided>x</Provided><CashEquiv/>"
                                     "<Withdrawn>2025-12-31</Withdrawn></FreeFuel></P>"),
            "<P><FreeFuel><Provided>2025-04-06</Provided><CashEquiv>0.00</CashEquiv></FreeFuel></P>");
}

TEST(clsFreeFuel, ReadsWhatItWrites) {
  const auto fuel = Read<clsFreeFuel>(
      "<FreeFuel><Withdrawn>2025-12-31</Withdrawn><CashEquiv>-1.25</CashEquiv><Provided>2025-04-06</Provided>"
      "</FreeFuel>");
  EXPECT_EQ(fuel->Provided(), kFrom);
  EXPECT_EQ(fuel->Withdrawn(), kTo);
  EXPECT_EQ(fuel->CashEquiv(), Currency::FromPence(-125));
}

TEST(clsFreeFuel, ReadingClearsTheRecord) {
  clsFreeFuel fuel;
  fuel.Create(kFrom, 1, kTo);
  fuel.Validated(true);
  EXPECT_TRUE(fuel.ParseFromXML("<FreeFuel/>"));
  EXPECT_FALSE(fuel.Validated());
  EXPECT_TRUE(fuel.Provided().IsZero());
  EXPECT_TRUE(fuel.Withdrawn().IsZero());
  EXPECT_TRUE(fuel.CashEquiv().IsZero());
  EXPECT_EQ(fuel.RootElementName(), "FreeFuel");
  EXPECT_FALSE(fuel.ParseFromXML("<Fuel/>"));
}

TEST(clsFreeFuel, ATextThatIsNoNumberOrDateEndsTheReading) {
  for (const String child : {"<CashEquiv>x</CashEquiv>", "<Withdrawn>soon</Withdrawn>"}) {
    WithRecordingHost host;
    clsFreeFuel fuel;
    EXPECT_FALSE(fuel.ParseFromXML("<FreeFuel>" + child + "<Provided>2025-04-06</Provided></FreeFuel>"));
    EXPECT_TRUE(fuel.Provided().IsZero());
    ASSERT_EQ(host->messages.size(), 1U);
    EXPECT_TRUE(host->messages[0].text.starts_with(
        "Error in ZELNOR.dll::clsFreeFuel: Function CreateFromXML: Error 13 - "));
  }
}

// ---- Car

TEST(clsCarDetails, WritesItsRowsInOrder) {
  clsCarDetails car = FullCar();
  EXPECT_EQ(Written(car), kFullCar);
}

TEST(clsCarDetails, LeavesOutWhatIsOptional) {
  clsCarDetails car;
  EXPECT_EQ(Written(car), kBareCar);
}

TEST(clsCarDetails, IsAlwaysANewElementInTheParentsNamespace) {
  clsCarDetails car;
  const XmlNode parent = test::Root("<P xmlns=\"urn:p\"><Car/></P>");
  car.ToXML(parent);
  const XmlNode written = car.ToXML(parent);
  EXPECT_EQ(written.NamespaceURI(), "urn:p");
  EXPECT_EQ(written.FindChild("Make").NamespaceURI(), "urn:p");
  EXPECT_EQ(parent.GetElementsByTagName("Car").size(), 3U);
  EXPECT_EQ(written, parent.LastChild());
}

TEST(clsCarDetails, ReadsWhatItWrites) {
  const auto car = Read<clsCarDetails>(kFullCar);
  EXPECT_EQ(car->Make(), "Kestrel & Co");
  EXPECT_EQ(car->CO2(), "98");
  EXPECT_EQ(car->Fuel(), eFuel::enmDieselEuroStd);
  EXPECT_EQ(car->ID(), "POOL 3");
  EXPECT_TRUE(car->Amendment());
  EXPECT_EQ(car->Price(), Currency::FromPence(2845050));
  EXPECT_EQ(car->CashEquiv(), Currency(6828));
  EXPECT_EQ(car->AvailFrom(), kFrom);
  EXPECT_EQ(car->AvailTo(), kTo);
  EXPECT_EQ(car->FirstRegd(), kRegistered);
  EXPECT_EQ(car->ZeroEmissionsMileage(), 40);
  ASSERT_TRUE(car->HasFuel());
  EXPECT_EQ(car->FreeFuel()->CashEquiv(), Currency::FromPence(695012));
}

TEST(clsCarDetails, WritesThreeLettersOfFuel) {
  const std::pair<eFuel, const char*> letters[] = {{eFuel::enmDiesel, "D"},
                                                   {eFuel::enmElectric, "A"},
                                                   {eFuel::enmHybrid, "A"},
                                                   {eFuel::enmAllOther, "A"},
                                                   {eFuel::enmDieselEuroStd, "F"}};
  for (const auto& [fuel, letter] : letters) {
    clsCarDetails car;
    car.Create("", "", fuel, false, 0, {}, 0);
    EXPECT_EQ(car.ToXML(test::Root("<P/>")).FindChild("Fuel").Text(), letter);
  }
}

TEST(clsCarDetails, ReadsFiveLettersOfFuel) {
  const std::pair<const char*, eFuel> letters[] = {
      {"D", eFuel::enmDiesel},       {"d", eFuel::enmDiesel},   {"A", eFuel::enmAllOther},
      {"a", eFuel::enmAllOther},     {"E", eFuel::enmElectric}, {"e", eFuel::enmElectric},
      {"H", eFuel::enmHybrid},       {"h", eFuel::enmHybrid},   {"F", eFuel::enmDieselEuroStd},
      {"f", eFuel::enmDieselEuroStd}};
  for (const auto& [letter, fuel] : letters)
    EXPECT_EQ(Read<clsCarDetails>("<Car><Fuel>" + String(letter) + "</Fuel></Car>")->Fuel(), fuel) << letter;
}

TEST(clsCarDetails, AnElectricCarComesOutAsAllOther) {
  const auto car = Read<clsCarDetails>("<Car><Fuel>E</Fuel></Car>");
  EXPECT_EQ(car->ToXML(test::Root("<P/>")).FindChild("Fuel").Text(), "A");
}

TEST(clsCarDetails, ADayThatIsNoDateEndsTheReading) {
  for (const String name : {"FirstRegd", "AvailFrom", "AvailTo"}) {
    WithRecordingHost host;
    clsCarDetails car;
    EXPECT_FALSE(
        car.ParseFromXML("<Car><Make>Kestrel</Make><" + name + ">soon</" + name + "><ID>K1</ID></Car>"));
    EXPECT_EQ(car.Make(), "Kestrel");
    EXPECT_EQ(car.ID(), "");
    ASSERT_EQ(host->messages.size(), 1U);
    EXPECT_TRUE(host->messages[0].text.starts_with(
        "Error in ZELNOR.dll::clsCarDetails: Function CreateFromXML: Error 13 - "));
  }
}

TEST(clsCarDetails, ReadsYesInAnyCaseAsAmendment) {
  EXPECT_TRUE(Read<clsCarDetails>("<Car><Amendment>Yes</Amendment></Car>")->Amendment());
  EXPECT_FALSE(Read<clsCarDetails>("<Car><Amendment>y</Amendment></Car>")->Amendment());
}

TEST(clsCarDetails, ReadingClearsTheRecord) {
  clsCarDetails car = FullCar();
  car.Validated(true);
  ASSERT_TRUE(car.CreateFromXML(test::Root("<Car/>")));
  EXPECT_FALSE(car.Validated());
  EXPECT_FALSE(car.HasFuel());
  EXPECT_EQ(Written(car), kBareCar);
  EXPECT_FALSE(car.CreateFromXML(test::Root("<CAR/>")));
}

TEST(clsCarDetails, AMileageBeyondItsRangeEndsTheReading) {
  WithRecordingHost host;
  clsCarDetails car;
  EXPECT_FALSE(car.ParseFromXML("<Car><ZeroEmissionsMileage>40000</ZeroEmissionsMileage></Car>"));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsCarDetails: Function CreateFromXML: Error 6 - "));
}

TEST(clsCarDetails, CreateKeepsRegistrationAndMileage) {
  clsCarDetails car = FullCar();
  car.Create("Other", "X", eFuel::enmElectric, false, 1, kTo, 2);
  EXPECT_EQ(car.FirstRegd(), kRegistered);
  EXPECT_EQ(car.ZeroEmissionsMileage(), 40);
  EXPECT_EQ(car.ID(), "");
  EXPECT_TRUE(car.AvailTo().IsZero());
  EXPECT_FALSE(car.HasFuel());
}

TEST(clsCarDetails, MakesAnAbsentFuelWhenRead) {
  clsCarDetails car;
  EXPECT_FALSE(car.HasFuel());
  const Ref<clsFreeFuel> fuel = car.FreeFuel();
  ASSERT_TRUE(fuel);
  EXPECT_TRUE(car.HasFuel());
  EXPECT_EQ(car.FreeFuel(), fuel);
}

TEST(clsCarDetails, IsValidatedWithItsFuel) {
  clsCarDetails car;
  car.Validated(true);
  EXPECT_TRUE(car.Validated());
  const auto fuel = std::make_shared<clsFreeFuel>();
  fuel->Validated(true);
  car.FreeFuel(fuel);
  EXPECT_FALSE(fuel->Validated());
  EXPECT_FALSE(car.Validated());
  fuel->Validated(true);
  EXPECT_TRUE(car.Validated());
}

TEST(clsCarDetails, ChangesClearValidated) {
  using T = clsCarDetails;
  test::ExpectChangeClearsValidated<T, Date, Date>(&T::FirstRegd, &T::FirstRegd, kFrom, kTo);
  test::ExpectChangeClearsValidated<T, Integer, Integer>(&T::ZeroEmissionsMileage, &T::ZeroEmissionsMileage,
                                                         1, 2);
}

TEST(clsCarDetails, TextComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsCarDetails car;
    car.Create(text, text, eFuel::enmDiesel, false, 0, {}, 0, text);
    const auto again = Read<clsCarDetails>(Written(car));
    EXPECT_EQ(again->Make(), text);
    EXPECT_EQ(again->CO2(), text);
    EXPECT_EQ(again->ID(), text);
  }
}

// ---- Benefits

TEST(clsBenefits, WritesTheCarsInOrder) {
  clsBenefits benefits;
  benefits.AddCarDetails("First", "98", eFuel::enmHybrid, false, 1000, kFrom, 200, "A1");
  benefits.AddCarDetails("Second", "X", eFuel::enmDiesel, true, 2000, kFrom, 300, "", kTo, kRegistered, 55);
  EXPECT_EQ(Written(benefits),
            "<Benefits><Car><Make>First</Make><FirstRegd>1899-12-30</FirstRegd><CO2>98</CO2><Fuel>A</Fuel>"
            "<ID>A1</ID><Amendment>no</Amendment><Price>1000.00</Price><AvailFrom>2025-04-06</AvailFrom>"
            "<CashEquiv>200.00</CashEquiv></Car>"
            "<Car><Make>Second</Make><FirstRegd>2023-03-01</FirstRegd><CO2>X</CO2>"
            "<ZeroEmissionsMileage>55</ZeroEmissionsMileage><Fuel>D</Fuel><Amendment>yes</Amendment>"
            "<Price>2000.00</Price><AvailFrom>2025-04-06</AvailFrom><CashEquiv>300.00</CashEquiv>"
            "<AvailTo>2025-12-31</AvailTo></Car></Benefits>");
}

TEST(clsBenefits, IsEmptyWithoutCars) {
  clsBenefits benefits;
  EXPECT_FALSE(benefits.HasCarDetails());
  EXPECT_EQ(Written(benefits), "<Benefits></Benefits>");
  ASSERT_TRUE(benefits.CarDetails());
  EXPECT_EQ(benefits.CarDetails()->Count(), 0);
  EXPECT_FALSE(benefits.HasCarDetails());
}

TEST(clsBenefits, AddCarDetailsReturnsTheCarItAdded) {
  clsBenefits benefits;
  benefits.Validated(true);
  const Ref<clsCarDetails> car =
      benefits.AddCarDetails("Make", "98", eFuel::enmHybrid, false, 1000, kFrom, 200, "A1");
  EXPECT_TRUE(benefits.HasCarDetails());
  EXPECT_EQ(benefits.CarDetails()->Item(1), car);
  EXPECT_FALSE(benefits.Validated());
}

TEST(clsBenefits, AMileageBeyondItsRangeAddsNoCar) {
  WithRecordingHost host;
  clsBenefits benefits;
  EXPECT_FALSE(benefits.AddCarDetails("", "", eFuel::enmHybrid, false, 0, kFrom, 0, "", {}, {}, 32768));
  EXPECT_FALSE(benefits.HasCarDetails());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsBenefits: Function AddCarDetails: Error 6 - "));
}

TEST(clsBenefits, ReadsCarsInAnyCaseOfTheName) {
  const auto benefits = Read<clsBenefits>(
      "<Benefits><Car><Make>one</Make></Car><Van/><CAR><Make>two</Make></CAR><Car><Make>three</Make></Car>"
      "</Benefits>");
  ASSERT_EQ(benefits->CarDetails()->Count(), 3);
  EXPECT_EQ(benefits->CarDetails()->Item(1)->Make(), "one");
  EXPECT_EQ(benefits->CarDetails()->Item(2)->Make(), "");
  EXPECT_EQ(benefits->CarDetails()->Item(3)->Make(), "three");
}

TEST(clsBenefits, ACarThatFailsLeavesTheNextOneToBeRead) {
  WithRecordingHost host;
  clsBenefits benefits;
  EXPECT_TRUE(benefits.ParseFromXML(
      "<Benefits><Car><Make>one</Make><Price>x</Price></Car><Car><Make>two</Make></Car></Benefits>"));
  EXPECT_EQ(host->messages.size(), 1U);
  ASSERT_EQ(benefits.CarDetails()->Count(), 2);
  EXPECT_EQ(benefits.CarDetails()->Item(1)->Make(), "one");
  EXPECT_EQ(benefits.CarDetails()->Item(2)->Make(), "two");
}

TEST(clsBenefits, ReadingReplacesTheCars) {
  clsBenefits benefits;
  benefits.AddCarDetails("", "", eFuel::enmHybrid, false, 0, kFrom, 0, "");
  EXPECT_TRUE(benefits.ParseFromXML("<Benefits/>"));
  EXPECT_FALSE(benefits.HasCarDetails());
  EXPECT_EQ(benefits.RootElementName(), "Benefits");
  EXPECT_FALSE(benefits.ParseFromXML("<BENEFITS/>"));
}

TEST(clsBenefits, IsValidatedWithEachCar) {
  clsBenefits benefits;
  const auto cars = MakeCollection<clsCarDetails>();
  cars->Add(std::make_shared<clsCarDetails>());
  cars->Item(1)->Validated(true);
  benefits.Validated(true);
  benefits.Create(cars);
  EXPECT_EQ(benefits.CarDetails(), cars);
  EXPECT_TRUE(cars->Item(1)->Validated());
  EXPECT_FALSE(benefits.Validated());
  benefits.Validated(true);
  EXPECT_TRUE(benefits.Validated());
  benefits.CarDetails(cars);
  EXPECT_FALSE(cars->Item(1)->Validated());
  EXPECT_FALSE(benefits.Validated());
}

}  // namespace
}  // namespace zelnor
