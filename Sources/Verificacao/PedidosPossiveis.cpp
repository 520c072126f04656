#include "Verificacao/PedidosPossiveis.h"

#include "Consulta.h"
#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

constexpr char kDiaSemNada[] = "0001-01-01";

Dia diaDe(const std::string& iso) { return *Dia::le(iso); }

std::string comHifens(const std::string& aaaammdd) {
  return aaaammdd.substr(0, 4) + '-' + aaaammdd.substr(4, 2) + '-' + aaaammdd.substr(6, 2);
}

// The last day of movement of a report whose E12 does not show it: that of E01's last reduction, which the
// database knows. E01 itself shows only when that was issued, often after midnight.
std::string ultimoMovimento(sqlite3* banco, const AjustesDoRelatorio& lidos) {
  if (lidos.ultimoCrz.empty() || lidos.primeiro.empty() || lidos.ultimaEmissao.empty()) return {};
  Consulta consulta(
      banco, "SELECT MAX(SUBSTR(data_movimento, 1, 10)) FROM reducao_z WHERE data_movimento >= '" +
                 comHifens(lidos.primeiro) + "' AND data_hora_emissao <= '" + comHifens(lidos.ultimaEmissao) +
                 " 23:59:59' AND CAST(cont_crz AS INTEGER) % 1000000 = " + lidos.ultimoCrz);
  return consulta.avanca() ? consulta.texto(0) : "";
}

Dia ultimoDia(sqlite3* banco, const AjustesDoRelatorio& lidos) {
  const std::string hifens = lidos.ultimo.empty() ? kDiaSemNada : comHifens(lidos.ultimo);
  const std::optional<Dia> movimento = Dia::le(ultimoMovimento(banco, lidos));
  const Dia ultimo = diaDe(hifens);
  return movimento && ultimo < *movimento ? *movimento : ultimo;
}

std::string diaEmPalavras(const Dia& dia) { return dia.iso() == kDiaSemNada ? traduz("no day") : dia.iso(); }

std::string leiauteEmPalavras(const AjusteDoLeiaute& leiaute) {
  return frase(leiaute.cat52 ? marca("layout {1} with CAT52 on") : marca("layout {1} with CAT52 off"),
               {std::to_string(leiaute.versao)});
}

// A setting and where it comes from. `certo`: no other is possible.
std::string pedidoEmPalavras(const std::string& valor, bool dado, bool certo = true) {
  if (dado) return frase("{1} (given)", {valor});
  return frase(certo ? marca("{1} (derived)") : marca("{1} (taken, it makes no difference)"), {valor});
}

}  // namespace

std::vector<PedidoDeGeracao> pedidosPossiveis(sqlite3* banco, const AjustesDoRelatorio& lidos,
                                              const PedidoParcial& dado) {
  const Dia de = dado.de.value_or(diaDe(lidos.primeiro.empty() ? kDiaSemNada : comHifens(lidos.primeiro)));
  const Dia ate = dado.ate ? *dado.ate : ultimoDia(banco, lidos);
  const std::string comando = dado.comando.empty() ? lidos.comando : dado.comando;
  std::vector<PedidoDeGeracao> todos;
  for (AjusteDoLeiaute leiaute : lidos.leiautes) {
    leiaute.versao = dado.leiaute.value_or(leiaute.versao);
    leiaute.cat52 = dado.cat52.value_or(leiaute.cat52);
    bool novo = true;
    for (const PedidoDeGeracao& outro : todos) novo = novo && !(outro.leiaute == leiaute);
    if (novo) todos.push_back({leiaute, comando, de, ate});
  }
  return todos;
}

// Differences in widths, texts and registers show in the lines, and so do existing placeholders; only missing
// ones tell the reader of a line nothing.
std::vector<AjusteDoLeiaute> mesmosBytes(const std::vector<PedidoDeGeracao>& possiveis,
                                         const PedidoDeGeracao& certo, const AjustesDoRelatorio& lidos) {
  std::vector<AjusteDoLeiaute> outros;
  for (const PedidoDeGeracao& outro : possiveis)
    if (!(outro.leiaute == certo.leiaute) && (outro.leiaute.cat52 || !lidos.faltaVazio))
      outros.push_back(outro.leiaute);
  return outros;
}

std::string textoDoPedido(const PedidoDeGeracao& pedido, const PedidoParcial& dado,
                          const std::vector<AjusteDoLeiaute>& outros) {
  bool umLeiaute = true, umModo = true;
  std::string iguais;
  for (const AjusteDoLeiaute& outro : outros) {
    umLeiaute = umLeiaute && outro.versao == pedido.leiaute.versao;
    umModo = umModo && outro.cat52 == pedido.leiaute.cat52;
    const std::string este = leiauteEmPalavras(outro);
    iguais = iguais.empty() ? este : frase("{1} and of {2}", {iguais, este});
  }
  const std::string texto = frase(
      "layout {1}, CAT52 {2}, command {3}, from {4} to {5}",
      {pedidoEmPalavras(std::to_string(pedido.leiaute.versao), dado.leiaute.has_value(), umLeiaute),
       pedidoEmPalavras(traduz(pedido.leiaute.cat52 ? marca("on") : marca("off")), dado.cat52.has_value(),
                        umModo),
       pedidoEmPalavras(pedido.comando.empty() ? traduz("none") : pedido.comando, !dado.comando.empty()),
       pedidoEmPalavras(diaEmPalavras(pedido.de), dado.de.has_value()),
       pedidoEmPalavras(diaEmPalavras(pedido.ate), dado.ate.has_value())});
  return iguais.empty() ? texto : frase("{1}; the same bytes come of {2}", {texto, iguais});
}

}  // namespace cotepe::programa
