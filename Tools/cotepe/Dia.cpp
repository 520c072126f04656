#include "Dia.h"

#include <algorithm>
#include <cstdio>

namespace cotepe::programa {
namespace {

bool tudoDigito(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

int numero(std::string_view digitos) {
  int valor = 0;
  for (const char digito : digitos) valor = valor * 10 + (digito - '0');
  return valor;
}

bool bissexto(int ano) { return (ano % 4 == 0 && ano % 100 != 0) || ano % 400 == 0; }

int diasDoMes(int ano, int mes) {
  static constexpr int kDias[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return mes == 2 && bissexto(ano) ? 29 : kDias[mes - 1];
}

// The text as AAAAMMDD; empty when it has none of the forms.
std::string digitosEmOrdem(std::string_view texto) {
  std::string ordem;
  if (texto.size() == 10 && texto[4] == '-' && texto[7] == '-')
    ordem.append(texto.substr(0, 4)).append(texto.substr(5, 2)).append(texto.substr(8, 2));
  else if (texto.size() == 10 && texto[2] == '/' && texto[5] == '/')
    ordem.append(texto.substr(6, 4)).append(texto.substr(3, 2)).append(texto.substr(0, 2));
  else if (texto.size() == 8)
    ordem.append(texto.substr(4, 4)).append(texto.substr(2, 2)).append(texto.substr(0, 2));
  return tudoDigito(ordem) ? ordem : std::string();
}

std::string comFormato(const char* formato, int a, int b, int c) {
  char texto[40];
  static_cast<void>(std::snprintf(texto, sizeof texto, formato, a, b, c));
  return texto;
}

}  // namespace

std::optional<Dia> Dia::le(std::string_view texto) {
  const std::string ordem = digitosEmOrdem(texto);
  if (ordem.empty()) return std::nullopt;
  const std::string_view digitos = ordem;
  const int ano = numero(digitos.substr(0, 4)), mes = numero(digitos.substr(4, 2)),
            dia = numero(digitos.substr(6));
  if (ano < 1 || mes < 1 || mes > 12 || dia < 1 || dia > diasDoMes(ano, mes)) return std::nullopt;
  return Dia(ano, mes, dia);
}

std::string Dia::ddmmaaaa() const { return comFormato("%02d%02d%04d", dia_, mes_, ano_); }
std::string Dia::iso() const { return comFormato("%04d-%02d-%02d", ano_, mes_, dia_); }

Dia Dia::ultimoDoMes() const { return {ano_, mes_, diasDoMes(ano_, mes_)}; }

}  // namespace cotepe::programa
