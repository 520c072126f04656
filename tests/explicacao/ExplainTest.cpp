// cotepe explain: what each register's lines say, where they come from, and what is refused.
#include "Cena.h"

namespace {

bool contem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

/// A shop of two days from 2024-01-01 on in loja.db, and its report in layout 2 in loja.txt.
class Explain : public Cena {
 protected:
  void SetUp() override {
    ASSERT_EQ(
        roda({"sample", "--quiet", "--start", "2024-01-01", "--days", "2", "loja.db"}, pasta()).situacao, 0);
    geraLoja({"--layout", "2"});
  }

  void geraLoja(const std::vector<std::string>& mais) {
    std::vector<std::string> todos = {"generate", "--db",    "loja.db", "--from",   "01012024", "--to",
                                      "02012024", "--quiet", "--force", "--output", "loja.txt"};
    todos.insert(todos.end(), mais.begin(), mais.end());
    ASSERT_EQ(roda(todos, pasta()).situacao, 0);
    relatorio_ = leArquivo(em("loja.txt"));
  }

  /// The number of the line that begins with a register's code and holds a text, from 1.
  long linhaCom(const std::string& codigo, const std::string& texto) const {
    long numero = 1;
    for (std::size_t i = 0; i < relatorio_.size(); ++numero) {
      const std::size_t fim = relatorio_.find('\n', i);
      const std::string linha = relatorio_.substr(i, fim - i);
      if (linha.rfind(codigo, 0) == 0 && contem(linha, texto)) return numero;
      i = fim + 1;
    }
    ADD_FAILURE() << codigo << " with " << texto;
    return 0;
  }

  Fim explica(const std::string& lugar, const std::vector<std::string>& mais = {}) const {
    std::vector<std::string> todos = {"explain", lugar};
    todos.insert(todos.end(), mais.begin(), mais.end());
    return roda(todos, pasta());
  }

  /// What is printed of the field that holds the byte, without the head of the line.
  std::string campo(const std::string& codigo, const std::string& texto, int coluna) const {
    const Fim fim =
        explica("loja.txt:" + std::to_string(linhaCom(codigo, texto)) + ':' + std::to_string(coluna),
                {"--db", "loja.db"});
    EXPECT_EQ(fim.situacao, 0) << fim.erros;
    EXPECT_EQ(fim.erros, "");
    const std::size_t inicio = fim.saida.find("\n\n");
    return inicio == std::string::npos ? fim.saida : fim.saida.substr(inicio + 2);
  }

  std::string relatorio_;
};

struct Caso {
  const char *codigo, *texto;
  int coluna;
  const char* esperado;
};

TEST_F(Explain, AFieldOfEachRegisterHasItsRuleItsMeaningAndItsRow) {
  const Caso kCasos[] = {
      {"E01", "", 116,
       "E01.13 \"CRZ inicial\", bytes 116-121\n"
       "  rule:    number, 6 digits filled up with zeros, the remainder by 1000000\n"
       "  source:  the smallest reducao_z.cont_crz\n"
       "  bytes:   \"000681\"\n"
       "  meaning: 681\n"
       "  note:    six digits in every layout\n"
       "  from:    reducao_z.cont_crz, row cont_crz=681, cont_cro=1 (rowid 1): 681\n"},
      {"E01", "", 136,
       "E01.16 \"Data final\", bytes 136-143\n"
       "  rule:    date AAAAMMDD, cut by position out of a date and time\n"
       "  source:  the greatest reducao_z.data_hora_emissao\n"
       "  bytes:   \"20240102\"\n"
       "  meaning: 02/01/2024\n"
       "  note:    the day on which the last reduction was issued, often the one after its movement\n"
       "  from:    reducao_z.data_hora_emissao, row cont_crz=682, cont_cro=1 (rowid 2): '2024-01-02 "
       "20:00:14'\n"},
      {"E02", "", 253,
       "E02.12 \"Totalizador geral (GT)\", bytes 253-270\n"
       "  rule:    money in cents, without sign, 18 digits filled up with zeros; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  the greatest posicao_totalizadores_contadores.valor_gt (of command MF: the greatest "
       "reducao_z.valor_gt); without one dados_usuario.valor_gt\n"
       "  bytes:   \"000000000117076823\"\n"
       "  meaning: R$ 1.170.768,23\n"
       "  note:    one maximum for all users; one of exactly 18 characters loses its last, a longer one is "
       "not "
       "used\n"
       "  from:    posicao_totalizadores_contadores.valor_gt, rowid 1: 1170768.23\n"},
      {"E05", "", 73,
       "E05.8 \"Codificação do GT\", bytes 73-82\n"
       "  rule:    text of 10 bytes as it stands, never filled up, so that an empty one ends the line; the "
       "next "
       "line's recording is written over it\n"
       "  source:  codificacao_gt.codificacao\n"
       "  bytes:   \"FISCALPRTE\"\n"
       "  meaning: FISCALPRTE\n"
       "  note:    it has no width of its own: the next recording's date stands over it on the next line\n"
       "  from:    codificacao_gt.codificacao, rowid 1: 'FISCALPRTE'\n"},
      {"E06", "", 72,
       "E06.7 \"Hora de gravação\", bytes 67-72\n"
       "  rule:    hour HHMMSS, cut by position out of a date and time\n"
       "  source:  moeda.data_hora_gravacao, 19 blanks where it is NULL\n"
       "  bytes:   \"090000\"\n"
       "  meaning: 09:00:00\n"
       "  from:    moeda.data_hora_gravacao, rowid 1: '2022-01-01 09:00:00'\n"},
      {"E07", "01.00.01", 45,
       "E07.5 \"Versão do software básico\", bytes 45-54\n"
       "  rule:    text, left-aligned and filled up with blanks to 10 bytes; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  versao_sb.versao\n"
       "  bytes:   \"01.00.01  \"\n"
       "  meaning: 01.00.01\n"
       "  from:    versao_sb.versao, row num_sequencia=2 (rowid 2): '01.00.01'\n"},
      {"E08", "", 78,
       "E08.6 \"Nº de série da MFD\", bytes 59-78\n"
       "  rule:    text, left-aligned and filled up with blanks to 20 bytes\n"
       "  source:  nothing: always blanks\n"
       "  bytes:   \"                    \"\n"
       "  meaning: blank: none\n"
       "  from:    nothing: it is never filled\n"},
      {"E09", "", 65,
       "E09.8 \"Perda de dados da MT\", byte 65\n"
       "  rule:    text of 1 byte as it stands, never filled up, so that an empty one ends the line; of a "
       "longer "
       "one the end is overwritten by the next field\n"
       "  source:  intervencao.id_perda_dados_mt\n"
       "  bytes:   \"N\"\n"
       "  meaning: N: the working memory lost no data\n"
       "  from:    intervencao.id_perda_dados_mt, rowid 1: 'N'\n"},
      {"E10", "", 77,
       "E10.9 \"CNPJ do usuário\", bytes 77-90\n"
       "  rule:    number without sign, 14 digits filled up with zeros; a longer one runs on behind the end "
       "of "
       "the record\n"
       "  source:  dados_usuario.cnpj, of several users the last\n"
       "  bytes:   \"53610385000175\"\n"
       "  meaning: 53610385000175\n"
       "  from:    dados_usuario.cnpj, rowid 1: '53610385000175'\n"},
      {"E11", "", 117,
       "E11.15 \"Totalizador geral (GT)\", bytes 117-122\n"
       "  rule:    money in cents, without sign, 18 digits filled up with zeros; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  posicao_totalizadores_contadores.valor_gt\n"
       "  bytes:   \"000000\"\n"
       "  meaning: the first digits alone: what follows stands over the others\n"
       "  note:    with counters of nine digits the time stamp overwrites its last twelve\n"
       "  from:    posicao_totalizadores_contadores.valor_gt, rowid 1: 1170768.23\n"},
      {"E12", "0100068", 90,
       "E12.12 \"Venda bruta diária\", bytes 90-103\n"
       "  rule:    money in cents, without sign, 14 digits filled up with zeros; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  reducao_z.valor_vb\n"
       "  bytes:   \"00000000473773\"\n"
       "  meaning: R$ 4.737,73\n"
       "  from:    reducao_z.valor_vb, row cont_crz=681, cont_cro=1 (rowid 1): 4737.73\n"},
      {"E13", "01T1800", 53,
       "E13.7 \"Totalizador parcial\", bytes 53-59\n"
       "  rule:    text, left-aligned and filled up with blanks to 7 bytes; of a longer one the end is "
       "overwritten by the next field; dots are taken out\n"
       "  source:  totalizador_reducao.totalizador or the constant 'OPNF'\n"
       "  bytes:   \"01T1800\"\n"
       "  meaning: 01T1800: ICMS 18,00 %\n"
       "  from:    totalizador_reducao.totalizador, rowid 1: '01T1800'\n"},
      {"E13", "000681OPNF", 72,
       "E13.8 \"Valor acumulado\", bytes 60-72\n"
       "  rule:    money in cents, without sign, 13 digits filled up with zeros; a longer one runs on behind "
       "the "
       "end of the record\n"
       "  source:  totalizador_reducao.valor_base_calculo or the sum of "
       "totalizador_reducao.valor_base_calculo\n"
       "  bytes:   \"0000000204000\"\n"
       "  meaning: R$ 2.040,00\n"
       "  from:    the sum of totalizador_reducao.valor_base_calculo, 5 rows (rowid 14, 15, 16, 17, 18)\n"},
      {"E14", "ANTONIO CARLOS PEREIRA", 143,
       "E14.17 \"Ordem de desconto e acréscimo\", byte 143\n"
       "  rule:    text of 1 byte as it stands, never filled up, so that an empty one ends the line; of a "
       "longer "
       "one the end is overwritten by the next field\n"
       "  source:  A where cupom_fiscal.valor_acrescimo is not zero, else D where "
       "cupom_fiscal.valor_desconto is "
       "not zero, else a blank\n"
       "  bytes:   \"D\"\n"
       "  meaning: D: a discount\n"
       "  note:    of a coupon with both the surcharge wins\n"
       "  from:    cupom_fiscal.valor_desconto, row cont_coo=41843 (rowid 41843): 5.19\n"},
      {"E14", "ANTONIO CARLOS PEREIRA", 144,
       "E14.18 \"Nome do consumidor\", bytes 144-183\n"
       "  rule:    text, left-aligned and filled up with blanks to 40 bytes; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  the first 39 characters of cupom_fiscal.nome_consumidor\n"
       "  bytes:   \"ANTONIO CARLOS PEREIRA                  \"\n"
       "  meaning: ANTONIO CARLOS PEREIRA\n"
       "  from:    cupom_fiscal.nome_consumidor, row cont_coo=41843 (rowid 41843): 'ANTONIO CARLOS "
       "PEREIRA'\n"},
      {"E15", "PRESUNTO COZIDO KG", 182,
       "E15.11 \"Quantidade\", bytes 182-188\n"
       "  rule:    decimal number with 2 or 3 decimal places as \"Casas decimais da quantidade\" says and no "
       "point, 7 digits filled up with zeros; of a longer one the end is overwritten by the next field\n"
       "  source:  item_cupom_fiscal.quantidade\n"
       "  bytes:   \"0001915\"\n"
       "  meaning: 1,915\n"
       "  from:    item_cupom_fiscal.quantidade, row cont_coo=41760, seq_item=2: 1.915\n"},
      {"E16", "CC20240101085400", 74,
       "E16.9 \"CDC\", bytes 74-77\n"
       "  rule:    number, 4 digits filled up with zeros; a longer one is never clipped and moves the later "
       "fields right\n"
       "  source:  outros_documentos.cont_cdc of CC; of others zero\n"
       "  bytes:   \"3001\"\n"
       "  meaning: 3001\n"
       "  from:    outros_documentos.cont_cdc, rowid 3: 3001\n"},
      {"E17", "000681SANGRIA", 68,
       "E17.8 \"Valor acumulado\", bytes 68-80\n"
       "  rule:    money in cents, without sign, 13 digits filled up with zeros; a longer one runs on behind "
       "the "
       "end of the record\n"
       "  source:  totalizador_reducao.valor_base_calculo\n"
       "  bytes:   \"0000000184000\"\n"
       "  meaning: R$ 1.840,00\n"
       "  from:    totalizador_reducao.valor_base_calculo, rowid 15: 1840\n"},
      {"E18", "000682CHEQUE", 80,
       "E18.8 \"Valor acumulado\", bytes 68-80\n"
       "  rule:    money in cents, rounded through a binary number, without sign, 13 digits filled up with "
       "zeros; a longer one runs on behind the end of the record\n"
       "  source:  meio_pagamento_reducao.valor_acumulado\n"
       "  bytes:   \"0000000007399\"\n"
       "  meaning: R$ 73,99\n"
       "  from:    meio_pagamento_reducao.valor_acumulado, rowid 8: 73.99\n"},
      {"E19", "000041813000010885", 100,
       "E19.11 \"Tipo do desconto\", byte 100\n"
       "  rule:    text of 1 byte as it stands, never filled up, so that an empty one ends the line; of a "
       "longer "
       "one the end is overwritten by the next field\n"
       "  source:  cupom_nf.tipo_desconto\n"
       "  bytes:   \"V\"\n"
       "  meaning: V: a value\n"
       "  from:    cupom_nf.tipo_desconto, row cont_coo=41813 (rowid 41813): 'V'\n"},
      {"E20", "SANGRIA", 68,
       "E20.9 \"Denominação da operação\", bytes 68-82\n"
       "  rule:    text, left-aligned and filled up with blanks to 15 bytes; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  totalizador_nao_fiscal.descricao\n"
       "  bytes:   \"SANGRIA        \"\n"
       "  meaning: SANGRIA\n"
       "  from:    totalizador_nao_fiscal.descricao, row num_indice=2 (rowid 2): 'SANGRIA'\n"},
      {"E21", "000041760000028133", 89,
       "E21.10 \"Valor pago\", bytes 89-101\n"
       "  rule:    money in cents, without sign, 13 digits filled up with zeros; of a longer one the end is "
       "overwritten by the next field\n"
       "  source:  pagamento_cupom.valor_pagamento\n"
       "  bytes:   \"0000000025000\"\n"
       "  meaning: R$ 250,00\n"
       "  from:    pagamento_cupom.valor_pagamento, rowid 2: 250\n"},
      {"E21", "000041759000000000", 65,
       "E21.8 \"GNF\", bytes 65-73\n"
       "  rule:    document counter, 9 digits filled up with zeros, the remainder by 1000000000\n"
       "  source:  the constant '000000000' or cupom_nf.cont_gnf\n"
       "  bytes:   \"000010871\"\n"
       "  meaning: 10871\n"
       "  from:    cupom_nf.cont_gnf, row cont_coo=41759 (rowid 41759): 10871\n"},
      {"E22", "000220230615", 55,
       "E22.5 \"Data\", bytes 48-55\n"
       "  rule:    date AAAAMMDD, cut by position out of a date and time\n"
       "  source:  column 3 of tentativas_sb\n"
       "  bytes:   \"20230615\"\n"
       "  meaning: 15/06/2023\n"
       "  from:    tentativas_sb.data_hora, rowid 2: '2023-06-15 09:20:00'\n"},
  };
  for (const Caso& caso : kCasos) EXPECT_EQ(campo(caso.codigo, caso.texto, caso.coluna), caso.esperado);
}

TEST_F(Explain, TheHeadComesFromTheIdentity) {
  EXPECT_TRUE(
      contem(campo("E14", "", 4), "  from:    dados_ecf.num_serie, rowid 1: 'ZZ011070292183000001'\n"));
  EXPECT_TRUE(contem(campo("E14", "", 25), "  from:    dados_ecf.modelo, rowid 1: 'MODELO 1 FI'\n"));
  EXPECT_TRUE(contem(campo("E14", "", 46), "  from:    dados_usuario.seq_usuario, rowid 1: 1\n"));
  EXPECT_TRUE(contem(campo("E01", "", 113), "  from:    the command that the report was made with\n"));
  EXPECT_TRUE(
      contem(campo("E11", "", 123), "  from:    the clock of the application that made the report\n"));
}

TEST_F(Explain, AnIdentityThatTheDatabaseDoesNotHaveIsTheApplications) {
  Banco(em("loja.db")).sql("UPDATE dados_ecf SET num_serie = '', modelo = ''");
  const std::vector<std::string> quem = {"--serial", "ABC", "--model", "XYZ"};
  geraLoja({"--serial", "ABC", "--model", "XYZ"});
  const Fim fim = explica("loja.txt:12:4", {"--db", "loja.db", "--serial", "ABC", "--model", "XYZ"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_TRUE(contem(fim.saida, "  from:    the application: the database does not know it\n")) << fim.saida;
  EXPECT_EQ(explica("loja.txt:12:4", {"--db", "loja.db"}).situacao, 1);
}

TEST_F(Explain, TheFirstAndTheLastByteOfAFieldAreItsOwn) {
  const std::string linha = "loja.txt:" + std::to_string(linhaCom("E12", "")) + ':';
  const struct {
    int coluna;
    const char* campo;
  } kBytes[] = {{3, "E12.1 \"Tipo do registro\", bytes 1-3\n"},
                {4, "E12.2 \"Nº de fabricação do ECF\", bytes 4-23\n"},
                {52, "E12.6 \"CRZ\", bytes 47-52\n"},
                {53, "E12.7 \"COO\", bytes 53-61\n"},
                {61, "E12.7 \"COO\", bytes 53-61\n"},
                {62, "E12.8 \"CRO\", bytes 62-67\n"},
                {103, "E12.12 \"Venda bruta diária\", bytes 90-103\n"},
                {104, "E12.13 \"Indicador\", byte 104\n"}};
  for (const auto& byte : kBytes) {
    const Fim fim = explica(linha + std::to_string(byte.coluna));
    EXPECT_EQ(fim.situacao, 0);
    EXPECT_TRUE(contem(fim.saida, std::string("\n\n") + byte.campo)) << byte.coluna << '\n' << fim.saida;
  }
}

TEST_F(Explain, WithoutAColumnEveryFieldIsThere) {
  const Fim fim = explica("loja.txt:" + std::to_string(linhaCom("E22", "0002")));
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(fim.erros, "");
  EXPECT_EQ(
      fim.saida,
      "loja.txt:" + std::to_string(linhaCom("E22", "0002")) +
          ": E22 Tentativas relativas ao Software Básico\n"
          "  layout:  2\n"
          "  note:    the whole table, whatever the period; its head has no user and no additional MF\n"
          "\n"
          "E22.1 \"Tipo do registro\", bytes 1-3\n"
          "  rule:    text of 3 bytes\n"
          "  source:  always \"E22\"\n"
          "  bytes:   \"E22\"\n"
          "  meaning: E22\n"
          "\n"
          "E22.2 \"Nº de fabricação do ECF\", bytes 4-23\n"
          "  rule:    text, left-aligned and filled up with blanks to 20 bytes; of a longer one the end is "
          "overwritten by the next field\n"
          "  source:  dados_ecf.num_serie, where that is empty the application's serial number\n"
          "  bytes:   \"ZZ011070292183000001\"\n"
          "  meaning: ZZ011070292183000001\n"
          "\n"
          "E22.3 \"Modelo do ECF\", bytes 24-43\n"
          "  rule:    text, left-aligned and filled up with blanks to 20 bytes; of a longer one the end is "
          "overwritten by the next field\n"
          "  source:  dados_ecf.modelo, where that is empty the application's model\n"
          "  bytes:   \"MODELO 1 FI         \"\n"
          "  meaning: MODELO 1 FI\n"
          "\n"
          "E22.4 \"Número\", bytes 44-47\n"
          "  rule:    number, 4 digits filled up with zeros; a longer one is never clipped and moves the "
          "later "
          "fields right\n"
          "  source:  column 1 of tentativas_sb\n"
          "  bytes:   \"0002\"\n"
          "  meaning: 2\n"
          "\n"
          "E22.5 \"Data\", bytes 48-55\n"
          "  rule:    date AAAAMMDD, cut by position out of a date and time\n"
          "  source:  column 3 of tentativas_sb\n"
          "  bytes:   \"20230615\"\n"
          "  meaning: 15/06/2023\n");
}

TEST_F(Explain, JsonIsOneObjectALine) {
  EXPECT_EQ(
      explica("loja.txt:" + std::to_string(linhaCom("E18", "000682CHEQUE")) + ":80",
              {"--db", "loja.db", "--format", "json"})
          .saida,
      "{\"file\":\"loja.txt\",\"line\":" + std::to_string(linhaCom("E18", "000682CHEQUE")) +
          R"(,"register":"E18","name":"Detalhe da Redução Z - Meios de Pagamento","layout":2,)"
          R"("notes":[],"fields":[{"field":8,"label":"Valor acumulado","from":68,"to":80,)"
          R"("rule":"money in cents, rounded through a binary number, without sign, 13 digits filled up with )"
          R"(zeros; a longer one runs on behind the end of the record",)"
          R"("source":"meio_pagamento_reducao.valor_acumulado","bytes":"0000000007399","meaning":"R$ 73,99",)"
          R"("origin":{"table":"meio_pagamento_reducao","column":"valor_acumulado","rowid":"8","value":"73.99"}}]})"
          "\n");
}

TEST_F(Explain, OfEqualLinesEachHasItsOwnRow) {
  Banco(em("loja.db"))
      .sql(
          "INSERT INTO tentativas_sb VALUES (2, 'OUTRA', '2023-06-15 10:00:00', 'X');"
          "INSERT INTO tentativas_sb VALUES (2, 'OUTRA', '2023-06-15 11:00:00', 'X')");
  geraLoja({"--layout", "2"});
  const long primeira = linhaCom("E22", "000220230615");
  const auto de = [&](long linha) {
    return explica("loja.txt:" + std::to_string(linha) + ":48", {"--db", "loja.db"}).saida;
  };
  EXPECT_TRUE(contem(de(primeira), "tentativas_sb.data_hora, rowid 2: '2023-06-15 09:20:00'\n"));
  EXPECT_TRUE(contem(de(primeira + 1), "tentativas_sb.data_hora, rowid 3: '2023-06-15 10:00:00'\n"));
  EXPECT_TRUE(contem(de(primeira + 2), "tentativas_sb.data_hora, rowid 4: '2023-06-15 11:00:00'\n"));
}

TEST_F(Explain, ARowOfAViewHasNoRowid) {
  Banco(em("loja.db"))
      .sql("ALTER TABLE moeda RENAME TO guardada; CREATE VIEW moeda AS SELECT * FROM guardada");
  EXPECT_TRUE(contem(campo("E06", "", 73), "  from:    moeda.simbolo_moeda, a row without a key: 'R$'\n"));
}

TEST_F(Explain, EachUserOfAGrowingLineIsTold) {
  Banco(em("loja.db"))
      .sql(
          "INSERT INTO dados_usuario SELECT 2, '11222333000181', ie, razao_social, endereco, "
          "data_hora_gravacao, cont_cro, valor_gt FROM dados_usuario");
  geraLoja({"--layout", "2"});
  EXPECT_TRUE(contem(campo("E08", "", 45), "dados_usuario.cnpj, rowid 1: '53610385000175'\n"));
  const std::string segundo = campo("E08", "", 59);
  EXPECT_TRUE(contem(segundo, "E08.5 \"CNPJ do usuário (2)\", bytes 59-72\n"));
  EXPECT_TRUE(contem(segundo, "dados_usuario.cnpj, rowid 2: '11222333000181'\n"));
  EXPECT_TRUE(contem(campo("E02", "11222333000181", 45), "dados_usuario.cnpj, rowid 2: '11222333000181'\n"));
}

TEST_F(Explain, APlaceholderHasNoRow) {
  Banco(em("loja.db")).sql("DELETE FROM intervencao");
  geraLoja({"--layout", "1"});
  const long linha = linhaCom("E09", "");
  const Fim fim = explica("loja.txt:" + std::to_string(linha) + ":51", {"--db", "loja.db"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_EQ(
      fim.saida,
      "loja.txt:" + std::to_string(linha) +
          ": E09 Relação de intervenções técnicas\n"
          "  layout:  1\n"
          "  note:    a placeholder record: the register has no row, and but for its head all fields are "
          "zeros or blanks\n"
          "\n"
          "E09.6 \"Data da intervenção\", bytes 51-58\n"
          "  rule:    date AAAAMMDD, cut by position out of a date and time\n"
          "  source:  intervencao.data_hora_intervencao, 19 blanks where it is NULL\n"
          "  bytes:   \"        \"\n"
          "  meaning: blank: none\n"
          "  from:    no row: this is a placeholder record\n");
}

TEST_F(Explain, RegistersOfNoCommandAreExplainedAndNotTraced) {
  escreveArquivo(em("r.txt"), "E03" + std::string(41, ' ') + "00" + std::string(14, ' ') +
                                  std::string(46, '0') + "\nE04" + std::string(41, ' ') + "01" +
                                  std::string(14, ' ') + std::string(52, '0') + "\n");
  EXPECT_TRUE(contem(explica("r.txt:1:45").saida,
                     "  note:    no command writes it\n\nE03.5 \"Nº do prestador\", bytes 45-46\n"
                     "  rule:    number, 2 digits filled up with zeros\n"
                     "  source:  nothing: always zeros\n"
                     "  bytes:   \"00\"\n"
                     "  meaning: 0\n"));
  EXPECT_TRUE(
      contem(explica("r.txt:2:46").saida,
             "E04.5 \"Nº do usuário\", bytes 45-46\n"
             "  rule:    number, 2 digits filled up with zeros; of a longer one the end is overwritten by "
             "the next field\n"
             "  source:  dados_usuario.seq_usuario, of several users the last\n"
             "  bytes:   \"01\"\n"
             "  meaning: 1\n"));
  EXPECT_EQ(explica("r.txt:1", {"--db", "loja.db"}).situacao, 1);
}

TEST_F(Explain, ALineThatTheDatabaseDoesNotGiveEndsWith1) {
  const std::size_t i = relatorio_.find("000682CHEQUE         0000000007399") + 21;
  ASSERT_LT(i, relatorio_.size());
  const long linha = linhaCom("E18", "000682CHEQUE");
  escreveArquivo(em("loja.txt"), relatorio_.replace(i, 13, "0000000007398"));
  const Fim fim = explica("loja.txt:" + std::to_string(linha) + ":80", {"--db", "loja.db"});
  EXPECT_EQ(fim.situacao, 1);
  EXPECT_TRUE(contem(fim.saida, "  meaning: R$ 73,98\n"));
  EXPECT_FALSE(contem(fim.saida, "  from:"));
  EXPECT_EQ(fim.erros, "cotepe: loja.txt:" + std::to_string(linha) +
                           ": not what the database gives; cotepe verify compares the whole report\n");
}

TEST_F(Explain, ALineOfAnotherLengthIsSaidSo) {
  escreveArquivo(em("r.txt"), "E22" + std::string(40, 'A') + "00\nE22" + std::string(40, 'A') +
                                  "0001202401019" + std::string(30, '9') + "\n");
  const Fim curta = explica("r.txt:1");
  EXPECT_EQ(curta.situacao, 0);
  EXPECT_TRUE(contem(curta.saida,
                     "  note:    the line has 45 bytes instead of 55: its fields may stand elsewhere\n"));
  EXPECT_TRUE(contem(curta.saida, "  bytes:   \"00\"\n  meaning: cut short: the line ends inside it\n"));
  EXPECT_TRUE(contem(curta.saida, "  bytes:   \"\"\n  meaning: nothing: the line ends before it\n"));
  const Fim filler = explica("r.txt:2:56");
  EXPECT_EQ(filler.situacao, 2);
  EXPECT_EQ(filler.erros,
            "cotepe: error: r.txt:2:56: the column is behind the last field; its fields take the columns 1 "
            "to 55\n");
}

TEST_F(Explain, StdinIsNotReadTwice) {
  const Fim fim = explica("--db", {"loja.db", "--", "-:1"});
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(fim.erros, "cotepe: error: stdin: the report is read more than once, so it must be a file\n");
}

TEST_F(Explain, WhatIsNotThereIsRefused) {
  escreveArquivo(em("r.txt"), "E22" + std::string(40, 'A') + "000120240101\nABC\n");
  escreveArquivo(em("vazio.txt"), "");
  const char* const kForma =
      ": no line is named; write a report and a line, as in report.txt:12, or also a column, as in "
      "report.txt:12:50\n";
  const struct {
    std::vector<std::string> argumentos;
    std::string mensagem;
  } kRecusas[] = {
      {{"r.txt:1:56"}, "r.txt:1:56: the line has only 55 bytes; its fields take the columns 1 to 55\n"},
      {{"r.txt:3"}, "r.txt:3: the report has only 2 lines\n"},
      {{"vazio.txt:1"}, "cannot read the report vazio.txt: it is empty\n"},
      {{"r.txt:2"},
       "r.txt:2: the line does not begin with the code of a register; cotepe validate says more\n"},
      {{"r.txt"}, std::string("r.txt") + kForma},
      {{"r.txt:0"}, std::string("r.txt:0") + kForma},
      {{"r.txt:1:0"}, std::string("r.txt:1:0") + kForma},
      {{"r.txt:-1"}, std::string("r.txt:-1") + kForma},
      {{"r.txt:1x"}, std::string("r.txt:1x") + kForma},
      {{"r.txt:99999999999999999999"}, std::string("r.txt:99999999999999999999") + kForma},
      {{":1"}, std::string(":1") + kForma},
      {{"nada.txt:1"}, "cannot open the report nada.txt: No such file or directory\n"},
      {{"r.txt:1", "--db", "nada.db"}, "cannot open the database nada.db: No such file or directory\n"},
      {{"r.txt:1", "--format", "xml"}, "--format: xml is none of text, json; see cotepe explain --help\n"},
  };
  for (const auto& recusa : kRecusas) {
    std::vector<std::string> todos = {"explain"};
    todos.insert(todos.end(), recusa.argumentos.begin(), recusa.argumentos.end());
    const Fim fim = roda(todos, pasta());
    EXPECT_EQ(fim.situacao, 2);
    EXPECT_EQ(fim.erros, "cotepe: error: " + recusa.mensagem);
    EXPECT_EQ(fim.saida, "");
  }
}

TEST_F(Explain, ADatabaseWithoutTheTablesCannotBeAsked) {
  Banco(em("loja.db")).sql("DROP TABLE moeda");
  const Fim fim = explica("loja.txt:" + std::to_string(linhaCom("E06", "")), {"--db", "loja.db"});
  EXPECT_EQ(fim.situacao, 2);
  EXPECT_EQ(semHora(fim.erros),
            "@ Erro no select 2 - TipoE06: no such table: moeda\ncotepe: error: cannot find the rows of the "
            "line in "
            "loja.db: no such table: moeda; E06 is read from it: cotepe check says what is missing\n");
}

TEST_F(Explain, ColonsInTheNameOfTheFileAreTheFiles) {
  escreveArquivo(em("a:b.txt"), "E22" + std::string(40, 'A') + "000120240101\n");
  EXPECT_EQ(explica("a:b.txt:1").situacao, 0);
  EXPECT_EQ(explica("a:b.txt:1:1").situacao, 0);
}

TEST_F(Explain, HelpSaysTheExitStatuses) {
  const Fim fim = roda({"explain", "--help"});
  EXPECT_EQ(fim.situacao, 0);
  EXPECT_TRUE(contem(
      fim.saida,
      "Exit status: 0 explained, 1 the database does not give the line, 2 could not run, 4 writing failed."));
}

}  // namespace
