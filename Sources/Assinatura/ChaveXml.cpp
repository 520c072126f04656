#include "Assinatura/ChaveXml.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "Assinatura/LinhaEad.h"

namespace cotepe {
namespace {

constexpr std::string_view kBrancos = " \t\r\n";
constexpr std::size_t kNiveis = 100;  // of nested elements

bool comeca(std::string_view texto, std::string_view inicio) {
  return texto.substr(0, inicio.size()) == inicio;
}

struct Entidade {
  std::string_view escrita;
  char caractere;
};
constexpr Entidade kEntidades[] = {
    {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};

std::string semEntidades(std::string_view texto) {
  std::string saida;
  while (!texto.empty()) {
    std::size_t lidos = 1;
    char caractere = texto.front();
    for (const Entidade& entidade : kEntidades) {
      if (!comeca(texto, entidade.escrita)) continue;
      caractere = entidade.caractere;
      lidos = entidade.escrita.size();
    }
    saida += caractere;
    texto.remove_prefix(lidos);
  }
  return saida;
}

std::string comEntidades(std::string_view texto) {
  std::string saida;
  for (const char c : texto) {
    std::string_view escrita(&c, 1);
    for (const Entidade& entidade : kEntidades)
      if (c == entidade.caractere && c != '"' && c != '\'') escrita = entidade.escrita;
    saida += escrita;
  }
  return saida;
}

// The digits without separators and leading zeros; false when there are none, or something else.
bool leDigitos(std::string_view texto, std::string& digitos) {
  digitos.clear();
  bool algum = false;
  for (const char c : texto) {
    if (kBrancos.find(c) != std::string_view::npos) continue;
    const int valor = valorDoDigito(c);
    if (valor < 0) return false;
    algum = true;
    if (valor != 0 || !digitos.empty()) digitos += "0123456789ABCDEF"[valor];
  }
  return algum;
}

// The elements of a document, one after the other. Whatever it does not know, such as a document type, it
// treats as not XML: a key needs none of it.
class DocumentoXml {
 public:
  explicit DocumentoXml(std::string_view texto) : resto_(texto) {}

  FaltaDaChaveXml le(ChaveXml& chave) {
    if (comeca(resto_, "\xEF\xBB\xBF")) resto_.remove_prefix(3);
    while (!resto_.empty()) {
      if (resto_.front() != '<') {
        passaTexto();
      } else if (!passaMarca(chave)) {
        return FaltaDaChaveXml::NaoEXml;
      }
      if (falta_ != FaltaDaChaveXml::Nenhuma) return falta_;
    }
    if (!abertos_.empty() || !raiz_) return FaltaDaChaveXml::NaoEXml;
    if (!modulo_) return FaltaDaChaveXml::SemModulo;
    return expoente_ ? FaltaDaChaveXml::Nenhuma : FaltaDaChaveXml::SemExpoente;
  }

 private:
  void passaTexto() {
    const std::string_view texto = resto_.substr(0, resto_.find('<'));
    resto_.remove_prefix(texto.size());
    if (!abertos_.empty())
      conteudo_.append(texto);
    else if (texto.find_first_not_of(kBrancos) != std::string_view::npos)
      falta_ = FaltaDaChaveXml::NaoEXml;
  }

  bool passaAte(std::string_view fim) {
    const std::size_t onde = resto_.find(fim);
    if (onde == std::string_view::npos) return false;
    resto_.remove_prefix(onde + fim.size());
    return true;
  }

  bool passaMarca(ChaveXml& chave) {
    if (comeca(resto_, "<?")) return passaAte("?>");
    if (comeca(resto_, "<!--")) return passaAte("-->");
    const std::size_t fim = resto_.find('>');
    if (fim == std::string_view::npos || comeca(resto_, "<!")) return false;
    std::string_view marca = resto_.substr(1, fim - 1);
    resto_.remove_prefix(fim + 1);
    if (comeca(marca, "/")) return fecha(marca.substr(1), chave);
    const bool vazia = !marca.empty() && marca.back() == '/';
    if (vazia) marca.remove_suffix(1);
    const std::string_view nome = marca.substr(0, marca.find_first_of(kBrancos));
    return abre(nome) && (!vazia || fecha(nome, chave));
  }

  bool abre(std::string_view nome) {
    if (nome.empty() || abertos_.size() == kNiveis || (raiz_ && abertos_.empty())) return false;
    raiz_ = true;
    abertos_.push_back(nome);
    conteudo_.clear();
    return true;
  }

  bool fecha(std::string_view nome, ChaveXml& chave) {
    nome = nome.substr(0, nome.find_last_not_of(kBrancos) + 1);
    if (abertos_.empty() || abertos_.back() != nome) return false;
    abertos_.pop_back();
    if (nome == "nome") chave.nome = semEntidades(conteudo_);
    if (nome == "modulo") toma(chave.modulo, modulo_);
    if (nome == "expoente_publico") toma(chave.expoente, expoente_);
    conteudo_.clear();
    return true;
  }

  void toma(std::string& digitos, bool& tomado) {
    if (tomado)
      falta_ = FaltaDaChaveXml::Repetida;
    else if (!leDigitos(conteudo_, digitos))
      falta_ = FaltaDaChaveXml::NaoEHexadecimal;
    tomado = true;
  }

  std::string_view resto_;
  std::vector<std::string_view> abertos_;
  std::string conteudo_;
  FaltaDaChaveXml falta_ = FaltaDaChaveXml::Nenhuma;
  bool raiz_ = false, modulo_ = false, expoente_ = false;
};

std::string ate(std::size_t largura, const std::string& digitos) {
  return digitos.size() >= largura ? digitos : std::string(largura - digitos.size(), '0') + digitos;
}

}  // namespace

FaltaDaChaveXml leChaveXml(std::string_view texto, ChaveXml& chave) {
  chave = {};
  return DocumentoXml(texto).le(chave);
}

std::string escreveChaveXml(const ChaveXml& chave) {
  return "<empresa_desenvolvedora><nome>" + comEntidades(chave.nome) + "</nome><chave><modulo>" +
         ate(kDigitosDaAssinatura, chave.modulo) + "</modulo><expoente_publico>" +
         ate(std::max<std::size_t>(2, chave.expoente.size() + chave.expoente.size() % 2), chave.expoente) +
         "</expoente_publico></chave></empresa_desenvolvedora>\n";
}

}  // namespace cotepe
