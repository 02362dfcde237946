#pragma once

#include "zelnor/documents/employee_section.h"

namespace zelnor {

/// The body of an Employer Alignment Submission, by which an employer's list of employees is brought in line
/// with HMRC's. A long one may be sent in parts.
///
/// @code
/// Ref<clsSectionEAS> eas = rti.Submission()->EAS();
/// eas->NumberOfParts(2);
/// eas->UniquePartID("EAS-1");
/// eas->AddEmployee(employee);
/// @endcode
class ZELNOR_API clsSectionEAS : public EmployeeSection {
 public:
  /// Stores its arguments (the flag as `UseCompression`) and clears `Validated`.
  void Create(Ref<clsEmployerReferences> objEmployerReferences, CollectionRef<clsEmployee> colEmployees,
              bool blnCompressed = false);

  /// Fills the section from text whose first node is `EmployerAlignmentSubmission`. False, and nothing
  /// changed, for text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element. References and employees are cleared first, the number of parts is 1
  /// and the part's identifier empty again; the flags stay. Unknown children are ignored. False when the node
  /// has another name, and for a number of parts that is no number.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// "EmployerAlignmentSubmission".
  String RootElementName() const;

  /// "HMRC-PAYE-RTI-EAS".
  String Class() const;

  /// The schema's path below the program's folder.
  String DefaultSchema() const;

  /// Appends an employee, clearing its `Validated`. No object is reported as error 91.
  void AddEmployee(const Ref<clsEmployee>& objEmployee);

  /// The number of parts in which the submission is sent; 1 at first, always written.
  ///@{
  Integer NumberOfParts() const;
  void NumberOfParts(Integer value);
  ///@}

  /// What the parts of one submission have in common; empty for none, and then it isn't written.
  ///@{
  String UniquePartID() const;
  void UniquePartID(String value);
  ///@}

  /// Counts employees, and their employments by status; the results are added to as they come in.
  void GetCounts(Long& lngTotalEmployees, Long& lngNewEmployees, Long& lngCurrentEmployees,
                 Long& lngLeaverEmployees);

  /// Writes the section under its envelope.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  String ClassName() const override;

  String unique_part_id_;
  Integer number_of_parts_ = 1;
};

}  // namespace zelnor
