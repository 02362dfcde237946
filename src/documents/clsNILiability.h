#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// The basis of a director's NI contributions, element `NIliability`.
///
/// @code
/// clsNILiability liability;
/// liability.Create(DIRECTORS_NIC::Annual, 17);
/// @endcode
class ZELNOR_API clsNILiability : public Record {
 public:
  /// Stores its arguments and clears Validated.
  void Create(DIRECTORS_NIC eniDirectorsNIC, Integer intWkMonthNoAppt);

  /// Fills the record from text whose first node is `NIliability`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record to `NA` and 0, then fills it from a node's children. False for a node of another name,
  /// and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "NIliability".
  String RootElementName() const;

  /// Annual or alternative; `DirectorsNIC`, "AN" or "AL". Any other text reads as `NA`, with which the whole
  /// record is left out of a document.
  ///@{
  DIRECTORS_NIC DirectorsNIC() const;
  void DirectorsNIC(DIRECTORS_NIC value);
  ///@}

  /// The tax week or month of the appointment (`TaxWkOfApptOfDirector`); left out when zero.
  ///@{
  Integer WkOrMonthNoDirectorAppt() const;
  void WkOrMonthNoDirectorAppt(Integer value);
  ///@}

  /// Writes the parent's one `NIliability` and returns it; with `NA` removes it and returns no object.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  DIRECTORS_NIC directors_nic_ = DIRECTORS_NIC::NA;
  Integer wk_or_month_no_director_appt_ = 0;
};

}  // namespace zelnor
