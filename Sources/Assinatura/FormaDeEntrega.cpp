#include "Assinatura/FormaDeEntrega.h"

#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "Assinatura/ErroDaAssinatura.h"

namespace cotepe {
namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";
constexpr std::size_t kE07SemCodigo = 18;  // a placeholder of E07 is exactly that many blanks

bool comeca(std::string_view texto, std::string_view inicio) {
  return texto.substr(0, inicio.size()) == inicio;
}

bool digito(char c) { return c >= '0' && c <= '9'; }

bool temRegistro(std::string_view linha) {
  if (linha.size() >= 3 && linha[0] == 'E' && digito(linha[1]) && digito(linha[2])) return true;
  return linha.size() == kE07SemCodigo && linha.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

FormaDeEntrega::FormaDeEntrega(FinsDeLinha fins, Destino destino, AoAcharEad aoAcharEad)
    : fins_(fins), destino_(std::move(destino)), aoAcharEad_(std::move(aoAcharEad)) {
  bloco_.reserve(kBloco);
}

void FormaDeEntrega::passa(std::string_view bytes) {
  while (!bytes.empty()) {
    const void* lf = std::memchr(bytes.data(), '\n', bytes.size());
    if (lf == nullptr) return guarda(bytes);
    const auto tamanho = static_cast<std::size_t>(static_cast<const char*>(lf) - bytes.data());
    if (pendente_.empty()) {
      linha(bytes.substr(0, tamanho), true);
    } else {
      pendente_.append(bytes, 0, tamanho);
      linha(pendente_, true);
      pendente_.clear();
    }
    bytes.remove_prefix(tamanho + 1);
  }
}

// The beginning of a line too long to be held is passed on; a CR at its end may belong to the line end.
void FormaDeEntrega::guarda(std::string_view bytes) {
  pendente_.append(bytes);
  if (pendente_.size() <= kLinha) return;
  if (!dentro_) comecaLinha(pendente_);
  dentro_ = true;
  const std::size_t cr = pendente_.back() == '\r' ? 1 : 0;
  const std::string_view parte = std::string_view(pendente_).substr(0, pendente_.size() - cr);
  if (parte.find('\r') != std::string_view::npos) estranha(Estranheza::CrNaLinha);
  escreve(parte);
  adiante_ += parte.size();
  pendente_.assign(cr, '\r');
}

void FormaDeEntrega::termina() {
  if (!pendente_.empty() || dentro_) linha(pendente_, false);
  pendente_.clear();
  if (linhas_ == (guardada_ ? 1 : 0)) estranha(Estranheza::Vazio);
  despeja();
}

void FormaDeEntrega::linha(std::string_view texto, bool comLf) {
  const bool comCr = !texto.empty() && texto.back() == '\r' && comLf;
  const std::string_view conteudo = texto.substr(0, texto.size() - (comCr ? 1 : 0));
  if (!dentro_) comecaLinha(conteudo);
  const std::uint64_t lidos = adiante_ + texto.size() + (comLf ? 1 : 0);
  if (comLf) ++(comCr ? comCrLf_ : comLf_);
  semFim_ = !comLf;
  if (conteudo.find('\r') != std::string_view::npos) estranha(Estranheza::CrNaLinha);
  if (!dentro_ && comeca(conteudo, "EAD")) {
    guardaEad(conteudo, posicao_ + lidos);
    guardadaComCr_ = comCr;
    guardadaComLf_ = comLf;
  } else {
    escreveLinha(conteudo, comCr, comLf);
  }
  posicao_ += lidos;
  adiante_ = 0;
  dentro_ = false;
}

// Recognizes a line by its first bytes.
void FormaDeEntrega::comecaLinha(std::string_view texto) {
  ++linhas_;
  if (guardada_) soltaEad();
  if (linhas_ == 1 && comeca(texto, kBom)) {
    bom_ = true;
    return estranha(Estranheza::Bom);
  }
  if (comeca(texto, "EAD")) return;
  if (linhas_ == 1 && !comeca(texto, "E01")) return estranha(Estranheza::PrimeiraNaoEE01);
  if (!temRegistro(texto)) estranha(Estranheza::SemRegistro);
}

void FormaDeEntrega::guardaEad(std::string_view texto, std::uint64_t fim) {
  despeja();
  ++eads_;
  guardada_ = true;
  ultima_.texto = texto;
  ultima_.linha = linhas_;
  ultima_.posicao = posicao_;
  ultima_.fim = fim;
  if (eads_ == 1) primeira_ = ultima_;
  if (aoAcharEad_) aoAcharEad_(ultima_);
}

// The line held back is not the last one.
void FormaDeEntrega::soltaEad() {
  estranha(Estranheza::EadNoMeio);
  guardada_ = false;
  escreveLinha(ultima_.texto, guardadaComCr_, guardadaComLf_);
}

void FormaDeEntrega::escreveLinha(std::string_view texto, bool comCr, bool comLf) {
  if (tiraBom_ && bom_ && linhas_ == 1 && !dentro_) texto.remove_prefix(kBom.size());
  escreve(texto);
  if (fins_ == FinsDeLinha::CrLf || (fins_ == FinsDeLinha::ComoEstao && comCr)) escreve("\r");
  if (comLf || fins_ != FinsDeLinha::ComoEstao) escreve("\n");
}

void FormaDeEntrega::escreve(std::string_view bytes) {
  if (bloco_.size() + bytes.size() > kBloco) despeja();
  if (bytes.size() > kBloco) return destino_(bytes);
  bloco_.append(bytes);
}

void FormaDeEntrega::despeja() {
  if (!bloco_.empty()) destino_(bloco_);
  bloco_.clear();
}

void FormaDeEntrega::estranha(Estranheza qual) {
  if (estranheza_ != Estranheza::Nenhuma) return;
  estranheza_ = qual;
  linhaEstranha_ = linhas_;
}

void passaTudo(const LeituraDeBytes& le, FormaDeEntrega& forma) {
  std::vector<char> bloco(FormaDeEntrega::kBloco);
  for (;;) {
    const long lidos = le(bloco.data(), bloco.size());
    if (lidos < 0) throw ErroDaAssinatura(ProblemaDaAssinatura::Leitura, errno);
    if (lidos == 0) break;
    forma.passa({bloco.data(), static_cast<std::size_t>(lidos)});
  }
  forma.termina();
}

}  // namespace cotepe
