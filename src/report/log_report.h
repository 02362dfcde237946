#pragma once

/// @file
/// What a processing log says, for a person: as a page, as lines of text, as facts. The style sheet `log.xsl`
/// decides what a log says; it is part of the program. Passwords are in none of the three.

#include "zelnor/platform/xml.h"

#include <map>
#include <vector>

namespace zelnor::report {

/// By what the errors are grouped first.
enum class Order { kOfTheLog, kEmployee, kField, kSeverity };

/// One error that HMRC or the check before sending has found.
struct Finding {
  bool from_hmrc = false;
  String employee;
  String field;
  String value;
  String severity;
  String code;
  String text;
};

/// One entry of the log's records.
struct Step {
  String time;       ///< yyyy-mm-ddThh:nn:ss
  long seconds = 0;  ///< since the step before
  String text;
};

/// One exchanged message in words.
struct Message {
  bool to_hmrc = false;
  String time;       ///< dd/mm/yyyy hh:nn:ss
  long seconds = 0;  ///< since the message before
  String url;
  String words;
};

/// A log in facts.
struct LogFacts {
  /// One of accepted, pending, refused, connection, invalid, cancelled, error, failed, saved, saved-invalid,
  /// checked, unanswered (handed to a gateway, and nothing known of what came of that), none.
  String outcome;
  String headline;
  String advice;
  String type;
  String company;
  String paye_ref;  ///< tax office and reference of the document
  String op;        ///< the operator
  String mode;
  bool test = false;
  bool local = false;  ///< all messages went to gateways on this machine: a rehearsal
  String year;
  String periods;
  String correlation_id;
  String base64;
  String base32;
  String receipt;  ///< "same" or "other": HMRC's mark against the log's; empty where there is none
  String began;    ///< yyyy-mm-ddThh:nn:ss
  String took;     ///< in words
  std::vector<Finding> findings;
  std::vector<Step> steps;
  std::vector<Message> messages;
};

/// Whether the document is a processing log.
bool IsLog(const XmlDocument& document);

/// The log as one HTML page without scripts and without anything from outside.
String LogAsHtml(const XmlDocument& log, Order order = Order::kOfTheLog);

/// What the log says.
LogFacts FactsOfLog(const XmlDocument& log);

/// The facts as lines for a terminal.
String FactsAsText(const LogFacts& facts, Order order = Order::kEmployee);

/// The mark in groups of four.
String InGroups(const String& base32);

}  // namespace zelnor::report
