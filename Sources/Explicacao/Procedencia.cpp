#include "Explicacao/Procedencia.h"

#include <algorithm>
#include <limits>

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"

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
    if (lido_.vazio && i >= lido_.cabecalho()) return {{}, traduz("no row: this is a placeholder record")};
    switch (campo.origem.tipo) {
      case Origem::Tipo::Constante:
        return {{}, traduz("the generator: it is the same in every record")};
      case Origem::Tipo::DoLeiaute:
        return {{}, traduz("the layout that the report was made in")};
      case Origem::Tipo::Ajuste:
        return doAjuste(campo);
      case Origem::Tipo::Relogio:
        return {{}, traduz("the clock of the application that made the report")};
      default:
        break;
    }
    const Alvo alvo = daConsulta(i);
    if (alvo.sql == nullptr) return {{}, traduz("nothing: it is never filled")};
    if (alvo.fila == nullptr) return {{}, traduz("no row: the query has none")};
    Procedencia procedencia = procuraNo(alvo);
    if (campo.ouDaAplicacao && (*alvo.fila)[alvo.coluna].empty())
      procedencia = {{},
                     frase("the application: {1} is empty",
                           {procedencia.coluna.tabela + '.' + procedencia.coluna.coluna})};
    return procedencia;
  }

 private:
  Procedencia procuraNo(const Alvo& alvo) const {
    Procedencia procedencia;
    if (!procura(banco_, rastro_.comPeriodo(alvo.sql), *alvo.fila, alvo.coluna, alvo.vez, procedencia.coluna))
      return {{}, traduz("a row that cannot be told apart")};
    if (procedencia.coluna.tabela.empty())
      procedencia.texto = frase("the query: it is the constant {1} there", {procedencia.coluna.valor});
    return procedencia;
  }

  Procedencia doAjuste(const Campo& campo) const {
    if (campo.origem.coluna < 0) return {{}, traduz("the command that the report was made with")};
    const std::size_t coluna = static_cast<std::uint8_t>(campo.origem.coluna);
    const Fila& fila = identidade_.filas[coluna];
    if (fila.empty()) return {{}, traduz("the application: the database does not know it")};
    return procuraNo({kConsultaDaIdentidade, &fila, coluna, 1});
  }

  // The row behind a field: the last one of its query, or in a line that grows the one of its repetition.
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
    if (!campo.origem.deColuna()) return doCodigo(i);
    const std::size_t coluna = static_cast<std::uint8_t>(campo.origem.coluna);
    if (const int maximo = maximoDe(campo); maximo >= 0) return daLinha(maximo, 0, 0);
    const bool deCada = campo.origem.consulta == Origem::kDeCadaConsulta;
    return daLinha(deCada ? rastro_.ultimaConsulta() : campo.origem.consulta, coluna, turno(i));
  }

  // Which repetition of its group the field belongs to, from 0; for one that is not repeated the last row
  // counts.
  std::size_t turno(std::size_t i) const {
    const int numero = lido_.campos[i].numero;
    for (const Grupo& grupo : registro_.grupos) {
      if (numero <= grupo.primeiro || numero > grupo.primeiro + grupo.quantos) continue;
      const auto comeca = [&](const CampoLido& outro) { return outro.numero == grupo.primeiro + 1; };
      return static_cast<std::size_t>(std::count_if(lido_.campos, lido_.campos + i + 1, comeca)) - 1;
    }
    return std::numeric_limits<std::size_t>::max();
  }

  // The column that selected the code in the field.
  Alvo doCodigo(std::size_t i) const {
    const Campo& campo = *lido_.campos[i].campo;
    for (int c = 0; c < campo.quantosCodigos; ++c)
      if (campo.codigos[c].coluna >= 0 && campo.codigos[c].valor == semBrancosNoFim(lido_.bytes(i)))
        return daLinha(0, static_cast<std::size_t>(campo.codigos[c].coluna), 0);
    return {};
  }

  // The query whose maximum takes precedence over the field's own column; below 0 for none.
  int maximoDe(const Campo& campo) const {
    if (campo.maximos <= 0) return -1;
    for (int consulta = static_cast<std::uint8_t>(campo.maximos);
         consulta < static_cast<int>(Registro::kConsultas); ++consulta) {
      const std::vector<Fila>& maximo = rastro_.filas(consulta);
      if (!maximo.empty() && !maximo[0][0].empty() &&
          maximo[0][0].size() <= static_cast<std::size_t>(campo.largura))
        return consulta;
    }
    return -1;
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
