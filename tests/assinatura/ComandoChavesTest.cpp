// Keys and pass phrases as the commands take them.
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "CenaDeAssinatura.h"
#include "Chaves.h"

using namespace cotepe;

namespace {

bool contem(const std::string& texto, const std::string& parte) {
  return texto.find(parte) != std::string::npos;
}

class Chaves : public CenaDeAssinatura {
 protected:
  Chaves() {
    shell(COTEPE_OPENSSL " pkcs8 -topk8 -in k.pem -out c8.pem -passout pass:abre");
    shell(COTEPE_OPENSSL " rsa -in k.pem -traditional -aes128 -out c1.pem -passout pass:abre 2>/dev/null");
    shell(COTEPE_OPENSSL " rsa -in k.pem -traditional -out k1.pem 2>/dev/null");
  }
  Fim com(const std::string& chave, const std::vector<std::string>& mais = {}) const {
    std::vector<std::string> todos = {"sign", "r.txt", "--quiet", "--key", chave};
    todos.insert(todos.end(), mais.begin(), mais.end());
    return comando(todos);
  }
};

TEST_F(Chaves, OlderFormOfRsaSignsAlike) {
  EXPECT_EQ(com("k1.pem", {"--output", "a.txt"}).situacao, 0);
  EXPECT_EQ(com("k.pem", {"--output", "b.txt"}).situacao, 0);
  EXPECT_EQ(leArquivo(em("a.txt")), leArquivo(em("b.txt")));
}

TEST_F(Chaves, PassPhraseComesFromAFileOrTheEnvironment) {
  escreveArquivo(em("frase"), "abre\r\nsecond line\n");
  escreveArquivo(em("outra"), "fecha\n");
  for (const char* chave : {"c8.pem", "c1.pem"}) {
    EXPECT_EQ(com(chave, {"--passphrase-file", "frase"}).situacao, 0) << chave;
    const Fim errada = com(chave, {"--passphrase-file", "outra"});
    EXPECT_EQ(errada.situacao, 3);
    EXPECT_EQ(errada.erros, std::string("cotepe: error: cannot open the key ") + chave +
                                ": its pass phrase is another one\n");
    for (const auto& [frase, situacao] : {std::pair{"abre", 0}, {"fecha", 3}})
      EXPECT_EQ(Processo({"sign", "r.txt", "--key", chave})
                    .naPasta(pasta())
                    .comAmbiente("COTEPE_PASSPHRASE", frase)
                    .inicia()
                    .espera()
                    .situacao,
                situacao);
  }
  EXPECT_EQ(com("c8.pem", {"--passphrase-file", "none"}).situacao, 3);
}

// In a session without a terminal.
TEST_F(Chaves, WithoutPassPhraseNorTerminalIsSaid) {
  const std::string saida =
      shell(std::string("setsid -w " COTEPE_PROGRAMA " sign r.txt --key c8.pem 2>&1 </dev/null || echo $?"));
  EXPECT_EQ(saida,
            "cotepe: error: cannot open the key c8.pem: it is encrypted, and there is no pass phrase; give "
            "--passphrase-file or set COTEPE_PASSPHRASE\n3\n");
}

// At a terminal: the program's words, and its status.
std::pair<std::string, int> noTerminal(const std::string& pasta, const std::string& resposta) {
  int terminal = -1;
  const pid_t filho = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (filho == 0) {
    if (chdir(pasta.c_str()) == 0)
      execl(COTEPE_PROGRAMA, "cotepe", "sign", "r.txt", "--key", "c8.pem", "--quiet", nullptr);
    _exit(99);
  }
  std::string visto;
  bool respondida = false;
  std::array<char, 256> bloco{};
  for (ssize_t n = 0; (n = read(terminal, bloco.data(), bloco.size())) > 0;) {
    visto.append(bloco.data(), static_cast<std::size_t>(n));
    if (respondida || !contem(visto, "c8.pem: ")) continue;
    respondida = true;
    EXPECT_EQ(write(terminal, resposta.data(), resposta.size()), static_cast<ssize_t>(resposta.size()));
  }
  close(terminal);
  int estado = 0;
  EXPECT_EQ(waitpid(filho, &estado, 0), filho);
  return {visto, WIFEXITED(estado) ? WEXITSTATUS(estado) : -1};
}

TEST_F(Chaves, TerminalIsAskedAndShowsNothing) {
  EXPECT_EQ(noTerminal(pasta(), "abre\n"), (std::pair<std::string, int>("Pass phrase of c8.pem: \r\n", 0)));
  EXPECT_EQ(confere("r.txt").situacao, 0);
  const auto [visto, situacao] = noTerminal(pasta(), "fecha\n");
  EXPECT_EQ(situacao, 3);
  EXPECT_FALSE(contem(visto, "fecha")) << visto;
  EXPECT_TRUE(contem(visto, "its pass phrase is another one")) << visto;
  EXPECT_EQ(noTerminal(pasta(), "\x03").second, 130);
}

TEST_F(Chaves, OtherKeysAreRefusedWithTheReason) {
  escreveArquivo(em("grande.pem"), novaChavePem(2048));
  shell(COTEPE_OPENSSL " genpkey -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out ec.pem 2>/dev/null");
  shell(COTEPE_OPENSSL " rsa -in grande.pem -pubout -out grandep.pem 2>/dev/null");
  const std::string usar = "cannot use the key ",
                    esperada = "; expected an RSA key of 1024 bits in PEM or, a public one, in XML";
  const std::vector<std::pair<std::string, std::string>> privadas = {
      {"grande.pem", usar + "grande.pem: it has 2048 bits" + esperada},
      {"ec.pem", usar + "ec.pem: it is not an RSA key" + esperada},
      {"p.pem", "cannot sign with p.pem: it is a public key; name the private one"},
      {"p.xml", "cannot sign with p.xml: it is a public key; name the private one"},
      {"r.txt", usar + "r.txt: it is no key" + esperada},
      {"none", "cannot read the key none: No such file or directory"},
  };
  for (const auto& [chave, mensagem] : privadas) {
    const Fim fim = com(chave);
    EXPECT_EQ(fim.situacao, 3) << chave;
    EXPECT_EQ(fim.erros, "cotepe: error: " + mensagem + "\n");
  }
  EXPECT_EQ(com("k.pem").situacao, 0);
  for (const char* chave : {"grandep.pem", "k.pem", "r.txt", "none"})
    EXPECT_EQ(comando({"verify-signature", "r.txt", "--public-key", chave}).situacao, 2) << chave;
}

TEST_F(Chaves, PolicyThatRefusesMd5IsNamed) {
  escreveArquivo(em("fips.cnf"),
                 "openssl_conf = inicio\n[inicio]\nalg_section = algoritmos\n[algoritmos]\n"
                 "default_properties = fips=yes\n");
  for (const std::vector<std::string>& argumentos :
       {std::vector<std::string>{"sign", "r.txt", "--key", "k.pem"},
        {"verify-signature", "r.txt", "--public-key", "p.pem"}}) {
    const Fim fim =
        Processo(argumentos).naPasta(pasta()).comAmbiente("OPENSSL_CONF", em("fips.cnf")).inicia().espera();
    EXPECT_EQ(fim.situacao, argumentos[0] == "sign" ? 3 : 2);
    EXPECT_EQ(
        fim.erros.substr(0, 94),
        "cotepe: error: the system's settings refuse MD5, which the law wants for a signature: error:03")
        << fim.erros;
  }
  const Fim fim = Processo({"public-key", "p.pem"})
                      .naPasta(pasta())
                      .comAmbiente("OPENSSL_CONF", em("fips.cnf"))
                      .inicia()
                      .espera();
  EXPECT_EQ(fim.situacao, 3);
  EXPECT_EQ(fim.erros.substr(0, 68), "cotepe: error: the system's settings refuse RSA with 1024 bits, whic")
      << fim.erros;
}

TEST_F(Chaves, PublicKeyTurnsEveryFormIntoTheOther) {
  const std::string xml = shell(
      COTEPE_PROGRAMA " public-key c8.pem --passphrase-file /dev/fd/3 --name 'A & B' 3<<FIM\nabre\nFIM\n");
  EXPECT_EQ(xml.substr(0, 60), "<empresa_desenvolvedora><nome>A &amp; B</nome><chave><modulo") << xml;
  escreveArquivo(em("n.xml"), xml);
  EXPECT_EQ(comando({"public-key", "n.xml"}).saida, xml);
  EXPECT_EQ(comando({"public-key", "n.xml", "--format", "pem"}).saida, leArquivo(em("p.pem")));
  EXPECT_EQ(comando({"public-key", "k.pem", "--format", "pem"}).saida, leArquivo(em("p.pem")));
  const Fim semNome = comando({"public-key", "p.pem"});
  EXPECT_EQ(semNome.saida, leArquivo(em("p.xml")));
  EXPECT_EQ(semNome.erros, "cotepe: the element nome is empty; --name fills it\n");
  EXPECT_EQ(shell(COTEPE_OPENSSL " rsa -in k.pem -pubout 2>/dev/null"), leArquivo(em("p.pem")));
  EXPECT_EQ(comando({"public-key", "p.pem", "--format", "pem", "--name", "x"}).situacao, 2);
  EXPECT_EQ(comando({"public-key", "p.pem", "--output", "p.xml"}).situacao, 3);
  EXPECT_EQ(comando({"public-key", "p.pem", "--output", "q.xml", "--name", "q"}).situacao, 0);
  EXPECT_EQ(comando({"public-key", "q.xml", "--format", "pem"}).saida, leArquivo(em("p.pem")));
}

}  // namespace
