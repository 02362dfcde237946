#include "zelnor/documents/clsCompressedEmployees.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/envelope/clsDZEncoder.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

constexpr const char* kClass = "clsCompressedEmployees";
constexpr Long kPackingFailed = -1;

[[noreturn]] void ThrowPackingFailed(const String& text) {
  throw RuntimeError(kPackingFailed, "ZELNOR", text);
}

// The archiver tells a failure by its text.
bool IsFailure(const String& text) { return UpperCase(Left(text, 5)) == "ERROR"; }

String WithoutFailure(String text) {
  if (IsFailure(text)) ThrowPackingFailed(text);
  return text;
}

// The encoder, and what it holds, is gone before the text is parsed.
String Unpacked(const XmlNode& part) {
  return WithoutFailure(clsDZEncoder().UncompressAndDecodeData(part.Text()));
}

// The employees in a text of `Employee` elements one after the other.
XmlDocument EmployeesIn(String text) {
  text.insert(0, "<Employees>").append("</Employees>");
  XmlDocument document;
  if (!document.LoadXML(text)) {
    ThrowPackingFailed("Error in the unzipped employees: " + document.ParseError().reason);
  }
  return document;
}

// The section's own name and namespace, without anything in it, in a fragment: the employees under it take
// the namespace and the form that they would have in the section.
XmlNode EmptyCopyInFragment(const XmlNode& section) {
  return section.OwnerDocument().CreateDocumentFragment().AppendChild(section.CloneNode(false));
}

}  // namespace

clsCompressedEmployees::clsCompressedEmployees() : employees_(MakeCollection<clsEmployee>()) {}
clsCompressedEmployees::~clsCompressedEmployees() = default;

// The standard handler, which keeps the text for the section too.
template <class Body>
void clsCompressedEmployees::Reported(std::string_view member, Body&& body) {
  failure_.clear();
  Handled(kClass, member, [&] {
    try {
      std::forward<Body>(body)();
    } catch (...) {
      const RuntimeError error = CurrentError();
      failure_ = IsFailure(error.Description()) ? error.Description() : ErrorText(error, kClass, member);
      throw;
    }
  });
}

void clsCompressedEmployees::Create(CollectionRef<clsEmployee> colEmployees) {
  employees_ = std::move(colEmployees);
  validated_ = false;
}

bool clsCompressedEmployees::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, kClass, strXML);
}

bool clsCompressedEmployees::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Reported("Function CreateFromXML", [&] {
    validated_ = false;
    employees_ = MakeCollection<clsEmployee>();
    compression_mode_ = enmCompressionMode::Zip;
    if (xmlNode.NodeName() != RootElementName()) return;
    const XmlNode section = xmlNode.ParentNode();
    section_name_ = section.IsElement() ? section.BaseName() : String();
    if (UpperCase(xmlNode.Attribute("Type").value_or("")) == "GZIP") {
      compression_mode_ = enmCompressionMode::GZip;
    }
    const XmlDocument document = EmployeesIn(Unpacked(xmlNode));
    for (const XmlNode& child : document.DocumentElement().ChildNodes()) {
      if (child.BaseName() == "Employee") employees_->Add(NewFromXML<clsEmployee>(child));
    }
    result = true;
  });
  return result;
}

bool clsCompressedEmployees::Validated() const { return validated_ && AbsentOrValidated(employees_); }

String clsCompressedEmployees::RootElementName() const { return "CompressedPart"; }

CollectionRef<clsEmployee> clsCompressedEmployees::Employees() {
  if (!employees_) employees_ = MakeCollection<clsEmployee>();
  return employees_;
}
void clsCompressedEmployees::Employees(CollectionRef<clsEmployee> value) {
  employees_ = std::move(value);
  validated_ = false;
}

Long clsCompressedEmployees::EmployeeCount() const { return employees_ ? employees_->Count() : 0; }

enmCompressionMode clsCompressedEmployees::CompressionMode() const { return compression_mode_; }
void clsCompressedEmployees::CompressionMode(enmCompressionMode value) { Change(compression_mode_, value); }

void clsCompressedEmployees::AddEmployee(const Ref<clsEmployee>& obj) {
  Handled(kClass, "Sub AddEmployee", [&] {
    Required(obj).Validated(false);
    Employees()->Add(obj);
  });
}

void clsCompressedEmployees::AddEmployeeRange(CollectionRef<clsEmployee> colEmployees) {
  Handled(kClass, "Sub AddEmployeeRange", [&] {
    // Counted first: the range may be the part's own collection.
    const Long count = Required(colEmployees).Count();
    for (Long i = 1; i <= count; ++i) {
      const Ref<clsEmployee> employee = colEmployees->Item(i);
      Required(employee).Validated(false);
      Employees()->Add(employee);
    }
  });
}

// One employee at a time, so that the document never holds them all.
String clsCompressedEmployees::Packed(const XmlNode& section) const {
  const XmlNode place = EmptyCopyInFragment(section);
  String text;
  if (employees_) {
    for (const Ref<clsEmployee>& each : *employees_) {
      const XmlNode employee = Required(each).ToXML(place);
      employee.WriteXml([&](std::string_view piece) { text.append(piece); });
      place.RemoveChild(employee);
    }
  }
  return WithoutFailure(clsDZEncoder().PackAndEncode(std::move(text), written_));
}

void clsCompressedEmployees::WriteInto(const XmlNode& element, const XmlNode& section) {
  written_ = Packed(section);
  element.Attribute("Type", "zip");
  element.Text(written_);
}

XmlNode clsCompressedEmployees::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Reported("Function ToXML", [&] {
    section_name_ = xmlParent.BaseName();
    const XmlNode element = GetSingularElement(RootElementName(), xmlParent);
    WriteInto(element, xmlParent);
    result = element;
  });
  return result;
}

// A section of the kind that the part belongs to, in a fragment of the document.
XmlNode clsCompressedEmployees::SectionOf(const XmlDocument& document, const String& strNamespace) const {
  const String name = section_name_.empty() ? "FullPaymentSubmission" : section_name_;
  return document.CreateDocumentFragment().AppendChild(
      document.CreateNode(XmlNodeType::Element, name, strNamespace));
}

XmlNode clsCompressedEmployees::EmployeeFragment(const String& strRootName, const String& strNamespace) {
  XmlNode result;
  Reported("Function EmployeeFragment", [&] {
    const XmlDocument document;
    const XmlNode section = SectionOf(document, strNamespace);
    const XmlNode root = section.AppendElement(strRootName.empty() ? "Employees" : strRootName, strNamespace);
    for (const Ref<clsEmployee>& each : *Employees()) Required(each).ToXML(root);
    const XmlNode fragment = document.CreateDocumentFragment();
    fragment.AppendChild(root);
    result = fragment;
  });
  return result;
}

XmlNode clsCompressedEmployees::XMLFragment(const String& strRootName, const String& strNamespace) {
  XmlNode result;
  Reported("Function XMLFragment", [&] {
    const XmlDocument document;
    const XmlNode fragment = document.CreateDocumentFragment();
    const XmlNode element = fragment.AppendChild(document.CreateNode(
        XmlNodeType::Element, strRootName.empty() ? RootElementName() : strRootName, strNamespace));
    WriteInto(element, SectionOf(document, strNamespace));
    result = fragment;
  });
  return result;
}

}  // namespace zelnor
