#pragma once

#include "zelnor/documents/clsCarDetails.h"

namespace zelnor {

/// The benefits of a payment that are taxed via the payroll, element `Benefits`: company cars in the order in
/// which they were added.
///
/// @code
/// payment->Benefits()->AddCarDetails("Skoda Octavia", "98", eFuel::enmHybrid, false, Currency(28450),
///                                    Date::FromParts(2025, 4, 6), Currency(6828), "POOL 3");
/// @endcode
class ZELNOR_API clsBenefits : public Record {
 public:
  /// Stores the collection by reference and clears Validated. No collection stands for no cars.
  void Create(CollectionRef<clsCarDetails> colCarDetails);

  /// Adds a new car last and returns it; see clsCarDetails for the arguments. Clears Validated. A mileage
  /// beyond 32767 is a failure, which is shown in the host's message box; no car is added and none returned.
  Ref<clsCarDetails> AddCarDetails(const String& strMake, const String& strCO2, eFuel enmFuel,
                                   bool blnAmendment, Currency curPrice, Date datAvailableFrom,
                                   Currency curCashEquiv, const String& strID, Date datAvailTo = {},
                                   Date datFirstRegd = {}, Long lngZeroEmissionsMileage = 0);

  /// Fills the record from text whose first node is `Benefits`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Replaces the cars by those of a node. A child named like `Car` in another case adds an empty car. False
  /// for a node of another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked the benefits and every car since the last change.
  bool Validated() const override;

  /// "Benefits".
  String RootElementName() const;

  /// The cars (`Car`, repeating); an absent collection is made by the read. A write clears Validated of each
  /// car in it.
  ///@{
  CollectionRef<clsCarDetails> CarDetails();
  void CarDetails(CollectionRef<clsCarDetails> value);
  ///@}

  /// Whether there is a car.
  bool HasCarDetails() const;

  /// Writes the parent's one `Benefits`, with the cars behind what it already holds, and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  CollectionRef<clsCarDetails> car_details_;
};

}  // namespace zelnor
