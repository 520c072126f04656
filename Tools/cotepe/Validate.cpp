// cotepe validate: checks a report against the rules.
#include <algorithm>
#include <iterator>
#include <memory>

#include "Comandos.h"
#include "Corrida/Dia.h"
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

// The rules of reports, followed by that of the delivered form.
struct TodasAsRegras {
  static constexpr std::size_t kDosRelatorios = std::size(validacao::kRegras);

  TodasAsRegras() { *std::copy_n(validacao::kRegras, kDosRelatorios, lista) = &kEntrega; }

  const Regra* lista[kDosRelatorios + 1];
};

std::string diaParaPessoas(const std::string& aaaammdd) {
  return Dia::le(aaaammdd.substr(0, 4) + '-' + aaaammdd.substr(4, 2) + '-' + aaaammdd.substr(6, 2))
      ->paraPessoas();
}

// What is said of a report without findings.
std::string emOrdem(const std::string& nome, const Validacao& validacao, Regras regras,
                    const Supressoes& desligadas) {
  const AjustesDoRelatorio& ajustes = validacao.ajustes();
  std::string texto = frase(
      "{1}: OK, {2}, {3}, {4}, layout {5}",
      {nome, fraseDe("{1} record", "{1} records", validacao.linhas(), {contado(validacao.linhas())}),
       quantasRegras(regras, desligadas), ajustes.comando, std::to_string(ajustes.leiautes.front().versao)});
  if (ajustes.primeiro.empty()) return texto;
  return frase("{1}, {2} to {3}", {texto, diaParaPessoas(ajustes.primeiro), diaParaPessoas(ajustes.ultimo)});
}

void executa(const OpcoesDoValidate& opcoes) {
  const TodasAsRegras todas;
  if (opcoes.achados.regras) return listaRegras(todas.lista);
  if (opcoes.arquivo.empty())
    throw Falha(kUsoErrado, traduz("FILE is missing; name a report, or - for stdin"));
  const Supressoes desligadas = regrasDesligadas(opcoes.achados, todas.lista, "validate");
  const bool entregue = opcoes.entregue && desligadas.ligada(kEntrega);
  RelatorioLido relatorio(opcoes.arquivo);
  std::string certo;
  const long total = imprimeAchados(opcoes.achados, [&](RecebeAchados& saida) {
    FormaEntregue forma(saida, relatorio.nome());
    const auto observa = [&](const RegistroLido& lido, const LeitorDeRegistros& /*leitor*/) {
      if (entregue) forma.linha(lido);
    };
    Validacao validacao(saida, {relatorio.nome(), desligadas});
    validacao.valida(relatorio.linhas(), observa);
    if (entregue) forma.fim();
    certo =
        emOrdem(relatorio.nome(), validacao, entregue ? Regras(todas.lista) : validacao::kRegras, desligadas);
  });
  relatorio.confereLeitura();
  if (total > 0)
    throw Veredito(
        frase("{1}: problems found; cotepe {2} --rules lists the rules", {relatorio.nome(), "validate"}));
  dizQueEstaCerto(opcoes.achados, certo);
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
