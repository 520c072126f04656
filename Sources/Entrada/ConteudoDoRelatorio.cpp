#include "Entrada/ConteudoDoRelatorio.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <utility>

#include "Idioma/Idioma.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kOlhado = 4096;
constexpr std::string_view kMagicoDoGzip = "\x1f\x8b"sv;

bool comeca(std::string_view texto, std::string_view inicio) {
  return texto.substr(0, inicio.size()) == inicio;
}

bool temNulosAlternados(std::string_view inicio) {
  return inicio.size() >= 6 && ((inicio[1] == '\0' && inicio[3] == '\0' && inicio[0] != '\0') ||
                                (inicio[0] == '\0' && inicio[2] == '\0' && inicio[1] != '\0'));
}

}  // namespace

const char* oQueNaoERelatorio(std::string_view inicio, bool acaba) {
  const std::size_t primeiro = std::min(inicio.find_first_not_of(" \t\r\n"), inicio.size());
  const std::string_view visivel = inicio.substr(primeiro);
  if (inicio.empty() && acaba) return marca("it is empty");
  if (comeca(inicio, "SQLite format 3\0"sv)) return marca("it is a database, not a report; give it as --db");
  if (comeca(inicio, "PK\x03\x04")) return marca("it is a zip archive; unpack it first");
  if (comeca(inicio, "\xef\xbb\xbf"))
    return marca(
        "it begins with a UTF-8 byte order mark: an editor has saved it; take the file as it was generated");
  if (comeca(inicio, "\xff\xfe") || comeca(inicio, "\xfe\xff") || temNulosAlternados(inicio))
    return marca("it is UTF-16 text: an editor has saved it; take the file as it was generated");
  if (comeca(visivel, "<")) return marca("it is HTML or XML, not a report");
  if (comeca(inicio, "E") && inicio.find('\n') == std::string_view::npos &&
      inicio.find('\r') != std::string_view::npos)
    return marca("its lines end with CR alone: it was converted; take the file as it was generated");
  return nullptr;
}

/// Unpacks what `crua` gives.
class ConteudoDoRelatorio::Gzip {
 public:
  Gzip(LeitorDeLinhas::Leitura& crua, const std::string& nome, std::string_view inicio)
      : crua_(crua), nome_(nome) {
    constexpr int kJanela = 15, kSoGzip = 16;
    if (inflateInit2(&fluxo_, kJanela + kSoGzip) != Z_OK) throw std::bad_alloc();
    std::memcpy(entrada_.data(), inicio.data(), inicio.size());
    ofereca(inicio.size());
  }
  ~Gzip() { inflateEnd(&fluxo_); }
  Gzip(const Gzip&) = delete;
  Gzip& operator=(const Gzip&) = delete;

  long le(char* destino, std::size_t tamanho) {
    fluxo_.next_out = reinterpret_cast<Bytef*>(destino);
    fluxo_.avail_out = static_cast<uInt>(tamanho);
    while (fluxo_.avail_out == tamanho) {
      if (fluxo_.avail_in == 0) {
        const long lidos = crua_(entrada_.data(), entrada_.size());
        if (lidos < 0) return lidos;
        if (lidos == 0 && !entreMembros_) falha(marca("the gzip file {1} is cut short"));
        if (lidos == 0) return 0;
        ofereca(static_cast<std::size_t>(lidos));
      }
      if (entreMembros_ && !outroMembro()) return 0;
      avanca();
    }
    return static_cast<long>(tamanho - fluxo_.avail_out);
  }

 private:
  [[noreturn]] void falha(const char* modelo) const { throw Falha(kUsoErrado, frase(modelo, {nome_})); }

  void ofereca(std::size_t quantos) {
    fluxo_.next_in = reinterpret_cast<Bytef*>(entrada_.data());
    fluxo_.avail_in = static_cast<uInt>(quantos);
  }

  // Whether another member follows the one that ended; zero padding of a medium is the end.
  bool outroMembro() {
    if (*fluxo_.next_in == 0) return false;
    entreMembros_ = false;
    inflateReset(&fluxo_);
    return true;
  }

  void avanca() {
    const int resultado = inflate(&fluxo_, Z_NO_FLUSH);
    if (resultado == Z_STREAM_END)
      entreMembros_ = true;
    else if (resultado == Z_MEM_ERROR)
      throw std::bad_alloc();
    else if (resultado != Z_OK && resultado != Z_BUF_ERROR)
      falha(marca("the gzip file {1} is damaged"));
  }

  LeitorDeLinhas::Leitura& crua_;
  const std::string& nome_;
  std::array<char, kOlhado * 16> entrada_{};
  z_stream fluxo_{};
  bool entreMembros_ = false;
};

ConteudoDoRelatorio::ConteudoDoRelatorio(LeitorDeLinhas::Leitura crua, std::string nome, bool vazioServe)
    : crua_(std::move(crua)), nome_(std::move(nome)), vazioServe_(vazioServe) {}

ConteudoDoRelatorio::~ConteudoDoRelatorio() = default;

long ConteudoDoRelatorio::leUmPouco(char* destino, std::size_t tamanho) {
  return gzip_ ? gzip_->le(destino, tamanho) : crua_(destino, tamanho);
}

// Examines the first bytes and, if they are gzip, the first unpacked ones.
long ConteudoDoRelatorio::comeca() {
  comecou_ = true;
  for (;;) {
    inicio_.resize(kOlhado);
    std::size_t lidos = 0;
    long agora = 0;
    while (lidos < kOlhado && (agora = leUmPouco(inicio_.data() + lidos, kOlhado - lidos)) > 0)
      lidos += static_cast<std::size_t>(agora);
    if (agora < 0) return agora;
    inicio_.resize(lidos);
    const std::string_view inicio(inicio_.data(), lidos);
    if (!gzip_ && inicio.substr(0, kMagicoDoGzip.size()) == kMagicoDoGzip) {
      gzip_ = std::make_unique<Gzip>(crua_, nome_, inicio);
      continue;
    }
    if (inicio.empty() && vazioServe_) return 0;
    if (const char* outraCoisa = oQueNaoERelatorio(inicio, lidos < kOlhado))
      throw Falha(kUsoErrado, frase("cannot read the report {1}: {2}", {nome_, traduz(outraCoisa)}));
    return 0;
  }
}

long ConteudoDoRelatorio::le(char* destino, std::size_t tamanho) {
  if (!comecou_) {
    if (const long erro = comeca(); erro < 0) return erro;
  }
  if (dados_ == inicio_.size()) return leUmPouco(destino, tamanho);
  const std::size_t quantos = std::min(tamanho, inicio_.size() - dados_);
  std::memcpy(destino, inicio_.data() + dados_, quantos);
  dados_ += quantos;
  return static_cast<long>(quantos);
}

}  // namespace cotepe::programa
