#include "Explicacao/Procedencia.h"

#include <cstdint>
#include <cstring>

#include "Idioma/Idioma.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

/// A row of a query and a column in it.
struct Alvo {
  const char* sql = nullptr;
  const Fila* fila = nullptr;
  std::size_t coluna = 0;
  long vez = 1;
};

class Procurador {
 public:
  Procurador(sqlite3* banco, const RegistroLido& lido, const Rastro& rastro, const IdentidadeLida& identidade)
      : banco_(banco), lido_(lido), registro_(*lido.registro), rastro_(rastro), identidade_(identidade) {}

  Procedencia procedencia(std::size_t i) const {
    const Campo& campo = *lido_.campos[i].campo;
    if (lido_.vazio && !noCabecalho(i)) return {{}, traduz("no row: this is a placeholder record")};
    switch (campo.origem.tipo) {
      case Origem::Tipo::Constante:
        return {{}, traduz("the generator: it is the same in every record")};
      case Origem::Tipo::Ajuste:
        return doAjuste(campo);
      default:
        break;
    }
    if (&registro_ == &kE11 && campo.posicao != 0)
      return {{}, traduz("the clock of the application that made the report")};
    const Alvo alvo = daConsulta(i);
    if (alvo.sql == nullptr) return {{}, semColuna(campo)};
    if (alvo.fila == nullptr) return {{}, traduz("no row: the query has none")};
    if (&registro_ == &kE01 && std::strcmp(campo.rotulo, "Tipo de ECF") == 0 && (*alvo.fila)[0].empty())
      return {{}, traduz("the application: dados_ecf.tipo is empty")};
    return procuraNo(alvo);
  }

 private:
  // The fields before the first one of a row, which a placeholder record has too.
  bool noCabecalho(std::size_t i) const {
    while (i > 0 && lido_.campos[i].campo->origem.fixa()) --i;
    return i == 0 && lido_.campos[0].campo->origem.fixa();
  }

  Procedencia procuraNo(const Alvo& alvo) const {
    Procedencia procedencia;
    if (!procura(banco_, rastro_.comPeriodo(alvo.sql), *alvo.fila, alvo.coluna, alvo.vez, procedencia.coluna))
      return {{}, traduz("a row that cannot be told apart")};
    if (procedencia.coluna.tabela.empty())
      procedencia.texto = frase("the query: it is the constant {1} there", {procedencia.coluna.valor});
    return procedencia;
  }

  Procedencia doAjuste(const Campo& campo) const {
    if (campo.origem.ajuste == &Ajustes::comando)
      return {{}, traduz("the command that the report was made with")};
    const auto coluna = campo.origem.ajuste == &Ajustes::nrFabricacao ? IdentidadeLida::kSerie
                        : campo.origem.ajuste == &Ajustes::modelo     ? IdentidadeLida::kModelo
                                                                      : IdentidadeLida::kUsuario;
    const Fila& fila = identidade_.filas[coluna];
    if (fila.empty()) return {{}, traduz("the application: the database does not know it")};
    return procuraNo({kConsultaDaIdentidade, &fila, coluna, 1});
  }

  static std::string semColuna(const Campo& campo) {
    return campo.origem.tipo == Origem::Tipo::Funcao ? traduz("the layout that the report was made in")
                                                     : traduz("nothing: it is never filled");
  }

  // The row behind a field: the last one of its query, or of a line that grows the one in its turn.
  Alvo daLinha(int consulta, std::size_t coluna, std::size_t turno) const {
    const std::vector<Fila>& filas = rastro_.filas(consulta);
    Alvo alvo{registro_.consultas[consulta].sql, nullptr, coluna, 1};
    if (filas.empty()) return alvo;
    const std::size_t fila = turno < filas.size() ? turno : filas.size() - 1;
    alvo.fila = &filas[fila];
    alvo.vez = rastro_.vezDaFila(consulta, fila);
    return alvo;
  }

  Alvo daConsulta(std::size_t i) const {
    const Campo& campo = *lido_.campos[i].campo;
    if (ordemDoCupom(campo)) return daOrdem();
    if (campo.origem.coluna < 0) return {};
    const std::size_t coluna = static_cast<std::uint8_t>(campo.origem.coluna);
    std::size_t turno = 0;
    for (std::size_t k = 0; k < i; ++k)
      if (lido_.campos[k].campo == &campo) ++turno;
    if (&registro_ == &kE13) return daLinha(rastro_.ultimaConsulta(), coluna, 0);
    if (&registro_ == &kE10 && std::strcmp(campo.rotulo, "CNPJ do usuário") == 0) return daLinha(0, 0, 0);
    if (&registro_ == &kE02 && std::strcmp(campo.rotulo, "Totalizador geral (GT)") == 0)
      return doTotalGeral(coluna);
    if (&registro_ == &kE01 && std::strcmp(campo.rotulo, "Nº sequencial do ECF") == 0)
      return daLinha(0, coluna, rastro_.filas(0).size());
    return daLinha(campo.origem.consulta, coluna, turno);
  }

  static bool ordemDoCupom(const Campo& campo) {
    return std::strcmp(campo.rotulo, "Ordem de desconto e acréscimo") == 0;
  }

  // The amount that decided: the surcharge, but for a coupon with a discount alone.
  Alvo daOrdem() const {
    const std::string_view ordem = lido_.bytesDe("Ordem de desconto e acréscimo");
    return daLinha(0, ordem == "D" ? 4 : 5, 0);
  }

  Alvo doTotalGeral(std::size_t coluna) const {
    for (const int consulta : {1, 2}) {
      const std::vector<Fila>& maximo = rastro_.filas(consulta);
      if (!maximo.empty() && !maximo[0][0].empty() && maximo[0][0].size() <= 18)
        return daLinha(consulta, 0, 0);
    }
    return daLinha(0, coluna, 0);
  }

  sqlite3* banco_;
  const RegistroLido& lido_;
  const Registro& registro_;
  const Rastro& rastro_;
  const IdentidadeLida& identidade_;
};

}  // namespace

std::vector<Procedencia> procedencias(sqlite3* banco, const RegistroLido& lido, const Rastro& rastro,
                                      const IdentidadeLida& identidade, int so) {
  const Procurador procurador(banco, lido, rastro, identidade);
  std::vector<Procedencia> todas(lido.quantos);
  for (std::size_t i = 0; i < lido.quantos; ++i)
    if (so < 0 || static_cast<std::size_t>(so) == i) todas[i] = procurador.procedencia(i);
  return todas;
}

}  // namespace cotepe
