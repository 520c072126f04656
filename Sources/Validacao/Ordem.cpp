// Rules about which registers are there, in which order, and where placeholders stand.
#include <array>
#include <string>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kOrdemDosRegistros{"register-order", Severidade::Erro,
                                          marca("The registers stand in ascending order, each in one block."),
                                          kGereDeNovo};
const Regra validacao::kRegistroAusente{
    "register-missing", Severidade::Erro, marca("Every register that the command writes is there."),
    marca("look into the log for the query that failed, and generate again")};
const Regra validacao::kRegistroSobrando{
    "register-extra", Severidade::Erro,
    marca("No register is there that the command or the layout does not write, none too often."),
    kGereDeNovo};
const Regra validacao::kVazio{
    "placeholder", Severidade::Erro,
    marca("A placeholder record stands alone in its register, and not in CAT52 mode."), kGereDeNovo};

namespace {

constexpr int kE01Indice = 0, kE02Indice = 1, kE08Indice = 7, kE11Indice = 10, kE13Indice = 12,
              kE22Indice = 21;

/// What came of a register. E13 is two: its fiscal totalizers, and its non-fiscal sums.
struct Bloco {
  long linhas = 0, vazios = 0;
  long primeira = 0, primeiroVazio = 0;  // line numbers

  void conta(const RegistroLido& lido) {
    if (linhas++ == 0) primeira = lido.linha.numero;
    if (lido.vazio && vazios++ == 0) primeiroVazio = lido.linha.numero;
  }
};

class RegrasDeOrdem final : public Familia {
 public:
  RegrasDeOrdem(Relator& relator, const LeitorDeRegistros& leitor) : relator_(relator), leitor_(leitor) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr) return;
    if (lido.indice < anterior_)
      relator_.naLinha(validacao::kOrdemDosRegistros, lido,
                       frase("{1} after {2}", {codigo(lido.indice), codigo(anterior_)}),
                       traduz("registers in ascending order"));
    anterior_ = lido.indice;
    Bloco& bloco = blocos_[static_cast<std::size_t>(lido.indice)];
    bloco.conta(lido);
    if (lido.indice == kE13Indice) (somaNaoFiscal(lido) ? naoFiscais_ : fiscais_).conta(lido);
    if (lido.indice == kE01Indice && bloco.linhas == 1) leComando(lido);
    if (bloco.linhas == 2 && unico(lido.indice))
      relator_.naLinha(validacao::kRegistroSobrando, lido, frase("a second {1}", {codigo(lido.indice)}),
                       traduz("one line"));
  }

  void fim() override {
    if (blocos_[kE01Indice].linhas == 0)
      relator_.noArquivo(validacao::kRegistroAusente, &kE01, frase("no line of {1}", {"E01"}),
                         traduz("E01 as the first register"));
    for (int i = 0; i < static_cast<int>(kCatalogo.size()); ++i) {
      if (comandoLido_) confereDespacho(i);
      if (i != kE13Indice) confereVazios(i, blocos_[static_cast<std::size_t>(i)]);
    }
    confereVazios(kE13Indice, fiscais_);
    confereVazios(kE13Indice, naoFiscais_);
  }

 private:
  static const Registro& registro(int indice) { return *kCatalogo[static_cast<std::size_t>(indice)]; }
  static const char* codigo(int indice) { return registro(indice).codigo; }
  static bool unico(int indice) {
    return indice == kE01Indice || indice == kE08Indice || indice == kE11Indice;
  }
  bool somaNaoFiscal(const RegistroLido& lido) const { return totalizador_.bytes(lido) == "OPNF   "; }

  void leComando(const RegistroLido& lido) {
    comandoLido_ = lido.medidaCerta;
    comando_ = semBrancosNoFim(lido.bytesDe("Comando de geração"));
  }

  // Without a user there is no E02, and without an attempt no E22.
  bool podeFaltar(int indice) const {
    if (indice == kE02Indice || indice == kE22Indice) return true;
    return registro(indice).vazio == Vazio::ForaDoCat52 && !leitor_.certamenteForaDoCat52();
  }

  void confereDespacho(int i) {
    const Bloco& bloco = blocos_[static_cast<std::size_t>(i)];
    const bool despachado = registro(i).despachado(comando_.c_str(), leitor_.ajuste().versao);
    if (despachado && i == kE13Indice && naoFiscais_.linhas == 0)
      ausente(i, traduz("no line of E13 with OPNF"));
    else if (despachado && i != kE01Indice && bloco.linhas == 0 && !podeFaltar(i))
      ausente(i, frase("no line of {1}", {codigo(i)}));
    if (!despachado && bloco.linhas != 0)
      relator_.naLinhaLida(validacao::kRegistroSobrando, bloco.primeira, registro(i), {},
                           frase("a line of {1}", {codigo(i)}),
                           frase("none in layout {1} with the command {2}",
                                 {std::to_string(leitor_.ajuste().versao), entreAspas(comando_)}));
  }

  void ausente(int i, std::string encontrado) {
    relator_.noArquivo(validacao::kRegistroAusente, &registro(i), std::move(encontrado),
                       frase("at least one with the command {1}", {entreAspas(comando_)}));
  }

  void confereVazios(int i, const Bloco& bloco) {
    if (bloco.vazios == 0) return;
    if (bloco.linhas > 1)
      relator_.naLinhaLida(validacao::kVazio, bloco.primeiroVazio, registro(i), {},
                           frase("a placeholder among {1} lines", {std::to_string(bloco.linhas)}),
                           traduz("a placeholder alone"));
    if (registro(i).vazio == Vazio::ForaDoCat52 && leitor_.certamenteCat52() && &bloco != &naoFiscais_)
      relator_.naLinhaLida(validacao::kVazio, bloco.primeiroVazio, registro(i), {},
                           traduz("a placeholder in CAT52 mode"), traduz("no line of an empty register"));
  }

  Relator& relator_;
  const LeitorDeRegistros& leitor_;
  std::array<Bloco, kCatalogo.size()> blocos_;
  Bloco fiscais_, naoFiscais_;
  Coluna totalizador_{kE13, "Totalizador parcial"};
  int anterior_ = 0;
  bool comandoLido_ = false;
  std::string comando_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeOrdem(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<RegrasDeOrdem>(relator, leitor);
}

}  // namespace cotepe
