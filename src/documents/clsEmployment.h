#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

class clsEmployee;
class clsFiguresToDate;
class clsNILettersAndValues;
class clsPayIdChgd;
class clsPayment;
class clsStarter;

/// One job of an employee: its flags, starter record, payroll ID, year-to-date figures, payment and NI rows,
/// element `Employment`. What is written depends on the kind of document. A new employment holds an empty
/// payment and empty figures.
///
/// @code
/// Ref<clsEmployment> job = employee->AddEmployment();
/// job->PayID("K-0817");
/// job->Payment()->TaxablePay(Currency::FromPence(215040));
/// @endcode
class ZELNOR_API clsEmployment : public Record {
 public:
  clsEmployment();

  /// Stores its arguments, the children by reference, and clears Validated here and on all children given.
  void Create(const String& strPayID, Ref<clsFiguresToDate> objFiguresToDate, Ref<clsPayment> objPayment,
              Date datLeaveDate = {}, CollectionRef<clsNILettersAndValues> objNILetters = nullptr,
              bool blnIrrEmp = false, Ref<clsPayIdChgd> objPayIDChanged = nullptr,
              Ref<clsStarter> objStarter = nullptr);

  /// Fills the record from text whose first node is `Employment`. False for text that isn't well formed or
  /// has another first node, an XML declaration among them, with the record unchanged.
  bool ParseFromXML(const String& strXML);

  /// Clears the record but for PayID, IrrEmp and IsExpat, then fills it from the node's children. False for a
  /// node of another name, and after a failure (a text that is no date or number), which is shown in the
  /// host's message box.
  bool CreateFromXML(const XmlNode& xmlNode);

  /// Whether the rules have checked this record, starter, changed payroll ID and payment since the last
  /// change; for an FPS also figures to date and NI rows.
  bool IsValidated(eRTISUBMISSIONTYPE eniSubType = eRTISUBMISSIONTYPE::IsUndefined) const;

  using Record::Validated;

  /// Whether the rules have checked this record and every child that it holds since the last change.
  bool Validated() const override;

  /// "Employment".
  String RootElementName() const;

  /// Whether an occupational pension is paid (`OccPenInd`); not written in EYU and NVR.
  ///@{
  bool OccPenInd() const;
  void OccPenInd(bool value);
  ///@}

  /// Whether the off-payroll working rules apply (`OffPayrollWorker`); not written in EYU and NVR.
  ///@{
  bool OffPayrollWorker() const;
  void OffPayrollWorker(bool value);
  ///@}

  /// Whether the employee is an expatriate (`ExpatInd`); written in an EAS. A write leaves Validated.
  ///@{
  bool IsExpat() const;
  void IsExpat(bool value);
  ///@}

  /// The basis of a director's NIC (`DirectorsNIC`): "AN" or "AL"; ednNA, at first, writes neither this nor
  /// the next. Not written in EYU and NVR.
  ///@{
  dnDIRECTORS_NIC DirectorsNIC() const;
  void DirectorsNIC(dnDIRECTORS_NIC value);
  ///@}

  /// The tax week or month in which a director was appointed (`TaxWkOfApptOfDirector`); zero isn't written.
  ///@{
  Integer WkOrMonthNoDirectorAppt() const;
  void WkOrMonthNoDirectorAppt(Integer value);
  ///@}

  /// The starter record (`Starter`), written when held, in an EAS with its date alone. Reading makes an empty
  /// record when none is held, which turns the employee into a starter; ask HasStarterInfo first. Writing
  /// clears the child's Validated; so do the writes of the other children.
  ///@{
  Ref<clsStarter> Starter();
  void Starter(Ref<clsStarter> value);
  ///@}

  /// The postcode of the place of work (`EmployeeWorkplacePostcode`); not written when empty, nor in an NVR.
  ///@{
  String EmployeeWorkplacePostcode() const;
  void EmployeeWorkplacePostcode(String value);
  ///@}

  /// The payroll ID (`PayId`), written trimmed; not written when empty.
  ///@{
  String PayID() const;
  void PayID(String value);
  ///@}

  /// The changed payroll ID (`PayIdChgd`), written in an FPS when held. Reading makes an empty record when
  /// none is held; ask PayIDHasChanged first.
  ///@{
  Ref<clsPayIdChgd> PayIDChange();
  void PayIDChange(Ref<clsPayIdChgd> value);
  ///@}

  /// Whether the payment goes to a body such as a personal representative, trustee or corporate organisation
  /// (`PaymentToANonIndividual`); not written in an NVR.
  ///@{
  bool IsNonIndividual() const;
  void IsNonIndividual(bool value);
  ///@}

  /// Whether the employee is paid irregularly (`IrrEmp`); not written in EYU and NVR.
  ///@{
  bool IrrEmp() const;
  void IrrEmp(bool value);
  ///@}

  /// The day on which the employment ended (`LeavingDate`); the zero date stands for none and isn't written.
  ///@{
  Date LeavingDate() const;
  void LeavingDate(Date value);
  ///@}

  /// The year-to-date figures (`FiguresToDate`), written in an FPS when held; made by the read when absent.
  ///@{
  Ref<clsFiguresToDate> FiguresToDate();
  void FiguresToDate(Ref<clsFiguresToDate> value);
  ///@}

  /// The payment (`Payment`), in an EAS written with its tax code alone; made by the read when absent.
  ///@{
  Ref<clsPayment> Payment();
  void Payment(Ref<clsPayment> value);
  ///@}

  /// The NI rows (`NIlettersAndValues`), written in FPS and EYU in their order; an absent collection is made
  /// by the read. A write clears each row's Validated.
  ///@{
  CollectionRef<clsNILettersAndValues> NILettersAndValues();
  void NILettersAndValues(CollectionRef<clsNILettersAndValues> value);
  ///@}

  /// The employee whose job this is; no object when there is none or it is gone. The link keeps nothing
  /// alive.
  ///@{
  Ref<clsEmployee> Parent() const;
  void Parent(const Ref<clsEmployee>& value);
  ///@}

  /// Whether a starter record is held.
  bool HasStarterInfo() const;

  /// Whether a record of a changed payroll ID is held, whatever it says.
  bool PayIDHasChanged() const;

  /// Whether any NI row has pay subject to NIC other than zero. False after a failure, which is shown in the
  /// host's message box.
  bool HasGrossNIablePayments() const;

  /// eesLeaver with a leaving date, else eesNew with a starter record, else eesCurrent.
  eEMPLOYEE_STATUS EmploymentStatus() const;

  /// Appends an NI row, a new one by default, with Validated cleared, and returns it.
  ///
  /// While the setting `SystemDebug` is on, a row of a letter that is already there starts a question, unless
  /// its answer is remembered for the process: combine the values into the row there, replace that row's
  /// values, or ignore the clash and append. After the first two, and when the question is closed, the row
  /// there is returned. Errors go on to the caller with a source in brackets.
  Ref<clsNILettersAndValues> AddNILettersAndValues(
      Ref<clsNILettersAndValues> objNILettersAndValues = nullptr);

  /// The same for a row made of these amounts in pounds. `curNICRefund` other than zero is True.
  Ref<clsNILettersAndValues> AddNILettersAndVals(const String& strNILetter, Currency curPaySubjectToNIC,
                                                 Currency curPaySubjectToNICYTD, Currency curAtLEL,
                                                 Currency curLELtoPT, Currency curPTtoUAP,
                                                 Currency curUAPtoUEL, Currency curTotalEmpNIC,
                                                 Currency curTotalEmpNICYTD, Currency curEmpeeCtbns,
                                                 Currency curEmpeeCtbnsYTD, const String& strSCON = {},
                                                 Currency curNICRefund = {});

  /// Appends a row for an EYU and returns it; letters that are already there don't matter. `curNICRefund`
  /// other than zero is True. Nothing after a failure, which is shown in the host's message box.
  Ref<clsNILettersAndValues> AddEYUNILettersAndVals(const String& strNILetter, Currency curAtLEL,
                                                    Currency curLELtoPT, Currency curPTtoUAP,
                                                    Currency curUAPtoUEL, Currency curTotalEmpNIC,
                                                    Currency curEmpeeCtbns, Currency curNICRefund);

  /// Appends a new `Employment` to the parent, writes into it as the document's kind asks and returns it. The
  /// employee's gender decides on one amount of the payment.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent, EMPLOYEE_GENDER gender);

 private:
  void Clear();
  void ReadChild(const XmlNode& child);
  void WriteFlagsAndStarter(Element& out, eRTISUBMISSIONTYPE type);
  void WriteDirector(Element& out, eRTISUBMISSIONTYPE type) const;
  void WriteStarter(Element& out, eRTISUBMISSIONTYPE type);
  void WritePayAndFigures(Element& out, eRTISUBMISSIONTYPE type, EMPLOYEE_GENDER gender);

  /// The first row of the same letter; nothing while the check is off.
  Ref<clsNILettersAndValues> DuplicateOf(const clsNILettersAndValues& given) const;
  /// The remembered answer, else what the person says.
  Long AnswerToDuplicate(const clsNILettersAndValues& held, const clsNILettersAndValues& given) const;
  String DuplicateReport(const clsNILettersAndValues& held, const clsNILettersAndValues& given) const;

  String pay_id_;
  String employee_workplace_postcode_;
  Date leaving_date_;
  Ref<clsStarter> starter_;
  Ref<clsPayIdChgd> pay_id_change_;
  Ref<clsFiguresToDate> figures_to_date_;
  Ref<clsPayment> payment_;
  CollectionRef<clsNILettersAndValues> ni_letters_and_values_;
  std::weak_ptr<clsEmployee> parent_;
  dnDIRECTORS_NIC directors_nic_ = dnDIRECTORS_NIC::ednNA;
  Integer wk_or_month_no_director_appt_ = 0;
  bool occ_pen_ind_ = false;
  bool off_payroll_worker_ = false;
  bool is_expat_ = false;
  bool is_non_individual_ = false;
  bool irr_emp_ = false;
};

}  // namespace zelnor
