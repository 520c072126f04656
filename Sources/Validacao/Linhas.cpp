// Rules about lines as such: their ends, their registers, their lengths.
#include <string>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kFimDeLinha{"line-end", Severidade::Aviso,
                                   marca("Every line ends as the first one does, the last one too."),
                                   marca("the file was converted or cut: take it as it was generated")};
const Regra validacao::kRegistroDesconhecido{"unknown-register", Severidade::Erro,
                                             marca("Every line begins with the code of a register."),
                                             kGereDeNovo};
const Regra validacao::kComprimento{
    "line-length", Severidade::Erro,
    marca("A line is as long as its register is in the file's layout and mode."),
    marca("an empty flag, a short date or an over-long last text makes it so; cotepe explain --db shows the "
          "row")};

namespace {

class RegrasDeLinhas final : public Familia {
 public:
  explicit RegrasDeLinhas(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    confereFim(lido);
    if (assinada_) confereDepois(lido);
    assinada_ = assinada_ || lido.assinatura();
    if (lido.assinatura()) return;
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
  // CR and LF on every line is how a report is delivered; mixed line ends are reported once.
  void confereFim(const RegistroLido& lido) {
    if (lido.linha.numero == 1) comCr_ = lido.linha.comCr;
    if (misturados_ || lido.linha.semFim || lido.linha.comCr == comCr_) return;
    misturados_ = true;
    relator_.naLinha(
        validacao::kFimDeLinha, lido,
        comCr_ ? traduz("LF alone, as maybe on other lines") : traduz("CR and LF, as maybe on other lines"),
        comCr_ ? traduz("CR and LF") : traduz("LF alone"));
  }

  // The signature is the end of a report: what follows it is not signed. Reported once.
  void confereDepois(const RegistroLido& lido) {
    if (depois_) return;
    depois_ = true;
    relator_.naLinha(validacao::kRegistroDesconhecido, lido, traduz("a line behind the EAD line"),
                     traduz("the end of the file"));
  }

  Relator& relator_;
  bool comCr_ = false, misturados_ = false, assinada_ = false, depois_ = false;
};

}  // namespace

std::unique_ptr<Familia> regrasDeLinhas(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeLinhas>(relator);
}

}  // namespace cotepe
