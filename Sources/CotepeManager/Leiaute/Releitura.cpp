#include "Leiaute/Releitura.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace cotepe {
namespace {

constexpr std::uint64_t repete(unsigned byte) { return 0x0101010101010101U * byte; }

std::uint64_t oito(const char* p) noexcept {
  std::uint64_t v = 0;
  std::memcpy(&v, p, sizeof v);
  return v;
}

bool digito(char c) noexcept { return c >= '0' && c <= '9'; }

// Eight bytes at once: the high halves are 3, and stay 3 when 6 is added to the low ones.
bool oitoDigitos(std::uint64_t v) noexcept {
  return ((v & repete(0xF0)) | (((v + repete(6)) & repete(0xF0)) >> 4)) == repete(0x33);
}

// Eight bytes at once, each from blank to tilde.
bool oitoMostraveis(std::uint64_t v) noexcept {
  return ((((v - repete(0x20)) & ~v) | v | (v + repete(1))) & repete(0x80)) == 0;
}

bool mostravel(char c) noexcept { return c >= ' ' && c <= '~'; }

bool soMostraveis(std::string_view bytes) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8)
    if (!oitoMostraveis(oito(bytes.data() + i))) return false;
  return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(i), bytes.end(), mostravel);
}

Defeito defeitoDoTexto(std::string_view bytes) noexcept {
  if (!soMostraveis(bytes)) {
    return std::any_of(bytes.begin(), bytes.end(), controla) ? Defeito::Controle : Defeito::NaoAscii;
  }
  const bool recuado = !bytes.empty() && bytes.front() == ' ' && !soBrancos(bytes);
  return recuado ? Defeito::Alinhamento : Defeito::Nenhum;
}

int dois(const char* p) noexcept { return (p[0] - '0') * 10 + (p[1] - '0'); }

}  // namespace

bool soDigitos(std::string_view bytes) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8)
    if (!oitoDigitos(oito(bytes.data() + i))) return false;
  return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(i), bytes.end(), digito);
}

bool soBrancos(std::string_view bytes) noexcept {
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8)
    if (oito(bytes.data() + i) != repete(' ')) return false;
  return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(i), bytes.end(),
                     [](char c) { return c == ' '; });
}

bool leNumero(std::string_view bytes, std::int64_t& valor) noexcept {
  if (bytes.empty() || !soDigitos(bytes)) return false;
  std::int64_t lido = 0;
  for (const char c : bytes) {
    if (__builtin_mul_overflow(lido, 10, &lido) || __builtin_add_overflow(lido, c - '0', &lido)) return false;
  }
  valor = lido;
  return true;
}

int diasDoMes(int ano, int mes) noexcept {
  static constexpr int kDias[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool bissexto = (ano % 4 == 0 && ano % 100 != 0) || ano % 400 == 0;
  return mes == 2 && bissexto ? 29 : kDias[mes - 1];
}

bool dataPossivel(std::string_view bytes) noexcept {
  if (bytes.size() != 8 || !soDigitos(bytes)) return false;
  const int ano = dois(bytes.data()) * 100 + dois(bytes.data() + 2);
  const int mes = dois(bytes.data() + 4), dia = dois(bytes.data() + 6);
  return ano >= 1 && mes >= 1 && mes <= 12 && dia >= 1 && dia <= diasDoMes(ano, mes);
}

bool horaPossivel(std::string_view bytes) noexcept {
  return bytes.size() == 6 && soDigitos(bytes) && dois(bytes.data()) < 24 && dois(bytes.data() + 2) < 60 &&
         dois(bytes.data() + 4) < 60;
}

Defeito defeito(Especie especie, std::string_view bytes) noexcept {
  if (numerica(especie)) return soDigitos(bytes) ? Defeito::Nenhum : Defeito::Digitos;
  if (deData(especie)) return dataPossivel(bytes) || soBrancos(bytes) ? Defeito::Nenhum : Defeito::Data;
  if (deHora(especie)) return horaPossivel(bytes) || soBrancos(bytes) ? Defeito::Nenhum : Defeito::Hora;
  return defeitoDoTexto(bytes);
}

std::string_view semBrancosNoFim(std::string_view bytes) noexcept {
  return bytes.substr(0, bytes.find_last_not_of(' ') + 1);
}

}  // namespace cotepe
