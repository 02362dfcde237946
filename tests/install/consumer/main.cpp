// An application that has nothing but the installed package.

#include <cstdio>
#include <zelnor/platform/values.h>

int main() {
  zelnor::Currency pay = zelnor::Currency::FromPence(81550) + zelnor::Currency(20);
  pay -= zelnor::Currency(0.25);
  std::printf("%lld\n", static_cast<long long>(pay.Units()));
}
