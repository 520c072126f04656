// Counters without gaps: CRZ, CCF and GNF in their registers, COO over fiscal coupons and other documents
// together.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"
#include "Validacao/Paginas.h"

namespace cotepe {

const Regra validacao::kContadorRepetido{"counter-repeat", Severidade::Erro, marca("A counter is used once."),
                                         kVejaOsDocumentos};
const Regra validacao::kContadorAusente{"counter-gap", Severidade::Erro,
                                        marca("CRZ, COO, CCF, GNF, GRG and CDC have no gaps."),
                                        kVejaOsDocumentos};
const Regra validacao::kItemAusente{"item-gap", Severidade::Aviso,
                                    marca("The items of a coupon are numbered from 1 without gaps."),
                                    kVejaOsDocumentos};

namespace {

std::int64_t limite(int largura) {
  std::int64_t limite = 1;
  for (int i = 0; i < largura; ++i) limite *= 10;
  return limite;
}

std::string citado(std::int64_t contador, int largura) {
  return entreAspas(contadorEscrito(contador, largura));
}

std::string semDocumentos(std::int64_t de, std::int64_t ate, int largura) {
  return frase(de == ate ? marca("no document with COO {1}") : marca("no document with COO {1} to {2}"),
               {citado(de, largura), citado(ate, largura)});
}

/// A counter that advances by one from record to record of a register.
class Contador {
 public:
  explicit Contador(const Registro& registro, const char* rotulo) : coluna_(registro, rotulo) {}

  // A record whose counter cannot be read says nothing about the next one.
  void confere(Relator& relator, const RegistroLido& lido, bool podeRepetir) {
    std::int64_t valor = 0;
    const bool lida = coluna_.le(lido, valor);
    if (lida && conhecido_) compara(relator, lido, valor, podeRepetir);
    conhecido_ = lida;
    anterior_ = valor;
  }

  const Coluna& coluna() const { return coluna_; }

 private:
  void compara(Relator& relator, const RegistroLido& lido, std::int64_t valor, bool podeRepetir) const {
    const int largura = lido.campos[coluna_.indice()].largura;
    const std::string_view bytes = coluna_.bytes(lido);
    if (valor > anterior_ + 1)
      relator.noCampo(
          validacao::kContadorAusente, lido, coluna_.indice(),
          frase("{1} after {2}", {entreAspas(bytes), citado(anterior_, largura)}),
          frase(valor == anterior_ + 2 ? marca("{1} between them") : marca("{1} to {2} between them"),
                {citado(anterior_ + 1, largura), citado(valor - 1, largura)}));
    if (valor == anterior_ && !podeRepetir)
      relator.noCampo(validacao::kContadorRepetido, lido, coluna_.indice(),
                      frase("{1} a second time", {entreAspas(bytes)}), traduz("each counter once"));
  }

  Coluna coluna_;
  std::int64_t anterior_ = 0;
  bool conhecido_ = false;
};

/// The COOs of E14 and E16 as one sequence: those of E14 are kept, those of E16 pass by. If the counter
/// started again, or a COO could not be read, the sequence is unknown and nothing is reported.
class Coos {
 public:
  void cupom(const RegistroLido& lido) {
    std::int64_t coo = 0;
    if (!cupom_.le(lido, coo)) incerto_ = true;
    largura_ = lido.campos[cupom_.indice()].largura;
    if (coo < ultimoCupom_) volta(ultimoCupom_, coo);
    ultimoCupom_ = coo;
    const auto curto = static_cast<std::uint32_t>(coo);
    if (emOrdem_.size() != 0 && curto < maior_) return fora_.push_back(curto);
    maior_ = curto;
    emOrdem_.acrescenta(curto);
  }

  void documento(Relator& relator, const RegistroLido& lido) {
    std::int64_t coo = 0;
    if (!documento_.le(lido, coo)) incerto_ = true;
    largura_ = lido.campos[documento_.indice()].largura;
    if (incerto_) return;
    ordena();
    if (ultimo_ >= 0 && coo <= ultimo_) return volta(ultimo_, coo);
    const auto lacuna = [&](std::int64_t de, std::int64_t ate) {
      relator.noCampo(validacao::kContadorAusente, lido, documento_.indice(),
                      semDocumentos(de, ate, largura_), traduz("it in E14 or E16"));
    };
    avancaAte(coo, lacuna);
    if (temCupom() && cupomAtual() == coo) {
      passaCupom();
      relator.noCampo(validacao::kContadorRepetido, lido, documento_.indice(),
                      frase("{1}, which E14 has too", {entreAspas(documento_.bytes(lido))}),
                      traduz("each COO once"));
    }
    passa(coo, lacuna);
  }

  void fim(Relator& relator) {
    if (incerto_) return;
    ordena();
    avancaAte(INT64_MAX, [&](std::int64_t de, std::int64_t ate) {
      relator.noArquivo(validacao::kContadorAusente, &kE14, semDocumentos(de, ate, largura_),
                        traduz("it in E14 or E16"));
    });
  }

 private:
  void volta(std::int64_t antes, std::int64_t depois) {
    const std::int64_t tudo = limite(largura_);
    if (antes >= tudo - tudo / 100 && depois < tudo / 100) incerto_ = true;
  }

  void ordena() {
    if (ordenado_) return;
    std::sort(fora_.begin(), fora_.end());
    ordenado_ = true;
  }

  // The COOs of E14 as one ascending sequence. Each of the others is smaller than the last one in order.
  bool temCupom() const { return cursor_ < emOrdem_.size(); }
  bool vemDeFora() { return cursorDeFora_ < fora_.size() && fora_[cursorDeFora_] < emOrdem_.em(cursor_); }
  std::int64_t cupomAtual() { return vemDeFora() ? fora_[cursorDeFora_] : emOrdem_.em(cursor_); }
  void passaCupom() { ++(vemDeFora() ? cursorDeFora_ : cursor_); }

  template <class Lacuna>
  void avancaAte(std::int64_t coo, const Lacuna& lacuna) {
    for (; temCupom() && cupomAtual() < coo; passaCupom()) passa(cupomAtual(), lacuna);
  }

  template <class Lacuna>
  void passa(std::int64_t coo, const Lacuna& lacuna) {
    if (ultimo_ >= 0 && coo > ultimo_ + 1) lacuna(ultimo_ + 1, coo - 1);
    ultimo_ = std::max(ultimo_, coo);
  }

  Coluna cupom_{kE14, "COO"}, documento_{kE16, "COO"};
  Paginas<std::uint32_t> emOrdem_;   // of E14, ascending
  std::vector<std::uint32_t> fora_;  // the others of E14
  std::uint32_t maior_ = 0;
  std::size_t cursor_ = 0, cursorDeFora_ = 0;
  std::int64_t ultimoCupom_ = -1, ultimo_ = -1;
  int largura_ = 6;
  bool ordenado_ = false, incerto_ = false;
};

/// The items of a coupon: 1, 2, 3 ...
class Itens {
 public:
  Itens(const Registro& registro, const char* contador)
      : contador_(registro, contador), item_(registro, "Nº do item") {}

  void confere(Relator& relator, const RegistroLido& lido) {
    std::int64_t cupom = 0, item = 0;
    const bool lidos = contador_.le(lido, cupom) && item_.le(lido, item);
    const std::int64_t esperado = conhecido_ && cupom == cupom_ ? ultimo_ + 1 : 1;
    if (lidos && (conhecido_ || !comecou_) && item > esperado)
      relator.noCampo(validacao::kItemAusente, lido, item_.indice(), entreAspas(item_.bytes(lido)),
                      entreAspas(contadorEscrito(esperado, 3)));
    conhecido_ = lidos;
    comecou_ = true;
    cupom_ = cupom;
    ultimo_ = item;
  }

 private:
  Coluna contador_, item_;
  std::int64_t cupom_ = -1, ultimo_ = 0;
  bool conhecido_ = false, comecou_ = false;
};

class RegrasDeContadores final : public Familia {
 public:
  explicit RegrasDeContadores(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr || lido.vazio) return;
    if (lido.registro == &kE12) {
      crz_.confere(relator_, lido, true);  // allowed under another CRO; otherwise its key is repeated
    } else if (lido.registro == &kE14) {
      ccf_.confere(relator_, lido, true);  // a repeated key as well
      coos_.cupom(lido);
    } else if (lido.registro == &kE15) {
      itens_.confere(relator_, lido);
    } else if (lido.registro == &kE16) {
      std::int64_t gnf = 0;
      const bool semGnf = gnf_.coluna().le(lido, gnf) && gnf == 0;  // a document of another type
      if (!semGnf) gnf_.confere(relator_, lido, false);
      const std::string_view tipo = simbolo_.bytes(lido);
      if (tipo == "RG") grg_.confere(relator_, lido, false);
      if (tipo == "CC") cdc_.confere(relator_, lido, false);
      if (tipo == "RZ") crz16_.confere(relator_, lido, true);  // under another CRO
      coos_.documento(relator_, lido);
    } else if (lido.registro == &kE20) {
      itensNaoFiscais_.confere(relator_, lido);
    }
  }

  void fim() override { coos_.fim(relator_); }

 private:
  Relator& relator_;
  Contador crz_{kE12, "CRZ"}, ccf_{kE14, "CCF"}, gnf_{kE16, "GNF"}, grg_{kE16, "GRG"}, cdc_{kE16, "CDC"},
      crz16_{kE16, "CRZ"};
  Coluna simbolo_{kE16, "Símbolo do documento"};
  Coos coos_;
  Itens itens_{kE15, "CCF"}, itensNaoFiscais_{kE20, "GNF"};
};

}  // namespace

std::unique_ptr<Familia> regrasDeContadores(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeContadores>(relator);
}

}  // namespace cotepe
