#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/validation/validator.h"

#include <functional>
#include <string_view>
#include <utility>

namespace zelnor {

class clsBenefits;
class clsCarDetails;
class clsEmployee;
class clsEmployment;
class clsFreeFuel;
class clsNILettersAndValues;
struct MoneyRow;

/// The rules of the employees of an FPS, EAS, EYU or NVR.
///
/// @code
/// vlsEmployeeValidator validator;
/// validator.events.ProgressChanged.connect([&] { std::cout << validator.Progress() << " %\n"; });
/// if (!validator.ValidateEmployees(fps->Employees(), eRTISUBMISSIONTYPE::IsFPS, fps->TaxYear())) {
///   std::cout << validator.GetAsXML().Xml() << "\n";
/// }
/// @endcode
///
/// Each operation can be called by itself and adds to the records that are there; it takes the path to the
/// employee as `strErrKey`, empty for none. No employee gives a record of the rule that could not run. With
/// `blnRaiseErrors` False a rule makes no records, and its result is the same. An operation that calls
/// several rules skips a record that is marked as checked, and marks the one that it has checked with the
/// result.
class ZELNOR_API vlsEmployeeValidator : public Validator {
 public:
  vlsEmployeeValidator()
      : Validator({"vlsEmployeeValidator", "EmployeeValidationErrors", "Employee", false}) {}

  // --- The walk over the employees ---

  /// Whether all employees pass. Records of earlier runs are dropped, and the counters begin at 0. An
  /// employee who is marked as checked is passed over, and counts in nothing.
  ///
  /// Where the limit is reached, MaxErrorsHit is raised before the next employee and the walk ends.
  /// ProgressChanged is raised after each employee. A run-time error ends the walk with one record and False;
  /// so does no collection, without a record.
  ///
  /// @param eniType the document; in an NVR only who the employees are is checked
  /// @param strCurrentTaxYear such as "25-26"; empty for documents without one
  bool ValidateEmployees(const CollectionRef<clsEmployee>& colEmployees, eRTISUBMISSIONTYPE eniType,
                         const String& strCurrentTaxYear);

  /// Always False.
  bool ECONRequired() const { return false; }

  /// The numbers of employees that the last run looked at, and of those that passed and failed.
  ///@{
  Long EmployeesChecked() const { return employees_checked_; }
  Long ValidEmployees() const { return valid_employees_; }
  Long InvalidEmployees() const { return invalid_employees_; }
  ///@}

  /// How far the run is, in per cent.
  Long Progress() const { return Percentage(progress_done_, progress_total_); }

  /// Whether each character of a text occurs, in any case, among the allowed ones. A failure is shown in the
  /// host's message box and gives False.
  bool ValidateString(const String& strToValidate, const String& strAllowedChars) const;

  // --- Who the employee is ---

  /// Name, address, NINO, birth date, gender and passport. A run-time error makes a record that names no
  /// employee and gives False; so it does in ValidateEmployeeAddress and ValidateEmployeePartnerDetails.
  bool ValidateEmployeeDetails(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The four rules of the name. A run-time error makes a record and gives False.
  bool ValidateEmployeeContact(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The address, where one is held: its lines, then the country or, without one, the postcode.
  bool ValidateEmployeeAddress(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The partner's name and NINO, where a partner is held.
  bool ValidateEmployeePartnerDetails(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The surname: 1 to 35 letters, blanks, hyphens and apostrophes, a letter first (E4.1).
  bool ValidateSurname(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                       const String& strErrKey = {});

  /// The forename: the same. One that is too long is said to be missing (E4.2).
  bool ValidateForename(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                        const String& strErrKey = {});

  /// The second forename: the same, or empty (E4.3).
  bool ValidateForename1(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                         const String& strErrKey = {});

  /// The title: the same, or empty (E4.5).
  bool ValidateTitle(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                     const String& strErrKey = {});

  /// The lines of the address: of allowed characters, the first filled in, and some line where there is a
  /// postcode (E4.6, E11.4).
  bool ValidateAddressLines(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                            const String& strErrKey = {});

  /// The postcode: of a known form, and present where a line is (E4.7).
  bool ValidatePostcode(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                        const String& strErrKey = {});

  /// The country of an address abroad: 1 to 35 allowed characters, without a postcode, and with at least two
  /// lines (E4.7, E4.8).
  bool ValidateForeignCountry(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The NINO: empty, or a known prefix, six digits and one of A to D and blank (E4.9). One of 8 characters
  /// gets a blank behind it in the record.
  bool ValidateEmployeeNINO(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                            const String& strErrKey = {});

  /// The birth date: present unless the payment is to a non-individual, not after today, and at most 130
  /// years back (E4.10).
  bool ValidateEmployeeDateOfBirth(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors = true,
                                   const String& strErrKey = {});

  /// The gender, which is always one (E4.11).
  bool ValidateEmployeeGender(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The passport number: empty, or at most 35 allowed characters (E4.12).
  bool ValidateEmployeePassportNo(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The partner's surname: as the employee's (E4.13.2).
  bool ValidatePartnerSurname(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The partner's forename: as the employee's, or empty (E4.13.3).
  bool ValidatePartnerForename(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The partner's second forename, which may be anything: its pattern matches in every text (E4.13.4).
  bool ValidatePartnerForename1(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  /// The partner's NINO: as the employee's, but looked at only where it has 9 characters (E4.13.1).
  bool ValidatePartnerNINO(const Ref<clsEmployee>& objEmployee, const String& strErrKey = {});

  // --- Employment, starter and payment ---
  // A record that isn't there gives a processing error.

  /// All employments of an employee: at least one; each, unless it is marked as checked, by the rules that
  /// the type of document asks for, and then marked with the result. The key of each is the key, "_E" and its
  /// payroll ID. A failure outside the rules makes a record (FAIL_EMPLOYMENT).
  bool ValidateEmployment(const Ref<clsEmployee>& objEmployee, eRTISUBMISSIONTYPE eniType,
                          const String& strKey = {});

  /// The payroll ID: at most 35 characters, the first no blank; or empty (E6.1).
  bool ValidatePayrollID(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                         const String& strErrKey = {});

  /// The former payroll ID, likewise, where a record of a change is held and not marked as checked (E6.4).
  bool ValidateChangedPayrollID(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const String& strErrKey = {});

  /// The leaving date: at most 30 days ahead and within the last six tax years; present where the payment is
  /// one after leaving (E6.3, E16.4).
  bool ValidateLeaverDate(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                          const String& strErrKey = {});

  /// A partner and shared parental pay: see ValidatePartnerShPPRule.
  bool ValidatePartnerDetails(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                              const String& strErrKey = {});

  /// A partner comes with shared parental pay other than zero (E16.3).
  bool ValidatePartnerShPPRule(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                               const String& strErrKey = {});

  /// The starter record, unless it is marked as checked: one that says anything at all; date and declaration
  /// of one that says who starts; pension and secondment where held.
  bool ValidateStarterDetails(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                              const String& strErrKey = {});

  /// The start date: present, at most 30 days ahead, and with an address of two lines (E11.1, E4.6.3).
  bool ValidateStarterDate(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                           const String& strErrKey = {});

  /// A start date comes with a declaration, a secondment's length or an occupational pension (E11.1.2).
  bool ValidateStarterDeclarationRule(const Ref<clsEmployee>& objEmployee,
                                      const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// A starter record says something (E11.1.2).
  bool ValidateStarterInfoEmptyGroup(const Ref<clsEmployee>& objEmployee,
                                     const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// The occupational pension: 0.00 to 999999999.99, and only with the employment's indicator (E11.6).
  bool ValidateOccPensionAmount(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const String& strErrKey = {});

  /// The payment, unless it is marked as checked: in an FPS all of it, in other documents the tax code.
  bool ValidatePayment(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const String& strErrKey, eRTISUBMISSIONTYPE eniType);

  /// The BACS hash code: 64 hexadecimal digits in small letters; or empty (E7.0, E7.11.2).
  bool ValidateBacsHashCode(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                            const String& strErrKey = {});

  /// The pay frequency: a member of its enumeration other than Undisclosed (E7.1).
  bool ValidatePayFrequency(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                            const String& strErrKey = {});

  /// The payment date: present, and within the tax year where that is known (E7.2).
  bool ValidatePaymentDate(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                           const String& strErrKey = {});

  /// Week or month: one of the two; months to 12, weeks to 54 and 56; at most 99 periods covered (E7.3,
  /// E7.4).
  bool ValidateWeekOrMonthNumber(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                 const String& strErrKey = {});

  /// The periods covered: 1 to 99 (E7.5). Called by no walk.
  bool ValidatePeriodsCovered(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                              const String& strErrKey = {});

  /// The band of weekly hours: a member of its enumeration other than Undisclosed (E7.8).
  bool ValidateHoursWorked(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                           const String& strErrKey = {});

  /// The tax code, unless it is marked as checked: a text that begins with, holds or ends in a tax code
  /// (E7.9).
  bool ValidateTaxCode(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const String& strErrKey = {});

  /// Taxable pay: -999999999.99 to 999999999.99 (E7.10).
  bool ValidateTaxablePay(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                          const String& strErrKey = {});

  /// Pay free of tax and NIC: -999999999.99 to 999999999.99 (E7.11).
  bool ValidateNonTaxNonNIPayment(const Ref<clsEmployee>& objEmployee,
                                  const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Deductions from net pay: -999999999.99 to 999999999.99 (E7.12).
  bool ValidateDednsFromNetPayPayment(const Ref<clsEmployee>& objEmployee,
                                      const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Pay after statutory deductions: -999999999.99 to 999999999.99 (E7.13).
  bool ValidatePayPostStatDednsPayment(const Ref<clsEmployee>& objEmployee,
                                       const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Benefits taxed via the payroll: -999999999.99 to 999999999.99 (E7.14).
  bool ValidateBenefitsTaxedViaPay(const Ref<clsEmployee>& objEmployee,
                                   const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Pension contributions paid: -999999999.99 to 999999999.99 (E7.17).
  bool ValidateEmpeePensionCtbns(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                 const String& strErrKey = {});

  /// Items subject to Class 1 NIC alone: -999999999.99 to 999999999.99 (E7.18).
  bool ValidateItemsSubjToC1NIC(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const String& strErrKey = {});

  /// Pension contributions not paid: -999999999.99 to 999999999.99 (E7.19).
  bool ValidateEmpeePensionCtbnsNotPaid(const Ref<clsEmployee>& objEmployee,
                                        const Ref<clsEmployment>& objEmployment,
                                        const String& strErrKey = {});

  /// The student loan deduction: -99999 to 99999, in whole pounds (E7.20).
  bool ValidateStudentLoansRecovered(const Ref<clsEmployee>& objEmployee,
                                     const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// The postgraduate loan deduction: -99999 to 99999, in whole pounds (E7.20).
  bool ValidatePostgradLoansRecovered(const Ref<clsEmployee>& objEmployee,
                                      const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Tax: -9999999999.99 to 999999999.99 (E7.21).
  bool ValidateTaxDeductedOrRefunded(const Ref<clsEmployee>& objEmployee,
                                     const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// Statutory sick pay to date: 0 to 9999.99; called by no walk (E7.22).
  bool ValidateSSPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                      const String& strErrKey = {});

  /// Statutory maternity pay to date: 0 to 999999.99, in an EYU from -999999.99 on (E7.23).
  bool ValidateSMPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                      eRTISUBMISSIONTYPE eniType, const String& strErrKey = {});

  /// Statutory paternity pay to date: 0 to 999999.99 (E7.24).
  bool ValidateSPPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                      const String& strErrKey = {});

  /// Statutory adoption pay to date: as SMPYTD (E7.25).
  bool ValidateSAPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                      eRTISUBMISSIONTYPE eniType, const String& strErrKey = {});

  /// Statutory parental bereavement pay to date: as SMPYTD (E7.28).
  bool ValidateSPBPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       eRTISUBMISSIONTYPE eniType, const String& strErrKey = {});

  /// Statutory neonatal care pay to date: 0 to 999999.99; called by no walk (E7.29).
  bool ValidateSNCPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const String& strErrKey = {});

  /// Statutory shared parental pay to date: 0 to 999999.99 (E7.26).
  bool ValidateShPPYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const String& strErrKey = {});

  /// Class 1A NIC on a termination award: 0 to 999999999.99, in an EYU any (E7.23).
  bool ValidateC1ANICTermiation(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                eRTISUBMISSIONTYPE eniType, const String& strErrKey = {});

  /// The same to date: likewise (E7.23).
  bool ValidateC1ANICTermiationYTD(const Ref<clsEmployee>& objEmployee,
                                   const Ref<clsEmployment>& objEmployment, eRTISUBMISSIONTYPE eniType,
                                   const String& strErrKey = {});

  // --- Figures to date, NI letters and directors: vlsEmployeeValidator_figures.cpp, _ni.cpp ---

  /// Whether an amount has no pence. Numbers beyond 32 bits are compared by their text. Any error but an
  /// overflow goes on to the caller as one about a number that is too large.
  bool IsWholePounds(double value) const;

  /// Calls the rules of the figures to date, unless the record is marked as checked; then marks it.
  bool ValidateFiguresToDate(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                             const String& strErrKey = {});

  /// The figures to date: each within its range, the loans in whole pounds (E8.1 to E8.5).
  ///@{
  bool ValidateTaxablePayYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                             const String& strErrKey = {});
  bool ValidateTotalTaxYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                           const String& strErrKey = {});
  bool ValidateStudentLoansYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                               const String& strErrKey = {});
  bool ValidatePostgradLoansYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const String& strErrKey = {});
  bool ValidateBenefitsTaxedViaPayrollYTD(const Ref<clsEmployee>& objEmployee,
                                          const Ref<clsEmployment>& objEmployment,
                                          const String& strErrKey = {});
  bool ValidateEmpeePenContribnsPaidYTD(const Ref<clsEmployee>& objEmployee,
                                        const Ref<clsEmployment>& objEmployment,
                                        const String& strErrKey = {});
  bool ValidateEmpeePenContribnsNotPaidYTD(const Ref<clsEmployee>& objEmployee,
                                           const Ref<clsEmployment>& objEmployment,
                                           const String& strErrKey = {});
  ///@}

  /// At most four records of NI letters, each letter once (E10.6.0a, E10.6.0b); and the rules of each record
  /// that isn't marked as checked, which is then marked. Of two records with one letter the second fails.
  ///
  /// @param objNILetter not looked at: the records are those of the employment
  bool ValidateNILettersAndValues(const Ref<clsEmployee>& objEmployee,
                                  const Ref<clsEmployment>& objEmployment,
                                  const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                                  const String& strErrKey = {});

  /// The NI letter: a known one, and one that gender, birth date and place of work allow (E9.1).
  bool ValidateNILetter(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                        const Ref<clsNILettersAndValues>& objNILetter, const String& strErrKey = {});

  /// The number of the contracted-out scheme, for the letters that want one (E9.7). No container calls it.
  bool ValidateSCON(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                    const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                    const String& strErrKey = {});

  /// The values of an NI letter: each within its range, in an EYU a wider one, and most of them zero for
  /// letter X (E9.2 to E9.6). No container calls ValidatePTToUAP and ValidateUAPToUEL.
  ///@{
  bool ValidatePaySubjToNIC(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                            const Ref<clsNILettersAndValues>& objNILetter, const String& strErrKey = {});
  bool ValidatePaySubjToNICYTD(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                               const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                               const String& strErrKey = {});
  bool ValidateAtLEL(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                     const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                     const String& strErrKey = {});
  bool ValidateLELToPT(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                       const String& strErrKey = {});
  bool ValidatePTToUAP(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                       const String& strErrKey = {});
  bool ValidateUAPToUEL(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                        const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                        const String& strErrKey = {});
  bool ValidatePTToUEL(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                       const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                       const String& strErrKey = {});
  ///@}

  /// The totals of NIC: each within its range, those of the year not below zero in an FPS; zero for the
  /// letters that bear none (E10.3 to E10.6).
  ///@{
  bool ValidateTotalEmployerNIC(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const Ref<clsNILettersAndValues>& objNILetter, const String& strErrKey = {});
  bool ValidateTotalEmployerNICYTD(const Ref<clsEmployee>& objEmployee,
                                   const Ref<clsEmployment>& objEmployment,
                                   const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                                   const String& strErrKey = {});
  bool ValidateTotalEmployeeNIC(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                                const Ref<clsNILettersAndValues>& objNILetter, const String& strErrKey = {});
  bool ValidateTotalEmployeeNICYTD(const Ref<clsEmployee>& objEmployee,
                                   const Ref<clsEmployment>& objEmployment,
                                   const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
                                   const String& strErrKey = {});
  ///@}

  /// The week of a director's appointment: 1 to 54 or 56; or 0 (E10.2).
  bool ValidateDirectorWeekNumber(const Ref<clsEmployee>& objEmployee,
                                  const Ref<clsEmployment>& objEmployment, const String& strErrKey = {});

  /// The basis of a director's NIC: one must be set (E10.1). No container calls it.
  bool ValidateDirectorsNIC(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                            const String& strErrKey = {});

  // --- Benefits, trivial commutation payments and secondment: vlsEmployeeValidator_benefits.cpp ---

  /// At least one car (E20.0), and the rules of each; then marks the record.
  bool ValidateBenefits(const Ref<clsEmployee>& objEmployee, const Ref<clsBenefits>& objBenefits,
                        const String& strErrKey = {});

  /// Calls the rules of a car and of its free fuel, and marks it; True without one.
  bool ValidateCar(const Ref<clsEmployee>& objEmployee, const Ref<clsCarDetails>& objCarDetails,
                   const String& strErrKey = {});

  /// Calls the rules of free fuel and marks it; True without one.
  bool ValidateFreeFuel(const Ref<clsEmployee>& objEmployee, const Ref<clsFreeFuel>& objFreeFuel,
                        const String& strErrKey = {});

  /// The make: 1 to 35 allowed characters (E20.1).
  bool ValidateMake(const Ref<clsEmployee>& objEmployee, const Ref<clsCarDetails>& objCarDetails,
                    const String& strErrKey = {});

  /// The emission: "X", or at most 999; a text that is no number passes (E20.2).
  bool ValidateCO2(const Ref<clsEmployee>& objEmployee, const Ref<clsCarDetails>& objCarDetails,
                   const String& strErrKey = {});

  /// The car's ID: at most 10 characters (E20.3).
  bool ValidateID(const Ref<clsEmployee>& objEmployee, const Ref<clsCarDetails>& objCarDetails,
                  const String& strErrKey = {});

  /// The price: 1000.00 to 9999999.99 (E20.4).
  bool ValidatePrice(const Ref<clsEmployee>& objEmployee, const Ref<clsCarDetails>& objCarDetails,
                     const String& strErrKey = {});

  /// The cash equivalent of a car or of free fuel: within the bounds (E20.4).
  bool ValidateCashEquiv(const Ref<clsEmployee>& objEmployee, Currency curCashEquiv, Currency curLow,
                         Currency curHigh, const String& strErrKey = {});

  /// The first or the last day on which a car was available: the first must be set, the last not be before
  /// it; both within the tax year, where that is known (E20.5).
  ///
  /// @param datAvailFromTo the day that is looked at
  /// @param isFrom whether that is the first day
  /// @param datAvailFrom for the last day, the first one
  bool ValidateAvailFromTo(const Ref<clsEmployee>& objEmployee, Date datAvailFromTo, const String& strErrKey,
                           bool isFrom, Date datAvailFrom = {});

  /// The day from which fuel was provided: set, and within the tax year (E21.1).
  bool ValidateProvided(const Ref<clsEmployee>& objEmployee, const Ref<clsFreeFuel>& objFreeFuel,
                        const String& strErrKey = {});

  /// The day on which fuel was withdrawn: not before the day it was provided from, within the tax year
  /// (E21.3; E20.3.2 for the year).
  bool ValidateWithdrawn(const Ref<clsEmployee>& objEmployee, const Ref<clsFreeFuel>& objFreeFuel,
                         const String& strErrKey = {});

  /// The trivial commutation payments: each -99999.00 to 99999.00, in whole pounds (E7.27.1 and the kind's
  /// letter).
  bool ValidateTrivialCommutationPayment(const Ref<clsEmployee>& objEmployee,
                                         const Ref<clsEmployment>& objEmployment,
                                         const String& strErrKey = {});

  /// A seconded starter's length of stay: one must be set (E11.4.1.2).
  bool ValidateSecondmentRule(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                              const String& strErrKey = {});

 protected:
  // --- Who the employee is: rules that others end in ---

  /// A country wants two lines of address (E4.7.3).
  bool ValidateAddressCountryRule(const Ref<clsEmployee>& objEmployee, const String& strErrKey);

  /// A line of address wants a postcode (E4.7.3).
  bool ValidateAddressPostcodeRule(const Ref<clsEmployee>& objEmployee, bool blnRaiseErrors,
                                   const String& strErrKey);

  /// Without a NINO there are two lines of address (E16.1).
  bool ValidateAddressNINORule(const Ref<clsEmployee>& objEmployee, const String& strErrKey);

  /// A start date wants two lines of address that aren't blank (E16.2). No walk calls it.
  bool ValidateAddressStartDateRule(const Ref<clsEmployee>& objEmployee,
                                    const Ref<clsEmployment>& objEmployment, const String& strErrKey);

  /// A partner has a surname and a forename (E4.13.2, E4.13.3).
  bool ValidatePartnerNameRule(const Ref<clsEmployee>& objEmployee, const String& strErrKey);

 private:
  // --- The frame of the employees' rules ---

  /// Runs a rule on a field of an employee, whom its records then name; see Validator::Check.
  template <class Body>
  bool CheckOf(const Ref<clsEmployee>& objEmployee, const Rule& rule, std::string_view prefix, Body&& body,
               bool blnRaiseErrors = true) {
    concerned_ = objEmployee;
    return Check(rule, prefix, std::forward<Body>(body), blnRaiseErrors);
  }

  Ref<ErrorRecord> NewRecord() const override;
  Concerned ConcernedBy(const ErrorRecord& record) const override;

  Ref<clsEmployee> concerned_;

  // --- The walk over the employees ---

  /// Runs an operation that calls several rules: `body` gives its result, a run-time error one record, which
  /// names no employee, and False. The key is read only then.
  bool Walk(const String& key, const std::function<bool()>& body);

  bool ValidateEmployee(const Ref<clsEmployee>& objEmployee, eRTISUBMISSIONTYPE eniType, const String& key);
  static String BuildEmployeeKey(const clsEmployee& employee);

  String current_tax_year_;
  Long employees_checked_ = 0;
  Long valid_employees_ = 0;
  Long invalid_employees_ = 0;
  Long progress_total_ = 100;
  Long progress_done_ = 0;

  // --- Who the employee is ---

  struct NINOCodes;
  void CheckNINO(Finding& found, const NINOCodes& codes) const;
  bool BeginsWithLetter(const String& text) const;
  bool IsValidPostcode(const String& text) const;

  /// "N" for each digit and "A" for any other character; nothing for a blank.
  static String PostcodeMask(const String& text);

  // --- Figures to date, NI letters, directors and benefits ---

  struct FiguresRow;
  struct NIRow;
  bool CheckFigure(const FiguresRow& row, const Ref<clsEmployee>& objEmployee,
                   const Ref<clsEmployment>& objEmployment, const String& strErrKey);
  bool CheckNI(const NIRow& row, const Ref<clsEmployee>& objEmployee,
               const Ref<clsNILettersAndValues>& objNILetter, eRTISUBMISSIONTYPE eniType,
               const String& strErrKey);

  // --- Employment, starter and payment ---

  /// First and last day of a tax year; both zero where the tax year is not known.
  struct YearDates {
    Date start;
    Date end;

    /// Whether the year is known and a day that is set lies outside it.
    bool Excludes(Date day) const {
      return !start.IsZero() && !end.IsZero() && !day.IsZero() && (day < start || day > end);
    }
  };

  bool ValidateOneEmployment(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                             eRTISUBMISSIONTYPE eniType, const String& strErrKey);
  bool ValidatePaymentOfFPS(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                            const String& strErrKey, eRTISUBMISSIONTYPE eniType);
  bool CheckMoney(const Ref<clsEmployee>& objEmployee, const Ref<clsEmployment>& objEmployment,
                  const MoneyRow& row, const String& strErrKey);

  /// The dates of the tax year that the documents at hand are of.
  YearDates TaxYearDates() const;

  /// CheckOf with a key word that follows the key as it stands.
  template <class Body>
  bool CheckBenefit(const Ref<clsEmployee>& objEmployee, const Rule& rule, const String& strErrKey,
                    Body&& body);
};

}  // namespace zelnor
