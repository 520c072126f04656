// What two registers both say: E16 of E12 and E19, E10 of itself, E09 of the restarts, E07 of the software,
// the reduction of its documents' days.
#include <algorithm>
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"
#include "Validacao/SomasDaReducao.h"

namespace cotepe {

const Regra validacao::kMomentoDaReducao{
    "reduction-moment", Severidade::Erro,
    marca("E16's document RZ was issued on the day and at the hour that E12 has."), kVejaOBanco};
const Regra validacao::kDocumentoDoComprovante{
    "receipt-document", Severidade::Erro,
    marca("A receipt of E19 is a document CN in E16 with the same COO and GNF."), kVejaOsDocumentos};
const Regra validacao::kFaixaDaFita{"tape-range", Severidade::Erro,
                                    marca("A detail tape in E10 begins with the COO after the one before."),
                                    kVejaOsDocumentos};
const Regra validacao::kReinicioConhecido{"restart-known", Severidade::Erro,
                                          marca("E09 has the restart (CRO) that E02, E11 and E12 name."),
                                          kVejaOBanco};
const Regra validacao::kVersaoDoSoftware{"software-version", Severidade::Erro,
                                         marca("E01's basic software is the last one that E07 lists."),
                                         kVejaOBanco};
const Regra validacao::kEstorno{
    "reversal", Severidade::Erro,
    marca("A payment in E21 is marked as reversed where an amount is, and only there."), kVejaOBanco};
const Regra validacao::kDiaDoDocumento{
    "document-day", Severidade::Aviso,
    marca("A document was issued on its reduction's day or the day after."), kVejaOBanco};
const Regra validacao::kDiaDaReducao{"reduction-day", Severidade::Aviso,
                                     marca("A reduction was issued on its fiscal day or the day after."),
                                     kVejaOBanco};
const Regra validacao::kLinhaRepetida{"repeated-line", Severidade::Aviso,
                                      marca("No line is there twice in a row."), kVejaOsDocumentos};

namespace {

constexpr std::size_t kRetidos = 10000;  // findings that are held back; more would add nothing

/// A document CN of E16.
struct Comprovante {
  std::uint32_t coo = 0, linha = 0, gnf = 0;
};

/// An issue, as E12 has it of a reduction: the days as AAAAMMDD.
struct Momento {
  std::int64_t crz = 0;
  std::string movimento, data, hora;
};

// Of a possible day, AAAAMMDD.
std::string diaSeguinte(const std::string& dia) {
  int ano = std::stoi(dia.substr(0, 4)), mes = std::stoi(dia.substr(4, 2)),
      proximo = std::stoi(dia.substr(6)) + 1;
  if (proximo > diasDoMes(ano, mes)) {
    proximo = 1;
    if (++mes > 12) {
      mes = 1;
      ++ano;
    }
  }
  return contadorEscrito(ano, 4) + contadorEscrito(mes, 2) + contadorEscrito(proximo, 2);
}

class RegrasDeCorrespondencias final : public Familia {
 public:
  explicit RegrasDeCorrespondencias(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    relator_.retem(&retidos_);
    le(lido);
    relator_.retem(nullptr);
    if (retidos_.size() > kRetidos) retidos_.resize(kRetidos);
  }

  void fim() override {
    if (!relator_.limpo()) return;
    for (const Achado& achado : retidos_) relator_.entrega(achado);
    if (viuE09_ && linhaE02_ != 0 && !conhecido(croE02_))
      relator_.naLinhaLida(validacao::kReinicioConhecido, linhaE02_, kE02, lugarE02_, entreAspas(bytesE02_),
                           traduz("a CRO of E09"));
    if (linhaE01_ == 0 || ultimaVersao_.empty() || versaoE01_ == ultimaVersao_) return;
    relator_.naLinhaLida(validacao::kVersaoDoSoftware, linhaE01_, kE01, lugarE01_, entreAspas(versaoE01_),
                         frase("{1} as in {2}", {entreAspas(ultimaVersao_), "E07"}));
  }

 private:
  void le(const RegistroLido& lido) {
    repetida(lido);
    if (lido.registro == nullptr || !lido.medidaCerta) return;
    if (lido.registro == &kE01) return guardaE01(lido);
    if (lido.registro == &kE02) return guardaE02(lido);
    if (lido.registro == &kE09) viuE09_ = true;
    if (lido.registro == &kE16) viuE16_ = true;
    if (lido.vazio) return;
    if (lido.registro == &kE07) return guardaE07(lido);
    if (lido.registro == &kE09) return guardaE09(lido);
    if (lido.registro == &kE10) return fita(lido);
    if (lido.registro == &kE11) return reinicio(lido, cro11_);
    if (lido.registro == &kE12) return reducao(lido);
    if (lido.registro == &kE14) return dia(lido, coo14_, data14_);
    if (lido.registro == &kE16) return documento(lido);
    if (lido.registro == &kE19) return comprovante(lido);
    if (lido.registro == &kE21) return estorno(lido);
  }

  // Two users may have the same registration.
  void repetida(const RegistroLido& lido) {
    if (lido.registro != nullptr && lido.registro != &kE02 && lido.linha.texto == anterior_)
      relator_.naLinha(validacao::kLinhaRepetida, lido, traduz("the same line as the one before"),
                       traduz("a line of its own"));
    anterior_.assign(lido.linha.texto);
  }

  void guardaE01(const RegistroLido& lido) {
    if (linhaE01_ != 0 || versao01_.lugar(lido) >= lido.quantos) return;
    linhaE01_ = lido.linha.numero;
    versaoE01_ = versao01_.texto(lido);
    lugarE01_ = lugarDoCampo(lido, versao01_.lugar(lido));
  }

  void guardaE07(const RegistroLido& lido) { ultimaVersao_ = versao07_.texto(lido); }

  void guardaE09(const RegistroLido& lido) {
    std::int64_t cro = 0;
    if (cro09_.le(lido, cro)) reinicios_.push_back(cro);
  }

  // No restart has the number 0.
  bool conhecido(std::int64_t cro) const {
    return cro == 0 || std::find(reinicios_.begin(), reinicios_.end(), cro) != reinicios_.end();
  }

  // Of several users the first one.
  void guardaE02(const RegistroLido& lido) {
    if (linhaE02_ != 0 || !cro02_.le(lido, croE02_)) return;
    linhaE02_ = lido.linha.numero;
    bytesE02_ = cro02_.texto(lido);
    lugarE02_ = lugarDoCampo(lido, cro02_.lugar(lido));
  }

  void reinicio(const RegistroLido& lido, const Coluna& coluna) {
    std::int64_t cro = 0;
    if (!viuE09_ || !coluna.le(lido, cro) || conhecido(cro)) return;
    relator_.noCampo(validacao::kReinicioConhecido, lido, coluna.lugar(lido), entreAspas(coluna.bytes(lido)),
                     traduz("a CRO of E09"));
  }

  void fita(const RegistroLido& lido) {
    std::int64_t inicial = 0, final = 0;
    if (!cooInicial_.le(lido, inicial) || !cooFinal_.le(lido, final)) {
      fimDaFita_ = -1;
      return;
    }
    if (final < inicial)
      relator_.noCampo(validacao::kFaixaDaFita, lido, cooFinal_.lugar(lido),
                       entreAspas(cooFinal_.bytes(lido)),
                       frase("no less than {1}", {entreAspas(cooInicial_.bytes(lido))}));
    else if (fimDaFita_ >= 0 && inicial != fimDaFita_ + 1 && inicial != 1)
      relator_.noCampo(validacao::kFaixaDaFita, lido, cooInicial_.lugar(lido),
                       entreAspas(cooInicial_.bytes(lido)),
                       entreAspas(contadorEscrito(fimDaFita_ + 1, cooInicial_.largura(lido))));
    fimDaFita_ = final;
  }

  void reducao(const RegistroLido& lido) {
    reinicio(lido, cro12_);
    Momento momento{0, movimento12_.texto(lido), data12_.texto(lido), hora12_.texto(lido)};
    std::int64_t coo = 0;
    if (!crz12_.le(lido, momento.crz) || !coo12_.le(lido, coo)) return reducoes_.invalida();
    reducoes_.acrescenta(momento.crz, coo, lido.linha.numero);
    if (dataPossivel(momento.movimento) && dataPossivel(momento.data) &&
        momento.data > diaSeguinte(momento.movimento))
      relator_.noCampo(validacao::kDiaDaReducao, lido, data12_.lugar(lido), entreAspas(momento.data),
                       frase("{1} or the day after", {entreAspas(momento.movimento)}));
    momentos_.push_back(std::move(momento));
  }

  // When the same CRZ occurs twice nothing is known.
  const Momento* momentoDe(std::int64_t coo) {
    if (!reducoes_.servem()) return nullptr;
    const ReducaoComTotais* reducao = reducoes_.doDocumento(coo);
    return reducao == nullptr ? nullptr
                              : &momentos_[static_cast<std::size_t>(reducao - reducoes_.todas().data())];
  }

  void dia(const RegistroLido& lido, const Coluna& colunaCoo, const Coluna& data) {
    std::int64_t coo = 0;
    const Momento* momento = colunaCoo.le(lido, coo) ? momentoDe(coo) : nullptr;
    const std::string dia = data.texto(lido);
    if (momento == nullptr || !dataPossivel(dia) || !dataPossivel(momento->movimento)) return;
    if (dia >= momento->movimento && dia <= diaSeguinte(momento->movimento)) return;
    relator_.noCampo(validacao::kDiaDoDocumento, lido, data.lugar(lido), entreAspas(dia),
                     frase("{1} or the day after, as its reduction {2}",
                           {entreAspas(momento->movimento), std::to_string(momento->crz)}));
  }

  void documento(const RegistroLido& lido) {
    const std::string tipo = simbolo_.texto(lido);
    if (tipo != "RZ") dia(lido, coo16_, data16_);  // whose moment is E12's
    std::int64_t coo = 0, gnf = 0, crz = 0;
    if (tipo == "CN" && coo16_.le(lido, coo) && gnf16_.le(lido, gnf)) {
      Comprovante& novo = comprovantes_.acrescenta(static_cast<std::uint32_t>(coo));
      novo.linha = static_cast<std::uint32_t>(lido.linha.numero);
      novo.gnf = static_cast<std::uint32_t>(gnf);
    }
    if (tipo != "RZ" || !crz16_.le(lido, crz)) return;
    const auto momento = std::lower_bound(momentos_.begin(), momentos_.end(), crz,
                                          [](const Momento& m, std::int64_t c) { return m.crz < c; });
    if (!reducoes_.servem() || momento == momentos_.end() || momento->crz != crz) return;
    confereMomento(lido, data16_, momento->data);
    confereMomento(lido, hora16_, momento->hora);
  }

  void confereMomento(const RegistroLido& lido, const Coluna& coluna, const std::string& esperado) {
    if (esperado.empty() || coluna.texto(lido) == esperado) return;
    relator_.noCampo(validacao::kMomentoDaReducao, lido, coluna.lugar(lido), entreAspas(coluna.bytes(lido)),
                     frase("{1} as in {2}", {entreAspas(esperado), "E12"}));
  }

  void comprovante(const RegistroLido& lido) {
    dia(lido, coo19_, data19_);
    std::int64_t coo = 0, gnf = 0;
    if (!viuE16_ || !coo19_.le(lido, coo) || !gnf19_.le(lido, gnf)) return;
    const Comprovante* documento = comprovantes_.acha(static_cast<std::uint32_t>(coo));
    if (documento == nullptr)
      relator_.noCampo(validacao::kDocumentoDoComprovante, lido, coo19_.lugar(lido),
                       entreAspas(coo19_.bytes(lido)), traduz("a document CN of E16 with that COO"));
    else if (documento->gnf != gnf)
      relator_.noCampo(
          validacao::kDocumentoDoComprovante, lido, gnf19_.lugar(lido), entreAspas(gnf19_.bytes(lido)),
          frase("{1} as in {2}", {entreAspas(contadorEscrito(documento->gnf, gnf19_.largura(lido))), "E16"}));
  }

  void estorno(const RegistroLido& lido) {
    std::int64_t valor = 0;
    const std::string_view letra = estornado_.bytes(lido);
    if (!valorEstornado_.le(lido, valor) || (letra != "S" && letra != "N") || (letra == "S") == (valor != 0))
      return;
    relator_.noCampo(
        validacao::kEstorno, lido, estornado_.lugar(lido), entreAspas(letra),
        frase("{1} with a reversed amount of {2}", {valor != 0 ? "\"S\"" : "\"N\"", reais(valor)}));
  }

  Relator& relator_;
  std::vector<Achado> retidos_;
  ReducoesPorCoo reducoes_;
  std::vector<Momento> momentos_;  // of the reductions, in their order
  std::vector<std::int64_t> reinicios_;
  TabelaPorCoo<Comprovante> comprovantes_;
  std::string anterior_, versaoE01_, ultimaVersao_;
  std::string bytesE02_;
  LugarDoCampo lugarE01_, lugarE02_;
  long linhaE01_ = 0, linhaE02_ = 0;
  std::int64_t croE02_ = 0;
  std::int64_t fimDaFita_ = -1;
  bool viuE09_ = false, viuE16_ = false;
  Coluna versao01_{kE01, "Versão do software básico"}, versao07_{kE07, "Versão do software básico"},
      cro02_{kE02, "CRO"}, cro09_{kE09, "CRO"}, cooInicial_{kE10, "COO inicial"},
      cooFinal_{kE10, "COO final"}, cro11_{kE11, "CRO"}, cro12_{kE12, "CRO"}, crz12_{kE12, "CRZ"},
      coo12_{kE12, "COO"}, movimento12_{kE12, "Data do movimento"}, data12_{kE12, "Data de emissão"},
      hora12_{kE12, "Hora de emissão"}, coo14_{kE14, "COO"}, data14_{kE14, "Data de emissão"},
      coo16_{kE16, "COO"}, gnf16_{kE16, "GNF"}, crz16_{kE16, "CRZ"}, simbolo_{kE16, "Símbolo do documento"},
      data16_{kE16, "Data final de emissão"}, hora16_{kE16, "Hora final de emissão"}, coo19_{kE19, "COO"},
      gnf19_{kE19, "GNF"}, data19_{kE19, "Data de emissão"}, estornado_{kE21, "Estornado (S/N)"},
      valorEstornado_{kE21, "Valor estornado"};
};

}  // namespace

std::unique_ptr<Familia> regrasDeCorrespondencias(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeCorrespondencias>(relator);
}

}  // namespace cotepe
