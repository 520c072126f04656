// cotepe validate: a report held to the rules.
#include <memory>

#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "FormaEntregue.h"
#include "Idioma/Idioma.h"
#include "OpcoesDeAchados.h"
#include "Sistema/Falha.h"
#include "Validacao/Validacao.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoValidate {
  std::string arquivo;
  OpcoesDeAchados achados;
  bool entregue = false;
};

void executa(const OpcoesDoValidate& opcoes) {
  if (opcoes.achados.regras) return listaRegras(validacao::kRegras);
  if (opcoes.arquivo.empty())
    throw Falha(kUsoErrado, traduz("FILE is missing; name a report, or - for stdin"));
  const Supressoes desligadas = regrasDesligadas(opcoes.achados, validacao::kRegras, "validate");
  RelatorioLido relatorio(opcoes.arquivo);
  const long total = imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) {
    FormaEntregue forma(saida, relatorio.nome());
    const auto observa = [&](const RegistroLido& lido, const LeitorDeRegistros& /*leitor*/) {
      if (opcoes.entregue) forma.linha(lido);
    };
    Validacao(saida, {relatorio.nome(), desligadas}).valida(relatorio.linhas(), observa);
    if (opcoes.entregue) forma.fim();
  });
  relatorio.confereLeitura();
  if (total > 0)
    throw Veredito(
        frase("{1}: not clean; cotepe {2} --rules says what the rules are", {relatorio.nome(), "validate"}));
}

}  // namespace

Acao declaraValidate(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoValidate>();
  comando.add_option("FILE", o->arquivo, traduz("The report; - for stdin"));
  declaraAchados(comando, o->achados);
  declaraRegras(comando, o->achados);
  comando.add_flag("--delivered", o->entregue,
                   traduz("Hold the report to the form in which it is handed in, too"));
  comando.footer(traduz(
      "Exit status: 0 nothing found, 1 findings, 2 could not run, 4 writing failed.\n"
      "Memory does not grow with the report: what it must remember of coupons stands in a temporary file."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
