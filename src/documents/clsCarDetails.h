#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/documents/clsFreeFuel.h"

namespace zelnor {

/// One company car whose benefit is taxed via the payroll, element `Car`; see clsBenefits.
///
/// @code
/// auto car = std::make_shared<clsCarDetails>();
/// car->Create("Skoda Octavia", "98", eFuel::enmHybrid, false, Currency(28450), Date::FromParts(2025, 4, 6),
///             Currency(6828));
/// car->FirstRegd(Date::FromParts(2023, 3, 1));
/// @endcode
class ZELNOR_API clsCarDetails : public Record {
 public:
  /// Stores its arguments and clears Validated; FirstRegd and ZeroEmissionsMileage stay. Without
  /// `datAvailTo` the car is still available, without `objFreeFuel` no fuel comes with it.
  void Create(const String& strMake, const String& strCO2, eFuel enmFuel, bool blnAmendment,
              Currency curPrice, Date datAvailFrom, Currency curCashEquiv, const String& strID = {},
              Date datAvailTo = {}, Ref<clsFreeFuel> objFreeFuel = nullptr);

  /// Fills the record from text whose first node is `Car`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node's children. False for a node of another name, and after a
  /// failure, such as a day that is no date, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked the car and its fuel since the last change.
  bool Validated() const override;

  /// "Car".
  String RootElementName() const;

  /// Make and model (`Make`); written even when empty.
  String Make() const;

  /// The emissions in grams a kilometre, "X" for a car without such a figure (`CO2`); written even when
  /// empty.
  String CO2() const;

  /// The fuel (`Fuel`). Diesel is written "D", diesel of the Euro standard "F" and every other fuel "A"; "E"
  /// and "H" are read as electric and hybrid. Diesel where the element is absent or unknown.
  eFuel Fuel() const;

  /// The employer's own mark of the car (`ID`); left out when empty.
  String ID() const;

  /// Whether this amends what was reported of the car before; `Amendment`, "yes" or "no". Any text but "yes",
  /// in any case, reads as False.
  bool Amendment() const;

  /// The price of the car in pounds (`Price`); always written.
  Currency Price() const;

  /// The day from which the car is available (`AvailFrom`); always written.
  Date AvailFrom() const;

  /// The cash equivalent of the car in pounds (`CashEquiv`); always written.
  Currency CashEquiv() const;

  /// The last day on which the car is available (`AvailTo`); left out when zero.
  Date AvailTo() const;

  /// The day of the first registration (`FirstRegd`); always written.
  ///@{
  Date FirstRegd() const;
  void FirstRegd(Date value);
  ///@}

  /// How many miles the car goes without emissions (`ZeroEmissionsMileage`); left out when zero.
  ///@{
  Integer ZeroEmissionsMileage() const;
  void ZeroEmissionsMileage(Integer value);
  ///@}

  /// The fuel that comes with the car (`FreeFuel`); an absent one is made by the read. A write clears the
  /// fuel's Validated.
  ///@{
  Ref<clsFreeFuel> FreeFuel();
  void FreeFuel(Ref<clsFreeFuel> value);
  ///@}

  /// Whether free fuel is held. Makes none.
  bool HasFuel() const;

  /// Appends a new `Car` to the parent and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String make_;
  String co2_;
  String id_;
  Currency price_;
  Currency cash_equiv_;
  Date avail_from_;
  Date avail_to_;
  Date first_regd_;
  Ref<clsFreeFuel> free_fuel_;
  eFuel fuel_ = eFuel::enmDiesel;
  Integer zero_emissions_mileage_ = 0;
  bool amendment_ = false;
};

}  // namespace zelnor
