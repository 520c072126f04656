// Where a report goes once it is complete: a file, or stdout.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace cotepe::programa {

class Saida {
 public:
  virtual ~Saida() = default;

  /// The file for the generator to write, and what was written there, in bytes.
  virtual std::string temporario() const = 0;
  virtual std::int64_t tamanho() const = 0;

  /// The output's name for users.
  virtual std::string nome() const = 0;

  /// Delivers the complete report. Throws Falha (kNaoEscreve; kNaoAbre if the name was taken meanwhile) and
  /// Interrupcao.
  virtual void entrega() = 0;

  /// Keeps an incomplete report under a name that says so, and returns that name. Throws as `entrega`. Stdout
  /// keeps none.
  virtual std::string guardaParcial() { return {}; }

  /// Gives up on what was not delivered; returns what happened to it, as the end of a sentence, or an empty
  /// text.
  virtual std::string abandona() = 0;
};

/// The name under which a partial report is kept.
std::string nomeDoParcial(const std::string& destino);

/// `apelido` as of ArquivoSeguro; `guarda`: the name of the partial report must be free, too. Throws Falha
/// (kNaoAbre).
std::unique_ptr<Saida> saidaEmArquivo(const std::string& destino, const std::string& apelido, bool substitui,
                                      bool guarda);

/// Stdout, which gets nothing before the report is whole. Throws Falha (kNaoAbre).
std::unique_ptr<Saida> saidaPadrao();

}  // namespace cotepe::programa
