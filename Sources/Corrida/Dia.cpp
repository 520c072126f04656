#include "Corrida/Dia.h"

#include <cstdio>

#include "Idioma/Idioma.h"

#include "Leiaute/Releitura.h"

namespace cotepe::programa {
namespace {

int numero(std::string_view digitos) {
  int valor = 0;
  for (const char digito : digitos) valor = valor * 10 + (digito - '0');
  return valor;
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
  return ordem;
}

std::string comFormato(const char* formato, int a, int b, int c) {
  char texto[40];
  static_cast<void>(std::snprintf(texto, sizeof texto, formato, a, b, c));
  return texto;
}

}  // namespace

std::optional<Dia> Dia::le(std::string_view texto) {
  const std::string ordem = digitosEmOrdem(texto);
  if (!dataPossivel(ordem)) return std::nullopt;
  const std::string_view digitos = ordem;
  return Dia(numero(digitos.substr(0, 4)), numero(digitos.substr(4, 2)), numero(digitos.substr(6)));
}

std::string Dia::ddmmaaaa() const { return comFormato("%02d%02d%04d", dia_, mes_, ano_); }
std::string Dia::iso() const { return comFormato("%04d-%02d-%02d", ano_, mes_, dia_); }

std::string Dia::paraPessoas() const {
  const std::string texto = iso();
  return frase("{1}-{2}-{3}", {texto.substr(0, 4), texto.substr(5, 2), texto.substr(8)});
}

Dia Dia::ultimoDoMes() const { return {ano_, mes_, diasDoMes(ano_, mes_)}; }

}  // namespace cotepe::programa
