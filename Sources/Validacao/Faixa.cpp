// The range of reductions and days that E01 states, and the grand total, against E12.
#include <algorithm>
#include <string>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kFaixaDasReducoes{"reduction-range", Severidade::Erro,
                                         marca("E01's range of CRZ and days is that of E12."), kVejaOBanco};
const Regra validacao::kGrandeTotal{
    "grand-total", Severidade::Erro,
    marca("The grand total holds the gross sales of the file, and E11's is no less than E02's."),
    kVejaOBanco};

namespace {

/// A field of an early line, kept for the end of the file.
struct Guardado {
  std::string bytes;
  long linha = 0;
  LugarDoCampo lugar;

  void guarda(const RegistroLido& lido, std::size_t i) {
    bytes = lido.bytes(i);
    linha = lido.linha.numero;
    lugar = lugarDoCampo(lido, i);
  }
};

class RegrasDeFaixa final : public Familia {
 public:
  explicit RegrasDeFaixa(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == &kE01 && lido.medidaCerta && crzInicial_.linha == 0) {
      crzInicial_.guarda(lido, crzInicialE01_.lugar(lido));
      crzFinal_.guarda(lido, crzFinalE01_.lugar(lido));
      dataInicial_.guarda(lido, dataInicialE01_.lugar(lido));
      dataFinal_.guarda(lido, dataFinalE01_.lugar(lido));
    } else if (lido.registro == &kE02 && gt02_.linha == 0) {
      gt02_.guarda(lido, gtE02_.indice());
    } else if (lido.registro == &kE11 && gt11_.linha == 0 && gtE11_.indice() < lido.quantos) {
      gt11_.guarda(lido, gtE11_.indice());
    } else if (lido.registro == &kE12) {
      reducao(lido);
    }
  }

  void fim() override {
    if (viuE12_ && crzInicial_.linha != 0) {
      confere(crzInicial_, primeiroCrz_.empty() ? "000000" : primeiroCrz_);
      confere(crzFinal_, ultimoCrz_.empty() ? "000000" : ultimoCrz_);
      confere(dataInicial_, primeiroDia_.empty() ? "        " : primeiroDia_);
      confere(dataFinal_, ultimoDia_.empty() ? "        " : ultimoDia_);
    }
    confereGrandeTotal();
  }

 private:
  // The CRZs ascend in the order in which E01's first and last ones are determined.
  void reducao(const RegistroLido& lido) {
    viuE12_ = true;
    if (lido.vazio) return;
    std::int64_t venda = 0;
    if (!lido.medidaCerta || !venda_.le(lido, venda)) ilegivel_ = true;
    vendas_ += venda;
    ultimoCrz_ = crz_.bytes(lido);
    if (primeiroCrz_.empty()) primeiroCrz_ = ultimoCrz_;
    const std::string movimento(movimento_.bytes(lido)), emissao(emissao_.bytes(lido));
    if (primeiroDia_.empty() || movimento < primeiroDia_) primeiroDia_ = movimento;
    if (!soBrancos(emissao)) ultimoDia_ = std::max(ultimoDia_, emissao);
    if (dataPossivel(movimento) && dataPossivel(emissao) && emissao < movimento)
      relator_.noCampo(validacao::kDataRetrocede, lido, emissao_.indice(), entreAspas(emissao),
                       frase("no day before {1}", {entreAspas(movimento)}));
  }

  void confere(const Guardado& campo, const std::string& esperado) const {
    if (!ilegivel_ && campo.bytes != esperado)
      relator_.naLinhaLida(validacao::kFaixaDasReducoes, campo.linha, kE01, campo.lugar,
                           entreAspas(campo.bytes), frase("{1} as E12 has it", {entreAspas(esperado)}));
  }

  void confereGrandeTotal() const {
    std::int64_t total = 0, posicao = 0;
    if (gt02_.linha == 0 || !leNumero(gt02_.bytes, total)) return;
    if (!ilegivel_ && total < vendas_)
      relator_.naLinhaLida(validacao::kGrandeTotal, gt02_.linha, kE02, gt02_.lugar, reais(total),
                           frase("no less than {1}, the gross sales of E12", {reais(vendas_)}));
    if (gt11_.linha == 0 || !leNumero(gt11_.bytes, posicao)) return;
    for (std::size_t i = gt11_.bytes.size(); i < gt02_.bytes.size(); ++i)
      total /= 10;  // of a covered one, the leading digits
    const auto largura = static_cast<int>(gt11_.bytes.size());
    if (posicao < total)
      relator_.naLinhaLida(
          validacao::kGrandeTotal, gt11_.linha, kE11, gt11_.lugar, entreAspas(gt11_.bytes),
          frase("no less than {1} as in E02", {entreAspas(contadorEscrito(total, largura))}));
  }

  Relator& relator_;
  Guardado crzInicial_, crzFinal_, dataInicial_, dataFinal_, gt02_, gt11_;
  std::string primeiroCrz_, ultimoCrz_, primeiroDia_, ultimoDia_;
  std::int64_t vendas_ = 0;
  bool viuE12_ = false, ilegivel_ = false;
  Coluna crzInicialE01_{kE01, "CRZ inicial"}, crzFinalE01_{kE01, "CRZ final"},
      dataInicialE01_{kE01, "Data inicial"}, dataFinalE01_{kE01, "Data final"}, crz_{kE12, "CRZ"},
      movimento_{kE12, "Data do movimento"}, emissao_{kE12, "Data de emissão"},
      venda_{kE12, "Venda bruta diária"}, gtE02_{kE02, "Totalizador geral (GT)"},
      gtE11_{kE11, "Totalizador geral (GT)"};
};

}  // namespace

std::unique_ptr<Familia> regrasDeFaixa(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeFaixa>(relator);
}

}  // namespace cotepe
