#include "zelnor/standin/engine.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/standin/local_gateway.h"
#include "zelnor/standin/mark.h"
#include "zelnor/standin/packed.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <random>
#include <sstream>

namespace zelnor::standin {
namespace {

constexpr const char* kEnvelope = "http://www.govtalk.gov.uk/CM/envelope";
constexpr const char* kErrorResponse = "http://www.govtalk.gov.uk/CM/errorresponse";
constexpr const char* kSuccessResponse = "http://www.inlandrevenue.gov.uk/SuccessResponse";
constexpr const char* kSignature = "http://www.w3.org/2000/09/xmldsig#";

constexpr std::array<std::string_view, 6> kClasses = {"HMRC-PAYE-RTI-FPS", "HMRC-PAYE-RTI-EPS",
                                                      "HMRC-PAYE-RTI-EAS", "HMRC-PAYE-RTI-EYU",
                                                      "HMRC-PAYE-RTI-NVR", "HMRC-PAYE-RTI-POC"};

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else if (c == '"') {
      escaped += "&quot;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string Element(const std::string& name, const std::string& text) {
  return "<" + name + ">" + Escaped(text) + "</" + name + ">";
}

std::string LocalTime(const char* pattern) {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), pattern, &parts)};
}

// 32 upper-case hexadecimal characters.
std::string NewCorrelationId() {
  std::random_device random;
  std::string id;
  for (int part = 0; part < 32; ++part) id += "0123456789ABCDEF"[random() & 15U];
  return id;
}

// A class as it is known here: a test's "-TIL" makes no difference.
std::string KnownClass(const std::string& name) {
  return name.ends_with("-TIL") ? name.substr(0, name.size() - 4) : name;
}

XmlNode Below(const XmlNode& node, std::initializer_list<std::string_view> names) {
  XmlNode at = node;
  for (const std::string_view name : names) {
    if (!at) break;
    at = at.FindChild(name);
  }
  return at;
}

std::string TextBelow(const XmlNode& node, std::initializer_list<std::string_view> names) {
  const XmlNode found = Below(node, names);
  return found ? found.Text() : std::string();
}

XmlNode FirstElement(const XmlNode& node) {
  if (!node) return nullptr;
  for (const XmlNode& child : node.ChildNodes()) {
    if (child.IsElement()) return child;
  }
  return nullptr;
}

bool IsKnownClass(const std::string& name) {
  return std::find(kClasses.begin(), kClasses.end(), KnownClass(name)) != kClasses.end();
}

// The path of a node in Body as the department gives it: each step with a prefix and its position. The
// prefix is that of the kind of document, such as "fps".
std::string LocationOf(const std::string& message_class, const std::string& path) {
  const std::string known = KnownClass(message_class);
  const std::string prefix = LowerCase(known.substr(known.rfind('-') + 1)) + ":";
  std::string location = "/hd:GovTalkMessage[1]/hd:Body[1]";
  std::istringstream steps(path);
  for (std::string step; std::getline(steps, step, '/');) {
    if (!step.empty()) location += "/" + prefix + step + (step.ends_with(']') ? "" : "[1]");
  }
  return location;
}

}  // namespace

// One error of the gateway or of the department.
struct Engine::Problem {
  std::string number = {};
  std::string type = "fatal";
  std::string text = {};
  std::string location = {};
  std::string raised_by = "Gateway";

  std::string AsElement() const {
    return "<Error>" + Element("RaisedBy", raised_by) + Element("Number", number) + Element("Type", type) +
           Element("Text", text) + (location.empty() ? "" : Element("Location", location)) + "</Error>";
  }
};

// A message that came in.
struct Engine::Request {
  explicit Request(const std::string& text) : bytes(text) {
    if (!document.LoadBytes(text)) return;
    root = document.DocumentElement();
    const XmlNode details = Below(root, {"Header", "MessageDetails"});
    if (!details) return;
    message_class = TextBelow(details, {"Class"});
    qualifier = LowerCase(TextBelow(details, {"Qualifier"}));
    function = LowerCase(TextBelow(details, {"Function"}));
    correlation_id = TextBelow(details, {"CorrelationID"});
    transaction_id = TextBelow(details, {"TransactionID"});
    body = FirstElement(Below(root, {"Body"}));
  }

  std::string Kind() const {
    if (qualifier == "poll") return "poll";
    return function == "delete" ? "delete" : "submission";
  }

  const std::string& bytes;
  XmlDocument document;
  XmlNode root;
  XmlNode body;
  std::string message_class;
  std::string qualifier;
  std::string function;
  std::string correlation_id;
  std::string transaction_id;
  std::string base;  // the gateway's address as the client knows it
};

// What the gateway holds until it is deleted.
struct Engine::Submission {
  std::string message_class;
  std::string mark;
  std::string accepted;
  std::vector<Problem> problems = {};  // that the department found
  int polls = 0;
};

Engine::Engine(const GatewayOptions& options) : options_(options) {}
Engine::~Engine() = default;

std::string Engine::KindOf(const std::string& message) { return Request(message).Kind(); }

Engine::Reply Engine::Answer(const std::string& message, const std::optional<Action>& action,
                             const std::string& base) {
  Request request(message);
  request.base = base;
  Reply reply;
  try {
    if (!action) {
      reply = Proper(request);
    } else if (action->TakesNotice()) {
      reply = Told(request, *action);
    }
  } catch (const RuntimeError& error) {
    reply = Failed(request, {.number = "1000", .text = "System failure: " + error.Description()});
  }
  reply.kind = request.Kind();
  reply.request = request.root ? request.qualifier + " " + request.function : "what is no message";
  if (reply.kind == "submission" && request.root) reply.request = "submission " + request.qualifier;
  return reply;
}

Engine::Reply Engine::Proper(const Request& request) {
  if (const std::optional<Problem> problem = ProblemOf(request)) return Failed(request, *problem);
  if (request.Kind() == "poll") return ProperPoll(request);
  if (request.Kind() == "delete") return ProperDelete(request);
  return ProperAcknowledgement(request, nullptr);
}

Engine::Reply Engine::Failed(const Request& request, const Problem& problem) const {
  return {.answer = "error " + problem.number + ": " + problem.text,
          .body = Envelope(request, "error", "submit", nullptr,
                           "<GovTalkErrors>" + problem.AsElement() + "</GovTalkErrors>", "")};
}

Engine::Reply Engine::ProperAcknowledgement(const Request& request, const Action* action) {
  Reply reply;
  std::string id = action == nullptr ? "" : action->Option("correlation");
  if (id == "none") {
    id.clear();
  } else if (id.empty()) {
    id = NewCorrelationId();
  }
  Request answered = request;
  answered.correlation_id = id;
  if (!id.empty()) submissions_[id] = Received(request);
  reply.answer = "acknowledgement" + (id.empty() ? " without an id" : " " + id);
  reply.body = Envelope(answered, "acknowledgement", "submit", action, "", "");
  return reply;
}

Engine::Reply Engine::ProperPoll(const Request& request) {
  Reply reply;
  Submission& submission = submissions_.at(request.correlation_id);
  if (submission.polls++ < options_.provisional) {
    reply.answer = "provisional acknowledgement";
    reply.body = Envelope(request, "acknowledgement", "submit", nullptr, "", "");
  } else if (submission.problems.empty()) {
    reply.answer = "response: accepted";
    reply.body = Envelope(request, "response", "submit", nullptr, "", Receipt(submission));
  } else {
    reply.answer = "error: " + std::to_string(submission.problems.size()) + " from the department";
    const Problem rejected{
        .number = "3001",
        .type = "business",
        .text =
            "The submission of this document has failed due to departmental specific business "
            "logic in the Body tag.",
        .raised_by = "Department"};
    reply.body = Envelope(request, "error", "submit", nullptr,
                          "<GovTalkErrors>" + rejected.AsElement() + "</GovTalkErrors>",
                          ErrorResponse(submission.problems));
  }
  return reply;
}

Engine::Reply Engine::ProperDelete(const Request& request) {
  submissions_.erase(request.correlation_id);
  return {.answer = "deleted", .body = Envelope(request, "response", "delete", nullptr, "", "")};
}

std::optional<Engine::Problem> Engine::ProblemOf(const Request& request) const {
  if (request.bytes.empty()) return Problem{.number = "2002", .text = "The request holds no message."};
  if (static_cast<std::int64_t>(request.bytes.size()) > options_.largest_message) {
    return Problem{
        .number = "2001",
        .text = "The message is larger than " + std::to_string(options_.largest_message) + " bytes."};
  }
  if (!request.root) {
    const std::string reason(TrimXmlSpace(request.document.ParseError().reason));
    return Problem{.number = "1001", .text = "The message is not well formed: " + reason};
  }
  if (request.root.BaseName() != "GovTalkMessage" || request.root.NamespaceURI() != kEnvelope) {
    return Problem{.number = "1001", .text = "The message is no GovTalk message."};
  }
  if (std::optional<Problem> problem = SchemaProblem(request.document, kEnvelope)) return problem;
  const bool known_function = request.function == "submit" || request.function == "delete";
  if (!known_function || (request.qualifier != "request" && request.qualifier != "poll")) {
    return Problem{.number = "1001", .text = "Qualifier and Function are none that this gateway serves."};
  }
  if (!IsKnownClass(request.message_class)) {
    return Problem{.number = "1001", .text = "The Class \"" + request.message_class + "\" is not known."};
  }
  return request.Kind() == "submission" ? ProblemOfSubmission(request) : ProblemOfConversation(request);
}

std::optional<Engine::Problem> Engine::ProblemOfSubmission(const Request& request) const {
  if (!request.correlation_id.empty()) {
    return Problem{.number = "1020", .text = "A submission must not give a CorrelationID."};
  }
  const XmlNode identity = Below(request.root, {"Header", "SenderDetails", "IDAuthentication"});
  const std::string sender = TextBelow(identity, {"SenderID"});
  const XmlNode authentication = Below(identity, {"Authentication"});
  const std::string method = LowerCase(TextBelow(authentication, {"Method"}));
  const std::string value = TextBelow(authentication, {"Value"});
  const bool with_signature = static_cast<bool>(Below(authentication, {"Signature"}));
  if (method.empty() || (method == "w3csigned") != with_signature || value.empty() != with_signature) {
    return Problem{.number = "1040", .text = "The authentication method and its value are inconsistent."};
  }
  if (with_signature) {
    return Problem{.number = "1002", .text = "The signature is not recognised: this gateway knows none."};
  }
  if (!options_.user.empty() && (sender != options_.user || value != options_.password)) {
    return Problem{.number = "1046",
                   .text = "Authentication failure: the supplied user credentials failed validation."};
  }
  if (!request.body) return Problem{.number = "1042", .text = "The Body is empty."};
  return std::nullopt;
}

std::optional<Engine::Problem> Engine::ProblemOfConversation(const Request& request) const {
  if (request.correlation_id.empty() && request.Kind() == "delete") {
    return Problem{.number = "1035", .text = "A delete must give a CorrelationID."};
  }
  const auto found = submissions_.find(request.correlation_id);
  if (found == submissions_.end()) {
    return Problem{.number = "2000", .text = "There is no record of this CorrelationID."};
  }
  if (found->second.message_class != KnownClass(request.message_class)) {
    return Problem{.number = "2000", .text = "There is no record of this CorrelationID for this Class."};
  }
  return std::nullopt;
}

// What the gateway holds of a message, and what the department finds in its body: the mark, and what the
// schema says.
Engine::Submission Engine::Received(const Request& request) const {
  Submission submission{.message_class = KnownClass(request.message_class),
                        .mark = MarkOf(request.bytes),
                        .accepted = LocalTime("%Y-%m-%dT%H:%M:%S")};
  const auto add = [&](const std::string& number, const std::string& text, const std::string& location) {
    submission.problems.push_back(
        {.number = number, .type = "business", .text = text, .location = location, .raised_by = "ChRIS"});
  };
  const XmlNode mark = Below(request.body, {"IRheader", "IRmark"});
  const auto location = [&](const std::string& path) { return LocationOf(request.message_class, path); };
  if (!mark) {
    add("2022", "The IRmark was not found.", location("IRenvelope/IRheader"));
  } else if (mark.Text() != submission.mark) {
    add("2021", "The supplied IRmark is incorrect.", location("IRenvelope/IRheader/IRmark"));
  }
  if (request.body) {
    XmlDocument document;
    document.AppendChild(document.ImportNode(request.body, true));
    if (const std::string packed = Unpack(document); !packed.empty()) {
      add("3001", packed, location("IRenvelope"));
    } else if (const std::optional<Problem> problem = SchemaProblem(document, request.body.NamespaceURI())) {
      add("3001", problem->text, location(problem->location));
    }
  }
  return submission;
}

std::optional<Engine::Problem> Engine::SchemaProblem(const XmlDocument& document,
                                                     const std::string& ns) const {
  const std::shared_ptr<const XmlSchemaCollection> schemas = SchemasFor(ns);
  if (!schemas) return std::nullopt;
  document.Schemas(schemas);
  if (document.Validate()) return std::nullopt;
  const XmlParseError& error = document.ParseError();
  return Problem{
      .number = "1001",
      .text = "The document is invalid against its schema: " + std::string(TrimXmlSpace(error.reason)),
      .location = error.srcText};
}

// The schemas that check a namespace, looked for once; none where the folder has no schema for it.
std::shared_ptr<const XmlSchemaCollection> Engine::SchemasFor(const std::string& ns) const {
  if (options_.schema_folder.empty()) return nullptr;
  const auto found = schemas_.find(ns);
  if (found != schemas_.end()) return found->second;
  auto collection = std::make_shared<XmlSchemaCollection>();
  bool covered = false;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(options_.schema_folder, ignored)) {
    if (entry.path().extension() != ".xsd") continue;
    XmlDocument schema;
    if (!schema.Load(entry.path().string())) continue;
    const std::string target = schema.DocumentElement().Attribute("targetNamespace").value_or("");
    if (target != ns && target != kSignature) continue;
    collection->Add(target, schema);
    covered = covered || target == ns;
  }
  return schemas_[ns] = covered ? collection : nullptr;
}

std::string Engine::Envelope(const Request& request, const std::string& qualifier,
                             const std::string& function, const Action* action, const std::string& errors,
                             const std::string& body) const {
  const auto option = [&](const char* key, const std::string& otherwise) {
    return action == nullptr ? otherwise : action->Option(key, otherwise);
  };
  std::string id = option("correlation", request.correlation_id);
  if (id == "none") id.clear();
  const std::string end_point = option("endpoint", request.base + "/poll");
  const std::string interval = option("interval", std::to_string(options_.poll_interval));
  const std::string known_class =
      IsKnownClass(request.message_class) ? request.message_class : "UndefinedClass";
  std::string text = std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<GovTalkMessage xmlns=\"") +
                     kEnvelope + "\"><EnvelopeVersion>2.0</EnvelopeVersion><Header><MessageDetails>" +
                     Element("Class", option("class", known_class)) + Element("Qualifier", qualifier) +
                     Element("Function", function);
  if (!request.transaction_id.empty()) text += Element("TransactionID", request.transaction_id);
  text += Element("CorrelationID", id);
  if (end_point != "none") {
    text += "<ResponseEndPoint" + (interval == "none" ? "" : " PollInterval=\"" + Escaped(interval) + "\"") +
            ">" + Escaped(end_point) + "</ResponseEndPoint>";
  }
  return text + "<Transformation>XML</Transformation>" +
         Element("GatewayTimestamp", LocalTime("%Y-%m-%dT%H:%M:%S")) +
         "</MessageDetails><SenderDetails/></Header><GovTalkDetails><Keys/>" + errors +
         "</GovTalkDetails><Body>" + body + "</Body></GovTalkMessage>";
}

std::string Engine::Receipt(const Submission& submission) const {
  return std::string("<SuccessResponse xmlns=\"") + kSuccessResponse +
         "\"><IRmarkReceipt><dsig:Signature xmlns:dsig=\"" + kSignature +
         "\"><dsig:SignedInfo><dsig:CanonicalizationMethod "
         "Algorithm=\"http://www.w3.org/TR/2001/REC-xml-c14n-20010315\"/><dsig:SignatureMethod "
         "Algorithm=\"http://www.w3.org/2000/09/xmldsig#rsa-sha1\"/><dsig:Reference><dsig:DigestMethod "
         "Algorithm=\"http://www.w3.org/2000/09/xmldsig#sha1\"/><dsig:DigestValue>" +
         submission.mark +
         "</dsig:DigestValue></dsig:Reference></dsig:SignedInfo><dsig:SignatureValue/></dsig:Signature>"
         "<Message code=\"0000\">" +
         Escaped("The local gateway has received the " + submission.message_class + " document on " +
                 submission.accepted + ". The IRmark was " + Base32OfMark(submission.mark) +
                 ". This receipt is no receipt of HMRC's.") +
         "</Message></IRmarkReceipt><Message code=\"077001\">The document was accepted.</Message>" +
         Element("AcceptedTime", submission.accepted) + "</SuccessResponse>";
}

std::string Engine::ErrorResponse(const std::vector<Problem>& problems) const {
  std::string text = std::string("<ErrorResponse xmlns=\"") + kErrorResponse +
                     "\" SchemaVersion=\"2.0\"><Application><MessageCount>" +
                     std::to_string(problems.size()) + "</MessageCount></Application>";
  for (const Problem& problem : problems) text += problem.AsElement();
  return text + "</ErrorResponse>";
}

// An answer as the scenario has it, whatever the request was.
Engine::Reply Engine::Told(const Request& request, const Action& action) {
  const auto reply = [&](const std::string& qualifier, const std::string& function, const std::string& errors,
                         const std::string& body) {
    const std::string number = action.Option("number");
    return Reply{.answer = "told: " + action.name + (number.empty() ? "" : " " + number),
                 .body = Envelope(request, qualifier, function, &action, errors, body)};
  };
  if (action.Is("acknowledgement")) {
    if (request.Kind() == "submission") return ProperAcknowledgement(request, &action);
    return reply("acknowledgement", "submit", "", "");
  }
  if (action.Is("response")) {
    const auto found = submissions_.find(request.correlation_id);
    return reply("response", "submit", "",
                 Receipt(found == submissions_.end() ? Received(request) : found->second));
  }
  if (action.Is("response-immediate")) {
    std::string messages;
    std::istringstream parts(action.Option("messages", "0000:Accepted"));
    for (std::string part; std::getline(parts, part, '|');) {
      const std::size_t colon = part.find(':');
      messages += "<Message code=\"" + Escaped(part.substr(0, colon)) + "\">" +
                  Escaped(colon == std::string::npos ? "" : part.substr(colon + 1)) + "</Message>";
    }
    return reply("response", "submit", "",
                 std::string("<SuccessResponse xmlns=\"") + kSuccessResponse + "\">" + messages +
                     "</SuccessResponse>");
  }
  if (action.Is("response-other")) return reply("response", action.Option("function", "list"), "", "");
  if (action.Is("deleted")) return reply("response", "delete", "", "");
  if (action.Is("error")) {
    const Problem problem{.number = action.Option("number", "1000"),
                          .type = action.Option("type", "fatal"),
                          .text = action.Option("text", "System failure."),
                          .location = action.Option("location"),
                          .raised_by = action.Option("raised-by", "Gateway")};
    return reply("error", "submit", "<GovTalkErrors>" + problem.AsElement() + "</GovTalkErrors>", "");
  }
  if (action.Is("business-error")) {
    std::vector<Problem> problems;
    for (const std::string& text : action.All("error")) {
      std::istringstream parts(text);
      Problem problem{.type = "business", .raised_by = "ChRIS"};
      std::getline(parts, problem.number, '|');
      std::getline(parts, problem.type, '|');
      std::getline(parts, problem.text, '|');
      std::getline(parts, problem.location, '|');
      problems.push_back(problem);
    }
    const Problem rejected{.number = "3001",
                           .type = "business",
                           .text = action.Option("text", "Rejected."),
                           .raised_by = "Department"};
    return reply("error", "submit", "<GovTalkErrors>" + rejected.AsElement() + "</GovTalkErrors>",
                 ErrorResponse(problems));
  }
  if (action.Is("error-body")) return reply("error", "submit", "", action.Option("xml"));
  if (action.Is("error-noerrors")) return reply("error", "submit", "", "");
  if (action.Is("qualifier")) {
    return reply(action.Option("value", "request"), action.Option("function", "submit"), "",
                 action.Option("xml"));
  }
  return Proper(request);
}

}  // namespace zelnor::standin
