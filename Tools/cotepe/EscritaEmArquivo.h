// Writes bytes to a file that others will name.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace cotepe::programa {

class EscritaEmArquivo {
 public:
  /// Opens the existing file `caminho`; `nome` is its name in messages. Throws Falha (kNaoAbre).
  EscritaEmArquivo(const std::string& caminho, std::string nome);

  /// Throws Falha (kNaoEscreve) and Interrupcao.
  void escreve(std::string_view bytes);

  /// After the last byte. Throws as `escreve`.
  void conclui();

 private:
  struct Fecha {
    void operator()(std::FILE* fluxo) const noexcept { static_cast<void>(std::fclose(fluxo)); }
  };

  std::string nome_;
  std::unique_ptr<std::FILE, Fecha> fluxo_;
};

}  // namespace cotepe::programa
