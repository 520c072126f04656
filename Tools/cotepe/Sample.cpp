// cotepe sample: a new fiscal database of a made-up shop.
#include <cstdio>
#include <memory>

#include "Amostra.h"
#include "Comandos.h"
#include "Dia.h"
#include "Falha.h"
#include "Progresso.h"
#include "Sinais.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoSample {
  std::string arquivo, inicio;
  OpcoesDaAmostra amostra;
  bool calado = false;
};

void conta(const std::string& arquivo, const ResumoDaAmostra& r) {
  static_cast<void>(
      std::fprintf(stderr, "%s: %s to %s, %lld coupons, %lld items, %lld payments, %lld other documents\n",
                   arquivo.c_str(), r.primeiroDia.c_str(), r.ultimoDia.c_str(),
                   static_cast<long long>(r.cupons), static_cast<long long>(r.itens),
                   static_cast<long long>(r.pagamentos), static_cast<long long>(r.outrosDocumentos)));
}

// A failure before the first day is done is one of opening the file, a later one of writing it.
ResumoDaAmostra cria(const OpcoesDoSample& opcoes, OpcoesDaAmostra amostra) {
  Progresso progresso(opcoes.calado);
  bool aberto = false;
  amostra.progresso = [&](int dia, int dias) {
    aberto = true;
    paraSeInterrompido();
    progresso.etapa("day " + std::to_string(dia) + " of " + std::to_string(dias));
  };
  try {
    return criaBancoDeAmostra(opcoes.arquivo, amostra);
  } catch (const ErroDoBanco& erro) {
    throw Falha(aberto ? kNaoEscreve : kNaoAbre, erro.what());
  } catch (const Interrupcao& falha) {
    throw Falha(falha.situacao(), std::string(falha.what()) + "; the temporary file was removed");
  }
}

// So many years that the longest sample ends before the year 9999 does.
std::string primeiroDia(const std::string& texto) {
  const Dia dia = exigeDia("--start", texto);
  if (dia.ano() >= 1900 && dia.ano() < 9900) return dia.iso();
  throw Falha(kUsoErrado, "wrong usage", "--start " + texto, "a year that no sample begins in",
              "1900 to 9899", "correct it");
}

void executa(const OpcoesDoSample& opcoes) {
  OpcoesDaAmostra amostra = opcoes.amostra;
  if (!opcoes.inicio.empty()) amostra.inicio = primeiroDia(opcoes.inicio);
  const ResumoDaAmostra resumo = cria(opcoes, amostra);
  if (!opcoes.calado) conta(opcoes.arquivo, resumo);
}

}  // namespace

Execucao declaraSample(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoSample>();
  comando.add_option("FILE", o->arquivo, "The database to make; it must not exist")->required();
  comando.add_option("--days", o->amostra.dias, "Fiscal days (30)")
      ->type_name("N")
      ->check(CLI::Range(1, 36500));
  comando.add_option("--coupons-per-day", o->amostra.cuponsPorDia, "Fiscal coupons of each day (40)")
      ->type_name("N")
      ->check(CLI::Range(1, 1000000));
  comando.add_option("--start", o->inicio, "First day, DDMMYYYY or YYYY-MM-DD (2024-01-01)")
      ->type_name("DAY");
  comando.add_option("--seed", o->amostra.semente, "The same seed makes the same database (1)")
      ->type_name("N")
      ->check([](const std::string& texto) {
        return texto.find_first_not_of("0123456789") == std::string::npos ? ""
                                                                          : texto + " is no number from 0 on";
      });
  comando.add_flag("--quiet", o->calado, "No summary and no progress; failures are always told");
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
