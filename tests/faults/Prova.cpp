#include "Prova.h"

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): mkdtemp

#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "Amostra/Amostra.h"
#include "Geracao.h"
#include "PreencheComChar.h"
#include "referencia/Referencia.h"

namespace fs = std::filesystem;

namespace {

constexpr char kCarimbo[] = "20240131 235959";
constexpr char kInicial[] = "01012024", kFinal[] = "31012024";

constexpr const char* kTabelas[] = {
    "dados_ecf",       "dados_usuario",       "versao_sb",
    "tentativas_sb",   "codificacao_gt",      "moeda",
    "intervencao",     "fita_detalhe",        "posicao_totalizadores_contadores",
    "reducao_z",       "totalizador_reducao", "meio_pagamento_reducao",
    "cupom_fiscal",    "item_cupom_fiscal",   "outros_documentos",
    "cupom_nf",        "item_cupom_nf",       "totalizador_nao_fiscal",
    "pagamento_cupom", "meio_pagamento"};

// Appends the rows of one table; false when it cannot be read to its end.
bool acrescentaTabela(sqlite3* banco, const std::string& tabela, std::string& texto) {
  sqlite3_stmt* leitura = nullptr;
  sqlite3_prepare_v2(banco, ("SELECT * FROM " + tabela + " NOT INDEXED").c_str(), -1, &leitura, nullptr);
  int passo = sqlite3_step(leitura);
  for (; passo == SQLITE_ROW; passo = sqlite3_step(leitura)) {
    for (int coluna = 0; coluna < sqlite3_column_count(leitura); ++coluna) {
      const void* bytes = sqlite3_column_blob(leitura, coluna);
      const auto quantos = static_cast<std::size_t>(sqlite3_column_bytes(leitura, coluna));
      texto += std::to_string(sqlite3_column_type(leitura, coluna)) + ':' + std::to_string(quantos) + ':';
      if (bytes != nullptr) texto.append(static_cast<const char*>(bytes), quantos);
    }
    texto += '\n';
  }
  sqlite3_finalize(leitura);
  return passo == SQLITE_DONE;
}

// Keeps what a run says; the linked host would not be told of E02, whose search for a total logs nothing.
class Ouvinte final : public cotepe::Hospedeiro {
 public:
  explicit Ouvinte(Corrida& corrida) : corrida_(corrida) {}
  void registraLog(const char* mensagem) override { corrida_.mensagens.emplace_back(mensagem); }
  const char* serial() override { return ""; }
  const char* modelo() override { return ""; }
  const char* tipo() override { return ""; }
  void preenche(char* texto, char* destino, int largura) override {
    PreencheComChar(texto, destino, largura, ' ', 1);
  }
  void dataHoraAtual(char* saida) override { std::strcpy(saida, kCarimbo); }
  void conclui(const char* registro, long /*linhas*/, bool completo) override {
    if (!completo) corrida_.incompletos.emplace_back(registro);
  }

 private:
  Corrida& corrida_;
};

}  // namespace

PastaDeProva::PastaDeProva() {
  const fs::path onde = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
  nome_ = (onde / "cotepe-prova-XXXXXX").string();
  EXPECT_NE(mkdtemp(nome_.data()), nullptr);
}

PastaDeProva::~PastaDeProva() {
  std::error_code ignorado;
  fs::remove_all(nome_, ignorado);
}

std::string leBytes(const std::string& caminho) {
  std::ostringstream bytes;
  bytes << std::ifstream(caminho, std::ios::binary).rdbuf();
  return bytes.str();
}

void escreveBytes(const std::string& caminho, const std::string& bytes) {
  std::ofstream(caminho, std::ios::binary | std::ios::trunc) << bytes;
}

std::string semCarimbo(std::string relatorio) {
  constexpr std::size_t kOnde = 122, kQuantos = 14;
  const auto e11 = relatorio.find("\nE11");
  if (e11 != std::string::npos && relatorio.size() > e11 + 1 + kOnde + kQuantos)
    relatorio.replace(e11 + 1 + kOnde, kQuantos, kQuantos, '0');
  return relatorio;
}

BancoAberto::BancoAberto(const std::string& caminho, const char* sistema, int modo) {
  EXPECT_EQ(sqlite3_open_v2(caminho.c_str(), &banco_, modo, sistema), SQLITE_OK) << caminho;
}

int BancoAberto::tenta(const std::string& texto) const {
  return sqlite3_exec(banco_, texto.c_str(), nullptr, nullptr, nullptr);
}

void BancoAberto::sql(const std::string& texto) const {
  EXPECT_EQ(tenta(texto), SQLITE_OK) << texto << ": " << sqlite3_errmsg(banco_);
}

void criaBancoDeProva(const std::string& caminho, int bytesDaPagina) {
  cotepe::OpcoesDaAmostra opcoes;
  opcoes.dias = 2;
  opcoes.cuponsPorDia = 3;
  cotepe::criaBancoDeAmostra(caminho, opcoes);
  const BancoAberto banco(caminho);
  banco.sql("UPDATE tentativas_sb SET resultado = printf('%.*c', 5000, 'r'); PRAGMA page_size = " +
            std::to_string(bytesDaPagina) +
            "; VACUUM; CREATE TABLE sobra(x); INSERT INTO sobra VALUES (zeroblob(12 * " +
            std::to_string(bytesDaPagina) + ")); DROP TABLE sobra");
}

Corrida corre(sqlite3* banco, const Escolha& escolha, const std::string& relatorio) {
  Corrida corrida;
  Ouvinte ouvinte(corrida);
  cotepe::Geracao geracao(banco, ouvinte);
  geracao.setVersaoAtoCotepe(escolha.versao);
  corrida.resultado = geracao.gera(relatorio.c_str(), kInicial, kFinal, escolha.comando);
  corrida.relatorio = leBytes(relatorio);
  return corrida;
}

Corrida correReferencia(sqlite3* banco, const Escolha& escolha) {
  referencia::Entrada entrada;
  entrada.versao = escolha.versao;
  entrada.inicial = kInicial;
  entrada.final = kFinal;
  entrada.comando = escolha.comando;
  entrada.dataHoraDoSistema = kCarimbo;
  const referencia::Saida saida = referencia::gera(banco, entrada);
  return {saida.codigo, saida.arquivo, saida.log, {}};
}

std::string linhasDoBanco(sqlite3* banco) {
  std::string texto;
  for (const char* tabela : kTabelas)
    if (!acrescentaTabela(banco, tabela, texto)) return {};
  return texto;
}

bool integro(sqlite3* banco) {
  sqlite3_stmt* leitura = nullptr;
  sqlite3_prepare_v2(banco, "PRAGMA integrity_check(1)", -1, &leitura, nullptr);
  const bool sim = sqlite3_step(leitura) == SQLITE_ROW &&
                   std::string(reinterpret_cast<const char*>(sqlite3_column_text(leitura, 0))) == "ok";
  sqlite3_finalize(leitura);
  return sim;
}

Veredito julga(sqlite3* banco, const Escolha& escolha, const std::string& relatorio, const std::string& certo,
               const std::string& linhas) {
  const Corrida corrida = corre(banco, escolha, relatorio);
  const Corrida segunda = correReferencia(banco, escolha);
  EXPECT_EQ(corrida.resultado, segunda.resultado);
  EXPECT_EQ(corrida.mensagens, segunda.mensagens);
  EXPECT_TRUE(corrida.relatorio == segunda.relatorio) << "the two readings of the file differ";
  if (corrida.avisou()) return Veredito::Avisado;
  if (corrida.relatorio == certo) return Veredito::Certo;
  EXPECT_TRUE(linhasDoBanco(banco) != linhas || !integro(banco)) << "a wrong report and no message";
  return Veredito::OutroBanco;
}
