// A report on its way to the form in which it is handed in: records that end with CR and LF, the EAD line
// last.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace cotepe {

/// Fills a buffer: returns the count of bytes, 0 at the end, below 0 (errno set) when it cannot.
using LeituraDeBytes = std::function<long(char* destino, std::size_t tamanho)>;
using EscritaDeBytes = std::function<void(std::string_view bytes)>;

/// What happens to the line ends.
enum class FinsDeLinha : std::uint8_t { ComoEstao, CrLf, Lf };

/// Why a file is not a report that can be signed.
enum class Estranheza : std::uint8_t {
  Nenhuma,
  Vazio,            ///< no line at all
  Bom,              ///< a byte-order mark at the start
  PrimeiraNaoEE01,  ///< the first line is a record other than E01
  SemRegistro,      ///< a line does not begin with a register's code
  CrNaLinha,        ///< a carriage return inside a line
  EadNoMeio,        ///< an EAD line with something after it
};

/// A line that begins with EAD, without its line end.
struct EadLida {
  std::string texto;
  long linha = 0;             ///< from 1
  std::uint64_t posicao = 0;  ///< of its first byte in the file, from 0
  std::uint64_t fim = 0;      ///< of what follows the line and its line end
};

/// Takes a file in pieces of any size and passes it on in blocks, with the requested line ends and without an
/// EAD line at its end. Memory is one block, whatever the file; a line is recognized by its first `kLinha`
/// bytes.
class FormaDeEntrega {
 public:
  static constexpr std::size_t kBloco = std::size_t{1} << 18;  ///< bytes passed on at a time
  static constexpr std::size_t kLinha = std::size_t{1} << 16;  ///< of a line that is held whole

  using Destino = std::function<void(std::string_view)>;
  using AoAcharEad = std::function<void(const EadLida&)>;

  /// `destino` receives the output. `aoAcharEad`, if given, is called for each EAD line after `destino` has
  /// received everything before it.
  FormaDeEntrega(FinsDeLinha fins, Destino destino, AoAcharEad aoAcharEad = nullptr);

  /// Skips a byte-order mark at the start of the file.
  void tiraBom() { tiraBom_ = true; }

  void passa(std::string_view bytes);
  /// To be called after the last piece.
  void termina();

  ///@{
  /// After `termina`: what the file was like.
  std::uint64_t tamanho() const { return posicao_; }  ///< in bytes
  long linhas() const { return linhas_; }             ///< the EAD line at the end among them
  bool temLf() const { return comLf_ != 0; }          ///< a line that ends with LF only
  bool temCrLf() const { return comCrLf_ != 0; }      ///< a line that ends with CR and LF
  bool acabaSemFim() const { return semFim_; }        ///< the last line has no line end
  bool temBom() const { return bom_; }
  bool acabaEmEad() const { return guardada_; }  ///< the last line is an EAD line
  long eads() const { return eads_; }            ///< how many lines begin with EAD
  const EadLida& primeiraEad() const { return primeira_; }
  const EadLida& ultimaEad() const { return ultima_; }
  Estranheza estranheza() const { return estranheza_; }  ///< the first one found
  long linhaEstranha() const {
    return linhaEstranha_;
  }  ///< its line, from 1
     ///@}

 private:
  void linha(std::string_view texto, bool comLf);
  void comecaLinha(std::string_view texto);
  void guardaEad(std::string_view texto, std::uint64_t fim);
  void soltaEad();
  void escreveLinha(std::string_view texto, bool comCr, bool comLf);
  void guarda(std::string_view bytes);
  void escreve(std::string_view bytes);
  void despeja();
  void estranha(Estranheza qual);

  FinsDeLinha fins_;
  Estranheza estranheza_ = Estranheza::Nenhuma;
  bool tiraBom_ = false, semFim_ = false, bom_ = false;
  bool dentro_ = false;    // more of the pending line was passed on already
  bool guardada_ = false;  // `ultima_` may be the last line, and was not passed on
  bool guardadaComCr_ = false, guardadaComLf_ = false;
  Destino destino_;
  AoAcharEad aoAcharEad_;
  std::string bloco_;
  std::string pendente_;       // the beginning of a line whose end has not arrived yet
  std::uint64_t posicao_ = 0;  // in the file, of the line being read
  std::uint64_t adiante_ = 0;  // of that line, the bytes passed on already
  long linhas_ = 0, comLf_ = 0, comCrLf_ = 0, eads_ = 0, linhaEstranha_ = 0;
  EadLida primeira_, ultima_;
};

/// Gives all bytes to `forma`. Throws ErroDaAssinatura (Leitura) and what `le` throws.
void passaTudo(const LeituraDeBytes& le, FormaDeEntrega& forma);

}  // namespace cotepe
