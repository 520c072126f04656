// The rules that a report is held to, by name.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Achados/Achado.h"

namespace cotepe {

/// The rules; `descricao` has the words of each.
enum class Regra : std::uint8_t {
  FimDeLinha,
  RegistroDesconhecido,
  Comprimento,
  OrdemDosRegistros,
  RegistroAusente,
  RegistroSobrando,
  Vazio,
  Digitos,
  Largura,
  Letra,
  Constante,
  Controle,
  NaoAscii,
  Alinhamento,
  Data,
  Hora,
  NumeroFiscal,
  Identidade,
  OrdemDasChaves,
  ContadorRepetido,
  ContadorAusente,
  ItemAusente,
  DataRetrocede,
  ContadoresDoTipo,
  LetraDoAjuste,
  TotalDoDocumento,
  TotalDoItem,
  ItensDoCupom,
  PagamentosDoCupom,
  ItensDoNaoFiscal,
  PagamentosDoNaoFiscal,
  PagamentoAMais,
  SemDocumento,
  TotaisDaReducao,
  NaoFiscaisDaReducao,
  DocumentoDaReducao,
  FaixaDasReducoes,
  GrandeTotal,
  Posicao,
  Quantas
};

/// How many rules there are.
constexpr std::size_t kQuantasRegras = static_cast<std::size_t>(Regra::Quantas);

/// A rule in words; the texts live for ever.
struct DescricaoDaRegra {
  const char* nome;       ///< as --disable takes it
  Severidade severidade;  ///< of its findings
  const char* resumo;     ///< one line, to be translated
  const char* conserto;   ///< what to do about a finding, to be translated
};

/// The words of a rule.
const DescricaoDaRegra& descricao(Regra regra);

/// The rule of a name; false when there is none.
bool regraDe(std::string_view nome, Regra& regra);

/// Some of the rules, by their number.
using ConjuntoDeRegras = std::bitset<kQuantasRegras>;

}  // namespace cotepe
