#pragma once

#include "zelnor/platform/xml.h"
#include "zelnor/validation/error_record.h"

namespace zelnor {

/// What the validators share: the records of failed rules, and their limit.
class ZELNOR_API Validator {
 public:
  Validator(const Validator&) = delete;
  Validator& operator=(const Validator&) = delete;
  virtual ~Validator();

  /// How many records are kept; 0 for no limit. A negative value is stored as 0.
  ///@{
  Long MaxErrors() const { return max_errors_; }
  void MaxErrors(Long value) { max_errors_ = value < 0 ? 0 : value; }
  ///@}

  /// Whether no record is held.
  bool IsValid() const { return errors_->Count() == 0; }

  /// The number of records.
  Long ErrorCount() const { return errors_->Count(); }

  /// The records, in the order in which the rules failed.
  CollectionRef<ErrorRecord> Errors() const { return errors_; }

  /// Appends the records as XML to a node and returns it; without a node, a new root element is made for
  /// them.
  XmlNode GetAsXML(const XmlNode& xmlParent = nullptr) const;

 protected:
  explicit Validator(const char* root_name);

 private:
  const char* root_name_;
  CollectionRef<ErrorRecord> errors_ = MakeCollection<ErrorRecord>();
  Long max_errors_ = 0;
};

}  // namespace zelnor
