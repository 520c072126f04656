// cotepe diff: two reports compared.
#include <memory>

#include "Comandos.h"
#include "Comparacao/Comparacao.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "OpcoesDeAchados.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoDiff {
  std::string a, b;
  bool comCarimbo = false, comOrdem = false;
  OpcoesDeAchados achados;
};

void executa(const OpcoesDoDiff& opcoes) {
  if (opcoes.a == "-" && opcoes.b == "-")
    throw Falha(kUsoErrado, traduz("A and B are both stdin; name one of the reports"));
  RelatorioLido a(opcoes.a), b(opcoes.b);
  const long total = imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) {
    Comparacao(saida, {a.nome(), b.nome(), opcoes.comCarimbo, opcoes.comOrdem})
        .compara(a.linhas(), b.linhas());
  });
  a.confereLeitura();
  b.confereLeitura();
  if (total > 0) throw Veredito(frase("{1} and {2} differ", {a.nome(), b.nome()}));
  dizQueEstaCerto(opcoes.achados, frase("{1} and {2}: OK, the same records", {a.nome(), b.nome()}));
}

}  // namespace

Acao declaraDiff(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoDiff>();
  comando.add_option("A", o->a, traduz("The report to go by; - for stdin"))->required();
  comando.add_option("B", o->b, traduz("The report to look at; - for stdin"))->required();
  comando.add_flag("--with-stamp", o->comCarimbo, traduz("Compare the time of generation in E11, too"));
  comando.add_flag("--with-order", o->comOrdem, traduz("Compare the order of the records, too"));
  declaraAchados(comando, o->achados);
  comando.footer(traduz(
      "Records are aligned by register and key, such as COO and item. What is printed is about B: what was\n"
      "found there, and what A has instead.\n"
      "Exit status: 0 equal, 1 they differ, 2 could not run, 4 writing failed.\n"
      "Memory: the records of one register that have no partner yet; next to nothing for equal reports."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
