#include "Exportacao/Exportacao.h"

#include "Idioma/Idioma.h"
#include "Leiaute/Releitura.h"
#include "Sistema/Falha.h"

namespace cotepe::exportacao {
namespace {

constexpr long kLinhasEntrePulsos = 4096;

const char* fimDe(const LinhaLida& linha) { return linha.semFim ? "" : linha.comCr ? "\r\n" : "\n"; }

void identifica(ArquivoExportado& arquivo, const RegistroLido& lido) {
  const auto aprende = [&lido](std::string& texto, const char* rotulo) {
    if (texto.empty()) texto = semBrancosNoFim(lido.bytesDe(rotulo));
  };
  if (lido.registro == &kE01) {
    aprende(arquivo.fabricacao, "Nº de fabricação");
    aprende(arquivo.modelo, "Modelo");
    aprende(arquivo.comando, "Comando de geração");
    aprende(arquivo.cnpj, "CNPJ do usuário");
  } else if (arquivo.fabricacao.empty() && !lido.vazio) {
    aprende(arquivo.fabricacao, "Nº de fabricação do ECF");
    aprende(arquivo.modelo, "Modelo do ECF");
  }
}

[[noreturn]] void longaDemais(const std::string& nome, const LinhaLida& linha) {
  throw programa::Falha(programa::kUsoErrado,
                        frase("cannot export {1}: line {2} has {3} bytes; see cotepe validate",
                              {nome, std::to_string(linha.numero), std::to_string(linha.tamanho)}));
}

}  // namespace

void exporta(LeitorDeLinhas& linhas, long numero, const std::string& nome, DestinoDaExportacao& destino,
             const std::function<void()>& pulsa) {
  LeitorDeRegistros leitor(linhas);
  ArquivoExportado arquivo;
  arquivo.numero = numero;
  arquivo.nome = nome;
  LinhaTipada tipada;
  std::string literal;
  for (RegistroLido lido; leitor.proximo(lido);) {
    const LinhaLida& linha = lido.linha;
    if (linha.texto.size() != linha.tamanho) longaDemais(nome, linha);
    const char* fim = fimDe(linha);
    if (arquivo.linhas == 0) arquivo.fim = fim;
    arquivo.linhas = linha.numero;
    arquivo.bytes = linha.posicao + linha.tamanho + std::string_view(fim).size();
    bool exata = arquivo.fim == fim;
    if (lido.registro != nullptr) {
      identifica(arquivo, lido);
      tipada.le(lido);
      if (!exata) tipada.naoExata();
      exata = tipada.forma() != LinhaTipada::kLiteral;
      destino.registro(arquivo, lido, tipada);
    }
    if (!exata || lido.registro == nullptr) {
      literal.assign(linha.texto).append(fim);
      destino.literal(arquivo, linha.numero, literal);
    }
    if (linha.numero % kLinhasEntrePulsos == 0) pulsa();
  }
  arquivo.leiaute = leitor.ajuste();
  if (linhas.erro() == 0) destino.arquivo(arquivo);
}

}  // namespace cotepe::exportacao
