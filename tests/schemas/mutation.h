#pragma once

/// @file
/// Documents changed by one line of text, for the tests of the schemas. A table (tests/schemas/tables/*.txt)
/// reads:
///
///     document everything.xml
///
///     # What follows changes that document, each line anew.
///     valid    as-is
///     invalid  remove EmpRefs/OfficeNo
///     valid    text Gender M F
///     invalid  remove PGPKeyID ; remove PGPKeyPacket
///
/// First the verdict, then what is done, at which address. An address is a path of element names without
/// prefixes, which may begin anywhere and means the first such element of the document; `Employee[2]` is the
/// second of its siblings. Words with blanks stand in double quotes, in which \", \\, \n and \t may be used;
/// `""` is the empty text.
///
/// | Operation                      | What it does                                                          |
/// |--------------------------------|-----------------------------------------------------------------------|
/// | as-is                          | nothing                                                               |
/// | remove ADDRESS                 | takes the element out                                                 |
/// | duplicate ADDRESS              | puts a copy behind it                                                 |
/// | repeat ADDRESS COUNT           | adds copies until so many siblings bear its name                      |
/// | swap ADDRESS                   | exchanges it with the next element                                    |
/// | rename ADDRESS NAME            | gives it another name                                                 |
/// | text ADDRESS VALUE...          | replaces its content by a text; several values are several cases      |
/// | attribute ADDRESS NAME VALUE...| sets an attribute; several values are several cases                   |
/// | drop ADDRESS NAME              | takes an attribute away                                               |
/// | append ADDRESS NAME [VALUE]    | adds a child of the same namespace at its end                         |
/// | before ADDRESS NAME [VALUE]    | puts an element of the same namespace before it                       |
/// | foreign ADDRESS                | adds a child of a namespace at its end that no schema knows           |
/// | known ADDRESS                  | adds a child that the submission's schema knows and refuses           |
/// | stray ADDRESS TEXT             | adds a text at its end                                                |

#include "zelnor/platform/xml.h"

#include <string>
#include <vector>

namespace zelnor::test {

/// One operation and its words, the operation first.
using MutationStep = std::vector<std::string>;

struct MutationCase {
  std::string where;     ///< table and line, for messages
  std::string document;  ///< file name of the document to change
  bool valid = false;    ///< the verdict expected
  std::vector<MutationStep> steps;

  /// Place and steps in one line, for messages.
  std::string Description() const;
};

/// The cases of a table. Throws std::runtime_error, with the line, for one that can't be read.
std::vector<MutationCase> ReadMutationTable(const std::string& path);

/// Does the steps to the document. Throws std::runtime_error when an address or an operation doesn't exist.
void Apply(const MutationCase& mutation, const XmlDocument& document);

}  // namespace zelnor::test
