// Rules about single fields: each is of its kind, and holds what its register allows.
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Leiaute/NumeroFiscal.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kDigitos{"field-digits", Severidade::Erro,
                                marca("A number is digits alone: no sign, no separator, no blank."),
                                kVejaOBanco};
const Regra validacao::kLargura{"field-width", Severidade::Erro,
                                marca("A number is wider than its field only where its digits need it."),
                                kGereDeNovo};
const Regra validacao::kLetra{"field-letter", Severidade::Erro, marca("A flag is one of its letters."),
                              kVejaOBanco};
const Regra validacao::kConstante{"field-constant", Severidade::Erro,
                                  marca("A field that is the same in every report holds that value."),
                                  kGereDeNovo};
const Regra validacao::kControle{"field-control", Severidade::Erro, marca("A text has no control character."),
                                 kVejaOBanco};
const Regra validacao::kNaoAscii{"field-ascii", Severidade::Aviso, marca("A text is ASCII."), kVejaOBanco};
const Regra validacao::kAlinhamento{"field-alignment", Severidade::Aviso, marca("A text is left-aligned."),
                                    kVejaOBanco};
const Regra validacao::kData{"field-date", Severidade::Erro,
                             marca("A date is a day that exists, and is there where the record needs it."),
                             kVejaOBanco};
const Regra validacao::kHora{"field-hour", Severidade::Erro,
                             marca("An hour is one that exists, and is there where the record needs it."),
                             kVejaOBanco};
const Regra validacao::kNumeroFiscal{"tax-number", Severidade::Aviso,
                                     marca("The check digits of a CNPJ or CPF are right."), kVejaOBanco};

namespace {

/// The letters of a flag, and the same in words.
struct LetrasDoCampo {
  const char *rotulo, *letras, *esperado;
};

constexpr LetrasDoCampo kLetras[] = {
    {"Cancelado (S/N)", "SN", marca("S or N")},
    {"Estornado (S/N)", "SN", marca("S or N")},
    {"Perda de dados da MT", "SN", marca("S or N")},
    {"Tipo do desconto", "VP", marca("V or P")},
    {"Tipo do acréscimo", "VP", marca("V or P")},
    {"Ordem de desconto e acréscimo", " DA", marca("a blank, D or A")},
    {"Arredondamento ou truncamento", "AT", marca("A or T")},
    {"Casas decimais da quantidade", "23", marca("2 or 3")},
    {"Casas decimais do valor unitário", "23", marca("2 or 3")},
};

/// What a field must be, beyond its kind.
struct Exigencia {
  const LetrasDoCampo* letras = nullptr;  // of a flag
  std::string constante;                  // what it holds in every data record; empty for no such thing
  bool presente = false;                  // a date or an hour that may not be blank
  bool contribuinte = false;              // a CNPJ
  bool consumidor = false;                // a CNPJ or a CPF
};

// Dates whose column is never NULL, or is what the period is judged by.
bool dataObrigatoria(const Registro& registro, const Campo& campo) {
  for (const char* sempre : {"E10", "E11", "E14", "E16", "E22"})
    if (std::strcmp(registro.codigo, sempre) == 0) return true;
  return std::strcmp(campo.rotulo, "Data do movimento") == 0;
}

std::string constanteDe(const Campo& campo) {
  const auto largura = static_cast<std::size_t>(std::max(0, campo.largura));
  std::string texto(largura, numerica(campo.especie) ? '0' : ' ');
  if (campo.origem.tipo == Origem::Tipo::Nenhuma) return texto;
  if (campo.origem.tipo != Origem::Tipo::Constante) return "";
  const std::string_view constante = campo.origem.constante;
  texto.replace(numerica(campo.especie) ? largura - constante.size() : 0, constante.size(), constante);
  return texto;
}

Exigencia exigenciaDe(const Registro& registro, const Campo& campo) {
  Exigencia exigencia;
  for (const LetrasDoCampo& conhecida : kLetras)
    if (std::strcmp(campo.rotulo, conhecida.rotulo) == 0) exigencia.letras = &conhecida;
  exigencia.constante = constanteDe(campo);
  exigencia.presente = (deData(campo.especie) || deHora(campo.especie)) && dataObrigatoria(registro, campo);
  exigencia.consumidor = std::strcmp(campo.rotulo, "CPF/CNPJ do consumidor") == 0;
  exigencia.contribuinte = campo.especie == Especie::Identificador && !exigencia.consumidor;
  return exigencia;
}

// A date that must be there is wrong when it is blank.
Defeito defeitoDe(const Campo& campo, std::string_view bytes, bool presente) {
  if (!presente || !soBrancos(bytes)) return defeito(campo.especie, bytes);
  return deData(campo.especie) ? Defeito::Data : Defeito::Hora;
}

class CamposDaLinha final : public Familia {
 public:
  explicit CamposDaLinha(Relator& relator) : relator_(relator) {
    for (std::size_t r = 0; r < kCatalogo.size(); ++r)
      for (const Campo& campo : kCatalogo[r]->campos)
        exigencias_[r].push_back(exigenciaDe(*kCatalogo[r], campo));
  }

  // Where the length is wrong, nothing is known to stand in its place.
  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr || !lido.medidaCerta || lido.vazio) return;
    const std::vector<Exigencia>& exigencias = exigencias_[static_cast<std::size_t>(lido.indice)];
    for (std::size_t i = 1; i < lido.quantos; ++i)
      confere(lido, i, exigencias[static_cast<std::size_t>(lido.campos[i].numero - 1)]);
  }

 private:
  void confere(const RegistroLido& lido, std::size_t i, const Exigencia& exigencia) {
    const CampoLido& campo = lido.campos[i];
    const std::string_view bytes = campo.em(lido.linha.texto);
    if (!exigencia.constante.empty()) {
      if (bytes != exigencia.constante)
        relator_.noCampo(validacao::kConstante, lido, i, entreAspas(bytes), entreAspas(exigencia.constante));
      return;
    }
    if (exigencia.letras != nullptr) {
      if (std::strchr(exigencia.letras->letras, bytes[0]) == nullptr || bytes[0] == '\0')
        relator_.noCampo(validacao::kLetra, lido, i, entreAspas(bytes), traduz(exigencia.letras->esperado));
      return;
    }
    const Defeito achado = defeitoDe(*campo.campo, bytes, exigencia.presente);
    if (achado != Defeito::Nenhum) return relata(lido, i, achado);
    if (exigencia.contribuinte || exigencia.consumidor) confereNumeroFiscal(lido, i, exigencia.consumidor);
    if (campo.campo->desloca) confereLargura(lido, i);
    if (lido.indice == 0 && i + 1 == lido.quantos) confereLeiaute(lido, i);
  }

  void relata(const RegistroLido& lido, std::size_t i, Defeito achado) {
    const std::string bytes = entreAspas(lido.bytes(i));
    switch (achado) {
      case Defeito::Digitos:
        return relator_.noCampo(validacao::kDigitos, lido, i, bytes,
                                fraseDe("{n} digit", "{n} digits", lido.campos[i].largura));
      case Defeito::Controle:
        return relator_.noCampo(validacao::kControle, lido, i, bytes, traduz("no control character"));
      case Defeito::NaoAscii:
        return relator_.noCampo(validacao::kNaoAscii, lido, i, bytes, traduz("ASCII alone"));
      case Defeito::Alinhamento:
        return relator_.noCampo(validacao::kAlinhamento, lido, i, bytes, traduz("no blank before the text"));
      case Defeito::Data:
        return relator_.noCampo(validacao::kData, lido, i, bytes, traduz("a day as AAAAMMDD"));
      default:  // Hora
        return relator_.noCampo(validacao::kHora, lido, i, bytes, traduz("an hour as HHMMSS"));
    }
  }

  void confereNumeroFiscal(const RegistroLido& lido, std::size_t i, bool podeSerCpf) {
    const std::string_view bytes = lido.bytes(i);
    if (soZeros(bytes) || cnpjValido(bytes) || (podeSerCpf && cpfValido(bytes))) return;
    relator_.noCampo(validacao::kNumeroFiscal, lido, i, entreAspas(bytes),
                     podeSerCpf ? traduz("a CPF or CNPJ with right check digits")
                                : traduz("a CNPJ with right check digits"));
  }

  void confereLargura(const RegistroLido& lido, std::size_t i) {
    const int nominal = lido.campos[i].campo->largura;
    if (lido.campos[i].largura > nominal && lido.bytes(i)[0] == '0')
      relator_.noCampo(validacao::kLargura, lido, i, entreAspas(lido.bytes(i)),
                       fraseDe("{n} digit", "{n} digits", nominal));
  }

  void confereLeiaute(const RegistroLido& lido, std::size_t i) {
    const std::string_view bytes = lido.bytes(i);
    constexpr std::string_view kPrimeiro = "AC1704 01.00.00", kSegundo = "AC1704 02.00.00";
    if (bytes != kPrimeiro && bytes != kSegundo)
      relator_.noCampo(validacao::kConstante, lido, i, entreAspas(bytes),
                       frase("{1} or {2}", {entreAspas(kPrimeiro), entreAspas(kSegundo)}));
  }

  Relator& relator_;
  std::array<std::vector<Exigencia>, kCatalogo.size()> exigencias_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeCampos(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<CamposDaLinha>(relator);
}

}  // namespace cotepe
