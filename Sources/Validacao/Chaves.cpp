// The keys of each register ascend, and its dates with them.
#include <algorithm>
#include <string>
#include <vector>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Validacao/Familia.h"

namespace cotepe {

const Regra validacao::kOrdemDasChaves{
    "key-order", Severidade::Erro, marca("The keys of a register ascend."),
    marca("where counters are stored as texts 9 comes after 11; cotepe check tells")};
const Regra validacao::kDataRetrocede{"date-backwards", Severidade::Aviso,
                                      marca("Dates do not go back while counters go on."), kVejaOBanco};

namespace {

/// A key as it was read. `bloco` separates E13's non-fiscal sums, which come after all the others.
struct ChaveLida {
  int bloco = 0;
  std::int64_t numero = 0, segundo = 0;
  std::string texto;
};

// Of E13's totalizers: taxed ones, services, the others.
int grupo(std::string_view totalizador) { return totalizador[2] == 'T' ? 0 : totalizador[2] == 'S' ? 1 : 2; }

char maiuscula(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

int sinal(std::int64_t a, std::int64_t b) { return a < b ? -1 : a > b ? 1 : 0; }

/// The keys of one register, record after record.
class SequenciaDeChaves {
 public:
  explicit SequenciaDeChaves(const Registro& registro)
      : ordem_(registro.ordem),
        numero_(coluna(registro, ordem_.numero)),
        segundo_(coluna(registro, ordem_.segundo)),
        data_(coluna(registro, ordem_.data)) {}

  void confere(Relator& relator, const RegistroLido& lido) {
    if (ordem_.numero < 0 || lido.vazio || !le(lido)) return;
    if (conhecida_) confereChave(relator, lido);
    if (ordem_.data >= 0) confereData(relator, lido);
    std::swap(anterior_, atual_);
    conhecida_ = true;
  }

 private:
  bool le(const RegistroLido& lido) {
    if (!numero_.le(lido, atual_.numero)) return false;
    if (ordem_.tipo == Segundo::Nenhum) return true;
    if (ordem_.tipo == Segundo::Numero) return segundo_.le(lido, atual_.segundo);
    const std::string_view texto = segundo_.bytes(lido);
    if (texto.size() < 3) return false;
    if (ordem_.tipo == Segundo::Totalizador) {
      atual_.bloco = texto == "OPNF   " ? 1 : 0;
      atual_.segundo = grupo(texto);
    } else {
      atual_.texto = texto;
      if (ordem_.tipo == Segundo::TextoSemCaixa)
        std::transform(texto.begin(), texto.end(), atual_.texto.begin(), maiuscula);
    }
    return true;
  }

  // Counters start again when they run out of digits, slightly earlier or later when some numbers belong to
  // other documents.
  bool deuAVolta(const RegistroLido& lido) const {
    std::int64_t limite = 1;
    for (int i = 0; i < lido.campos[numero_.indice()].largura; ++i) limite *= 10;
    return anterior_.numero >= limite - limite / 100 && atual_.numero < limite / 100;
  }

  void confereChave(Relator& relator, const RegistroLido& lido) {
    if (atual_.bloco != anterior_.bloco) {
      if (atual_.bloco < anterior_.bloco) foraDeOrdem(relator, lido, segundo_);
      return;
    }
    const int ordem = sinal(atual_.numero, anterior_.numero);
    if (ordem > 0 || (ordem < 0 && deuAVolta(lido))) return;
    if (ordem < 0) return foraDeOrdem(relator, lido, numero_);
    const int resto = atual_.segundo != anterior_.segundo ? sinal(atual_.segundo, anterior_.segundo)
                                                          : atual_.texto.compare(anterior_.texto);
    if (resto < 0) return foraDeOrdem(relator, lido, segundo_);
    if (resto == 0 && ordem_.unica)
      relator.noCampo(validacao::kContadorRepetido, lido, segundo_.indice(),
                      frase("{1} a second time", {entreAspas(segundo_.bytes(lido))}),
                      traduz("each key once"));
  }

  void foraDeOrdem(Relator& relator, const RegistroLido& lido, const Coluna& coluna) const {
    const bool numero = coluna.indice() == numero_.indice();
    const int largura = lido.campos[coluna.indice()].largura;
    const std::string antes = numero                           ? contadorEscrito(anterior_.numero, largura)
                              : ordem_.tipo == Segundo::Numero ? contadorEscrito(anterior_.segundo, largura)
                                                               : anterior_.texto;
    relator.noCampo(validacao::kOrdemDasChaves, lido, coluna.indice(),
                    antes.empty()
                        ? entreAspas(coluna.bytes(lido))
                        : frase("{1} after {2}", {entreAspas(coluna.bytes(lido)), entreAspas(antes)}),
                    traduz("ascending keys"));
  }

  void confereData(Relator& relator, const RegistroLido& lido) {
    const std::string_view data = data_.bytes(lido);
    if (!dataPossivel(data)) return;
    if (!dataAnterior_.empty() && data < dataAnterior_)
      relator.noCampo(validacao::kDataRetrocede, lido, data_.indice(),
                      frase("{1} after {2}", {entreAspas(data), entreAspas(dataAnterior_)}),
                      traduz("no earlier day"));
    dataAnterior_ = data;
  }

  // A field of the order; if it has none, its number.
  static Coluna coluna(const Registro& registro, int lugar) {
    const int qual = lugar >= 0 ? lugar : std::max<int>(registro.ordem.numero, 0);
    return {registro, registro.campos[static_cast<std::size_t>(qual)].rotulo};
  }

  const OrdemDosRegistros& ordem_;
  Coluna numero_, segundo_, data_;
  ChaveLida atual_, anterior_;
  std::string dataAnterior_;
  bool conhecida_ = false;
};

class RegrasDeChaves final : public Familia {
 public:
  RegrasDeChaves(Relator& relator, const Catalogo& catalogo) : relator_(relator) {
    for (const Registro* registro : catalogo) sequencias_.emplace_back(*registro);
  }

  void linha(const RegistroLido& lido) override {
    if (lido.registro != nullptr) sequencias_[static_cast<std::size_t>(lido.indice)].confere(relator_, lido);
  }

 private:
  Relator& relator_;
  std::vector<SequenciaDeChaves> sequencias_;
};

}  // namespace

std::unique_ptr<Familia> regrasDeChaves(Relator& relator, const LeitorDeRegistros& leitor) {
  return std::make_unique<RegrasDeChaves>(relator, leitor.catalogo());
}

}  // namespace cotepe
