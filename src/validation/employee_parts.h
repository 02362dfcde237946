#pragma once

/// @file
/// What the rules of employees read, and how they write it out. A record that isn't there raises error 91,
/// which is then the rule's processing error.

#include "zelnor/common/record.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeAddress.h"
#include "zelnor/documents/clsEmployeeDetails.h"

namespace zelnor {

inline clsEmployeeDetails& DetailsOf(const Ref<clsEmployee>& employee) {
  return Required(Required(employee).EmployeeDetails());
}

/// Reading makes an absent address.
inline clsEmployeeAddress& AddressOf(const Ref<clsEmployee>& employee) {
  return Required(DetailsOf(employee).Address());
}

/// A day as a record shows it; empty for one before 1901.
inline String DayText(Date day) { return FormatDateOrDefault(day, "dd/mm/yyyy", ""); }

/// The widest range of amounts: 999,999,999.99 pounds either way.
inline constexpr Currency kMostPounds = Currency::FromUnits(9'999'999'999'900);
inline constexpr Currency kLeastPounds = Currency::FromUnits(-9'999'999'999'900);

}  // namespace zelnor
