// The program where the locale is Brazilian: what it says, and what it says in no language.
#include "Cena.h"

namespace {

class Portugues : public Cena {
 protected:
  Fim em_(const std::string& localidade, const std::string& linguas,
          const std::vector<std::string>& argumentos) const {
    Processo processo(argumentos);
    return processo.naPasta(pasta())
        .comAmbiente("LOCPATH", COTEPE_LOCPATH)
        .comAmbiente("LC_ALL", localidade)
        .comAmbiente("LANGUAGE", linguas)
        .inicia()
        .espera();
  }
  Fim fala(const std::vector<std::string>& argumentos) const { return em_("pt_BR.UTF-8", "", argumentos); }
  std::string erro(const std::vector<std::string>& argumentos) const { return fala(argumentos).erros; }
};

constexpr char kAjudaDoSchema[] =
    "Imprime o SQL de um banco de dados fiscal\n"
    "Uso: cotepe schema [OPÇÕES]\n"
    "\n"
    "Opções:\n"
    "  -h,--help                   Imprime esta ajuda e termina\n"
    "\n"
    "Código de saída:\n"
    "  0  tudo feito\n"
    "  1  incompleto, com os registros afetados; ou algo foi encontrado\n"
    "  2  uso incorreto\n"
    "  3  o banco de dados ou a saída não pode ser aberto\n"
    "  4  a gravação falhou\n"
    "  5  a consulta da identidade falhou\n"
    "  6  nada se pode dizer da assinatura\n"
    "  128 mais o número do sinal: interrompido\n";

TEST_F(Portugues, HelpIsComplete) {
  EXPECT_EQ(fala({"schema", "--help"}).saida, kAjudaDoSchema);
  const std::string ajuda = fala({"--help"}).saida;
  EXPECT_NE(ajuda.find("Uso: cotepe [OPÇÕES] SUBCOMANDO\n"), std::string::npos) << ajuda;
  EXPECT_NE(ajuda.find("\nSubcomandos:\n  generate                    Grava o relatório de um período\n"),
            std::string::npos)
      << ajuda;
  const std::string doExplain = fala({"explain", "--help"}).saida;
  EXPECT_NE(doExplain.find("\nArgumentos:\n  FILE:LINE[:COLUMN] TEXT EXIGIDO\n"), std::string::npos)
      << doExplain;
}

TEST_F(Portugues, LanguageIsThatOfTheMessagesInTheirOrder) {
  const std::vector<std::string> ajuda = {"schema", "--help"};
  const std::string ingles = roda(ajuda, pasta()).saida;
  EXPECT_EQ(ingles.substr(0, 35), "Print the SQL of a fiscal database\n");
  EXPECT_EQ(em_("C", "pt_BR", ajuda).saida, ingles);
  EXPECT_EQ(em_("pt_BR.UTF-8", "en", ajuda).saida, ingles);
  EXPECT_EQ(em_("none.UTF-8", "", ajuda).saida, ingles);
  EXPECT_EQ(em_("C.UTF-8", "xx:pt_BR", ajuda).saida, kAjudaDoSchema);
  EXPECT_EQ(em_("pt_BR.ISO-8859-1", "", ajuda).saida, kAjudaDoSchema);  // as the labels, UTF-8 always
  Processo processo(ajuda);
  processo.comAmbiente("LOCPATH", COTEPE_LOCPATH).comAmbiente("LC_ALL", "").comAmbiente("LANGUAGE", "");
  EXPECT_EQ(processo.comAmbiente("LC_MESSAGES", "pt_BR.UTF-8").inicia().espera().saida, kAjudaDoSchema);
}

struct Recusa {
  std::vector<std::string> argumentos;
  const char* texto;
};

// clang-format off
const Recusa kRecusas[] = {
    {{}, "falta o comando; veja cotepe --help"},
    {{"generat"}, "comando desconhecido: generat (você quis dizer generate?); veja cotepe --help"},
    {{"generate"}, "falta --db; veja cotepe generate --help"},
    {{"generate", "--db"}, "--db precisa de um valor; veja cotepe generate --help"},
    {{"generate", "--db", "a"}, "falta o período; dê --from e --to, --day ou --month"},
    {{"layout", "--layout", "3"}, "--layout: 3 não é um destes: 1, 2; veja cotepe layout --help"},
    {{"sample", "--days", "0", "a"}, "--days: 0 não é um número de 1 a 36500; veja cotepe sample --help"},
    {{"sample", "--seed", "x", "a"}, "--seed: x não é um número a partir de 0; veja cotepe sample --help"},
    {{"show", "--line", "", "a"}, "--line: nada não é um número a partir de 1; veja cotepe show --help"},
    {{"show", "a", "b"}, "argumento a mais: b; veja cotepe show --help"},
    {{"show", "--line", "1", "--line", "2", "a"}, "--line foi dado duas vezes; veja cotepe show --help"},
    {{"generate", "--output", ""}, "--output: nome vazio; veja cotepe generate --help"},
    {{"check"}, "falta --db; informe um banco de dados fiscal"},
    {{"layout", "F1"}, "REGISTER: F1 não é um registro; eles vão de E01 a E22; veja cotepe layout --help"},
    {{"validate"}, "falta FILE; informe um relatório, ou - para a entrada padrão"},
    {{"diff", "-", "-"}, "A e B são ambos a entrada padrão; dê o nome de um dos relatórios"},
    {{"verify", "--db", "a", "-"},
     "stdin: o relatório é lido mais de uma vez, por isso precisa ser um arquivo"},
    {{"explain", "r.txt"},
     "r.txt: falta a linha; escreva um relatório e uma linha, como em report.txt:12, ou também uma coluna, como em "
     "report.txt:12:50"},
    {{"sample", "--start", "2023-02-29", "a"},
     "--start: 2023-02-29 não é um dia; escreva DD/MM/AAAA ou AAAA-MM-DD; veja cotepe sample --help"},
};
// clang-format on

TEST_F(Portugues, WrongUsageIsToldSo) {
  for (const Recusa& recusa : kRecusas) {
    const Fim fim = fala(recusa.argumentos);
    EXPECT_EQ(fim.erros, std::string("cotepe: erro: ") + recusa.texto + '\n');
    EXPECT_EQ(fim.situacao, 2) << recusa.texto;
  }
}

TEST_F(Portugues, TheSystemSpeaksTheLanguageToo) {
  EXPECT_EQ(erro({"show", "nada.txt"}),
            "cotepe: erro: não foi possível abrir o relatório nada.txt: Arquivo ou diretório inexistente\n");
  EXPECT_EQ(erro({"check", "--db", "."}),
            "cotepe: erro: não foi possível abrir o banco de dados .: é uma pasta\n");
}

TEST_F(Portugues, AnIncompleteReportIsToldAndTheLogIsNot) {
  criaBanco("DROP TABLE moeda");
  const Fim fim = fala(generate({"--output", "r.txt", "--log", "r.log"}));
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.erros,
            "cotepe: erro: o relatório está incompleto: E06 (no such table: moeda); --keep-partial guarda o "
            "que há dele; "
            "o arquivo temporário foi removido\n");
  EXPECT_EQ(roda(generate({"--output", "r.txt", "--log", "c.log"}), pasta()).situacao, 1);
  EXPECT_EQ(semHora(leArquivo(em("r.log"))), semHora(leArquivo(em("c.log"))));
}

TEST_F(Portugues, DataIsTheSameInEveryLanguage) {
  const std::string feita = erro({"sample", "--days", "1", "pt.db"});
  ASSERT_TRUE(
      corresponde(feita,
                  "pt.db: de 2024-01-01 a 2024-01-01, 40 cupons, [0-9]+ itens, [0-9]+ pagamentos, [0-9]+ "
                  "outros documentos\n"))
      << feita;
  const auto gera = [&](const char* nome, const char* localidade) {
    return em_(localidade, "",
               {"generate", "--db", "pt.db", "--from", "2024-01-01", "--to", "2024-01-01", "--output", nome});
  };
  const Fim fim = gera("pt.txt", "pt_BR.UTF-8");
  EXPECT_TRUE(
      corresponde(fim.erros, "(E[0-9]{2} +[0-9]+\n)+pt.txt: [0-9]+ linhas, [0-9]+ bytes, [0-9]\\.[0-9] s\n"))
      << fim.erros;
  EXPECT_EQ(gera("c.txt", "C").situacao, 0);
  const std::size_t carimbo =
      leArquivo(em("pt.txt")).find("E12");  // E11, before it, has the time of generation
  EXPECT_EQ(leArquivo(em("pt.txt")).substr(carimbo), leArquivo(em("c.txt")).substr(carimbo));
  for (const char* formato : {"json", "csv"}) {
    const std::vector<std::string> mostra = {"show", "pt.txt", "--format", formato};
    EXPECT_EQ(fala(mostra).saida, roda(mostra, pasta()).saida);
  }
  for (const std::vector<std::string>& argumentos :
       {std::vector<std::string>{"layout", "--format", "json"}, {"schema"}, {"--version"}})
    EXPECT_EQ(fala(argumentos).saida, roda(argumentos, pasta()).saida);
}

TEST_F(Portugues, AReportIsVerifiedInWords) {
  ASSERT_EQ(fala({"sample", "--quiet", "--days", "1", "a.db"}).situacao, 0);
  ASSERT_EQ(fala({"generate", "--quiet", "--db", "a.db", "--from", "2024-01-01", "--to", "2024-01-01",
                  "--output", "r.txt"})
                .situacao,
            0);
  EXPECT_EQ(erro({"verify", "--db", "a.db", "r.txt", "--cat52", "--layout", "1"}).substr(0, 64),
            "cotepe: r.txt: leiaute 1 (dado), CAT52 ligado (dado), comando TD");
}

}  // namespace
