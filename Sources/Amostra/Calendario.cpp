#include "Amostra/Calendario.h"

#include <algorithm>
#include <cstddef>

namespace cotepe::loja {
namespace {

constexpr int kSegundosDoDia = 86400;

struct Data {
  int ano, mes, dia;
};

// The two conversions count in eras of 400 years that begin on 1 March, so that the leap day ends its year.
int numeroDoDia(const Data& data) {
  const int ano = data.mes <= 2 ? data.ano - 1 : data.ano;
  const int era = (ano >= 0 ? ano : ano - 399) / 400;
  const int anoDaEra = ano - era * 400;
  const int diaDoAno = (153 * (data.mes > 2 ? data.mes - 3 : data.mes + 9) + 2) / 5 + data.dia - 1;
  const int diaDaEra = anoDaEra * 365 + anoDaEra / 4 - anoDaEra / 100 + diaDoAno;
  return era * 146097 + diaDaEra - 719468;
}

Data dataDoNumero(int numero) {
  const int deslocado = numero + 719468;
  const int era = (deslocado >= 0 ? deslocado : deslocado - 146096) / 146097;
  const int diaDaEra = deslocado - era * 146097;
  const int anoDaEra = (diaDaEra - diaDaEra / 1460 + diaDaEra / 36524 - diaDaEra / 146096) / 365;
  const int diaDoAno = diaDaEra - (365 * anoDaEra + anoDaEra / 4 - anoDaEra / 100);
  const int mesDeMarco = (5 * diaDoAno + 2) / 153;
  const int mes = mesDeMarco < 10 ? mesDeMarco + 3 : mesDeMarco - 9;
  return {anoDaEra + era * 400 + (mes <= 2 ? 1 : 0), mes, diaDoAno - (153 * mesDeMarco + 2) / 5 + 1};
}

void escreve(char* destino, int valor, int digitos) {
  for (int posicao = digitos - 1; posicao >= 0; --posicao, valor /= 10) {
    destino[posicao] = static_cast<char>('0' + valor % 10);
  }
}

int le(std::string_view digitos) {
  int valor = 0;
  for (const char digito : digitos) valor = valor * 10 + (digito - '0');
  return valor;
}

}  // namespace

std::optional<int> leDia(std::string_view texto) {
  constexpr std::string_view kForma = "dddd-dd-dd";
  const auto combina = [](char letra, char forma) {
    return forma == 'd' ? letra >= '0' && letra <= '9' : letra == forma;
  };
  if (!std::equal(texto.begin(), texto.end(), kForma.begin(), kForma.end(), combina)) return std::nullopt;
  const int dia = numeroDoDia({le(texto.substr(0, 4)), le(texto.substr(5, 2)), le(texto.substr(8, 2))});
  if (textoDoDia(dia) != texto) return std::nullopt;
  return dia;
}

std::string textoDoDia(int dia) {
  const auto completo = dataHora(dia, 0);
  return {completo.data(), 10};
}

DataHora dataHora(int dia, int segundo) {
  const Data data = dataDoNumero(dia + segundo / kSegundosDoDia);
  const int resto = segundo % kSegundosDoDia;
  DataHora resultado{};
  char* destino = resultado.data();
  escreve(destino, data.ano, 4);
  escreve(destino + 5, data.mes, 2);
  escreve(destino + 8, data.dia, 2);
  escreve(destino + 11, resto / 3600, 2);
  escreve(destino + 14, resto / 60 % 60, 2);
  escreve(destino + 17, resto % 60, 2);
  destino[4] = destino[7] = '-';
  destino[10] = ' ';
  destino[13] = destino[16] = ':';
  return resultado;
}

}  // namespace cotepe::loja
