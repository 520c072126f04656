// E11's present counters against the greatest ones of the other registers.
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kPosicao{"position", Severidade::Erro,
                                marca("E11's counters are no less than those of the file."), kVejaOBanco};

namespace {

/// Of a register, a counter whose present value E11 has under the same label.
struct FonteDoContador {
  const Registro* registro;
  const char* rotulo;
};

constexpr FonteDoContador kFontes[] = {
    {&kE09, "CRO"}, {&kE10, "CFD"}, {&kE12, "CRZ"}, {&kE12, "COO"}, {&kE12, "CRO"}, {&kE14, "CCF"},
    {&kE14, "COO"}, {&kE16, "COO"}, {&kE16, "GNF"}, {&kE16, "GRG"}, {&kE19, "COO"}, {&kE19, "GNF"},
};

/// The greatest value of one of the sources.
struct Maximo {
  const FonteDoContador* fonte;
  Coluna coluna, posicao;
  std::int64_t valor = 0;
  std::string bytes;
};

class RegrasDePosicao final : public Familia {
 public:
  RegrasDePosicao(Relator& relator, const Catalogo& catalogo) : relator_(relator), maximos_(catalogo.size()) {
    for (const FonteDoContador& fonte : kFontes) {
      const int registro = catalogo.indiceDe(fonte.registro->codigo);
      if (registro >= 0)
        maximos_[static_cast<std::size_t>(registro)].push_back(
            {&fonte, {*fonte.registro, fonte.rotulo}, {kE11, fonte.rotulo}, 0, ""});
    }
  }

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr || lido.vazio) return;
    if (lido.registro == &kE11) return guarda(lido);
    for (Maximo& maximo : maximos_[static_cast<std::size_t>(lido.indice)]) {
      std::int64_t valor = 0;
      if (!maximo.coluna.le(lido, valor) || valor <= maximo.valor) continue;
      maximo.valor = valor;
      maximo.bytes = maximo.coluna.bytes(lido);
    }
  }

  // A position of only zeros is one that the database does not have.
  void fim() override {
    if (linha_ == 0 || !alguma_) return;
    for (const auto& doRegistro : maximos_)
      for (const Maximo& maximo : doRegistro) confere(maximo);
  }

 private:
  void guarda(const RegistroLido& lido) {
    if (linha_ != 0) return;
    linha_ = lido.linha.numero;
    for (std::size_t i = 0; i < lido.quantos; ++i) {
      const Especie especie = lido.campos[i].campo->especie;
      const auto campo = static_cast<std::size_t>(lido.campos[i].numero - 1);
      posicoes_[campo] = lido.bytes(i);
      lugares_[campo] = lugarDoCampo(lido, i);
      if (especie == Especie::Numero || especie == Especie::Contador)
        alguma_ = alguma_ || lido.bytes(i).find_first_not_of('0') != std::string_view::npos;
    }
  }

  void confere(const Maximo& maximo) const {
    const std::string& posicao = posicoes_[maximo.posicao.indice()];
    if (maximo.bytes.empty() || posicao.size() != maximo.bytes.size()) return;
    const bool deuAVolta = posicao.compare(0, 2, "00") == 0 && maximo.bytes.compare(0, 2, "99") == 0;
    if (posicao >= maximo.bytes || deuAVolta || posicao.find_first_not_of("0123456789") != std::string::npos)
      return;
    relator_.naLinhaLida(
        validacao::kPosicao, linha_, kE11, lugares_[maximo.posicao.indice()], entreAspas(posicao),
        frase("no less than {1} of {2}", {entreAspas(maximo.bytes), maximo.fonte->registro->codigo}));
  }

  Relator& relator_;
  std::vector<std::vector<Maximo>> maximos_;
  std::vector<std::string> posicoes_ = std::vector<std::string>(kE11.campos.size());
  std::vector<LugarDoCampo> lugares_ = std::vector<LugarDoCampo>(kE11.campos.size());
  long linha_ = 0;
  bool alguma_ = false;
};

}  // namespace

std::unique_ptr<Familia> regrasDePosicao(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<RegrasDePosicao>(relator, leitor.catalogo());
}

}  // namespace cotepe
