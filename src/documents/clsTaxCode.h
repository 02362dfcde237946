#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The tax code that a payment was taxed by, element `TaxCode`, with the tax regime that its first letter
/// tells.
///
/// @code
/// auto code = std::make_shared<clsTaxCode>();
/// code->Create("S1257L", true);  // Scottish, on a week 1 or month 1 basis
/// payment->TaxCode(code);
/// @endcode
class ZELNOR_API clsTaxCode : public Record {
 public:
  /// Stores its arguments, the code as the write of TaxCode does, and clears Validated.
  void Create(const String& strTaxCodeValue, bool blnBasisNonCumulative = false, const String& strSVR = {});

  /// Fills the record from text whose first node is `TaxCode`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record, then fills it from a node. The regime comes from the attribute alone, not from the
  /// code's first letter. False for a node of another name, and after a failure, which is shown in the host's
  /// message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "TaxCode".
  String RootElementName() const;

  /// The code with its regime letter, such as "1257L" or "S1257L"; the element's text, written even when
  /// empty. "NI" in any case is stored as "NT". A write sets IsScottishTaxRegime for a code that begins with
  /// "S" and IsWelshTaxRegime for one that begins with "C", and clears them for any other.
  ///@{
  String TaxCode() const;
  void TaxCode(const String& value);
  ///@}

  /// Whether the code is operated on a week 1 or month 1 basis; attribute `BasisNonCumulative`, "yes" or left
  /// out. Its presence reads as True, whatever its value.
  ///@{
  bool BasisNonCumulative() const;
  void BasisNonCumulative(bool value);
  ///@}

  /// Carried for the application; read from the attribute `SVR` and never written.
  ///@{
  String SVR() const;
  void SVR(String value);
  ///@}

  /// Whether the Scottish rates apply; attribute `TaxRegime` "S".
  ///@{
  bool IsScottishTaxRegime() const;
  void IsScottishTaxRegime(bool value);
  ///@}

  /// Whether the Welsh rates apply; attribute `TaxRegime` "C". Not written for a code that is Scottish, too.
  ///@{
  bool IsWelshTaxRegime() const;
  void IsWelshTaxRegime(bool value);
  ///@}

  /// Writes the parent's one `TaxCode` and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String tax_code_;
  String svr_;
  bool basis_non_cumulative_ = false;
  bool scottish_ = false;
  bool welsh_ = false;
};

}  // namespace zelnor
