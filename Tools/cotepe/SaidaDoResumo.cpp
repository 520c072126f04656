#include "SaidaDoResumo.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <vector>

#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"
#include "Leitor/Valor.h"

namespace cotepe::programa {
namespace {

using nlohmann::ordered_json;

std::string decimal(Centavos centavos) {
  const bool negativo = centavos < 0;
  std::string digitos = std::to_string(centavos).substr(negativo ? 1 : 0);
  if (digitos.size() < 3) digitos.insert(0, 3 - digitos.size(), '0');
  return (negativo ? "-" : "") + digitos.insert(digitos.size() - 2, ".");
}

std::string reais(Centavos centavos) {
  const std::string sem = decimal(centavos < 0 ? -(centavos + 1) + 1 : centavos);
  return (centavos < 0 ? "-" : "") + comMilhares(sem);
}

std::string data(const std::string& aaaammdd) {
  if (aaaammdd.size() == 6) return aaaammdd.substr(0, 4) + '-' + aaaammdd.substr(4);
  if (aaaammdd.size() != 8) return aaaammdd;
  return aaaammdd.substr(0, 4) + '-' + aaaammdd.substr(4, 2) + '-' + aaaammdd.substr(6);
}

std::string oculto(const std::string& texto, bool mascara) {
  return mascara ? mascarado(texto) : emUtf8(texto);
}

std::map<std::string, Movimento> movimentos(const ResumoDoRelatorio& resumo, const OpcoesDoResumo& opcoes) {
  return opcoes.porMes ? resumo.meses() : resumo.dias;
}

// What the reductions say if there are any, otherwise the coupons.
const Valores& valores(const Movimento& movimento) {
  return movimento.comReducao ? movimento.dasReducoes : movimento.dosCupons;
}

std::size_t caracteres(const std::string& texto) {
  return static_cast<std::size_t>(std::count_if(
      texto.begin(), texto.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// Cells in columns: the first one to the left, the others to the right.
void escreveTabela(std::ostream& saida, const std::vector<std::vector<std::string>>& linhas) {
  std::vector<std::size_t> larguras;
  for (const auto& linha : linhas)
    for (std::size_t i = 0; i < linha.size(); ++i) {
      if (i == larguras.size()) larguras.push_back(0);
      larguras[i] = std::max(larguras[i], caracteres(linha[i]));
    }
  for (const auto& linha : linhas) {
    for (std::size_t i = 0; i < linha.size(); ++i) {
      const std::string brancos(larguras[i] - caracteres(linha[i]), ' ');
      saida << "  " << (i == 0 ? linha[i] + (linha.size() > 1 ? brancos : "") : brancos + linha[i]);
    }
    saida << '\n';
  }
}

std::vector<std::string> linhaDo(const std::string& quando, const Movimento& movimento) {
  const Valores& v = valores(movimento);
  return {quando,
          reais(v.bruta),
          reais(v.descontos),
          reais(v.cancelamentos),
          reais(v.liquida),
          contado(movimento.cupons),
          reais(movimento.media())};
}

void escreveQuem(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                 bool mascara) {
  const Identificacao& i = resumo.identificacao;
  saida << nome << ": "
        << frase("command {1}, layout {2}, {3} to {4}",
                 {i.comando, std::to_string(resumo.leiaute.versao), data(i.dataInicial), data(i.dataFinal)})
        << '\n';
  saida << "  " << frase("printer {1}, {2} {3}", {emUtf8(i.fabricacao), emUtf8(i.marca), emUtf8(i.modelo)})
        << '\n';
  saida << "  " << frase("user {1}, CNPJ {2}", {oculto(i.razaoSocial, mascara), oculto(i.cnpj, mascara)})
        << '\n';
}

void escreveRegistros(std::ostream& saida, const ResumoDoRelatorio& resumo) {
  constexpr int kPorLinha = 8;
  std::string texto;
  int quantos = 0;
  for (std::size_t i = 0; i < kCatalogo.size(); ++i) {
    if (resumo.registros[i] == 0) continue;
    if (quantos > 0) texto += quantos % kPorLinha == 0 ? ",\n    " : ", ";
    texto += std::string(kCatalogo[i]->codigo) + ' ' + contado(resumo.registros[i]);
    ++quantos;
  }
  saida << "  "
        << fraseDe("{1} record: {2}", "{1} records: {2}", resumo.linhas, {contado(resumo.linhas), texto})
        << '\n';
}

std::string faixaEmTexto(const Faixa& faixa) {
  return faixa.de == faixa.ate ? std::to_string(faixa.de)
                               : std::to_string(faixa.de) + '-' + std::to_string(faixa.ate);
}

std::string lacunasEmTexto(const Sequencia& sequencia) {
  constexpr std::size_t kMostradas = 5;
  const std::vector<Faixa> lacunas = sequencia.lacunas();
  if (lacunas.empty()) return traduz("without gaps");
  std::string texto;
  for (std::size_t i = 0; i < std::min(kMostradas, lacunas.size()); ++i)
    texto += (i == 0 ? "" : ", ") + faixaEmTexto(lacunas[i]);
  if (lacunas.size() > kMostradas)
    texto += frase(" and {1} more", {contado(static_cast<long long>(lacunas.size() - kMostradas))});
  return frase("missing: {1}", {texto});
}

void escreveContadores(std::ostream& saida, const Movimento& total) {
  std::vector<std::vector<std::string>> linhas;
  const auto contador = [&linhas](const char* nome, const Sequencia& sequencia) {
    if (!sequencia.vazia())
      linhas.push_back({nome + (' ' + std::to_string(sequencia.primeiro())) + '-' +
                        std::to_string(sequencia.ultimo()) + ", " + lacunasEmTexto(sequencia)});
  };
  contador("CRZ", total.crz);
  contador("COO", total.coo);
  contador("CCF", total.ccf);
  contador("GNF", total.gnf);
  if (linhas.empty()) return;
  saida << '\n' << traduz("Counters") << '\n';
  escreveTabela(saida, linhas);
}

ordered_json objetoDo(const Valores& v) {
  return {{"gross", v.bruta},
          {"discounts", v.descontos},
          {"surcharges", v.acrescimos},
          {"cancellations", v.cancelamentos},
          {"net", v.liquida}};
}

ordered_json objetoDo(const Movimento& m) {
  ordered_json objeto;
  objeto["reductions"] = m.reducoes;
  if (m.comReducao) objeto["of_reductions"] = objetoDo(m.dasReducoes);
  objeto["of_coupons"] = objetoDo(m.dosCupons);
  objeto["coupons"] = m.cupons;
  objeto["coupons_cancelled"] = m.cuponsCancelados;
  objeto["items"] = m.itens;
  objeto["average"] = m.media();
  return objeto;
}

ordered_json objetoDa(const Sequencia& sequencia) {
  if (sequencia.vazia()) return nullptr;
  ordered_json lacunas = ordered_json::array();
  for (const Faixa& faixa : sequencia.lacunas()) lacunas.push_back({faixa.de, faixa.ate});
  return {{"first", sequencia.primeiro()}, {"last", sequencia.ultimo()}, {"missing", std::move(lacunas)}};
}

std::string emCsv(const std::string& texto) {
  if (texto.find_first_of("\",\r\n") == std::string::npos) return texto;
  std::string citado = "\"";
  for (const char c : texto) citado += c == '"' ? std::string("\"\"") : std::string(1, c);
  return citado + '"';
}

}  // namespace

void escreveResumo(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                   const std::string& validacao, const OpcoesDoResumo& opcoes) {
  escreveQuem(saida, nome, resumo, opcoes.mascara);
  escreveRegistros(saida, resumo);
  if (!validacao.empty()) saida << "  " << validacao << '\n';

  std::vector<std::vector<std::string>> linhas = {{traduz(opcoes.porMes ? marca("Month") : marca("Day")),
                                                   traduz("gross"), traduz("discounts"), traduz("cancelled"),
                                                   traduz("net"), traduz("coupons"), traduz("average")}};
  for (const auto& [quando, movimento] : movimentos(resumo, opcoes))
    linhas.push_back(linhaDo(data(quando), movimento));
  linhas.push_back(linhaDo(traduz("total"), resumo.total));
  saida << '\n';
  escreveTabela(saida, linhas);

  std::vector<std::vector<std::string>> impostos = {
      {traduz("Tax code"), traduz("in reductions"), traduz("of items")}};
  for (const auto& [codigo, totalizador] : resumo.totalizadores)
    if (deImposto(codigo))
      impostos.push_back({emUtf8(codigo), reais(totalizador.acumulado), reais(totalizador.dosItens)});
  std::vector<std::vector<std::string>> meios = {
      {traduz("Means of payment"), traduz("in reductions"), traduz("paid"), traduz("reversed")}};
  for (const auto& [meio, valor] : resumo.meios)
    meios.push_back({emUtf8(meio), reais(valor.acumulado), reais(valor.pago), reais(valor.estornado)});
  for (const auto* tabela : {&impostos, &meios}) {
    if (tabela->size() == 1) continue;
    saida << '\n';
    escreveTabela(saida, *tabela);
  }
  escreveContadores(saida, resumo.total);
}

void escreveResumoJson(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                       const OpcoesDoResumo& opcoes) {
  const Identificacao& i = resumo.identificacao;
  ordered_json objeto = {{"file", emUtf8(nome)},
                         {"command", emUtf8(i.comando)},
                         {"layout", resumo.leiaute.versao},
                         {"serial", emUtf8(i.fabricacao)},
                         {"model", emUtf8(i.modelo)},
                         {"user", oculto(i.razaoSocial, opcoes.mascara)},
                         {"cnpj", oculto(i.cnpj, opcoes.mascara)},
                         {"first_day", data(i.dataInicial)},
                         {"last_day", data(i.dataFinal)},
                         {"lines", resumo.linhas}};
  for (std::size_t r = 0; r < kCatalogo.size(); ++r)
    if (resumo.registros[r] > 0) objeto["records"][kCatalogo[r]->codigo] = resumo.registros[r];
  objeto["total"] = objetoDo(resumo.total);
  for (const auto& [quando, movimento] : movimentos(resumo, opcoes))
    objeto[opcoes.porMes ? "months" : "days"][data(quando)] = objetoDo(movimento);
  for (const auto& [codigo, t] : resumo.totalizadores)
    objeto["totalizers"][emUtf8(codigo)] = {{"reductions", t.acumulado}, {"items", t.dosItens}};
  for (const auto& [meio, m] : resumo.meios)
    objeto["payments"][emUtf8(meio)] = {
        {"reductions", m.acumulado}, {"paid", m.pago}, {"reversed", m.estornado}};
  objeto["counters"] = {{"crz", objetoDa(resumo.total.crz)},
                        {"coo", objetoDa(resumo.total.coo)},
                        {"ccf", objetoDa(resumo.total.ccf)},
                        {"gnf", objetoDa(resumo.total.gnf)}};
  saida << objeto.dump() << '\n';
}

void escreveCabecalhoCsv(std::ostream& saida) {
  saida << "file,day,gross,discounts,surcharges,cancellations,net,coupons,coupons_cancelled,average\n";
}

void escreveResumoCsv(std::ostream& saida, const std::string& nome, const ResumoDoRelatorio& resumo,
                      const OpcoesDoResumo& opcoes) {
  for (const auto& [quando, movimento] : movimentos(resumo, opcoes)) {
    const Valores& v = valores(movimento);
    saida << emCsv(nome) << ',' << data(quando) << ',' << decimal(v.bruta) << ',' << decimal(v.descontos)
          << ',' << decimal(v.acrescimos) << ',' << decimal(v.cancelamentos) << ',' << decimal(v.liquida)
          << ',' << movimento.cupons << ',' << movimento.cuponsCancelados << ',' << decimal(movimento.media())
          << '\n';
  }
}

}  // namespace cotepe::programa
