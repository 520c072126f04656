// generate --deliver, and the commands that read what it makes.
#include <algorithm>
#include <filesystem>
#include <sstream>

#include "CenaDeAssinatura.h"
#include "Chaves.h"

using namespace cotepe;
namespace fs = std::filesystem;

namespace {

class Entrega : public CenaDeAssinatura {
 protected:
  Entrega() : plano_(leArquivo(em("r.txt"))) { fs::create_directory(em("d")); }

  // The one file of the folder, with its name in `nome_`.
  std::string entregue() {
    std::vector<std::string> lista;
    for (const auto& item : fs::directory_iterator(em("d"))) lista.push_back(item.path().filename());
    EXPECT_EQ(lista.size(), 1U);
    nome_ = lista.empty() ? "" : "d/" + lista[0];
    return lista.empty() ? "" : leArquivo(em(nome_));
  }

  static std::string semCarimbo(std::string texto) {
    const std::size_t e11 = texto.find("\nE11") + 1;
    return texto.replace(e11 + 122, 14, 14, '-');
  }

  static std::string comCrLf(const std::string& texto) {
    std::string saida;
    for (const char c : texto) saida += c == '\n' ? "\r\n" : std::string(1, c);
    return saida;
  }

  std::string plano_, nome_;
};

TEST_F(Entrega, WritesCrLfUnderTheLawsName) {
  const Fim fim = gera({"--deliver", "d"});
  EXPECT_EQ(fim.situacao, 0) << fim.erros;
  EXPECT_EQ(semCarimbo(entregue()), semCarimbo(comCrLf(plano_)));
  EXPECT_TRUE(corresponde(nome_, "d/TDMSERIAL_[0-9]{8}_[0-9]{6}\\.TXT")) << nome_;
}

TEST_F(Entrega, KeySignsIt) {
  EXPECT_EQ(gera({"--deliver", "d", "--key", "k.pem", "--quiet"}).situacao, 0);
  const std::string texto = entregue();
  EXPECT_EQ(semCarimbo(texto.substr(0, texto.size() - 261)), semCarimbo(comCrLf(plano_)));
  EXPECT_EQ(confere(nome_).situacao, 0);
}

TEST_F(Entrega, WhatCannotBeDeliveredLeavesNothing) {
  EXPECT_EQ(gera({"--deliver", "d", "--output", "x.txt"}).situacao, 2);
  EXPECT_EQ(gera({"--key", "k.pem"}).situacao, 2);
  EXPECT_EQ(gera({"--deliver", "d", "--key", "p.pem"}).situacao, 3);
  EXPECT_EQ(gera({"--deliver", "none"}).situacao, 3);
  EXPECT_EQ(Processo(generate({"--deliver", "d", "--key", "k.pem"}))
                .naPasta(pasta())
                .comLimiteDeArquivo(plano_.size() + 100)
                .inicia()
                .espera()
                .situacao,
            4);
  EXPECT_TRUE(fs::is_empty(em("d")));
}

TEST_F(Entrega, ReadingCommandsTakeItAsThePlainOne) {
  EXPECT_EQ(gera({"--deliver", "d", "--key", "k.pem", "--quiet"}).situacao, 0);
  entregue();
  const Fim plano = comando({"validate", "r.txt"}), pronto = comando({"validate", nome_});
  EXPECT_EQ(pronto.situacao, plano.situacao);
  EXPECT_EQ(std::count(pronto.saida.begin(), pronto.saida.end(), '\n'),
            std::count(plano.saida.begin(), plano.saida.end(), '\n'))
      << pronto.saida;
  EXPECT_EQ(comando({"diff", "r.txt", nome_}).situacao, 0);
  const Fim verificado = comando({"verify", "--db", "base.db", nome_, "--quiet"});
  EXPECT_EQ(verificado.situacao, 0) << verificado.saida << verificado.erros;
  const Fim mostrado = comando({"show", nome_});
  EXPECT_NE(mostrado.saida.find("the signature of the report (EAD)"), std::string::npos) << mostrado.saida;
  EXPECT_EQ(mostrado.saida.find("of no register"), std::string::npos);
}

TEST_F(Entrega, ValidateHoldsAReportToTheFormWhenAsked) {
  EXPECT_EQ(gera({"--deliver", "d", "--key", "k.pem", "--quiet"}).situacao, 0);
  entregue();
  EXPECT_EQ(comando({"validate", nome_, "--delivered"}).saida, comando({"validate", nome_}).saida);
  const std::string dito = comando({"validate", "r.txt", "--delivered"}).saida;
  for (const char* achado : {"delivery: found a line that does not end with CR and LF, as maybe others",
                             "delivery: found another line at the end, expected the EAD line last",
                             "delivery: found r.txt, expected a name as COMMANDserial_yyyymmdd_hhmmss.TXT"})
    EXPECT_NE(dito.find(achado), std::string::npos) << achado << '\n' << dito;
}

// What the rule alone says of a report that is called `nome_`, each line from its number on.
std::string ditoDaRegra(const Fim& fim, const std::string& nome) {
  std::string dito;
  std::istringstream linhas(fim.saida);
  for (std::string linha; std::getline(linhas, linha);)
    if (linha.find(" delivery: ") != std::string::npos) dito += linha.substr(nome.size()) + '\n';
  return dito;
}

TEST_F(Entrega, EachPartOfTheFormIsFoundMissingAlone) {
  EXPECT_EQ(gera({"--deliver", "d", "--key", "k.pem", "--quiet"}).situacao, 0);
  const std::string certo = entregue();
  const std::string ultima = std::to_string(std::count(certo.begin(), certo.end(), '\n'));
  const std::string assina = " (cotepe sign brings a report to that form)\n";
  const auto dito = [&](const std::string& texto, const std::string& nome) {
    escreveArquivo(em(nome), texto);
    EXPECT_EQ(ditoDaRegra(comando({"validate", nome, "--delivered", "--disable", "delivery"}), nome), "");
    EXPECT_EQ(ditoDaRegra(comando({"validate", nome}), nome), "");
    return ditoDaRegra(comando({"validate", nome, "--delivered"}), nome);
  };
  EXPECT_EQ(dito(certo, nome_), "");
  std::string texto = certo;
  EXPECT_EQ(dito(texto.erase(texto.find('\r'), 1), nome_),
            ":1: error delivery: found a line that does not end with CR and LF, as maybe others, expected CR "
            "and LF" +
                assina);
  texto = certo;
  texto[texto.find("MODELO")] = '\xD3';
  EXPECT_EQ(dito(texto, nome_),
            ":1: error delivery: found a line with characters that are not ASCII, as maybe others, expected "
            "ASCII alone (cotepe explain --db shows the rows behind it)\n");
  texto = certo;
  EXPECT_EQ(dito(texto.erase(texto.size() - 3, 1), nome_),
            ':' + ultima +
                ": error delivery: found 255 hexadecimal digits, expected EAD and 256 hexadecimal digits" +
                assina);
  EXPECT_EQ(dito(certo + "E21\r\n", nome_),
            ':' + std::to_string(std::stol(ultima) + 1) +
                ": error delivery: found another line at the end, expected the EAD line last" + assina);
  EXPECT_EQ(dito(certo, "x.txt"),
            ": error delivery: found x.txt, expected a name as COMMANDserial_yyyymmdd_hhmmss.TXT" + assina);
}

TEST_F(Entrega, TheFormIsARuleLikeTheOthers) {
  const std::string regras = comando({"validate", "--rules"}).saida;
  EXPECT_NE(regras.find("\ndelivery "), std::string::npos);
  EXPECT_NE(regras.find("error    With --delivered: CR and LF on every line, ASCII alone, the EAD line last, "
                        "and the law's name of the file.\n"),
            std::string::npos)
      << regras;
  EXPECT_EQ(comando({"validate", "r.txt", "--disable", "deliver"}).erros,
            "cotepe: error: --disable: unknown rule deliver (did you mean delivery?); see cotepe validate "
            "--rules\n");
}

}  // namespace
