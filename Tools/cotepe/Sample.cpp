// cotepe sample: a new fiscal database of a made-up shop.
#include <cstdio>
#include <memory>

#include "Amostra/Amostra.h"
#include "Comandos.h"
#include "Corrida/Dia.h"
#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoSample {
  std::string arquivo, inicio;
  OpcoesDaAmostra amostra;
  bool calado = false;
};

void conta(const std::string& arquivo, const ResumoDaAmostra& r) {
  const std::string texto =
      frase("{1}: {2} to {3}, {4} coupons, {5} items, {6} payments, {7} other documents",
            {arquivo, r.primeiroDia, r.ultimoDia, std::to_string(r.cupons), std::to_string(r.itens),
             std::to_string(r.pagamentos), std::to_string(r.outrosDocumentos)});
  static_cast<void>(std::fprintf(stderr, "%s\n", texto.c_str()));
}

// A failure before the first day is finished counts as one of opening the file, a later one as one of writing
// it.
ResumoDaAmostra cria(const OpcoesDoSample& opcoes, OpcoesDaAmostra amostra) {
  Progresso progresso(opcoes.calado);
  bool aberto = false;
  amostra.progresso = [&](int dia, int dias) {
    aberto = true;
    paraSeInterrompido();
    progresso.etapa(frase("day {1} of {2}", {std::to_string(dia), std::to_string(dias)}));
  };
  try {
    return criaBancoDeAmostra(opcoes.arquivo, amostra);
  } catch (const ErroDoBanco& erro) {
    throw Falha(aberto ? kNaoEscreve : kNaoAbre, erro.what());
  } catch (const Interrupcao& falha) {
    throw Falha(falha.situacao(),
                std::string(falha.what()) + "; " + traduz("the temporary file was removed"));
  }
}

// Chosen so that the longest sample ends before the year 9999 does.
std::string primeiroDia(const std::string& texto) {
  const Dia dia = *Dia::le(texto);
  if (dia.ano() >= 1900 && dia.ano() < 9900) return dia.iso();
  throw Falha(kUsoErrado,
              frase("--start {1}: a sample begins in a year from {2} to {3}", {texto, "1900", "9899"}));
}

void executa(const OpcoesDoSample& opcoes) {
  OpcoesDaAmostra amostra = opcoes.amostra;
  if (!opcoes.inicio.empty()) amostra.inicio = primeiroDia(opcoes.inicio);
  const ResumoDaAmostra resumo = cria(opcoes, amostra);
  if (!opcoes.calado) conta(opcoes.arquivo, resumo);
}

}  // namespace

Acao declaraSample(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoSample>();
  comando.add_option("FILE", o->arquivo, traduz("The database to make; it must not exist"))->required();
  comando.add_option("--days", o->amostra.dias, traduz("Fiscal days (30)"))
      ->type_name("N")
      ->transform(numeroEntre(1, 36500));
  comando.add_option("--coupons-per-day", o->amostra.cuponsPorDia, traduz("Fiscal coupons of each day (40)"))
      ->type_name("N")
      ->transform(numeroEntre(1, 1000000));
  comando.add_option("--start", o->inicio, traduz("First day, as DD/MM/YYYY or YYYY-MM-DD (2024-01-01)"))
      ->type_name("DAY")
      ->transform(dia());
  comando.add_option("--seed", o->amostra.semente, traduz("The same seed makes the same database (1)"))
      ->type_name("N")
      ->transform(numeroDesde(0));
  comando.add_flag("--quiet", o->calado, traduz("No summary and no progress; failures are always told"));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
