// An application that has nothing but the installed package.

#include <zelnor/platform/values.h>

#include <cstdio>

int main() {
  zelnor::Currency pay = zelnor::Currency::FromPence(81550) + zelnor::Currency(20);
  pay -= zelnor::Currency(0.25);
  std::printf("%lld\n", static_cast<long long>(pay.Units()));
}
