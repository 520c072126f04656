// A file descriptor with an owner.
#pragma once

#include <string_view>
#include <utility>

namespace cotepe::programa {

class Descritor {
 public:
  Descritor() = default;
  explicit Descritor(int numero) : numero_(numero) {}
  ~Descritor();
  Descritor(Descritor&& outro) noexcept : numero_(std::exchange(outro.numero_, -1)) {}
  Descritor& operator=(Descritor&& outro) noexcept;

  int numero() const { return numero_; }
  bool aberto() const { return numero_ >= 0; }

 private:
  int numero_ = -1;
};

/// Opens what the caller left closed of descriptors 0 to 2, so that no file of ours takes such a number and
/// is written to as if it were stdout or stderr; reading and writing there go on failing.
void ocupaDescritoresPadrao() noexcept;

/// Writes all of `texto` to a descriptor. Throws Interrupcao when a signal came, and Falha (kNaoEscreve) that
/// says of `nome` why it could not be written.
void escreveTudo(int descritor, std::string_view texto, const char* nome);

/// After the last write: asks for what some file systems tell only when a file is closed. Throws Falha as
/// `escreveTudo`; the descriptor stays open.
void confirmaEscrita(int descritor, const char* nome);

/// All that a command writes to stdout. Throws as the two above.
void escreveNaSaidaPadrao(std::string_view texto);

}  // namespace cotepe::programa
