#include "zelnor/documents/clsBenefits.h"
#include "zelnor/documents/clsCarDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsFreeFuel.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsSeconded.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/platform/formats.h"
#include "zelnor/validation/employee_parts.h"
#include "zelnor/validation/pattern.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

namespace zelnor {
namespace {

const Pattern kMake(R"(^[A-Za-z0-9 \(\)\-\./]{0,35}$)");

// Without anchors: any text meets it, with an empty match if with none else.
const Pattern kID("[a-zA-Z0-9 ]*");

}  // namespace

// The key words of these rules begin with "_", and follow an empty key too.
template <class Body>
bool vlsEmployeeValidator::CheckBenefit(const Ref<clsEmployee>& objEmployee, const Rule& rule,
                                        const String& strErrKey, Body&& body) {
  return CheckOf(objEmployee, rule, {}, [&](Finding& found) {
    found.At(strErrKey + String(rule.key));
    body(found);
  });
}

bool vlsEmployeeValidator::ValidateBenefits(const Ref<clsEmployee>& objEmployee,
                                            const Ref<clsBenefits>& objBenefits, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_Benefits",
                              .field = "Benefits",
                              .code = "E7.27.0",
                              .what = "the Flexible Drawdown section. ",
                              .processing_field = "Flexible Drawdown"};
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    clsBenefits& benefits = Required(objBenefits);
    if (!benefits.HasCarDetails()) {
      found.Fail("E20.0.0", "Error - Benefits",
                 "If Benefits is included at least one car entry must be included");
      return;
    }
    for (const Ref<clsCarDetails>& car : *benefits.CarDetails()) {
      found.And(ValidateCar(objEmployee, car, strErrKey));
    }
    benefits.Validated(found.Passed());
  });
}

bool vlsEmployeeValidator::ValidateCar(const Ref<clsEmployee>& objEmployee,
                                       const Ref<clsCarDetails>& objCarDetails, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_Benefits_Car",
                              .field = "Flexible Drawdown",
                              .code = "E7.27.0",
                              .what = "the Flexible Drawdown section. "};
  if (!objCarDetails) return true;
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    clsCarDetails& car = *objCarDetails;
    const String key = strErrKey + String(kRule.key);
    found.And(ValidateMake(objEmployee, objCarDetails, key));
    found.And(ValidateCO2(objEmployee, objCarDetails, key));
    if (!car.ID().empty()) found.And(ValidateID(objEmployee, objCarDetails, key));
    found.And(ValidatePrice(objEmployee, objCarDetails, key));
    found.And(ValidateAvailFromTo(objEmployee, car.AvailFrom(), key, true));
    found.And(ValidateCashEquiv(objEmployee, car.CashEquiv(), kLeastPounds, kMostPounds, key));
    found.And(ValidateAvailFromTo(objEmployee, car.AvailTo(), key, false, car.AvailFrom()));
    if (car.HasFuel()) found.And(ValidateFreeFuel(objEmployee, car.FreeFuel(), key));
    car.Validated(found.Passed());
  });
}

bool vlsEmployeeValidator::ValidateFreeFuel(const Ref<clsEmployee>& objEmployee,
                                            const Ref<clsFreeFuel>& objFreeFuel, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_FreeFuel", .field = "Free Fuel", .code = "E21.0.0"};
  if (!objFreeFuel) return true;
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String key = strErrKey + String(kRule.key);
    found.And(ValidateProvided(objEmployee, objFreeFuel, key));
    found.And(ValidateCashEquiv(objEmployee, objFreeFuel->CashEquiv(), kLeastPounds, kMostPounds, key));
    if (objFreeFuel->Withdrawn() > Date()) found.And(ValidateWithdrawn(objEmployee, objFreeFuel, key));
    objFreeFuel->Validated(found.Passed());
  });
}

bool vlsEmployeeValidator::ValidateMake(const Ref<clsEmployee>& objEmployee,
                                        const Ref<clsCarDetails>& objCarDetails, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_Make", .field = "Make", .code = "E20.1.0", .what = "the Car Make. "};
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String& make = found.value = Required(objCarDetails).Make();
    if (make.empty()) found.Fail("E20.1.2", "Mandatory", "Make must be present");
    if (Length(make) > 35) found.Fail("E20.1.3", "Invalid length", "Make must not exceed 35 characters");
    if (!ValidatePattern(make, kMake)) {
      found.Fail("E20.1.1", "Invalid characters",
                 "Invalid characters in Make. Field must only contain the following characters:-  A-Z, a-z, "
                 "space, hyphen (-), full stop (.), brackets ( ) ");
    }
  });
}

// A text that is no number passes.
bool vlsEmployeeValidator::ValidateCO2(const Ref<clsEmployee>& objEmployee,
                                       const Ref<clsCarDetails>& objCarDetails, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_CO2", .field = "CO2", .code = "E20.2.0", .what = "the Car CO2. "};
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String& co2 = found.value = Required(objCarDetails).CO2();
    if (co2 == "X") return;
    if (co2.empty()) found.Fail("E20.2.1", "Mandatory", "CO2 must be present");
    if (!IsNumeric(co2)) return;
    const double emission = ToDouble(co2);
    if (emission < 0 || emission > 999) {
      found.Fail("E20.2.2", "Invalid value",
                 "Invalid value in CO2. value must be positive and no more than 999");
    }
  });
}

bool vlsEmployeeValidator::ValidateID(const Ref<clsEmployee>& objEmployee,
                                      const Ref<clsCarDetails>& objCarDetails, const String& strErrKey) {
  static constexpr Rule kRule{.key = "_ID", .field = "ID", .code = "E20.1.0", .what = "the Car Make. "};
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const String& id = found.value = Required(objCarDetails).ID();
    const std::size_t length = Length(id);
    if (length > 10) found.Fail("E20.3.2", "Invalid length", "ID must not exceed 10 characters");
    if (length >= 1 && length <= 10 && !ValidatePattern(id, kID)) {
      found.Fail(
          "E20.3.1", "Invalid characters",
          "Invalid characters in Car ID. Field must only contain the following characters:-  A-Z, a-z, "
          "0-9 Or space");
    }
  });
}

bool vlsEmployeeValidator::ValidatePrice(const Ref<clsEmployee>& objEmployee,
                                         const Ref<clsCarDetails>& objCarDetails, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "_Price", .field = "Price", .code = "E20.4.0", .what = "the Car Price. "};
  static constexpr Currency kLow = 1000;
  static constexpr Currency kHigh = Currency::FromUnits(99'999'999'900);
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Currency price = Required(objCarDetails).Price();
    if (price >= kLow && price <= kHigh) return;
    found.value = Format(price, "0.00");
    found.Fail("E20.4.1", "Invalid value",
               "Invalid value in Price. value must be no less than " + Format(kLow, "0.00") +
                   " and no greater than " + Format(kHigh, "0.00"));
  });
}

bool vlsEmployeeValidator::ValidateCashEquiv(const Ref<clsEmployee>& objEmployee, Currency curCashEquiv,
                                             Currency curLow, Currency curHigh, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "_CashEquiv", .field = "CashEquiv", .code = "E20.4.0", .what = "the Cash Equivalent "};
  return CheckBenefit(objEmployee, kRule, strErrKey, [&](Finding& found) {
    if (curCashEquiv >= curLow && curCashEquiv <= curHigh) return;
    found.value = Format(curCashEquiv, "0.00");
    found.Fail("E20.4.1", "Invalid value",
               "Invalid value in CashEquiv. value must be no less than " + Format(curLow, "0.00") +
                   " and no greater than" + Format(curHigh, "0.00"));
  });
}

bool vlsEmployeeValidator::ValidateAvailFromTo(const Ref<clsEmployee>& objEmployee, Date datAvailFromTo,
                                               const String& strErrKey, bool isFrom, Date datAvailFrom) {
  static constexpr Rule kFrom{
      .key = "AvailFrom", .field = "AvailFrom", .code = "E20.5.0", .ending = " Date "};
  static constexpr Rule kTo{.key = "AvailTo", .field = "AvailTo", .code = "E20.5.0", .ending = " Date "};
  const Rule& rule = isFrom ? kFrom : kTo;
  return CheckOf(objEmployee, rule, strErrKey, [&](Finding& found) {
    found.value = DayText(datAvailFromTo);
    const YearDates year = TaxYearDates();
    const bool missing = isFrom && datAvailFromTo.IsZero();
    const bool too_early = !isFrom && !datAvailFromTo.IsZero() && datAvailFromTo < datAvailFrom;
    const bool outside = year.Excludes(datAvailFromTo);
    if (!missing && !too_early && !outside) return;
    const String name(rule.field);
    if (missing) found.Fail("E20.5.1", "Mandatory", name + " must be provided");
    if (too_early) {
      found.Fail("E20.5.2", "Invalid Date", "Car AvailableTo must not be before Car AvailableFrom");
    }
    if (outside) {
      found.Fail("E20.5.3", "Invalid Date",
                 name + " must be no less than " + DayText(year.start) + " and no greater than " +
                     DayText(year.end) + ".");
    }
  });
}

bool vlsEmployeeValidator::ValidateProvided(const Ref<clsEmployee>& objEmployee,
                                            const Ref<clsFreeFuel>& objFreeFuel, const String& strErrKey) {
  static constexpr Rule kRule{.key = "Provided", .field = "Provided", .code = "E20.5.0", .ending = " Date "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Date provided = Required(objFreeFuel).Provided();
    found.value = DayText(provided);
    const YearDates year = TaxYearDates();
    const bool outside = year.Excludes(provided);
    if (provided.IsZero()) found.Fail("E21.1.1", "Mandatory", "Provided must be provided");
    if (outside) {
      found.Fail("E21.1.2", "Invalid Date",
                 "Provided must be no less than " + DayText(year.start) + " and no greater than " +
                     DayText(year.end) + ".");
    }
  });
}

bool vlsEmployeeValidator::ValidateWithdrawn(const Ref<clsEmployee>& objEmployee,
                                             const Ref<clsFreeFuel>& objFreeFuel, const String& strErrKey) {
  static constexpr Rule kRule{
      .key = "Withdrawn", .field = "Withdrawn", .code = "E20.5.0", .ending = " Date "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Date withdrawn = Required(objFreeFuel).Withdrawn();
    found.value = DayText(withdrawn);
    const YearDates year = TaxYearDates();
    const bool too_early = !withdrawn.IsZero() && withdrawn < objFreeFuel->Provided();
    const bool outside = year.Excludes(withdrawn);
    if (too_early) {
      found.Fail("E21.3.1", "Invalid Date", "Free Fuel Withdrawn must not be before free Fuel Provided");
    }
    if (outside) {
      found.Fail("E20.3.2", "Invalid Date",
                 "Withdrawn must be no less than " + DayText(year.start) + " and no geater than " +
                     DayText(year.end) + ".");
    }
  });
}

bool vlsEmployeeValidator::ValidateTrivialCommutationPayment(const Ref<clsEmployee>& objEmployee,
                                                             const Ref<clsEmployment>& objEmployment,
                                                             const String& strErrKey) {
  static constexpr Rule kRule{.key = "",
                              .field = "N/A",
                              .code = "E7.27.0",
                              .what = "the Trivial Commutation Payments. ",
                              .processing_field = "N/A"};
  static constexpr Currency kBound = 99999;
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsPayment> payment = Required(objEmployment).Payment();
    int kind = 0;
    for (const Currency& amount : Required(payment).TrivialCommutationPayment()) {
      ++kind;
      if (amount >= -kBound && amount <= kBound && IsWholePounds(amount.ToDouble())) continue;
      const String letter = payment->TrivialCommutationPaymentTypeDescr(static_cast<tcpPaymentType>(kind));
      found.At(letter, "Trivial Commutation Payment " + letter);
      found.value = Format(amount, "#0.00");
      found.Fail(String("E7.27.1") + letter, "Invalid format",
                 "Invalid value or format. Must be -99999.00 to 99999.00 and in whole pounds only.");
    }
  });
}

bool vlsEmployeeValidator::ValidateSecondmentRule(const Ref<clsEmployee>& objEmployee,
                                                  const Ref<clsEmployment>& objEmployment,
                                                  const String& strErrKey) {
  static constexpr Rule kRule{.key = "SecondmentRule",
                              .field = "Seconded To UK",
                              .code = "E10.6.0",
                              .what = "the Total Employee NIC YTD value. "};
  return CheckOf(objEmployee, kRule, strErrKey, [&](Finding& found) {
    const Ref<clsStarter> starter = Required(objEmployment).Starter();
    if (!Required(starter).IsSeconded()) return;
    switch (Required(starter->Seconded()).SecondmentLength()) {
      case SECONDMENT_LENGTH::StayOver6Months:
      case SECONDMENT_LENGTH::StayLessThan6Months:
      case SECONDMENT_LENGTH::InOutUK:
        return;
      default:
        found.Fail("E11.4.1.2", "Mandatory",
                   "If the seconded to work in UK status is set one of the valid secondment options must be "
                   "set.");
    }
  });
}

}  // namespace zelnor
