#pragma once

/// @file
/// Free functions on which almost every class stands: XML as the gateway receives it, the one child element
/// of a name, dates in XML form, folders and path text. A failure in any of them is shown in the host's
/// message box ("Error in ZELNOR.dll::modPublicEnums: ..."), and the function returns its default: empty
/// text, no object, False, the zero date.

#include "zelnor/platform/xml.h"

namespace zelnor {

/// The XML text as it goes out: rewritten without added white space, each empty element as a start and an end
/// tag, line ends as line feeds. `strXML` isn't changed. With `blnOmitDeclaration` no declaration is written.
/// Text that isn't well formed is reported, and the result is empty.
ZELNOR_API String PrettyPrintXML(const String& strXML, bool blnOmitDeclaration);

/// Each self-closed element as a start and an end tag. The whole inside of the tag serves as the name, so
/// that an empty element with attributes gets them in its end tag too; documents sent by this system hold no
/// such element.
ZELNOR_API String ReplaceInlineEmptyXMLElements(const String& strXML);

/// The characters A-Z, a-z, 0-9 and "_" of a text, in order: a schema's name becomes a settings key.
ZELNOR_API String MakeSafeElementName(const String& strName);

/// Makes an attribute or replaces its value, and returns it.
ZELNOR_API XmlNode SetAttribute(const XmlNode& node, const String& strName, const String& strValue);

/// Removes an attribute.
ZELNOR_API void RemoveAttribute(const XmlNode& node, const String& strName);

/// Whether a plain file of that path is there. False for empty text and after any error; never shows a
/// message.
ZELNOR_API bool FileExists(const String& strPath);

/// Makes the folder in which the file `strPath` will lie, with all its parents, and returns `strPath`. A
/// failure on a network path ends without a message and with empty text.
ZELNOR_API String CreateFolder(const String& strPath);

/// The text before the last separator; empty for empty text. A path without a separator is reported as
/// error 5.
ZELNOR_API String GetPathOnly(const String& strPath);

/// The text behind the last separator; the whole text when there is none.
ZELNOR_API String GetFileName(const String& strPath);

/// The first child whose base name is `strName`, made when absent: in `strNamespace`, else in the parent's
/// namespace (its `xmlns` attribute, else its own), else in none. No object for no parent. Readers that only
/// want to test for an element use FindChild.
ZELNOR_API XmlNode GetSingularElement(const String& strName, const XmlNode& xmlParent,
                                      const String& strNamespace = {});

/// The first element of that name in a document, made and appended to the document when absent; the namespace
/// is `strNamespace`, else that of the document element.
ZELNOR_API XmlNode GetSingularElementFromDocument(const String& strName, const XmlDocument& xmlDoc,
                                                  const String& strNamespace = {});

/// An element's `xmlns` attribute, else its namespace, else the same of its parent. Empty for no object and
/// for other kinds of node.
ZELNOR_API String GetXMLBranchNamespace(const XmlNode& node);

/// Removes all children of a base name.
ZELNOR_API void RemoveChildNodes(const XmlNode& node, const String& strName);

/// Removes all child elements. Text, comments and processing instructions stay.
ZELNOR_API void RemoveAllChildNodes(const XmlNode& node);

/// Whether a value lies between two bounds, both included.
ZELNOR_API bool IsInRange(double value, double low, double high);

/// A date in XML form by the text's length: 10 characters `yyyy-mm-dd`; 19 or 23 characters
/// `yyyy-mm-ddThh:nn:ss`, with decimals of a second dropped; any other length gives the zero date. A part
/// that is no number is reported.
ZELNOR_API Date DateFromXML(const String& strDate);

}  // namespace zelnor
