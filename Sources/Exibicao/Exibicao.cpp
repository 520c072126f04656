#include "Exibicao/Exibicao.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <unordered_map>

#include "Achados/Json.h"
#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"
#include "Leiaute/Releitura.h"
#include "Leitor/Valor.h"

namespace cotepe {
namespace {

constexpr std::size_t kColunaMaxima = 40;  // of a table, in characters

std::string alinhado(std::string texto, std::size_t largura, bool aDireita = false) {
  const std::size_t n = caracteresUtf8(texto);
  if (n >= largura) return texto;
  return aDireita ? std::string(largura - n, ' ') + texto : texto + std::string(largura - n, ' ');
}

/// Does the masking for all of them.
class Base : public Exibicao {
 public:
  Base(std::ostream& saida, bool mascara) : saida_(saida), mascara_(mascara) {}

 protected:
  bool escondido(const RegistroLido& lido, std::size_t i) const {
    return mascara_ && lido.campos[i].campo->dadoPessoal;
  }

  Valor valor(const RegistroLido& lido, std::size_t i) const {
    if (escondido(lido, i)) return {TipoDeValor::Texto, mascarado(lido.bytes(i))};
    return valorDe(lido, i);
  }

  std::string legivel(const RegistroLido& lido, std::size_t i) const {
    return paraPessoas(valor(lido, i), lido.bytes(i));
  }

  std::ostream& saida_;

 private:
  bool mascara_;
};

class EmTexto final : public Base {
 public:
  using Base::Base;

  void mostra(const RegistroLido& lido) override {
    if (!primeiro_) saida_ << '\n';
    primeiro_ = false;
    saida_ << titulo(lido) << '\n';
    if (lido.registro == nullptr) return;
    std::size_t largura = 0;
    for (std::size_t i = 0; i < lido.quantos; ++i)
      largura = std::max(largura, caracteresUtf8(rotuloUnico(lido, i)));
    for (std::size_t i = 0; i < lido.quantos; ++i) {
      const std::string texto = legivel(lido, i);
      const std::string rotulo = rotuloUnico(lido, i);
      saida_ << "  " << (texto.empty() ? rotulo : alinhado(rotulo, largura + 2) + texto) << '\n';
    }
  }

 private:
  static std::string titulo(const RegistroLido& lido) {
    const std::string numero = std::to_string(lido.linha.numero);
    if (lido.assinatura()) return frase("line {1}: the signature of the report (EAD)", {numero});
    if (lido.registro == nullptr) return frase("line {1}: of no register", {numero});
    const char* modelo = !lido.medidaCerta ? marca("{1}, line {2}: {3} ({4} bytes instead of {5})")
                         : lido.vazio      ? marca("{1}, line {2}: {3} (placeholder)")
                                           : marca("{1}, line {2}: {3}");
    return frase(modelo, {lido.registro->codigo, numero, lido.registro->nome,
                          std::to_string(lido.linha.tamanho), std::to_string(lido.comprimento)});
  }

  bool primeiro_ = true;
};

class EmTabela final : public Base {
 public:
  using Base::Base;

  void mostra(const RegistroLido& lido) override {
    if (lido.registro == nullptr) return;
    if (lido.campos != campos_ || lido.indice != indice_) rotulos(lido);
    std::string linha = alinhado(std::to_string(lido.linha.numero), kLarguraDaLinha, true);
    for (std::size_t i = 0; i < lido.quantos; ++i) {
      if (cabecalho(lido, i)) continue;
      std::string texto = legivel(lido, i);
      if (texto.size() > kColunaMaxima) texto = texto.substr(0, kColunaMaxima - 3) + "...";
      linha += "  " + alinhado(texto, largura(lido, i), numerica(lido.campos[i].campo->especie));
    }
    saida_ << semBrancosNoFim(linha) << '\n';
  }

 private:
  static constexpr std::size_t kLarguraDaLinha = 8;

  static bool cabecalho(const RegistroLido& lido, std::size_t i) { return i < lido.cabecalho(); }

  static std::size_t largura(const RegistroLido& lido, std::size_t i) {
    const CampoLido& campo = lido.campos[i];
    const auto bytes = static_cast<std::size_t>(campo.largura);
    const std::size_t valor = bytes + (numerica(campo.campo->especie) ? bytes / 3 : 2);
    return std::max(std::min(valor, kColunaMaxima), caracteresUtf8(rotuloUnico(lido, i)));
  }

  void rotulos(const RegistroLido& lido) {
    if (indice_ >= 0) saida_ << '\n';
    campos_ = lido.campos;
    indice_ = lido.indice;
    saida_ << lido.registro->codigo << ": " << lido.registro->nome << '\n';
    std::string linha = alinhado(traduz("line"), kLarguraDaLinha, true);
    for (std::size_t i = 0; i < lido.quantos; ++i)
      if (!cabecalho(lido, i))
        linha +=
            "  " + alinhado(rotuloUnico(lido, i), largura(lido, i), numerica(lido.campos[i].campo->especie));
    saida_ << semBrancosNoFim(linha) << '\n';
  }

  const CampoLido* campos_ = nullptr;
  int indice_ = -1;
};

// Written piece by piece: a number keeps every digit and zero that it has in the report.
class EmJson final : public Base {
 public:
  using Base::Base;

  void mostra(const RegistroLido& lido) override {
    saida_ << "{\"line\":" << lido.linha.numero;
    if (lido.registro != nullptr) saida_ << R"(,"register":")" << lido.registro->codigo << '"';
    if (lido.vazio) saida_ << ",\"placeholder\":true";
    if (!lido.medidaCerta) saida_ << ",\"length\":" << lido.linha.tamanho;
    saida_ << ",\"fields\":{";
    for (std::size_t i = 0; i < lido.quantos; ++i)
      saida_ << (i == 0 ? "" : ",") << nome(lido, i) << ':' << emJson(valor(lido, i));
    saida_ << "}}\n";
  }

 private:
  static std::string emJson(const Valor& valor) {
    if (valor.tipo == TipoDeValor::Ausente) return "null";
    const bool numero = valor.tipo == TipoDeValor::Inteiro || valor.tipo == TipoDeValor::Decimal;
    return numero ? valor.texto : textoJson(valor.texto);
  }

  const std::string& nome(const RegistroLido& lido, std::size_t i) {
    const std::string rotulo = rotuloUnico(lido, i);
    std::string& nome = nomes_[rotulo];
    if (nome.empty()) nome = textoJson(rotulo);
    return nome;
  }

  std::unordered_map<std::string, std::string> nomes_;  // by label, as in JSON
};

std::string emCsv(const std::string& texto) {
  if (texto.find_first_of("\",\r\n") == std::string::npos) return texto;
  std::string citado = "\"";
  for (const char c : texto) citado += c == '"' ? std::string("\"\"") : std::string(1, c);
  return citado + '"';
}

class EmCsv final : public Base {
 public:
  EmCsv(std::ostream& saida, bool mascara) : Base(saida, mascara) {
    saida_ << "line,register,field,label,value\n";
  }

  void mostra(const RegistroLido& lido) override {
    for (std::size_t i = 0; i < lido.quantos; ++i)
      saida_ << lido.linha.numero << ',' << lido.registro->codigo << ',' << lido.campos[i].numero << ','
             << emCsv(rotuloUnico(lido, i)) << ',' << emCsv(valor(lido, i).texto) << '\n';
  }
};

class EmCsvDeUmRegistro final : public Base {
 public:
  using Base::Base;

  void mostra(const RegistroLido& lido) override {
    if (!comRotulos_) {
      saida_ << "line";
      for (std::size_t i = 0; i < lido.quantos; ++i) saida_ << ',' << emCsv(rotuloUnico(lido, i));
      saida_ << '\n';
      comRotulos_ = true;
    }
    saida_ << lido.linha.numero;
    for (std::size_t i = 0; i < lido.quantos; ++i) saida_ << ',' << emCsv(valor(lido, i).texto);
    saida_ << '\n';
  }

 private:
  bool comRotulos_ = false;
};

}  // namespace

std::unique_ptr<Exibicao> novaExibicao(FormatoDeExibicao formato, std::ostream& saida, bool mascara) {
  switch (formato) {
    case FormatoDeExibicao::Texto:
      return std::make_unique<EmTexto>(saida, mascara);
    case FormatoDeExibicao::Tabela:
      return std::make_unique<EmTabela>(saida, mascara);
    case FormatoDeExibicao::Json:
      return std::make_unique<EmJson>(saida, mascara);
    case FormatoDeExibicao::Csv:
      return std::make_unique<EmCsv>(saida, mascara);
    case FormatoDeExibicao::CsvDeUmRegistro:
      break;
  }
  return std::make_unique<EmCsvDeUmRegistro>(saida, mascara);
}

}  // namespace cotepe
