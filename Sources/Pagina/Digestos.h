// The digests that identify a file.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace cotepe::pagina {

/// MD5 and SHA-256 of bytes that come in pieces; empty when the build has no OpenSSL.
class Digestos {
 public:
  static bool disponiveis() noexcept;

  Digestos();
  ~Digestos();
  Digestos(const Digestos&) = delete;
  Digestos& operator=(const Digestos&) = delete;

  void soma(std::string_view bytes);

  /// After the last piece, once: lower-case hexadecimal; empty when there is none.
  void conclui();
  const std::string& md5() const { return md5_; }
  const std::string& sha256() const { return sha256_; }

 private:
  struct Contextos;
  std::unique_ptr<Contextos> contextos_;
  std::string bloco_, md5_, sha256_;
};

}  // namespace cotepe::pagina
