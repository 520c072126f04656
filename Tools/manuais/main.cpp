// cotepe_manuais FOLDER: writes manual pages and completion files below a folder.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

#include "Completacao.h"
#include "Manual.h"

namespace {

using namespace cotepe::manuais;

void grava(const std::filesystem::path& arquivo, const std::string& texto) {
  std::filesystem::create_directories(arquivo.parent_path());
  std::ofstream saida;
  saida.exceptions(std::ios::failbit | std::ios::badbit);
  saida.open(arquivo, std::ios::binary);
  saida << texto;
  saida.close();
}

void gravaTudo(const std::filesystem::path& pasta) {
  const auto comandos = comandosDoPrograma();
  for (std::size_t i = 0; i < comandos.size(); ++i)
    grava(pasta / "man1" / (nomeDaPagina(comandos, i) + ".1"), pagina(comandos, i, COTEPE_VERSAO));
  grava(pasta / "zsh" / "_cotepe", completacaoDoZsh(comandos));
  grava(pasta / "fish" / "cotepe.fish", completacaoDoFish(comandos));
  grava(pasta / "bash" / "cotepe", completacaoDoBash(comandos));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    gravaTudo(argv[1]);
    return 0;
  } catch (const std::exception& erro) {
    static_cast<void>(std::fprintf(stderr, "cotepe_manuais: %s\n", erro.what()));
    return 1;
  }
}
