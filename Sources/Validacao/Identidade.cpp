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

/// The CNPJ of the user: in later lines it is one of those in E01, which has one per user.
class Cnpjs {
 public:
  void confere(Relator& relator, const RegistroLido& lido, std::size_t campo) {
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

 private:
  std::vector<std::string> doE01_;
};

// E01 has a model too, but its own: with several printers the heads have the last one's.
class RegrasDeIdentidade final : public Familia {
 public:
  RegrasDeIdentidade(Relator& relator, const Catalogo& catalogo) : relator_(relator) {
    for (const Registro* registro : catalogo)
      temCnpj_.push_back(std::any_of(registro->campos.begin(), registro->campos.end(), deUsuario));
  }

  void linha(const RegistroLido& lido) override {
    if (lido.registro == nullptr || lido.linha.texto.substr(0, 1) != "E") return;
    const bool temCnpj = temCnpj_[static_cast<std::size_t>(lido.indice)];
    const std::size_t fixos = lido.cabecalho();
    for (std::size_t i = 1; i < (temCnpj ? lido.quantos : fixos); ++i) {
      const Campo& campo = *lido.campos[i].campo;
      if (i < fixos && campo.origem.tipo == Origem::Tipo::Ajuste)
        marcaDe(campo.origem).confere(relator_, lido, i);
      if (deUsuario(campo)) cnpjs_.confere(relator_, lido, i);
    }
  }

 private:
  static bool deUsuario(const Campo& campo) {
    return campo.especie == Especie::Identificador && !campo.podeSerCpf;
  }

  CampoRepetido& marcaDe(const Origem& origem) {
    return origem.ajuste == &Ajustes::nrFabricacao ? serie_
           : origem.ajuste == &Ajustes::modelo     ? modelo_
                                                   : usuario_;
  }

  Relator& relator_;
  std::vector<bool> temCnpj_;
  CampoRepetido serie_, modelo_, usuario_;
  Cnpjs cnpjs_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeIdentidade(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<RegrasDeIdentidade>(relator, leitor.catalogo());
}

}  // namespace cotepe
