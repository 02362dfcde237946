#include "conversations/certificates.h"

#include <cstdio>
#include <memory>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <stdexcept>

namespace zelnor::test {
namespace {

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

constexpr long kDay = 24 * 60 * 60;

void Extend(X509* certificate, int kind, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
  X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str());
  if (extension == nullptr) throw std::runtime_error("a certificate can't be extended");
  X509_add_ext(certificate, extension, -1);
  X509_EXTENSION_free(extension);
}

Certificate Make(EVP_PKEY* key, const char* name, long serial, long from, long until) {
  Certificate certificate(X509_new(), X509_free);
  X509_set_version(certificate.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), serial);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), from);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), until);
  X509_set_pubkey(certificate.get(), key);
  X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_ASC,
                             reinterpret_cast<const unsigned char*>(name), -1, -1, 0);
  return certificate;
}

template <class Write>
void WritePem(const std::string& path, Write write) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) throw std::runtime_error(path + " can't be written");
  write(file);
  std::fclose(file);
}

}  // namespace

void MakeCertificates(const std::string& folder, const CertificateKind& kind) {
  const Key authority_key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const Certificate authority = Make(authority_key.get(), "Authority of a test", 1, -2 * kDay, 30 * kDay);
  X509_set_issuer_name(authority.get(), X509_get_subject_name(authority.get()));
  Extend(authority.get(), NID_basic_constraints, "critical,CA:TRUE");
  Extend(authority.get(), NID_key_usage, "critical,keyCertSign");
  X509_sign(authority.get(), authority_key.get(), EVP_sha256());

  const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const long until = kind.expired ? -kDay : 30 * kDay;
  const Certificate server = Make(key.get(), kind.host.c_str(), 2, -2 * kDay, until);
  const bool numeric = kind.host.find_first_not_of("0123456789.") == std::string::npos;
  Extend(server.get(), NID_subject_alt_name, (numeric ? "IP:" : "DNS:") + kind.host);
  const Certificate& issuer = kind.self_signed ? server : authority;
  X509_set_issuer_name(server.get(), X509_get_subject_name(issuer.get()));
  X509_sign(server.get(), kind.self_signed ? key.get() : authority_key.get(), EVP_sha256());

  WritePem(folder + "/authority.pem", [&](std::FILE* file) { PEM_write_X509(file, authority.get()); });
  WritePem(folder + "/server.pem", [&](std::FILE* file) { PEM_write_X509(file, server.get()); });
  WritePem(folder + "/server-key.pem", [&](std::FILE* file) {
    PEM_write_PrivateKey(file, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
  });
}

}  // namespace zelnor::test
