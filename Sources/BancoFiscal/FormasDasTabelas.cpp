#include "BancoFiscal/FormasDasTabelas.h"

#include "Idioma/Idioma.h"

namespace cotepe {
namespace {

constexpr FormaDaColuna texto(const char* nome) { return {nome, FormaDoValor::Texto}; }
constexpr FormaDaColuna usado(const char* nome) { return {nome, FormaDoValor::TextoUsado}; }
constexpr FormaDaColuna inteiro(const char* nome) { return {nome, FormaDoValor::Inteiro}; }
constexpr FormaDaColuna casas(const char* nome) { return {nome, FormaDoValor::Casas}; }
constexpr FormaDaColuna dinheiro(const char* nome) { return {nome, FormaDoValor::Dinheiro}; }
constexpr FormaDaColuna decimal(const char* nome) { return {nome, FormaDoValor::Decimal}; }
constexpr FormaDaColuna data(const char* nome) { return {nome, FormaDoValor::DataHora}; }
constexpr FormaDaColuna dataOuNulo(const char* nome) { return {nome, FormaDoValor::DataHora, true}; }
constexpr FormaDaColuna letra(const char* nome) { return {nome, FormaDoValor::Letra}; }
constexpr FormaDaColuna simNao(const char* nome) { return {nome, FormaDoValor::SimNao}; }
constexpr FormaDaColuna naoImpressa(const char* nome) { return {nome, FormaDoValor::NaoImpressa, true}; }

// A period takes its documents through their reductions. The reductions and detail tapes themselves, and all
// small tables, are checked row by row: a row that is outside its period by mistake must be found too.
constexpr char kDaReducao[] =
    "cont_crz IN (SELECT cont_crz FROM reducao_z WHERE data_movimento >= ?1 AND data_movimento <= ?2)";
constexpr char kDoCupomFiscal[] =
    "cont_coo IN (SELECT cont_coo FROM cupom_fiscal WHERE cont_crz IN (SELECT cont_crz FROM reducao_z"
    " WHERE data_movimento >= ?1 AND data_movimento <= ?2))";
constexpr char kDoCupomNf[] =
    "cont_coo IN (SELECT cont_coo FROM cupom_nf WHERE cont_crz IN (SELECT cont_crz FROM reducao_z"
    " WHERE data_movimento >= ?1 AND data_movimento <= ?2))";
constexpr char kDeUmCupom[] =
    "(cont_coo IN (SELECT cont_coo FROM cupom_fiscal WHERE cont_crz IN (SELECT cont_crz FROM reducao_z"
    " WHERE data_movimento >= ?1 AND data_movimento <= ?2))"
    " OR cont_coo IN (SELECT cont_coo FROM cupom_nf WHERE cont_crz IN (SELECT cont_crz FROM reducao_z"
    " WHERE data_movimento >= ?1 AND data_movimento <= ?2)))";

}  // namespace

// clang-format off
const std::array<FormaDaTabela, 20> kFormas = {{
    {"dados_ecf", "num_serie", 1, 1, nullptr, {{
        texto("num_serie"), texto("modelo"), texto("tipo"), texto("marca"), inteiro("num_caixa")}}},
    {"dados_usuario", "seq_usuario", 1, 1, nullptr, {{
        inteiro("seq_usuario"), {"cnpj", FormaDoValor::Cnpj}, usado("ie"), texto("razao_social"),
        texto("endereco"), dataOuNulo("data_hora_gravacao"), inteiro("cont_cro"), dinheiro("valor_gt")}}},
    {"versao_sb", "num_sequencia", 1, 0, nullptr, {{
        texto("versao"), dataOuNulo("data_hora_gravacao"), inteiro("num_sequencia")}}},
    {"tentativas_sb", "0", 0, 0, nullptr, {{
        inteiro("number"), naoImpressa("version"), data("date-time")}}, true},
    {"codificacao_gt", "data_hora_gravacao", 0, 1, nullptr, {{
        dataOuNulo("data_hora_gravacao"), texto("codificacao")}}},
    {"moeda", "data_hora_gravacao", 0, 1, nullptr, {{
        dataOuNulo("data_hora_gravacao"), texto("simbolo_moeda")}}},
    {"intervencao", "cont_cro", 0, 0, nullptr, {{
        inteiro("cont_cro"), dataOuNulo("data_hora_intervencao"), simNao("id_perda_dados_mt"),
        letra("id_tipo_intervencao"), inteiro("cont_crz"), inteiro("cont_coo")}}},
    {"fita_detalhe", "cont_cfd", 0, 0, nullptr, {{
        inteiro("cont_cfd"), data("data_hora_emissao"), inteiro("coo_inicial"), inteiro("coo_final")}}},
    {"posicao_totalizadores_contadores", "", 1, 1, nullptr, {{
        inteiro("cont_crz"), inteiro("cont_cro"), inteiro("cont_coo"), inteiro("cont_gnf"), inteiro("cont_ccf"),
        inteiro("cont_grg"), inteiro("cont_cfd"), dinheiro("valor_gt")}}},
    {"reducao_z", "cont_crz", 0, 0, nullptr, {{
        inteiro("cont_crz"), inteiro("cont_coo"), inteiro("cont_cro"), data("data_movimento"),
        dataOuNulo("data_hora_emissao"), dinheiro("valor_vb"), dinheiro("valor_gt")}}},
    {"totalizador_reducao", "cont_crz,totalizador", 0, 0, kDaReducao, {{
        inteiro("cont_crz"), usado("totalizador"), dinheiro("valor_base_calculo"), simNao("id_fiscal")}}},
    {"meio_pagamento_reducao", "cont_crz,descricao_meio_pagamento", 0, 0, kDaReducao, {{
        inteiro("cont_crz"), usado("descricao_meio_pagamento"), decimal("valor_acumulado")}}},
    {"cupom_fiscal", "cont_coo", 0, 0, kDaReducao, {{
        inteiro("cont_ccf"), inteiro("cont_coo"), inteiro("cont_crz"), data("data_hora_emissao"),
        dinheiro("valor_subtotal"), dinheiro("valor_desconto"), dinheiro("valor_acrescimo"), dinheiro("valor_total"),
        dinheiro("valor_canc_acrescimo"), simNao("id_cancelado"), usado("nome_consumidor"),
        {"cpf_cnpj_consumidor", FormaDoValor::CpfOuCnpj}, naoImpressa("tipo_acrescimo"), naoImpressa("tipo_desconto"),
        naoImpressa("perc_desconto"), naoImpressa("perc_acrescimo"), texto("texto_suplementar"),
        texto("texto_complementar"), texto("assinatura_documento")}}},
    {"item_cupom_fiscal", "cont_coo,seq_item", 0, 0, kDoCupomFiscal, {{
        inteiro("cont_coo"), inteiro("seq_item"), texto("cod_item"), usado("descricao"),
        decimal("quantidade"), texto("un_medida"), decimal("valor_unitario"), decimal("valor_desconto"),
        decimal("valor_acrescimo"), dinheiro("valor_total"), dinheiro("valor_canc_acrescimo"), texto("aliquota"),
        simNao("id_cancelado"), letra("id_arred_trunc_valor"), casas("casas_decimais_quantidade"),
        casas("casas_decimais_valor"), naoImpressa("perc_acrescimo"), naoImpressa("perc_desconto")}}},
    {"outros_documentos", "cont_coo", 0, 0, kDaReducao, {{
        inteiro("cont_coo"), inteiro("cont_gnf"), inteiro("cont_grg"), inteiro("cont_cdc"), inteiro("cont_crz"),
        {"id_tipo_documento", FormaDoValor::TipoDeDocumento}, data("data_hora_fim_emissao")}}},
    {"cupom_nf", "cont_coo", 0, 0, kDaReducao, {{
        inteiro("cont_coo"), inteiro("cont_gnf"), inteiro("cont_crz"), dataOuNulo("data_hora_emissao"),
        dinheiro("valor_subtotal"), dinheiro("valor_desconto"), dinheiro("valor_acrescimo"),
        dinheiro("valor_total_cupom"), dinheiro("valor_canc_acrescimo"), simNao("id_cancelado"),
        letra("tipo_acrescimo"), letra("tipo_desconto"), usado("nome_consumidor"),
        {"cpf_cnpj_consumidor", FormaDoValor::CpfOuCnpj}}}},
    {"item_cupom_nf", "cont_coo,seq_item", 0, 0, kDoCupomNf, {{
        inteiro("cont_coo"), inteiro("seq_item"), inteiro("indice_totalizador_nf"), dinheiro("valor_total"),
        dinheiro("valor_desconto"), dinheiro("valor_acrescimo"), dinheiro("valor_total_liquido"),
        dinheiro("valor_canc_acrescimo"), simNao("id_cancelado")}}},
    {"totalizador_nao_fiscal", "num_indice", 0, 0, nullptr, {{inteiro("num_indice"), usado("descricao")}}},
    {"pagamento_cupom", "cont_coo,indice_meio_pagamento", 0, 0, kDeUmCupom, {{
        inteiro("cont_coo"), inteiro("indice_meio_pagamento"), dinheiro("valor_pagamento"),
        dinheiro("valor_estornado"), simNao("id_estornado")}}},
    {"meio_pagamento", "num_indice", 0, 0, nullptr, {{inteiro("num_indice"), usado("descricao")}}},
}};

const std::array<UsoDaColuna, 15> kUsos = {{
    {"versao_sb", "num_sequencia", Uso::Maximo},
    {"intervencao", "cont_cro", Uso::Ordena},
    {"fita_detalhe", "cont_cfd", Uso::Ordena},
    {"posicao_totalizadores_contadores", "valor_gt", Uso::Maximo},
    {"reducao_z", "cont_crz", Uso::Ordena},
    {"reducao_z", "valor_gt", Uso::Maximo},
    {"totalizador_reducao", "cont_crz", Uso::Ordena},
    {"meio_pagamento_reducao", "cont_crz", Uso::Ordena},
    {"cupom_fiscal", "cont_ccf", Uso::Ordena},
    {"cupom_fiscal", "cont_coo", Uso::Ordena},
    {"item_cupom_fiscal", "seq_item", Uso::Ordena},
    {"outros_documentos", "cont_coo", Uso::Ordena},
    {"cupom_nf", "cont_gnf", Uso::Ordena},
    {"cupom_nf", "cont_coo", Uso::Ordena},
    {"item_cupom_nf", "seq_item", Uso::Ordena},
}};

const std::array<Ligacao, 10> kLigacoes = {{
    {"totalizador_reducao", "cont_crz", "reducao_z", "cont_crz", nullptr},
    {"meio_pagamento_reducao", "cont_crz", "reducao_z", "cont_crz", nullptr},
    {"cupom_fiscal", "cont_crz", "reducao_z", "cont_crz", nullptr},
    {"outros_documentos", "cont_crz", "reducao_z", "cont_crz", nullptr},
    {"cupom_nf", "cont_crz", "reducao_z", "cont_crz", nullptr},
    {"item_cupom_fiscal", "cont_coo", "cupom_fiscal", "cont_coo", nullptr},
    {"item_cupom_nf", "cont_coo", "cupom_nf", "cont_coo", nullptr},
    {"pagamento_cupom", "cont_coo", "cupom_fiscal", "cont_coo", "cupom_nf"},
    {"item_cupom_nf", "indice_totalizador_nf", "totalizador_nao_fiscal", "num_indice", nullptr},
    {"pagamento_cupom", "indice_meio_pagamento", "meio_pagamento", "num_indice", nullptr},
}};

constexpr const char* kDobraVersao =
    marca("E01 takes each of them for the current version, and the line grows");
constexpr const char* kDobraDocumentos =
    marca("every total and document of it is written once for each of them");
constexpr const char* kDobraItens = marca("every item and payment of it is written once for each of them");
constexpr const char* kDobraNome = marca("every record that names it is written once for each of them");
constexpr const char* kRepete = marca("two records have the same counter");
constexpr const char* kRepeteTotalizador =
    marca("two records have the same totalizer, or one where their amounts are the same too");
constexpr const char* kRepeteMeio = marca("two records have the same means of payment");

const std::array<Unicidade, 16> kUnicidades = {{
    {"versao_sb", "num_sequencia", kDobraVersao},
    {"intervencao", "cont_cro", kRepete},
    {"fita_detalhe", "cont_cfd", kRepete},
    {"reducao_z", "cont_crz", kDobraDocumentos},
    {"totalizador_reducao", "cont_crz,totalizador", kRepeteTotalizador},
    {"meio_pagamento_reducao", "cont_crz,descricao_meio_pagamento", kRepeteMeio},
    {"cupom_fiscal", "cont_coo", kDobraItens},
    {"cupom_fiscal", "cont_ccf", kRepete},
    {"item_cupom_fiscal", "cont_coo,seq_item", kRepete},
    {"outros_documentos", "cont_coo", kRepete},
    {"outros_documentos", "cont_gnf", kRepete, "CAST(cont_gnf AS INTEGER) <> 0"},
    {"cupom_nf", "cont_coo", kDobraItens},
    {"cupom_nf", "cont_gnf", kRepete},
    {"item_cupom_nf", "cont_coo,seq_item", kRepete},
    {"totalizador_nao_fiscal", "num_indice", kDobraNome},
    {"meio_pagamento", "num_indice", kDobraNome},
}};

const std::array<BuscaPorColuna, 14> kBuscas = {{
    {"reducao_z", "data_movimento"},
    {"reducao_z", "cont_crz"},
    {"totalizador_reducao", "cont_crz"},
    {"meio_pagamento_reducao", "cont_crz"},
    {"cupom_fiscal", "cont_crz"},
    {"cupom_fiscal", "cont_coo"},
    {"item_cupom_fiscal", "cont_coo"},
    {"outros_documentos", "cont_crz"},
    {"cupom_nf", "cont_crz"},
    {"cupom_nf", "cont_coo"},
    {"item_cupom_nf", "cont_coo"},
    {"pagamento_cupom", "cont_coo"},
    {"totalizador_nao_fiscal", "num_indice"},
    {"meio_pagamento", "num_indice"},
}};
// clang-format on

}  // namespace cotepe
