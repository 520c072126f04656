// Allocations that are counted, and denied when a test asks for it: those of the global operator new, which
// is replaced beside this header, and of any other allocator that asks here.
#pragma once

namespace cotepe::testes {

/// One kind of allocation of this process.
class MemoriaContada {
 public:
  /// The allocation after `boas` good ones fails, alone or with all that follow it, until `concede`.
  void falha(long boas, bool paraSempre) {
    pedidos_ = falhas_ = 0;
    boas_ = boas;
    paraSempre_ = paraSempre;
  }
  /// None fails from now on. Returns how many have failed.
  long concede() {
    boas_ = -1;
    return falhas_;
  }

  /// How many were asked for since `falha` was last called.
  long pedidos() const { return pedidos_; }

  /// What is held now.
  long pendentes() const { return pendentes_; }

  ///@{
  /// For the allocators alone: whether this one is to fail; a block more or less is held.
  bool nega() {
    const long este = pedidos_++;
    const bool negada = boas_ >= 0 && (este == boas_ || (paraSempre_ && este > boas_));
    if (negada) ++falhas_;
    return negada;
  }
  void conta(int blocos) { pendentes_ += blocos; }
  ///@}

 private:
  long boas_ = -1;
  long pedidos_ = 0, falhas_ = 0, pendentes_ = 0;
  bool paraSempre_ = false;
};

/// What operator new gives, in every form.
extern MemoriaContada g_memoria;

}  // namespace cotepe::testes
