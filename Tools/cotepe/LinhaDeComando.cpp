// The command line: a table of commands.
#include "LinhaDeComando.h"

#include <memory>
#include <string>
#include <vector>

#include "Argumentos.h"
#include "Comandos.h"
#include "Idioma/Idioma.h"
#include "PalavrasDaCli.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"

namespace cotepe::programa {
namespace {

// `help` is handled before the commands are: it is declared only to be listed and completed.
Acao declaraHelp(CLI::App& comando) {
  const auto nome = std::make_shared<std::string>();
  comando.add_option("COMMAND", *nome, traduz("The command; all of them when none is named"));
  return [nome] {};
}

constexpr struct {
  const char* nome;
  const char* descricao;
  Acao (*declara)(CLI::App&);
} kComandos[] = {
    {"generate", marca("Write the report of a period"), declaraGenerate},
    {"sample", marca("Make a fiscal database to try with"), declaraSample},
    {"schema", marca("Print the SQL of a fiscal database"), declaraSchema},
    {"layout", marca("Print the field tables of the registers"), declaraLayout},
    {"check", marca("Check a fiscal database against what the registers need"), declaraCheck},
    {"validate", marca("Check a report against the rules"), declaraValidate},
    {"show", marca("Print the records of a report by label and value"), declaraShow},
    {"summary", marca("Sum reports up: days, taxes, payments, counters"), declaraSummary},
    {"explain", marca("Say what a line of a report means, field by field"), declaraExplain},
    {"report", marca("Make a page of a report that opens in any browser"), declaraReport},
    {"export", marca("Turn reports into tables: a database, CSV files, a spreadsheet"), declaraExport},
    {"diff", marca("Compare two reports, record by record"), declaraDiff},
    {"verify", marca("Prove that a report is what the database says"), declaraVerify},
#ifdef COTEPE_ASSINA
    {"sign", marca("Sign a report as it is handed in"), declaraSign},
    {"verify-signature", marca("Say whether a signed report is what was signed"), declaraVerifySignature},
    {"public-key", marca("Turn a key into the form in which it is handed in"), declaraPublicKey},
#endif
    {"help", marca("Print the help of a command"), declaraHelp},
};

// The arguments have been checked before: what the library still finds is reported in its own words.
[[noreturn]] void recusa(const CLI::ParseError& erro) { throw Falha(kUsoErrado, erro.what()); }

}  // namespace

void declara(CLI::App& app, Acao& escolhida) {
  falaOIdioma(app);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.name("cotepe");
  app.description(
      traduz("The type-E register file of a fiscal printer (Ato COTEPE/ICMS 17/04), from its database."));
  app.footer(
      traduz("Exit status:\n"
             "  0  done\n"
             "  1  incomplete, the registers concerned are named; or findings\n"
             "  2  wrong usage\n"
             "  3  the database or the output cannot be opened\n"
             "  4  writing failed\n"
             "  5  the identity query failed\n"
             "  6  nothing can be told of the signature\n"
             "  128 and the signal's number: interrupted"));
  app.set_version_flag("-V,--version", "cotepe " COTEPE_VERSAO, traduz("Print the version and exit"));
  app.require_subcommand(1);
  for (const auto& comando : kComandos) {
    CLI::App* sub = app.add_subcommand(comando.nome, traduz(comando.descricao));
    sub->group(traduz("Subcommands"));
    sub->callback([&escolhida, execucao = comando.declara(*sub)] { escolhida = execucao; });
  }
}

Acao leLinhaDeComando(int argc, const char* const* argv) {
  CLI::App app;
  Acao escolhida;
  declara(app, escolhida);
  const std::vector<std::string> argumentos(argv + (argc > 0 ? 1 : 0), argv + argc);
  if (const CLI::App* qual = ajudaPedida(app, argumentos))
    return [ajuda = qual->help(qual == &app ? "" : app.get_name())] { escreveNaSaidaPadrao(ajuda); };
  confereArgumentos(app, argumentos);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForVersion& versao) {
    return [texto = versao.what() + std::string("\n")] { escreveNaSaidaPadrao(texto); };
  } catch (const CLI::ParseError& erro) {
    recusa(erro);
  }
  return escolhida;
}

}  // namespace cotepe::programa
