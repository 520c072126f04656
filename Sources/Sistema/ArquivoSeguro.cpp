#include "Sistema/ArquivoSeguro.h"

#include <cerrno>
#include <random>

#include "Sistema/FalhaDeArquivo.h"

namespace cotepe {
namespace {

constexpr char kMarca[] = ".cotepe-";
constexpr char kFim[] = ".tmp";
constexpr std::size_t kSorteados = 6;
constexpr std::size_t kMaximoDoNome = 200;  // so that marks and random characters fit into a file name

std::string nomeDe(const std::string& caminho) {
  const std::string inteiro = comPasta(caminho);
  return inteiro.substr(pastaDe(inteiro).size());
}

std::string sorteia() {
  static constexpr char kLetras[] = "0123456789abcdefghijklmnopqrstuvwxyz";
  std::random_device acaso;
  std::uniform_int_distribution<std::size_t> letra(0, sizeof kLetras - 2);
  std::string texto;
  while (texto.size() < kSorteados) texto += kLetras[letra(acaso)];
  return texto;
}

bool ehTemporarioDe(const std::string& nome, const std::string& base) {
  return nome.size() == base.size() + kSorteados + sizeof kFim - 1 &&
         nome.compare(0, base.size(), base) == 0 &&
         nome.compare(nome.size() + 1 - sizeof kFim, std::string::npos, kFim) == 0;
}

void recolheSobras(const std::string& pasta, const std::string& base) {
  for (const std::string& nome : nomesNaPasta(pasta))
    if (ehTemporarioDe(nome, base)) removeSeMorto(pasta + nome);
}

[[noreturn]] void falha(PassoDeArquivo passo, const std::string& caminho, int erro = 0) {
  throw FalhaDeArquivo(passo, caminho, erro);
}

}  // namespace

ArquivoSeguro::ArquivoSeguro(const std::string& destino, const std::string& apelido, bool soDoDono)
    : pasta_(pastaDe(comPasta(destino))), descritorDaPasta_(abrePasta(pasta_)) {
  if (!descritorDaPasta_.aberto()) falha(PassoDeArquivo::NaoCria, destino, errno);
  const std::string nome = apelido.empty() ? nomeDe(destino) : apelido;
  const std::string base = '.' + nome.substr(0, kMaximoDoNome) + kMarca;
  recolheSobras(pasta_, base);
  do cria(destino, base, soDoDono);
  while (!aindaTemNome(arquivo_.numero()));  // another run took it for a leftover before it was locked
}

// On a file system without locks everything works the same, but leftovers stay.
void ArquivoSeguro::cria(const std::string& destino, const std::string& base, bool soDoDono) {
  do {
    temporario_ = pasta_ + base + sorteia() + kFim;
    arquivo_ = criaNovo(temporario_, soDoDono);
  } while (!arquivo_.aberto() && errno == EEXIST);
  if (!arquivo_.aberto()) falha(PassoDeArquivo::NaoCria, destino, errno);
  tranca(arquivo_.numero());
}

ArquivoSeguro::~ArquivoSeguro() { descarta(); }

void ArquivoSeguro::publica(const std::string& destino, bool substitui) {
  if (!levaAoDisco(arquivo_.numero())) falha(PassoDeArquivo::NaoEscreve, destino, errno);
  if (!renomeia(temporario_, destino, substitui)) {
    const int erro = errno;
    falha(erro == EEXIST ? PassoDeArquivo::Existe : PassoDeArquivo::NaoEscreve, destino, erro);
  }
  temporario_.clear();
  if (levaAoDisco(descritorDaPasta_.numero()) || errno == EINVAL) return;  // some do not support it
  falha(PassoDeArquivo::NomeNaoEscrito, destino, errno);
}

bool ArquivoSeguro::descarta() noexcept {
  if (temporario_.empty()) return true;
  const bool removido = removeArquivo(temporario_);
  temporario_.clear();
  return removido;
}

Descritor ArquivoSeguro::soltaSemNome() { return descarta() ? std::move(arquivo_) : Descritor(); }

void exigeDestino(const std::string& destino, bool substitui) {
  if (destino.empty() || pastaDe(destino) == destino) falha(PassoDeArquivo::NomeDePasta, destino);
  switch (tipoDoNome(destino)) {
    case TipoDeArquivo::Nenhuma:
      return;  // anything else that is wrong shows up when it is created
    case TipoDeArquivo::Pasta:
      falha(PassoDeArquivo::Pasta, destino);
    case TipoDeArquivo::Outra:
      falha(PassoDeArquivo::NaoRegular, destino);
    case TipoDeArquivo::Regular:
      if (!substitui) falha(PassoDeArquivo::Existe, destino, EEXIST);
  }
}

}  // namespace cotepe
