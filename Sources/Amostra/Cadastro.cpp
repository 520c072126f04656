#include "Amostra/Cadastro.h"

#include <string>

#include "Amostra/Digitos.h"

namespace cotepe::loja {
namespace {

constexpr int kManha = 9 * 3600;

void gravaImpressora(sqlite3* banco, Aleatorio& aleatorio, int instalacao) {
  const auto serie = "ZZ01" + std::to_string(1000000000 + aleatorio.entre(0, 99999999)) + "000001";
  Insercao(banco, "dados_ecf(num_serie, modelo, tipo, marca, num_caixa)")
      .grava(serie, "MODELO 1 FI", "ECF-IF", "MARCA DE AMOSTRA", aleatorio.entre(1, 20));
  Insercao(banco, "codificacao_gt(data_hora_gravacao, codificacao)")
      .grava(texto(dataHora(instalacao, kManha)), "FISCALPRTE");
  Insercao(banco,
           "intervencao(cont_cro, data_hora_intervencao, id_perda_dados_mt, id_tipo_intervencao, cont_crz, "
           "cont_coo)")
      .grava(1, texto(dataHora(instalacao, kManha)), "N", "F", 0, 0);
  Insercao(banco, "moeda(data_hora_gravacao, simbolo_moeda)")
      .grava(texto(dataHora(instalacao, kManha)), "R$");
}

void gravaUsuario(sqlite3* banco, Aleatorio& aleatorio, int instalacao) {
  const auto cnpj = sorteiaCnpj(aleatorio);
  Insercao(
      banco,
      "dados_usuario(seq_usuario, cnpj, ie, razao_social, endereco, data_hora_gravacao, cont_cro, valor_gt)")
      .grava(1, cnpj, "110.042.490-11", "MERCADO E POSTO SERRA AZUL LTDA",
             "RUA DAS PALMEIRAS, 1200 - CENTRO - SERRA AZUL", texto(dataHora(instalacao, kManha + 600)), 1,
             dinheiro(0));
}

void gravaSoftware(sqlite3* banco, int instalacao, int atualizacao) {
  Insercao versoes(banco, "versao_sb(versao, data_hora_gravacao, num_sequencia)");
  versoes.grava("01.00.00", texto(dataHora(instalacao, kManha - 600)), 1);
  versoes.grava("01.00.01", texto(dataHora(atualizacao, kManha + 1200)), 2);
  Insercao tentativas(banco, "tentativas_sb(num_tentativa, versao, data_hora, resultado)");
  tentativas.grava(1, "01.00.01", texto(dataHora(atualizacao, kManha + 300)), "RECUSADA");
  tentativas.grava(2, "01.00.01", texto(dataHora(atualizacao, kManha + 1200)), "GRAVADA");
}

template <class Nomes>
void gravaNomes(sqlite3* banco, std::string_view alvo, const Nomes& nomes) {
  Insercao insercao(banco, alvo);
  int indice = 0;
  for (const auto& nome : nomes) insercao.grava(++indice, nome);
}

}  // namespace

void gravaCadastro(sqlite3* banco, Aleatorio& aleatorio, int primeiroDia) {
  const int instalacao = primeiroDia - 730;
  gravaImpressora(banco, aleatorio, instalacao);
  gravaUsuario(banco, aleatorio, instalacao);
  gravaSoftware(banco, instalacao, primeiroDia - 200);
  gravaNomes(banco, "meio_pagamento(num_indice, descricao)", kMeios);
  gravaNomes(banco, "totalizador_nao_fiscal(num_indice, descricao)", kNaoFiscais);
}

void gravaPosicao(sqlite3* banco, const Ecf& ecf) {
  const ContadoresDoEcf& contadores = ecf.contadores();
  Insercao(banco,
           "posicao_totalizadores_contadores(cont_crz, cont_cro, cont_coo, cont_gnf, cont_ccf, cont_grg, "
           "cont_cfd, "
           "valor_gt)")
      .grava(contadores.crz, contadores.cro, contadores.coo, contadores.gnf, contadores.ccf, contadores.grg,
             contadores.cfd, dinheiro(ecf.grandeTotal()));
}

}  // namespace cotepe::loja
