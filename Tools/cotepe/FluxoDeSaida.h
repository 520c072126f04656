// Stdout as a stream for the commands that write as they go.
#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace cotepe::programa {

/// Writes to stdout in blocks. Writing throws as escreveTudo does; `flush` before the end, or what is left in
/// the block is lost.
class FluxoDeSaida final : public std::ostream {
 public:
  FluxoDeSaida();

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
