// What must match between tables, and what must exist once.
#include <algorithm>

#include "Achados/Citacao.h"
#include "Conferencia/Partes.h"
#include "Idioma/Idioma.h"

namespace cotepe {

const Regra conferencia::kSemReducao{
    "no-reduction", Severidade::Erro,
    marca("A document or total belongs to a Z reduction, or to the day after the last one."),
    marca("store the reduction, or correct the counter")};
const Regra conferencia::kSemDocumento{"no-document", Severidade::Erro,
                                       marca("An item or payment belongs to a coupon."),
                                       marca("store the coupon, or correct the counter")};
const Regra conferencia::kSemTotalizador{"no-totalizer", Severidade::Erro,
                                         marca("The totalizer of a non-fiscal item is registered."),
                                         marca("register the totalizer")};
const Regra conferencia::kSemMeio{"no-means", Severidade::Erro,
                                  marca("The means of a payment is registered."),
                                  marca("register the means of payment")};
const Regra conferencia::kRepetido{"counter-repeat", Severidade::Erro,
                                   marca("A counter or key is used once."),
                                   marca("leave one of the rows, or correct the counter")};
const Regra conferencia::kDoisCupons{
    "two-coupons", Severidade::Erro,
    marca("A COO is that of a fiscal or of a non-fiscal coupon, not of both."),
    marca("correct the counter of one of them")};

namespace {

const Regra& regraDaLigacao(const std::string& alvo) {
  if (alvo == "reducao_z") return conferencia::kSemReducao;
  if (alvo == "totalizador_nao_fiscal") return conferencia::kSemTotalizador;
  if (alvo == "meio_pagamento") return conferencia::kSemMeio;
  return conferencia::kSemDocumento;
}

const char* chaveDa(const std::string& tabela) {
  const auto* const forma =
      std::find_if(kFormas.begin(), kFormas.end(), [&](const FormaDaTabela& f) { return tabela == f.nome; });
  return forma->chave;
}

std::string ausenteDe(const std::string& coluna, const std::string& alvo, const std::string& colunaDoAlvo) {
  return coluna + " NOT IN (SELECT " + colunaDoAlvo + " FROM " + alvo + " WHERE " + colunaDoAlvo +
         " IS NOT NULL)";
}

// The existing columns of the row's key; null texts when there are none.
std::vector<std::string> chavePresente(const Contexto& contexto, const std::string& tabela) {
  std::vector<std::string> nomes;
  for (const std::string& nome : separa(chaveDa(tabela)))
    if (contexto.tem(tabela, nome)) nomes.push_back(nome);
  return nomes;
}

std::string sqlDaLigacao(const Ligacao& ligacao, const std::vector<std::string>& chave) {
  std::string sql = std::string("SELECT ") + ligacao.coluna;
  for (const std::string& nome : chave) sql += ", " + nome;
  sql += std::string(" FROM ") + ligacao.tabela + " WHERE " +
         ausenteDe(ligacao.coluna, ligacao.alvo, ligacao.colunaDoAlvo);
  if (ligacao.outroAlvo != nullptr)
    sql += " AND " + ausenteDe(ligacao.coluna, ligacao.outroAlvo, ligacao.colunaDoAlvo);
  // The open day's documents come before their reduction.
  if (std::string_view(ligacao.alvo) == "reducao_z")
    sql += std::string(" AND CAST(") + ligacao.coluna +
           " AS INTEGER) <> (SELECT ifnull(max(CAST(cont_crz AS INTEGER)), 0) + 1 FROM reducao_z)";
  return sql;
}

std::string chaveDaLinha(const Pergunta& pergunta, const std::vector<std::string>& chave) {
  std::string texto;
  for (std::size_t i = 0; i < chave.size(); ++i)
    texto += (i == 0 ? "" : ",") + chave[i] + '=' + legivel(pergunta.texto(static_cast<int>(i) + 1));
  return texto;
}

bool possivel(const Contexto& contexto, const Ligacao& ligacao) {
  return contexto.lida(ligacao.tabela) && contexto.tem(ligacao.tabela, ligacao.coluna) &&
         contexto.tem(ligacao.alvo, ligacao.colunaDoAlvo) &&
         (ligacao.outroAlvo == nullptr || contexto.tem(ligacao.outroAlvo, ligacao.colunaDoAlvo));
}

void confereLigacao(const Contexto& contexto, const Ligacao& ligacao) {
  const Regra& regra = regraDaLigacao(ligacao.alvo);
  if (!contexto.ligada(regra) || !possivel(contexto, ligacao)) return;
  const std::string leitores = contexto.leitores(ligacao.tabela, ligacao.coluna);
  const std::vector<std::string> chave = chavePresente(contexto, ligacao.tabela);
  const std::string esperado = ligacao.outroAlvo == nullptr
                                   ? frase("one of {1}", {ligacao.alvo})
                                   : frase("one of {1} or {2}", {ligacao.alvo, ligacao.outroAlvo});
  Pergunta pergunta(contexto.banco(), sqlDaLigacao(ligacao, chave));
  while (pergunta.avanca())
    contexto.relata(regra, {ligacao.tabela, chaveDaLinha(pergunta, chave), ligacao.coluna}, leitores, nullptr,
                    frase("{1}, with which the row is left out without a word", {citado(pergunta.texto(0))}),
                    esperado);
}

void confereUnico(const Contexto& contexto, const Unicidade& unicidade) {
  const std::vector<std::string> colunas = separa(unicidade.colunas);
  if (!contexto.lida(unicidade.tabela) ||
      !std::all_of(colunas.begin(), colunas.end(),
                   [&](const std::string& coluna) { return contexto.tem(unicidade.tabela, coluna); }))
    return;
  std::string lista;
  for (const std::string& coluna : colunas) lista += ", " + coluna;
  Pergunta pergunta(contexto.banco(),
                    "SELECT count(*)" + lista + " FROM " + unicidade.tabela + " WHERE " + colunas[0] +
                        " IS NOT NULL" +
                        (unicidade.quais == nullptr ? "" : std::string(" AND ") + unicidade.quais) +
                        " GROUP BY " + unicidade.colunas + " HAVING count(*) > 1");
  while (pergunta.avanca())
    contexto.relata(
        conferencia::kRepetido, {unicidade.tabela, chaveDaLinha(pergunta, colunas), colunas.back()},
        contexto.leitores(unicidade.tabela, colunas[0]), nullptr,
        frase("{1} rows: {2}", {pergunta.texto(0), traduz(unicidade.consequencia)}), traduz("one"));
}

// Payments join the coupons of both kinds by the same counter.
void confereDoisCupons(const Contexto& contexto) {
  if (!contexto.ligada(conferencia::kDoisCupons) || !contexto.lida("pagamento_cupom") ||
      !contexto.tem("cupom_fiscal", "cont_coo") || !contexto.tem("cupom_nf", "cont_coo"))
    return;
  Pergunta pergunta(contexto.banco(),
                    "SELECT cont_coo FROM cupom_nf WHERE cont_coo IN (SELECT cont_coo FROM cupom_fiscal)");
  while (pergunta.avanca())
    contexto.relata(conferencia::kDoisCupons,
                    {"cupom_nf", "cont_coo=" + legivel(pergunta.texto(0)), "cont_coo"},
                    contexto.leitores("pagamento_cupom", "cont_coo"), nullptr,
                    traduz("a row of cupom_fiscal with the same counter: every payment of it is written for "
                           "both"),
                    traduz("a counter of its own"));
}

// Fiscal coupons and other documents are numbered by the same counter.
void confereCooUnico(const Contexto& contexto) {
  if (!contexto.ligada(conferencia::kRepetido) || !contexto.lida("outros_documentos") ||
      !contexto.tem("cupom_fiscal", "cont_coo") || !contexto.tem("outros_documentos", "cont_coo"))
    return;
  Pergunta pergunta(
      contexto.banco(),
      "SELECT cont_coo FROM outros_documentos WHERE cont_coo IN (SELECT cont_coo FROM cupom_fiscal)");
  while (pergunta.avanca())
    contexto.relata(conferencia::kRepetido,
                    {"outros_documentos", "cont_coo=" + legivel(pergunta.texto(0)), "cont_coo"},
                    contexto.leitores("outros_documentos", "cont_coo"), nullptr,
                    traduz("a row of cupom_fiscal with the same counter: two records have the same counter"),
                    traduz("a counter of its own"));
}

// E13 writes the sum of what is not fiscal, which may be wider than its field even if no part of it is.
void confereSomaNaoFiscal(const Contexto& contexto) {
  const std::vector<Destino> destinos =
      destinosDe("totalizador_reducao", "valor_base_calculo", contexto.opcoes().alcance);
  const auto e13 = std::find_if(destinos.begin(), destinos.end(), [](const Destino& destino) {
    return std::string_view(destino.registro->codigo) == "E13";
  });
  if (!contexto.ligada(conferencia::kNumeroLargo) || e13 == destinos.end()) return;
  for (const char* coluna : {"cont_crz", "valor_base_calculo", "id_fiscal"})
    if (!contexto.tem("totalizador_reducao", coluna)) return;
  const int inteiros = e13->campo->largura - 2;
  Pergunta pergunta(contexto.banco(),
                    "SELECT cont_crz, sum(valor_base_calculo) AS soma FROM totalizador_reducao"
                    " WHERE id_fiscal = 'N' GROUP BY cont_crz HAVING count(*) > 1 AND soma >= 1e" +
                        std::to_string(inteiros));
  while (pergunta.avanca())
    contexto.relata(conferencia::kNumeroLargo,
                    {"totalizador_reducao", "cont_crz=" + legivel(pergunta.texto(0)), "valor_base_calculo"},
                    "", &*e13, frase("{1}, the sum of what is not fiscal", {citado(pergunta.texto(1))}),
                    fraseDe("a sum of at most {n} digit before the point",
                            "a sum of at most {n} digits before the point", inteiros));
}

}  // namespace

void confereLigacoes(const Contexto& contexto) {
  for (const Ligacao& ligacao : kLigacoes) confereLigacao(contexto, ligacao);
}

void confereUnicidade(const Contexto& contexto) {
  if (contexto.ligada(conferencia::kRepetido))
    for (const Unicidade& unicidade : kUnicidades) confereUnico(contexto, unicidade);
  confereDoisCupons(contexto);
  confereCooUnico(contexto);
  confereSomaNaoFiscal(contexto);
}

}  // namespace cotepe
