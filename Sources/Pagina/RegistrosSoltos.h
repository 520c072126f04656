// The records of a report that are not part of a document, as tables.
#pragma once

#include <array>
#include <string>

#include "Leitor/LeitorDeRegistros.h"
#include "Pagina/Fita.h"
#include "Pagina/Folhas.h"

namespace cotepe::pagina {

/// Takes records in the order of the file, and writes a table for each register, its columns from the list of
/// fields, and one for lines that belong to no register.
class RegistrosSoltos {
 public:
  explicit RegistrosSoltos(bool mascara) : mascara_(mascara) {}

  void acrescenta(const RegistroLido& lido);

  /// To be called after the last one. In a folder, tables get pages of their own.
  void escreve(Folhas& folhas);

  /// The tables' headings and counts, with links in a folder to where they are; known after `escreve`.
  const std::string& sumario() const { return sumario_; }

 private:
  static constexpr std::size_t kSemRegistro = kCatalogo.size();

  void poeCampos(const RegistroLido& lido);
  std::string valorDoCampo(const RegistroLido& lido, std::size_t campo) const;
  void escreveTabela(Folhas& folhas, std::size_t indice);
  void abreFolha(Folhas& folhas);

  bool mascara_;
  std::array<Fita, kCatalogo.size() + 1> fitas_;
  std::string html_, sumario_;
  int folha_ = 0;
};

}  // namespace cotepe::pagina
