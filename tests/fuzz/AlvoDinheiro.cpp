// Any bytes as the text of an amount, and eight of them as a number: read as the second reading does.
#include <cmath>
#include <memory>

#include "Bytes.h"
#include "Financial.h"
#include "Leiaute/Texto.h"
#include "referencia/Texto.h"

namespace {

std::string soDigitos(const std::string& texto) {
  std::string digitos;
  for (const char c : texto)
    if (c >= '0' && c <= '9') digitos += c;
  return digitos;
}

// Into a buffer of just so many bytes, so that a byte too many is seen.
std::string escrito(const Financial& valor, std::size_t capacidade, FINANCIAL_STR_TIPO layout) {
  const std::unique_ptr<char[]> destino(new char[capacidade]);
  return valor.ToString(destino.get(), static_cast<int>(capacidade), layout, 0, 0);
}

void confereTexto(const std::string& texto) {
  const std::int64_t centavos = referencia::centavos(texto);
  EXIGE(Financial::CentavosDoBanco(texto.c_str()) == centavos);
  Financial valor;
  valor = referencia::troca(texto, '.', ',').c_str();
  EXIGE(valor.Centavos() == centavos);

  const std::string padrao = escrito(valor, 64, FIN_STR_DEFAULT);
  EXIGE(referencia::inteiro(referencia::remove(padrao, ',')) == centavos);
  Financial relido;
  relido = padrao.c_str();
  EXIGE(relido == valor);
  for (const auto layout : {FIN_STR_DEFAULT, FIN_STR_1, FIN_STR_2, FIN_STR_3, FIN_STR_4}) {
    const std::string inteiro = escrito(valor, 64, layout);
    EXIGE(soDigitos(inteiro) == soDigitos(padrao));
    EXIGE(escrito(valor, inteiro.size() + 1, layout) == inteiro);
    EXIGE(escrito(valor, inteiro.size(), layout).empty());
  }
}

void confereNumero(const std::string& texto) {
  const double lido = cotepe::leDecimal(texto.c_str()), esperado = referencia::decimal(texto);
  EXIGE(std::memcmp(&lido, &esperado, sizeof lido) == 0);
  EXIGE(cotepe::leInteiro(texto.c_str()) == referencia::inteiro(texto));
}

void confereDecimal(double valor) {
  const std::int64_t centavos =
      std::isfinite(valor) ? referencia::inteiro(referencia::remove(referencia::duasCasas(valor), '.')) : 0;
  EXIGE(Financial::CentavosDoDecimal(valor) == centavos);
  EXIGE(cotepe::arredonda(valor) == referencia::arredonda(valor));
  const Financial dinheiro(valor);
  const Financial volta(dinheiro.ToDouble());
  if (std::fabs(valor) < 1e13) EXIGE(volta == dinheiro);  // so far every cent is a double of its own
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  Bytes bytes(dados, tamanho);
  const std::string texto = bytes.ateTerminador();
  confereTexto(texto);
  confereNumero(texto);
  confereDecimal(Bytes(dados, tamanho).numero<double>());
  confereDecimal(cotepe::leDecimal(texto.c_str()));
  return 0;
}
