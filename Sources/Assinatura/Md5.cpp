#include "Assinatura/Md5.h"

#include <openssl/evp.h>

#include <new>

#include "Assinatura/ErroDaAssinatura.h"
#include "Assinatura/ErrosDaBiblioteca.h"

namespace cotepe {
namespace {

[[noreturn]] void recusado() {
  throw ErroDaAssinatura(ProblemaDaAssinatura::Md5Recusado, 0, erroDaBiblioteca());
}

}  // namespace

void Md5::Libera::operator()(evp_md_ctx_st* contexto) const noexcept { EVP_MD_CTX_free(contexto); }

Md5::Md5() : contexto_(EVP_MD_CTX_new()) {
  if (contexto_ == nullptr) throw std::bad_alloc();
  const std::unique_ptr<EVP_MD, decltype(&EVP_MD_free)> md5(EVP_MD_fetch(nullptr, "MD5", nullptr),
                                                            EVP_MD_free);
  if (md5 == nullptr || EVP_DigestInit_ex2(contexto_.get(), md5.get(), nullptr) != 1) recusado();
}

void Md5::soma(std::string_view bytes) {
  if (EVP_DigestUpdate(contexto_.get(), bytes.data(), bytes.size()) != 1) recusado();
}

ResumoMd5 Md5::resumo() const {
  const std::unique_ptr<evp_md_ctx_st, Libera> copia(EVP_MD_CTX_new());
  if (copia == nullptr) throw std::bad_alloc();
  ResumoMd5 resumo{};
  unsigned tamanho = 0;
  if (EVP_MD_CTX_copy_ex(copia.get(), contexto_.get()) != 1 ||
      EVP_DigestFinal_ex(copia.get(), resumo.data(), &tamanho) != 1 || tamanho != resumo.size())
    recusado();
  return resumo;
}

}  // namespace cotepe
