#include "zelnor/common/modPublicEnums.h"

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <cmath>

namespace zelnor {
namespace {

constexpr std::string_view kModule = "modPublicEnums";

// Where the last separator stands; npos when there is none.
std::size_t LastSeparator(const String& path) { return path.find_last_of("\\/"); }

bool IsNetworkPath(const String& path) { return path.starts_with("\\\\"); }

Date DayFromXML(std::string_view text) {
  const auto number = [&](std::ptrdiff_t start, std::ptrdiff_t count) {
    return ToInteger(Mid(text, start, count));
  };
  return Date::FromParts(number(1, 4), number(6, 2), number(9, 2));
}

Date TimeFromXML(std::string_view text) {
  const auto number = [&](std::ptrdiff_t start) { return ToInteger(Mid(text, start, 2)); };
  return Date::FromTime(number(1), number(4), number(7));
}

// The sum: 24:00:00 is the next day's beginning.
Date Plus(Date day, Date time) {
  const double whole = std::floor(time.Serial());
  return day.AddDays(static_cast<int>(whole)).WithTimeOf(Date::FromSerial(time.Serial() - whole));
}

}  // namespace

String PrettyPrintXML(const String& strXML, bool blnOmitDeclaration) {
  String result;
  Handled(kModule, "Function PrettyPrintXML", [&] {
    result = Replace(ReplaceInlineEmptyXMLElements(RewriteXml(strXML, blnOmitDeclaration)), "\r", "");
  });
  return result;
}

// One pass from the left: what stands before a replaced tag holds no further "/>", so nothing would be found
// there again.
String ReplaceInlineEmptyXMLElements(const String& strXML) {
  String result;
  Handled(kModule, "Function ReplaceInlineEmptyXMLElements", [&] {
    std::size_t done = 0;
    String text;
    for (std::size_t close = strXML.find("/>"); close != String::npos; close = strXML.find("/>", done)) {
      text.append(strXML, done, close - done);
      const std::size_t open = text.rfind('<');
      if (open == String::npos) ThrowInvalidArgument();
      const String name = text.substr(open + 1);
      text.append("></").append(name).push_back('>');
      done = close + 2;
    }
    text.append(strXML, done);
    result = std::move(text);
  });
  return result;
}

String MakeSafeElementName(const String& strName) {
  String result;
  Handled(kModule, "Function MakeSafeElementName", [&] {
    std::copy_if(strName.begin(), strName.end(), std::back_inserter(result), [](char c) {
      return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    });
  });
  return result;
}

XmlNode SetAttribute(const XmlNode& node, const String& strName, const String& strValue) {
  XmlNode result;
  Handled(kModule, "Function SetAttribute", [&] {
    node.Attribute(strName, strValue);
    result = node.AttributeNode(strName);
  });
  return result;
}

void RemoveAttribute(const XmlNode& node, const String& strName) {
  Handled(kModule, "Function RemoveAttribute", [&] { node.RemoveAttribute(strName); });
}

bool FileExists(const String& strPath) { return PlainFileExists(strPath); }

String CreateFolder(const String& strPath) {
  String result;
  try {
    const String folder = GetPathOnly(strPath);
    if (!FolderExists(folder)) {
      CreateFolder(folder);
      // Where a separator is doubled the folder was made as its own parent.
      if (!FolderExists(folder)) MakeFolder(folder);
    }
    result = strPath;
  } catch (...) {
    if (!IsNetworkPath(strPath))
      ReportError(CurrentError(), kModule, "Function CreateFolder", "\r\n\r\n" + strPath);
  }
  return result;
}

String GetPathOnly(const String& strPath) {
  String result;
  Handled(kModule, "Function GetPathOnly", [&] {
    if (strPath.empty()) return;
    const std::size_t last = LastSeparator(strPath);
    if (last == String::npos) ThrowInvalidArgument();
    result = strPath.substr(0, last);
  });
  return result;
}

String GetFileName(const String& strPath) {
  String result;
  Handled(kModule, "Function GetFileName", [&] {
    const std::size_t last = LastSeparator(strPath);
    result = last == String::npos ? strPath : strPath.substr(last + 1);
  });
  return result;
}

XmlNode GetSingularElement(const String& strName, const XmlNode& xmlParent, const String& strNamespace) {
  XmlNode result;
  Handled(kModule, "Function GetSingularElement", [&] {
    if (!xmlParent) return;
    result = xmlParent.FindChild(strName);
    if (result) return;
    result = strNamespace.empty() ? xmlParent.AppendElement(strName)
                                  : xmlParent.AppendElement(strName, strNamespace);
  });
  return result;
}

XmlNode GetSingularElementFromDocument(const String& strName, const XmlDocument& xmlDoc,
                                       const String& strNamespace) {
  XmlNode result;
  Handled(kModule, "Function GetSingularElementFromDocument", [&] {
    const String ns = strNamespace.empty() ? xmlDoc.DocumentElement().ChildNamespace() : strNamespace;
    const std::vector<XmlNode> found = xmlDoc.GetElementsByTagName(strName);
    result = found.empty() ? xmlDoc.Node().AppendElement(strName, ns) : found.front();
  });
  return result;
}

String GetXMLBranchNamespace(const XmlNode& node) {
  String result;
  Handled(kModule, "Function GetXMLBranchNamespace", [&] {
    for (XmlNode at = node; at.IsElement() && result.empty(); at = at.ParentNode()) {
      result = at.ChildNamespace();
      if (at.Attribute("xmlns")) return;  // an empty one, too, ends the search
    }
  });
  return result;
}

void RemoveChildNodes(const XmlNode& node, const String& strName) {
  Handled(kModule, "Sub RemoveChildNodes", [&] {
    for (XmlNode child = node.FirstChild(); child;) {
      XmlNode next = child.NextSibling();
      if (child.BaseName() == strName) node.RemoveChild(child);
      child = std::move(next);
    }
  });
}

void RemoveAllChildNodes(const XmlNode& node) {
  Handled(kModule, "Sub RemoveAllChildNodes", [&] {
    for (XmlNode child = node.FirstChild(); child;) {
      XmlNode next = child.NextSibling();
      if (child.IsElement()) node.RemoveChild(child);
      child = std::move(next);
    }
  });
}

bool IsInRange(double value, double low, double high) { return low <= value && value <= high; }

Date DateFromXML(const String& strDate) {
  Date result;
  Handled(kModule, "Sub DateFromXML", [&] {
    const std::size_t length = Length(strDate);
    if (length == 10) {
      result = DayFromXML(strDate);
    } else if (length == 19 || length == 23) {
      const std::size_t t = strDate.find('T');
      if (t == String::npos) ThrowOutOfSubscript();
      const Date day = DayFromXML(strDate.substr(0, t));
      result = Plus(day, TimeFromXML(Left(strDate.substr(t + 1), 8)));
    }
  });
  return result;
}

}  // namespace zelnor
