// What is found, compared, explained and shown, where the language of the messages is Brazilian Portuguese.
#include "Cena.h"

namespace {

class AchadosEmPortugues : public Cena {
 protected:
  Fim roda(const std::vector<std::string>& argumentos) const {
    return Processo(argumentos)
        .naPasta(pasta())
        .comAmbiente("LC_ALL", "C.UTF-8")
        .comAmbiente("LANGUAGE", "pt_BR")
        .inicia()
        .espera();
  }
  void escreve(const std::string& nome, const std::string& texto) const { escreveArquivo(em(nome), texto); }
};

TEST_F(AchadosEmPortugues, ReportIsHeldToItsRules) {
  escreve("r.txt", "XYZ\nE22\n");
  const Fim fim = roda({"validate", "r.txt"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      "r.txt:1: erro unknown-register: encontrado: \"XYZ\", esperado: E01 a E22 (cotepe verify compara com o "
      "banco de dados)\n"
      "r.txt:2: erro line-length E22: encontrado: 3 bytes, esperado: 55 (um indicador vazio, uma data curta "
      "ou um último texto longo demais causa isso; cotepe explain --db mostra a linha do banco)\n"
      "r.txt: erro register-missing E01: encontrado: nenhuma linha do E01, esperado: o E01 como primeiro "
      "registro (cotepe generate diz de que registros a consulta falha)\n"
      "  line-length                 1\n"
      "  register-missing            1\n"
      "  unknown-register            1\n"
      "3 erros, 0 avisos\n");
}

TEST_F(AchadosEmPortugues, WhatProgramsReadIsEnglish) {
  escreve("r.txt", "XYZ\n");
  EXPECT_EQ(roda({"validate", "--format", "json", "r.txt"}).saida,
            R"({"severity":"error","rule":"unknown-register","file":"r.txt","line":1,"found":"\"XYZ\"",)"
            R"("expected":"E01 to E22","fix":"cotepe verify compares it with the database"})"
            "\n"
            R"({"severity":"error","rule":"register-missing","file":"r.txt","register":"E01",)"
            R"("found":"no line of E01","expected":"E01 as the first register",)"
            R"("fix":"cotepe generate names the registers whose query fails"})"
            "\n"
            R"({"summary":{"errors":2,"warnings":0,"shown":2}})"
            "\n");
  EXPECT_NE(roda({"validate", "--format", "sarif", "r.txt"}).saida.find(R"("level":"error")"),
            std::string::npos);
}

TEST_F(AchadosEmPortugues, DatabaseIsHeldToWhatTheRegistersNeed) {
  ASSERT_EQ(roda({"sample", "--quiet", "--start", "2024-01-01", "--days", "1", "loja.db"}).situacao, 0);
  Banco(em("loja.db"))
      .sql(
          "PRAGMA ignore_check_constraints = 1;"
          "UPDATE reducao_z SET data_movimento = '01/01/2024';"
          "UPDATE dados_usuario SET razao_social = '" +
          std::string(41, 'x') +
          "';"
          "DROP TABLE moeda");
  const Fim fim = roda({"check", "--db", "loja.db"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(fim.saida,
            "loja.db: moeda: erro table-missing E06: encontrado: nenhuma tabela com esse nome, sem a qual a "
            "consulta falha, esperado: a tabela (crie a tabela; cotepe schema mostra como)\n"
            "loja.db: dados_usuario[seq_usuario=1].razao_social: erro text-long E02.7 \"Razão social\": "
            "encontrado: \"" +
                std::string(40, 'x') +
                "...\" de 41 bytes, do qual só os primeiros 40 bytes são "
                "escritos, esperado: no máximo 40 bytes (encurte o texto)\n"
                "loja.db: reducao_z[cont_crz=681].data_movimento: erro date-form E01.15 \"Data inicial\": "
                "encontrado: \"01/01/2024\", que a seleção por período compara errado, esperado: "
                "AAAA-MM-DD HH:MM:SS (grave data e hora nesse formato)\n"
                "  date-form                1\n"
                "  table-missing            1\n"
                "  text-long                1\n"
                "3 erros, 0 avisos\n");
}

TEST_F(AchadosEmPortugues, ReportsAreCompared) {
  escreve("a.txt", "XYZ\nE22\n");
  escreve("b.txt", "E14\nE22\r\n");
  const Fim fim = roda({"diff", "a.txt", "b.txt"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_EQ(
      fim.saida,
      "b.txt: erro missing: encontrado: nenhum, esperado: uma linha de nenhum registro, \"XYZ\" (linha 1, "
      "a.txt)\n"
      "b.txt:1: erro added E14: encontrado: um registro: CCF , esperado: nenhum\n"
      "b.txt:2: erro line-end E22: encontrado: CR e LF, esperado: LF (Número ; linha 2, a.txt)\n"
      "  added               1\n"
      "  line-end            1\n"
      "  missing             1\n"
      "3 erros, 0 avisos\n");
}

TEST_F(AchadosEmPortugues, RecordsAreShown) {
  escreve("r.txt", "XYZ\nE22\n");
  EXPECT_EQ(roda({"show", "r.txt"}).saida,
            "linha 1: de nenhum registro\n\n"
            "E22, linha 2: Tentativas relativas ao Software Básico (3 bytes em vez de 55)\n"
            "  Tipo do registro         E22\n"
            "  Nº de fabricação do ECF\n  Modelo do ECF\n  Número\n  Data\n");
}

TEST_F(AchadosEmPortugues, FieldIsExplained) {
  criaBanco();
  ASSERT_EQ(roda(generate({"--quiet", "--output", "r.txt"})).situacao, 0);
  EXPECT_EQ(
      roda({"explain", "r.txt:1:24", "--db", "base.db"}).saida,
      "r.txt:1: E01 Identificação do ECF\n"
      "  leiaute:     1\n"
      "  nota:        vários ECF, versões do software básico ou usuários acrescentam, cada um, um grupo de "
      "campos e deslocam os seguintes para a direita; sem uma versão do software básico, os seus 10 bytes "
      "ficam de fora\n\n"
      "E01.3 \"MF adicional\", byte 24\n"
      "  regra:       texto de 1 byte\n"
      "  fonte:       sempre \" \"\n"
      "  bytes:       \" \"\n"
      "  significado: em branco: sem valor\n"
      "  vem de:      o gerador: é igual em todos os registros\n");
}

TEST_F(AchadosEmPortugues, WhatCannotBeDoneIsSaid) {
  escreve("loja.db", "");
  EXPECT_EQ(roda({"sample", "loja.db"}).erros,
            "cotepe: erro: não foi possível criar o banco de dados: ./loja.db: encontrado: um arquivo que já "
            "existe, "
            "esperado: um nome livre; escolha outro nome ou mova o arquivo existente\n");
}

}  // namespace
