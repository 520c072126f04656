#include "CenaDeAssinatura.h"

#include <array>
#include <cstdio>

#include "Chaves.h"

CenaDeAssinatura::CenaDeAssinatura() {
  criaBanco();
  EXPECT_EQ(gera({"--output", "r.txt", "--quiet"}).situacao, 0);
  escreveArquivo(em("k.pem"), chavePem());
  escreveArquivo(em("p.pem"), chavePublica().pem());
  escreveArquivo(em("p.xml"), chavePublica().xml());
}

Fim CenaDeAssinatura::assina(const std::vector<std::string>& mais) const {
  std::vector<std::string> todos = {"sign", "r.txt", "--key", "k.pem"};
  todos.insert(todos.end(), mais.begin(), mais.end());
  return comando(todos);
}

Fim CenaDeAssinatura::confere(const std::string& relatorio, const std::vector<std::string>& mais) const {
  std::vector<std::string> todos = {"verify-signature", relatorio, "--public-key", "p.xml"};
  todos.insert(todos.end(), mais.begin(), mais.end());
  return comando(todos);
}

std::string CenaDeAssinatura::shell(const std::string& comando) const {
  std::FILE* tubo = popen(("cd '" + pasta() + "' && " + comando).c_str(), "r");
  std::string saida;
  std::array<char, 4096> bloco{};
  for (std::size_t n = 0; (n = std::fread(bloco.data(), 1, bloco.size(), tubo)) != 0;)
    saida.append(bloco.data(), n);
  EXPECT_EQ(pclose(tubo), 0) << comando;
  return saida;
}
