#include "Chaves.h"

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "Assinatura/Md5.h"

using namespace cotepe;

const char* const kModuloDoVetor =
    "D8F1B925111594339DE434186822F3B5AF2A95813B76CF7D99495676F922221A2A8B341954B4BED4F7D90578245BD8539BA8CD6A"
    "5CC1D928390842BCA7E0CA9FE21CA3A4C008A57917EF87D4F5CD2FBB2BB3C9A27B288D944C37B9C896C37C032744B216A5C3FAB7"
    "8AA740E11AB6EEFB1989549ED4B109E7D1CE42FA56E4E683";

std::string novaChavePem(int bits) {
  EVP_PKEY* chave = EVP_RSA_gen(static_cast<unsigned>(bits));
  BIO* bio = BIO_new(BIO_s_mem());
  PEM_write_bio_PrivateKey(bio, chave, nullptr, nullptr, 0, nullptr, nullptr);
  char* texto = nullptr;
  const long tamanho = BIO_get_mem_data(bio, &texto);
  std::string pem(texto, static_cast<std::size_t>(tamanho));
  BIO_free(bio);
  EVP_PKEY_free(chave);
  return pem;
}

const std::string& chavePem() {
  static const std::string pem = novaChavePem();
  return pem;
}

const ChavePrivada& chavePrivada() {
  static const ChavePrivada chave = ChavePrivada::le(chavePem(), nullptr);
  return chave;
}

const ChavePublica& chavePublica() {
  static const ChavePublica chave = chavePrivada().publica();
  return chave;
}

ChavePublica chaveDoVetor() {
  return ChavePublica::le(
      "<empresa_desenvolvedora><nome>VETOR</nome><chave><modulo>" + std::string(kModuloDoVetor) +
      "</modulo><expoente_publico>10001</expoente_publico></chave></empresa_desenvolvedora>");
}

LeituraDeBytes leituraDe(const std::string& texto, std::size_t pedaco) {
  return [&texto, pedaco, lidos = std::size_t{0}](char* destino, std::size_t tamanho) mutable {
    const std::size_t n = std::min({tamanho, pedaco, texto.size() - lidos});
    std::memcpy(destino, texto.data() + lidos, n);
    lidos += n;
    return static_cast<long>(n);
  };
}

Laudo laudoDe(const std::string& texto, const ChavePublica& chave) {
  return verifica([&] { return leituraDe(texto); }, chave);
}

std::string assinado(const std::string& texto, FormaDoBloco forma) {
  std::string saida;
  assina(leituraDe(texto), [&](std::string_view bytes) { saida += bytes; }, {&chavePrivada(), forma, false});
  return saida;
}

std::string eadDe(const BlocoRsa& bloco) { return escreveEad(chavePrivada().assina(bloco)); }

ResumoMd5 md5De(const std::string& texto) {
  Md5 md5;
  md5.soma(texto);
  return md5.resumo();
}
