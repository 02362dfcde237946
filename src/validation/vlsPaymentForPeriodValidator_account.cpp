#include "zelnor/documents/clsEPSAccount.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsPaymentForPeriodValidator.h"

namespace zelnor {
namespace {

const Pattern kName(R"(^([A-Za-z0-9 &'\(\)\*,\-\./]{1,28})$)");
const Pattern kNumber("^([0-9]{8})$");
const Pattern kSortCode("^([0-9]{6})$");
const Pattern kRollNo(R"(^([A-Za-z0-9 &'\(\)\*,\-\./]{1,18})$)");

constexpr const char* kCharacters =
    " contains invalid characters. Valid characters for this field include A-Z, a-z, 0-9, space, ampersand "
    "(&), "
    "single quote ('), brackets (()), asterisk (*), comma (,), hyphen (-), backslash (/) and full stop (.).";

bool AllBlank(const clsEPSAccount& account) {
  return account.AccountName().empty() && account.AccountNo().empty() && account.SortCode().empty();
}

String LengthText(const String& text) {
  return ToText(Long{static_cast<Long>(Length(text))}) + " characters long.";
}

// Each failure of the account has a Source of its own: the base word and the failure's key word.
auto Under(Finding& found, const char* base, const char* title) {
  return [&found, base, title](const char* code, const char* word, const String& message) {
    found.At(String(base) + word);
    found.Fail(code, title, message);
  };
}

}  // namespace

bool vlsPaymentForPeriodValidator::ValidateAccount(clsSectionEPS& objEPS) {
  bool result = false;
  HandledAt(Location("ValidateAccount"), [&] {
    result = !objEPS.HasAccount();
    if (result) return;
    clsEPSAccount& account = Required(objEPS.Account());
    result = account.Validated();
    if (result) return;
    bool passed = ValidateAccountName(account);
    passed &= ValidateAccountNo(account);
    passed &= ValidateAccountSortCode(account);
    passed &= ValidateAccountRollNo(account);
    account.Validated(passed);
    result = passed;
  });
  return result;
}

bool vlsPaymentForPeriodValidator::ValidateAccountName(clsEPSAccount& objAccount, const String& strErrKey) {
  static constexpr Rule kRule{.key = "Account Name", .field = "Account Name", .code = {}};
  return CheckAt(Location("ValidateAccountName"), kRule, strErrKey, [&](Finding& found) {
    const auto fail = Under(found, "Account Name", "Invalid Account Name");
    const String name = found.value = objAccount.AccountName();
    if (name.empty() && AllBlank(objAccount)) {
      fail("EPSACC1.0.5", "_BlankAccName",
           "Name of Account Holder (Account Name) must be present as you have selected an account to use in "
           "the EPS. "
           "Amend Company Details Bank Details.");
    } else if (name.empty()) {
      fail("EPSACC1.0.1", "_BlankAccName",
           "Name of Account Holder (Account Name) must be present when Sort Code or Account Number is "
           "present. Amend "
           "Company Details Bank Details.");
    }
    if (name.empty()) return;
    if (Length(name) > 28) {
      fail("EPSACC1.0.3", "_LongAccName",
           "Account Name must be between 1 and 28 characters. The Account Name provided is " +
               LengthText(name));
    }
    if (name.starts_with(' ')) {
      fail("EPSACC1.0.4", "_InvalidAccName",
           "Name of Account Holder (Account Name) cannot begin with a space. Amend Company Details Bank "
           "Details.");
    }
    if (!ValidatePattern(name, kName)) {
      fail("EPSACC1.0.2", "_InvalidAccName", String("Account Name") + kCharacters);
    }
  });
}

bool vlsPaymentForPeriodValidator::ValidateAccountNo(clsEPSAccount& objAccount, const String& strErrKey) {
  static constexpr Rule kRule{.key = "Account No", .field = "Account Number", .code = {}};
  return CheckAt(Location("ValidateAccountNo"), kRule, strErrKey, [&](Finding& found) {
    const auto fail = Under(found, "Account No", "Invalid Account Number");
    const String number = found.value = objAccount.AccountNo();
    if (number.empty() && AllBlank(objAccount)) {
      fail("EPSACC1.1.4", "_MissingAccNumber",
           "Account Number must be present as you have selected an account to use in the EPS. Amend Company "
           "Details "
           "Bank Details.");
    } else if (number.empty()) {
      fail("EPSACC1.1.1", "_BlankAccNumber",
           "Account Number must be present when Sort Code or Name of Account Holder is present. Amend "
           "Company Details "
           "Bank Details.");
    } else if (!ValidatePattern(number, kNumber)) {
      if (Length(number) != 8) {
        fail("EPSACC1.1.3", "_LongAccNumber",
             "Account Number must be blank or 8 numbers e.g. 12345678. Amend Company Details Bank Details.");
      } else {
        fail("EPSACC1.1.2", "_InvalidAccNumber",
             "Account Number contains invalid characters. Valid characters for this field are 0-9.");
      }
    }
  });
}

// A sort code of eight characters is told of its characters, one of any other length of its length.
bool vlsPaymentForPeriodValidator::ValidateAccountSortCode(clsEPSAccount& objAccount,
                                                           const String& strErrKey) {
  static constexpr Rule kRule{.key = "Account Sort Code", .field = "Account Sort Code", .code = {}};
  return CheckAt(Location("ValidateAccountSortCode"), kRule, strErrKey, [&](Finding& found) {
    constexpr const char* kBase = "Account Sort Code";
    constexpr const char* kTitle = "Invalid Account Sort Code";
    const auto fail = Under(found, kBase, kTitle);
    const String code = found.value = objAccount.SortCode();
    if (code.empty() && AllBlank(objAccount)) {
      found.At(String(kBase) + "_MissingAccSortCode", "Sort Code");
      found.Fail("EPSACC1.2.4", kTitle,
                 "Sort Code must be present as you have selected an account to use in the EPS. Amend Company "
                 "Details "
                 "Bank Details.");
    } else if (code.empty()) {
      fail("EPSACC1.2.1", "_BlankAccSortCode",
           "Sort Code must be present when Account Number or Name of Account Holder is present. Amend "
           "Company Details "
           "Bank Details.");
    } else if (!ValidatePattern(code, kSortCode)) {
      if (Length(code) != 8) {
        fail("EPSACC1.2.3", "_LongAccSortCode",
             "Sort Code must be blank or 6 numbers e.g. 123456. Amend Company Details Bank Details.");
      } else {
        fail("EPSACC1.2.2", "_InvalidAccSortCode",
             "Account Sort Code contains invalid characters. Valid characters for this field are 0-9.");
      }
    }
  });
}

bool vlsPaymentForPeriodValidator::ValidateAccountRollNo(clsEPSAccount& objAccount, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "Account Building Society Reference", .field = "Account Building Society Reference", .code = {}};
  return CheckAt(Location("ValidateAccountRollNo"), kRule, strErrKey, [&](Finding& found) {
    constexpr const char* kBase = "Account Building Society Reference";
    const auto fail = Under(found, kBase, "Invalid Account Building Society Reference");
    const String number = found.value = objAccount.RollNo();
    if (number.empty()) return;
    if (Length(number) > 18) {
      fail("EPSACC1.3.2", "_LongAccRollNo",
           "Account Building Society Reference must be between 1 and 18 characters. The Account Building "
           "Society "
           "Reference provided is " +
               LengthText(number));
    }
    if (number.starts_with(' ')) {
      fail(
          "EPSACC1.0.4", "_InvalidAccRollNo",
          "Building Society reference number cannot begin with a space. Amend Company Details Bank Details.");
    }
    if (!ValidatePattern(number, kRollNo))
      fail("EPSACC1.3.1", "_InvalidAccRollNo", String(kBase) + kCharacters);
  });
}

}  // namespace zelnor
