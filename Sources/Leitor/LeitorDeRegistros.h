// A report as records: each line with its register and its fields, the file's layout worked out on the way.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Leitor/Formas.h"
#include "Leitor/LeitorDeLinhas.h"

namespace cotepe {

/// One line read with the catalogue; valid until the next line is read.
struct RegistroLido {
  LinhaLida linha;                     ///< the line itself
  const Registro* registro = nullptr;  ///< null when the line does not begin with a register's code
  int indice = -1;                     ///< of the register in the catalogue
  const CampoLido* campos = nullptr;   ///< in the order of the line
  std::size_t quantos = 0;             ///< fields on the line
  /// The line is as long as its register is under the file's layout and mode; otherwise the fields are those
  /// of the expected record, as far as the line goes.
  bool medidaCerta = false;
  int comprimento = 0;  ///< of the expected record
  bool vazio = false;   ///< a placeholder record

  /// Whether it is the signature line, which a delivered report has after its records.
  bool assinatura() const { return registro == nullptr && linha.texto.substr(0, 3) == "EAD"; }

  /// The bytes of a field, counted from 0 among those on the line; valid as long as the line is.
  std::string_view bytes(std::size_t campo) const { return campos[campo].em(linha.texto); }

  ///@{
  /// The first field with the label: its place among those on the line, or `quantos`; its bytes, or none. For
  /// labels that not every register has: rules use Coluna for theirs.
  std::size_t acha(std::string_view rotulo) const;
  std::string_view bytesDe(std::string_view rotulo) const;
  ///@}

  /// How many leading fields of the line are the same in every record.
  std::size_t cabecalho() const;
};

/// Reads the records of a report, in the order of the file. It knows what is particular to the generator's
/// lines: E01 without its software version, the bare E07, the short E09, the covered total of E11, the lines
/// that grow with every user or coding, the numbers that move the later fields.
///
///   LeitorDeLinhas linhas(descritor);
///   LeitorDeRegistros registros(linhas);
///   for (RegistroLido registro; registros.proximo(registro);) ...
class LeitorDeRegistros {
 public:
  /// Borrows the lines, which must be those of one report from its start.
  explicit LeitorDeRegistros(LeitorDeLinhas& linhas, Catalogo catalogo = kCatalogo);

  /// The registers that it knows.
  const Catalogo& catalogo() const { return formas_->catalogo(); }

  /// Goes to the next line; false at the end of the file, or on a read error (LeitorDeLinhas::erro).
  bool proximo(RegistroLido& lido);

  /// Reads one line as `proximo` does, for callers that have lines of their own: the lines of one file, in
  /// order.
  void le(const LinhaLida& linha, RegistroLido& lido);

  /// The settings that are still possible after the lines read so far, as bits of kAjustesPossiveis; at least
  /// one.
  unsigned ajustes() const { return ajustes_; }

  /// The first of them: the file's own, once its lines have told the settings apart.
  const AjusteDoLeiaute& ajuste() const;

  ///@{
  /// Whether all settings that are still possible have CAT52 mode, or none of them has it.
  bool certamenteCat52() const { return (ajustes_ & foraDoCat52()) == 0; }
  bool certamenteForaDoCat52() const { return (ajustes_ & ~foraDoCat52()) == 0; }
  ///@}

 private:
  static unsigned foraDoCat52() {
    return ajustesEmQue([](const AjusteDoLeiaute& ajuste) { return !ajuste.cat52; });
  }

  /// What the lines of a register have shown so far.
  struct Visto {
    const FormaDoRegistro* ultima = nullptr;  // the form of the last line
    int registros = 0;                        // how many lines there were
  };

  int semCodigo(std::string_view texto) const;
  void leRegular(RegistroLido& lido);
  void leComGrupos(RegistroLido& lido);
  Repeticoes vezes(const RegistroLido& lido);
  bool cabe(RegistroLido& lido, const FormaDoRegistro& forma);
  void desloca(RegistroLido& lido, const FormaDoRegistro& forma);
  void usa(RegistroLido& lido, const Disposicao& disposicao, bool medidaCerta);
  void restringe(unsigned ajustes);

  LeitorDeLinhas& linhas_;
  std::shared_ptr<const Formas> formas_;
  unsigned ajustes_ = kTodosOsAjustes;
  std::vector<Visto> vistos_;  // of each register
  int usuarios_ = 1;           // how many the printer has, according to its first register
  Disposicao rascunho_;        // of a line that has no form of its own
};

}  // namespace cotepe
