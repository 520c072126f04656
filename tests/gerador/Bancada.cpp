#include "Bancada.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <map>

#include "GravaLog.h"
#include "Identidade.h"
#include "RtcClasses.h"
#include "TabelasSoltas.h"

std::vector<std::string> g_mensagens;
void (*g_aoRegistrar)() = nullptr;
std::string g_carimbo;

void Quorvel_GravaLog(char* mensagem) {
  g_mensagens.emplace_back(mensagem);
  if (g_aoRegistrar != nullptr) g_aoRegistrar();
}

// The clock must be read before it is printed.
void RtcAbsoluteTime::GetCurrentDateTime() { tm_.tm_year = 124; }
void RtcAbsoluteTime::ToStrDateTime(char* /*dateFormat*/, char* /*timeFormat*/, char* out) {
  std::strcpy(out, tm_.tm_year == 124 ? g_carimbo.c_str() : "");
}

namespace {

std::string conteudo(FILE* arquivo) {
  std::string texto;
  std::array<char, 4096> bloco;
  std::rewind(arquivo);
  for (std::size_t n = 0; (n = std::fread(bloco.data(), 1, bloco.size(), arquivo)) > 0;)
    texto.append(bloco.data(), n);
  return texto;
}

}  // namespace

void CotepeManagerTest::escreve(CotepeManager& gerador, const std::string& codigo, FILE* relatorio) {
  static const std::map<std::string, void (CotepeManager::*)()> kEscritores = {
      {"E01", &CotepeManager::TipoE01}, {"E02", &CotepeManager::TipoE02}, {"E03", &CotepeManager::TipoE03},
      {"E04", &CotepeManager::TipoE04}, {"E05", &CotepeManager::TipoE05}, {"E06", &CotepeManager::TipoE06},
      {"E07", &CotepeManager::TipoE07}, {"E08", &CotepeManager::TipoE08}, {"E09", &CotepeManager::TipoE09},
      {"E10", &CotepeManager::TipoE10}, {"E11", &CotepeManager::TipoE11}, {"E12", &CotepeManager::TipoE12},
      {"E13", &CotepeManager::TipoE13}, {"E14", &CotepeManager::TipoE14}, {"E15", &CotepeManager::TipoE15},
      {"E16", &CotepeManager::TipoE16}, {"E17", &CotepeManager::TipoE17}, {"E18", &CotepeManager::TipoE18},
      {"E19", &CotepeManager::TipoE19}, {"E20", &CotepeManager::TipoE20}, {"E21", &CotepeManager::TipoE21},
      {"E22", &CotepeManager::TipoE22}};
  gerador.ReportFile = relatorio;
  (gerador.*kEscritores.at(codigo))();
  gerador.ReportFile = nullptr;
}

std::string CotepeManagerTest::periodo(CotepeManager& gerador, const char* inicial, const char* final) {
  gerador.fixaPeriodo(inicial, final);
  return std::string(gerador.dataHoraInicial) + " / " + gerador.dataHoraFinal;
}

std::string CotepeManagerTest::formataData(CotepeManager& gerador, const std::string& texto) {
  std::string origem = texto;
  char destino[9];
  gerador.formataData(origem.data(), destino);
  return {destino, sizeof destino};
}

std::string CotepeManagerTest::formataHora(CotepeManager& gerador, const std::string& texto) {
  std::string origem = texto;
  char destino[7];
  gerador.formataHora(origem.data(), destino);
  return {destino, sizeof destino};
}

std::string CotepeManagerTest::charRemove(CotepeManager& gerador, std::string texto, char c) {
  return gerador.CharRemove(texto.data(), c);
}

std::string CotepeManagerTest::charReplace(CotepeManager& gerador, std::string texto, char de, char para) {
  return gerador.CharReplace(texto.data(), de, para);
}

std::string CotepeManagerTest::charRemoveNonAscii(CotepeManager& gerador, std::string texto) {
  return gerador.CharRemoveNonAscii(texto.data());
}

void CotepeManagerTest::fixaIdentidade(CotepeManager& gerador, const char* nrFabricacao, const char* modelo,
                                       const char* usuario, const char* comando) {
  std::snprintf(gerador.nrFabricacao, sizeof gerador.nrFabricacao, "%s", nrFabricacao);
  std::snprintf(gerador.modelo, sizeof gerador.modelo, "%s", modelo);
  std::snprintf(gerador.usuario, sizeof gerador.usuario, "%s", usuario);
  std::snprintf(gerador.comando, sizeof gerador.comando, "%s", comando);
  gerador.m_iCountSize = gerador.m_iVersaoAtoCotepe == 1 ? 6 : 9;
  gerador.m_iDivCount = gerador.m_iVersaoAtoCotepe == 1 ? 1000000 : 1000000000;
}

Bancada::Bancada() : gerador_(banco_.aberto()) {
  g_mensagens.clear();
  g_aoRegistrar = nullptr;
  g_carimbo = "20240131 235959";
  g_Serial[0] = g_Modelo[0] = g_Tipo[0] = g_VersaoSB[0] = '\0';
  sql(cotepe::testes::kTabelasSoltas);
}

void Bancada::sql(const std::string& texto) { banco_.sql(texto); }

void Bancada::comIdentidade() {
  sql("INSERT INTO dados_ecf VALUES('SERIAL','MODELO','ECF-IF','MARCA','1');"
      "INSERT INTO dados_usuario(seq_usuario, cnpj) VALUES('1','12345678000190')");
}

Bancada& Bancada::versao(int v) {
  gerador_.setVersaoAtoCotepe(v);
  return *this;
}

Bancada& Bancada::cat52(bool ligado) {
  gerador_.setCAT52(ligado);
  return *this;
}

Bancada& Bancada::periodo(const std::string& inicial, const std::string& final) {
  inicial_ = inicial;
  final_ = final;
  return *this;
}

std::vector<std::string> Bancada::gera(const std::string& comando) {
  char nome[] = "relatorio-XXXXXX";
  const int descritor = mkstemp(nome);
  EXPECT_GE(descritor, 0);
  close(descritor);
  resultado = gerador_.GeraRegistrosTipoE(nome, inicial_.c_str(), final_.c_str(), comando.c_str());
  FILE* arquivo = std::fopen(nome, "rb");
  if (arquivo == nullptr) return {};
  const std::string texto = conteudo(arquivo);
  std::fclose(arquivo);
  unlink(nome);
  return linhasDe(texto);
}

std::vector<std::string> Bancada::registro(const std::string& codigo, const std::string& comando) {
  CotepeManagerTest::fixaIdentidade(gerador_, "SERIAL", "MODELO", "1", comando.c_str());
  CotepeManagerTest::periodo(gerador_, inicial_.c_str(), final_.c_str());
  FILE* arquivo = std::tmpfile();
  CotepeManagerTest::escreve(gerador_, codigo, arquivo);
  const std::string texto = conteudo(arquivo);
  std::fclose(arquivo);
  return linhasDe(texto);
}

std::string Bancada::linha(const std::string& codigo, const std::string& comando) {
  const auto linhas = registro(codigo, comando);
  EXPECT_EQ(linhas.size(), 1U);
  return linhas.empty() ? "" : linhas.front();
}

std::vector<std::string> linhasDe(const std::string& texto) {
  std::vector<std::string> linhas;
  std::size_t inicio = 0;
  for (std::size_t fim; (fim = texto.find('\n', inicio)) != std::string::npos; inicio = fim + 1)
    linhas.push_back(texto.substr(inicio, fim - inicio));
  EXPECT_EQ(inicio, texto.size()) << "the last line has no end";
  return linhas;
}

std::string posicoes(const std::string& linha, std::size_t de, std::size_t ate) {
  return linha.size() < de ? "" : linha.substr(de - 1, ate - de + 1);
}

std::string preenchido(const std::string& texto, std::size_t largura) {
  return texto.size() >= largura ? texto : texto + brancos(largura - texto.size());
}

std::string brancos(std::size_t quantos) { return std::string(quantos, ' '); }

std::string cabecalho(const std::string& codigo) {
  return codigo + "SERIAL              " + " " + "MODELO              ";
}

std::string cabecalhoDoUsuario(const std::string& codigo) { return cabecalho(codigo) + "01"; }
