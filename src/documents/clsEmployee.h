#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

class clsEmployeeDetails;
class clsEmployment;

/// One person in an FPS, EYU, EAS or NVR, with one or more employments, element `Employee`. A new employee
/// holds empty details and no employment.
///
/// Make employees with std::make_shared: employments and details find their employee through its shared
/// reference.
///
/// @code
/// auto employee = std::make_shared<clsEmployee>();
/// employee->EmployeeDetails()->NINO("AB123456C");
/// employee->AddEmployment()->PayID("K-0817");
/// fps->AddEmployee(employee);
/// @endcode
class ZELNOR_API clsEmployee : public Record, public std::enable_shared_from_this<clsEmployee> {
 public:
  clsEmployee();

  /// Stores both by reference.
  void Create(Ref<clsEmployeeDetails> objEmployeeDetails, CollectionRef<clsEmployment> colEmployment);

  /// Fills the record from text whose first node is `Employee`. False for text that isn't well formed or has
  /// another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Replaces details and employments by those of the node. Then EmployeeCode is the payroll ID of the last
  /// employment read and EmployeeId the number of employments; without any, the two stay. False for a node of
  /// another name, and after a failure, which is shown in the host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked the details and all employments since the last change, as far as a
  /// document of that type goes; see clsEmployment::IsValidated.
  bool IsValidated(eRTISUBMISSIONTYPE eniSubType = eRTISUBMISSIONTYPE::IsUndefined) const;

  /// Whether the rules have checked the details and all employments since the last change. The employee has
  /// no flag of its own.
  bool Validated() const override;

  /// Marks the details and every employment.
  ZELNOR_INTERNAL void Validated(bool value) override;

  /// "Employee".
  String RootElementName() const;

  /// Who the employee is (`EmployeeDetails`), always written; absent details are made by the read. A write
  /// clears the details' Validated.
  ///@{
  Ref<clsEmployeeDetails> EmployeeDetails();
  void EmployeeDetails(Ref<clsEmployeeDetails> value);
  ///@}

  /// The employments, in the order in which they are written; an absent collection is made by the read. A
  /// write stores the collection and becomes the Parent of each member. It raises to the caller error 6001
  /// for 16 employments or more, which it stores all the same, and error 91 for no collection; the source
  /// begins with "[ZELNOR.dll::clsEmployee]: Employment".
  ///@{
  CollectionRef<clsEmployment> Employment();
  void Employment(CollectionRef<clsEmployment> value);
  ///@}

  /// Appends an employment, a new one by default, with this employee as its Parent and Validated cleared, and
  /// returns it. From the fifteenth on error 6001 is shown in the host's message box and nothing is returned,
  /// though the employment is added.
  Ref<clsEmployment> AddEmployment(Ref<clsEmployment> objEmployment = nullptr);

  /// The employment at a position from 1. Any other position is reported as error 9, and nothing is returned.
  Ref<clsEmployment> GetEmployment(Integer intIndex);

  /// The first employment of that payroll ID in any case of letters; nothing when there is none.
  Ref<clsEmployment> GetEmploymentByPayID(const String& strPayID);

  /// What tells the employee from others: the NINO, else forename, surname and birth date (`yyyymmdd`),
  /// joined by "_". "#Error!" after a failure, which is shown in the host's message box.
  String EmployeeKey();

  /// A number for the application; neither written nor, but for CreateFromXML, changed by the system. Writes
  /// of these four leave Validated as it is.
  ///@{
  Long EmployeeId() const;
  void EmployeeId(Long value);
  ///@}

  /// A code for the application, likewise.
  ///@{
  String EmployeeCode() const;
  void EmployeeCode(String value);
  ///@}

  /// A department for the application; reading a document leaves it.
  ///@{
  String Department() const;
  void Department(String value);
  ///@}

  /// A company's number for the application; reading a document leaves it.
  ///@{
  Integer CompanyId() const;
  void CompanyId(Integer value);
  ///@}

  /// Whether any employment is a payment to a non-individual. False after a failure, which is shown in the
  /// host's message box.
  bool HasPaymentToANonIndividualSet() const;

  /// Whether any employment has a week or month of a director's appointment. Failures of this and the next
  /// three go on to the caller with a source that begins with "[clsEmployee]: " and the member's name.
  bool HasDirectorWeekNumberSet() const;

  /// Whether any employment has a starter record.
  bool HasStarterInfo() const;

  /// Whether any employment has a leaving date after 1 January 1901.
  bool HasLeavingDate() const;

  /// Whether any employment's payment has a trivial commutation payment.
  bool HasTrivialCommutationPayment() const;

  /// Appends a new `Employee` to the parent, writes into it and returns it.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

 private:
  /// Whether the test holds for any employment.
  template <class Test>
  bool AnyEmployment(const Test& test) const;

  Long employee_id_ = 0;
  Integer company_id_ = 0;
  String employee_code_;
  String department_;
  Ref<clsEmployeeDetails> employee_details_;
  CollectionRef<clsEmployment> employment_;
};

}  // namespace zelnor
