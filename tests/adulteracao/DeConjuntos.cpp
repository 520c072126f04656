// Changes that agree with each other: what a person does who wants to hide a sale.
#include "Adulterado.h"

namespace cotepe {
namespace {

constexpr std::int64_t kParcela = 100;  // one real

std::vector<std::size_t> doCoo(const Adulterado& relatorio, const std::string& registro, std::int64_t coo) {
  std::vector<std::size_t> linhas;
  for (const std::size_t linha : relatorio.de(registro))
    if (relatorio.numero(linha, "coo") == coo) linhas.push_back(linha);
  return linhas;
}

/// A coupon that is not cancelled, with items and payments.
bool cupom(const Adulterado& relatorio, int vez, std::size_t& linha) {
  std::vector<std::size_t> bons;
  for (const std::size_t l : relatorio.de("E14")) {
    const std::int64_t coo = relatorio.numero(l, "coo");
    if (relatorio.campo(l, "cancelado") == "N" && doCoo(relatorio, "E15", coo).size() > 1 &&
        !doCoo(relatorio, "E21", coo).empty())
      bons.push_back(l);
  }
  if (bons.empty()) return false;
  linha = escolhe(bons, vez);
  return true;
}

void removeDoCoo(Adulterado& relatorio, const std::string& registro, std::int64_t coo) {
  const auto linhas = doCoo(relatorio, registro, coo);
  for (auto i = linhas.rbegin(); i != linhas.rend(); ++i) relatorio.remove(*i);
}

bool removeCupomInteiro(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  const std::int64_t coo = relatorio.numero(linha, "coo");
  for (const std::size_t l : relatorio.de("E12")) relatorio.culpa(l);
  for (const char* registro : {"E21", "E15", "E14"}) removeDoCoo(relatorio, registro, coo);
  return true;
}

bool removeItens(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  relatorio.culpa(linha);
  removeDoCoo(relatorio, "E15", relatorio.numero(linha, "coo"));
  return true;
}

bool removePagamentos(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  relatorio.culpa(linha);
  removeDoCoo(relatorio, "E21", relatorio.numero(linha, "coo"));
  return true;
}

bool removeUltimoItem(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  relatorio.culpa(linha);
  relatorio.remove(doCoo(relatorio, "E15", relatorio.numero(linha, "coo")).back());
  return true;
}

bool trocaItemDeCupom(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  const std::int64_t coo = relatorio.numero(linha, "coo");
  const auto itens = doCoo(relatorio, "E15", coo);
  relatorio.culpa(linha);
  return relatorio.soma(itens.back(), "coo", 1);
}

/// Less sold, and less paid: the coupon agrees with itself, the day with nothing.
bool baixaCupom(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  const std::int64_t coo = relatorio.numero(linha, "coo");
  for (const std::size_t l : relatorio.de("E12")) relatorio.culpa(l);
  for (const std::size_t l : relatorio.de("E13")) relatorio.culpa(l);
  return relatorio.soma(linha, "subtotal", -kParcela) &&
         relatorio.soma(linha, "valor_total_liquido", -kParcela) &&
         relatorio.soma(doCoo(relatorio, "E15", coo).front(), "valor_total_liquido", -kParcela) &&
         relatorio.soma(doCoo(relatorio, "E21", coo).front(), "valor_pago", -kParcela);
}

/// A sale cancelled afterwards.
bool cancelaCupom(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::size_t linha = 0;
  if (!cupom(relatorio, vez, linha)) return false;
  for (const std::size_t l : relatorio.de("E12")) relatorio.culpa(l);
  for (const std::size_t l : relatorio.de("E13")) relatorio.culpa(l);
  for (const std::size_t l : doCoo(relatorio, "E15", relatorio.numero(linha, "coo"))) relatorio.culpa(l);
  return relatorio.poe(linha, "cancelado", "S");
}

std::vector<std::size_t> daReducao(const Adulterado& relatorio, const std::string& registro,
                                   std::int64_t crz) {
  std::vector<std::size_t> linhas;
  for (const std::size_t linha : relatorio.de(registro))
    if (relatorio.numero(linha, "crz") == crz) linhas.push_back(linha);
  return linhas;
}

void removeDaReducao(Adulterado& relatorio, const std::string& registro, std::int64_t crz) {
  const auto linhas = daReducao(relatorio, registro, crz);
  for (auto i = linhas.rbegin(); i != linhas.rend(); ++i) relatorio.remove(*i);
}

bool removeReducao(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  const auto reducoes = relatorio.de("E12");
  if (reducoes.size() < 3) return false;
  const std::int64_t crz = relatorio.numero(escolhe(reducoes, vez), "crz");
  for (const char* registro : {"E18", "E17", "E13", "E12"}) removeDaReducao(relatorio, registro, crz);
  relatorio.culpa(0);
  return true;
}

/// Less sold on a day, in the reduction and in its totalizer alike.
bool baixaODia(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  const auto reducoes = relatorio.de("E12");
  if (reducoes.empty() || relatorio.de("E14").empty()) return false;
  const std::size_t reducao = escolhe(reducoes, vez);
  for (const std::size_t linha : daReducao(relatorio, "E13", relatorio.numero(reducao, "crz")))
    if (relatorio.numero(linha, "valor_acumulado") > kParcela &&
        relatorio.campo(linha, "totalizador_parcial")[2] == 'T')
      return relatorio.soma(linha, "valor_acumulado", -kParcela) &&
             relatorio.soma(reducao, "venda_bruta_diaria", -kParcela);
  return false;
}

bool trocaTotalizadores(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::vector<std::size_t> pares;
  const auto linhas = relatorio.de("E13");
  for (std::size_t i = 0; i + 1 < linhas.size(); ++i)
    if (relatorio.numero(linhas[i], "crz") == relatorio.numero(linhas[i + 1], "crz") &&
        relatorio.numero(linhas[i], "valor_acumulado") != relatorio.numero(linhas[i + 1], "valor_acumulado"))
      pares.push_back(linhas[i]);
  if (pares.empty() || relatorio.de("E15").empty()) return false;
  const std::size_t linha = escolhe(pares, vez);
  const std::string um = relatorio.campo(linha, "valor_acumulado"),
                    outro = relatorio.campo(linha + 1, "valor_acumulado");
  return relatorio.poe(linha, "valor_acumulado", outro) && relatorio.poe(linha + 1, "valor_acumulado", um);
}

bool moveTributo(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::vector<std::size_t> tributados;
  std::string isento;
  for (const std::size_t l : relatorio.de("E13"))
    if (relatorio.campo(l, "totalizador_parcial")[0] == 'I')
      isento = relatorio.campo(l, "totalizador_parcial");
  for (const std::size_t l : relatorio.de("E15"))
    if (relatorio.campo(l, "totalizador_parcial").find('T') == 2 && relatorio.campo(l, "cancelado") == "N")
      tributados.push_back(l);
  if (tributados.empty() || isento.empty()) return false;
  for (const std::size_t l : relatorio.de("E13")) relatorio.culpa(l);
  return relatorio.poe(escolhe(tributados, vez), "totalizador_parcial", isento);
}

bool outroMeio(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  std::vector<std::size_t> dinheiro;
  for (const std::size_t l : relatorio.de("E21"))
    if (relatorio.campo(l, "meio_pagamento") == "DINHEIRO       ") dinheiro.push_back(l);
  if (dinheiro.empty() || relatorio.de("E18").empty()) return false;
  for (const std::size_t l : relatorio.de("E18")) relatorio.culpa(l);
  return relatorio.poe(escolhe(dinheiro, vez), "meio_pagamento", "CARTAO CREDITO");
}

bool trocaDatas(Adulterado& relatorio, int vez, const Classe& /*classe*/) {
  const auto reducoes = relatorio.de("E12");
  if (reducoes.size() < 3) return false;
  const std::size_t linha =
      vez == 2 ? reducoes[reducoes.size() - 2] : escolhe({reducoes[0], reducoes[1]}, vez);
  const std::string um = relatorio.campo(linha, "data_movimento"),
                    outro = relatorio.campo(linha + 1, "data_movimento");
  return relatorio.poe(linha, "data_movimento", outro) && relatorio.poe(linha + 1, "data_movimento", um);
}

}  // namespace

std::vector<Classe> classesDeConjuntos() {
  return {{"a coupon with its items and payments gone", removeCupomInteiro, "", "", 0, ""},
          {"the items of a coupon gone", removeItens, "", "", 0, ""},
          {"the payments of a coupon gone", removePagamentos, "", "", 0, ""},
          {"the last item of a coupon gone", removeUltimoItem, "", "", 0, ""},
          {"an item moved to the next COO", trocaItemDeCupom, "", "", 0, ""},
          {"a coupon of one real less, paid alike", baixaCupom, "", "", 0, ""},
          {"a sale cancelled afterwards", cancelaCupom, "", "", 0, ""},
          {"a reduction with its totals gone", removeReducao, "", "", 0, ""},
          {"a day of one real less, totalized alike", baixaODia, "", "", 0, ""},
          {"two totalizers with each other's amount", trocaTotalizadores, "", "", 0, ""},
          {"a taxed item moved to the exempt ones", moveTributo, "", "", 0, ""},
          {"a payment in cash told as one by card", outroMeio, "", "", 0, ""},
          {"two reductions with each other's day", trocaDatas, "", "", 0, ""}};
}

}  // namespace cotepe
