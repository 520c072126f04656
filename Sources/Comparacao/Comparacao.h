// Two reports compared record by record: what one has that the other does not, field by field.
#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "Achados/Regra.h"
#include "Leitor/LeitorDeRegistros.h"

namespace cotepe {

/// Compares a report with the one that it should be. Records are aligned by register and natural key, equal
/// keys in the order of the file. Memory: the lines of the current registers whose partner has not been read
/// yet; none when the files are equal, at most the records of one register when nothing matches.
///
/// A report as it is delivered is the same as the plain one: CR and LF throughout and the EAD line are
/// ignored. A line that ends differently from the first one of its file is not.
///
/// Each difference is one finding about the second report. Its rule: "field", "missing" and "added" (a whole
/// record), "line" (bytes after the last field, or too many to compare), "line-end", "order" (a record out of
/// its place), and once, at the end, "layout" for records whose values are the same in fields of other
/// widths.
class Comparacao {
 public:
  struct Opcoes {
    std::string esperado, encontrado;  // the names of the first and the second report in messages
    bool comCarimbo = false;           // whether date and hour of E11 count
    bool comOrdem = false;             // whether the order of the lines does
    Catalogo catalogo = kCatalogo;     // the registers that the lines are read by
  };

  Comparacao(RecebeAchados& saida, Opcoes opcoes) : saida_(saida), opcoes_(std::move(opcoes)) {}

  /// To be called once. Reading ends at a line that cannot be read: see LeitorDeLinhas::erro afterwards.
  void compara(LeitorDeLinhas& esperado, LeitorDeLinhas& encontrado);

  /// Pairs of records that were compared, the equal ones among them.
  long pares() const { return pares_; }

 private:
  /// A record that outlives its line.
  struct Guardado {
    std::string texto;
    std::vector<CampoLido> campos;
    RegistroLido lido;  // as it was read; `vista` gives it with this text and these fields
    long ordem = 0;

    RegistroLido vista() const;
  };

  using Pendentes = std::unordered_map<std::string, std::deque<Guardado>>;
  struct Lado {
    Lado(LeitorDeLinhas& linhas, const Catalogo& catalogo)
        : registros(linhas, catalogo), ordens(catalogo.size() + 1), pendentes(catalogo.size() + 1) {}
    /// To the next record; of its line, comCr is set only when it ends differently from the first one.
    void avanca();

    LeitorDeRegistros registros;
    RegistroLido lido;
    bool ha = true;
    bool crlf = false;      // the first line ends with CR and LF, as delivered
    std::size_t bloco = 0;  // from 1: the register of the line, or of the line before where it has none
    long ordem = 0;         // of the record in its register
    int adiante = 0;        // how many lines were taken while the other side was in an earlier register
    // Per register, after those for the lines of no register at the start.
    std::vector<long> ordens;
    std::vector<Pendentes> pendentes;
  };

  void chega(Lado& lado, Lado& outro, bool esperado);
  void confronta(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem);
  int confrontaCampos(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem);
  void confrontaResto(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem);
  void confereOrdem(const RegistroLido& esperado, const RegistroLido& encontrado, long ordem);
  void fecha(Lado& esperado, Lado& encontrado);
  void faltaOuSobra(Pendentes& pendentes, bool falta);
  Achado achadoEm(const Regra& regra, const RegistroLido& esperado, const RegistroLido& encontrado,
                  long ordem) const;

  RecebeAchados& saida_;
  Opcoes opcoes_;
  bool crlf_ = false;  // as that of the second report
  long pares_ = 0;
  long soLarguras_ = 0;
  long ultimaEsperada_ = 0, ultimaEncontrada_ = 0;  // greatest line numbers of the pairs so far
};

}  // namespace cotepe
