#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/common/record.h"
#include "zelnor/platform/event.h"

namespace zelnor {

class clsCompressedEmployees;
class clsEmployee;
class clsEmployerReferences;

/// What the sections with many employees share (FPS, EYU and EAS): the employer's references, the employees,
/// and the choice between plain `Employee` elements and one `CompressedPart`.
class ZELNOR_API EmployeeSection : public Record {
 public:
  /// The events of a section.
  struct Events {
    /// Compression failed, for this reason, a text that begins with "Error"; the employees are written plain.
    Event<const String&> CompressionError;
  };
  Events events;

  EmployeeSection(const EmployeeSection&) = delete;
  EmployeeSection& operator=(const EmployeeSection&) = delete;

  using Record::Validated;
  bool Validated() const override;

  /// The employer's references. Reading makes an empty record when none is held; writing clears its
  /// `Validated`.
  ///@{
  Ref<clsEmployerReferences> Employer_References();
  void Employer_References(Ref<clsEmployerReferences> value);
  ///@}

  /// The employees, in document order; made when absent.
  CollectionRef<clsEmployee> Employees();

  /// The number of employees.
  Long EmployeeCount() const;

  /// Appends each member in order, clearing its `Validated`. No object is reported as error 91.
  void AddEmployeeRange(CollectionRef<clsEmployee> colEmployee);

  /// Whether the controller validates before sending; plain storage.
  ///@{
  bool UseValidation() const;
  void UseValidation(bool value);
  ///@}

  /// Whether the employees are written compressed whatever their number. Reading a document sets it to the
  /// form that the document has.
  ///@{
  bool UseCompression() const;
  void UseCompression(bool value);
  ///@}

  /// True forces the plain form, whatever the other two say.
  ///@{
  bool OverrideCompression() const;
  void OverrideCompression(bool value);
  ///@}

  /// The number of employees from which on they are written compressed; 5000 at first.
  ///@{
  Long AutoCompressionLimit() const;
  void AutoCompressionLimit(Long value);
  ///@}

  /// The compressed part that was read or written last; no object when there was none, or when the last one
  /// could not be written.
  Ref<clsCompressedEmployees> CompressedPart() const;

 protected:
  EmployeeSection();
  ~EmployeeSection() override;

  /// The name under which failures are shown.
  virtual String ClassName() const = 0;

  /// Adds an employment of this status to its count.
  static void CountByStatus(eEMPLOYEE_STATUS status, Long& fresh, Long& current, Long& leavers);

  /// Appends an employee and clears its `Validated`.
  void Append(const Ref<clsEmployee>& objEmployee);

  /// New references, no employees, no compressed part.
  void ClearEmployees();

  /// Takes a child that all these sections have: `EmpRefs`, `Employee` or `CompressedPart`. False for any
  /// other name.
  bool ReadCommonChild(const XmlNode& child);

  void WriteReferences(const XmlNode& xmlSection);

  /// Writes the employees in the form that the settings choose.
  void WriteEmployees(const XmlNode& xmlSection);

  void StoreReferences(Ref<clsEmployerReferences> value) { employer_references_ = std::move(value); }
  void StoreEmployees(CollectionRef<clsEmployee> value) { employees_ = std::move(value); }

 private:
  void ReadCompressedPart(const XmlNode& xmlNode);
  bool WriteCompressed(const XmlNode& xmlSection);
  void WritePlain(const XmlNode& xmlSection);

  Ref<clsEmployerReferences> employer_references_;
  CollectionRef<clsEmployee> employees_;
  Ref<clsCompressedEmployees> compressed_part_;
  Long auto_compression_limit_ = 5000;
  bool use_validation_ = false;
  bool use_compression_ = false;
  bool override_compression_ = false;
};

}  // namespace zelnor
