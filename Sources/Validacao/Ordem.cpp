// Rules about which registers are present, in which order, and where placeholders are.
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kOrdemDosRegistros{"register-order", Severidade::Erro,
                                          marca("The registers stand in ascending order, each in one block."),
                                          kGereDeNovo};
const Regra validacao::kRegistroAusente{"register-missing", Severidade::Erro,
                                        marca("Every register that the command writes is there."),
                                        marca("cotepe generate names the registers whose query fails")};
const Regra validacao::kRegistroSobrando{
    "register-extra", Severidade::Erro,
    marca("No register is there that the command or the layout does not write, none too often."),
    kGereDeNovo};
const Regra validacao::kVazio{
    "placeholder", Severidade::Erro,
    marca("A placeholder record stands alone in its register, and not in CAT52 mode."), kGereDeNovo};

namespace {

/// What was read of a register. E13 counts as two: its fiscal totalizers, and its non-fiscal sums.
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
  RegrasDeOrdem(Relator& relator, const LeitorDeRegistros& leitor)
      : relator_(relator), leitor_(leitor), blocos_(leitor.catalogo().size()) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr) return;
    if (lido.indice < anterior_)
      relator_.naLinha(validacao::kOrdemDosRegistros, lido,
                       frase("{1} after {2}", {codigo(lido.indice), codigo(anterior_)}),
                       traduz("registers in ascending order"));
    anterior_ = lido.indice;
    Bloco& bloco = blocos_[static_cast<std::size_t>(lido.indice)];
    bloco.conta(lido);
    if (lido.registro == &kE13) (somaNaoFiscal(lido) ? naoFiscais_ : fiscais_).conta(lido);
    if (lido.registro == &kE01 && bloco.linhas == 1) leComando(lido);
    if (bloco.linhas == 2 && lido.registro->umaLinha)
      relator_.naLinha(validacao::kRegistroSobrando, lido, frase("a second {1}", {codigo(lido.indice)}),
                       traduz("one line"));
  }

  void fim() override {
    if (!viuE01_)
      relator_.noArquivo(validacao::kRegistroAusente, &kE01, frase("no line of {1}", {"E01"}),
                         traduz("E01 as the first register"));
    int e13 = -1;
    for (int i = 0; i < static_cast<int>(blocos_.size()); ++i) {
      if (comandoLido_) confereDespacho(i);
      if (&registro(i) == &kE13)
        e13 = i;
      else
        confereVazios(i, blocos_[static_cast<std::size_t>(i)]);
    }
    confereVazios(e13, fiscais_);
    confereVazios(e13, naoFiscais_);
  }

 private:
  const Registro& registro(int indice) const { return *leitor_.catalogo()[static_cast<std::size_t>(indice)]; }
  const char* codigo(int indice) const { return registro(indice).codigo; }
  bool somaNaoFiscal(const RegistroLido& lido) const {
    return semBrancosNoFim(totalizador_.bytes(lido)) == "OPNF";
  }

  void leComando(const RegistroLido& lido) {
    comandoLido_ = lido.medidaCerta;
    comando_ = semBrancosNoFim(comandoDeGeracao_.bytes(lido));
    viuE01_ = true;
  }

  // Without a user there is no E02, and without an attempt no E22; without E01 there is a finding already.
  bool podeFaltar(int indice) const {
    const Vazio vazio = registro(indice).vazio;
    return vazio == Vazio::Nunca || (vazio == Vazio::ForaDoCat52 && !leitor_.certamenteForaDoCat52());
  }

  void confereDespacho(int i) {
    const Bloco& bloco = blocos_[static_cast<std::size_t>(i)];
    const bool despachado = registro(i).despachado(comando_.c_str(), leitor_.ajuste().versao);
    if (despachado && &registro(i) == &kE13 && naoFiscais_.linhas == 0)
      ausente(i, traduz("no line of E13 with OPNF"));
    else if (despachado && bloco.linhas == 0 && !podeFaltar(i))
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
  std::vector<Bloco> blocos_;
  Bloco fiscais_, naoFiscais_;
  Coluna totalizador_{kE13, "Totalizador parcial"}, comandoDeGeracao_{kE01, "Comando de geração"};
  int anterior_ = 0;
  bool viuE01_ = false, comandoLido_ = false;
  std::string comando_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeOrdem(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<RegrasDeOrdem>(relator, leitor);
}

}  // namespace cotepe
