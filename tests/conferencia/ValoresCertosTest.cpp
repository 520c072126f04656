// Values of the right form, drawn from the fields themselves up to the last byte and digit: none is reported.
#include <algorithm>
#include <set>

#include "BancoLimpo.h"
#include "Conferencia/Partes.h"
#include "Registros/Catalogo.h"
#include "referencia/Sorteio.h"

namespace cotepe::testes {
namespace {

using referencia::Sorteio;

std::string sorteia(Sorteio& sorteio, std::string_view de, int quantos) {
  std::string texto;
  for (int i = 0; i < quantos; ++i)
    texto += de[static_cast<std::size_t>(sorteio.entre(0, static_cast<int>(de.size()) - 1))];
  return texto;
}

std::string doisDigitos(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

std::string dataHora(Sorteio& sorteio) {
  return std::to_string(sorteio.entre(1970, 2099)) + '-' + doisDigitos(sorteio.entre(1, 12)) + '-' +
         doisDigitos(sorteio.entre(1, 28)) + ' ' + doisDigitos(sorteio.entre(0, 23)) + ':' +
         doisDigitos(sorteio.entre(0, 59)) + ':' + doisDigitos(sorteio.entre(0, 59));
}

// The narrowest of the column's fields in layout 1; what SUBSTR leaves counts too.
int largura(const std::vector<Destino>& destinos) {
  int menor = 1000;
  for (const Destino& destino : destinos) {
    menor = std::min(menor, larguraNominal(*destino.campo, 1));
    if (destino.usados != 0) menor = std::min(menor, destino.usados);
  }
  return menor;
}

std::string quantia(Sorteio& sorteio, int inteiros) {
  return sorteia(sorteio, "123456789", sorteio.entre(1, inteiros)) +
         (sorteio.umaEm(3) ? "" : '.' + sorteia(sorteio, "0123456789", sorteio.entre(1, 2)));
}

// As an SQL literal.
std::string certo(Sorteio& sorteio, const FormaDaColuna& coluna, const std::vector<Destino>& destinos,
                  bool maximo) {
  constexpr char kVisiveis[] = " !#$%&()*+,-./0123456789:;<=>?@ABCXYZ[]^_`abcxyz{|}~\\\"";
  constexpr std::string_view kDigitos = "0123456789";
  if (coluna.aceitaNulo && sorteio.umaEm(4)) return "NULL";
  const int bytes = largura(destinos);
  switch (coluna.forma) {
    case FormaDoValor::Texto:
    case FormaDoValor::TextoUsado: {
      const bool exato =
          !destinos.empty() && std::any_of(destinos.begin(), destinos.end(), [](const Destino& destino) {
            return destino.campo->especie == Especie::ComoEsta && destino.registro == &kE05;
          });
      const int quantos = exato || sorteio.umaEm(2) ? bytes : sorteio.entre(0, bytes);
      return '\'' + sorteia(sorteio, kVisiveis, quantos) + '\'';
    }
    case FormaDoValor::Inteiro:
      return '\'' + sorteia(sorteio, kDigitos, sorteio.umaEm(2) ? bytes : sorteio.entre(1, bytes)) + '\'';
    case FormaDoValor::Casas:
      return sorteio.escolhe<std::string>({"2", "3", "'2'", "'3'"});
    case FormaDoValor::Dinheiro:
    case FormaDoValor::Decimal:
      return '\'' + quantia(sorteio, maximo ? 12 : bytes - (coluna.forma == FormaDoValor::Decimal ? 3 : 2)) +
             '\'';
    case FormaDoValor::DataHora:
      return '\'' + dataHora(sorteio) + '\'';
    case FormaDoValor::Cnpj:
      return sorteio.escolhe<std::string>({"'11222333000181'", "'00000000000191'"});
    case FormaDoValor::CpfOuCnpj:
      return sorteio.escolhe<std::string>(
          {"''", "'52998224725'", "'00052998224725'", "'11222333000181'", "0"});
    case FormaDoValor::Letra:
      return sorteio.escolhe<std::string>({"'V'", "'P'", "'A'", "'T'", "' '", "1"});
    case FormaDoValor::SimNao:
      return sorteio.escolhe<std::string>({"'S'", "'N'"});
    case FormaDoValor::TipoDeDocumento:
      return sorteio.escolhe<std::string>({"'CN'", "'RG'", "'CC'", "'NC'", "'RZ'"});
    case FormaDoValor::NaoImpressa:
      break;
  }
  return "'anything'";
}

class Silencio final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override { ADD_FAILURE() << textoDoAchado(achado); }
};

TEST(ValoresCertos, GiveNoFinding) {
  constexpr int kVezes = 10;
  Sorteio sorteio(20240131);
  BancoLimpo banco;
  Silencio silencio;
  const OpcoesDaConferencia opcoes;
  const Contexto contexto(banco.aberto(), opcoes, silencio);
  for (const FormaDaTabela& tabela : kFormas) {
    if (tabela.porPosicao) continue;
    for (int vez = 0; vez < kVezes; ++vez) {
      banco.executa("SAVEPOINT antes");
      for (const FormaDaColuna& coluna : tabela.colunas) {
        if (coluna.nome == nullptr) break;
        const std::string nome = coluna.nome;
        const bool maximo = nome == "valor_gt" || nome == "num_sequencia";
        banco.executa("UPDATE " + std::string(tabela.nome) + " SET " + nome + " = " +
                      certo(sorteio, coluna, destinosDe(tabela.nome, nome, {}), maximo) +
                      " WHERE rowid = (SELECT min(rowid) FROM " + tabela.nome + ")");
      }
      // One row, so that none is told to sort wrongly among the others.
      banco.executa("DELETE FROM " + std::string(tabela.nome) + " WHERE rowid <> (SELECT min(rowid) FROM " +
                    tabela.nome + ")");
      confereLinhas(contexto, tabela);
      banco.executa("ROLLBACK TO antes; RELEASE antes");
    }
  }
}

}  // namespace
}  // namespace cotepe::testes
