// Puts a certificate (DER) among those that the user trusts to sign others, or takes it out again:
// trust_host add|remove FILE.
#include <windows.h>

#include <wincrypt.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

bool trust(HCERTSTORE store, const BYTE* bytes, DWORD size) {
  return CertAddEncodedCertificateToStore(store, X509_ASN_ENCODING, bytes, size,
                                          CERT_STORE_ADD_REPLACE_EXISTING, nullptr);
}

bool distrust(HCERTSTORE store, const BYTE* bytes, DWORD size) {
  const CERT_CONTEXT* const wanted = CertCreateCertificateContext(X509_ASN_ENCODING, bytes, size);
  if (wanted == nullptr) return false;
  const CERT_CONTEXT* const found =
      CertFindCertificateInStore(store, X509_ASN_ENCODING, 0, CERT_FIND_EXISTING, wanted, nullptr);
  CertFreeCertificateContext(wanted);
  return found != nullptr && CertDeleteCertificateFromStore(found);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  std::ifstream file(arguments[2], std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  // Not through the logical store, from which Wine deletes nothing for good.
  const HCERTSTORE store = CertOpenStore(CERT_STORE_PROV_SYSTEM_REGISTRY_A, 0, 0,
                                         CERT_SYSTEM_STORE_CURRENT_USER, "Root");
  if (store == nullptr) return 1;
  const auto work = std::string(arguments[1]) == "add" ? &trust : &distrust;
  const bool isDone =
      work(store, reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
  if (!isDone) fprintf(stderr, "error %lu\n", GetLastError());
  return CertCloseStore(store, 0) && isDone ? 0 : 1;
}
