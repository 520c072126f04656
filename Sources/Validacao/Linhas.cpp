// Rules about lines as such: their ends, their registers, their lengths.
#include <string>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kFimDeLinha{"line-end", Severidade::Aviso,
                                   marca("Every line ends with a line-feed alone, the last one too."),
                                   marca("the file was converted or cut: take it as it was generated")};
const Regra validacao::kRegistroDesconhecido{"unknown-register", Severidade::Erro,
                                             marca("Every line begins with the code of a register."),
                                             kGereDeNovo};
const Regra validacao::kComprimento{
    "line-length", Severidade::Erro,
    marca("A line is as long as its register is in the file's layout and mode."),
    marca("look for an empty flag, a short date or an over-long last text in the database")};

namespace {

class RegrasDeLinhas final : public Familia {
 public:
  explicit RegrasDeLinhas(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.linha.comCr && !comCr_) fimComCr(lido);
    if (lido.linha.semFim)
      relator_.naLinha(validacao::kFimDeLinha, lido, traduz("the end of the file"),
                       traduz("a line-feed before it"));
    if (lido.registro == nullptr)
      relator_.naLinha(validacao::kRegistroDesconhecido, lido, entreAspas(lido.linha.texto.substr(0, 3)),
                       traduz("E01 to E22"));
    else if (!lido.medidaCerta)
      relator_.naLinha(validacao::kComprimento, lido,
                       fraseDe("{n} byte", "{n} bytes", static_cast<long long>(lido.linha.tamanho)),
                       std::to_string(lido.comprimento));
  }

 private:
  // A converted file has it on every line: said once.
  void fimComCr(const RegistroLido& lido) {
    comCr_ = true;
    relator_.naLinha(validacao::kFimDeLinha, lido, traduz("CR and LF, as maybe on other lines"),
                     traduz("LF alone"));
  }

  Relator& relator_;
  bool comCr_ = false;
};

}  // namespace

std::unique_ptr<Familia> regrasDeLinhas(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeLinhas>(relator);
}

}  // namespace cotepe
