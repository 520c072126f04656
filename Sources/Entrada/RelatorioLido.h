// A report that a command reads: a file, or stdin.
#pragma once

#include <string>

#include "Entrada/ConteudoDoRelatorio.h"
#include "Leitor/LeitorDeLinhas.h"
#include "Sistema/Arquivo.h"

namespace cotepe::programa {

class RelatorioLido {
 public:
  /// Opens the file, "-" being stdin; it may be under gzip, and empty if `vazioServe`. Throws Falha
  /// (kUsoErrado: the command could not run).
  explicit RelatorioLido(const std::string& caminho, bool vazioServe = false);

  /// Reading throws Interrupcao when a signal comes, and Falha (kUsoErrado) at the first bytes of a file that
  /// is not a report.
  LeitorDeLinhas& linhas() { return linhas_; }

  /// Its name for users.
  const std::string& nome() const { return nome_; }

  /// After the last line: throws Falha (kUsoErrado) when the file could not be read to its end.
  void confereLeitura() const;

 private:
  long le(char* destino, std::size_t tamanho) const;

  std::string nome_;
  Descritor arquivo_;
  ConteudoDoRelatorio conteudo_;
  LeitorDeLinhas linhas_;
};

/// Throws Falha (kUsoErrado) when the report cannot be read more than once, as the command is about to do:
/// stdin, a pipe, a device.
void exigeRelatorioRelivel(const std::string& caminho);

}  // namespace cotepe::programa
