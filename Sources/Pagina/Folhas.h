// The pages that a report becomes: one file, or a folder of them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "Sistema/PastaSegura.h"
#include "Sistema/TextoEmArquivo.h"

namespace cotepe::pagina {

/// Writes pages, each a whole HTML document with the style and the script in it. Failures are thrown as
/// Falha; nothing has its final name before `conclui`.
class Folhas {
 public:
  static constexpr std::uint64_t kMaximo = 4500000;  ///< bytes after which a page of a folder should end
  static constexpr const char* kIndice = "index.html";

  /// `dividida`: `destino` is a folder.
  Folhas(std::string destino, bool dividida, bool substitui);
  ~Folhas();
  Folhas(const Folhas&) = delete;
  Folhas& operator=(const Folhas&) = delete;

  bool dividida() const { return pasta_ != nullptr; }

  /// Begins a page; in a folder under that name, with a link back to the index.
  void abre(const std::string& nome, const std::string& titulo);
  void escreve(std::string_view html) { arquivo_->escreve(html); }
  void fecha();

  /// Whether the current page of a folder should end here.
  bool cheia() const { return dividida() && arquivo_->tamanho() > kMaximo; }

  /// Lines of the report that links lead to; to be given before the pages of a folder are written.
  void procura(std::set<long> linhas) { procuradas_ = std::move(linhas); }

  /// Says that the element of a line is written next.
  void marca(long linha);

  /// The target of a link to the line; empty when no page has it.
  std::string endereco(long linha) const;

  /// To be called when all pages are written.
  void conclui();

 private:
  std::string destino_, nome_;
  bool substitui_;
  std::unique_ptr<programa::PastaSegura> pasta_;
  std::unique_ptr<programa::TextoEmArquivo> arquivo_;
  std::set<long> procuradas_;
  std::map<long, std::string> achadas_;
};

}  // namespace cotepe::pagina
