#include "Saida.h"

#include <algorithm>
#include <cerrno>
#include <vector>

#include "Corrida/Corrida.h"
#include "Idioma/Idioma.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/Descritor.h"
#include "Sistema/Falha.h"
#include "Sistema/PalavrasDoArquivo.h"

namespace cotepe::programa {
namespace {

class SaidaEmArquivo final : public Saida {
 public:
  SaidaEmArquivo(const std::string& destino, const std::string& apelido, bool substitui)
      : destino_(destino), substitui_(substitui), arquivo_(destino, apelido) {}  // throws FalhaDeArquivo

  std::string temporario() const override { return arquivo_.temporario(); }
  std::int64_t tamanho() const override { return arquivo_.tamanho(); }
  std::string nome() const override { return destino_; }
  void entrega() override {
    emPalavras([this] { arquivo_.publica(destino_, substitui_); });
  }

  std::string guardaParcial() override {
    std::string parcial = nomeDoParcial(destino_);
    emPalavras([&] { arquivo_.publica(parcial, substitui_); });
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

class SaidaPadrao final : public Saida {
 public:
  std::string temporario() const override { return arquivo_.caminho(); }
  std::int64_t tamanho() const override { return tamanhoDe(arquivo_.numero()); }
  std::string nome() const override { return "stdout"; }

  void entrega() override {
    std::vector<char> bloco(std::size_t{1} << 16);
    comecou_ = true;
    const auto total = static_cast<std::uint64_t>(tamanho());
    for (std::uint64_t posicao = 0; posicao < total;) {
      const auto quantos = static_cast<std::size_t>(std::min<std::uint64_t>(bloco.size(), total - posicao));
      if (!leEm(arquivo_.numero(), posicao, bloco.data(), quantos)) naoLe(errno);
      escreveTudo(kSaidaPadrao, {bloco.data(), quantos}, "stdout");
      posicao += quantos;
    }
    confirmaEscrita(kSaidaPadrao, "stdout");
  }

  std::string abandona() override {
    return traduz(comecou_ ? marca("what stdout got is not whole") : marca("nothing was written to stdout"));
  }

 private:
  [[noreturn]] static void naoLe(int erro) {
    throw Falha(kNaoEscreve,
                frase("cannot read the temporary file of {1} again: {2}; check the disk and try again",
                      {"stdout", motivoDoSistema(erro)}));
  }

  ArquivoSemNome arquivo_ = arquivoTemporario();
  bool comecou_ = false;
};

}  // namespace

std::string nomeDoParcial(const std::string& destino) { return destino + ".partial"; }

std::unique_ptr<Saida> saidaEmArquivo(const std::string& destino, const std::string& apelido, bool substitui,
                                      bool guarda) {
  return emPalavras([&] {
    exigeDestino(destino, substitui);
    if (guarda) exigeDestino(nomeDoParcial(destino), substitui);
    return std::make_unique<SaidaEmArquivo>(destino, apelido, substitui);
  });
}

std::unique_ptr<Saida> saidaPadrao() { return std::make_unique<SaidaPadrao>(); }

}  // namespace cotepe::programa
