#include "zelnor/documents/clsEPSAccount.h"

namespace zelnor {

void clsEPSAccount::Create(const String& strAccountName, const String& strAccountNo,
                           const String& strSortCode, const String& strBuildSocRef) {
  PassedOn("[ZELNOR.dll::clsEPSAccount]: Create", [&] {
    account_name_ = strAccountName;
    account_no_ = strAccountNo;
    sort_code_ = strSortCode;
    roll_no_ = strBuildSocRef;
    validated_ = false;
  });
}

bool clsEPSAccount::ParseFromXML(const String& strXML) {
  bool result = false;
  PassedOn("[ZELNOR.dll::clsEPSAccount]: ParseFromXML", [&] {
    if (const XmlNode node = DocumentElementNamed(strXML, "Account")) result = CreateFromXML(node);
  });
  return result;
}

bool clsEPSAccount::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  PassedOn("[ZELNOR.dll::clsEPSAccount]: CreateFromXML", [&] {
    *this = clsEPSAccount();
    if (xmlNode.NodeName() == "Account") {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == "AccountHoldersName") account_name_ = child.Text();
        if (name == "AccountNo") account_no_ = child.Text();
        if (name == "SortCode") sort_code_ = child.Text();
        if (name == "BuildingSocRef") roll_no_ = child.Text();
      }
      result = true;
    }
    validated_ = false;
  });
  return result;
}

String clsEPSAccount::AccountName() const { return account_name_; }
void clsEPSAccount::AccountName(String value) { Change(account_name_, std::move(value)); }

String clsEPSAccount::AccountNo() const { return account_no_; }
void clsEPSAccount::AccountNo(String value) { Change(account_no_, std::move(value)); }

String clsEPSAccount::SortCode() const { return sort_code_; }
void clsEPSAccount::SortCode(String value) { Change(sort_code_, std::move(value)); }

String clsEPSAccount::RollNo() const { return roll_no_; }
void clsEPSAccount::RollNo(String value) { Change(roll_no_, std::move(value)); }

XmlNode clsEPSAccount::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  PassedOn("[ZELNOR.dll::clsEPSAccount]: ToXML", [&] {
    Element out = Element::Appended("Account", xmlParent);
    result = out.Node();
    out.Text("AccountHoldersName", account_name_);
    out.Text("AccountNo", account_no_);
    out.Text("SortCode", sort_code_);
    out.OptionalText("BuildingSocRef", roll_no_);
  });
  return result;
}

}  // namespace zelnor
