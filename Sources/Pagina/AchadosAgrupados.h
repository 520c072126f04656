// The findings about a report, by rule.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "Achados/Achado.h"

namespace cotepe::pagina {

/// Keeps the first findings of each rule and counts all of them.
class AchadosAgrupados final : public RecebeAchados {
 public:
  static constexpr std::size_t kMostrados = 50;  ///< of each rule

  struct Grupo {
    Severidade severidade = Severidade::Erro;
    std::string conserto;
    std::vector<Achado> primeiros;
    long quantos = 0;
  };

  /// `mascara` hides the consumer data that findings quote.
  explicit AchadosAgrupados(bool mascara) : mascara_(mascara) {}

  void recebe(const Achado& achado) override;

  /// By the name of the rule.
  const std::map<std::string, Grupo>& grupos() const { return grupos_; }
  long erros() const { return erros_; }
  long avisos() const { return avisos_; }
  long total() const { return erros_ + avisos_; }

 private:
  bool mascara_;
  std::map<std::string, Grupo> grupos_;
  long erros_ = 0, avisos_ = 0;
};

}  // namespace cotepe::pagina
