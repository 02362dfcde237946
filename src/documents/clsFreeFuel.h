#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The free fuel that comes with a company car, element `FreeFuel`.
///
/// @code
/// auto fuel = std::make_shared<clsFreeFuel>();
/// fuel->Create(Date::FromParts(2025, 4, 6), Currency(6950));
/// car->FreeFuel(fuel);
/// @endcode
class ZELNOR_API clsFreeFuel : public Record {
 public:
  /// Stores its arguments and clears Validated. Without `datWithdrawn` the fuel is still provided.
  void Create(Date datProvided, Currency curCashEquiv, Date datWithdrawn = {});

  /// Fills the record from text whose first node is `FreeFuel`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node's children. False for a node of another name, and after a
  /// failure, such as a day that is no date, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "FreeFuel".
  String RootElementName() const;

  /// The day from which fuel is provided (`Provided`); always written.
  Date Provided() const;

  /// The cash equivalent of the fuel in pounds (`CashEquiv`); always written.
  Currency CashEquiv() const;

  /// The day on which the fuel was withdrawn (`Withdrawn`); left out when zero.
  Date Withdrawn() const;

  /// Writes the parent's one `FreeFuel` and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Date provided_;
  Date withdrawn_;
  Currency cash_equiv_;
};

}  // namespace zelnor
