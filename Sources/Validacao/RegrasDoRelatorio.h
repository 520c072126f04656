// The rules that a report is held to. Each is defined, with its words, in the file that applies it.
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
inline constexpr const char* kGereDeNovo =
    marca("the file was changed after it was generated: generate it again");
inline constexpr const char* kVejaOBanco =
    marca("check the value in the database, correct it and generate again");
inline constexpr const char* kVejaOsDocumentos =
    marca("check the documents in the database: one is missing or was stored twice");
///@}

}  // namespace cotepe::validacao
