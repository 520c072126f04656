// The rules that a report is checked against. Each is defined, with its words, in the file that applies it.
#pragma once

#include "Achados/Regra.h"
#include "Idioma/Idioma.h"

namespace cotepe::validacao {

extern const Regra kFimDeLinha, kRegistroDesconhecido, kComprimento, kOrdemDosRegistros, kRegistroAusente,
    kRegistroSobrando, kVazio, kDigitos, kLargura, kLetra, kConstante, kControle, kNaoAscii, kAlinhamento,
    kData, kHora, kNumeroFiscal, kIdentidade, kOrdemDasChaves, kContadorRepetido, kContadorAusente,
    kItemAusente, kDataRetrocede, kContadoresDoTipo, kLetraDoAjuste, kTotalDoDocumento, kTotalDoItem,
    kItensDoCupom, kPagamentosDoCupom, kItensDoNaoFiscal, kPagamentosDoNaoFiscal, kPagamentoAMais,
    kSemDocumento, kTotaisDaReducao, kNaoFiscaisDaReducao, kDocumentoDaReducao, kFaixaDasReducoes,
    kGrandeTotal, kPosicao, kItensDoTotalizador, kAjustesDaReducao, kNaoFiscaisDosItens, kMeiosDaReducao,
    kMomentoDaReducao, kDocumentoDoComprovante, kFaixaDaFita, kReinicioConhecido, kVersaoDoSoftware, kEstorno,
    kDiaDoDocumento, kDiaDaReducao, kLinhaRepetida, kAcrescimoCancelado;

// clang-format off
/// All of them, in the order in which they are listed.
inline constexpr const Regra* kRegras[] = {
    &kFimDeLinha, &kRegistroDesconhecido, &kComprimento, &kOrdemDosRegistros, &kRegistroAusente,
    &kRegistroSobrando, &kVazio, &kDigitos, &kLargura, &kLetra, &kConstante, &kControle, &kNaoAscii,
    &kAlinhamento, &kData, &kHora, &kNumeroFiscal, &kIdentidade, &kOrdemDasChaves, &kContadorRepetido,
    &kContadorAusente, &kItemAusente, &kDataRetrocede, &kContadoresDoTipo, &kLetraDoAjuste,
    &kTotalDoDocumento, &kTotalDoItem, &kItensDoCupom, &kPagamentosDoCupom, &kItensDoNaoFiscal,
    &kPagamentosDoNaoFiscal, &kPagamentoAMais, &kSemDocumento, &kTotaisDaReducao, &kNaoFiscaisDaReducao,
    &kDocumentoDaReducao, &kFaixaDasReducoes, &kGrandeTotal, &kPosicao,
    &kItensDoTotalizador, &kAjustesDaReducao, &kNaoFiscaisDosItens, &kMeiosDaReducao, &kMomentoDaReducao,
    &kDocumentoDoComprovante, &kFaixaDaFita, &kReinicioConhecido, &kVersaoDoSoftware, &kEstorno, &kDiaDoDocumento,
    &kDiaDaReducao, &kLinhaRepetida, &kAcrescimoCancelado,
};
// clang-format on

///@{
/// What to do about findings of many rules, to be translated.
inline constexpr const char* kGereDeNovo = marca("cotepe verify compares it with the database");
inline constexpr const char* kVejaOBanco = marca("cotepe explain --db shows the rows behind it");
inline constexpr const char* kVejaOsDocumentos =
    marca("cotepe check looks for missing and repeated documents in the database");
///@}

}  // namespace cotepe::validacao
