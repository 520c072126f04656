// MD5, which the law requires for the hash of a delivered file. It protects against accidents only.
#pragma once

#include <memory>
#include <string_view>

#include "Assinatura/LinhaEad.h"

struct evp_md_ctx_st;

namespace cotepe {

/// The hash of the bytes so far. Throws ErroDaAssinatura (Md5Recusado) and std::bad_alloc.
class Md5 {
 public:
  Md5();

  void soma(std::string_view bytes);

  /// More bytes may follow.
  ResumoMd5 resumo() const;

 private:
  struct Libera {
    void operator()(evp_md_ctx_st* contexto) const noexcept;
  };

  std::unique_ptr<evp_md_ctx_st, Libera> contexto_;
};

}  // namespace cotepe
