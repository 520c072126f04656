#include "Leitor/Formas.h"

namespace cotepe {
namespace {

ConteudoVazio conteudo(const Disposicao& disposicao, Vazio quando) {
  ConteudoVazio vazio;
  vazio.bytes = conteudoVazio(disposicao, vazio.inicio);
  vazio.quando = quando;
  return vazio;
}

FormaDoRegistro faz(const Registro& registro, int indice, const AjusteDoLeiaute& ajuste, bool vazio) {
  FormaDoRegistro forma;
  forma.registro = &registro;
  forma.indice = indice;
  if (vazio)
    dispoeVazio(forma, registro, registro.camposVazios, ajuste);
  else
    dispoe(forma, registro, ajuste);
  if (registro.umaLinha) return forma;
  if (registro.vazio != Vazio::Nunca) forma.vazios.push_back(conteudo(forma, registro.vazio));
  if (registro.outroVazio.campos.size() == 0) return forma;
  Disposicao outra;
  dispoeVazio(outra, registro, registro.outroVazio.campos, ajuste);
  forma.vazios.push_back(conteudo(outra, Vazio::Sempre));
  return forma;
}

}  // namespace

Formas::Formas(Catalogo catalogo) : catalogo_(catalogo), formas_(catalogo.size()) {
  for (std::size_t r = 0; r < formas_.size(); ++r)
    for (std::size_t a = 0; a < kAjustesPossiveis.size(); ++a)
      for (const bool vazio : {false, true})
        formas_[r][a][vazio ? 1 : 0] = faz(*catalogo_[r], static_cast<int>(r), kAjustesPossiveis[a], vazio);
}

std::shared_ptr<const Formas> Formas::de(Catalogo catalogo) {
  static const auto daLei = std::make_shared<const Formas>(kCatalogo);
  return catalogo == kCatalogo ? daLei : std::make_shared<const Formas>(catalogo);
}

}  // namespace cotepe
