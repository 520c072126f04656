// What a file given as a report contains: the report itself, the report under gzip, or something else.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Leitor/LeitorDeLinhas.h"

namespace cotepe::programa {

/// What a file with this beginning is, when it is not a report: a sentence that follows its name. Null when
/// it may be one. `inicio` holds the first bytes, up to 4096; `acaba` says that there are no more.
const char* oQueNaoERelatorio(std::string_view inicio, bool acaba);

/// The bytes of a report, from those of a file: gzip is unpacked on the way, all members of it. A file that
/// is recognised as something else is rejected at its first bytes.
class ConteudoDoRelatorio {
 public:
  /// `crua` fills a buffer as LeitorDeLinhas expects; `nome` is the file's name for users. The file may be
  /// empty if `vazioServe`.
  ConteudoDoRelatorio(LeitorDeLinhas::Leitura crua, std::string nome, bool vazioServe);
  ~ConteudoDoRelatorio();
  ConteudoDoRelatorio(const ConteudoDoRelatorio&) = delete;
  ConteudoDoRelatorio& operator=(const ConteudoDoRelatorio&) = delete;

  /// The next bytes: their count, 0 at the end, below 0 with errno where the file cannot be read. Throws
  /// Falha (kUsoErrado) when it is not a report, or its gzip is damaged.
  long le(char* destino, std::size_t tamanho);

 private:
  class Gzip;

  long comeca();
  long leUmPouco(char* destino, std::size_t tamanho);

  LeitorDeLinhas::Leitura crua_;
  std::string nome_;
  std::unique_ptr<Gzip> gzip_;
  std::vector<char> inicio_;  // examined, not yet returned
  std::size_t dados_ = 0;     // of those, returned
  bool vazioServe_;
  bool comecou_ = false;
};

}  // namespace cotepe::programa
