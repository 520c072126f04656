#include "Assinatura/Chaves.h"

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/decoder.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/param_build.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>
#include <utility>

#include "Assinatura/ChaveXml.h"
#include "Assinatura/ErroDaAssinatura.h"
#include "Assinatura/ErrosDaBiblioteca.h"

namespace cotepe {
namespace {

constexpr int kBits = 1024;

struct Libera {
  void operator()(BIO* bio) const noexcept { BIO_free(bio); }
  void operator()(BIGNUM* numero) const noexcept { BN_free(numero); }
  void operator()(EVP_KEYMGMT* especie) const noexcept { EVP_KEYMGMT_free(especie); }
  void operator()(EVP_PKEY_CTX* contexto) const noexcept { EVP_PKEY_CTX_free(contexto); }
  void operator()(OSSL_DECODER_CTX* contexto) const noexcept { OSSL_DECODER_CTX_free(contexto); }
  void operator()(OSSL_PARAM* parametros) const noexcept { OSSL_PARAM_free(parametros); }
  void operator()(OSSL_PARAM_BLD* parametros) const noexcept { OSSL_PARAM_BLD_free(parametros); }
};
template <class Tipo>
using Dono = std::unique_ptr<Tipo, Libera>;

template <class Tipo>
Dono<Tipo> dono(Tipo* ponteiro) {
  if (ponteiro == nullptr) throw std::bad_alloc();
  return Dono<Tipo>(ponteiro);
}

[[noreturn]] void falha(ProblemaDaAssinatura problema, long numero = 0) {
  throw ErroDaAssinatura(problema, numero, erroDaBiblioteca());
}

// Called before a key is read: without the algorithm every key would be unreadable.
void exigeRsa() {
  ERR_clear_error();
  if (Dono<EVP_KEYMGMT>(EVP_KEYMGMT_fetch(nullptr, "RSA", nullptr)) == nullptr)
    falha(ProblemaDaAssinatura::RsaRecusado);
}

Dono<BIGNUM> parametro(const EVP_PKEY* chave, const char* nome) {
  BIGNUM* numero = nullptr;
  if (EVP_PKEY_get_bn_param(chave, nome, &numero) != 1) falha(ProblemaDaAssinatura::ChaveIlegivel);
  return Dono<BIGNUM>(numero);
}

void exigeTamanho(const EVP_PKEY* chave) {
  if (EVP_PKEY_is_a(chave, "RSA") != 1) falha(ProblemaDaAssinatura::ChaveNaoERsa);
  if (EVP_PKEY_get_bits(chave) != kBits)
    falha(ProblemaDaAssinatura::TamanhoDaChave, EVP_PKEY_get_bits(chave));
  const auto expoente = parametro(chave, OSSL_PKEY_PARAM_RSA_E);
  if (BN_is_odd(expoente.get()) != 1 || BN_is_one(expoente.get()) == 1)
    falha(ProblemaDaAssinatura::ExpoenteDaChave);
}

// Who is asked for the pass phrase, and how that went. No exception may pass through the library.
struct PerguntaDaFrase {
  const PedeFrase& pede;
  bool feita = false, respondida = false;
  std::exception_ptr lancado{};

  int responde(char* destino, int tamanho) {
    feita = true;
    std::string frase;
    try {
      respondida = pede && pede(frase);
    } catch (...) {
      lancado = std::current_exception();
    }
    respondida = respondida && frase.size() <= static_cast<std::size_t>(tamanho);
    if (respondida) std::copy(frase.begin(), frase.end(), destino);
    const auto lidos = static_cast<int>(frase.size());
    OPENSSL_cleanse(frase.data(), frase.size());
    return respondida ? lidos : -1;
  }
};

int aoPedirFrase(char* destino, int tamanho, int /*paraEscrever*/, void* quem) {
  return static_cast<PerguntaDaFrase*>(quem)->responde(destino, tamanho);
}

[[noreturn]] void naoLeu(const PerguntaDaFrase& pergunta) {
  if (pergunta.lancado != nullptr) std::rethrow_exception(pergunta.lancado);
  if (pergunta.feita && !pergunta.respondida) falha(ProblemaDaAssinatura::FraseFaltando);
  if (!pergunta.feita) falha(ProblemaDaAssinatura::ChaveIlegivel);
  falha(algoritmoFaltando() ? ProblemaDaAssinatura::CifraRecusada : ProblemaDaAssinatura::FraseErrada);
}

ChaveDaBiblioteca lePem(std::string_view texto, int partes, const PedeFrase& pede) {
  ERR_clear_error();
  EVP_PKEY* lida = nullptr;
  const auto leitor =
      dono(OSSL_DECODER_CTX_new_for_pkey(&lida, "PEM", nullptr, nullptr, partes, nullptr, nullptr));
  PerguntaDaFrase pergunta{pede};
  OSSL_DECODER_CTX_set_pem_password_cb(leitor.get(), aoPedirFrase, &pergunta);
  const auto bio = dono(BIO_new_mem_buf(texto.data(), static_cast<int>(texto.size())));
  const bool feito = OSSL_DECODER_from_bio(leitor.get(), bio.get()) == 1;
  ChaveDaBiblioteca chave(lida);
  if (!feito || chave == nullptr) naoLeu(pergunta);
  ERR_clear_error();
  exigeTamanho(chave.get());
  return chave;
}

Dono<BIGNUM> numeroDe(const std::string& digitos) {
  BIGNUM* numero = nullptr;
  if (BN_hex2bn(&numero, digitos.empty() ? "0" : digitos.c_str()) == 0)
    falha(ProblemaDaAssinatura::ChaveIlegivel);
  return Dono<BIGNUM>(numero);
}

ChaveDaBiblioteca monta(const BIGNUM* modulo, const BIGNUM* expoente) {
  const auto partes = dono(OSSL_PARAM_BLD_new());
  if (OSSL_PARAM_BLD_push_BN(partes.get(), OSSL_PKEY_PARAM_RSA_N, modulo) != 1 ||
      OSSL_PARAM_BLD_push_BN(partes.get(), OSSL_PKEY_PARAM_RSA_E, expoente) != 1)
    throw std::bad_alloc();
  const auto parametros = dono(OSSL_PARAM_BLD_to_param(partes.get()));
  const auto contexto = dono(EVP_PKEY_CTX_new_from_name(nullptr, "RSA", nullptr));
  EVP_PKEY* chave = nullptr;
  if (EVP_PKEY_fromdata_init(contexto.get()) != 1 ||
      EVP_PKEY_fromdata(contexto.get(), &chave, EVP_PKEY_PUBLIC_KEY, parametros.get()) != 1)
    falha(ProblemaDaAssinatura::RsaRecusado);
  return ChaveDaBiblioteca(chave);
}

ChaveXml leXml(std::string_view texto) {
  ChaveXml xml;
  const FaltaDaChaveXml falta = leChaveXml(texto, xml);
  if (falta != FaltaDaChaveXml::Nenhuma) falha(ProblemaDaAssinatura::XmlInvalido, static_cast<long>(falta));
  constexpr std::size_t kDemais = 8192;  // digits of a number too long for any key
  if (xml.modulo.size() > kDemais || xml.expoente.size() > kDigitosDaAssinatura)
    falha(ProblemaDaAssinatura::TamanhoDaChave,
          static_cast<long>(4 * std::max(xml.modulo.size(), xml.expoente.size())));
  return xml;
}

bool tem(std::string_view texto, std::string_view parte) {
  return texto.find(parte) != std::string_view::npos;
}

// Ready for one operation with the key, by plain RSA.
template <class Comeca>
Dono<EVP_PKEY_CTX> prepara(EVP_PKEY* chave, Comeca comeca) {
  ERR_clear_error();
  auto contexto = dono(EVP_PKEY_CTX_new_from_pkey(nullptr, chave, nullptr));
  if (comeca(contexto.get()) != 1 || EVP_PKEY_CTX_set_rsa_padding(contexto.get(), RSA_NO_PADDING) != 1)
    falha(ProblemaDaAssinatura::RsaRecusado);
  return contexto;
}

std::string digitosDe(const BIGNUM* numero) {
  char* texto = BN_bn2hex(numero);
  if (texto == nullptr) throw std::bad_alloc();
  std::string digitos = texto;
  OPENSSL_free(texto);
  return digitos.erase(0, std::min(digitos.find_first_not_of('0'), digitos.size()));
}

}  // namespace

void LiberaChave::operator()(evp_pkey_st* chave) const noexcept { EVP_PKEY_free(chave); }

ChavePublica::ChavePublica(ChaveDaBiblioteca chave, std::string nome)
    : chave_(std::move(chave)), nome_(std::move(nome)) {}

ChavePublica ChavePublica::le(std::string_view texto) {
  exigeRsa();
  if (tem(texto, "PRIVATE KEY-----")) falha(ProblemaDaAssinatura::EraPrivada);
  if (tem(texto, "-----BEGIN ")) return ChavePublica(lePem(texto, EVP_PKEY_PUBLIC_KEY, nullptr));
  if (!tem(texto, "<")) falha(ProblemaDaAssinatura::ChaveIlegivel);
  ChaveXml xml = leXml(texto);
  auto chave = monta(numeroDe(xml.modulo).get(), numeroDe(xml.expoente).get());
  exigeTamanho(chave.get());
  return ChavePublica(std::move(chave), std::move(xml.nome));
}

bool ChavePublica::abre(const BlocoRsa& assinatura, BlocoRsa& bloco) const {
  const auto contexto = prepara(chave_.get(), EVP_PKEY_verify_recover_init);
  std::size_t tamanho = bloco.size();
  const int feito =
      EVP_PKEY_verify_recover(contexto.get(), bloco.data(), &tamanho, assinatura.data(), assinatura.size());
  if (feito == 1 && tamanho == bloco.size()) return true;
  if (ERR_GET_REASON(ERR_peek_error()) != RSA_R_DATA_TOO_LARGE_FOR_MODULUS)
    falha(ProblemaDaAssinatura::RsaRecusado);
  ERR_clear_error();
  return false;
}

std::string ChavePublica::pem() const {
  const auto bio = dono(BIO_new(BIO_s_mem()));
  if (PEM_write_bio_PUBKEY(bio.get(), chave_.get()) != 1) throw std::bad_alloc();
  char* texto = nullptr;
  const long tamanho = BIO_get_mem_data(bio.get(), &texto);
  return {texto, static_cast<std::size_t>(tamanho)};
}

std::string ChavePublica::xml(const std::string& nome) const {
  const auto modulo = parametro(chave_.get(), OSSL_PKEY_PARAM_RSA_N);
  const auto expoente = parametro(chave_.get(), OSSL_PKEY_PARAM_RSA_E);
  return escreveChaveXml({nome.empty() ? nome_ : nome, digitosDe(modulo.get()), digitosDe(expoente.get())});
}

ChavePrivada::ChavePrivada(ChaveDaBiblioteca chave) : chave_(std::move(chave)) {}

ChavePrivada ChavePrivada::le(std::string_view texto, const PedeFrase& pede) {
  exigeRsa();
  if (!tem(texto, "PRIVATE KEY-----"))
    falha(tem(texto, "PUBLIC KEY-----") || tem(texto, "<modulo>") ? ProblemaDaAssinatura::EraPublica
                                                                  : ProblemaDaAssinatura::ChaveIlegivel);
  return ChavePrivada(lePem(texto, EVP_PKEY_KEYPAIR, pede));
}

BlocoRsa ChavePrivada::assina(const BlocoRsa& bloco) const {
  const auto contexto = prepara(chave_.get(), EVP_PKEY_sign_init);
  BlocoRsa assinatura{}, aberto{};
  std::size_t tamanho = assinatura.size();
  if (EVP_PKEY_sign(contexto.get(), assinatura.data(), &tamanho, bloco.data(), bloco.size()) != 1)
    falha(ProblemaDaAssinatura::RsaRecusado);
  if (tamanho != assinatura.size() || !publica().abre(assinatura, aberto) || aberto != bloco)
    falha(ProblemaDaAssinatura::AssinaturaErrada);
  return assinatura;
}

ChavePublica ChavePrivada::publica() const {
  const auto modulo = parametro(chave_.get(), OSSL_PKEY_PARAM_RSA_N);
  const auto expoente = parametro(chave_.get(), OSSL_PKEY_PARAM_RSA_E);
  return ChavePublica(monta(modulo.get(), expoente.get()));
}

}  // namespace cotepe
