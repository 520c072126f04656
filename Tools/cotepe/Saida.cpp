#include "Saida.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "Idioma/Idioma.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

class SaidaEmArquivo final : public Saida {
 public:
  SaidaEmArquivo(const std::string& destino, const std::string& apelido, bool substitui)
      : destino_(destino), substitui_(substitui), arquivo_(destino, apelido) {}

  std::string temporario() const override { return arquivo_.temporario(); }
  std::int64_t tamanho() const override { return arquivo_.tamanho(); }
  std::string nome() const override { return destino_; }
  void entrega() override { arquivo_.publica(destino_, substitui_); }

  std::string guardaParcial() override {
    std::string parcial = nomeDoParcial(destino_);
    arquivo_.publica(parcial, substitui_);
    return parcial;
  }

  std::string abandona() override {
    const std::string temporario = arquivo_.temporario();
    if (temporario.empty()) return {};
    return arquivo_.descarta() ? traduz("the temporary file was removed")
                               : frase("remove the temporary file {1}", {temporario});
  }

 private:
  std::string destino_;
  bool substitui_;
  ArquivoSeguro arquivo_;
};

// A file without a name, so that a killed run leaves none behind. Where the file system has no such files, it
// has a name for a moment, and one that the next run knows for a leftover. Closed, and errno set, on failure.
Descritor arquivoSemNome(const std::string& pasta) {
  constexpr mode_t kSoDoDono = 0600;
  Descritor arquivo(open(pasta.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kSoDoDono));
  if (arquivo.aberto() || (errno != EOPNOTSUPP && errno != EISDIR)) return arquivo;
  return ArquivoSeguro(pasta + "/stdout", "", kSoDoDono).soltaSemNome();
}

class SaidaPadrao final : public Saida {
 public:
  SaidaPadrao() {
    const char* dada = std::getenv("TMPDIR");
    const std::string pasta = dada != nullptr && *dada != '\0' ? dada : "/tmp";
    arquivo_ = arquivoSemNome(pasta);
    if (arquivo_.aberto()) return;
    throw Falha(
        kNaoAbre,
        frase("cannot create a temporary file in {1}: {2}; set TMPDIR to a folder where files can be created",
              {pasta, motivoDoSistema(errno)}));
  }

  std::string temporario() const override { return "/proc/self/fd/" + std::to_string(arquivo_.numero()); }

  std::int64_t tamanho() const override {
    struct stat situacao {};
    return fstat(arquivo_.numero(), &situacao) == 0 ? situacao.st_size : 0;
  }

  std::string nome() const override { return "stdout"; }

  void entrega() override {
    std::vector<char> bloco(std::size_t{1} << 16);
    comecou_ = true;
    for (off_t posicao = 0;;) {
      const ssize_t lidos = pread(arquivo_.numero(), bloco.data(), bloco.size(), posicao);
      if (lidos < 0) {
        throw Falha(kNaoEscreve,
                    frase("cannot read the temporary file of {1} again: {2}; check the disk and try again",
                          {"stdout", motivoDoSistema(errno)}));
      }
      if (lidos == 0) return confirmaEscrita(STDOUT_FILENO, "stdout");
      escreveTudo(STDOUT_FILENO, {bloco.data(), static_cast<std::size_t>(lidos)}, "stdout");
      posicao += lidos;
    }
  }

  std::string abandona() override {
    return traduz(comecou_ ? marca("what stdout got is not whole") : marca("nothing was written to stdout"));
  }

 private:
  Descritor arquivo_;
  bool comecou_ = false;
};

}  // namespace

std::string nomeDoParcial(const std::string& destino) { return destino + ".partial"; }

std::unique_ptr<Saida> saidaEmArquivo(const std::string& destino, const std::string& apelido, bool substitui,
                                      bool guarda) {
  exigeDestino(destino, substitui);
  if (guarda) exigeDestino(nomeDoParcial(destino), substitui);
  return std::make_unique<SaidaEmArquivo>(destino, apelido, substitui);
}

std::unique_ptr<Saida> saidaPadrao() { return std::make_unique<SaidaPadrao>(); }

}  // namespace cotepe::programa
