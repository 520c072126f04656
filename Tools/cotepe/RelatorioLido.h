// A report that a command reads: a file, or stdin.
#pragma once

#include <string>

#include "Leitor/LeitorDeLinhas.h"
#include "Sistema/Arquivo.h"

namespace cotepe::programa {

class RelatorioLido {
 public:
  /// Opens the file, "-" being stdin. Throws Falha (kUsoErrado: the command could not run).
  explicit RelatorioLido(const std::string& caminho);

  /// Reading throws Interrupcao when a signal comes.
  LeitorDeLinhas& linhas() { return linhas_; }

  /// What users call it.
  const std::string& nome() const { return nome_; }

  /// After the last line: throws Falha (kUsoErrado) where the file could not be read to its end.
  void confereLeitura() const;

 private:
  long le(char* destino, std::size_t tamanho) const;

  std::string nome_;
  Descritor arquivo_;
  LeitorDeLinhas linhas_;
};

}  // namespace cotepe::programa
