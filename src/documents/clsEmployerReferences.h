#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

/// The references under which HMRC knows an employer, element `EmpRefs`. They open the body of every
/// document.
///
/// @code
/// auto references = std::make_shared<clsEmployerReferences>();
/// references->Create("527", "AS90316", "527PX00317642", "", "8596148860", etaxEmpRefTaxRef::extUseCOTAXRef);
/// @endcode
class ZELNOR_API clsEmployerReferences : public Record {
 public:
  /// Stores its arguments and clears Validated. An empty `strECON` leaves the stored one. An empty
  /// `strUTROrCOTAX` leaves the stored tax reference and sets its type to `extUndefined`.
  void Create(const String& strOfficeNo, const String& strPayeRef, const String& strAORef,
              const String& strECON = {}, const String& strUTROrCOTAX = {},
              etaxEmpRefTaxRef eniUTROrCOTAX = etaxEmpRefTaxRef::extUndefined);

  /// Fills the record from text whose first node is `EmpRefs`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record and fills it from the node's children. False for a node of another name, and after a
  /// failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "EmpRefs".
  String RootElementName() const;

  /// The HMRC office number, three digits (HMRC RTI data item 1, `OfficeNo`); written even when empty.
  ///@{
  String OfficeNo() const;
  void OfficeNo(String value);
  ///@}

  /// The employer's PAYE reference (HMRC RTI data item 2, `PayeRef`); written even when empty.
  ///@{
  String PayeRef() const;
  void PayeRef(String value);
  ///@}

  /// The Accounts Office reference (HMRC RTI data item 3, `AORef`); written even when empty.
  ///@{
  String AORef() const;
  void AORef(String value);
  ///@}

  /// The employer's contracted-out number (`ECON`). It is read and kept, and never written to a document. A
  /// write stores the trimmed value and leaves Validated as it is.
  ///@{
  String ECON() const;
  void ECON(const String& value);
  ///@}

  /// The employer's own tax reference: of Self Assessment or of Corporation Tax, as SAUTROrCOTAXRefType
  /// tells. An FPS carries it as `SAUTR` or `COTAXRef`, an EPS as `COTAXRef` alone, other documents not at
  /// all.
  ///@{
  String SAUTROrCOTAXRef() const;
  void SAUTROrCOTAXRef(String value);
  ///@}

  /// Which tax reference SAUTROrCOTAXRef is.
  etaxEmpRefTaxRef SAUTROrCOTAXRefType() const;

  /// Sets the tax reference and its type, and leaves Validated as it is.
  void SetSAUTROrCOTAXRef(const String& strRefCode, etaxEmpRefTaxRef eniRefType);

  /// Whether the tax reference is one of Self Assessment.
  bool HasSAUTR() const;

  /// Whether the tax reference is one of Corporation Tax.
  bool HasCOTAXRef() const;

  /// The tax reference when it is one of Corporation Tax, else empty.
  String COTAXRef() const;

  /// Writes the record into `EmpRefs` under the parent, by the rules of the document in which the parent
  /// stands, and returns that element.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void WriteTaxReference(Element& out, eRTISUBMISSIONTYPE document) const;

  String office_no_;
  String paye_ref_;
  String ao_ref_;
  String econ_;
  String tax_ref_;
  etaxEmpRefTaxRef tax_ref_type_ = etaxEmpRefTaxRef::extUndefined;
};

}  // namespace zelnor
