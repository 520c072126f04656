#include "Leitor/LeitorDeLinhas.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "Sistema/Arquivo.h"

namespace cotepe {
namespace {

long leDescritor(int descritor, char* destino, std::size_t tamanho) {
  for (;;) {
    const long lidos = leDe(descritor, destino, tamanho);
    if (lidos >= 0 || errno != EINTR) return lidos;
  }
}

auto doDescritor(int descritor) {
  return [descritor](char* destino, std::size_t tamanho) { return leDescritor(descritor, destino, tamanho); };
}

auto daMemoria(std::string_view memoria) {
  return [memoria](char* destino, std::size_t tamanho) mutable {
    const std::size_t n = std::min(tamanho, memoria.size());
    if (n != 0) std::memcpy(destino, memoria.data(), n);
    memoria.remove_prefix(n);
    return static_cast<long>(n);
  };
}

}  // namespace

LeitorDeLinhas::LeitorDeLinhas(int descritor) : LeitorDeLinhas(doDescritor(descritor)) {}

LeitorDeLinhas::LeitorDeLinhas(std::string_view memoria) : LeitorDeLinhas(daMemoria(memoria)) {}

LeitorDeLinhas::LeitorDeLinhas(Leitura leitura) : leitura_(std::move(leitura)), buffer_(kBloco) {}

bool LeitorDeLinhas::proxima(LinhaLida& linha) {
  for (;;) {
    if (procurado_ < fim_) {
      const void* lf = std::memchr(buffer_.data() + procurado_, '\n', fim_ - procurado_);
      if (lf != nullptr)
        return entrega(linha, static_cast<std::size_t>(static_cast<const char*>(lf) - buffer_.data()), true);
      procurado_ = fim_;
    }
    if (!enche()) return entregaUltima(linha);
  }
}

bool LeitorDeLinhas::entrega(LinhaLida& linha, std::size_t fim, bool comFim) {
  const std::size_t presentes = fim - inicio_;
  linha.tamanho = presentes + cortados_;
  linha.comCr = comFim && presentes != 0 && buffer_[fim - 1] == '\r';
  if (linha.comCr) --linha.tamanho;
  const std::size_t guardados = cortados_ != 0 ? kGuardado : static_cast<std::size_t>(linha.tamanho);
  linha.texto = {buffer_.data() + inicio_, guardados};
  linha.numero = ++numero_;
  linha.posicao = posicao_;
  linha.semFim = !comFim;
  posicao_ += presentes + cortados_ + (comFim ? 1 : 0);
  inicio_ = procurado_ = fim + (comFim ? 1 : 0);
  cortados_ = 0;
  return true;
}

bool LeitorDeLinhas::entregaUltima(LinhaLida& linha) {
  if (erro_ != 0 || inicio_ == fim_) return false;
  return entrega(linha, fim_, false);
}

// Leaves room at the end of the buffer. The line being read moves to its front; one that fills it makes it
// grow, and at the limit loses what follows the bytes that are kept.
void LeitorDeLinhas::abreEspaco() {
  if (inicio_ != 0) {
    std::memmove(buffer_.data(), buffer_.data() + inicio_, fim_ - inicio_);
    fim_ -= inicio_;
    inicio_ = 0;
  }
  if (fim_ == buffer_.size()) {
    if (buffer_.size() < kMaximo) {
      buffer_.resize(2 * buffer_.size());
    } else {
      cortados_ += fim_ - kGuardado;
      fim_ = kGuardado;
    }
  }
  procurado_ = fim_;
}

bool LeitorDeLinhas::enche() {
  if (acabou_) return false;
  abreEspaco();
  const long lidos = leitura_(buffer_.data() + fim_, buffer_.size() - fim_);
  if (lidos <= 0) {
    acabou_ = true;
    erro_ = lidos < 0 ? errno : 0;
    return false;
  }
  fim_ += static_cast<std::size_t>(lidos);
  return true;
}

}  // namespace cotepe
