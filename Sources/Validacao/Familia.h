// What the families of rules share: how they see the file, and how they report.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Achados/Citacao.h"
#include "Leitor/Coluna.h"
#include "Validacao/RegrasDoRelatorio.h"

namespace cotepe {

/// A field of a register, from 0 in its list, and its position on the line, from 1; none by default.
struct LugarDoCampo {
  int campo = -1;
  int de = 0, ate = 0;
};

/// The place of a field of a line, counted from 0 among those on it.
LugarDoCampo lugarDoCampo(const RegistroLido& lido, std::size_t campo);

/// Makes findings for the rules that are on; what was found and expected is already translated.
class Relator {
 public:
  Relator(RecebeAchados& recebe, std::string arquivo, Supressoes desligadas);

  bool ligada(const Regra& regra) const { return desligadas_.ligada(regra); }

  ///@{
  /// Rules about the whole file report last: this says whether all others have finished and found nothing,
  /// since a damaged line would be reported again by every rule that depends on it.
  void encerraPrimeiras() { limpo_ = achados_ == 0; }
  bool limpo() const { return limpo_; }
  ///@}

  /// Reports a finding that was held back.
  void entrega(const Achado& achado);
  /// From now on findings go to `onde`; null ends that.
  void retem(std::vector<Achado>* onde) { retidos_ = onde; }

  /// About a field of a line, counted from 0 among those on it.
  void noCampo(const Regra& regra, const RegistroLido& lido, std::size_t campo, std::string encontrado,
               std::string esperado);
  /// About a whole line.
  void naLinha(const Regra& regra, const RegistroLido& lido, std::string encontrado, std::string esperado);
  /// About a line that was read before (0 for one that is missing), and a field of it.
  void naLinhaLida(const Regra& regra, long linha, const Registro& registro, const LugarDoCampo& lugar,
                   std::string encontrado, std::string esperado);
  /// About the file; `registro` may be null.
  void noArquivo(const Regra& regra, const Registro* registro, std::string encontrado, std::string esperado);

 private:
  bool fala(const Regra& regra);
  Achado novo(const Regra& regra, std::string encontrado, std::string esperado) const;

  RecebeAchados& recebe_;
  std::string arquivo_;
  Supressoes desligadas_;
  std::vector<Achado>* retidos_ = nullptr;
  long achados_ = 0;
  bool limpo_ = false;
};

/// Rules that look at the same things.
class Familia {
 public:
  virtual ~Familia() = default;
  /// Each line of the file, those of no register among them.
  virtual void linha(const RegistroLido& lido) = 0;
  /// The end of the file.
  virtual void fim() {}
};

using NovaFamilia = std::unique_ptr<Familia>(Relator& relator, const LeitorDeRegistros& leitor);

NovaFamilia regrasDeLinhas, regrasDeOrdem, regrasDeCampos, regrasDeIdentidade, regrasDeChaves,
    regrasDeContadores, regrasDeTotais, regrasDeTipos, regrasDeDocumentos, regrasDeReducoes, regrasDeFaixa,
    regrasDePosicao, regrasDeTotalizadores, regrasDeCorrespondencias;

/// Texts for findings: cents as 1.234,56, a counter as written in `largura` digits.
std::string reais(std::int64_t centavos);
std::string contadorEscrito(std::int64_t valor, int largura);

}  // namespace cotepe
