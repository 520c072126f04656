// A report as records: each line with its register and its fields, the file's layout worked out on the way.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "Leitor/Formas.h"
#include "Leitor/LeitorDeLinhas.h"

namespace cotepe {

/// One line read against the catalogue; valid until the next line is read.
struct RegistroLido {
  LinhaLida linha;                     ///< the line itself
  const Registro* registro = nullptr;  ///< null where the line begins with no register's code
  int indice = -1;                     ///< of the register in the catalogue
  const CampoLido* campos = nullptr;   ///< in the order of the line
  std::size_t quantos = 0;             ///< fields that stand on the line
  /// The line is as long as its register is under the file's layout and mode; otherwise the fields are those
  /// of the record that was expected, as far as the line goes.
  bool medidaCerta = false;
  int comprimento = 0;  ///< that was expected
  bool vazio = false;   ///< a placeholder record

  /// Whether it is the line of a signature, which a delivered report has behind its records.
  bool assinatura() const { return registro == nullptr && linha.texto.substr(0, 3) == "EAD"; }

  /// The bytes of a field, counted from 0 among those on the line; valid as long as the line.
  std::string_view bytes(std::size_t campo) const { return campos[campo].em(linha.texto); }

  ///@{
  /// The first field with the label: its place among those on the line, or `quantos`; its bytes, or none. For
  /// labels that not every register has: rules name theirs by Coluna.
  std::size_t acha(std::string_view rotulo) const;
  std::string_view bytesDe(std::string_view rotulo) const;
  ///@}

  /// How many fields the line begins with that are the same in every record.
  std::size_t cabecalho() const;
};

/// Reads the records of a report, in the order of the file. What is particular to the generator's lines is
/// known here: E01 without its software version, the bare E07, the short E09, the covered total of E11, the
/// lines that grow with every user or coding, the numbers that move the later fields.
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

  /// Goes to the next line; false at the end of the file, or when it cannot be read (LeitorDeLinhas::erro).
  bool proximo(RegistroLido& lido);

  /// Reads one line as `proximo` does, for those who have lines of their own: the lines of one file, in
  /// order.
  void le(const LinhaLida& linha, RegistroLido& lido);

  /// The settings that are still possible after the lines read so far, as bits of kAjustesPossiveis; at least
  /// one.
  unsigned ajustes() const { return ajustes_; }

  /// The first of them: the file's own, once its lines have told them apart.
  const AjusteDoLeiaute& ajuste() const;

  ///@{
  /// Whether every setting that is still possible has CAT52, or none has it.
  bool certamenteCat52() const { return (ajustes_ & foraDoCat52()) == 0; }
  bool certamenteForaDoCat52() const { return (ajustes_ & ~foraDoCat52()) == 0; }
  ///@}

 private:
  static unsigned foraDoCat52() {
    return ajustesEmQue([](const AjusteDoLeiaute& ajuste) { return !ajuste.cat52; });
  }

  /// What the lines of a register have told so far.
  struct Visto {
    const FormaDoRegistro* ultima = nullptr;  // the form of the last line
    int registros = 0;                        // how many lines came
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
  int usuarios_ = 1;           // how many the printer has, as its first register tells
  Disposicao rascunho_;        // of a line that has no form of its own
};

}  // namespace cotepe
