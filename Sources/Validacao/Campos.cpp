// Rules about single fields: each is of its kind, and holds what its register allows.
#include <algorithm>
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

/// What a field must be, beyond its kind.
struct Exigencia {
  std::string letras;     // of a flag: the letters that it may be
  std::string constante;  // what it holds in every data record; empty if nothing fixed
};

std::string constanteDe(const Campo& campo) {
  const auto largura = static_cast<std::size_t>(std::max(0, campo.largura));
  std::string texto(largura, numerica(campo.especie) ? '0' : ' ');
  if (campo.origem.tipo == Origem::Tipo::Nenhuma) return texto;
  if (campo.origem.tipo != Origem::Tipo::Constante) return "";
  const std::string_view constante = campo.origem.constante;
  texto.replace(numerica(campo.especie) ? largura - constante.size() : 0, constante.size(), constante);
  return texto;
}

Exigencia exigenciaDe(const Campo& campo) {
  Exigencia exigencia{{}, constanteDe(campo)};
  if (campo.largura != 1) return exigencia;
  for (int i = 0; i < campo.quantosCodigos; ++i)
    exigencia.letras += *campo.codigos[i].valor == '\0' ? ' ' : *campo.codigos[i].valor;
  return exigencia;
}

// "a blank, D or A"
std::string emPalavras(const std::string& letras) {
  std::string texto;
  for (const char letra : letras) {
    const std::string uma = letra == ' ' ? traduz("a blank") : std::string(1, letra);
    if (!texto.empty() && letra == letras.back()) return frase("{1} or {2}", {texto, uma});
    texto.append(texto.empty() ? "" : ", ").append(uma);
  }
  return texto;
}

// A date that must be there is wrong when it is blank.
Defeito defeitoDe(const Campo& campo, std::string_view bytes, bool presente) {
  if (!presente || !soBrancos(bytes)) return defeito(campo.especie, bytes);
  return deData(campo.especie) ? Defeito::Data : Defeito::Hora;
}

class CamposDaLinha final : public Familia {
 public:
  CamposDaLinha(Relator& relator, const Catalogo& catalogo) : relator_(relator) {
    for (const Registro* registro : catalogo) {
      exigencias_.emplace_back();
      for (const Campo& campo : registro->campos) exigencias_.back().push_back(exigenciaDe(campo));
    }
  }

  // When the length is wrong, nothing is known to be in its place.
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
    if (!exigencia.letras.empty()) {
      if (exigencia.letras.find(bytes[0]) == std::string::npos)
        relator_.noCampo(validacao::kLetra, lido, i, entreAspas(bytes), emPalavras(exigencia.letras));
      return;
    }
    const Defeito achado = defeitoDe(*campo.campo, bytes, campo.campo->obrigatoria);
    if (achado != Defeito::Nenhum) return relata(lido, i, achado);
    if (campo.campo->especie == Especie::Identificador) confereNumeroFiscal(lido, i, campo.campo->podeSerCpf);
    if (campo.campo->desloca) confereLargura(lido, i);
    if (campo.campo->origem.tipo == Origem::Tipo::DoLeiaute) confereLeiaute(lido, i);
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
    const Origem& origem = lido.campos[i].campo->origem;
    if (bytes != origem.constante && bytes != origem.nosOutros)
      relator_.noCampo(validacao::kConstante, lido, i, entreAspas(bytes),
                       frase("{1} or {2}", {entreAspas(origem.constante), entreAspas(origem.nosOutros)}));
  }

  Relator& relator_;
  std::vector<std::vector<Exigencia>> exigencias_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeCampos(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<CamposDaLinha>(relator, leitor.catalogo());
}

}  // namespace cotepe
