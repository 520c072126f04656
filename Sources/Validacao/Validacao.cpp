#include "Validacao/Validacao.h"

namespace cotepe {

Validacao::Validacao(RecebeAchados& recebe, const OpcoesDeValidacao& opcoes)
    : relator_(recebe, opcoes.arquivo, opcoes.desligadas), catalogo_(opcoes.catalogo) {}

Validacao::~Validacao() = default;

bool Validacao::valida(LeitorDeLinhas& linhas, const Observa& observa) {
  LeitorDeRegistros leitor(linhas, catalogo_);
  for (NovaFamilia* nova :
       {regrasDeLinhas, regrasDeOrdem, regrasDeIdentidade, regrasDeCampos, regrasDeChaves, regrasDeContadores,
        regrasDeTotais, regrasDeTipos, regrasDeDocumentos, regrasDeReducoes, regrasDeFaixa, regrasDePosicao})
    familias_.push_back(nova(relator_, leitor));
  const std::size_t primeiras = familias_.size();
  for (NovaFamilia* nova : {regrasDeCorrespondencias, regrasDeTotalizadores})
    familias_.push_back(nova(relator_, leitor));
  ColetaDeAjustes coleta(catalogo_);
  for (RegistroLido lido; leitor.proximo(lido); ++linhas_) {
    coleta.le(lido);
    if (observa) observa(lido, leitor);
    for (const auto& familia : familias_) familia->linha(lido);
  }
  ajustes_ = coleta.ajustes(leitor);
  for (std::size_t i = 0; linhas.erro() == 0 && i < familias_.size(); ++i) {
    if (i == primeiras) relator_.encerraPrimeiras();
    familias_[i]->fim();
  }
  familias_.clear();
  return linhas.erro() == 0;
}

}  // namespace cotepe
