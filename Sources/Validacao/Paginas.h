// A list of any length that keeps little in memory.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace cotepe {

class ArquivoSemNome;

/// A file without a name in TMPDIR, created when something is first written.
class ArquivoTemporario {
 public:
  ArquivoTemporario();
  ~ArquivoTemporario();
  ArquivoTemporario(const ArquivoTemporario&) = delete;
  ArquivoTemporario& operator=(const ArquivoTemporario&) = delete;

  /// Returns false when there is no such file or no room in it.
  bool escreve(std::uint64_t posicao, const void* bytes, std::size_t quantos);
  /// What was written there. Throws std::runtime_error when it cannot be read again.
  void le(std::uint64_t posicao, void* bytes, std::size_t quantos) const;

 private:
  void abre();

  std::unique_ptr<ArquivoSemNome> arquivo_;
  bool tentado_ = false;
};

/// A list of plain values. Pages not used recently are kept in a temporary file, so that memory does not grow
/// while the list is accessed roughly sequentially; when there is no room for the file, everything stays in
/// memory.
template <class T>
class Paginas {
 public:
  static constexpr std::size_t kPorPagina = (std::size_t{1} << 16) / sizeof(T);
  static constexpr std::size_t kNaMemoria = 8;

  std::size_t size() const { return quantos_; }

  /// The new value; as of `em`.
  T& acrescenta(const T& valor) {
    if (quantos_ % kPorPagina == 0) paginas_.emplace_back();
    T& novo = em(quantos_++);
    novo = valor;
    return novo;
  }

  /// Valid until the next call of either.
  T& em(std::size_t i) {
    const std::size_t numero = i / kPorPagina;
    if (numero != atual_) abre(numero);
    return paginas_[numero][i % kPorPagina];
  }

 private:
  static constexpr std::size_t kNenhuma = SIZE_MAX;
  static constexpr std::size_t kBytes = kPorPagina * sizeof(T);

  void abre(std::size_t numero) {
    if (paginas_[numero] == nullptr) {
      std::unique_ptr<T[]> pagina = lugarLivre();
      if (numero < guardadas_.size() && guardadas_[numero])
        arquivo_.le(numero * kBytes, pagina.get(), kBytes);
      paginas_[numero] = std::move(pagina);
      abertas_.push_back(numero);
    }
    atual_ = numero;
  }

  // The page that was opened first goes to the file to make room.
  std::unique_ptr<T[]> lugarLivre() {
    if (semLugar_ || abertas_.size() < kNaMemoria) return std::make_unique<T[]>(kPorPagina);
    const std::size_t numero = abertas_.front();
    semLugar_ = !arquivo_.escreve(numero * kBytes, paginas_[numero].get(), kBytes);
    if (semLugar_) return std::make_unique<T[]>(kPorPagina);
    guardadas_.resize(std::max(guardadas_.size(), numero + 1));
    guardadas_[numero] = true;
    abertas_.erase(abertas_.begin());
    return std::move(paginas_[numero]);
  }

  std::vector<std::unique_ptr<T[]>> paginas_;  // null for those in the file
  std::vector<bool> guardadas_;                // that have been written before
  std::vector<std::size_t> abertas_;           // in the order in which they were opened
  std::size_t quantos_ = 0, atual_ = kNenhuma;
  bool semLugar_ = false;
  ArquivoTemporario arquivo_;
};

}  // namespace cotepe
