// One printer and one user in every line.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "Idioma/Idioma.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kIdentidade{
    "identity", Severidade::Erro, marca("The printer and its user are the same in every line."), kGereDeNovo};

namespace {

/// A field of the head, and what its first line held.
class CampoRepetido {
 public:
  void confere(Relator& relator, const RegistroLido& lido, std::size_t campo) {
    const std::string_view bytes = lido.bytes(campo);
    if (bytes.size() != static_cast<std::size_t>(lido.campos[campo].largura)) return;
    if (primeira_ == 0) {
      valor_ = bytes;
      primeira_ = lido.linha.numero;
    } else if (bytes != valor_) {
      relator.noCampo(validacao::kIdentidade, lido, campo, entreAspas(bytes),
                      frase("{1} as in line {2}", {entreAspas(valor_), std::to_string(primeira_)}));
    }
  }

 private:
  std::string valor_;
  long primeira_ = 0;
};

/// The CNPJ of the user: in later lines one of those that E01 has, of several users one each.
class Cnpjs {
 public:
  void confere(Relator& relator, const RegistroLido& lido) {
    for (std::size_t i = 4; i < lido.quantos; ++i)
      if (std::string_view(lido.campos[i].campo->rotulo).substr(0, 4) == "CNPJ") confereUm(relator, lido, i);
  }

 private:
  void confereUm(Relator& relator, const RegistroLido& lido, std::size_t campo) {
    const std::string bytes(lido.bytes(campo));
    if (lido.registro == &kE01) {
      if (lido.medidaCerta) doE01_.push_back(bytes);
      return;
    }
    const bool semUsuario = lido.vazio && bytes.find_first_not_of('0') == std::string::npos;
    if (doE01_.empty() || semUsuario || bytes.size() != doE01_.front().size()) return;
    if (std::find(doE01_.begin(), doE01_.end(), bytes) == doE01_.end())
      relator.noCampo(validacao::kIdentidade, lido, campo, entreAspas(bytes),
                      frase("{1} as in {2}", {entreAspas(doE01_.front()), "E01"}));
  }

  std::vector<std::string> doE01_;
};

constexpr int kPrimeiroDoUsuario = 11, kUltimoDoUsuario = 20, kE22Indice = 21;  // E12 to E21

// E01 has a model too, but its own: of several printers the heads have the last one's.
class RegrasDeIdentidade final : public Familia {
 public:
  explicit RegrasDeIdentidade(Relator& relator) : relator_(relator) {}

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr || lido.linha.texto.substr(0, 1) != "E") return;
    serie_.confere(relator_, lido, 1);
    if (lido.indice != 0) modelo_.confere(relator_, lido, lido.indice == kE22Indice ? 2 : 3);
    if (lido.indice >= kPrimeiroDoUsuario && lido.indice <= kUltimoDoUsuario)
      usuario_.confere(relator_, lido, 4);
    else
      cnpjs_.confere(relator_, lido);
  }

 private:
  Relator& relator_;
  CampoRepetido serie_, modelo_, usuario_;
  Cnpjs cnpjs_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeIdentidade(Relator& relator, const LeitorDeRegistros& /*leitor*/) {
  return std::make_unique<RegrasDeIdentidade>(relator);
}

}  // namespace cotepe
