// Stdout as a stream for the commands that write as they go.
#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace cotepe::programa {

/// Writes to stdout in blocks. Writing throws as escreveTudo does; without `conclui` at the end, what is left
/// in the block is lost.
class FluxoDeSaida final : public std::ostream {
 public:
  FluxoDeSaida();

  /// After the last write: writes the rest of the block and asks for what only closing reports. Throws as
  /// confirmaEscrita.
  void conclui();

 private:
  class Bloco final : public std::streambuf {
   public:
    Bloco();

   private:
    int overflow(int c) override;
    int sync() override;

    std::array<char, 1 << 16> bytes_;
  };

  Bloco bloco_;
};

}  // namespace cotepe::programa
