#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"

namespace zelnor {

class clsEmployee;

/// The employees of an FPS, EYU or EAS in compressed form, element `CompressedPart`: the Base64 text of a zip
/// archive of their XML. Whether a section writes it, see EmployeeSection.
///
/// @code
/// clsCompressedEmployees part;
/// part.ParseFromXML(xml);                       // <CompressedPart Type="zip">UEsDBBQ...</CompressedPart>
/// std::cout << part.EmployeeCount();
/// @endcode
class ZELNOR_API clsCompressedEmployees : public Record {
 public:
  clsCompressedEmployees();
  ~clsCompressedEmployees() override;

  /// Stores the collection by reference and clears `Validated`.
  void Create(CollectionRef<clsEmployee> colEmployees);

  /// Fills the record from text whose first node is `CompressedPart`. False, and nothing changed, for text
  /// that doesn't parse or begins with another node, an XML declaration among them.
  bool ParseFromXML(const String& strXML);

  /// Replaces the employees by those in the archive, a zip or gzip whatever the attribute `Type` says, and
  /// even without one. False for a node of another name, and after a failure, which is shown in the host's
  /// message box: error -1 for Base64 that holds no readable archive, or an archive that holds no XML. Then
  /// there are no employees.
  bool CreateFromXML(const XmlNode& xmlNode);

  using Record::Validated;

  /// Whether the rules have checked the employees since the last change.
  bool Validated() const override;

  /// "CompressedPart".
  String RootElementName() const;

  /// The employees, in order; an absent collection is made by the read. A write stores the collection.
  ///@{
  CollectionRef<clsEmployee> Employees();
  void Employees(CollectionRef<clsEmployee> value);
  ///@}

  /// The number of employees.
  Long EmployeeCount() const;

  /// What the attribute `Type` said that was read last: Zip, also when it said neither. The writer always
  /// makes a zip.
  ///@{
  enmCompressionMode CompressionMode() const;
  void CompressionMode(enmCompressionMode value);
  ///@}

  /// Appends an employee, clearing its `Validated`. No object is reported as error 91.
  void AddEmployee(const Ref<clsEmployee>& obj);

  /// Appends each member in order, clearing its `Validated`. No object is reported as error 91.
  void AddEmployeeRange(CollectionRef<clsEmployee> colEmployees);

  /// The employees as they are, not compressed: a fragment with one element `Employees`, or of the given
  /// name, in the given namespace. They have the form of the kind of document that the part was read from or
  /// written to last; that of an FPS when there was none. No object after a failure, which is shown in the
  /// host's message box.
  XmlNode EmployeeFragment(const String& strRootName = {}, const String& strNamespace = {});

  /// The employees compressed: a fragment with one element `CompressedPart`, or of the given name, in the
  /// given namespace. Form and failures as with EmployeeFragment.
  XmlNode XMLFragment(const String& strRootName = {}, const String& strNamespace = {});

  /// Writes the part under its section. No object after a failure, which is shown in the host's message box:
  /// error -1 with the archiver's text for employees that can't be packed.
  ZELNOR_INTERNAL XmlNode ToXML(const XmlNode& xmlParent);

  /// Takes over what another part has written, to be written once more as long as the employees are the same.
  ZELNOR_INTERNAL void KeepWritten(const clsCompressedEmployees& other) { written_ = other.written_; }

  /// Why the last read or write failed, a text that begins with "Error"; empty after a success.
  ZELNOR_INTERNAL const String& Failure() const { return failure_; }

 private:
  template <class Body>
  void Reported(std::string_view member, Body&& body);

  String Packed(const XmlNode& section) const;
  void WriteInto(const XmlNode& element, const XmlNode& section);
  XmlNode SectionOf(const XmlDocument& document, const String& strNamespace) const;

  CollectionRef<clsEmployee> employees_;
  enmCompressionMode compression_mode_ = enmCompressionMode::Zip;
  String section_name_;  // of the section that the part was read from or written to last
  String written_;       // the Base64 text that was written last
  String failure_;
};

}  // namespace zelnor
