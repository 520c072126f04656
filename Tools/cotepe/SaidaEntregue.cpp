#include "SaidaEntregue.h"

#include <cerrno>
#include <utility>

#include "ArquivoLido.h"
#include "Assinatura/ErroDaAssinatura.h"
#include "EscritaEmArquivo.h"
#include "Idioma/Idioma.h"
#include "Sistema/ArquivoSeguro.h"
#include "Sistema/PalavrasDoArquivo.h"

namespace cotepe::programa {
namespace {

class SaidaEntregue final : public Saida {
 public:
  SaidaEntregue(const std::string& destino, const std::string& apelido, bool substitui, Preparo preparo)
      : destino_(destino),
        substitui_(substitui),
        preparo_(std::move(preparo)),
        plano_(destino, apelido),
        pronto_(destino, apelido) {}  // throws FalhaDeArquivo

  std::string temporario() const override { return plano_.temporario(); }
  std::int64_t tamanho() const override { return pronto_.tamanho(); }
  std::string nome() const override { return destino_; }

  void entrega() override { publica(destino_, preparo_); }

  std::string guardaParcial() override {
    std::string parcial = nomeDoParcial(destino_);
    publica(parcial, preparaSemAssinatura);
    return parcial;
  }

  std::string abandona() override {
    const std::string temporario = pronto_.temporario();
    const bool feito = plano_.descarta() && pronto_.descarta();
    if (temporario.empty()) return {};
    return feito ? traduz("the temporary file was removed")
                 : frase("remove the temporary file {1}", {temporario});
  }

 private:
  void publica(const std::string& destino, const Preparo& preparo) {
    const ArquivoLido lido(plano_.temporario(), kNaoEscreve);
    EscritaEmArquivo escrita(pronto_.temporario(), destino);
    preparo([&](char* bytes, std::size_t tamanho) { return lido.le(bytes, tamanho); },
            [&](std::string_view bytes) { escrita.escreve(bytes); });
    escrita.conclui();
    emPalavras([&] { pronto_.publica(destino, substitui_); });
    plano_.descarta();
  }

  std::string destino_;
  bool substitui_;
  Preparo preparo_;
  ArquivoSeguro plano_, pronto_;
};

}  // namespace

void preparaSemAssinatura(const LeituraDeBytes& le, const EscritaDeBytes& escreve) {
  FormaDeEntrega forma(FinsDeLinha::CrLf, escreve);
  try {
    passaTudo(le, forma);
  } catch (const ErroDaAssinatura& erro) {
    throw Falha(kNaoEscreve,
                frase("cannot read the temporary file of {1} again: {2}; check the disk and try again",
                      {"--deliver", motivoDoSistema(static_cast<int>(erro.numero()))}));
  }
}

std::unique_ptr<Saida> saidaEntregue(const std::string& destino, const std::string& apelido, bool substitui,
                                     bool guarda, Preparo preparo) {
  return emPalavras([&] {
    exigeDestino(destino, substitui);
    if (guarda) exigeDestino(nomeDoParcial(destino), substitui);
    return std::make_unique<SaidaEntregue>(destino, apelido, substitui, std::move(preparo));
  });
}

}  // namespace cotepe::programa
