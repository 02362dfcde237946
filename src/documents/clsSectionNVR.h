#pragma once

#include "zelnor/common/record.h"

namespace zelnor {

class clsEmployee;
class clsEmployerReferences;

/// The body of a NINO Verification Request: at most 99 employees whose National Insurance numbers HMRC is
/// asked to check or to find. It is never compressed.
///
/// @code
/// Ref<clsSectionNVR> nvr = rti.Submission()->NVR();
/// nvr->AddEmployee(employee);
/// @endcode
class ZELNOR_API clsSectionNVR : public Record {
 public:
  /// The number of employees that a request takes.
  static constexpr Long kMaxEmployees = 99;

  clsSectionNVR();
  ~clsSectionNVR() override;

  /// Stores its arguments, whatever the number of employees, and clears `Validated`.
  void Create(Ref<clsEmployerReferences> objEmployerReferences,
              CollectionRef<clsEmployee> colEmployeeDetails);

  /// Fills the section from text whose first node is `NINOverificationRequest`. False, and nothing changed,
  /// for text that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Fills the section from its element. References and employees are cleared first. Every employee is read,
  /// those beyond the limit too. Unknown children are ignored. False when the node has another name.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;
  bool Validated() const override;

  /// "NINOverificationRequest".
  String RootElementName() const;

  /// "HMRC-PAYE-RTI-NVR".
  String Class() const;

  /// The schema's path below the program's folder.
  String DefaultSchema() const;

  /// The employer's references. Reading makes an empty record when none is held; writing clears its
  /// `Validated`.
  ///@{
  Ref<clsEmployerReferences> Employer_References();
  void Employer_References(Ref<clsEmployerReferences> value);
  ///@}

  /// The employees, in document order; made when absent.
  CollectionRef<clsEmployee> Employees();

  /// The number of employees.
  Long EmployeeCount() const;

  /// Whether the controller validates before sending; plain storage.
  ///@{
  bool UseValidation() const;
  void UseValidation(bool value);
  ///@}

  /// Appends an employee, clearing its `Validated`. With 99 employees held it raises error 1511 ("Maximum
  /// Employees (99) reached!") to the caller and appends nothing. No object is reported as error 91.
  void AddEmployee(const Ref<clsEmployee>& objEmployee);

  /// Appends each member in order. When there would be more than 99 employees then, it raises error 1511 to
  /// the caller and appends none. No object is reported as error 91.
  void AddEmployeeRange(CollectionRef<clsEmployee> colEmployee);

  /// Counts employees, and those with and without a National Insurance number; the results are added to as
  /// they come in.
  void GetCounts(Long& lngTotalEmployees, Long& lngEmployeesWithNINO, Long& lngEmployeesWithoutNINO);

  /// The section as XML text, written afresh without its envelope; empty after a failure.
  String XML();

  /// A new document that holds the section alone; no object after a failure.
  XmlDocument Document();

  /// Writes the section under its envelope; employees beyond the limit are left out.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  void Append(const Ref<clsEmployee>& objEmployee);

  Ref<clsEmployerReferences> employer_references_;
  CollectionRef<clsEmployee> employees_;
  bool use_validation_ = false;
};

}  // namespace zelnor
