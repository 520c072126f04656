#include "GeradorDaInterface.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "ArquivosDoBanco.h"
#include "Leiaute/Releitura.h"
#include "Leiaute/Texto.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/FalhaDeArquivo.h"

namespace cotepe {
namespace {

thread_local char g_motivoDaAbertura[256] = "";

// DDMMYYYY as AAAAMMDD, which sorts by date; empty when it is not a valid day.
std::string diaDoCalendario(const char* ddmmaaaa) {
  const std::string_view dia = ddmmaaaa != nullptr ? ddmmaaaa : "";
  if (dia.size() != 8) return {};
  std::string invertido(dia.substr(4));
  invertido.append(dia.substr(2, 2)).append(dia.substr(0, 2));
  return dataPossivel(invertido) ? invertido : std::string();
}

bool periodoValido(const char* primeiro, const char* ultimo) {
  const std::string de = diaDoCalendario(primeiro), ate = diaDoCalendario(ultimo);
  return !de.empty() && !ate.empty() && de <= ate;
}

bool comandoValido(const char* comando) {
  constexpr std::string_view kComandos[] = {"MF", "MFD", "TDM", "RZ"};
  return comando != nullptr &&
         std::find(std::begin(kComandos), std::end(kComandos), comando) != std::end(kComandos);
}

// The result for a database that SQLite cannot read.
int resultadoDaLeitura(int doSqlite) {
  switch (doSqlite & 0xff) {
    case SQLITE_BUSY:
      return COTEPE_LOCKED;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return COTEPE_NOT_A_DATABASE;
    case SQLITE_NOMEM:
      return COTEPE_NO_MEMORY;
    default:
      return COTEPE_CANNOT_READ;
  }
}

// While it exists, all reads of a generator's own connection see one state. A host's connection is left
// alone.
class Transacao {
 public:
  explicit Transacao(cotepe_generator& gerador) : gerador_(gerador) {
    if (gerador.conexao == nullptr) return;
    const int doSqlite = gerador.conexao->comeca();
    if (doSqlite == SQLITE_OK) return;
    resultado_ = resultadoDaLeitura(doSqlite);
    gerador.hospedeiro.falhaSemMensagem();
  }
  ~Transacao() {
    const int erro = errno;
    if (gerador_.conexao != nullptr) gerador_.conexao->termina();
    errno = erro;
  }
  Transacao(const Transacao&) = delete;
  Transacao& operator=(const Transacao&) = delete;

  int resultado() const { return resultado_; }

 private:
  cotepe_generator& gerador_;
  int resultado_ = COTEPE_DONE;
};

bool valido(const Pedido& pedido) {
  return pedido.relatorio != nullptr && periodoValido(pedido.primeiro, pedido.ultimo) &&
         comandoValido(pedido.comando);
}

// The system's reason, if a file failed and there is one; errno is kept. Without memory there is no reason.
void explicaArquivo(cotepe_generator& gerador, int resultado) noexcept {
  const int erro = errno;
  if ((resultado != COTEPE_CANNOT_OPEN && resultado != COTEPE_CANNOT_WRITE) || erro == 0) return;
  try {
    if (erro == EBUSY)
      gerador.hospedeiro.fixaMotivo("it is the database, or a journal of it");
    else
      gerador.hospedeiro.fixaMotivo(std::generic_category().message(erro).c_str());
  } catch (const std::bad_alloc&) {
    gerador.hospedeiro.fixaMotivo("");
  }
  errno = erro;
}

int geraEm(cotepe_generator& gerador, const Pedido& pedido, const char* arquivo) {
  const int resultado = Posse::comFolga(
      [&] { return gerador.geracao.gera(arquivo, pedido.primeiro, pedido.ultimo, pedido.comando); });
  return resultado == COTEPE_DONE && !gerador.hospedeiro.completa() ? int{COTEPE_INCOMPLETE} : resultado;
}

// The result of a file that failed, with errno.
int resultadoDoArquivo(const FalhaDeArquivo& falha) {
  switch (falha.passo()) {
    case PassoDeArquivo::NomeDePasta:
    case PassoDeArquivo::Pasta:
      errno = EISDIR;
      return COTEPE_CANNOT_OPEN;
    case PassoDeArquivo::NaoRegular:
      errno = EINVAL;
      return COTEPE_CANNOT_OPEN;
    case PassoDeArquivo::Existe:
      errno = EEXIST;
      return COTEPE_CANNOT_OPEN;
    default:
      errno = falha.erro();
      return falha.passo() == PassoDeArquivo::NaoCria ? COTEPE_CANNOT_OPEN : COTEPE_CANNOT_WRITE;
  }
}

int escreveInteiro(cotepe_generator& gerador, const Pedido& pedido, bool substitui) {
  if (arruinaOBanco(gerador.banco, pedido.relatorio)) {
    errno = EBUSY;
    return COTEPE_CANNOT_OPEN;
  }
  try {
    exigeDestino(pedido.relatorio, substitui);
    ArquivoSeguro arquivo(pedido.relatorio);
    const int resultado = geraEm(gerador, pedido, arquivo.temporario().c_str());
    if (resultado == COTEPE_DONE) arquivo.publica(pedido.relatorio, substitui);
    return resultado;
  } catch (const FalhaDeArquivo& falha) {
    return resultadoDoArquivo(falha);
  }
}

// Runs `corrida` after checking the arguments, over one state of the database.
template <class Corrida>
int comEstado(cotepe_generator& gerador, const Pedido& pedido, Corrida corrida) {
  if (!valido(pedido)) return COTEPE_BAD_ARGUMENT;
  gerador.hospedeiro.comeca();
  const Transacao transacao(gerador);
  if (transacao.resultado() != COTEPE_DONE) return transacao.resultado();
  errno = 0;
  const int resultado = corrida();
  explicaArquivo(gerador, resultado);
  return resultado;
}

// Whether SQLite may open it; errno says why not. Opening a pipe would block.
bool ehArquivoParaLer(const char* caminho) {
  switch (tipoDoArquivo(caminho)) {
    case TipoDeArquivo::Nenhuma:
      return false;
    case TipoDeArquivo::Pasta:
      errno = EISDIR;
      return false;
    case TipoDeArquivo::Outra:
      errno = EINVAL;
      return false;
    case TipoDeArquivo::Regular:
      return podeLer(caminho);
  }
  return false;
}

}  // namespace

int gera(cotepe_generator& gerador, const Pedido& pedido) {
  return comEstado(gerador, pedido, [&] { return geraEm(gerador, pedido, pedido.relatorio); });
}

int geraInteiro(cotepe_generator& gerador, const Pedido& pedido, bool substitui) {
  return comEstado(gerador, pedido, [&] { return escreveInteiro(gerador, pedido, substitui); });
}

int abre(const char* caminho, int espera, cotepe_generator*& gerador) {
  copiaLimitada(g_motivoDaAbertura, "");
  if (!ehArquivoParaLer(caminho)) {
    const int erro = errno;
    copiaLimitada(g_motivoDaAbertura, std::generic_category().message(erro).c_str());
    errno = erro;
    return COTEPE_CANNOT_READ;
  }
  auto conexao = std::make_unique<ConexaoDeLeitura>(std::chrono::milliseconds(espera));
  int doSqlite = conexao->abre(caminho);
  if (doSqlite == SQLITE_OK) doSqlite = conexao->comeca();
  if (doSqlite != SQLITE_OK) {
    copiaLimitada(g_motivoDaAbertura, sqlite3_errmsg(conexao->banco()));
    return resultadoDaLeitura(doSqlite);
  }
  conexao->termina();
  gerador = new cotepe_generator(std::move(conexao));
  return COTEPE_DONE;
}

const char* motivoDaAbertura() noexcept { return g_motivoDaAbertura; }

}  // namespace cotepe
