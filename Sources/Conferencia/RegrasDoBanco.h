// The rules that a fiscal database is held to, by name.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Achados/Achado.h"

namespace cotepe {

/// In the order in which they are listed.
enum class RegraDoBanco : std::uint8_t {
  TabelaAusente,
  ColunaAusente,
  QuantasLinhas,
  Nulo,
  TamanhoDaLetra,
  Codigo,
  TextoLongo,
  TextoCortado,
  TextoCurto,
  Controle,
  NaoNumero,
  Negativo,
  DigitosPerdidos,
  NumeroLargo,
  Arredondado,
  Desloca,
  FormaDoNumeroFiscal,
  NumeroFiscal,
  FormaDaData,
  DataImpossivel,
  ForaDoPeriodo,
  OrdemDeTexto,
  MaximoDeTexto,
  SemReducao,
  SemDocumento,
  SemTotalizador,
  SemMeio,
  Repetido,
  DoisCupons,
  SemIndice,
  Quantas
};

constexpr std::size_t kQuantasRegrasDoBanco = static_cast<std::size_t>(RegraDoBanco::Quantas);

struct DescricaoDaRegraDoBanco {
  const char* nome;  // as --disable takes it
  Severidade severidade;
  const char* resumo;    // one line, to be translated
  const char* conserto;  // what to do about a finding, to be translated
};

const DescricaoDaRegraDoBanco& descricao(RegraDoBanco regra);

/// The rule of a name; false when there is none.
bool regraDe(std::string_view nome, RegraDoBanco& regra);

using RegrasDoBanco = std::bitset<kQuantasRegrasDoBanco>;

}  // namespace cotepe
