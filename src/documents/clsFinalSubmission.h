#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

/// The mark of the last submission of a year or of a scheme, in an FPS or EPS.
///
/// @code
/// fps->Final_Submission()->FinalForYear(true);
/// @endcode
class ZELNOR_API clsFinalSubmission : public Record {
 public:
  /// Stores its arguments and clears `Validated`. A zero date means none.
  void Create(bool blnSchemeCeased, bool blnFinalForYear, Date datDateSchemeCeased = {});

  /// Fills the record from text whose first node is `FinalSubmission`. False, and nothing changed, for text
  /// that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the record from its element; all fields are cleared first. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "FinalSubmission".
  String RootElementName() const;

  /// The scheme has ceased.
  ///@{
  bool SchemeCeased() const;
  void SchemeCeased(bool value);
  ///@}

  /// The day on which the scheme ceased; zero for none.
  ///@{
  Date DateSchemeCeased() const;
  void DateSchemeCeased(Date value);
  ///@}

  /// This is the final submission of the year.
  ///@{
  bool FinalForYear() const;
  void FinalForYear(bool value);
  ///@}

  /// Writes the record under its section.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  Date date_scheme_ceased_;
  bool scheme_ceased_ = false;
  bool final_for_year_ = false;
};

}  // namespace zelnor
