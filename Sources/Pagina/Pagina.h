// A report as a page that opens anywhere.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Pagina/Folhas.h"
#include "Pagina/LeituraDaPagina.h"

namespace cotepe::pagina {

/// What a database adds to a report.
struct DoBanco {
  struct Hora {
    long cupons = 0;
    Centavos liquida = 0;
  };

  std::string nome;    ///< of the database
  std::string ajuste;  ///< the settings with which the report was generated again, in words
  const AchadosAgrupados* diferencas = nullptr;  ///< from what the database gives
  std::string semVerificar;                      ///< why it was not compared; empty if it was
  std::map<int, Hora> horas;                     ///< sales of the coupons that were not cancelled, by hour
  std::map<std::string, Centavos> totaisGerais;  ///< GT after the last reduction of a day, by AAAAMMDD
};

/// What a page is made of.
struct ConteudoDaPagina {
  LeituraDaPagina* relatorio = nullptr;
  LeituraDaPagina* outro = nullptr;  ///< to compare with, or null
  const DoBanco* banco = nullptr;    ///< or null
  std::string momento;               ///< when it is made, for people
  std::string feitaPor;              ///< by what
  std::string assinatura;            ///< the state of the signature in words, or nothing
};

/// Writes the page, or the pages of a folder, and gives them their names. Throws Falha.
void escrevePagina(const ConteudoDaPagina& conteudo, Folhas& folhas);

/// The parts of it, each a section.
std::string cabecalho(const ConteudoDaPagina& conteudo);
std::string secaoDosAchados(const ConteudoDaPagina& conteudo, const Folhas& folhas);
std::string secaoDaComparacao(const ConteudoDaPagina& conteudo);
std::string secaoDosDias(const ConteudoDaPagina& conteudo);
std::string secaoDosTotais(const ConteudoDaPagina& conteudo);
std::string secaoDosContadores(const ConteudoDaPagina& conteudo);
std::string secaoDosArtigos(const ConteudoDaPagina& conteudo);
std::string secaoDasHoras(const ConteudoDaPagina& conteudo);

/// Sales of the reductions if the report has any, otherwise of the coupons.
const Valores& vendasDe(const ResumoDoRelatorio& resumo, const Movimento& movimento);

/// The first and the last day of the report, AAAAMMDD; both empty when it has none.
std::pair<std::string, std::string> periodoDe(const ResumoDoRelatorio& resumo);

}  // namespace cotepe::pagina
