#include "standin/gateway_fixture.h"

#include <arpa/inet.h>
#include <array>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelnor::standin {
namespace {

std::vector<XmlNode> ElementsOf(const std::string& message, const std::string& name) {
  const XmlDocument document;
  if (!document.LoadBytes(message)) return {};
  return document.SelectNodes("//*[local-name()='" + name + "']");
}

std::string Envelope(const std::string& qualifier, const std::string& function, const std::string& id,
                     const std::string& message_class) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><GovTalkMessage "
         "xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><EnvelopeVersion>2.0</EnvelopeVersion><Header>"
         "<MessageDetails><Class>" +
         message_class + "</Class><Qualifier>" + qualifier + "</Qualifier><Function>" + function +
         "</Function><TransactionID>7</TransactionID><CorrelationID>" + id +
         "</CorrelationID><Transformation>XML</Transformation></MessageDetails><SenderDetails/></Header>"
         "<GovTalkDetails><Keys/></GovTalkDetails><Body/></GovTalkMessage>";
}

}  // namespace

std::string Curled::Text(const std::string& name) const {
  const std::vector<XmlNode> elements = ElementsOf(body, name);
  return elements.empty() ? std::string() : elements.front().Text();
}

std::size_t Curled::Count(const std::string& name) const { return ElementsOf(body, name).size(); }

BareSocket::BareSocket(int port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  if (connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
    close(socket_);
    throw std::runtime_error("nobody listens");
  }
}

BareSocket::~BareSocket() { close(socket_); }

void BareSocket::Send(const std::string& bytes) const {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

void BareSocket::Post(const std::string& body, const std::string& path) const {
  Send("POST " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: " + std::to_string(body.size()) +
       "\r\n\r\n" + body);
}

std::string BareSocket::Read(int milliseconds) {
  std::string bytes;
  std::array<char, 65536> piece{};
  closed_ = false;
  while (true) {
    pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
    if (poll(&waiting, 1, milliseconds) <= 0) return bytes;
    const ssize_t count = recv(socket_, piece.data(), piece.size(), 0);
    if (count <= 0) {
      closed_ = true;
      return bytes;
    }
    bytes.append(piece.data(), static_cast<std::size_t>(count));
  }
}

void GatewayTest::Start(GatewayOptions options) {
  gateway_ = std::make_unique<LocalGateway>(std::move(options));
  gateway_->Start();
}

Curled GatewayTest::Post(const std::string& message, const std::string& path, const std::string& more) const {
  const std::string type =
      more.find("Content-Type") == std::string::npos ? "--header 'Content-Type: text/xml' " : "";
  const std::string command = "curl --silent --noproxy '*' --max-time 30 --dump-header '" +
                              folder_.At("header") + "' --output '" + folder_.At("body") +
                              "' --data-binary '@" + folder_.Put("message", message) + "' " + type + more +
                              " '" + gateway_->url() + path + "'";
  folder_.Put("header", "");
  folder_.Put("body", "");
  const int status = std::system(command.c_str());
  Curled curled{.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                .header = folder_.Get("header"),
                .body = folder_.Get("body")};
  if (curled.header.size() > 12) curled.status = std::stoi(curled.header.substr(9, 3));
  return curled;
}

const std::string& GatewayTest::Submission() {
  static const std::string marked = [] {
    const test::TemporaryFolder folder;
    test::OutputOf("'" ZELNOR_PROGRAM "' --home '" + folder.At("home") +
                   "' save --no-validation '" ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml' '" +
                   folder.At("FPS.xml") + "'");
    return folder.Get("FPS.xml");
  }();
  return marked;
}

std::string GatewayTest::With(std::string message, const std::string& old_text, const std::string& new_text) {
  const std::size_t at = message.find(old_text);
  if (at == std::string::npos) throw std::runtime_error("the message has no " + old_text);
  return message.replace(at, old_text.size(), new_text);
}

std::string GatewayTest::Poll(const std::string& id, const std::string& message_class) {
  return Envelope("poll", "submit", id, message_class);
}

std::string GatewayTest::Delete(const std::string& id, const std::string& message_class) {
  return Envelope("request", "delete", id, message_class);
}

std::string GatewayTest::Submitted() const { return Post(Submission()).Text("CorrelationID"); }

std::string GatewayTest::SchemaFaults(const std::string& message) const {
  const std::string command = "xmllint --noout --nonet --schema '" + Schemas() +
                              "/envelope-v2-0-HMRC.xsd' '" + folder_.Put("answer.xml", message) + "' 2>'" +
                              folder_.At("faults") + "'";
  return std::system(command.c_str()) == 0 ? std::string() : folder_.Get("faults");
}

}  // namespace zelnor::standin
