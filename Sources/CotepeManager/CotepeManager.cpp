#include "CotepeManager.h"

#include <cerrno>
#include <cstring>
#include <new>

#include "ArquivosDoBanco.h"
#include "ExecucaoSqlite.h"
#include "Leiaute/IdentidadeDoEcf.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"
#include "Sistema/Arquivo.h"

namespace {

constexpr std::size_t kTamanhoDoBuffer = std::size_t{1} << 20;  // bytes between two writes of the report
constexpr std::size_t kTamanhoDoDia = 8;                        // DDMMYYYY

constexpr char kFalhaDaIdentidade[] = "Erro no select - GeraRegistrosTipoE";

bool diaCompleto(const char* dia) { return dia != nullptr && strnlen(dia, kTamanhoDoDia) == kTamanhoDoDia; }

// DDMMYYYY and an hour as YYYY-MM-DD HH:MM:SS. The characters are copied unchanged.
void formataLimite(char (&limite)[20], const char* dia, const char* hora) {
  const char partes[] = {dia[4], dia[5], dia[6], dia[7], '-', dia[2], dia[3], '-', dia[0], dia[1], ' ', '\0'};
  std::memcpy(limite, partes, sizeof partes);
  std::strcat(limite, hora);  // NOLINT(clang-analyzer-security.insecureAPI.strcpy): 11 + 8 characters
}

// Replaces a text unless the new one is empty.
template <std::size_t N>
void copiaSeHouver(char (&destino)[N], const char* texto) {
  if (*texto != '\0') cotepe::copiaLimitada(destino, texto);
}

}  // namespace

CotepeManager::CotepeManager(sqlite3* banco) : db(banco) {}

CotepeManager::~CotepeManager() { abandonaRelatorio(); }

void CotepeManager::setVersaoAtoCotepe(int versao) { m_iVersaoAtoCotepe = versao; }
int CotepeManager::getVersaoAtoCotepe() const { return m_iVersaoAtoCotepe; }
void CotepeManager::setCAT52(bool cat52) { m_bCAT52 = cat52; }
bool CotepeManager::isCAT52() const { return m_bCAT52; }

int CotepeManager::gera(const char* arquivo, const char* dataInicial, const char* dataFinal,
                        const char* comandoDado, cotepe::Hospedeiro& hospedeiro) {
  if (arquivo == nullptr || comandoDado == nullptr || !diaCompleto(dataInicial) || !diaCompleto(dataFinal))
    return cotepe::kArgumentoInvalido;
  const int aberto = abreRelatorio(arquivo);
  if (aberto != cotepe::kGerado) return aberto;
  fixaPeriodo(dataInicial, dataFinal);

  // When there is no memory for it, the stream uses its own smaller one.
  m_buffer.reset(new (std::nothrow) char[kTamanhoDoBuffer]);
  if (m_buffer != nullptr)
    static_cast<void>(std::setvbuf(ReportFile, m_buffer.get(), _IOFBF, kTamanhoDoBuffer));
  try {
    const int resultado = geraNoArquivoAberto(comandoDado, hospedeiro);
    return fechaRelatorio() || resultado != cotepe::kGerado ? resultado : cotepe::kEscritaFalhou;
  } catch (const std::bad_alloc&) {
    fechaRelatorio();
    return cotepe::kEscritaFalhou;
  } catch (...) {  // the host's own
    abandonaRelatorio();
    throw;
  }
}

int CotepeManager::abreRelatorio(const char* arquivo) {
  try {
    if (cotepe::arruinaOBanco(db, arquivo)) {
      errno = EBUSY;
      return cotepe::kRelatorioNaoAberto;
    }
    ReportFile = cotepe::abreFluxo(arquivo, "wb");
    return ReportFile != nullptr ? cotepe::kGerado : cotepe::kRelatorioNaoAberto;
  } catch (const std::bad_alloc&) {
    return cotepe::kEscritaFalhou;
  }
}

int CotepeManager::geraNoArquivoAberto(const char* comandoDado, cotepe::Hospedeiro& hospedeiro) {
  m_iCountSize = cotepe::larguraDoContador(m_iVersaoAtoCotepe);
  m_iDivCount = cotepe::moduloDoContador(m_iVersaoAtoCotepe);
  cotepe::copiaLimitada(comando, comandoDado);
  if (!leIdentidade(hospedeiro)) return cotepe::kIdentidadeFalhou;
  for (const cotepe::Registro* registro : cotepe::kCatalogo) {
    if (!registro->despachado(comandoDado, m_iVersaoAtoCotepe)) continue;
    escreve(*registro, hospedeiro);
    if (std::ferror(ReportFile) != 0) break;
  }
  return cotepe::kGerado;
}

void CotepeManager::fixaPeriodo(const char* dataInicial, const char* dataFinal) {
  formataLimite(dataHoraInicial, dataInicial, "00:00:00");
  formataLimite(dataHoraFinal, dataFinal, "23:59:59");
}

// The database's texts take precedence over the host's; of several rows the last one counts.
bool CotepeManager::leIdentidade(cotepe::Hospedeiro& hospedeiro) {
  cotepe::copiaLimitada(modelo, hospedeiro.modelo());
  cotepe::copiaLimitada(nrFabricacao, hospedeiro.serial());
  cotepe::copiaLimitada(usuario, "");
  cotepe::Consulta identidade(db, cotepe::kConsultaDaIdentidade);
  while (identidade.avanca()) {
    copiaSeHouver(nrFabricacao, identidade.texto(cotepe::kColunaSerie));
    copiaSeHouver(modelo, identidade.texto(cotepe::kColunaModelo));
    cotepe::copiaLimitada(usuario, identidade.texto(cotepe::kColunaUsuario));
  }
  if (identidade.completa()) return true;
  hospedeiro.registraLog(kFalhaDaIdentidade);
  return false;
}

// Returns whether all that was written reached the file.
bool CotepeManager::fechaRelatorio() {
  const bool semErro = std::ferror(ReportFile) == 0;
  const bool fechado = std::fclose(ReportFile) == 0;
  ReportFile = nullptr;
  m_buffer.reset();
  return semErro && fechado;
}

void CotepeManager::abandonaRelatorio() noexcept {
  if (ReportFile == nullptr) return;
  cotepe::esvazia(ReportFile);
  fechaRelatorio();
}

cotepe::Ajustes CotepeManager::ajustes() const {
  return {m_iVersaoAtoCotepe, m_bCAT52,     m_iCountSize, m_iDivCount, nrFabricacao, modelo, usuario, comando,
          dataHoraInicial,    dataHoraFinal};
}

void CotepeManager::escreve(const cotepe::Registro& registro, cotepe::Hospedeiro& hospedeiro) {
  cotepe::ExecucaoSqlite execucao(db, ReportFile, ajustes(), hospedeiro);
  hospedeiro.inicia(registro.codigo);
  registro.escreve(execucao, registro);
  hospedeiro.conclui(registro.codigo, execucao.linhas(), execucao.completa());
}

void CotepeManager::escreve(const char* codigo, cotepe::Hospedeiro& hospedeiro) {
  escreve(*cotepe::registroDe(codigo), hospedeiro);
}

void CotepeManager::formataData(char* src, char* dst) { cotepe::formataData(src, dst); }
void CotepeManager::formataHora(char* src, char* dst) { cotepe::formataHora(src, dst); }
int CotepeManager::RoundInteger(double x) { return cotepe::arredonda(x); }

char* CotepeManager::CharRemove(char* s, char c) {
  cotepe::removeCaractere(s, c);
  return s;
}

char* CotepeManager::CharReplace(char* s, char from, char to) {
  cotepe::trocaCaractere(s, from, to);
  return s;
}

char* CotepeManager::CharRemoveNonAscii(char* s) {
  cotepe::trocaNaoAscii(s);
  return s;
}
