#include "OpcoesComuns.h"

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

// Only one way of giving a period at a time.
void exigeUmaForma(const OpcoesDePeriodo& o) {
  const char* outra = !o.de.empty() ? "--from" : "--to";
  const bool extremos = !o.de.empty() || !o.ate.empty();
  if (!o.dia.empty() && !o.mes.empty())
    throw Falha(kUsoErrado,
                frase("{1} and {2} contradict each other; give one of them", {"--day", "--month"}));
  if (extremos && (!o.dia.empty() || !o.mes.empty()))
    throw Falha(kUsoErrado, frase("{1} and {2} contradict each other; give one of them",
                                  {o.dia.empty() ? "--month" : "--day", outra}));
}

}  // namespace

void declaraPeriodo(CLI::App& comando, OpcoesDePeriodo& o, const std::string& ajudaDoPrimeiro) {
  comando.add_option("--from", o.de, ajudaDoPrimeiro)->type_name("DAY")->transform(dia());
  comando.add_option("--to", o.ate, traduz("Last day"))->type_name("DAY")->transform(dia());
  comando.add_option("--day", o.dia, traduz("This day alone"))->type_name("DAY")->transform(dia());
  comando.add_option("--month", o.mes, traduz("This month, as YYYY-MM or MM/YYYY"))
      ->type_name("MONTH")
      ->transform(mes());
}

PeriodoPedido periodoPedido(const OpcoesDePeriodo& o) {
  exigeUmaForma(o);
  if (!o.dia.empty()) return {Dia::le(o.dia), Dia::le(o.dia)};
  if (!o.mes.empty()) {
    const auto primeiro = Dia::le(o.mes + "-01");
    return {primeiro, primeiro->ultimoDoMes()};
  }
  const PeriodoPedido periodo{Dia::le(o.de), Dia::le(o.ate)};
  if (periodo.de && periodo.ate && *periodo.ate < *periodo.de)
    throw Falha(kUsoErrado, frase("--to {1} is before --from {2}", {o.ate, o.de}));
  return periodo;
}

std::pair<Dia, Dia> periodoInteiro(const OpcoesDePeriodo& opcoes) {
  const PeriodoPedido periodo = periodoPedido(opcoes);
  if (periodo.de && periodo.ate) return {*periodo.de, *periodo.ate};
  if (!periodo.de && !periodo.ate)
    throw Falha(kUsoErrado, traduz("the period is missing; give --from and --to, --day or --month"));
  throw Falha(kUsoErrado, frase("{1} is missing; a period has two ends", {periodo.de ? "--to" : "--from"}));
}

void declaraEspera(CLI::App& comando, int& espera) {
  comando
      .add_option("--busy-timeout", espera,
                  traduz("How long to wait for a locked database, in milliseconds (5000)"))
      ->type_name("MS")
      ->transform(numeroEntre(0, 86400000));
}

}  // namespace cotepe::programa
