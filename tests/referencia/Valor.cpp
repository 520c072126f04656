// Random values, good and hostile.
#include "referencia/Valor.h"

#include <cstdio>
#include <limits>
#include <vector>

namespace referencia {
namespace {

std::string doisDigitos(int n) { return {static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)}; }

std::string dataHora(const std::string& anoMes, int dia, Sorteio& sorteio) {
  return anoMes + "-" + doisDigitos(dia) + " " + doisDigitos(sorteio.entre(0, 23)) + ":" +
         doisDigitos(sorteio.entre(0, 59)) + ":" + doisDigitos(sorteio.entre(0, 59));
}

std::string dataMovimento(Sorteio& sorteio) {
  switch (sorteio.entre(1, 10)) {
    case 1:
      return dataHora("2023-12", sorteio.entre(20, 31), sorteio);
    case 2:
      return dataHora("2024-02", sorteio.entre(1, 10), sorteio);
    case 3:
      return sorteio.escolhe<std::string>(
          {"2023-12-31 23:59:59", "2024-01-01 00:00:00", "2024-01-31 23:59:59", "2024-02-01 00:00:00"});
    default:
      return dataHora("2024-01", sorteio.entre(1, 31), sorteio);
  }
}

std::string letras(Sorteio& sorteio, int minimo, int maximo) {
  static const std::string kLetras = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghij0123456789 ./-";
  std::string texto;
  for (int i = sorteio.entre(minimo, maximo); i > 0; i--)
    texto += kLetras[static_cast<std::size_t>(sorteio.entre(0, static_cast<int>(kLetras.size()) - 1))];
  return texto;
}

std::string digitos(Sorteio& sorteio, int minimo, int maximo) {
  std::string texto;
  for (int i = sorteio.entre(minimo, maximo); i > 0; i--)
    texto += static_cast<char>('0' + sorteio.entre(0, 9));
  return texto;
}

std::string numero(Sorteio& sorteio, int maximo) { return std::to_string(sorteio.entre(0, maximo)); }

std::string dinheiro(Sorteio& sorteio) {
  if (sorteio.umaEm(4)) return sorteio.escolhe<std::string>({"0", "0.00", "0.01", "10", "10.5"});
  return numero(sorteio, sorteio.umaEm(5) ? 1000000000 : 5000) + "." + digitos(sorteio, 2, 2);
}

std::string totalizador(Sorteio& sorteio) {
  const std::vector<std::string> kTotalizadores = {"01T1800", "02T12.00", "03S0500", "04S02.00", "F1",
                                                   "I1",      "N1",       "DT",      "Can-T",    "AT"};
  return sorteio.escolhe(kTotalizadores);
}

std::string textoLimpo(Sorteio& sorteio, Tipo tipo) {
  switch (tipo) {
    case Tipo::Serie:
      return letras(sorteio, 0, 20);
    case Tipo::Nome:
      return letras(sorteio, 0, 15);
    case Tipo::Descricao:
      return letras(sorteio, 0, 60);
    case Tipo::TextoLongo:
      return letras(sorteio, 0, sorteio.umaEm(3) ? 560 : 40);
    case Tipo::InscricaoEstadual:
      return digitos(sorteio, 3, 3) + "." + digitos(sorteio, 3, 3) + "." + digitos(sorteio, 0, 3) + "-" +
             digitos(sorteio, 0, 2);
    case Tipo::DataHora:
      return dataHora("2024-01", sorteio.entre(1, 31), sorteio);
    case Tipo::DataMovimento:
      return dataMovimento(sorteio);
    case Tipo::Contador:
      return numero(sorteio, sorteio.umaEm(4) ? std::numeric_limits<int>::max() - 1 : 20000);
    case Tipo::Crz:
      return sorteio.escolhe<std::string>({"1", "2", "3", "4", "1000002"});
    case Tipo::Coo:
      return sorteio.escolhe<std::string>({"1", "2", "3", "4", "5", "6", "1000007", "10000000008"});
    case Tipo::Indice:
      return std::to_string(sorteio.entre(1, 4));
    case Tipo::Sequencia:
      return std::to_string(sorteio.entre(1, 12));
    case Tipo::Dinheiro:
      return dinheiro(sorteio);
    case Tipo::Decimal:
      return numero(sorteio, 2000) + "." + digitos(sorteio, 1, 3);
    case Tipo::Cnpj:
      return digitos(sorteio, 14, 14);
    case Tipo::Flag:
      return sorteio.umaEm(2) ? "S" : "N";
    case Tipo::TipoDocumento:
      return sorteio.escolhe<std::string>({"CN", "RG", "CC", "NC", "RZ"});
    case Tipo::TipoIntervencao:
      return sorteio.escolhe<std::string>({"T", "F", "X"});
    case Tipo::TipoValor:
      return sorteio.escolhe<std::string>({"V", "P"});
    case Tipo::Totalizador:
      return totalizador(sorteio);
    case Tipo::Casas:
      return sorteio.umaEm(2) ? "2" : "3";
    case Tipo::NumeroDoCaixa:
      return numero(sorteio, 999);
  }
  return "";
}

// Texts at which a reader of numbers, dates, money or flags may stumble.
const std::vector<std::string>& tropecos() {
  // clang-format off
  static const std::vector<std::string> kTropecos = {
      "", " ", "   ", "0", "-0", "-1", "+7", "  42", "  42  ", "42 ", "\t42", "42\t", "\n42", "\r42", "\v42",
      "\f42", "- 1", "--1", "+-1", "1 2", "007", "1e3", "1E+2", "1e-2", "1e", "1e+", "e5", "1 e5", "1e 5",
      "1e5 ", "1.e2", ".5e1", "1e2.5", "1,5", "1.5", ".5", "5.", ",5", ".", ",", "-.5", "+.5", "1.234,56",
      "1.234.56", "1,234.56", "1234.", "R$ 10", "10R$", "1e30", "-1e30", "1e17", "1e18", "1e19", "1e300",
      "1e400", "-1e400", "1e-400", "1e26", "1e27", "nan", "NaN", "-nan", "inf", "-inf", "Infinity", "0x1A",
      "0x1p4", "0b1", "0e99999999999999999999", "1e99999999999999999999", "1e-99999999999999999999",
      "0.005", "-0.005", "0.0049999999999999999999999999999999999", "0.00500000000000000000000000000000001",
      "1.005", "-1.005", "12.345", "12.355", "0.125", "0.0625", "2.675", "1.994999", "9.995", "99999.995",
      "2147483.6475", "21474836.475", "-21474836.485", "21474836.47", "-21474836.48", "4294967296",
      "2147483647", "2147483648", "-2147483648", "-2147483649", "999999", "1000000", "1000001", "-1000001",
      "999999999", "1000000000", "-1234567890", "9999", "10000", "12345", "999", "1000", "-12", "-123",
      "99999999999999", "100000000000000", "9223372036854775807", "9223372036854775808",
      "-9223372036854775808", "-9223372036854775809", "99999999999999999999", "-99999999999999999999",
      "92233720368547758.07", "92233720368547758.08", "-92233720368547758.08", "-92233720368547758.09",
      "92233720368547758.065", "396140812571321687967719751.67", "396140812571321687967719751.675",
      "396140812571321687967719751.68", "-396140812571321687967719751.68", "396140812571321687967719751.69",
      "1234567890123.45", "12345678901234.5", "123456789012345678", "1234567890123456.7",
      "1234567890123456789", "123456789012345.67", "1234567890123456.78", "%s%n", "%d%d%d", "100%", "'",
      "''", "\"", "a'b", "--", ";", "\r\n", "a\nb", "a\rb", "a\tb", "\x7f", "\x80", "\xff", "\xe7\xe3o",
      "\x01\x1f", "\xc3\xa7\xc3\xa3o", "T", "TX", "t", "F", "S", "N", "SS", "NAO", "cc", "rz", "CN ",
      "CNX", "RZRZ", "CC", "RZ", "RG", "CN", "NC", "OPNF", "..", ".-.", "-.-", "01.T1800", "2024",
      "2024-01", "2024-01-1", "2024-01-15", "2024-01-15 ", "2024-01-15 1", "2024-01-15 12:34",
      "2024-01-15 12:34:5", "2024-01-15T12:34:56", "2024-01-15 12:34:56.789", "20240115123456",
      "0000-00-00 00:00:00", "9999-12-31 23:59:59", "0000-01-01", "                   ", "15/01/2024 12:34:56", "2024-01-01",
      "2024-01-31 23:59:59", "2024-01-31 23:59:59.9", "12.345.678/0001-90", "123.456.789-01"};
  // clang-format on
  return kTropecos;
}

std::string deAlfabeto(Sorteio& sorteio, const std::string& alfabeto, int maximo) {
  std::string texto;
  for (int i = sorteio.entre(0, maximo); i > 0; i--)
    texto += alfabeto[static_cast<std::size_t>(sorteio.entre(0, static_cast<int>(alfabeto.size()) - 1))];
  return texto;
}

std::string bytesQuaisquer(Sorteio& sorteio, int maximo) {
  std::string texto;
  for (int i = sorteio.entre(0, maximo); i > 0; i--) texto += static_cast<char>(sorteio.entre(0, 255));
  return texto;
}

std::string longo(Sorteio& sorteio) {
  const int tamanho = sorteio.umaEm(500) ? 100000 : sorteio.entre(10, sorteio.umaEm(4) ? 2000 : 150);
  const std::string pedaco = sorteio.umaEm(2) ? letras(sorteio, 1, 50) : digitos(sorteio, 1, 50);
  std::string texto;
  while (texto.size() < static_cast<std::size_t>(tamanho)) texto += pedaco;
  return texto;
}

double realQualquer(Sorteio& sorteio) {
  const auto mantissa = static_cast<double>(static_cast<std::int64_t>(sorteio.proximo()));
  switch (sorteio.entre(1, 6)) {
    case 1:
      return sorteio.escolhe<double>(
          {0.0, -0.0, 0.5, -0.5, 0.005, 1e30, -1e30, 1e300, 1e-300, std::numeric_limits<double>::infinity(),
           -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::denorm_min()});
    case 2:
      return mantissa;
    case 3:
      return mantissa * 1e-16;
    case 4:
      return static_cast<double>(sorteio.entre(-99999, 99999)) / 1000;
    default:
      return static_cast<double>(sorteio.entre(0, 99999999)) / 100;
  }
}

std::int64_t inteiroQualquer(Sorteio& sorteio) {
  if (sorteio.umaEm(4))
    return sorteio.escolhe<std::int64_t>({0, 1, -1, 999999, 1000000, 2147483648, 9999999999,
                                          std::numeric_limits<std::int64_t>::max(),
                                          std::numeric_limits<std::int64_t>::min()});
  const int desloca = sorteio.entre(0, 63);
  return static_cast<std::int64_t>(sorteio.proximo()) >> desloca;
}

// The good value with something done to it.
std::string estragado(Sorteio& sorteio, std::string bytes) {
  const auto posicao = static_cast<std::size_t>(sorteio.entre(0, static_cast<int>(bytes.size())));
  switch (sorteio.entre(1, 7)) {
    case 1:
      return bytes.substr(0, posicao);
    case 2:
      return bytes + longo(sorteio);
    case 3:
      return sorteio.escolhe<std::string>(
                 {" ", "  ", "+", "-", "0", "\t", "000000000000000000000000000000"}) +
             bytes;
    case 4:
      return bytes + sorteio.escolhe<std::string>({" ", "e2", "e-1", ".", ",", "0", "\n", "x", "%"});
    case 5:
      return bytes.insert(posicao, 1, static_cast<char>(sorteio.entre(0, 255)));
    case 6:
      return bytes + bytes;
    default:
      if (posicao < bytes.size()) bytes[posicao] = static_cast<char>(sorteio.entre(0, 255));
      return bytes;
  }
}

}  // namespace

int Valor::liga(sqlite3_stmt* stmt, int posicao) const {
  const int tamanho = static_cast<int>(bytes.size());
  switch (classe) {
    case Classe::Nulo:
      return sqlite3_bind_null(stmt, posicao);
    case Classe::Inteiro:
      return sqlite3_bind_int64(stmt, posicao, inteiro);
    case Classe::Real:
      return sqlite3_bind_double(stmt, posicao, real);
    case Classe::Texto:
      return sqlite3_bind_text(stmt, posicao, bytes.c_str(), tamanho, SQLITE_TRANSIENT);
    case Classe::Blob:
      return sqlite3_bind_blob(stmt, posicao, bytes.c_str(), tamanho, SQLITE_TRANSIENT);
  }
  return SQLITE_MISUSE;
}

Valor valorLimpo(Sorteio& sorteio, Tipo tipo) { return Valor::texto(textoLimpo(sorteio, tipo)); }

Valor valorHostil(Sorteio& sorteio, const Valor& bom) {
  switch (sorteio.entre(1, 15)) {
    case 1:
      return {};
    case 2:
      return Valor::texto("");
    case 3:
      return Valor::doInteiro(inteiroQualquer(sorteio));
    case 4:
      return Valor::doReal(realQualquer(sorteio));
    case 5:
      return Valor::blob(bytesQuaisquer(sorteio, 40));
    case 6:
      return Valor::blob(estragado(sorteio, bom.bytes));
    case 7:
      return Valor::texto(bytesQuaisquer(sorteio, 40));
    case 8:
      return Valor::texto(longo(sorteio));
    case 9:
      return Valor::texto(deAlfabeto(sorteio, "0123456789.,+-eE ", 14));
    case 10:
      return Valor::texto(deAlfabeto(sorteio, "0123456789", 45) + "." + deAlfabeto(sorteio, "0459", 6));
    case 11:
      return Valor::texto("-" + bom.bytes);
    case 12:
    case 13:
      return Valor::texto(estragado(sorteio, bom.bytes));
    default:
      return Valor::texto(sorteio.escolhe(tropecos()));
  }
}

}  // namespace referencia
