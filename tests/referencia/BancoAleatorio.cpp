// Random fiscal databases: the tables, and how many rows they get.
#include "referencia/BancoAleatorio.h"

#include <stdexcept>
#include <string>
#include <vector>

#include "referencia/Sorteio.h"

namespace referencia {
// clang-format off
const std::vector<Tabela>& tabelas() {
  using T = Tipo;
  static const std::vector<Tabela> kTabelas = {
      {"dados_ecf", 1,
       {{"num_serie", T::Serie}, {"modelo", T::Serie}, {"tipo", T::Nome}, {"marca", T::Serie},
        {"num_caixa", T::NumeroDoCaixa}}},
      {"dados_usuario", 1,
       {{"seq_usuario", T::Sequencia}, {"cnpj", T::Cnpj}, {"ie", T::InscricaoEstadual},
        {"razao_social", T::Descricao}, {"endereco", T::Descricao}, {"data_hora_gravacao", T::DataHora},
        {"cont_cro", T::Contador}, {"valor_gt", T::Dinheiro}}},
      {"versao_sb", 2,
       {{"versao", T::Nome}, {"data_hora_gravacao", T::DataHora}, {"num_sequencia", T::Sequencia}}},
      {"tentativas_sb", 2,
       {{"numero", T::Contador}, {"tipo", T::Nome}, {"data_hora", T::DataHora}, {"extra", T::DataHora}}},
      {"codificacao_gt", 1, {{"data_hora_gravacao", T::DataHora}, {"codificacao", T::Nome}}},
      {"moeda", 1, {{"data_hora_gravacao", T::DataHora}, {"simbolo_moeda", T::Nome}}},
      {"intervencao", 2,
       {{"cont_cro", T::Contador}, {"data_hora_intervencao", T::DataHora}, {"id_perda_dados_mt", T::Flag},
        {"id_tipo_intervencao", T::TipoIntervencao}, {"cont_crz", T::Contador}, {"cont_coo", T::Contador}}},
      {"fita_detalhe", 3,
       {{"cont_cfd", T::Contador}, {"data_hora_emissao", T::DataMovimento}, {"coo_inicial", T::Contador},
        {"coo_final", T::Contador}}},
      {"posicao_totalizadores_contadores", 1,
       {{"cont_crz", T::Contador}, {"cont_cro", T::Contador}, {"cont_coo", T::Contador},
        {"cont_gnf", T::Contador}, {"cont_ccf", T::Contador}, {"cont_grg", T::Contador},
        {"cont_cfd", T::Contador}, {"valor_gt", T::Dinheiro}}},
      {"reducao_z", 4,
       {{"cont_crz", T::Crz}, {"cont_coo", T::Contador}, {"cont_cro", T::Contador},
        {"data_movimento", T::DataMovimento}, {"data_hora_emissao", T::DataHora}, {"valor_vb", T::Dinheiro},
        {"valor_gt", T::Dinheiro}}},
      {"totalizador_reducao", 10,
       {{"cont_crz", T::Crz}, {"totalizador", T::Totalizador}, {"valor_base_calculo", T::Dinheiro},
        {"id_fiscal", T::Flag}}},
      {"meio_pagamento_reducao", 4,
       {{"cont_crz", T::Crz}, {"descricao_meio_pagamento", T::Nome}, {"valor_acumulado", T::Decimal}}},
      {"cupom_fiscal", 6,
       {{"cont_ccf", T::Contador}, {"cont_coo", T::Coo}, {"cont_crz", T::Crz}, {"data_hora_emissao", T::DataHora},
        {"valor_subtotal", T::Dinheiro}, {"valor_desconto", T::Dinheiro}, {"valor_acrescimo", T::Dinheiro},
        {"valor_total", T::Dinheiro}, {"valor_canc_acrescimo", T::Dinheiro}, {"id_cancelado", T::Flag},
        {"nome_consumidor", T::Descricao}, {"cpf_cnpj_consumidor", T::Cnpj}, {"tipo_acrescimo", T::TipoValor},
        {"tipo_desconto", T::TipoValor}, {"perc_desconto", T::Dinheiro}, {"perc_acrescimo", T::Dinheiro},
        {"texto_suplementar", T::TextoLongo}, {"texto_complementar", T::Descricao},
        {"assinatura_documento", T::Descricao}}},
      {"item_cupom_fiscal", 8,
       {{"cont_coo", T::Coo}, {"seq_item", T::Sequencia}, {"cod_item", T::Nome}, {"descricao", T::Descricao},
        {"quantidade", T::Decimal}, {"valor_unitario", T::Decimal}, {"un_medida", T::Flag},
        {"valor_desconto", T::Decimal}, {"valor_acrescimo", T::Decimal}, {"valor_total", T::Dinheiro},
        {"valor_canc_acrescimo", T::Dinheiro}, {"aliquota", T::Totalizador}, {"id_cancelado", T::Flag},
        {"id_arred_trunc_valor", T::Flag}, {"casas_decimais_quantidade", T::Casas},
        {"casas_decimais_valor", T::Casas}, {"perc_acrescimo", T::Dinheiro}, {"perc_desconto", T::Dinheiro}}},
      {"outros_documentos", 5,
       {{"cont_coo", T::Coo}, {"cont_gnf", T::Contador}, {"cont_grg", T::Contador}, {"cont_cdc", T::Contador},
        {"cont_crz", T::Crz}, {"id_tipo_documento", T::TipoDocumento}, {"data_hora_fim_emissao", T::DataHora}}},
      {"cupom_nf", 4,
       {{"cont_coo", T::Coo}, {"cont_gnf", T::Contador}, {"cont_crz", T::Crz}, {"data_hora_emissao", T::DataHora},
        {"valor_subtotal", T::Dinheiro}, {"valor_desconto", T::Dinheiro}, {"valor_acrescimo", T::Dinheiro},
        {"valor_total_cupom", T::Dinheiro}, {"valor_canc_acrescimo", T::Dinheiro}, {"id_cancelado", T::Flag},
        {"tipo_acrescimo", T::TipoValor}, {"tipo_desconto", T::TipoValor}, {"nome_consumidor", T::Descricao},
        {"cpf_cnpj_consumidor", T::Cnpj}}},
      {"item_cupom_nf", 6,
       {{"cont_coo", T::Coo}, {"seq_item", T::Sequencia}, {"indice_totalizador_nf", T::Indice},
        {"valor_total", T::Dinheiro}, {"valor_desconto", T::Dinheiro}, {"valor_acrescimo", T::Dinheiro},
        {"valor_total_liquido", T::Dinheiro}, {"valor_canc_acrescimo", T::Dinheiro}, {"id_cancelado", T::Flag}}},
      {"totalizador_nao_fiscal", 4, {{"num_indice", T::Indice}, {"descricao", T::Nome}}},
      {"pagamento_cupom", 6,
       {{"cont_coo", T::Coo}, {"indice_meio_pagamento", T::Indice}, {"valor_pagamento", T::Dinheiro},
        {"valor_estornado", T::Dinheiro}, {"id_estornado", T::Flag}}},
      {"meio_pagamento", 4, {{"num_indice", T::Indice}, {"descricao", T::Nome}}},
  };
  return kTabelas;
}
// clang-format on

namespace {

void executa(sqlite3* banco, const std::string& sql) {
  if (sqlite3_exec(banco, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sql + ": " + sqlite3_errmsg(banco));
}

// How much goes wrong in one database, in hundredths.
struct Sujeira {
  int valores = 0;
  int tabelaAusente = 0;
  int colunaAusente = 0;
};

Sujeira sorteiaSujeira(Sorteio& sorteio, Nivel nivel) {
  if (nivel == Nivel::Limpo) return {};
  Sujeira sujeira;
  sujeira.valores = sorteio.escolhe<int>({2, 10, 35});
  if (sorteio.umaEm(8)) sujeira.tabelaAusente = 6;
  if (sorteio.umaEm(8)) sujeira.colunaAusente = 2;
  return sujeira;
}

// Most tables get about their usual number of rows; some are empty, some have one, some twice as many.
int quantasLinhas(Sorteio& sorteio, const Tabela& tabela) {
  switch (sorteio.entre(1, 10)) {
    case 1:
      return 0;
    case 2:
      return 1;
    case 3:
      return tabela.linhas * 2;
    default:
      return tabela.linhas;
  }
}

std::vector<Coluna> criaTabela(sqlite3* banco, Sorteio& sorteio, const Tabela& tabela, int colunaAusente) {
  std::vector<Coluna> colunas;
  std::string nomes;
  for (const Coluna& coluna : tabela.colunas) {
    if (sorteio.porCento(colunaAusente)) continue;
    nomes += (colunas.empty() ? "" : ", ") + std::string(coluna.nome);
    colunas.push_back(coluna);
  }
  if (colunas.empty()) return colunas;
  executa(banco, "CREATE TABLE " + std::string(tabela.nome) + " (" + nomes + ")");
  return colunas;
}

void insereLinha(sqlite3* banco, sqlite3_stmt* stmt, const std::vector<Valor>& valores) {
  int posicao = 0;
  for (const Valor& valor : valores)
    if (valor.liga(stmt, ++posicao) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(banco));
  const int passo = sqlite3_step(stmt);
  if (sqlite3_reset(stmt) != SQLITE_OK || passo != SQLITE_DONE)
    throw std::runtime_error(sqlite3_errmsg(banco));
}

void preencheTabela(sqlite3* banco, Sorteio& sorteio, const Tabela& tabela,
                    const std::vector<Coluna>& colunas, int sujeira) {
  std::string parametros = "?";
  for (std::size_t i = 1; i < colunas.size(); i++) parametros += ", ?";
  const std::string sql = "INSERT INTO " + std::string(tabela.nome) + " VALUES (" + parametros + ")";
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(banco, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(banco));

  for (int linha = quantasLinhas(sorteio, tabela); linha > 0; linha--) {
    std::vector<Valor> valores;
    for (const Coluna& coluna : colunas) {
      const Valor bom = valorLimpo(sorteio, coluna.tipo);
      valores.push_back(sorteio.porCento(sujeira) ? valorHostil(sorteio, bom) : bom);
    }
    insereLinha(banco, stmt, valores);
  }
  sqlite3_finalize(stmt);
}

}  // namespace

void criaBancoAleatorio(sqlite3* banco, std::uint64_t semente, Nivel nivel) {
  Sorteio sorteio(semente);
  const Sujeira sujeira = sorteiaSujeira(sorteio, nivel);
  if (nivel == Nivel::Sujo && sorteio.umaEm(40)) executa(banco, "PRAGMA encoding = 'UTF-16'");
  executa(banco, "BEGIN");
  for (const Tabela& tabela : tabelas()) {
    if (sorteio.porCento(sujeira.tabelaAusente)) continue;
    const std::vector<Coluna> colunas = criaTabela(banco, sorteio, tabela, sujeira.colunaAusente);
    if (!colunas.empty()) preencheTabela(banco, sorteio, tabela, colunas, sujeira.valores);
  }
  executa(banco, "COMMIT");
}

}  // namespace referencia
