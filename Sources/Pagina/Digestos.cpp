#include "Pagina/Digestos.h"

#ifdef COTEPE_OPENSSL
#include <openssl/evp.h>

#include <array>
#include <new>
#endif

namespace cotepe::pagina {

#ifdef COTEPE_OPENSSL

namespace {

constexpr std::size_t kBlocoDosDigestos = std::size_t{1} << 16;

struct FechaContexto {
  void operator()(EVP_MD_CTX* contexto) const { EVP_MD_CTX_free(contexto); }
};
using ContextoDeDigesto = std::unique_ptr<EVP_MD_CTX, FechaContexto>;

// Null when the library offers no such digest, such as MD5 under some policies.
ContextoDeDigesto abre(const EVP_MD* qual) {
  ContextoDeDigesto contexto(EVP_MD_CTX_new());
  if (!contexto) throw std::bad_alloc();
  if (qual == nullptr || EVP_DigestInit_ex(contexto.get(), qual, nullptr) != 1) contexto.reset();
  return contexto;
}

std::string fecha(EVP_MD_CTX* contexto) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned quantos = 0;
  if (contexto == nullptr || EVP_DigestFinal_ex(contexto, bytes.data(), &quantos) != 1) return {};
  std::string hexadecimal;
  for (unsigned i = 0; i < quantos; ++i) {
    hexadecimal += "0123456789abcdef"[bytes[i] >> 4];
    hexadecimal += "0123456789abcdef"[bytes[i] & 15];
  }
  return hexadecimal;
}

}  // namespace

struct Digestos::Contextos {
  ContextoDeDigesto md5 = abre(EVP_md5()), sha256 = abre(EVP_sha256());

  void soma(std::string_view bytes) {
    for (ContextoDeDigesto* contexto : {&md5, &sha256})
      if (*contexto && EVP_DigestUpdate(contexto->get(), bytes.data(), bytes.size()) != 1) contexto->reset();
  }
};

bool Digestos::disponiveis() noexcept { return true; }

void Digestos::soma(std::string_view bytes) {
  bloco_ += bytes;
  if (bloco_.size() < kBlocoDosDigestos) return;
  contextos_->soma(bloco_);
  bloco_.clear();
}

void Digestos::conclui() {
  contextos_->soma(bloco_);
  md5_ = fecha(contextos_->md5.get());
  sha256_ = fecha(contextos_->sha256.get());
}

#else

struct Digestos::Contextos {};

bool Digestos::disponiveis() noexcept { return false; }

void Digestos::soma(std::string_view /*bytes*/) {}

void Digestos::conclui() {}

#endif

Digestos::Digestos() : contextos_(std::make_unique<Contextos>()) {}

Digestos::~Digestos() = default;

}  // namespace cotepe::pagina
