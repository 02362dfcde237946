#pragma once

#include "zelnor/validation/validator.h"

namespace zelnor {

class clsEPSAccount;
class clsSectionEPS;

/// The rules of an Employer Payment Summary: that it holds something at all, its bank account, the periods
/// without payment or activity, the recoverable amounts and the apprenticeship levy. Rules never raise an
/// error to their caller; see Validator. The records of earlier runs stay.
///
/// @code
/// zelnor::vlsPaymentForPeriodValidator validator;
/// if (!validator.ValidateEPS(*rti.Submission()->EPS())) std::cout << validator.ErrorCount();
/// @endcode
class ZELNOR_API vlsPaymentForPeriodValidator : public IntegerValidator {
 public:
  vlsPaymentForPeriodValidator();

  /// Runs all rules; True when all pass. A record that was checked before is not checked again.
  bool ValidateEPS(clsSectionEPS& objEPS);

  /// Whether the summary holds anything besides employer, year and final submission.
  bool ValidateObjects(clsSectionEPS& objEPS);

  /// The account, where there is one: its four fields, in the order name, number, sort code, roll number. The
  /// prefix stands in front of the Source; empty for none.
  ///@{
  bool ValidateAccount(clsSectionEPS& objEPS);
  bool ValidateAccountName(clsEPSAccount& objAccount, const String& strErrKey = {});
  bool ValidateAccountNo(clsEPSAccount& objAccount, const String& strErrKey = {});
  bool ValidateAccountSortCode(clsEPSAccount& objAccount, const String& strErrKey = {});
  bool ValidateAccountRollNo(clsEPSAccount& objAccount, const String& strErrKey = {});
  ///@}

  /// The dates of a period without payment, where it is marked; those of inactivity, where one is set.
  ///@{
  bool ValidateNoPaymentForPeriod(clsSectionEPS& objEPS);
  bool ValidatePeriodOfInactivity(clsSectionEPS& objEPS);
  ///@}

  /// The recoverable amounts, where there are any that weren't checked.
  bool ValidatePaymentForPeriod(clsSectionEPS& objEPS);

  /// The month, 1 to 12, and whether today lies in the window for it; an empty text passes.
  bool ValidateTaxMonth(const String& strTaxMonth, const String& strErrKey = {});

  /// The amounts: each from nothing to a bound.
  ///@{
  bool ValidateSSPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateSMPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateOSPPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateSAPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateSPBPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateSNCPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateASPPRecovered(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnSMP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnOSPP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnSAP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnSPBP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnSNCP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICCompensationOnASPP(Currency curValue, const String& strErrKey = {});
  bool ValidateNICsHoliday(Currency curValue, const String& strErrKey = {});
  ///@}

  /// The deductions suffered under the construction scheme; with any, the employer's corporation tax
  /// reference must be there.
  bool ValidateCISDeductionsSuffered(Currency curValue, const String& strCOTAXRef,
                                     const String& strErrKey = {});

  /// Tests nothing, and passes.
  bool ValidateObjectRequiredRule(clsSectionEPS& objEPS, const String& strErrKey = {});

  /// The levy, where there is one that wasn't checked: its month, what is due, and the allowance.
  ///@{
  bool ValidateApprenticeshipLevy(clsSectionEPS& objEPS);
  bool ValidateAppLevyTaxMonth(Integer intValue, const String& strErrKey = {});
  bool ValidateAppLevyLevyDueYTD(Currency curValue, const String& strErrKey = {});
  bool ValidateAppLevyAnnualAllowance(Currency curValue, const String& strErrKey = {});
  ///@}

  /// How far a run is, in percent.
  Integer Progress() const { return 0; }

 private:
  /// Where a failure of a member is said to have come about.
  static String Location(const char* member) {
    return String("[ZELNOR.dll::vlsPaymentForPeriodValidator]: ") + member;
  }

  bool ValidateCurrencyRange(Currency value, Currency low, Currency high, const String& strErrKey,
                             const Rule& rule, std::string_view code);
};

}  // namespace zelnor
