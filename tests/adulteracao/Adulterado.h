// A good report to tamper with, which remembers where.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace cotepe {

/// The lines of a report with the places of their fields. Lines are counted from 0.
class Adulterado {
 public:
  explicit Adulterado(const std::string& relatorio);

  std::size_t quantas() const { return linhas_.size(); }
  /// The lines of a register, in the order of the file.
  std::vector<std::size_t> de(const std::string& registro) const;
  std::string registro(std::size_t linha) const { return linhas_[linha].texto.substr(0, 3); }
  const std::string& texto(std::size_t linha) const { return linhas_[linha].texto; }
  /// The bytes of a field by its key; empty where the line has no such field.
  std::string campo(std::size_t linha, const std::string& chave) const;
  std::int64_t numero(std::size_t linha, const std::string& chave) const;

  ///@{
  /// Change a field and mark the line as guilty. False, and nothing changed, where there is no such field,
  /// the value would not fit, or it is there already.
  bool poe(std::size_t linha, const std::string& chave, const std::string& bytes);
  bool soma(std::size_t linha, const std::string& chave, std::int64_t parcela);
  ///@}
  /// Whether `soma` can do it.
  bool pode(std::size_t linha, const std::string& chave, std::int64_t parcela) const;

  ///@{
  /// Change lines; those on both sides of a gap are guilty, and so is the register in the file as a whole.
  void trocaTexto(std::size_t linha, const std::string& texto);
  void remove(std::size_t linha);
  void removeRegistro(const std::string& registro);
  void insere(std::size_t antesDa, const std::string& texto);
  void permuta(std::size_t uma, std::size_t outra);
  ///@}

  void culpa(std::size_t linha) { linhas_[linha].culpada = true; }
  /// Whether a finding about the line (from 1; 0 for none) and the register is at a right place.
  bool certo(long linha, const std::string& registro) const;

  /// All lines, each with a line-feed.
  std::string relatorio() const;

 private:
  struct Lugar {
    std::string chave;
    std::size_t posicao = 0, largura = 0;
  };
  struct LinhaAdulterada {
    std::string texto;
    std::shared_ptr<const std::vector<Lugar>> campos;
    bool culpada = false;
  };

  const Lugar* lugar(std::size_t linha, const std::string& chave) const;
  void culpaParentes(std::size_t linha);
  void culpaIguais(const std::string& chave, const std::string& valor);
  std::string reducaoDe(const std::string& coo) const;
  void culpaEmVolta(std::size_t linha);

  std::vector<LinhaAdulterada> linhas_;
  std::vector<std::string> registrosCulpados_;  // of which lines are gone
};

/// One way of tampering. `vez` chooses where: 0 the first place, 1 one in the middle, 2 the last. False where
/// the report has nothing of the kind.
struct Classe {
  std::string nome;
  bool (*altera)(Adulterado& relatorio, int vez, const Classe& classe);
  std::string registro, campo;  ///< what it is about; the names are made of them
  std::int64_t parcela = 0;     ///< what is added to a number
  std::string bytes;            ///< what is put in
};

/// The place that `vez` chooses among these.
std::size_t escolhe(const std::vector<std::size_t>& lugares, int vez);

///@{
/// The classes by kind.
std::vector<Classe> classesDeBytes();
std::vector<Classe> classesDeCampos();
std::vector<Classe> classesDeRegistros();
std::vector<Classe> classesDeConjuntos();
///@}

}  // namespace cotepe
