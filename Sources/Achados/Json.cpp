#include "Achados/Json.h"

#include <cstddef>
#include <ostream>

namespace cotepe {
namespace {

constexpr char kHexadecimais[] = "0123456789ABCDEF";

unsigned char byteEm(std::string_view texto, std::size_t i) { return static_cast<unsigned char>(texto[i]); }

// Length of the well-formed UTF-8 sequence of two to four bytes at `i`; 0 when there is none.
std::size_t sequenciaUtf8(std::string_view texto, std::size_t i) {
  const unsigned char b = byteEm(texto, i);
  const std::size_t n = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : 2;
  if (b < 0xC2 || b > 0xF4 || i + n > texto.size()) return 0;
  for (std::size_t k = 1; k < n; ++k)
    if ((byteEm(texto, i + k) & 0xC0) != 0x80) return 0;
  const unsigned char segundo = byteEm(texto, i + 1);
  const bool fora = (b == 0xE0 && segundo < 0xA0) || (b == 0xED && segundo > 0x9F) ||
                    (b == 0xF0 && segundo < 0x90) || (b == 0xF4 && segundo > 0x8F);
  return fora ? 0 : n;
}

void escapa(std::string& saida, unsigned char c) {
  saida += "\\u00";
  saida += kHexadecimais[c >> 4];
  saida += kHexadecimais[c & 15];
}

}  // namespace

std::string textoJson(std::string_view texto) {
  std::string saida = "\"";
  for (std::size_t i = 0; i < texto.size(); ++i) {
    const unsigned char c = byteEm(texto, i);
    if (c == '"' || c == '\\') {
      saida += '\\';
      saida += texto[i];
    } else if (c >= 0x80) {
      const std::size_t n = sequenciaUtf8(texto, i);
      if (n == 0) {
        escapa(saida, c);
      } else {
        saida += texto.substr(i, n);
        i += n - 1;
      }
    } else if (c < 0x20 || c == 0x7F) {
      escapa(saida, c);
    } else {
      saida += texto[i];
    }
  }
  return saida += '"';
}

std::string uriDoArquivo(std::string_view nome) {
  constexpr std::string_view kLivres = "-._~/";
  std::string saida;
  for (const char c : nome) {
    const bool livre = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       kLivres.find(c) != std::string_view::npos;
    if (livre) {
      saida += c;
      continue;
    }
    saida += '%';
    saida += kHexadecimais[static_cast<unsigned char>(c) >> 4];
    saida += kHexadecimais[static_cast<unsigned char>(c) & 15];
  }
  return saida;
}

ObjetoJson::ObjetoJson(std::ostream& saida) : saida_(saida) { saida_ << '{'; }

std::ostream& ObjetoJson::membro(const char* nome) {
  saida_ << (primeiro_ ? "\"" : ",\"") << nome << "\":";
  primeiro_ = false;
  return saida_;
}

ObjetoJson& ObjetoJson::texto(const char* nome, std::string_view valor) {
  membro(nome) << textoJson(valor);
  return *this;
}

ObjetoJson& ObjetoJson::numero(const char* nome, long valor) {
  membro(nome) << valor;
  return *this;
}

ObjetoJson& ObjetoJson::textoSeHouver(const char* nome, std::string_view valor) {
  return valor.empty() ? *this : texto(nome, valor);
}

ObjetoJson& ObjetoJson::numeroSeHouver(const char* nome, long valor) {
  return valor == 0 ? *this : numero(nome, valor);
}

void ObjetoJson::fecha() { saida_ << '}'; }

}  // namespace cotepe
