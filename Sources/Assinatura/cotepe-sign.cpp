#include "cotepe-sign.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "Assinatura/Assinatura.h"
#include "Assinatura/ErroDaAssinatura.h"
#include "Assinatura/Laudo.h"
#include "Assinatura/TextoDeChave.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/FalhaDeArquivo.h"

struct cotepe_sign_key {
  std::optional<cotepe::ChavePrivada> privada;
  cotepe::ChavePublica publica;
};

namespace {

using namespace cotepe;

// The findings are the diagnoses, in their order.
static_assert(COTEPE_SIGN_NO_EAD == 1U << unsigned(Diagnostico::SemEad));
static_assert(COTEPE_SIGN_LINE_ENDS == 1U << unsigned(Diagnostico::FinsDeLinha));
static_assert(COTEPE_SIGN_HASH_REVERSED == 1U << unsigned(Diagnostico::ResumoInvertido));
static_assert(COTEPE_SIGN_DIGITS_LOST == 1U << unsigned(Diagnostico::DigitosPerdidos));
static_assert(COTEPE_SIGN_PLAIN_MD5 == 1U << unsigned(Diagnostico::Md5Puro));
static_assert(COTEPE_SIGN_HASH_AS_TEXT == 1U << unsigned(Diagnostico::ResumoEmTexto));
static_assert(COTEPE_SIGN_TEXT_AFTER_EAD == 1U << unsigned(Diagnostico::TextoDepois));
static_assert(COTEPE_SIGN_BYTE_ORDER_MARK == 1U << unsigned(Diagnostico::Bom));
static_assert(COTEPE_SIGN_TWO_EADS == 1U << unsigned(Diagnostico::DuasEads));
static_assert(COTEPE_SIGN_PKCS1_FORM == 1U << unsigned(Diagnostico::Pkcs1));
static_assert(COTEPE_SIGN_OTHER_KEY == 1U << unsigned(Diagnostico::OutraChave));
static_assert(COTEPE_SIGN_OTHER_HASH == 1U << unsigned(Diagnostico::OutroResumo));
static_assert(COTEPE_SIGN_HASH_OR_KEY == 1U << unsigned(Diagnostico::OutroOuOutraChave));
static_assert(COTEPE_SIGN_MIXED_DIGITS == 1U << unsigned(Diagnostico::DigitosMisturados));
static_assert(COTEPE_SIGN_NO_DIGITS == 1U << unsigned(Diagnostico::SemDigitos));
static_assert(COTEPE_SIGN_HASH_DIFFERS == 1U << unsigned(Diagnostico::OutroConteudo));
static_assert(COTEPE_SIGN_VALID == int(Parecer::Valida));
static_assert(COTEPE_SIGN_CHANGED == int(Parecer::Alterada));
static_assert(COTEPE_SIGN_CANNOT_BE_TOLD == int(Parecer::NaoSeSabe));

constexpr unsigned kTodosOsModos = COTEPE_SIGN_PKCS1 | COTEPE_SIGN_REPLACE | COTEPE_SIGN_ANY_FILE;

class NaoAbre {};
class NaoEscreve {};

int resultadoDe(const ErroDaAssinatura& erro) {
  switch (erro.problema()) {
    case ProblemaDaAssinatura::ChaveNaoAbre:
      return COTEPE_SIGN_CANNOT_OPEN;
    case ProblemaDaAssinatura::TamanhoDaChave:
      return COTEPE_SIGN_KEY_SIZE;
    case ProblemaDaAssinatura::FraseFaltando:
    case ProblemaDaAssinatura::FraseErrada:
      return COTEPE_SIGN_PASSPHRASE;
    case ProblemaDaAssinatura::CifraRecusada:
    case ProblemaDaAssinatura::Md5Recusado:
    case ProblemaDaAssinatura::RsaRecusado:
      return COTEPE_SIGN_REFUSED;
    case ProblemaDaAssinatura::AssinaturaErrada:
      return COTEPE_SIGN_FAILED;
    case ProblemaDaAssinatura::Leitura:
      return COTEPE_SIGN_CANNOT_READ;
    case ProblemaDaAssinatura::NaoERelatorio:
      return COTEPE_SIGN_NO_REPORT;
    default:
      return COTEPE_SIGN_BAD_KEY;
  }
}

// The result of `funcao`, or the one that corresponds to what it throws.
template <class Funcao>
int resultado(Funcao funcao) noexcept {
  try {
    funcao();
    return COTEPE_SIGN_DONE;
  } catch (const ErroDaAssinatura& erro) {
    return resultadoDe(erro);
  } catch (const FalhaDeArquivo& falha) {
    const bool escrevendo =
        falha.passo() == PassoDeArquivo::NaoEscreve || falha.passo() == PassoDeArquivo::NomeNaoEscrito;
    return escrevendo ? COTEPE_SIGN_CANNOT_WRITE : COTEPE_SIGN_CANNOT_OPEN;
  } catch (const NaoAbre&) {
    return COTEPE_SIGN_CANNOT_OPEN;
  } catch (const NaoEscreve&) {
    return COTEPE_SIGN_CANNOT_WRITE;
  } catch (const std::bad_alloc&) {
    return COTEPE_SIGN_NO_MEMORY;
  } catch (...) {
    return COTEPE_SIGN_FAILED;
  }
}

using Arquivo = std::shared_ptr<std::FILE>;

Arquivo abre(const std::string& caminho, const char* modo) {
  std::FILE* aberto = abreFluxo(caminho, modo);
  if (aberto == nullptr) throw NaoAbre();
  static_cast<void>(std::setvbuf(aberto, nullptr, _IONBF, 0));  // blocks come as they are
  return {aberto, std::fclose};
}

LeituraDeBytes leituraDe(const std::string& caminho) {
  return [arquivo = abre(caminho, "rb")](char* destino, std::size_t tamanho) {
    const std::size_t lidos = std::fread(destino, 1, tamanho, arquivo.get());
    return lidos == 0 && std::ferror(arquivo.get()) != 0 ? -1 : static_cast<long>(lidos);
  };
}

void assinaArquivo(const cotepe_sign_key& chave, const std::string& relatorio, const std::string& destino,
                   bool substitui, unsigned modos) {
  exigeDestino(destino, substitui);
  ArquivoSeguro seguro(destino);
  std::error_code erro;  // whoever may not read the report may not read the signed copy
  const auto permissoes = std::filesystem::status(relatorio, erro).permissions();
  if (destino == relatorio && !erro) std::filesystem::permissions(seguro.temporario(), permissoes, erro);
  {
    const Arquivo escrito = abre(seguro.temporario(), "wb");
    const auto escreve = [&](std::string_view bytes) {
      if (std::fwrite(bytes.data(), 1, bytes.size(), escrito.get()) != bytes.size()) throw NaoEscreve();
    };
    const auto forma = (modos & COTEPE_SIGN_PKCS1) != 0 ? FormaDoBloco::Pkcs1 : FormaDoBloco::Lei;
    assina(leituraDe(relatorio), escreve, {&*chave.privada, forma, (modos & COTEPE_SIGN_ANY_FILE) != 0});
    if (std::fflush(escrito.get()) != 0) throw NaoEscreve();
  }
  seguro.publica(destino, substitui);
}

}  // namespace

int cotepe_sign_open_private(const char* file, const char* passphrase, cotepe_sign_key** key) noexcept {
  if (key == nullptr) return COTEPE_SIGN_BAD_ARGUMENT;
  *key = nullptr;
  if (file == nullptr) return COTEPE_SIGN_BAD_ARGUMENT;
  return resultado([&] {
    const TextoDeChave texto(file);
    auto privada = ChavePrivada::le(texto.texto(), [&](std::string& frase) {
      if (passphrase != nullptr) frase = passphrase;
      return passphrase != nullptr;
    });
    auto publica = privada.publica();
    *key =
        std::make_unique<cotepe_sign_key>(cotepe_sign_key{std::move(privada), std::move(publica)}).release();
  });
}

int cotepe_sign_open_public(const char* file, cotepe_sign_key** key) noexcept {
  if (key == nullptr) return COTEPE_SIGN_BAD_ARGUMENT;
  *key = nullptr;
  if (file == nullptr) return COTEPE_SIGN_BAD_ARGUMENT;
  return resultado([&] {
    const TextoDeChave texto(file);
    *key = std::make_unique<cotepe_sign_key>(cotepe_sign_key{std::nullopt, ChavePublica::le(texto.texto())})
               .release();
  });
}

void cotepe_sign_close(cotepe_sign_key* key) noexcept { delete key; }

int cotepe_sign_file(const cotepe_sign_key* key, const char* report, const char* output,
                     unsigned flags) noexcept {
  if (key == nullptr || report == nullptr || (flags & ~kTodosOsModos) != 0) return COTEPE_SIGN_BAD_ARGUMENT;
  if (!key->privada) return COTEPE_SIGN_BAD_KEY;
  return resultado([&] {
    const bool noLugar = output == nullptr;
    assinaArquivo(*key, report, noLugar ? report : output, noLugar || (flags & COTEPE_SIGN_REPLACE) != 0,
                  flags);
  });
}

int cotepe_sign_verify(const cotepe_sign_key* key, const char* report, cotepe_sign_report* found) noexcept {
  if (key == nullptr || report == nullptr || found == nullptr) return COTEPE_SIGN_BAD_ARGUMENT;
  *found = {COTEPE_SIGN_CANNOT_BE_TOLD, 0, 0, ""};
  return resultado([&] {
    const Laudo laudo = verifica([&] { return leituraDe(report); }, key->publica);
    found->verdict = static_cast<int>(laudo.parecer);
    for (const Diagnostico diagnostico : laudo.diagnosticos) found->findings |= 1U << unsigned(diagnostico);
    found->content_agrees = laudo.conteudo == Conteudo::Confere ? 1 : 0;
    std::strncpy(found->md5, textoDoResumo(laudo.resumo).c_str(), sizeof found->md5 - 1);
  });
}

const char* cotepe_sign_result_text(int result) noexcept {
  switch (result) {
    case COTEPE_SIGN_DONE:
      return "done";
    case COTEPE_SIGN_NO_REPORT:
      return "the file is no report";
    case COTEPE_SIGN_BAD_ARGUMENT:
      return "an argument is null, or a flag is unknown";
    case COTEPE_SIGN_CANNOT_OPEN:
      return "a file cannot be opened, or the output exists";
    case COTEPE_SIGN_CANNOT_WRITE:
      return "the output cannot be written";
    case COTEPE_SIGN_CANNOT_READ:
      return "the report cannot be read";
    case COTEPE_SIGN_NO_MEMORY:
      return "out of memory";
    case COTEPE_SIGN_BAD_KEY:
      return "no such key of RSA";
    case COTEPE_SIGN_KEY_SIZE:
      return "the key has not 1024 bits";
    case COTEPE_SIGN_PASSPHRASE:
      return "the pass phrase does not open the key";
    case COTEPE_SIGN_REFUSED:
      return "the settings of OpenSSL refuse what a signature needs";
    case COTEPE_SIGN_FAILED:
      return "the key does not open its own signature";
    default:
      return "unknown result";
  }
}

const char* cotepe_sign_verdict_text(int verdict) noexcept {
  switch (verdict) {
    case COTEPE_SIGN_VALID:
      return "valid";
    case COTEPE_SIGN_CHANGED:
      return "changed";
    case COTEPE_SIGN_CANNOT_BE_TOLD:
      return "cannot be told";
    default:
      return "unknown verdict";
  }
}

const char* cotepe_sign_finding_text(unsigned finding) noexcept {
  for (unsigned i = 0; i <= unsigned(Diagnostico::OutroConteudo); ++i)
    if (finding == 1U << i) return nomeDe(static_cast<Diagnostico>(i));
  return "unknown finding";
}

const char* cotepe_sign_version() noexcept { return COTEPE_VERSAO; }
