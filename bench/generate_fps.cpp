// Writes a Full Payment Submission with a given number of employees to standard output:
//   generate_fps EMPLOYEES [--indent] [--errors]
// All people are made up by counting; each employee has a name, an address, one employment with figures, a
// payment and one or two NI letters, about what a monthly payroll sends. With --errors each has a tax code
// that no rule takes.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Writes elements, one a line when indented.
class Out {
 public:
  explicit Out(bool indent) : indent_(indent) {}
  Out(const Out&) = delete;
  Out& operator=(const Out&) = delete;
  ~Out() { Flush(); }

  void Open(const char* name, const char* attributes = "") {
    Margin();
    text_.append("<").append(name).append(attributes).append(">");
    open_.emplace_back(name);
  }

  void Close() {
    const std::string name = open_.back();
    open_.pop_back();
    Margin();
    text_.append("</").append(name).append(">");
    if (text_.size() > 1 << 20) Flush();
  }

  void Leaf(const char* name, const std::string& value, const char* attributes = "") {
    Margin();
    text_.append("<")
        .append(name)
        .append(attributes)
        .append(">")
        .append(value)
        .append("</")
        .append(name)
        .append(">");
  }

 private:
  void Margin() {
    if (indent_) text_.append("\n").append(open_.size(), '\t');
  }

  void Flush() {
    std::fwrite(text_.data(), 1, text_.size(), stdout);
    text_.clear();
  }

  bool indent_;
  std::string text_;
  std::vector<std::string> open_;
};

std::string Money(long pence) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%ld.%02ld", pence / 100, pence % 100);
  return text.data();
}

std::string Padded(long number, int width) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%0*ld", width, number);
  return text.data();
}

void WriteNIRow(Out& out, const char* letter, long pay) {
  out.Open("NIlettersAndValues");
  out.Leaf("NIletter", letter);
  out.Leaf("GrossEarningsForNICsInPd", Money(pay));
  out.Leaf("GrossEarningsForNICsYTD", Money(pay * 6));
  out.Leaf("AtLELYTD", "3252.00");
  out.Leaf("LELtoPTYTD", "3036.00");
  out.Leaf("PTtoUELYTD", Money(pay * 2));
  out.Leaf("TotalEmpNICInPd", Money(pay / 8));
  out.Leaf("TotalEmpNICYTD", Money(pay / 8 * 6));
  const long contribution = *letter == 'C' ? 0 : pay / 20;  // of those over pension age, the employer's alone
  out.Leaf("EmpeeContribnsInPd", Money(contribution));
  out.Leaf("EmpeeContribnsYTD", Money(contribution * 6));
  out.Close();
}

void WriteEmployee(Out& out, long number, bool errors) {
  static constexpr std::array kForenames = {"Ada",    "Brian", "Carys", "Dev",
                                            "Eilidh", "Femi",  "Grace", "Hamish"};
  static constexpr std::array kSurnames = {"Ashworth", "Bhatt",  "Carmichael", "Davies",
                                           "Ellery",   "Farrow", "Ganesh"};
  const auto index = static_cast<std::size_t>(number);
  const long pay = 150000 + number % 3000 * 100;
  out.Open("Employee");
  out.Open("EmployeeDetails");
  out.Leaf("NINO", "AB" + Padded(number % 1000000, 6) + "C");
  out.Open("Name");
  out.Leaf("Ttl", number % 2 == 0 ? "Ms" : "Mr");
  out.Leaf("Fore", kForenames[index % kForenames.size()]);
  out.Leaf("Sur", kSurnames[index % kSurnames.size()]);
  out.Close();
  out.Open("Address");
  out.Leaf("Line", std::to_string(number % 200 + 1) + " Orchard Road");
  out.Leaf("Line", "Little Harbour");
  out.Leaf("UKPostcode", "AB1 2CD");
  out.Close();
  out.Leaf("BirthDate", std::to_string(1960 + number % 45) + "-0" + std::to_string(number % 9 + 1) + "-17");
  out.Leaf("Gender", number % 2 == 0 ? "F" : "M");
  out.Close();
  out.Open("Employment");
  out.Leaf("PayId", "P" + std::to_string(number));
  out.Open("FiguresToDate");
  out.Leaf("TaxablePay", Money(pay * 6));
  out.Leaf("TotalTax", Money(pay * 6 / 7));
  out.Leaf("StudentLoansTD", number % 5 == 0 ? "240.00" : "0.00");
  out.Leaf("PostgradLoansTD", "0.00");
  out.Leaf("EmpeePenContribnsPaidYTD", Money(pay * 6 / 20));
  out.Close();
  out.Open("Payment");
  out.Leaf("PayFreq", "M1");
  out.Leaf("PmtDate", "2025-09-30");
  out.Leaf("MonthNo", "6");
  out.Leaf("PeriodsCovered", "1");
  out.Leaf("HoursWorked", "E");
  out.Leaf("TaxCode", errors ? "W1" : "1257L", number % 11 == 0 ? " TaxRegime=\"S\"" : "");
  out.Leaf("TaxablePay", Money(pay));
  out.Leaf("NonTaxOrNICPmt", "0.00");
  out.Leaf("DednsFromNetPay", "0.00");
  out.Leaf("PayAfterStatDedns", Money(pay * 4 / 5));
  out.Leaf("BenefitsTaxedViaPayroll", "0.00");
  out.Leaf("Class1ANICsYTD", "0.00");
  out.Leaf("EmpeePenContribnsPaid", Money(pay / 20));
  out.Leaf("ItemsSubjectToClass1NIC", "0.00");
  out.Leaf("EmpeePenContribnsNotPaid", "0.00");
  if (number % 5 == 0) out.Leaf("StudentLoanRecovered", "40.00", " PlanType=\"02\"");
  out.Leaf("TaxDeductedOrRefunded", Money(pay / 7));
  for (const char* name : {"SMPYTD", "SPPYTD", "SAPYTD", "ShPPYTD", "SPBPYTD", "SNCPYTD"})
    out.Leaf(name, "0.00");
  out.Close();
  WriteNIRow(out, "A", pay);
  if (number % 10 == 0) WriteNIRow(out, "C", pay / 2);
  out.Close();
  out.Close();
}

void WriteKeys(Out& out) {
  out.Open("Keys");
  out.Leaf("Key", "123", " Type=\"TaxOfficeNumber\"");
  out.Leaf("Key", "A246", " Type=\"TaxOfficeReference\"");
  out.Close();
}

void WriteMessage(Out& out, long employees, bool errors) {
  out.Open("GovTalkMessage", " xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"");
  out.Leaf("EnvelopeVersion", "2.0");
  out.Open("Header");
  out.Open("MessageDetails");
  out.Leaf("Class", "HMRC-PAYE-RTI-FPS");
  out.Leaf("Qualifier", "request");
  out.Leaf("Function", "submit");
  out.Leaf("Transformation", "XML");
  out.Close();
  out.Open("SenderDetails");
  out.Open("IDAuthentication");
  out.Leaf("SenderID", "BENCH123");
  out.Open("Authentication");
  out.Leaf("Method", "clear");
  out.Leaf("Role", "principal");
  out.Leaf("Value", "not-a-password");
  out.Close();
  out.Close();
  out.Close();
  out.Close();
  out.Open("GovTalkDetails");
  WriteKeys(out);
  out.Close();
  out.Open("Body");
  out.Open("IRenvelope",
           " xmlns=\"http://www.govtalk.gov.uk/taxation/PAYE/RTI/FullPaymentSubmission/25-26/1\"");
  out.Open("IRheader");
  WriteKeys(out);
  out.Leaf("PeriodEnd", "2026-04-05");
  out.Open("Principal");
  out.Open("Contact");
  out.Open("Name");
  out.Leaf("Fore", "Paula");
  out.Leaf("Sur", "Roller");
  out.Close();
  out.Close();
  out.Close();
  out.Leaf("DefaultCurrency", "GBP");
  out.Leaf("Sender", "Employer");
  out.Close();
  out.Open("FullPaymentSubmission");
  out.Open("EmpRefs");
  out.Leaf("OfficeNo", "123");
  out.Leaf("PayeRef", "A246");
  out.Leaf("AORef", "123PA00045678");
  out.Close();
  out.Leaf("RelatedTaxYear", "25-26");
  for (long number = 1; number <= employees; ++number) WriteEmployee(out, number, errors);
  for (int level = 0; level < 4; ++level) out.Close();
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const long employees = arguments.empty() ? 0 : std::strtol(arguments.front().c_str(), nullptr, 10);
  if (employees <= 0) {
    std::fputs("usage: generate_fps EMPLOYEES [--indent] [--errors]\n", stderr);
    return 2;
  }
  const auto given = [&](const char* option) {
    return std::find(arguments.begin(), arguments.end(), option) != arguments.end();
  };
  Out out(given("--indent"));
  WriteMessage(out, employees, given("--errors"));
  return 0;
}
