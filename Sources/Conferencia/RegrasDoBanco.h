// The rules that a fiscal database is checked against. Each is defined, with its words, in the file that
// applies it.
#pragma once

#include "Achados/Regra.h"

namespace cotepe::conferencia {

extern const Regra kTabelaAusente, kColunaAusente, kQuantasLinhas, kNulo, kTamanhoDaLetra, kCodigo,
    kTextoLongo, kTextoCortado, kTextoCurto, kControle, kNaoNumero, kNegativo, kDigitosPerdidos, kNumeroLargo,
    kArredondado, kDesloca, kFormaDoNumeroFiscal, kNumeroFiscal, kFormaDaData, kDataImpossivel,
    kForaDoPeriodo, kOrdemDeTexto, kMaximoDeTexto, kSemReducao, kSemDocumento, kSemTotalizador, kSemMeio,
    kRepetido, kDoisCupons, kSemIndice;

// clang-format off
/// All of them, in the order in which they are listed.
inline constexpr const Regra* kRegras[] = {
    &kTabelaAusente, &kColunaAusente, &kQuantasLinhas, &kNulo, &kTamanhoDaLetra, &kCodigo, &kTextoLongo,
    &kTextoCortado, &kTextoCurto, &kControle, &kNaoNumero, &kNegativo, &kDigitosPerdidos, &kNumeroLargo,
    &kArredondado, &kDesloca, &kFormaDoNumeroFiscal, &kNumeroFiscal, &kFormaDaData, &kDataImpossivel,
    &kForaDoPeriodo, &kOrdemDeTexto, &kMaximoDeTexto, &kSemReducao, &kSemDocumento, &kSemTotalizador,
    &kSemMeio, &kRepetido, &kDoisCupons, &kSemIndice,
};
// clang-format on

}  // namespace cotepe::conferencia
