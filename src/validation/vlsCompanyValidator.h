#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/validation/validator.h"

namespace zelnor {

class clsEmployerReferences;
class clsFinalSubmission;
class clsQuestionsAndDeclarations;
class clsSectionEAS;
class clsSectionIRHeader;
class clsSubmission;

/// The rules of the employer's data: the principal contact, the employer's references with their check
/// characters, the tax year, the date on which a scheme ceased, and the parts of an EAS. Patterns ignore the
/// case of letters.
///
/// @code
/// vlsCompanyValidator validator;
/// if (!validator.ValidateCompany(rti.Submission())) {
///   for (const Ref<ErrorRecord>& error : *validator.Errors()) std::cout << error->Description() << "\n";
/// }
/// @endcode
///
/// Each rule can be called by itself and adds to the records that are there. The prefix is the path to the
/// record, such as "Company", and empty for none. A record that isn't there gives a processing error.
class ZELNOR_API vlsCompanyValidator : public IntegerValidator {
 public:
  vlsCompanyValidator()
      : IntegerValidator({"vlsCompanyValidator", "CompanyValidationErrors", "Company", true}) {}

  /// Whether the last references of an EYU that were looked at have an ECON.
  bool IsEconPresent() const { return is_econ_present_; }

  /// Drops the records of the last run and checks all of the employer's data in a document, unless it is
  /// marked as checked, and marks it with the result. A failure outside the rules is shown in the host's
  /// message box and gives False, here and in the other operations that call several rules.
  bool ValidateCompany(const Ref<clsSubmission>& objsubmission);

  /// The header: its principal contact.
  bool ValidateIRHeader(const Ref<clsSectionIRHeader>& objIRHeader, const String& strSourcePrefix = {});

  /// From 1 to 99 (E17.1).
  bool ValidateNumberOfParts(const Ref<clsSectionEAS>& objEAS, const String& strErrKey = {});

  /// Where there is more than one part: 1 to 12 characters, the first no blank (E18.1).
  bool ValidateUniquePartID(const Ref<clsSectionEAS>& objEAS, const String& strErrKey = {});

  /// Office number, PAYE reference and accounts office reference; of an EYU the ECON, of other documents the
  /// tax reference.
  bool ValidateEmployerRefs(const Ref<clsEmployerReferences>& objEmployerRefs, eRTISUBMISSIONTYPE eniType,
                            const String& strSourcePrefix = {});

  /// The principal contact, where there is one. E-mail addresses and numbers are looked at even in a contact
  /// that is marked as checked; each has a mark of its own.
  bool ValidatePrincipalContact(const Ref<clsSectionIRHeader>& objIRHeader,
                                const String& strSourcePrefix = {});

  /// The principal contact's surname: present, of at most 35 characters and of allowed ones (E5.1).
  bool ValidateContactSurname(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The forename: 1 to 35 letters, hyphens and apostrophes (E5.2).
  bool ValidateContactForename(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The second forename: the same, but beginning with a letter; or empty (E5.3).
  bool ValidateContactForename1(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The title: as the second forename (E5.4).
  bool ValidateContactTitle(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The e-mail addresses: 3 to 254 characters of the form A@A; or empty (E5.4.0, E5.5).
  bool ValidateContactEmail(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The telephone numbers: 1 to 35 digits, hyphens, brackets and white space (E5.6).
  bool ValidateContactTelephone(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The fax numbers: 1 to 35 digits, hyphens, brackets and blanks (E5.7).
  bool ValidateContactFax(const Ref<clsSectionIRHeader>& objIRHeader, const String& strErrKey = {});

  /// The tax year, such as "25-26", from 12-13 on, and the end of the period within it (E2.1).
  bool ValidateRelatedTaxYear(const String& strTaxYear, Date datPeriodEnd,
                              const String& strSourcePrefix = {});

  /// The same for an EYU; a period end outside the year shows the year alone as its value.
  bool ValidateEYURelatedTaxYear(const String& strTaxYear, Date datPeriodEnd,
                                 const String& strSourcePrefix = {});

  /// The number of the tax office: three digits, not 000 (E3.1).
  bool ValidateHMRCOfficeNumber(const Ref<clsEmployerReferences>& objEmployerRefs,
                                const String& strSourcePrefix = {});

  /// The PAYE reference: 1 to 10 allowed characters, the first no blank (E3.2).
  bool ValidateEmployerPAYERef(const Ref<clsEmployerReferences>& objEmployerRefs,
                               const String& strSourcePrefix = {});

  /// The accounts office reference: 13 or 17 characters, and the check letter where the thirteenth is a
  /// letter (E3.3).
  bool ValidateAccountsOfficeRef(const Ref<clsEmployerReferences>& objEmployerRefs,
                                 const String& strSourcePrefix = {});

  /// The contracting-out number, where there is one: its form and its check letter (E12.3).
  bool ValidateECON(const Ref<clsEmployerReferences>& objEmployerRefs, const String& strSourcePrefix = {});

  /// The date on which the scheme ceased, unless the record is absent or marked as checked.
  bool ValidateFinalSubmission(const Ref<clsFinalSubmission>& objFinalSubmission,
                               const Ref<clsSubmission>& objsubmission, const String& strSourcePrefix = {});

  /// Nothing to check; True.
  bool ValidateSchemeCeased(const Ref<clsFinalSubmission>& objFinalSubmission,
                            const String& strSourcePrefix = {});

  /// Nothing to check; True.
  bool ValidateForYear(const Ref<clsFinalSubmission>& objFinalSubmission, const String& strSourcePrefix = {});

  /// The date on which the scheme ceased, where there is one: not after today, and not before the tax year
  /// (E12.4).
  ///
  /// @param TaxYear the year, in four digits, in which the tax year ends
  bool ValidateDateSchemeCeased(const Ref<clsFinalSubmission>& objFinalSubmission, Integer TaxYear,
                                const String& strSourcePrefix = {});

  /// Calls the six rules of the declarations, unless the record is absent or marked as checked.
  bool ValidateQuestionsAndDeclarations(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                                        const String& strSourcePrefix = {});

  /// Nothing to check; True.
  ///@{
  bool ValidateFreeOfTaxPayments(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                                 const String& strSourcePrefix = {});
  bool ValidateExpensesVouchersOrBenefitsFromOthers(
      const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
      const String& strSourcePrefix = {});
  bool ValidateEmployedOutsideUKGT30(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                                     const String& strSourcePrefix = {});
  bool ValidatePayToSomeoneElse(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                                const String& strSourcePrefix = {});
  bool ValidateCompletedFormsP11D(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                                  const String& strSourcePrefix = {});
  bool ValidateServiceCompany(const Ref<clsQuestionsAndDeclarations>& objQuestionsAndDeclarations,
                              const String& strSourcePrefix = {});
  ///@}

 private:
  /// A text of letters, hyphens and apostrophes that begins with a letter.
  bool IsPlainName(const String& text) const;

  bool ValidateSAUTROrCOTAXRef(const Ref<clsEmployerReferences>& objEmployerRefs,
                               const String& strSourcePrefix);
  bool CheckTaxYear(const String& tax_year, Date period_end, const String& prefix,
                    const String& value_of_period_end);

  bool is_econ_present_ = false;
};

}  // namespace zelnor
