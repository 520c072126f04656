// Numbers, taxpayers' numbers and dates among the values of the database.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "Conferencia/Celula.h"
#include "Financial.h"
#include "Idioma/Idioma.h"
#include "Leiaute/NumeroFiscal.h"
#include "Leiaute/Releitura.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"

namespace cotepe {

const Regra conferencia::kNaoNumero{"not-a-number", Severidade::Erro,
                                    marca("A number is digits, of money with a point before the cents."),
                                    marca("store it as a number")};
const Regra conferencia::kNegativo{"negative", Severidade::Erro, marca("No number is negative."),
                                   marca("correct it")};
const Regra conferencia::kDigitosPerdidos{"digits-lost", Severidade::Erro,
                                          marca("A number has no more digits than are written of it."),
                                          marca("correct it")};
const Regra conferencia::kNumeroLargo{"number-wide", Severidade::Erro,
                                      marca("An amount or quantity is no wider than its field."),
                                      marca("correct it")};
const Regra conferencia::kArredondado{
    "rounded", Severidade::Aviso, marca("An amount or quantity has no more decimal places than its field."),
    marca("store it as it was printed")};
const Regra conferencia::kDesloca{"field-shift", Severidade::Erro,
                                  marca("A number that is never clipped fits its field."),
                                  marca("correct it")};
const Regra conferencia::kFormaDoNumeroFiscal{
    "tax-number-form", Severidade::Erro,
    marca("A CNPJ or CPF is digits alone: 14, of a consumer at most 14."),
    marca("store its digits without separators")};
const Regra conferencia::kNumeroFiscal{"tax-number", Severidade::Aviso,
                                       marca("The check digits of a CNPJ or CPF are right."),
                                       marca("check it against its document")};
const Regra conferencia::kFormaDaData{"date-form", Severidade::Erro,
                                      marca("A date-time is YYYY-MM-DD HH:MM:SS."),
                                      marca("store date and time in this form")};
const Regra conferencia::kDataImpossivel{"date-impossible", Severidade::Erro,
                                         marca("A date-time is a day and an hour that exist."),
                                         marca("correct it")};
const Regra conferencia::kForaDoPeriodo{
    "outside-period", Severidade::Erro,
    marca("No bare date stands on the first day of the period, which leaves it out."),
    marca("store the time too")};

namespace {

constexpr std::size_t kTamanhoDataHora = 19;
constexpr std::size_t kMaximoDoGt = 18;  // a greatest grand total of this many characters loses the last one
constexpr double kSemCentavos = 1e13;    // from here on a binary number has no room for cents in its text

constexpr const char* kEmCampoDe = marca("{1}, which is written as {2} in a field of {3}");

bool digito(char c) { return c >= '0' && c <= '9'; }
bool digitos(std::string_view texto) {
  return !texto.empty() && std::all_of(texto.begin(), texto.end(), digito);
}

// A number as it is stored: sign, digits, digits after the point.
struct NumeroGuardado {
  bool valido = false, negativo = false;
  std::string_view inteiros, decimais;
};

NumeroGuardado leNumero(std::string_view texto, bool comPonto) {
  NumeroGuardado numero;
  numero.negativo = !texto.empty() && texto[0] == '-';
  if (numero.negativo) texto.remove_prefix(1);
  const std::size_t ponto = comPonto ? texto.find('.') : std::string_view::npos;
  numero.inteiros = texto.substr(0, ponto);
  if (ponto != std::string_view::npos) numero.decimais = texto.substr(ponto + 1);
  numero.valido = digitos(numero.inteiros) && (ponto == std::string_view::npos || digitos(numero.decimais));
  while (numero.inteiros.size() > 1 && numero.inteiros[0] == '0') numero.inteiros.remove_prefix(1);
  while (!numero.decimais.empty() && numero.decimais.back() == '0') numero.decimais.remove_suffix(1);
  return numero;
}

template <class... Valores>
std::string formatado(const char* formato, Valores... valores) {
  char texto[400];
  static_cast<void>(std::snprintf(texto, sizeof texto, formato, valores...));
  return texto;
}

std::string ateDigitos(int n) { return fraseDe("at most {n} digit", "at most {n} digits", n); }

// Blanks in the places of a date-time mean that there is none.
bool ausente(std::string_view texto) { return texto == kSemDataHora; }

bool naForma(std::string_view texto) {
  static constexpr std::string_view kForma = "dddd-dd-dd dd:dd:dd";
  if (texto.size() != kForma.size()) return false;
  for (std::size_t i = 0; i < texto.size(); ++i)
    if (kForma[i] == 'd' ? !digito(texto[i]) : texto[i] != kForma[i]) return false;
  return true;
}

// Of a text in that form.
bool existe(std::string_view dataHora) {
  std::string digitos(dataHora);
  digitos.erase(std::remove_if(digitos.begin(), digitos.end(), [](char c) { return !digito(c); }),
                digitos.end());
  return dataPossivel(digitos.substr(0, 8)) && horaPossivel(digitos.substr(8));
}

// The user's and the printer's number are kept in buffers as short as their fields, and so lose their end.
bool cortadoAntes(const Destino& destino) {
  const bool naCabeca = destino.campo->origem.tipo == Origem::Tipo::Ajuste;
  return destino.campo->especie == Especie::Numero && (naCabeca || destino.campo->cortado);
}

}  // namespace

// What the report holds for the value; empty when that is not a number.
std::string ConferenciaDaCelula::escrito(const Destino& destino) const {
  const Campo& campo = *destino.campo;
  std::string texto(celula_.texto);
  const int versao = meta_.alcance.menorLeiaute(), largura = larguraNominal(campo, versao);
  if (cortadoAntes(destino)) texto.resize(std::min(texto.size(), static_cast<std::size_t>(largura)));
  const auto comSinal = [&](std::int64_t valor) {
    return formatado("%0*lld", largura, static_cast<long long>(valor));
  };
  const auto semSinal = [&](std::int64_t valor) {
    return formatado("%0*llu", largura, static_cast<unsigned long long>(valor));
  };
  const std::int64_t modulo = campo.especie == Especie::Contador ? moduloDoContador(versao) : campo.modulo;
  switch (campo.especie) {
    case Especie::Numero:
    case Especie::Contador:
      return comSinal(modulo == 0 ? leInteiro(texto.c_str()) : leInteiro(texto.c_str()) % modulo);
    case Especie::Identificador:
      return semSinal(leInteiro(texto.c_str()));
    case Especie::Dinheiro:
      return semSinal(Financial::CentavosDoBanco(texto.c_str()));
    case Especie::DinheiroDuplo:
      return semSinal(Financial::CentavosDoDecimal(leDecimal(texto.c_str())));
    default:  // Decimal
      return comSinal(arredonda(leDecimal(texto.c_str()) * (celula_.casas == 3 ? 1000.0 : 100.0)));
  }
}

std::string ConferenciaDaCelula::comoEscrito(const Destino* destino) const {
  const std::string texto = destino == nullptr ? "" : escrito(*destino);
  return texto.empty() ? valor() : frase("{1}, which is written as {2}", {valor(), texto});
}

void ConferenciaDaCelula::inteiro(const Destino* destino) {
  const NumeroGuardado numero = leNumero(celula_.texto, false);
  if (!numero.valido)
    return acha(conferencia::kNaoNumero, destino, comoEscrito(destino), traduz("digits alone"));
  if (numero.negativo) return acha(conferencia::kNegativo, destino, comoEscrito(destino), traduz("no sign"));
  if (destino == nullptr) return;
  const int largura = larguraNominal(*destino->campo, meta_.alcance.menorLeiaute());
  const int sobra = static_cast<int>(numero.inteiros.size()) - largura;
  if (sobra <= 0) return;
  const bool contador = destino->campo->especie == Especie::Contador;
  if (destino->campo->desloca)
    return acha(conferencia::kDesloca, destino,
                fraseDe("{1}, which moves the later fields {n} byte to the right",
                        "{1}, which moves the later fields {n} bytes to the right", sobra, {valor()}),
                ateDigitos(largura));
  const int leiaute = meta_.alcance.menorLeiaute();
  acha(conferencia::kDigitosPerdidos, destino,
       frase(contador ? marca("{1}, which is written as {2} in a field of {3} in layout {4}") : kEmCampoDe,
             {valor(), escrito(*destino), std::to_string(largura), std::to_string(leiaute)}),
       ateDigitos(largura),
       contador && leiaute == 1 && numero.inteiros.size() <= 9
           ? marca("correct it, or take layout 2, where the field has 9 digits")
           : nullptr);
}

// The greatest grand total goes to E02 through a text of 17 characters.
void ConferenciaDaCelula::grandeTotalDoE02(const Destino& destino) {
  acha(conferencia::kDigitosPerdidos, &destino,
       valorCom(celula_.texto.size() == kMaximoDoGt ? marca("{1}, whose last character E02 loses")
                                                    : marca("{1}, which E02 does not use")),
       traduz("at most 17 characters"));
}

void ConferenciaDaCelula::dinheiro(const Destino* destino) {
  const NumeroGuardado numero = leNumero(celula_.texto, true);
  if (coluna_.maximo && destino != nullptr && destino->campo->maximos >= 0 &&
      celula_.texto.size() >= kMaximoDoGt)
    return grandeTotalDoE02(*destino);
  const std::size_t expoente = celula_.texto.find("e+");
  const bool enorme = celula_.real && !numero.negativo && expoente != std::string_view::npos;
  if (!numero.valido && !enorme)
    return acha(conferencia::kNaoNumero, destino, comoEscrito(destino), traduz("digits and a decimal point"));
  if (numero.negativo) return acha(conferencia::kNegativo, destino, comoEscrito(destino), traduz("no sign"));
  if (destino == nullptr) return;
  const int casas = celula_.casas == 3 ? 3 : 2, largura = destino->campo->largura;
  if (enorme || static_cast<int>(numero.inteiros.size()) + casas > largura)
    return acha(conferencia::kNumeroLargo, destino,
                frase(kEmCampoDe, {valor(), escrito(*destino), std::to_string(largura)}),
                fraseDe("at most {n} digit before the point", "at most {n} digits before the point",
                        largura - casas));
  if (static_cast<int>(numero.decimais.size()) > casas)
    acha(conferencia::kArredondado, destino, comoEscrito(destino),
         frase("{1} decimal places", {std::to_string(casas)}));
  if (celula_.real && leDecimal(std::string(celula_.texto).c_str()) >= kSemCentavos)
    acha(conferencia::kDigitosPerdidos, destino,
         valorCom(marca("{1}, a binary number, of which 15 digits are kept")), traduz("a text"),
         marca("store it as a text"));
}

void ConferenciaDaCelula::numeroFiscal(const Destino* destino) {
  const std::string_view numero = celula_.texto;
  const bool vazio = numero.empty() && coluna_.forma.forma == FormaDoValor::CpfOuCnpj;
  const bool tamanho = coluna_.forma.forma == FormaDoValor::Cnpj ? numero.size() == 14 : numero.size() <= 14;
  if (vazio || (digitos(numero) && tamanho)) return;
  acha(conferencia::kFormaDoNumeroFiscal, destino, comoEscrito(destino),
       coluna_.forma.forma == FormaDoValor::Cnpj ? fraseDe("{n} digit", "{n} digits", 14) : ateDigitos(14));
}

// A number that is wrong in form has been reported already; one of zeros only counts as absent.
void ConferenciaDaCelula::digitosVerificadores() {
  if (!problemas_.empty() || celula_.texto.empty() || soZeros(celula_.texto)) return;
  const std::string catorze = std::string(14 - celula_.texto.size(), '0') + std::string(celula_.texto);
  if (cnpjValido(catorze) || (coluna_.forma.forma == FormaDoValor::CpfOuCnpj && cpfValido(catorze))) return;
  acha(conferencia::kNumeroFiscal, primeiro([](const Campo&) { return true; }), valor(),
       traduz("check digits that are right"));
}

void ConferenciaDaCelula::data() {
  const std::string_view texto = celula_.texto;
  if (naForma(texto)) {
    if (existe(texto)) return;
    return acha(conferencia::kDataImpossivel, primeiro([](const Campo&) { return true; }), valor(),
                traduz("a day and an hour that exist"));
  }
  if (coluna_.forma.aceitaNulo && ausente(texto)) return;
  const Destino* deData = primeiro([](const Campo& campo) { return campo.especie == Especie::Data; });
  const Destino* deHora = primeiro([](const Campo& campo) { return campo.especie == Especie::Hora; });
  const bool semHora = deHora != nullptr && texto.size() < kTamanhoDataHora;
  if (coluna_.filtra && !texto.empty() && texto == meta_.primeiroDia)
    return acha(conferencia::kForaDoPeriodo, deData,
                valorCom(marca("{1}, which sorts before the first moment of the period")),
                traduz("YYYY-MM-DD HH:MM:SS"));
  const char* consequencia = texto.size() < 10 || semHora ? marca("{1}, which ends the line there")
                             : coluna_.filtra             ? marca("{1}, which a period sorts wrongly")
                                              : marca("{1}, of which the wrong characters may be written");
  acha(conferencia::kFormaDaData, texto.size() >= 10 && semHora ? deHora : deData, valorCom(consequencia),
       traduz("YYYY-MM-DD HH:MM:SS"));
}

}  // namespace cotepe
