#include "Conferencia/Celula.h"

#include <algorithm>

#include "Achados/Citacao.h"
#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"
#include "Leiaute/Releitura.h"
#include "Leiaute/Texto.h"

namespace cotepe {

const Regra conferencia::kNulo{"null-value", Severidade::Erro,
                               marca("NULL stands only in dates that may be absent."),
                               marca("store a value")};
const Regra conferencia::kTamanhoDaLetra{"flag-length", Severidade::Erro, marca("A flag is one character."),
                                         marca("store one character")};
const Regra conferencia::kCodigo{"code-unknown", Severidade::Erro, marca("A code is one of its values."),
                                 marca("store one of them")};
const Regra conferencia::kTextoLongo{"text-long", Severidade::Erro,
                                     marca("A text is no longer than its field, in bytes."),
                                     marca("shorten it")};
const Regra conferencia::kTextoCortado{
    "text-cut", Severidade::Aviso,
    marca("A text of which only the first bytes are written fits all the same."),
    marca("shorten it, so that what matters stands in front")};
const Regra conferencia::kTextoCurto{"text-short", Severidade::Erro,
                                     marca("A text that is not filled with blanks is as long as its field."),
                                     marca("store all its characters")};
const Regra conferencia::kControle{"control-character", Severidade::Erro,
                                   marca("A text has no control character and no line end."),
                                   marca("remove it")};

namespace {

bool qualquer(const Campo& /*campo*/) { return true; }

// Bytes that the field gets: those of the characters that the query keeps, without what the field removes.
std::ptrdiff_t bytesNoCampo(const Destino& destino, std::string_view texto) {
  std::ptrdiff_t bytes = 0;
  int contados = 0;
  for (const char c : texto) {
    if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U && ++contados > destino.usados &&
        destino.usados != 0)
      break;
    const bool removido =
        (c == '.' && destino.campo->removePontos) || (c == '-' && destino.campo->removeHifens);
    if (!removido) ++bytes;
  }
  return bytes;
}

const char* doVazio(Especie especie) {
  switch (especie) {
    case Especie::Texto:
    case Especie::Preenchido:
      return marca("{1}, which is written as blanks");
    case Especie::ComoEsta:
    case Especie::Data:
    case Especie::Hora:
    case Especie::DataPronta:
    case Especie::HoraPronta:
      return marca("{1}, which ends the line there");
    default:
      return marca("{1}, which is written as zeros");
  }
}

}  // namespace

void ConferenciaDaCelula::porForma() {
  if (celula_.nulo && coluna_.forma.forma != FormaDoValor::NaoImpressa) return nulo();
  switch (coluna_.forma.forma) {
    case FormaDoValor::Texto:
    case FormaDoValor::TextoUsado:
      controle();
      for (const Destino& destino : coluna_.destinos)
        if (vale(destino)) texto(destino);
      return;
    case FormaDoValor::Casas:
      return codigo({"2", "3"}, traduz("2 or 3"));
    case FormaDoValor::Inteiro:
      return paraCada(&ConferenciaDaCelula::inteiro);
    case FormaDoValor::Dinheiro:
    case FormaDoValor::Decimal:
      return paraCada(&ConferenciaDaCelula::dinheiro);
    case FormaDoValor::Cnpj:
    case FormaDoValor::CpfOuCnpj:
      paraCada(&ConferenciaDaCelula::numeroFiscal);
      return digitosVerificadores();
    case FormaDoValor::Letra:
    case FormaDoValor::SimNao:
      if (celula_.texto.size() != 1) return paraCada(&ConferenciaDaCelula::letra);
      return coluna_.forma.forma == FormaDoValor::SimNao ? codigo({"S", "N"}, traduz("S or N")) : controle();
    case FormaDoValor::TipoDeDocumento:
      return codigo({"CN", "RG", "CC", "NC", "RZ"}, traduz("CN, RG, CC, NC or RZ"));
    case FormaDoValor::DataHora:
      return data();
    case FormaDoValor::NaoImpressa:
      return;
  }
}

bool ConferenciaDaCelula::vale(const Destino& destino) const {
  return celula_.foraDe == nullptr || std::string_view(destino.registro->codigo) != celula_.foraDe;
}

void ConferenciaDaCelula::paraCada(void (ConferenciaDaCelula::*parte)(const Destino*)) {
  if (coluna_.destinos.empty()) return (this->*parte)(nullptr);
  for (const Destino& destino : coluna_.destinos)
    if (vale(destino)) (this->*parte)(&destino);
}

const Destino* ConferenciaDaCelula::primeiro(bool (*serve)(const Campo&)) const {
  for (const Destino& destino : coluna_.destinos)
    if (vale(destino) && serve(*destino.campo)) return &destino;
  return nullptr;
}

// The first field that breaks a rule makes the problem; the others are reported with it.
void ConferenciaDaCelula::acha(const Regra& regra, const Destino* destino, std::string encontrado,
                               std::string esperado, const char* conserto) {
  for (Problema& problema : problemas_) {
    if (problema.regra != &regra) continue;
    problema.outros.push_back(destino);
    return;
  }
  problemas_.push_back({&regra, std::move(encontrado), std::move(esperado), destino, {}, conserto});
}

std::string ConferenciaDaCelula::valor() const { return celula_.nulo ? "NULL" : citado(celula_.texto); }

std::string ConferenciaDaCelula::valorCom(const char* consequencia) const {
  return frase(consequencia, {valor()});
}

void ConferenciaDaCelula::nulo() {
  if (coluna_.forma.aceitaNulo) return;
  const Destino* destino = primeiro(qualquer);
  const char* consequencia =
      destino == nullptr ? marca("{1}, which no query finds") : doVazio(destino->campo->especie);
  acha(conferencia::kNulo, destino, valorCom(consequencia), traduz("a value"));
}

// A field may turn control characters into blanks, except 127; no field gets what follows a zero byte.
void ConferenciaDaCelula::controle() {
  const std::string_view texto = celula_.texto;
  const auto* const c = std::find_if(texto.begin(), texto.end(), controla);
  if (c == texto.end()) return;
  const bool comZero = texto.find('\0') != std::string_view::npos;
  const bool sempre = comZero || texto.find('\x7F') != std::string_view::npos;
  const Destino* destino =
      primeiro(sempre ? qualquer : [](const Campo& campo) { return !campo.trocaNaoAscii; });
  if (destino == nullptr) return;
  acha(conferencia::kControle, destino,
       valorCom(comZero ? marca("{1}, whose zero byte ends the text")
                : *c == '\n' && !destino->campo->trocaNaoAscii
                    ? marca("{1}, whose line end breaks the line in two")
                    : marca("{1}, whose control character goes into the line")),
       traduz("characters that can be seen"));
}

bool ConferenciaDaCelula::ultimoDaLinha(const Destino& destino) const {
  const Campos campos = destino.registro->campos;
  const auto depois = campos.trecho(static_cast<std::size_t>(destino.numero));
  return std::none_of(depois.begin(), depois.end(),
                      [&](const Campo& campo) { return meta_.alcance.existe(campo); });
}

void ConferenciaDaCelula::texto(const Destino& destino) {
  const std::ptrdiff_t largura = destino.campo->largura, bytes = bytesNoCampo(destino, celula_.texto);
  const bool usado = coluna_.forma.forma == FormaDoValor::TextoUsado;
  if (usado && bytes <= largura && destino.usados != 0 &&
      static_cast<int>(caracteresUtf8(celula_.texto)) > destino.usados)
    return acha(conferencia::kTextoCortado, &destino,
                frase("{1}, of which the first {2} characters are written",
                      {valor(), std::to_string(destino.usados)}),
                frase("at most {1}", {std::to_string(destino.usados)}));
  if (bytes > largura)
    return acha(usado ? conferencia::kTextoCortado : conferencia::kTextoLongo, &destino,
                ultimoDaLinha(destino)
                    ? fraseDe("{1}, which makes the line {n} byte longer",
                              "{1}, which makes the line {n} bytes longer", bytes - largura, {valor()})
                    : fraseDe("{1}, of which the first byte is written",
                              "{1}, of which the first {n} bytes are written", largura, {valor()}),
                fraseDe("at most {n} byte", "at most {n} bytes", largura));
  if (destino.campo->especie == Especie::ComoEsta && bytes < largura)
    acha(conferencia::kTextoCurto, &destino,
         fraseDe("{1}, which makes the line {n} byte shorter", "{1}, which makes the line {n} bytes shorter",
                 largura - bytes, {valor()}),
         fraseDe("{n} byte", "{n} bytes", largura));
}

void ConferenciaDaCelula::letra(const Destino* destino) {
  acha(conferencia::kTamanhoDaLetra, destino,
       valorCom(destino == nullptr      ? marca("{1}, which leaves the row out")
                : celula_.texto.empty() ? marca("{1}, which ends the line there")
                                        : marca("{1}, of which the first character is written")),
       traduz("one character"));
}

void ConferenciaDaCelula::codigo(std::initializer_list<std::string_view> codigos, const char* esperado) {
  if (std::find(codigos.begin(), codigos.end(), celula_.texto) != codigos.end()) return;
  const FormaDoValor forma = coluna_.forma.forma;
  const Destino* destino = primeiro(qualquer);
  acha(conferencia::kCodigo, destino,
       valorCom(forma == FormaDoValor::Casas             ? marca("{1}, which scales the value as 2 does")
                : forma == FormaDoValor::TipoDeDocumento ? marca("{1}, whose counters are written as zeros")
                : destino == nullptr                     ? marca("{1}, which leaves the row out")
                                                         : marca("{1}, which is written as it stands")),
       esperado);
}

void confereCelula(const ColunaVerificada& coluna, const Celula& celula, const Meta& meta,
                   std::vector<Problema>& problemas) {
  ConferenciaDaCelula(coluna, celula, meta, problemas).porForma();
}

std::string enumera(const std::vector<const Destino*>& destinos) {
  std::vector<std::string> campos;
  campos.reserve(destinos.size());
  for (const Destino* destino : destinos)
    campos.push_back(std::string(destino->registro->codigo) + '.' + std::to_string(destino->numero));
  return enumera(campos);
}

}  // namespace cotepe
