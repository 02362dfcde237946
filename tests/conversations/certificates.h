#pragma once

#include <string>

namespace zelnor::test {

/// What a made-up server certificate is like.
struct CertificateKind {
  std::string host = "127.0.0.1";  ///< the address that it is for
  bool expired = false;
  bool self_signed = false;  ///< by itself; otherwise by the authority
};

/// Makes an authority, and a server's certificate with its key, as PEM files in a folder: authority.pem,
/// server.pem, server-key.pem.
void MakeCertificates(const std::string& folder, const CertificateKind& kind);

}  // namespace zelnor::test
